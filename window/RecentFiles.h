// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include <QMenu>

namespace refhost
{

/// The menu of the files that were opened last, kept from run to run. Those that are no longer there are left out.
class RecentFiles : public QMenu
{
    Q_OBJECT

public:
    explicit RecentFiles(QWidget* parent);

    /// Puts the file on top.
    void add(const QString& path);

Q_SIGNALS:
    void chosen(const QString& path);

private:
    void fill();
};

} // namespace refhost
