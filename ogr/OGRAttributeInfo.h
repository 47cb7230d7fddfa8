// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <QString>

#include <ogr_core.h>

namespace kpBaseExport
{

/// One attribute column of a layer. The writer handles OFTInteger, OFTReal, OFTString and OFTStringList; OFTDate, OFTTime
/// and OFTDateTime when OGRExporterOptions::dates is on.
class KPBASEEXPORTCORE_EXPORT OGRAttributeInfo
{
public:
    OGRAttributeInfo() = default;
    OGRAttributeInfo(const QString& name, OGRFieldType type, int index);

    QString name() const;
    OGRFieldType attribute_type() const;
    void attribute_type(OGRFieldType type);
    /// The caller's own index; not used by the writer.
    int index() const;

    /// Width and decimals of the field, 0 for the driver's own. Used when OGRExporterOptions::fieldSizes is on.
    int width() const;
    int decimals() const;
    void size(int width, int decimals);
    /// Subtype of the field, such as OFSTBoolean of an integer. Used when OGRExporterOptions::fieldSizes is on.
    OGRFieldSubType subtype() const;
    void subtype(OGRFieldSubType type);

private:
    QString m_name;
    OGRFieldType m_type = OFTString;
    int m_index = -1;
    int m_width = 0;
    int m_decimals = 0;
    OGRFieldSubType m_subtype = OFSTNone;
};

} // namespace kpBaseExport
