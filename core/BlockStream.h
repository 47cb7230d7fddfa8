// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <cstddef>
#include <streambuf>
#include <string>

namespace kpBaseExport
{

/// Text on its way to a file, to memory or to standard output: callers append to text() and call check() now and then,
/// which hands it on in blocks. A failure is kept, not thrown; nothing more is handed on after it.
class KPBASEEXPORTCORE_EXPORT BlockStream
{
public:
    static constexpr std::size_t usualBlock = std::size_t{128} * 1024;

    /// \a target is not owned; null: what is written is lost, see lost().
    explicit BlockStream(std::streambuf* target = nullptr);

    std::string& text() { return m_text; }
    /// Hands the text on when there is more than \a block of it.
    void check(std::size_t block = usualBlock)
    {
        if (m_text.size() > block)
            flush();
    }
    /// Hands the whole text on.
    void flush();
    /// Hands on the text and behind it \a size characters of the caller's own.
    void write(const char* characters, std::size_t size);

    /// Something could not be written.
    bool failed() const { return m_failed; }
    /// What the system said then, an errno; 0 when it said nothing.
    int error() const { return m_error; }
    /// Something was written while there was no target.
    bool lost() const { return m_lost; }

private:
    void handOn(const char* characters, std::size_t size);

    std::streambuf* m_target;
    std::string m_text;
    int m_error = 0;
    bool m_failed = false;
    bool m_lost = false;
};

} // namespace kpBaseExport
