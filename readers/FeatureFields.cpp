// SPDX-License-Identifier: MIT
#include "readers/FeatureFields.h"

#include "readers/FeatureDates.h"

#include <ogr_feature.h>

#include <algorithm>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr GIntBig largestExact = 9007199254740992; // 2^53

/// Numbers of a field whose values came one by one.
void setNumbers(AttributeColumn& column, const QVector<QVariant>& values)
{
    std::vector<double> numbers;
    std::vector<unsigned char> missing;
    bool any = false;
    numbers.reserve(static_cast<std::size_t>(values.size()));
    missing.reserve(static_cast<std::size_t>(values.size()));
    for (const QVariant& value : values) {
        numbers.push_back(value.toDouble());
        missing.push_back(value.isNull() ? 1 : 0);
        any = any || value.isNull();
    }
    column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
    if (any)
        column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
}

} // namespace

FeatureFields::FeatureFields(const OGRFeatureDefn& definition, const std::vector<int>& others)
{
    for (int index = 0; index < definition.GetFieldCount(); ++index) {
        const OGRFieldDefn& defined = *definition.GetFieldDefn(index);
        m_names.append(QString::fromUtf8(defined.GetNameRef()));
        if (std::find(others.begin(), others.end(), index) != others.end())
            continue;
        Field field;
        field.index = index;
        switch (defined.GetType()) {
        case OFTInteger:
            field.kind = defined.GetSubType() == OFSTBoolean ? AttributeKind::Boolean : AttributeKind::Integer;
            break;
        case OFTInteger64:
            field.kind = AttributeKind::Integer;
            break;
        case OFTReal:
            field.kind = AttributeKind::Real;
            break;
        case OFTDate:
            field.meaning = TextMeaning::Date;
            break;
        case OFTTime:
            field.meaning = TextMeaning::Time;
            break;
        case OFTDateTime:
            field.meaning = TextMeaning::DateTime;
            break;
        case OFTBinary:
            m_binary.append(m_names.last());
            continue;
        case OFTIntegerList:
        case OFTInteger64List:
        case OFTRealList:
        case OFTStringList:
            field.list = true;
            break;
        default:
            break;
        }
        m_fields.push_back(field);
    }
    m_rows.resize(m_fields.size());
}

QVariant FeatureFields::valueOf(const OGRFeature& feature, const Field& field) const
{
    if (!feature.IsFieldSetAndNotNull(field.index))
        return {};
    switch (field.kind) {
    case AttributeKind::Real:
        return feature.GetFieldAsDouble(field.index);
    case AttributeKind::Integer: {
        const GIntBig number = feature.GetFieldAsInteger64(field.index);
        if (number > largestExact || number < -largestExact) {
            if (!m_large.contains(m_names[field.index]))
                m_large.append(m_names[field.index]);
            return static_cast<qlonglong>(number);
        }
        if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
            return static_cast<double>(number);
        return static_cast<int>(number);
    }
    case AttributeKind::Boolean:
        return feature.GetFieldAsInteger(field.index) != 0;
    default:
        break;
    }
    if (field.meaning != TextMeaning::Plain)
        return isoOf(*feature.GetRawFieldRef(field.index), field.meaning);
    if (field.list) {
        char* json = feature.GetFieldAsSerializedJSon(field.index);
        const QString text = QString::fromUtf8(json);
        CPLFree(json);
        return text;
    }
    return QString::fromUtf8(feature.GetFieldAsString(field.index));
}

std::vector<ObjectAttribute> FeatureFields::attributesOf(const OGRFeature& feature) const
{
    std::vector<ObjectAttribute> attributes;
    attributes.reserve(m_fields.size());
    for (const Field& field : m_fields) {
        QVariant value = valueOf(feature, field);
        AttributeKind kind = field.kind;
        if (value.type() == QVariant::LongLong) {
            kind = AttributeKind::Text;
            value = value.toString();
        } else if (kind == AttributeKind::Integer && value.type() == QVariant::Double) {
            kind = AttributeKind::Real;
        }
        attributes.push_back({m_names[field.index], kind, QString(), value, field.meaning});
    }
    return attributes;
}

void FeatureFields::addRow(const OGRFeature& feature)
{
    for (std::size_t field = 0; field < m_fields.size(); ++field)
        m_rows[field].append(valueOf(feature, m_fields[field]));
}

std::vector<AttributeColumn> FeatureFields::takeColumns()
{
    std::vector<AttributeColumn> columns;
    columns.reserve(m_fields.size());
    for (std::size_t index = 0; index < m_fields.size(); ++index) {
        const Field& field = m_fields[index];
        QVector<QVariant> values = std::move(m_rows[index]);
        AttributeColumn column;
        column.name = m_names[field.index];
        column.kind = field.kind;
        column.meaning = field.meaning;
        bool real = field.kind == AttributeKind::Real;
        bool large = false;
        for (const QVariant& value : qAsConst(values)) {
            real = real || (field.kind == AttributeKind::Integer && value.type() == QVariant::Double);
            large = large || value.type() == QVariant::LongLong;
        }
        if (large) {
            column.kind = AttributeKind::Text;
            for (QVariant& value : values) {
                if (!value.isNull())
                    value =
                        value.type() == QVariant::Double ? QString::number(value.toDouble(), 'f', 0) : value.toString();
            }
            column.values = std::move(values);
        } else if (real) {
            column.kind = AttributeKind::Real;
            setNumbers(column, values);
        } else {
            column.values = std::move(values);
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

QStringList FeatureFields::notes() const
{
    QStringList notes;
    if (!m_binary.isEmpty())
        notes.append(QStringLiteral("%1 fields of binary data were left out: %2")
                         .arg(m_binary.size())
                         .arg(m_binary.join(QStringLiteral(", "))));
    if (!m_large.isEmpty())
        notes.append(
            QStringLiteral("%1 fields have whole numbers of more than 15 digits and are kept as texts, so that "
                           "no digit is lost: %2")
                .arg(m_large.size())
                .arg(m_large.join(QStringLiteral(", "))));
    return notes;
}

} // namespace kpFormats
