// SPDX-License-Identifier: MIT
#include "export/FindingText.h"

#include <algorithm>
#include <iterator>

namespace kpFormats
{

namespace
{

struct Phrase
{
    const char* kind; ///< one that ends in a blank is followed by a value
    const char* one;
    const char* several;
};

constexpr Phrase phrases[] = {
    {"renamed", "a name was changed", "%1 names were changed"},
    {"renamed file", "the file is named differently", "%1 files are named differently"},
    {"left out on loading", "something was left out on loading", "%1 things were left out on loading"},
    {"not verified", "a file was not read again", "%1 files were not read again"},
    {"object of a type that the format does not take",
     "an object was left out because the format does not take its type",
     "%1 objects were left out because the format does not take their types"},
    {"object left out", "the object was left out", "%1 objects were left out"},
    {"object without a position left out", "the object was left out because it has no position",
     "%1 objects were left out because they have no position"},
    {"object without heights written at height 0", "the object has no heights and was written at height 0",
     "%1 objects have no heights and were written at height 0"},
    {"surface left out", "the surface was left out", "%1 surfaces were left out"},
    {"surface written as a picture", "the surface was written as a picture", "%1 surfaces were written as pictures"},
    {"picture coarser than the grid", "the picture is coarser than the grid",
     "%1 pictures are coarser than their grids"},
    {"section without lines", "the section has no lines", "%1 sections have no lines"},
    {"grid without any value", "the grid has no value at any node", "%1 grids have no value at any node"},
    {"name and colour not written", "the name and colour were not written",
     "the names and colours of %1 objects were not written"},
    {"position left out", "a position was left out", "%1 positions were left out"},
    {"vertex without a position left out", "a vertex without a position was left out",
     "%1 vertices without a position were left out"},
    {"vertex without z", "a vertex has no height", "%1 vertices have no height"},
    {"no z", "a vertex has no height", "%1 vertices have no height"},
    {"z dropped", "the height of a vertex was left out", "the heights of %1 vertices were left out"},
    {"unknown height written as 0", "an unknown height was written as 0", "%1 unknown heights were written as 0"},
    {"node without a height left out", "a node without a height was left out",
     "%1 nodes without a height were left out"},
    {"triangle left out", "a triangle was left out", "%1 triangles were left out"},
    {"triangle without a position left out", "a triangle was left out because a corner has no position",
     "%1 triangles were left out because a corner has no position"},
    {"cell without values", "a cell without values was left out", "%1 cells without values were left out"},
    {"corner of an inactive cell without a depth written as 0",
     "a corner of an inactive cell has no depth and was written as 0",
     "%1 corners of inactive cells have no depth and were written as 0"},
    {"line of fewer than two points left out", "a line of fewer than two points was left out",
     "%1 lines of fewer than two points were left out"},
    {"ring of fewer than three points left out", "a ring of fewer than three points was left out",
     "%1 rings of fewer than three points were left out"},
    {"ring closed", "an open ring was closed", "%1 open rings were closed"},
    {"boundary left out", "a boundary line was left out", "%1 boundary lines were left out"},
    {"line on a section left out", "a line on the section was left out", "%1 lines on sections were left out"},
    {"transformed", "a vertex was taken to another coordinate system",
     "%1 vertices were taken to another coordinate system"},
    {"coordinate system assumed", "a coordinate system was assumed",
     "the coordinate systems of %1 objects were assumed"},
    {"coordinate system not carried", "the coordinate system was not written",
     "%1 coordinate systems were not written"},
    {"coordinate systems differ", "an object has another coordinate system",
     "the objects have %1 different coordinate systems"},
    {"coordinates on a grid", "a position was rounded to the grid of the table",
     "%1 positions were rounded to the grid of the table"},
    {"coordinates rounded", "the coordinates were rounded", "the coordinates of %1 files were rounded"},
    {"length units differ", "an object has another unit of length", "the objects have %1 different units of length"},
    {"length unit changed", "the unit of length was changed", "the units of length of %1 objects were changed"},
    {"unit not stated", "the file does not say the unit of length", "%1 files do not say the unit of length"},
    {"unit not carried", "the unit of an attribute was not written", "the units of %1 attributes were not written"},
    {"larger than 2 GB", "a part of the file is larger than 2 GB", "%1 parts of files are larger than 2 GB"},
    {"missing attribute", "an attribute is missing", "%1 attributes are missing"},
    {"attribute left out", "an attribute was left out", "%1 attributes were left out"},
    {"attribute not written", "an attribute was not written", "%1 attributes were not written"},
    {"attribute of vertices not written", "an attribute of the vertices was not written",
     "%1 attributes of vertices were not written"},
    {"attribute of vertices not carried", "an attribute of the vertices was not written",
     "%1 attributes of vertices were not written"},
    {"attribute that is no number left out", "an attribute was left out because it is no number",
     "%1 attributes were left out because they are no numbers"},
    {"attribute text changed", "the text of an attribute was changed", "the texts of %1 attributes were changed"},
    {"the format has no attributes; left out", "an attribute was left out because the format has none",
     "%1 attributes were left out because the format has none"},
    {"a grid file holds one value per node; attributes left out",
     "an attribute was left out because a grid file holds one value per node",
     "%1 attributes were left out because a grid file holds one value per node"},
    {"yes or no written as 1 or 0", "an attribute of yes and no was written as 1 and 0",
     "%1 attributes of yes and no were written as 1 and 0"},
    {"type has Horizontal or Vertical before it", "a text of the field type has Horizontal or Vertical before it",
     "%1 texts of the field type have Horizontal or Vertical before them"},
    {"text holds the separator", "a text holds the separator", "%1 texts hold the separator"},
    {"text changed", "a text was changed", "%1 texts were changed"},
    {"text cut", "a text was cut", "%1 texts were cut"},
    {"texts of several scripts", "the texts are of several scripts", "the texts of %1 files are of several scripts"},
    {"line end in a text became a blank", "a line end in a text became a blank", "line ends in %1 texts became blanks"},
    {"line end in a name became a blank", "a line end in a name became a blank", "line ends in %1 names became blanks"},
    {"empty text, read back as missing", "an empty text will be read as a missing one",
     "%1 empty texts will be read as missing ones"},
    {"missing text written as an empty one", "a missing text was written as an empty one",
     "%1 missing texts were written as empty ones"},
    {"missing number written as 0", "a missing number was written as 0", "%1 missing numbers were written as 0"},
    {"missing value written as 0", "a missing value was written as 0", "%1 missing values were written as 0"},
    {"missing value of an active cell written as ", "a missing value of an active cell was written as ",
     "%1 missing values of active cells were written as "},
    {"number rounded", "a number was rounded", "%1 numbers were rounded"},
    {"number that is not finite written as missing", "a number that is not finite was written as missing",
     "%1 numbers that are not finite were written as missing"},
    {"number wider than its field, written as missing", "a number too wide for its field was written as missing",
     "%1 numbers too wide for their fields were written as missing"},
    {"value equal to the null value", "a value is equal to the null value", "%1 values are equal to the null value"},
    {"colour changed", "a colour was changed", "%1 colours were changed"},
    {"colour not carried", "a colour was not written", "%1 colours were not written"},
    {"layer renamed", "a layer is named differently", "%1 layers are named differently"},
    {"changed by the driver", "the driver made a change", "the driver made %1 changes"},
};

bool isOf(const Phrase& phrase, const QString& kind)
{
    const QLatin1String known(phrase.kind);
    return known.endsWith(QLatin1Char(' ')) ? kind.startsWith(known) : kind == known;
}

} // namespace

QString findingText(const QString& kind, qint64 count)
{
    const auto* phrase = std::find_if(std::begin(phrases), std::end(phrases),
                                      [&kind](const Phrase& entry) { return isOf(entry, kind); });
    if (phrase == std::end(phrases))
        return QStringLiteral("%1: %2").arg(kind).arg(count);
    const QString value = kind.mid(static_cast<int>(qstrlen(phrase->kind)));
    return (count == 1 ? QString::fromLatin1(phrase->one) : QString::fromLatin1(phrase->several).arg(count)) + value;
}

} // namespace kpFormats
