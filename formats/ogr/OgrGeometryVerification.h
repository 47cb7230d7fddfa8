// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrExpectedFeature.h"

#include <ogrsf_frmts.h>

namespace kpFormats
{

/// Compares the geometry of features: kind, heights, parts, rings, holes and every position.
class OgrGeometryVerification
{
public:
    /// What a driver does to geometries without losing anything.
    struct Habits
    {
        bool keepsRings = true; ///< rings come back in order, holes as holes
        bool cutsAt180 = false; ///< lines and areas across 180 degrees come back in parts that end there
    };

    OgrGeometryVerification(const Habits& habits, Verification& result)
        : m_habits(habits)
        , m_result(result)
    {
    }

    void compare(const OGRGeometry* geometry, const OgrExpectedFeature& feature, const OgrExpectedPlaces& places,
                 bool hasZ);

private:
    struct Curve
    {
        const OGRSimpleCurve* points;
        bool hole;
    };

    static void collect(const OGRGeometry& geometry, std::vector<Curve>& curves);
    QString where(std::size_t vertex) const;
    Verification::Place expected(std::size_t vertex) const;
    static Verification::Place placeOf(const OGRSimpleCurve& curve, std::size_t index);
    bool near(const Verification::Place& a, const Verification::Place& b) const;
    void comparePlace(std::size_t vertex, const Verification::Place& read);
    bool sameShape(const OgrExpectedFeature& feature, const std::vector<Curve>& curves) const;
    void compareFigure(const OGRSimpleCurve& curve, const OgrExpectedFeature::Figure& figure);
    void takeFitting(std::vector<Curve>& curves, std::size_t index, const OgrExpectedFeature::Figure& figure) const;
    bool crosses180(const OgrExpectedFeature& feature) const;
    void compareCut(const OgrExpectedFeature& feature, const std::vector<Curve>& curves);
    void tellShape(const OgrExpectedFeature& feature, const std::vector<Curve>& curves);

    Habits m_habits;
    Verification& m_result;
    const OgrExpectedPlaces* m_places = nullptr;
    bool m_hasZ = false;
};

} // namespace kpFormats
