// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "window/HostContext.h"

#include <QMainWindow>

#include <functional>
#include <set>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QSplitter;

namespace refhost
{

class FrameBar;
class MapView;
class ObjectProperties;
class ObjectTree;
class RecentFiles;

/// The program's window: the objects as a tree (check = shown, selection = selection), the map, what is selected in
/// figures, "Export...". Files are opened by the menu or dropped onto it.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(HostContext& context);

    /// Adds a file to the model; a failure is shown in a message box.
    void openModel(const QString& path) { openModels({path}); }
    /// Adds files; those that fail are listed in one message box.
    void openModels(const QStringList& paths);
    /// Offers \a path as the sample where no model is open.
    void offerSample(const QString& path);

public Q_SLOTS:
    void exportObjects();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QAction* addTo(QMenu* menu, const QString& text, const char* name, const QKeySequence& keys,
                   std::function<void()> act);
    void buildFileMenu();
    void buildSelectionMenu();
    void buildViewMenu();
    void fillFilesMenu();
    void chooseModel();
    /// Loads the files anew, without \a removed.
    void reload(const QString& removed = QString());
    void addNewObjects();
    void selectionChanged();
    void showFrames();
    void showPosition(double x, double y);
    void showCounts();
    void restoreLook();

    HostContext& m_context;
    ObjectTree* m_tree;
    MapView* m_map;
    FrameBar* m_frames;
    ObjectProperties* m_properties;
    QSplitter* m_splitter;
    RecentFiles* m_recent;
    QMenu* m_files;
    QMenu* m_selectionMenu = nullptr;
    QAction* m_sample = nullptr;
    QLabel* m_counts;
    QLabel* m_position;
    std::vector<QAction*> m_needObjects;   ///< actions that an empty model switches off
    std::vector<QAction*> m_needSelection; ///< actions that an empty selection switches off
    QAction* m_exportSelected = nullptr;
};

} // namespace refhost
