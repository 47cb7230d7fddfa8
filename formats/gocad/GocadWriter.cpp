// SPDX-License-Identifier: MIT
#include "formats/gocad/GocadWriter.h"

#include "export/CommonFindings.h"
#include "export/LengthFactors.h"
#include "export/SafeNames.h"
#include "formats/gocad/GocadFindings.h"
#include "geo/CoordinateSystems.h"
#include "model/SurfaceMesh.h"
#include "readers/TextTable.h"
#include "writers/FixedNumber.h"

#include <cmath>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

const char* typeName(GocadKind kind)
{
    switch (kind) {
    case GocadKind::VSet:
        return "VSet";
    case GocadKind::PLine:
        return "PLine";
    case GocadKind::TSurf:
        return "TSurf";
    case GocadKind::Well:
        return "Well";
    }
    return "VSet";
}

const char* colourKey(GocadKind kind)
{
    switch (kind) {
    case GocadKind::VSet:
        return "*atoms*color";
    case GocadKind::PLine:
        return "*line*color";
    case GocadKind::TSurf:
        return "*solid*color";
    case GocadKind::Well:
        break;
    }
    return "*atoms*color";
}

/// Appends "WORD a b c" with one text per column.
template <typename Text>
void appendList(std::string& text, const char* word, const std::vector<NumberColumn>& columns, Text textOf)
{
    text += word;
    for (const NumberColumn& column : columns) {
        text += ' ';
        text += textOf(column);
    }
    text += '\n';
}

} // namespace

GocadKind gocadKindOf(const ModelObject& object, const GocadExportSettings& settings)
{
    if (object.grid)
        return settings.gridsAs == GocadExportSettings::GridsAs::Surface ? GocadKind::TSurf : GocadKind::VSet;
    if (!object.triangles.empty())
        return GocadKind::TSurf;
    return object.parts.empty() ? GocadKind::VSet : GocadKind::PLine;
}

QString gocadObjectName(const QString& name)
{
    QString legal = name.simplified();
    for (QChar& character : legal) {
        if (character == QLatin1Char('{') || character == QLatin1Char('}') || character == QLatin1Char('"'))
            character = QLatin1Char('_');
    }
    return legal.isEmpty() ? QStringLiteral("unnamed") : legal;
}

QString gocadWord(const QString& name)
{
    QString word = gocadObjectName(name);
    word.replace(QLatin1Char(' '), QLatin1Char('_'));
    return word;
}

QString gocadUnit(const QString& unit)
{
    return unit.isEmpty() ? QStringLiteral("none") : gocadWord(unit);
}

GocadWriter::GocadWriter(BlockWriter& out, const GocadExportSettings& settings, Findings& findings)
    : m_out(out)
    , m_settings(settings)
    , m_findings(findings)
{
    appendShortest(m_nullText, settings.nullValue);
}

qint64 GocadWriter::write(const GocadEntry& entry, kpBase::AbstractProgress* progress)
{
    const ModelObject& object = *entry.object;
    m_object = &object;
    m_columns = entry.columns;
    const LengthFactors factors(object, m_settings.lengthUnit, m_settings.zIsElevation);
    m_factor = factors.flat;
    m_zFactor = factors.height;
    m_written = 0;
    m_withoutPosition = 0;
    m_equalToNull = 0;
    const GocadKind kind = entry.well ? GocadKind::Well : gocadKindOf(object, m_settings);
    m_whole = progress;
    m_progress = ProgressTicker(progress, object.vertexCount());
    writeHead(kind);
    switch (kind) {
    case GocadKind::VSet:
        writePoints();
        break;
    case GocadKind::PLine:
        writeLines();
        break;
    case GocadKind::TSurf:
        writeSurface();
        break;
    case GocadKind::Well:
        writeWell(*entry.well);
        break;
    }
    m_out.text() += "END\n";
    m_out.check();
    noteLosses();
    return m_written;
}

void noteGocadForm(const ModelObject& object, const GocadExportSettings& settings, Findings& findings)
{
    if (!object.hasZ)
        findings.note(finding::objectWithoutHeights, object, 1, object.name);
    if (!settings.header)
        findings.note(gocadFinding::nameAndColourNotWritten, object, 1, QStringLiteral("the header was not wanted"));
}

void GocadWriter::noteLosses()
{
    m_findings.note(finding::vertexWithoutPosition, *m_object, m_withoutPosition,
                    QStringLiteral("its height or place is missing"));
    m_findings.note(
        finding::valueEqualToTheNullValue, *m_object, m_equalToNull,
        QStringLiteral("readers will take it for missing; choose another nullValue than %1").arg(m_settings.nullValue));
}

void GocadWriter::writeHead(GocadKind kind)
{
    m_out.text() += "GOCAD ";
    m_out.text() += typeName(kind);
    m_out.text() += " 1\n";
    if (m_settings.header)
        writeHeader(kind);
    writeCoordinateSystem();
    if (!m_columns.empty() && kind != GocadKind::Well)
        writePropertyLists();
}

