// SPDX-License-Identifier: MIT
#include "pages/ObjectSelectionSheet.h"

#include "core/saver/AbstractSaver.h"
#include "pages/ObjectColumns.h"
#include "pages/ObjectFilter.h"
#include "pages/SettingsMemory.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

constexpr int miscellaneous = 1; // of the groups of types

template <typename Function>
void forEachLeaf(QTreeWidget& tree, Function function)
{
    for (int group = 0; group < tree.topLevelItemCount(); ++group) {
        for (int leaf = 0; leaf < tree.topLevelItem(group)->childCount(); ++leaf)
            function(*tree.topLevelItem(group)->child(leaf));
    }
}

/// "12 of 503 objects, 4,120 vertices, 2 coordinate systems"
QString summaryOf(const std::vector<const ModelObject*>& checked, int listed)
{
    qint64 vertices = 0;
    int without = 0;
    std::vector<const QString*> systems; // few, and mostly one text that many objects share
    for (const ModelObject* object : checked) {
        vertices += object->vertexCount();
        if (object->crs.isEmpty())
            ++without;
        else if (std::none_of(systems.begin(), systems.end(), [object](const QString* known) {
                     return known->constData() == object->crs.constData() || *known == object->crs;
                 }))
            systems.push_back(&object->crs);
    }
    const QLocale locale;
    const auto tr = [](const char* text, int number = -1) { return ObjectSelectionSheet::tr(text, nullptr, number); };
    QString text = tr("%1 of %2 objects, %3 vertices")
                       .arg(locale.toString(static_cast<qlonglong>(checked.size())), locale.toString(listed),
                            locale.toString(vertices));
    if (!systems.empty())
        text += systems.size() == 1 ? tr(", 1 coordinate system")
                                    : tr(", %1 coordinate systems").arg(locale.toString(qlonglong(systems.size())));
    if (without > 0)
        text += tr(", %1 without one").arg(locale.toString(without));
    return text;
}

} // namespace

ObjectSelectionSheet::ObjectSelectionSheet(const Model& model, std::function<std::set<int>()> selectedIds)
    : m_objects(model)
    , m_selectedIds(std::move(selectedIds))
{
}

void ObjectSelectionSheet::initialize(const QString& key)
{
    QExportSheetObjectSelection::initialize(key);
    auto* tree = findChild<QTreeWidget*>(QStringLiteral("m_objectTree"));
    layout()->setContentsMargins(0, 0, 0, 0);
    // The form's limit is too narrow for the text in some fonts.
    for (const char* name : {"selectAllButton", "deselectAllButton"}) {
        auto* button = findChild<QPushButton*>(QString::fromLatin1(name));
        button->setMaximumWidth(std::max(button->maximumWidth(), button->sizeHint().width()));
    }
    tree->setAccessibleName(tr("Types of objects"));
    addSearch();
    findChild<QPushButton*>(QStringLiteral("pushButtonMatchModelSelection"))
        ->setToolTip(tr("Checks the objects that are selected in the program's window, and no others"));
    const QSignalBlocker blocker(tree);
    // The library's leaves stand in the order of our types. Their texts may be translated.
    std::size_t place = 0;
    forEachLeaf(*tree, [&place](QTreeWidgetItem& leaf) {
        leaf.setData(0, Qt::UserRole, QString::fromStdString(typeKey(allObjectTypes().at(place++))));
    });
    // A type of this program beside those that every host has.
    auto* sections = new QTreeWidgetItem(tree->topLevelItem(miscellaneous), {typeName(ObjectType::CrossSections)});
    sections->setData(0, Qt::UserRole, QString::fromStdString(typeKey(ObjectType::CrossSections)));
    sections->setCheckState(0, Qt::Checked);
}

