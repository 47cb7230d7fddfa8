// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrFeatures.h"

#include "export/CommonFindings.h"
#include "formats/ogr/OgrFindings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

using kpBaseExport::OGRFeatureDetails;

namespace
{

/// Nearest multiple of a step, \a steps of them in a unit; what has no digits as small stays.
double rounded(double value, double steps)
{
    constexpr double wholeUpTo = 9007199254740992.0; // 2^53
    return steps > 0.0 && std::abs(value) * steps < wholeUpTo ? std::nearbyint(value * steps) / steps : value;
}

} // namespace

OgrFeatures::OgrFeatures(const OgrLayer& layer, const OgrTable& table, OgrSystems& systems, int decimals,
                         Findings& findings)
    : m_layer(layer)
    , m_table(table)
    , m_vertices(systems)
    , m_steps(decimals < 0 ? 0.0 : std::pow(10.0, decimals))
    , m_heightSteps(systems.isOnGlobe() ? 0.0 : m_steps)
    , m_findings(findings)
    , m_sources(table.columns.size())
{
}

int OgrFeatures::count() const
{
    qint64 features = 0;
    for (const ModelObject* object : m_layer.objects)
        features += featuresOf(m_layer, *object);
    return static_cast<int>(std::min<qint64>(features, std::numeric_limits<int>::max()));
}

bool OgrFeatures::next(int index, OGRFeatureDetails& details)
{
    if (index == 0) {
        m_object = 0;
        m_made = 0;
        startObject();
    } else {
        ++m_place;
    }
    while (m_place >= m_places && m_object + 1 < m_layer.objects.size()) {
        endObject();
        ++m_object;
        startObject();
    }
    const bool there = m_place < m_places && fill(details);
    if (there) {
        ++m_made;
        addValues(details);
    }
    if (m_place + 1 >= m_places && m_object + 1 >= m_layer.objects.size())
        endObject();
    return there;
}

void OgrFeatures::startObject()
{
    const ModelObject& object = *m_layer.objects[m_object];
    m_vertices.start(object);
    m_place = 0;
    m_places = featuresOf(m_layer, object);
    m_isGrid = object.grid.has_value();
    for (std::size_t index = 0; index < m_sources.size(); ++index) {
        const OgrColumn& column = m_table.columns[index];
        Source& source = m_sources[index];
        source.values = nullptr;
        if (column.content == OgrColumn::ObjectName) {
            source.constant = writtenValue(column, object.name);
        } else if (column.content == OgrColumn::Colour) {
            source.constant = object.color.isValid() ? QVariant(object.color.name()) : QVariant();
        } else if (column.content == OgrColumn::Attribute) {
            if (m_layer.shape == OgrShape::Points)
                source.values = vertexAttributeOf(object, column.attribute, source.vertexHint);
            const ObjectAttribute* whole =
                source.values ? nullptr : objectAttributeOf(object, column.attribute, source.objectHint);
            source.constant = whole ? writtenValue(column, whole->value) : QVariant();
            const bool sameKind = source.values && source.values->kind == column.kind;
            source.asItIs = sameKind
                            && (column.kind == AttributeKind::Integer
                                || (column.kind == AttributeKind::Text && column.cutTo == 0
                                    && column.leaveOut == OgrTraits::Texts::Any));
        }
    }
}

void OgrFeatures::endObject()
{
    const FindingObject object = *m_layer.objects[m_object];
    m_findings.note(finding::vertexWithoutPosition, object, m_withoutPosition,
                    QStringLiteral("it is not a number, or has no place in the output's coordinate system"));
    m_findings.note(ogrFinding::unknownHeightWrittenAs0, object, m_withoutHeight, QStringLiteral("z is not a number"));
    m_findings.note(m_layer.shape == OgrShape::Lines ? finding::shortLine : finding::shortRing, object, m_shortParts,
                    QStringLiteral("a map cannot hold it"));
    const bool bare = m_layer.objects[m_object]->vertexAttributes.empty();
    m_findings.note(ogrFinding::nodeWithoutAHeightLeftOut, object, m_emptyNodes,
                    bare ? QStringLiteral("it is no point of the surface")
                         : QStringLiteral("and its attributes with it"));
    m_findings.note(ogrFinding::cellLeftOut, object, m_emptyCells, QStringLiteral("a corner has no height"));
    m_findings.note(ogrFinding::directionBeforeType, object, m_rewritten,
                    QStringLiteral("where dip is 0 or 90; switch dipInType off to keep the text"));
    m_withoutPosition = m_withoutHeight = m_shortParts = m_emptyNodes = m_emptyCells = m_rewritten = 0;
}

bool OgrFeatures::fill(OGRFeatureDetails& details)
{
    if (m_layer.shape == OgrShape::Points)
        return addPoint(details);
    return asCells(m_layer, *m_layer.objects[m_object]) ? addCell(details) : addParts(details);
}

bool OgrFeatures::addVertex(std::size_t vertex, OGRFeatureDetails& details)
{
    const std::array<double, 3>& position = m_vertices.at(vertex);
    if (std::isnan(position[0])) {
        ++m_withoutPosition;
        return false;
    }
    if (!m_layer.hasZ) {
        details.append_point(OGRPoint(rounded(position[0], m_steps), rounded(position[1], m_steps)));
        return true;
    }
    const bool known = std::isfinite(position[2]);
    if (!known)
        ++m_withoutHeight;
    details.append_point(OGRPoint(rounded(position[0], m_steps), rounded(position[1], m_steps),
                                  known ? rounded(position[2], m_heightSteps) : 0.0));
    return true;
}

