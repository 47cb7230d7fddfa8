// SPDX-License-Identifier: MIT
// The ASCII page in the program's wizard, driven by mouse and keyboard: a layout from its first drag to the file, the
// same bytes from the command line; preview, hints and their cures; what is remembered.
#include "formats/ascii/AsciiFormat.h"
#include "pages/AsciiSheet.h"
#include "pages/AsciiSpecification.h"
#include "spec/QESAttributeTableWidget.h"
#include "spec/QESSpecificationTableWidget.h"
#include "tests/spec/MouseDrag.h"
#include "tests/spec/SpecificationEditor.h"
#include "tests/support/Animations.h"
#include "tests/support/BoxAnswer.h"
#include "tests/support/SaverRun.h"
#include "tests/support/TestSettings.h"
#include "tests/support/TextRows.h"
#include "window/ExportWizard.h"
#include "window/HostContext.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QtWidgets>

#include <numeric>

using namespace kpFormats;
using namespace refhost;

namespace
{

/// The wizard at the ASCII page with some objects.
struct Page
{
    Page(HostContext& context, const std::vector<int>& ids)
        : wizard(context, nullptr)
    {
        wizard.setFormatAndSelectedGeo("ascii", ids);
        wizard.startup();
        wizard.show();
        sheet = dynamic_cast<AsciiSheet*>(wizard.current_sheet());
        editor = wizard.findChild<AsciiSpecification*>();
    }
    QStringList listed() const { return SpecificationEditor::columnOf(*editor->m_attributeTable); }
    QStringList fields() const { return SpecificationEditor::columnOf(*editor->m_fieldTable); }
    template <typename Widget>
    Widget* child(const char* name) const
    {
        return wizard.findChild<Widget*>(QString::fromLatin1(name));
    }
    QString preview() const { return child<QPlainTextEdit>("preview")->toPlainText(); }
    QStringList hints() const
    {
        QStringList texts;
        for (const QLabel* label : wizard.findChildren<QLabel*>(QStringLiteral("hintText")))
            texts += label->isVisible() ? QStringList{label->text()} : QStringList();
        return texts;
    }
    void cure() const
    {
        for (QPushButton* button : wizard.findChildren<QPushButton*>(QStringLiteral("hintCure"))) {
            if (button->isVisible())
                return click(button);
        }
        QFAIL("there is no cure");
    }
    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    void click(const char* name) const { click(child<QWidget>(name)); }
    void takeOut(int field) const
    {
        editor->m_fieldTable->setCurrentCell(field, 0);
        click(editor->m_toAttributeButton);
    }
    void takeOutAll() const
    {
        while (editor->size() > 0)
            takeOut(0);
    }
    void takeIn(int attribute) const
    {
        editor->m_attributeTable->setCurrentCell(attribute, 0);
        click(editor->m_toFieldButton);
    }
    void load(const QString& layout) const
    {
        chooseInDialog(layout);
        click(editor->m_loadFormatButton);
    }
    void leaveAndReturn() const
    {
        sheet->deactivate();
        sheet->activate();
    }

    ExportWizard wizard;
    AsciiSheet* sheet = nullptr;
    AsciiSpecification* editor = nullptr;
};

} // namespace

class AsciiPageTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { letAnimationsEnd(); }
    void fromTheMouseToTheFile();
    void columnsAsOnTheCommandLine();
    void everythingIsLaidOutAtFirst();
    void previewIsTheFile_data();
    void previewIsTheFile();
    void separatorHint();
    void nullHints();
    void narrowColumns();
    void tooFewDecimals();
    void lackingFields();
    void formatFileTrouble();
    void remembered();
    void backAndNext();
    void gridIndices();
    void savedBeforeTheColumnsFit();
    void manyRows();
    void manyAttributes();

private:
    int add(ModelObject object) { return m_context->model.add(std::move(object)); }
    static ModelObject points(const char* name, std::vector<double> x, std::vector<double> y, std::vector<double> z)
    {
        return objectOf(QString::fromLatin1(name), ObjectType::VertexClouds, std::move(x), std::move(y), std::move(z));
    }
    int sampleObject(const char* name) const
    {
        for (const ModelObject& object : m_context->model.objects()) {
            if (object.name == QLatin1String(name))
                return object.id;
        }
        return 0;
    }

    std::unique_ptr<HostContext> m_context;
};

