// SPDX-License-Identifier: MIT
#pragma once

#include "export/platform/Folder.h"
#include "model/kpFormatsExport.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace kpFormats
{

/// One change that a commit makes in the directory above a staging folder.
struct JournalMove
{
    QByteArray room; ///< the folder where the new file waits; empty: the earlier file only goes
    QByteArray name;
    std::optional<FileIdentity> staged;  ///< the new file
    std::optional<FileIdentity> earlier; ///< the file that it replaces
};

/// The file in a staging folder that proves whose it is and says what is to be done with it. Its name is the state:
/// changing it is one rename, which happens or does not.
class KPFORMATS_EXPORT CommitJournal
{
public:
    enum class State {
        Staging, ///< files are written; they may be thrown away
        Forward, ///< all are complete and durable and go into place, whoever does it
        Back,    ///< a move has failed; the earlier files come back
        Kept,    ///< some could not come back: the folder is the user's
        None     ///< there is no journal, or it is of another folder
    };

    /// The journal of the folder of that name.
    CommitJournal(const Folder& folder, const QByteArray& folderName);

    /// Makes the journal of a new folder.
    int begin() const;
    State state() const;
    /// What is to be moved; empty when the journal is damaged.
    std::vector<JournalMove> moves() const;
    /// Writes what is to be moved and makes it durable; from then on the commit happens even when this run is killed.
    int decide(const std::vector<JournalMove>& moves) const;
    /// Makes a change of state durable.
    int change(State from, State to) const;
    /// Notes that all is in place, so that the folder may go.
    int finish() const;
    /// Removes the journal in whatever state it is.
    int remove() const;
    /// Whether nothing is in the folder but what begin() leaves when it is interrupted.
    bool isUnbegun() const;

private:
    QByteArray head() const;

    const Folder& m_folder;
    QByteArray m_folderName;
};

} // namespace kpFormats
