// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadVerification.h"

#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "export/SafeNames.h"
#include "formats/gocad/GocadWriter.h"
#include "model/SurfaceMesh.h"
#include "readers/GocadFile.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Segments = std::vector<std::array<int, 2>>;

/// The vertices of an object in the order of the file, and the segments between them.
struct Expected
{
    std::vector<int> vertices;
    Segments segments;
};

bool sameNumber(const Numbers& numbers, int a, int b)
{
    return (*numbers)[static_cast<std::size_t>(a)] == (*numbers)[static_cast<std::size_t>(b)];
}

/// A ring leads back to its first vertex with a segment, and a vertex without a position interrupts a line.
void expectLine(const ModelObject& object, const Part& part, Expected& expected)
{
    const int last = part.first + part.count - 1;
    const bool repeated = part.closed && part.count > 2 && sameNumber(object.x, part.first, last)
                          && sameNumber(object.y, part.first, last) && sameNumber(object.z, part.first, last);
    const int count = part.count - (repeated ? 1 : 0);
    const auto first = static_cast<int>(expected.vertices.size());
    int before = -1;
    for (int vertex = part.first; vertex < part.first + count; ++vertex) {
        if (!hasPosition(object, vertex)) {
            before = -1;
            continue;
        }
        const auto number = static_cast<int>(expected.vertices.size());
        if (before >= 0)
            expected.segments.push_back({before, number});
        before = number;
        expected.vertices.push_back(vertex);
    }
    const auto known = static_cast<int>(expected.vertices.size()) - first;
    if (part.closed && known > 2 && before >= 0 && hasPosition(object, part.first))
        expected.segments.push_back({before, first});
}

Expected expectedOf(const GocadEntry& entry, GocadKind kind)
{
    const ModelObject& object = *entry.object;
    Expected expected;
    if (entry.well) {
        expected.vertices = entry.well->vertices;
        return expected;
    }
    if (kind == GocadKind::PLine) {
        for (const Part& part : object.parts)
            expectLine(object, part, expected);
        return expected;
    }
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        if (hasPosition(object, vertex))
            expected.vertices.push_back(vertex);
    }
    return expected;
}

class ObjectCheck
{
public:
    ObjectCheck(const GocadEntry& entry, const GocadObject& read, const GocadExportSettings& settings,
                Verification& result)
        : m_entry(entry)
        , m_object(*entry.object)
        , m_read(read)
        , m_settings(settings)
        , m_result(result)
        , m_kind(entry.well ? GocadKind::Well : gocadKindOf(m_object, settings))
        , m_expected(expectedOf(entry, m_kind))
    {
    }

    void compare()
    {
        compareHead();
        if (!m_result.compareCount(m_object.name, QStringLiteral("vertices"),
                                   static_cast<qint64>(m_expected.vertices.size()),
                                   static_cast<qint64>(m_read.x.size())))
            return;
        comparePositions();
        compareConnections();
        if (m_entry.well)
            compareDepths(*m_entry.well);
        compareProperties(m_entry.columns);
    }

private:
    void compareHead()
    {
        static const QString kinds[] = {QStringLiteral("VSet"), QStringLiteral("PLine"), QStringLiteral("TSurf"),
                                        QStringLiteral("Well")};
        m_result.compareSame(QStringLiteral("kind"), m_object.name, kinds[static_cast<int>(m_kind)], m_read.type);
        m_result.compareSame(QStringLiteral("unit"), m_object.name,
                             writtenUnit(m_object.lengthUnit, m_settings.lengthUnit), m_read.unit);
        const bool depth = !m_settings.zIsElevation;
        if (m_read.zIsDepth != depth)
            m_result.fail(QStringLiteral("%1: its heights count %2")
                              .arg(m_object.name, depth ? QStringLiteral("up") : QStringLiteral("down")));
        if (!m_settings.header)
            return;
        m_result.compareSame(QStringLiteral("name"), m_object.name, gocadObjectName(m_object.name), m_read.name);
        if (m_object.color.isValid() && m_kind != GocadKind::Well)
            compareColour(m_read.color.simplified().split(QLatin1Char(' ')));
    }

    void compareColour(const QStringList& read)
    {
        m_result.alsoCompared(QStringLiteral("colour"));
        const double wanted[] = {m_object.color.redF(), m_object.color.greenF(), m_object.color.blueF()};
        for (int channel = 0; channel < 3; ++channel) {
            if (!(std::abs(read.value(channel).toDouble() - wanted[channel]) < 1e-5) || read.size() < 3)
                m_result.fail(QStringLiteral("%1: its colour is %2 instead of %3")
                                  .arg(m_object.name, read.join(QLatin1Char(' ')), m_object.color.name()));
        }
    }

    QString where(std::size_t index) const
    {
        return QStringLiteral("%1, vertex %2").arg(m_object.name).arg(m_expected.vertices[index] + 1);
    }