void AsciiPageTest::initTestCase()
{
    useTestSettings(path());
    m_context = std::make_unique<HostContext>();
    loadInto(m_context->model, sample("sample.kpmodel"));
}

void AsciiPageTest::init()
{
    QSettings().clear();
    // The settings live as long as the program.
    FormatSetup& ascii = *m_context->formats.find("ascii");
    ascii.settings = ascii.format->defaults();
}

void AsciiPageTest::fromTheMouseToTheFile()
{
    const int contacts = sampleObject("Contacts");
    QVERIFY(contacts > 0);
    {
        Page page(*m_context, {contacts});
        QVERIFY(page.sheet && page.editor);
        page.takeOutAll();
        QVERIFY(!page.wizard.nextButton()->isEnabled());
        QCOMPARE(page.listed(), words("X Y Z name"));
        for (int count = 0; count < 4; ++count)
            dragByMouse(page.editor->m_attributeTable, 0, page.editor->m_fieldTable,
                        middleOf(page.editor->m_fieldTable, page.editor->m_fieldTable->rowCount()));
        QCOMPARE(page.fields(), words("X Y Z name"));
        dragByMouse(page.editor->m_fieldTable, 3, page.editor->m_fieldTable, middleOf(page.editor->m_fieldTable, 0));
        QCOMPARE(page.fields(), words("name X Y Z"));
        page.click(page.editor->m_columnRadio);
        QTableWidget* columns = page.editor->m_columnTable;
        columns->setCurrentCell(3, 2);
        columns->setFocus();
        QTest::keyClick(columns, Qt::Key_F2);
        auto* box = columns->findChild<QSpinBox*>();
        QVERIFY(box);
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, QString::number(page.editor->m_columnTable->item(3, 1)->text().toInt() + 11));
        QTest::keyClick(box, Qt::Key_Return);
        // Names of formations are longer than a column of twelve: they would be cut.
        QTRY_VERIFY(!page.hints().isEmpty());
        page.cure();
        QTRY_VERIFY(page.hints().isEmpty());
        QVERIFY(page.wizard.nextButton()->isEnabled());
        chooseInDialog(path("contacts.klf"));
        page.click(page.editor->m_saveFormatButton);
        QVERIFY(QFile::exists(path("contacts.klf")));
    }
    init();
    Page fresh(*m_context, {contacts});
    QCOMPARE(fresh.fields(), words("X Y Z name"));
    fresh.load(path("contacts.klf"));
    QCOMPARE(fresh.fields(), words("name X Y Z"));
    QTRY_VERIFY(fresh.preview().startsWith(QLatin1String("   ")));
    const QString preview = fresh.preview();
    fresh.wizard.slotSaveClicked(path("gui.txt"), true);
    const QByteArray bytes = contentOf(path("gui.txt"));
    QVERIFY(bytes.size() > 10000);
    QVERIFY2(QString::fromUtf8(bytes).startsWith(preview), qPrintable(preview));

    // The layout as the user saved it, and as the format keeps it for a later run.
    const FormatSetup& ascii = *m_context->formats.find("ascii");
    writeFile(path("kept.klf"), ascii.format->layoutBytes(ascii.settings));
    for (const char* layout : {"contacts.klf", "kept.klf"}) {
        QProcess program;
        program.start(QStringLiteral(KP_PROGRAM),
                      words("export --format ascii --object Contacts --overwrite")
                          + QStringList{sample("sample.kpmodel"), QStringLiteral("--layout"), path(layout),
                                        QStringLiteral("--output"), path("program.txt")});
        QVERIFY(program.waitForFinished(60000));
        QVERIFY2(program.exitCode() == 0, program.readAllStandardError().constData());
        QVERIFY(contentOf(path("program.txt")) == bytes);
    }

    const QStringList checks =
        words("--delimiter blanks --header-lines 1 --names --numeric 2-4 --decimals 3 --rows 656 --eol lf");
    KP_VALIDATE("ascii.py", QStringList{path("gui.txt")} + checks);
}

