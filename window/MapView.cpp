// SPDX-License-Identifier: MIT
#include "window/MapView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace refhost
{

namespace
{

constexpr int margin = 24;
constexpr double wheelFactor = 1.2;
constexpr int keyStep = 60; // pixels
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

MapView::MapView(const Model& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(tr("Wheel or + and -: zoom. Drag or arrow keys: move. Double click: zoom in."));
    setMinimumSize(240, 180);
    setAccessibleName(tr("Map"));
}

void MapView::setVisibleIds(const std::set<int>& ids)
{
    m_visible = ids;
    changed();
}

void MapView::setSelectedIds(const std::set<int>& ids)
{
    m_selected = ids;
    changed();
}

QRectF MapView::extentOf(const ModelObject& object) const
{
    const auto known = m_extents.find(object.id);
    if (known != m_extents.end())
        return known->second;
    double west = INFINITY;
    double east = -INFINITY;
    double south = INFINITY;
    double north = -INFINITY;
    for (std::size_t index = 0; index < object.x->size(); ++index) {
        west = std::min(west, (*object.x)[index]);
        east = std::max(east, (*object.x)[index]);
        south = std::min(south, (*object.y)[index]);
        north = std::max(north, (*object.y)[index]);
    }
    const QRectF extent = west > east ? QRectF() : QRectF(QPointF(west, south), QPointF(east, north));
    m_extents[object.id] = extent;
    return extent;
}

void MapView::zoomTo(const std::vector<int>& ids)
{
    bool any = false;
    double west = 0;
    double east = 0;
    double south = 0;
    double north = 0;
    for (const ModelObject& object : m_model.objects()) {
        const bool wanted =
            ids.empty() ? m_visible.count(object.id) != 0 : std::find(ids.begin(), ids.end(), object.id) != ids.end();
        if (!wanted || object.vertexCount() == 0)
            continue;
        const QRectF extent = extentOf(object);
        west = any ? std::min(west, extent.left()) : extent.left();
        east = any ? std::max(east, extent.right()) : extent.right();
        south = any ? std::min(south, extent.top()) : extent.top();
        north = any ? std::max(north, extent.bottom()) : extent.bottom();
        any = true;
    }
    if (!any)
        return;
    m_centreX = (west + east) / 2;
    m_centreY = (south + north) / 2;
    const double least = 1e-6;
    m_scale = std::min(std::max(width() - 2 * margin, 10) / std::max(east - west, least),
                       std::max(height() - 2 * margin, 10) / std::max(north - south, least));
    m_scale = std::min(m_scale, 1e6);
    m_fitted = true;
    m_fittedIds = ids;
    changed();
}

QPointF MapView::toScreen(double x, double y) const
{
    return {width() / 2.0 + (x - m_centreX) * m_scale, height() / 2.0 - (y - m_centreY) * m_scale};
}

QPointF MapView::toMap(const QPointF& position) const
{
    return {m_centreX + (position.x() - width() / 2.0) / m_scale,
            m_centreY - (position.y() - height() / 2.0) / m_scale};
}

void MapView::changed()
{
    m_picture = QPixmap();
    update();
}

void MapView::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull())
        render();
    QPainter painter(this);
    painter.fillRect(rect(), QColor(250, 250, 247));
    painter.drawPixmap(m_dragOffset, m_picture);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void MapView::resizeEvent(QResizeEvent*)
{
    if (m_fitted)
        zoomTo(std::vector<int>(m_fittedIds));
    changed();
}

void MapView::wheelEvent(QWheelEvent* event)
{
    zoomAbout(event->position(), std::pow(wheelFactor, event->angleDelta().y() / 120.0));
}

void MapView::zoomBy(double factor)
{
    zoomAbout(QPointF(width() / 2.0, height() / 2.0), factor);
}

void MapView::zoomAbout(const QPointF& position, double factor)
{
    const QPointF fixed = toMap(position);
    m_scale = std::clamp(m_scale * factor, 1e-9, 1e9);
    const QPointF now = toMap(position);
    m_centreX += fixed.x() - now.x();
    m_centreY += fixed.y() - now.y();
    m_fitted = false;
    changed();
}

void MapView::moveBy(const QPointF& pixels)
{
    m_centreX += pixels.x() / m_scale;
    m_centreY -= pixels.y() / m_scale;
    m_fitted = false;
    changed();
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        zoomAbout(event->localPos(), wheelFactor * wheelFactor);
}

void MapView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoomBy(wheelFactor);
    case Qt::Key_Minus:
        return zoomBy(1 / wheelFactor);
    case Qt::Key_Left:
        return moveBy({-keyStep, 0});
    case Qt::Key_Right:
        return moveBy({keyStep, 0});
    case Qt::Key_Up:
        return moveBy({0, -keyStep});
    case Qt::Key_Down:
        return moveBy({0, keyStep});
    default:
        QWidget::keyPressEvent(event);
    }
}

void MapView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_dragging = true;
    m_dragFrom = event->pos();
    setCursor(Qt::ClosedHandCursor);
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF position = toMap(event->pos() - m_dragOffset);
    Q_EMIT cursorMoved(position.x(), position.y());
    if (!m_dragging)
        return;
    m_dragOffset = event->pos() - m_dragFrom;
    update();
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_dragging)
        return;
    m_dragging = false;
    unsetCursor();
    if (m_dragOffset.isNull())
        return;
    const QPoint moved = m_dragOffset;
    m_dragOffset = QPoint();
    moveBy(-moved);
}

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
