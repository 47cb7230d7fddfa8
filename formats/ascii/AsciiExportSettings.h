// SPDX-License-Identifier: MIT
#pragma once

#include "export/AutomaticDecimals.h"
#include "export/FileGrouping.h"
#include "formats/ascii/AsciiLayout.h"

#include <QString>

#include <optional>

namespace kpFormats
{

/// How an ASCII export looks.
struct AsciiExportSettings
{
    enum class Mode { Separated, Columns };
    enum class Separator { Blank, Tab, Comma, Semicolon, Custom };
    enum class Preset { None, Surfer, GsPlus, ArcView };
    enum class MissingZ { Blank, Null };
    enum class Quoting { Needed, All, None };

    Mode mode = Mode::Separated;                  ///< values joined by a separator, or in fixed columns
    Separator separator = Separator::Comma;       ///< between values
    QString customSeparator;                      ///< text of the custom separator
    Quoting quoting = Quoting::Needed;            ///< of texts and names between separators, by RFC 4180
    bool header = true;                           ///< a line with the names of the fields
    Preset preset = Preset::None;                 ///< header of another program; also sets the separator
    int decimals = automaticDecimals;             ///< of coordinates and real attributes; -1 for what each field needs
    MissingZ missingZ = MissingZ::Blank;          ///< in the place of an unknown height
    bool writeNullValue = true;                   ///< write nullValue for a missing number; else 0 stands there
    QString nullValue = QStringLiteral("99999");  ///< text of a missing number
    bool guardFormulas = false;                   ///< an apostrophe before what a spreadsheet would take for a formula
    bool lineBreaks = false;                      ///< object name before and an empty line after each object
    bool zIsElevation = true;                     ///< false: z is written as depth, positive down
    FileGrouping grouping = FileGrouping::Single; ///< one file, a file per object, a file per set
    std::optional<AsciiLayout> layout;            ///< the fields to write; every attribute when not set
};

} // namespace kpFormats
