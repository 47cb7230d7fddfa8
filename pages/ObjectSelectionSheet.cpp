// SPDX-License-Identifier: MIT
#include "pages/ObjectSelectionSheet.h"

#include "core/saver/AbstractSaver.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QLayout>
#include <QPushButton>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

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
    // A type of this program beside those that every host has.
    for (QTreeWidgetItem* group : tree->findItems(QStringLiteral("Miscellaneous"), Qt::MatchExactly)) {
        auto* leaf = new QTreeWidgetItem(group, {typeName(ObjectType::CrossSections)});
        leaf->setCheckState(0, Qt::Checked);
    }
    forEachLeaf(*tree, [](QTreeWidgetItem& leaf) {
        for (const ObjectType type : allObjectTypes()) {
            if (leaf.text(0) == typeName(type))
                leaf.setData(0, Qt::UserRole, QString::fromStdString(typeKey(type)));
        }
    });
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
    m_model->deselectAll();
    for (const int id : m_selectedIds())
        m_model->setIdInListChecked(id);
    m_model->resetModel();
    m_wizard->update_navigation();
}

} // namespace kpFormats
