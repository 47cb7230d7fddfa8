// SPDX-License-Identifier: MIT
#include "export/GridNodeCheck.h"

#include "export/GridNodes.h"

#include <cmath>

namespace kpFormats
{

GridNodeCheck::GridNodeCheck(const ModelObject& object, const QString& attribute, const LengthFactors& factors,
                             Verification& result)
    : m_object(object)
    , m_factors(factors)
    , m_result(result)
    , m_attribute(nodeAttribute(object, attribute, QString()))
{
}

void GridNodeCheck::compare(int node, const Verification::Place& read, bool missing, double allowed)
{
    const auto vertex = static_cast<std::size_t>(node);
    const auto where = [&] {
        const int columns = m_object.grid->columns;
        return QStringLiteral("%1, column %2, row %3")
            .arg(m_object.name)
            .arg(node % columns + 1)
            .arg(node / columns + 1);
    };
    const double wanted = m_attribute ? m_attribute->at(node) : (*m_object.z)[vertex] * m_factors.height;
    const Verification::Place expected{(*m_object.x)[vertex] * m_factors.flat, (*m_object.y)[vertex] * m_factors.flat,
                                       wanted};
    const bool none = !std::isfinite(wanted);
    if (none || m_attribute)
        m_result.compareFlatPosition(expected, read, where);
    else
        m_result.comparePosition(expected, read, where);
    if (none)
        m_result.compareMissing(missing, QString::number(read[2]), where);
    else if (m_attribute)
        m_result.compareValue(wanted, read[2], allowed, where);
}

} // namespace kpFormats
