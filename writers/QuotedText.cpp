// SPDX-License-Identifier: MIT
#include "writers/QuotedText.h"

namespace kpBaseExport
{

bool needsQuotes(const QString& text, const QString& separator)
{
    return (!separator.isEmpty() && text.contains(separator)) || text.contains(QLatin1Char('"'))
           || text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'));
}

QString inQuotes(const QString& text)
{
    QString doubled = text;
    doubled.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doubled + QLatin1Char('"');
}

} // namespace kpBaseExport
