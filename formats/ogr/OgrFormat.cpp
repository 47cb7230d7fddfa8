// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrFormat.h"
#include "export/CommonFindings.h"
#include "formats/ogr/OgrFindings.h"

#include "export/ExportError.h"
#include "export/Foresight.h"
#include "export/SafeNames.h"
#include "formats/ogr/OgrFeatures.h"
#include "formats/ogr/OgrVerification.h"
#include "formats/ogr/QgisStyle.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "model/ShareOfProgress.h"
#include "ogr/OGRExporter.h"

#include <QFile>
#include <QFileInfo>

#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <memory>

namespace kpFormats
{

namespace
{

using kpBaseExport::OGRExporter;
using kpBaseExport::OGRExporterOptions;
using kpBaseExport::OGRLayerInfo;
using kpBaseExport::OGRRefusal;

bool isDevice(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile() && !info.isDir();
}

/// \a path with one of the extensions, in the case in which drivers write them.
QString withOneOf(const QString& path, const QStringList& extensions)
{
    const QFileInfo info(path);
    const QString suffix = info.suffix().toLower();
    if (!extensions.contains(suffix))
        return path + QLatin1Char('.') + extensions.first();
    return path.left(path.size() - suffix.size()) + suffix;
}

/// The name of one of the layers of a file, which is the file's where the format leaves it free.
QString layerName(const QString& path, const OgrLayer& layer, bool single, const OgrTraits& able, Findings& findings)
{
    const QString wanted = QFileInfo(single ? path : OGRExporter::layerFileName(path, layer.type())).completeBaseName();
    const bool reserved = std::any_of(able.reserved.begin(), able.reserved.end(), [&wanted](const QString& beginning) {
        return wanted.startsWith(beginning, Qt::CaseInsensitive);
    });
    if (!reserved)
        return wanted;
    const QString name = QStringLiteral("data_") + wanted;
    findings.note(finding::renamed, QString(), 1, QStringLiteral("layer %1 is written as %2").arg(wanted, name));
    return name;
}

/// The progress of several layers as one: the exporter starts again with each.
class LayersProgress : public ShareOfProgress
{
public:
    LayersProgress(kpBase::AbstractProgress* whole, std::vector<double> weights, double total)
        : ShareOfProgress(whole, total)
        , m_weights(std::move(weights))
    {
    }
    void progressStarted(bool) override
    {
        if (m_next < m_weights.size())
            next(m_weights[m_next++]);
    }

private:
    std::vector<double> m_weights;
    std::size_t m_next = 0;
};

LayersProgress layersProgress(kpBase::AbstractProgress* progress, const std::vector<OgrLayer>& layers)
{
    std::vector<double> weights;
    double total = 0;
    for (const OgrLayer& layer : layers) {
        weights.push_back(weightOf(layer.objects));
        total += weights.back();
    }
    return LayersProgress(progress, weights, total);
}

OGRExporterOptions hostOptions(const OgrExportSettings& settings, const OgrTraits& traits)
{
    OGRExporterOptions options;
    options.utf8 = true;
    options.fieldSizes = true;
    options.closeRings = true;
    options.ringParts = true;
    options.keepTypeTexts = !settings.dipInType;
    options.oneFile = traits.manyLayers;
    options.transaction = true;
    options.recordRefusals = true;
    options.stopAtRefusal = true;
    return options;
}

void noteRefusals(const std::vector<OGRRefusal>& refusals, Findings& findings)
{
    for (const OGRRefusal& refusal : refusals) {
        if (refusal.kind == OGRRefusal::SpatialReference)
            findings.note(ogrFinding::coordinateSystemNotCarried, QString(), 1, refusal.message);
        else if (refusal.kind == OGRRefusal::Field)
            findings.note(ogrFinding::attributeLeftOut, QString(), 1,
                          QStringLiteral("%1: %2").arg(refusal.subject, refusal.message));
        else if (refusal.taken)
            findings.note(ogrFinding::changedByTheDriver, QString(), 1, refusal.message);
    }
}

/// A driver would put a file in the device's place.
void refuseDevice(const QString& path, const OgrTraits& able)
{
    if (isDevice(path))
        throw ExportError(path, QStringLiteral("a device cannot hold a %1").arg(able.fileKind),
                          QStringLiteral("give the name of a file"));
}

/// What made the exporter give up.
QString failure(const std::vector<OGRRefusal>& refusals)
{
    for (const OGRRefusal& refusal : refusals) {
        const bool minor =
            refusal.taken || refusal.kind == OGRRefusal::SpatialReference || refusal.kind == OGRRefusal::Field;
        if (minor)
            continue;
        const QString what = refusal.kind == OGRRefusal::Feature
                                 ? QStringLiteral("feature %1 was not taken: ").arg(refusal.subject)
                                 : QString();
        return what + (refusal.message.isEmpty() ? QStringLiteral("the driver does not say why") : refusal.message);
    }
    return {};
}

void noteDroppedHeights(const std::vector<OgrLayer>& layers, bool inField, Findings& findings)
{
    for (const OgrLayer& layer : layers) {
        if (layer.shape == OgrShape::Points && inField)
            continue;
        for (const ModelObject* object : layer.objects) {
            if (object->hasZ)
                findings.note(ogrFinding::zDropped, object->name, object->vertexCount(),
                              QStringLiteral("the format has two dimensions"));
        }
    }
}

} // namespace

void failIncomplete(const QString& file, const QString& why)
{
    throw ExportError(file, QStringLiteral("the file could not be written completely: %1").arg(why),
                      QStringLiteral("make room on the disk or choose another"));
}

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

SettingsMap OgrFormat::commonSettings()
{
    SettingsMap map;
    map.addText("crs", m_settings.crs, "coordinate system, EPSG:n or WKT; empty for that of the first object");
    map.addBoolean("attributes", m_settings.attributes, "attributes as fields");
    map.addBoolean("symbology", m_settings.symbology, "colours as a style that goes with the file");
    map.addChoice("grouping", m_settings.grouping, {"single", "object", "set"},
                  "one file, one per object, one per set");
    map.addBoolean("objectName", m_settings.objectName, "the object's name in a field");
    map.addBoolean("color", m_settings.color, "the object's colour in a field colorval");
    map.addBoolean("unitsInNames", m_settings.unitsInNames, "the unit of an attribute behind its name");
    map.addBoolean("dipInType", m_settings.dipInType,
                   "Horizontal or Vertical before the text of type where dip is 0 or 90");
    map.addChoice("surfaces", m_settings.surfaces, {"points", "polygons"},
                  "surfaces as their nodes, or as triangles and cells");
    return map;
}

std::vector<PlannedFile> OgrFormat::plan(const ExportSelection& selection) const
{
    // Neither can be written to; the export says why.
    const bool folder = QFileInfo(selection.path).isDir();
    if (isDevice(selection.path) || (folder && m_settings.grouping == FileGrouping::Single))
        return {{selection.path, selection.objects}};
    ExportSelection named = selection;
    if (!folder)
        named.path = withOneOf(selection.path, extensions());
    const std::vector<PlannedFile> groups = planFiles(named, m_settings.grouping, extensions().first());
    if (traits().manyLayers)
        return groups;
    std::vector<PlannedFile> files;
    UniqueNames names;
    for (const PlannedFile& group : groups) {
        const std::vector<OgrLayer> layers = ogrLayers(group.objects, m_settings, traits().heights);
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

QString OgrFormat::chosenSystem(const PlannedFile& file, const ExportSelection& selection) const
{
    if (!m_settings.crs.isEmpty()) {
        const QString wkt = wktOf(m_settings.crs);
        if (wkt.isEmpty())
            throw ExportError(file.path,
                              QStringLiteral("crs: \"%1\" is no coordinate system that is known").arg(m_settings.crs),
                              QStringLiteral("give EPSG:n or WKT"));
        return wkt;
    }
    // The files of one geometry type each belong together; those of one object or set each stand alone.
    const auto& objects = m_settings.grouping == FileGrouping::Single ? selection.objects : file.objects;
    for (const auto* list : {&objects, &file.objects}) {
        for (const ModelObject* object : *list) {
            if (!object->crs.isEmpty())
                return object->crs;
        }
    }
    return {};
}

OgrSystems OgrFormat::systems(const PlannedFile& file, const ExportSelection& selection) const
{
    const QString target = chosenSystem(file, selection);
    return OgrSystems(target, target);
}

void OgrFormat::tune(Output&, OGRExporterOptions&, Findings&, const kpBase::AbstractProgress*) const {}

void OgrFormat::requireHoldable(const PlannedFile&, const std::vector<OgrLayer>&) const {}

void OgrFormat::noteSystems(const PlannedFile& file, OgrSystems& systems, Findings& findings) const
{
    // What the user has asked for need not be told.
    const bool asked = !m_settings.crs.isEmpty();
    const QString target = systems.target();
    for (const ModelObject* object : file.objects) {
        try {
            if (systems.to(*object) && !asked && systems.followsObjects())
                findings.note(ogrFinding::transformed, object->name, object->vertexCount(),
                              QStringLiteral("from %1 to %2").arg(crsName(object->crs), crsName(target)));
        } catch (const std::exception& error) {
            throw ExportError(file.path, QStringLiteral("%1: %2").arg(object->name, QString::fromUtf8(error.what())),
                              QStringLiteral("leave the object out, or give another crs"));
        }
        if (!asked && object->crs.isEmpty() && !target.isEmpty())
            findings.note(ogrFinding::coordinateSystemAssumed, object->name, 1,
                          QStringLiteral("the object has none and is taken to be in that of the first one that has"));
    }
}

OgrFormat::Output OgrFormat::prepare(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                                     Findings& findings, const kpBase::AbstractProgress* progress) const
{
    const OgrTraits able = traits();
    Output output{file, path, ogrLayers(file.objects, m_settings, able.heights), {}, {}, systems(file, selection)};
    noteSystems(file, output.systems, findings);
    if (!able.heights)
        noteDroppedHeights(output.layers, m_settings.attributes && m_settings.zField, findings);
    for (const OgrLayer& layer : output.layers)
        output.tables.push_back(ogrTable(layer, selection, m_settings, able, findings, progress));
    return output;
}

void OgrFormat::foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const
{
    const OgrTraits able = traits();
    refuseDevice(file.path, able);
    requirePositions(file);
    const std::vector<OgrLayer> layers = ogrLayers(file.objects, m_settings, able.heights);
    requireHoldable(file, layers);
    OgrSystems ways = systems(file, selection);
    noteSystems(file, ways, findings);
    if (!able.heights)
        noteDroppedHeights(layers, m_settings.attributes && m_settings.zField, findings);
    for (const OgrLayer& layer : layers) {
        layerName(file.path, layer, layers.size() == 1, able, findings);
        ogrColumns(layer, selection, m_settings, able, findings);
    }
}

qint64 OgrFormat::write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                        Findings& findings, kpBase::AbstractProgress* progress)
{
    const OgrTraits able = traits();
    refuseDevice(path, able);
    registerGdalDrivers();
    Output output = prepare(file, path, selection, findings, progress);
    OGRExporterOptions options = hostOptions(m_settings, able);
    tune(output, options, findings, progress);
    if (progress && progress->isCancelled())
        return 0;

    QVector<OGRLayerInfo> layers;
    std::vector<std::shared_ptr<OgrFeatures>> sources;
    for (std::size_t index = 0; index < output.layers.size(); ++index) {
        const OgrLayer& layer = output.layers[index];
        sources.push_back(std::make_shared<OgrFeatures>(layer, output.tables[index], output.systems, findings));
        const QString name = layerName(path, layer, output.layers.size() == 1, able, findings);
        OGRLayerInfo info(name, {}, output.tables[index].fields(), QString());
        info.source(sources.back(), layer.type());
        layers.append(info);
    }
    LayersProgress share = layersProgress(progress, output.layers);
    OGRExporter exporter(path, able.driver, &share);
    exporter.options(options);
    exporter.writeAttributes(m_settings.attributes);
    exporter.coordSystem(output.systems.target().isEmpty() ? noSystem() : output.systems.target());
    const bool written = exporter.write(layers);
    qint64 features = 0;
    for (const auto& source : sources) {
        output.features.push_back(source->made());
        features += source->made();
    }
    const QString fault = failure(exporter.refusals());
    if (share.isCancelled() && fault.isEmpty())
        return features;
    if (!written || !fault.isEmpty())
        failIncomplete(file.path, fault);
    noteRefusals(exporter.refusals(), findings);
    if (m_settings.symbology)
        addStyle(output, findings);
    check(output, findings);
    return features;
}

void OgrFormat::check(const Output& output, Findings& findings) const
{
    openAndCount(output, findings);
}

void OgrFormat::openAndCount(const Output& output, Findings& findings) const
{
    const QuietGdal quiet;
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(output.path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (!dataset || dataset->GetLayerCount() < static_cast<int>(output.layers.size()))
        failIncomplete(output.file.path, QStringLiteral("it cannot be opened again; %1").arg(QuietGdal::lastMessage()));
    for (int index = 0; index < static_cast<int>(output.layers.size()); ++index) {
        OGRLayer* const layer = dataset->GetLayer(index);
        const qint64 wanted = output.features[static_cast<std::size_t>(index)];
        // Not forced: some drivers would read every feature.
        const qint64 quick = layer->GetFeatureCount(FALSE);
        const qint64 found = quick >= 0 ? quick : layer->GetFeatureCount(TRUE);
        if (found != wanted)
            failIncomplete(output.file.path, QStringLiteral("%1 of %2 features are there").arg(found).arg(wanted));
        const OGRFeatureUniquePtr last(wanted == 0 ? nullptr : layer->GetFeature(traits().firstId + wanted - 1));
        if (wanted > 0 && (!last || !last->GetGeometryRef()))
            failIncomplete(output.file.path, QStringLiteral("the last feature is not there"));
        const OGRSpatialReference* system = layer->GetSpatialRef();
        if (!output.systems.target().isEmpty() && (!system || system->IsLocal()))
            findings.note(ogrFinding::coordinateSystemNotCarried, QString(), 1,
                          QStringLiteral("the format does not know %1").arg(crsName(output.systems.target())));
    }
}

void OgrFormat::addStyle(const Output& output, Findings& findings) const
{
    const QFileInfo info(output.path);
    const QString path = info.absolutePath() + QLatin1Char('/') + info.completeBaseName() + QStringLiteral(".qml");
    const QByteArray style = qgisStyle(output.layers.front(), m_settings.attributes && m_settings.color, findings);
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

Verification OgrFormat::verify(const PlannedFile& file, const QString& path, const ExportSelection& selection)
{
    registerGdalDrivers();
    const OgrTraits able = traits();
    OgrSystems ways = systems(file, selection);
    return verifyOgrFile(path, able.driver, ogrLayers(file.objects, m_settings, able.heights), ways);
}

} // namespace kpFormats
