// SPDX-License-Identifier: MIT
#include "formats/raster/RasterFile.h"

#include "export/CommonFindings.h"
#include "export/GridNodes.h"
#include "export/WriteErrors.h"
#include "formats/raster/RasterSource.h"
#include "formats/raster/RasterVerification.h"
#include "geo/CheckedWrites.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "host/data/AbstractProgress.h"

#include <QFileInfo>

#include <cpl_string.h>

#include <algorithm>

namespace kpFormats
{

namespace
{

/// Of a copy that GDAL makes.
struct CopyProgress
{
    kpBase::AbstractProgress* progress;
    int percent = 0;
    bool cancelled = false;

    static int CPL_STDCALL report(double done, const char*, void* copy)
    {
        auto& self = *static_cast<CopyProgress*>(copy);
        if (!self.progress)
            return TRUE;
        // Drivers of several passes begin again with each.
        const int percent = std::max(self.percent, static_cast<int>(100.0 * done));
        if (percent > self.percent)
            self.progress->progressChanged(percent);
        self.percent = percent;
        self.cancelled = self.progress->isCancelled();
        return self.cancelled ? FALSE : TRUE;
    }
};

bool isLocal(const QString& wkt)
{
    OGRSpatialReference system;
    return system.SetFromUserInput(wkt.toUtf8().constData()) == OGRERR_NONE && system.IsLocal();
}

CPLStringList stringList(const QStringList& options)
{
    CPLStringList list;
    for (const QString& option : options)
        list.AddString(option.toUtf8().constData());
    return list;
}

} // namespace

RasterFile::RasterFile(RasterTraits traits, PlannedFile planned, const ExportSelection& selected,
                       RasterExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_traits(std::move(traits))
    , m_settings(std::move(settings))
    , m_grid(*file().objects.front(), m_traits, m_settings, selected, file().path, findings)
    , m_numbers(m_grid, m_traits, m_settings, findings)
    , m_saysSystem(m_traits.system && !m_grid.object().crs.isEmpty())
{
    refuseDevice(file().path, m_traits.fileKind);
    const ModelObject& object = m_grid.object();
    if (!m_traits.bands)
        noteOtherAttributes(object, m_settings.attribute, findings);
    if (!m_traits.system && !object.crs.isEmpty())
        findings.note(finding::coordinateSystemNotCarried, object, 1,
                      QStringLiteral("a %1 has no way to say %2").arg(m_traits.fileKind, crsName(object.crs)));
}

QStringList RasterFile::sidecars() const
{
    // What other programs have noted beside an earlier file is not true of a new one.
    return m_traits.sidecars + QStringList{QFileInfo(file().path).suffix() + QStringLiteral(".aux.xml")};
}

QStringList RasterFile::options() const
{
    QStringList options = m_traits.options;
    if (m_traits.numbers == RasterTraits::NumberKind::Decimals)
        options.append(QStringLiteral("DECIMAL_PRECISION=%1").arg(m_numbers.decimals));
    if (m_traits.compression) {
        const QString names[] = {QStringLiteral("NONE"), QStringLiteral("DEFLATE"), QStringLiteral("LZW")};
        options.append(QStringLiteral("COMPRESS=") + names[static_cast<int>(m_settings.compression)]);
    }
    if (m_traits.overviews)
        options.append(m_settings.overviews ? QStringLiteral("OVERVIEWS=AUTO") : QStringLiteral("OVERVIEWS=NONE"));
    return options;
}

qint64 RasterFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    refuseDevice(path, m_traits.fileKind);
    registerGdalDrivers();
    const QuietGdal quiet;
    // What a format has no place for is told, not put into a file of GDAL's own beside it.
    const GdalOption noNotes("GDAL_PAM_ENABLED", "NO");
    // Copied in small pieces, between which the user can cancel.
    const GdalOption pieces("GDAL_SWATH_SIZE", "1000000");
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(m_traits.driver.toLatin1().constData());
    if (!driver)
        failIncomplete(file().path, QStringLiteral("GDAL has no driver %1").arg(m_traits.driver));
    RasterSource source(m_grid, m_numbers);
    CopyProgress copy{progress};
    const CheckedWrites checked(path);
    CPLErrorReset();
    GDALDatasetUniquePtr dataset(driver->CreateCopy(CheckedWrites::pathFor(path).toUtf8().constData(), &source, FALSE,
                                                    stringList(options()).List(), CopyProgress::report, &copy));
    if (copy.cancelled)
        return 0;
    const bool made = dataset != nullptr;
    dataset.reset();
    requireWritten(file().path, checked);
    if (!made || CPLGetLastErrorType() >= CE_Failure)
        failIncomplete(file().path, CheckedWrites::inOwnNames(QuietGdal::lastMessage()));
    check(path, findings);
    return m_grid.object().vertexCount();
}

void RasterFile::check(const QString& path, Findings& findings)
{
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    if (!dataset)
        failIncomplete(file().path, QStringLiteral("it cannot be opened again; %1").arg(QuietGdal::lastMessage()));
    const OGRSpatialReference* const system = dataset->GetSpatialRef();
    if (!m_saysSystem || (system && (!system->IsLocal() || isLocal(m_grid.object().crs))))
        return;
    m_saysSystem = false;
    findings.note(finding::coordinateSystemNotCarried, m_grid.object(), 1,
                  QStringLiteral("the format does not know %1").arg(crsName(m_grid.object().crs)));
}

std::optional<Verification> RasterFile::verify(const QString& path) const
{
    registerGdalDrivers();
    return verifyRaster(path, {m_grid.object(), m_traits, m_settings, m_numbers, m_grid.bands(), m_saysSystem});
}

} // namespace kpFormats
