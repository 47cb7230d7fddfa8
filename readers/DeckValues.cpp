// SPDX-License-Identifier: MIT
#include "readers/DeckValues.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

/// A number of a record: "0.25", "40*0.25" or "40*".
struct Repeated
{
    qint64 count = 1;
    double value = std::numeric_limits<double>::quiet_NaN();
    bool whole = true;
};

Repeated repeatedOf(const TextScanner& scanner, std::string_view word)
{
    Repeated repeated;
    const std::size_t star = word.find('*');
    if (star != std::string_view::npos) {
        repeated.count = scanner.integer(word.substr(0, star));
        if (repeated.count < 1)
            scanner.fail(QStringLiteral("%1 repeats a number less than once").arg(quoted(word)),
                         QStringLiteral("correct the count"));
        word.remove_prefix(star + 1);
        if (word.empty())
            return repeated;
    }
    repeated.value = scanner.number(word);
    repeated.whole = word.find_first_of(".eEdD") == std::string_view::npos;
    return repeated;
}

} // namespace

DeckValues readDeckValues(DeckWords& words, qint64 most, bool strict, const QString& keyword)
{
    DeckValues values;
    std::string_view word;
    while (true) {
        if (!words.next(word)) {
            if (strict)
                words.scanner().failAtEnd(
                    QStringLiteral("%1 has %2 of %3 numbers").arg(keyword).arg(values.numbers.size()).arg(most));
            break;
        }
        if (word == "/")
            break;
        if (words.isKeyword()) {
            words.putBack();
            break;
        }
        const char first = word.front();
        const bool numeric = (first >= '0' && first <= '9') || first == '-' || first == '+' || first == '.';
        if (!strict && (!numeric || !values.complete)) {
            values.complete = false;
            continue;
        }
        const Repeated repeated = repeatedOf(words.scanner(), word);
        // Looked at before memory is taken for it.
        if (repeated.count > most - static_cast<qint64>(values.numbers.size())) {
            if (strict)
                words.scanner().fail(QStringLiteral("%1 has more than %2 numbers").arg(keyword).arg(most),
                                     QStringLiteral("correct it or the grid's size"));
            values.complete = false;
            values.numbers.clear();
            continue;
        }
        values.whole = values.whole && repeated.whole;
        values.numbers.insert(values.numbers.end(), static_cast<std::size_t>(repeated.count), repeated.value);
    }
    if (strict && static_cast<qint64>(values.numbers.size()) < most)
        words.scanner().fail(
            QStringLiteral("%1 has %2 of %3 numbers").arg(keyword).arg(values.numbers.size()).arg(most),
            QStringLiteral("correct it or the grid's size"));
    return values;
}

AttributeColumn deckColumn(const QString& name, DeckValues values)
{
    AttributeColumn column;
    column.name = name;
    column.unit = name.startsWith(QLatin1String("PERM")) ? QStringLiteral("mD") : QString();
    const auto fits = [](double number) {
        return std::isnan(number) || std::abs(number) <= std::numeric_limits<int>::max();
    };
    if (values.whole && std::all_of(values.numbers.begin(), values.numbers.end(), fits)) {
        column.kind = AttributeKind::Integer;
        column.values.reserve(static_cast<int>(values.numbers.size()));
        for (const double number : values.numbers)
            column.values.append(std::isnan(number) ? QVariant() : QVariant(static_cast<int>(number)));
    } else {
        std::vector<unsigned char> missing(values.numbers.size(), 0);
        bool any = false;
        for (std::size_t cell = 0; cell < missing.size(); ++cell) {
            if (std::isnan(values.numbers[cell])) {
                missing[cell] = 1;
                values.numbers[cell] = 0.0;
                any = true;
            }
        }
        column.numbers = std::make_shared<const std::vector<double>>(std::move(values.numbers));
        if (any)
            column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    }
    return column;
}

} // namespace kpFormats
