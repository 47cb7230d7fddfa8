// SPDX-License-Identifier: MIT
#include "formats/deviation/DeviationFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "formats/deviation/DeviationFindings.h"
#include "formats/deviation/DeviationVerification.h"
#include "geo/CoordinateSystems.h"
#include "model/ProgressTicker.h"
#include "writers/FixedNumber.h"

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

/// \throws ExportError when stations must not follow each other so
void requireOrder(const std::vector<DeviationStation>& stations, const ModelObject& object, const QString& file)
{
    for (std::size_t row = 1; row < stations.size(); ++row) {
        if (!(stations[row].measuredDepth > stations[row - 1].measuredDepth))
            throw ExportError(file,
                              QStringLiteral("the measured depth of the well %1 does not increase at vertex %2")
                                  .arg(object.name)
                                  .arg(stations[row].vertex + 1),
                              QStringLiteral("correct its depths"));
    }
}

void appendCell(std::string& text, double value, int decimals)
{
    constexpr std::size_t width = 14;
    std::string number;
    appendFixed(number, value, decimals);
    text.append(number.size() < width ? width - number.size() : 0, ' ');
    text += ' ' + number;
}

} // namespace

DeviationFile::DeviationFile(PlannedFile planned, const ExportSelection& selected, DeviationExportSettings settings,
                             Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_unit(
          metreOrFoot(*file().objects.front(), m_settings.lengthUnit, QStringLiteral("a deviation table"), file().path))
{
    const ModelObject& object = *file().objects.front();
    if (LengthFactors(object, m_unit, true).flatUnit == QLatin1String("degrees"))
        throw ExportError(file().path, QStringLiteral("the well %1 lies in degrees").arg(object.name),
                          QStringLiteral("give it a coordinate system that counts in metres or feet"));
    noteMetreOrFoot(object, m_settings.lengthUnit, m_unit, QStringLiteral("a deviation table"), findings);
    const WellDepths depths(object, m_unit, file().path, findings);
    m_stations = deviationStations(depths);
    m_reference = depths.reference();
    findings.note(finding::rowWithoutDepth, object, static_cast<qint64>(depths.size() - m_stations.size()),
                  QStringLiteral("its depth, place or height is missing"));
    if (m_stations.empty())
        throw ExportError(file().path,
                          QStringLiteral("no vertex of the well %1 has a depth and a place").arg(object.name),
                          QStringLiteral("choose a well with heights"));
    requireOrder(m_stations, object, file().path);
    m_distance = distanceOfPath(m_stations);
    if (m_distance > deviationPathAllowance(m_stations.back().measuredDepth - m_stations.front().measuredDepth))
        findings.note(deviationFinding::pathOfAngles, object, 1,
                      QStringLiteral("by up to %1 %2; X, Y and TVD are those of the model")
                          .arg(m_distance, 0, 'g', 3)
                          .arg(writtenUnit(object.lengthUnit, m_unit)));
    m_settings.decimals = coordinateDecimals({&object}, m_settings.decimals, m_unit, findings);
    const qint64 attributes = static_cast<qint64>(object.vertexAttributes.size() + object.objectAttributes.size())
                              - (depths.attribute().isEmpty() ? 0 : 1);
    findings.note(finding::attributesLeftOut, object, attributes, QStringLiteral("LAS takes them"));
}

qint64 DeviationFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    const std::string unit = writtenUnit(object.lengthUnit, m_unit).toStdString();
    ProgressTicker loop(progress, static_cast<double>(m_stations.size()));
    BlockWriter out(path, file().path);
    std::string& text = out.text();
    text += "# deviation survey, minimum curvature\n";
    text += "# well: " + object.name.simplified().toStdString() + '\n';
    text += "# lengths in " + unit + ", angles in degrees\n# datum: MD 0 and TVD 0 lie at the elevation ";
    appendShortest(text, m_reference);
    text += ' ' + unit + "\n# azimuth: clockwise from grid north\n";
    if (!object.crs.isEmpty())
        text += "# coordinate system: " + crsName(object.crs).simplified().toStdString() + '\n';
    for (const char* const name : {"MD", "INC", "AZI", "TVD", "X", "Y", "Z"})
        text += QStringLiteral("%1").arg(QLatin1String(name), 15).toStdString();
    text += '\n';
    for (const DeviationStation& station : m_stations) {
        appendCell(text, station.measuredDepth, m_settings.decimals);
        appendCell(text, station.inclination, deviationAngleDecimals);
        appendCell(text, station.azimuth, deviationAngleDecimals);
        appendCell(text, station.verticalDepth, m_settings.decimals);
        for (const double coordinate : station.place)
            appendCell(text, coordinate, m_settings.decimals);
        text += '\n';
        out.check();
        if (!loop.next())
            return 0;
    }
    out.close();
    return static_cast<qint64>(m_stations.size());
}

std::optional<Verification> DeviationFile::verify(const QString& path) const
{
    return verifyDeviation(*file().objects.front(), path, m_settings, m_unit, m_distance);
}

} // namespace kpFormats
