// SPDX-License-Identifier: MIT
#include "cli/FormatChoice.h"

#include "cli/CommandLine.h"
#include "cli/Refusal.h"
#include "export/Suggestion.h"

#include <QFileInfo>

#include <algorithm>

namespace refhost
{

namespace
{

/// The extension in small letters; empty for a directory.
QString extensionOf(const QString& output)
{
    const QFileInfo info(output);
    return info.isDir() ? QString() : info.suffix().toLower();
}

/// Every format that has files of that extension.
std::vector<FormatInfo> formatsOfExtension(const QString& extension)
{
    std::vector<FormatInfo> infos;
    for (const auto& format : makeFormats()) {
        if (extensionsOf(format->info()).contains(extension))
            infos.push_back(format->info());
    }
    return infos;
}

/// Whether it is the usual extension of \a info, which takes more types of objects than the others.
bool isGeneral(const FormatInfo& info, const std::vector<FormatInfo>& infos, const QString& extension)
{
    return info.defaultExtension == extension
           && std::all_of(infos.begin(), infos.end(), [&info](const FormatInfo& other) {
                  return other.key == info.key || other.types.size() < info.types.size();
              });
}

/// "geotiff (GeoTIFF) or cog (Cloud optimized GeoTIFF)"
QString namesOf(const std::vector<FormatInfo>& infos)
{
    QStringList names;
    for (const FormatInfo& info : infos)
        names.append(QStringLiteral("%1 (%2)").arg(info.key, info.displayName));
    return names.join(QStringLiteral(" or "));
}

} // namespace

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

QString formatOfOutput(const QString& output)
{
    const QString extension = extensionOf(output);
    if (extension.isEmpty())
        throw Refusal(WrongUse,
                      QStringLiteral("export: no format is given (add --format KEY, or an extension to the output)"));
    const std::vector<FormatInfo> infos = formatsOfExtension(extension);
    if (infos.empty())
        throw Refusal(WrongUse,
                      QStringLiteral("%1: no format is given, and .%2 is the extension of none (add --format KEY)")
                          .arg(output, extension));
    const auto general = std::find_if(infos.begin(), infos.end(),
                                      [&](const FormatInfo& info) { return isGeneral(info, infos, extension); });
    if (general != infos.end())
        return general->key;
    if (infos.size() > 1)
        throw Refusal(WrongUse,
                      QStringLiteral("%1: no format is given, and .%2 is the extension of several (add --format "
                                     "with one of them: %3)")
                          .arg(output, extension, namesOf(infos)));
    return infos.front().key;
}

QString foreignExtension(const FormatInfo& info, const QString& output)
{
    const QString extension = extensionOf(output);
    const std::vector<FormatInfo> infos = formatsOfExtension(extension);
    if (infos.empty() || extensionsOf(info).contains(extension))
        return {};
    return QStringLiteral("%1: .%2 is the extension of %3").arg(output, extension, namesOf(infos));
}

QStringList extensionsOf(const FormatInfo& info)
{
    QStringList extensions;
    for (const QString& pattern : info.patterns.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        extensions.append(pattern.mid(pattern.lastIndexOf(QLatin1Char('.')) + 1));
    return extensions;
}

} // namespace refhost
