// SPDX-License-Identifier: MIT
#include "readers/ObjectUnits.h"

#include "model/OutputUnit.h"

namespace kpFormats
{

namespace
{

double factorBetween(const QString& from, const QString& to)
{
    return unitFactor(from, OutputUnit::Metre) / unitFactor(to, OutputUnit::Metre);
}

} // namespace

double ObjectUnits::factorTo(const QString& crs, const QString& lengthUnit)
{
    const QString unit = unitsOf(crs).horizontal;
    return unit.isEmpty() || lengthUnit.isEmpty() || unit == lengthUnit ? 1.0 : factorBetween(lengthUnit, unit);
}

void ObjectUnits::settle(ModelObject& object)
{
    if (!m_systems.contains(object.crs))
        m_systems.insert(object.crs, unitsOf(object.crs));
    const SystemUnits system = m_systems.value(object.crs);
    const QString named = object.lengthUnit.isEmpty() ? system.vertical : object.lengthUnit;
    if (system.horizontal.isEmpty()) {
        object.lengthUnit = named.isEmpty() ? QStringLiteral("m") : named;
        return;
    }
    object.lengthUnit = system.horizontal;
    if (named.isEmpty() || named == system.horizontal)
        return;
    const QString note =
        QStringLiteral("%1: %2 is named as length unit, but the coordinate system counts in %3: x and y "
                       "are taken as %3, ")
            .arg(object.source, named, system.horizontal);
    if (object.cells) {
        // Where cells lie and how thick they are go together.
        ++m_objects[note + QStringLiteral("and the depths of cell grids too")];
        return;
    }
    if (!object.hasZ)
        return;
    const double factor = factorBetween(named, system.horizontal);
    std::vector<double> heights(*object.z);
    for (double& height : heights)
        height *= factor;
    object.z = std::make_shared<const std::vector<double>>(std::move(heights));
    ++m_objects[note + QStringLiteral("heights were converted to it")];
}

LoadNotes ObjectUnits::notes() const
{
    LoadNotes notes;
    for (auto note = m_objects.begin(); note != m_objects.end(); ++note)
        notes.append(QStringLiteral("%1 (%2 objects)").arg(note.key(), QString::number(note.value())));
    return notes;
}

} // namespace kpFormats
