// SPDX-License-Identifier: MIT
#include "formats/stl/StlVerification.h"

#include "export/WrittenSurface.h"
#include "readers/StatedOffset.h"
#include "readers/StlReader.h"

#include <cmath>

namespace kpFormats
{

namespace
{

/// The normal of a facet has length 1 and stands on its sides, to the side from which its corners run counter-clockwise.
void compareNormal(const std::array<WrittenSurface::Place, 3>& corners, const std::array<double, 3>& normal,
                   const QString& name, std::size_t facet, Verification& result)
{
    constexpr double rounding = 1e-6; // of single precision
    WrittenSurface::Place a{};
    WrittenSurface::Place b{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        a[axis] = corners[1][axis] - corners[0][axis];
        b[axis] = corners[2][axis] - corners[0][axis];
    }
    const WrittenSurface::Place upright{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                                        a[0] * b[1] - a[1] * b[0]};
    const double length = std::hypot(upright[0], upright[1], upright[2]);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double wanted = length > 0.0 ? upright[axis] / length : 0.0;
        if (!(std::abs(normal[axis] - wanted) <= rounding))
            return result.fail(QStringLiteral("%1, facet %2: its normal is not upright on it").arg(name).arg(facet));
    }
}

} // namespace

Verification verifyStl(const ModelObject& object, const QString& path, const StlExportSettings& settings,
                       const MapOffset& offset)
{
    Verification result(QStringLiteral("the program's STL reader"), offset.mostRounding(),
                        LengthFactors(object, settings.lengthUnit, settings.zIsElevation));
    StlFacets read;
    try {
        read = readStlFacets(path);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    StatedOffset stated;
    stated.take(read.title);
    result.compareSame(QStringLiteral("title"), object.name, QString::fromStdString(stlTitle(object, settings, offset)),
                       QString::fromUtf8(read.title.data(), static_cast<int>(read.title.size())));
    const WrittenSurface surface(object, settings.lengthUnit, settings.zIsElevation);
    if (!result.compareCount(object.name, QStringLiteral("facets"), surface.mesh().triangleCount(),
                             static_cast<qint64>(read.corners.size() / 3)))
        return result;
    std::size_t next = 0;
    const std::array<double, 3>& from = stated.place();
    surface.eachTriangle([&](const std::array<WrittenSurface::Place, 3>& corners) {
        for (const WrittenSurface::Place& corner : corners) {
            const std::array<double, 3>& found = read.corners[next++];
            result.comparePosition(corner, {found[0] + from[0], found[1] + from[1], found[2] + from[2]}, [&] {
                return QStringLiteral("%1, facet %2, corner %3")
                    .arg(object.name)
                    .arg((next - 1) / 3 + 1)
                    .arg((next - 1) % 3 + 1);
            });
        }
        compareNormal(corners, read.normals[next / 3 - 1], object.name, next / 3, result);
        return true;
    });
    result.alsoCompared(QStringLiteral("normals"));
    return result;
}

} // namespace kpFormats
