// SPDX-License-Identifier: MIT
#include "PointSheet.h"

#include "wizard/QExportAttributeWidget.h"

#include <QFormLayout>
#include <QSpinBox>
#include <QVBoxLayout>

PointSheet::PointSheet()
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
{
}

void PointSheet::initialize(const QString& key)
{
    // The wizard shows the page widget and its title; m_wizard is set by now.
    m_pageWidget = this;
    setWindowTitle(QStringLiteral("File Export: Points Options"));
    m_decimals = new QSpinBox(this);
    m_decimals->setObjectName(QStringLiteral("m_decimals"));
    m_decimals->setRange(0, 10);
    m_decimals->setValue(2);
    m_attributes = new kpBaseExport::QExportAttributeWidget(m_wizard, this);
    m_attributes->initialize(key, kpBaseExport::QExportAttributeWidget::VERTEX_LEVEL);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Decimals"), m_decimals);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_attributes);
}

void PointSheet::activate()
{
    m_attributes->activate();
}

QString PointSheet::optionSummary() const
{
    return QStringLiteral("%1 decimals").arg(decimals());
}

std::vector<std::string> PointSheet::selectedAttributeNames()
{
    return m_attributes->selectedAttributeNames();
}

int PointSheet::decimals() const
{
    return m_decimals->value();
}
