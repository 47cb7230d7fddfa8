// SPDX-License-Identifier: MIT
#include "formats/irap/IrapFormat.h"

namespace kpFormats
{

FormatInfo IrapFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("irap");
    info.displayName = QStringLiteral("Irap classic grid (text)");
    info.fileFormatName = QStringLiteral("Irap");
    info.defaultExtension = QStringLiteral("irap");
    info.patterns = QStringLiteral("*.irap *.fgr");
    info.types = {ObjectType::GridSurfaces};
    info.supportsAttributes = false;
    return info;
}

SettingsTable IrapFormat::settings() const
{
    using S = IrapGridExportSettings;
    SettingsTable table = commonSettings();
    table.addInteger("decimals", &S::decimals, automaticDecimals, 12, tr("Decimals"),
                     tr("decimals of the values; -1 for as many as they need"));
    table.addInteger("nodesPerLine", &S::nodesPerLine, 1, 20, tr("Nodes per line"), tr("values in a line"));
    return table;
}

} // namespace kpFormats
