// SPDX-License-Identifier: MIT
#include "formats/opentec/OpenTecVerification.h"

#include "readers/OpenTecReader.h"

#include <cmath>

namespace kpFormats
{

namespace
{

/// A name as a line of the file can hold it.
QString inOneLine(QString name)
{
    for (QChar& character : name) {
        const ushort code = character.unicode();
        const bool ends = code < 0x20 || code == 0x7f || code == 0x85 || code == 0x2028 || code == 0x2029;
        character = ends ? QChar(QLatin1Char(' ')) : character;
    }
    return name;
}

void compareTrace(const ModelObject& trace, const OpenTecSection& read, double factor, Verification& result)
{
    if (!result.compareCount(trace.name, QStringLiteral("positions of the trace"), trace.vertexCount(),
                             static_cast<qint64>(read.trace.size())))
        return;
    for (std::size_t vertex = 0; vertex < read.trace.size(); ++vertex) {
        result.compareFlatPosition(
            {(*trace.x)[vertex] * factor, (*trace.y)[vertex] * factor, 0.0},
            {read.trace[vertex][0], read.trace[vertex][1], 0.0},
            [&] { return QStringLiteral("%1, vertex %2 of the trace").arg(trace.name).arg(vertex + 1); });
    }
}

void compareLine(const SectionSegment& segment, const OpenTecSection::Segment& read, double factor, const QString& name,
                 Verification& result)
{
    const auto part = [&](const char* what) {
        return [&name, what] { return QStringLiteral("%1, %2").arg(name, QLatin1String(what)); };
    };
    result.compareText(inOneLine(segment.name), read.name, part("name"));
    result.compareText(segment.color.name(), read.color, part("colour"));
    result.compareText(typeName(segment.type), read.type, part("kind"));
    std::size_t next = 0;
    for (std::size_t point = 0; point < segment.z.size(); ++point) {
        // Distance along the section, across it, depth; what has none of them is left out, which the report tells.
        const Verification::Place wanted{segment.distance[point] * factor, 0.0, -segment.z[point] * factor};
        if (!std::isfinite(wanted[0]) || !std::isfinite(wanted[2]))
            continue;
        if (next >= read.points.size())
            return result.fail(QStringLiteral("%1: point %2 is missing").arg(name).arg(point + 1));
        result.comparePosition(wanted, read.points[next],
                               [&] { return QStringLiteral("%1, point %2").arg(name).arg(point + 1); });
        ++next;
    }
    result.compareCount(name, QStringLiteral("points"), static_cast<qint64>(next),
                        static_cast<qint64>(read.points.size()));
}

} // namespace

Verification verifyOpenTec(const ModelObject& section, const ModelObject& trace, const QString& path,
                           const OpenTecExportSettings& settings)
{
    Verification result(QStringLiteral("the program's OpenTecLink reader"),
                        Allowance::ofDecimals(settings.decimals, writtenUnit(section.lengthUnit, settings.lengthUnit)));
    OpenTecSection read;
    try {
        read = readOpenTec(path);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    const std::vector<SectionSegment>& segments = section.section->segments;
    if (!result.compareCount(section.name, QStringLiteral("lines"), static_cast<qint64>(segments.size()),
                             static_cast<qint64>(read.segments.size())))
        return result;
    // A file without lines names no section.
    if (!segments.empty()) {
        result.compareText(inOneLine(section.name), read.name, [] { return QStringLiteral("name of the section"); });
        result.compareValue(settings.age, read.age, 0.5 * std::pow(10.0, -settings.decimals),
                            [] { return QStringLiteral("age of the section"); });
    }
    compareTrace(trace, read, unitFactor(trace.lengthUnit, settings.lengthUnit), result);
    const double factor = unitFactor(section.lengthUnit, settings.lengthUnit);
    for (std::size_t index = 0; index < segments.size(); ++index) {
        const QString name =
            QStringLiteral("%1, line %2 (%3)").arg(section.name).arg(index + 1).arg(segments[index].name);
        compareLine(segments[index], read.segments[index], factor, name, result);
    }
    return result;
}

} // namespace kpFormats
