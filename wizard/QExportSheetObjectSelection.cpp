// SPDX-License-Identifier: MIT
#include "wizard/QExportSheetObjectSelection.h"

#include "core/saver/AbstractSaver.h"
#include "ui_QExportSheetObjectSelection.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QSortFilterProxyModel>

namespace kpBaseExport
{

namespace
{

/// The page's own texts, translated among those of its form.
struct FormTexts
{
    Q_DECLARE_TR_FUNCTIONS(QExportSheetObjectSelection)
};

struct TypeLeaf
{
    QString name;
    const char* icon; ///< null for none
};

void addGroup(QTreeWidget& tree, const QString& name, std::initializer_list<TypeLeaf> leaves)
{
    auto* group = new QTreeWidgetItem(&tree, {name});
    for (const TypeLeaf& entry : leaves) {
        auto* leaf = new QTreeWidgetItem(group, {entry.name});
        if (entry.icon)
            leaf->setIcon(0, QIcon(QString::fromLatin1(entry.icon)));
        leaf->setCheckState(0, Qt::Checked);
    }
}

// Measuring more rows than a user can see makes a long list slow.
constexpr int rowsMeasuredForColumnWidth = 200;
constexpr int rowPadding = 8;

template <typename Function>
void forEachLeaf(const QTreeWidget& tree, Function function)
{
    for (int group = 0; group < tree.topLevelItemCount(); ++group) {
        QTreeWidgetItem* top = tree.topLevelItem(group);
        for (int leaf = 0; leaf < top->childCount(); ++leaf)
            function(top->child(leaf));
    }
}

} // namespace

QExportSheetObjectSelection::QExportSheetObjectSelection()
    : QWidget(nullptr)
    , QExportAbstractSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetObjectSelection>())
{
}

QExportSheetObjectSelection::~QExportSheetObjectSelection()
{
    delete m_model;
    m_pageWidget = nullptr;
}

void QExportSheetObjectSelection::initialize(const QString&)
{
    m_pageWidget = this;
    m_ui->setupUi(this);
    setWindowTitle(FormTexts::tr("File Export: Format and Data Selection"));
    buildTypeTree();

    if (m_wizard) {
        for (const auto& saver : m_wizard->savers()) {
            m_ui->fileFormatComboBox->addItem(saver->formatDisplay(), QString::fromStdString(saver->key()));
        }
    }
    connect(m_ui->fileFormatComboBox, QOverload<int>::of(&QComboBox::activated), this,
            &QExportSheetObjectSelection::enableObjectTypes);
    connect(m_ui->selectAllButton, &QPushButton::pressed, this, &QExportSheetObjectSelection::selectAll);
    connect(m_ui->deselectAllButton, &QPushButton::pressed, this, &QExportSheetObjectSelection::deselectAll);

    m_model = new QObjectListModel(this, FormTexts::tr("Object List: Name   "));
    m_proxy = new QSortFilterProxyModel(this);
    m_proxy->setSourceModel(m_model);
    m_proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    QTableView* view = m_ui->listViewObjects;
    view->setModel(m_proxy);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->verticalHeader()->hide();
    view->horizontalHeader()->setSortIndicatorShown(true);
    view->horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    view->horizontalHeader()->setStretchLastSection(true);
    view->horizontalHeader()->setResizeContentsPrecision(rowsMeasuredForColumnWidth);
    view->resizeColumnsToContents();

    connect(view->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [view](int column) { view->sortByColumn(column, view->horizontalHeader()->sortIndicatorOrder()); });
    connect(m_ui->m_objectTree, &QTreeWidget::itemChanged, this, &QExportSheetObjectSelection::slotUpdateListViews);
    connect(m_ui->pushButtonDeselectAllObjects, &QPushButton::clicked, this,
            &QExportSheetObjectSelection::deselectAllObjects);
    connect(m_ui->pushButtonSelectAllObjects, &QPushButton::clicked, this,
            &QExportSheetObjectSelection::selectAllObjects);
    connect(m_ui->pushButtonMatchModelSelection, &QPushButton::clicked, this,
            &QExportSheetObjectSelection::matchModelSelection);
    // The wizard's buttons follow the check boxes.
    connect(m_model, &QObjectListModel::objectChecked, this, [this] {
        if (m_wizard)
            m_wizard->update_navigation();
    });
}

