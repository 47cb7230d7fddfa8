// SPDX-License-Identifier: MIT
#include "readers/TableColumn.h"

#include "readers/LoadError.h"

#include <QDateTime>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr double largestExact = 9007199254740992.0; // 2^53

QString textOf(std::string_view cell)
{
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
}

bool isMissingWord(std::string_view cell)
{
    static const QStringList words{QStringLiteral("na"), QStringLiteral("n/a"), QStringLiteral("null"),
                                   QStringLiteral("#n/a")};
    return cell.size() <= 4 && words.contains(textOf(cell), Qt::CaseInsensitive);
}

bool isWhole(std::string_view cell)
{
    if (!cell.empty() && (cell.front() == '-' || cell.front() == '+'))
        cell.remove_prefix(1);
    return !cell.empty()
           && std::all_of(cell.begin(), cell.end(), [](char digit) { return digit >= '0' && digit <= '9'; });
}

/// "007" is a name, "0" and "0.5" are numbers.
bool hasLeadingZero(std::string_view cell)
{
    return cell.size() > 1 && cell.front() == '0' && isWhole(cell);
}

std::optional<bool> boolOf(std::string_view cell)
{
    const QString word = textOf(cell.substr(0, 6)).toLower();
    if (word == QLatin1String("true"))
        return true;
    if (word == QLatin1String("false"))
        return false;
    return {};
}

/// A date or time as ISO 8601; null when the text is none. "2024/02/29" is a date too, "29/02/2024" could be two.
QString isoOf(const QString& text, TextMeaning meaning)
{
    QString iso = text;
    if (meaning != TextMeaning::Time && iso.size() >= 10 && iso[4] == QLatin1Char('/') && iso[7] == QLatin1Char('/')) {
        iso[4] = QLatin1Char('-');
        iso[7] = QLatin1Char('-');
    }
    if (meaning == TextMeaning::Date)
        return iso.size() == 10 && QDate::fromString(iso, Qt::ISODate).isValid() ? iso : QString();
    if (meaning == TextMeaning::Time)
        return iso.contains(QLatin1Char(':')) && QTime::fromString(iso, Qt::ISODateWithMs).isValid() ? iso : QString();
    if (iso.size() < 16 || !(iso[10] == QLatin1Char(' ') || iso[10] == QLatin1Char('T')))
        return {};
    iso[10] = QLatin1Char('T');
    return QDateTime::fromString(iso, Qt::ISODateWithMs).isValid() ? iso : QString();
}

class ColumnReader
{
public:
    ColumnReader(const TextTable& table, int column, const std::vector<int>& rows)
        : m_table(table)
        , m_column(column)
        , m_rows(rows)
    {
    }

    AttributeColumn read(const QString& type, QStringList& notes)
    {
        const QString found = type.isEmpty() ? guess(notes) : type;
        AttributeColumn column;
        column.name = m_table.columns()[m_column];
        if (found == QLatin1String("real"))
            readReals(column);
        else if (found == QLatin1String("integer"))
            readIntegers(column);
        else if (found == QLatin1String("boolean"))
            readBooleans(column);
        else
            readTexts(column, found);
        if (m_words > 0)
            notes.append(
                QStringLiteral("column %1: %2 cells that hold no finite number are missing values; the first "
                               "is line %3, %4")
                    .arg(column.name, QString::number(m_words), QString::number(m_firstWordLine), m_firstWord));
        return column;
    }

private:
    std::string_view cell(int row) const { return m_table.cell(row, m_column); }

    [[noreturn]] void fail(int row, const QString& what) const
    {
        throw LoadError(m_table.path(),
                        QStringLiteral("line %1: \"%2\" in column %3 is not %4")
                            .arg(m_table.line(row))
                            .arg(textOf(cell(row)), m_table.columns()[m_column], what),
                        QStringLiteral("correct it, or give the column another type"));
    }

    /// The type that every cell fits.
    QString guess(QStringList& notes) const
    {
        bool any = false;
        bool number = true;
        bool finite = false;
        bool whole = true;
        bool zeros = false;
        bool boolean = true;
        bool large = false;
        for (const int row : m_rows) {
            const std::string_view text = cell(row);
            if (text.empty())
                continue;
            any = true;
            boolean = boolean && boolOf(text);
            const auto value = m_table.number(row, m_column);
            if (!value && !isMissingWord(text))
                number = false;
            if (value && std::isfinite(*value)) {
                finite = true;
                whole = whole && isWhole(text);
                zeros = zeros || hasLeadingZero(text);
                large = large || (isWhole(text) && std::abs(*value) > largestExact);
            }
            if (!number && !boolean)
                break;
        }
        if (!any)
            return QStringLiteral("text");
        if (boolean)
            return QStringLiteral("boolean");
        if (number && finite && !zeros) {
            if (large && whole) {
                notes.append(
                    QStringLiteral("column %1 has whole numbers of more than 15 digits and is kept as text, so "
                                   "that no digit is lost")
                        .arg(m_table.columns()[m_column]));
                return QStringLiteral("text");
            }
            return whole ? QStringLiteral("integer") : QStringLiteral("real");
        }
        return number && finite ? QStringLiteral("text") : guessTime();
    }

