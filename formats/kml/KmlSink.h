// SPDX-License-Identifier: MIT
#pragma once

#include "formats/kml/KmlExportSettings.h"
#include "geo/PositionReader.h"

#include <QColor>
#include <QString>

namespace kpFormats
{

// A millionth of a degree is a tenth of a metre; nine decimals keep a tenth of a millimetre.
inline constexpr int kmlDegreeDecimals = 9;
inline constexpr int kmlHeightDecimals = 3; ///< of metres

/// A rectangle on the earth, in degrees.
struct DegreeBox
{
    double north = 0.0;
    double south = 0.0;
    double east = 0.0;
    double west = 0.0;
};

/// Takes a KML document piece by piece, in document order. Positions are longitudes, latitudes (WGS 84) and metres.
class KmlSink
{
public:
    /// How a placemark is drawn.
    enum class Look { Line, Area, Icon, Label, Trace, Bounds };

    virtual ~KmlSink() = default;

    virtual void beginFolder(const QString& name) = 0;
    virtual void endFolder() = 0;
    /// The altitude mode counts for every geometry of the placemark.
    virtual void beginPlacemark(const QString& name, const QString& description, Look look, const QColor& colour,
                                KmlExportSettings::AltitudeMode mode) = 0;
    virtual void endPlacemark() = 0;
    /// Several geometries in one placemark.
    virtual void beginMulti() = 0;
    virtual void endMulti() = 0;
    virtual void point(double longitude, double latitude, double height) = 0;
    virtual void beginLine() = 0;
    virtual void endLine() = 0;
    /// Rings are closed by the sink.
    virtual void beginPolygon() = 0;
    virtual void beginRing(bool hole) = 0;
    virtual void endRing() = 0;
    virtual void endPolygon() = 0;
    /// More positions of the line or ring that is open.
    virtual void positions(const PositionBlock& block) = 0;
    /// A picture laid on the ground.
    virtual void overlay(const QString& name, const QString& description, const QString& picture,
                         const DegreeBox& box) = 0;
};

} // namespace kpFormats
