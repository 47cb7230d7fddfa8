// SPDX-License-Identifier: MIT
#pragma once

#include "export/WaitForOthers.h"

#include <QString>

#include <vector>

namespace kpFormats
{

class Folder;

/// Keeps a second run from moving files into the same directories at the same time, so that sidecars of two runs are
/// never mixed. They are locked in the order given, which has to be the same in every run.
class DirectoryLocks
{
public:
    enum class Outcome { Held, GivenUp, TooLong };

    DirectoryLocks(const std::vector<const Folder*>& directories, const WaitForOthers& wait);
    ~DirectoryLocks();
    DirectoryLocks(const DirectoryLocks&) = delete;
    DirectoryLocks& operator=(const DirectoryLocks&) = delete;

    Outcome outcome() const { return m_outcome; }
    /// Who has held up the last one.
    QString holder() const { return m_holder; }

private:
    Outcome take(const Folder& directory, const WaitForOthers& wait);

    std::vector<const Folder*> m_locked;
    Outcome m_outcome = Outcome::Held;
    QString m_holder;
};

} // namespace kpFormats
