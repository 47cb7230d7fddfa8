// SPDX-License-Identifier: MIT
#include "export/GridValues.h"

#include "export/AutomaticDecimals.h"
#include "export/CommonFindings.h"
#include "export/GridNodes.h"

namespace kpFormats
{

GridValues::GridValues(const ModelObject& object, const QString& attribute, const LengthFactors& factors,
                       const QString& file)
    : m_object(object)
    , m_heightFactor(factors.height)
    , m_attribute(nodeAttribute(object, attribute, file))
{
    requireNodes(object, file);
}

int GridValues::decimals(int chosen) const
{
    constexpr int usual = 4;
    if (chosen != automaticDecimals)
        return chosen;
    DecimalsNeed need;
    each([&need](double value) { need.add(value); });
    return need.decimals(usual);
}

void GridValues::noteLosses(Findings& findings) const
{
    noteOtherAttributes(m_object, m_attribute ? m_attribute->name() : QString(), findings);
    bool any = false;
    each([&any](double) { any = true; });
    if (!any)
        findings.note(finding::gridWithoutAnyValue, m_object, 1, QStringLiteral("every node is the null value"));
}

void GridValues::noteZeros(int decimals, Findings& findings) const
{
    RoundedToZero zeros(decimals);
    each([&zeros](double value) { zeros.add(value); });
    zeros.note(m_object, m_attribute ? m_attribute->name() : QStringLiteral("the heights"), findings);
}

} // namespace kpFormats
