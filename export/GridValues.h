// SPDX-License-Identifier: MIT
#pragma once

#include "export/LengthFactors.h"
#include "export/NumberColumns.h"

#include <cmath>
#include <optional>

namespace kpFormats
{

/// The numbers of a grid's nodes for a file that holds one for each: heights, or an attribute.
class KPFORMATS_EXPORT GridValues
{
public:
    /// \a attribute is the name of one, or empty for heights. The object outlives this; \a file names the output in
    /// messages. \throws ExportError when the grid is empty or has no such number
    GridValues(const ModelObject& object, const QString& attribute, const LengthFactors& factors, const QString& file);

    /// NaN where there is none.
    double at(int node) const
    {
        return m_attribute ? m_attribute->at(node) : (*m_object.z)[static_cast<std::size_t>(node)] * m_heightFactor;
    }
    /// Calls \a look with each number that is there.
    template <typename Look>
    void each(Look look) const
    {
        for (int node = 0; node < m_object.vertexCount(); ++node) {
            const double value = at(node);
            if (std::isfinite(value))
                look(value);
        }
    }
    /// Those that are chosen or, for automaticDecimals, those that the numbers need.
    int decimals(int chosen) const;
    /// Notes attributes that are not written, and a grid without any number.
    void noteLosses(Findings& findings) const;
    /// Notes numbers that become 0.
    void noteZeros(int decimals, Findings& findings) const;

private:
    const ModelObject& m_object;
    double m_heightFactor;
    std::optional<NumberColumn> m_attribute;
};

} // namespace kpFormats
