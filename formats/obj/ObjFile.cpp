// SPDX-License-Identifier: MIT
#include "formats/obj/ObjFile.h"

#include "export/AutomaticDecimals.h"
#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/NumberColumns.h"
#include "export/WrittenSurface.h"
#include "formats/obj/ObjVerification.h"
#include "writers/FixedNumber.h"

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

/// \returns false when the user has cancelled
bool writeObject(BlockWriter& out, const ModelObject& object, const WrittenSurface& surface, qint64 first, int decimals,
                 ProgressTicker& progress)
{
    out.text() += "o " + objObjectName(object.name).toStdString() + '\n';
    surface.eachVertex([&](int, const WrittenSurface::Place& place) {
        std::string& text = out.text();
        text += 'v';
        for (const double number : place) {
            text += ' ';
            appendFixed(text, number, decimals);
        }
        text += '\n';
        out.check();
        return progress.next();
    });
    surface.mesh().eachTriangle([&](int a, int b, int c) {
        std::string& text = out.text();
        text += 'f';
        for (const int corner : {a, b, c}) {
            text += ' ';
            // Vertices of the whole file count on, from 1.
            appendInteger(text, first + corner);
        }
        text += '\n';
        out.check();
        return progress.next();
    });
    return !progress.cancelled();
}

} // namespace

ObjFile::ObjFile(PlannedFile planned, const ExportSelection& selected, ObjExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_offset(file().objects, m_settings.lengthUnit, m_settings.zIsElevation, m_settings.origin)
{
    for (const ModelObject* object : file().objects) {
        requireTriangles(*object, file().path);
        noteAttributesLeftOut(*object, findings);
        m_offset.note(*object, findings);
        if (objObjectName(object->name) != object->name)
            findings.note(finding::renamed, *object, 1,
                          QStringLiteral("%1 is written as %2").arg(object->name, objObjectName(object->name)));
    }
    m_settings.decimals = coordinateDecimals(file().objects, m_settings.decimals, m_settings.lengthUnit, findings);
}

qint64 ObjFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    std::vector<WrittenSurface> surfaces;
    qint64 steps = 0;
    for (const ModelObject* object : file().objects) {
        surfaces.emplace_back(*object, m_settings.lengthUnit, m_settings.zIsElevation, m_offset);
        surfaces.back().noteLosses(findings);
        steps += surfaces.back().steps();
    }
    ProgressTicker ticker(progress, static_cast<double>(steps));
    BlockWriter out(path, file().path);
    if (m_settings.header) {
        const QString unit = writtenUnit(file().objects.front()->lengthUnit, m_settings.lengthUnit);
        out.text() += "# unit: " + unit.toStdString() + '\n';
        out.text() += m_settings.zIsElevation ? "# z: elevation, positive up\n" : "# z: depth, positive down\n";
    }
    if (!m_offset.isZero())
        out.text() += "# " + m_offset.text() + '\n';
    qint64 first = 1;
    qint64 triangles = 0;
    for (std::size_t index = 0; index < surfaces.size(); ++index) {
        const WrittenSurface& surface = surfaces[index];
        if (!writeObject(out, *file().objects[index], surface, first, m_settings.decimals, ticker))
            return triangles;
        first += surface.mesh().vertexCount();
        triangles += surface.mesh().triangleCount();
    }
    out.close();
    m_offset.writeSidecar(path, file().path, *file().objects.front(), m_settings.lengthUnit, m_settings.zIsElevation);
    return triangles;
}

std::optional<Verification> ObjFile::verify(const QString& path) const
{
    return verifyObj(file().objects, path, m_settings);
}

} // namespace kpFormats
