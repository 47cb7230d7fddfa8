// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiRecord.h"

#include "export/CommonFindings.h"
#include "export/NumberColumns.h"
#include "formats/ascii/AsciiFindings.h"
#include "formats/ascii/AsciiHints.h"
#include "formats/ascii/AsciiOutput.h"
#include "formats/ascii/ConstantMatrixData.h"
#include "formats/ascii/FormulaGuard.h"
#include "formats/ascii/GridIndexMatrix.h"
#include "formats/ascii/HeightTexts.h"
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "spec/layout/FieldLayout.h"

#include <QColor>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using kpBase::DoubleMatrixData;
using kpBase::MatrixData;
using kpBaseExport::GeoObject;

/// The name under which an attribute is written: the writer takes x, y and z for the coordinates.
QString fieldName(const QString& attribute)
{
    static const QStringList coordinates{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    return coordinates.contains(attribute.toLower()) ? attribute + QStringLiteral(" (attribute)") : attribute;
}

int matrixType(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Real:
        return MatrixData::Double;
    case AttributeKind::Integer:
    case AttributeKind::Boolean:
        return MatrixData::Int;
    case AttributeKind::Color:
        return MatrixData::Color;
    case AttributeKind::Text:
        return MatrixData::String;
    }
    return MatrixData::String;
}

const AttributeColumn* vertexAttribute(const ModelObject& object, const QString& name)
{
    const auto found = std::find_if(object.vertexAttributes.begin(), object.vertexAttributes.end(),
                                    [&name](const AttributeColumn& column) { return column.name == name; });
    return found == object.vertexAttributes.end() ? nullptr : &*found;
}

const ObjectAttribute* objectAttribute(const ModelObject& object, const QString& name)
{
    const auto found = std::find_if(object.objectAttributes.begin(), object.objectAttributes.end(),
                                    [&name](const ObjectAttribute& attribute) { return attribute.name == name; });
    return found == object.objectAttributes.end() ? nullptr : &*found;
}

/// The name of a coordinate or grid index in a layout.
QString nameOf(AsciiColumn::Source source)
{
    static const char* const names[] = {"X", "Y", "Z", "", "i", "j"};
    return QString::fromLatin1(names[source]);
}

/// A text that can stand in one field: its line ends would break the row.
QString oneLine(const QString& text)
{
    QString line = text;
    line.replace(QLatin1String("\r\n"), QLatin1String(" "));
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    line.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return line;
}

/// The writer finds values by these names, so line ends are taken out before they are made different.
void keepInOneLine(AsciiTable& table, Findings& findings)
{
    for (std::size_t index = 0; index < table.fields.size(); ++index) {
        QString& name = table.fields[index].name;
        const QString line = oneLine(name);
        if (line == name)
            continue;
        findings.note(asciiFinding::lineEndInANameBecameABlank, QString(), 1,
                      QStringLiteral("in \"%1\"").arg(line.left(80)));
        name = line;
    }
}

/// Makes names of attribute fields differ from each other and from those of the grid indices.
void makeDifferent(AsciiTable& table)
{
    QSet<QString> taken{QStringLiteral("i"), QStringLiteral("j")};
    for (std::size_t index = 0; index < table.fields.size(); ++index) {
        if (table.columns[index].source != AsciiColumn::Attribute)
            continue;
        QString& name = table.fields[index].name;
        const QString base = name;
        for (int number = 2; taken.contains(name); ++number)
            name = QStringLiteral("%1_%2").arg(base).arg(number);
        taken.insert(name);
    }
}

/// What takes a text apart; empty where texts are quoted.
QString unquotedSeparator(const AsciiExportSettings& settings)
{
    return settings.quoting == AsciiExportSettings::Quoting::None ? separatorText(settings) : QString();
}

/// Counts the texts of a column that a reader of the table would take apart.
class TextCheck
{
public:
    TextCheck(const ModelObject& object, QString attribute, QString separator)
        : m_object(object)
        , m_attribute(std::move(attribute))
        , m_separator(std::move(separator))
    {
    }

    void look(const QString& text, int rows)
    {
        if (!m_separator.isEmpty() && (text.contains(m_separator) || text.contains(QLatin1Char('"')))) {
            m_ambiguous += rows;
            if (m_example.isEmpty())
                m_example = text;
        }
    }

