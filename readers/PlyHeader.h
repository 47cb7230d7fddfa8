// SPDX-License-Identifier: MIT
#pragma once

#include "readers/StatedOffset.h"

#include <QMap>
#include <QString>

#include <vector>

namespace kpFormats
{

enum class PlyType { Int8, UInt8, Int16, UInt16, Int32, UInt32, Float32, Float64 };

/// A value, or a list of values, of each row of an element.
struct PlyProperty
{
    QString name;
    PlyType type = PlyType::Float32;
    bool isList = false;
    PlyType countType = PlyType::UInt8;
};

struct PlyElement
{
    QString name;
    qint64 count = 0;
    std::vector<PlyProperty> properties;

    /// The number of the property with one of these names; -1 when there is none.
    int propertyNamed(const QStringList& names) const;
};

/// What a PLY file says of itself before its rows.
struct PlyHeader
{
    enum class Format { Text, LittleEndian, BigEndian };

    Format format = Format::Text;
    std::vector<PlyElement> elements;
    QString name;                 ///< from a remark
    QMap<QString, QString> units; ///< of properties, from remarks
    QString lengthUnit;           ///< from a remark, one of those of the model; empty when none says so
    bool zIsDepth = false;        ///< a remark says that z counts downwards
    StatedOffset offset;          ///< from a remark
    qint64 lines = 0;             ///< that it takes
    qint64 bytes = 0;
};

bool isReal(PlyType type);
int bytesOf(PlyType type);

/// \throws LoadError naming the line
PlyHeader readPlyHeader(const QString& path);

} // namespace kpFormats
