// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <array>
#include <vector>

namespace kpFormats
{

/// A cross-section as an OpenTecLink file holds it. Lengths in metres, depths positive downwards.
struct KPFORMATS_EXPORT OpenTecSection
{
    struct Segment
    {
        QString name;
        QString color; ///< "#rrggbb"
        QString type;
        std::vector<std::array<double, 3>> points; ///< along the section, across it, depth
    };

    QString name;
    double age = 0.0;
    std::vector<std::array<double, 2>> trace; ///< positions of the section on the map
    std::vector<Segment> segments;
};

/// Reads a file of one section.
/// \throws LoadError naming the line
KPFORMATS_EXPORT OpenTecSection readOpenTec(const QString& path);

} // namespace kpFormats
