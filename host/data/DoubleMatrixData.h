// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/MatrixData.h"

#include <memory>
#include <vector>

namespace kpBase
{

/// A matrix over columns of doubles that it shares with the model: nothing is copied, and each column
/// is offered as one block. All columns have the same length.
class KPHOST_DATA_EXPORT DoubleMatrixData : public MatrixData
{
public:
    using Values = std::shared_ptr<const std::vector<double>>;
    using Missing = std::shared_ptr<const std::vector<unsigned char>>;

    struct Column
    {
        Values values;   ///< one number per row
        Missing missing; ///< 1 = missing value; null when no value is missing
    };

    /// A matrix of one column.
    DoubleMatrixData(QString name, Values values, Missing missing = nullptr);
    /// A matrix of several columns, such as x, y, z of a line.
    DoubleMatrixData(QString name, std::vector<Column> columns);

    void setGeoType(const QString& geoType);
    void setColor(const QString& hexa);

    QString name() const override;
    QString geoType() const override;
    QString colorHexaString() const override;
    QString colorHexaString(int row, int column) const override;
    int rowCount() const override;
    QVariant value(int row, int column) const override;
    DoubleColumn doubleColumn(int column) const override;

private:
    bool holds(int row, int column) const;

    QString m_name;
    QString m_geoType;
    QString m_color;
    std::vector<Column> m_columns;
};

} // namespace kpBase
