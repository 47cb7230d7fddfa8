// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

namespace kpFormats
{

/// What of a file is in memory: pages that were written and wait, and those that were read beside them. Some drivers go
/// to and fro in their files for each feature, a few bytes at a time; here that costs no call of the system. Nobody else
/// may write to the file between two writeOut(). Functions that return false because
/// the system refused leave the cause in errno.
class FilePages
{
public:
    /// Does not own the descriptor.
    explicit FilePages(int descriptor)
        : m_descriptor(descriptor)
    {
    }

    /// Reads what there is of \a size bytes; the number of those is in \a done. False when writing out fails.
    bool read(quint64 place, char* to, std::size_t size, std::size_t& done);
    bool write(quint64 place, const char* from, std::size_t size);
    /// Writes all that waits, in the order of the file, and forgets the pages, also when it fails.
    bool writeOut();
    /// Of the file, with what waits.
    quint64 size();

private:
    static constexpr std::size_t pageSize = 4096;

    struct Page
    {
        std::array<char, pageSize> bytes;
        std::size_t begin = 0; ///< of what waits
        std::size_t end = 0;
        bool whole = false; ///< what does not wait is as in the file
    };

    Page* pageAt(quint64 index);
    bool load(Page& page, quint64 index);
    bool put(quint64 place, const char* bytes, std::size_t size);

    int m_descriptor;
    std::vector<std::unique_ptr<Page>> m_pages;
    std::size_t m_used = 0; ///< of m_pages
    std::unordered_map<quint64, Page*> m_places;
    quint64 m_lastIndex = 0;
    Page* m_last = nullptr;
    bool m_writes = false;
    bool m_readsBack = false; ///< has read from a file that it writes
    bool m_sizeKnown = false;
    quint64 m_size = 0;
};

} // namespace kpFormats
