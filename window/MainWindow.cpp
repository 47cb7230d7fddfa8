// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "window/ExportWizard.h"
#include "window/FrameBar.h"
#include "window/MapView.h"
#include "window/ObjectProperties.h"
#include "window/ObjectTree.h"
#include "window/RecentFiles.h"
#include "wizard/PlainText.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace refhost
{

namespace
{

constexpr double zoomStep = 1.5;
constexpr int messageTime = 10000; // milliseconds
const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
const QString splitterKey = QStringLiteral("window/splitter");

} // namespace

MainWindow::MainWindow(HostContext& context)
    : m_context(context)
    , m_tree(new ObjectTree(context.model, this))
    , m_map(new MapView(context.model, this))
    , m_frames(new FrameBar(this))
    , m_properties(new ObjectProperties(context.model, this))
    , m_splitter(new QSplitter(this))
    , m_recent(new RecentFiles(this))
    , m_files(new QMenu(tr("&Files of the Model"), this))
    , m_counts(new QLabel(this))
    , m_position(new QLabel(this))
{
    setWindowTitle(QStringLiteral("kpexport"));
    setAcceptDrops(true);
    auto* mapSide = new QWidget(this);
    auto* layout = new QVBoxLayout(mapSide);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_frames);
    layout->addWidget(m_map, 1);
    m_splitter->addWidget(m_tree);
    m_splitter->addWidget(mapSide);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({400, 700});
    m_splitter->setChildrenCollapsible(false);
    setCentralWidget(m_splitter);
    auto* dock = new QDockWidget(tr("Properties"), this);
    dock->setObjectName(QStringLiteral("propertiesDock"));
    dock->setWidget(m_properties);
    dock->hide();
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    m_counts->setObjectName(QStringLiteral("objectCounts"));
    m_position->setObjectName(QStringLiteral("mapPosition"));
    statusBar()->addWidget(m_counts);
    statusBar()->addPermanentWidget(m_position);
    addToolBar(tr("Main"))->setObjectName(QStringLiteral("mainBar"));
    buildFileMenu();
    buildSelectionMenu();
    buildViewMenu();
    showCounts();
    connect(m_tree, &ObjectTree::visibleChanged, this, [this] { m_map->setVisibleIds(m_tree->visibleIds()); });
    connect(m_tree, &ObjectTree::selectionChanged, this, &MainWindow::selectionChanged);
    connect(m_tree, &ObjectTree::zoomWanted, this, [this](int id) { m_map->zoomTo({id}); });
    connect(m_tree, &ObjectTree::menuWanted, this, [this](const QPoint& at) { m_selectionMenu->popup(at); });
    m_map->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_map, &MapView::customContextMenuRequested, this,
            [this](const QPoint& at) { m_selectionMenu->popup(m_map->mapToGlobal(at)); });
    connect(m_map, &MapView::selectionChosen, m_tree, &ObjectTree::select);
    connect(m_map, &MapView::cursorMoved, this, &MainWindow::showPosition);
    connect(m_map, &MapView::frameShown, this, &MainWindow::showFrames);
    connect(m_frames, &FrameBar::frameChosen, m_map, &MapView::showFrame);
    connect(m_recent, &RecentFiles::chosen, this, &MainWindow::openModel);
    restoreLook();
}

void MainWindow::restoreLook()
{
    QSize size(1100, 680);
    if (const QScreen* onScreen = screen())
        size = size.boundedTo(onScreen->availableSize());
    resize(size);
    const QSettings stored;
    restoreGeometry(stored.value(geometryKey).toByteArray());
    restoreState(stored.value(stateKey).toByteArray());
    m_splitter->restoreState(stored.value(splitterKey).toByteArray());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QSettings stored;
    stored.setValue(geometryKey, saveGeometry());
    stored.setValue(stateKey, saveState());
    stored.setValue(splitterKey, m_splitter->saveState());
    QMainWindow::closeEvent(event);
}

