// SPDX-License-Identifier: MIT
#include "formats/zmap/ZMapFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "formats/zmap/ZMapVerification.h"
#include "geo/CoordinateSystems.h"
#include "model/ProgressTicker.h"
#include "writers/FixedNumber.h"

#include <cmath>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;
using Registration = ZMapExportSettings::Registration;

// Readers give up on wider fields.
constexpr std::size_t widestField = 39;
// A tenth of a micrometre, or a centimetre in degrees.
constexpr int headerDecimals = 7;

std::string fixedText(double value, int decimals)
{
    std::string text;
    appendFixed(text, value, decimals);
    return text;
}

using Survey = ZMapFile::Survey;

/// \throws ExportError naming \a file when a value is too wide
Survey surveyOf(const ZMapGrid& grid, const ZMapExportSettings& settings, const QString& file)
{
    Survey survey;
    double least = 0.0;
    double most = 0.0;
    const double half = 0.5 * std::pow(10.0, -settings.decimals);
    for (int row = 0; row < grid.rows(); ++row) {
        for (int column = 0; column < grid.columns(); ++column) {
            const double value = grid.value(column, row);
            if (!std::isfinite(value))
                continue;
            least = std::min(least, value);
            most = std::max(most, value);
            survey.equalToNull += std::abs(value - settings.nullValue) < half ? 1 : 0;
        }
    }
    for (const double value : {least, most, settings.nullValue})
        survey.width = std::max(survey.width, fixedText(value, settings.decimals).size() + 1);
    if (survey.width > widestField)
        throw ExportError(file,
                          QStringLiteral("a value of %1 characters does not fit into a field").arg(survey.width - 1),
                          QStringLiteral("choose fewer decimals or a smaller nullValue"));
    return survey;
}

/// The name without what would end its field.
std::string headerName(const QString& name)
{
    QString text = name.simplified();
    text.replace(QLatin1Char(','), QLatin1Char('_')).replace(QLatin1Char('@'), QLatin1Char('_'));
    return text.toStdString();
}

void writeHeader(std::string& text, const ModelObject& object, const ZMapGrid& grid, const ZMapExportSettings& settings,
                 const Survey& survey)
{
    const bool nodes = settings.registration == Registration::Nodes;
    const std::string unit = writtenUnit(object.lengthUnit, settings.lengthUnit).toStdString();
    text += "! " + object.name.simplified().toStdString() + '\n';
    text += "! lengths in " + unit + '\n';
    if (!settings.attribute.isEmpty())
        text += "! value: " + settings.attribute.simplified().toStdString() + '\n';
    else
        text += settings.zIsElevation ? "! value: elevation, positive up\n" : "! value: depth, positive down\n";
    if (!object.crs.isEmpty())
        text += "! coordinate system: " + crsName(object.crs).simplified().toStdString() + '\n';
    text += nodes ? "! limits: outermost nodes\n" : "! limits: outer corners of the pixels around the nodes\n";
    text += '@' + headerName(object.name) + " HEADER, GRID, ";
    appendInteger(text, settings.nodesPerLine);
    text += '\n';
    appendInteger(text, static_cast<qint64>(survey.width));
    text += ", " + fixedText(settings.nullValue, settings.decimals) + ", , ";
    appendInteger(text, settings.decimals);
    text += ", 1\n";
    appendInteger(text, grid.rows());
    text += ", ";
    appendInteger(text, grid.columns());
    const double marginX = nodes ? 0.0 : grid.stepX() / 2.0;
    const double marginY = nodes ? 0.0 : grid.stepY() / 2.0;
    for (const double limit :
         {grid.west() - marginX, grid.east() + marginX, grid.south() - marginY, grid.north() + marginY})
        text += ", " + fixedText(limit, headerDecimals);
    text += "\n0.0, 0.0, 0.0\n@\n";
}

/// False when the user has cancelled.
bool writeValues(BlockWriter& out, const ZMapGrid& grid, const ZMapExportSettings& settings, std::size_t width,
                 ProgressTicker& progress)
{
    const std::string nullText = fixedText(settings.nullValue, settings.decimals);
    std::string number;
    std::string& text = out.text();
    for (int column = 0; column < grid.columns(); ++column) {
        for (int row = 0; row < grid.rows(); ++row) {
            const double value = grid.value(column, row);
            number.clear();
            if (std::isfinite(value))
                appendFixed(number, value, settings.decimals);
            const std::string& shown = number.empty() ? nullText : number;
            text.append(width - shown.size(), ' ');
            text += shown;
            // Each column of the grid begins a line.
            if ((row + 1) % settings.nodesPerLine == 0 || row + 1 == grid.rows())
                text += '\n';
            if (!progress.next())
                return false;
        }
        out.check();
    }
    return true;
}

void noteNulls(const ModelObject& object, const ZMapExportSettings& settings, const Survey& survey, Findings& findings)
{
    findings.note(
        finding::valueEqualToTheNullValue, object, survey.equalToNull,
        QStringLiteral("readers will take it for missing; choose another nullValue than %1").arg(settings.nullValue));
}

} // namespace

ZMapFile::ZMapFile(PlannedFile planned, const ExportSelection& selected, ZMapExportSettings settings,
                   Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_grid(*file().objects.front(), m_settings, file().path)
{
    m_settings.decimals = m_grid.values().decimals(m_settings.decimals);
    m_survey = surveyOf(m_grid, m_settings, file().path);
    m_grid.values().noteLosses(findings);
    noteNulls(*file().objects.front(), m_settings, m_survey, findings);
    m_grid.values().noteZeros(m_settings.decimals, findings);
}

qint64 ZMapFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *file().objects.front();
    ProgressTicker loop(progress, object.vertexCount());
    BlockWriter out(path, file().path);
    writeHeader(out.text(), object, m_grid, m_settings, m_survey);
    if (writeValues(out, m_grid, m_settings, m_survey.width, loop))
        out.close();
    return object.vertexCount();
}

std::optional<Verification> ZMapFile::verify(const QString& path) const
{
    return verifyZMap(*file().objects.front(), path, m_settings);
}

} // namespace kpFormats
