// SPDX-License-Identifier: MIT
#pragma once

#include "cli/TerminalProgress.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace refhost
{

/// While one lives, a cancelled run ends at once: what is going on leaves nothing behind, and readers of other projects
/// cannot be asked to stop. Ends the process with Cancelled after \a tell, which a thread of its own calls.
class LoadingStop
{
public:
    LoadingStop(const TerminalProgress& progress, std::function<void()> tell);
    /// Waits for the end of the process when that has begun.
    ~LoadingStop();
    LoadingStop(const LoadingStop&) = delete;
    LoadingStop& operator=(const LoadingStop&) = delete;

private:
    std::mutex m_mutex;
    std::condition_variable m_change;
    bool m_over = false;
    std::thread m_watch;
};

} // namespace refhost
