// SPDX-License-Identifier: MIT
#include "export/BlockWriter.h"

#include "export/ExportError.h"

#include <charconv>

namespace kpFormats
{

BlockWriter::BlockWriter(const QString& path, const QString& target)
    : m_file(path)
    , m_target(target)
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw ExportError(target,
                          QStringLiteral("the file could not be opened for writing: %1").arg(m_file.errorString()),
                          QStringLiteral("check the directory's permissions and the disk"));
    m_text.reserve(blockSize + blockSize / 4);
}

void BlockWriter::flush()
{
    const auto size = static_cast<qint64>(m_text.size());
    if (m_file.write(m_text.data(), size) != size)
        throw ExportError(m_target,
                          QStringLiteral("the file could not be written completely: %1").arg(m_file.errorString()),
                          QStringLiteral("make room on the disk or choose another"));
    m_text.clear();
}

void BlockWriter::close()
{
    flush();
    m_file.close();
    if (m_file.error() != QFileDevice::NoError)
        throw ExportError(m_target, QStringLiteral("the file could not be closed: %1").arg(m_file.errorString()),
                          QStringLiteral("make room on the disk or choose another"));
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
