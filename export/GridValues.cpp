// SPDX-License-Identifier: MIT
#include "export/GridValues.h"

#include "export/AutomaticDecimals.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

bool isNumber(const AttributeColumn& column)
{
    return column.kind != AttributeKind::Text && column.kind != AttributeKind::Color;
}

} // namespace

std::optional<NumberColumn> numberColumnNamed(const ModelObject& object, const QString& name)
{
    const auto found = std::find_if(
        object.vertexAttributes.begin(), object.vertexAttributes.end(),
        [&name](const AttributeColumn& column) { return isNumber(column) && column.name == name && !name.isEmpty(); });
    if (found == object.vertexAttributes.end())
        return std::nullopt;
    return NumberColumn(*found);
}

GridValues::GridValues(const ModelObject& object, const QString& attribute, const LengthFactors& factors,
                       const QString& file)
    : m_object(object)
    , m_heightFactor(factors.height)
    , m_attribute(numberColumnNamed(object, attribute))
{
    const bool whole = object.grid && object.grid->columns > 0 && object.grid->rows > 0
                       && object.vertexCount() == static_cast<qint64>(object.grid->columns) * object.grid->rows;
    if (!whole)
        throw ExportError(file, QStringLiteral("the grid %1 is empty").arg(object.name),
                          QStringLiteral("choose a grid with nodes"));
    if (m_attribute || attribute.isEmpty())
        return;
    QStringList names;
    for (const AttributeColumn& column : object.vertexAttributes) {
        if (isNumber(column))
            names.append(column.name);
    }
    throw ExportError(file, QStringLiteral("the grid %1 has no numeric attribute \"%2\"").arg(object.name, attribute),
                      names.isEmpty() ? QStringLiteral("leave the attribute empty to write heights")
                                      : QStringLiteral("it has: %1").arg(names.join(QStringLiteral(", "))));
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
    const std::size_t attributes =
        m_object.vertexAttributes.size() + m_object.objectAttributes.size() - (m_attribute ? 1 : 0);
    findings.note(finding::attributesOfGridLeftOut, m_object.name, static_cast<qint64>(attributes),
                  QStringLiteral("choose one with the setting \"attribute\""));
    bool any = false;
    each([&any](double) { any = true; });
    if (!any)
        findings.note(finding::gridWithoutAnyValue, m_object.name, 1, QStringLiteral("every node is the null value"));
}

void GridValues::noteZeros(int decimals, Findings& findings) const
{
    RoundedToZero zeros(decimals);
    each([&zeros](double value) { zeros.add(value); });
    zeros.note(m_object.name, m_attribute ? m_attribute->name() : QStringLiteral("the heights"), findings);
}

} // namespace kpFormats
