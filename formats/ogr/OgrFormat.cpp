// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrFormat.h"

#include "export/CommonFindings.h"
#include "export/CommonSettings.h"
#include "export/ExportError.h"
#include "export/SafeNames.h"
#include "export/TargetPath.h"
#include "export/WriteErrors.h"
#include "formats/ogr/OgrFile.h"
#include "formats/ogr/OgrFindings.h"
#include "formats/ogr/QgisStyle.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "ogr/OGRExporter.h"

#include <QFile>
#include <QFileInfo>

#include <cpl_string.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

namespace kpFormats
{

namespace
{

using kpBaseExport::OGRExporter;

/// \a path with one of the extensions, in the case in which drivers write them.
QString withOneOf(const QString& path, const QStringList& extensions)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix().toLower();
    if (!extensions.contains(suffix))
        return path + QLatin1Char('.') + extensions.first();
    return path.left(path.size() - suffix.size()) + suffix;
}

} // namespace

FormatInfo OgrFormat::vectorInfo() const
{
    FormatInfo info;
    info.types = positionedObjectTypes();
    info.valuesOfFeatures = true;
    info.defaultExtension = extensions().first();
    for (const QString& extension : extensions())
        info.patterns += (info.patterns.isEmpty() ? QStringLiteral("*.") : QStringLiteral(" *.")) + extension;
    return info;
}

SettingsTable OgrFormat::commonSettings()
{
    using S = OgrExportSettings;
    SettingsTable table;
    table.addText("crs", &S::crs, tr("CRS"), tr("coordinate system, EPSG:n or WKT; empty for that of the first object"))
        .isOutputSystem = true;
    table.addBoolean("attributes", &S::attributes, tr("Attributes"), tr("attributes as fields"));
    table.addBoolean("symbology", &S::symbology, tr("Symbology"), tr("colours as a style that goes with the file"));
    addGrouping(table, &S::grouping);
    table.addBoolean("objectName", &S::objectName, tr("Object name"), tr("the object's name in a field"));
    table.addBoolean("color", &S::color, tr("Color"), tr("the object's colour in a field colorval"));
    table.addBoolean("unitsInNames", &S::unitsInNames, tr("Units in names"),
                     tr("the unit of an attribute behind its name"));
    table.addBoolean("dipInType", &S::dipInType, tr("Dip in type"),
                     tr("Horizontal or Vertical before the text of type where dip is 0 or 90"));
    table.addChoice("surfaces", &S::surfaces, tr("Surfaces"),
                    {{QStringLiteral("points"), tr("points")}, {QStringLiteral("polygons"), tr("polygons")}},
                    tr("surfaces as their nodes, or as triangles and cells"));
    return table;
}

std::vector<PlannedFile> OgrFormat::files(const ExportSelection& selection, const SettingsValue& values) const
{
    const auto& settings = values.as<OgrExportSettings>();
    // Neither can be written to; the export says why.
    const bool folder = QFileInfo(selection.path).isDir();
    if (TargetPath(selection.path).isStream() || (folder && settings.grouping == FileGrouping::Single))
        return {{selection.path, selection.objects}};
    ExportSelection named = selection;
    if (!folder)
        named.path = withOneOf(selection.path, extensions());
    const std::vector<PlannedFile> groups = planFiles(named, settings.grouping, extensions().first());
    std::vector<PlannedFile> files;
    UniqueNames names;
    if (traits().manyLayers) {
        for (PlannedFile file : groups) {
            // Names that the user gives stay, or are refused.
            const QFileInfo info(file.path);
            if (traits().texts == OgrTraits::Texts::Xml && settings.grouping != FileGrouping::Single)
                file.path = names.take(info.path() + QLatin1Char('/')
                                       + info.completeBaseName().replace(QLatin1Char('&'), QLatin1Char('_')))
                            + QLatin1Char('.') + info.suffix();
            files.push_back(file);
        }
        return files;
    }
    for (const PlannedFile& group : groups) {
        const std::vector<OgrLayer> layers = ogrLayers(group.objects, settings, traits().heights);
        for (const OgrLayer& layer : layers) {
            QString path = group.path;
            if (layers.size() > 1) // beside it, in the words of the user
                path = QFileInfo(path).path() + QLatin1Char('/')
                       + QFileInfo(OGRExporter::layerFileName(path, layer.type())).fileName();
            const QString extension = QLatin1Char('.') + QFileInfo(path).suffix();
            files.push_back({names.take(path.left(path.size() - extension.size())) + extension, layer.objects});
        }
    }
    return files;
}

