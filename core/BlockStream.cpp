// SPDX-License-Identifier: MIT
#include "core/BlockStream.h"

#include <cerrno>

namespace kpBaseExport
{

BlockStream::BlockStream(std::streambuf* target)
    : m_target(target)
{
}

void BlockStream::flush()
{
    handOn(m_text.data(), m_text.size());
    m_text.clear();
}

void BlockStream::write(const char* characters, std::size_t size)
{
    flush();
    handOn(characters, size);
}

void BlockStream::handOn(const char* characters, std::size_t size)
{
    if (size == 0 || m_failed)
        return;
    const auto length = static_cast<std::streamsize>(size);
    m_lost = m_lost || !m_target;
    errno = 0;
    m_failed = !m_target || m_target->sputn(characters, length) != length;
    if (m_failed)
        m_error = errno;
}

} // namespace kpBaseExport
