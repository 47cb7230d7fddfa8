// SPDX-License-Identifier: MIT
// What the map draws.
#include "window/MapView.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <vector>

namespace refhost
{

namespace
{

constexpr int invitationMargin = 24;
// Vertices nearer than this on the screen are drawn as one.
constexpr double leastStep = 0.7;
const QColor selectionColour(255, 140, 0);

QColor shaded(const QColor& base, double share)
{
    // From a dark to a light tone of the object's colour.
    return QColor::fromHsvF(std::max(base.hsvHueF(), 0.0), base.hsvSaturationF() * (1.0 - 0.6 * share),
                            0.35 + 0.6 * share);
}

} // namespace

void MapView::drawGrid(QPainter& painter, const ModelObject& object) const
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
    // As many pixels as the screen can show at most.
    const int every = std::max(1, std::max(grid.columns, grid.rows) / 1500);
    QImage image(grid.columns / every + 1, grid.rows / every + 1, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int row = 0; row < grid.rows; row += every) {
        for (int column = 0; column < grid.columns; column += every) {
            const auto node = static_cast<std::size_t>(row) * grid.columns + column;
            const double z = (*object.z)[node];
            if (!std::isfinite(z))
                continue;
            double light = most > least ? (z - least) / (most - least) : 0.5;
            // A light from the north-west shows the relief.
            if (column > 0 && row + 1 < grid.rows) {
                const double slope = (*object.z)[node] - (*object.z)[node + grid.columns - 1];
                if (std::isfinite(slope))
                    light = std::clamp(
                        light + std::clamp(slope / std::hypot(grid.stepX, grid.stepY) * 2.0, -0.25, 0.25), 0.0, 1.0);
            }
            image.setPixelColor(column / every, image.height() - 1 - row / every, shaded(object.color, light));
        }
    }
    painter.save();
    painter.translate(toScreen(grid.originX, grid.originY));
    painter.rotate(-grid.rotation);
    const double pixelWidth = grid.stepX * every * m_scale;
    const double pixelHeight = grid.stepY * every * m_scale;
    painter.drawImage(QRectF(-pixelWidth / 2, -pixelHeight * (image.height() - 0.5), pixelWidth * image.width(),
                             pixelHeight * image.height()),
                      image);
    if (m_selected.count(object.id) != 0) {
        painter.setPen(QPen(selectionColour, 3));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(0, -pixelHeight * (image.height() - 1), pixelWidth * (image.width() - 1),
                                pixelHeight * (image.height() - 1)));
    }
    painter.restore();
}

void MapView::drawObject(QPainter& painter, const ModelObject& object, const QRectF& shown) const
{
    if (object.vertexCount() == 0 || !extentOf(object).adjusted(-1e-9, -1e-9, 1e-9, 1e-9).intersects(shown))
        return;
    const bool selected = m_selected.count(object.id) != 0;
    if (object.grid) {
        drawGrid(painter, object);
        return;
    }
    const QColor colour = selected ? selectionColour : object.color;
    if (object.parts.empty()) {
        painter.setPen(QPen(colour.darker(140), 1));
        painter.setBrush(colour);
        const double radius = selected ? 4 : 3;
        // A cloud has more points than the map has pixels: what is drawn already is not drawn again.
        const QRect canvas = rect().adjusted(-4, -4, 4, 4);
        std::vector<bool> drawn(static_cast<std::size_t>(canvas.width()) * canvas.height());
        for (std::size_t index = 0; index < object.x->size(); ++index) {
            const QPointF place = toScreen((*object.x)[index], (*object.y)[index]);
            if (!QRectF(canvas).contains(place))
                continue;
            const QPoint pixel(static_cast<int>(place.x()) - canvas.left(), static_cast<int>(place.y()) - canvas.top());
            const auto at = static_cast<std::size_t>(std::clamp(pixel.y(), 0, canvas.height() - 1)) * canvas.width()
                            + std::clamp(pixel.x(), 0, canvas.width() - 1);
            if (drawn[at])
                continue;
            drawn[at] = true;
            painter.drawEllipse(place, radius, radius);
        }
        return;
    }
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    bool area = object.type == ObjectType::Polygons;
    for (const Part& part : object.parts) {
        QPointF last;
        for (int index = part.first; index < part.first + part.count; ++index) {
            const QPointF point = toScreen((*object.x)[index], (*object.y)[index]);
            if (index == part.first)
                path.moveTo(point);
            else if ((point - last).manhattanLength() >= leastStep || index + 1 == part.first + part.count)
                path.lineTo(point);
            else
                continue;
            last = point;
        }
    }
    QColor fill = colour;
    fill.setAlpha(110);
    painter.setPen(QPen(area ? colour.darker(150) : colour, selected ? 3 : (area ? 1 : 2)));
    painter.setBrush(area ? QBrush(fill) : QBrush(Qt::NoBrush));
    painter.drawPath(path);
    if (object.type == ObjectType::Wells) {
        painter.setBrush(colour);
        painter.drawEllipse(toScreen(object.x->front(), object.y->front()), 3, 3);
    }
}

void MapView::drawScaleBar(QPainter& painter) const
{
    const double longest = 160.0 / m_scale;
    double length = std::pow(10.0, std::floor(std::log10(longest)));
    for (const double factor : {5.0, 2.0}) {
        if (length * factor <= longest) {
            length *= factor;
            break;
        }
    }
    const QRectF bar(16, height() - 22, length * m_scale, 6);
    const QString text = QString::number(length, 'g', 6);
    // A light plate keeps it readable on every map.
    const double plateWidth = std::max<double>(bar.width(), painter.fontMetrics().horizontalAdvance(text)) + 12;
    const double plateTop = bar.top() - painter.fontMetrics().height() - 6;
    painter.fillRect(QRectF(bar.left() - 6, plateTop, plateWidth, bar.bottom() + 6 - plateTop),
                     QColor(255, 255, 255, 190));
    painter.setPen(Qt::black);
    painter.setBrush(Qt::white);
    painter.drawRect(bar);
    painter.fillRect(QRectF(bar.left(), bar.top(), bar.width() / 2, bar.height()), Qt::black);
    painter.drawText(QPointF(bar.left(), bar.top() - 4), text);
}

void MapView::render()
{
    m_picture = QPixmap(size() * devicePixelRatioF());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(QColor(250, 250, 247));
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_model.objects().empty()) {
        drawInvitation(painter);
        return;
    }
    const QPointF southWest = toMap(QPointF(-8, height() + 8));
    const QPointF northEast = toMap(QPointF(width() + 8, -8));
    const QRectF shown(southWest, northEast);
    // Surfaces below, then areas, then lines and points.
    const auto level = [](const ModelObject& object) {
        if (object.grid)
            return 0;
        if (object.type == ObjectType::Polygons)
            return 1;
        return object.parts.empty() ? 3 : 2;
    };
    for (int current = 0; current < 4; ++current) {
        for (const ModelObject& object : m_model.objects()) {
            if (level(object) == current && m_visible.count(object.id) != 0)
                drawObject(painter, object, shown);
        }
    }
    drawScaleBar(painter);
}

void MapView::drawInvitation(QPainter& painter) const
{
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    painter.setFont(font);
    painter.setPen(QColor(110, 110, 110));
    painter.drawText(rect().adjusted(invitationMargin, invitationMargin, -invitationMargin, -invitationMargin),
                     Qt::AlignCenter | Qt::TextWordWrap, tr("Open a model with Ctrl+O,\nor drop a file here."));
}

} // namespace refhost
