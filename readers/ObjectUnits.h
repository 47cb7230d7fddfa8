// SPDX-License-Identifier: MIT
#pragma once

#include "geo/CoordinateSystems.h"
#include "model/ModelObject.h"
#include "readers/LoadOptions.h"

#include <QHash>

namespace kpFormats
{

/// Brings what is loaded to one length unit per object. x and y count in the unit of the coordinate system, whatever a
/// file or a model file says; heights in the unit that was named are converted to it, and that is said.
class ObjectUnits
{
public:
    /// The object's lengthUnit is the one that its file or the options name for it; empty when neither does.
    void settle(ModelObject& object);
    LoadNotes notes() const;

    /// What a length in \a lengthUnit is multiplied with to count in the unit of the system; 1 where either says none.
    static double factorTo(const QString& crs, const QString& lengthUnit);

private:
    QHash<QString, SystemUnits> m_systems;
    QMap<QString, int> m_objects; ///< how many, by what was done to them
};

} // namespace kpFormats
