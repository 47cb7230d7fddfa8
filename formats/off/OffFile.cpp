// SPDX-License-Identifier: MIT
#include "formats/off/OffFile.h"

#include "export/AutomaticDecimals.h"
#include "export/BlockWriter.h"
#include "export/NumberColumns.h"
#include "export/WrittenSurface.h"
#include "formats/off/OffVerification.h"
#include "model/ProgressTicker.h"
#include "writers/FixedNumber.h"

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

bool writeVertices(BlockWriter& out, const WrittenSurface& surface, const OffExportSettings& settings,
                   ProgressTicker& progress)
{
    surface.eachVertex([&](int, const WrittenSurface::Place& place) {
        std::string& text = out.text();
        appendFixed(text, place[0], settings.decimals);
        text += ' ';
        appendFixed(text, place[1], settings.decimals);
        text += ' ';
        appendFixed(text, place[2], settings.decimals);
        text += '\n';
        out.check();
        return progress.next();
    });
    return !progress.cancelled();
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

} // namespace

OffFile::OffFile(PlannedFile planned, const ExportSelection& selected, OffExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    const ModelObject& object = *file().objects.front();
    requireTriangles(object, file().path);
    noteAttributesLeftOut(object, findings);
    m_settings.decimals = coordinateDecimals({&object}, m_settings.decimals, m_settings.lengthUnit, findings);
}

qint64 OffFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    const WrittenSurface surface(object, m_settings.lengthUnit, m_settings.zIsElevation);
    const SurfaceMesh& mesh = surface.mesh();
    surface.noteLosses(findings);
    ProgressTicker loop(progress, static_cast<double>(surface.steps()));
    BlockWriter out(path, file().path);
    writeHead(out.text(), object, mesh, m_settings);
    if (writeVertices(out, surface, m_settings, loop) && writeFaces(out, object, mesh, m_settings, loop))
        out.close();
    return mesh.triangleCount();
}

std::optional<Verification> OffFile::verify(const QString& path) const
{
    return verifyOff(*file().objects.front(), path, m_settings);
}

} // namespace kpFormats
