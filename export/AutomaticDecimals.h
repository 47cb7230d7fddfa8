// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "model/ModelObject.h"
#include "model/OutputUnit.h"
#include "model/kpFormatsExport.h"

#include <cmath>
#include <limits>
#include <utility>

namespace kpFormats
{

/// Of a setting: as many decimals as the numbers need.
inline constexpr int automaticDecimals = -1;
/// No more than these are chosen for anyone.
inline constexpr int mostAutomaticDecimals = 8;

/// What numbers need of the decimals of their column.
class KPFORMATS_EXPORT DecimalsNeed
{
public:
    void add(double number);
    /// The least, from \a usual on, that give every number exactly; or else with which rounding moves no number by more
    /// than a millionth of the largest and, if so wanted, makes none 0.
    int decimals(int usual, bool keepSmall = true) const;

private:
    double m_most = 0;
    double m_least = std::numeric_limits<double>::infinity(); ///< but 0
    int m_exact = 0; ///< decimals that give every number exactly; beyond the most when none do
};

/// Decimals for the positions of objects in a unit, from \a usual for lengths on: neighbouring vertices stay apart.
/// \a factor is what lengths are multiplied with. Heights need others where positions are degrees.
struct PositionDecimals
{
    int flat;
    int heights;
};
KPFORMATS_EXPORT PositionDecimals positionDecimals(const std::vector<const ModelObject*>& objects, int usual,
                                                   double factor = 1.0);

/// Notes neighbouring vertices that differ but are written alike.
KPFORMATS_EXPORT void notePositionsAlike(const ModelObject& object, const PositionDecimals& decimals, double factor,
                                         Findings& findings);

/// The decimals of every coordinate in a file of lengths: those \a chosen or, for automaticDecimals, those that the
/// objects need. Notes neighbouring vertices that are written alike.
KPFORMATS_EXPORT int coordinateDecimals(const std::vector<const ModelObject*>& objects, int chosen, OutputUnit unit,
                                        Findings& findings);

/// Counts numbers that are not 0 but are written so.
class KPFORMATS_EXPORT RoundedToZero
{
public:
    explicit RoundedToZero(int decimals)
        : m_half(0.5 * std::pow(10.0, -decimals))
    {
    }
    void add(double number)
    {
        if (std::abs(number) < m_half && number != 0.0 && m_count++ == 0)
            m_example = number;
    }
    void note(const FindingObject& object, const QString& column, Findings& findings) const;

private:
    double m_half;
    double m_example = 0;
    qint64 m_count = 0;
};

} // namespace kpFormats
