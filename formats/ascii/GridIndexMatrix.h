// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/MatrixData.h"
#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// Column or row of each node of a grid, counted from 1, without a list of them.
class KPFORMATS_EXPORT GridIndexMatrix : public kpBase::MatrixData
{
public:
    enum Index { Column, Row };

    /// A grid of \a columns columns, of which the first \a nodes nodes are written.
    GridIndexMatrix(QString name, Index index, int columns, int nodes);

    QString name() const override { return m_name; }
    QString geoType() const override { return {}; }
    QString colorHexaString() const override { return {}; }
    QString colorHexaString(int, int) const override { return {}; }
    int rowCount() const override { return m_nodes; }
    QVariant value(int row, int column) const override;

private:
    QString m_name;
    Index m_index;
    int m_columns;
    int m_nodes;
};

} // namespace kpFormats