void ObjectSelectionSheet::addSearch()
{
    auto* view = findChild<QTableView*>(QStringLiteral("listViewObjects"));
    auto* columns = new ObjectColumns(m_objects, this);
    columns->setSourceModel(m_model);
    m_filter = new ObjectFilter(this);
    m_filter->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_filter->setSourceModel(columns);
    view->setModel(m_filter);
    delete std::exchange(m_proxy, m_filter);
    view->setAccessibleName(tr("Objects"));
    view->setTabKeyNavigation(false);
    view->installEventFilter(this);

    auto* search = new QLineEdit(this);
    search->setObjectName(QStringLiteral("objectSearch"));
    search->setPlaceholderText(tr("Search by name, id, type or set"));
    search->setAccessibleName(tr("Search for objects"));
    search->setClearButtonEnabled(true);
    auto* checkedOnly = new QCheckBox(tr("Checked only"), this);
    checkedOnly->setObjectName(QStringLiteral("checkedOnly"));
    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("objectSummary"));
    m_summary->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(search, 1);
    row->addWidget(checkedOnly);
    auto* box = findChild<QBoxLayout*>(QStringLiteral("verticalLayout_2"));
    box->insertLayout(0, row);
    box->insertWidget(2, m_summary);
    // In the order in which one reads the page.
    setTabOrder(findChild<QComboBox*>(QStringLiteral("fileFormatComboBox")), search);
    setTabOrder(search, checkedOnly);
    setTabOrder(checkedOnly, view);
    connect(search, &QLineEdit::textChanged, m_filter, &ObjectFilter::setSearch);
    connect(checkedOnly, &QCheckBox::toggled, m_filter, &ObjectFilter::setCheckedOnly);

    auto* all = findChild<QPushButton*>(QStringLiteral("pushButtonSelectAllObjects"));
    auto* none = findChild<QPushButton*>(QStringLiteral("pushButtonDeselectAllObjects"));
    for (QPushButton* button : {all, none})
        disconnect(button, &QPushButton::clicked, this, nullptr);
    connect(all, &QPushButton::clicked, this, [this] { checkShown(true); });
    connect(none, &QPushButton::clicked, this, [this] { checkShown(false); });
    connect(m_model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) { remember(first.row(), last.row()); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { remember(0, m_model->rowCount() - 1); });
}

void ObjectSelectionSheet::startup()
{
    const std::set<int> selected = m_selectedIds();
    m_unchecked.clear();
    if (!selected.empty()) {
        for (const ModelObject& object : m_objects.objects()) {
            if (selected.count(object.id) == 0)
                m_unchecked.insert(object.id);
        }
    }
    chooseFormatFor(selected);
    QExportSheetObjectSelection::startup();
}

void ObjectSelectionSheet::chooseFormat(const std::string& key)
{
    auto* formats = findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"));
    const int index = formats->findData(QString::fromStdString(key));
    if (index >= 0)
        formats->setCurrentIndex(index);
}

void ObjectSelectionSheet::chooseFormatFor(const std::set<int>& ids)
{
    std::set<std::string> types;
    for (const ModelObject& object : m_objects.objects()) {
        if (ids.empty() || ids.count(object.id) != 0)
            types.insert(typeKey(object.type));
    }
    const auto takes = [&types](const kpBaseExport::AbstractSaver& saver) {
        return std::any_of(types.begin(), types.end(),
                           [&saver](const std::string& type) { return saver.supported_types().count(type) != 0; });
    };
    chooseFormat(lastFormat().toStdString());
    if (!m_wizard || !currentSaver() || takes(*currentSaver()))
        return;
    const auto& savers = m_wizard->savers();
    const auto first =
        std::find_if(savers.begin(), savers.end(), [&takes](const auto& saver) { return takes(*saver); });
    if (first != savers.end())
        chooseFormat((*first)->key());
}

