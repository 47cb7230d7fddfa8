// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <memory>
#include <vector>

class OGRCoordinateTransformation;

namespace kpFormats
{

/// Takes positions from one coordinate system to another with PROJ. Axes are easting, northing or longitude, latitude
/// in this order whatever the systems' own definitions say. Does nothing when both systems are the same.
class KPFORMATS_EXPORT CoordinateTransform
{
public:
    /// \a fromWkt and \a toWkt as wktOf() gives them.
    /// \throws std::runtime_error when PROJ knows no way between them
    CoordinateTransform(const QString& fromWkt, const QString& toWkt);
    ~CoordinateTransform();

    bool isIdentity() const { return !m_transformation; }
    /// Replaces the positions; those that have no place in the target become NaN. All three hold as many numbers.
    /// \returns the number of positions that have no place there
    int transform(std::vector<double>& x, std::vector<double>& y, std::vector<double>& z) const;

private:
    std::unique_ptr<OGRCoordinateTransformation> m_transformation;
};

} // namespace kpFormats
