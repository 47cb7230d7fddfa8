// SPDX-License-Identifier: MIT
#include "pages/AttributeChoice.h"

#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportWizard.h"

#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QSet>

namespace kpFormats
{

kpBaseExport::QExportAttributeWidget* AttributeChoice::newPanel(kpBaseExport::QExportWizard* wizard, QWidget* page)
{
    auto* panel = new kpBaseExport::QExportAttributeWidget(wizard, page);
    panel->initialize(QString(), kpBaseExport::QExportAttributeWidget::UNSPECIFIED_LEVEL);
    return panel;
}

void AttributeChoice::attach(kpBaseExport::QExportAttributeWidget* panel, kpBaseExport::QExportWizard* wizard)
{
    m_panel = panel;
    m_wizard = wizard;
    // In line with what stands above and beside it.
    if (m_panel && m_panel->layout())
        m_panel->layout()->setContentsMargins(0, 0, 0, 0);
}

void AttributeChoice::refill()
{
    if (m_panel)
        refill([this] { m_panel->activate(); });
}

QListWidget* AttributeChoice::list() const
{
    return m_panel ? m_panel->findChild<QListWidget*>(QStringLiteral("m_attributeList")) : nullptr;
}

QStringList AttributeChoice::uncheckedNames()
{
    const QListWidget* names = list();
    for (int row = 0; names && row < names->count(); ++row) {
        const QListWidgetItem* item = names->item(row);
        if (item->checkState() == Qt::Checked)
            m_unchecked.removeAll(item->text());
        else if (!m_unchecked.contains(item->text()))
            m_unchecked.append(item->text());
    }
    return m_unchecked;
}

void AttributeChoice::uncheck(const QStringList& names)
{
    const QSet<QString> unchecked(names.begin(), names.end());
    QListWidget* const all = list();
    showWarning();
    for (int row = 0; all && row < all->count(); ++row) {
        if (unchecked.contains(all->item(row)->text()))
            all->item(row)->setCheckState(Qt::Unchecked);
    }
}

void AttributeChoice::showWarning()
{
    auto* label = m_panel ? m_panel->findChild<QLabel*>(QStringLiteral("m_warningLabel")) : nullptr;
    if (!label)
        return;
    // The names of a large model do not fit; they are read in the tool tip.
    constexpr int linesShown = 3;
    label->setFixedHeight(linesShown * label->fontMetrics().lineSpacing());
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setToolTip(label->text());
}

std::vector<std::string> AttributeChoice::selectedNames() const
{
    if (!m_panel)
        return {};
    std::vector<std::string> names = m_panel->selectedAttributeNames();
    if (!m_wizard)
        return names;
    QSet<QString> exact;
    QSet<QString> folded;
    for (const std::string& name : names) {
        exact.insert(QString::fromStdString(name));
        folded.insert(QString::fromStdString(name).toLower());
    }
    QVector<kpBase::UnitRegistry::AttributeInfo> offered;
    m_wizard->availableAttributes(offered, false, true);
    for (const auto& attribute : qAsConst(offered)) {
        const QString name = QString::fromStdString(attribute.name());
        if (!exact.contains(name) && folded.contains(name.toLower()))
            names.push_back(attribute.name());
    }
    return names;
}

} // namespace kpFormats
