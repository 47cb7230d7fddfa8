// SPDX-License-Identifier: MIT
// The pages as they come up: what stands where, under which name, with which text and state; the way of the Tab key;
// nothing hidden or cut off.
#include "tests/sheets/SheetsUnderTest.h"

#include "core/saver/AttributeNamesSheet.h"
#include "tests/wizard/WizardUnderTest.h"

#include <algorithm>
#include <memory>

using namespace kpBaseExport;

namespace
{

bool isOneOf(const QWidget& widget, std::initializer_list<const char*> classes)
{
    return std::any_of(classes.begin(), classes.end(), [&](const char* name) { return widget.inherits(name); });
}

QString textOf(const QWidget& widget)
{
    for (const char* property : {"title", "value", "text"}) {
        if (widget.property(property).isValid())
            return widget.property(property).toString();
    }
    return {};
}

QString placeOf(const QWidget& widget)
{
    const auto* grid = qobject_cast<const QGridLayout*>(widget.parentWidget()->layout());
    const int index = grid ? grid->indexOf(const_cast<QWidget*>(&widget)) : -1;
    if (index < 0)
        return {};
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(index, &row, &column, &rows, &columns);
    const QString place = QStringLiteral(" @%1,%2").arg(row).arg(column);
    return columns > 1 ? place + QStringLiteral("-%1").arg(column + columns - 1) : place;
}

/// One line per widget: name, class, text, state, place in the grid of its group.
void describe(const QWidget& parent, int depth, QString& out)
{
    for (const QObject* each : parent.children()) {
        const auto* widget = qobject_cast<const QWidget*>(each);
        if (!widget)
            continue;
        out += QString(depth, QLatin1Char(' ')) + widget->objectName() + QLatin1Char(' ')
               + QString::fromLatin1(widget->metaObject()->className());
        QString text = textOf(*widget);
        text.replace(QLatin1Char('\n'), QLatin1String("\\n")).replace(QLatin1Char('\t'), QLatin1String("\\t"));
        if (!text.isEmpty())
            out += QStringLiteral(" \"%1\"").arg(text);
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget); button && button->isChecked())
            out += QStringLiteral(" on");
        if (!widget->isEnabledTo(&parent))
            out += QStringLiteral(" disabled");
        if (widget->isHidden())
            out += QStringLiteral(" hidden");
        out += placeOf(*widget) + QLatin1Char('\n');
        if (!isOneOf(*widget, {"QImportUnitSelector", "kpBaseExport::QExportAttributeWidget", "QComboBox",
                               "QAbstractItemView", "QAbstractSpinBox", "QLineEdit"}))
            describe(*widget, depth + 1, out);
    }
}

/// Title, size, key of the help, the note beside the page, what it is able to do.
QString headOf(const QWidget& page)
{
    const auto& sheet = dynamic_cast<const QExportAbstractOptionSheet&>(page);
    QStringList parts{page.windowTitle(), QStringLiteral("%1x%2").arg(page.width()).arg(page.height()), sheet.helpkey(),
                      sheet.description()};
    parts.removeAll(QString());
    if (!sheet.isComplete())
        parts.append(QStringLiteral("incomplete"));
    if (dynamic_cast<const AttributeNamesSheet*>(&sheet))
        parts.append(QStringLiteral("names attributes"));
    return parts.join(QStringLiteral(", "));
}

const QString files = QStringLiteral(R"(fileGroup QGroupBox
 fileLabel QLabel "Create" @0,0
 m_singleRadio QRadioButton "Single file" on @1,1
 m_multipleRadio QRadioButton "Multiple files" @2,1
 m_filePrefix QLineEdit @2,2
m_fileNameGroup QGroupBox disabled
 fileNameLabel QLabel "Create Separate Files based on" @0,0-1
 m_useSetsAsFilenames QRadioButton "Set Type" on @1,1
 m_fileSetComboBox QComboBox @1,2
 m_useObjectAsFilenames QRadioButton "Per Object" @2,1
)");

