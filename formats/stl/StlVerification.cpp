// SPDX-License-Identifier: MIT
#include "formats/stl/StlVerification.h"

#include "export/WrittenSurface.h"
#include "readers/StatedOffset.h"
#include "readers/StlReader.h"

#include <cmath>

namespace kpFormats
{

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
        return true;
    });
    return result;
}

} // namespace kpFormats
