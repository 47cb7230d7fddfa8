// SPDX-License-Identifier: MIT
#include "export/StagingFolder.h"

#include "export/AbandonedFolders.h"
#include "export/ExportError.h"
#include "export/JournalMoves.h"
#include "export/platform/SystemError.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <cerrno>

namespace kpFormats
{

namespace
{

/// Many files are made durable faster all together than one by one.
constexpr std::size_t mostSingleSyncs = 64;

} // namespace

StagingFolder::StagingFolder(const QString& directory, const QString& target)
    : m_parent(directory)
{
    finishAbandoned(m_parent);
    // Another run may take the new folder for an abandoned one before it is locked; then it is gone, or going.
    constexpr int mostTries = 100;
    int error = m_parent.isOpen() ? EAGAIN : errno;
    for (int tries = 0; error == EAGAIN && tries < mostTries; ++tries)
        error = make();
    if (error != 0)
        throw ExportError(target, QStringLiteral("nothing can be created in %1: %2").arg(directory, errorText(error)),
                          writingCure(error));
    m_path = QDir(directory).filePath(QString::fromLatin1(m_name));
}

int StagingFolder::make()
{
    m_name = newStagingName();
    const int making = m_parent.make(m_name);
    if (making != 0)
        return making == EEXIST ? EAGAIN : making;
    m_folder = m_parent.child(m_name);
    const int locked = m_folder.isOpen() ? m_folder.lock() : EWOULDBLOCK;
    // Some file systems have no locks or no permissions; then the folders of killed runs stay there.
    if (locked == EWOULDBLOCK || !m_folder.isChildOf(m_parent, m_name))
        return EAGAIN;
    const int error = journal().begin();
    if (error != 0) {
        journal().remove();
        m_parent.removeEmpty(m_name);
    }
    return error;
}

StagingFolder::~StagingFolder()
{
    if (m_kept || m_name.isEmpty())
        return;
    if (JournalMoves(m_parent, m_folder, JournalMoves::By::Writer).clear() && journal().remove() == 0)
        m_parent.removeEmpty(m_name);
}

QByteArray StagingFolder::newRoom(const QString& target)
{
    const QByteArray name = QByteArray::number(++m_rooms);
    const int error = m_folder.make(name);
    if (error != 0)
        throw ExportError(target, QStringLiteral("nothing can be created in %1: %2").arg(m_path, errorText(error)),
                          writingCure(error));
    return name;
}

int StagingFolder::decide(const std::vector<JournalMove>& moves)
{
    int error = 0;
    if (moves.size() > mostSingleSyncs) {
        error = m_folder.synchroniseDisk();
    } else {
        QSet<QByteArray> rooms;
        for (const JournalMove& move : moves) {
            const Folder folder = m_folder.child(move.room);
            if (error == 0 && !move.room.isEmpty())
                error = folder.synchronise(move.name);
            if (error == 0 && !move.room.isEmpty() && !rooms.contains(move.room))
                error = folder.synchronise();
            rooms.insert(move.room);
        }
    }
    if (error == 0)
        error = journal().decide(moves);
    return error == 0 ? m_parent.synchronise() : error;
}

int StagingFolder::carryOut(const std::vector<JournalMove>& moves, int& error) const
{
    const int failed = JournalMoves(m_parent, m_folder, JournalMoves::By::Writer).forward(moves, error);
    if (failed >= 0)
        return failed;
    error = m_parent.synchronise();
    return error == 0 ? -1 : 0;
}

void StagingFolder::finish() const
{
    journal().finish();
}

bool StagingFolder::takeBack(const std::vector<JournalMove>& moves)
{
    using State = CommitJournal::State;
    // A journal that cannot say so must not let the next run carry on.
    if (journal().state() == State::Forward && journal().change(State::Forward, State::Back) != 0)
        journal().remove();
    if (JournalMoves(m_parent, m_folder, JournalMoves::By::Writer).back(moves))
        return true;
    m_kept = true;
    if (journal().change(State::Back, State::Kept) != 0)
        journal().remove();
    return false;
}

QString StagingFolder::keptPath() const
{
    return m_path + QLatin1Char('/') + QLatin1String(JournalMoves::backupRoom());
}

} // namespace kpFormats
