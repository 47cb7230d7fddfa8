// SPDX-License-Identifier: MIT
#include "readers/VtkObjectTexts.h"

#include "readers/ObjectUnits.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

QString textOf(const VtkDataSet& dataSet, const char* array, std::size_t object)
{
    const VtkDataArray* const found = arrayNamed(dataSet.fieldData, QLatin1String(array));
    return found && found->kind == VtkDataArray::Kind::Text ? found->texts.value(static_cast<int>(object)) : QString();
}

} // namespace

VtkObjectTexts::VtkObjectTexts(const VtkDataSet& dataSet, std::size_t object)
    : name(textOf(dataSet, "object_name", object))
    , type(textOf(dataSet, "object_type", object))
    , set(textOf(dataSet, "object_set", object))
    , crs(textOf(dataSet, "coordinate_system", object))
    , unit(textOf(dataSet, "length_unit", object))
    , zIsDepth(textOf(dataSet, "z_direction", 0) == QLatin1String("down"))
    , known(!type.isEmpty())
{
    static const QStringList units{QStringLiteral("m"), QStringLiteral("ft"), QStringLiteral("ftUS"),
                                   QStringLiteral("km")};
    if (!units.contains(unit))
        unit.clear();
    crs = wktOf(crs);
}

std::optional<ObjectType> VtkObjectTexts::typeAmong(const std::vector<ObjectType>& types) const
{
    const std::optional<ObjectType> own = typeFromKey(type.toStdString());
    return own && std::find(types.begin(), types.end(), *own) != types.end() ? own : std::nullopt;
}

double VtkObjectTexts::lengthFactor(const LoadOptions& options) const
{
    return options.crs.isEmpty() && options.lengthUnit.isEmpty() ? ObjectUnits::factorTo(crs, unit) : 1.0;
}

void VtkObjectTexts::settle(ModelObject& object, const LoadOptions& options) const
{
    const bool converted = lengthFactor(options) != 1.0;
    if (options.crs.isEmpty())
        object.crs = crs;
    if (options.lengthUnit.isEmpty())
        object.lengthUnit = converted ? unitsOf(crs).horizontal : unit;
}

} // namespace kpFormats
