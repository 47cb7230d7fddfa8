// SPDX-License-Identifier: MIT
#pragma once

#include "export/CommitJournal.h"
#include "export/platform/Folder.h"

#include <vector>

namespace kpFormats
{

/// Carries out, or takes back, what a journal says, for the run that wrote it and for one that finds it after a kill.
/// Each step looks at what is there first, so it can be repeated from any point; a file that somebody else has put in
/// place since stays.
class JournalMoves
{
public:
    enum class By {
        Writer, ///< the run itself: a file that is in the way is a failure
        Finder  ///< a later run: it stays, and the others follow
    };

    /// \a folder is the staging folder in \a parent.
    JournalMoves(const Folder& parent, const Folder& folder, By by);

    /// Keeps the earlier files, then moves everything into place. \returns the index of the move that failed, or -1
    int forward(const std::vector<JournalMove>& moves, int& error) const;
    /// False when an earlier file could not be brought back.
    bool back(const std::vector<JournalMove>& moves) const;
    /// Removes what was staged and kept. False when something is left.
    bool clear() const;

    static const char* backupRoom() { return "earlier"; }

private:
    int keepEarlier(const JournalMove& move, const Folder& backups) const;
    int putIntoPlace(const JournalMove& move) const;
    int bringBack(const JournalMove& move, const Folder& backups) const;

    const Folder& m_parent;
    const Folder& m_folder;
    By m_by;
};

} // namespace kpFormats
