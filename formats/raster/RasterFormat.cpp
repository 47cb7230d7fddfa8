// SPDX-License-Identifier: MIT
#include "formats/raster/RasterFormat.h"

#include "export/CommonSettings.h"
#include "formats/raster/RasterFile.h"

namespace kpFormats
{

FormatInfo RasterFormat::info() const
{
    const RasterTraits able = traits();
    FormatInfo info;
    info.key = able.key;
    info.displayName = able.displayName;
    info.fileFormatName = able.fileKind;
    info.defaultExtension = able.extensions.first();
    for (const QString& extension : able.extensions)
        info.patterns += (info.patterns.isEmpty() ? QStringLiteral("*.") : QStringLiteral(" *.")) + extension;
    info.types = {ObjectType::GridSurfaces};
    info.supportsAttributes = able.bands;
    return info;
}

SettingsTable RasterFormat::settings() const
{
    using S = RasterExportSettings;
    const RasterTraits able = traits();
    SettingsTable table;
    if (!able.bands)
        table.addText("attribute", &S::attribute, tr("Attribute"), tr("attribute to write; empty writes heights"));
    addFilePrefix(table, &S::filePrefix);
    addLengthUnit(table, &S::lengthUnit, tr("unit of heights; positions stay in their coordinate system"));
    addElevation(table, &S::zIsElevation);
    if (!able.null)
        table.addReal("nullValue", &S::nullValue, -1e30, 1e30, tr("Null value"),
                      tr("stands for a node without a value"));
    if (able.numbers == RasterTraits::NumberKind::Chosen)
        table.addChoice("precision", &S::precision, tr("Precision"),
                        {{QStringLiteral("automatic"), tr("single where that changes no number")},
                         {QStringLiteral("single"), tr("single")},
                         {QStringLiteral("double"), tr("double")}},
                        tr("of the numbers; automatic is single where that changes none"));
    if (able.numbers == RasterTraits::NumberKind::Decimals)
        table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                         tr("decimals of the values; -1 for as many as they need"));
    if (able.compression)
        table.addChoice("compression", &S::compression, tr("Compression"),
                        {{QStringLiteral("none"), tr("none")},
                         {QStringLiteral("deflate"), tr("Deflate")},
                         {QStringLiteral("lzw"), tr("LZW")}},
                        tr("of the values, without loss"));
    if (able.overviews)
        table.addBoolean("overviews", &S::overviews, tr("Overviews"),
                         tr("coarser copies in the file, for quick drawing"));
    return table;
}

std::vector<PlannedFile> RasterFormat::files(const ExportSelection& selection, const SettingsValue& settings) const
{
    return planOneEach(selection, traits().extensions.first(), settings.as<RasterExportSettings>().filePrefix);
}

std::unique_ptr<PreparedFile> RasterFormat::prepare(const PlannedFile& file, const ExportSelection& selection,
                                                    const SettingsValue& settings, Findings& findings) const
{
    return std::make_unique<RasterFile>(traits(), file, selection, settings.as<RasterExportSettings>(), findings);
}

} // namespace kpFormats