void AsciiPageTest::columnsAsOnTheCommandLine()
{
    for (const char* name : {"Contacts", "Bedding measurements"}) {
        Page page(*m_context, {sampleObject(name)});
        page.sheet->findChild<QRadioButton*>(QStringLiteral("m_columnRadio"))->click();
        QTRY_VERIFY(page.sheet->isSettled());
        page.wizard.slotSaveClicked(path("columns.txt"), true);
        QProcess program;
        program.start(QStringLiteral(KP_PROGRAM), words("export --format ascii --overwrite --set mode=columns --object")
                                                      + QStringList{QString::fromLatin1(name), sample("sample.kpmodel"),
                                                                    QStringLiteral("--output"), path("program.txt")});
        QVERIFY(program.waitForFinished(60000));
        const QByteArray bytes = contentOf(path("columns.txt"));
        QVERIFY(bytes.size() > 10000);
        QCOMPARE(contentOf(path("program.txt")).left(300), bytes.left(300));
        QVERIFY(contentOf(path("program.txt")) == bytes);
    }
}

void AsciiPageTest::everythingIsLaidOutAtFirst()
{
    for (const ObjectType type : m_context->formats.find("ascii")->format->info().types) {
        ModelObject object = points("one", {1}, {2}, {3});
        object.type = type;
        object.objectAttributes.push_back({QStringLiteral("Facies:sand"), AttributeKind::Integer, {}, 4});
        object.objectAttributes.push_back({QStringLiteral("x"), AttributeKind::Real, {}, 0.5});
        Page page(*m_context, {add(object)});
        QCOMPARE(page.fields().join(QLatin1Char('|')), QStringLiteral("X|Y|Z|Facies:sand|x (attribute)"));
        QCOMPARE(page.preview(), QStringLiteral("X,Y,Z,Facies:sand,x (attribute)\n1.000,2.000,3.000,4,0.500\n"));
        page.takeOut(3);
        QCOMPARE(page.listed(), words("Facies..."));
        QSettings().clear();
    }
}

void AsciiPageTest::previewIsTheFile_data()
{
    textRows({"settings"}, {{"separator=tab zIsElevation=false"},
                            {"preset=surfer"},
                            {"mode=columns header=false lineBreaks=true missingZ=null"},
                            {"quoting=all guardFormulas=true"},
                            {"separator=custom customSeparator=|| writeNullValue=false"}});
}

void AsciiPageTest::previewIsTheFile()
{
    QFETCH(QString, settings);
    // What was stored comes back in the controls.
    for (const QString& setting : settings.split(QLatin1Char(' ')))
        QSettings().setValue(QStringLiteral("format_ascii/") + setting.section(QLatin1Char('='), 0, 0),
                             setting.section(QLatin1Char('='), 1));
    Page page(*m_context, {sampleObject("Bedding measurements")});
    QTRY_VERIFY(page.sheet->isSettled());
    QTRY_VERIFY(!page.preview().isEmpty());
    const QString preview = page.preview();
    page.wizard.slotSaveClicked(path("preview.txt"), true);
    const QString written = QString::fromUtf8(contentOf(path("preview.txt")));
    const QString shown = settings.contains(QLatin1String("lineBreaks")) ? preview.left(preview.size() - 1) : preview;
    QVERIFY2(shown.size() > 300 && written.startsWith(shown),
             qPrintable(shown + QStringLiteral("\n--\n") + written.left(shown.size())));
    for (const QString& setting : settings.split(QLatin1Char(' ')))
        QCOMPARE(m_context->formats.find("ascii")->settings.get(setting.section(QLatin1Char('='), 0, 0)),
                 setting.section(QLatin1Char('='), 1));
}

void AsciiPageTest::separatorHint()
{
    ModelObject object = points("texts", {1, 2}, {1, 2}, {1, 2});
    object.vertexAttributes = {
        columnOf(QStringLiteral("Unit"), AttributeKind::Text, {QStringLiteral("sand, silt"), QStringLiteral("a;b")})};
    // In quotes they do no harm.
    {
        Page quoted(*m_context, {add(object)});
        QTRY_COMPARE(quoted.preview(),
                     QStringLiteral("X,Y,Z,Unit\n1.000,1.000,1.000,\"sand, silt\"\n2.000,2.000,2.000,a;b\n"));
        QVERIFY(quoted.hints().isEmpty());
    }
    Page page(*m_context, {add(object)});
    auto* quotes = page.child<QComboBox>("quoting");
    quotes->setCurrentIndex(quotes->findText(QStringLiteral("none")));
    QTRY_COMPARE(page.hints(), QStringList{QStringLiteral("The separator stands in texts of Unit: \"sand, silt\".")});
    page.cure();
    QTRY_VERIFY(page.hints().isEmpty());
    QCOMPARE(page.editor->separator(), kpBaseExport::QExportSpecification::Tab);
    QCOMPARE(page.preview(),
             QStringLiteral("X\tY\tZ\tUnit\n1.000\t1.000\t1.000\tsand, silt\n2.000\t2.000\t2.000\ta;b\n"));
    // A separator of one's own is looked for, too; without any the values run together.
    page.click("useCustomSeparator");
    QTRY_COMPARE(page.hints(),
                 QStringList{QStringLiteral("There is no text between the values: they run into each other.")});
    QTest::keyClicks(page.child<QLineEdit>("customSeparator"), QStringLiteral("and"));
    QTRY_VERIFY(page.hints().value(0).contains(QLatin1String("\"sand, silt\"")));
    page.click("showMarks");
    QVERIFY(page.child<QPlainTextEdit>("preview")->document()->defaultTextOption().flags()
            & QTextOption::ShowTabsAndSpaces);
}

