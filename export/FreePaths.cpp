// SPDX-License-Identifier: MIT
#include "export/FreePaths.h"

#include <QDirIterator>
#include <QFileInfo>

namespace kpFormats
{

FreePaths::FreePaths(const std::vector<PlannedFile>& planned)
{
    for (const PlannedFile& file : planned) {
        const QFileInfo info(file.path);
        namesIn(info.absolutePath()).reserve(info.completeBaseName());
    }
}

QString FreePaths::take(const QString& path)
{
    const QFileInfo info(path);
    const QString name = namesIn(info.absolutePath()).take(info.completeBaseName());
    return info.path() + QLatin1Char('/') + name
           + (info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix());
}

UniqueNames& FreePaths::namesIn(const QString& folder)
{
    const auto known = m_names.find(folder);
    if (known != m_names.end())
        return known->second;
    UniqueNames& names = m_names[folder];
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        names.reserve(entries.fileInfo().completeBaseName());
    }
    return names;
}

} // namespace kpFormats
