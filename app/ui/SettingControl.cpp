// SPDX-License-Identifier: MIT
#include "app/ui/SettingControl.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QSpinBox>

namespace refhost
{

namespace
{

SettingControl choiceBox(const Setting& setting, const QStringList& texts, QWidget* parent, const std::function<void()>& changed)
{
    auto* box = new QComboBox(parent);
    for (int index = 0; index < setting.choices.size(); ++index)
        box->addItem(texts.value(index, setting.choices[index]), setting.choices[index]);
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box, [box, setting, changed] {
        setting.set(box->currentData().toString());
        changed();
    });
    return {box, [box, setting] {
                const QSignalBlocker blocker(box);
                box->setCurrentIndex(box->findData(setting.get()));
            }};
}

SettingControl checkBox(const Setting& setting, const QString& text, QWidget* parent, const std::function<void()>& changed)
{
    auto* box = new QCheckBox(text, parent);
    QObject::connect(box, &QCheckBox::toggled, box, [setting, changed](bool on) {
        setting.set(on ? QStringLiteral("true") : QStringLiteral("false"));
        changed();
    });
    return {box, [box, setting] {
                const QSignalBlocker blocker(box);
                box->setChecked(setting.get() == QLatin1String("true"));
            }};
}

SettingControl numberBox(const Setting& setting, QWidget* parent, const std::function<void()>& changed)
{
    auto* box = new QSpinBox(parent);
    box->setRange(static_cast<int>(setting.least), static_cast<int>(setting.most));
    QObject::connect(box, QOverload<int>::of(&QSpinBox::valueChanged), box, [setting, changed](int value) {
        setting.set(QString::number(value));
        changed();
    });
    return {box, [box, setting] {
                const QSignalBlocker blocker(box);
                box->setValue(setting.get().toInt());
            }};
}

SettingControl realBox(const Setting& setting, QWidget* parent, const std::function<void()>& changed)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setLocale(QLocale::c());
    box->setDecimals(6);
    box->setRange(setting.least, setting.most);
    QObject::connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), box, [setting, changed](double value) {
        setting.set(QString::number(value, 'g', QLocale::FloatingPointShortest));
        changed();
    });
    return {box, [box, setting] {
                const QSignalBlocker blocker(box);
                box->setValue(setting.get().toDouble());
            }};
}

} // namespace

SettingControl makeSettingControl(const Setting& setting, const QStringList& choiceTexts, const QString& checkText,
                                  QWidget* parent, const std::function<void()>& changed)
{
    SettingControl control;
    if (setting.kind == Setting::Choice) {
        control = choiceBox(setting, choiceTexts, parent, changed);
    } else if (setting.kind == Setting::Boolean) {
        control = checkBox(setting, checkText, parent, changed);
    } else if (setting.kind == Setting::Integer) {
        control = numberBox(setting, parent, changed);
    } else if (setting.kind == Setting::Real) {
        control = realBox(setting, parent, changed);
    } else {
        auto* edit = new QLineEdit(parent);
        QObject::connect(edit, &QLineEdit::textChanged, edit, [setting, changed](const QString& text) {
            setting.set(text);
            changed();
        });
        control = {edit, [edit, setting] {
                       const QSignalBlocker blocker(edit);
                       edit->setText(setting.get());
                   }};
    }
    control.widget->setObjectName(setting.key);
    control.widget->setToolTip(setting.description);
    control.widget->setAccessibleName(labelOf(setting.key));
    control.show();
    return control;
}

} // namespace refhost
