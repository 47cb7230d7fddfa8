// SPDX-License-Identifier: MIT
#include "cli/TerminalProgress.h"

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace refhost
{

namespace
{

volatile std::sig_atomic_t interrupted = 0;

void interrupt(int)
{
    interrupted = 1;
}

/// What asks the program to end. One that was started to outlive its terminal ignores the last.
constexpr int endings[] = {SIGINT, SIGTERM, SIGHUP};

void handleEndings(void (*handler)(int))
{
    for (const int signal : endings) {
        struct sigaction earlier = {};
        if (::sigaction(signal, nullptr, &earlier) == 0 && earlier.sa_handler != SIG_IGN)
            std::signal(signal, handler);
    }
}

} // namespace

TerminalProgress::TerminalProgress(bool quiet)
    : m_shown(!quiet && ::isatty(STDERR_FILENO) == 1)
{
    interrupted = 0;
    handleEndings(interrupt);
    // A file past the user's size limit is then a failed write like any other, instead of the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
}

TerminalProgress::~TerminalProgress()
{
    progressFinished();
    handleEndings(SIG_DFL);
}

void TerminalProgress::progressStarted(bool)
{
    m_time.start();
}

void TerminalProgress::progressChanged(int percent)
{
    if (!m_shown)
        return;
    m_dirty = true;
    if (percent > 0 && percent < 100 && m_time.isValid()) {
        const qint64 seconds = (m_time.elapsed() * (100 - percent) / percent + 999) / 1000;
        std::fprintf(stderr, "\r%3d %%, about %lld s left ", percent, static_cast<long long>(seconds));
    } else {
        std::fprintf(stderr, "\r%3d %%                    ", percent);
    }
}

bool TerminalProgress::isCancelled() const
{
    return interrupted != 0;
}

void TerminalProgress::progressFinished()
{
    if (m_dirty)
        std::fputs("\r                              \r", stderr);
    m_dirty = false;
}

} // namespace refhost
