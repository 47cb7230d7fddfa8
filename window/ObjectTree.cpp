// SPDX-License-Identifier: MIT
#include "window/ObjectTree.h"

#include "geo/CoordinateSystems.h"
#include "pages/SearchWords.h"
#include "wizard/PlainText.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace refhost
{

namespace
{

constexpr int mostExpanded = 20; ///< a group with more objects starts closed
constexpr int columnPadding = 12;
constexpr int widestColumn = 140;

int idOf(const QTreeWidgetItem& row)
{
    return row.data(0, Qt::UserRole).toInt();
}

} // namespace

ObjectTree::ObjectTree(const Model& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_search(new QLineEdit(this))
    , m_tree(new QTreeWidget(this))
{
    m_search->setObjectName(QStringLiteral("searchTree"));
    m_search->setPlaceholderText(tr("Search names and sets"));
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    m_tree->setObjectName(QStringLiteral("objectTree"));
    m_tree->setAccessibleName(tr("Objects"));
    m_tree->setHeaderLabels({tr("Object"), tr("Set"), tr("Vertices")});
    m_tree->headerItem()->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setUniformRowHeights(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    QHeaderView* header = m_tree->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_search);
    layout->addWidget(m_tree);
    connect(m_search, &QLineEdit::textChanged, this, &ObjectTree::search);
    connect(m_tree, &QTreeWidget::itemChanged, this, &ObjectTree::visibleChanged);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &ObjectTree::selectionChanged);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* row) {
        if (idOf(*row) > 0)
            Q_EMIT zoomWanted(idOf(*row));
    });
    connect(m_tree, &QTreeWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { Q_EMIT menuWanted(m_tree->viewport()->mapToGlobal(at)); });
}

QTreeWidgetItem* ObjectTree::groupOf(ObjectType type)
{
    QTreeWidgetItem*& group = m_groups[type];
    if (!group) {
        group = new QTreeWidgetItem(m_tree, {typeName(type)});
        group->setFlags(group->flags() | Qt::ItemIsAutoTristate | Qt::ItemIsUserCheckable);
    }
    return group;
}

std::vector<int> ObjectTree::addNewObjects()
{
    const QSignalBlocker blocker(m_tree);
    const std::vector<ModelObject>& objects = m_model.objects();
    std::vector<int> ids;
    std::set<QTreeWidgetItem*> grown;
    for (std::size_t index = m_shownObjects; index < objects.size(); ++index) {
        const ModelObject& object = objects[index];
        QTreeWidgetItem* group = groupOf(object.type);
        auto* row = new QTreeWidgetItem(group, {object.name, object.set, QString::number(object.vertexCount())});
        QPixmap colour(12, 12);
        colour.fill(object.color);
        row->setIcon(0, QIcon(colour));
        row->setData(0, Qt::UserRole, object.id);
        row->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        row->setToolTip(
            0, kpBaseExport::plainText(QStringLiteral("%1\n%2").arg(object.name, crsName(object.crs)).trimmed()));
        row->setToolTip(1, kpBaseExport::plainText(object.set));
        row->setCheckState(0, Qt::Checked);
        grown.insert(group);
        m_rows[object.id] = row;
        ids.push_back(object.id);
    }
    m_shownObjects = objects.size();
    for (QTreeWidgetItem* group : grown) {
        group->setToolTip(0, group->childCount() == 1 ? tr("1 object") : tr("%1 objects").arg(group->childCount()));
        if (group->childCount() <= mostExpanded)
            group->setExpanded(true);
    }
    for (const int column : {1, 2}) {
        m_tree->resizeColumnToContents(column);
        m_tree->header()->resizeSection(column, std::min(m_tree->columnWidth(column) + columnPadding, widestColumn));
    }
    search(m_search->text());
    return ids;
}

void ObjectTree::clear()
{
    const QSignalBlocker blocker(m_tree);
    m_tree->clear();
    m_groups.clear();
    m_rows.clear();
    m_shownObjects = 0;
}

std::set<int> ObjectTree::visibleIds() const
{
    std::set<int> ids;
    for (const auto& [id, row] : m_rows) {
        if (row->checkState(0) == Qt::Checked)
            ids.insert(id);
    }
    return ids;
}

/// A selected group stands for its objects that the search shows.
std::set<int> ObjectTree::selectedIds() const
{
    std::set<int> ids;
    for (const QTreeWidgetItem* item : m_tree->selectedItems()) {
        if (idOf(*item) > 0)
            ids.insert(idOf(*item));
        for (int row = 0; row < item->childCount(); ++row) {
            if (!item->child(row)->isHidden())
                ids.insert(idOf(*item->child(row)));
        }
    }
    return ids;
}

void ObjectTree::select(const std::set<int>& ids)
{
    // In runs of rows: a row at a time takes the square of their number.
    QItemSelection selection;
    const QTreeWidgetItem* first = nullptr;
    for (const auto& [type, group] : m_groups) {
        for (int row = 0; row < group->childCount(); ++row) {
            const int begin = row;
            while (row < group->childCount() && ids.count(idOf(*group->child(row))) != 0)
                ++row;
            if (row == begin)
                continue;
            const QModelIndex parent = m_tree->model()->index(m_tree->indexOfTopLevelItem(group), 0);
            selection.append({m_tree->model()->index(begin, 0, parent), m_tree->model()->index(row - 1, 2, parent)});
            if (!first)
                first = group->child(begin);
        }
    }
    m_tree->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (first)
        m_tree->scrollToItem(first);
}

template <typename Choose>
void ObjectTree::checkRows(const Choose& choose)
{
    {
        const QSignalBlocker blocker(m_tree);
        for (const auto& [id, row] : m_rows) {
            const std::optional<bool> visible = choose(id);
            if (visible)
                row->setCheckState(0, *visible ? Qt::Checked : Qt::Unchecked);
        }
    }
    m_tree->viewport()->update();
    Q_EMIT visibleChanged();
}

void ObjectTree::setVisible(const std::set<int>& ids, bool visible)
{
    checkRows([&](int id) { return ids.count(id) != 0 ? std::optional(visible) : std::nullopt; });
}

void ObjectTree::showOnly(const std::set<int>& ids)
{
    checkRows([&](int id) { return std::optional(ids.count(id) != 0); });
}

void ObjectTree::search(const QString& text)
{
    const kpFormats::SearchWords words(text);
    for (const auto& [type, group] : m_groups) {
        bool any = false;
        for (int row = 0; row < group->childCount(); ++row) {
            QTreeWidgetItem* const item = group->child(row);
            const bool found = words.isEmpty() || words.areIn({item->text(0), item->text(1), group->text(0)});
            item->setHidden(!found);
            any = any || found;
        }
        group->setHidden(!any);
        if (any && !words.isEmpty())
            group->setExpanded(true);
    }
}

} // namespace refhost
