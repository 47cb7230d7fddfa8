// SPDX-License-Identifier: MIT
#include "export/WellDepths.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "export/WellDirections.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// The attribute of vertices that has one of the names, in whatever case.
const AttributeColumn* columnNamed(const ModelObject& object, const char* names)
{
    for (const QString& name : QString::fromLatin1(names).split(QLatin1Char(' '))) {
        for (const AttributeColumn& column : object.vertexAttributes) {
            const bool number = column.kind == AttributeKind::Real || column.kind == AttributeKind::Integer;
            if (number && column.name.compare(name, Qt::CaseInsensitive) == 0)
                return &column;
        }
    }
    return nullptr;
}

double distance(const std::array<double, 3>& a, const std::array<double, 3>& b)
{
    return std::sqrt(std::pow(a[0] - b[0], 2) + std::pow(a[1] - b[1], 2) + std::pow(a[2] - b[2], 2));
}

} // namespace

WellDepths::WellDepths(const ModelObject& object, OutputUnit unit, const QString& file, Findings& findings)
    : m_reference(std::nan(""))
{
    if (object.parts.size() > 1 || object.vertexCount() == 0)
        throw ExportError(file,
                          object.vertexCount() == 0
                              ? QStringLiteral("the well %1 has no path").arg(object.name)
                              : QStringLiteral("the well %1 has %2 paths").arg(object.name).arg(object.parts.size()),
                          QStringLiteral("give it a single one"));
    const LengthFactors factors(object, unit, true);
    for (std::size_t vertex = 0; vertex < object.x->size(); ++vertex)
        m_places.push_back({(*object.x)[vertex] * factors.flat, (*object.y)[vertex] * factors.flat,
                            object.hasZ ? (*object.z)[vertex] * factors.height : std::nan("")});
    takeMeasured(object, unit, findings, file);
    takeReference(object, factors.height, findings);
}

void WellDepths::takeMeasured(const ModelObject& object, OutputUnit unit, Findings& findings, const QString& file)
{
    if (const AttributeColumn* column = columnNamed(object, "MD DEPT DEPTH MEASURED_DEPTH")) {
        m_attribute = column->name;
        const NumberColumn depths(*column);
        const bool known = column->unit == QLatin1String("m") || column->unit.startsWith(QLatin1String("ft"));
        const double factor = known ? unitFactor(column->unit, unit == OutputUnit::Model ? OutputUnit::Metre : unit)
                                    : unitFactor(object.lengthUnit, unit);
        for (int vertex = 0; vertex < object.vertexCount(); ++vertex)
            m_measured.push_back(depths.at(vertex) * factor);
        return;
    }
    const bool whole = std::all_of(m_places.begin(), m_places.end(), [](const auto& place) {
        return std::isfinite(place[0]) && std::isfinite(place[1]) && std::isfinite(place[2]);
    });
    if (!whole || LengthFactors(object, unit, true).flatUnit == QLatin1String("degrees"))
        throw ExportError(file,
                          QStringLiteral("the well %1 has no measured depth, and none can be computed from a path %2")
                              .arg(object.name, whole ? QStringLiteral("in degrees")
                                                      : QStringLiteral("with places or heights missing")),
                          QStringLiteral("give it an attribute MD"));
    findings.note(finding::measuredDepthComputed, object, 1, object.name);
    const std::vector<WellDirection> directions = wellDirections(m_places, {});
    m_measured.push_back(0.0);
    for (std::size_t vertex = 1; vertex < m_places.size(); ++vertex)
        m_measured.push_back(m_measured.back()
                             + lengthOfArc(directions[vertex - 1], directions[vertex],
                                           distance(m_places[vertex], m_places[vertex - 1])));
}

void WellDepths::takeReference(const ModelObject& object, double factor, Findings& findings)
{
    static const QStringList names = QStringLiteral("KB EKB RKB EREF DATUM").split(QLatin1Char(' '));
    for (const ObjectAttribute& attribute : object.objectAttributes) {
        bool isNumber = false;
        const double value = attribute.value.toDouble(&isNumber);
        if (isNumber && names.contains(attribute.name, Qt::CaseInsensitive)) {
            m_reference = value * factor;
            return;
        }
    }
    if (!std::isfinite(m_places.front()[2]) || !std::isfinite(m_measured.front()))
        return;
    m_reference = m_places.front()[2] + m_measured.front();
    if (m_measured.front() != 0.0)
        findings.note(finding::depthReferenceAssumed, object, 1,
                      QStringLiteral("its first vertex has the depth %1; the hole is taken as vertical above")
                          .arg(m_measured.front()));
}

} // namespace kpFormats