    void lookAtChanges(bool broken, bool guarded, int rows)
    {
        m_broken += broken ? rows : 0;
        m_guarded += guarded ? rows : 0;
    }

    void report(Findings& findings) const
    {
        findings.note(asciiFinding::textHoldsTheSeparator, m_object, m_ambiguous,
                      QStringLiteral("first in %1: \"%2\"; set quoting=needed").arg(m_attribute, m_example.left(80)));
        const QString where = QStringLiteral("in %1").arg(m_attribute);
        findings.note(asciiFinding::lineEndInATextBecameABlank, m_object, m_broken, where);
        findings.note(asciiFinding::guardedText, m_object, m_guarded, where);
    }

private:
    const ModelObject& m_object;
    QString m_attribute;
    QString m_separator;
    qint64 m_ambiguous = 0;
    qint64 m_broken = 0;
    qint64 m_guarded = 0;
    QString m_example;
};

int decimalsOfZ(const AsciiTable& table)
{
    for (std::size_t field = 0; field < table.columns.size(); ++field) {
        if (table.columns[field].source == AsciiColumn::Z)
            return table.fields[field].precision;
    }
    return 0;
}

qint64 countMissing(const AttributeColumn& column)
{
    if (column.kind == AttributeKind::Real)
        return column.missing ? std::count(column.missing->begin(), column.missing->end(), 1) : 0;
    return std::count_if(column.values.begin(), column.values.end(),
                         [](const QVariant& value) { return value.isNull(); });
}

/// A text as its field holds it.
QString writtenText(const QString& text, const FormulaGuard& guard, TextCheck& check, int rows)
{
    check.look(text, rows);
    const QString line = oneLine(text);
    const QString written = guard.guarded(line);
    check.lookAtChanges(text != line, line != written, rows);
    return written;
}

MatrixData* vertexMatrix(const ModelObject& object, const AttributeColumn& column, const QString& name,
                         const AsciiExportSettings& settings, Findings& findings)
{
    if (column.kind == AttributeKind::Real)
        return new DoubleMatrixData(name, column.numbers, column.missing);
    QVector<QVariant> values = column.values;
    if (column.kind == AttributeKind::Text) {
        TextCheck check(object, column.name, unquotedSeparator(settings));
        const FormulaGuard guard(settings);
        for (int row = 0; row < values.size(); ++row) {
            const QString text = qAsConst(values)[row].toString();
            const QString written = writtenText(text, guard, check, 1);
            if (written != text)
                values[row] = written;
        }
        check.report(findings);
    }
    return new kpBase::VariantMatrixData(name, matrixType(column.kind), values);
}

MatrixData* objectMatrix(const ModelObject& object, const ObjectAttribute& attribute, const QString& name,
                         const AsciiExportSettings& settings, Findings& findings)
{
    QVariant value = attribute.value;
    if (attribute.kind == AttributeKind::Text && !value.isNull()) {
        TextCheck check(object, attribute.name, unquotedSeparator(settings));
        value = writtenText(value.toString(), FormulaGuard(settings), check, object.vertexCount());
        check.report(findings);
    }
    return new ConstantMatrixData(name, matrixType(attribute.kind), value, object.vertexCount());
}

} // namespace

AsciiTable asciiTable(const std::vector<const ModelObject*>& objects, const std::optional<QStringList>& chosen,
                      int decimals, Findings& findings)
{
    AsciiTable table;
    for (const char* name : {"x", "y", "z"})
        table.fields.push_back({QString::fromLatin1(name), decimals, 0, 0});
    table.columns = {{AsciiColumn::X, {}}, {AsciiColumn::Y, {}}, {AsciiColumn::Z, {}}};
    QSet<QString> known;
    const auto add = [&](const QString& name) {
        if (known.contains(name) || (chosen && !chosen->contains(name)))
            return;
        known.insert(name);
        table.columns.push_back({AsciiColumn::Attribute, name});
        table.fields.push_back({fieldName(name), decimals, 0, 0});
        if (fieldName(name) != name)
            findings.note(finding::renamed, QString(), 1,
                          QStringLiteral("attribute %1 is written as %2").arg(name, fieldName(name)));
    };
    for (const ModelObject* object : objects) {
        for (const AttributeColumn& column : object->vertexAttributes)
            add(column.name);
        for (const ObjectAttribute& attribute : object->objectAttributes)
            add(attribute.name);
    }
    keepInOneLine(table, findings);
    if (chosen) {
        for (const QString& name : *chosen) {
            if (!known.contains(name))
                findings.note(finding::missingAttribute, QString(), 1,
                              QStringLiteral("no chosen object has \"%1\"").arg(name));
        }
    }
    makeDifferent(table);
    return table;
}

