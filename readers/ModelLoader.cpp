// SPDX-License-Identifier: MIT
#include "readers/ModelLoader.h"

#include "geo/CoordinateSystems.h"
#include "readers/GocadReader.h"
#include "readers/GrdeclReader.h"
#include "readers/GridReader.h"
#include "readers/LoadError.h"
#include "readers/ModelFile.h"
#include "readers/ObjReader.h"
#include "readers/OffReader.h"
#include "readers/VectorReader.h"
#include "readers/WellReader.h"

#include <QFileInfo>

namespace kpFormats
{

LoadNotes loadInto(Model& model, const QString& path, const LoadOptions& options)
{
    static const QStringList rasters{QStringLiteral("tif"),  QStringLiteral("tiff"), QStringLiteral("asc"),
                                     QStringLiteral("grd"),  QStringLiteral("img"),  QStringLiteral("vrt"),
                                     QStringLiteral("zmap"), QStringLiteral("dem")};
    static const QStringList gocad{QStringLiteral("ts"), QStringLiteral("pl"), QStringLiteral("vs"),
                                   QStringLiteral("gp"), QStringLiteral("gocad")};
    if (!options.crs.isEmpty() && wktOf(options.crs).isEmpty())
        throw LoadError(path, QStringLiteral("\"%1\" is no coordinate system that is known").arg(options.crs),
                        QStringLiteral("give one like EPSG:28350"));
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("kpmodel"))
        return readModelFile(model, path);
    if (!options.survey.isEmpty())
        return readWells(model, path, options);
    if (rasters.contains(suffix) || (suffix == QLatin1String("dat") && isZMapGrid(path)))
        return readGrid(model, path, options);
    if (suffix == QLatin1String("off"))
        return readOff(model, path, options);
    if (suffix == QLatin1String("obj"))
        return readObj(model, path, options);
    if (suffix == QLatin1String("grdecl"))
        return readGrdecl(model, path, options);
    if (gocad.contains(suffix))
        return readGocad(model, path, options);
    return readVectors(model, path, options);
}

} // namespace kpFormats
