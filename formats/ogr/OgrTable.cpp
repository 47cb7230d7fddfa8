// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrTable.h"

#include "export/CommonFindings.h"
#include "formats/ogr/OgrColumnScan.h"
#include "formats/ogr/OgrFindings.h"
#include "ogr/OGRAttributeInfo.h"

#include <QColor>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

bool isText(AttributeKind kind)
{
    return kind == AttributeKind::Text || kind == AttributeKind::Color;
}

/// The kind that holds the values of both.
AttributeKind common(AttributeKind a, AttributeKind b)
{
    if (a == b)
        return a;
    if (isText(a) || isText(b))
        return AttributeKind::Text;
    return a == AttributeKind::Real || b == AttributeKind::Real ? AttributeKind::Real : AttributeKind::Integer;
}

bool hasAttribute(const std::vector<OgrColumn>& columns, const QString& name)
{
    return std::any_of(columns.begin(), columns.end(), [&name](const OgrColumn& column) {
        return column.attribute.compare(name, Qt::CaseInsensitive) == 0;
    });
}

/// Every attribute of the layer's objects, in the order first met, with the kind that fits all.
class Collector
{
public:
    explicit Collector(const ExportSelection& selection)
        : m_selection(selection)
    {
    }

    void add(const QString& name, AttributeKind kind, const QString& unit, TextMeaning meaning)
    {
        if (!m_selection.wantsAttribute(name))
            return;
        const AttributeKind written = kind == AttributeKind::Color ? AttributeKind::Text : kind;
        const auto known = m_index.constFind(name);
        if (known != m_index.constEnd()) {
            OgrColumn& column = columns[static_cast<std::size_t>(*known)];
            column.kind = common(column.kind, written);
            if (column.meaning != meaning)
                column.meaning = TextMeaning::Plain;
            return;
        }
        m_index.insert(name, static_cast<int>(columns.size()));
        OgrColumn column;
        column.attribute = name;
        column.kind = written;
        column.unit = unit;
        column.meaning = meaning;
        columns.push_back(column);
    }
    void noteMissing(const OgrLayer& layer, Findings& findings) const
    {
        if (!m_selection.attributes)
            return;
        for (const QString& name : *m_selection.attributes) {
            if (!m_index.contains(name))
                findings.note(finding::missingAttribute, QString(), 1,
                              QStringLiteral("no chosen object of this kind has \"%1\", first %2")
                                  .arg(name, layer.objects.front()->name));
        }
    }

    std::vector<OgrColumn> columns;

private:
    const ExportSelection& m_selection;
    QHash<QString, int> m_index;
};

/// Adds what is not an attribute: the object's name before the attributes, its colour after them.
void addOwnColumns(std::vector<OgrColumn>& columns, const OgrLayer& layer, const OgrExportSettings& settings,
                   const OgrTraits& traits)
{
    const auto own = [](OgrColumn::Content content, const char* name, AttributeKind kind) {
        OgrColumn column;
        column.content = content;
        column.field = QString::fromLatin1(name);
        column.kind = kind;
        return column;
    };
    const bool heights =
        std::any_of(layer.objects.begin(), layer.objects.end(), [](const ModelObject* object) { return object->hasZ; });
    if (!traits.heights && settings.zField && layer.shape == OgrShape::Points && heights)
        columns.insert(columns.begin(), own(OgrColumn::Height, "z", AttributeKind::Real));
    if (settings.objectName) {
        const char* name = hasAttribute(columns, QStringLiteral("name")) ? "objectname" : "name";
        columns.insert(columns.begin(), own(OgrColumn::ObjectName, name, AttributeKind::Text));
    }
    if (settings.color && !hasAttribute(columns, QStringLiteral("colorval")))
        columns.push_back(own(OgrColumn::Colour, "colorval", AttributeKind::Text));
}

void dropSuperfluous(std::vector<OgrColumn>& columns, int most, Findings& findings)
{
    const int extra = most > 0 ? static_cast<int>(columns.size()) - most : 0;
    if (extra <= 0)
        return;
    // The colour stays: it is what a map is drawn by.
    const auto end = columns.end() - (columns.back().content == OgrColumn::Colour ? 1 : 0);
    findings.note(ogrFinding::attributeLeftOut, QString(), extra,
                  QStringLiteral("the format holds %1 fields; first \"%2\"").arg(most).arg((end - extra)->attribute));
    columns.erase(end - extra, end);
}

