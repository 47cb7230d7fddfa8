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

/// \throws LoadError when the file leads into the network, which is off
void requireOnDisk(const QString& path)
{
    constexpr qint64 mostText = 16 * 1024 * 1024;
    QFile file(path);
    if (!isNetworkForbidden() || !file.open(QIODevice::ReadOnly) || !file.peek(64).contains("VRTData"))
        return;
    const QString source = networkSourceIn(file.read(mostText));
    if (!source.isEmpty())
        throw LoadError(path, QStringLiteral("it takes data from %1, and access to the network is off").arg(source),
                        QStringLiteral("add --allow-network if you trust the file"));
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
    return dataset;
}

} // namespace kpFormats
