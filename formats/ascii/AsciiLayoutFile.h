// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "formats/ascii/AsciiExportSettings.h"
#include "model/kpFormatsExport.h"

#include <QJsonObject>
#include <QPair>
#include <QVector>

class FormatFile;

namespace kpFormats
{

/// What a layout file says: the fields, and the settings saved with them.
struct AsciiLayoutFile
{
    AsciiExportSettings::Mode mode = AsciiExportSettings::Mode::Separated;
    AsciiLayout layout;
    QVector<QPair<QString, QString>> settings;
};

/// \throws SettingsError "FILE: line N: cause (cure)" when the file holds no layout
KPFORMATS_EXPORT AsciiLayoutFile readAsciiLayout(const QString& path);
KPFORMATS_EXPORT AsciiLayoutFile asciiLayoutOf(const FormatFile& file);

/// The settings as a layout file holds them: all but the mode, which the file says itself.
KPFORMATS_EXPORT QJsonObject layoutSettings(const SettingsValue& settings);
/// The bytes of a file with the layout of the settings; empty when they have none.
KPFORMATS_EXPORT QByteArray layoutFileBytes(const SettingsValue& settings);

} // namespace kpFormats
