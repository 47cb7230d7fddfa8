// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "window/ExportWizard.h"
#include "window/MapView.h"
#include "wizard/PlainText.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>

#include <algorithm>
#include <set>

namespace refhost
{

namespace
{

constexpr double zoomStep = 1.5;
constexpr int mostExpanded = 20; ///< a group with more objects starts closed
constexpr int columnPadding = 12;
constexpr int widestColumn = 140;

} // namespace

MainWindow::MainWindow(HostContext& context)
    : m_context(context)
    , m_tree(new QTreeWidget(this))
    , m_map(new MapView(context.model, this))
    , m_counts(new QLabel(this))
    , m_position(new QLabel(this))
{
    setWindowTitle(QStringLiteral("kpexport"));
    setAcceptDrops(true);
    m_tree->setObjectName(QStringLiteral("objectTree"));
    m_tree->setAccessibleName(tr("Objects"));
    m_tree->setHeaderLabels({tr("Object"), tr("Set"), tr("Vertices")});
    m_tree->headerItem()->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setUniformRowHeights(true);
    QHeaderView* header = m_tree->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_map);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({400, 700});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);
    m_counts->setObjectName(QStringLiteral("objectCounts"));
    statusBar()->addWidget(m_counts);
    statusBar()->addPermanentWidget(m_position);
    buildActions();
    showCounts();
    connect(m_tree, &QTreeWidget::itemChanged, this, &MainWindow::treeChanged);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &MainWindow::selectionChanged);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        const int id = item->data(0, Qt::UserRole).toInt();
        if (id > 0)
            m_map->zoomTo({id});
    });
    connect(m_map, &MapView::cursorMoved, this, [this](double x, double y) {
        if (!m_context.model.objects().empty())
            m_position->setText(QStringLiteral("X %1   Y %2").arg(x, 0, 'f', 2).arg(y, 0, 'f', 2));
    });
    QSize size(1100, 680);
    if (const QScreen* onScreen = screen())
        size = size.boundedTo(onScreen->availableSize());
    resize(size);
}

void MainWindow::buildActions()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QMenu* view = menuBar()->addMenu(tr("&View"));
    QToolBar* bar = addToolBar(tr("Main"));
    bar->setObjectName(QStringLiteral("mainBar"));
    const auto add = [this](QMenu* menu, const QString& text, const char* name, const QKeySequence& keys, auto slot) {
        QAction* action = menu->addAction(text);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(keys);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(action->toolTip(), keys.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    bar->addAction(add(file, tr("&Open..."), "openAction", QKeySequence::Open, [this] { chooseModel(); }));
    m_needObjects = {
        add(file, tr("&Export..."), "exportAction", QKeySequence(Qt::CTRL | Qt::Key_E), [this] { exportObjects(); }),
        add(view, tr("Zoom to &All"), "zoomAction", QKeySequence(Qt::CTRL | Qt::Key_0), [this] { m_map->zoomTo(); }),
        add(view, tr("Zoom to &Selection"), "zoomSelectionAction", QKeySequence(Qt::CTRL | Qt::Key_9),
            [this] {
                const std::set<int>& ids = m_context.selectedIds;
                if (!ids.empty())
                    m_map->zoomTo({ids.begin(), ids.end()});
            }),
        add(view, tr("Zoom &In"), "zoomInAction", QKeySequence::ZoomIn, [this] { m_map->zoomBy(zoomStep); }),
        add(view, tr("Zoom &Out"), "zoomOutAction", QKeySequence::ZoomOut, [this] { m_map->zoomBy(1 / zoomStep); })};
    bar->addAction(m_needObjects[0]);
    bar->addAction(m_needObjects[1]);
    file->addSeparator();
    add(file, tr("&Quit"), "quitAction", QKeySequence::Quit, [this] { close(); });
}

void MainWindow::chooseModel()
{
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Open"), QString(),
        tr("All Files (*);;Models (*.kpmodel);;Vectors (*.gpkg *.shp *.geojson *.json *.csv);;Grids (*.tif *.asc)"));
    for (const QString& path : paths)
        openModel(path);
}

void MainWindow::openModel(const QString& path)
{
    LoadNotes notes;
    QString failure;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        notes = loadInto(m_context.model, path);
        m_context.modelPaths.append(QFileInfo(path).absoluteFilePath());
    } catch (const LoadError& error) {
        failure = QString::fromUtf8(error.what());
    }
    addNewObjects();
    QApplication::restoreOverrideCursor();
    if (!failure.isEmpty())
        QMessageBox::warning(this, tr("Open"), kpBaseExport::plainText(failure));
    if (!notes.isEmpty())
        statusBar()->showMessage(notes.join(QStringLiteral("; ")), 10000);
}

