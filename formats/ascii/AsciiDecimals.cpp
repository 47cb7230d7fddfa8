// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiDecimals.h"

#include "export/AutomaticDecimals.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

constexpr int usualDecimals = 3;

/// Calls \a look with each real number of an attribute.
template <typename Look>
void eachNumber(const ModelObject& object, const QString& attribute, Look look)
{
    for (const AttributeColumn& column : object.vertexAttributes) {
        if (column.name != attribute)
            continue;
        for (std::size_t row = 0; column.kind == AttributeKind::Real && row < column.numbers->size(); ++row) {
            if (!column.missing || (*column.missing)[row] == 0)
                look((*column.numbers)[row]);
        }
        return;
    }
    for (const ObjectAttribute& whole : object.objectAttributes) {
        if (whole.name == attribute && whole.kind == AttributeKind::Real && !whole.value.isNull())
            return look(whole.value.toDouble());
    }
}

} // namespace

void chooseDecimals(AsciiTable& table, const std::vector<const ModelObject*>& objects)
{
    const PositionDecimals positions = positionDecimals(objects, usualDecimals);
    for (std::size_t field = 0; field < table.fields.size(); ++field) {
        int& precision = table.fields[field].precision;
        switch (table.columns[field].source) {
        case AsciiColumn::X:
        case AsciiColumn::Y:
            precision = positions.flat;
            break;
        case AsciiColumn::Z:
            precision = positions.heights;
            break;
        case AsciiColumn::Attribute: {
            DecimalsNeed need;
            for (const ModelObject* object : objects)
                eachNumber(*object, table.columns[field].attribute, [&need](double number) { need.add(number); });
            precision = need.decimals(usualDecimals);
            break;
        }
        case AsciiColumn::GridColumn:
        case AsciiColumn::GridRow:
            break;
        }
    }
}

void noteRounding(const AsciiTable& table, const ModelObject& object, Findings& findings)
{
    int flat = -1;
    int heights = -1;
    for (std::size_t field = 0; field < table.fields.size(); ++field) {
        const AsciiColumn& column = table.columns[field];
        const int precision = table.fields[field].precision;
        if (column.source == AsciiColumn::X || column.source == AsciiColumn::Y)
            flat = std::max(flat, precision);
        if (column.source == AsciiColumn::Z)
            heights = precision;
        if (column.source != AsciiColumn::Attribute)
            continue;
        RoundedToZero zeros(precision);
        eachNumber(object, column.attribute, [&zeros](double number) { zeros.add(number); });
        zeros.note(object.name, column.attribute, findings);
    }
    // A layout without positions tells none apart.
    if (flat >= 0 && heights >= 0)
        notePositionsAlike(object, {flat, heights}, 1.0, findings);
}

} // namespace kpFormats
