// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrExpectedPlaces.h"
#include "formats/ogr/OgrLayers.h"

#include <functional>
#include <vector>

namespace kpFormats
{

/// A feature that must be in a file: a point, or lines or rings, as vertices of an object.
struct OgrExpectedFeature
{
    struct Figure
    {
        std::vector<std::size_t> vertices; ///< a ring without the repetition of its first
        bool ring = false;
        bool hole = false;
    };

    std::vector<Figure> figures;
    qint64 number = 0; ///< in the object, from 1

    /// The vertex of a point.
    std::size_t vertex() const { return figures.front().vertices.front(); }
};

/// Calls \a look with each feature that an object must have made, until it returns false. What has no place in the
/// output's system is expected to be missing, and with it the lines and rings of which too little is left.
void forEachExpectedFeature(const OgrLayer& layer, const OgrExpectedPlaces& places,
                            const std::function<bool(const OgrExpectedFeature&)>& look);

} // namespace kpFormats
