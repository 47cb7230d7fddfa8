// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpHostDataExport.h"

#include <QString>
#include <QVariant>

namespace kpBase
{

/// A column of numbers that lies in memory as one block, lent by a matrix for as long as it lives.
struct DoubleColumn
{
    const double* values = nullptr;         ///< rowCount() values; null when the column is not offered this way
    const unsigned char* missing = nullptr; ///< one flag per row, 1 = missing value; null when none is missing
};

/// One table of values of a model object: rows by columns, all values of one type.
/// Whoever holds a matrix by pointer deletes it through the virtual destructor.
class KPHOST_DATA_EXPORT MatrixData
{
public:
    /// Type codes of QVariant that writers know; any other type is written as empty text.
    enum ValueType { Int = 2, Double = 6, String = 10, Color = 67 };

    explicit MatrixData(int type = Double);
    virtual ~MatrixData();

    /// Name of the matrix: an attribute's name, an object's name.
    virtual QString name() const = 0;
    /// Geometry type of the object that the matrix belongs to, such as "Polylines"; may be empty.
    virtual QString geoType() const = 0;
    /// Colour of the matrix as "#rrggbb".
    virtual QString colorHexaString() const = 0;
    /// Colour of one cell as "#rrggbb"; empty when the cell holds none.
    virtual QString colorHexaString(int row, int column) const = 0;
    virtual int rowCount() const = 0;
    /// One cell. A null QVariant is a missing value, also outside the rows and columns.
    virtual QVariant value(int row, int column) const = 0;

    /// The numbers of \a column as one block. A matrix that cannot offer them so returns an empty DoubleColumn,
    /// and its values are read one by one with value(). Both ways give the same values.
    virtual DoubleColumn doubleColumn(int column) const;

    /// QVariant type code of the values (ValueType or another).
    int valueType;

protected:
    MatrixData(const MatrixData&) = default;
    MatrixData& operator=(const MatrixData&) = default;
};

} // namespace kpBase
