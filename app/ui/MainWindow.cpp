// SPDX-License-Identifier: MIT
#include "app/ui/MainWindow.h"

#include "app/readers/CoordinateSystems.h"
#include "app/readers/LoadError.h"
#include "app/readers/ModelLoader.h"
#include "app/ui/ExportWizard.h"
#include "app/ui/MapView.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>

namespace refhost
{

MainWindow::MainWindow(HostContext& context)
    : m_context(context)
    , m_tree(new QTreeWidget(this))
    , m_map(new MapView(context.model, this))
    , m_position(new QLabel(this))
{
    setWindowTitle(QStringLiteral("kpexport"));
    setAcceptDrops(true);
    m_tree->setObjectName(QStringLiteral("objectTree"));
    m_tree->setHeaderLabels({tr("Object"), tr("Vertices"), tr("Set")});
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setUniformRowHeights(true);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_map);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({400, 700});
    setCentralWidget(splitter);
    statusBar()->addPermanentWidget(m_position);
    buildActions();
    connect(m_tree, &QTreeWidget::itemChanged, this, &MainWindow::treeChanged);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &MainWindow::selectionChanged);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        const int id = item->data(0, Qt::UserRole).toInt();
        if (id > 0)
            m_map->zoomTo({id});
    });
    connect(m_map, &MapView::cursorMoved, this, [this](double x, double y) {
        m_position->setText(QStringLiteral("%1  %2").arg(x, 0, 'f', 2).arg(y, 0, 'f', 2));
    });
    resize(1100, 680);
}

void MainWindow::buildActions()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QToolBar* bar = addToolBar(tr("Main"));
    bar->setObjectName(QStringLiteral("mainBar"));
    const auto add = [&](const QString& text, const char* name, const QKeySequence& keys, auto slot) {
        QAction* action = file->addAction(text);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
        bar->addAction(action);
        return action;
    };
    add(tr("Open..."), "openAction", QKeySequence::Open, [this] { chooseModel(); });
    add(tr("Export..."), "exportAction", QKeySequence(Qt::CTRL + Qt::Key_E), [this] { exportObjects(); });
    add(tr("Zoom to All"), "zoomAction", QKeySequence(Qt::CTRL + Qt::Key_0), [this] { m_map->zoomTo(); });
    QAction* quit = file->addAction(tr("Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
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
    try {
        notes = loadInto(m_context.model, path);
        m_context.modelPaths.append(QFileInfo(path).absoluteFilePath());
    } catch (const LoadError& error) {
        QMessageBox::warning(this, tr("Open"), QString::fromUtf8(error.what()));
    }
    if (!notes.isEmpty())
        statusBar()->showMessage(notes.join(QStringLiteral("; ")), 10000);
    fillTree();
}

void MainWindow::fillTree()
{
    const QSignalBlocker blocker(m_tree);
    m_tree->clear();
    std::map<ObjectType, QTreeWidgetItem*> groups;
    for (const ModelObject& object : m_context.model.objects()) {
        QTreeWidgetItem*& group = groups[object.type];
        if (!group) {
            group = new QTreeWidgetItem(m_tree, {typeName(object.type)});
            group->setFlags(group->flags() | Qt::ItemIsAutoTristate | Qt::ItemIsUserCheckable);
        }
        auto* item = new QTreeWidgetItem(group, {object.name, QString::number(object.vertexCount()), object.set});
        QPixmap colour(12, 12);
        colour.fill(object.color);
        item->setIcon(0, QIcon(colour));
        item->setData(0, Qt::UserRole, object.id);
        item->setToolTip(0, crsName(object.crs));
        item->setCheckState(0, Qt::Checked);
    }
    m_tree->resizeColumnToContents(1);
    m_tree->setColumnWidth(0, 190);
    treeChanged();
    // Objects of several coordinate systems lie far apart: the first one's neighbourhood is shown.
    std::vector<int> together;
    for (const ModelObject& object : m_context.model.objects()) {
        if (object.crs == m_context.model.objects().front().crs)
            together.push_back(object.id);
    }
    m_map->zoomTo(together);
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
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            openModel(url.toLocalFile());
    }
}

} // namespace refhost
