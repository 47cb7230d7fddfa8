// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiLayout.h"
#include "model/kpFormatsExport.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <array>
#include <limits>
#include <vector>

namespace kpFormats
{

/// What must be known of the chosen objects' values to judge a layout: ranges, longest texts, texts that hold a
/// separator, how close neighbouring points lie. Found out in one pass over the data, in steps that let a window live.
class KPFORMATS_EXPORT AsciiProfile
{
public:
    /// Of one field.
    struct Column
    {
        AttributeKind kind = AttributeKind::Real;
        double least = std::numeric_limits<double>::infinity(); ///< of finite numbers
        double most = -std::numeric_limits<double>::infinity();
        bool notFinite = false;          ///< "nan" or "inf" will be written
        qint64 missing = 0;              ///< missing numbers
        QString longest;                 ///< the longest text or whole number
        QHash<QString, QString> holding; ///< a text that holds the separator, by separator

        bool hasNumbers() const { return least <= most; }
    };

    /// Begins anew. The objects must outlive the profile's work. \a separators: texts to look for.
    void start(const std::vector<const ModelObject*>& objects, const std::vector<OfferedField>& fields,
               const QStringList& separators);
    /// Works on for about that time. \returns true when everything is known
    bool advance(int milliseconds);
    bool done() const { return m_next >= m_work.size(); }

    /// An empty column for a field that the objects lack.
    Column column(const QString& field) const { return m_columns.value(field); }
    /// Neighbouring vertices that differ but are written alike with these decimals; -1 leaves the coordinate out.
    qint64 alike(int xDecimals, int yDecimals, int zDecimals) const;

private:
    struct Work
    {
        const ModelObject* object;
        int field; ///< index into m_fields; -1 for the distances of neighbours
    };

    void compareNeighbours(const ModelObject& object, int from, int to);
    void look(const ModelObject& object, const OfferedField& field, int from, int to);
    void lookAtNumbers(Column& column, const double* numbers, const unsigned char* missing, int from, int to);
    void lookAtValue(Column& column, const QVariant& value, int times);
    void lookAtText(Column& column, const QString& text);

    static constexpr int decimalSteps = 14; ///< 0 to 12 decimals tell apart, 13: none of them does

    std::vector<OfferedField> m_fields;
    QStringList m_separators;
    QHash<QString, Column> m_columns;
    std::vector<Work> m_work;
    std::size_t m_next = 0;
    int m_row = 0;
    /// Pairs of neighbours by the least decimals that tell them apart in x, y and z.
    std::vector<qint64> m_pairs;
};

} // namespace kpFormats