void AsciiPageTest::nullHints()
{
    ModelObject object = points("nulls", {1, 200000}, {1, 2}, {1, 2});
    object.vertexAttributes = {columnOf(QStringLiteral("Ni"), AttributeKind::Real, {0.5, QVariant()})};
    Page page(*m_context, {add(object)});
    QTRY_COMPARE(page.hints(), QStringList{QStringLiteral("The null value 99999 could be a true value of X.")});
    page.cure();
    QTRY_VERIFY(page.preview().endsWith(QLatin1String(",-9999\n")));
    QTRY_VERIFY(page.hints().isEmpty());
    page.editor->m_nullCheck->click();
    QTRY_COMPARE(page.hints(), QStringList{QStringLiteral("Missing values of Ni are written as 0.")});
    page.cure();
    QTRY_VERIFY(page.hints().isEmpty());
    QVERIFY(page.editor->isNull());
}

void AsciiPageTest::narrowColumns()
{
    ModelObject object = points("narrow", {1234567.891, 1234560}, {-98765432.5, 2}, {1, 2});
    object.objectAttributes.push_back({QStringLiteral("Name"), AttributeKind::Text, {}, QString(30, QLatin1Char('w'))});
    Page page(*m_context, {add(object)});
    page.click(page.editor->m_columnRadio);
    // Columns that the user has not touched are wide enough.
    QTRY_VERIFY(page.sheet->isSettled());
    QVERIFY(page.hints().isEmpty());
    page.click(page.editor->m_fieldRadio);
    page.takeOutAll();
    for (int count = 0; count < 4; ++count)
        page.takeIn(page.listed().size() - 1);
    page.click(page.editor->m_columnRadio);
    page.editor->m_columnTable->item(2, 2)->setText(
        QString::number(page.editor->m_columnTable->item(2, 1)->text().toInt() + 5));
    QTRY_VERIFY2(page.hints().value(0).contains(QLatin1String("(2 columns are too narrow)")),
                 qPrintable(page.hints().join(QLatin1Char('/'))));
    QVERIFY(page.preview().contains(QLatin1Char('*')));
    page.cure();
    QTRY_VERIFY(page.hints().isEmpty());
    QVERIFY(!page.preview().contains(QLatin1Char('*')) && page.preview().contains(QLatin1String("-98765432.500")));
}

void AsciiPageTest::tooFewDecimals()
{
    const ModelObject object = points("close", {1, 1.00004, 5}, {1, 1, 5}, {2, 2, 5});
    Page page(*m_context, {add(object)});
    QTRY_COMPARE(page.hints(),
                 QStringList{QStringLiteral("1 neighbouring points differ, but are written alike: too few decimals.")});
    page.cure();
    QTRY_VERIFY(page.hints().isEmpty());
    QCOMPARE(page.preview(),
             QStringLiteral("X,Y,Z\n1.00000,1.00000,2.00000\n1.00004,1.00000,2.00000\n5.00000,5.00000,5.00000\n"));
}

