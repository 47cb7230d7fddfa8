// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiLayoutFile.h"

#include "host/data/FormatFile.h"

#include <memory>

namespace kpFormats
{

namespace
{

using kpBaseExport::QESAttribute;

// What a line of text can be; a file that was edited by hand may say anything.
constexpr int lastColumn = 1000000;
constexpr int mostDecimals = 17;

void requireSoundField(const QString& path, const QESAttribute& field)
{
    const bool columns = field.start() >= 0 && field.end() >= field.start() && field.end() <= lastColumn;
    if (!columns)
        throw SettingsError(QStringLiteral("%1: field \"%2\": columns %3 to %4 are none of 0 to %5 (correct the file)")
                                .arg(path, field.name())
                                .arg(field.start())
                                .arg(field.end())
                                .arg(lastColumn));
    if (field.precision() < 0 || field.precision() > mostDecimals)
        throw SettingsError(QStringLiteral("%1: field \"%2\": precision %3 is none of 0 to %4 (correct the file)")
                                .arg(path, field.name())
                                .arg(field.precision())
                                .arg(mostDecimals));
}

} // namespace

AsciiLayoutFile asciiLayoutOf(const FormatFile& file)
{
    AsciiLayoutFile layout;
    layout.mode = file.type() == FormatFile::FieldBased ? AsciiExportSettings::Mode::Separated
                                                        : AsciiExportSettings::Mode::Columns;
    for (int index = 0; index < file.size(); ++index) {
        impAttribute record;
        file.field(index).getAttribute(record);
        const QESAttribute field(record);
        layout.layout.fields.insert(field.name(), field);
    }
    const QJsonObject settings = file.unknown().value(QStringLiteral("settings")).toObject();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        layout.settings.append({setting.key(), setting.value().toVariant().toString()});
    return layout;
}

AsciiLayoutFile readAsciiLayout(const QString& path)
{
    QString error;
    std::unique_ptr<FormatFile> file;
    if (path.endsWith(QLatin1String(".fmt"))) {
        file.reset(FormatFile::readLandmark(path, &error));
    } else {
        file.reset(FormatFile::read(path, &error));
        if (!file && !path.endsWith(QLatin1String(".klf")))
            file.reset(FormatFile::readLandmark(path));
    }
    if (!file)
        throw SettingsError(QStringLiteral("%1: %2 (correct the layout or save it anew)").arg(path, error));
    AsciiLayoutFile layout = asciiLayoutOf(*file);
    for (const QESAttribute& field : qAsConst(layout.layout.fields))
        requireSoundField(path, field);
    if (layout.layout.fields.isEmpty())
        throw SettingsError(QStringLiteral("%1: the layout has no fields (add some in the wizard)").arg(path));
    return layout;
}

QJsonObject layoutSettings(const SettingsValue& settings)
{
    QJsonObject members;
    for (const Setting& setting : settings.settings()) {
        if (setting.key != QLatin1String("mode"))
            members.insert(setting.key, settings.get(setting));
    }
    return members;
}

QByteArray layoutFileBytes(const SettingsValue& settings)
{
    const auto& ascii = settings.as<AsciiExportSettings>();
    if (!ascii.layout)
        return {};
    FormatFile file;
    file.type() = ascii.mode == AsciiExportSettings::Mode::Columns ? FormatFile::ColumnBased : FormatFile::FieldBased;
    // Without its path the file is the same for the same layout.
    for (const QESAttribute& attribute : qAsConst(ascii.layout->fields)) {
        FormatFile::Field field;
        field.setAttribute(attribute.record());
        file.addField(field);
    }
    file.unknown().insert(QStringLiteral("settings"), layoutSettings(settings));
    return file.toBytes();
}

} // namespace kpFormats
