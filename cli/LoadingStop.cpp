// SPDX-License-Identifier: MIT
#include "cli/LoadingStop.h"

#include "cli/CommandLine.h"
#include "cli/Terminal.h"

#include <chrono>
#include <utility>

#include <unistd.h>

namespace refhost
{

LoadingStop::LoadingStop(const TerminalProgress& progress, std::function<void()> tell)
    : m_watch([this, &progress, tell = std::move(tell)] {
        constexpr std::chrono::milliseconds look(50);
        std::unique_lock<std::mutex> lock(m_mutex);
        while (!m_change.wait_for(lock, look, [this] { return m_over; })) {
            if (!progress.isCancelled())
                continue;
            tell();
            finishOutput();
            ::_exit(Cancelled);
        }
    })
{
}

LoadingStop::~LoadingStop()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_over = true;
    }
    m_change.notify_one();
    m_watch.join();
}

} // namespace refhost