    QString guessTime() const
    {
        static const std::pair<const char*, TextMeaning> kinds[] = {
            {"date", TextMeaning::Date}, {"datetime", TextMeaning::DateTime}, {"time", TextMeaning::Time}};
        for (const auto& [name, meaning] : kinds) {
            const TextMeaning kind = meaning;
            const bool all = std::all_of(m_rows.begin(), m_rows.end(), [this, kind](int row) {
                return cell(row).empty() || (cell(row).size() < 40 && !isoOf(textOf(cell(row)), kind).isNull());
            });
            if (all)
                return QString::fromLatin1(name);
        }
        return QStringLiteral("text");
    }

    /// The finite number of the cell; none where it is missing.
    std::optional<double> finite(int row)
    {
        const std::string_view text = cell(row);
        if (text.empty())
            return {};
        const auto value = m_table.number(row, m_column);
        if (!value && !isMissingWord(text))
            fail(row, QStringLiteral("a number"));
        if (value && std::isfinite(*value))
            return value;
        if (m_words++ == 0) {
            m_firstWordLine = m_table.line(row);
            m_firstWord = textOf(text);
        }
        return {};
    }

    void readReals(AttributeColumn& column)
    {
        std::vector<double> numbers;
        std::vector<unsigned char> missing;
        numbers.reserve(m_rows.size());
        missing.reserve(m_rows.size());
        bool any = false;
        for (const int row : m_rows) {
            const auto value = finite(row);
            numbers.push_back(value.value_or(0.0));
            missing.push_back(value ? 0 : 1);
            any = any || !value;
        }
        column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
        if (any)
            column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    }

    void readIntegers(AttributeColumn& column)
    {
        const auto fits = [this](int row) {
            const auto value = m_table.number(row, m_column);
            return !value || !std::isfinite(*value) || std::abs(*value) <= std::numeric_limits<int>::max();
        };
        for (const int row : m_rows) {
            const auto value = m_table.number(row, m_column);
            if (value && std::isfinite(*value) && (*value != std::floor(*value) || std::abs(*value) > largestExact))
                fail(row, QStringLiteral("a whole number of at most 15 digits"));
        }
        if (!std::all_of(m_rows.begin(), m_rows.end(), fits)) {
            readReals(column); // which holds each of them exactly
            return;
        }
        column.kind = AttributeKind::Integer;
        column.values.reserve(static_cast<int>(m_rows.size()));
        for (const int row : m_rows) {
            const auto value = finite(row);
            column.values.append(value ? QVariant(static_cast<int>(*value)) : QVariant());
        }
    }

    void readBooleans(AttributeColumn& column) const
    {
        column.kind = AttributeKind::Boolean;
        column.values.reserve(static_cast<int>(m_rows.size()));
        for (const int row : m_rows) {
            static const QStringList yes{QStringLiteral("1"), QStringLiteral("t"), QStringLiteral("y"),
                                         QStringLiteral("yes")};
            static const QStringList no{QStringLiteral("0"), QStringLiteral("f"), QStringLiteral("n"),
                                        QStringLiteral("no")};
            if (cell(row).empty()) {
                column.values.append(QVariant());
                continue;
            }
            const QString word = textOf(cell(row)).toLower();
            const std::optional<bool> value = yes.contains(word)  ? std::optional<bool>(true)
                                              : no.contains(word) ? std::optional<bool>(false)
                                                                  : boolOf(cell(row));
            if (!value)
                fail(row, QStringLiteral("true or false"));
            column.values.append(*value);
        }
    }

    void readTexts(AttributeColumn& column, const QString& type) const
    {
        column.kind = AttributeKind::Text;
        if (type == QLatin1String("date"))
            column.meaning = TextMeaning::Date;
        else if (type == QLatin1String("time"))
            column.meaning = TextMeaning::Time;
        else if (type == QLatin1String("datetime"))
            column.meaning = TextMeaning::DateTime;
        column.values.reserve(static_cast<int>(m_rows.size()));
        for (const int row : m_rows) {
            QString text = textOf(cell(row));
            if (!text.isEmpty() && column.meaning != TextMeaning::Plain) {
                text = isoOf(text, column.meaning);
                if (text.isNull())
                    fail(row, QStringLiteral("a %1 as in ISO 8601").arg(type));
            }
            column.values.append(text.isEmpty() ? QVariant() : QVariant(text));
        }
    }

    const TextTable& m_table;
    int m_column;
    const std::vector<int>& m_rows;
    int m_words = 0; ///< cells of a column of numbers that hold a word
    int m_firstWordLine = 0;
    QString m_firstWord;
};

} // namespace

const QStringList& columnTypeNames()
{
    static const QStringList names{QStringLiteral("text"),    QStringLiteral("integer"), QStringLiteral("real"),
                                   QStringLiteral("boolean"), QStringLiteral("date"),    QStringLiteral("time"),
                                   QStringLiteral("datetime")};
    return names;
}

AttributeColumn tableColumn(const TextTable& table, int column, const std::vector<int>& rows, const QString& type,
                            QStringList& notes)
{
    return ColumnReader(table, column, rows).read(type, notes);
}

} // namespace kpFormats
