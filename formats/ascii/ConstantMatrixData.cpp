// SPDX-License-Identifier: MIT
#include "formats/ascii/ConstantMatrixData.h"

#include <QColor>

#include <utility>

namespace kpFormats
{

ConstantMatrixData::ConstantMatrixData(QString name, int type, QVariant value, int rows)
    : MatrixData(type)
    , m_name(std::move(name))
    , m_value(std::move(value))
    , m_rows(rows)
{
}

QString ConstantMatrixData::name() const
{
    return m_name;
}

QString ConstantMatrixData::geoType() const
{
    return {};
}

QString ConstantMatrixData::colorHexaString() const
{
    return {};
}

QString ConstantMatrixData::colorHexaString(int, int) const
{
    const auto color = m_value.value<QColor>();
    return color.isValid() ? color.name() : QString();
}

int ConstantMatrixData::rowCount() const
{
    return m_rows;
}

QVariant ConstantMatrixData::value(int, int) const
{
    return m_value;
}

} // namespace kpFormats