void GocadWriter::writeHeader(GocadKind kind)
{
    std::string& text = m_out.text();
    const QString name = gocadObjectName(m_object->name);
    text += "HEADER {\nname:" + name.toStdString() + '\n';
    if (m_object->color.isValid() && kind != GocadKind::Well) {
        text += colourKey(kind);
        const double channels[] = {m_object->color.redF(), m_object->color.greenF(), m_object->color.blueF()};
        char separator = ':';
        for (const double channel : channels) {
            text += separator;
            appendFixed(text, channel, 6);
            separator = ' ';
        }
        text += " 1\n";
    }
    text += "}\n";
    if (name != m_object->name)
        m_findings.note(finding::renamed, *m_object, 1,
                        QStringLiteral("%1 is written as %2").arg(m_object->name, name));
}

void GocadWriter::writeCoordinateSystem()
{
    const LengthFactors factors(*m_object, m_settings.lengthUnit, m_settings.zIsElevation);
    const std::string flat = factors.flatUnit.toStdString();
    QString projection = crsName(m_object->crs);
    projection.replace(QLatin1Char('"'), QLatin1Char('\''));
    std::string& text = m_out.text();
    text += "GOCAD_ORIGINAL_COORDINATE_SYSTEM\nNAME Default\n";
    text +=
        "PROJECTION " + (projection.isEmpty() ? std::string("Unknown") : '"' + projection.toStdString() + '"') + '\n';
    text += "DATUM Unknown\nAXIS_NAME \"X\" \"Y\" \"Z\"\n";
    text += "AXIS_UNIT \"" + flat + "\" \"" + flat + "\" \"" + factors.heightUnit.toStdString() + "\"\n";
    text += m_settings.zIsElevation ? "ZPOSITIVE Elevation\n" : "ZPOSITIVE Depth\n";
    text += "END_ORIGINAL_COORDINATE_SYSTEM\n";
}

std::vector<std::string> GocadWriter::propertyNames()
{
    UniqueNames taken;
    std::vector<std::string> names;
    for (const NumberColumn& column : m_columns) {
        const QString name = taken.take(gocadWord(column.name()));
        names.push_back(name.toStdString());
        if (name != column.name())
            m_findings.note(finding::renamed, *m_object, 1,
                            QStringLiteral("attribute %1 is written as %2").arg(column.name(), name));
    }
    return names;
}

void GocadWriter::writePropertyLists()
{
    std::string& text = m_out.text();
    const std::vector<std::string> names = propertyNames();
    std::size_t index = 0;
    const auto nextName = [&](const NumberColumn&) { return names[index++ % names.size()]; };
    appendList(text, "PROPERTIES", m_columns, nextName);
    appendList(text, "NO_DATA_VALUES", m_columns, [this](const NumberColumn&) { return m_nullText; });
    appendList(text, "PROPERTY_CLASSES", m_columns, nextName);
    appendList(text, "ESIZES", m_columns, [](const NumberColumn&) { return "1"; });
    appendList(text, "UNITS", m_columns,
               [](const NumberColumn& column) { return gocadUnit(column.unit()).toStdString(); });
}

void GocadWriter::appendVertex(qint64 id, int vertex)
{
    const auto index = static_cast<std::size_t>(vertex);
    std::string& text = m_out.text();
    text += m_columns.empty() ? "VRTX " : "PVRTX ";
    appendInteger(text, id);
    text += ' ';
    appendFixed(text, (*m_object->x)[index] * m_factor, m_settings.decimals);
    text += ' ';
    appendFixed(text, (*m_object->y)[index] * m_factor, m_settings.decimals);
    text += ' ';
    appendFixed(text, (*m_object->z)[index] * m_zFactor, m_settings.decimals);
    for (const NumberColumn& column : m_columns) {
        text += ' ';
        appendValue(column.at(vertex));
    }
    text += '\n';
    m_out.check();
    ++m_written;
}

void GocadWriter::appendValue(double value)
{
    if (!std::isfinite(value)) {
        m_out.text() += m_nullText;
        return;
    }
    m_equalToNull += value == m_settings.nullValue ? 1 : 0;
    appendShortest(m_out.text(), value);
}

void GocadWriter::writePoints()
{
    for (int vertex = 0; vertex < m_object->vertexCount(); ++vertex) {
        if (hasPosition(*m_object, vertex))
            appendVertex(m_written + 1, vertex);
        else
            ++m_withoutPosition;
        if (!m_progress.next())
            return;
    }
}

void GocadWriter::writeLines()
{
    for (const Part& part : m_object->parts) {
        writeLine(part);
        if (m_progress.cancelled())
            return;
    }
}

