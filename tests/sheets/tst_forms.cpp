// SPDX-License-Identifier: MIT
// The pages as they come up: what stands where, under which name, with which text and state; the way of the Tab key;
// nothing hidden or cut off.
#include "tests/sheets/SheetsUnderTest.h"

#include "core/saver/AttributeNamesSheet.h"
#include "host/ui/QImportUnitSelector.h"
#include "host/ui/QUnitDoubleSpinBox.h"
#include "wizard/QExportAttributeWidget.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

using namespace kpBaseExport;

namespace
{

bool isComposite(const QWidget& widget)
{
    return qobject_cast<const QImportUnitSelector*>(&widget) || qobject_cast<const QExportAttributeWidget*>(&widget)
           || qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractItemView*>(&widget)
           || qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget);
}

QString textOf(const QWidget& widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
        return edit->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->title();
    if (const auto* spin = qobject_cast<const kpBase::QUnitDoubleSpinBox*>(&widget))
        return QString::number(spin->value());
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
    return columns > 1 ? QStringLiteral(" @%1,%2-%3").arg(row).arg(column).arg(column + columns - 1)
                       : QStringLiteral(" @%1,%2").arg(row).arg(column);
}

/// One line per widget: name, class, text, state, place in the grid of its group.
void describe(const QWidget& widget, int depth, QString& out)
{
    out += QString(depth, QLatin1Char(' ')) + widget.objectName() + QLatin1Char(' ')
           + QString::fromLatin1(widget.metaObject()->className());
    const QString text = textOf(widget);
    if (!text.isEmpty())
        out += QStringLiteral(" \"%1\"").arg(QString(text).replace(QLatin1Char('\n'), QLatin1String("\\n")).replace(QLatin1Char('\t'), QLatin1String("\\t")));
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget); button && button->isChecked())
        out += QStringLiteral(" on");
    if (!widget.isEnabledTo(widget.parentWidget()))
        out += QStringLiteral(" disabled");
    if (widget.isHidden())
        out += QStringLiteral(" hidden");
    out += placeOf(widget) + QLatin1Char('\n');
    if (isComposite(widget))
        return;
    for (const QObject* child : widget.children()) {
        if (const auto* inner = qobject_cast<const QWidget*>(child))
            describe(*inner, depth + 1, out);
    }
}

QString description(const QWidget& page)
{
    QString out;
    for (const QObject* child : page.children()) {
        if (const auto* inner = qobject_cast<const QWidget*>(child))
            describe(*inner, 0, out);
    }
    return out;
}

/// The names of the controls in the order in which the Tab key visits them.
QString tabOrder(QWidget& page)
{
    QStringList names;
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        const bool reached = next->isVisible() && (next->focusPolicy() & Qt::TabFocus) != 0 && !next->focusProxy();
        if (reached && !next->objectName().startsWith(QLatin1String("qt_")))
            names.append(next->objectName());
    }
    return names.join(QLatin1Char(' '));
}

const QString files = QStringLiteral("fileGroup QGroupBox\n"
                                     " fileLabel QLabel \"Create\" @0,0\n"
                                     " m_singleRadio QRadioButton \"Single file\" on @1,1\n"
                                     " m_multipleRadio QRadioButton \"Multiple files\" @2,1\n"
                                     " m_filePrefix QLineEdit @2,2\n"
                                     "m_fileNameGroup QGroupBox disabled\n"
                                     " fileNameLabel QLabel \"Create Separate Files based on\" @0,0-1\n"
                                     " m_useSetsAsFilenames QRadioButton \"Set Type\" on @1,1\n"
                                     " m_fileSetComboBox QComboBox @1,2\n"
                                     " m_useObjectAsFilenames QRadioButton \"Per Object\" @2,1\n");

/// \a text one level deeper.
QString inside(const QString& name, const QString& text)
{
    QString out = name + QLatin1Char('\n');
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        out += QLatin1Char(' ') + line + QLatin1Char('\n');
    return out;
}

QString container(const QString& text)
{
    return inside(QStringLiteral("m_exportAttributesCheck QWidget"), text);
}

QString unitsGroup(const char* selector)
{
    return QStringLiteral("unitsGroup QGroupBox\n m_units %1\n").arg(QLatin1String(selector));
}

} // namespace

class FormsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void form_data()
    {
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, const QString& expected) { QTest::newRow(name) << expected; };
        const QString restricted = QStringLiteral("m_units QRestrictedImportUnitSelector\n");

        row("QExportSheetGocad", inside(QStringLiteral("m_attrFrame QFrame"), QStringLiteral("QExportAttributeWidget kpBaseExport::QExportAttributeWidget")) + files
                                     + QStringLiteral("m_optionGroup QGroupBox\n"
                                                      " headerChoiceLabel QLabel \"Do not include header\" @0,0\n"
                                                      " m_headerCheck QCheckBox @0,1\n"));
        row("QExportSheetDxf", container(unitsGroup("QImportUnitSelector")
            + QStringLiteral("exportTypeGroup QGroupBox\n"
                             " exportTypeLabel QLabel \"Export as\" @0,0\n"
                             " m_export3DCheck QRadioButton \"3D (for loading into other Geology / GIS software)\" on @1,1\n"
                             " m_export2DMapCheck QRadioButton \"2D Map (for loading into graphics and presentation software)\" @2,1\n"
                             " m_export2DSectionCheck QRadioButton \"2D Section (for loading into graphics and presentation software)\" @3,1\n")
            + files
            + QStringLiteral("layerGroup QGroupBox\n"
                             " layerLabel QLabel \"Create Dxf Layers based on\" @0,0-1\n"
                             " m_useSetsAsLayers QRadioButton \"Set Type\" on @1,1\n"
                             " m_layerSetComboBox QComboBox @1,2\n"
                             " m_useObjectTypesAsLayers QRadioButton \"Object Type\" @2,1\n"
                             " m_noLayers QRadioButton \"No Layers\" @3,1\n"
                             "meshGroup QGroupBox\n"
                             " meshLabel QLabel \"Export meshes as\" @0,0-1\n"
                             " m_surface3DFaceCheck QCheckBox \"3D faces\" on @1,1-2\n"
                             " m_surfacePointsCheck QCheckBox \"Points\" @2,1-2\n"
                             " m_surfaceBoundaryCheck QCheckBox \"Boundary lines\" @3,1-2\n")));
        row("QExportSheetAsciiFileSelection", container(unitsGroup("QImportUnitSelector") + files
            + QStringLiteral("optionGroup QGroupBox\n"
                             " meshLabel QLabel \"Options\" @0,0-1\n"
                             " m_writeHeaderCheck QCheckBox \"Write Header\" on @1,1-2\n"
                             " m_insertLinebreaksCheck QCheckBox \"Insert Line Break between Objects\" @2,1-2\n"
                             " m_exportSectionCoordinatesCheck QCheckBox \"Use Section Coordinates\" @3,1-2\n")));
        row("QExportSheet3DStress", container(unitsGroup("QRestrictedImportUnitSelector") + files));

        const QString panel = QStringLiteral("QExportAttributeWidget kpBaseExport::QExportAttributeWidget\n");
        row("QExportSheetGeoCell", QStringLiteral("groupBox QGroupBox \"Export Options for Geocellular Grids\"\n"
            " m_gridName QLabel \"Exporting grid:\" @0,0\n"
            " label QLabel \"Please enter the path to the original input grid:\" @1,0\n"
            " m_gridPath QLineEdit @2,0\n"
            " m_browseButton QPushButton \"Browse...\" @2,1\n"
            " m_multipleGridWarning QLabel \"WARNING: you can only export a single grid at a time\" hidden @3,0\n"
            " m_noInputGridError QLabel \"ERROR: failed to locate original grid file\" hidden @4,0\n"
            " m_wrongInputGridError QLabel \"ERROR: Wrong input grid format (cannot convert grid formats)\" hidden @5,0\n") + panel);
        row("QExportSheetEclipse", QStringLiteral("groupBox QGroupBox \"Export Options for Geocellular Grids in Eclipse Format\"\n"
            " label QLabel \"Model will be saved as an ASCII file (.DATA) with the geometry written to a separate file.\\n"
            "Note:  Some grid information can be lost by selecting the EGRID or FEGRID option,\\n"
            "however these options will result in a much more compact file.  The GRDECL, EGRID & FEGRID \\n"
            "options require completely defined geometry.\"\n"
            " groupBox_2 QGroupBox \"Select Output format for Geometry File\"\n"
            "  label_5 QLabel \"<font color=red><b>Recommended</b>.  Writes formatted file using Eclipse Keywords COORD &\\n ZCORN.  Requires complete geometry.</font>\"\n"
            "  m_GRDECLFormatCheckBox QCheckBox \"GRDECL\\tFormatted cornerpoint nodes from COORD & ZCORN\" on\n"
            "  label_3 QLabel \"<font color=red>Writes file in Eclipse Extensible Grid Format. Requires complete geometry.</font>\"\n"
            "  m_EGRIDFormatCheckBox QCheckBox \"EGRID \\tUnformatted version of Eclipse Extensible Grid format.\"\n"
            "  m_FEGRIDFormatCheckBox QCheckBox \"FEGRID\\tFormatted version of Eclipse Extensible Grid format.\" disabled hidden\n"
            "  label_2 QLabel \"<font color=red>Use when K-stacks are non-linear, i.e. from Petrel Pillar grid, or geometry is incomplete.</font>\"\n"
            "  m_GRIDFormatCheckBox QCheckBox \"GRID \\tUnformatted nodes for each cell corner written explicitly.\"\n"
            "  m_FGRIDFormatCheckBox QCheckBox \"FGRID \\tFormatted version of GRID format.\"\n"
            "m_units QImportUnitSelector\n"
            "m_multipleGridWarning QLabel \"<font color=red>WARNING: you can only export a single grid at a time</font>\" hidden\n") + panel);
        row("QExportSheetRescue", QStringLiteral("groupBox QGroupBox \"Export Options for Geocellular Volumes in Rescue Binary Format\"\n"
            " m_gridName QLabel \"Exporting grid:\"\n"
            " m_multipleGridWarning QLabel \"<font color=red>WARNING: It is only possible to export a single grid at a time</font>\" hidden\n") + panel);

        row("QExportSheetShp", container(QStringLiteral("m_exportAttsCheck QCheckBox \"Export Object Attributes\"\n"
                                                        "m_exportArcMapLyr QCheckBox \"Export an ArcMap symbology .lyr file\"\n")));
        row("QExportSheetTab", container(QStringLiteral("m_exportAttsCheck QCheckBox \"Export Object Attributes\"\n")));
        row("QExportSheetZMap", QString());
        row("QExportSheetOpenTecLink", QStringLiteral("groupBox QGroupBox \"Export Options for OpenTecLink\"\n"
            " tableViewSections QTableView @0,0-3\n"
            " pushButtonSelectAll QPushButton \"Select All\" @1,0\n"
            " pushButtonDeselectAll QPushButton \"Deselect All\" @1,1-2\n"
            " label QLabel \"Take Trace Line from\" @2,0-1\n"
            " comboBoxXYSection QComboBox @2,2-3\n"));
        const QString horizons = restricted + QStringLiteral("m_horizonNameCheck QCheckBox \"Use Horizon Names\" on\n");
        for (const char* name : {"QExportSheetGeosec", "QExportSheetLandmark", "QExportSheetGeoquest"})
            row(name, horizons);
        row("QExportSheetFlexDecomp", restricted + QStringLiteral("sampleGroup QGroupBox\n"
            " m_bUpSampleObjects QCheckBox \"Upsample Horizons\"\n"
            " m_sampleInterval kpBase::QUnitDoubleSpinBox \"50\"\n"));
        row("QExportSheetLocace", restricted + QStringLiteral("m_writeSegmentHeadersCheck QCheckBox \"Write Full Segment Headers\" on\n"));
        row("QExportSheetOff", QStringLiteral("m_units QImportUnitSelector\n"
            "m_fileGroup QGroupBox\n"
            " fileLabel QLabel \"Create\" @0,0\n"
            " label QLabel \"Multiple Files\" @1,0\n"
            " m_filePrefix QLineEdit @1,1\n"));
    }

    void form()
    {
        QFETCH(QString, expected);
        const BuiltSheet built = sheetNamed(QString::fromLatin1(QTest::currentDataTag())).make();
        QCOMPARE(description(*built.widget), expected);
    }

    void frames_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("helpKey");
        QTest::addColumn<bool>("complete");
        QTest::addColumn<bool>("elevationOrDepth"); // after the page has been entered
        const auto row = [](const char* name, const char* title, QSize size, const char* helpKey = "", bool complete = true, bool choice = false) {
            QTest::newRow(name) << QString::fromLatin1(title) << size << QString::fromLatin1(helpKey) << complete << choice;
        };
        row("QExportSheetGocad", "File Export: GoCAD Options", {400, 117});
        row("QExportSheetDxf", "File Export: DXF Options", {466, 576});
        row("QExportSheetAsciiFileSelection", "File Export: Ascii Options", {453, 271}, "", true, true);
        row("QExportSheet3DStress", "File Export: 3DStress Options", {431, 150}, "KELVO_EXPORT_3DSTRESS_FORMAT", true, true);
        row("QExportSheetGeoCell", "File Export: GeoCellular Grid Options", {545, 181}, "", false);
        row("QExportSheetEclipse", "File Export: Eclipse Grid Options", {645, 481}, "", false);
        row("QExportSheetRescue", "File Export: Rescue Options", {587, 83}, "", false);
        row("QExportSheetShp", "File Export: SHP Options", {564, 242});
        row("QExportSheetTab", "File Export: MapInfo TAB Options", {564, 242});
        row("QExportSheetZMap", "", {640, 480});
        row("QExportSheetOpenTecLink", "File Export: OpenTecLink Options", {400, 300});
        row("QExportSheetGeosec", "File Export: Geosec Options", {431, 150}, "KELVO_EXPORT_GEOSEC_FORMAT", true, true);
        row("QExportSheetFlexDecomp", "File Export: FlexDecomp Options", {431, 150}, "KELVO_EXPORT_FLEXDECOMP_FORMAT");
        row("QExportSheetLocace", "File Export: Locace Options", {431, 150});
        row("QExportSheetLandmark", "File Export: QExportSheetLandmark Options", {431, 150}, "", true, true);
        row("QExportSheetGeoquest", "File Export: Geoquest Options", {431, 150}, "", true, true);
        row("QExportSheetOff", "File Export: Geomview Off Options", {428, 247}, "", true, true);
    }

    void frames()
    {
        QFETCH(QString, title);
        QFETCH(QSize, size);
        QFETCH(QString, helpKey);
        QFETCH(bool, complete);
        QFETCH(bool, elevationOrDepth);
        const BuiltSheet built = sheetNamed(QString::fromLatin1(QTest::currentDataTag())).make();
        QCOMPARE(built.widget->windowTitle(), title);
        QCOMPARE(built.widget->size(), size);
        QCOMPARE(built.sheet->pageWidget(), built.widget.get());
        QCOMPARE(built.sheet->helpkey(), helpKey);
        QCOMPARE(built.sheet->isComplete(), complete);
        const bool isGridPage = size == QSize(545, 181) || size == QSize(645, 481) || size == QSize(587, 83);
        QCOMPARE(built.sheet->description(), isGridPage ? QStringLiteral("<b>Note:</b>") : QString());
        QCOMPARE(dynamic_cast<AttributeNamesSheet*>(built.sheet) != nullptr, isGridPage);
        built.sheet->startup();
        built.sheet->activate();
        const auto* units = built.widget->findChild<QImportUnitSelector*>(QStringLiteral("m_units"));
        if (units)
            QCOMPARE(units->findChild<QWidget*>(QStringLiteral("m_depth"))->isEnabled(), elevationOrDepth);
        // A page that has been built but not entered is a page of its own, without neighbours.
        QVERIFY(!built.sheet->next() && !built.sheet->getSheetHandler());
    }

    void tabs_data()
    {
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, const char* expected) { QTest::newRow(name) << QString::fromLatin1(expected); };
        row("QExportSheetGocad", "m_attributeList m_selectAllButton m_deselectAllButton m_singleRadio m_multipleRadio m_filePrefix "
                                 "m_useSetsAsFilenames m_fileSetComboBox m_useObjectAsFilenames m_headerCheck");
        row("QExportSheetDxf", "m_lengthUnit m_elevation m_depth m_export3DCheck m_export2DMapCheck m_export2DSectionCheck "
                               "m_singleRadio m_multipleRadio m_filePrefix m_useSetsAsFilenames m_fileSetComboBox "
                               "m_useObjectAsFilenames m_useSetsAsLayers m_layerSetComboBox m_useObjectTypesAsLayers m_noLayers "
                               "m_surface3DFaceCheck m_surfacePointsCheck m_surfaceBoundaryCheck");
        row("QExportSheetAsciiFileSelection", "m_lengthUnit m_elevation m_depth m_singleRadio m_multipleRadio m_filePrefix "
                                              "m_useSetsAsFilenames m_fileSetComboBox m_useObjectAsFilenames m_writeHeaderCheck "
                                              "m_insertLinebreaksCheck m_exportSectionCoordinatesCheck");
        row("QExportSheet3DStress", "m_lengthUnit m_elevation m_depth m_singleRadio m_multipleRadio m_filePrefix "
                                    "m_useSetsAsFilenames m_fileSetComboBox m_useObjectAsFilenames");
        row("QExportSheetGeoCell", "m_gridPath m_browseButton m_attributeList m_selectAllButton m_deselectAllButton");
        row("QExportSheetEclipse", "m_GRDECLFormatCheckBox m_EGRIDFormatCheckBox m_GRIDFormatCheckBox m_FGRIDFormatCheckBox "
                                   "m_lengthUnit m_elevation m_depth m_attributeList m_selectAllButton m_deselectAllButton");
        row("QExportSheetOpenTecLink", "tableViewSections pushButtonSelectAll pushButtonDeselectAll comboBoxXYSection");
        row("QExportSheetFlexDecomp", "m_lengthUnit m_elevation m_depth m_bUpSampleObjects m_sampleInterval");
        row("QExportSheetOff", "m_lengthUnit m_elevation m_depth m_filePrefix");
    }

    void tabs()
    {
        QFETCH(QString, expected);
        const BuiltSheet built = sheetNamed(QString::fromLatin1(QTest::currentDataTag())).make();
        built.widget->show();
        QCOMPARE(tabOrder(*built.widget), expected);
    }

    void nothingIsCutOff_data()
    {
        QTest::addColumn<int>("index");
        for (std::size_t index = 0; index < allSheets().size(); ++index)
            QTest::newRow(allSheets()[index].name) << static_cast<int>(index);
    }

    void nothingIsCutOff()
    {
        QFETCH(int, index);
        const BuiltSheet built = allSheets()[static_cast<std::size_t>(index)].make();
        // Like in the wizard, a page gets at least the room that its layout asks for.
        QSize size = built.widget->size().expandedTo(built.widget->minimumSizeHint());
        if (built.widget->hasHeightForWidth())
            size.setHeight(std::max(size.height(), built.widget->heightForWidth(size.width())));
        built.widget->resize(size);
        built.widget->show();
        QVERIFY(QTest::qWaitForWindowExposed(built.widget.get()));
        QVERIFY(!built.widget->grab().isNull());
        for (const QWidget* control : built.widget->findChildren<QWidget*>()) {
            if (!control->isVisible() || control->objectName().isEmpty() || control->objectName().startsWith(QLatin1String("qt_")))
                continue;
            if (!qobject_cast<const QAbstractButton*>(control) && !qobject_cast<const QLabel*>(control)
                && !qobject_cast<const QLineEdit*>(control) && !qobject_cast<const QComboBox*>(control)
                && !qobject_cast<const QAbstractSpinBox*>(control))
                continue;
            const QByteArray name = control->objectName().toUtf8();
            const QRect place(control->mapTo(built.widget.get(), QPoint()), control->size());
            QVERIFY2(built.widget->rect().contains(place), name.constData());
            const auto* label = qobject_cast<const QLabel*>(control);
            const QSize needed = label && label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : control->minimumSizeHint();
            QVERIFY2(control->width() >= needed.width() && control->height() >= needed.height(), name.constData());
            for (const QWidget* other : control->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                if (other != control && other->isVisible())
                    QVERIFY2(!other->geometry().intersects(control->geometry()), name.constData());
            }
        }
    }
};

namespace
{

const SheetUnderTest& sheetNamed(const QString& name)
{
    for (const SheetUnderTest& sheet : allSheets()) {
        if (name == QLatin1String(sheet.name))
            return sheet;
    }
    qFatal("no such sheet");
}

} // namespace

QTEST_MAIN(FormsTest)
#include "tst_forms.moc"