AsciiTable asciiTable(const AsciiLayout& layout, const std::vector<const ModelObject*>& objects, bool inColumns,
                      Findings& findings)
{
    const std::vector<OfferedField> offered = offeredFields(objects);
    QHash<QString, const OfferedField*> byName;
    for (const OfferedField& field : offered)
        byName.insert(field.name, &field);
    QStringList lacking = layout.lacking;
    for (auto field = layout.fields.begin(); field != layout.fields.end(); ++field) {
        if (!byName.contains(field.key()) && !lacking.contains(field.key()))
            lacking.append(field.key());
    }
    for (const QString& name : qAsConst(lacking))
        findings.note(asciiFinding::fieldOfTheLayoutLeftOut, QString(), 1,
                      QStringLiteral("no chosen object has \"%1\"").arg(name.left(80)));

    AsciiTable table;
    const QVector<kpBaseExport::QESAttribute> fields = fieldsFor(layout, offered);
    table.fields = kpBaseExport::layout::fieldInfos(fields, inColumns);
    for (int index = 0; index < fields.size(); ++index) {
        const OfferedField& field = *byName.value(fields[index].name());
        if (field.attribute.isEmpty()) {
            static const char order[] = "XYZij";
            static const AsciiColumn::Source sources[] = {AsciiColumn::X, AsciiColumn::Y, AsciiColumn::Z,
                                                          AsciiColumn::GridColumn, AsciiColumn::GridRow};
            table.columns.push_back({sources[QString::fromLatin1(order).indexOf(field.name)], {}});
            continue;
        }
        table.columns.push_back({AsciiColumn::Attribute, field.attribute});
    }
    keepInOneLine(table, findings);
    makeDifferent(table);
    return table;
}

void guardNames(AsciiTable& table, const AsciiExportSettings& settings)
{
    const FormulaGuard guard(settings);
    if (!guard.isOn())
        return;
    for (std::size_t index = 0; index < table.fields.size(); ++index) {
        if (table.columns[index].source == AsciiColumn::Attribute)
            table.fields[index].name = guard.guarded(table.fields[index].name);
    }
    makeDifferent(table);
}

void layOutColumns(AsciiTable& table, const std::vector<const ModelObject*>& objects,
                   const AsciiExportSettings& settings)
{
    const std::vector<OfferedField> offered = offeredFields(objects);
    std::vector<OfferedField> written;
    for (const AsciiColumn& column : table.columns)
        written.push_back(*std::find_if(offered.begin(), offered.end(), [&column](const OfferedField& field) {
            return column.source == AsciiColumn::Attribute ? field.attribute == column.attribute
                                                           : field.name == nameOf(column.source);
        }));
    AsciiProfile profile;
    profile.start(objects, written, {});
    while (!profile.advance(1000)) {
    }
    int position = 1;
    for (std::size_t index = 0; index < table.fields.size(); ++index) {
        const int width =
            std::max(fittingWidth(profile, settings, editorField(written[index], table.fields[index].precision)),
                     table.fields[index].name.size());
        table.fields[index].start = position;
        table.fields[index].end = position + width - 1;
        position += width + 1;
    }
}

bool leavesHeightsBlank(const AsciiExportSettings& settings)
{
    const bool betweenBlanks = settings.mode == AsciiExportSettings::Mode::Separated
                               && separatorText(settings).count(QLatin1Char(' ')) == separatorText(settings).size();
    return settings.missingZ == AsciiExportSettings::MissingZ::Blank && !betweenBlanks;
}

