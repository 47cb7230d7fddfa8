// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "model/Model.h"

#include <QTabWidget>

#include <set>
#include <vector>

class QTreeWidget;

namespace refhost
{

class VertexTable;

/// What the selected objects are: extent, system, unit, the figures of their attributes; and the vertices of the first.
class ObjectProperties : public QTabWidget
{
    Q_OBJECT

public:
    /// The model outlives this.
    explicit ObjectProperties(const Model& model, QWidget* parent = nullptr);

    void show(const std::set<int>& ids);

private:
    void addRow(const QString& name, const QString& value);
    void showOne(const ModelObject& object);
    void showExtent(const std::vector<const ModelObject*>& objects);
    void showAttributes(const ModelObject& object);

    const Model& m_model;
    QTreeWidget* m_figures;
    QTreeWidget* m_attributes;
    VertexTable* m_vertices;
};

} // namespace refhost