QTreeWidgetItem* MainWindow::groupOf(ObjectType type)
{
    QTreeWidgetItem*& group = m_groups[type];
    if (!group) {
        group = new QTreeWidgetItem(m_tree, {typeName(type)});
        group->setFlags(group->flags() | Qt::ItemIsAutoTristate | Qt::ItemIsUserCheckable);
    }
    return group;
}

/// What was hidden, selected or expanded stays so.
void MainWindow::addNewObjects()
{
    const QSignalBlocker blocker(m_tree);
    const std::vector<ModelObject>& objects = m_context.model.objects();
    std::vector<int> together;
    std::set<QTreeWidgetItem*> grown;
    for (std::size_t index = m_shownObjects; index < objects.size(); ++index) {
        const ModelObject& object = objects[index];
        QTreeWidgetItem* group = groupOf(object.type);
        auto* item = new QTreeWidgetItem(group, {object.name, object.set, QString::number(object.vertexCount())});
        QPixmap colour(12, 12);
        colour.fill(object.color);
        item->setIcon(0, QIcon(colour));
        item->setData(0, Qt::UserRole, object.id);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(
            0, kpBaseExport::plainText(QStringLiteral("%1\n%2").arg(object.name, crsName(object.crs)).trimmed()));
        item->setToolTip(1, kpBaseExport::plainText(object.set));
        item->setCheckState(0, Qt::Checked);
        grown.insert(group);
        // Objects of several coordinate systems lie far apart: the first one's neighbourhood is shown.
        if (object.crs == objects[m_shownObjects].crs)
            together.push_back(object.id);
    }
    m_shownObjects = objects.size();
    for (QTreeWidgetItem* group : grown) {
        group->setToolTip(0, tr("%1 objects").arg(group->childCount()));
        if (group->childCount() <= mostExpanded)
            group->setExpanded(true);
    }
    for (const int column : {1, 2}) {
        m_tree->resizeColumnToContents(column);
        m_tree->header()->resizeSection(column, std::min(m_tree->columnWidth(column) + columnPadding, widestColumn));
    }
    treeChanged();
    showCounts();
    if (!together.empty())
        m_map->zoomTo(together);
}

void MainWindow::showCounts()
{
    const std::size_t objects = m_context.model.objects().size();
    const QStringList& paths = m_context.modelPaths;
    QString text = objects == 1 ? tr("1 object") : tr("%1 objects").arg(objects);
    if (!m_context.selectedIds.empty())
        text += tr(", %1 selected").arg(m_context.selectedIds.size());
    m_counts->setText(text);
    for (QAction* action : m_needObjects)
        action->setEnabled(objects != 0);
    if (paths.isEmpty())
        return;
    QString title = QFileInfo(paths.front()).fileName();
    if (paths.size() > 1)
        title += tr(" and %1 more").arg(paths.size() - 1);
    setWindowTitle(QStringLiteral("%1 - kpexport").arg(title));
}

void MainWindow::treeChanged()
{
    std::set<int> visible;
    for (int group = 0; group < m_tree->topLevelItemCount(); ++group) {
        const QTreeWidgetItem* top = m_tree->topLevelItem(group);
        for (int row = 0; row < top->childCount(); ++row) {
            if (top->child(row)->checkState(0) == Qt::Checked)
                visible.insert(top->child(row)->data(0, Qt::UserRole).toInt());
        }
    }
    m_map->setVisibleIds(visible);
}

void MainWindow::selectionChanged()
{
    m_context.selectedIds.clear();
    for (const QTreeWidgetItem* item : m_tree->selectedItems()) {
        const int id = item->data(0, Qt::UserRole).toInt();
        if (id > 0)
            m_context.selectedIds.insert(id);
        for (int row = 0; row < item->childCount(); ++row)
            m_context.selectedIds.insert(item->child(row)->data(0, Qt::UserRole).toInt());
    }
    m_map->setSelectedIds(m_context.selectedIds);
    showCounts();
}

void MainWindow::exportObjects()
{
    ExportWizard wizard(m_context, this);
    wizard.startup();
    wizard.exec();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    // The program that the files come from waits until this returns.
    QTimer::singleShot(0, this, [this, paths] {
        for (const QString& path : paths)
            openModel(path);
    });
}

} // namespace refhost
