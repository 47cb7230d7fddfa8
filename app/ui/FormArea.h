// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace refhost
{

/// Shows a form whole where there is room for it, and scrolls it up and down where there is not. Named "formArea".
class FormArea : public QScrollArea
{
public:
    FormArea(QWidget* form, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

} // namespace refhost
