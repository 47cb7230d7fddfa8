// SPDX-License-Identifier: MIT
#pragma once

#include "geo/FilePages.h"

#include <QByteArray>

#include <cpl_vsi_virtual.h>

namespace kpFormats
{

/// A file that GDAL reads and writes through CheckedFileSystem, by pages in memory; each failure is noted where it
/// happens, so no later call can cover it.
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

    /// Before the file of that name is opened anew or looked at otherwise.
    static void writeOutAll(const QByteArray& path);

private:
    /// False when that fails, which is noted.
    bool writeOut(const char* action);
    void fail(const char* action);

    QByteArray m_path;
    int m_descriptor;
    bool m_append;
    bool m_end = false;
    vsi_l_offset m_position = 0;
    FilePages m_pages;
};

} // namespace kpFormats
