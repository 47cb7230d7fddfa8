// SPDX-License-Identifier: MIT
#include "host/data/UnitRegistry.h"

#include <utility>

namespace kpBase
{

UnitRegistry::AttributeInfo::AttributeInfo(std::string name, std::string typeName, std::string unit)
    : m_name(std::move(name))
    , m_typeName(std::move(typeName))
    , m_unit(std::move(unit))
{
}

const std::string& UnitRegistry::AttributeInfo::name() const
{
    return m_name;
}

const std::string& UnitRegistry::AttributeInfo::typeName() const
{
    return m_typeName;
}

const std::string& UnitRegistry::AttributeInfo::unit() const
{
    return m_unit;
}

} // namespace kpBase
