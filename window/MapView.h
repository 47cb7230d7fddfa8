// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "model/Model.h"

#include <QPixmap>
#include <QWidget>

#include <map>
#include <set>

namespace refhost
{

/// The model seen from above: objects in their colours, zoomed by wheel about the cursor, moved by dragging; also by
/// the keys + and - and the arrows.
class MapView : public QWidget
{
    Q_OBJECT

public:
    explicit MapView(const Model& model, QWidget* parent = nullptr);

    void setVisibleIds(const std::set<int>& ids);
    void setSelectedIds(const std::set<int>& ids);
    /// Shows the whole of these objects; all visible ones when the list is empty.
    void zoomTo(const std::vector<int>& ids = {});
    /// Zooms about the middle; \a factor above 1 shows less of the map, larger.
    void zoomBy(double factor);
    QSize sizeHint() const override { return {700, 560}; }

Q_SIGNALS:
    /// The coordinates under the cursor.
    void cursorMoved(double x, double y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPointF toScreen(double x, double y) const;
    QPointF toMap(const QPointF& position) const;
    void zoomAbout(const QPointF& position, double factor);
    void moveBy(const QPointF& pixels);
    void changed();
    void drawInvitation(QPainter& painter) const;
    void render();
    void drawObject(QPainter& painter, const ModelObject& object, const QRectF& shown) const;
    void drawGrid(QPainter& painter, const ModelObject& object) const;
    void drawScaleBar(QPainter& painter) const;
    QRectF extentOf(const ModelObject& object) const;

    const Model& m_model;
    std::set<int> m_visible;
    std::set<int> m_selected;
    double m_centreX = 0;
    double m_centreY = 0;
    double m_scale = 1; ///< pixels per map unit
    QPixmap m_picture;  ///< the map as last drawn; empty when it must be drawn again
    QPoint m_dragFrom;
    QPoint m_dragOffset;
    bool m_dragging = false;
    bool m_fitted = true; ///< no move or zoom since zoomTo()
    std::vector<int> m_fittedIds;
    mutable std::map<int, QRectF> m_extents;
};

} // namespace refhost
