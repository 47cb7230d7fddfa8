// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kpBaseExport
{

/// How the user spreads the chosen objects over files.
struct FileGroupingChoice
{
    bool multipleFiles = false; ///< several files in a directory instead of one file
    QString prefix;             ///< stands in front of the name of each of several files; may be empty
    bool perObject = false;     ///< a file for each object instead of one for each set
    QString setType;            ///< which kind of set divides the objects, when perObject is false
};

} // namespace kpBaseExport