QAction* MainWindow::addTo(QMenu* menu, const QString& text, const char* name, const QKeySequence& keys,
                           std::function<void()> act)
{
    QAction* const action = menu->addAction(text);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(keys);
    if (!keys.isEmpty())
        action->setToolTip(QStringLiteral("%1 (%2)").arg(action->toolTip(), keys.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, std::move(act));
    return action;
}

void MainWindow::buildFileMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    auto* const bar = findChild<QToolBar*>(QStringLiteral("mainBar"));
    bar->addAction(addTo(menu, tr("&Open..."), "openAction", QKeySequence::Open, [this] { chooseModel(); }));
    menu->addMenu(m_recent);
    m_sample =
        addTo(menu, tr("Open the &Sample"), "sampleAction", {}, [this] { openModel(m_sample->data().toString()); });
    m_sample->setVisible(false);
    m_files->setObjectName(QStringLiteral("filesMenu"));
    connect(m_files, &QMenu::aboutToShow, this, &MainWindow::fillFilesMenu);
    menu->addMenu(m_files);
    menu->addSeparator();
    QAction* const exporting =
        addTo(menu, tr("&Export..."), "exportAction", QKeySequence(Qt::CTRL | Qt::Key_E), [this] { exportObjects(); });
    bar->addAction(exporting);
    menu->addSeparator();
    addTo(menu, tr("&Quit"), "quitAction", QKeySequence::Quit, [this] { close(); });
    m_needObjects = {m_files->menuAction(), exporting};
}

void MainWindow::buildSelectionMenu()
{
    m_selectionMenu = menuBar()->addMenu(tr("&Selection"));
    m_selectionMenu->setObjectName(QStringLiteral("selectionMenu"));
    m_exportSelected =
        addTo(m_selectionMenu, tr("&Export Selected..."), "exportSelectedAction", {}, [this] { exportObjects(); });
    m_needSelection = {
        m_exportSelected,
        addTo(m_selectionMenu, tr("&Zoom to Selection"), "zoomSelectionAction", QKeySequence(Qt::CTRL | Qt::Key_9),
              [this] {
                  m_map->zoomTo({m_context.selectedIds.begin(), m_context.selectedIds.end()});
              }),
        addTo(m_selectionMenu, tr("&Hide Selected"), "hideSelectedAction", QKeySequence(Qt::CTRL | Qt::Key_H),
              [this] { m_tree->setVisible(m_context.selectedIds, false); }),
        addTo(m_selectionMenu, tr("Show Selected &Only"), "showOnlyAction", {},
              [this] { m_tree->showOnly(m_context.selectedIds); }),
        addTo(m_selectionMenu, tr("&Select Nothing"), "selectNothingAction",
              QKeySequence(QStringLiteral("Ctrl+Shift+A")), [this] { m_tree->select({}); })};
    const auto everything = [this] {
        std::set<int> ids;
        for (const ModelObject& object : m_context.model.objects())
            ids.insert(object.id);
        return ids;
    };
    m_needObjects.push_back(addTo(m_selectionMenu, tr("Show &All"), "showAllAction", {},
                                  [this, everything] { m_tree->setVisible(everything(), true); }));
    m_selectionMenu->addSeparator();
    QAction* const properties = findChild<QDockWidget*>(QStringLiteral("propertiesDock"))->toggleViewAction();
    properties->setObjectName(QStringLiteral("propertiesAction"));
    properties->setShortcut(QKeySequence(Qt::Key_F4));
    m_selectionMenu->addAction(properties);
}

void MainWindow::buildViewMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    QAction* const all =
        addTo(menu, tr("Zoom to &All"), "zoomAction", QKeySequence(Qt::CTRL | Qt::Key_0), [this] { m_map->zoomTo(); });
    findChild<QToolBar*>(QStringLiteral("mainBar"))->addAction(all);
    m_needObjects.push_back(all);
    m_needObjects.push_back(
        addTo(menu, tr("Zoom &In"), "zoomInAction", QKeySequence::ZoomIn, [this] { m_map->zoomBy(zoomStep); }));
    m_needObjects.push_back(
        addTo(menu, tr("Zoom &Out"), "zoomOutAction", QKeySequence::ZoomOut, [this] { m_map->zoomBy(1 / zoomStep); }));
}

void MainWindow::offerSample(const QString& path)
{
    m_sample->setData(path);
    m_sample->setVisible(true);
    m_map->offerSample([this] { m_sample->trigger(); });
}

void MainWindow::fillFilesMenu()
{
    m_files->clear();
    addTo(m_files, tr("&Reload All"), "reloadAction", QKeySequence::Refresh, [this] { reload(); });
    m_files->addSeparator();
    for (const QString& path : qAsConst(m_context.modelPaths)) {
        QString name = QFileInfo(path).fileName();
        addTo(m_files, tr("Remove %1").arg(name.replace(QLatin1Char('&'), QLatin1String("&&"))), "removeFileAction", {},
              [this, path] { reload(path); });
    }
}

