// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrAttributeVerification.h"

#include "formats/ogr/OgrMoments.h"
#include "readers/FeatureDates.h"

#include <QColor>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

QString textOf(const QVariant& value)
{
    if (value.userType() == QMetaType::QColor)
        return value.value<QColor>().name();
    if (value.userType() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    return value.toString();
}

/// A table pads texts with blanks and does not say which were there before.
QString withoutPadding(const QString& text)
{
    int first = 0;
    int end = text.size();
    while (first < end && text[first] == QLatin1Char(' '))
        ++first;
    while (end > first && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(first, end - first);
}

/// A format has no place for some control characters, and the report tells of them.
QString withoutLeftOut(QString text, const OgrTraits& traits)
{
    static const QRegularExpression control(QStringLiteral("[\\x{0}-\\x{8}\\x{b}-\\x{1f}\\x{fffe}\\x{ffff}]"));
    if (traits.texts == OgrTraits::Texts::Copy)
        return text.remove(QLatin1Char('\r'));
    return traits.texts == OgrTraits::Texts::Xml ? text.remove(control) : text;
}

/// Of a field of texts, dates or times.
OGRFieldType typeOf(const OgrColumn& column)
{
    if (column.meaning == TextMeaning::Date)
        return OFTDate;
    if (column.meaning == TextMeaning::Time)
        return OFTTime;
    return column.meaning == TextMeaning::DateTime ? OFTDateTime : OFTString;
}

bool isWhole(OGRFieldType type)
{
    return type == OFTInteger || type == OFTInteger64;
}

} // namespace

OgrAttributeVerification::OgrAttributeVerification(const OgrLayer& layer, const OgrTable& table,
                                                   const OgrTraits& traits, Verification& result)
    : m_layer(layer)
    , m_table(table)
    , m_traits(traits)
    , m_result(result)
    , m_sources(table.columns.size())
{
}

void OgrAttributeVerification::compareFields(OGRFeatureDefn& definition)
{
    const QString name = m_layer.objects.front()->name;
    QStringList wanted;
    QStringList read;
    for (const OgrColumn& column : m_table.columns)
        wanted.append(column.field);
    for (int field = 0; field < definition.GetFieldCount(); ++field)
        read.append(QString::fromUtf8(definition.GetFieldDefn(field)->GetNameRef()));

    if (wanted.isEmpty() && m_traits.sizedTexts)
        return; // a table has at least one field, which the driver makes
    m_result.compareSame(QStringLiteral("names of fields"), name, wanted.join(QStringLiteral(", ")),
                         read.join(QStringLiteral(", ")));
}

void OgrAttributeVerification::start(const OgrExpectedPlaces& places)
{
    m_places = &places;
    const ModelObject& object = places.object();
    for (std::size_t index = 0; index < m_sources.size(); ++index) {
        const OgrColumn& column = m_table.columns[index];
        Source& source = m_sources[index];
        source.values = nullptr;
        source.constant = QVariant();
        if (column.content == OgrColumn::ObjectName)
            source.constant = object.name;
        else if (column.content == OgrColumn::Colour)
            source.constant = object.color.isValid() ? QVariant(object.color.name()) : QVariant();
        if (column.content != OgrColumn::Attribute)
            continue;
        for (const ObjectAttribute& attribute : object.objectAttributes) {
            if (source.constant.isNull() && attribute.name == column.attribute)
                source.constant = attribute.value;
        }
        for (const AttributeColumn& values : object.vertexAttributes) {
            if (m_layer.shape == OgrShape::Points && !source.values && values.name == column.attribute)
                source.values = &values;
        }
    }
}

QVariant OgrAttributeVerification::expected(std::size_t column, const OgrExpectedFeature& feature) const
{
    if (m_table.columns[column].content == OgrColumn::Height) {
        const double height = m_places->at(feature.vertex())[2];
        return m_places->object().hasZ && !std::isnan(height) ? QVariant(height) : QVariant();
    }
    const Source& source = m_sources[column];
    if (!source.values)
        return source.constant;
    const std::size_t vertex = feature.vertex();
    if (source.values->kind != AttributeKind::Real)
        return source.values->values[static_cast<int>(vertex)];
    const bool missing = source.values->missing && (*source.values->missing)[vertex] != 0;
    return missing ? QVariant() : QVariant((*source.values->numbers)[vertex]);
}

/// The text of a type says first where the dip beside it is level or upright.
QVariant OgrAttributeVerification::expectedWithDip(std::size_t column, const OgrExpectedFeature& feature) const
{
    const QVariant value = expected(column, feature);
    if (m_table.dip < 0 || static_cast<int>(column) != m_table.type || value.isNull())
        return value;
    const QVariant dip = expected(static_cast<std::size_t>(m_table.dip), feature);
    const bool level = !dip.isNull() && dip.toDouble() == 0.0;
    const bool upright = !dip.isNull() && dip.toDouble() == 90.0;
    const QString text = textOf(value);
    if (text.isEmpty() || !(level || upright))
        return value;
    return (level ? QStringLiteral("Horizontal ") : QStringLiteral("Vertical ")) + text;
}

/// False for a missing value and a number that the field is told not to hold.
bool OgrAttributeVerification::isWritten(const OgrColumn& column, const QVariant& value) const
{
    if (value.isNull() || column.kind == AttributeKind::Text)
        return !value.isNull();
    const double number = value.toDouble();
    return std::isfinite(number) && (column.most <= 0 || std::abs(number) < column.most);
}

QString OgrAttributeVerification::where() const
{
    return QStringLiteral("%1, feature %2, %3").arg(m_places->object().name).arg(m_number).arg(m_field);
}

void OgrAttributeVerification::compare(const OGRFeature& read, const OgrExpectedFeature& feature)
{
    m_number = feature.number;
    const int fields = read.GetFieldCount();
    for (std::size_t column = 0; column < m_sources.size() && static_cast<int>(column) < fields; ++column) {
        m_field = m_table.columns[column].field;
        compareValue(column, read, expectedWithDip(column, feature));
    }
}

void OgrAttributeVerification::compareText(const OgrColumn& column, const QString& wanted, const QString& read)
{
    const auto place = [this] { return where(); };
    if (column.meaning != TextMeaning::Plain && sameMoment(wanted, read, column.meaning))
        return m_result.compareText(wanted, wanted, place);
    if (m_traits.sizedTexts) {
        // Longer ones were cut, which the report tells.
        const bool cut = column.cutTo > 0 && wanted.toUtf8().size() > column.cutTo;
        const bool begins = cut && wanted.startsWith(read) && read.toUtf8().size() > column.cutTo - 4;
        return m_result.compareText(withoutPadding(begins ? read : wanted), withoutPadding(read), place);
    }
    // The reader of GML leaves out blanks before a text, which are there.
    const auto first = [this](const QString& text) {
        int blanks = 0;
        while (m_traits.texts == OgrTraits::Texts::Xml && blanks < text.size() && text[blanks].isSpace())
            ++blanks;
        return text.mid(blanks);
    };
    m_result.compareText(first(wanted), first(read), place);
}

void OgrAttributeVerification::compareValue(std::size_t index, const OGRFeature& read, const QVariant& value)
{
    const OgrColumn& column = m_table.columns[index];
    const auto field = static_cast<int>(index);
    const auto place = [this] { return where(); };
    const bool there = read.IsFieldSetAndNotNull(field) != 0;
    const bool isText = column.kind == AttributeKind::Text;
    const auto readText = [&] {
        if (!there)
            return QString();
        const bool isMoment =
            column.meaning != TextMeaning::Plain && typeOf(column) == read.GetFieldDefnRef(field)->GetType();
        return isMoment ? isoOf(*read.GetRawFieldRef(field), column.meaning)
                        : QString::fromUtf8(read.GetFieldAsString(field));
    };
    if (!isWritten(column, value)) {
        const bool asMissing = m_traits.nulls ? !there
                               : isText       ? readText().isEmpty()
                                              : read.GetFieldAsDouble(field) == 0.0;
        return m_result.compareMissing(asMissing, readText(), place);
    }
    const QString text = isText ? withoutLeftOut(textOf(value), m_traits) : QString();
    const bool empty = isText && (m_traits.texts == OgrTraits::Texts::Xml ? text.trimmed() : text).isEmpty();
    if (!there && !(empty && !m_traits.emptyTexts))
        return m_result.fail(QStringLiteral("%1: nothing was read instead of %2").arg(where(), textOf(value)));
    m_sources[index].anyValue = true;
    if (isText)
        return compareText(column, text, readText());
    if (value.userType() == QMetaType::LongLong || value.userType() == QMetaType::Int) {
        const qint64 whole = value.toLongLong();
        if (isWhole(read.GetFieldDefnRef(field)->GetType()) && whole != read.GetFieldAsInteger64(field))
            return m_result.fail(QStringLiteral("%1: %2 was read instead of %3")
                                     .arg(where())
                                     .arg(read.GetFieldAsInteger64(field))
                                     .arg(whole));
    }
    const double number = value.toDouble();
    double allowed = 0.0;
    if (column.kind == AttributeKind::Real && m_traits.sizedNumbers)
        allowed = 0.5 * std::pow(10.0, -column.decimals);
    else if (column.kind == AttributeKind::Real && m_traits.digits > 0)
        allowed = 5.0 * std::pow(10.0, -m_traits.digits) * std::abs(number);
    m_result.compareValue(number, read.GetFieldAsDouble(field), allowed, place);
}

void OgrAttributeVerification::compareTypes(OGRFeatureDefn& definition)
{
    // Text that holds the values only: without one its kind is not known.
    const bool byValues = m_traits.names.caseMatters;
    for (std::size_t index = 0; index < m_sources.size(); ++index) {
        const auto field = static_cast<int>(index);
        const OgrColumn& column = m_table.columns[index];
        if (field >= definition.GetFieldCount() || (byValues && !m_sources[index].anyValue))
            continue;
        const OGRFieldDefn& read = *definition.GetFieldDefn(field);
        const OGRFieldType type = read.GetType();
        bool same = false;
        if (column.kind == AttributeKind::Text)
            same = type == typeOf(column);
        else if (column.kind == AttributeKind::Real)
            same = type == OFTReal || (m_traits.sizedNumbers && column.decimals == 0 && isWhole(type));
        else if (column.kind == AttributeKind::Boolean && m_traits.booleans)
            same = type == OFTInteger && read.GetSubType() == OFSTBoolean;
        else
            same = isWhole(type) && read.GetSubType() == OFSTNone;
        m_result.alsoCompared(QStringLiteral("kinds of fields"));
        if (!same)
            m_result.fail(QStringLiteral("field %1: it is of the kind %2")
                              .arg(column.field, QLatin1String(OGRFieldDefn::GetFieldTypeName(type))));
    }
}

} // namespace kpFormats
