// SPDX-License-Identifier: MIT
#include "geo/GdalWarnings.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

constexpr std::size_t mostKinds = 10;

thread_local GdalWarnings* innermost = nullptr;

QString withoutNumbers(const QString& text)
{
    QString pattern;
    for (const QChar character : text) {
        if (!character.isDigit())
            pattern += character;
        else if (!pattern.endsWith(QLatin1Char('#')))
            pattern += QLatin1Char('#');
    }
    return pattern;
}

} // namespace

GdalWarnings::GdalWarnings()
    : m_outer(innermost)
{
    innermost = this;
}

GdalWarnings::~GdalWarnings()
{
    innermost = m_outer;
}

QStringList GdalWarnings::lines() const
{
    QStringList lines;
    for (const Kind& kind : m_kinds) {
        lines.append(kind.count == 1
                         ? QStringLiteral("GDAL warned: %1").arg(kind.first)
                         : QStringLiteral("GDAL warned %1 times, first: %2").arg(kind.count).arg(kind.first));
    }
    if (m_others > 0)
        lines.append(QStringLiteral("GDAL warned of other things, %1 times").arg(m_others));
    return lines;
}

void GdalWarnings::note(const char* message)
{
    const QString text = QString::fromUtf8(message).simplified();
    // Before GDAL knows which driver it is, each is offered the options of all.
    if (!innermost || text.contains(QLatin1String("does not support open option")))
        return;
    const QString pattern = withoutNumbers(text);
    std::vector<Kind>& kinds = innermost->m_kinds;
    const auto known =
        std::find_if(kinds.begin(), kinds.end(), [&pattern](const Kind& kind) { return kind.pattern == pattern; });
    if (known != kinds.end())
        ++known->count;
    else if (kinds.size() < mostKinds)
        kinds.push_back({pattern, text, 1});
    else
        ++innermost->m_others;
}

} // namespace kpFormats
