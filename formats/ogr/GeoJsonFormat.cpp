// SPDX-License-Identifier: MIT
#include "formats/ogr/GeoJsonFormat.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/WriteErrors.h"
#include "formats/ogr/GeoJsonDecimals.h"
#include "formats/ogr/OgrFindings.h"
#include "geo/CoordinateSystems.h"

#include <QFile>

#include <ogr_spatialref.h>

#include <algorithm>

namespace kpFormats
{

namespace
{

// Fewer than these move positions by more than about a millimetre.
constexpr int fewDegreeDecimals = 8;
constexpr int fewLengthDecimals = 3;

bool isGeographic(const QString& wkt)
{
    OGRSpatialReference reference;
    return !wkt.isEmpty() && reference.SetFromUserInput(wkt.toUtf8().constData()) == OGRERR_NONE
           && reference.IsGeographic();
}

bool hasCode(const QString& wkt)
{
    OGRSpatialReference reference;
    return reference.SetFromUserInput(wkt.toUtf8().constData()) == OGRERR_NONE && reference.GetAuthorityCode(nullptr);
}

/// Features in a file that stands in one line each, and the file's last bytes.
struct Contents
{
    qint64 features = 0;
    QByteArray end;
};

Contents contentsOf(const QString& path)
{
    Contents contents;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return contents;
    const QByteArray start = QByteArrayLiteral("\n{ \"type\": \"Feature\",");
    QByteArray carry;
    while (!file.atEnd()) {
        const QByteArray block = carry + file.read(1 << 20);
        for (int place = block.indexOf(start); place >= 0; place = block.indexOf(start, place + start.size()))
            ++contents.features;
        contents.end = block.right(8);
        // What may be the beginning of the next one, but not a whole one.
        carry = block.right(start.size() - 1);
    }
    return contents;
}

} // namespace

FormatInfo GeoJsonFormat::info() const
{
    FormatInfo info = vectorInfo();
    info.key = QStringLiteral("geojson");
    info.displayName = QStringLiteral("GeoJSON");
    info.fileFormatName = QStringLiteral("GeoJSON");
    return info;
}

SettingsTable GeoJsonFormat::settings() const
{
    SettingsTable table = commonSettings();
    table.addBoolean("rfc7946", &OgrExportSettings::rfc7946, tr("RFC 7946"),
                     tr("longitude and latitude in WGS 84; false writes in crs"));
    table.addInteger("decimals", &OgrExportSettings::decimals, -1, 15, tr("Decimals"),
                     tr("decimals of coordinates; -1 for a tenth of a millimetre"));
    return table;
}

QStringList GeoJsonFormat::extensions() const
{
    return {QStringLiteral("geojson"), QStringLiteral("json")};
}

QStringList GeoJsonFormat::sidecars() const
{
    return {};
}

OgrTraits GeoJsonFormat::traits() const
{
    OgrTraits traits;
    traits.driver = QStringLiteral("GeoJSON");
    traits.fileKind = QStringLiteral("GeoJSON file");
    traits.names.caseMatters = true;
    // Text that looks like a date is text.
    traits.readOptions = QStringList{QStringLiteral("DATE_AS_STRING=YES")};
    return traits;
}

OgrSystems GeoJsonFormat::systems(const PlannedFile& file, const ExportSelection& selection,
                                  const OgrExportSettings& settings) const
{
    const QString chosen = chosenSystem(file, selection, settings);
    if (!settings.rfc7946)
        return OgrSystems(chosen, chosen);
    if (chosen.isEmpty()) {
        throw ExportError(file.path, QStringLiteral("the objects have no coordinate system, and GeoJSON is in WGS 84"),
                          QStringLiteral("say which it is with crs=EPSG:n, or write as it is with rfc7946=false"));
    }
    return OgrSystems(wktOf(QStringLiteral("EPSG:4326")), chosen, true);
}

void GeoJsonFormat::tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
                         const kpBase::AbstractProgress*) const
{
    options.explicitNulls = true;
    const bool degrees = isGeographic(output.systems.target());
    const int decimals = output.settings.decimals >= 0 ? output.settings.decimals
                         : degrees                     ? geoJsonDegreeDecimals
                                                       : geoJsonLengthDecimals;
    options.layerOptions.append(output.settings.rfc7946 ? QStringLiteral("RFC7946=YES") : QStringLiteral("RFC7946=NO"));
    // After a run of zeros the driver takes the last two digits for noise: it gets two that are zero.
    output.decimals = decimals;
    options.layerOptions.append(QStringLiteral("COORDINATE_PRECISION=%1").arg(decimals + 2));
    // With 17, which is its own choice, the driver takes more of the last digits of a number for noise.
    options.layerOptions.append(QStringLiteral("SIGNIFICANT_FIGURES=18"));
    if (decimals < (degrees ? fewDegreeDecimals : fewLengthDecimals))
        findings.note(ogrFinding::coordinatesRounded, QString(), 1, QStringLiteral("to %1 decimals").arg(decimals));
}

WrittenSystem GeoJsonFormat::writtenSystem(OgrOutput& output, Findings& findings) const
{
    const QString& target = output.systems.target();
    if (output.settings.rfc7946 || target.isEmpty() || hasCode(target))
        return {target, 0.0};
    findings.note(finding::coordinateSystemNotCarried, QString(), 1,
                  QStringLiteral("%1 has no number; readers will take the file for WGS 84").arg(crsName(target)));
    return {};
}

void GeoJsonFormat::check(const OgrOutput& output, Findings&) const
{
    // Reading it again with GDAL takes as long as writing it; the text tells.
    const Contents contents = contentsOf(output.path);
    if (!contents.end.endsWith("\n]\n}\n"))
        failIncomplete(output.file.path, QStringLiteral("its end is not there"));
    if (contents.features != output.features.front())
        failIncomplete(
            output.file.path,
            QStringLiteral("%1 of %2 features are there").arg(contents.features).arg(output.features.front()));
}

} // namespace kpFormats
