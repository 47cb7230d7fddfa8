// SPDX-License-Identifier: MIT
#include "geo/KnownSystems.h"

#include "geo/GdalSession.h"

#include <ogr_srs_api.h>

#include <algorithm>
#include <memory>

namespace kpFormats
{

namespace
{

std::vector<KnownSystem> readSystems()
{
    const QuietGdal quiet;
    int count = 0;
    const std::unique_ptr<OSRCRSInfo*, decltype(&OSRDestroyCRSInfoList)> list(
        OSRGetCRSInfoListFromDatabase("EPSG", nullptr, &count), OSRDestroyCRSInfoList);
    std::vector<KnownSystem> systems;
    for (int index = 0; list && index < count; ++index) {
        const OSRCRSInfo& info = *list.get()[index];
        if (info.bDeprecated || (info.eType != OSR_CRS_TYPE_PROJECTED && info.eType != OSR_CRS_TYPE_GEOGRAPHIC_2D))
            continue;
        KnownSystem system;
        system.code = QStringLiteral("EPSG:%1").arg(QString::fromUtf8(info.pszCode));
        system.name = QString::fromUtf8(info.pszName);
        system.area = QString::fromUtf8(info.pszAreaName);
        system.degrees = info.eType == OSR_CRS_TYPE_GEOGRAPHIC_2D;
        if (info.bBboxValid) {
            system.west = info.dfWestLongitudeDeg;
            system.south = info.dfSouthLatitudeDeg;
            system.east = info.dfEastLongitudeDeg;
            system.north = info.dfNorthLatitudeDeg;
        }
        systems.push_back(std::move(system));
    }
    std::sort(systems.begin(), systems.end(),
              [](const KnownSystem& one, const KnownSystem& other) { return one.name < other.name; });
    return systems;
}

} // namespace

const std::vector<KnownSystem>& knownSystems()
{
    static const std::vector<KnownSystem> systems = readSystems();
    return systems;
}

} // namespace kpFormats
