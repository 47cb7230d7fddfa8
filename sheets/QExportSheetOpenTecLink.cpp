// SPDX-License-Identifier: MIT
#include "sheets/QExportSheetOpenTecLink.h"

#include "ui_QExportSheetOpenTecLink.h"
#include "wizard/QObjectListModel.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QSortFilterProxyModel>

namespace kpBaseExport
{

QExportSheetOpenTecLink::QExportSheetOpenTecLink()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_ui(std::make_unique<Ui::QExportSheetOpenTecLink>())
{
}

QExportSheetOpenTecLink::~QExportSheetOpenTecLink() = default;

void QExportSheetOpenTecLink::initialize(const QString&)
{
    m_ui->setupUi(this);
    setWindowTitle(QCoreApplication::translate("QExportSheetOpenTecLink", "File Export: OpenTecLink Options"));
    m_pageWidget = this;
    m_sections =
        new QObjectListModel(this, QCoreApplication::translate("QExportSheetOpenTecLink", "Section List: Name   "));
    auto* sorted = new QSortFilterProxyModel(this);
    sorted->setSourceModel(m_sections);
    QTableView* view = m_ui->tableViewSections;
    view->setModel(sorted);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->verticalHeader()->hide();
    QHeaderView* header = view->horizontalHeader();
    header->setSortIndicatorShown(true);
    header->setSortIndicator(0, Qt::AscendingOrder);
    header->setStretchLastSection(true);
    connect(m_sections, &QObjectListModel::modelReset, view, &QTableView::resizeColumnsToContents);
    connect(header, &QHeaderView::sectionClicked, this,
            [view, header](int column) { view->sortByColumn(column, header->sortIndicatorOrder()); });
    connect(m_ui->pushButtonDeselectAll, &QPushButton::clicked, m_sections, &QObjectListModel::deselectAll);
    connect(m_ui->pushButtonSelectAll, &QPushButton::clicked, m_sections, &QObjectListModel::selectAll);
}

bool QExportSheetOpenTecLink::isComplete() const
{
    return true;
}

void QExportSheetOpenTecLink::activate()
{
    updateSectionList();
}

void QExportSheetOpenTecLink::updateSectionList() {}

QObjectListModel* QExportSheetOpenTecLink::sectionList() const
{
    return m_sections;
}

std::vector<std::string> QExportSheetOpenTecLink::selectedSectionNames() const
{
    return m_sections->selectedNames();
}

void QExportSheetOpenTecLink::setTraceLines(const QStringList& names)
{
    m_ui->comboBoxXYSection->clear();
    m_ui->comboBoxXYSection->addItems(names);
}

QString QExportSheetOpenTecLink::traceLine() const
{
    return m_ui->comboBoxXYSection->currentText();
}

void QExportSheetOpenTecLink::setTraceLine(const QString& name)
{
    m_ui->comboBoxXYSection->setCurrentText(name);
}

} // namespace kpBaseExport
