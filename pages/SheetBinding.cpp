// SPDX-License-Identifier: MIT
#include "pages/SheetBinding.h"

#include "host/ui/QImportUnitSelector.h"
#include "pages/CrsField.h"
#include "pages/SettingsForm.h"
#include "pages/SettingsMemory.h"
#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportWizard.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// The value of a setting that says whether z is elevation, as true or false or in words.
QString directionText(const Setting& setting, bool elevation)
{
    if (setting.kind == Setting::Boolean)
        return boolText(elevation);
    return elevation ? QStringLiteral("elevation") : QStringLiteral("depth");
}

void showUnit(QImportUnitSelector& selector, const QString& unit)
{
    using Unit = kpUnits::LengthUnit;
    kpUnits units = selector.getUnits();
    for (const Unit candidate : {Unit::Metre, Unit::Foot, Unit::UsSurveyFoot, Unit::Kilometre}) {
        units.setLengthUnit(candidate);
        if (unit == QLatin1String(units.abbreviation())) {
            selector.setUnits(units);
            return;
        }
    }
}

/// The page's control takes no part: the format has no such setting.
void switchOff(QWidget& control, ControlBinding::Kind kind)
{
    control.setToolTip(QWidget::tr("This format has no such option."));
    if (kind == ControlBinding::Direction)
        static_cast<QImportUnitSelector&>(control).enableElevationDepth(false);
    else
        control.setEnabled(false);
}

} // namespace

SheetBinding::SheetBinding(FormatSetup& setup, const Model& model, std::vector<ControlBinding> controls)
    : m_setup(setup)
    , m_model(model)
    , m_controls(std::move(controls))
{
}

void SheetBinding::attach(QWidget& page, kpBaseExport::QExportWizard* wizard)
{
    m_page = &page;
    m_wizard = wizard;
    restoreSettings(m_setup.settings, m_setup.format->info().key);
    if (page.windowTitle().isEmpty())
        page.setWindowTitle(QStringLiteral("File Export: %1 Options").arg(m_setup.format->info().fileFormatName));
    auto* panel = page.findChild<kpBaseExport::QExportAttributeWidget*>();
    m_ownPanel = !panel && m_setup.format->info().supportsAttributes;
    if (m_ownPanel)
        panel = AttributeChoice::newPanel(wizard, &page);
    m_attributes.attach(panel, wizard);
    arrange(page);
    for (const ControlBinding& binding : m_controls)
        showControl(binding);
}

void SheetBinding::arrange(QWidget& page)
{
    auto* more = new QGroupBox(QWidget::tr("More options"), &page);
    more->setObjectName(QStringLiteral("moreOptions"));
    auto* settings = new SettingsForm(m_setup.settings, boundKeys(), more, [this] {
        if (m_wizard)
            m_wizard->update_navigation();
    });
    auto* moreLayout = new QVBoxLayout(more);
    moreLayout->setContentsMargins(8, 8, 8, 8);
    moreLayout->addWidget(settings);
    more->setVisible(!settings->isEmpty());
    QLayout* const formLayout = page.layout();
    auto* choices = new QVBoxLayout;
    if (formLayout) {
        auto* form = new QWidget(&page);
        form->setLayout(formLayout); // takes it, and the controls in it, from the page
        formLayout->setContentsMargins(0, 0, 0, 0);
        choices->addWidget(new FormArea(form, &page));
    }
    if (m_ownPanel)
        choices->addWidget(m_attributes.panel(), 1);
    auto* beside = new QVBoxLayout;
    beside->addWidget(more);
    beside->addStretch(1);
    auto* layout = new QHBoxLayout(&page);
    layout->setContentsMargins(0, 0, 0, 0);
    // Alone, the options are no wider than beside a form.
    if (choices->isEmpty()) {
        delete choices;
        more->setTitle(QWidget::tr("Options"));
        layout->addLayout(beside, 2);
        layout->addStretch(1);
        return;
    }
    layout->addLayout(choices, 7);
    layout->addLayout(beside, settings->isEmpty() ? 0 : 3);
}

QStringList SheetBinding::boundKeys() const
{
    QStringList keys;
    for (const ControlBinding& binding : m_controls)
        keys.append(QString::fromLatin1(binding.key));
    return keys;
}

bool SheetBinding::objectsChanged()
{
    const std::vector<int> ids = m_wizard ? m_wizard->selectedGeoIds() : std::vector<int>();
    if (m_entered && ids == m_ids)
        return false;
    m_entered = true;
    m_ids = ids;
    m_objects = m_model.find(ids);
    showObjects(*m_page, m_objects);
    return true;
}

