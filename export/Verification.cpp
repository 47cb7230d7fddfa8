// SPDX-License-Identifier: MIT
#include "export/Verification.h"

#include <QJsonArray>
#include <QLocale>

#include <algorithm>

namespace kpFormats
{

namespace
{

constexpr int longestQuotation = 60;

void addCount(QStringList& list, qint64 count, const char* one, const char* several)
{
    if (count > 0)
        list.append(QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : several)));
}

QString measure(double length, const QString& unit)
{
    const QString number = QString::number(length, 'g', 3);
    if (unit == QLatin1String("degrees") && length > 0) {
        // The longest degree of WGS 84, of latitude at a pole.
        constexpr double metresPerDegree = 111694.0;
        return QStringLiteral("%1 degrees (up to %2 m)").arg(number).arg(length * metresPerDegree, 0, 'g', 2);
    }
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

} // namespace

Verification::Verification(const QString& reader, const Allowance& positions)
    : Verification(reader, positions, positions)
{
}

Verification::Verification(const QString& reader, double allowed, const LengthFactors& factors)
    : Verification(reader, {allowed, factors.flatUnit}, {allowed, factors.heightUnit})
{
}

Verification::Verification(const QString& reader, const Allowance& positions, const Allowance& heights)
    : m_reader(reader)
    , m_allowed(positions)
    , m_heights(heights)
{
}

bool Verification::compareCount(const QString& where, const QString& what, qint64 expected, qint64 read)
{
    if (expected != read)
        fail(QStringLiteral("%1: %2 %3 were read instead of %4").arg(where).arg(read).arg(what).arg(expected));
    return expected == read;
}

bool Verification::compareSame(const QString& what, const QString& where, const QString& expected, const QString& read)
{
    alsoCompared(what);
    if (expected != read)
        fail(unlike(where + QStringLiteral(", ") + what, quoted(expected), quoted(read)));
    return expected == read;
}

void Verification::fail(const QString& fault)
{
    if (m_fault.isEmpty())
        m_fault = fault;
}

void Verification::alsoCompared(const QString& what)
{
    if (!m_others.contains(what))
        m_others.append(what);
}

QString Verification::fault() const
{
    if (m_fault.isEmpty() && m_positions + m_values + m_texts + m_nulls == 0)
        return QStringLiteral("nothing in it could be compared");
    return m_fault;
}

QString Verification::comparedText() const
{
    QStringList list;
    addCount(list, m_positions, "position", "positions");
    addCount(list, m_values, "value", "values");
    addCount(list, m_texts, "text", "texts");
    addCount(list, m_nulls, "missing value", "missing values");
    return (list + m_others).join(QStringLiteral(", "));
}

QString Verification::worstText() const
{
    if (m_heights.unit == m_allowed.unit) {
        // The one that comes nearer to what it is allowed.
        const bool high = m_worstHeight.difference * m_allowed.most > m_worst.difference * m_heights.most
                          || (m_allowed.most == 0 && m_worstHeight.difference > m_worst.difference);
        const Allowance& allowance = high ? m_heights : m_allowed;
        return QStringLiteral("worst difference %1 of %2 allowed")
            .arg(measure((high ? m_worstHeight : m_worst).difference, allowance.unit),
                 measure(allowance.most, allowance.unit));
    }
    return QStringLiteral("worst difference %1 of %2 allowed, of heights %3 of %4")
        .arg(measure(m_worst.difference, m_allowed.unit), measure(m_allowed.most, m_allowed.unit),
             measure(m_worstHeight.difference, m_heights.unit), measure(m_heights.most, m_heights.unit));
}

QJsonObject Verification::toJson() const
{
    const auto entry = [](const Worst& worst, const Allowance& allowance) {
        return QJsonObject{{QStringLiteral("difference"), worst.difference},
                           {QStringLiteral("allowed"), allowance.most},
                           {QStringLiteral("unit"), allowance.unit},
                           {QStringLiteral("where"), worst.place}};
    };
    return {{QStringLiteral("reader"), m_reader},
            {QStringLiteral("positions"), m_positions},
            {QStringLiteral("values"), m_values},
            {QStringLiteral("texts"), m_texts},
            {QStringLiteral("missing"), m_nulls},
            {QStringLiteral("others"), QJsonArray::fromStringList(m_others)},
            {QStringLiteral("worstPosition"), entry(m_worst, m_allowed)},
            {QStringLiteral("worstHeight"), entry(m_worstHeight, m_heights)},
            {QStringLiteral("fault"), fault()}};
}

QString Verification::shown(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString Verification::quoted(const QString& text)
{
    return QLatin1Char('"')
           + (text.size() > longestQuotation ? text.left(longestQuotation) + QStringLiteral("...") : text)
           + QLatin1Char('"');
}

QString Verification::unlike(const QString& where, const QString& expected, const QString& read)
{
    return QStringLiteral("%1: %2 was read instead of %3").arg(where, read, expected);
}

QString Verification::apart(const QString& where, const Place& expected, const Place& read)
{
    QStringList lists[2];
    double worst = 0;
    for (std::size_t axis = 0; axis < expected.size(); ++axis) {
        if (std::isnan(expected[axis]) && std::isnan(read[axis]))
            continue;
        lists[0].append(shown(expected[axis]));
        lists[1].append(shown(read[axis]));
        worst = std::max(worst, std::abs(read[axis] - expected[axis]));
    }
    return QStringLiteral("%1: (%2) was read instead of (%3), %4 off")
        .arg(where, lists[1].join(QStringLiteral(", ")), lists[0].join(QStringLiteral(", ")))
        .arg(worst, 0, 'g', 3);
}

} // namespace kpFormats
