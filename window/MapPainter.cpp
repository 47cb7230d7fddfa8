// SPDX-License-Identifier: MIT
#include "window/MapPainter.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <vector>

namespace refhost
{

namespace
{

// Vertices nearer than this on the screen are drawn as one.
constexpr double leastStep = 0.7;
constexpr int mostPixels = 1500; ///< of a grid, along each side
const QColor selectionColour(255, 140, 0);

QColor shaded(const QColor& base, double share)
{
    // From a dark to a light tone of the object's colour.
    return QColor::fromHsvF(std::max(base.hsvHueF(), 0.0), base.hsvSaturationF() * (1.0 - 0.6 * share),
                            0.35 + 0.6 * share);
}

/// The heights in tones, lit from the north-west; row 0 of the grid is row 0 of the picture.
QImage reliefOf(const ModelObject& object, int every)
{
    const GridGeometry& grid = *object.grid;
    double least = INFINITY;
    double most = -INFINITY;
    for (const double z : *object.z) {
        if (std::isfinite(z)) {
            least = std::min(least, z);
            most = std::max(most, z);
        }
    }
    QImage image((grid.columns - 1) / every + 1, (grid.rows - 1) / every + 1, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int row = 0; row < grid.rows; row += every) {
        for (int column = 0; column < grid.columns; column += every) {
            const auto node = static_cast<std::size_t>(row) * grid.columns + column;
            const double z = (*object.z)[node];
            if (!std::isfinite(z))
                continue;
            double light = most > least ? (z - least) / (most - least) : 0.5;
            if (column > 0 && row + 1 < grid.rows) {
                const double slope = z - (*object.z)[node + grid.columns - 1];
                if (std::isfinite(slope))
                    light = std::clamp(
                        light + std::clamp(slope / std::hypot(grid.stepX, grid.stepY) * 2.0, -0.25, 0.25), 0.0, 1.0);
            }
            image.setPixelColor(column / every, row / every, shaded(object.color, light));
        }
    }
    return image;
}

} // namespace

MapPainter::MapPainter(QPainter& painter, const MapViewport& viewport)
    : m_painter(painter)
    , m_viewport(viewport)
{
}

void MapPainter::draw(const ModelObject& object, const PlacedObject& place, bool selected)
{
    const QColor colour = selected ? selectionColour : object.color;
    if (object.grid)
        drawGrid(object, place, selected);
    else if (object.parts.empty())
        drawPoints(place, colour, selected ? 4 : 3);
    else
        drawLines(object, place, colour, selected);
}

void MapPainter::drawGrid(const ModelObject& object, const PlacedObject& place, bool selected)
{
    const GridGeometry& grid = *object.grid;
    // As many pixels as the screen can show at most.
    const int every = std::max(1, std::max(grid.columns, grid.rows) / mostPixels);
    const QRectF nodes(-0.5, -0.5, grid.columns, grid.rows);
    QPolygonF corners;
    for (const QPointF& corner : place.outline)
        corners.append(m_viewport.toScreen(corner));
    QTransform transform;
    if (!QTransform::quadToQuad(QPolygonF({nodes.topLeft(), nodes.topRight(), nodes.bottomRight(), nodes.bottomLeft()}),
                                corners, transform))
        return;
    const QImage relief = reliefOf(object, every);
    m_painter.save();
    m_painter.setTransform(transform, true);
    m_painter.drawImage(
        QRectF(-0.5, -0.5, static_cast<double>(relief.width()) * every, static_cast<double>(relief.height()) * every),
        relief);
    m_painter.restore();
    if (selected) {
        m_painter.setPen(QPen(selectionColour, 3));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPolygon(corners);
    }
}

void MapPainter::drawPoints(const PlacedObject& place, const QColor& colour, double radius)
{
    m_painter.setPen(QPen(colour.darker(140), 1));
    m_painter.setBrush(colour);
    // A cloud has more points than the map has pixels: what is drawn already is not drawn again.
    const QRect canvas = QRectF(QPointF(), m_viewport.size).toRect().adjusted(-4, -4, 4, 4);
    std::vector<bool> drawn(static_cast<std::size_t>(canvas.width()) * canvas.height());
    for (std::size_t index = 0; index < place.x->size(); ++index) {
        const QPointF point = m_viewport.toScreen((*place.x)[index], (*place.y)[index]);
        if (!QRectF(canvas).contains(point))
            continue;
        const QPoint pixel(static_cast<int>(point.x()) - canvas.left(), static_cast<int>(point.y()) - canvas.top());
        const auto at = static_cast<std::size_t>(std::clamp(pixel.y(), 0, canvas.height() - 1)) * canvas.width()
                        + std::clamp(pixel.x(), 0, canvas.width() - 1);
        if (drawn[at])
            continue;
        drawn[at] = true;
        m_painter.drawEllipse(point, radius, radius);
    }
}

void MapPainter::drawLines(const ModelObject& object, const PlacedObject& place, const QColor& colour, bool selected)
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const Part& part : object.parts) {
        QPointF last;
        bool begun = false;
        for (int index = part.first; index < part.first + part.count; ++index) {
            const auto vertex = static_cast<std::size_t>(index);
            const QPointF point = m_viewport.toScreen((*place.x)[vertex], (*place.y)[vertex]);
            if (!std::isfinite(point.x()) || !std::isfinite(point.y())) {
                begun = false;
                continue;
            }
            if (!begun)
                path.moveTo(point);
            else if ((point - last).manhattanLength() >= leastStep || index + 1 == part.first + part.count)
                path.lineTo(point);
            else
                continue;
            begun = true;
            last = point;
        }
    }
    const bool area = object.type == ObjectType::Polygons;
    QColor fill = colour;
    fill.setAlpha(110);
    m_painter.setPen(QPen(area ? colour.darker(150) : colour, selected ? 3 : (area ? 1 : 2)));
    m_painter.setBrush(area ? QBrush(fill) : QBrush(Qt::NoBrush));
    m_painter.drawPath(path);
    if (object.type == ObjectType::Wells) {
        m_painter.setBrush(colour);
        m_painter.drawEllipse(m_viewport.toScreen(place.x->front(), place.y->front()), 3, 3);
    }
}

