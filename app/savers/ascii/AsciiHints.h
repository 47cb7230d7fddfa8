// SPDX-License-Identifier: MIT
#pragma once

#include "app/savers/ascii/AsciiExportSettings.h"
#include "app/savers/ascii/AsciiProfile.h"

namespace refhost
{

/// A choice that harms the file, in words, and what would cure it.
struct AsciiHint
{
    enum Cure {
        None,
        UseSeparator, ///< number: the AsciiExportSettings::Separator
        UseColumns,   ///< fixed columns in place of a separator
        UseNullValue, ///< text: another null value
        WriteNull,    ///< switch the null value on
        Widen,        ///< field: row; number: the width that its values need
        UseDecimals,  ///< number: decimals of X, Y and Z
        NoPreset
    };

    QString text;
    QString cureText; ///< on the button; empty when there is no cure
    Cure cure = None;
    int field = -1;
    int number = 0;
    QString newText;
};

/// What the values of the chosen objects have against a layout. \a fields are laid out; the profile is done.
std::vector<AsciiHint> asciiHints(const AsciiProfile& profile, const AsciiExportSettings& settings,
                                  const QVector<kpBaseExport::QESAttribute>& fields);

/// Characters that the longest value of a field, or its name in the header, takes.
int widthNeeded(const AsciiProfile& profile, const AsciiExportSettings& settings,
                const kpBaseExport::QESAttribute& field);

/// The separators whose texts a profile must look for.
QStringList separatorsToLookFor(const AsciiExportSettings& settings);

} // namespace refhost
