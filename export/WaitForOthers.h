// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace kpFormats
{

/// How a run waits for another one that moves files into the same directory.
struct WaitForOthers
{
    /// Called again and again with who holds it up, "process 12 (name)"; false ends the wait. May be empty.
    std::function<bool(const QString& holder)> goOn;
    /// After this the wait is an error: nobody can hold up a run for ever.
    std::chrono::milliseconds most = std::chrono::seconds(60);
};

} // namespace kpFormats
