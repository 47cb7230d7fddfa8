// SPDX-License-Identifier: MIT
#include "host/data/DoubleMatrixData.h"

#include <utility>

namespace kpBase
{

DoubleMatrixData::DoubleMatrixData(QString name, Values values, Missing missing)
    : DoubleMatrixData(std::move(name), std::vector<Column>{{std::move(values), std::move(missing)}})
{
}

DoubleMatrixData::DoubleMatrixData(QString name, std::vector<Column> columns)
    : MatrixData(Double)
    , m_name(std::move(name))
    , m_columns(std::move(columns))
{
}

void DoubleMatrixData::setGeoType(const QString& geoType)
{
    m_geoType = geoType;
}

void DoubleMatrixData::setColor(const QString& hexa)
{
    m_color = hexa;
}

QString DoubleMatrixData::name() const
{
    return m_name;
}

QString DoubleMatrixData::geoType() const
{
    return m_geoType;
}

QString DoubleMatrixData::colorHexaString() const
{
    return m_color;
}

QString DoubleMatrixData::colorHexaString(int, int) const
{
    return {};
}

int DoubleMatrixData::rowCount() const
{
    if (m_columns.empty() || !m_columns.front().values)
        return 0;
    return static_cast<int>(m_columns.front().values->size());
}

bool DoubleMatrixData::holds(int row, int column) const
{
    if (column < 0 || static_cast<std::size_t>(column) >= m_columns.size() || row < 0)
        return false;
    const Values& values = m_columns[static_cast<std::size_t>(column)].values;
    return values && static_cast<std::size_t>(row) < values->size();
}

QVariant DoubleMatrixData::value(int row, int column) const
{
    if (!holds(row, column))
        return {};
    const Column& source = m_columns[static_cast<std::size_t>(column)];
    const auto index = static_cast<std::size_t>(row);
    if (source.missing && (*source.missing)[index] != 0)
        return QVariant(QVariant::Double);
    return (*source.values)[index];
}

DoubleColumn DoubleMatrixData::doubleColumn(int column) const
{
    if (column < 0 || static_cast<std::size_t>(column) >= m_columns.size())
        return {};
    const Column& source = m_columns[static_cast<std::size_t>(column)];
    if (!source.values)
        return {};
    return {source.values->data(), source.missing ? source.missing->data() : nullptr};
}

} // namespace kpBase
