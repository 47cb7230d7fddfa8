// SPDX-License-Identifier: MIT
#include "pages/SettingControl.h"

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

/// What stands for a choice where the page has no text of its own: its word, where that says enough.
QString choiceText(const Setting& setting, const QString& choice)
{
    struct Text
    {
        const char* key;
        const char* choice;
        const char* text;
    };
    static constexpr Text texts[] = {
        {"grouping", "single", "one file"},
        {"grouping", "object", "a file per object"},
        {"grouping", "set", "a file per set"},
        {"lengthUnit", "model", "that of the model"},
        {"lengthUnit", "m", "metres (m)"},
        {"lengthUnit", "ft", "feet (ft)"},
        {"lengthUnit", "ftUS", "US survey feet (ftUS)"},
        {"lengthUnit", "km", "kilometres (km)"},
    };
    for (const Text& text : texts) {
        if (setting.key == QLatin1String(text.key) && choice == QLatin1String(text.choice))
            return QObject::tr(text.text);
    }
    return choice;
}

/// What the setting does, and how a command says it.
QString toolTipOf(const Setting& setting)
{
    QString value = QStringLiteral("...");
    if (setting.kind == Setting::Choice)
        value = setting.choices.join(QLatin1Char('|'));
    else if (setting.kind == Setting::Boolean)
        value = QStringLiteral("true|false");
    return QStringLiteral("%1\n--set %2=%3").arg(setting.description, setting.key, value);
}

SettingControl choiceBox(const Setting& setting, const QStringList& texts, QWidget* parent,
                         const std::function<void()>& changed)
{
    auto* box = new QComboBox(parent);
    for (int index = 0; index < setting.choices.size(); ++index)
        box->addItem(texts.value(index, choiceText(setting, setting.choices[index])), setting.choices[index]);
    QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), box, [box, setting, changed] {
        setting.set(box->currentData().toString());
        changed();
    });
    return {box, [box, setting] {
                const QSignalBlocker blocker(box);
                box->setCurrentIndex(box->findData(setting.get()));
            }};
}

SettingControl checkBox(const Setting& setting, const QString& text, QWidget* parent,
                        const std::function<void()>& changed)
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
    // Less than none of them leaves the choice to the format.
    if (setting.least == -1)
        box->setSpecialValueText(QObject::tr("automatic"));
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
    auto* box = new NumberBox(parent);
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
        if (setting.key == QLatin1String("crs"))
            edit->setPlaceholderText(QObject::tr("such as EPSG:28350"));
        else if (setting.key == QLatin1String("attribute"))
            edit->setPlaceholderText(QObject::tr("heights"));
        control = {edit, [edit, setting] {
                       const QSignalBlocker blocker(edit);
                       edit->setText(setting.get());
                   }};
    }
    control.widget->setObjectName(setting.key);
    control.widget->setToolTip(toolTipOf(setting));
    control.widget->setAccessibleName(labelOf(setting.key));
    control.show();
    return control;
}

} // namespace kpFormats
