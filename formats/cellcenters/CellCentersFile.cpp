// SPDX-License-Identifier: MIT
#include "formats/cellcenters/CellCentersFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "formats/cellcenters/CellCentersVerification.h"
#include "geo/CoordinateSystems.h"
#include "model/ProgressTicker.h"
#include "writers/FixedNumber.h"
#include "writers/QuotedText.h"

#include <cmath>
#include <utility>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

/// A name that no reader takes for several, or for a remark.
std::string nameText(const QString& name)
{
    const bool quoted = kpBaseExport::needsQuotes(name, QStringLiteral(",")) || name.startsWith(QLatin1Char('#'));
    return (quoted ? kpBaseExport::inQuotes(name) : name).toStdString();
}

} // namespace

CellCentersFile::CellCentersFile(PlannedFile planned, const ExportSelection& selected,
                                 CellCentersExportSettings settings, Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
    , m_table(*file().objects.front(), selection(), m_settings, file().path, findings)
{
    const ModelObject& object = *file().objects.front();
    noteMissingAttributes(file().objects, selection(), findings);
    if (!object.crs.isEmpty() && !m_settings.remarks)
        findings.note(finding::coordinateSystemNotCarried, object, 1, QStringLiteral("remarks=true names it"));
}

void CellCentersFile::appendHead(std::string& text) const
{
    const ModelObject& object = *file().objects.front();
    if (m_settings.remarks) {
        const LengthFactors& factors = m_table.factors();
        text += "# cell centres of " + object.name.simplified().toStdString() + '\n';
        text += "# x and y in " + factors.flatUnit.toStdString() + ", " + m_table.heightName().toStdString() + " in "
                + factors.heightUnit.toStdString()
                + (m_settings.zIsElevation ? ", positive up\n" : ", positive down\n");
        if (!object.crs.isEmpty())
            text += "# coordinate system: " + crsName(object.crs).simplified().toStdString() + '\n';
        for (const NumberColumn& property : m_table.properties()) {
            if (!property.unit().isEmpty())
                text += QStringLiteral("# %1 in %2\n")
                            .arg(property.name().simplified(), property.unit().simplified())
                            .toStdString();
        }
    }
    text += m_table.indexNames().join(QLatin1Char(',')).toStdString() + ",x,y," + m_table.heightName().toStdString();
    for (const QString& name : m_table.propertyNames())
        text += ',' + nameText(name);
    text += '\n';
}

qint64 CellCentersFile::write(const QString& path, Findings&, kpBase::AbstractProgress* progress)
{
    ProgressTicker loop(progress, static_cast<double>(m_table.cells().size()));
    BlockWriter out(path, file().path);
    std::string& text = out.text();
    appendHead(text);
    for (const qint64 cell : m_table.cells()) {
        for (const int index : m_table.indices(cell)) {
            appendInteger(text, index);
            text += ',';
        }
        const std::array<double, 3> place = m_table.centre(cell);
        appendFixed(text, place[0], m_table.flatDecimals());
        text += ',';
        appendFixed(text, place[1], m_table.flatDecimals());
        text += ',';
        appendFixed(text, place[2], m_table.heightDecimals());
        for (const NumberColumn& property : m_table.properties()) {
            text += ',';
            const double value = property.at(static_cast<int>(cell));
            if (std::isfinite(value))
                appendShortest(text, value);
        }
        text += '\n';
        out.check();
        if (!loop.next())
            return 0;
    }
    out.close();
    return static_cast<qint64>(m_table.cells().size());
}

std::optional<Verification> CellCentersFile::verify(const QString& path) const
{
    return verifyCellCenters(m_table, *file().objects.front(), path);
}

} // namespace kpFormats
