// SPDX-License-Identifier: MIT
#include "export/DirectoryLocks.h"

#include "export/platform/Folder.h"

#include <cerrno>
#include <thread>

namespace kpFormats
{

namespace
{

constexpr std::chrono::milliseconds pause(20);
constexpr std::chrono::milliseconds betweenLooks(200);

} // namespace

DirectoryLocks::DirectoryLocks(const std::vector<const Folder*>& directories, const WaitForOthers& wait)
{
    for (const Folder* directory : directories) {
        m_outcome = take(*directory, wait);
        if (m_outcome != Outcome::Held)
            return;
        m_locked.push_back(directory);
    }
}

DirectoryLocks::~DirectoryLocks()
{
    for (const Folder* directory : m_locked)
        directory->unlock();
}

DirectoryLocks::Outcome DirectoryLocks::take(const Folder& directory, const WaitForOthers& wait)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    Clock::time_point nextLook = begin;
    // A file system without locks has none to wait for.
    while (directory.lock() == EWOULDBLOCK) {
        const Clock::time_point now = Clock::now();
        if (now >= nextLook) {
            m_holder = directory.lockHolder();
            nextLook = now + betweenLooks;
        }
        if (wait.goOn && !wait.goOn(m_holder))
            return Outcome::GivenUp;
        if (now - begin > wait.most)
            return Outcome::TooLong;
        std::this_thread::sleep_for(pause);
    }
    return Outcome::Held;
}

} // namespace kpFormats
