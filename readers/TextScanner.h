// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QFile>
#include <QString>

#include <string>
#include <string_view>

namespace kpFormats
{

/// Reads a text file line by line and word by word, and knows where it is, for messages. Numbers are read without
/// regard to the locale.
class KPFORMATS_EXPORT TextScanner
{
public:
    /// \throws LoadError when the file cannot be read
    explicit TextScanner(const QString& path);

    /// Goes to the next line; the words left over of this one are passed over. \returns false at the end of the file
    /// \throws LoadError when the file is binary or reading fails
    bool nextLine();
    /// The whole line, without its end. Valid until nextLine().
    std::string_view line() const { return m_line; }
    /// The next word of the line, parted by blanks and tabs. \returns false when there is none
    bool nextWord(std::string_view& word);
    /// What is left of the line, without blanks at either end.
    std::string_view rest() const;
    qint64 lineNumber() const { return m_lineNumber; }

    /// \throws LoadError when the word is not a finite number. A "D" is read as an exponent's "e".
    double number(std::string_view word) const;
    /// \throws LoadError when the word is not a whole number
    qint64 integer(std::string_view word) const;
    /// \throws LoadError "FILE: line N: CAUSE (CURE)"
    [[noreturn]] void fail(const QString& cause, const QString& cure) const;
    /// The same without a line, for a file that ends too early.
    [[noreturn]] void failAtEnd(const QString& cause) const;

private:
    bool fill();

    QFile m_file;
    std::string m_buffer;
    std::size_t m_next = 0; ///< where the next line begins
    bool m_atEnd = false;
    std::string_view m_line;
    std::size_t m_position = 0; ///< within the line
    qint64 m_lineNumber = 0;
};

/// A word for a message: quoted, shortened, characters that are not printable replaced.
KPFORMATS_EXPORT QString quoted(std::string_view word);

} // namespace kpFormats
