// SPDX-License-Identifier: MIT
#pragma once

#include "geo/PositionReader.h"

#include <array>
#include <string>

namespace kpFormats
{

/// Takes the entities of a drawing one by one.
class DxfSink
{
public:
    /// What all entities share until it is set anew.
    struct Pen
    {
        std::string layer; ///< as it stands in the file
        int colour = 7;    ///< colour index
        int decimals = 4;  ///< of x and y
        bool flat = false; ///< two-dimensional: z is not used
    };
    using Corner = std::array<double, 3>;

    virtual ~DxfSink() = default;

    virtual void setPen(const Pen& pen) = 0;
    /// A remark that no reader shows; \a text as it stands in the file.
    virtual void comment(const std::string& text) = 0;
    virtual void point(const Corner& place) = 0;
    /// \a text as it stands in the file.
    virtual void text(const Corner& place, double height, const std::string& text) = 0;
    virtual void beginLine(bool closed) = 0;
    /// More vertices of the line that is open.
    virtual void positions(const PositionBlock& block) = 0;
    virtual void endLine() = 0;
    /// A face of four corners; a triangle repeats its last.
    virtual void face(const std::array<Corner, 4>& corners) = 0;
    /// False when there is no use in going on.
    virtual bool good() const { return true; }
};

} // namespace kpFormats
