// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kpBaseExport
{

/// Something that a driver did not take, or took with a warning.
struct OGRRefusal
{
    enum Kind { SpatialReference, Layer, Field, Feature, Geometry, Closing };

    Kind kind;
    QString layer;      ///< name of the layer
    QString subject;    ///< field name, or the number of the feature counted from 1
    QString message;    ///< the driver's words
    bool taken = false; ///< a feature that was written, with some loss
};

} // namespace kpBaseExport
