// SPDX-License-Identifier: MIT
#include "geo/FilePages.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace kpFormats
{

namespace
{

/// So much goes out at once; larger writes pass by.
constexpr std::size_t blockSize = 64 * 1024;
/// Kept of a file that the driver reads while it writes it.
constexpr std::size_t mostKept = 32 * 1024 * 1024;

/// What there is of \a size bytes; the number of those is in \a done.
bool readAt(int descriptor, quint64 place, char* to, std::size_t size, std::size_t& done)
{
    done = 0;
    while (done < size) {
        const ssize_t read = ::pread(descriptor, to + done, size - done, static_cast<off_t>(place + done));
        if (read < 0 && errno == EINTR)
            continue;
        if (read < 0)
            return false;
        if (read == 0)
            break;
        done += static_cast<std::size_t>(read);
    }
    return true;
}

} // namespace

quint64 FilePages::size()
{
    if (!m_sizeKnown) {
        struct stat status = {};
        if (::fstat(m_descriptor, &status) == 0)
            m_size = std::max(m_size, static_cast<quint64>(status.st_size));
        m_sizeKnown = true;
    }
    return m_size;
}

bool FilePages::put(quint64 place, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::pwrite(m_descriptor, bytes, size, static_cast<off_t>(place));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            if (written == 0)
                errno = EIO;
            return false;
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
        place += static_cast<quint64>(written);
    }
    return true;
}

bool FilePages::load(Page& page, quint64 index)
{
    std::array<char, pageSize> onDisk;
    std::size_t got = 0;
    if (!readAt(m_descriptor, index * pageSize, onDisk.data(), pageSize, got))
        return false;
    std::fill(onDisk.begin() + got, onDisk.end(), '\0');
    std::copy(onDisk.begin(), onDisk.begin() + page.begin, page.bytes.begin());
    std::copy(onDisk.begin() + page.end, onDisk.end(), page.bytes.begin() + page.end);
    page.whole = true;
    return true;
}

FilePages::Page* FilePages::pageAt(quint64 index)
{
    if (m_last && m_lastIndex == index)
        return m_last;
    Page*& page = m_places[index];
    if (!page) {
        if (m_used * pageSize >= (m_readsBack ? mostKept : blockSize)) {
            m_places.erase(index);
            return writeOut() ? pageAt(index) : nullptr;
        }
        if (m_used == m_pages.size())
            m_pages.push_back(std::make_unique<Page>());
        page = m_pages[m_used++].get();
        page->begin = page->end = 0;
        page->whole = false;
    }
    m_lastIndex = index;
    m_last = page;
    return page;
}

bool FilePages::read(quint64 place, char* to, std::size_t size, std::size_t& done)
{
    if (!m_writes) {
        static_cast<void>(readAt(m_descriptor, place, to, size, done));
        return true;
    }
    done = 0;
    m_readsBack = true;
    const quint64 end = this->size();
    size = place < end ? static_cast<std::size_t>(std::min<quint64>(size, end - place)) : 0;
    if (size >= blockSize) {
        const bool written = writeOut();
        if (written)
            static_cast<void>(readAt(m_descriptor, place, to, size, done));
        return written;
    }
    while (done < size) {
        const quint64 index = (place + done) / pageSize;
        const auto first = static_cast<std::size_t>((place + done) % pageSize);
        const std::size_t count = std::min(size - done, pageSize - first);
        Page* const page = pageAt(index);
        if (!page)
            return false;
        const bool waits = first >= page->begin && first + count <= page->end;
        if (!page->whole && !waits && !load(*page, index))
            return true;
        std::memcpy(to + done, page->bytes.data() + first, count);
        done += count;
    }
    return true;
}

bool FilePages::write(quint64 place, const char* from, std::size_t size)
{
    m_writes = true;
    if (size >= blockSize) {
        if (!writeOut() || !put(place, from, size))
            return false;
        m_size = std::max(m_size, place + size);
        return true;
    }
    while (size > 0) {
        const quint64 index = place / pageSize;
        const auto first = static_cast<std::size_t>(place % pageSize);
        const std::size_t count = std::min(size, pageSize - first);
        Page* const page = pageAt(index);
        if (!page)
            return false;
        const bool waiting = page->end > page->begin;
        // What lies between two writes has to be known before both can go out as one.
        if (waiting && !page->whole && (first > page->end || first + count < page->begin) && !load(*page, index))
            return false;
        std::memcpy(page->bytes.data() + first, from, count);
        page->begin = waiting ? std::min(page->begin, first) : first;
        page->end = waiting ? std::max(page->end, first + count) : first + count;
        from += count;
        size -= count;
        place += count;
        m_size = std::max(m_size, place);
    }
    return true;
}

bool FilePages::writeOut()
{
    std::vector<std::pair<quint64, const Page*>> waiting;
    for (const auto& [index, page] : m_places) {
        if (page->end > page->begin)
            waiting.emplace_back(index, page);
    }
    std::sort(waiting.begin(), waiting.end());
    std::vector<char> block;
    quint64 at = 0;
    bool written = true;
    for (const auto& [index, page] : waiting) {
        const quint64 place = index * pageSize + page->begin;
        if (block.size() + pageSize > blockSize || place != at + block.size()) {
            written = put(at, block.data(), block.size());
            if (!written)
                break;
            block.clear();
            at = place;
        }
        block.insert(block.end(), page->bytes.begin() + page->begin, page->bytes.begin() + page->end);
    }
    written = written && put(at, block.data(), block.size());
    // Gone in any case, as with a stream of the C library: whoever asked tells of the failure.
    m_places.clear();
    m_last = nullptr;
    m_used = 0;
    m_sizeKnown = false;
    m_size = 0;
    return written;
}

} // namespace kpFormats
