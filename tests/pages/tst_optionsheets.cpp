// SPDX-License-Identifier: MIT
// The library's option pages bound to formats of the program: what is set on the page arrives in the format's
// settings, is remembered, and is not reset on the way through the wizard.
#include "formats/gocad/GocadExportSettings.h"
#include "formats/gocad/GocadFormat.h"
#include "host/ui/QImportUnitSelector.h"
#include "pages/SettingsMemory.h"
#include "tests/support/Child.h"
#include "tests/support/SaverRun.h"
#include "tests/support/TestSettings.h"
#include "tests/support/TextRows.h"
#include "window/ExportWizard.h"
#include "window/HostContext.h"
#include "wizard/QExportSheetSaveFile.h"
#include "wizard/QObjectListModel.h"

#include <QSettings>
#include <QtWidgets>

#include <deque>

using namespace kpFormats;
using namespace refhost;

namespace
{

/// The values of an echo, by name.
struct EchoSettings
{
    QMap<QString, QString> values;
};

/// A file that holds the settings, the objects and the attributes of its export.
class EchoFile : public PreparedFile
{
public:
    EchoFile(const PlannedFile& planned, const ExportSelection& selected, SettingsValue settings)
        : PreparedFile(planned, selected)
        , m_settings(std::move(settings))
    {
    }

    qint64 write(const QString& path, Findings&, kpBase::AbstractProgress*) override
    {
        QStringList lines;
        for (const Setting& setting : m_settings.settings())
            lines.append(setting.key + QLatin1Char('=') + m_settings.get(setting));
        QStringList objects;
        for (const ModelObject* object : file().objects)
            objects.append(object->name);
        lines.append(QStringLiteral("objects=") + objects.join(QLatin1Char(',')));
        const QStringList attributes = selection().attributes.value_or(QStringList{QStringLiteral("all")});
        lines.append(QStringLiteral("attributes=") + attributes.join(QLatin1Char(',')));
        writeFile(path, lines.join(QLatin1Char(' ')).toUtf8());
        return static_cast<qint64>(file().objects.size());
    }

private:
    SettingsValue m_settings;
};

class EchoFormat : public Format
{
public:
    /// \a settings: "key=first|second" for a choice, "key=true" or "key=false", "key=" for a text; a blank between.
    EchoFormat(const char* key, bool attributes, const char* settings)
    {
        m_info.key = QString::fromLatin1(key);
        m_info.displayName = m_info.key;
        m_info.fileFormatName = m_info.key.toUpper();
        m_info.defaultExtension = QStringLiteral("txt");
        m_info.patterns = QStringLiteral("*.txt");
        m_info.types = allObjectTypes();
        m_info.supportsAttributes = attributes;
        for (const QString& text : QString::fromLatin1(settings).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString name = text.section(QLatin1Char('='), 0, 0);
            const QStringList values = text.section(QLatin1Char('='), 1).split(QLatin1Char('|'));
            const Setting::Kind kind = values.size() > 1          ? Setting::Choice
                                       : values.front().isEmpty() ? Setting::Text
                                                                  : Setting::Boolean;
            Setting& setting = m_table.add<EchoSettings>(name.toLatin1().constData(), name, QString(), kind);
            for (const QString& value : kind == Setting::Choice ? values : QStringList())
                setting.choices.push_back({value, value});
            setting.read = [name, usual = values.front()](const std::any& echo) {
                return std::any_cast<const EchoSettings&>(echo).values.value(name, usual);
            };
            setting.write = [name](std::any& echo, const QString& value) {
                std::any_cast<EchoSettings&>(echo).values[name] = value;
            };
        }
    }

    FormatInfo info() const override { return m_info; }
    SettingsTable settings() const override { return m_table; }
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override
    {
        const auto valueOf = [&settings](const char* key) {
            const Setting* setting = settings.find(QString::fromLatin1(key));
            return setting ? settings.get(*setting) : QString();
        };
        const QString grouping = valueOf("grouping");
        const FileGrouping kind = grouping == QLatin1String("set")      ? FileGrouping::Set
                                  : grouping == QLatin1String("object") ? FileGrouping::Object
                                                                        : FileGrouping::Single;
        return planFiles(selection, kind, m_info.defaultExtension, valueOf("filePrefix"));
    }
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings&) const override
    {
        return std::make_unique<EchoFile>(file, selection, settings);
    }

private:
    FormatInfo m_info;
    SettingsTable m_table;
};

