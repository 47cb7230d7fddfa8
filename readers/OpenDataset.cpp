// SPDX-License-Identifier: MIT
#include "readers/OpenDataset.h"

#include "geo/LoadLimits.h"
#include "geo/VirtualSources.h"
#include "readers/LoadError.h"
#include "readers/PgDumpReader.h"

#include <QFileInfo>

#include <algorithm>

#include <cpl_string.h>

namespace kpFormats
{

namespace
{

/// \throws LoadError when the file leads into the network, which is off
void requireOnDisk(const QString& path)
{
    if (!isNetworkForbidden())
        return;
    const QStringList sources = virtualSources(path);
    const auto network = std::find_if(sources.begin(), sources.end(), isNetworkSource);
    if (network != sources.end())
        throw LoadError(path, QStringLiteral("it takes data from %1, and access to the network is off").arg(*network),
                        QStringLiteral("add --allow-network if you trust the file"));
}

/// \throws LoadError when it takes data from outside the folder of the model that names it
void requireInBounds(const QString& path, const QString& source)
{
    if (isOutOfBounds(source))
        throw LoadError(path,
                        QStringLiteral("it takes data from %1, which lies outside the model's folder").arg(source),
                        QStringLiteral("move it there, or add --allow-outside"));
}

/// \throws LoadError when a virtual raster or layer, or what it names in turn, takes data from outside the folder of the
/// model that names it
void requireSourcesInBounds(const QString& path, int depth = 0)
{
    constexpr int deepest = 8;
    if (!hasBounds())
        return;
    for (const QString& source : virtualSources(path)) {
        // A name of another kind ("NETCDF:...", "/vsisubfile/...") hides its path.
        if (depth > deepest || !QFileInfo::exists(source))
            throw LoadError(path,
                            QStringLiteral("it takes data from %1, which is no file in the model's folder").arg(source),
                            QStringLiteral("name a file there, or add --allow-outside"));
        requireInBounds(path, source);
        requireSourcesInBounds(source, depth + 1);
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
    requireSourcesInBounds(path);
    registerGdalDrivers();
    // Else GML's driver leaves a description of its own beside the file.
    CPLStringList open;
    for (const char* const* option = options; option && *option; ++option)
        open.AddString(*option);
    open.SetNameValue("WRITE_GFS", "NO");
    GDALDatasetUniquePtr dataset =
        isPgDump(path)
            ? readPgDump(path)
            : GDALDatasetUniquePtr(GDALDataset::Open(
                path.toUtf8().constData(), flags | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR, nullptr, open.List()));
    if (!dataset && info.isDir())
        throw LoadError(path, QStringLiteral("this is a directory that GDAL does not know as a data set"),
                        QStringLiteral("name a file in it"));
    if (!dataset) {
        throw LoadError(path, QStringLiteral("the file could not be opened: %1").arg(QuietGdal::lastMessage()),
                        QStringLiteral("give a file in a format that GDAL reads"));
    }
    if (hasBounds()) {
        // A label or header can name its data too.
        const CPLStringList files(dataset->GetFileList(), true);
        for (int index = 0; index < files.size(); ++index)
            requireInBounds(path, QString::fromUtf8(files[index]));
    }
    return dataset;
}

} // namespace kpFormats
