// SPDX-License-Identifier: MIT
#include "formats/ply/PlyFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/SafeNames.h"
#include "export/WrittenSurface.h"
#include "formats/ply/PlyVerification.h"
#include "geo/CoordinateSystems.h"

#include <QtEndian>

#include <cstring>

namespace kpFormats
{

namespace
{

bool isSurface(const ModelObject& object)
{
    return object.grid || object.type == ObjectType::MeshSurfaces;
}

/// A property's name is one word.
QString wordOf(const QString& name)
{
    QString word = name.simplified();
    word.replace(QLatin1Char(' '), QLatin1Char('_'));
    return word.isEmpty() ? QStringLiteral("unnamed") : word;
}

void append(std::string& text, double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    bits = qToLittleEndian(bits);
    text.append(reinterpret_cast<const char*>(&bits), sizeof bits);
}

void append(std::string& text, int number)
{
    const qint32 bits = qToLittleEndian(number);
    text.append(reinterpret_cast<const char*>(&bits), sizeof bits);
}

/// A remark on a line of its own, which readers of headers take in one piece.
std::string remark(const QString& text)
{
    constexpr int longest = 1000;
    return "comment " + text.simplified().left(longest).toStdString() + '\n';
}

} // namespace

PlyFile::PlyFile(PlannedFile planned, const ExportSelection& selected, PlyExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_offset(file().objects, m_settings.lengthUnit, m_settings.zIsElevation, m_settings.origin)
{
    const ModelObject& object = *file().objects.front();
    noteMissingAttributes(file().objects, selection(), findings);
    if (isSurface(object))
        requireTriangles(object, file().path);
    else if (!hasAnyPosition(object))
        throw ExportError(file().path, QStringLiteral("%1 has no position").arg(object.name),
                          QStringLiteral("choose objects with coordinates"));
    m_offset.note(object, findings);
    m_columns = numberColumns(object, selection(), findings);
    UniqueNames names;
    for (const char* own : {"x", "y", "z", "red", "green", "blue"})
        names.take(QLatin1String(own));
    for (const NumberColumn& column : m_columns) {
        m_names.append(names.take(wordOf(column.name())));
        if (m_names.last() != column.name())
            findings.note(finding::renamed, object, 1,
                          QStringLiteral("attribute %1 is written as %2").arg(column.name(), m_names.last()));
    }
}

qint64 PlyFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    const WrittenSurface surface(object, m_settings.lengthUnit, m_settings.zIsElevation, m_offset);
    surface.noteLosses(findings);
    ProgressTicker ticker(progress, static_cast<double>(surface.steps()));
    BlockWriter out(path, file().path);
    std::string& text = out.text();
    text += "ply\nformat binary_little_endian 1.0\n" + remark(QStringLiteral("name: ") + object.name)
            + remark(QStringLiteral("unit: ") + writtenUnit(object.lengthUnit, m_settings.lengthUnit))
            + (m_settings.zIsElevation ? "comment z: elevation, positive up\n" : "comment z: depth, positive down\n");
    if (!object.crs.isEmpty())
        text += remark(QStringLiteral("coordinate system: ") + crsName(object.crs));
    if (!m_offset.isZero())
        text += "comment " + m_offset.text() + '\n';
    for (int index = 0; index < m_names.size(); ++index) {
        const QString& unit = m_columns[static_cast<std::size_t>(index)].unit();
        if (!unit.isEmpty())
            text += remark(QStringLiteral("unit of %1: %2").arg(m_names[index], unit));
    }
    text += "element vertex " + std::to_string(surface.mesh().vertexCount())
            + "\nproperty double x\nproperty double y\nproperty double z\n";
    if (m_settings.colours)
        text += "property uchar red\nproperty uchar green\nproperty uchar blue\n";
    for (const QString& name : m_names)
        text += "property double " + name.toStdString() + '\n';
    if (isSurface(object))
        text += "element face " + std::to_string(surface.mesh().triangleCount())
                + "\nproperty list uchar int vertex_indices\n";
    text += "end_header\n";
    const QRgb rgb = object.color.rgb();
    surface.eachVertex([&](int vertex, const WrittenSurface::Place& place) {
        for (const double number : place)
            append(text, number);
        if (m_settings.colours) {
            for (const int channel : {qRed(rgb), qGreen(rgb), qBlue(rgb)})
                text += static_cast<char>(channel);
        }
        for (const NumberColumn& column : m_columns)
            append(text, column.at(vertex));
        out.check();
        return ticker.next();
    });
    surface.mesh().eachTriangle([&](int a, int b, int c) {
        text += '\3';
        for (const int corner : {a, b, c})
            append(text, corner);
        out.check();
        return ticker.next();
    });
    if (ticker.cancelled())
        return 0;
    out.close();
    m_offset.writeSidecar(path, file().path, object, m_settings.lengthUnit, m_settings.zIsElevation);
    return surface.mesh().vertexCount();
}

std::optional<Verification> PlyFile::verify(const QString& path) const
{
    return verifyPly(*file().objects.front(), path, m_columns, m_names, m_settings);
}

} // namespace kpFormats