QString OgrFormat::chosenSystem(const PlannedFile& file, const ExportSelection& selection,
                                const OgrExportSettings& settings)
{
    if (!settings.crs.isEmpty()) {
        const QString wkt = wktOf(settings.crs);
        if (wkt.isEmpty())
            throw ExportError(file.path,
                              QStringLiteral("crs: \"%1\" is not a known coordinate system").arg(settings.crs),
                              QStringLiteral("give EPSG:n or WKT"));
        return wkt;
    }
    // The files of one geometry type each belong together; those of one object or set each stand alone.
    const auto& objects = settings.grouping == FileGrouping::Single ? selection.objects : file.objects;
    for (const auto* list : {&objects, &file.objects}) {
        for (const ModelObject* object : *list) {
            if (!object->crs.isEmpty())
                return object->crs;
        }
    }
    return {};
}

OgrSystems OgrFormat::systems(const PlannedFile& file, const ExportSelection& selection,
                              const OgrExportSettings& settings) const
{
    const QString target = chosenSystem(file, selection, settings);
    return OgrSystems(target, target);
}

WrittenSystem OgrFormat::writtenSystem(OgrOutput& output, Findings&) const
{
    return {output.systems.target(), 0.0};
}

void OgrFormat::tune(OgrOutput&, kpBaseExport::OGRExporterOptions&, Findings&, const kpBase::AbstractProgress*) const {}

void OgrFormat::requireHoldable(const PlannedFile&, const std::vector<OgrLayer>&) const {}

void OgrFormat::check(const OgrOutput& output, Findings& findings) const
{
    openAndCount(output, findings);
}

GDALDatasetUniquePtr OgrFormat::open(const QString& path) const
{
    CPLStringList options;
    for (const QString& option : traits().readOptions)
        options.AddString(option.toLatin1().constData());
    return GDALDatasetUniquePtr(
        GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, options.List()));
}

void OgrFormat::openAndCount(const OgrOutput& output, Findings& findings) const
{
    const QuietGdal quiet;
    const GDALDatasetUniquePtr dataset = open(output.path);
    if (!dataset || dataset->GetLayerCount() < static_cast<int>(output.layers.size()))
        failIncomplete(output.file.path, QStringLiteral("it cannot be opened again; %1").arg(QuietGdal::lastMessage()));
    for (int index = 0; index < static_cast<int>(output.layers.size()); ++index) {
        OGRLayer* const layer = dataset->GetLayer(index);
        const qint64 wanted = output.features[static_cast<std::size_t>(index)];
        // Not forced: some drivers would read every feature.
        qint64 found = layer->GetFeatureCount(FALSE);
        OGRFeatureUniquePtr last;
        if (found < 0 && layer->TestCapability(OLCRandomRead) == 0) {
            // Counting and going to the last one would each read all of them.
            found = 0;
            for (auto& feature : *layer) {
                ++found;
                last = std::move(feature);
            }
        } else {
            found = found >= 0 ? found : layer->GetFeatureCount(TRUE);
            last.reset(wanted == 0 ? nullptr : layer->GetFeature(traits().firstId + wanted - 1));
        }
        if (found != wanted)
            failIncomplete(output.file.path, QStringLiteral("%1 of %2 features are there").arg(found).arg(wanted));
        if (wanted > 0 && (!last || !last->GetGeometryRef()))
            failIncomplete(output.file.path, QStringLiteral("the last feature is not there"));
        const OGRSpatialReference* system = layer->GetSpatialRef();
        if (!output.written.wkt.isEmpty() && (!system || system->IsLocal()))
            findings.note(finding::coordinateSystemNotCarried, QString(), 1,
                          QStringLiteral("the format does not know %1").arg(crsName(output.systems.target())));
    }
}

void OgrFormat::addStyle(const OgrOutput& output, Findings& findings) const
{
    if (output.layers.size() > 1)
        findings.note(ogrFinding::colourNotCarried, QString(), static_cast<qint64>(output.layers.size()),
                      QStringLiteral("a style beside the file serves one layer; export a file per object or set"));
    if (output.layers.size() > 1)
        return;
    const QFileInfo info(output.path);
    const QString path = info.absolutePath() + QLatin1Char('/') + info.completeBaseName() + QStringLiteral(".qml");
    const QByteArray style =
        qgisStyle(output.layers.front(), output.settings.attributes && output.settings.color, findings);
    if (style.isEmpty())
        return;
    QFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(style) == style.size() && file.flush();
    file.close();
    if (!written || file.error() != QFile::NoError)
        throw ExportError(output.file.path,
                          QStringLiteral("the style %1 could not be written: %2")
                              .arg(info.completeBaseName() + QStringLiteral(".qml"), file.errorString()),
                          QStringLiteral("make room on the disk, or switch symbology off"));
}

std::unique_ptr<PreparedFile> OgrFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                 const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<OgrFile>(*this, file, selection, settings.as<OgrExportSettings>(), findings);
}

} // namespace kpFormats
