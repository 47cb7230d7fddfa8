// SPDX-License-Identifier: MIT
#include "formats/kml/KmlDrawing.h"
#include "export/CommonFindings.h"
#include "formats/kml/KmlFindings.h"

#include "export/AttributeTable.h"
#include "formats/kml/KmlDocumentWriter.h"
#include "formats/kml/KmlPlacemark.h"
#include "geo/CoordinateSystems.h"
#include "model/OutputUnit.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kpFormats
{

namespace
{

using AltitudeMode = KmlExportSettings::AltitudeMode;

constexpr int pointsAtOnce = 1024;

} // namespace

KmlDrawing::KmlDrawing(KmlSink& sink, const KmlExportSettings& settings, const QSet<const ModelObject*>& undrawable,
                       KeepPicture keepPicture, ProgressTicker& ticker, Findings& findings)
    : m_sink(sink)
    , m_settings(settings)
    , m_undrawable(undrawable)
    , m_keepPicture(std::move(keepPicture))
    , m_ticker(ticker)
    , m_findings(findings)
    , m_ownSystem(wktOf(settings.crs))
    , m_transforms(wktOf(QStringLiteral("EPSG:4326")))
{
}

qint64 KmlDrawing::draw(const std::vector<const ModelObject*>& objects, const ExportSelection& selection)
{
    m_selection = &selection;
    if (m_settings.boundingArea)
        drawBounds(objects);
    for (const ObjectType type : allObjectTypes()) {
        bool open = false;
        for (const ModelObject* object : objects) {
            if (object->type != type || stopped())
                continue;
            if (!open)
                m_sink.beginFolder(typeName(type));
            open = true;
            drawObject(*object);
        }
        if (open)
            m_sink.endFolder();
    }
    return m_features;
}

void KmlDrawing::drawObject(const ModelObject& object)
{
    if (xmlText(object.name) != object.name)
        m_findings.note(finding::renamed, object.name, 1,
                        QStringLiteral("characters that XML does not have are left out"));
    m_ticker.step(1);
    switch (object.type) {
    case ObjectType::Polygons:
        return drawPolygons(object);
    case ObjectType::Polylines:
        return drawLines(object);
    case ObjectType::Wells:
        return drawWell(object);
    case ObjectType::MeshSurfaces:
        return drawMesh(object);
    case ObjectType::GridSurfaces:
    case ObjectType::Images:
        return drawSurface(object);
    case ObjectType::CrossSections:
        return drawSection(object);
    default:
        return drawPoints(object);
    }
}

QString KmlDrawing::systemOf(const ModelObject& object) const
{
    return object.crs.isEmpty() ? m_ownSystem : object.crs;
}

AltitudeMode KmlDrawing::modeFor(const ModelObject& object) const
{
    return object.hasZ ? m_settings.altitudeMode : AltitudeMode::Clamp;
}

PositionRules KmlDrawing::rulesFor(const ModelObject& object, AltitudeMode mode)
{
    PositionRules rules;
    rules.transform = m_transforms.from(systemOf(object));
    rules.heightFactor = unitFactor(object.lengthUnit, OutputUnit::Metre);
    rules.needsHeight = mode != AltitudeMode::Clamp;
    rules.geographic = true;
    return rules;
}

QString KmlDrawing::tableOf(const ModelObject& object, int vertex)
{
    if (!m_settings.attributes)
        return {};
    QString table = attributeTable(object, *m_selection, vertex);
    if (xmlText(table) != table)
        m_findings.note(kmlFinding::attributeTextChanged, object.name, 1,
                        QStringLiteral("characters that XML does not have are left out"));
    return table;
}

void KmlDrawing::noteLeftOut(const ModelObject& object, const PositionReader& reader)
{
    m_findings.note(finding::positionLeftOut, object.name, reader.leftOut(),
                    QStringLiteral("vertex %1 has no height or no place on the earth").arg(reader.firstLeftOut()));
}

/// Writes what is in \a block and the rest of a line or ring.
void KmlDrawing::streamPositions(PositionReader& reader, int& next, int end, PositionBlock& block)
{
    do {
        m_sink.positions(block);
        m_ticker.step(static_cast<double>(block.size()));
    } while (!stopped() && reader.read(next, end, block));
}

void KmlDrawing::drawLines(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    Placemark placemark(*this, object, KmlSink::Look::Line, object.parts.size() != 1);
    PositionBlock block;
    qint64 tooShort = 0;
    for (const Part& part : object.parts) {
        int next = part.first;
        const int end = part.first + part.count;
        if (stopped())
            break;
        if (!reader.read(next, end, block, 2) || block.size() < 2) {
            ++tooShort;
            continue;
        }
        placemark.open();
        m_sink.beginLine();
        streamPositions(reader, next, end, block);
        if (part.closed && openEnd(object, part) == end) {
            // Closed without saying its first vertex again.
            int first = part.first;
            if (reader.read(first, part.first + 1, block))
                m_sink.positions(block);
        }
        m_sink.endLine();
    }
    placemark.close();
    m_findings.note(finding::shortLine, object.name, tooShort, object.name);
    noteLeftOut(object, reader);
}

void KmlDrawing::drawPolygons(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    const auto outer =
        std::count_if(object.parts.begin(), object.parts.end(), [](const Part& part) { return !part.hole; });
    Placemark placemark(*this, object, KmlSink::Look::Area, outer != 1);
    PositionBlock block;
    qint64 tooShort = 0;
    qint64 closed = 0;
    bool open = false;
    for (const Part& part : object.parts) {
        if (stopped())
            break;
        if (!part.hole && open) {
            m_sink.endPolygon();
            open = false;
        }
        Part ring = part;
        ring.closed = true;
        int next = part.first;
        const int end = openEnd(object, ring);
        const bool drawable = reader.read(next, end, block, 3) && block.size() >= 3;
        if (!drawable || (part.hole && !open)) {
            ++tooShort;
            continue;
        }
        closed += end == part.first + part.count ? 1 : 0;
        placemark.open();
        if (!open)
            m_sink.beginPolygon();
        open = true;
        m_sink.beginRing(part.hole);
        streamPositions(reader, next, end, block);
        m_sink.endRing();
    }
    if (open)
        m_sink.endPolygon();
    placemark.close();
    m_findings.note(finding::shortRing, object.name, tooShort, object.name);
    m_findings.note(finding::ringClosed, object.name, closed, QStringLiteral("its last point was not its first"));
    noteLeftOut(object, reader);
}

void KmlDrawing::drawPoints(const ModelObject& object)
{
    const AltitudeMode mode = modeFor(object);
    const PositionReader reader(PositionSource::of(object), rulesFor(object, mode));
    const int count = object.vertexCount();
    const bool label = object.type == ObjectType::Labels;
    std::vector<int> numbers(pointsAtOnce);
    PositionBlock block;
    qint64 leftOut = 0;
    int firstLeftOut = 0;
    for (int first = 0; first < count && !stopped(); first += pointsAtOnce) {
        const int some = std::min(pointsAtOnce, count - first);
        std::iota(numbers.begin(), numbers.end(), first);
        reader.gather(numbers.data(), static_cast<std::size_t>(some), block);
        for (int index = 0; index < some; ++index) {
            const auto at = static_cast<std::size_t>(index);
            if (std::isnan(block.x[at])) {
                if (leftOut++ == 0)
                    firstLeftOut = first + index + 1;
                continue;
            }
            const QString name =
                count == 1 ? object.name : QStringLiteral("%1 %2").arg(object.name).arg(first + index + 1);
            m_sink.beginPlacemark(name, tableOf(object, first + index),
                                  label ? KmlSink::Look::Label : KmlSink::Look::Icon, object.color, mode);
            m_sink.point(block.x[at], block.y[at], block.z[at]);
            m_sink.endPlacemark();
            ++m_features;
        }
        m_ticker.step(some);
    }
    m_findings.note(finding::positionLeftOut, object.name, leftOut,
                    QStringLiteral("vertex %1 has no height or no place on the earth").arg(firstLeftOut));
}

/// A pin at the collar and, below it, the path.
void KmlDrawing::drawWell(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    PositionBlock path;
    int next = 0;
    const bool placed = reader.read(next, object.vertexCount(), path, static_cast<std::size_t>(object.vertexCount()));
    Placemark placemark(*this, object, KmlSink::Look::Icon, path.size() > 1);
    if (placed) {
        placemark.open();
        m_sink.point(path.x[0], path.y[0], path.z[0]);
        if (path.size() > 1) {
            m_sink.beginLine();
            m_sink.positions(path);
            m_sink.endLine();
        }
    }
    m_ticker.step(object.vertexCount());
    placemark.close();
    noteLeftOut(object, reader);
}

} // namespace kpFormats
