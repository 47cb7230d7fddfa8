// SPDX-License-Identifier: MIT
#include "window/ObjectProperties.h"

#include "geo/CoordinateSystems.h"
#include "window/AttributeFigures.h"
#include "window/VertexTable.h"
#include "wizard/PlainText.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QTableView>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <map>

namespace refhost
{

namespace
{

struct Span
{
    double least = INFINITY;
    double most = -INFINITY;

    void add(const std::vector<double>& numbers)
    {
        for (const double number : numbers) {
            if (std::isfinite(number)) {
                least = std::min(least, number);
                most = std::max(most, number);
            }
        }
    }
    QString shown(int decimals) const
    {
        return least > most
                   ? QStringLiteral("-")
                   : ObjectProperties::tr("%1 to %2")
                         .arg(QLocale().toString(least, 'f', decimals), QLocale().toString(most, 'f', decimals));
    }
};

QTreeWidget* newList(QWidget* parent, const char* name, const QStringList& header)
{
    auto* list = new QTreeWidget(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setHeaderLabels(header);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAlternatingRowColors(true);
    return list;
}

} // namespace

ObjectProperties::ObjectProperties(const Model& model, QWidget* parent)
    : QTabWidget(parent)
    , m_model(model)
    , m_figures(newList(this, "propertyList", {tr("Property"), tr("Value")}))
    , m_attributes(newList(this, "attributeList",
                           {tr("Attribute"), tr("Type"), tr("Unit"), tr("Values"), tr("Missing"), tr("Summary")}))
    , m_vertices(new VertexTable(model, this))
{
    setObjectName(QStringLiteral("objectProperties"));
    auto* table = new QTableView(this);
    table->setObjectName(QStringLiteral("vertexTable"));
    table->setModel(m_vertices);
    addTab(m_figures, tr("Properties"));
    addTab(m_attributes, tr("Attributes"));
    addTab(table, tr("Vertices"));
    for (int tab = 0; tab < count(); ++tab)
        widget(tab)->setAccessibleName(tabText(tab));
    show({});
}

void ObjectProperties::addRow(const QString& name, const QString& value)
{
    auto* row = new QTreeWidgetItem(m_figures, {name, value});
    row->setToolTip(1, kpBaseExport::plainText(value));
}

void ObjectProperties::show(const std::set<int>& ids)
{
    const std::vector<const ModelObject*> objects = m_model.find({ids.begin(), ids.end()});
    m_figures->clear();
    m_attributes->clear();
    m_vertices->setObject(objects.empty() ? 0 : objects.front()->id);
    if (objects.empty()) {
        addRow(tr("Nothing selected"), tr("Select objects on the map or in the list"));
    } else if (objects.size() == 1) {
        showOne(*objects.front());
    } else {
        std::map<QString, int> types;
        qint64 vertices = 0;
        for (const ModelObject* object : objects) {
            ++types[typeName(object->type)];
            vertices += object->vertexCount();
        }
        addRow(tr("Objects"), QLocale().toString(static_cast<qulonglong>(objects.size())));
        for (const auto& [type, number] : types)
            addRow(type, QLocale().toString(number));
        addRow(tr("Vertices"), QLocale().toString(vertices));
        showExtent(objects);
    }
    m_figures->resizeColumnToContents(0);
    for (int column = 0; column + 1 < m_attributes->columnCount(); ++column)
        m_attributes->resizeColumnToContents(column);
}

void ObjectProperties::showOne(const ModelObject& object)
{
    addRow(tr("Name"), object.name);
    addRow(tr("Type"), typeName(object.type));
    addRow(tr("Set"), object.set);
    addRow(tr("File"), QFileInfo(object.source).fileName());
    addRow(tr("Vertices"), QLocale().toString(object.vertexCount()));
    if (object.grid)
        addRow(tr("Grid"), tr("%1 columns, %2 rows, steps of %3 and %4, turned by %5 degrees")
                               .arg(object.grid->columns)
                               .arg(object.grid->rows)
                               .arg(shownNumber(object.grid->stepX), shownNumber(object.grid->stepY),
                                    shownNumber(object.grid->rotation)));
    else if (!object.parts.empty())
        addRow(tr("Parts"), QLocale().toString(static_cast<qulonglong>(object.parts.size())));
    if (!object.triangles.empty())
        addRow(tr("Triangles"), QLocale().toString(static_cast<qulonglong>(object.triangles.size())));
    if (object.cells)
        addRow(tr("Cells"), tr("%1 columns, %2 rows, %3 layers")
                                .arg(object.cells->columns)
                                .arg(object.cells->rows)
                                .arg(object.cells->layers));
    showExtent({&object});
    showAttributes(object);
}

/// Objects of several systems have no extent together.
void ObjectProperties::showExtent(const std::vector<const ModelObject*>& objects)
{
    constexpr int decimals = 2;
    constexpr int decimalsOfDegrees = 6;
    std::map<QString, qint64> systems;
    Span x;
    Span y;
    Span z;
    qint64 flat = 0;
    for (const ModelObject* object : objects) {
        ++systems[object->crs];
        x.add(*object->x);
        y.add(*object->y);
        if (object->hasZ)
            z.add(*object->z);
        flat += object->hasZ
                    ? std::count_if(object->z->begin(), object->z->end(), [](double h) { return std::isnan(h); })
                    : object->vertexCount();
    }
    for (const auto& [crs, number] : systems) {
        const QString name = crs.isEmpty() ? tr("none") : crsName(crs);
        addRow(tr("Coordinate system"),
               systems.size() == 1 ? name : tr("%1: %2 of the objects").arg(name, QLocale().toString(number)));
    }
    if (systems.size() == 1) {
        const int places = unitsOf(objects.front()->crs).degrees ? decimalsOfDegrees : decimals;
        addRow(QStringLiteral("X"), x.shown(places));
        addRow(QStringLiteral("Y"), y.shown(places));
        addRow(QStringLiteral("Z"), z.shown(decimals));
    }
    if (flat > 0)
        addRow(tr("Without a height"), flat == 1 ? tr("1 vertex") : tr("%1 vertices").arg(QLocale().toString(flat)));
    const QString unit = objects.front()->lengthUnit;
    if (std::all_of(objects.begin(), objects.end(), [&unit](const ModelObject* o) { return o->lengthUnit == unit; }))
        addRow(tr("Unit of lengths"), unit);
}

void ObjectProperties::showAttributes(const ModelObject& object)
{
    const auto add = [this](const AttributeFigures& figures) {
        auto* row = new QTreeWidgetItem(m_attributes,
                                        {figures.name, figures.kind, figures.unit, QLocale().toString(figures.values),
                                         QLocale().toString(figures.missing), figures.summary});
        for (const int column : {0, 5})
            row->setToolTip(column, kpBaseExport::plainText(row->text(column)));
        for (const int column : {3, 4})
            row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    };
    for (const AttributeColumn& column : object.vertexAttributes)
        add(figuresOf(column));
    if (object.cells) {
        for (const AttributeColumn& column : object.cells->cellAttributes)
            add(figuresOf(column));
    }
    for (const ObjectAttribute& attribute : object.objectAttributes)
        add(figuresOf(attribute));
}

} // namespace refhost
