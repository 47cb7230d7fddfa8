// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "export/LengthFactors.h"
#include "model/kpFormatsExport.h"

#include <array>
#include <vector>

namespace kpFormats
{

/// The vertices of a well by depth, in the unit of a file.
class KPFORMATS_EXPORT WellDepths
{
public:
    /// Measured depths are those of the attribute MD (or DEPT, DEPTH, MEASURED_DEPTH), else the length of the path from
    /// its first vertex: of the arcs that minimum curvature lays between vertices. Depth 0 lies at the elevation that an
    /// attribute of the well gives (KB, EKB, RKB, EREF, DATUM), else at that of the first vertex, less its depth.
    /// Notes what is computed or assumed. \throws ExportError naming \a file when there is no single path
    WellDepths(const ModelObject& object, OutputUnit unit, const QString& file, Findings& findings);

    std::size_t size() const { return m_places.size(); }
    /// NaN where it is not known.
    double measured(std::size_t vertex) const { return m_measured[vertex]; }
    /// Below depth 0; NaN where the height is not known.
    double vertical(std::size_t vertex) const { return m_reference - m_places[vertex][2]; }
    /// East, north and up.
    const std::array<double, 3>& place(std::size_t vertex) const { return m_places[vertex]; }
    /// Elevation of depth 0; NaN when nothing tells it.
    double reference() const { return m_reference; }
    /// The attribute that gave the measured depths; empty when they are computed.
    const QString& attribute() const { return m_attribute; }

private:
    void takeMeasured(const ModelObject& object, OutputUnit unit, Findings& findings, const QString& file);
    void takeReference(const ModelObject& object, double factor, Findings& findings);

    std::vector<std::array<double, 3>> m_places;
    std::vector<double> m_measured;
    QString m_attribute;
    double m_reference;
};

} // namespace kpFormats
