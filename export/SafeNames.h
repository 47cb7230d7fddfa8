// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QSet>
#include <QString>

namespace kpFormats
{

/// \a name as part of a file name: characters that file systems reserve become "_", letters of every script stay, at
/// most \a mostBytes bytes of UTF-8, never cut inside a character. Never empty, never a reserved device name.
KPFORMATS_EXPORT QString safeFileNamePart(const QString& name, int mostBytes = 120);

/// Gives out names that differ from each other also where case does not count.
class KPFORMATS_EXPORT UniqueNames
{
public:
    /// \a name, or the first of "name_2", "name_3" ... that has not been given out.
    QString take(const QString& name);
    /// \a name is taken, perhaps more than once.
    void reserve(const QString& name);

private:
    QSet<QString> m_taken;
    QHash<QString, int> m_next;
};

} // namespace kpFormats
