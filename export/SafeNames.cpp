// SPDX-License-Identifier: MIT
#include "export/SafeNames.h"

#include <QHash>
#include <QStringList>

namespace kpFormats
{

namespace
{

bool isReserved(QChar character)
{
    static const QString reserved = QStringLiteral("<>:\"/\\|?*");
    return character.unicode() < 0x20 || character.unicode() == 0x7f || reserved.contains(character);
}

/// Names that a file system of Windows takes for devices, with any extension.
bool isDeviceName(const QString& name)
{
    static const QStringList devices{QStringLiteral("con"), QStringLiteral("prn"), QStringLiteral("aux"),
                                     QStringLiteral("nul")};
    const QString stem = name.section(QLatin1Char('.'), 0, 0).toLower();
    const bool numbered = stem.size() == 4 && stem[3].isDigit()
                          && (stem.startsWith(QLatin1String("com")) || stem.startsWith(QLatin1String("lpt")));
    return numbered || devices.contains(stem);
}

} // namespace

QString safeFileNamePart(const QString& name, int mostBytes)
{
    QString safe = name.simplified();
    for (QChar& character : safe) {
        if (isReserved(character))
            character = QLatin1Char('_');
    }
    while (safe.toUtf8().size() > mostBytes)
        safe.chop(qAsConst(safe).back().isLowSurrogate() ? 2 : 1);
    while (safe.endsWith(QLatin1Char('.')) || safe.endsWith(QLatin1Char(' ')))
        safe.chop(1);
    if (safe.isEmpty())
        return QStringLiteral("unnamed");
    // A leading dot would hide the file.
    if (safe.startsWith(QLatin1Char('.')) || isDeviceName(safe))
        safe.prepend(QLatin1Char('_'));
    return safe;
}

QString UniqueNames::take(const QString& name)
{
    const QString folded = name.toCaseFolded();
    QString result = name;
    int& number = m_next[folded];
    while (m_taken.contains(result.toCaseFolded())) {
        number = std::max(number + 1, 2);
        result = QStringLiteral("%1_%2").arg(name).arg(number);
    }
    m_taken.insert(result.toCaseFolded());
    return result;
}

void UniqueNames::reserve(const QString& name)
{
    m_taken.insert(name.toCaseFolded());
}

} // namespace kpFormats
