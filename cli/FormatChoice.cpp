// SPDX-License-Identifier: MIT
#include "cli/FormatChoice.h"

#include "cli/CommandLine.h"
#include "cli/Refusal.h"
#include "export/Suggestion.h"

namespace refhost
{

std::unique_ptr<const Format> findFormat(const QString& key)
{
    QStringList keys;
    QStringList sameExtension;
    for (auto& format : makeFormats()) {
        const FormatInfo info = format->info();
        if (info.key == key)
            return std::move(format);
        keys.append(info.key);
        if (extensionsOf(info).contains(key, Qt::CaseInsensitive))
            sameExtension.append(info.key);
    }
    const QString all = QStringLiteral("formats: ") + keys.join(QStringLiteral(", "));
    const QString cure = sameExtension.isEmpty()
                             ? suggestionFor(key, keys, all)
                             : QStringLiteral("did you mean %1?").arg(sameExtension.join(QStringLiteral(" or ")));
    throw Refusal(WrongUse, QStringLiteral("%1: there is no such format (%2)").arg(key, cure));
}

QStringList typeKeys(const FormatInfo& info)
{
    QStringList types;
    for (const ObjectType type : info.types)
        types.append(QString::fromStdString(typeKey(type)));
    return types;
}

QStringList allTypeKeys()
{
    QStringList types;
    for (const auto& format : makeFormats())
        types.append(typeKeys(format->info()));
    types.removeDuplicates();
    return types;
}

QStringList extensionsOf(const FormatInfo& info)
{
    QStringList extensions;
    for (const QString& pattern : info.patterns.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        extensions.append(pattern.mid(pattern.lastIndexOf(QLatin1Char('.')) + 1));
    return extensions;
}

} // namespace refhost
