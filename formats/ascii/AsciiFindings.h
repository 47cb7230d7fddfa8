// SPDX-License-Identifier: MIT
#pragma once

#include "export/FindingKind.h"

/// What only this format loses or changes.
namespace kpFormats::asciiFinding
{

inline constexpr FindingKind vertexWithoutZ("vertex without z", "a vertex has no height", "%1 vertices have no height");
inline constexpr FindingKind noHeights("no z", "a vertex has no height", "%1 vertices have no height");
inline constexpr FindingKind textHoldsTheSeparator("text holds the separator",
                                                   "a text holds the separator or a quote, and is not quoted",
                                                   "%1 texts hold the separator or a quote, and are not quoted");
inline constexpr FindingKind lineEndInATextBecameABlank("line end in a text became a blank",
                                                        "a line end in a text became a blank",
                                                        "line ends in %1 texts became blanks");
inline constexpr FindingKind lineEndInANameBecameABlank("line end in a name became a blank",
                                                        "a line end in a name became a blank",
                                                        "line ends in %1 names became blanks");
inline constexpr FindingKind guardedText("text guarded against formulas", "a text got an apostrophe (guardFormulas)",
                                         "%1 texts got an apostrophe (guardFormulas)");
inline constexpr FindingKind missingValueWrittenAs0("missing value written as 0", "a missing value was written as 0",
                                                    "%1 missing values were written as 0");
inline constexpr FindingKind valueReadsAsNull("value that reads as the null value",
                                              "a value of the data reads as the null value",
                                              "%1 values of the data read as the null value");
inline constexpr FindingKind columnTooNarrow("column too narrow",
                                             "a column is too narrow for its values, which are cut",
                                             "%1 columns are too narrow for their values, which are cut");
inline constexpr FindingKind headerOfAnotherLayout("preset header of another layout",
                                                   "the preset header is not that of the layout",
                                                   "the preset header is not that of %1 layouts");
inline constexpr FindingKind fieldOfTheLayoutLeftOut("field of the layout left out",
                                                     "a field of the layout was left out",
                                                     "%1 fields of the layout were left out");

} // namespace kpFormats::asciiFinding