Formats echoFormats()
{
    Formats formats;
    const auto add = [&formats](const char* key, bool attributes, const char* settings) {
        formats.push_back(std::make_unique<EchoFormat>(key, attributes, settings));
    };
    add("dxf", false,
        "lengthUnit=model|m|ft|ftUS|km dimension=3d|map|section grouping=single|object|set filePrefix= "
        "layers=set|type|none faces=true meshPoints=false boundaries=false crs=");
    add("gocad", true,
        "grouping=single|object|set filePrefix= header=true zIsElevation=true lengthUnit=model|m|ft|ftUS|km");
    add("off", false, "filePrefix= lengthUnit=model|m|ft|ftUS|km zIsElevation=true");
    add("zmap", false, "nullText=");
    add("grdecl", true, "filePrefix= lengthUnit=model|m|ft|ftUS|km");
    add("shp", true, "attributes=true symbology=false");
    add("tab", true, "");
    add("opentec", false, "sections= traceLine= decimals=1|0");
    add("plain", true, "attributes=true");
    return formats;
}

} // namespace

class OptionSheetsTest : public SaverTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void dxfControls();
    void severalFiles();
    void unitFollowsTheObjects();
    void attributesStayChosen();
    void gocad();
    void formerNames();
    void shapefileAttributes();
    void missingSettings();
    void oneGrid();
    void sections();
    void moreOptionsOnly();
    void nothingIsCutOff_data();
    void nothingIsCutOff();

private:
    void resetFormats();
    std::unique_ptr<ExportWizard> wizardAt(const char* format, const std::vector<int>& ids);
    void click(QWidget& wizard, const char* name);
    QString save(ExportWizard& wizard, const char* name = "out.txt");
    QString read(const char* name) const { return QString::fromUtf8(contentOf(path(name))); }

    QTemporaryDir m_settings;
    std::unique_ptr<HostContext> m_context;
};

void OptionSheetsTest::initTestCase()
{
    useTestSettings(m_settings.path());
    m_context = std::make_unique<HostContext>(echoFormats());
    const auto add = [this](const char* name, ObjectType type, const char* unit, const QStringList& attributes) {
        ModelObject object = objectOf(type, QString::fromLatin1(name), {}, "");
        object.lengthUnit = QString::fromLatin1(unit);
        if (type == ObjectType::GeoCellularVolumes)
            object.cells = std::make_shared<const CellGrid>(cellsOf(1, 1, 1));
        for (const QString& attribute : attributes)
            object.vertexAttributes.push_back(columnOf(attribute, AttributeKind::Real, {}));
        m_context->model.add(object);
    };
    add("metric", ObjectType::MeshSurfaces, "m",
        {QStringLiteral("grade"), QStringLiteral("Grade"), QStringLiteral("rock")});                    // 1
    add("imperial", ObjectType::MeshSurfaces, "ft", {QStringLiteral("rock"), QStringLiteral("depth")}); // 2
    add("grid a", ObjectType::GeoCellularVolumes, "m", {QStringLiteral("poro")});                       // 3
    add("grid b", ObjectType::GeoCellularVolumes, "m", {QStringLiteral("poro")});                       // 4
    add("S1", ObjectType::CrossSections, "m", {});                                                      // 5
    add("S2", ObjectType::CrossSections, "m", {});                                                      // 6
}

void OptionSheetsTest::init()
{
    emptyFolder();
    QSettings().clear();
    resetFormats();
}

/// The formats live as long as the program; this puts back what they had first.
void OptionSheetsTest::resetFormats()
{
    for (const auto& fresh : echoFormats())
        m_context->formats.find(fresh->info().key.toStdString())->settings = fresh->defaults();
}

/// A wizard that shows the format's page for these objects.
std::unique_ptr<ExportWizard> OptionSheetsTest::wizardAt(const char* format, const std::vector<int>& ids)
{
    auto wizard = std::make_unique<ExportWizard>(*m_context, nullptr);
    wizard->setFormatAndSelectedGeo(format, ids);
    wizard->startup();
    wizard->show();
    return wizard;
}

void OptionSheetsTest::click(QWidget& wizard, const char* name)
{
    auto* button = child<QAbstractButton>(wizard, name);
    QVERIFY2(button->isVisible() && button->isEnabled(), name);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
}

QString OptionSheetsTest::save(ExportWizard& wizard, const char* name)
{
    wizard.slotSaveClicked(path(name), true);
    return read(name);
}

