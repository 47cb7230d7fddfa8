// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

#include <QString>

#include <cstddef>
#include <limits>
#include <vector>

namespace kpFormats
{

class CoordinateTransform;

/// Some positions, as columns.
struct PositionBlock
{
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;

    std::size_t size() const { return x.size(); }
    void resize(std::size_t count)
    {
        x.resize(count);
        y.resize(count);
        z.resize(count);
    }
};

/// Where positions come from: three columns of a model object or of a line on a section.
struct PositionSource
{
    const double* x = nullptr;
    const double* y = nullptr;
    const double* z = nullptr; ///< null: heights are 0

    static PositionSource of(const ModelObject& object)
    {
        return {object.x->data(), object.y->data(), object.hasZ ? object.z->data() : nullptr};
    }
    static PositionSource of(const SectionSegment& segment)
    {
        return {segment.x.data(), segment.y.data(), segment.z.data()};
    }
};

/// How positions change on their way to a file.
struct PositionRules
{
    const CoordinateTransform* transform = nullptr; ///< null or identity: none
    double factor = 1.0;                            ///< x and y are multiplied with this after the transform
    double heightFactor = 1.0;                      ///< and z with this
    bool needsHeight = true;                        ///< a position without a height has no place in the file
    bool geographic = false; ///< longitudes and latitudes: beyond 180 or 90 degrees there is no place
    double most = std::numeric_limits<double>::max(); ///< numbers beyond this have no place either
};

/// Takes positions to those of a file, block by block. Those that have no place there are left out and counted.
class KPFORMATS_EXPORT PositionReader
{
public:
    PositionReader(const PositionSource& source, const PositionRules& rules);

    /// Fills \a block with the next positions before vertex \a end and moves \a next on: at least \a least of them
    /// unless the end comes first. False when there are none.
    bool read(int& next, int end, PositionBlock& block, std::size_t least = 1);
    /// Fills \a block with the positions of the given vertices, in this order; those without a place are NaN.
    void gather(const int* vertices, std::size_t count, PositionBlock& block) const;
    /// How many positions read() has left out.
    qint64 leftOut() const { return m_leftOut; }
    /// The number of the first of them in the source, from 1.
    int firstLeftOut() const { return m_firstLeftOut; }

private:
    void convert(PositionBlock& block) const;

    PositionSource m_source;
    PositionRules m_rules;
    qint64 m_leftOut = 0;
    int m_firstLeftOut = 0;
    mutable PositionBlock m_scratch;
};

/// The vertex after the last of a part, without the repetition of its first in a closed ring.
KPFORMATS_EXPORT int openEnd(const ModelObject& object, const Part& part);

} // namespace kpFormats
