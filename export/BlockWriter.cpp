// SPDX-License-Identifier: MIT
#include "export/BlockWriter.h"

#include "core/TruePath.h"
#include "export/WriteErrors.h"

#include <cerrno>
#include <charconv>

namespace kpFormats
{

BlockWriter::BlockWriter(const QString& path, const QString& target)
    : m_block(&m_file)
    , m_target(target)
{
    errno = 0;
    if (!m_file.open(kpBaseExport::truePath(path), std::ios::out | std::ios::trunc | std::ios::binary))
        throw cannotOpen(target, errno);
}

void BlockWriter::check()
{
    m_block.check();
    if (m_block.failed())
        throw cannotWrite(m_target, m_block.error());
}

void BlockWriter::close()
{
    m_block.flush();
    if (m_block.failed())
        throw cannotWrite(m_target, m_block.error());
    errno = 0;
    if (!m_file.close())
        throw cannotWrite(m_target, errno);
}

void appendShortest(std::string& text, double value)
{
    // -0 is of no use to a reader.
    if (value == 0.0) {
        text += '0';
        return;
    }
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    text.append(buffer, static_cast<std::size_t>(end - buffer));
}

void appendInteger(std::string& text, qint64 value)
{
    char buffer[24];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    text.append(buffer, static_cast<std::size_t>(end - buffer));
}

} // namespace kpFormats