void OptionSheetsTest::dxfControls()
{
    const QString defaults =
        QStringLiteral("lengthUnit=m dimension=3d grouping=single filePrefix= layers=set faces=true "
                       "meshPoints=false boundaries=false crs= objects=metric attributes=all");
    QCOMPARE(save(*wizardAt("dxf", {1})), defaults);
    {
        auto wizard = wizardAt("dxf", {1});
        QCOMPARE(child<QComboBox>(*wizard, "m_layerSetComboBox")->currentText(), QStringLiteral("Set"));
        QCOMPARE(child<QComboBox>(*wizard, "m_fileSetComboBox")->currentText(), QStringLiteral("Set"));
        click(*wizard, "m_export2DMapCheck");
        click(*wizard, "m_noLayers");
        click(*wizard, "m_surfacePointsCheck");
        click(*wizard, "m_surface3DFaceCheck");
        QTest::keyClicks(child<QLineEdit>(*wizard, "crs"), QStringLiteral("EPSG:28350"));
        QVERIFY(!wizard->findChild<QWidget*>(QStringLiteral("faces"))); // bound, so not listed again
        QCOMPARE(save(*wizard),
                 QStringLiteral("lengthUnit=m dimension=map grouping=single filePrefix= layers=none faces=false "
                                "meshPoints=true boundaries=true crs=EPSG:28350 objects=metric attributes=all"));
    }
    // Another wizard shows the same again, and what is put back is put back.
    resetFormats();
    auto wizard = wizardAt("dxf", {1});
    QVERIFY(child<QAbstractButton>(*wizard, "m_export2DMapCheck")->isChecked());
    QVERIFY(child<QAbstractButton>(*wizard, "m_surfacePointsCheck")->isChecked());
    QCOMPARE(child<QLineEdit>(*wizard, "crs")->text(), QStringLiteral("EPSG:28350"));
    click(*wizard, "m_export3DCheck");
    click(*wizard, "m_useSetsAsLayers");
    click(*wizard, "m_surfacePointsCheck");
    click(*wizard, "m_surface3DFaceCheck");
    click(*wizard, "m_surfaceBoundaryCheck");
    child<QLineEdit>(*wizard, "crs")->clear();
    QCOMPARE(save(*wizard), defaults);
}

void OptionSheetsTest::severalFiles()
{
    {
        auto wizard = wizardAt("dxf", {1, 2});
        click(*wizard, "m_multipleRadio");
        click(*wizard, "m_useObjectAsFilenames");
        QTest::keyClicks(child<QLineEdit>(*wizard, "m_filePrefix"), QStringLiteral("run"));
        wizard->slotSaveClicked(path(), true);
        QVERIFY(wizard->directoryMode());
        QVERIFY(read("run_metric.txt").contains(QStringLiteral("grouping=object filePrefix=run")));
        QVERIFY(read("run_imperial.txt").contains(QStringLiteral("objects=imperial")));
    }
    auto wizard = wizardAt("dxf", {1, 2});
    QVERIFY(child<QAbstractButton>(*wizard, "m_multipleRadio")->isChecked());
    QVERIFY(child<QAbstractButton>(*wizard, "m_useObjectAsFilenames")->isChecked());
    click(*wizard, "m_useSetsAsFilenames");
    child<QLineEdit>(*wizard, "m_filePrefix")->clear();
    wizard->slotSaveClicked(path(), true);
    QVERIFY(read("S.txt").contains(QStringLiteral("objects=metric,imperial")));
    // One format's directory is not another's.
    QVERIFY(wizard->directoryMode());
    wizard->setFormatAndSelectedGeo("shp", {1, 2});
    wizard->startup();
    QVERIFY(!wizard->directoryMode());
    // A file holds one object of this format, so two of them need a directory.
    for (const std::vector<int>& ids : {std::vector<int>{1}, std::vector<int>{1, 2}}) {
        auto meshes = wizardAt("off", ids);
        meshes->activate_sheet(nullptr, false);
        QCOMPARE(meshes->directoryMode(), ids.size() > 1);
    }
}

void OptionSheetsTest::unitFollowsTheObjects()
{
    QVERIFY(save(*wizardAt("dxf", {2})).startsWith(QStringLiteral("lengthUnit=ft ")));
    QVERIFY(save(*wizardAt("dxf", {1})).startsWith(QStringLiteral("lengthUnit=m ")));
    {
        auto wizard = wizardAt("dxf", {1});
        child<QComboBox>(*wizard, "m_lengthUnit")->setCurrentIndex(3);
        QVERIFY(save(*wizard).startsWith(QStringLiteral("lengthUnit=km ")));
    }
    QVERIFY(save(*wizardAt("dxf", {2})).startsWith(QStringLiteral("lengthUnit=km ")));
}

