// SPDX-License-Identifier: MIT
#include "pages/ObjectSelectionSheet.h"

#include "core/saver/AbstractSaver.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QComboBox>
#include <QLayout>
#include <QPushButton>
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

void ObjectSelectionSheet::fillObjectList(const std::set<std::string>& checkedTypes)
{
    const kpBaseExport::AbstractSaver* saver = currentSaver();
    for (const ModelObject& object : m_objects.objects()) {
        const std::string type = typeKey(object.type);
        if (checkedTypes.count(type) != 0 && saver && saver->supported_types().count(type) != 0)
            m_model->addName(object.name, object.id, typeName(object.type), true);
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
    auto* formats = findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"));
    formats->setCurrentIndex(formats->findData(QString::fromStdString(key)));
    startup();
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

} // namespace kpFormats
