// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpHostDataExport.h"

#include <string>

namespace kpBase
{

/// Names what attributes are: their kind and unit.
class KPHOST_DATA_EXPORT UnitRegistry
{
public:
    /// One attribute on offer for an export.
    class KPHOST_DATA_EXPORT AttributeInfo
    {
    public:
        AttributeInfo() = default;
        /// \a typeName is one of "boolean", "color", "dip", "flag", "integer", "pattern", "real",
        /// "realvector2", "realvector3", "text", "vertexdisplay".
        AttributeInfo(std::string name, std::string typeName, std::string unit = {});

        /// UTF-8.
        const std::string& name() const;
        const std::string& typeName() const;
        /// Abbreviation of the unit in UTF-8; empty when the values have none.
        const std::string& unit() const;

    private:
        std::string m_name;
        std::string m_typeName;
        std::string m_unit;
    };
};

} // namespace kpBase
