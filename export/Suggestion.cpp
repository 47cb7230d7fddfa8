// SPDX-License-Identifier: MIT
#include "export/Suggestion.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace kpFormats
{

namespace
{

constexpr int longestWord = 64;
constexpr int mostNames = 3;

/// The least number of letters to add, take, change or swap with the next one that makes \a one into \a other.
int editDistance(const QString& one, const QString& other)
{
    std::vector<int> beforeLast;
    std::vector<int> last;
    std::vector<int> now(static_cast<std::size_t>(other.size() + 1));
    for (std::size_t column = 0; column < now.size(); ++column)
        now[column] = static_cast<int>(column);
    for (int row = 1; row <= one.size(); ++row) {
        beforeLast = last;
        last = now;
        now[0] = row;
        for (int column = 1; column <= other.size(); ++column) {
            const std::size_t at = static_cast<std::size_t>(column);
            const bool same = one[row - 1] == other[column - 1];
            now[at] = std::min({last[at] + 1, now[at - 1] + 1, last[at - 1] + (same ? 0 : 1)});
            if (row > 1 && column > 1 && one[row - 1] == other[column - 2] && one[row - 2] == other[column - 1])
                now[at] = std::min(now[at], beforeLast[at - 2] + 1);
        }
    }
    return now.back();
}

/// The names that are nearest to the word, if any is near.
QStringList nearestNames(const QString& word, const QStringList& names)
{
    QStringList nearest;
    if (word.isEmpty() || word.size() > longestWord)
        return nearest;
    const QString folded = word.toCaseFolded();
    int least = std::max(1, word.size() / 3);
    for (const QString& name : names) {
        if (std::abs(name.size() - word.size()) > least)
            continue;
        const int distance = editDistance(folded, name.toCaseFolded());
        if (distance < least)
            nearest.clear();
        if (distance <= least)
            nearest.append(name);
        least = std::min(least, distance);
    }
    constexpr int shortestBeginning = 3;
    if (nearest.isEmpty() && word.size() >= shortestBeginning) {
        for (const QString& name : names) {
            if (name.startsWith(word, Qt::CaseInsensitive))
                nearest.append(name);
        }
    }
    return nearest.mid(0, mostNames);
}

} // namespace

QString suggestionFor(const QString& word, const QStringList& names, const QString& otherwise)
{
    const QStringList nearest = nearestNames(word, names);
    return nearest.isEmpty() ? otherwise : QStringLiteral("did you mean %1?").arg(nearest.join(QStringLiteral(" or ")));
}

} // namespace kpFormats
