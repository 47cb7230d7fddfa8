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
    QString type; ///< "VSet", "PLine", "TSurf"
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
};

/// Reads the vertex sets, lines and triangulated surfaces of a GOCAD ASCII file. ATOM shares another vertex's position.
/// The format: http://www.t-surf.com/products/developmentkit_ascii.html and
/// http://paulbourke.net/dataformats/gocad/gocad.pdf
/// \a others receives the types of objects that were passed over. \throws LoadError naming the line
KPFORMATS_EXPORT std::vector<GocadObject> readGocadObjects(const QString& path, QStringList& others);

} // namespace kpFormats
