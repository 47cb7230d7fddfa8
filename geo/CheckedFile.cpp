// SPDX-License-Identifier: MIT
#include "geo/CheckedFile.h"

#include "geo/CheckedWrites.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace kpFormats
{

namespace
{

constexpr std::size_t blockSize = 64 * 1024;

} // namespace

CheckedFile::CheckedFile(const QByteArray& path, int descriptor, bool append)
    : m_path(path)
    , m_descriptor(descriptor)
    , m_append(append)
{
    if (m_append)
        m_position = size();
}

CheckedFile::~CheckedFile()
{
    if (m_descriptor >= 0)
        CheckedFile::Close();
}

void CheckedFile::fail(const char* action)
{
    CheckedWrites::note(m_path, action, errno);
}

vsi_l_offset CheckedFile::size()
{
    struct stat status = {};
    const vsi_l_offset onDisk =
        ::fstat(m_descriptor, &status) == 0 ? static_cast<vsi_l_offset>(status.st_size) : vsi_l_offset(0);
    return m_gathered.empty() ? onDisk : std::max(onDisk, m_gatheredAt + m_gathered.size());
}

bool CheckedFile::put(const char* bytes, std::size_t size, const char* action)
{
    vsi_l_offset place = m_gatheredAt;
    while (size > 0) {
        const ssize_t written = ::pwrite(m_descriptor, bytes, size, static_cast<off_t>(place));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            if (written == 0)
                errno = EIO;
            fail(action);
            return false;
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
        place += static_cast<vsi_l_offset>(written);
    }
    return true;
}

bool CheckedFile::writeOut(const char* action)
{
    // Gone in any case, as with a stream of the C library: the failure is kept.
    const bool written = m_gathered.empty() || put(m_gathered.data(), m_gathered.size(), action);
    m_gathered.clear();
    return written;
}

int CheckedFile::Seek(vsi_l_offset offset, int whence)
{
    m_end = false;
    if (whence == SEEK_CUR)
        m_position += offset;
    else
        m_position = whence == SEEK_END ? size() + offset : offset;
    return 0;
}

std::size_t CheckedFile::Read(void* buffer, std::size_t size, std::size_t count)
{
    if (size == 0 || count == 0 || !writeOut("write"))
        return 0;
    auto* to = static_cast<char*>(buffer);
    const std::size_t wanted = size * count;
    std::size_t done = 0;
    while (done < wanted) {
        const ssize_t read = ::pread(m_descriptor, to + done, wanted - done, static_cast<off_t>(m_position + done));
        if (read < 0 && errno == EINTR)
            continue;
        if (read <= 0)
            break;
        done += static_cast<std::size_t>(read);
    }
    m_end = done < wanted;
    m_position += done;
    return done / size;
}

std::size_t CheckedFile::Write(const void* buffer, std::size_t size, std::size_t count)
{
    const std::size_t bytes = size * count;
    if (bytes == 0)
        return 0;
    if (m_append)
        m_position = this->size();
    const vsi_l_offset behind = m_gatheredAt + m_gathered.size();
    const bool joins = !m_gathered.empty() && m_position >= m_gatheredAt && m_position <= behind;
    if (!joins || m_gathered.size() + bytes > blockSize) {
        if (!writeOut("write"))
            return 0;
        m_gatheredAt = m_position;
    }
    const auto* from = static_cast<const char*>(buffer);
    if (bytes >= blockSize) {
        if (!put(from, bytes, "write"))
            return 0;
    } else {
        const auto begin = static_cast<std::size_t>(m_position - m_gatheredAt);
        if (m_gathered.size() < begin + bytes)
            m_gathered.resize(begin + bytes);
        std::memcpy(m_gathered.data() + begin, from, bytes);
    }
    m_position += bytes;
    return count;
}

int CheckedFile::Flush()
{
    return writeOut("flush") ? 0 : -1;
}

int CheckedFile::Close()
{
    const bool written = writeOut("close");
    const int descriptor = std::exchange(m_descriptor, -1);
    if (::close(descriptor) == 0)
        return written ? 0 : -1;
    fail("close");
    return -1;
}

int CheckedFile::Truncate(vsi_l_offset size)
{
    if (!writeOut("write"))
        return -1;
    if (::ftruncate(m_descriptor, static_cast<off_t>(size)) == 0)
        return 0;
    fail("truncate");
    return -1;
}

} // namespace kpFormats
