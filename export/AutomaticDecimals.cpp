// SPDX-License-Identifier: MIT
#include "export/AutomaticDecimals.h"

#include "export/CommonFindings.h"
#include "geo/CoordinateSystems.h"
#include "model/OutputUnit.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

double halfOf(int decimals)
{
    return 0.5 * std::pow(10.0, -decimals);
}

/// Decimals from \a decimals on with which two numbers are written differently; beyond the most when none are enough.
int decimalsApart(double a, double b, int decimals)
{
    if (a == b || !std::isfinite(a) || !std::isfinite(b))
        return mostAutomaticDecimals + 1;
    for (; decimals <= mostAutomaticDecimals; ++decimals) {
        const double scale = std::pow(10.0, decimals);
        if (std::abs(a - b) * scale > 1.0 || std::round(a * scale) != std::round(b * scale))
            break;
    }
    return decimals;
}

/// Calls \a look with the numbers of the vertex before and of each vertex.
template <typename Look>
void eachPair(const ModelObject& object, double factor, Look look)
{
    const double flat = unitsOf(object.crs).degrees ? 1.0 : factor;
    for (std::size_t vertex = 1; vertex < object.x->size(); ++vertex) {
        const auto pair = [vertex](const Numbers& numbers, double by) {
            return std::pair<double, double>((*numbers)[vertex - 1] * by, (*numbers)[vertex] * by);
        };
        look(pair(object.x, flat), pair(object.y, flat), pair(object.z, factor), vertex);
    }
}

} // namespace

void DecimalsNeed::add(double number)
{
    const double size = std::abs(number);
    if (!std::isfinite(size) || size == 0.0)
        return;
    m_most = std::max(m_most, size);
    m_least = std::min(m_least, size);
    for (; m_exact <= mostAutomaticDecimals; ++m_exact) {
        const double scale = std::pow(10.0, m_exact);
        if (std::round(size * scale) / scale == size)
            return;
    }
}

int DecimalsNeed::decimals(int usual, bool keepSmall) const
{
    constexpr double part = 1e-6;
    // What no decimals keep needs no more of them.
    const bool curable = keepSmall && m_least >= halfOf(mostAutomaticDecimals);
    int decimals = usual;
    while (decimals < std::min(mostAutomaticDecimals, m_exact)
           && (halfOf(decimals) > part * m_most || (curable && m_least < halfOf(decimals))))
        ++decimals;
    return decimals;
}

PositionDecimals positionDecimals(const std::vector<const ModelObject*>& objects, int usual, double factor)
{
    // A degree is some 111 km.
    constexpr int moreForDegrees = 5;
    PositionDecimals need{usual, usual};
    DecimalsNeed flat;
    DecimalsNeed heights;
    for (const ModelObject* object : objects) {
        const bool degrees = unitsOf(object->crs).degrees;
        const double metres = unitFactor(object->lengthUnit, OutputUnit::Metre) / factor;
        const int lengths = metres >= 100.0 ? usual + 3 : usual;
        need.flat = std::max(need.flat, degrees ? usual + moreForDegrees : lengths);
        need.heights = std::max(need.heights, lengths);
        for (std::size_t vertex = 0; vertex < object->x->size(); ++vertex) {
            flat.add((*object->x)[vertex] * (degrees ? 1.0 : factor));
            flat.add((*object->y)[vertex] * (degrees ? 1.0 : factor));
        }
        for (const double z : *object->z)
            heights.add(z * factor);
    }
    // Only how large they are counts: near an origin every place comes near to 0.
    need.flat = std::min(mostAutomaticDecimals, flat.decimals(need.flat, false));
    need.heights = std::min(mostAutomaticDecimals, heights.decimals(need.heights, false));
    for (const ModelObject* object : objects) {
        eachPair(*object, factor, [&need](const auto& x, const auto& y, const auto& z, std::size_t) {
            const int across =
                std::min(decimalsApart(x.first, x.second, need.flat), decimalsApart(y.first, y.second, need.flat));
            const int up = decimalsApart(z.first, z.second, need.heights);
            if (across <= need.flat || up <= need.heights)
                return;
            if (across <= mostAutomaticDecimals)
                need.flat = across;
            else if (up <= mostAutomaticDecimals)
                need.heights = up;
        });
    }
    return need;
}

void notePositionsAlike(const ModelObject& object, const PositionDecimals& decimals, double factor, Findings& findings)
{
    qint64 alike = 0;
    std::size_t first = 0;
    const auto same = [](const std::pair<double, double>& pair, int count) {
        const bool missing = std::isnan(pair.first) && std::isnan(pair.second);
        return pair.first == pair.second || missing || decimalsApart(pair.first, pair.second, count) > count;
    };
    const auto equal = [](const std::pair<double, double>& pair) {
        return pair.first == pair.second || !std::isfinite(pair.first) || !std::isfinite(pair.second);
    };
    eachPair(object, factor, [&](const auto& x, const auto& y, const auto& z, std::size_t vertex) {
        if (equal(x) && equal(y) && equal(z))
            return;
        if (same(x, decimals.flat) && same(y, decimals.flat) && same(z, decimals.heights) && alike++ == 0)
            first = vertex;
    });
    findings.note(
        finding::positionsAlike, object, alike,
        QStringLiteral("%1 decimals are too few for vertices %2 and %3").arg(decimals.flat).arg(first).arg(first + 1));
}

int coordinateDecimals(const std::vector<const ModelObject*>& objects, int chosen, OutputUnit unit, Findings& findings)
{
    constexpr int usual = 4; // a tenth of a millimetre
    int decimals = chosen;
    if (chosen == automaticDecimals) {
        decimals = usual;
        for (const ModelObject* object : objects) {
            const PositionDecimals needed = positionDecimals({object}, usual, unitFactor(object->lengthUnit, unit));
            decimals = std::max({decimals, needed.flat, needed.heights});
        }
    }
    for (const ModelObject* object : objects)
        notePositionsAlike(*object, {decimals, decimals}, unitFactor(object->lengthUnit, unit), findings);
    return decimals;
}

void RoundedToZero::note(const FindingObject& object, const QString& column, Findings& findings) const
{
    findings.note(finding::numberWrittenAs0, object, m_count,
                  QStringLiteral("%1 in %2").arg(m_example, 0, 'g', 6).arg(column));
}

} // namespace kpFormats
