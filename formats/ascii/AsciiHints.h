// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "formats/ascii/AsciiExportSettings.h"
#include "formats/ascii/AsciiProfile.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// A choice that harms the file, in words, and what would cure it.
struct KPFORMATS_EXPORT AsciiHint
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
    const FindingKind* kind = nullptr; ///< how a run tells it; null where the writing itself finds it
};

/// What the values of the chosen objects have against a layout. \a fields are laid out; the profile is done.
KPFORMATS_EXPORT std::vector<AsciiHint> asciiHints(const AsciiProfile& profile, const AsciiExportSettings& settings,
                                                   const QVector<kpBaseExport::QESAttribute>& fields);

/// Notes the hints that the writing of a layout would not find.
KPFORMATS_EXPORT void noteHints(const std::vector<const ModelObject*>& objects, const AsciiExportSettings& settings,
                                Findings& findings);

/// Characters that the longest value of a field, or its name in the header, takes.
KPFORMATS_EXPORT int widthNeeded(const AsciiProfile& profile, const AsciiExportSettings& settings,
                                 const kpBaseExport::QESAttribute& field);

/// Characters of a column that fits a field: its values, its name, and the null value, which any row may have to hold.
KPFORMATS_EXPORT int fittingWidth(const AsciiProfile& profile, const AsciiExportSettings& settings,
                                  const kpBaseExport::QESAttribute& field);

/// The separators whose texts a profile must look for.
KPFORMATS_EXPORT QStringList separatorsToLookFor(const AsciiExportSettings& settings);

} // namespace kpFormats
