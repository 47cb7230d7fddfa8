// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/FieldNames.h"
#include "model/AttributeColumn.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace kpFormats
{

/// What the files of an OGR driver can hold.
struct OgrTraits
{
    enum class Texts {
        Any,
        Xml, ///< no control characters, but tabs and line feeds
        Copy ///< of COPY lines: no carriage returns
    };

    QString driver;                   ///< its name, "ESRI Shapefile"
    QString fileKind;                 ///< for messages, "Shapefile"
    FieldNameRules names;             ///< of fields
    bool layersAsFields = false;      ///< layers have names of the same kind
    QStringList reserved;             ///< beginnings of names that a layer may not have
    int mostFields = 0;               ///< 0 for no limit
    int mostTextBytes = 0;            ///< of a text in a field; 0 for no limit
    bool sizedTexts = false;          ///< a text field has a width
    bool sizedNumbers = false;        ///< numbers are decimal text in a field of a width
    std::vector<TextMeaning> moments; ///< dates and times that have fields of their own
    bool utc = false;                 ///< such a field can say that it is in UTC; in no other zone
    Texts texts = Texts::Any;         ///< which characters have a place in a text
    bool booleans = true;             ///< false: they become 0 and 1
    bool nulls = true;                ///< false: a missing number becomes 0, a missing text an empty one
    bool emptyTexts = true;           ///< an empty text can be told from a missing one
    bool heights = true;              ///< coordinates have a z
    int digits = 0;                   ///< of real numbers that are text; 0: they are exact
    int positionDigits = 0;           ///< the same of coordinates
    int firstId = 1;                  ///< number that the driver gives the first feature
    QStringList configuration;        ///< of GDAL while it is written, "NAME=VALUE"
    QStringList readOptions;          ///< for reading what was written and no more, "NAME=VALUE"
    bool manyLayers = false;          ///< points, lines and polygons go into one file
};

} // namespace kpFormats
