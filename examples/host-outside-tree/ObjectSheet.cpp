// SPDX-License-Identifier: MIT
#include "ObjectSheet.h"

#include "wizard/QObjectListModel.h"

#include <QTreeWidget>

ObjectSheet::ObjectSheet(const Model& model)
    : m_horizons(model)
{
}

void ObjectSheet::fillObjectList(const std::set<std::string>& checkedTypes)
{
    if (checkedTypes.count(horizonType) != 0) {
        for (const Horizon& horizon : m_horizons.horizons)
            m_model->addName(horizon.name, horizon.id, QStringLiteral("Horizon"), true);
    }
    m_model->resetModel();
}

void ObjectSheet::updateObjectTypes()
{
    // Horizons stand under "Vertex Clouds"; this host has nothing for the other leaves of the tree.
    auto* tree = findChild<QTreeWidget*>(QStringLiteral("m_objectTree"));
    const QSignalBlocker blocker(tree);
    for (QTreeWidgetItem* leaf : tree->findItems(QStringLiteral("*"), Qt::MatchWildcard | Qt::MatchRecursive)) {
        if (!leaf->parent())
            continue;
        const bool isHorizon = leaf->text(0) == QLatin1String("Vertex Clouds");
        leaf->setDisabled(!isHorizon);
        leaf->setData(0, Qt::UserRole, isHorizon ? QString::fromStdString(horizonType) : QString());
    }
}

void ObjectSheet::matchModelSelection()
{
    // This host has no views in which something could be selected.
}