void MainWindow::chooseModel()
{
    openModels(QFileDialog::getOpenFileNames(
        this, tr("Open"), QString(),
        tr("All Files (*);;Models (*.kpmodel);;Vectors (*.gpkg *.shp *.geojson *.json *.csv);;Grids (*.tif *.asc)")));
}

void MainWindow::openModels(const QStringList& paths)
{
    LoadNotes notes;
    QStringList failures;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    for (const QString& path : paths) {
        try {
            notes += loadInto(m_context.model, path);
            m_context.modelPaths.append(QFileInfo(path).absoluteFilePath());
            m_recent->add(m_context.modelPaths.back());
        } catch (const LoadError& error) {
            failures.append(QString::fromUtf8(error.what()));
        }
    }
    addNewObjects();
    QApplication::restoreOverrideCursor();
    if (!failures.isEmpty()) {
        QMessageBox box(QMessageBox::Warning, tr("Open"), kpBaseExport::plainText(failures.front()), QMessageBox::Ok,
                        this);
        if (failures.size() > 1) {
            box.setText(tr("%1 of %2 files could not be opened.").arg(failures.size()).arg(paths.size()));
            box.setDetailedText(failures.join(QLatin1Char('\n')));
        }
        box.exec();
    }
    if (!notes.isEmpty())
        statusBar()->showMessage(notes.join(QStringLiteral("; ")), messageTime);
}

void MainWindow::reload(const QString& removed)
{
    // Numbers of objects count from the first file on, as they do on the command line, so all is read again.
    QStringList paths = m_context.modelPaths;
    paths.removeOne(removed);
    m_tree->clear();
    m_context.model = Model();
    m_context.modelPaths.clear();
    m_map->updateScene();
    selectionChanged();
    openModels(paths);
}

void MainWindow::addNewObjects()
{
    const std::vector<int> ids = m_tree->addNewObjects();
    m_map->updateScene();
    m_map->setVisibleIds(m_tree->visibleIds());
    showFrames();
    showCounts();
    if (!ids.empty())
        m_map->zoomTo(ids);
}

void MainWindow::selectionChanged()
{
    m_context.selectedIds = m_tree->selectedIds();
    m_map->setSelectedIds(m_context.selectedIds);
    m_properties->show(m_context.selectedIds);
    showCounts();
}

void MainWindow::showFrames()
{
    m_frames->show(m_map->frames(), m_map->shownFrame());
    m_position->clear();
}

void MainWindow::showPosition(double x, double y)
{
    if (m_map->frames().empty())
        return;
    const MapFrame& frame = m_map->frames()[static_cast<std::size_t>(m_map->shownFrame())];
    const bool degrees = unitsOf(frame.crs).degrees;
    const auto shown = [degrees](double number) { return QLocale().toString(number, 'f', degrees ? 5 : 2); };
    m_position->setText(QStringLiteral("X %1   Y %2   %3").arg(shown(x), shown(y), nameOf(frame)));
}

void MainWindow::showCounts()
{
    const std::size_t objects = m_context.model.objects().size();
    const std::size_t selected = m_context.selectedIds.size();
    const QStringList& paths = m_context.modelPaths;
    QString text = objects == 1 ? tr("1 object") : tr("%1 objects").arg(objects);
    if (selected != 0)
        text += tr(", %1 selected").arg(selected);
    m_counts->setText(text);
    for (QAction* action : m_needObjects)
        action->setEnabled(objects != 0);
    for (QAction* action : m_needSelection)
        action->setEnabled(selected != 0);
    m_exportSelected->setText(selected == 0 ? tr("&Export Selected...") : tr("&Export %1 Selected...").arg(selected));
    QString title = QStringLiteral("kpexport");
    if (!paths.isEmpty()) {
        const QString name = QFileInfo(paths.front()).fileName();
        title = (paths.size() > 1 ? tr("%1 and %2 more").arg(name).arg(paths.size() - 1) : name)
                + QStringLiteral(" - kpexport");
    }
    setWindowTitle(title);
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
    QTimer::singleShot(0, this, [this, paths] { openModels(paths); });
}

} // namespace refhost
