// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrExpectedFeature.h"
#include "formats/ogr/OgrTable.h"

#include <ogrsf_frmts.h>

#include <vector>

namespace kpFormats
{

/// Compares the fields of a layer and every value in them with the attributes of the objects.
class OgrAttributeVerification
{
public:
    /// All are used for as long as features are compared.
    OgrAttributeVerification(const OgrLayer& layer, const OgrTable& table, const OgrTraits& traits,
                             Verification& result);

    /// Names and number of the fields.
    void compareFields(OGRFeatureDefn& definition);
    void start(const OgrExpectedPlaces& places);
    void compare(const OGRFeature& read, const OgrExpectedFeature& feature);
    /// Kinds of the fields, once every feature has been looked at.
    void compareTypes(OGRFeatureDefn& definition);

private:
    /// A column of the table and where its values in the current object are.
    struct Source
    {
        const AttributeColumn* values = nullptr; ///< one per vertex; else the constant
        QVariant constant;
        bool anyValue = false; ///< one of any object was not missing
    };

    QVariant expected(std::size_t column, const OgrExpectedFeature& feature) const;
    QVariant expectedWithDip(std::size_t column, const OgrExpectedFeature& feature) const;
    void compareValue(std::size_t column, const OGRFeature& read, const QVariant& value);
    void compareText(const OgrColumn& column, const QString& wanted, const QString& read);
    QString where() const;
    bool isWritten(const OgrColumn& column, const QVariant& value) const;

    const OgrLayer& m_layer;
    const OgrTable& m_table;
    const OgrTraits& m_traits;
    Verification& m_result;
    std::vector<Source> m_sources;
    const OgrExpectedPlaces* m_places = nullptr;
    qint64 m_number = 0; ///< of the current feature in its object
    QString m_field;     ///< the current one
};

} // namespace kpFormats
