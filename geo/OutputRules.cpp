// SPDX-License-Identifier: MIT
#include "geo/OutputRules.h"

#include "geo/GdalSession.h"

#include <ogr_spatialref.h>

namespace kpFormats
{

OutputRules::OutputRules(const QString& crs, OutputUnit unit)
    : m_crs(crs)
    , m_unit(unit)
    , m_transforms(crs)
{
}

const OutputRules::System& OutputRules::system(const QString& wkt)
{
    const auto known = m_systems.find(wkt);
    if (known != m_systems.end())
        return known->second;
    System system;
    const QuietGdal quiet;
    OGRSpatialReference reference;
    if (!wkt.isEmpty() && reference.SetFromUserInput(wkt.toUtf8().constData()) == OGRERR_NONE) {
        system.geographic = reference.IsGeographic() != 0;
        system.metres = reference.GetLinearUnits();
    }
    return m_systems.emplace(wkt, system).first->second;
}

bool OutputRules::inDegrees(const ModelObject& object)
{
    return system(m_crs.isEmpty() ? object.crs : m_crs).geographic;
}

PositionRules OutputRules::of(const ModelObject& object, bool needsHeight)
{
    PositionRules rules;
    rules.transform = m_transforms.from(object.crs);
    // What no drawing has; written out, readers would give up on its digits.
    rules.most = 1e15;
    rules.needsHeight = needsHeight;
    rules.heightFactor = unitFactor(object.lengthUnit, m_unit);
    rules.factor = rules.heightFactor;
    if (inDegrees(object))
        rules.factor = 1.0;
    else if (rules.transform && m_unit != OutputUnit::Model)
        rules.factor = unitFactor(QStringLiteral("m"), m_unit) * system(m_crs).metres;
    return rules;
}

} // namespace kpFormats
