// SPDX-License-Identifier: MIT
#include "export/PreparedFile.h"

#include <QFileInfo>

#include <utility>

namespace kpFormats
{

PreparedFile::PreparedFile(PlannedFile file, const ExportSelection& selection)
    : m_file(std::move(file))
    , m_selection(selection)
{
}

PreparedFile::~PreparedFile() = default;

QStringList PreparedFile::earlierSidecars() const
{
    const QFileInfo target(m_file.path);
    QStringList paths;
    for (const QString& extension : sidecars()) {
        const QString path =
            target.absolutePath() + QLatin1Char('/') + target.completeBaseName() + QLatin1Char('.') + extension;
        if (QFileInfo::exists(path))
            paths.append(path);
    }
    return paths;
}

std::optional<Verification> PreparedFile::verify(const QString&) const
{
    return std::nullopt;
}

} // namespace kpFormats
