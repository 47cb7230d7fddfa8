// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpHostDataExport.h"

namespace kpBase
{

/// How a long run reports how far it is and learns that the user has had enough.
/// Called on the GUI thread only.
class KPHOST_DATA_EXPORT AbstractProgress
{
public:
    virtual ~AbstractProgress();

    /// Announces a run. \a knownEnd is true when percentages will follow.
    virtual void progressStarted(bool knownEnd) = 0;
    /// Reports a whole percentage, 0 to 100.
    virtual void progressChanged(int percent) = 0;
    /// True once the user has cancelled. Cheap enough to be asked for every block of output.
    virtual bool isCancelled() const = 0;
    /// Ends the run, whatever its outcome.
    virtual void progressFinished() = 0;
};

} // namespace kpBase