void OptionSheetsTest::attributesStayChosen()
{
    auto wizard = wizardAt("plain", {1});
    auto* list = child<QListWidget>(*wizard, "m_attributeList");
    QCOMPARE(list->count(), 2); // names that differ in case only are one entry
    QCOMPARE(save(*wizard, "a.txt").section(QLatin1Char(' '), 2), QStringLiteral("attributes=all"));
    wizard->startup();
    list->item(1)->setCheckState(Qt::Unchecked);
    QVERIFY(save(*wizard, "b.txt").endsWith(QStringLiteral("attributes=Grade,grade")));
    // Other objects: the new attribute is chosen, the one that was refused is not.
    wizard->setFormatAndSelectedGeo("plain", {1, 2});
    wizard->startup();
    QCOMPARE(list->count(), 3);
    QVERIFY(save(*wizard, "c.txt").endsWith(QStringLiteral("attributes=depth,Grade,grade")));
    wizard->startup();
    click(*wizard, "m_deselectAllButton");
    QVERIFY(save(*wizard, "d.txt").endsWith(QStringLiteral("attributes=")));
}

void OptionSheetsTest::gocad()
{
    auto wizard = wizardAt("gocad", {1});
    QCOMPARE(wizard->findChildren<QListWidget*>(QStringLiteral("m_attributeList")).size(), 1);
    click(*wizard, "m_headerCheck");
    child<QCheckBox>(*wizard, "zIsElevation")->setChecked(false);
    child<QListWidget>(*wizard, "m_attributeList")->item(0)->setCheckState(Qt::Unchecked);
    QCOMPARE(save(*wizard),
             QStringLiteral("grouping=single filePrefix= header=false zIsElevation=false lengthUnit=model "
                            "objects=metric attributes=rock"));
    QVERIFY(child<QAbstractButton>(*wizardAt("gocad", {1}), "m_headerCheck")->isChecked());
}

void OptionSheetsTest::formerNames()
{
    // As an earlier version stored it.
    QSettings().setValue(QStringLiteral("format_gocad/zPositive"), QStringLiteral("depth"));
    SettingsValue values = GocadFormat().defaults();
    restoreSettings(values, QStringLiteral("gocad"));
    QVERIFY(!values.as<GocadExportSettings>().zIsElevation);
}

void OptionSheetsTest::shapefileAttributes()
{
    auto wizard = wizardAt("shp", {1});
    auto* list = child<QListWidget>(*wizard, "m_attributeList");
    QVERIFY(list->isEnabled());
    click(*wizard, "m_exportAttsCheck");
    QVERIFY(!list->isEnabled());
    click(*wizard, "m_exportArcMapLyr");
    QVERIFY(child<QWidget>(*wizard, "m_exportArcMapLyr")->toolTip().contains(QStringLiteral("open format")));
    QVERIFY(save(*wizard).startsWith(QStringLiteral("attributes=false symbology=true ")));
    QVERIFY(!child<QWidget>(*wizard, "moreOptions")->isVisible());
}

void OptionSheetsTest::missingSettings()
{
    // What the page offers and the format does not have is shown, but cannot be chosen.
    auto meshes = wizardAt("off", {1});
    click(*meshes, "m_depth");
    QTest::keyClicks(child<QLineEdit>(*meshes, "m_filePrefix"), QStringLiteral("p"));
    QVERIFY(save(*meshes).startsWith(QStringLiteral("filePrefix=p lengthUnit=m zIsElevation=false ")));
    QVERIFY(child<QAbstractButton>(*wizardAt("off", {1}), "m_depth")->isChecked());
    auto bare = wizardAt("tab", {1});
    QVERIFY(!child<QWidget>(*bare, "m_exportAttsCheck")->isEnabled());
    QVERIFY(!child<QWidget>(*bare, "m_exportAttsCheck")->toolTip().isEmpty());
    QCOMPARE(save(*bare), QStringLiteral("objects=metric attributes=all"));
}

