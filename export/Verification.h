// SPDX-License-Identifier: MIT
#pragma once

#include "export/Allowance.h"
#include "export/LengthFactors.h"
#include "model/kpFormatsExport.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <array>
#include <cmath>

namespace kpFormats
{

/// What reading a written file again, by another route than it was written, has shown. Whoever compares tells it each
/// expectation and what was read in its place; it counts them and judges: what differs by more than is allowed is a
/// fault, and a file with a fault is refused.
///
/// \c where is called, for a text such as "Top, vertex 3", only where there is something to tell.
class KPFORMATS_EXPORT Verification
{
public:
    using Place = std::array<double, 3>;

    /// The largest difference met.
    struct Worst
    {
        double difference = 0;
        QString place; ///< where it was; empty when nothing differs
    };

    /// \a reader: what read the file, such as "GDAL driver GeoJSON".
    Verification(const QString& reader, const Allowance& positions);
    /// Where heights count in another unit, or have other decimals.
    Verification(const QString& reader, const Allowance& positions, const Allowance& heights);
    /// Where they may be off by the same number, in the units of \a factors.
    Verification(const QString& reader, double allowed, const LengthFactors& factors);

    template <typename Where>
    void comparePosition(const Place& expected, const Place& read, Where where)
    {
        compareFlat(expected, read, where, expected[2], read[2]);
        judge(m_heights.most, m_worstHeight, expected[2], read[2], [&] { return apart(where(), expected, read); });
    }
    /// For a file that has no heights.
    template <typename Where>
    void compareFlatPosition(const Place& expected, const Place& read, Where where)
    {
        const double unknown = std::nan("");
        compareFlat(expected, read, where, unknown, unknown);
    }
    /// One number of a position that has a place, and perhaps decimals, of its own in the file. Whoever compares its
    /// numbers one by one counts the position.
    template <typename Where>
    void compareCoordinate(double expected, double read, double allowed, Where where)
    {
        judge(allowed, m_worst, expected, read, [&] { return unlike(where(), shown(expected), shown(read)); });
    }
    void countPosition() { ++m_positions; }
    /// A number that is not a place; \a allowed is in its own unit.
    template <typename Where>
    void compareValue(double expected, double read, double allowed, Where where)
    {
        ++m_values;
        if (good() && !agree(expected, read, allowed))
            fail(unlike(where(), shown(expected), shown(read)));
    }
    template <typename Where>
    void compareText(const QString& expected, const QString& read, Where where)
    {
        ++m_texts;
        if (good() && expected != read)
            fail(unlike(where(), quoted(expected), quoted(read)));
    }
    /// A missing value. \a read is what stands in its place, \a asMissing whether that says that it is missing.
    template <typename Where>
    void compareMissing(bool asMissing, const QString& read, Where where)
    {
        ++m_nulls;
        if (good() && !asMissing)
            fail(unlike(where(), QStringLiteral("a missing value"), quoted(read)));
    }
    /// \returns whether they are the same
    bool compareCount(const QString& where, const QString& what, qint64 expected, qint64 read);
    /// Something else that must be the same, and is told as compared under the name \a what.
    bool compareSame(const QString& what, const QString& where, const QString& expected, const QString& read);

    /// The first fault stays.
    void fail(const QString& fault);
    /// What is compared beside positions and attributes, such as "coordinate system".
    void alsoCompared(const QString& what);

    const QString& reader() const { return m_reader; }
    qint64 positions() const { return m_positions; }
    qint64 values() const { return m_values; }
    qint64 texts() const { return m_texts; }
    qint64 nulls() const { return m_nulls; }
    const Allowance& allowed() const { return m_allowed; }
    const Allowance& allowedHeight() const { return m_heights; }
    /// Of positions; of heights too where they count in the same unit.
    const Worst& worst() const { return m_worst; }
    const Worst& worstHeight() const { return m_worstHeight; }
    /// What does not agree, in words; empty when everything does.
    QString fault() const;
    bool good() const { return m_fault.isEmpty(); }

    /// What was compared: "12 positions, 3 values, coordinate system".
    QString comparedText() const;
    /// The largest difference and what was allowed: "worst difference 0.0004 m of 0.0005 m allowed".
    QString worstText() const;
    QJsonObject toJson() const;

private:
    template <typename Where>
    void compareFlat(const Place& expected, const Place& read, Where& where, double z, double readZ)
    {
        ++m_positions;
        const auto differs = [&] { return apart(where(), {expected[0], expected[1], z}, {read[0], read[1], readZ}); };
        judge(m_allowed.most, m_worst, expected[0], read[0], differs);
        judge(m_allowed.most, m_worst, expected[1], read[1], differs);
    }
    template <typename Text>
    void judge(double allowed, Worst& worst, double expected, double read, Text text)
    {
        const double difference = std::abs(read - expected);
        if (difference > worst.difference)
            worst = {difference, text()};
        if (good() && !agree(expected, read, allowed))
            fail(text());
    }
    static bool agree(double expected, double read, double allowed)
    {
        // Reading decimals rounds once more.
        const double most = allowed * 1.0000001 + std::abs(expected) * 1e-15;
        return std::abs(read - expected) <= most || read == expected || (std::isnan(read) && std::isnan(expected));
    }
    static QString shown(double number);
    static QString quoted(const QString& text);
    static QString unlike(const QString& where, const QString& expected, const QString& read);
    static QString apart(const QString& where, const Place& expected, const Place& read);

    QString m_reader;
    Allowance m_allowed;
    Allowance m_heights;
    qint64 m_positions = 0;
    qint64 m_values = 0;
    qint64 m_texts = 0;
    qint64 m_nulls = 0;
    Worst m_worst;
    Worst m_worstHeight;
    QStringList m_others;
    QString m_fault;
};

} // namespace kpFormats
