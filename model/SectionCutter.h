// SPDX-License-Identifier: MIT
#pragma once

#include "model/CrossSection.h"
#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

#include <array>
#include <vector>

namespace kpFormats
{

/// Cuts objects along a trace on the map with the vertical surface that stands on it: grid surfaces by sampling them
/// at half the size of a cell, mesh surfaces triangle by triangle, lines where they cross the trace. Where a surface
/// has no value, its line is interrupted. Objects without heights have no place on a section.
class KPFORMATS_EXPORT SectionCutter
{
public:
    /// The trace has two or more points; points that repeat the one before are passed over.
    SectionCutter(const std::vector<double>& x, const std::vector<double>& y);

    /// The segments of one object; none when the trace does not meet it.
    std::vector<SectionSegment> cut(const ModelObject& object) const;

private:
    struct Leg
    {
        double x; ///< start
        double y;
        double dx; ///< to its end
        double dy;
        double length;
        double before; ///< length of the trace up to the start
    };
    struct Point
    {
        double distance;
        double x;
        double y;
        double z;
    };
    struct Piece;

    static Point pointOn(const Leg& leg, double share, double z);
    void cutGrid(const ModelObject& object, std::vector<SectionSegment>& segments) const;
    void cutLines(const ModelObject& object, std::vector<SectionSegment>& segments) const;
    void cutMesh(const ModelObject& object, std::vector<SectionSegment>& segments) const;
    static bool cutTriangle(const ModelObject& object, std::size_t triangle, const Leg& leg, long long number,
                            Piece& piece);

    std::vector<Leg> m_legs;
};

} // namespace kpFormats
