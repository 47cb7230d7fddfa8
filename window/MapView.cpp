// SPDX-License-Identifier: MIT
#include "window/MapView.h"

#include <QMouseEvent>
#include <QPainter>
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

} // namespace refhost
