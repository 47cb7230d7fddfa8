// SPDX-License-Identifier: MIT
#include "window/MapView.h"

#include "window/MapPainter.h"
#include "window/MapPick.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRubberBand>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace refhost
{

namespace
{

constexpr int margin = 24;
constexpr double wheelFactor = 1.2;
constexpr int keyStep = 60; // pixels
constexpr int invitationMargin = 24;
constexpr double reach = 5.0; ///< pixels from a click to what it means
constexpr int levels = 4;

/// Surfaces lie below, then areas, then lines and points.
int levelOf(const ModelObject& object)
{
    if (object.grid)
        return 0;
    if (object.type == ObjectType::Polygons)
        return 1;
    return object.parts.empty() ? 3 : 2;
}

} // namespace

MapView::MapView(const Model& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_scene(model)
    , m_band(new QRubberBand(QRubberBand::Rectangle, this))
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(tr("Click: select, with Ctrl in addition. Shift and drag: select a rectangle.\n"
                  "Wheel or + and -: zoom. Drag or arrow keys: move. Double click: zoom in."));
    setMinimumSize(240, 180);
    setAccessibleName(tr("Map"));
}

void MapView::updateScene()
{
    m_scene.update();
    if (m_frame >= static_cast<int>(m_scene.frames().size()))
        m_frame = 0;
    placeSample();
    changed();
}

void MapView::offerSample(const std::function<void()>& open)
{
    m_sample = new QPushButton(tr("Open the Sample"), this);
    m_sample->setObjectName(QStringLiteral("openSample"));
    m_sample->adjustSize();
    connect(m_sample, &QPushButton::clicked, this, open);
    placeSample();
}

void MapView::placeSample()
{
    if (!m_sample)
        return;
    m_sample->move(rect().center() - m_sample->rect().center() + QPoint(0, height() / 6));
    m_sample->setVisible(m_model.objects().empty());
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

void MapView::enterFrame(int frame)
{
    if (m_frame == frame)
        return;
    m_frame = frame;
    Q_EMIT frameShown(frame);
}

void MapView::showFrame(int frame)
{
    enterFrame(frame);
    zoomTo();
}

void MapView::zoomTo(const std::vector<int>& ids)
{
    const std::set<int> wanted(ids.begin(), ids.end());
    std::optional<QRectF> whole;
    for (std::size_t index = 0; index < m_scene.places().size(); ++index) {
        const PlacedObject& place = m_scene.places()[index];
        const int id = m_model.objects()[index].id;
        if (!place.extent || (ids.empty() ? !isShown(index) : wanted.count(id) == 0))
            continue;
        if (!whole && !ids.empty())
            enterFrame(place.frame);
        if (place.frame != m_frame)
            continue;
        // QRectF's own union leaves out points.
        whole = !whole ? *place.extent
                       : QRectF(QPointF(std::min(whole->left(), place.extent->left()),
                                        std::min(whole->top(), place.extent->top())),
                                QPointF(std::max(whole->right(), place.extent->right()),
                                        std::max(whole->bottom(), place.extent->bottom())));
    }
    if (!whole)
        return changed();
    constexpr double least = 1e-6;
    constexpr double largestScale = 1e6;
    m_viewport.centreX = whole->center().x();
    m_viewport.centreY = whole->center().y();
    m_viewport.scale = std::min({std::max(width() - 2 * margin, 10) / std::max(whole->width(), least),
                                 std::max(height() - 2 * margin, 10) / std::max(whole->height(), least), largestScale});
    m_fitted = true;
    m_fittedIds = ids;
    changed();
}

void MapView::changed()
{
    m_picture = QPixmap();
    update();
}

bool MapView::isShown(std::size_t index) const
{
    return m_scene.places()[index].frame == m_frame && m_visible.count(m_model.objects()[index].id) != 0;
}

void MapView::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull())
        render();
    QPainter painter(this);
    painter.fillRect(rect(), MapPainter::paper());
    painter.drawPixmap(m_dragOffset, m_picture);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void MapView::resizeEvent(QResizeEvent*)
{
    m_viewport.size = size();
    if (m_fitted)
        zoomTo(std::vector<int>(m_fittedIds));
    placeSample();
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
    const QPointF fixed = m_viewport.toMap(position);
    m_viewport.scale = std::clamp(m_viewport.scale * factor, 1e-9, 1e9);
    const QPointF now = m_viewport.toMap(position);
    m_viewport.centreX += fixed.x() - now.x();
    m_viewport.centreY += fixed.y() - now.y();
    m_fitted = false;
    changed();
}

void MapView::moveBy(const QPointF& pixels)
{
    m_viewport.centreX += pixels.x() / m_viewport.scale;
    m_viewport.centreY -= pixels.y() / m_viewport.scale;
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
    if (event->button() == Qt::RightButton) {
        // The menu is about what it opens on.
        const int id = topmostAt(event->localPos());
        if (id > 0 && m_selected.count(id) == 0)
            Q_EMIT selectionChosen({id});
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_dragFrom = event->pos();
    if ((event->modifiers() & Qt::ShiftModifier) != 0) {
        m_band->setGeometry(QRect(m_dragFrom, QSize()));
        m_band->show();
        return;
    }
    m_dragging = true;
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF position = m_viewport.toMap(QPointF(event->pos() - m_dragOffset));
    Q_EMIT cursorMoved(position.x(), position.y());
    if (m_band->isVisible()) {
        m_band->setGeometry(QRect(m_dragFrom, event->pos()).normalized());
        return;
    }
    const QPoint moved = event->pos() - m_dragFrom;
    if (!m_dragging || (m_dragOffset.isNull() && moved.manhattanLength() < QApplication::startDragDistance()))
        return;
    setCursor(Qt::ClosedHandCursor);
    m_dragOffset = moved;
    update();
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool add = (event->modifiers() & Qt::ControlModifier) != 0;
    if (m_band->isVisible()) {
        m_band->hide();
        selectBox(m_band->geometry(), add);
        return;
    }
    if (!m_dragging)
        return;
    m_dragging = false;
    unsetCursor();
    if (m_dragOffset.isNull())
        return clicked(event->pos(), add);
    const QPoint moved = m_dragOffset;
    m_dragOffset = QPoint();
    moveBy(-moved);
}

/// The id of what is drawn on top of all others there; 0 when nothing is.
int MapView::topmostAt(const QPointF& position) const
{
    const QPointF point = m_viewport.toMap(position);
    int found = 0;
    int level = 0;
    for (std::size_t index = 0; index < m_scene.places().size(); ++index) {
        const ModelObject& object = m_model.objects()[index];
        if (!isShown(index) || levelOf(object) < level
            || !isHit(object, m_scene.places()[index], point, reach / m_viewport.scale))
            continue;
        found = object.id;
        level = levelOf(object);
    }
    return found;
}

void MapView::clicked(const QPoint& position, bool add)
{
    const int id = topmostAt(position);
    std::set<int> chosen = add ? m_selected : std::set<int>();
    if (id > 0 && add && m_selected.count(id) != 0)
        chosen.erase(id);
    else if (id > 0)
        chosen.insert(id);
    if (chosen != m_selected)
        Q_EMIT selectionChosen(chosen);
}

void MapView::selectBox(const QRect& box, bool add)
{
    const QRectF within = m_viewport.toMap(QRectF(box));
    std::set<int> chosen = add ? m_selected : std::set<int>();
    for (std::size_t index = 0; index < m_scene.places().size(); ++index) {
        const ModelObject& object = m_model.objects()[index];
        if (isShown(index) && isTouched(object, m_scene.places()[index], within))
            chosen.insert(object.id);
    }
    if (chosen != m_selected)
        Q_EMIT selectionChosen(chosen);
}

void MapView::render()
{
    m_picture = QPixmap(size() * devicePixelRatioF());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(MapPainter::paper());
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_model.objects().empty()) {
        drawInvitation(painter);
        return;
    }
    const QRectF shown = m_viewport.toMap(QRectF(rect()).adjusted(-8, -8, 8, 8));
    MapPainter map(painter, m_viewport);
    for (int level = 0; level < levels; ++level) {
        for (std::size_t index = 0; index < m_scene.places().size(); ++index) {
            const ModelObject& object = m_model.objects()[index];
            const PlacedObject& place = m_scene.places()[index];
            if (levelOf(object) == level && isShown(index) && place.extent
                && place.extent->adjusted(-1e-9, -1e-9, 1e-9, 1e-9).intersects(shown))
                map.draw(object, place, m_selected.count(object.id) != 0);
        }
    }
    map.drawScaleBar(m_scene.frames().empty() ? QString() : m_scene.frames()[static_cast<std::size_t>(m_frame)].unit);
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
