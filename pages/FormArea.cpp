// SPDX-License-Identifier: MIT
#include "pages/FormArea.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace kpFormats
{

namespace
{

constexpr int leastHeight = 240;

/// Room that a window may take on its screen, its frame left out.
constexpr int frameHeight = 40;

} // namespace

FormArea::FormArea(QWidget* form, QWidget* parent)
    : QScrollArea(parent)
{
    setObjectName(QStringLiteral("formArea"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(form);
    // The scroll bar is reached by what scrolls it: the controls.
    setFocusPolicy(Qt::NoFocus);
}

void FormArea::growWindow(QWidget& page)
{
    // What does not fit is known when the layouts have heard of what is shown.
    QTimer::singleShot(0, &page, [&page] {
        QWidget* const window = page.window();
        const QScreen* const screen = window->screen();
        const auto* area = page.findChild<const QScrollArea*>(QStringLiteral("formArea"));
        if (window == &page || !screen || !area)
            return;
        const int lacking = std::max(0, area->widget()->height() - area->viewport()->height());
        const QSize wanted(window->sizeHint().width(), window->height() + lacking);
        window->resize(window->size().expandedTo(wanted.boundedTo(screen->availableSize() - QSize(0, frameHeight))));
    });
}

bool FormArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QSize FormArea::sizeHint() const
{
    return widget()->minimumSizeHint();
}

QSize FormArea::minimumSizeHint() const
{
    const QSize form = widget()->minimumSizeHint();
    const bool scrolls = form.height() > leastHeight;
    return {form.width() + (scrolls ? verticalScrollBar()->sizeHint().width() : 0),
            std::min(form.height(), leastHeight)};
}

} // namespace kpFormats
