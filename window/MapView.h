// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "window/MapScene.h"
#include "window/MapViewport.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <set>

class QPushButton;
class QRubberBand;

namespace refhost
{

/// The model seen from above, a frame of it at a time. Zoomed by wheel about the cursor, moved by dragging; also by the
/// keys + and - and the arrows. A click selects the object under it, with Ctrl in addition; Shift and dragging selects
/// what lies in the rectangle.
class MapView : public QWidget
{
    Q_OBJECT

public:
    explicit MapView(const Model& model, QWidget* parent = nullptr);

    /// Takes in what was added to the model or has gone from it.
    void updateScene();
    void setVisibleIds(const std::set<int>& ids);
    void setSelectedIds(const std::set<int>& ids);
    /// Shows the whole of these objects, in the frame of the first; all visible ones when the list is empty.
    void zoomTo(const std::vector<int>& ids = {});
    /// Zooms about the middle; \a factor above 1 shows less of the map, larger.
    void zoomBy(double factor);
    const std::vector<MapFrame>& frames() const { return m_scene.frames(); }
    /// The number of the frame that is shown; 0 of an empty model.
    int shownFrame() const { return m_frame; }
    /// Shows the whole of another frame.
    void showFrame(int frame);
    /// Offers a sample to an empty map, by a button that calls \a open.
    void offerSample(const std::function<void()>& open);
    /// Where a position of the shown frame is drawn.
    QPointF pixelOf(double x, double y) const { return m_viewport.toScreen(x, y); }
    QSize sizeHint() const override { return {700, 560}; }

Q_SIGNALS:
    /// The coordinates under the cursor, in the frame shown.
    void cursorMoved(double x, double y);
    /// The user has chosen these objects, and no others, on the map.
    void selectionChosen(const std::set<int>& ids);
    void frameShown(int frame);

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
    void zoomAbout(const QPointF& position, double factor);
    void moveBy(const QPointF& pixels);
    void enterFrame(int frame);
    void placeSample();
    void changed();
    void drawInvitation(QPainter& painter) const;
    void render();
    bool isShown(std::size_t index) const;
    int topmostAt(const QPointF& position) const;
    void clicked(const QPoint& position, bool add);
    void selectBox(const QRect& box, bool add);

    const Model& m_model;
    MapScene m_scene;
    int m_frame = 0;
    std::set<int> m_visible;
    std::set<int> m_selected;
    MapViewport m_viewport;
    QPixmap m_picture; ///< the map as last drawn; empty when it must be drawn again
    QPoint m_dragFrom;
    QPoint m_dragOffset;
    bool m_dragging = false;
    QRubberBand* m_band;             ///< shown while a rectangle is drawn
    QPushButton* m_sample = nullptr; ///< shown while the model is empty
    bool m_fitted = true;            ///< no move or zoom since zoomTo()
    std::vector<int> m_fittedIds;
};

} // namespace refhost