void OptionSheetsTest::oneGrid()
{
    auto wizard = wizardAt("grdecl", {3});
    QVERIFY(wizard->nextButton()->isEnabled());
    QVERIFY(!child<QLabel>(*wizard, "m_multipleGridWarning")->isVisible());
    for (const char* name : {"m_EGRIDFormatCheckBox", "m_GRIDFormatCheckBox", "m_FGRIDFormatCheckBox"}) {
        QVERIFY(!child<QWidget>(*wizard, name)->isEnabled());
        QVERIFY(child<QWidget>(*wizard, name)->toolTip().contains(QStringLiteral("GRDECL")));
    }
    QCOMPARE(save(*wizard), QStringLiteral("filePrefix= lengthUnit=m objects=grid a attributes=all"));
    wizard->setFormatAndSelectedGeo("grdecl", {3, 4});
    wizard->startup();
    QVERIFY(!wizard->nextButton()->isEnabled());
    QVERIFY(child<QLabel>(*wizard, "m_multipleGridWarning")->isVisible());
    wizard->setFormatAndSelectedGeo("grdecl", {4});
    wizard->startup();
    QVERIFY(wizard->nextButton()->isEnabled());
    QVERIFY(!child<QLabel>(*wizard, "m_multipleGridWarning")->isVisible());
}

void OptionSheetsTest::sections()
{
    auto wizard = wizardAt("opentec", {5, 1, 6});
    auto* view = child<QTableView>(*wizard, "tableViewSections");
    QCOMPARE(view->model()->rowCount(), 2);
    // All of them, each on its own trace line, need no words.
    QVERIFY(save(*wizard).startsWith(QStringLiteral("sections= traceLine= decimals=1 ")));
    wizard->startup();
    child<QComboBox>(*wizard, "comboBoxXYSection")->setCurrentText(QStringLiteral("S2"));
    click(*wizard, "pushButtonDeselectAll");
    QVERIFY(!wizard->nextButton()->isEnabled());
    view->model()->setData(view->model()->index(1, 0), QVariant(), Qt::CheckStateRole);
    QVERIFY(wizard->nextButton()->isEnabled());
    QVERIFY(save(*wizard, "b.txt").startsWith(QStringLiteral("sections=S2 traceLine=S2 decimals=1 ")));
    // The other object leaves the selection; the section stays unchecked. The next wizard starts afresh.
    wizard->setFormatAndSelectedGeo("opentec", {5, 6});
    wizard->startup();
    QVERIFY(save(*wizard, "c.txt").startsWith(QStringLiteral("sections=S2 traceLine=S2 decimals=1 ")));
    QVERIFY(save(*wizardAt("opentec", {5, 6}), "d.txt").startsWith(QStringLiteral("sections= traceLine= decimals=1 ")));
}

void OptionSheetsTest::moreOptionsOnly()
{
    auto wizard = wizardAt("zmap", {1});
    QCOMPARE(wizard->current_sheet()->title(), QStringLiteral("File Export: ZMAP Options"));
    QVERIFY(!wizard->findChild<QWidget*>(QStringLiteral("m_attributeList")));
    QTest::keyClicks(child<QLineEdit>(*wizard, "nullText"), QStringLiteral("1e30"));
    QCOMPARE(save(*wizard), QStringLiteral("nullText=1e30 objects=metric attributes=all"));
    QCOMPARE(child<QLineEdit>(*wizardAt("zmap", {1}), "nullText")->text(), QStringLiteral("1e30"));
}

void OptionSheetsTest::nothingIsCutOff_data()
{
    textRows({"format"}, {{"dxf"}, {"gocad"}, {"off"}, {"zmap"}, {"grdecl"}, {"shp"}, {"tab"}, {"opentec"}, {"plain"}});
}

void OptionSheetsTest::nothingIsCutOff()
{
    QFETCH(QString, format);
    auto wizard = wizardAt(qPrintable(format), {1});
    QVERIFY(QTest::qWaitForWindowExposed(wizard.get()));
    const QWidget* page = wizard->current_sheet()->pageWidget();
    for (const QWidget* control : page->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(control);
        if (!control->isVisible()
            || (!label && !qobject_cast<const QAbstractButton*>(control) && !qobject_cast<const QComboBox*>(control)))
            continue;
        const QByteArray name = control->objectName().toUtf8();
        // On a small screen a tall form scrolls.
        if (auto* area = page->findChild<QScrollArea*>(); area && area->widget()->isAncestorOf(control))
            area->ensureWidgetVisible(const_cast<QWidget*>(control), 0, 0);
        QVERIFY2(page->rect().contains(QRect(control->mapTo(page, QPoint()), control->size())), name.constData());
        const int height =
            label && label->wordWrap() ? label->heightForWidth(label->width()) : control->minimumSizeHint().height();
        QVERIFY2(control->height() >= height, name.constData());
    }
}

QTEST_MAIN(OptionSheetsTest)
#include "tst_optionsheets.moc"
