// SPDX-License-Identifier: MIT
#include "pages/SettingControl.h"

#include "pages/CrsField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>

namespace kpFormats
{

namespace
{

/// Shows a number with the digits that it has: -99999, not -99999.000000.
class NumberBox : public QDoubleSpinBox
{
public:
    using QDoubleSpinBox::QDoubleSpinBox;

    QString textFromValue(double value) const override
    {
        QString text = QString::number(value, 'f', decimals());
        while (text.contains(QLatin1Char('.')) && (text.endsWith(QLatin1Char('0')) || text.endsWith(QLatin1Char('.'))))
            text.chop(1);
        return text;
    }
    // That of the base has room for the longest number in the range.
    QSize sizeHint() const override { return bounded(QDoubleSpinBox::sizeHint()); }
    QSize minimumSizeHint() const override { return bounded(QDoubleSpinBox::minimumSizeHint()); }

private:
    QSize bounded(const QSize& size) const
    {
        const int usual = fontMetrics().horizontalAdvance(QStringLiteral("-99999.000000"));
        return {std::min(size.width(), usual), size.height()};
    }
};

/// What the setting does, and how a command says it.
QString toolTipOf(const Setting& setting)
{
    QString value = QStringLiteral("...");
    if (setting.kind == Setting::Choice)
        value = setting.choiceKeys().join(QLatin1Char('|'));
    else if (setting.kind == Setting::Boolean)
        value = QStringLiteral("true|false");
    return QStringLiteral("%1\n--set %2=%3").arg(setting.description, setting.key, value);
}

SettingControl choiceBox(SettingsValue& settings, const Setting& setting, QWidget* parent,
                         const std::function<void()>& changed)
{
    auto* box = new QComboBox(parent);
    for (const SettingChoice& choice : setting.choices)
        box->addItem(choice.text.isEmpty() ? choice.key : choice.text, choice.key);
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box,
                     [box, &settings, key = setting.key, changed] {
                         settings.set(key, box->currentData().toString());
                         changed();
                     });
    return {box, [box, &settings, key = setting.key] {
                const QSignalBlocker blocker(box);
                box->setCurrentIndex(box->findData(settings.get(key)));
            }};
}

SettingControl checkBox(SettingsValue& settings, const Setting& setting, const QString& text, QWidget* parent,
                        const std::function<void()>& changed)
{
    auto* box = new QCheckBox(text, parent);
    QObject::connect(box, &QCheckBox::toggled, box, [&settings, key = setting.key, changed](bool on) {
        settings.set(key, on ? QStringLiteral("true") : QStringLiteral("false"));
        changed();
    });
    return {box, [box, &settings, key = setting.key] {
                const QSignalBlocker blocker(box);
                box->setChecked(settings.get(key) == QLatin1String("true"));
            }};
}

SettingControl numberBox(SettingsValue& settings, const Setting& setting, QWidget* parent,
                         const std::function<void()>& changed)
{
    auto* box = new QSpinBox(parent);
    box->setRange(static_cast<int>(setting.least), static_cast<int>(setting.most));
    // Less than none of them leaves the choice to the format.
    if (setting.least == -1)
        box->setSpecialValueText(QObject::tr("automatic"));
    QObject::connect(box, QOverload<int>::of(&QSpinBox::valueChanged), box,
                     [&settings, key = setting.key, changed](int value) {
                         settings.set(key, QString::number(value));
                         changed();
                     });
    return {box, [box, &settings, key = setting.key] {
                const QSignalBlocker blocker(box);
                box->setValue(settings.get(key).toInt());
            }};
}

SettingControl realBox(SettingsValue& settings, const Setting& setting, QWidget* parent,
                       const std::function<void()>& changed)
{
    auto* box = new NumberBox(parent);
    box->setLocale(QLocale::c());
    box->setDecimals(6);
    box->setRange(setting.least, setting.most);
    QObject::connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), box,
                     [&settings, key = setting.key, changed](double value) {
                         settings.set(key, QString::number(value, 'g', QLocale::FloatingPointShortest));
                         changed();
                     });
    return {box, [box, &settings, key = setting.key] {
                const QSignalBlocker blocker(box);
                box->setValue(settings.get(key).toDouble());
            }};
}

} // namespace

SettingControl makeSettingControl(SettingsValue& settings, const Setting& setting, const QString& checkText,
                                  QWidget* parent, const std::function<void()>& changed)
{
    SettingControl control;
    if (setting.kind == Setting::Choice) {
        control = choiceBox(settings, setting, parent, changed);
    } else if (setting.kind == Setting::Boolean) {
        control = checkBox(settings, setting, checkText, parent, changed);
    } else if (setting.kind == Setting::Integer) {
        control = numberBox(settings, setting, parent, changed);
    } else if (setting.kind == Setting::Real) {
        control = realBox(settings, setting, parent, changed);
    } else {
        auto* field = setting.key == crsKey ? new CrsField(setting.isOutputSystem, parent) : nullptr;
        auto* edit = field ? field->edit() : new QLineEdit(parent);
        QObject::connect(edit, &QLineEdit::textChanged, edit,
                         [&settings, key = setting.key, changed](const QString& text) {
                             settings.set(key, text);
                             changed();
                         });
        if (setting.key == QLatin1String("attribute"))
            edit->setPlaceholderText(QObject::tr("heights"));
        edit->setObjectName(setting.key);
        edit->setToolTip(toolTipOf(setting));
        edit->setAccessibleName(setting.label);
        control = {field ? static_cast<QWidget*>(field) : edit, [edit, field, &settings, key = setting.key] {
                       // A field that explains its text has to hear of it.
                       const QSignalBlocker blocker(field ? nullptr : edit);
                       edit->setText(settings.get(key));
                   }};
        control.show();
        return control;
    }
    control.widget->setObjectName(setting.key);
    control.widget->setToolTip(toolTipOf(setting));
    control.widget->setAccessibleName(setting.label);
    control.show();
    return control;
}

} // namespace kpFormats
