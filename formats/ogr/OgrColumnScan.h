// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrTable.h"

#include <array>

namespace kpFormats
{

/// What the values of a column need of their field.
class OgrColumnScan
{
public:
    /// \a dip decides what goes before the texts of the column; null for nothing. Not \a exact, the numbers that need
    /// few decimals are counted with those that need more.
    OgrColumnScan(const OgrColumn& column, const OgrColumn* dip, const OgrTraits& traits, bool exact)
        : m_column(column)
        , m_dip(dip)
        , m_traits(traits)
        , m_exact(exact)
    {
    }

    /// Looks at the attribute's values in an object that makes \a features features; stops when the user cancels.
    void look(const ModelObject& object, OgrShape shape, qint64 features, const kpBase::AbstractProgress* progress);

    /// Sets width and decimals of the column. \a decimals as the user wants them; -1 for as many as needed.
    void size(OgrColumn& column, int decimals) const;
    /// Whether a number needs more decimals than the column has.
    bool rounds(const OgrColumn& column) const { return m_mostDecimals > column.decimals; }
    /// Notes what is lost.
    void report(const OgrColumn& column, Findings& findings) const;

    const QString& foreignTexts() const { return m_foreign; }

private:
    void lookAtNumber(double number, qint64 features);
    void lookAtText(const QString& text, qint64 features);
    void lookAtValue(const QVariant& value, qint64 features);
    void lookAtTypes(const ModelObject& object, OgrShape shape, qint64 features);

    const OgrColumn& m_column;
    const OgrColumn* m_dip;
    const OgrTraits& m_traits;
    bool m_exact;
    int m_mostDecimals = 0; ///< that a number needs
    double m_range = 10;    ///< the power of ten with m_digits zeros
    bool m_negative = false;
    int m_digits = 1;                      ///< most digits before the decimal point
    std::array<qint64, 64> m_byDecimals{}; ///< numbers that need so many decimals to keep 15 digits
    int m_longest = 1;                     ///< bytes of the longest text
    qint64 m_nulls = 0;
    qint64 m_notFinite = 0;
    qint64 m_empty = 0;
    qint64 m_long = 0;
    qint64 m_leftOut = 0;
    qint64 m_wide = 0;
    QString m_notMoment; ///< the first text that a field of dates does not hold
    QString m_longExample;
    double m_wideExample = 0;
    QString m_object;     ///< being looked at
    QString m_nullObject; ///< the first with a missing value
    std::size_t m_vertexHint = 0;
    std::size_t m_objectHint = 0;
    QString m_foreign; ///< each character beyond ASCII, once
};

} // namespace kpFormats
