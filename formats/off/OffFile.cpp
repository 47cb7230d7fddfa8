// SPDX-License-Identifier: MIT
#include "formats/off/OffFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "formats/off/OffVerification.h"
#include "model/ProgressTicker.h"
#include "model/SurfaceMesh.h"
#include "writers/FixedNumber.h"

#include <cmath>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

void writeHead(std::string& text, const ModelObject& object, const SurfaceMesh& mesh, const OffExportSettings& settings)
{
    text += "OFF\n";
    if (settings.header) {
        text += "# " + object.name.simplified().toStdString() + '\n';
        text += "# unit: " + writtenUnit(object.lengthUnit, settings.lengthUnit).toStdString() + '\n';
        text += settings.zIsElevation ? "# z: elevation, positive up\n" : "# z: depth, positive down\n";
    }
    appendInteger(text, mesh.vertexCount());
    text += ' ';
    appendInteger(text, mesh.triangleCount());
    text += " 0\n";
}

bool writeVertices(BlockWriter& out, const ModelObject& object, const SurfaceMesh& mesh,
                   const OffExportSettings& settings, ProgressTicker& progress)
{
    const double factor = unitFactor(object.lengthUnit, settings.lengthUnit);
    const double zFactor = settings.zIsElevation ? factor : -factor;
    std::string& text = out.text();
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        if (mesh.number(vertex) >= 0) {
            const auto index = static_cast<std::size_t>(vertex);
            appendFixed(text, (*object.x)[index] * factor, settings.decimals);
            text += ' ';
            appendFixed(text, (*object.y)[index] * factor, settings.decimals);
            text += ' ';
            appendFixed(text, (*object.z)[index] * zFactor, settings.decimals);
            text += '\n';
            out.check();
        }
        if (!progress.next())
            return false;
    }
    return true;
}

bool writeFaces(BlockWriter& out, const ModelObject& object, const SurfaceMesh& mesh, const OffExportSettings& settings,
                ProgressTicker& progress)
{
    std::string ending = "\n";
    if (settings.colours && object.color.isValid())
        ending = QStringLiteral(" %1 %2 %3\n")
                     .arg(object.color.red())
                     .arg(object.color.green())
                     .arg(object.color.blue())
                     .toStdString();
    mesh.eachTriangle([&](int a, int b, int c) {
        std::string& text = out.text();
        text += '3';
        for (const int corner : {a, b, c}) {
            text += ' ';
            appendInteger(text, corner);
        }
        text += ending;
        out.check();
        return progress.next();
    });
    return !progress.cancelled();
}

void noteLosses(const ModelObject& object, const SurfaceMesh& mesh, Findings& findings)
{
    findings.note(finding::vertexWithoutPosition, object, mesh.leftOutVertices(),
                  QStringLiteral("its height or place is missing"));
    findings.note(finding::triangleWithoutPosition, object, mesh.leftOutTriangles(),
                  QStringLiteral("a corner's height or place is missing"));
}

} // namespace

OffFile::OffFile(PlannedFile planned, const ExportSelection& selected, OffExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    const ModelObject& object = *file().objects.front();
    if (!hasAnyFace(object))
        throw ExportError(
            file().path,
            QStringLiteral("the surface %1 has no triangle: too few of its nodes have a height").arg(object.name),
            QStringLiteral("choose a surface with values, or export its points as ASCII"));
    noteAttributesLeftOut(object, findings);
    m_settings.decimals = coordinateDecimals({&object}, m_settings.decimals, m_settings.lengthUnit, findings);
}

qint64 OffFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    const SurfaceMesh mesh(object);
    noteLosses(object, mesh, findings);
    ProgressTicker loop(progress, static_cast<double>(object.vertexCount() + mesh.triangleCount()));
    BlockWriter out(path, file().path);
    writeHead(out.text(), object, mesh, m_settings);
    if (writeVertices(out, object, mesh, m_settings, loop) && writeFaces(out, object, mesh, m_settings, loop))
        out.close();
    return mesh.triangleCount();
}

std::optional<Verification> OffFile::verify(const QString& path) const
{
    return verifyOff(*file().objects.front(), path, m_settings);
}

} // namespace kpFormats
