// SPDX-License-Identifier: MIT
#include "window/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace refhost
{

namespace
{

constexpr int mostRecent = 10;
const QString recentKey = QStringLiteral("recentFiles");

} // namespace

RecentFiles::RecentFiles(QWidget* parent)
    : QMenu(tr("Open &Recent"), parent)
{
    setObjectName(QStringLiteral("recentFiles"));
    connect(this, &QMenu::aboutToShow, this, &RecentFiles::fill);
    fill();
}

void RecentFiles::add(const QString& path)
{
    QSettings stored;
    QStringList paths = stored.value(recentKey).toStringList();
    paths.removeAll(path);
    paths.prepend(path);
    stored.setValue(recentKey, QStringList(paths.mid(0, mostRecent)));
    menuAction()->setEnabled(true);
}

void RecentFiles::fill()
{
    clear();
    for (const QString& path : QSettings().value(recentKey).toStringList()) {
        const QFileInfo file(path);
        if (!file.exists())
            continue;
        QString name = file.fileName();
        QAction* const action = addAction(name.replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
    }
    setToolTipsVisible(true);
    menuAction()->setEnabled(!isEmpty());
}

} // namespace refhost
