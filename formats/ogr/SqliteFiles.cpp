// SPDX-License-Identifier: MIT
#include "formats/ogr/SqliteFiles.h"

#include "export/ExportError.h"

#include <QFileInfo>

namespace kpFormats
{

QStringList sqliteJournals(const QStringList& extensions)
{
    QStringList journals;
    for (const QString& extension : extensions) {
        for (const char* kind : {"-wal", "-shm", "-journal"})
            journals.append(extension + QLatin1String(kind));
    }
    return journals;
}

QStringList fastSqlite()
{
    return {QStringLiteral("OGR_SQLITE_SYNCHRONOUS=OFF"), QStringLiteral("OGR_SQLITE_JOURNAL=MEMORY"),
            QStringLiteral("OGR_SQLITE_CACHE=32")};
}

void requireRoomForJournal(const QString& path, const QString& fileKind)
{
    // The journal has the name of the file and nine bytes more.
    constexpr int longestName = 255 - 9;
    if (QFileInfo(path).fileName().toUtf8().size() > longestName)
        throw ExportError(path, QStringLiteral("the name is too long for a %1").arg(fileKind),
                          QStringLiteral("shorten it to %1 bytes").arg(longestName));
}

} // namespace kpFormats
