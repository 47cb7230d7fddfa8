// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "model/Model.h"

#include <QWidget>

#include <map>
#include <set>
#include <unordered_map>
#include <vector>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace refhost
{

/// The objects of the model by type, with a search above them. A check box shows or hides an object, what is selected is
/// the window's selection.
class ObjectTree : public QWidget
{
    Q_OBJECT

public:
    explicit ObjectTree(const Model& model, QWidget* parent = nullptr);

    /// Adds rows for the objects that the model has got since; what was hidden, selected or expanded stays so.
    /// \returns the ids of those that are new
    std::vector<int> addNewObjects();
    /// Forgets all rows.
    void clear();
    std::set<int> visibleIds() const;
    std::set<int> selectedIds() const;
    /// Selects these rows alone and shows the first of them.
    void select(const std::set<int>& ids);
    /// Checks or unchecks these objects.
    void setVisible(const std::set<int>& ids, bool visible);
    /// Shows these objects and hides all others.
    void showOnly(const std::set<int>& ids);

Q_SIGNALS:
    void visibleChanged();
    void selectionChanged();
    void zoomWanted(int id);
    void menuWanted(const QPoint& global);

private:
    QTreeWidgetItem* groupOf(ObjectType type);
    void search(const QString& text);
    template <typename Choose>
    void checkRows(const Choose& choose);

    const Model& m_model;
    QLineEdit* m_search;
    QTreeWidget* m_tree;
    std::size_t m_shownObjects = 0; ///< as many of the model are in the tree
    std::map<ObjectType, QTreeWidgetItem*> m_groups;
    std::unordered_map<int, QTreeWidgetItem*> m_rows; ///< by the id of the object
};

} // namespace refhost