bool OgrFeatures::addPoint(OGRFeatureDetails& details)
{
    const auto vertex = static_cast<std::size_t>(m_place);
    // A node of a grid that has no height is no point of the surface.
    if (m_isGrid && std::isnan((*m_layer.objects[m_object]->z)[vertex])) {
        ++m_emptyNodes;
        return false;
    }
    return addVertex(vertex, details);
}

bool OgrFeatures::addPart(const Part& part, OGRFeatureDetails& details)
{
    const int before = details.point_count();
    for (int index = 0; index < part.count; ++index)
        addVertex(static_cast<std::size_t>(part.first + index), details);
    const QVector<OGRPoint> points = details.points();
    int count = points.size() - before;
    if (m_layer.shape == OgrShape::Polygons && count > 1 && points[before].Equals(&points.last()))
        --count;
    return count >= (m_layer.shape == OgrShape::Lines ? 2 : 3);
}

bool OgrFeatures::addParts(OGRFeatureDetails& details)
{
    bool outerKept = false;
    for (const Part& part : partsOf(*m_layer.objects[m_object])) {
        const bool hole = m_layer.shape == OgrShape::Polygons && part.hole;
        const int before = details.point_count();
        bool kept = (!hole || outerKept) && addPart(part, details);
        if (!kept) {
            ++m_shortParts;
            details.truncate_points(before);
        } else {
            details.append_start_polygon_index(static_cast<unsigned long long>(details.point_count()));
            details.append_hole(hole);
        }
        if (!hole)
            outerKept = kept;
    }
    return details.point_count() > 0;
}

bool OgrFeatures::addCorners(const std::vector<std::size_t>& corners, OGRFeatureDetails& details)
{
    for (const std::size_t corner : corners) {
        if (!addVertex(corner, details))
            return false;
    }
    details.append_point(OGRPoint(details.points().first()));
    details.append_start_polygon_index(static_cast<unsigned long long>(details.point_count()));
    details.append_hole(false);
    return true;
}

bool OgrFeatures::addCell(OGRFeatureDetails& details)
{
    const ModelObject& object = *m_layer.objects[m_object];
    if (!object.grid) {
        const auto& triangle = object.triangles[static_cast<std::size_t>(m_place)];
        return addCorners({static_cast<std::size_t>(triangle[0]), static_cast<std::size_t>(triangle[1]),
                           static_cast<std::size_t>(triangle[2])},
                          details);
    }
    const auto columns = static_cast<std::size_t>(object.grid->columns);
    const std::size_t corner =
        static_cast<std::size_t>(m_place) / (columns - 1) * columns + static_cast<std::size_t>(m_place) % (columns - 1);
    const std::vector<std::size_t> corners{corner, corner + 1, corner + columns + 1, corner + columns};
    const bool whole = std::none_of(corners.begin(), corners.end(),
                                    [&object](std::size_t node) { return std::isnan((*object.z)[node]); });
    m_emptyCells += whole ? 0 : 1;
    return whole && addCorners(corners, details);
}

QVariant OgrFeatures::valueAt(std::size_t index, std::size_t row)
{
    const OgrColumn& column = m_table.columns[index];
    const Source& source = m_sources[index];
    if (column.content == OgrColumn::Height) {
        const double height = m_layer.objects[m_object]->hasZ ? m_vertices.at(row)[2] : std::nan("");
        return writtenValue(column, height);
    }
    if (!source.values)
        return source.constant;
    if (source.values->kind == AttributeKind::Real) {
        const double number = (*source.values->numbers)[row];
        if (source.values->missing && (*source.values->missing)[row])
            return {};
        const bool plain = column.kind == AttributeKind::Real
                           && (column.most > 0 ? std::abs(number) < column.most : std::isfinite(number));
        return plain ? QVariant(number) : writtenValue(column, number);
    }
    const QVariant& value = source.values->values[static_cast<int>(row)];
    // Most values go as they are.
    return source.asItIs && !value.isNull() ? value : writtenValue(column, value);
}

QVariant OgrFeatures::typeAt(std::size_t row)
{
    const auto type = static_cast<std::size_t>(m_table.type);
    const QString text = valueAt(type, row).toString();
    const QString directed = withDirection(text, valueAt(static_cast<std::size_t>(m_table.dip), row));
    if (directed.size() == text.size())
        return valueAt(type, row);
    ++m_rewritten;
    return cutToBytes(directed, m_table.columns[type].cutTo);
}

void OgrFeatures::addValues(OGRFeatureDetails& details)
{
    const auto row = static_cast<std::size_t>(m_place);
    const bool directed = m_table.dip >= 0 && m_table.type >= 0;
    for (std::size_t index = 0; index < m_sources.size(); ++index) {
        const bool isType = directed && m_table.type == static_cast<int>(index);
        details.append_object_attribute(isType ? typeAt(row) : valueAt(index, row));
    }
}

} // namespace kpFormats
