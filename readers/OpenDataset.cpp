// SPDX-License-Identifier: MIT
#include "readers/OpenDataset.h"

#include "geo/LoadLimits.h"
#include "readers/LoadError.h"

#include <QFile>
#include <QFileInfo>

#include <cpl_string.h>

namespace kpFormats
{

namespace
{

/// Opens a virtual raster or layer. \returns whether it is one
bool openVirtual(QFile& file)
{
    return file.open(QIODevice::ReadOnly) && file.peek(64).contains("VRTData");
}

/// \throws LoadError when the file leads into the network, which is off
void requireOnDisk(const QString& path)
{
    constexpr qint64 mostText = 16 * 1024 * 1024;
    QFile file(path);
    if (!isNetworkForbidden() || !openVirtual(file))
        return;
    const QString source = networkSourceIn(file.read(mostText));
    if (!source.isEmpty())
        throw LoadError(path, QStringLiteral("it takes data from %1, and access to the network is off").arg(source),
                        QStringLiteral("add --allow-network if you trust the file"));
}

/// \throws LoadError when a virtual raster or layer takes data from outside the folder of the model that names it
void requireInBounds(const QString& path, GDALDataset& dataset, int depth = 0)
{
    constexpr int deepest = 8;
    QFile virtualFile(path);
    if (!hasBounds() || !openVirtual(virtualFile))
        return;
    const CPLStringList files(dataset.GetFileList(), true);
    for (int index = 0; index < files.size(); ++index) {
        const QString file = QString::fromUtf8(files[index]);
        if (isOutOfBounds(file) || depth > deepest)
            throw LoadError(path,
                            QStringLiteral("it takes data from %1, which lies outside the model's folder").arg(file),
                            QStringLiteral("move it there, or add --allow-outside"));
        const GDALDatasetUniquePtr inner(QFileInfo(file) == QFileInfo(path)
                                             ? nullptr
                                             : GDALDataset::Open(files[index], GDAL_OF_RASTER | GDAL_OF_VECTOR));
        if (inner)
            requireInBounds(file, *inner, depth + 1);
    }
}

} // namespace

GDALDatasetUniquePtr openDataset(const QString& path, unsigned flags, const char* const* options)
{
    const QFileInfo info(path);
    // GDAL's own file systems have other ways than the machine's.
    if (!path.startsWith(QLatin1String("/vsi"))) {
        if (!info.exists())
            throw LoadError(path, QStringLiteral("there is no such file"), QStringLiteral("check the path"));
        if (!info.isReadable())
            throw LoadError(path, QStringLiteral("the file cannot be read"), QStringLiteral("check its permissions"));
        if (info.isFile() && info.size() == 0)
            throw LoadError(path, QStringLiteral("the file is empty"),
                            QStringLiteral("export it again from its source"));
    }
    requireOnDisk(path);
    registerGdalDrivers();
    // Else GML's driver leaves a description of its own beside the file.
    CPLStringList open;
    for (const char* const* option = options; option && *option; ++option)
        open.AddString(*option);
    open.SetNameValue("WRITE_GFS", "NO");
    GDALDatasetUniquePtr dataset(GDALDataset::Open(
        path.toUtf8().constData(), flags | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR, nullptr, open.List()));
    if (!dataset && info.isDir())
        throw LoadError(path, QStringLiteral("this is a directory that GDAL does not know as a data set"),
                        QStringLiteral("name a file in it"));
    if (!dataset) {
        throw LoadError(path, QStringLiteral("the file could not be opened: %1").arg(QuietGdal::lastMessage()),
                        QStringLiteral("give a file in a format that GDAL reads"));
    }
    requireInBounds(path, *dataset);
    return dataset;
}

} // namespace kpFormats
