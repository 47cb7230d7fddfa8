// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;

namespace kpFormats
{

/// Names the fields of a layout that the chosen objects lack. Once dismissed it is back when these are others.
class LackingFieldsNotice : public QWidget
{
    Q_OBJECT

public:
    explicit LackingFieldsNotice(QWidget* parent);

    /// Hidden when there are none.
    void tell(const QStringList& lacking);
    /// The next tell() is of another layout: it tells also what has been told.
    void forget() { m_told.clear(); }

private:
    QLabel* m_label;
    QStringList m_told;
};

} // namespace kpFormats
