// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cpl_vsi_virtual.h>

#include <vector>

namespace kpFormats
{

/// A file that GDAL reads and writes through CheckedFileSystem. What is written one after the other is gathered and
/// goes out in blocks; each failure is noted where it happens, so no later call can cover it.
class CheckedFile : public VSIVirtualHandle
{
public:
    /// Takes over the descriptor.
    CheckedFile(const QByteArray& path, int descriptor, bool append);
    ~CheckedFile() override;

    int Seek(vsi_l_offset offset, int whence) override;
    vsi_l_offset Tell() override { return m_position; }
    std::size_t Read(void* buffer, std::size_t size, std::size_t count) override;
    std::size_t Write(const void* buffer, std::size_t size, std::size_t count) override;
    int Eof() override { return m_end ? 1 : 0; }
    int Flush() override;
    int Close() override;
    int Truncate(vsi_l_offset size) override;

private:
    /// Writes what has been gathered. False when that fails.
    bool writeOut(const char* action);
    bool put(const char* bytes, std::size_t size, const char* action);
    void fail(const char* action);
    vsi_l_offset size();

    QByteArray m_path;
    int m_descriptor;
    bool m_append;
    bool m_end = false;
    vsi_l_offset m_position = 0;
    vsi_l_offset m_gatheredAt = 0; ///< the place in the file of what has been gathered
    std::vector<char> m_gathered;
};

} // namespace kpFormats