void nameFields(std::vector<OgrColumn>& columns, const OgrExportSettings& settings, const OgrTraits& traits,
                Findings& findings)
{
    QStringList wanted;
    for (const OgrColumn& column : columns) {
        QString name = column.content == OgrColumn::Attribute ? column.attribute : column.field;
        if (settings.unitsInNames && !column.unit.isEmpty())
            name += QLatin1Char('_') + column.unit;
        wanted.append(name);
    }
    const QStringList names = fieldNames(wanted, traits.names);
    for (int index = 0; index < names.size(); ++index) {
        OgrColumn& column = columns[static_cast<std::size_t>(index)];
        column.field = names[index];
        if (names[index] != wanted[index])
            findings.note(finding::renamed, wanted[index], 1,
                          QStringLiteral("attribute %1 is the field %2").arg(wanted[index], names[index]));
        if (!settings.unitsInNames && !column.unit.isEmpty())
            findings.note(ogrFinding::unitNotCarried, QString(), 1,
                          QStringLiteral("%1 is in %2; switch unitsInNames on").arg(column.attribute, column.unit));
    }
}

void findDips(OgrTable& table)
{
    for (std::size_t index = 0; index < table.columns.size(); ++index) {
        const OgrColumn& column = table.columns[index];
        const bool isNumber = column.kind == AttributeKind::Real || column.kind == AttributeKind::Integer;
        if (isNumber && column.field.toLower() == QLatin1String("dip"))
            table.dip = static_cast<int>(index);
        if (column.kind == AttributeKind::Text && column.field.toLower() == QLatin1String("type"))
            table.type = static_cast<int>(index);
    }
}

void noteWhatHasNoField(const OgrLayer& layer, const ExportSelection& selection, Findings& findings)
{
    if (layer.shape == OgrShape::Points)
        return;
    for (const ModelObject* object : layer.objects) {
        int lost = 0;
        QString first;
        for (const AttributeColumn& column : object->vertexAttributes) {
            if (selection.wantsAttribute(column.name) && lost++ == 0)
                first = column.name;
        }
        findings.note(ogrFinding::attributeOfVerticesNotCarried, *object, lost,
                      QStringLiteral("%1: a line or polygon has one value per field").arg(first));
    }
}

template <typename Entry>
const Entry* named(const std::vector<Entry>& entries, const QString& name, std::size_t& hint)
{
    if (hint < entries.size() && entries[hint].name == name)
        return &entries[hint];
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&name](const Entry& entry) { return entry.name == name; });
    if (found == entries.end())
        return nullptr;
    hint = static_cast<std::size_t>(found - entries.begin());
    return &*found;
}

} // namespace

const AttributeColumn* vertexAttributeOf(const ModelObject& object, const QString& name, std::size_t& hint)
{
    return named(object.vertexAttributes, name, hint);
}

const ObjectAttribute* objectAttributeOf(const ModelObject& object, const QString& name, std::size_t& hint)
{
    return named(object.objectAttributes, name, hint);
}

QString withDirection(const QString& type, const QVariant& dip)
{
    if (type.isEmpty() || dip.isNull())
        return type;
    const double degrees = dip.toDouble();
    if (degrees == 0.0)
        return QStringLiteral("Horizontal ") + type;
    return degrees == 90.0 ? QStringLiteral("Vertical ") + type : type;
}

bool isLeftOut(QChar character, OgrTraits::Texts texts)
{
    const ushort code = character.unicode();
    if (texts == OgrTraits::Texts::Copy)
        return code == '\r';
    // A line end is read as a line feed, whatever it was.
    return texts == OgrTraits::Texts::Xml && ((code < 0x20 && code != '\t' && code != '\n') || code >= 0xfffe);
}

