// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpHostDataExport.h"

/// The units that an export is written in: a length unit and the direction of z.
class KPHOST_DATA_EXPORT kpUnits
{
public:
    enum class LengthUnit { Metre, Foot, UsSurveyFoot, Kilometre };

    /// Codes of the z direction. ElevationOrDepth leaves the choice to the user and starts as elevation.
    enum ZDirection { Elevation = 0, Depth = 1, ElevationOrDepth = 64 };

    LengthUnit lengthUnit() const;
    void setLengthUnit(LengthUnit unit);

    /// The code as set; codes other than those of ZDirection are kept and mean elevation.
    int zDirection() const;
    void setZDirection(int code);
    /// True unless the direction is Depth.
    bool zIsElevation() const;

    /// Metres in one length unit. Survey foot: 1200/3937 m.
    double metresPerUnit() const;
    /// Abbreviation for file headers: "m", "ft", "ftUS", "km".
    const char* abbreviation() const;

private:
    LengthUnit m_lengthUnit = LengthUnit::Metre;
    int m_zDirection = Elevation;
};
