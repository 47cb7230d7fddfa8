// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"
#include "model/kpFormatsExport.h"
#include "readers/DeckWords.h"

#include <vector>

namespace kpFormats
{

/// The numbers of one keyword.
struct DeckValues
{
    std::vector<double> numbers; ///< NaN where a default was asked for
    bool whole = true;           ///< every number is written without a decimal point
    bool complete = true;        ///< false: there were more than was expected, or words that are not numbers
};

/// Reads the record of a keyword up to its "/" or the next keyword. No memory is taken for more than \a most numbers.
/// \a strict: there are \a most numbers and nothing else, or LoadError is thrown.
KPFORMATS_EXPORT DeckValues readDeckValues(DeckWords& words, qint64 most, bool strict, const QString& keyword);
/// The numbers as an attribute: whole numbers as integers, defaults as missing.
KPFORMATS_EXPORT AttributeColumn deckColumn(const QString& name, DeckValues values);

} // namespace kpFormats