    void comparePositions()
    {
        const LengthFactors factors(m_object, m_settings.lengthUnit, m_settings.zIsElevation);
        for (std::size_t index = 0; index < m_expected.vertices.size(); ++index) {
            const auto vertex = static_cast<std::size_t>(m_expected.vertices[index]);
            m_result.comparePosition({(*m_object.x)[vertex] * factors.flat, (*m_object.y)[vertex] * factors.flat,
                                      (*m_object.z)[vertex] * factors.height},
                                     {m_read.x[index], m_read.y[index], m_read.z[index]}, [&] { return where(index); });
        }
    }

    void compareDepths(const GocadWell& well)
    {
        m_result.compareSame(QStringLiteral("unit of depths"), m_object.name,
                             writtenUnit(m_object.lengthUnit, m_settings.lengthUnit), m_read.depthUnit);
        if (!m_read.curvesLeftOut.isEmpty())
            m_result.fail(QStringLiteral("%1: the curve %2 does not go with the path")
                              .arg(m_object.name, m_read.curvesLeftOut.front()));
        for (std::size_t index = 0; index < well.depths.size(); ++index)
            m_result.compareValue(well.depths[index], m_read.depths[index], m_result.allowed().most,
                                  [&] { return QStringLiteral("%1, depth").arg(where(index)); });
    }

    template <std::size_t corners>
    void compareLists(const char* what, const std::vector<std::array<int, corners>>& expected,
                      const std::vector<std::array<int, corners>>& read)
    {
        const QString name = QLatin1String(what);
        if (!m_result.compareCount(m_object.name, name, static_cast<qint64>(expected.size()),
                                   static_cast<qint64>(read.size())))
            return;
        const auto different = std::mismatch(expected.begin(), expected.end(), read.begin()).first;
        if (different != expected.end())
            m_result.fail(QStringLiteral("%1: number %2 of its %3 joins other vertices")
                              .arg(m_object.name)
                              .arg(different - expected.begin() + 1)
                              .arg(name));
        if (!expected.empty())
            m_result.alsoCompared(name);
    }

    void compareConnections()
    {
        compareLists("segments", m_expected.segments, m_read.segments);
        std::vector<std::array<int, 3>> triangles;
        if (m_kind == GocadKind::TSurf) {
            SurfaceMesh(m_object).eachTriangle([&triangles](int a, int b, int c) {
                triangles.push_back({a, b, c});
                return true;
            });
        }
        compareLists("triangles", triangles, m_read.triangles);
    }

    void compareProperties(const std::vector<NumberColumn>& columns)
    {
        if (!m_result.compareCount(m_object.name, QStringLiteral("properties"), static_cast<qint64>(columns.size()),
                                   static_cast<qint64>(m_read.values.size())))
            return;
        UniqueNames names;
        QStringList wanted;
        for (const NumberColumn& column : columns)
            wanted.append(names.take(gocadWord(column.name())));
        if (!columns.empty())
            m_result.compareSame(QStringLiteral("names of properties"), m_object.name, wanted.join(QLatin1Char(' ')),
                                 m_read.properties.join(QLatin1Char(' ')));
        for (std::size_t property = 0; property < columns.size(); ++property) {
            const auto number = static_cast<int>(property);
            m_result.compareSame(QStringLiteral("units of properties"), m_object.name,
                                 gocadUnit(columns[property].unit()), m_read.units.value(number));
            compareProperty(columns[property], property);
        }
    }

    void compareProperty(const NumberColumn& column, std::size_t property)
    {
        if (m_read.noDataValues.size() <= property)
            return m_result.fail(
                QStringLiteral("%1: nothing says what is missing of %2").arg(m_object.name, column.name()));
        for (std::size_t index = 0; index < m_expected.vertices.size(); ++index) {
            const auto place = [&] { return QStringLiteral("%1, %2").arg(where(index), column.name()); };
            const double wanted = column.at(m_expected.vertices[index]);
            const double read = m_read.values[property][index];
            if (std::isfinite(wanted))
                m_result.compareValue(wanted, read, 0.0, place);
            else
                m_result.compareMissing(read == m_read.noDataValues[property], QString::number(read), place);
        }
    }

    const GocadEntry& m_entry;
    const ModelObject& m_object;
    const GocadObject& m_read;
    const GocadExportSettings& m_settings;
    Verification& m_result;
    GocadKind m_kind;
    Expected m_expected;
};

} // namespace

Verification verifyGocad(const std::vector<GocadEntry>& entries, const QString& path,
                         const GocadExportSettings& settings)
{
    Verification result(
        QStringLiteral("the program's GOCAD reader"),
        Allowance::ofDecimals(settings.decimals, writtenUnit(entries.front().object->lengthUnit, settings.lengthUnit)));
    QStringList others;
    std::vector<GocadObject> read;
    try {
        read = readGocadObjects(path, others);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    result.compareCount(QStringLiteral("file"), QStringLiteral("objects of other kinds"), 0, others.size());
    if (!result.compareCount(QStringLiteral("file"), QStringLiteral("objects"), static_cast<qint64>(entries.size()),
                             static_cast<qint64>(read.size())))
        return result;
    for (std::size_t index = 0; index < read.size() && result.good(); ++index)
        ObjectCheck(entries[index], read[index], settings, result).compare();
    return result;
}

} // namespace kpFormats
