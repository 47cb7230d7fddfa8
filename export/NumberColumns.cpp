// SPDX-License-Identifier: MIT
#include "export/NumberColumns.h"

#include "export/CommonFindings.h"

#include <algorithm>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

bool isNumber(AttributeKind kind)
{
    return kind == AttributeKind::Real || kind == AttributeKind::Integer || kind == AttributeKind::Boolean;
}

/// Collects the attributes that are chosen and numbers.
class Collector
{
public:
    Collector(const ModelObject& object, const ExportSelection& selection)
        : m_object(object)
        , m_selection(selection)
    {
    }

    template <typename Attribute>
    void add(const std::vector<Attribute>& attributes)
    {
        for (const Attribute& attribute : attributes) {
            if (!m_selection.wantsAttribute(attribute.name))
                continue;
            if (isNumber(attribute.kind)) {
                m_columns.emplace_back(attribute);
                continue;
            }
            if (m_refused++ == 0)
                m_example = attribute.name;
        }
    }

    std::vector<NumberColumn> take(Findings& findings)
    {
        findings.note(finding::attributeNotNumeric, m_object, m_refused, QStringLiteral("first %1").arg(m_example));
        return std::move(m_columns);
    }

private:
    const ModelObject& m_object;
    const ExportSelection& m_selection;
    std::vector<NumberColumn> m_columns;
    qint64 m_refused = 0;
    QString m_example;
};

bool hasAttribute(const ModelObject& object, const QString& name)
{
    const auto named = [&name](const auto& attribute) { return attribute.name == name; };
    const auto in = [&named](const auto& list) { return std::any_of(list.begin(), list.end(), named); };
    return in(object.vertexAttributes) || in(object.objectAttributes)
           || (object.cells && in(object.cells->cellAttributes));
}

} // namespace

NumberColumn::NumberColumn(const ObjectAttribute& attribute)
    : m_name(attribute.name)
    , m_unit(attribute.unit)
    , m_kind(attribute.kind)
    , m_constant(attribute.value.isNull() ? missing : attribute.value.toDouble())
{
}

double NumberColumn::at(int index) const
{
    if (!m_column)
        return m_constant;
    if (m_kind == AttributeKind::Real) {
        const auto row = static_cast<std::size_t>(index);
        if (!m_column->numbers || row >= m_column->numbers->size()
            || (m_column->missing && (*m_column->missing)[row] != 0))
            return missing;
        return (*m_column->numbers)[row];
    }
    if (index >= m_column->values.size() || m_column->values.at(index).isNull())
        return missing;
    return m_column->values.at(index).toDouble();
}

std::vector<NumberColumn> numberColumns(const ModelObject& object, const ExportSelection& selection, Findings& findings)
{
    Collector collector(object, selection);
    collector.add(object.vertexAttributes);
    collector.add(object.objectAttributes);
    return collector.take(findings);
}

std::vector<NumberColumn> vertexColumns(const ModelObject& object, const ExportSelection& selection, Findings& findings)
{
    Collector collector(object, selection);
    collector.add(object.vertexAttributes);
    return collector.take(findings);
}

std::vector<NumberColumn> cellColumns(const ModelObject& object, const ExportSelection& selection, Findings& findings)
{
    Collector collector(object, selection);
    collector.add(object.cells->cellAttributes);
    collector.add(object.objectAttributes);
    return collector.take(findings);
}

void noteMissingAttributes(const std::vector<const ModelObject*>& objects, const ExportSelection& selection,
                           Findings& findings)
{
    if (!selection.attributes)
        return;
    for (const QString& name : *selection.attributes) {
        const bool known = std::any_of(objects.begin(), objects.end(),
                                       [&name](const ModelObject* object) { return hasAttribute(*object, name); });
        if (!known)
            findings.note(finding::missingAttribute, QString(), 1,
                          QStringLiteral("no chosen object has \"%1\"").arg(name));
    }
}

void noteAttributesLeftOut(const ModelObject& object, Findings& findings)
{
    const std::size_t count = object.vertexAttributes.size() + object.objectAttributes.size();
    if (count == 0)
        return;
    const QString first =
        object.vertexAttributes.empty() ? object.objectAttributes.front().name : object.vertexAttributes.front().name;
    findings.note(finding::attributesLeftOut, object, static_cast<qint64>(count),
                  QStringLiteral("first %1").arg(first));
}

} // namespace kpFormats
