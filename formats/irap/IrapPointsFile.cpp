// SPDX-License-Identifier: MIT
#include "formats/irap/IrapPointsFile.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "export/ObjectError.h"
#include "formats/irap/IrapFindings.h"
#include "formats/irap/IrapPointsVerification.h"
#include "model/ProgressTicker.h"
#include "model/SurfaceMesh.h"
#include "writers/FixedNumber.h"

#include <cmath>
#include <utility>

namespace kpFormats
{

namespace
{

using kpBaseExport::appendFixed;

/// \throws ObjectError when a vertex would be read as the end of a line
void lookFor999(const ModelObject& object, const IrapPointsExportSettings& settings, Findings& findings)
{
    const LengthFactors factors(object, settings.lengthUnit, settings.zIsElevation);
    const double half = 0.5 * std::pow(10.0, -settings.decimals);
    const auto isEnd = [half](double number) { return std::abs(number - irapEnd) <= half; };
    qint64 coordinates = 0;
    for (std::size_t vertex = 0; vertex < object.x->size(); ++vertex) {
        const int ends = int(isEnd((*object.x)[vertex] * factors.flat)) + int(isEnd((*object.y)[vertex] * factors.flat))
                         + int(isEnd((*object.z)[vertex] * factors.height));
        if (ends == 3)
            throw ObjectError(object,
                              QStringLiteral("its vertex %1 lies at 999, 999, 999, which ends a line").arg(vertex + 1),
                              QStringLiteral("move the vertex or choose another unit"));
        coordinates += ends;
    }
    findings.note(irapFinding::coordinateOf999, object, coordinates,
                  QStringLiteral("choose another unit where a reader leaves them out"));
}

/// The rows of an object: vertices, -1 for the end of a line; and how many fared how.
struct Rows
{
    std::vector<int> vertices;
    qint64 withoutPosition = 0;
    qint64 tooShort = 0;
    qint64 closed = 0;
    qint64 holes = 0;
};

bool samePlace(const ModelObject& object, int a, int b)
{
    const auto same = [a, b](const Numbers& numbers) {
        return (*numbers)[static_cast<std::size_t>(a)] == (*numbers)[static_cast<std::size_t>(b)];
    };
    return same(object.x) && same(object.y) && same(object.z);
}

void addPart(const ModelObject& object, const Part& part, Rows& rows)
{
    std::size_t begin = rows.vertices.size();
    const auto end = [&] {
        if (rows.vertices.size() - begin >= 2) {
            rows.vertices.push_back(-1);
        } else {
            rows.tooShort += rows.vertices.size() > begin ? 1 : 0;
            rows.vertices.resize(begin);
        }
        begin = rows.vertices.size();
    };
    const int last = part.first + part.count - 1;
    bool whole = true;
    for (int vertex = part.first; vertex <= last; ++vertex) {
        if (hasPosition(object, vertex)) {
            rows.vertices.push_back(vertex);
            continue;
        }
        // A line is interrupted there.
        ++rows.withoutPosition;
        whole = false;
        end();
    }
    if (part.closed && whole && part.count > 2 && !samePlace(object, part.first, last)) {
        rows.vertices.push_back(part.first);
        ++rows.closed;
    }
    rows.holes += part.hole ? 1 : 0;
    end();
}

Rows rowsOf(const ModelObject& object)
{
    Rows rows;
    for (const Part& part : object.parts)
        addPart(object, part, rows);
    if (!object.parts.empty())
        return rows;
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        if (hasPosition(object, vertex))
            rows.vertices.push_back(vertex);
        else
            ++rows.withoutPosition;
    }
    rows.vertices.push_back(-1);
    return rows;
}

void noteLosses(const ModelObject& object, const Rows& rows, Findings& findings)
{
    findings.note(finding::vertexWithoutPosition, object, rows.withoutPosition,
                  QStringLiteral("its height or place is missing"));
    findings.note(finding::shortLine, object, rows.tooShort, object.name);
    findings.note(finding::ringClosed, object, rows.closed, object.name);
    findings.note(irapFinding::holeAsPolygon, object, rows.holes, object.name);
}

} // namespace

IrapPointsFile::IrapPointsFile(PlannedFile planned, const ExportSelection& selected, IrapPointsExportSettings settings,
                               Findings& findings)
    : PreparedFile(std::move(planned), selected)
    , m_settings(std::move(settings))
{
    const bool keepFlat = m_settings.flatObjects == IrapPointsExportSettings::FlatObjects::Zero;
    for (const ModelObject* object : file().objects) {
        if (!object->hasZ && !keepFlat)
            findings.note(irapFinding::flatObjectLeftOut, *object, 1,
                          QStringLiteral("flatObjects=zero writes it at height 0"));
        else if (hasAnyPosition(*object))
            m_objects.push_back(object);
        else
            findings.note(finding::objectWithoutPosition, *object, 1, object->name);
    }
    if (m_objects.empty())
        throw ExportError(file().path,
                          QStringLiteral("none of its objects has a vertex with a height, the first is %1")
                              .arg(file().objects.front()->name),
                          QStringLiteral("choose objects with heights, or flatObjects=zero to write flat ones at 0"));
    m_settings.decimals = coordinateDecimals(m_objects, m_settings.decimals, m_settings.lengthUnit, findings);
    for (const ModelObject* object : m_objects) {
        lookFor999(*object, m_settings, findings);
        noteAttributesLeftOut(*object, findings);
        if (!object->hasZ)
            findings.note(finding::objectWithoutHeights, *object, 1, object->name);
        if (m_objects.size() > 1)
            findings.note(irapFinding::nameNotWritten, *object, 1,
                          QStringLiteral("grouping=object names a file after each"));
    }
}

qint64 IrapPointsFile::write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress)
{
    double total = 0;
    for (const ModelObject* object : m_objects)
        total += object->vertexCount();
    ProgressTicker loop(progress, total);
    BlockWriter out(path, file().path);
    std::string& text = out.text();
    std::string endText;
    for (const char* const separator : {"", " ", " "}) {
        endText += separator;
        appendFixed(endText, irapEnd, m_settings.decimals);
    }
    endText += '\n';
    qint64 written = 0;
    for (const ModelObject* object : m_objects) {
        const LengthFactors factors(*object, m_settings.lengthUnit, m_settings.zIsElevation);
        const Rows rows = rowsOf(*object);
        noteLosses(*object, rows, findings);
        for (const int vertex : rows.vertices) {
            if (vertex < 0) {
                text += endText;
                continue;
            }
            const auto index = static_cast<std::size_t>(vertex);
            appendFixed(text, (*object->x)[index] * factors.flat, m_settings.decimals);
            text += ' ';
            appendFixed(text, (*object->y)[index] * factors.flat, m_settings.decimals);
            text += ' ';
            appendFixed(text, (*object->z)[index] * factors.height, m_settings.decimals);
            text += '\n';
            out.check();
            ++written;
            if (!loop.next())
                return written;
        }
    }
    out.close();
    return written;
}

std::optional<Verification> IrapPointsFile::verify(const QString& path) const
{
    return verifyIrapPoints(m_objects, path, m_settings);
}

} // namespace kpFormats
