// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "readers/LoadOptions.h"
#include "window/HostContext.h"

#include <QMainWindow>

#include <map>
#include <vector>

class QAction;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace refhost
{

class MapView;

/// The program's window: the objects as a tree (check = shown, selection = selection), the map, "Export...". Model files
/// are opened by the menu or dropped onto it.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(HostContext& context);

    /// Adds a file to the model; a failure is shown in a message box.
    void openModel(const QString& path);

public Q_SLOTS:
    void exportObjects();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildActions();
    void chooseModel();
    void addNewObjects();
    QTreeWidgetItem* groupOf(ObjectType type);
    void showCounts();
    void treeChanged();
    void selectionChanged();

    HostContext& m_context;
    QTreeWidget* m_tree;
    MapView* m_map;
    QLabel* m_counts;
    QLabel* m_position;
    std::size_t m_shownObjects = 0; ///< as many of the model are in the tree
    std::map<ObjectType, QTreeWidgetItem*> m_groups;
    std::vector<QAction*> m_needObjects; ///< actions that an empty model switches off
};

} // namespace refhost
