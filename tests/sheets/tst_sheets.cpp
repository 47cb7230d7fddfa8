// SPDX-License-Identifier: MIT
// The pages at work: what the controls do to each other, to the wizard, and what the accessors give.
#include "tests/sheets/SheetsUnderTest.h"

#include "host/ui/QImportUnitSelector.h"
#include "host/ui/QUnitDoubleSpinBox.h"
#include "tests/TestSettings.h"
#include "tests/app/FileContent.h"
#include "tests/core/TestFactories.h"
#include "tests/wizard/OneObjectSheet.h"
#include "wizard/QExportSheetSaveFile.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace kpBaseExport;

namespace
{

template <typename Control>
Control* child(QWidget& page, const char* name)
{
    auto* found = page.findChild<Control*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

void click(QWidget& page, const char* name)
{
    auto* button = child<QAbstractButton>(page, name);
    // Towards the left, where the box of a wide check box is.
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
}

class TestWizard : public QExportWizard
{
public:
    void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool, bool) override
    {
        list.append({"Grade", "real", "%"});
        list.append({"Rock", "text", ""});
        list.append({"paint", "color", ""});
    }
};

void cancelFileDialog(QString* caption = nullptr)
{
    QTimer::singleShot(50, qApp, [caption] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        if (caption)
            *caption = dialog->windowTitle();
        dialog->reject();
    });
}

} // namespace

class SheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        useTestSettings(m_folder.path());
        const auto add = [this](const char* key, auto make) {
            m_savers.push_back(std::make_unique<TestSaverFactory>(key, [key] { return new SilentSaver(key); }));
            m_sheets.push_back(std::make_unique<TestSheetFactory>(key, make));
        };
        add("gocad", [] { return new Concrete<QExportSheetGocad>; });
        add("dxf", [] { return new Concrete<QExportSheetDxf>; });
        add("asciiFiles", [] { return new Concrete<QExportSheetAsciiFileSelection>; });
        add("stress", [] { return new Concrete<QExportSheet3DStress>; });
        add("geocell", [] { return new Concrete<QExportSheetGeoCell>; });
        add("eclipse", [] { return new Concrete<QExportSheetEclipse>; });
        add("rescue", [] { return new Concrete<QExportSheetRescue>; });
        add("zmap", [] { return new Concrete<QExportSheetZMap>; });
        m_sheets.push_back(std::make_unique<TestSheetFactory>("QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }));
    }

    void oneFileOrSeveral_data()
    {
        QTest::addColumn<QString>("format");
        for (const char* format : {"gocad", "dxf", "asciiFiles", "stress"})
            QTest::newRow(format) << QString::fromLatin1(format);
    }

    void oneFileOrSeveral()
    {
        QFETCH(QString, format);
        const auto wizard = wizardAt(format.toLatin1().constData());
        QWidget& page = *wizard->current_sheet()->pageWidget();
        auto* names = child<QWidget>(page, "m_fileNameGroup");
        auto* sets = child<QComboBox>(page, "m_fileSetComboBox");
        QVERIFY(!names->isEnabled());
        click(page, "m_multipleRadio");
        QVERIFY(names->isEnabled() && sets->isEnabled());
        click(page, "m_useObjectAsFilenames");
        QVERIFY(!sets->isEnabled());
        QVERIFY(child<QRadioButton>(page, "m_multipleRadio")->isChecked());
        const auto& sheet = dynamic_cast<FileGroupingSheet&>(page);
        QTest::keyClicks(child<QLineEdit>(page, "m_filePrefix"), QStringLiteral("p"));
        QVERIFY(sheet.fileGrouping().multipleFiles && sheet.fileGrouping().perObject);
        QCOMPARE(sheet.fileGrouping().prefix, QStringLiteral("p"));
        click(page, "m_useSetsAsFilenames");
        QVERIFY(sets->isEnabled() && !sheet.fileGrouping().perObject);
        click(page, "m_singleRadio");
        QVERIFY(!names->isEnabled() && !sheet.fileGrouping().multipleFiles);
    }

    void directoryMode_data() { oneFileOrSeveral_data(); }

    void directoryMode()
    {
        QFETCH(QString, format);
        const auto wizard = wizardAt(format.toLatin1().constData());
        QWidget& page = *wizard->current_sheet()->pageWidget();
        click(page, "m_multipleRadio");
        QVERIFY(!wizard->directoryMode());
        QString caption;
        cancelFileDialog(&caption);
        QTest::mouseClick(wizard->nextButton(), Qt::LeftButton);
        QVERIFY(wizard->directoryMode());
        QCOMPARE(caption, QStringLiteral("File Export: Directory Selection"));
        QCOMPARE(wizard->current_sheet()->pageWidget(), &page);
        QVERIFY(child<QRadioButton>(page, "m_multipleRadio")->isChecked());
        click(page, "m_singleRadio");
        cancelFileDialog(&caption);
        QTest::mouseClick(wizard->nextButton(), Qt::LeftButton);
        QVERIFY(!wizard->directoryMode());
        QCOMPARE(caption, QStringLiteral("File Export: File Selection"));
    }

    void sets()
    {
        const BuiltSheet built = build<QExportSheetDxf>();
        auto& sheet = dynamic_cast<QExportSheetDxf&>(*built.widget);
        auto* fileSets = child<QComboBox>(sheet, "m_fileSetComboBox");
        auto* layerSets = child<QComboBox>(sheet, "m_layerSetComboBox");
        const auto texts = [](const QComboBox& box) {
            QStringList list;
            for (int index = 0; index < box.count(); ++index) {
                list.append(box.itemText(index));
                if (box.itemData(index).isValid())
                    list.append(QStringLiteral("data"));
            }
            return list;
        };
        const QStringList list{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("b")};
        sheet.setSets(list);
        QCOMPARE(texts(*fileSets), list);
        QCOMPARE(texts(*layerSets), list);
        QCOMPARE(sheet.fileGrouping().setType, QStringLiteral("b"));
        layerSets->setCurrentIndex(1);
        QCOMPARE(sheet.layerSetType(), QStringLiteral("a"));
        QSet<QString> set;
        for (int number = 0; number < 20; ++number)
            set.insert(QString::number(number));
        sheet.setSets(set);
        QStringList inOrder;
        for (const QString& name : qAsConst(set))
            inOrder.append(name);
        QCOMPARE(texts(*fileSets), inOrder);
        QCOMPARE(texts(*layerSets), inOrder);
        sheet.setSets(QSet<QString>());
        QCOMPARE(fileSets->count() + layerSets->count(), 0);
    }

    void drawingInTwoDimensions()
    {
        const BuiltSheet built = build<QExportSheetDxf>();
        auto& sheet = dynamic_cast<QExportSheetDxf&>(*built.widget);
        sheet.show();
        QVERIFY(sheet.dimension() == QExportSheetDxf::Dimension::Space);
        QVERIFY(sheet.writesFaces() && !sheet.writesPoints() && !sheet.writesBoundaries());
        click(sheet, "m_surfacePointsCheck");
        click(sheet, "m_export2DMapCheck");
        QVERIFY(sheet.dimension() == QExportSheetDxf::Dimension::Map);
        QVERIFY(sheet.writesFaces() && !sheet.writesPoints() && sheet.writesBoundaries());
        click(sheet, "m_surfacePointsCheck");
        click(sheet, "m_surfaceBoundaryCheck");
        click(sheet, "m_export3DCheck");
        QVERIFY(sheet.writesPoints() && !sheet.writesBoundaries());
        click(sheet, "m_surface3DFaceCheck");
        click(sheet, "m_export2DSectionCheck");
        QVERIFY(sheet.dimension() == QExportSheetDxf::Dimension::Section);
        QVERIFY(!sheet.writesFaces() && !sheet.writesPoints() && sheet.writesBoundaries());
    }

    void layers()
    {
        const BuiltSheet built = build<QExportSheetDxf>();
        auto& sheet = dynamic_cast<QExportSheetDxf&>(*built.widget);
        sheet.show();
        auto* sets = child<QComboBox>(sheet, "m_layerSetComboBox");
        QVERIFY(sheet.layers() == QExportSheetDxf::Layers::Sets && sets->isEnabled());
        click(sheet, "m_noLayers");
        QVERIFY(sheet.layers() == QExportSheetDxf::Layers::None && !sets->isEnabled());
        click(sheet, "m_useObjectTypesAsLayers");
        QVERIFY(sheet.layers() == QExportSheetDxf::Layers::ObjectTypes && !sets->isEnabled());
        click(sheet, "m_useSetsAsLayers");
        QVERIFY(sheet.layers() == QExportSheetDxf::Layers::Sets && sets->isEnabled());
        child<QComboBox>(sheet, "m_lengthUnit")->setCurrentIndex(1);
        QVERIFY(sheet.units().lengthUnit() == kpUnits::LengthUnit::Foot && sheet.units().zIsElevation());
    }

    void asciiAccessors()
    {
        const BuiltSheet built = build<QExportSheetAsciiFileSelection>();
        auto& sheet = dynamic_cast<QExportSheetAsciiFileSelection&>(*built.widget);
        sheet.show();
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
        const auto wizard = wizardAt("gocad");
        auto& sheet = dynamic_cast<QExportSheetGocad&>(*wizard->current_sheet());
        QCOMPARE(child<QGroupBox>(sheet, "groupBox")->title(), QStringLiteral("Export  Vertex  Attributes"));
        QCOMPARE(sheet.selectedAttributeNames(), std::vector<std::string>{"Grade"});
        QCOMPARE(child<QLabel>(sheet, "m_warningLabel")->text(),
                 QStringLiteral("Unsupported Attributes for this Format: Rock (text), paint (color)"));
        QVERIFY(child<QLabel>(sheet, "m_warningLabel")->isVisible());
        QVERIFY(sheet.writesHeader());
        click(sheet, "m_headerCheck");
        QVERIFY(!sheet.writesHeader());
        // Only the pages of grids answer the wizard's own question for attributes.
        QVERIFY(wizard->selectedAttributeNames().empty());
    }

    void gridIsAccepted_data()
    {
        QTest::addColumn<QString>("format");
        for (const char* format : {"geocell", "eclipse", "rescue"})
            QTest::newRow(format) << QString::fromLatin1(format);
    }

    void gridIsAccepted()
    {
        QFETCH(QString, format);
        const auto wizard = wizardAt(format.toLatin1().constData());
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
        const auto wizard = wizardAt("eclipse");
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
        QTest::mouseClick(wizard->backButton(), Qt::LeftButton);
        QCOMPARE(sheet.geometryFormat, std::string("EGRID"));
        QCOMPARE(sheet.units.zDirection(), 64);
        QVERIFY(sheet.units.lengthUnit() == kpUnits::LengthUnit::Foot);
        for (const char* format : {"GRID", "FGRID", "GRDECL"}) {
            child<QCheckBox>(sheet, QByteArray("m_").append(format).append("FormatCheckBox").constData())->setChecked(true);
            sheet.deactivate();
            QCOMPARE(sheet.geometryFormat, std::string(format));
        }
        sheet.showMultipleGridWarning(true);
        QVERIFY(!child<QLabel>(sheet, "m_multipleGridWarning")->isHidden());
    }

    void inputGridFile()
    {
        const QString path = m_folder.filePath(QString::fromUtf8("сетка.grdecl"));
        writeFile(path, QByteArray());
        {
            const auto wizard = wizardAt("geocell");
            auto& sheet = dynamic_cast<QExportSheetGeoCell&>(*wizard->current_sheet());
            sheet.gridAccepted = true;
            QVERIFY(QTest::qWaitForWindowActive(wizard.get()));
            auto* edit = child<QLineEdit>(sheet, "m_gridPath");
            auto* error = child<QLabel>(sheet, "m_noInputGridError");
            QVERIFY(!error->isVisible());
            for (const QString& missing : {m_folder.filePath(QStringLiteral("missing")), m_folder.path(), QString()}) {
                edit->setFocus();
                edit->setText(missing);
                QTest::keyClick(edit, Qt::Key_Tab);
                QTRY_VERIFY(error->isVisible());
                QVERIFY(!sheet.inputGridFound && !wizard->nextButton()->isEnabled());
                edit->setFocus();
                edit->setText(path);
                QTest::keyClick(edit, Qt::Key_Tab);
                QTRY_VERIFY(!error->isVisible());
                QVERIFY(sheet.inputGridFound && wizard->nextButton()->isEnabled());
            }
            // A cancelled dialog changes nothing and is not remembered.
            edit->clear();
            cancelFileDialog();
            click(sheet, "m_browseButton");
            QVERIFY(edit->text().isEmpty() && !QSettings().contains(QStringLiteral("QExportSheetGeoCell/grid_file")));
            sheet.gridFilter = QStringLiteral("Grids (*.grdecl)");
            QTimer::singleShot(50, qApp, [path] {
                auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                QVERIFY(dialog);
                QCOMPARE(dialog->windowTitle(), QStringLiteral("Locate original grid file"));
                QCOMPARE(dialog->nameFilters(), QStringList{QStringLiteral("Grids (*.grdecl)")});
                auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                name->setText(path);
                QTest::keyClick(name, Qt::Key_Return);
            });
            click(sheet, "m_browseButton");
            QCOMPARE(sheet.inputGridPath(), path);
            QVERIFY(sheet.inputGridFound);
        }
        // The next wizard, also of another run of the program, starts from there.
        QCOMPARE(QSettings().value(QStringLiteral("QExportSheetGeoCell/grid_file")).toString(), path);
        const auto wizard = wizardAt("geocell");
        QString directory;
        QTimer::singleShot(50, qApp, [&directory] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            directory = dialog->directory().absolutePath();
            dialog->reject();
        });
        click(*wizard->current_sheet()->pageWidget(), "m_browseButton");
        QCOMPARE(directory, m_folder.path());
    }

    void sampleInterval()
    {
        const BuiltSheet built = build<QExportSheetFlexDecomp>();
        auto& sheet = dynamic_cast<QExportSheetFlexDecomp&>(*built.widget);
        sheet.show();
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
        static_cast<QExportAbstractSheet&>(sheet).initialize(QString());
        sheet.show();
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
        const auto first = [view] { return view->model()->index(0, 0).data().toString(); };
        const auto clickHeader = [view] {
            QHeaderView* header = view->horizontalHeader();
            QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(header->sectionViewportPosition(0) + 5, header->height() / 2));
        };
        clickHeader();
        const QString once = first();
        clickHeader();
        QVERIFY(once != first());
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
        const BuiltSheet shp = build<QExportSheetShp>();
        auto& shapefile = dynamic_cast<QExportSheetShp&>(*shp.widget);
        shapefile.show();
        QVERIFY(!shapefile.writesAttributes() && !shapefile.writesSymbology());
        click(shapefile, "m_exportArcMapLyr");
        QVERIFY(!shapefile.writesAttributes() && shapefile.writesSymbology());
        // A page that has not been built is not complete.
        QVERIFY(!Concrete<QExportSheetShp>().isComplete() && !Concrete<QExportSheetTab>().isComplete());

        const BuiltSheet geosec = build<QExportSheetGeosec>();
        auto& horizons = dynamic_cast<QExportSheetGeosec&>(*geosec.widget);
        horizons.show();
        QVERIFY(horizons.usesHorizonNames());
        click(horizons, "m_horizonNameCheck");
        QVERIFY(!horizons.usesHorizonNames());
        QCOMPARE(child<QComboBox>(horizons, "m_lengthUnit")->count(), 2);

        const BuiltSheet off = build<QExportSheetOff>();
        QTest::keyClicks(child<QLineEdit>(*off.widget, "m_filePrefix"), QStringLiteral("mesh"));
        QCOMPARE(dynamic_cast<QExportSheetOff&>(*off.widget).filePrefix(), QStringLiteral("mesh"));

        const auto wizard = wizardAt("zmap");
        QVERIFY(wizard->current_sheet()->pageWidget()->isVisible());
        QVERIFY(wizard->current_sheet()->isComplete() && wizard->nextButton()->isEnabled());
    }

private:
    /// The wizard with the format's page shown.
    std::unique_ptr<TestWizard> wizardAt(const char* format)
    {
        auto wizard = std::make_unique<TestWizard>();
        wizard->startup();
        child<QComboBox>(*wizard, "fileFormatComboBox")->setCurrentText(QString::fromLatin1(format));
        wizard->show();
        QTest::mouseClick(wizard->nextButton(), Qt::LeftButton);
        return wizard;
    }

    QTemporaryDir m_folder;
    std::vector<std::unique_ptr<TestSheetFactory>> m_sheets;
    std::vector<std::unique_ptr<TestSaverFactory>> m_savers;
};

namespace
{

/// A page whose sections the host knows.
class SectionsSheet : public Concrete<QExportSheetOpenTecLink>
{
public:
    int updates = 0;

protected:
    void updateSectionList() override { ++updates; }
};

} // namespace

QTEST_MAIN(SheetsTest)
#include "tst_sheets.moc"
