// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"

#include <QString>

#include <vector>

namespace kpFormats
{

/// What a format is, for lists, dialogs and docs.
struct FormatInfo
{
    QString key;              ///< "ascii"
    QString displayName;      ///< "ASCII (delimited or fixed columns)"
    QString fileFormatName;   ///< "ASCII", in file dialogs
    QString defaultExtension; ///< "csv"
    QString patterns;         ///< "*.csv *.txt"
    std::vector<ObjectType> types;
    bool supportsAttributes = true;
    bool valuesOfFeatures = false; ///< a line or polygon has one value of an attribute, not one for each vertex
    bool takesLayout = false;      ///< Format::loadLayout() is for this format
};

} // namespace kpFormats
