// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace kpFormats
{

/// One object of a GOCAD ASCII file, as it stands there.
struct GocadObject
{
    QString type; ///< "VSet", "PLine", "TSurf", "Well"
    QString name;
    QString color; ///< as in the header, "0.8 0.2 0.1 1"
    QString unit;  ///< of the third axis
    bool zIsDepth = false;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z; ///< as written, whichever way is up
    QStringList properties;
    QStringList units;                ///< one per property
    std::vector<double> noDataValues; ///< one per property
    std::vector<std::vector<double>>
        values;                  ///< one column per property; "name_1", "name_2" where it has several numbers
    std::vector<int> lineStarts; ///< index of the first vertex of each ILINE
    std::vector<std::array<int, 2>> segments;
    std::vector<std::array<int, 3>> triangles;
    int borders = 0; ///< border stones and border lines, which are passed over

    // Of a Well:
    std::vector<double> depths; ///< along the hole, one per vertex; NaN where the file says none
    QString depthUnit;          ///< of them
    int marks = 0;              ///< markers and zones, which are passed over
    QStringList curvesLeftOut;  ///< in files of their own, or not at the depths of the vertices
};

/// Reads the vertex sets, lines, triangulated surfaces and wells of a GOCAD ASCII file, those within groups too. ATOM
/// shares another vertex's position. The path of a well is that of PATH or VRTX, else the arcs between its STATIONs.
/// The format: http://www.t-surf.com/products/developmentkit_ascii.html and
/// http://paulbourke.net/dataformats/gocad/gocad.pdf
/// \a others receives the types of objects that were passed over. \throws LoadError naming the line
KPFORMATS_EXPORT std::vector<GocadObject> readGocadObjects(const QString& path, QStringList& others);

} // namespace kpFormats
