// SPDX-License-Identifier: MIT
#pragma once

#include "pages/kpFormatsUiExport.h"

#include <QScrollArea>

namespace kpFormats
{

/// Shows a form whole where there is room for it, and scrolls it up and down where there is not. Named "formArea".
class KPFORMATSUI_EXPORT FormArea : public QScrollArea
{
public:
    FormArea(QWidget* form, QWidget* parent);

    /// Makes the window of \a page as large as its form needs, as far as the screen allows.
    static void growWindow(QWidget& page);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Follows a form whose needs change.
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace kpFormats
