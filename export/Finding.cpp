// SPDX-License-Identifier: MIT
#include "export/Finding.h"

namespace kpFormats
{

namespace
{

QString withValue(const QString& text, const QString& value)
{
    return value.isEmpty() ? text : text + QLatin1Char(' ') + value;
}

} // namespace

QString Finding::kind() const
{
    return withValue(QString::fromUtf8(sort->key), value);
}

QString Finding::text(qint64 cases) const
{
    return withValue(cases == 1 ? QString::fromUtf8(sort->one) : QString::fromUtf8(sort->several).arg(cases), value);
}

} // namespace kpFormats