void noteHeights(const ModelObject& object, const AsciiExportSettings& settings, Findings& findings)
{
    const QString written = leavesHeightsBlank(settings) ? QStringLiteral("z is left blank")
                            : settings.writeNullValue    ? QStringLiteral("z is written as %1").arg(settings.nullValue)
                                                         : QStringLiteral("z is written as 0");
    if (!object.hasZ) {
        findings.note(asciiFinding::noHeights, object, object.vertexCount(),
                      QStringLiteral("the object is flat; ") + written);
        return;
    }
    const qint64 undefined = std::count_if(object.z->begin(), object.z->end(), [](double z) { return std::isnan(z); });
    findings.note(asciiFinding::vertexWithoutZ, object, undefined, written);
}

/// Notes values that a reader takes for missing ones.
void noteNullValues(const ModelObject& object, const AttributeColumn& column, const AsciiExportSettings& settings,
                    Findings& findings)
{
    bool isNumber = false;
    const double null = settings.nullValue.toDouble(&isNumber);
    if (!settings.writeNullValue || !isNumber || column.kind == AttributeKind::Text)
        return;
    const NumberColumn numbers(column);
    qint64 count = 0;
    for (int index = 0; index < object.vertexCount(); ++index)
        count += numbers.at(index) == null ? 1 : 0;
    findings.note(asciiFinding::valueReadsAsNull, object, count,
                  QStringLiteral("%1 in %2; choose another nullValue").arg(settings.nullValue, column.name));
}

void fillRecord(kpBaseExport::GeoObject& record, const ModelObject& object, const AsciiTable& table,
                const AsciiExportSettings& settings, Findings& findings)
{
    record.clearData();
    record.name = FormulaGuard(settings).guarded(object.name.simplified()).toStdString();
    DoubleMatrixData::Missing missingZ;
    if (!object.hasZ) {
        // No height is known, which is not the same as a height of 0.
        missingZ = std::make_shared<std::vector<unsigned char>>(object.z->size(), static_cast<unsigned char>(1));
    } else if (std::any_of(object.z->begin(), object.z->end(), [](double z) { return std::isnan(z); })) {
        auto flags = std::make_shared<std::vector<unsigned char>>();
        flags->reserve(object.z->size());
        for (const double z : *object.z)
            flags->push_back(std::isnan(z) ? 1 : 0);
        missingZ = flags;
    }
    MatrixData* heights = nullptr;
    if (missingZ && leavesHeightsBlank(settings))
        heights = new HeightTexts(object.z, missingZ, decimalsOfZ(table), !settings.zIsElevation);
    else
        heights = new DoubleMatrixData(QStringLiteral("Z"), object.z, missingZ);
    record.vertexData() = {new DoubleMatrixData(QStringLiteral("X"), object.x),
                           new DoubleMatrixData(QStringLiteral("X"), object.x),
                           new DoubleMatrixData(QStringLiteral("Y"), object.y), heights};
    int absent = 0;
    QString firstAbsent;
    GeoObject::MatrixList& matrices = record.vertexAttributeData();
    for (std::size_t index = 0; index < table.columns.size(); ++index) {
        const AsciiColumn& source = table.columns[index];
        const QString& field = table.fields[index].name;
        if (source.source == AsciiColumn::GridColumn || source.source == AsciiColumn::GridRow) {
            if (object.grid)
                matrices.push_back(new GridIndexMatrix(
                    field, source.source == AsciiColumn::GridColumn ? GridIndexMatrix::Column : GridIndexMatrix::Row,
                    object.grid->columns, object.vertexCount()));
        }
        if (source.source != AsciiColumn::Attribute)
            continue;
        const QString& name = source.attribute;
        if (const AttributeColumn* column = vertexAttribute(object, name)) {
            matrices.push_back(vertexMatrix(object, *column, field, settings, findings));
            noteNullValues(object, *column, settings, findings);
            if (column->kind != AttributeKind::Text && !settings.writeNullValue)
                findings.note(asciiFinding::missingValueWrittenAs0, object, countMissing(*column),
                              QStringLiteral("in %1; switch writeNullValue on").arg(name));
        } else if (const ObjectAttribute* attribute = objectAttribute(object, name)) {
            matrices.push_back(objectMatrix(object, *attribute, field, settings, findings));
        } else {
            if (absent++ == 0)
                firstAbsent = name;
        }
    }
    findings.note(finding::missingAttribute, object, absent, QStringLiteral("first %1").arg(firstAbsent));
}

} // namespace kpFormats
