// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"
#include "readers/TextScanner.h"

namespace kpFormats
{

/// The words of a file of keywords and records: "--" begins a comment, "/" ends a record and whatever follows it on
/// its line is passed over, text in quotes is one word.
class KPFORMATS_EXPORT DeckWords
{
public:
    explicit DeckWords(const QString& path)
        : m_scanner(path)
    {
    }

    /// The next word, "/" as one of its own, a text with its quotes. Valid until the next call.
    /// \returns false at the end of the file
    bool next(std::string_view& word);
    /// The word is given out again by next().
    void putBack() { m_again = true; }
    /// True when the latest word stands in the first column and looks like a keyword.
    bool isKeyword() const { return m_isKeyword; }
    TextScanner& scanner() { return m_scanner; }
    const TextScanner& scanner() const { return m_scanner; }

private:
    bool nextLine();

    TextScanner m_scanner;
    std::string_view m_line;
    std::string_view m_word;
    std::size_t m_position = 0;
    bool m_isKeyword = false;
    bool m_again = false;
};

} // namespace kpFormats
