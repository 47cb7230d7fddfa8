// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"

#include <QStringList>

#include <vector>

class OGRFeature;
class OGRFeatureDefn;

namespace kpFormats
{

/// The fields of a vector layer as attributes. Dates and times become ISO 8601 texts, lists JSON; whole numbers that no
/// double holds exactly make their field one of texts; binary fields are left out.
class FeatureFields
{
public:
    /// \a others are the places of fields that are something else than attributes.
    explicit FeatureFields(const OGRFeatureDefn& definition, const std::vector<int>& others = {});

    /// All of the layer's, also those that are left out.
    const QStringList& names() const { return m_names; }
    std::size_t count() const { return m_fields.size(); }
    /// The fields of a feature as attributes of an object of its own.
    std::vector<ObjectAttribute> attributesOf(const OGRFeature& feature) const;
    /// Adds a row to the columns that takeColumns() gives.
    void addRow(const OGRFeature& feature);
    std::vector<AttributeColumn> takeColumns();
    /// What was changed or left out of the fields, "field A: ...".
    QStringList notes() const;

private:
    struct Field
    {
        int index = 0;
        AttributeKind kind = AttributeKind::Text;
        TextMeaning meaning = TextMeaning::Plain;
        bool list = false;
    };

    QVariant valueOf(const OGRFeature& feature, const Field& field) const;

    QStringList m_names;
    std::vector<Field> m_fields;
    std::vector<QVector<QVariant>> m_rows; ///< a column per field
    QStringList m_binary;
    mutable QStringList m_large; ///< fields with a whole number that no double holds
};

} // namespace kpFormats
