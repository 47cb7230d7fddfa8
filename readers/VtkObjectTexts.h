// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "readers/LoadOptions.h"
#include "readers/VtkDataSet.h"

namespace kpFormats
{

/// What the field data of a file say of one of its objects.
struct VtkObjectTexts
{
    QString name;
    QString type; ///< a key of ObjectType
    QString set;
    QString crs; ///< as WKT
    QString unit;
    bool zIsDepth = false;
    bool known = false; ///< the field data speak of the object

    VtkObjectTexts() = default;
    VtkObjectTexts(const VtkDataSet& dataSet, std::size_t object);

    /// The type that they give an object, when it is one of those.
    std::optional<ObjectType> typeAmong(const std::vector<ObjectType>& types) const;
    /// What x and y, and z, of the file are multiplied with: lengths count in the unit of the coordinate system then.
    double lengthFactor(const LoadOptions& options) const;
    /// Gives the object its system and unit, where the options name none.
    void settle(ModelObject& object, const LoadOptions& options) const;
};

} // namespace kpFormats
