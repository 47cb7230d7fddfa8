// SPDX-License-Identifier: MIT
#include "host/data/VariantMatrixData.h"

#include <QColor>

#include <algorithm>
#include <utility>

namespace kpBase
{

VariantMatrixData::VariantMatrixData(QString name, int type, QVector<QVariant> values, int columns)
    : MatrixData(type)
    , m_name(std::move(name))
    , m_values(std::move(values))
    , m_columns(std::max(columns, 1))
{
}

void VariantMatrixData::setGeoType(const QString& geoType)
{
    m_geoType = geoType;
}

void VariantMatrixData::setColor(const QString& hexa)
{
    m_color = hexa;
}

QString VariantMatrixData::name() const
{
    return m_name;
}

QString VariantMatrixData::geoType() const
{
    return m_geoType;
}

QString VariantMatrixData::colorHexaString() const
{
    return m_color;
}

QString VariantMatrixData::colorHexaString(int row, int column) const
{
    const auto color = value(row, column).value<QColor>();
    return color.isValid() ? color.name() : QString();
}

int VariantMatrixData::rowCount() const
{
    return m_values.size() / m_columns;
}

QVariant VariantMatrixData::value(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= m_columns)
        return {};
    return m_values[row * m_columns + column];
}

} // namespace kpBase
