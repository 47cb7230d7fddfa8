// SPDX-License-Identifier: MIT
// The pages at work: what the controls do to each other, to the wizard, and what the accessors give.
#include "tests/sheets/SheetsUnderTest.h"

#include "host/ui/QUnitDoubleSpinBox.h"
#include "tests/core/TestFactories.h"
#include "tests/support/FileContent.h"
#include "tests/support/TestSettings.h"
#include "tests/wizard/FileDialog.h"
#include "tests/wizard/WizardUnderTest.h"

#include <QtTest>

#include <deque>
#include <memory>

using namespace kpBaseExport;

namespace
{

/// What a page of drawings says.
QString stateOf(const QExportSheetDxf& sheet)
{
    const char* const dimensions[] = {"3d", "map", "section"};
    const char* const layers[] = {"sets", "types", "none"};
    QString text = QString::fromLatin1(dimensions[static_cast<int>(sheet.dimension())]) + QLatin1Char(' ')
                   + QLatin1String(layers[static_cast<int>(sheet.layers())]);
    text += QLatin1String(sheet.writesFaces() ? " faces" : "") + QLatin1String(sheet.writesPoints() ? " points" : "");
    return text + QLatin1String(sheet.writesBoundaries() ? " boundaries" : "");
}

/// A page whose sections the host knows.
class SectionsSheet : public ShownPage<QExportSheetOpenTecLink>
{
public:
    int updates = 0;

protected:
    void updateSectionList() override { ++updates; }
};

QStringList textsOf(const QComboBox& box)
{
    QStringList list;
    for (int index = 0; index < box.count(); ++index) {
        list.append(box.itemText(index));
        if (box.itemData(index).isValid())
            list.append(QStringLiteral("data"));
    }
    return list;
}

} // namespace

class SheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useTestSettings(m_folder.path());
        for (const SheetUnderTest& sheet : allSheets()) {
            m_savers.emplace_back(sheet.name);
            m_sheets.emplace_back(sheet.name, sheet.make);
        }
    }

    void oneFileOrSeveral_data()
    {
        rows({"QExportSheetGocad", "QExportSheetDxf", "QExportSheetAsciiFileSelection", "QExportSheet3DStress"});
    }

    void oneFileOrSeveral()
    {
        const auto wizard = wizardAt(QTest::currentDataTag());
        QWidget& page = *wizard->current_sheet()->pageWidget();
        const auto& sheet = dynamic_cast<FileGroupingSheet&>(page);
        auto* names = child<QWidget>(page, "m_fileNameGroup");
        auto* sets = child<QComboBox>(page, "m_fileSetComboBox");
        QVERIFY(!names->isEnabled());
        click(page, "m_multipleRadio");
        QVERIFY(names->isEnabled() && sets->isEnabled());
        click(page, "m_useObjectAsFilenames");
        QVERIFY(!sets->isEnabled());
        QTest::keyClicks(child<QLineEdit>(page, "m_filePrefix"), QStringLiteral("p"));
        QVERIFY(sheet.fileGrouping().multipleFiles && sheet.fileGrouping().perObject);
        QCOMPARE(sheet.fileGrouping().prefix, QStringLiteral("p"));
        click(page, "m_useSetsAsFilenames");
        QVERIFY(sets->isEnabled() && !sheet.fileGrouping().perObject);
        // Next asks for a directory, or for a file.
        const auto captionOfNext = [&wizard] {
            ShownDialog shown;
            chooseInDialog(QString(), &shown);
            click(*wizard, "nextButton");
            return shown.caption;
        };
        QVERIFY(!wizard->directoryMode());
        QCOMPARE(captionOfNext(), QStringLiteral("File Export: Directory Selection"));
        QVERIFY(wizard->directoryMode());
        QCOMPARE(wizard->current_sheet()->pageWidget(), &page);
        QVERIFY(sheet.fileGrouping().multipleFiles);
        click(page, "m_singleRadio");
        QVERIFY(!names->isEnabled() && !sheet.fileGrouping().multipleFiles);
        QCOMPARE(captionOfNext(), QStringLiteral("File Export: File Selection"));
        QVERIFY(!wizard->directoryMode());
    }

    void sets()
    {
        ShownPage<QExportSheetDxf> sheet;
        auto* fileSets = child<QComboBox>(sheet, "m_fileSetComboBox");
        auto* layerSets = child<QComboBox>(sheet, "m_layerSetComboBox");
        const QStringList list{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("b")};
        sheet.setSets(list);
        QCOMPARE(textsOf(*fileSets), list);
        QCOMPARE(textsOf(*layerSets), list);
        QCOMPARE(sheet.fileGrouping().setType, QStringLiteral("b"));
        layerSets->setCurrentIndex(1);
        QCOMPARE(sheet.layerSetType(), QStringLiteral("a"));
        QSet<QString> set;
        for (int number = 0; number < 20; ++number)
            set.insert(QString::number(number));
        sheet.setSets(set);
        QCOMPARE(textsOf(*fileSets), QStringList(set.begin(), set.end()));
        QCOMPARE(textsOf(*layerSets), QStringList(set.begin(), set.end()));
        sheet.setSets(QSet<QString>());
        QCOMPARE(fileSets->count() + layerSets->count(), 0);
    }

    void drawing()
    {
        ShownPage<QExportSheetDxf> sheet;
        auto* sets = child<QComboBox>(sheet, "m_layerSetComboBox");
        const auto after = [&sheet](const char* clicked) {
            click(sheet, clicked);
            return stateOf(sheet);
        };
        QCOMPARE(stateOf(sheet), QStringLiteral("3d sets faces"));
        QCOMPARE(after("m_surfacePointsCheck"), QStringLiteral("3d sets faces points"));
        QCOMPARE(after("m_export2DMapCheck"), QStringLiteral("map sets faces boundaries"));
        QCOMPARE(after("m_surfacePointsCheck"), QStringLiteral("map sets faces points boundaries"));
        QCOMPARE(after("m_surfaceBoundaryCheck"), QStringLiteral("map sets faces points"));
        QCOMPARE(after("m_export3DCheck"), QStringLiteral("3d sets faces points"));
        QCOMPARE(after("m_surface3DFaceCheck"), QStringLiteral("3d sets points"));
        QCOMPARE(after("m_export2DSectionCheck"), QStringLiteral("section sets boundaries"));
        QVERIFY(sets->isEnabled());
        QCOMPARE(after("m_noLayers"), QStringLiteral("section none boundaries"));
        QVERIFY(!sets->isEnabled());
        QCOMPARE(after("m_useObjectTypesAsLayers"), QStringLiteral("section types boundaries"));
        QVERIFY(!sets->isEnabled());
        QCOMPARE(after("m_useSetsAsLayers"), QStringLiteral("section sets boundaries"));
        QVERIFY(sets->isEnabled());
        child<QComboBox>(sheet, "m_lengthUnit")->setCurrentIndex(1);
        QVERIFY(sheet.units().lengthUnit() == kpUnits::LengthUnit::Foot && sheet.units().zIsElevation());
    }

    void asciiAccessors()
    {
        ShownPage<QExportSheetAsciiFileSelection> sheet;
        sheet.activate();
        QVERIFY(sheet.writesHeader() && !sheet.insertsLineBreaks() && !sheet.usesSectionCoordinates());
        click(sheet, "m_insertLinebreaksCheck");
        QVERIFY(sheet.writesHeader() && sheet.insertsLineBreaks() && !sheet.usesSectionCoordinates());
        click(sheet, "m_exportSectionCoordinatesCheck");
        click(sheet, "m_writeHeaderCheck");
        QVERIFY(!sheet.writesHeader() && sheet.usesSectionCoordinates());
        click(sheet, "m_depth");
        QVERIFY(!sheet.units().zIsElevation());
        // Coming back to the page keeps what was chosen.
        sheet.deactivate();
        sheet.activate();
        QVERIFY(!sheet.units().zIsElevation());
    }

    void gocadAttributes()
    {
        const auto wizard = wizardAt("QExportSheetGocad");
        auto& sheet = dynamic_cast<QExportSheetGocad&>(*wizard->current_sheet());
        QCOMPARE(child<QGroupBox>(sheet, "groupBox")->title(), QStringLiteral("Export  Vertex  Attributes"));
        QCOMPARE(sheet.selectedAttributeNames(), std::vector<std::string>{"Grade"});
        auto* warning = child<QLabel>(sheet, "m_warningLabel");
        QCOMPARE(warning->text(), QStringLiteral("Unsupported Attributes for this Format: Rock (text), paint (color)"));
        QVERIFY(warning->isVisible());
        QVERIFY(sheet.writesHeader());
        click(sheet, "m_headerCheck");
        QVERIFY(!sheet.writesHeader());
        // Only the pages of grids answer the wizard's own question for attributes.
        QVERIFY(wizard->selectedAttributeNames().empty());
    }

    void gridIsAccepted_data() { rows({"QExportSheetGeoCell", "QExportSheetEclipse", "QExportSheetRescue"}); }

    void gridIsAccepted()
    {
        const auto wizard = wizardAt(QTest::currentDataTag());
        auto& sheet = dynamic_cast<GridSheet&>(*wizard->current_sheet());
        QVERIFY(!sheet.isComplete() && !wizard->nextButton()->isEnabled());
        QCOMPARE(wizard->selectedAttributeNames(), (std::vector<std::string>{"Grade", "paint", "Rock"}));
        child<QListWidget>(sheet, "m_attributeList")->item(1)->setCheckState(Qt::Unchecked);
        QCOMPARE(wizard->selectedAttributeNames(), (std::vector<std::string>{"Grade", "Rock"}));
        if (auto* geoCell = dynamic_cast<QExportSheetGeoCell*>(&sheet)) {
            geoCell->inputGridFound = true;
            QVERIFY(!sheet.isComplete());
            geoCell->showWrongInputGridError(true);
            geoCell->showGridName(QStringLiteral("Reservoir"));
            QVERIFY(child<QLabel>(sheet, "m_wrongInputGridError")->isVisible());
            QCOMPARE(child<QLabel>(sheet, "m_gridName")->text(), QStringLiteral("Exporting grid: Reservoir"));
        }
        sheet.gridAccepted = true;
        QVERIFY(sheet.isComplete());
        wizard->update_navigation();
        QVERIFY(wizard->nextButton()->isEnabled());
    }

    void eclipseVariants()
    {
        const auto wizard = wizardAt("QExportSheetEclipse");
        auto& sheet = dynamic_cast<QExportSheetEclipse&>(*wizard->current_sheet());
        QCOMPARE(sheet.geometryFormat, std::string("GRDECL"));
        QCOMPARE(sheet.units.zDirection(), int(kpUnits::Elevation));
        sheet.gridAccepted = true;
        // One box at a time; choosing one has the wizard look again.
        QVERIFY(!wizard->nextButton()->isEnabled());
        click(sheet, "m_EGRIDFormatCheckBox");
        QVERIFY(wizard->nextButton()->isEnabled());
        QVERIFY(!child<QCheckBox>(sheet, "m_GRDECLFormatCheckBox")->isChecked());
        child<QComboBox>(sheet, "m_lengthUnit")->setCurrentIndex(1);
        click(*wizard, "backButton");
        QCOMPARE(sheet.geometryFormat, std::string("EGRID"));
        QCOMPARE(sheet.units.zDirection(), 64);
        QVERIFY(sheet.units.lengthUnit() == kpUnits::LengthUnit::Foot);
        for (const char* format : {"GRID", "FGRID", "GRDECL"}) {
            const QByteArray name = QByteArray("m_") + format + "FormatCheckBox";
            child<QCheckBox>(sheet, name.constData())->setChecked(true);
            sheet.deactivate();
            QCOMPARE(sheet.geometryFormat, std::string(format));
        }
        sheet.showMultipleGridWarning(true);
        QVERIFY(!child<QLabel>(sheet, "m_multipleGridWarning")->isHidden());
    }

    void eclipseWarnings()
    {
        ShownPage<QExportSheetEclipse> sheet;
        const auto* warning = child<QLabel>(sheet, "m_multipleGridWarning");
        sheet.showNoGridWarning(true);
        QVERIFY(warning->isVisible() && warning->text().contains(QStringLiteral("no grid has been chosen")));
        sheet.showMultipleGridWarning(true);
        QVERIFY(warning->isVisible() && warning->text().contains(QStringLiteral("only export a single grid")));
        sheet.showMultipleGridWarning(false);
        QVERIFY(!warning->isVisible());
    }

    void inputGridFile()
    {
        const QString path = m_folder.filePath(QString::fromUtf8("сетка.grdecl"));
        writeFile(path, QByteArray());
        ShownDialog shown;
        {
            const auto wizard = wizardAt("QExportSheetGeoCell");
            auto& sheet = dynamic_cast<QExportSheetGeoCell&>(*wizard->current_sheet());
            sheet.gridAccepted = true;
            QVERIFY(QTest::qWaitForWindowActive(wizard.get()));
            auto* edit = child<QLineEdit>(sheet, "m_gridPath");
            auto* error = child<QLabel>(sheet, "m_noInputGridError");
            QVERIFY(!error->isVisible());
            for (const QString& missing : {m_folder.filePath(QStringLiteral("missing")), m_folder.path(), QString()}) {
                for (const QString& text : {missing, path}) {
                    edit->setFocus();
                    edit->setText(text);
                    QTest::keyClick(edit, Qt::Key_Tab);
                    QTRY_COMPARE(error->isVisible(), text != path);
                    QCOMPARE(sheet.inputGridFound, text == path);
                    QCOMPARE(wizard->nextButton()->isEnabled(), text == path);
                }
            }
            // A cancelled dialog changes nothing and is not remembered.
            edit->clear();
            chooseInDialog(QString());
            click(sheet, "m_browseButton");
            QVERIFY(edit->text().isEmpty() && !QSettings().contains(QStringLiteral("QExportSheetGeoCell/grid_file")));
            sheet.gridFilter = QStringLiteral("Grids (*.grdecl)");
            chooseInDialog(path, &shown);
            click(sheet, "m_browseButton");
            QCOMPARE(shown.caption, QStringLiteral("Locate original grid file"));
            QCOMPARE(shown.filters, QStringList{sheet.gridFilter});
            QCOMPARE(sheet.inputGridPath(), path);
            QVERIFY(sheet.inputGridFound);
        }
        // The next wizard, also of another run of the program, starts from there.
        QCOMPARE(QSettings().value(QStringLiteral("QExportSheetGeoCell/grid_file")).toString(), path);
        const auto wizard = wizardAt("QExportSheetGeoCell");
        chooseInDialog(QString(), &shown);
        click(*wizard, "m_browseButton");
        QCOMPARE(shown.directory, m_folder.path());
    }

    void sampleInterval()
    {
        ShownPage<QExportSheetFlexDecomp> sheet;
        auto* spin = child<kpBase::QUnitDoubleSpinBox>(sheet, "m_sampleInterval");
        QVERIFY(spin->allowAutoRepeat());
        QCOMPARE(sheet.sampleInterval(), 50.0);
        QTest::keyClick(spin, Qt::Key_Up);
        QCOMPARE(sheet.sampleInterval(), 60.0);
        for (const double most : {1000.0, 0.0}) {
            spin->setModelValue(most == 0.0 ? 5.0 : 995.0, false);
            QTest::keyClick(spin, most == 0.0 ? Qt::Key_Down : Qt::Key_Up);
            QCOMPARE(sheet.sampleInterval(), most);
            spin->setModelValue(most == 0.0 ? -1.0 : 1001.0, true);
            QCOMPARE(sheet.sampleInterval(), most);
        }
        QVERIFY(!sheet.upsamplesHorizons());
        click(sheet, "m_bUpSampleObjects");
        QVERIFY(sheet.upsamplesHorizons());
    }

    void sections()
    {
        SectionsSheet sheet;
        QCOMPARE(sheet.updates, 0);
        sheet.activate();
        QCOMPARE(sheet.updates, 1);
        auto* view = child<QTableView>(sheet, "tableViewSections");
        QObjectListModel& list = *sheet.sectionList();
        list.addName(QStringLiteral("S2"), 7, QStringLiteral("Cross Sections"), true);
        list.addName(QStringLiteral("S1"), 8, QStringLiteral("Cross Sections"), false);
        list.resetModel();
        QCOMPARE(view->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Section List: Name   "));
        QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
        QVERIFY(view->verticalHeader()->isHidden() && view->horizontalHeader()->isSortIndicatorShown());
        QCOMPARE(sheet.selectedSectionNames(), std::vector<std::string>{"S2"});
        const auto firstAfterClick = [view] {
            QHeaderView* header = view->horizontalHeader();
            const QPoint place(header->sectionViewportPosition(0) + 5, header->height() / 2);
            QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            return view->model()->index(0, 0).data().toString();
        };
        const QString once = firstAfterClick();
        QVERIFY(once != firstAfterClick());
        click(sheet, "pushButtonSelectAll");
        QCOMPARE(sheet.selectedSectionNames(), (std::vector<std::string>{"S2", "S1"}));
        click(sheet, "pushButtonDeselectAll");
        QVERIFY(sheet.selectedSectionNames().empty());
        QCOMPARE(sheet.traceLine(), QString());
        sheet.setTraceLines({QStringLiteral("S1"), QStringLiteral("S2")});
        sheet.setTraceLine(QStringLiteral("S2"));
        QCOMPARE(sheet.traceLine(), QStringLiteral("S2"));
    }

    void checkBoxes()
    {
        ShownPage<QExportSheetShp> shapefile;
        QVERIFY(!shapefile.writesAttributes() && !shapefile.writesSymbology());
        click(shapefile, "m_exportArcMapLyr");
        QVERIFY(!shapefile.writesAttributes() && shapefile.writesSymbology());
        // A page that has not been built is not complete.
        QVERIFY(!Concrete<QExportSheetShp>().isComplete() && !Concrete<QExportSheetTab>().isComplete());

        ShownPage<QExportSheetGeosec> horizons;
        QVERIFY(horizons.usesHorizonNames());
        click(horizons, "m_horizonNameCheck");
        QVERIFY(!horizons.usesHorizonNames());
        QCOMPARE(child<QComboBox>(horizons, "m_lengthUnit")->count(), 2);

        ShownPage<QExportSheetOff> off;
        QTest::keyClicks(child<QLineEdit>(off, "m_filePrefix"), QStringLiteral("mesh"));
        QCOMPARE(off.filePrefix(), QStringLiteral("mesh"));

        const auto wizard = wizardAt("QExportSheetZMap");
        QVERIFY(wizard->current_sheet()->pageWidget()->isVisible());
        QVERIFY(wizard->current_sheet()->isComplete() && wizard->nextButton()->isEnabled());
    }

private:
    static void rows(std::initializer_list<const char*> pages)
    {
        QTest::addColumn<bool>("none");
        for (const char* page : pages)
            QTest::newRow(page) << true;
    }

    /// The wizard with the format's page shown.
    static std::unique_ptr<WizardUnderTest> wizardAt(const char* format)
    {
        auto wizard = std::make_unique<WizardUnderTest>();
        wizard->supply = {{"Grade", "real", "%"}, {"Rock", "text", ""}, {"paint", "color", ""}};
        wizard->startup();
        child<QComboBox>(*wizard, "fileFormatComboBox")->setCurrentText(QString::fromLatin1(format));
        wizard->show();
        click(*wizard, "nextButton");
        return wizard;
    }

    QTemporaryDir m_folder;
    std::deque<TestSheetFactory> m_sheets;
    std::deque<SilentSaverFactory> m_savers;
    TestSheetFactory m_objects{"QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }};
};

QTEST_MAIN(SheetsTest)
#include "tst_sheets.moc"
