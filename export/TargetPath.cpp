// SPDX-License-Identifier: MIT
#include "export/TargetPath.h"

#include "export/ExportError.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace kpFormats
{

namespace
{

/// Whether the path names something that the process has open: then it is that, not the file behind it, that is meant.
bool namesOpenFile(const QString& path)
{
    static const QStringList names{QStringLiteral("/dev/stdout"), QStringLiteral("/dev/stderr")};
    return names.contains(path) || path.startsWith(QLatin1String("/dev/fd/"))
           || (path.startsWith(QLatin1String("/proc/")) && path.contains(QLatin1String("/fd/")));
}

/// The path to which a chain of links leads, whether it exists or not; empty when the chain has no end.
QString endOfLinks(QString path)
{
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        const QFileInfo info(path);
        if (!info.isSymLink())
            return path;
        path = QDir::cleanPath(info.symLinkTarget());
    }
    return {};
}

} // namespace

TargetPath::TargetPath(const QString& given)
    : m_given(given)
{
    const QFileInfo info(given);
    const QString path = QDir::cleanPath(info.absoluteFilePath());
    m_stream = namesOpenFile(path) || (info.exists() && !info.isFile() && !info.isDir());
    if (m_stream)
        m_resolved = path;
    else
        m_resolved = info.exists() && info.isSymLink() ? info.canonicalFilePath() : info.absoluteFilePath();
}

bool TargetPath::isDatabase(const QString& given)
{
    static const QStringList beginnings{
        QStringLiteral("PG:"),    QStringLiteral("postgresql:"), QStringLiteral("postgres:"), QStringLiteral("MySQL:"),
        QStringLiteral("MSSQL:"), QStringLiteral("OCI:"),        QStringLiteral("ODBC:")};
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&given](const QString& beginning) { return given.startsWith(beginning, Qt::CaseInsensitive); });
}

void TargetPath::requireWritable() const
{
    const QFileInfo info(m_given);
    const QString directory = info.absolutePath();
    if (m_given.contains(QChar::ReplacementCharacter))
        throw ExportError(m_given, QStringLiteral("the name holds bytes that are not UTF-8"),
                          QStringLiteral("choose another name"));
    if (directory.contains(QChar::ReplacementCharacter))
        throw ExportError(m_given, QStringLiteral("the path of the directory holds bytes that are not UTF-8"),
                          QStringLiteral("give it another name or choose another"));
    if (info.isDir())
        throw ExportError(m_given, QStringLiteral("this is a directory"), QStringLiteral("give the name of a file"));
    if (!QFileInfo(directory).isDir())
        throw ExportError(m_given, QStringLiteral("the directory %1 does not exist").arg(directory),
                          QStringLiteral("create it or choose another"));
    if (m_stream)
        return;
    if (info.isSymLink() && !info.exists()) {
        const QString end = endOfLinks(m_given);
        throw ExportError(m_given,
                          end.isEmpty()
                              ? QStringLiteral("this is a symbolic link that leads back to itself")
                              : QStringLiteral("this is a symbolic link to %1, which does not exist").arg(end),
                          QStringLiteral("remove the link or choose another name"));
    }
    const QFileInfo resolved(m_resolved);
    if (!QFileInfo(resolved.absolutePath()).isWritable())
        throw ExportError(m_given, QStringLiteral("the directory %1 cannot be written to").arg(resolved.absolutePath()),
                          QStringLiteral("change its permissions or choose another"));
    if (resolved.exists() && !resolved.isWritable())
        throw ExportError(m_given, QStringLiteral("the file is read-only"),
                          QStringLiteral("change its permissions or choose another name"));
}

} // namespace kpFormats
