// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadVerification.h"

#include "formats/gocad/GocadWriter.h"
#include "model/SurfaceMesh.h"
#include "readers/GocadFile.h"

#include <cmath>

namespace kpFormats
{

namespace
{

/// What is expected of an object: its vertices in the order of the file, and how many connections.
struct Expected
{
    std::vector<int> vertices;
    qint64 connections = 0;
};

Expected expectedLines(const ModelObject& object)
{
    Expected expected;
    for (const Part& part : object.parts) {
        int count = part.count;
        const auto same = [&](const Numbers& numbers) {
            return (*numbers)[static_cast<std::size_t>(part.first)]
                   == (*numbers)[static_cast<std::size_t>(part.first + count - 1)];
        };
        const bool repeated = part.closed && count > 2 && same(object.x) && same(object.y) && same(object.z);
        count -= repeated ? 1 : 0;
        int known = 0;
        for (int index = 0; index < count; ++index) {
            const bool here = hasPosition(object, part.first + index);
            if (!here)
                continue;
            ++known;
            expected.vertices.push_back(part.first + index);
            if (index > 0 && hasPosition(object, part.first + index - 1))
                ++expected.connections;
        }
        if (part.closed && known > 2 && hasPosition(object, part.first) && hasPosition(object, part.first + count - 1))
            ++expected.connections;
    }
    return expected;
}

Expected expectedOf(const ModelObject& object, GocadKind kind)
{
    if (kind == GocadKind::PLine)
        return expectedLines(object);
    Expected expected;
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        if (hasPosition(object, vertex))
            expected.vertices.push_back(vertex);
    }
    if (kind == GocadKind::TSurf)
        expected.connections = SurfaceMesh(object).triangleCount();
    return expected;
}

bool sameValue(double read, double noData, double expected)
{
    return std::isfinite(expected) ? read == expected : read == noData;
}

class Comparison
{
public:
    Comparison(const ExportSelection& selection, const GocadExportSettings& settings)
        : m_selection(selection)
        , m_settings(settings)
    {
    }

    /// \returns what does not agree, in words; empty when everything does
    QString compare(const ModelObject& object, const GocadObject& read, Verification& verification)
    {
        const GocadKind kind = gocadKindOf(object, m_settings);
        static const QString kinds[] = {QStringLiteral("VSet"), QStringLiteral("PLine"), QStringLiteral("TSurf")};
        if (read.type != kinds[static_cast<int>(kind)])
            return QStringLiteral("it is a %1").arg(read.type);
        const Expected expected = expectedOf(object, kind);
        if (read.x.size() != expected.vertices.size())
            return QStringLiteral("it has %1 vertices instead of %2").arg(read.x.size()).arg(expected.vertices.size());
        const std::size_t connections = kind == GocadKind::PLine ? read.segments.size() : read.triangles.size();
        if (static_cast<qint64>(connections) != expected.connections)
            return QStringLiteral("it has %1 segments or triangles instead of %2")
                .arg(connections)
                .arg(expected.connections);
        verification.count += static_cast<qint64>(read.x.size());
        comparePositions(object, read, expected, verification);
        return compareProperties(object, read, expected);
    }

private:
    void comparePositions(const ModelObject& object, const GocadObject& read, const Expected& expected,
                          Verification& verification) const
    {
        const double factor = unitFactor(object.lengthUnit, m_settings.lengthUnit);
        const double up = read.zIsDepth ? -1.0 : 1.0;
        for (std::size_t index = 0; index < expected.vertices.size(); ++index) {
            const auto vertex = static_cast<std::size_t>(expected.vertices[index]);
            const double dx = read.x[index] / factor - (*object.x)[vertex];
            const double dy = read.y[index] / factor - (*object.y)[vertex];
            const double dz = up * read.z[index] / factor - (*object.z)[vertex];
            verification.differs(std::sqrt(dx * dx + dy * dy + dz * dz));
        }
    }

    QString compareProperties(const ModelObject& object, const GocadObject& read, const Expected& expected) const
    {
        Findings ignored;
        const std::vector<NumberColumn> columns = numberColumns(object, m_selection, ignored);
        if (columns.size() != read.values.size())
            return QStringLiteral("it has %1 properties instead of %2").arg(read.values.size()).arg(columns.size());
        for (std::size_t column = 0; column < columns.size(); ++column) {
            for (std::size_t index = 0; index < expected.vertices.size(); ++index) {
                if (!sameValue(read.values[column][index], read.noDataValues.at(column),
                               columns[column].at(expected.vertices[index])))
                    return QStringLiteral("vertex %1 has another %2").arg(index + 1).arg(columns[column].name());
            }
        }
        return {};
    }

    const ExportSelection& m_selection;
    const GocadExportSettings& m_settings;
};

} // namespace

Verification verifyGocad(const std::vector<const ModelObject*>& objects, const QString& path,
                         const ExportSelection& selection, const GocadExportSettings& settings)
{
    Verification verification;
    verification.reader = QStringLiteral("the program's GOCAD reader");
    std::vector<const ModelObject*> written;
    for (const ModelObject* object : objects) {
        if (hasAnyPosition(*object))
            written.push_back(object);
    }
    try {
        QStringList others;
        const std::vector<GocadObject> found = readGocadObjects(path, others);
        if (found.size() != written.size() || !others.isEmpty()) {
            verification.fault =
                QStringLiteral("it holds %1 objects instead of %2").arg(found.size()).arg(written.size());
            return verification;
        }
        Comparison comparison(selection, settings);
        for (std::size_t index = 0; index < found.size() && verification.fault.isEmpty(); ++index) {
            const QString fault = comparison.compare(*written[index], found[index], verification);
            if (!fault.isEmpty())
                verification.fault = written[index]->name + QStringLiteral(": ") + fault;
        }
    } catch (const std::exception& error) {
        verification.fault = QString::fromUtf8(error.what());
    }
    return verification;
}

} // namespace kpFormats
