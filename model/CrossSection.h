// SPDX-License-Identifier: MIT
#pragma once

#include "model/ObjectType.h"

#include <QColor>
#include <QString>

#include <vector>

namespace kpFormats
{

/// A line drawn on a cross-section: where it cuts an object of the model. One point where it crosses a line.
struct SectionSegment
{
    QString name;                            ///< of the object that it cuts
    ObjectType type = ObjectType::Polylines; ///< of the object that it cuts
    QColor color;
    std::vector<double> distance; ///< along the trace, from its first point
    std::vector<double> x;        ///< on the map
    std::vector<double> y;
    std::vector<double> z; ///< elevation
};

/// What is drawn on a cross-section. Its trace on the map is the vertices of the object that holds it.
struct CrossSection
{
    std::vector<SectionSegment> segments;
};

} // namespace kpFormats
