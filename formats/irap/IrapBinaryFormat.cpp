// SPDX-License-Identifier: MIT
#include "formats/irap/IrapBinaryFormat.h"

namespace kpFormats
{

FormatInfo IrapBinaryFormat::info() const
{
    FormatInfo info;
    info.key = QStringLiteral("irapbinary");
    info.displayName = QStringLiteral("Irap classic grid (binary)");
    info.fileFormatName = QStringLiteral("Irap binary");
    info.defaultExtension = QStringLiteral("gri");
    info.patterns = QStringLiteral("*.gri *.irapbin");
    info.types = {ObjectType::GridSurfaces};
    info.supportsAttributes = false;
    return info;
}

SettingsTable IrapBinaryFormat::settings() const
{
    return commonSettings();
}

} // namespace kpFormats