void AsciiPageTest::lackingFields()
{
    writeFile(path("lacking.klf"), "{\"format\":\"kp-layout\",\"version\":1,\"type\":\"fields\",\"other\":1,"
                                   "\"settings\":{\"separator\":\"semicolon\",\"unheard\":\"of\"},\"fields\":["
                                   "{\"name\":\"gone\",\"typeId\":0,\"order\":0},{\"name\":\"Y\",\"typeId\":-2,"
                                   "\"order\":1},{\"name\":\"X\",\"typeId\":-6,\"order\":2}]}");
    ModelObject having = points("with", {1}, {2}, {3});
    having.objectAttributes.push_back({QStringLiteral("gone"), AttributeKind::Integer, {}, 7});
    const int with = add(having);
    const int without = add(points("without", {1}, {2}, {3}));
    Page page(*m_context, {without});
    page.load(path("lacking.klf"));
    auto* told = page.child<QLabel>("lackingFields");
    QVERIFY(told->isVisible() && told->text().endsWith(QLatin1String(": gone")));
    QTRY_COMPARE(page.preview(), QStringLiteral("Y;X\n2.00;1.00\n"));
    page.click("dismissLacking");
    QVERIFY(!told->isVisible());
    // Going back and forth neither loses the field nor tells of it again.
    page.leaveAndReturn();
    QVERIFY(!told->isVisible());
    page.wizard.setFormatAndSelectedGeo("ascii", {with});
    page.leaveAndReturn();
    QTRY_COMPARE(page.preview(), QStringLiteral("gone;Y;X\n7;2.00;1.00\n"));
    page.wizard.setFormatAndSelectedGeo("ascii", {without});
    page.leaveAndReturn();
    page.wizard.slotSaveClicked(path("lacking.txt"), true);
    QCOMPARE(contentOf(path("lacking.txt")), QByteArray("Y;X\n2.00;1.00\n"));
    const QString report = page.child<QTextEdit>("reportView")->toPlainText();
    QVERIFY2(report.contains(QLatin1String("a field of the layout was left out"))
                 && report.contains(QLatin1String("gone")),
             qPrintable(report));
    // Saved anew the file still has the field and the key that we do not know.
    chooseInDialog(path("again.klf"));
    page.editor->m_saveFormatButton->click();
    const QJsonObject again = QJsonDocument::fromJson(contentOf(path("again.klf"))).object();
    QVERIFY(again.value(QStringLiteral("other")).toInt() == 1
            && contentOf(path("again.klf")).contains("\"name\": \"gone\""));
    QCOMPARE(again.value(QStringLiteral("settings")).toObject().value(QStringLiteral("separator")).toString(),
             QStringLiteral("semicolon"));
}

void AsciiPageTest::formatFileTrouble()
{
    Page page(*m_context, {add(points("kept", {1}, {2}, {3}))});
    const auto saveAs = [&](const char* name) {
        chooseInDialog(path(name));
        page.click(page.editor->m_saveFormatButton);
    };
    writeFile(path("keep.klf"), "kept\n}");
    {
        const BoxAnswer no(QMessageBox::No);
        saveAs("keep");
        QCOMPARE(no.texts, QStringList{QStringLiteral("keep.klf already exists.\nDo you want to replace it?")});
    }
    QCOMPARE(contentOf(path("keep.klf")), QByteArray("kept\n}"));
    {
        const BoxAnswer seen(QMessageBox::Ok);
        page.load(path("keep.klf"));
        QCOMPARE(seen.texts.size(), 1);
        QVERIFY2(seen.texts[0].contains(QStringLiteral("keep.klf"))
                     && seen.texts[0].contains(QStringLiteral("line 1: ")),
                 qPrintable(seen.texts[0]));
    }
    const BoxAnswer yes(QMessageBox::Yes);
    saveAs("keep");
    QVERIFY(contentOf(path("keep.klf")).contains("kp-layout"));
}

void AsciiPageTest::remembered()
{
    const int id = add(points("kept", {1}, {2}, {3}));
    {
        Page page(*m_context, {id});
        page.wizard.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page.wizard));
        page.editor->m_fieldTable->setFocus();
        page.editor->m_fieldTable->setCurrentCell(0, 0);
        QTest::keyClick(page.editor->m_fieldTable, Qt::Key_Down, Qt::AltModifier);
        QTRY_COMPARE(page.fields(), words("Y X Z"));
        page.editor->m_fieldTable->item(1, 1)->setText(QStringLiteral("17"));
        page.editor->m_fieldTable->item(1, 2)->setText(QStringLiteral("1"));
        page.editor->setSeparator(kpBaseExport::QExportSpecification::Space);
        page.click("header");
        page.wizard.close();
    }
    Page page(*m_context, {id});
    QCOMPARE(page.fields(), words("Y X Z"));
    QCOMPARE(page.editor->m_fieldTable->item(1, 1)->text(), QStringLiteral("17"));
    QCOMPARE(page.preview(), QStringLiteral("2.000 1.0 3.000\n"));
    page.click("allAttributes");
    QTRY_COMPARE(page.preview(), QStringLiteral("1.000 2.000 3.000\n"));
}

