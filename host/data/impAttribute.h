// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// One field of a saved layout as it stands in a format file. Texts are UTF-8.
struct impAttribute
{
    std::string label; ///< free text of the program that saved it
    std::string name;
    std::string type; ///< "int", "double", "string"
    int typeId = -5;
    int order = -1;    ///< position in the layout, 0 = first; negative = not placed yet
    int width = 10;    ///< characters, in a layout of separated fields
    int start = 0;     ///< first column, in a layout of fixed columns
    int end = 0;       ///< last column
    int precision = 2; ///< decimals
    int flags = 0;     ///< free number of the program that saved it
};
