// SPDX-License-Identifier: MIT
// The wizard's pages by themselves.
#include "tests/core/TestFactories.h"
#include "tests/support/TestSettings.h"
#include "tests/wizard/FileDialog.h"
#include "tests/wizard/WizardUnderTest.h"
#include "wizard/QExportAttributeSheet.h"
#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportSheetSaveFile.h"
#include "wizard/QExportSheetSaveInfo.h"

#include <QtTest>

using namespace kpBaseExport;

namespace
{

/// A host may bind the constants to references.
const int* const typeBits[] = {&QExportAttributeWidget::c_systemTypeText, &QExportAttributeWidget::c_systemTypeAll};

class AttributeSheet : public QExportAttributeSheet
{
public:
    QString optionSummary() const override { return {}; }
    void begin(QExportWizard* wizard) { QExportAttributeSheet::initialize(wizard, QString()); }
};

} // namespace

class PagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestSettings(m_folder.path()); }

    void report()
    {
        QCOMPARE(ReportHtml::table(QStringLiteral("T"), {}), QString());
        QCOMPARE(ReportHtml::table(QStringLiteral("Geometric Data"),
                                   {{QStringLiteral("a<b>.dat"), QExportAbstractSheet::ACCEPTED},
                                    {QStringLiteral("c.dat"), QExportAbstractSheet::NO_WRITE_PERMISSION}}),
                 QStringLiteral("<font color=\"black\" size=4><u><b>Geometric Data</b>:</u></font><br>"
                                "<table align=\"center\" border=1 width=500 cellpadding=5>"
                                "<tr><td><font color=\"blue\"  size=4>a&lt;b&gt;.dat</font><td>"
                                "<font color=\"black\" size=4>accepted</font></tr>"
                                "<tr><td><font color=\"blue\"  size=4>c.dat</font><td>"
                                "<font color=\"red\"   size=4>no write permission</font></tr></table><br><br>"));

        using Sheet = QExportAbstractSheet;
        QExportSheetSaveInfo sheet(nullptr, QString());
        const auto shows = [&sheet](const char* text) { return textOf(sheet).count(QString::fromLatin1(text)); };
        sheet.setDirectory(QStringLiteral("/o"));
        sheet.setWarnings(QStringLiteral("careful"));
        sheet.addFileName(QStringLiteral("both"), Sheet::GEO_AND_ATTRIBUTE_DATA, Sheet::ACCEPTED);
        sheet.addFileName(QStringLiteral("only"), Sheet::ATTRIBUTE_DATA, Sheet::USER_DID_NOT_ACCEPT_OVERWRITING);
        sheet.showInfo();
        QCOMPARE(shows("both"), 2);
        QVERIFY(textOf(sheet).simplified().contains(QStringLiteral("Directory: /o")));
        QVERIFY(shows("careful") && !shows("Other Files"));
        sheet.showInfo();
        QVERIFY(!shows("Geometric Data"));

        sheet.setErrorMessage(QStringLiteral("first "));
        sheet.setErrorMessage(QStringLiteral("second"));
        sheet.setErrorMessage(QStringLiteral("f1"), QString());
        sheet.setErrorMessage(QStringLiteral("f2"), QStringLiteral("why"));
        sheet.addFileName(QStringLiteral("x"), Sheet::GEO_DATA, Sheet::ACCEPTED);
        sheet.showInfoNoSuccess(false);
        QVERIFY(shows("first secondFailed to export f1\nFailed to export f2\nwhy") && !shows("accepted"));
        sheet.clearErrorList();
        sheet.showInfoNoSuccess(false);
        QVERIFY(!shows("f1"));
        sheet.showInfoNoSuccess(true);
        QCOMPARE(textOf(sheet).simplified(), QStringLiteral("Export process has been cancelled by the user! careful"));
        sheet.clearInfo();
        QCOMPARE(textOf(sheet), QString());
    }

    void listModelFindsRows()
    {
        // The first of several with the same id or name, also after the list has been filled anew.
        QObjectListModel model(nullptr, QString());
        for (int round = 0; round < 2; ++round) {
            model.clear();
            for (int row = 0; row < 1000; ++row)
                model.addName(QStringLiteral("n%1").arg((row + round) % 500), (row + round) % 500, QString(), false);
            model.setIdInListChecked(3);
            model.setNameInListChecked(QStringLiteral("n4"));
            model.setIdInListChecked(500);
            QVERIFY(model.isNameInList(QStringLiteral("n499")) && !model.isNameInList(QStringLiteral("n500")));
            model.resetModel();
            QCOMPARE(model.selectedGeoIds(), (std::vector<int>{3, 4}));
            for (const int id : {3, 4})
                QVERIFY(model.data(model.index(id - round, 0), Qt::CheckStateRole).toInt() == Qt::Checked);
            model.addName(QStringLiteral("late"), 1000, QString(), false);
            model.setIdInListChecked(1000);
            QVERIFY(model.isNameInList(QStringLiteral("late")));
            QCOMPARE(model.selectedGeoIds().back(), 1000);
        }
    }

    void listModel()
    {
        QObjectListModel model(nullptr, QStringLiteral("Title"));
        const auto header = [&model](int column) { return model.headerData(column, Qt::Horizontal).toString(); };
        model.addName(QStringLiteral("b"), 7, QStringLiteral("Wells"), true);
        model.addName(QStringLiteral("a"), 3, QStringLiteral("Pins"), false);
        model.resetModel();
        QCOMPARE(model.columnCount(), 3);
        QCOMPARE(header(0) + header(1) + header(2), QStringLiteral("TitleIdType"));
        QCOMPARE(model.data(model.index(0, 0), Qt::TextAlignmentRole).toInt(), 0x81);
        QCOMPARE(model.data(model.index(0, 0).siblingAtColumn(0), Qt::CheckStateRole).toInt(), 2);
        model.setNameInListChecked(QStringLiteral("a"));
        QCOMPARE(model.selectedGeoIds(), (std::vector<int>{7, 3}));
        QCOMPARE(model.selectedGeoTypes(), (std::vector<std::string>{"Wells", "Pins"}));
        QVERIFY(!model.isNameInList(QStringLiteral("A")));
        QVERIFY(!model.setData(model.index(0, 0), 1.0, Qt::EditRole));
        model.clear();
        // What a view still holds finds nothing.
        QVERIFY(!model.data(model.index(0, 0), Qt::DisplayRole).isValid());

        model.addName(QStringLiteral("Top"), 65.5, true);
        model.addName(QStringLiteral("Base"), 70.0, false);
        model.resetModel();
        QCOMPARE(model.columnCount(), 2);
        QCOMPARE(header(1), QStringLiteral("Age"));
        QVERIFY(model.setData(model.index(0, 0), 66.0, Qt::EditRole));
        QCOMPARE(model.selectedValues(), std::vector<double>{66.0});
        QVERIFY(model.selectedGeoIds().empty());
        model.setIdInListChecked(1);
        model.selectAll();
        QCOMPARE(model.selectedNames(), (std::vector<std::string>{"Top", "Base"}));
    }

    void checkBoxIsToggledByMouse()
    {
        QObjectListModel model(nullptr, QStringLiteral("Title"));
        model.addName(QStringLiteral("a"), 1, QStringLiteral("t"), true);
        model.resetModel();
        QTableView view;
        view.setModel(&model);
        view.show();
        QSignalSpy spy(&model, &QObjectListModel::objectChecked);
        const QRect cell = view.visualRect(model.index(0, 0));
        const QPoint box = cell.topLeft() + QPoint(10, cell.height() / 2);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, box);
        QCOMPARE(spy.size(), 1);
        QVERIFY(model.selectedGeoIds().empty());
    }

    void fileSelection()
    {
        const QString name = m_folder.filePath(QString::fromUtf8("Грифон.dat"));
        ShownDialog shown;
        const auto select = [&shown](QExportSheetSaveFile& sheet, const char* suffix, const QString& answer) {
            const QString text = QString::fromLatin1(suffix);
            sheet.setFiltersAndDefaultSuffix(text, text, QStringLiteral("*.") + text);
            chooseInDialog(answer, &shown);
            sheet.doFileSelection();
            return shown.directory;
        };
        {
            QExportSheetSaveFile sheet(nullptr, QString());
            QSignalSpy saved(&sheet, &QExportSheetSaveFile::saveClicked);
            QSignalSpy cancelled(&sheet, &QExportSheetSaveFile::saveCancelled);
            QCOMPARE(select(sheet, "dat", QString()), QDir::homePath());
            QCOMPARE(cancelled.size(), 1);
            QVERIFY(saved.isEmpty() && sheet.fileName().isEmpty());
            QVERIFY(!QSettings().contains(QStringLiteral("QExportSheetSaveFiledat/directory")));
            select(sheet, "dat", name);
            QCOMPARE(saved.size(), 1);
            QCOMPARE(saved.first(), (QVariantList{name, true}));
        }
        // Another dialog, another run of the program: the directory is remembered for this suffix only.
        QExportSheetSaveFile sheet(nullptr, QString());
        QCOMPARE(select(sheet, "txt", QString()), QDir::homePath());
        QCOMPARE(select(sheet, "dat", QString()), m_folder.path());
    }

    void attributes_data()
    {
        QTest::addColumn<QString>("supply");
        QTest::addColumn<int>("unselectable");
        QTest::addColumn<QString>("listed");
        QTest::addColumn<QString>("warning");
        const auto row = [](const char* name, const char* supply, int unselectable, const char* listed,
                            const char* warning = "") {
            QTest::newRow(name) << QString::fromLatin1(supply) << unselectable << QString::fromLatin1(listed)
                                << QString::fromLatin1(warning);
        };
        const int text = *typeBits[0];
        row("sorted whatever the case", "gamma=real Beta=TEXT alpha=Color", 0, "alpha Beta gamma");
        row("the later of two that differ in case", "depth=real Depth=real", 0, "Depth");
        row("unsupported, in the order supplied", "Name=text a=real Col=color odd=matrix",
            text | QExportAttributeWidget::c_systemTypeColor, "a",
            "Unsupported Attributes for this Format: Name (text), Col (color), odd (matrix)");
        row("none supported", "Name=text", text, "");
        row("every type",
            "a=boolean b=color c=dip d=flag e=integer f=pattern g=real h=realvector2 i=realvector3 j=text "
            "k=vertexdisplay",
            0, "a b c d e f g h i j k");
    }

    void attributes()
    {
        QFETCH(QString, supply);
        QFETCH(int, unselectable);
        QFETCH(QString, warning);
        WizardUnderTest wizard;
        for (const QString& entry : supply.split(QLatin1Char(' ')))
            wizard.supply.append({entry.section(QLatin1Char('='), 0, 0).toStdString(),
                                  entry.section(QLatin1Char('='), 1).toStdString()});
        QExportAttributeWidget panel(&wizard, nullptr);
        panel.initialize(QString(), QExportAttributeWidget::OBJECT_LEVEL);
        panel.setUnselectableType(unselectable);
        panel.show();
        panel.activate();
        QStringList shown;
        for (const std::string& name : panel.selectedAttributeNames())
            shown.append(QString::fromStdString(name));
        QTEST(shown.join(QLatin1Char(' ')), "listed");
        QCOMPARE(child<QGroupBox>(panel, "warningBox")->isVisible(), !warning.isEmpty());
        if (!warning.isEmpty())
            QCOMPARE(child<QLabel>(panel, "m_warningLabel")->text(), warning);
        QVERIFY(!wizard.flags.first && wizard.flags.second);
    }

    void attributePage()
    {
        WizardUnderTest wizard;
        wizard.supply = {{"a", "real"}, {"b", "real"}};
        AttributeSheet sheet;
        sheet.begin(&wizard);
        QCOMPARE(sheet.windowTitle(), QStringLiteral("File Export: Attribute Export"));
        QCOMPARE(child<QGroupBox>(sheet, "groupBox")->title(), QStringLiteral("Export  Attributes"));
        sheet.setAllFlag(true);
        sheet.setVisibleFlag(false);
        sheet.activate();
        QVERIFY(wizard.flags.first && !wizard.flags.second);
        click(sheet, "m_deselectAllButton");
        QVERIFY(sheet.selectedAttributeNames().empty() && sheet.isComplete());
        child<QListWidget>(sheet, "m_attributeList")->item(1)->setCheckState(Qt::Checked);
        QCOMPARE(sheet.selectedAttributeNames(), std::vector<std::string>{"b"});
        // Coming back shows everything checked.
        sheet.activate();
        QCOMPARE(sheet.selectedAttributeNames().size(), std::size_t(2));
        // The panel without a wizard has nothing on offer and stays usable.
        QExportAttributeWidget panel(nullptr, nullptr);
        panel.initialize(QString(), QExportAttributeWidget::VERTEX_LEVEL);
        panel.activate();
        QVERIFY(panel.selectedAttributeNames().empty() && panel.isComplete());
    }

private:
    static QString textOf(QWidget& sheet) { return sheet.findChild<QTextEdit*>()->toPlainText(); }

    QTemporaryDir m_folder;
    TestSheetFactory m_objects{"QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }};
};

QTEST_MAIN(PagesTest)
#include "tst_pages.moc"