void SheetBinding::showControl(const ControlBinding& binding)
{
    auto* control = m_page->findChild<QWidget*>(QString::fromLatin1(binding.control));
    if (!control)
        return;
    const Setting* const setting = m_setup.settings.find(QString::fromLatin1(binding.key));
    const QString value = QString::fromLatin1(binding.value);
    if (!setting || (binding.kind == ControlBinding::Value && !setting->choiceKeys().contains(value))) {
        switchOff(*control, binding.kind);
        return;
    }
    if (binding.toolTip || control->toolTip().isEmpty())
        control->setToolTip(binding.toolTip ? QString::fromLatin1(binding.toolTip) : setting->description);
    auto* button = qobject_cast<QAbstractButton*>(control);
    switch (binding.kind) {
    case ControlBinding::Flag:
    case ControlBinding::InverseFlag:
        button->setChecked((m_setup.settings.get(*setting) == QLatin1String("true"))
                           == (binding.kind == ControlBinding::Flag));
        if (setting->key == QLatin1String("attributes") && m_attributes.panel()) {
            m_attributes.panel()->setEnabled(button->isChecked());
            QObject::connect(button, &QAbstractButton::toggled, m_attributes.panel(), &QWidget::setEnabled);
        }
        break;
    case ControlBinding::Value:
        if (m_setup.settings.get(*setting) == value)
            button->setChecked(true);
        break;
    case ControlBinding::NotValue:
        if (m_setup.settings.get(*setting) != value)
            button->setChecked(true);
        break;
    case ControlBinding::Text:
        qobject_cast<QLineEdit*>(control)->setText(m_setup.settings.get(*setting));
        break;
    case ControlBinding::LengthUnit: {
        m_unitIsUsers = m_setup.settings.get(*setting) != QLatin1String("model");
        if (m_unitIsUsers)
            showUnit(*qobject_cast<QImportUnitSelector*>(control), m_setup.settings.get(*setting));
        auto* units = control->findChild<QComboBox*>(QStringLiteral("m_lengthUnit"));
        QObject::connect(units, QOverload<int>::of(&QComboBox::currentIndexChanged), control,
                         [this] { m_unitIsUsers = true; });
        break;
    }
    case ControlBinding::Direction: {
        auto* selector = qobject_cast<QImportUnitSelector*>(control);
        const bool isDepth = m_setup.settings.get(*setting) == directionText(*setting, false);
        selector->gdf_setZDirection(isDepth ? kpUnits::Depth : kpUnits::Elevation);
        break;
    }
    case ControlBinding::ByPage:
        break;
    }
}

void SheetBinding::showUnits()
{
    for (const ControlBinding& binding : m_controls) {
        if (binding.kind != ControlBinding::LengthUnit || m_unitIsUsers || m_objects.empty())
            continue;
        if (auto* selector = m_page->findChild<QImportUnitSelector*>(QString::fromLatin1(binding.control))) {
            showUnit(*selector, m_objects.front()->lengthUnit);
            m_unitIsUsers = false;
        }
    }
}

void SheetBinding::readControl(const ControlBinding& binding)
{
    const auto* control = m_page->findChild<QWidget*>(QString::fromLatin1(binding.control));
    const Setting* const setting = m_setup.settings.find(QString::fromLatin1(binding.key));
    if (!control || !setting)
        return;
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    const auto* selector = qobject_cast<const QImportUnitSelector*>(control);
    switch (binding.kind) {
    case ControlBinding::Flag:
        m_setup.settings.set(setting->key, boolText(button->isChecked()));
        break;
    case ControlBinding::InverseFlag:
        m_setup.settings.set(setting->key, boolText(!button->isChecked()));
        break;
    case ControlBinding::Value:
        // A choice inside a group that is switched off does not count.
        if (button->isChecked() && button->isEnabledTo(m_page))
            m_setup.settings.set(setting->key, QString::fromLatin1(binding.value));
        break;
    case ControlBinding::Text:
        m_setup.settings.set(setting->key, qobject_cast<const QLineEdit*>(control)->text());
        break;
    case ControlBinding::LengthUnit:
        m_setup.settings.set(setting->key, QString::fromLatin1(selector->getUnits().abbreviation()));
        break;
    case ControlBinding::Direction:
        m_setup.settings.set(setting->key, directionText(*setting, selector->getUnits().zIsElevation()));
        break;
    case ControlBinding::NotValue:
    case ControlBinding::ByPage:
        break;
    }
}

bool SheetBinding::isComplete() const
{
    return areSystemsKnown(m_setup.settings);
}

void SheetBinding::leave()
{
    QStringList notStored;
    for (const ControlBinding& binding : m_controls) {
        readControl(binding);
        if (binding.kind == ControlBinding::ByPage || binding.kind == ControlBinding::LengthUnit)
            notStored.append(QString::fromLatin1(binding.key));
    }
    const QString format = m_setup.format->info().key;
    storeSettings(m_setup.settings, format, notStored);
    // A unit that only follows the objects does so the next time too.
    for (const ControlBinding& binding : m_controls) {
        const Setting* const setting = m_setup.settings.find(QString::fromLatin1(binding.key));
        if (setting && binding.kind == ControlBinding::LengthUnit)
            storeSetting(format, setting->key,
                         m_unitIsUsers ? m_setup.settings.get(*setting) : QStringLiteral("model"));
    }
}

QString SheetBinding::summary() const
{
    return summaryOf(m_setup.settings);
}

} // namespace kpFormats
