// SPDX-License-Identifier: MIT
#include "pages/SettingsSheet.h"

#include "pages/CrsField.h"
#include "pages/SettingsForm.h"
#include "pages/SettingsMemory.h"
#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportWizard.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kpFormats
{

SettingsSheet::SettingsSheet(FormatSetup& setup, const Model& model)
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_setup(setup)
    , m_model(model)
{
}

void SettingsSheet::initialize(const QString&)
{
    m_pageWidget = this;
    setWindowTitle(QStringLiteral("File Export: %1 Options").arg(m_setup.format->info().fileFormatName));
    restoreSettings(m_setup.settings, m_setup.format->info().key);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    auto* left = new QVBoxLayout;
    left->addWidget(new SettingsForm(m_setup.settings, {}, this, [this] { m_wizard->update_navigation(); }));
    left->addStretch();
    columns->addLayout(left, 1);
    if (m_setup.format->info().supportsAttributes) {
        m_attributes.attach(AttributeChoice::newPanel(m_wizard, this), m_wizard);
        columns->addWidget(m_attributes.panel(), 1);
    }
}

void SettingsSheet::activate()
{
    // Coming back with the same objects keeps what the user has checked.
    const std::vector<int> ids = m_wizard ? m_wizard->selectedGeoIds() : std::vector<int>();
    if (ids != m_shownFor) {
        m_attributes.refill();
        showObjects(*this, m_model.find(ids));
    }
    m_shownFor = ids;
}

bool SettingsSheet::isComplete() const
{
    return areSystemsKnown(m_setup.settings);
}

void SettingsSheet::deactivate()
{
    storeSettings(m_setup.settings, m_setup.format->info().key);
}

QString SettingsSheet::optionSummary() const
{
    return summaryOf(m_setup.settings);
}

std::vector<std::string> SettingsSheet::selectedAttributeNames()
{
    return m_attributes.selectedNames();
}

} // namespace kpFormats
