// SPDX-License-Identifier: MIT
#include "window/AttributeFigures.h"

#include <QColor>
#include <QCoreApplication>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace refhost
{

namespace
{

QString text(const char* source)
{
    return QCoreApplication::translate("AttributeFigures", source);
}

QString kindOf(AttributeKind kind, TextMeaning meaning)
{
    switch (kind) {
    case AttributeKind::Real:
        return text("number");
    case AttributeKind::Integer:
        return text("whole number");
    case AttributeKind::Boolean:
        return text("yes or no");
    case AttributeKind::Color:
        return text("colour");
    case AttributeKind::Text:
        break;
    }
    switch (meaning) {
    case TextMeaning::Date:
        return text("date");
    case TextMeaning::Time:
        return text("time");
    case TextMeaning::DateTime:
        return text("date and time");
    case TextMeaning::Plain:
        break;
    }
    return text("text");
}

QString shownVariant(AttributeKind kind, const QVariant& value)
{
    if (!value.isValid())
        return {};
    switch (kind) {
    case AttributeKind::Boolean:
        return value.toBool() ? text("yes") : text("no");
    case AttributeKind::Integer:
        return QString::number(value.toLongLong());
    case AttributeKind::Real:
        return shownNumber(value.toDouble());
    case AttributeKind::Color:
        return value.value<QColor>().name();
    case AttributeKind::Text:
        break;
    }
    return value.toString();
}

bool isMissing(const AttributeColumn& column, std::size_t row)
{
    return (column.missing && (*column.missing)[row] != 0) || !std::isfinite((*column.numbers)[row]);
}

/// Adds numbers one by one; the mean is that of all so far.
class Range
{
public:
    void add(double number)
    {
        m_least = std::min(m_least, number);
        m_most = std::max(m_most, number);
        m_mean += (number - m_mean) / static_cast<double>(++m_count);
    }
    qint64 count() const { return m_count; }
    QString shown() const
    {
        constexpr int digits = 6;
        return m_count == 0
                   ? QString()
                   : text("%1 to %2, mean %3")
                         .arg(shownNumber(m_least), shownNumber(m_most), QLocale().toString(m_mean, 'g', digits));
    }

private:
    double m_least = INFINITY;
    double m_most = -INFINITY;
    double m_mean = 0.0;
    qint64 m_count = 0;
};

} // namespace

QString shownNumber(double number)
{
    return QLocale().toString(number, 'g', QLocale::FloatingPointShortest);
}

QString shownValue(const AttributeColumn& column, int vertex)
{
    if (column.kind != AttributeKind::Real)
        return shownVariant(column.kind, column.values.value(vertex));
    const auto row = static_cast<std::size_t>(vertex);
    return isMissing(column, row) ? QString() : shownNumber((*column.numbers)[row]);
}

AttributeFigures figuresOf(const AttributeColumn& column)
{
    AttributeFigures figures{column.name, kindOf(column.kind, column.meaning), column.unit, 0, 0, {}};
    Range range;
    QSet<QString> different;
    QString first;
    if (column.kind == AttributeKind::Real) {
        for (std::size_t row = 0; row < column.numbers->size(); ++row) {
            if (!isMissing(column, row))
                range.add((*column.numbers)[row]);
        }
        figures.missing = static_cast<qint64>(column.numbers->size()) - range.count();
    } else {
        for (const QVariant& value : column.values) {
            if (!value.isValid()) {
                ++figures.missing;
            } else if (column.kind == AttributeKind::Integer) {
                range.add(static_cast<double>(value.toLongLong()));
            } else {
                const QString shown = shownVariant(column.kind, value);
                if (different.isEmpty())
                    first = shown;
                different.insert(shown);
                ++figures.values;
            }
        }
    }
    figures.values += range.count();
    figures.summary = range.shown();
    if (different.size() == 1)
        figures.summary = first;
    else if (!different.isEmpty())
        figures.summary = text("%1 different, such as %2").arg(different.size()).arg(first);
    return figures;
}

AttributeFigures figuresOf(const ObjectAttribute& attribute)
{
    const bool missing = !attribute.value.isValid();
    return {attribute.name,  kindOf(attribute.kind, attribute.meaning),    attribute.unit, missing ? 0 : 1,
            missing ? 1 : 0, shownVariant(attribute.kind, attribute.value)};
}

} // namespace refhost
