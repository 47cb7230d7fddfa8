// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

namespace kpFormats
{

/// What the files of a raster driver of GDAL are and can hold.
struct RasterTraits
{
    enum class NumberKind {
        Chosen,   ///< single or double precision
        Single,   ///< single precision
        Double,   ///< double precision
        Decimals, ///< text with chosen decimals
        Digits    ///< text of fourteen digits
    };

    QString key; ///< of the format, "geotiff"
    QString displayName;
    QString driver;         ///< its name, "GTiff"
    QString fileKind;       ///< for messages, "GeoTIFF"
    QStringList extensions; ///< the usual one first
    NumberKind numbers = NumberKind::Chosen;
    bool bands = false;                               ///< heights and attributes go into one file
    bool rotation = false;                            ///< rows need not be parallel to the axes
    bool squareCells = false;                         ///< columns and rows have one step
    bool system = false;                              ///< says its coordinate system, in the file or beside it
    bool compression = false;                         ///< there is a choice
    bool overviews = false;                           ///< coarser copies can go into the file
    bool stepsByExtent = false;                       ///< readers take the steps from where the outermost nodes are
    int mostNodes = std::numeric_limits<int>::max();  ///< along a side
    std::optional<double> null;                       ///< what stands for a missing value; nothing: it can be chosen
    double most = std::numeric_limits<double>::max(); ///< numbers beyond this cannot be written
    QStringList sidecars;                             ///< extensions of files that the driver writes beside it
    QStringList options;                              ///< for writing, "NAME=VALUE"
    QStringList readOptions;                          ///< for reading it exactly
};

} // namespace kpFormats
