// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkColumns.h"

#include "export/CommonFindings.h"
#include "formats/vtk/VtkFindings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

bool isText(AttributeKind kind)
{
    return kind == AttributeKind::Text || kind == AttributeKind::Color;
}

VtkType typeOf(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Text:
    case AttributeKind::Color:
        return VtkType::String;
    case AttributeKind::Integer:
        return VtkType::Int64;
    case AttributeKind::Boolean:
        return VtkType::UInt8;
    case AttributeKind::Real:
        break;
    }
    return VtkType::Float64;
}

class ColumnList
{
public:
    ColumnList(std::size_t objects, UniqueNames& names)
        : m_objects(objects)
        , m_names(names)
    {
    }

    template <typename Attribute>
    void add(std::size_t object, const Attribute& attribute)
    {
        const VtkType type = typeOf(attribute.kind);
        const auto same = [&](const VtkColumn& column) {
            return column.wanted == attribute.name && column.unit == attribute.unit
                   && (column.type == VtkType::String) == (type == VtkType::String) && !column.sources[object].exists();
        };
        auto column = std::find_if(m_columns.begin(), m_columns.end(), same);
        if (column == m_columns.end()) {
            m_columns.emplace_back();
            column = m_columns.end() - 1;
            const QString legal = attribute.name.simplified();
            column->name = m_names.take(legal.isEmpty() ? QStringLiteral("unnamed") : legal);
            column->wanted = attribute.name;
            column->unit = attribute.unit;
            column->type = type;
            column->sources.resize(m_objects);
        } else if (column->type != type) {
            column->type = VtkType::Float64;
        }
        column->sources[object] = VtkSource(attribute);
    }

    std::vector<VtkColumn> take() { return std::move(m_columns); }

private:
    std::size_t m_objects;
    UniqueNames& m_names;
    std::vector<VtkColumn> m_columns;
};

/// Whole numbers of which one is missing become real ones, which have NaN.
void settleType(VtkColumn& column)
{
    if (column.type != VtkType::Int64 && column.type != VtkType::UInt8)
        return;
    const bool complete = std::all_of(column.sources.begin(), column.sources.end(),
                                      [](const VtkSource& source) { return source.exists() && source.missing() == 0; });
    if (!complete)
        column.type = VtkType::Float64;
}

void noteLosses(const VtkColumn& column, const std::vector<const ModelObject*>& objects, Findings& findings)
{
    if (column.name != column.wanted)
        findings.note(finding::renamed, objects.size() == 1 ? objects.front()->name : QString(), 1,
                      QStringLiteral("attribute %1 is written as %2").arg(column.wanted, column.name));
    for (std::size_t object = 0; object < objects.size(); ++object) {
        const VtkSource& source = column.sources[object];
        if (!source.exists())
            continue;
        const QString& name = objects[object]->name;
        const QString first = QStringLiteral("attribute %1").arg(column.wanted);
        if (column.type == VtkType::String) {
            findings.note(vtkFinding::missingTextEmpty, name, source.missing(), first);
            findings.note(vtkFinding::textCut, name, source.withZeroes(), first);
        } else if (column.type == VtkType::Float64) {
            findings.note(vtkFinding::wholeNumberRounded, name, source.unexact(), first);
        }
    }
}

} // namespace

VtkSource::VtkSource(const AttributeColumn& column)
    : m_column(&column)
{
}

VtkSource::VtkSource(const ObjectAttribute& attribute)
    : m_attribute(&attribute)
    , m_text(vtkText(attribute.value.toString()))
{
}

QVariant VtkSource::value(int row) const
{
    return m_column ? m_column->values.at(row) : m_attribute->value;
}

bool VtkSource::isMissing(int row) const
{
    if (!exists())
        return true;
    if (!m_column || m_column->kind != AttributeKind::Real)
        return value(row).isNull();
    return m_column->missing && (*m_column->missing)[static_cast<std::size_t>(row)] != 0;
}

