// SPDX-License-Identifier: MIT
#include "geo/CheckedFile.h"

#include "geo/CheckedWrites.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

#include <unistd.h>

namespace kpFormats
{

namespace
{

/// Those that are open; a process may export in several threads.
std::mutex& listMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::vector<CheckedFile*>& openFiles()
{
    static std::vector<CheckedFile*> list;
    return list;
}

} // namespace

CheckedFile::CheckedFile(const QByteArray& path, int descriptor, bool append)
    : m_path(path)
    , m_descriptor(descriptor)
    , m_append(append)
    , m_pages(descriptor)
{
    if (m_append)
        m_position = m_pages.size();
    const std::lock_guard<std::mutex> lock(listMutex());
    openFiles().push_back(this);
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

bool CheckedFile::writeOut(const char* action)
{
    const bool written = m_pages.writeOut();
    if (!written)
        fail(action);
    return written;
}

int CheckedFile::Seek(vsi_l_offset offset, int whence)
{
    m_end = false;
    if (whence == SEEK_CUR)
        m_position += offset;
    else
        m_position = whence == SEEK_END ? m_pages.size() + offset : offset;
    return 0;
}

std::size_t CheckedFile::Read(void* buffer, std::size_t size, std::size_t count)
{
    if (size == 0 || count == 0)
        return 0;
    const std::size_t wanted = size * count;
    std::size_t done = 0;
    if (!m_pages.read(m_position, static_cast<char*>(buffer), wanted, done))
        fail("write");
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
        m_position = m_pages.size();
    if (!m_pages.write(m_position, static_cast<const char*>(buffer), bytes)) {
        fail("write");
        return 0;
    }
    m_position += bytes;
    return count;
}

int CheckedFile::Flush()
{
    // Some drivers do it for each feature. Whoever wants to see the file meanwhile calls writeOutAll().
    return 0;
}

void CheckedFile::writeOutAll(const QByteArray& path)
{
    const std::lock_guard<std::mutex> lock(listMutex());
    for (CheckedFile* file : openFiles()) {
        if (file->m_path == path)
            file->writeOut("write");
    }
}

int CheckedFile::Close()
{
    {
        const std::lock_guard<std::mutex> lock(listMutex());
        openFiles().erase(std::find(openFiles().begin(), openFiles().end(), this));
    }
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
