// SPDX-License-Identifier: MIT
#include "readers/DeckWords.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

constexpr std::size_t longestKeyword = 8;

bool looksLikeKeyword(std::string_view word)
{
    const auto isUpper = [](char character) { return character >= 'A' && character <= 'Z'; };
    const auto isAllowed = [&](char character) {
        return isUpper(character) || (character >= '0' && character <= '9') || character == '_' || character == '-'
               || character == '+';
    };
    return !word.empty() && word.size() <= longestKeyword && isUpper(word.front())
           && std::all_of(word.begin(), word.end(), isAllowed);
}

/// The line up to a comment; two hyphens between quotes are none.
std::string_view withoutComment(std::string_view line)
{
    char quote = 0;
    for (std::size_t index = 0; index < line.size(); ++index) {
        const char character = line[index];
        if (quote != 0)
            quote = character == quote ? '\0' : quote;
        else if (character == '\'' || character == '"')
            quote = character;
        else if (character == '-' && index + 1 < line.size() && line[index + 1] == '-')
            return line.substr(0, index);
    }
    return line;
}

} // namespace

bool DeckWords::nextLine()
{
    if (!m_scanner.nextLine())
        return false;
    m_line = withoutComment(m_scanner.line());
    m_position = 0;
    return true;
}

bool DeckWords::next(std::string_view& word)
{
    if (m_again) {
        m_again = false;
        word = m_word;
        return true;
    }
    constexpr std::string_view blanks = " \t\r\f\v";
    std::size_t first = m_line.find_first_not_of(blanks, m_position);
    while (first == std::string_view::npos) {
        if (!nextLine())
            return false;
        first = m_line.find_first_not_of(blanks);
    }
    std::size_t end = first + 1;
    const char begin = m_line[first];
    if (begin == '/') {
        m_position = m_line.size();
    } else {
        if (begin == '\'' || begin == '"') {
            end = m_line.find(begin, end);
            if (end == std::string_view::npos)
                m_scanner.fail(QStringLiteral("a text in quotes does not end"), QStringLiteral("close the quotes"));
            ++end;
        } else {
            end = std::min(m_line.find_first_of(" \t\r\f\v/", end), m_line.size());
        }
        m_position = end;
    }
    m_word = m_line.substr(first, end - first);
    m_isKeyword = first == 0 && looksLikeKeyword(m_word);
    word = m_word;
    return true;
}

} // namespace kpFormats
