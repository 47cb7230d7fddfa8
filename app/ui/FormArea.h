// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace refhost
{

/// Shows a form whole where the screen has room for it, and scrolls it up and down where it has not.
class FormArea : public QScrollArea
{
public:
    FormArea(QWidget* form, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

} // namespace refhost
