// SPDX-License-Identifier: MIT
#include "app/ui/SettingsSheet.h"

#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportWizard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QSettings>
#include <QSpinBox>

namespace refhost
{

SettingsSheet::SettingsSheet(ExportFormat& format)
    : QWidget(nullptr)
    , QExportAbstractOptionSheet(nullptr)
    , m_format(format)
    , m_settings(format.settings())
{
}

void SettingsSheet::initialize(const QString& text)
{
    m_pageWidget = this;
    setWindowTitle(QStringLiteral("File Export: %1 Options").arg(m_format.info().fileFormatName));
    restore();
    auto* columns = new QHBoxLayout(this);
    auto* form = new QFormLayout;
    columns->addLayout(form, 1);
    for (const Setting& setting : m_settings.settings()) {
        QWidget* control = makeControl(setting);
        control->setObjectName(setting.key);
        control->setToolTip(setting.description);
        form->addRow(labelOf(setting.key), control);
    }
    m_attributes = new kpBaseExport::QExportAttributeWidget(m_wizard, this);
    m_attributes->initialize(text, kpBaseExport::QExportAttributeWidget::UNSPECIFIED_LEVEL);
    columns->addWidget(m_attributes, 1);
}

void SettingsSheet::restore()
{
    QSettings stored;
    stored.beginGroup(QStringLiteral("format_") + m_format.info().key);
    for (const Setting& setting : m_settings.settings()) {
        if (!stored.contains(setting.key))
            continue;
        try {
            m_settings.set(setting.key, stored.value(setting.key).toString());
        } catch (const SettingsError&) {
            // Stored by another version of the program: the default stays.
            stored.remove(setting.key);
        }
    }
}

QWidget* SettingsSheet::makeControl(const Setting& setting)
{
    const auto set = setting.set;
    switch (setting.kind) {
    case Setting::Choice: {
        auto* box = new QComboBox(this);
        box->addItems(setting.choices);
        box->setCurrentText(setting.get());
        connect(box, &QComboBox::currentTextChanged, this, set);
        return box;
    }
    case Setting::Boolean: {
        auto* box = new QCheckBox(this);
        box->setChecked(setting.get() == QLatin1String("true"));
        connect(box, &QCheckBox::toggled, this,
                [set](bool on) { set(on ? QStringLiteral("true") : QStringLiteral("false")); });
        return box;
    }
    case Setting::Integer: {
        auto* box = new QSpinBox(this);
        box->setRange(static_cast<int>(setting.least), static_cast<int>(setting.most));
        box->setValue(setting.get().toInt());
        connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this,
                [set](int value) { set(QString::number(value)); });
        return box;
    }
    case Setting::Real: {
        auto* box = new QDoubleSpinBox(this);
        box->setLocale(QLocale::c());
        box->setDecimals(6);
        box->setRange(setting.least, setting.most);
        box->setValue(setting.get().toDouble());
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                [set](double value) { set(QString::number(value, 'g', QLocale::FloatingPointShortest)); });
        return box;
    }
    case Setting::Text:
        break;
    }
    auto* edit = new QLineEdit(setting.get(), this);
    connect(edit, &QLineEdit::textChanged, this, set);
    return edit;
}

void SettingsSheet::activate()
{
    // Coming back with the same objects keeps what the user has checked.
    const std::vector<int> ids = m_wizard ? m_wizard->selectedGeoIds() : std::vector<int>();
    if (ids != m_shownFor)
        m_attributes->activate();
    m_shownFor = ids;
}

void SettingsSheet::deactivate()
{
    QSettings stored;
    stored.beginGroup(QStringLiteral("format_") + m_format.info().key);
    for (const Setting& setting : m_settings.settings())
        stored.setValue(setting.key, setting.get());
}

QString SettingsSheet::optionSummary() const
{
    QStringList parts;
    for (const Setting& setting : m_settings.settings())
        parts.append(QStringLiteral("%1=%2").arg(setting.key, setting.get()));
    return parts.join(QStringLiteral(", "));
}

std::vector<std::string> SettingsSheet::selectedAttributeNames()
{
    return m_attributes->selectedAttributeNames();
}

} // namespace refhost
