// SPDX-License-Identifier: MIT
#pragma once

#include "geo/PositionReader.h"
#include "geo/TransformCache.h"
#include "model/OutputUnit.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// How the positions of each object change for a file of one coordinate system and length unit.
class KPFORMATS_EXPORT OutputRules
{
public:
    /// \a crs is the system to write as WKT; objects without one are taken to be in it. Empty: every object stays in its
    /// own.
    OutputRules(const QString& crs, OutputUnit unit);

    /// \throws std::runtime_error when there is no way to the system
    PositionRules of(const ModelObject& object, bool needsHeight);
    /// Whether the object is written in degrees.
    bool inDegrees(const ModelObject& object);

private:
    struct System
    {
        bool geographic = false;
        double metres = 1.0; ///< per unit
    };

    const System& system(const QString& wkt);

    QString m_crs;
    OutputUnit m_unit;
    TransformCache m_transforms;
    std::map<QString, System> m_systems;
};

} // namespace kpFormats
