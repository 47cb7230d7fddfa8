// SPDX-License-Identifier: MIT
#pragma once

#include "model/ObjectType.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace kpFormats
{

/// How a file becomes objects. Everything is optional.
struct LoadOptions
{
    std::optional<ObjectType> type; ///< instead of the type that the geometry suggests
    QString layer;                  ///< only the layer of that name
    QString name;                   ///< name of the object, when the file holds one
    QString nameField;              ///< field that names each feature
    QString set;                    ///< set of the objects; else the layer's name
    QString color;                  ///< "#rrggbb"; else one of a palette
    QString crs;                    ///< "EPSG:n" or WKT; else the file's own
    QString lengthUnit; ///< of heights, and of x and y where the coordinate system says none; else the system's or "m"
    QString encoding;   ///< of a table of text; else told from its bytes
    QMap<QString, QString> columnTypes; ///< of columns of a table by their names; see tableColumn()
    QString x;                          ///< columns of a delimited file; else guessed from their names
    QString y;
    QString z;
    QString survey;        ///< deviation survey that belongs to a collar file
    QString dip;           ///< which way a survey's dips count: "down" or "up"; else told from their signs
    QStringList logs;      ///< tables of intervals (FROM, TO) and LAS files that belong to a collar file
    int band = 1;          ///< of a raster: which one holds the heights
    double maxDepth = 1e5; ///< survey stations deeper than this are end marks and are left out
};

/// What loading passed over or took for granted, for the user.
using LoadNotes = QStringList;

} // namespace kpFormats
