// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExpectedPlaces.h"
#include "formats/dxf/DxfExportSettings.h"
#include "formats/dxf/DxfText.h"
#include "geo/OutputRules.h"

#include <functional>
#include <vector>

namespace kpFormats
{

/// An entity that must be in a drawing.
struct DxfExpectedEntity
{
    enum Kind { Point, Text, Line, Face };

    Kind kind = Point;
    std::vector<Verification::Place> places; ///< what is closed ends with its first place
};

/// What all entities of an object share.
struct DxfExpectedObject
{
    const ModelObject* object = nullptr;
    QString layer;
    int colour = 7; ///< of the current entity
    int decimals = 4;
};

/// What a drawing must hold, worked out from the model alone. What has no place in it is expected to be missing.
class DxfExpectation
{
public:
    using Look = std::function<void(const DxfExpectedObject&, const DxfExpectedEntity&)>;

    /// All outlive the expectation.
    DxfExpectation(const std::vector<const ModelObject*>& objects, const DxfExportSettings& settings);

    /// Calls \a look with each entity, in the order of the file.
    void each(const Look& look);
    bool isFlat() const { return m_settings.dimension != DxfExportSettings::Dimension::ThreeD; }

private:
    ExpectedPlaces placesOf(const PositionSource& source, std::size_t count, const ModelObject& object,
                            std::size_t atOnce);
    Verification::Place drawn(const Verification::Place& place) const;
    void findPlane();
    void eachOf(const ModelObject& object);
    void lookAt(DxfExpectedEntity::Kind kind, std::vector<Verification::Place> places);
    bool lookAtLine(const ExpectedPlaces& places, int first, int end, bool closed);
    void lookAtPoints(const ModelObject& object, bool points, bool names);
    void lookAtSurface(const ModelObject& object);
    void lookAtSection(const ModelObject& object);

    const std::vector<const ModelObject*>& m_objects;
    const DxfExportSettings& m_settings;
    OutputRules m_rules;
    DxfLayerNames m_layers;
    DxfExpectedObject m_current;
    const Look* m_look = nullptr;
    Verification::Place m_origin{};              ///< of a drawing seen from the side
    std::array<double, 2> m_direction{1.0, 0.0}; ///< of its x on the map
};

} // namespace kpFormats
