// SPDX-License-Identifier: MIT
// The pages as they come up: titles, what the Tab key reaches, names for readers of the screen, texts that can be
// translated; nothing cut off.
#include "tests/sheets/SheetsUnderTest.h"

#include "core/saver/AttributeNamesSheet.h"
#include "tests/core/TestFactories.h"
#include "tests/support/FileContent.h"
#include "tests/wizard/WizardUnderTest.h"
#include "wizard/QExportAttributeSheet.h"

#include <QAccessible>
#include <QLibraryInfo>
#include <QProcess>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <set>

using namespace kpBaseExport;

namespace
{

bool isOneOf(const QWidget& widget, std::initializer_list<const char*> classes)
{
    return std::any_of(classes.begin(), classes.end(), [&](const char* name) { return widget.inherits(name); });
}

/// Title, key of the help, the note beside the page, what it is able to do.
QString headOf(const QWidget& page)
{
    const auto& sheet = dynamic_cast<const QExportAbstractOptionSheet&>(page);
    QStringList parts{page.windowTitle(), sheet.helpkey(), sheet.description()};
    parts.removeAll(QString());
    if (!sheet.isComplete())
        parts.append(QStringLiteral("incomplete"));
    if (dynamic_cast<const AttributeNamesSheet*>(&sheet))
        parts.append(QStringLiteral("names attributes"));
    return parts.join(QStringLiteral(", "));
}

using Text = std::pair<std::string, std::string>; // context, source

/// Marks what it translates with its context, and remembers it.
class Marker : public QTranslator
{
public:
    Marker() { QCoreApplication::installTranslator(this); }
    ~Marker() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        asked.insert({context, source});
        return QLatin1String(context) + QLatin1Char('|') + QString::fromUtf8(source);
    }
    mutable std::set<Text> asked;
};

/// The texts of a page that a user reads; those of the host's own widgets left out.
QStringList textsOf(const QWidget& page)
{
    QStringList texts{page.windowTitle()};
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        if (widget->parentWidget()->inherits("QImportUnitSelector") || widget->inherits("QAbstractSpinBox")
            || widget->objectName().startsWith(QLatin1String("qt_")))
            continue;
        for (const char* property : {"title", "text", "accessibleName", "toolTip"}) {
            if (!widget->inherits("QLineEdit") || qstrcmp(property, "text") != 0)
                texts.append(widget->property(property).toString());
        }
        if (const auto* tree = qobject_cast<const QTreeWidget*>(widget)) {
            texts.append(tree->headerItem()->text(0));
            for (QTreeWidgetItem* item : tree->findItems(QString(), Qt::MatchContains | Qt::MatchRecursive))
                texts.append(item->text(0));
        } else if (const auto* table = qobject_cast<const QTableView*>(widget); table && table->model()) {
            for (int column = 0; column < table->model()->columnCount(); ++column)
                texts.append(table->model()->headerData(column, Qt::Horizontal).toString());
        }
    }
    texts.removeAll(QString());
    return texts;
}

/// The attribute page as a host makes it.
using AttributePage = Concrete<QExportAttributeSheet>;

} // namespace

class FormsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form_data()
    {
        QTest::addColumn<QString>("head");
        const char* const grid = ", <b>Note:</b>, incomplete, names attributes";
        const auto row = [](const char* name, const char* title, const char* more = "") {
            QTest::newRow(name) << QString::fromLatin1(title) + QString::fromLatin1(more);
        };
        row("QExportSheetGocad", "File Export: GoCAD Options");
        row("QExportSheetDxf", "File Export: DXF Options");
        row("QExportSheetAsciiFileSelection", "File Export: Ascii Options");
        row("QExportSheet3DStress", "File Export: 3DStress Options, KELVO_EXPORT_3DSTRESS_FORMAT");
        row("QExportSheetGeoCell", "File Export: GeoCellular Grid Options", grid);
        row("QExportSheetEclipse", "File Export: Eclipse Grid Options", grid);
        row("QExportSheetRescue", "File Export: Rescue Options", grid);
        row("QExportSheetShp", "File Export: SHP Options");
        row("QExportSheetTab", "File Export: MapInfo TAB Options");
        row("QExportSheetZMap", "");
        row("QExportSheetOpenTecLink", "File Export: OpenTecLink Options");
        row("QExportSheetGeosec", "File Export: Geosec Options, KELVO_EXPORT_GEOSEC_FORMAT");
        row("QExportSheetLandmark", "File Export: QExportSheetLandmark Options");
        row("QExportSheetGeoquest", "File Export: Geoquest Options");
        row("QExportSheetFlexDecomp", "File Export: FlexDecomp Options, KELVO_EXPORT_FLEXDECOMP_FORMAT");
        row("QExportSheetLocace", "File Export: Locace Options");
        row("QExportSheetOff", "File Export: Geomview Off Options");
    }

    void form()
    {
        const auto page = pageOfThisRow();
        QTEST(headOf(*page), "head");
        page->show();
        // The Tab key comes to each control once, and a reader of the screen has something to say there.
        QStringList reached = tabOrder(*page).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        reached.sort();
        QStringList controls;
        for (QWidget* control : page->findChildren<QWidget*>()) {
            if ((control->focusPolicy() & Qt::TabFocus) == 0 || !control->isVisible() || control->objectName().isEmpty()
                || control->objectName().startsWith(QLatin1String("qt_")))
                continue;
            controls.append(control->objectName());
            QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
            QVERIFY2(reader && !reader->text(QAccessible::Name).isEmpty(), qPrintable(control->objectName()));
        }
        controls.sort();
        QCOMPARE(reached, controls);
        auto& sheet = dynamic_cast<QExportAbstractOptionSheet&>(*page);
        QCOMPARE(sheet.pageWidget(), page.get());
        sheet.startup();
        sheet.activate();
        if (const auto* depth = page->findChild<QWidget*>(QStringLiteral("m_depth"))) {
            const bool fixed =
                isOneOf(*page, {"kpBaseExport::QExportSheetDxf", "kpBaseExport::QExportSheetEclipse",
                                "kpBaseExport::QExportSheetFlexDecomp", "kpBaseExport::QExportSheetLocace"});
            QCOMPARE(depth->isEnabled(), !fixed);
        }
        // A page that has been built but not entered is a page of its own, without neighbours.
        QVERIFY(!sheet.next() && !sheet.getSheetHandler());
    }

    void textsAreTranslated()
    {
        const Marker marker;
        std::vector<std::pair<QByteArray, std::unique_ptr<QWidget>>> pages;
        for (const SheetUnderTest& each : allSheets()) {
            if (qstrcmp(each.name, "QExportSheetZMap") != 0) // has no text
                pages.emplace_back(each.name, built(each.make()));
        }
        pages.emplace_back("QExportAttributeSheet", built(new AttributePage));
        const TestSheetFactory objects("QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; });
        WizardUnderTest wizard;
        wizard.startup();
        for (const auto& page : pages)
            checkContexts(*page.second, page.first);
        checkContexts(*wizard.current_sheet()->pageWidget(), "QExportSheetObjectSelection");
        QCOMPARE(wizard.windowTitle(), QStringLiteral("kpBaseExport::QExportWizard|Export Wizard"));
        QVERIFY(marker.asked.count({"QExportSheetEclipse", "<b>Note:</b>"}) == 1);
        m_asked = marker.asked;
        m_asked.insert({"QExportSheetGeoCell", "Locate original grid file"});
    }

    /// Qt's own tool, where it is installed, finds these texts in the sources, each once.
    void textsAreExtracted()
    {
        QTemporaryDir folder;
        const QString found = folder.filePath(QStringLiteral("found.ts"));
        QProcess lupdate;
        lupdate.setWorkingDirectory(QStringLiteral(KP_SOURCE_DIR));
        lupdate.start(QStringLiteral("lupdate"),
                      {QStringLiteral("-silent"), QStringLiteral("forms"), QStringLiteral("wizard"),
                       QStringLiteral("sheets"), QStringLiteral("spec"), QStringLiteral("-extensions"),
                       QStringLiteral("ui,h,cpp"), QStringLiteral("-I"), QStringLiteral("."), QStringLiteral("-ts"),
                       found});
        if (!lupdate.waitForFinished() || !QFile::exists(found))
            QSKIP("no lupdate here");
        std::set<Text> texts;
        std::string context;
        QXmlStreamReader reader(contentOf(found));
        while (!reader.atEnd()) {
            if (!reader.readNextStartElement())
                continue;
            if (reader.name() == QLatin1String("name"))
                context = reader.readElementText().toStdString();
            else if (reader.name() == QLatin1String("source"))
                QVERIFY(texts.insert({context, reader.readElementText().toStdString()}).second);
        }
        QVERIFY(!m_asked.empty());
        for (const Text& text : m_asked) {
            const bool ours = text.first.rfind("QExport", 0) == 0 || text.first.rfind("kpBaseExport::", 0) == 0;
            QVERIFY2(!ours || texts.count(text) == 1, (text.first + ": " + text.second).c_str());
        }
    }

    void nothingIsCutOff_data() { form_data(); }

    void nothingIsCutOff()
    {
        const auto page = pageOfThisRow();
        // Like in the wizard, a page gets at least the room that its layout asks for.
        QSize size = page->size().expandedTo(page->minimumSizeHint());
        if (page->hasHeightForWidth())
            size.setHeight(std::max(size.height(), page->heightForWidth(size.width())));
        page->resize(size);
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
        QVERIFY(!page->grab().isNull());
        for (const QWidget* control : page->findChildren<QWidget*>()) {
            const QByteArray name = control->objectName().toUtf8();
            if (!control->isVisible() || name.isEmpty() || name.startsWith("qt_")
                || !isOneOf(*control, {"QAbstractButton", "QLabel", "QLineEdit", "QComboBox", "QAbstractSpinBox"}))
                continue;
            const QRect place(control->mapTo(page.get(), QPoint()), control->size());
            QVERIFY2(page->rect().contains(place), name.constData());
            const auto* label = qobject_cast<const QLabel*>(control);
            const QSize needed = label && label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                                            : control->minimumSizeHint();
            QVERIFY2(control->width() >= needed.width() && control->height() >= needed.height(), name.constData());
            for (const QWidget* other : page->findChildren<QWidget*>()) {
                if (other != control && other->parent() == control->parent() && other->isVisible())
                    QVERIFY2(!other->geometry().intersects(control->geometry()), name.constData());
            }
        }
    }

private:
    static std::unique_ptr<QWidget> pageOfThisRow()
    {
        for (const SheetUnderTest& each : allSheets()) {
            if (qstrcmp(each.name, QTest::currentDataTag()) == 0) {
                return built(each.make());
            }
        }
        qFatal("no such sheet");
    }

    static std::unique_ptr<QWidget> built(QExportAbstractOptionSheet* sheet)
    {
        static_cast<QExportAbstractSheet*>(sheet)->initialize(QStringLiteral("key"));
        return std::unique_ptr<QWidget>(dynamic_cast<QWidget*>(sheet));
    }

    /// Every text of a page has come through the translator, those of the page's own in the context of its form.
    static void checkContexts(const QWidget& page, const QByteArray& form)
    {
        for (const QString& text : textsOf(page)) {
            const QString context = text.section(QLatin1Char('|'), 0, 0);
            const bool known = context == QLatin1String(form) || context == QLatin1String("QExportAttributeWidget")
                               || context == QLatin1String("kpBaseExport::QObjectListModel");
            // Names and keys of the test's objects are nobody's texts.
            QVERIFY2(known || text.size() == 1, qPrintable(QLatin1String(form) + QStringLiteral(": ") + text));
        }
    }

    std::set<Text> m_asked; ///< by the pages
};

QTEST_MAIN(FormsTest)
#include "tst_forms.moc"