void GocadWriter::writeLine(const Part& part)
{
    const auto at = [](const Numbers& numbers, int vertex) { return (*numbers)[static_cast<std::size_t>(vertex)]; };
    const int last = part.first + part.count - 1;
    // A ring's last vertex is its first again: a segment leads back instead.
    const bool repeats = part.closed && part.count > 2 && at(m_object->x, part.first) == at(m_object->x, last)
                         && at(m_object->y, part.first) == at(m_object->y, last)
                         && at(m_object->z, part.first) == at(m_object->z, last);
    const int end = repeats ? last : last + 1;
    m_out.text() += "ILINE\n";
    const qint64 first = m_written + 1;
    std::vector<bool> gap; // true: the line is interrupted before this vertex
    bool interrupted = true;
    for (int vertex = part.first; vertex < end; ++vertex) {
        if (hasPosition(*m_object, vertex)) {
            appendVertex(m_written + 1, vertex);
            gap.push_back(interrupted);
            interrupted = false;
        } else {
            ++m_withoutPosition;
            interrupted = true;
        }
        if (!m_progress.next())
            return;
    }
    std::string& text = m_out.text();
    const auto segment = [&](qint64 from, qint64 to) {
        text += "SEG ";
        appendInteger(text, from);
        text += ' ';
        appendInteger(text, to);
        text += '\n';
        m_out.check();
    };
    for (std::size_t index = 1; index < gap.size(); ++index) {
        if (!gap[index])
            segment(first + static_cast<qint64>(index) - 1, first + static_cast<qint64>(index));
    }
    const bool whole = !interrupted && hasPosition(*m_object, part.first);
    if (part.closed && whole && gap.size() > 2)
        segment(m_written, first);
}

void GocadWriter::writeSurface()
{
    const SurfaceMesh mesh(*m_object);
    m_withoutPosition = mesh.leftOutVertices();
    m_findings.note(finding::triangleWithoutPosition, *m_object, mesh.leftOutTriangles(),
                    QStringLiteral("a corner's height or place is missing"));
    m_progress = ProgressTicker(m_whole, static_cast<double>(m_object->vertexCount() + mesh.triangleCount()));
    m_out.text() += "TFACE\n";
    for (int vertex = 0; vertex < m_object->vertexCount(); ++vertex) {
        if (mesh.number(vertex) >= 0)
            appendVertex(m_written + 1, vertex);
        if (!m_progress.next())
            return;
    }
    mesh.eachTriangle([this](int a, int b, int c) {
        std::string& text = m_out.text();
        text += "TRGL ";
        appendInteger(text, a + 1LL);
        text += ' ';
        appendInteger(text, b + 1LL);
        text += ' ';
        appendInteger(text, c + 1LL);
        text += '\n';
        m_out.check();
        return m_progress.next();
    });
}

void GocadWriter::writeWell(const GocadWell& well)
{
    m_progress =
        ProgressTicker(m_whole, static_cast<double>(well.vertices.size()) * static_cast<double>(1 + m_columns.size()));
    for (int vertex = 0; vertex < m_object->vertexCount(); ++vertex)
        m_withoutPosition += hasPosition(*m_object, vertex) ? 0 : 1;
    writePath(well);
    const std::vector<std::string> names = propertyNames();
    for (std::size_t index = 0; index < names.size() && !m_progress.cancelled(); ++index)
        writeCurve(well, m_columns[index], names[index]);
}

/// The path counts east and north from the reference as it stands in the file, so that nothing is rounded twice.
void GocadWriter::writePath(const GocadWell& well)
{
    std::string& text = m_out.text();
    text += "PATH_ZM_UNIT " + writtenUnit(m_object->lengthUnit, m_settings.lengthUnit).toStdString() + "\nWREF";
    double reference[2] = {};
    const auto top = static_cast<std::size_t>(well.vertices.front());
    int axis = 0;
    for (const Numbers& numbers : {m_object->x, m_object->y}) {
        std::string written;
        appendFixed(written, (*numbers)[top] * m_factor, m_settings.decimals);
        reference[axis++] = numberOf(written).value_or(0.0);
        text += ' ' + written;
    }
    text += ' ';
    appendFixed(text, (*m_object->z)[top] * m_zFactor, m_settings.decimals);
    text += '\n';
    for (std::size_t station = 0; station < well.vertices.size(); ++station) {
        const auto vertex = static_cast<std::size_t>(well.vertices[station]);
        text += "PATH";
        for (const double number :
             {well.depths[station], (*m_object->z)[vertex] * m_zFactor,
              (*m_object->x)[vertex] * m_factor - reference[0], (*m_object->y)[vertex] * m_factor - reference[1]}) {
            text += ' ';
            appendFixed(text, number, m_settings.decimals);
        }
        text += '\n';
        m_out.check();
        ++m_written;
        if (!m_progress.next())
            return;
    }
}

void GocadWriter::writeCurve(const GocadWell& well, const NumberColumn& column, const std::string& name)
{
    std::string& text = m_out.text();
    text += "WELL_CURVE\nPROPERTY " + name + "\nPROP_UNIT " + gocadUnit(column.unit()).toStdString();
    text += "\nPROP_NO_DATA_VALUE " + m_nullText + '\n';
    for (std::size_t station = 0; station < well.vertices.size(); ++station) {
        text += "REC ";
        appendFixed(text, well.depths[station], m_settings.decimals);
        text += ' ';
        appendValue(column.at(well.vertices[station]));
        text += '\n';
        m_out.check();
        if (!m_progress.next())
            return;
    }
    text += "END_CURVE\n";
}

} // namespace kpFormats
