// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cmath>

namespace kpFormats
{

/// What reading a written file again, by another route than it was written, has shown.
struct Verification
{
    QString reader;        ///< what read it, such as "GDAL driver GeoJSON"; empty when there is no such reader
    qint64 count = 0;      ///< features, rows, nodes or cells that it found
    double worstError = 0; ///< largest distance between a source coordinate and the one read, in the model's unit
    QString fault;         ///< what does not agree, in words; empty when everything does

    /// Takes a difference of coordinates into account, whatever its sign; one that is no number does not count.
    void differs(double difference)
    {
        if (std::abs(difference) > worstError)
            worstError = std::abs(difference);
    }
};

} // namespace kpFormats
