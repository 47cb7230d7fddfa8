// SPDX-License-Identifier: MIT
#include "spec/layout/QESAttribute.h"

#include "host/data/impAttribute.h"

namespace kpBaseExport
{

QESAttribute::QESAttribute() = default;

QESAttribute::QESAttribute(const QESAttribute& other)
{
    copy(other);
}

QESAttribute::QESAttribute(const impAttribute& record)
{
    copy(record);
}

QESAttribute::~QESAttribute() = default;

QESAttribute& QESAttribute::operator=(const QESAttribute& other)
{
    if (this != &other)
        copy(other);
    return *this;
}

QESAttribute& QESAttribute::operator=(const impAttribute& record)
{
    copy(record);
    return *this;
}

impAttribute QESAttribute::record() const
{
    impAttribute record;
    record.name = m_name.toStdString();
    record.type = m_type.toStdString();
    record.typeId = m_typeId;
    record.order = m_order;
    record.width = m_width;
    record.start = m_start;
    record.end = m_end;
    record.precision = m_precision;
    return record;
}

void QESAttribute::copy(const QESAttribute& other)
{
    m_name = other.m_name;
    m_type = other.m_type;
    m_typeId = other.m_typeId;
    m_order = other.m_order;
    m_start = other.m_start;
    m_end = other.m_end;
    m_width = other.m_width;
    m_precision = other.m_precision;
}

void QESAttribute::copy(const impAttribute& record)
{
    m_name = QString::fromStdString(record.name);
    m_type = QString::fromStdString(record.type);
    m_typeId = record.typeId;
    m_order = record.order;
    m_start = record.start;
    m_end = record.end;
    m_precision = record.precision;
}

} // namespace kpBaseExport
