// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrFile.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/PreparedExport.h"
#include "export/WriteErrors.h"
#include "formats/ogr/OgrFeatures.h"
#include "formats/ogr/OgrFindings.h"
#include "formats/ogr/OgrFormat.h"
#include "formats/ogr/OgrVerification.h"
#include "geo/CheckedWrites.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "model/ShareOfProgress.h"
#include "ogr/OGRExporter.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace kpFormats
{

namespace
{

using kpBaseExport::OGRExporter;
using kpBaseExport::OGRExporterOptions;
using kpBaseExport::OGRLayerInfo;
using kpBaseExport::OGRRefusal;

/// The name of one of the layers of a file beside those that are \a taken, which is the file's where the format leaves it free.
QString layerName(const QString& path, const OgrLayer& layer, const QStringList& taken, bool single,
                  const OgrTraits& able, Findings& findings)
{
    const QString wanted = QFileInfo(single ? path : OGRExporter::layerFileName(path, layer.type())).completeBaseName();
    const bool reserved = std::any_of(able.reserved.begin(), able.reserved.end(), [&wanted](const QString& beginning) {
        return wanted.startsWith(beginning, Qt::CaseInsensitive);
    });
    FieldNameRules rules = able.names;
    rules.reserved.clear();
    const QString fitting = able.layersAsFields ? fieldNames(taken + QStringList{wanted}, rules).last() : wanted;
    const QString name = reserved ? QStringLiteral("data_") + wanted : fitting;
    if (name == wanted)
        return name;
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

OGRExporterOptions hostOptions(const OgrTraits& traits)
{
    OGRExporterOptions options;
    options.utf8 = true;
    options.fieldSizes = true;
    options.closeRings = true;
    options.ringParts = true;
    options.keepTypeTexts = true; // the features have them as they are to be
    options.dates = true;
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
            findings.note(finding::coordinateSystemNotCarried, QString(), 1, refusal.message);
        else if (refusal.kind == OGRRefusal::Field)
            findings.note(ogrFinding::attributeLeftOut, QString(), 1,
                          QStringLiteral("%1: %2").arg(refusal.subject, refusal.message));
        else if (refusal.taken)
            findings.note(ogrFinding::changedByTheDriver, QString(), 1, refusal.message);
    }
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
                findings.note(ogrFinding::zDropped, *object, object->vertexCount(),
                              QStringLiteral("the format has two dimensions"));
        }
    }
}

void noteSystems(const PlannedFile& file, OgrSystems& systems, const OgrExportSettings& settings, Findings& findings)
{
    // What the user has asked for need not be told.
    const bool asked = !settings.crs.isEmpty();
    const QString target = systems.target();
    for (const ModelObject* object : file.objects) {
        try {
            if (systems.to(*object) && !asked && systems.followsObjects())
                findings.note(ogrFinding::transformed, *object, object->vertexCount(),
                              QStringLiteral("from %1 to %2").arg(crsName(object->crs), crsName(target)));
        } catch (const std::exception& error) {
            throw ExportError(file.path, QStringLiteral("%1: %2").arg(object->name, QString::fromUtf8(error.what())),
                              QStringLiteral("leave the object out, or give another crs"));
        }
        if (!asked && object->crs.isEmpty() && !target.isEmpty())
            findings.note(ogrFinding::coordinateSystemAssumed, *object, 1,
                          QStringLiteral("the object has none and is taken to be in that of the first one that has"));
    }
}

} // namespace

OgrFile::OgrFile(const OgrFormat& format, PlannedFile planned, const ExportSelection& selected,
                 OgrExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_format(format)
    , m_settings(std::move(settings))
    , m_output(newOutput(findings))
{
}

OgrOutput OgrFile::newOutput(Findings& findings) const
{
    const OgrTraits able = m_format.traits();
    refuseDevice(file().path, able.fileKind);
    requirePositions(file());
    const std::vector<OgrLayer> layers = ogrLayers(file().objects, m_settings, able.heights);
    m_format.requireHoldable(file(), layers);
    OgrOutput output{file(), m_settings, layers, {}, m_format.systems(file(), selection(), m_settings), {}};
    noteSystems(file(), output.systems, m_settings, findings);
    if (!able.heights)
        noteDroppedHeights(layers, m_settings.attributes && m_settings.zField, findings);
    for (const OgrLayer& layer : layers) {
        output.names.append(layerName(file().path, layer, output.names, layers.size() == 1, able, findings));
        output.tables.emplace_back();
        output.tables.back().columns = ogrColumns(layer, selection(), m_settings, able, findings);
    }
    output.written = m_format.writtenSystem(output, findings);
    return output;
}

QStringList OgrFile::sidecars() const
{
    return m_format.sidecars();
}

qint64 OgrFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const OgrTraits able = m_format.traits();
    refuseDevice(path, able.fileKind);
    registerGdalDrivers();
    m_output.path = path;
    m_output.features.clear();
    for (std::size_t index = 0; index < m_output.layers.size(); ++index)
        sizeColumns(m_output.tables[index], m_output.layers[index], m_settings, able, findings, progress);
    OGRExporterOptions options = hostOptions(able);
    m_format.tune(m_output, options, findings, progress);
    if (progress && progress->isCancelled())
        return 0;

    QVector<OGRLayerInfo> layers;
    std::vector<std::shared_ptr<OgrFeatures>> sources;
    for (std::size_t index = 0; index < m_output.layers.size(); ++index) {
        const OgrLayer& layer = m_output.layers[index];
        sources.push_back(std::make_shared<OgrFeatures>(layer, m_output.tables[index], m_output.systems,
                                                        m_output.decimals, findings));
        OGRLayerInfo info(m_output.names[static_cast<int>(index)], {}, m_output.tables[index].fields(), QString());
        info.source(sources.back(), layer.type());
        layers.append(info);
    }
    LayersProgress share = layersProgress(progress, m_output.layers);
    std::vector<std::unique_ptr<GdalOption>> configuration;
    for (const QString& option : able.configuration)
        configuration.push_back(
            std::make_unique<GdalOption>(option.section(QLatin1Char('='), 0, 0).toLatin1().constData(),
                                         option.section(QLatin1Char('='), 1).toLatin1().constData()));
    const CheckedWrites checked(path);
    OGRExporter exporter(CheckedWrites::pathFor(path), able.driver, &share);
    exporter.options(options);
    exporter.writeAttributes(m_settings.attributes);
    exporter.coordSystem(m_output.written.wkt.isEmpty() ? m_format.noSystem() : m_output.written.wkt);
    const bool written = exporter.write(layers);
    qint64 features = 0;
    for (const auto& source : sources) {
        m_output.features.push_back(source->made());
        features += source->made();
    }
    const QString fault = failure(exporter.refusals());
    requireWritten(file().path, checked);
    if (share.isCancelled() && fault.isEmpty())
        return features;
    if (!written || !fault.isEmpty())
        failIncomplete(file().path, CheckedWrites::inOwnNames(fault));
    noteRefusals(exporter.refusals(), findings);
    m_format.complete(m_output, &share);
    if (share.isCancelled())
        return features;
    if (m_settings.symbology)
        m_format.addStyle(m_output, findings);
    requireWritten(file().path, checked);
    m_format.check(m_output, findings);
    return features;
}

std::optional<Verification> OgrFile::verify(const QString& path) const
{
    registerGdalDrivers();
    return verifyOgrFile(
        path, m_format,
        {m_output.layers, m_output.tables, m_output.systems, m_output.written, m_format.traits(), m_settings});
}

} // namespace kpFormats
