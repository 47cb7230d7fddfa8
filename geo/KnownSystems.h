// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <vector>

namespace kpFormats
{

/// A coordinate system of the EPSG registry.
struct KnownSystem
{
    QString code; ///< such as "EPSG:28350"
    QString name;
    QString area;      ///< where it is used, in words
    double west = 0.0; ///< of that area, in degrees; west is greater than east where it lies on both sides of 180
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;
    bool degrees = false;

    bool covers(double longitude, double latitude) const
    {
        const bool within =
            west <= east ? longitude >= west && longitude <= east : longitude >= west || longitude <= east;
        return within && latitude >= south && latitude <= north;
    }
};

/// The projected and geographic systems of PROJ's database that are in use, by name; read once.
KPFORMATS_EXPORT const std::vector<KnownSystem>& knownSystems();

} // namespace kpFormats
