// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/MatrixData.h"
#include "model/kpFormatsExport.h"

#include <QString>
#include <QVariant>

namespace kpFormats
{

/// One value for every row: an attribute of the whole object as a column.
class KPFORMATS_EXPORT ConstantMatrixData : public kpBase::MatrixData
{
public:
    ConstantMatrixData(QString name, int type, QVariant value, int rows);

    QString name() const override;
    QString geoType() const override;
    QString colorHexaString() const override;
    QString colorHexaString(int row, int column) const override;
    int rowCount() const override;
    QVariant value(int row, int column) const override;

private:
    QString m_name;
    QVariant m_value;
    int m_rows;
};

} // namespace kpFormats
