// SPDX-License-Identifier: MIT
#include "readers/ModelLoader.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "geo/GdalWarnings.h"
#include "readers/DeviationReader.h"
#include "readers/FileKind.h"
#include "readers/GocadReader.h"
#include "readers/GrdeclReader.h"
#include "readers/GridReader.h"
#include "readers/IrapReader.h"
#include "readers/LasWellReader.h"
#include "readers/LoadError.h"
#include "readers/ModelFile.h"
#include "readers/ObjReader.h"
#include "readers/ObjectUnits.h"
#include "readers/OffReader.h"
#include "readers/OpenDataset.h"
#include "readers/OpenTecSectionReader.h"
#include "readers/PlyReader.h"
#include "readers/RmsWellReader.h"
#include "readers/StlReader.h"
#include "readers/TableReader.h"
#include "readers/VectorReader.h"
#include "readers/VtkReader.h"
#include "readers/WellReader.h"
#include "readers/ZMapReader.h"

#include <QFileInfo>

#include <new>
#include <stdexcept>

namespace kpFormats
{

namespace
{

bool isRaster(const QString& path)
{
    const QuietGdal quiet;
    const GdalWarnings toldAgain; // by the reader
    const GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_RASTER | GDAL_OF_VECTOR);
    return dataset->GetRasterCount() > 0 || (dataset->GetLayerCount() == 0 && dataset->GetMetadata("SUBDATASETS"));
}

LoadNotes readAny(Model& model, const QString& path, const LoadOptions& options)
{
    if (!options.survey.isEmpty() || !options.logs.isEmpty())
        return readWells(model, path, options);
    const FileKind kind = fileKindOf(path);
    switch (kind) {
    case FileKind::Grid:
        return readGrid(model, path, options);
    case FileKind::ZMap:
        return readZMap(model, path, options);
    case FileKind::Off:
        return readOff(model, path, options);
    case FileKind::Obj:
        return readObj(model, path, options);
    case FileKind::Grdecl:
        return readGrdecl(model, path, options);
    case FileKind::Gocad:
        return readGocad(model, path, options);
    case FileKind::IrapGrid:
        return readIrapGrid(model, path, options);
    case FileKind::IrapPolygons:
        return readIrapPolygons(model, path, options);
    case FileKind::IrapPoints:
        return readIrapPoints(model, path, options);
    case FileKind::Las:
        return readLasWell(model, path, options);
    case FileKind::Deviation:
        return readDeviation(model, path, options);
    case FileKind::OpenTec:
        return readOpenTecSection(model, path, options);
    case FileKind::RmsWell:
        return readRmsWell(model, path, options);
    case FileKind::Stl:
        return readStl(model, path, options);
    case FileKind::Ply:
        return readPly(model, path, options);
    case FileKind::Vtk:
        return readVtk(model, path, options);
    case FileKind::Table:
        return readTable(model, path, options);
    case FileKind::Gxf:
    case FileKind::Other:
        break;
    }
    try {
        return isRaster(path) ? readGrid(model, path, options) : readVectors(model, path, options);
    } catch (const LoadError&) {
        if (kind == FileKind::Gxf)
            throw LoadError(path, QStringLiteral("this is a grid in GXF that GDAL does not read"),
                            QStringLiteral("write it as ZMap+, Irap classic or another grid at its source"));
        // Points of text go by any name.
        if (!isPointTable(path, options))
            throw;
    }
    return readTable(model, path, options);
}

} // namespace

LoadNotes loadInto(Model& model, const QString& path, const LoadOptions& options)
{
    if (!options.crs.isEmpty() && wktOf(options.crs).isEmpty())
        throw LoadError(path, QStringLiteral("\"%1\" is not a coordinate system that is known").arg(options.crs),
                        QStringLiteral("give one like EPSG:28350"));
    for (const QString& source : QStringList{path, options.survey} + options.logs)
        model.addSource(source);
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        throw LoadError(path, QStringLiteral("this is a device or a pipe, which may never end"),
                        QStringLiteral("save what it gives as a file"));
    if (path.endsWith(QLatin1String(".kpmodel"), Qt::CaseInsensitive))
        return readModelFile(model, path);
    if (!info.exists() && path.contains(QChar::ReplacementCharacter))
        throw LoadError(path, QStringLiteral("its path holds bytes that are not UTF-8"),
                        QStringLiteral("give the file or its directory another name"));
    if (!path.startsWith(QLatin1String("/vsi")) && !info.exists())
        throw LoadError(path, QStringLiteral("there is no such file"), QStringLiteral("check the path"));
    try {
        // Nothing of a file that fails comes into the model.
        Model loaded;
        const GdalWarnings warnings;
        LoadNotes notes = readAny(loaded, path, options);
        notes += warnings.lines();
        ObjectUnits units;
        for (ModelObject& object : loaded.take()) {
            units.settle(object);
            if (!object.color.isValid()) {
                object.color = paletteColor(static_cast<int>(model.objects().size()));
                object.colorIsOwn = false;
            }
            model.add(std::move(object));
        }
        return notes + units.notes();
    } catch (const std::bad_alloc&) {
        throw LoadError(path, QStringLiteral("it does not fit into memory"),
                        QStringLiteral("split it, or close other programs"));
    } catch (const std::invalid_argument& fault) {
        throw LoadError(path, QString::fromUtf8(fault.what()), QStringLiteral("repair it at its source"));
    }
}

} // namespace kpFormats
