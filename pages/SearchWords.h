// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <algorithm>

namespace kpFormats
{

/// What a search box asks for: every word of it, in whatever case.
class SearchWords
{
public:
    explicit SearchWords(const QString& text = QString())
        : m_words(text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
    {
    }

    bool isEmpty() const { return m_words.isEmpty(); }
    /// Whether each word is in one of the texts.
    bool areIn(const QStringList& texts) const
    {
        return std::all_of(m_words.begin(), m_words.end(), [&texts](const QString& word) {
            return std::any_of(texts.begin(), texts.end(),
                               [&word](const QString& text) { return text.contains(word, Qt::CaseInsensitive); });
        });
    }

private:
    QStringList m_words;
};

} // namespace kpFormats
