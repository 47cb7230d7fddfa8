// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace kpFormats
{

/// What a format takes as the name of a field.
struct FieldNameRules
{
    int mostBytes = 0;  ///< of UTF-8; 0 for no limit
    bool ascii = false; ///< only A to Z, a to z, 0 to 9 and "_"; others are spelled in these where that is known
    bool plain = false; ///< only letters and digits of any script and "_"
    bool xml = false;   ///< names of elements: as plain, in scripts that every reader of XML takes, no digit first
    bool caseMatters = false; ///< "A" and "a" are two names
    QStringList reserved;     ///< names that the format keeps for itself
};

/// A name per field, each different from all others, in the order of \a names. A name that can stay as it is stays; the
/// others are cut, never inside a character, and numbered ("porosity_1") where they would meet another.
QStringList fieldNames(const QStringList& names, const FieldNameRules& rules);

/// As much of \a text as fits into \a mostBytes of UTF-8, not cut inside a character. Everything for 0.
QString cutToBytes(const QString& text, int mostBytes);

} // namespace kpFormats
