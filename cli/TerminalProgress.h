// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "host/data/AbstractProgress.h"

#include <QElapsedTimer>

namespace refhost
{

/// Progress on standard error, when that is a terminal, and cancelling by Ctrl-C. While one lives, Ctrl-C and a
/// request to terminate set a flag instead of ending the process.
class TerminalProgress : public kpBase::AbstractProgress
{
public:
    explicit TerminalProgress(bool quiet);
    ~TerminalProgress() override;

    void progressStarted(bool knownEnd) override;
    void progressChanged(int percent) override;
    bool isCancelled() const override;
    void progressFinished() override;

private:
    bool m_shown;
    bool m_dirty = false;
    QElapsedTimer m_time;
};

} // namespace refhost
