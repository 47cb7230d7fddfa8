// SPDX-License-Identifier: MIT
#include "export/JournalMoves.h"

#include <algorithm>
#include <cerrno>

namespace kpFormats
{

namespace
{

bool isNumber(const QByteArray& name)
{
    return !name.isEmpty()
           && std::all_of(name.begin(), name.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

} // namespace

JournalMoves::JournalMoves(const Folder& parent, const Folder& folder, By by)
    : m_parent(parent)
    , m_folder(folder)
    , m_by(by)
{
}

int JournalMoves::keepEarlier(const JournalMove& move, const Folder& backups) const
{
    if (!move.earlier || m_parent.identity(move.name) != move.earlier || backups.identity(move.name))
        return 0;
    // A second name where the file system has them, so that the file is never absent.
    const int error = m_parent.link(move.name, backups, move.name);
    return error == 0 ? 0 : m_parent.move(move.name, backups, move.name);
}

int JournalMoves::putIntoPlace(const JournalMove& move) const
{
    const std::optional<FileIdentity> there = m_parent.identity(move.name);
    const bool earlierThere = there && there == move.earlier;
    if (move.room.isEmpty())
        return earlierThere ? m_parent.remove(move.name) : 0;
    if (there && there == move.staged)
        return 0;
    const Folder room = m_folder.child(move.room);
    int error = errno;
    if (room.isOpen())
        error =
            earlierThere ? room.move(move.name, m_parent, move.name) : room.moveAsNew(move.name, m_parent, move.name);
    return m_by == By::Finder && (error == EEXIST || error == ENOENT) ? 0 : error;
}

int JournalMoves::bringBack(const JournalMove& move, const Folder& backups) const
{
    const std::optional<FileIdentity> there = m_parent.identity(move.name);
    const bool ours = there && there == move.staged;
    if (there && !ours)
        return 0;
    if (move.earlier && backups.identity(move.name))
        return ours ? backups.move(move.name, m_parent, move.name) : backups.moveAsNew(move.name, m_parent, move.name);
    return ours ? m_parent.remove(move.name) : 0;
}

int JournalMoves::forward(const std::vector<JournalMove>& moves, int& error) const
{
    const bool replaces =
        std::any_of(moves.begin(), moves.end(), [](const JournalMove& move) { return move.earlier.has_value(); });
    if (replaces && m_folder.kind(backupRoom()) == Folder::Kind::Nothing)
        m_folder.make(backupRoom());
    const Folder backups = replaces ? m_folder.child(backupRoom()) : Folder();
    if (replaces && !backups.isOpen()) {
        error = errno;
        return 0;
    }
    const auto number = static_cast<int>(moves.size());
    for (int index = 0; index < number; ++index) {
        error = keepEarlier(moves[static_cast<std::size_t>(index)], backups);
        if (error != 0)
            return index;
    }
    for (int index = 0; index < number; ++index) {
        error = putIntoPlace(moves[static_cast<std::size_t>(index)]);
        if (error != 0)
            return index;
    }
    return -1;
}

bool JournalMoves::back(const std::vector<JournalMove>& moves) const
{
    const Folder backups = m_folder.child(backupRoom());
    bool all = true;
    for (const JournalMove& move : moves)
        all = bringBack(move, backups) == 0 && all;
    return all;
}

bool JournalMoves::clear() const
{
    bool all = true;
    for (const QByteArray& name : m_folder.names()) {
        if (name == backupRoom() || isNumber(name))
            all = m_folder.removeAll(name) == 0 && all;
    }
    return all;
}

} // namespace kpFormats