double VtkSource::real(int row) const
{
    if (isMissing(row))
        return std::numeric_limits<double>::quiet_NaN();
    if (m_column && m_column->kind == AttributeKind::Real)
        return (*m_column->numbers)[static_cast<std::size_t>(row)];
    return value(row).toDouble();
}

qint64 VtkSource::whole(int row) const
{
    return value(row).toLongLong();
}

QByteArray VtkSource::text(int row) const
{
    return m_column ? vtkText(m_column->values.at(row).toString()) : m_text;
}

template <typename Is>
int VtkSource::count(Is is) const
{
    if (m_attribute)
        return is(0) ? 1 : 0;
    int found = 0;
    const int rows =
        m_column->kind == AttributeKind::Real ? static_cast<int>(m_column->numbers->size()) : m_column->values.size();
    for (int row = 0; row < rows; ++row)
        found += is(row) ? 1 : 0;
    return found;
}

int VtkSource::missing() const
{
    return count([this](int row) { return isMissing(row); });
}

int VtkSource::unexact() const
{
    if ((m_column ? m_column->kind : m_attribute->kind) != AttributeKind::Integer)
        return 0;
    constexpr qint64 most = qint64{1} << 53;
    return count([this](int row) {
        const qint64 number = isMissing(row) ? 0 : whole(row);
        return (number > most || number < -most) && static_cast<qint64>(static_cast<double>(number)) != number;
    });
}

int VtkSource::withZeroes() const
{
    return count([this](int row) { return value(row).toString().contains(QChar(u'\0')); });
}

std::vector<VtkColumn> vtkColumns(const std::vector<const ModelObject*>& objects, VtkPlace place,
                                  const ExportSelection& selection, const VtkExportSettings& settings,
                                  UniqueNames& names, Findings& findings)
{
    ColumnList list(objects.size(), names);
    for (std::size_t index = 0; index < objects.size(); ++index) {
        const ModelObject& object = *objects[index];
        const auto add = [&](const auto& attributes) {
            for (const auto& attribute : attributes) {
                if (!selection.wantsAttribute(attribute.name))
                    continue;
                if (isText(attribute.kind) && !settings.texts)
                    findings.note(vtkFinding::textLeftOut, object, 1, QStringLiteral("first %1").arg(attribute.name));
                else
                    list.add(index, attribute);
            }
        };
        if (place == VtkPlace::Vertices)
            add(object.vertexAttributes);
        else if (place == VtkPlace::Object)
            add(object.objectAttributes);
        else if (object.cells)
            add(object.cells->cellAttributes);
    }
    std::vector<VtkColumn> columns = list.take();
    for (VtkColumn& column : columns) {
        settleType(column);
        noteLosses(column, objects, findings);
    }
    return columns;
}

VtkArray vtkArrayOf(VtkColumn column, qint64 tuples, const VtkRows& rows)
{
    VtkArray array;
    array.name = column.name;
    array.unit = column.unit;
    array.type = column.type;
    array.tuples = tuples;
    if (column.type == VtkType::String)
        rows([&](std::size_t object, int row) {
            const VtkSource& source = column.sources[object];
            array.textBytes += 1 + (source.exists() ? source.text(row).size() : 0);
            return true;
        });
    array.write = [column = std::move(column), rows](VtkValues& values) {
        rows([&](std::size_t object, int row) {
            const VtkSource& source = column.sources[object];
            switch (column.type) {
            case VtkType::Float64:
                values.real(source.real(row));
                break;
            case VtkType::Int64:
                values.whole(source.whole(row));
                break;
            case VtkType::UInt8:
                values.byte(static_cast<int>(source.whole(row)));
                break;
            case VtkType::String:
                values.text(source.exists() ? source.text(row) : QByteArray());
                break;
            }
            return values.next();
        });
    };
    return array;
}

} // namespace kpFormats
