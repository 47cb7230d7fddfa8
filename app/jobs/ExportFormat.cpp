// SPDX-License-Identifier: MIT
#include "app/jobs/ExportFormat.h"

namespace refhost
{

qint64 ExportFormat::estimatedBytes(const PlannedFile& file, const ExportSelection& selection) const
{
    constexpr int bytesPerCoordinate = 13;
    constexpr int bytesPerValue = 11;
    constexpr int bytesPerTriangle = 24;
    constexpr int cornersPerCell = 8;
    qint64 bytes = 0;
    for (const ModelObject* object : file.objects) {
        qint64 attributes = 0;
        for (const AttributeColumn& column : object->vertexAttributes)
            attributes += selection.wantsAttribute(column.name) ? 1 : 0;
        bytes += object->vertexCount() * (3 * bytesPerCoordinate + attributes * bytesPerValue);
        bytes += static_cast<qint64>(object->triangles.size()) * bytesPerTriangle;
        if (object->cells)
            bytes += (object->rowCount() - object->vertexCount())
                     * (cornersPerCell + static_cast<qint64>(object->cells->cellAttributes.size())) * bytesPerValue;
    }
    return bytes;
}

void ExportFormat::loadLayout(const QString&)
{
    throw SettingsError(QStringLiteral("%1: this format takes no layout (leave it out)").arg(info().key));
}

bool ExportFormat::saveLayout(const QString&)
{
    return false;
}

Verification ExportFormat::verify(const PlannedFile&, const QString&, const ExportSelection&)
{
    return {};
}

} // namespace refhost
