// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadWell.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/WellDepths.h"
#include "formats/gocad/GocadFindings.h"
#include "model/SurfaceFaces.h"

#include <cmath>

namespace kpFormats
{

namespace
{

/// The unit of the file; a unit of the model by its name, so that depths in another one are converted to it.
OutputUnit unitOf(const ModelObject& object, OutputUnit chosen)
{
    const int own = outputUnitKeys().indexOf(object.lengthUnit);
    return chosen != OutputUnit::Model || own < 0 ? chosen : static_cast<OutputUnit>(own);
}

} // namespace

bool isGocadWell(const ModelObject& object, const GocadExportSettings& settings)
{
    return object.type == ObjectType::Wells && settings.wellsAs == GocadExportSettings::WellsAs::Wells;
}

std::optional<GocadWell> gocadWellOf(const ModelObject& object, const GocadExportSettings& settings, Findings& findings)
{
    const auto asLine = [&](const QString& why) {
        findings.note(gocadFinding::wellWrittenAsLine, object, 1, why);
        return std::nullopt;
    };
    Findings ofDepths;
    std::optional<WellDepths> depths;
    try {
        depths.emplace(object, unitOf(object, settings.lengthUnit), object.name, ofDepths);
    } catch (const ExportError& error) {
        return asLine(error.reason());
    }
    GocadWell well;
    well.attribute = depths->attribute();
    qint64 withoutDepth = 0;
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        const double depth = depths->measured(static_cast<std::size_t>(vertex));
        if (!hasPosition(object, vertex))
            continue; // told by the writer, as for other objects
        if (!std::isfinite(depth)) {
            ++withoutDepth;
            continue;
        }
        if (!well.depths.empty() && !(depth > well.depths.back()))
            return asLine(QStringLiteral("its measured depth does not increase at vertex %1").arg(vertex + 1));
        well.vertices.push_back(vertex);
        well.depths.push_back(depth);
    }
    if (well.vertices.empty())
        return asLine(QStringLiteral("none of its vertices has a depth"));
    findings.note(finding::rowWithoutDepth, object, withoutDepth, QStringLiteral("its depth is missing"));
    if (well.attribute.isEmpty())
        findings.note(finding::measuredDepthComputed, object, 1, object.name);
    if (settings.header && object.color.isValid() && object.colorIsOwn)
        findings.note(gocadFinding::colourNotWritten, object, 1, object.color.name());
    return well;
}

} // namespace kpFormats
