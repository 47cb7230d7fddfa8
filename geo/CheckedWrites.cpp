// SPDX-License-Identifier: MIT
#include "geo/CheckedWrites.h"

#include "geo/CheckedFileSystem.h"

#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace kpFormats
{

namespace
{

/// Those that live now; a process may export in several threads.
std::mutex& listMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::vector<CheckedWrites*>& watchers()
{
    static std::vector<CheckedWrites*> list;
    return list;
}

} // namespace

CheckedWrites::CheckedWrites(const QString& path)
    : m_folder(QFileInfo(path).absolutePath().toUtf8() + '/')
{
    CheckedFileSystem::install();
    const std::lock_guard<std::mutex> lock(listMutex());
    watchers().push_back(this);
}

CheckedWrites::~CheckedWrites()
{
    const std::lock_guard<std::mutex> lock(listMutex());
    watchers().erase(std::find(watchers().begin(), watchers().end(), this));
}

QString CheckedWrites::pathFor(const QString& path)
{
    // The slash at the beginning of the path is that at the end of the prefix.
    return QString::fromLatin1(CheckedFileSystem::prefix()) + QFileInfo(path).absoluteFilePath().mid(1);
}

QString CheckedWrites::inOwnNames(QString message)
{
    return message.replace(QLatin1String(CheckedFileSystem::prefix()), QLatin1String("/"));
}

std::optional<CheckedWrites::Failure> CheckedWrites::failure() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_failure;
}

void CheckedWrites::note(const QByteArray& path, const char* action, int error)
{
    const std::lock_guard<std::mutex> lock(listMutex());
    for (CheckedWrites* watcher : watchers()) {
        const std::lock_guard<std::mutex> own(watcher->m_mutex);
        // The first error says what went wrong; what follows are its consequences.
        if (path.startsWith(watcher->m_folder) && !watcher->m_failure)
            watcher->m_failure =
                Failure{QString::fromUtf8(path.mid(watcher->m_folder.size())), QString::fromLatin1(action), error};
    }
}

} // namespace kpFormats
