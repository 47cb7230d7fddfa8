// SPDX-License-Identifier: MIT
#include "formats/ogr/FgbFormat.h"

namespace kpFormats
{

FormatInfo FgbFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("fgb");
    info.displayName = QStringLiteral("FlatGeobuf");
    info.fileFormatName = QStringLiteral("FlatGeobuf");
    return info;
}

SettingsTable FgbFormat::settings() const
{
    return commonSettings();
}

QStringList FgbFormat::extensions() const
{
    return {QStringLiteral("fgb")};
}

OgrTraits FgbFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("FlatGeobuf");
    traits.fileKind = QStringLiteral("FlatGeobuf file");
    // Dates alone would come back as moments.
    traits.moments = {TextMeaning::DateTime};
    traits.utc = true;
    traits.firstId = 0;
    traits.mostFields = 65535; // counted in 16 bits
    return traits;
}

void FgbFormat::tune(OgrOutput&, kpBaseExport::OGRExporterOptions& options, Findings&,
                     const kpBase::AbstractProgress*) const
{
    options.layerOptions.append(QStringLiteral("SPATIAL_INDEX=NO"));
}

} // namespace kpFormats