void ObjectSelectionSheet::fillObjectList(const std::set<std::string>& checkedTypes)
{
    const kpBaseExport::AbstractSaver* saver = currentSaver();
    for (const ModelObject& object : m_objects.objects()) {
        const std::string type = typeKey(object.type);
        if (checkedTypes.count(type) != 0 && saver && saver->supported_types().count(type) != 0)
            m_model->addName(object.name, object.id, typeName(object.type), !m_unchecked.contains(object.id));
    }
    m_model->resetModel();
}

void ObjectSelectionSheet::updateObjectTypes()
{
    const kpBaseExport::AbstractSaver* saver = currentSaver();
    auto* tree = findChild<QTreeWidget*>(QStringLiteral("m_objectTree"));
    const QSignalBlocker blocker(tree);
    forEachLeaf(*tree, [saver](QTreeWidgetItem& leaf) {
        const std::string type = leaf.data(0, Qt::UserRole).toString().toStdString();
        const bool supported = saver && saver->supported_types().count(type) != 0;
        leaf.setDisabled(!supported);
        leaf.setToolTip(0, supported ? QString()
                                     : ObjectSelectionSheet::tr("The format cannot take objects of this type."));
    });
}

void ObjectSelectionSheet::matchModelSelection()
{
    const std::set<int> selected = m_selectedIds();
    check({selected.begin(), selected.end()});
}

void ObjectSelectionSheet::takeOver(const std::string& key, const std::vector<int>& ids)
{
    chooseFormat(key);
    QExportSheetObjectSelection::startup();
    check(ids);
}

void ObjectSelectionSheet::check(const std::vector<int>& ids)
{
    m_model->deselectAll();
    for (const int id : ids)
        m_model->setIdInListChecked(id);
    m_model->resetModel();
    m_wizard->update_navigation();
}

void ObjectSelectionSheet::checkShown(bool on)
{
    QVector<int> rows;
    for (int row = 0; row < m_filter->rowCount(); ++row)
        rows.append(m_filter->mapToSource(m_filter->index(row, 0)).row());
    checkRows(rows, on);
}

void ObjectSelectionSheet::checkRows(const QVector<int>& rows, bool on)
{
    if (rows.isEmpty())
        return;
    {
        // The list tells the wizard of each row; one look at all of them is enough.
        const QSignalBlocker blocker(m_model);
        for (const int row : rows) {
            const QModelIndex index = m_model->index(row, 0);
            if ((index.data(Qt::CheckStateRole).toInt() == Qt::Checked) != on)
                m_model->setData(index, {}, Qt::CheckStateRole);
        }
    }
    Q_EMIT m_model->dataChanged(m_model->index(0, 0), m_model->index(m_model->rowCount() - 1, 0));
    m_wizard->update_navigation();
}

bool ObjectSelectionSheet::eventFilter(QObject* watched, QEvent* event)
{
    auto* view = qobject_cast<QTableView*>(watched);
    if (!view || event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space)
        return QExportSheetObjectSelection::eventFilter(watched, event);
    // All selected rows become what the current one was not.
    QVector<int> rows;
    for (const QModelIndex& index : view->selectionModel()->selectedRows())
        rows.append(m_filter->mapToSource(index).row());
    const QModelIndex current = view->currentIndex();
    if (rows.isEmpty() || !current.isValid())
        return false;
    checkRows(rows, current.sibling(current.row(), 0).data(Qt::CheckStateRole).toInt() != Qt::Checked);
    return true;
}

void ObjectSelectionSheet::remember(int firstRow, int lastRow)
{
    for (int row = firstRow; row <= lastRow; ++row) {
        const int id = m_model->getGeoId(row);
        if (m_model->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked)
            m_unchecked.remove(id);
        else
            m_unchecked.insert(id);
    }
    showSummary();
}

void ObjectSelectionSheet::showSummary()
{
    std::vector<const ModelObject*> checked;
    for (const int id : selectedGeoIds()) {
        if (const ModelObject* object = m_objects.find(id))
            checked.push_back(object);
    }
    m_summary->setText(summaryOf(checked, m_model->rowCount()));
}

} // namespace kpFormats