void QExportSheetObjectSelection::buildTypeTree()
{
    QTreeWidget* tree = m_ui->m_objectTree;
    addGroup(*tree, FormTexts::tr("Lines"),
             {{FormTexts::tr("Pins"), ":/2DKelvo/Resources/2DKelvo/iconobject_insertpin.png"},
              {FormTexts::tr("Polygons"), ":/kpBaseQt/Resources/polygon.png"},
              {FormTexts::tr("Polylines"), ":/2DKelvo/Resources/2DKelvo/iconobject_insertline.png"},
              {FormTexts::tr("Posts"), ":/2DKelvo/Resources/2DKelvo/iconobject_insertpost.png"},
              {FormTexts::tr("Wells"), ":/kpBaseQt/Resources/well.png"}});
    addGroup(*tree, FormTexts::tr("Miscellaneous"),
             {{FormTexts::tr("3DKelvo Fracture Sets"), nullptr},
              {FormTexts::tr("Images"), ":/kpBaseQt/Resources/image.png"},
              {FormTexts::tr("Labels"), ":/2DKelvo/Resources/2DKelvo/iconobject_inserttext.png"},
              {FormTexts::tr("Stratigraphy Column"), nullptr}});
    addGroup(*tree, FormTexts::tr("Points"),
             {{FormTexts::tr("Vertex Clouds"), ":/2DKelvo/Resources/2DKelvo/iconobject_insertpoint.png"}});
    addGroup(*tree, FormTexts::tr("Surfaces"),
             {{FormTexts::tr("Grid Surfaces"), ":/kpBaseQt/Resources/gridSurface.png"},
              {FormTexts::tr("Mesh Surfaces"), ":/kpBaseQt/Resources/trimesh.png"}});
    addGroup(*tree, FormTexts::tr("Volumes"),
             {{FormTexts::tr("GeoCellular Volumes"), ":/kpBaseQt/Resources/geocell_small.png"},
              {FormTexts::tr("Tetra Volumes"), nullptr}});
    tree->expandAll();
}

void QExportSheetObjectSelection::startup()
{
    updateObjectTypes();
    setAllSelectionTree(true);
    slotUpdateListViews();
    updateObjectTypes();
    slotUpdateListViews();
}

bool QExportSheetObjectSelection::isComplete() const
{
    return m_model && !m_model->selectedGeoIds().empty();
}

QString QExportSheetObjectSelection::currentFileFormatKey()
{
    return m_model ? m_ui->fileFormatComboBox->currentData(Qt::UserRole).toString() : QString();
}

AbstractSaver* QExportSheetObjectSelection::currentSaver()
{
    if (!m_wizard)
        return nullptr;
    const std::string key = currentFileFormatKey().toStdString();
    for (const auto& saver : m_wizard->savers()) {
        if (saver->key() == key)
            return saver.get();
    }
    return nullptr;
}

std::vector<int> QExportSheetObjectSelection::selectedGeoIds()
{
    return m_model ? m_model->selectedGeoIds() : std::vector<int>();
}

std::vector<std::string> QExportSheetObjectSelection::selectedGeoNames()
{
    return m_model ? m_model->selectedNames() : std::vector<std::string>();
}

void QExportSheetObjectSelection::slotUpdateListViews()
{
    QTableView* view = m_ui->listViewObjects;
    m_model->clear();
    // The rows are gone: neither the proxy nor the view may keep them while the list is filled.
    m_model->resetModel();
    view->reset();
    std::set<std::string> checkedTypes;
    forEachLeaf(*m_ui->m_objectTree, [&checkedTypes](const QTreeWidgetItem* leaf) {
        if (leaf->checkState(0) == Qt::Checked)
            checkedTypes.insert(leaf->data(0, Qt::UserRole).toString().toStdString());
    });
    fillObjectList(checkedTypes);
    if (!m_sortLater) {
        view->horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
        view->sortByColumn(0, Qt::AscendingOrder);
        sizeList();
    }
    if (m_wizard)
        m_wizard->update_navigation();
}

void QExportSheetObjectSelection::sizeList()
{
    QTableView* view = m_ui->listViewObjects;
    // All rows are alike, so one height serves every row.
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + rowPadding);
    view->resizeColumnsToContents();
}

void QExportSheetObjectSelection::setAllSelectionTree(bool checked)
{
    // Every leaf that changes rebuilds the list; sorting it waits for the rebuild that follows the last one.
    m_sortLater = true;
    m_proxy->sort(-1);
    forEachLeaf(*m_ui->m_objectTree,
                [checked](QTreeWidgetItem* leaf) { leaf->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked); });
    m_sortLater = false;
}

void QExportSheetObjectSelection::enableObjectTypes(int)
{
    updateObjectTypes();
    slotUpdateListViews();
}

void QExportSheetObjectSelection::selectAll()
{
    setAllSelectionTree(true);
    slotUpdateListViews();
}

void QExportSheetObjectSelection::deselectAll()
{
    setAllSelectionTree(false);
    slotUpdateListViews();
}

void QExportSheetObjectSelection::selectAllObjects()
{
    m_model->selectAll();
    if (m_wizard)
        m_wizard->update_navigation();
}

void QExportSheetObjectSelection::deselectAllObjects()
{
    m_model->deselectAll();
    if (m_wizard)
        m_wizard->update_navigation();
}

} // namespace kpBaseExport
