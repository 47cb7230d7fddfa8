// SPDX-License-Identifier: MIT
#include "formats/opentec/OpenTecFile.h"

#include "core/GeoObject.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/WriteErrors.h"
#include "formats/opentec/OpenTecFindings.h"
#include "formats/opentec/OpenTecVerification.h"
#include "formats/opentec/SectionNames.h"
#include "host/data/DoubleMatrixData.h"
#include "writers/MatrixDataOpenTecLinkExporter.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using kpBase::DoubleMatrixData;

/// What is written of a segment: shared with the model where nothing changes.
struct SectionColumns
{
    DoubleMatrixData::Values distance;
    DoubleMatrixData::Values across;
    DoubleMatrixData::Values z;
    qint64 leftOut = 0;
};

SectionColumns columnsOf(const std::shared_ptr<const CrossSection>& section, const SectionSegment& segment,
                         double factor)
{
    SectionColumns columns;
    const auto isGood = [&segment](std::size_t row) {
        return std::isfinite(segment.distance[row]) && std::isfinite(segment.z[row]);
    };
    std::vector<double> distance;
    std::vector<double> z;
    bool same = factor == 1.0;
    for (std::size_t row = 0; same && row < segment.z.size(); ++row)
        same = isGood(row);
    if (same) {
        // Kept alive by the section, whose part each is.
        columns.distance = DoubleMatrixData::Values(section, &segment.distance);
        columns.z = DoubleMatrixData::Values(section, &segment.z);
    } else {
        for (std::size_t row = 0; row < segment.z.size(); ++row) {
            if (!isGood(row)) {
                ++columns.leftOut;
                continue;
            }
            distance.push_back(segment.distance[row] * factor);
            z.push_back(segment.z[row] * factor);
        }
        columns.distance = std::make_shared<const std::vector<double>>(std::move(distance));
        columns.z = std::make_shared<const std::vector<double>>(std::move(z));
    }
    columns.across = std::make_shared<const std::vector<double>>(columns.z->size(), 0.0);
    return columns;
}

/// A name as part of a line.
QString oneLine(const QString& name)
{
    QString line = name;
    for (QChar& character : line) {
        if (character.unicode() < 0x20 || character.unicode() == 0x7f || character.unicode() == 0x85
            || character.unicode() == 0x2028 || character.unicode() == 0x2029)
            character = QLatin1Char(' ');
    }
    return line;
}

QString lineNamed(const QString& name, Findings& findings)
{
    QString line = oneLine(name);
    if (line != name)
        findings.note(finding::renamed, name, 1, QStringLiteral("a name is one line"));
    return line;
}

DoubleMatrixData::Values scaled(const Numbers& numbers, double factor)
{
    if (factor == 1.0)
        return numbers;
    std::vector<double> values = *numbers;
    for (double& value : values)
        value *= factor;
    return std::make_shared<const std::vector<double>>(std::move(values));
}

void requireNames(const PlannedFile& file, const ExportSelection& selection, const OpenTecExportSettings& settings)
{
    QStringList wanted = sectionNamesIn(settings.sections, selection);
    if (!settings.traceLine.isEmpty())
        wanted.append(settings.traceLine);
    for (const QString& name : qAsConst(wanted)) {
        if (findSection(selection, name))
            continue;
        QStringList known;
        for (const ModelObject* object : selection.objects)
            known.append(object->name);
        throw ExportError(file.path, QStringLiteral("there is no section \"%1\" among those chosen").arg(name),
                          QStringLiteral("there are: %1").arg(known.join(QStringLiteral(", "))));
    }
    if (file.objects.empty())
        throw ExportError(file.path, QStringLiteral("there is no section to write"), QStringLiteral("choose one"));
}

void noteForm(const ModelObject& object, const OpenTecExportSettings& settings, Findings& findings)
{
    if (object.section->segments.empty())
        findings.note(opentecFinding::sectionWithoutLines, object, 1, QStringLiteral("the file holds its trace only"));
    const QString unit = writtenUnit(object.lengthUnit, settings.lengthUnit);
    if (unit != QLatin1String("m"))
        findings.note(opentecFinding::unitNotStated, object, 1,
                      QStringLiteral("the file says metre, its lengths are in %1").arg(unit));
}

} // namespace

OpenTecFile::OpenTecFile(PlannedFile planned, const ExportSelection& selected, OpenTecExportSettings settings,
                         Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    requireNames(file(), selection(), m_settings);
    m_section = file().objects.front();
    m_trace = m_settings.traceLine.isEmpty() ? m_section : findSection(selection(), m_settings.traceLine);
    if (!m_section->section)
        throw ExportError(file().path, QStringLiteral("the section %1 has nothing drawn on it").arg(m_section->name),
                          QStringLiteral("choose a section that the model file cuts"));
    noteForm(*m_section, m_settings, findings);
}

qint64 OpenTecFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *m_section;
    const ModelObject& trace = *m_trace;
    const double factor = unitFactor(object.lengthUnit, m_settings.lengthUnit);
    const double traceFactor = unitFactor(trace.lengthUnit, m_settings.lengthUnit);

    kpBaseExport::MatrixDataOpenTecLinkExporter writer(path, progress);
    writer.reportRows = true;
    writer.precision = m_settings.decimals;
    writer.sectionName = lineNamed(object.name, findings);
    writer.sectionAge = m_settings.age;
    writer.sectionPositions = new DoubleMatrixData(
        trace.name, {{scaled(trace.x, traceFactor), nullptr}, {scaled(trace.y, traceFactor), nullptr}});
    qint64 points = 0;
    for (const SectionSegment& segment : object.section->segments) {
        const SectionColumns columns = columnsOf(object.section, segment, factor);
        auto matrix = std::make_unique<DoubleMatrixData>(
            lineNamed(segment.name, findings), std::vector<DoubleMatrixData::Column>{{columns.distance, nullptr},
                                                                                     {columns.across, nullptr},
                                                                                     {columns.z, nullptr}});
        matrix->setColor(segment.color.name());
        matrix->setGeoType(typeName(segment.type));
        writer.geoObject()->sectionData().push_back(matrix.release());
        points += static_cast<qint64>(columns.z->size());
        findings.note(finding::positionLeftOut, object, columns.leftOut,
                      QStringLiteral("on the line of %1").arg(segment.name));
    }
    openWriter(writer, file().path);
    writer.write();
    closeWriter(writer, file().path);
    return points > 0 ? points : trace.vertexCount();
}

std::optional<Verification> OpenTecFile::verify(const QString& path) const
{
    return verifyOpenTec(*m_section, *m_trace, path, m_settings);
}

} // namespace kpFormats
