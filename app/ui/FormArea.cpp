// SPDX-License-Identifier: MIT
#include "app/ui/FormArea.h"

#include <QScrollBar>

#include <algorithm>

namespace refhost
{

namespace
{

constexpr int leastHeight = 240;

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

QSize FormArea::sizeHint() const
{
    return widget()->minimumSizeHint();
}

QSize FormArea::minimumSizeHint() const
{
    const QSize form = widget()->minimumSizeHint();
    const bool scrolls = form.height() > leastHeight;
    return {form.width() + (scrolls ? verticalScrollBar()->sizeHint().width() : 0), std::min(form.height(), leastHeight)};
}

} // namespace refhost
