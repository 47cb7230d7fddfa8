// SPDX-License-Identifier: MIT
#include "export/WellDirections.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Vector = std::array<double, 3>;

Vector difference(const Vector& a, const Vector& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double product(const Vector& a, const Vector& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double length(const Vector& a)
{
    return std::sqrt(product(a, a));
}

Vector scaled(const Vector& a, double by)
{
    return {a[0] * by, a[1] * by, a[2] * by};
}

Vector unit(const Vector& a)
{
    const double size = length(a);
    return size > 0.0 ? scaled(a, 1.0 / size) : a;
}

Vector sum(const Vector& a, const Vector& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

/// The end of an arc that begins in direction \a begin and has a chord in direction \a chord.
Vector mirrored(const Vector& begin, const Vector& chord)
{
    return unit(difference(scaled(chord, 2.0 * product(begin, chord)), begin));
}

/// Tangents of the circles through each place and its neighbours.
std::vector<Vector> tangents(const std::vector<Vector>& chords, const std::vector<double>& lengths)
{
    const std::size_t count = chords.size() + 1;
    std::vector<Vector> result(count);
    for (std::size_t place = 1; place + 1 < count; ++place)
        result[place] = unit(sum(scaled(chords[place - 1], lengths[place]), scaled(chords[place], lengths[place - 1])));
    result.front() = count > 2 ? mirrored(result[1], chords.front()) : chords.front();
    result.back() = count > 2 ? mirrored(result[count - 2], chords.back()) : chords.back();
    return result;
}

/// Directions along arcs that each go on as the one before ended.
std::vector<Vector> chained(const Vector& first, const std::vector<Vector>& chords)
{
    std::vector<Vector> result{first};
    for (const Vector& chord : chords)
        result.push_back(mirrored(result.back(), chord));
    return result;
}

/// A path without repeated places.
struct Path
{
    std::vector<Vector> chords; ///< of length 1
    std::vector<double> lengths;
    std::vector<double> measured; ///< way along each chord; may be empty

    /// By how much each arc from \a first on is too long.
    std::vector<double> excess(const Vector& first) const
    {
        const std::vector<Vector> directions = chained(first, chords);
        std::vector<double> result;
        for (std::size_t arc = 0; arc < chords.size(); ++arc)
            result.push_back(lengthOfArc(directions[arc], directions[arc + 1], lengths[arc]) - measured[arc]);
        return result;
    }
};

double squares(const std::vector<double>& numbers)
{
    double sumOf = 0.0;
    for (const double number : numbers)
        sumOf += number * number;
    return sumOf;
}

/// The first direction with which the arcs fit the measured depths best, from a guess on (Gauss and Newton, damped).
Vector fitted(const Path& path, Vector first)
{
    double damping = 1e-3;
    std::vector<double> excess = path.excess(first);
    for (int round = 0; round < 30; ++round) {
        const Vector across =
            unit(std::abs(first[2]) < 0.9 ? Vector{-first[1], first[0], 0.0} : Vector{0.0, -first[2], first[1]});
        const Vector other{first[1] * across[2] - first[2] * across[1], first[2] * across[0] - first[0] * across[2],
                           first[0] * across[1] - first[1] * across[0]};
        constexpr double little = 1e-5;
        const auto slopes = [&](const Vector& way) {
            // From both sides, since what turns a path out of its plane is the same on either.
            std::vector<double> result = path.excess(unit(sum(first, scaled(way, little))));
            const std::vector<double> back = path.excess(unit(sum(first, scaled(way, -little))));
            for (std::size_t arc = 0; arc < back.size(); ++arc)
                result[arc] = (result[arc] - back[arc]) / (2.0 * little);
            return result;
        };
        const std::vector<double> one = slopes(across);
        const std::vector<double> two = slopes(other);
        double aa = 0.0;
        double ab = 0.0;
        double bb = 0.0;
        double ra = 0.0;
        double rb = 0.0;
        for (std::size_t arc = 0; arc < excess.size(); ++arc) {
            const double a = one[arc];
            const double b = two[arc];
            aa += a * a;
            ab += a * b;
            bb += b * b;
            ra += a * excess[arc];
            rb += b * excess[arc];
        }
        // A direction that hardly counts is left as it was guessed.
        const double ridge = damping * (aa + bb);
        aa += ridge;
        bb += ridge;
        const double determinant = aa * bb - ab * ab;
        if (!(std::abs(determinant) > 0.0))
            break;
        const Vector step =
            sum(scaled(across, (ab * rb - bb * ra) / determinant), scaled(other, (ab * ra - aa * rb) / determinant));
        const Vector next = unit(sum(first, step));
        std::vector<double> left = path.excess(next);
        if (squares(left) < squares(excess)) {
            first = next;
            excess = std::move(left);
            damping = std::max(damping / 10.0, 1e-10);
        } else {
            damping *= 10.0;
        }
    }
    return first;
}

double farthest(const std::vector<Vector>& a, const std::vector<Vector>& b)
{
    double most = 0.0;
    for (std::size_t place = 0; place < a.size(); ++place)
        most = std::max(most, length(difference(a[place], b[place])));
    return most;
}

std::vector<Vector> directionsOf(const Path& path)
{
    const std::vector<Vector> guessed = tangents(path.chords, path.lengths);
    Vector first = guessed.front();
    std::vector<Vector> result;
    // An error of the first direction comes back with every arc, now on one side, now on the other.
    for (int round = 0; round < 4; ++round) {
        result = chained(first, path.chords);
        Vector error{};
        for (std::size_t place = 0; place < result.size(); ++place)
            error = sum(error, scaled(difference(result[place], guessed[place]), place % 2 == 0 ? 1.0 : -1.0));
        first = unit(difference(first, scaled(error, 1.0 / static_cast<double>(result.size()))));
    }
    // Most holes begin vertically.
    const std::vector<Vector> begins{first, {0.0, 0.0, -1.0}, path.chords.front()};
    for (std::size_t begin = 0; begin < begins.size() && !path.measured.empty(); ++begin) {
        const std::vector<Vector> exact = chained(fitted(path, begins[begin]), path.chords);
        constexpr double close = 1e-6;
        const std::vector<double> excess = path.excess(exact.front());
        bool fits = true;
        for (std::size_t arc = 0; arc < excess.size(); ++arc)
            fits = fits && std::abs(excess[arc]) <= close * path.measured[arc];
        if (fits)
            return exact;
    }
    constexpr double smooth = 0.05; // some 3 degrees
    return farthest(result, guessed) < smooth ? result : guessed;
}

} // namespace

double lengthOfArc(const Vector& begin, const Vector& end, double chord)
{
    const double bend = std::acos(std::clamp(product(begin, end), -1.0, 1.0));
    return bend < 1e-9 ? chord : chord * (bend / 2.0) / std::sin(bend / 2.0);
}

std::vector<WellDirection> wellDirections(const std::vector<std::array<double, 3>>& places,
                                          const std::vector<double>& measured)
{
    Path path;
    std::vector<std::size_t> numbers{0}; // of the different place that each place is
    double begin = measured.empty() ? 0.0 : measured.front();
    for (std::size_t place = 1; place < places.size(); ++place) {
        const Vector way = difference(places[place], places[place - 1]);
        if (length(way) > 0.0) {
            path.chords.push_back(unit(way));
            path.lengths.push_back(length(way));
            if (!measured.empty()) {
                path.measured.push_back(measured[place] - begin);
                begin = measured[place];
            }
        }
        numbers.push_back(path.chords.size());
    }
    const Vector down{0.0, 0.0, -1.0};
    const std::vector<Vector> found = path.chords.empty() ? std::vector<Vector>{down} : directionsOf(path);
    std::vector<WellDirection> directions;
    for (std::size_t place = 0; place < places.size(); ++place)
        directions.push_back(found[numbers[place]]);
    return directions;
}

} // namespace kpFormats
