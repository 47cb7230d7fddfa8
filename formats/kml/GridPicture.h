// SPDX-License-Identifier: MIT
#pragma once

#include "formats/kml/KmlSink.h"
#include "model/ProgressTicker.h"

#include <QImage>

#include <optional>

namespace kpFormats
{

/// A grid surface as a picture of longitudes and latitudes: heights as colours from green (low) over brown to white
/// (high), transparent where there is no value.
struct GridPicture
{
    QImage image;
    DegreeBox box;
    double lowest = 0.0;
    double highest = 0.0;
    bool coarser = false; ///< there are fewer pixels than nodes
};

/// Draws the surface; \a crs as WKT is its coordinate system. Nothing when no node has a value, when it has no place
/// on the earth, or when the user cancels. \a weight is what drawing counts for in \a ticker.
std::optional<GridPicture> drawGrid(const ModelObject& surface, const QString& crs, ProgressTicker& ticker,
                                    double weight);

} // namespace kpFormats
