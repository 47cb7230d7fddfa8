// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/MatrixData.h"

#include <QVector>

namespace kpBase
{

/// A matrix of any one value type, held value by value. Colours are QColor values; a null QVariant is a missing value.
class KPHOST_DATA_EXPORT VariantMatrixData : public MatrixData
{
public:
    /// \a values lie row by row; their number is a multiple of \a columns.
    VariantMatrixData(QString name, int type, QVector<QVariant> values, int columns = 1);

    void setGeoType(const QString& geoType);
    void setColor(const QString& hexa);

    QString name() const override;
    QString geoType() const override;
    QString colorHexaString() const override;
    QString colorHexaString(int row, int column) const override;
    int rowCount() const override;
    QVariant value(int row, int column) const override;

private:
    QString m_name;
    QString m_geoType;
    QString m_color;
    QVector<QVariant> m_values;
    int m_columns;
};

} // namespace kpBase
