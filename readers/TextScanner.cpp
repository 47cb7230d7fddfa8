// SPDX-License-Identifier: MIT
#include "readers/TextScanner.h"

#include "readers/LoadError.h"

#include <QFileInfo>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr qint64 blockSize = 1 << 20;
// No line of a text format is longer; a binary file's can be.
constexpr std::size_t longestLine = 16 << 20;

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\f' || character == '\v';
}

} // namespace

QString quoted(std::string_view word)
{
    QString text = QString::fromUtf8(word.data(), static_cast<int>(std::min<std::size_t>(word.size(), 40)));
    for (QChar& character : text) {
        if (!character.isPrint())
            character = QLatin1Char('?');
    }
    return QLatin1Char('"') + text + QLatin1Char('"');
}

TextScanner::TextScanner(const QString& path)
    : m_file(path)
{
    if (QFileInfo(path).isDir() || !m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw LoadError(path, QStringLiteral("the file cannot be read"),
                        QStringLiteral("check the path and its permissions"));
}

bool TextScanner::fill()
{
    m_buffer.erase(0, m_next);
    m_next = 0;
    const std::size_t before = m_buffer.size();
    // No more than the file holds: most are far smaller than a block. A device has no size.
    const qint64 left = m_file.size() - m_file.pos();
    const qint64 wanted = m_file.isSequential() || left <= 0 ? blockSize : std::min(blockSize, left + 1);
    m_buffer.resize(before + static_cast<std::size_t>(wanted));
    const qint64 count = m_file.read(m_buffer.data() + before, wanted);
    if (count < 0)
        fail(QStringLiteral("reading failed: %1").arg(m_file.errorString()),
             QStringLiteral("copy the file again from its source"));
    m_buffer.resize(before + static_cast<std::size_t>(count));
    return count > 0;
}

bool TextScanner::nextLine()
{
    ++m_lineNumber;
    std::size_t end = m_buffer.find('\n', m_next);
    while (end == std::string::npos && !m_atEnd) {
        const std::size_t searched = m_buffer.size() - m_next;
        m_atEnd = !fill();
        if (m_buffer.size() > longestLine + static_cast<std::size_t>(blockSize))
            fail(QStringLiteral("the line does not end"),
                 QStringLiteral("this is not a text file; give it its proper extension"));
        end = m_buffer.find('\n', m_next + searched);
    }
    if (end == std::string::npos) {
        if (m_next >= m_buffer.size()) {
            m_line = {};
            m_position = 0;
            return false;
        }
        end = m_buffer.size();
    }
    m_line = std::string_view(m_buffer).substr(m_next, end - m_next);
    m_next = std::min(end + 1, m_buffer.size());
    m_position = 0;
    if (!m_line.empty() && m_line.back() == '\r')
        m_line.remove_suffix(1);
    if (m_line.find('\0') != std::string_view::npos)
        fail(QStringLiteral("this is a binary file, not text"), QStringLiteral("give the file its proper extension"));
    return true;
}

bool TextScanner::nextWord(std::string_view& word)
{
    while (m_position < m_line.size() && isBlank(m_line[m_position]))
        ++m_position;
    const std::size_t first = m_position;
    while (m_position < m_line.size() && !isBlank(m_line[m_position]))
        ++m_position;
    word = m_line.substr(first, m_position - first);
    return !word.empty();
}

std::string_view TextScanner::rest() const
{
    std::string_view text = m_line.substr(std::min(m_position, m_line.size()));
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

double TextScanner::number(std::string_view word) const
{
    std::string_view text = word;
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double value = 0.0;
    const char* const end = text.data() + text.size();
    auto read = std::from_chars(text.data(), end, value);
    if (read.ec == std::errc() && read.ptr != end && (*read.ptr == 'D' || *read.ptr == 'd')) {
        std::string changed(text);
        changed[static_cast<std::size_t>(read.ptr - text.data())] = 'e';
        const char* const last = changed.data() + changed.size();
        read = std::from_chars(changed.data(), last, value);
        read.ptr = read.ptr == last ? end : text.data();
    }
    if (read.ec == std::errc::result_out_of_range)
        fail(QStringLiteral("%1 is beyond what a number can hold").arg(quoted(word)),
             QStringLiteral("correct it at its source"));
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(value))
        fail(QStringLiteral("%1 is not a number").arg(quoted(word)), QStringLiteral("correct it at its source"));
    return value;
}

qint64 TextScanner::integer(std::string_view word) const
{
    std::string_view text = word;
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    qint64 value = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end)
        fail(QStringLiteral("%1 is not a whole number").arg(quoted(word)), QStringLiteral("correct it at its source"));
    return value;
}

void TextScanner::fail(const QString& cause, const QString& cure) const
{
    throw LoadError(m_file.fileName(), QStringLiteral("line %1: %2").arg(m_lineNumber).arg(cause), cure);
}

void TextScanner::failAtEnd(const QString& cause) const
{
    throw LoadError(
        m_file.fileName(),
        QStringLiteral("the file ends after line %1: %2").arg(std::max<qint64>(m_lineNumber - 1, 0)).arg(cause),
        QStringLiteral("it was cut short; copy it again from its source"));
}

} // namespace kpFormats
