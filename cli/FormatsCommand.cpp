// SPDX-License-Identifier: MIT
#include "cli/FormatsCommand.h"

#include "cli/CommandLine.h"
#include "cli/FormatChoice.h"
#include "cli/Terminal.h"

#include <QJsonArray>
#include <QJsonObject>

namespace refhost
{

namespace
{

QJsonObject settingJson(const Setting& setting, const QString& defaultValue)
{
    static const char* const kinds[] = {"choice", "text", "boolean", "integer", "real"};
    QJsonObject json{{QStringLiteral("key"), setting.key},
                     {QStringLiteral("type"), QLatin1String(kinds[setting.kind])},
                     {QStringLiteral("choices"), QJsonArray::fromStringList(setting.choiceKeys())},
                     {QStringLiteral("default"), defaultValue},
                     {QStringLiteral("description"), setting.description}};
    if (setting.kind == Setting::Integer || setting.kind == Setting::Real) {
        json.insert(QStringLiteral("minimum"), setting.least);
        json.insert(QStringLiteral("maximum"), setting.most);
    }
    return json;
}

QJsonObject formatJson(const Format& format)
{
    const FormatInfo info = format.info();
    const SettingsValue defaults = format.defaults();
    QJsonArray settings;
    for (const Setting& setting : defaults.settings())
        settings.append(settingJson(setting, defaults.get(setting)));
    return {{QStringLiteral("key"), info.key},
            {QStringLiteral("layout"), info.takesLayout},
            {QStringLiteral("name"), info.displayName},
            {QStringLiteral("extension"), info.defaultExtension},
            {QStringLiteral("patterns"), info.patterns},
            {QStringLiteral("types"), QJsonArray::fromStringList(typeKeys(info))},
            {QStringLiteral("settings"), settings}};
}

void print(const Format& format)
{
    const FormatInfo info = format.info();
    const SettingsValue defaults = format.defaults();
    printFields({info.key, info.displayName, info.patterns, typeKeys(info).join(QStringLiteral(", "))});
    for (const Setting& setting : defaults.settings())
        printFields({QStringLiteral("    %1 = %2").arg(setting.key, defaults.get(setting)),
                     QStringLiteral("%1 (%2)").arg(setting.description, setting.allowedText())});
    if (info.takesLayout)
        printFields({QStringLiteral("    --layout FILE"),
                     QStringLiteral("fields, their order and columns, saved in the wizard (.klf, .fmt)")});
}

} // namespace

int formatsCommand(const CommandArguments& arguments)
{
    Formats formats;
    for (const QString& key : arguments.words())
        formats.push_back(findFormat(key));
    if (formats.empty())
        formats = makeFormats();
    QJsonArray all;
    for (const auto& format : formats) {
        if (arguments.has("json"))
            all.append(formatJson(*format));
        else
            print(*format);
    }
    if (arguments.has("json"))
        printJson(QJsonDocument(QJsonObject{{QStringLiteral("schema"), QStringLiteral("kpexport-formats-1")},
                                            {QStringLiteral("formats"), all}}));
    return AllWritten;
}

} // namespace refhost