QVariant writtenValue(const OgrColumn& column, const QVariant& value)
{
    if (value.isNull())
        return {};
    if (column.kind == AttributeKind::Text) {
        QString text;
        if (value.userType() == QMetaType::QColor)
            text = value.value<QColor>().name();
        else if (value.userType() == QMetaType::Double)
            text = QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
        else if (column.cutTo == 0 && column.leaveOut == OgrTraits::Texts::Any
                 && value.userType() == QMetaType::QString)
            return value;
        else
            text = value.toString();
        if (column.leaveOut != OgrTraits::Texts::Any)
            text.truncate(
                static_cast<int>(std::remove_if(text.begin(), text.end(),
                                                [&column](QChar each) { return isLeftOut(each, column.leaveOut); })
                                 - text.begin()));
        return cutToBytes(text, column.cutTo);
    }
    const double number =
        value.userType() == QMetaType::Double ? *static_cast<const double*>(value.constData()) : value.toDouble();
    if (!std::isfinite(number) || (column.most > 0 && std::abs(number) >= column.most))
        return {};
    return column.kind == AttributeKind::Real ? QVariant(number) : QVariant(value.toInt());
}

std::vector<OgrColumn> ogrColumns(const OgrLayer& layer, const ExportSelection& selection,
                                  const OgrExportSettings& settings, const OgrTraits& traits, Findings& findings)
{
    if (!settings.attributes)
        return {};
    Collector collector(selection);
    for (const ModelObject* object : layer.objects) {
        if (layer.shape == OgrShape::Points) {
            for (const AttributeColumn& column : object->vertexAttributes)
                collector.add(column.name, column.kind, column.unit, column.meaning);
        }
        for (const ObjectAttribute& attribute : object->objectAttributes)
            collector.add(attribute.name, attribute.kind, attribute.unit, attribute.meaning);
    }
    collector.noteMissing(layer, findings);
    std::vector<OgrColumn> columns = std::move(collector.columns);
    for (OgrColumn& column : columns) {
        if (std::find(traits.moments.begin(), traits.moments.end(), column.meaning) == traits.moments.end())
            column.meaning = TextMeaning::Plain;
    }
    addOwnColumns(columns, layer, settings, traits);
    dropSuperfluous(columns, traits.mostFields, findings);
    nameFields(columns, settings, traits, findings);
    noteWhatHasNoField(layer, selection, findings);
    return columns;
}

void sizeColumns(OgrTable& table, const OgrLayer& layer, const OgrExportSettings& settings, const OgrTraits& traits,
                 Findings& findings, const kpBase::AbstractProgress* progress)
{
    table.foreignTexts.clear();
    if (settings.dipInType)
        findDips(table);
    const bool directed = table.dip >= 0 && table.type >= 0;
    qint64 booleans = 0;
    QString firstBoolean;
    for (std::size_t index = 0; index < table.columns.size(); ++index) {
        OgrColumn& column = table.columns[index];
        const bool isType = directed && table.type == static_cast<int>(index);
        const OgrColumn* dip = isType ? &table.columns[static_cast<std::size_t>(table.dip)] : nullptr;
        const auto scanned = [&](bool exact) {
            OgrColumnScan made(column, dip, traits, exact);
            for (const ModelObject* object : layer.objects)
                made.look(*object, layer.shape, featuresOf(layer, *object), progress);
            return made;
        };
        const OgrColumnScan scan = scanned(false);
        scan.size(column, settings.decimals);
        (scan.rounds(column) ? scanned(true) : scan).report(column, findings);
        table.foreignTexts += scan.foreignTexts();
        if (column.kind == AttributeKind::Boolean && !traits.booleans && booleans++ == 0)
            firstBoolean = column.attribute;
    }
    table.onlyLatin = table.foreignTexts.isEmpty();
    findings.note(ogrFinding::truthAsNumber, QString(), booleans, QStringLiteral("first in %1").arg(firstBoolean));
}

QVector<kpBaseExport::OGRAttributeInfo> OgrTable::fields() const
{
    QVector<kpBaseExport::OGRAttributeInfo> infos;
    for (const OgrColumn& column : columns) {
        OGRFieldType fieldType = OFTString;
        if (column.meaning == TextMeaning::Date)
            fieldType = OFTDate;
        else if (column.meaning == TextMeaning::Time)
            fieldType = OFTTime;
        else if (column.meaning == TextMeaning::DateTime)
            fieldType = OFTDateTime;
        else if (column.kind == AttributeKind::Real)
            fieldType = OFTReal;
        else if (column.kind != AttributeKind::Text)
            fieldType = OFTInteger;
        kpBaseExport::OGRAttributeInfo info(column.field, fieldType, infos.size());
        info.size(column.width, column.decimals);
        if (column.kind == AttributeKind::Boolean)
            info.subtype(OFSTBoolean);
        infos.append(info);
    }
    return infos;
}

} // namespace kpFormats
