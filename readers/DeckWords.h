// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"
#include "readers/TextScanner.h"

#include <memory>
#include <vector>

namespace kpFormats
{

/// The words of a file of keywords and records: "--" begins a comment, "/" ends a record and whatever follows it on
/// its line is passed over, text in quotes is one word.
class KPFORMATS_EXPORT DeckWords
{
public:
    explicit DeckWords(const QString& path);

    /// The next word, "/" as one of its own, a text with its quotes. Valid until the next call.
    /// \returns false at the end of the file
    bool next(std::string_view& word);
    /// The word is given out again by next().
    void putBack() { m_again = true; }
    /// True when the latest word stands in the first column and looks like a keyword.
    bool isKeyword() const { return m_isKeyword; }
    /// Passes over what is left of the line and over the next one.
    void skipLine();
    /// Goes on in another file, relative to the deck's folder, and comes back at its end. \throws LoadError
    void include(const QString& name);
    TextScanner& scanner() { return *m_levels.back().scanner; }
    const TextScanner& scanner() const { return *m_levels.back().scanner; }

private:
    /// A file that is being read, the deck first.
    struct Level
    {
        std::unique_ptr<TextScanner> scanner;
        std::string_view line;
        std::size_t position = 0;
    };

    bool nextLine();

    QString m_path;
    std::vector<Level> m_levels;
    std::string_view m_word;
    bool m_isKeyword = false;
    bool m_again = false;
};

} // namespace kpFormats
