// SPDX-License-Identifier: MIT
// The pages as they come up: what their code makes of the forms, the way of the Tab key, names for readers of the
// screen, texts that can be translated; nothing cut off.
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

/// What the code sets beyond the form: "+" checked, "-" disabled, "!" hidden.
QString stateOf(const QWidget& page)
{
    QStringList states;
    for (const QWidget* control : page.findChildren<QWidget*>()) {
        const QString name = control->objectName();
        const QWidget* parent = control->parentWidget();
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) || parent->inherits("QImportUnitSelector")
            || parent->inherits("kpBaseExport::QExportAttributeWidget") || parent->inherits("QAbstractItemView"))
            continue;
        QString state;
        if (const auto* button = qobject_cast<const QAbstractButton*>(control); button && button->isChecked())
            state += QLatin1Char('+');
        if (!control->isEnabledTo(parent))
            state += QLatin1Char('-');
        if (control->isHidden() && name != QLatin1String("warningBox"))
            state += QLatin1Char('!');
        if (!state.isEmpty())
            states.append(name + state);
    }
    return states.join(QLatin1Char(' '));
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
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("tabs");
        const auto row = [](const char* name, const char* title, const char* state, const QString& tabs) {
            QTest::newRow(name) << QString::fromLatin1(title) << QString::fromLatin1(state) << tabs;
        };
        const QString panel = QStringLiteral("m_attributeList m_selectAllButton m_deselectAllButton");
        const QString units = QStringLiteral("m_lengthUnit m_elevation m_depth");
        const QString files = QStringLiteral(" m_singleRadio m_multipleRadio m_filePrefix m_useSetsAsFilenames "
                                             "m_fileSetComboBox m_useObjectAsFilenames");
        const char* const oneFile = "m_fileNameGroup- m_singleRadio+ m_useSetsAsFilenames+";
        row("QExportSheetGocad", "File Export: GoCAD Options", oneFile,
            panel + files + QStringLiteral(" m_headerCheck"));
        row("QExportSheetDxf", "File Export: DXF Options",
            "m_export3DCheck+ m_fileNameGroup- m_singleRadio+ m_surface3DFaceCheck+ m_useSetsAsFilenames+ "
            "m_useSetsAsLayers+",
            units + QStringLiteral(" m_export3DCheck m_export2DMapCheck m_export2DSectionCheck") + files
                + QStringLiteral(" m_useSetsAsLayers m_layerSetComboBox m_useObjectTypesAsLayers m_noLayers "
                                 "m_surface3DFaceCheck m_surfacePointsCheck m_surfaceBoundaryCheck"));
        row("QExportSheetAsciiFileSelection", "File Export: Ascii Options",
            "m_fileNameGroup- m_singleRadio+ m_useSetsAsFilenames+ m_writeHeaderCheck+",
            units + files
                + QStringLiteral(" m_writeHeaderCheck m_insertLinebreaksCheck m_exportSectionCoordinatesCheck"));
        row("QExportSheet3DStress", "File Export: 3DStress Options, KELVO_EXPORT_3DSTRESS_FORMAT", oneFile,
            units + files);
        row("QExportSheetGeoCell", "File Export: GeoCellular Grid Options, <b>Note:</b>, incomplete, names attributes",
            "m_multipleGridWarning! m_noInputGridError! m_wrongInputGridError!",
            QStringLiteral("m_gridPath m_browseButton ") + panel);
        row("QExportSheetEclipse", "File Export: Eclipse Grid Options, <b>Note:</b>, incomplete, names attributes",
            "m_FEGRIDFormatCheckBox-! m_GRDECLFormatCheckBox+ m_multipleGridWarning!",
            QStringLiteral("m_GRDECLFormatCheckBox m_EGRIDFormatCheckBox m_GRIDFormatCheckBox m_FGRIDFormatCheckBox ")
                + units + QLatin1Char(' ') + panel);
        row("QExportSheetRescue", "File Export: Rescue Options, <b>Note:</b>, incomplete, names attributes",
            "m_multipleGridWarning!", panel);
        row("QExportSheetShp", "File Export: SHP Options", "", QStringLiteral("m_exportAttsCheck m_exportArcMapLyr"));
        row("QExportSheetTab", "File Export: MapInfo TAB Options", "", QStringLiteral("m_exportAttsCheck"));
        row("QExportSheetZMap", "", "", QString());
        row("QExportSheetOpenTecLink", "File Export: OpenTecLink Options", "",
            QStringLiteral("tableViewSections pushButtonSelectAll pushButtonDeselectAll comboBoxXYSection"));
        const QString horizons = units + QStringLiteral(" m_horizonNameCheck");
        row("QExportSheetGeosec", "File Export: Geosec Options, KELVO_EXPORT_GEOSEC_FORMAT", "m_horizonNameCheck+",
            horizons);
        row("QExportSheetLandmark", "File Export: QExportSheetLandmark Options", "m_horizonNameCheck+", horizons);
        row("QExportSheetGeoquest", "File Export: Geoquest Options", "m_horizonNameCheck+", horizons);
        row("QExportSheetFlexDecomp", "File Export: FlexDecomp Options, KELVO_EXPORT_FLEXDECOMP_FORMAT", "",
            units + QStringLiteral(" m_bUpSampleObjects m_sampleInterval"));
        row("QExportSheetLocace", "File Export: Locace Options", "m_writeSegmentHeadersCheck+",
            units + QStringLiteral(" m_writeSegmentHeadersCheck"));
        row("QExportSheetOff", "File Export: Geomview Off Options", "", units + QStringLiteral(" m_filePrefix"));
    }

    void form()
    {
        const auto page = pageOfThisRow();
        QTEST(headOf(*page), "head");
        QStringList state = stateOf(*page).split(QLatin1Char(' '));
        state.sort();
        QTEST(state.join(QLatin1Char(' ')), "state");
        page->show();
        QTEST(tabOrder(*page), "tabs");
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

    void controlsHaveNames_data() { form_data(); }

    /// A reader of the screen has something to say at each control that the Tab key reaches.
    void controlsHaveNames()
    {
        const auto page = pageOfThisRow();
        page->show();
        for (QWidget* control : page->findChildren<QWidget*>()) {
            if ((control->focusPolicy() & Qt::TabFocus) == 0 || control->objectName().isEmpty()
                || control->objectName().startsWith(QLatin1String("qt_")))
                continue;
            QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
            QVERIFY2(reader && !reader->text(QAccessible::Name).isEmpty(), qPrintable(control->objectName()));
        }
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
