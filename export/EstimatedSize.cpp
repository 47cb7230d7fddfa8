// SPDX-License-Identifier: MIT
#include "export/EstimatedSize.h"

#include <QHash>
#include <QLocale>

#include <algorithm>
#include <numeric>

namespace kpFormats
{

namespace
{

/// Characters of a value and what parts it from the next, guessed from the first values.
qint64 widthOf(const AttributeColumn& column)
{
    constexpr int numberWidth = 11;
    constexpr int looked = 50;
    if (column.kind == AttributeKind::Real || column.values.isEmpty())
        return numberWidth;
    qint64 characters = 0;
    const int count = std::min(looked, column.values.size());
    for (int index = 0; index < count; ++index)
        characters += column.values[index].toString().size();
    return characters / count + 1;
}

} // namespace

qint64 estimatedBytes(const FormatInfo& format, const PlannedFile& file, const ExportSelection& selection)
{
    constexpr int bytesPerCoordinate = 13;
    constexpr int bytesPerValue = 11;
    constexpr int bytesPerTriangle = 24;
    constexpr int cornersPerCell = 8;
    // As in a table: every row has every column of the file, be it with a mark for "missing".
    QHash<QString, qint64> columns;
    const bool withAttributes = format.supportsAttributes;
    const bool ofFeatures = format.valuesOfFeatures;
    qint64 vertices = 0;
    qint64 rows = 0;
    qint64 bytes = 0;
    for (const ModelObject* object : file.objects) {
        for (const AttributeColumn& column : object->vertexAttributes) {
            if (withAttributes && selection.wantsAttribute(column.name) && !columns.contains(column.name))
                columns.insert(column.name, widthOf(column));
        }
        for (const ObjectAttribute& attribute : object->objectAttributes) {
            if (withAttributes && selection.wantsAttribute(attribute.name) && !columns.contains(attribute.name))
                columns.insert(attribute.name, attribute.value.toString().size() + 1);
        }
        vertices += object->vertexCount();
        rows +=
            ofFeatures && !object->parts.empty() ? static_cast<qint64>(object->parts.size()) : object->vertexCount();
        if (object->section) {
            for (const SectionSegment& segment : object->section->segments)
                vertices += static_cast<qint64>(segment.z.size());
        }
        bytes += static_cast<qint64>(object->triangles.size()) * bytesPerTriangle;
        if (object->cells)
            bytes += (object->rowCount() - object->vertexCount())
                     * (cornersPerCell + static_cast<qint64>(object->cells->cellAttributes.size())) * bytesPerValue;
    }
    const qint64 row = std::accumulate(columns.cbegin(), columns.cend(), qint64(0));
    return bytes + vertices * 3 * bytesPerCoordinate + rows * row;
}

QString sizeText(qint64 bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

} // namespace kpFormats