/// The widget that holds everything else of some pages, and its content one level deeper.
QString container(QString content)
{
    content.chop(1);
    content.replace(QLatin1Char('\n'), QLatin1String("\n "));
    return QStringLiteral("m_exportAttributesCheck QWidget\n ") + content + QLatin1Char('\n');
}

} // namespace

class FormsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form_data()
    {
        QTest::addColumn<QString>("head");
        QTest::addColumn<QString>("tabs");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, const char* head, const QString& tabs, const QString& expected) {
            QTest::newRow(name) << QString::fromLatin1(head) << tabs << expected;
        };
        const QString panel = QStringLiteral("QExportAttributeWidget kpBaseExport::QExportAttributeWidget\n");
        const QString panelTabs = QStringLiteral("m_attributeList m_selectAllButton m_deselectAllButton");
        const QString restricted = QStringLiteral("m_units QRestrictedImportUnitSelector\n");
        const QString units = QStringLiteral("unitsGroup QGroupBox\n m_units QImportUnitSelector\n");
        const QString unitTabs = QStringLiteral("m_lengthUnit m_elevation m_depth");
        const QString fileTabs = QStringLiteral(" m_singleRadio m_multipleRadio m_filePrefix m_useSetsAsFilenames "
                                                "m_fileSetComboBox m_useObjectAsFilenames");

        row("QExportSheetGocad", "File Export: GoCAD Options, 400x117",
            panelTabs + fileTabs + QStringLiteral(" m_headerCheck"),
            QStringLiteral("m_attrFrame QFrame\n ") + panel + files + QStringLiteral(R"(m_optionGroup QGroupBox
 headerChoiceLabel QLabel "Do not include header" @0,0
 m_headerCheck QCheckBox @0,1
)"));
        row("QExportSheetDxf", "File Export: DXF Options, 466x576",
            unitTabs + QStringLiteral(" m_export3DCheck m_export2DMapCheck m_export2DSectionCheck") + fileTabs
                + QStringLiteral(" m_useSetsAsLayers m_layerSetComboBox m_useObjectTypesAsLayers m_noLayers "
                                 "m_surface3DFaceCheck m_surfacePointsCheck m_surfaceBoundaryCheck"),
            container(units + QStringLiteral(R"x(exportTypeGroup QGroupBox
 exportTypeLabel QLabel "Export as" @0,0
 m_export3DCheck QRadioButton "3D (for loading into other Geology / GIS software)" on @1,1
 m_export2DMapCheck QRadioButton "2D Map (for loading into graphics and presentation software)" @2,1
 m_export2DSectionCheck QRadioButton "2D Section (for loading into graphics and presentation software)" @3,1
)x") + files + QStringLiteral(R"(layerGroup QGroupBox
 layerLabel QLabel "Create Dxf Layers based on" @0,0-1
 m_useSetsAsLayers QRadioButton "Set Type" on @1,1
 m_layerSetComboBox QComboBox @1,2
 m_useObjectTypesAsLayers QRadioButton "Object Type" @2,1
 m_noLayers QRadioButton "No Layers" @3,1
meshGroup QGroupBox
 meshLabel QLabel "Export meshes as" @0,0-1
 m_surface3DFaceCheck QCheckBox "3D faces" on @1,1-2
 m_surfacePointsCheck QCheckBox "Points" @2,1-2
 m_surfaceBoundaryCheck QCheckBox "Boundary lines" @3,1-2
)")));
        row("QExportSheetAsciiFileSelection", "File Export: Ascii Options, 453x271",
            unitTabs + fileTabs
                + QStringLiteral(" m_writeHeaderCheck m_insertLinebreaksCheck m_exportSectionCoordinatesCheck"),
            container(units + files + QStringLiteral(R"(optionGroup QGroupBox
 meshLabel QLabel "Options" @0,0-1
 m_writeHeaderCheck QCheckBox "Write Header" on @1,1-2
 m_insertLinebreaksCheck QCheckBox "Insert Line Break between Objects" @2,1-2
 m_exportSectionCoordinatesCheck QCheckBox "Use Section Coordinates" @3,1-2
)")));
        row("QExportSheet3DStress", "File Export: 3DStress Options, 431x150, KELVO_EXPORT_3DSTRESS_FORMAT",
            unitTabs + fileTabs, container(QStringLiteral("unitsGroup QGroupBox\n ") + restricted + files));

        row("QExportSheetGeoCell",
            "File Export: GeoCellular Grid Options, 545x181, <b>Note:</b>, incomplete, names attributes",
            QStringLiteral("m_gridPath m_browseButton ") + panelTabs,
            QStringLiteral(R"x(groupBox QGroupBox "Export Options for Geocellular Grids"
 m_gridName QLabel "Exporting grid:" @0,0
 label QLabel "Please enter the path to the original input grid:" @1,0
 m_gridPath QLineEdit @2,0
 m_browseButton QPushButton "Browse..." @2,1
 m_multipleGridWarning QLabel "WARNING: you can only export a single grid at a time" hidden @3,0
 m_noInputGridError QLabel "ERROR: failed to locate original grid file" hidden @4,0
 m_wrongInputGridError QLabel "ERROR: Wrong input grid format (cannot convert grid formats)" hidden @5,0
)x") + panel);
        row("QExportSheetEclipse",
            "File Export: Eclipse Grid Options, 645x481, <b>Note:</b>, incomplete, names attributes",
            QStringLiteral("m_GRDECLFormatCheckBox m_EGRIDFormatCheckBox m_GRIDFormatCheckBox m_FGRIDFormatCheckBox ")
                + unitTabs + QLatin1Char(' ') + panelTabs,
            QStringLiteral(
                R"(groupBox QGroupBox "Export Options for Geocellular Grids in Eclipse Format"
 label QLabel "Model will be saved as an ASCII file (.DATA) with the geometry written to a separate file.\n)"
                R"(Note:  Some grid information can be lost by selecting the EGRID or FEGRID option,\n)"
                R"(however these options will result in a much more compact file.  The GRDECL, EGRID & FEGRID \n)"
                R"(options require completely defined geometry."
 groupBox_2 QGroupBox "Select Output format for Geometry File"
  label_5 QLabel "<font color=red><b>Recommended</b>.  Writes formatted file using Eclipse Keywords COORD &\n)"
                R"( ZCORN.  Requires complete geometry.</font>"
  m_GRDECLFormatCheckBox QCheckBox "GRDECL\tFormatted cornerpoint nodes from COORD & ZCORN" on
  label_3 QLabel "<font color=red>Writes file in Eclipse Extensible Grid Format. Requires complete geometry.</font>"
  m_EGRIDFormatCheckBox QCheckBox "EGRID \tUnformatted version of Eclipse Extensible Grid format."
  m_FEGRIDFormatCheckBox QCheckBox "FEGRID\tFormatted version of Eclipse Extensible Grid format." disabled hidden
  label_2 QLabel "<font color=red>Use when K-stacks are non-linear, i.e. from Petrel Pillar grid, )"
                R"(or geometry is incomplete.</font>"
  m_GRIDFormatCheckBox QCheckBox "GRID \tUnformatted nodes for each cell corner written explicitly."
  m_FGRIDFormatCheckBox QCheckBox "FGRID \tFormatted version of GRID format."
m_units QImportUnitSelector
m_multipleGridWarning QLabel "<font color=red>WARNING: you can only export a single grid at a time</font>" hidden
)") + panel);
        row("QExportSheetRescue", "File Export: Rescue Options, 587x83, <b>Note:</b>, incomplete, names attributes",
            panelTabs,
            QStringLiteral(R"(groupBox QGroupBox "Export Options for Geocellular Volumes in Rescue Binary Format"
 m_gridName QLabel "Exporting grid:"
 m_multipleGridWarning QLabel "<font color=red>WARNING: It is only possible to export a single grid at a time</font>" )"
                           R"(hidden
)") + panel);

        row("QExportSheetShp", "File Export: SHP Options, 564x242",
            QStringLiteral("m_exportAttsCheck m_exportArcMapLyr"),
            container(QStringLiteral("m_exportAttsCheck QCheckBox \"Export Object Attributes\"\n"
                                     "m_exportArcMapLyr QCheckBox \"Export an ArcMap symbology .lyr file\"\n")));
        row("QExportSheetTab", "File Export: MapInfo TAB Options, 564x242", QStringLiteral("m_exportAttsCheck"),
            container(QStringLiteral("m_exportAttsCheck QCheckBox \"Export Object Attributes\"\n")));
        row("QExportSheetZMap", "640x480", QString(), QString());
        row("QExportSheetOpenTecLink", "File Export: OpenTecLink Options, 400x300",
            QStringLiteral("tableViewSections pushButtonSelectAll pushButtonDeselectAll comboBoxXYSection"),
            QStringLiteral(R"(groupBox QGroupBox "Export Options for OpenTecLink"
 tableViewSections QTableView @0,0-3
 pushButtonSelectAll QPushButton "Select All" @1,0
 pushButtonDeselectAll QPushButton "Deselect All" @1,1-2
 label QLabel "Take Trace Line from" @2,0-1
 comboBoxXYSection QComboBox @2,2-3
)"));
        const QString horizons = restricted + QStringLiteral("m_horizonNameCheck QCheckBox \"Use Horizon Names\" on\n");
        const QString horizonTabs = unitTabs + QStringLiteral(" m_horizonNameCheck");
        row("QExportSheetGeosec", "File Export: Geosec Options, 431x150, KELVO_EXPORT_GEOSEC_FORMAT", horizonTabs,
            horizons);
        row("QExportSheetLandmark", "File Export: QExportSheetLandmark Options, 431x150", horizonTabs, horizons);
        row("QExportSheetGeoquest", "File Export: Geoquest Options, 431x150", horizonTabs, horizons);
        row("QExportSheetFlexDecomp", "File Export: FlexDecomp Options, 431x150, KELVO_EXPORT_FLEXDECOMP_FORMAT",
            unitTabs + QStringLiteral(" m_bUpSampleObjects m_sampleInterval"),
            restricted + QStringLiteral(R"(sampleGroup QGroupBox
 m_bUpSampleObjects QCheckBox "Upsample Horizons"
 m_sampleInterval kpBase::QUnitDoubleSpinBox "50"
)"));
        row("QExportSheetLocace", "File Export: Locace Options, 431x150",
            unitTabs + QStringLiteral(" m_writeSegmentHeadersCheck"),
            restricted + QStringLiteral("m_writeSegmentHeadersCheck QCheckBox \"Write Full Segment Headers\" on\n"));
        row("QExportSheetOff", "File Export: Geomview Off Options, 428x247", unitTabs + QStringLiteral(" m_filePrefix"),
            QStringLiteral(R"(m_units QImportUnitSelector
m_fileGroup QGroupBox
 fileLabel QLabel "Create" @0,0
 label QLabel "Multiple Files" @1,0
 m_filePrefix QLineEdit @1,1
)"));
    }

    void form()
    {
        const auto page = pageOfThisRow();
        QTEST(headOf(*page), "head");
        QString text;
        describe(*page, 0, text);
        QTEST(text, "expected");
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
                kpBaseExport::QExportAbstractOptionSheet* sheet = each.make();
                static_cast<QExportAbstractSheet*>(sheet)->initialize(QStringLiteral("key"));
                return std::unique_ptr<QWidget>(dynamic_cast<QWidget*>(sheet));
            }
        }
        qFatal("no such sheet");
    }
};

QTEST_MAIN(FormsTest)
#include "tst_forms.moc"
