// SPDX-License-Identifier: MIT
#include "readers/DeckWords.h"

#include "geo/LoadLimits.h"

#include <QDir>
#include <QFileInfo>

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

DeckWords::DeckWords(const QString& path)
    : m_path(path)
{
    m_levels.push_back({std::make_unique<TextScanner>(path), {}, 0});
}

void DeckWords::include(const QString& name)
{
    constexpr std::size_t mostLevels = 16;
    const QFileInfo file(QFileInfo(m_path).absoluteDir().filePath(name));
    const QString cure = QStringLiteral("check the name, relative to the folder of the deck");
    if (m_levels.size() >= mostLevels)
        scanner().fail(QStringLiteral("files include each other more than %1 levels deep").arg(mostLevels), cure);
    // A pipe or a terminal would wait for ever.
    if (!file.isFile())
        scanner().fail(QStringLiteral("the file \"%1\" to include is not there").arg(name), cure);
    if (isOutOfBounds(file.filePath()))
        scanner().fail(QStringLiteral("the file \"%1\" to include lies outside the model's folder").arg(name),
                       QStringLiteral("move it there, or add --allow-outside"));
    m_levels.push_back({std::make_unique<TextScanner>(file.filePath()), {}, 0});
}

void DeckWords::skipLine()
{
    if (nextLine())
        m_levels.back().position = m_levels.back().line.size();
}

bool DeckWords::nextLine()
{
    Level& level = m_levels.back();
    if (!level.scanner->nextLine()) {
        // The scanner has given up the memory of the last one.
        level.line = {};
        level.position = 0;
        return false;
    }
    level.line = withoutComment(level.scanner->line());
    level.position = 0;
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
    std::size_t first = m_levels.back().line.find_first_not_of(blanks, m_levels.back().position);
    while (first == std::string_view::npos) {
        if (!nextLine()) {
            if (m_levels.size() == 1)
                return false;
            m_levels.pop_back();
            first = m_levels.back().line.find_first_not_of(blanks, m_levels.back().position);
            continue;
        }
        first = m_levels.back().line.find_first_not_of(blanks);
    }
    const std::string_view line = m_levels.back().line;
    std::size_t end = first + 1;
    const char begin = line[first];
    if (begin == '/') {
        m_levels.back().position = line.size();
    } else {
        if (begin == '\'' || begin == '"') {
            end = line.find(begin, end);
            if (end == std::string_view::npos)
                scanner().fail(QStringLiteral("a text in quotes does not end"), QStringLiteral("close the quotes"));
            ++end;
        } else {
            end = std::min(line.find_first_of(" \t\r\f\v/", end), line.size());
        }
        m_levels.back().position = end;
    }
    m_word = line.substr(first, end - first);
    m_isKeyword = first == 0 && looksLikeKeyword(m_word);
    word = m_word;
    return true;
}

} // namespace kpFormats
