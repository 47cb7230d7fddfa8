// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExpectedPlaces.h"
#include "export/ExportSelection.h"
#include "formats/kml/KmlExportSettings.h"
#include "geo/TransformCache.h"

#include <functional>
#include <vector>

namespace kpFormats
{

/// A placemark or overlay that must be in a document.
struct KmlExpectedFeature
{
    enum Kind { Point, Line, Outer, Hole };
    struct Figure
    {
        Kind kind = Point;
        std::vector<Verification::Place> places; ///< a ring ends with its first place
    };

    QString name;
    const ModelObject* object = nullptr; ///< whose attributes go with it; null for none
    int vertex = -1;                     ///< whose attributes go with it
    QColor colour;
    bool hasHeights = false;
    bool isOverlay = false; ///< a picture; its one figure is the box around it
    std::vector<Figure> figures;
};

/// What a document must hold, worked out from the model alone. What has no place on the earth is expected to be missing.
class KmlExpectation
{
public:
    using Look = std::function<void(const KmlExpectedFeature&)>;

    explicit KmlExpectation(const KmlExportSettings& settings);

    /// Calls \a look with each feature of an object.
    void eachOf(const ModelObject& object, const Look& look);
    /// The rectangle around everything; no figure where there is none.
    KmlExpectedFeature boundsOf(const std::vector<const ModelObject*>& objects);

private:
    ExpectedPlaces placesOf(const ModelObject& object, const PositionSource& source, std::size_t count,
                            bool needsHeight, std::size_t atOnce = 2048);
    KmlExpectedFeature featureOf(const ModelObject& object) const;
    void eachPoint(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const;
    void lookAtLines(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const;
    void lookAtAreas(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const;
    void lookAtWell(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const;
    void lookAtMesh(const ModelObject& object, const Look& look);
    void lookAtSurface(const ModelObject& object, const Look& look);
    void lookAtSection(const ModelObject& object, const Look& look);

    const KmlExportSettings& m_settings;
    QString m_ownSystem;
    TransformCache m_transforms;
};

} // namespace kpFormats
