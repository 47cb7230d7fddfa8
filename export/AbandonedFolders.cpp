// SPDX-License-Identifier: MIT
#include "export/AbandonedFolders.h"

#include "export/CommitJournal.h"
#include "export/JournalMoves.h"

#include <QRandomGenerator>

#include <algorithm>

namespace kpFormats
{

namespace
{

constexpr char prefix[] = ".kpexport-";
constexpr int randomBytes = 16;

bool isStagingName(const QByteArray& name)
{
    const QByteArray number = name.mid(static_cast<int>(sizeof prefix) - 1);
    return name.startsWith(prefix) && number.size() == 2 * randomBytes
           && std::all_of(number.begin(), number.end(),
                          [](char digit) { return (digit >= '0' && digit <= '9') || (digit >= 'a' && digit <= 'f'); });
}

/// Whether the folder's moves are finished, so that it may go.
bool isSettled(const Folder& directory, const Folder& folder, const CommitJournal& journal)
{
    const CommitJournal::State state = journal.state();
    if (state == CommitJournal::State::Staging)
        return true;
    if (state != CommitJournal::State::Forward && state != CommitJournal::State::Back)
        return journal.isUnbegun();
    const std::vector<JournalMove> moves = journal.moves();
    // A run that commits now may be about to move the same files.
    if (moves.empty() || directory.lock() != 0)
        return false;
    const JournalMoves work(directory, folder, JournalMoves::By::Finder);
    int error = 0;
    const bool done = state == CommitJournal::State::Forward ? work.forward(moves, error) < 0 : work.back(moves);
    directory.unlock();
    if (!done && state == CommitJournal::State::Back)
        journal.change(state, CommitJournal::State::Kept);
    return done && directory.synchronise() == 0;
}

} // namespace

QByteArray newStagingName()
{
    QByteArray bytes;
    for (int index = 0; index < randomBytes; ++index)
        bytes.append(static_cast<char>(QRandomGenerator::system()->bounded(256)));
    return prefix + bytes.toHex();
}

void finishAbandoned(const Folder& directory)
{
    for (const QByteArray& name : directory.names()) {
        if (!isStagingName(name))
            continue;
        const Folder folder = directory.child(name);
        if (!folder.isOpen() || !folder.isPrivate() || folder.lock() != 0 || !folder.isChildOf(directory, name))
            continue;
        const CommitJournal journal(folder, name);
        if (!isSettled(directory, folder, journal))
            continue;
        if (JournalMoves(directory, folder, JournalMoves::By::Finder).clear() && journal.remove() == 0)
            directory.removeEmpty(name);
    }
}

} // namespace kpFormats