void AsciiPageTest::backAndNext()
{
    ExportWizard wizard(*m_context, nullptr);
    wizard.startup();
    wizard.show();
    QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
    auto* editor = wizard.findChild<AsciiSpecification*>();
    QVERIFY(editor && editor->size() > 10);
    dragByMouse(editor->m_fieldTable, 0, editor->m_fieldTable, middleOf(editor->m_fieldTable, 2));
    editor->m_fieldTable->item(1, 1)->setText(QStringLiteral("19"));
    wizard.findChild<QCheckBox*>(QStringLiteral("header"))->click();
    const QStringList fields = SpecificationEditor::columnOf(*editor->m_fieldTable);
    QCOMPARE(fields.mid(0, 3), words("Y Z X"));
    QTest::mouseClick(wizard.backButton(), Qt::LeftButton);
    QVERIFY(!dynamic_cast<AsciiSheet*>(wizard.current_sheet()));
    QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
    QCOMPARE(wizard.findChild<AsciiSpecification*>(), editor);
    QCOMPARE(SpecificationEditor::columnOf(*editor->m_fieldTable), fields);
    QCOMPARE(editor->m_fieldTable->item(1, 1)->text(), QStringLiteral("19"));
    QVERIFY(!wizard.findChild<QCheckBox*>(QStringLiteral("header"))->isChecked());
}

void AsciiPageTest::gridIndices()
{
    const int id = add(gridOf(QStringLiteral("grid"), 3, {5, 5, 5, 5, 5, none}));
    const int cloud = add(points("cloud", {9}, {9}, {9}));
    Page page(*m_context, {id, cloud});
    QCOMPARE(page.listed(), words("i j"));
    page.takeOutAll();
    for (const int row : {0, 0, 2})
        page.takeIn(row);
    QCOMPARE(page.fields(), words("i j Z"));
    page.wizard.slotSaveClicked(path("grid.txt"), true);
    QCOMPARE(contentOf(path("grid.txt")),
             QByteArray("i,j,Z\n1,1,5.000\n2,1,5.000\n3,1,5.000\n1,2,5.000\n2,2,5.000\n3,2,\n99999,99999,9.000\n"));
}

void AsciiPageTest::savedBeforeTheColumnsFit()
{
    // A save at once does not cut what the page has not looked at yet.
    std::vector<double> x(200000, 1.0);
    x.back() = 123456789012345.0;
    ModelObject object = points("quick", x, x, x);
    QSettings().setValue(QStringLiteral("format_ascii/mode"), QStringLiteral("columns"));
    Page page(*m_context, {add(object)});
    page.wizard.slotSaveClicked(path("quick.txt"), true);
    const QByteArray written = contentOf(path("quick.txt"));
    QVERIFY(!written.contains('*')
            && written.endsWith("\n123456789012345.000 123456789012345.000 123456789012345.000\n"));
}

void AsciiPageTest::manyRows()
{
    // The writer is handed the first rows alone, whatever the object's size.
    std::vector<double> x(1000000);
    std::iota(x.begin(), x.end(), 0.0);
    const ModelObject object = points("many", x, x, x);
    Page page(*m_context, {add(object)});
    QCOMPARE(page.preview().count(QLatin1Char('\n')), 13);
    page.editor->m_fieldTable->item(0, 2)->setText(QStringLiteral("0"));
    QTRY_VERIFY(page.preview().contains(QLatin1String("\n11,11.000,11.000\n")));
}

void AsciiPageTest::manyAttributes()
{
    ModelObject object = points("wide", {1}, {2}, {3});
    for (int index = 0; index < 5000; ++index)
        object.objectAttributes.push_back(
            {QStringLiteral("attribute %1").arg(index), AttributeKind::Integer, {}, index});
    Page page(*m_context, {add(object)});
    QCOMPARE(page.editor->size(), 5003);
    writeFile(path("few.klf"),
              "{\"format\":\"kp-layout\",\"version\":1,\"type\":\"fields\",\"fields\":[{\"name\":\"attribute 7\"}]}");
    page.load(path("few.klf"));
    QCOMPARE(page.listed().size(), 5002);
    QTest::keyClicks(page.child<QLineEdit>("attributeFilter"), QStringLiteral("499"));
    QCOMPARE(page.listed().size(), 15);
}

KP_DRAG_TEST_MAIN(AsciiPageTest)
#include "tst_asciipage.moc"
