// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "geo/PositionReader.h"
#include "model/kpFormatsExport.h"

#include <vector>

namespace kpFormats
{

/// Where the vertices of an object, or of a line on a section, must be in a file: worked out from the model alone, for
/// verification.
class KPFORMATS_EXPORT ExpectedPlaces
{
public:
    /// PROJ chooses among several ways by the middle of the positions that it is given at once, so they are given
    /// \a atOnce as to the writer.
    ExpectedPlaces(const PositionSource& source, std::size_t count, const PositionRules& rules, std::size_t atOnce);

    std::size_t size() const { return m_places.size(); }
    /// False where the vertex has no place in the file and is rightly missing.
    bool has(std::size_t vertex) const { return std::isfinite(m_places[vertex][0]); }
    /// z is NaN when the height is not known.
    const Verification::Place& at(std::size_t vertex) const { return m_places[vertex]; }

private:
    std::vector<Verification::Place> m_places;
};

} // namespace kpFormats