void MapPainter::drawScaleBar(const QString& unit)
{
    constexpr double longestBar = 160.0; // pixels
    constexpr double metresInKilometre = 1000.0;
    const double longest = longestBar / m_viewport.scale;
    double length = std::pow(10.0, std::floor(std::log10(longest)));
    for (const double factor : {5.0, 2.0}) {
        if (length * factor <= longest) {
            length *= factor;
            break;
        }
    }
    const bool inKilometres = unit == QLatin1String("m") && length >= metresInKilometre;
    const QString text = QStringLiteral("%1 %2")
                             .arg(QLocale().toString(inKilometres ? length / metresInKilometre : length, 'g', 6),
                                  inKilometres ? QStringLiteral("km") : unit)
                             .trimmed();
    const QRectF bar(16, m_viewport.size.height() - 22, length * m_viewport.scale, 6);
    // A light plate keeps it readable on every map.
    const double plateWidth = std::max<double>(bar.width(), m_painter.fontMetrics().horizontalAdvance(text)) + 12;
    const double plateTop = bar.top() - m_painter.fontMetrics().height() - 6;
    m_painter.fillRect(QRectF(bar.left() - 6, plateTop, plateWidth, bar.bottom() + 6 - plateTop),
                       QColor(255, 255, 255, 190));
    m_painter.setPen(Qt::black);
    m_painter.setBrush(Qt::white);
    m_painter.drawRect(bar);
    m_painter.fillRect(QRectF(bar.left(), bar.top(), bar.width() / 2, bar.height()), Qt::black);
    m_painter.drawText(QPointF(bar.left(), bar.top() - 4), text);
}

} // namespace refhost
