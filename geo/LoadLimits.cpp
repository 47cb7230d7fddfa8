// SPDX-License-Identifier: MIT
#include "geo/LoadLimits.h"

#include "geo/RefusedFileSystem.h"

#include <QDir>
#include <QFileInfo>

#include <cstring>
#include <utility>

#include <cpl_conv.h>
#include <cpl_http.h>
#include <gdal_priv.h>

namespace kpFormats
{

namespace
{

bool networkForbidden = false;
bool driversLimited = false; ///< GDAL's drivers are registered
bool outsideForbidden = false;
thread_local QString boundingModel;

CPLHTTPResult* refuse(const char* url, CSLConstList, GDALProgressFunc, void*, CPLHTTPFetchWriteFunc, void*, void*)
{
    // GDAL frees both.
    auto* const result = static_cast<CPLHTTPResult*>(CPLCalloc(1, sizeof(CPLHTTPResult)));
    result->nStatus = 1;
    result->pszErrBuf = CPLStrdup(CPLSPrintf("%s: access to the network is off", url));
    CPLError(CE_Failure, CPLE_HttpResponse, "%s", result->pszErrBuf);
    return result;
}

using Opener = GDALDataset* (*)(GDALOpenInfo*);

Opener netcdfOpener = nullptr;

GDALDataset* openLocalNetcdf(GDALOpenInfo* info)
{
    if (!std::strstr(info->pszFilename, "://"))
        return netcdfOpener(info);
    CPLError(CE_Failure, CPLE_HttpResponse, "%s: access to the network is off", info->pszFilename);
    return nullptr;
}

/// The path without links where it exists.
QString place(const QString& path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : canonical;
}

} // namespace

void forbidNetwork()
{
    networkForbidden = true;
    // Read when PROJ is first used.
    qputenv("PROJ_NETWORK", "OFF");
    CPLHTTPSetFetchCallback(refuse, nullptr);
    // These connect, or start a program, by themselves.
    const char* const drivers = "PostgreSQL,PostGISRaster,MySQL,MSSQLSpatial,ODBC,OCI,HANA,MongoDBv3,OGR_OGDI,DODS,"
                                "Rasdaman,JPIPKAK,WMS,WMTS,WCS,OGCAPI,EEDA,EEDAI,DAAS,PLMOSAIC,PLSCENES,NGW,WFS,OAPIF,"
                                "CSW,Elasticsearch,Carto,AmigoCloud,GPSBabel,HTTP";
    CPLSetConfigOption("GDAL_SKIP", drivers);
    if (driversLimited)
        limitDrivers();
}

void limitDrivers()
{
    driversLimited = true;
    if (!networkForbidden)
        return;
    // Not earlier: a run that never asks for GDAL pays nothing for it.
    RefusedFileSystem::install();
    GDALDriver* const netcdf = GetGDALDriverManager()->GetDriverByName("netCDF");
    // Its library has a way to servers of its own, which nothing switches off.
    if (netcdf && netcdf->pfnOpen && netcdf->pfnOpen != openLocalNetcdf) {
        netcdfOpener = netcdf->pfnOpen;
        netcdf->pfnOpen = openLocalNetcdf;
    }
}

bool isNetworkForbidden()
{
    return networkForbidden;
}

void forbidOutside()
{
    outsideForbidden = true;
}

bool isForbiddenOutside(const QString& modelFile, const QString& file)
{
    if (!outsideForbidden)
        return false;
    const QString folder = QFileInfo(modelFile).absoluteDir().canonicalPath();
    return !place(file).startsWith(folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/'));
}

ModelBounds::ModelBounds(const QString& modelFile)
    : m_before(std::exchange(boundingModel, modelFile))
{
}

ModelBounds::~ModelBounds()
{
    boundingModel = m_before;
}

bool hasBounds()
{
    return outsideForbidden && !boundingModel.isEmpty();
}

bool isOutOfBounds(const QString& file)
{
    return hasBounds() && isForbiddenOutside(boundingModel, file);
}

} // namespace kpFormats
