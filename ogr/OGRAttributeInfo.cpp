// SPDX-License-Identifier: MIT
#include "ogr/OGRAttributeInfo.h"

namespace kpBaseExport
{

OGRAttributeInfo::OGRAttributeInfo(const QString& name, OGRFieldType type, int index)
    : m_name(name)
    , m_type(type)
    , m_index(index)
{
}

QString OGRAttributeInfo::name() const
{
    return m_name;
}

OGRFieldType OGRAttributeInfo::attribute_type() const
{
    return m_type;
}

void OGRAttributeInfo::attribute_type(OGRFieldType type)
{
    m_type = type;
}

int OGRAttributeInfo::index() const
{
    return m_index;
}

int OGRAttributeInfo::width() const
{
    return m_width;
}

int OGRAttributeInfo::decimals() const
{
    return m_decimals;
}

void OGRAttributeInfo::size(int width, int decimals)
{
    m_width = width;
    m_decimals = decimals;
}

OGRFieldSubType OGRAttributeInfo::subtype() const
{
    return m_subtype;
}

void OGRAttributeInfo::subtype(OGRFieldSubType type)
{
    m_subtype = type;
}

} // namespace kpBaseExport
