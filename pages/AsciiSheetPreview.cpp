// SPDX-License-Identifier: MIT
// The lower half of the ASCII page: settings, notices, hints, the preview.
#include "formats/ascii/AsciiOutput.h"
#include "pages/AsciiSheet.h"
#include "pages/AsciiSpecification.h"
#include "pages/SettingControl.h"
#include "spec/QESSpecificationTableWidget.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>

namespace kpFormats
{

namespace
{

constexpr int workSlice = 8; // ms
constexpr int leastPreviewLines = 5;
constexpr int previewRows = 12;
constexpr int previewCharacters = 4000; // of a line
constexpr int shownHints = 3;
constexpr int shownNames = 12;

/// Lines of the file for the eye: as they are, but none endless.
QString shownText(const QByteArray& bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (line.size() > previewCharacters)
            line = line.left(previewCharacters) + QStringLiteral("...");
    }
    return lines.join(QLatin1Char('\n'));
}

QHBoxLayout* labelled(const QString& text, QWidget* control)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    auto* label = new QLabel(text, control->parentWidget());
    label->setBuddy(control);
    row->addWidget(label);
    row->addWidget(control);
    return row;
}

} // namespace

QWidget* AsciiSheet::addSetting(const QString& key)
{
    const QString checkText = key == QLatin1String("header")       ? tr("&Header line")
                              : key == QLatin1String("lineBreaks") ? tr("Object &name before, empty line after")
                                                                   : tr("Z is &elevation");
    SettingControl control =
        makeSettingControl(m_setup.settings, *m_setup.settings.find(key), checkText, this, [this, key] {
            if (m_filling)
                return;
            if (key == QLatin1String("decimals")) {
                const QScopedValueRollback<bool> ours(m_filling, true);
                m_layout->setDecimals(settings().decimals);
                if (!m_own) {
                    m_layout->takeAll();
                    m_layout->activate();
                }
            }
            scheduleRefresh();
        });
    m_showSettings.push_back(control.show);
    return control.widget;
}

void AsciiSheet::buildSettings(QVBoxLayout& page)
{
    const auto setting = [this](const char* key) { return addSetting(QString::fromLatin1(key)); };
    auto* first = new QHBoxLayout;
    first->setSpacing(14);
    first->addWidget(setting("header"));
    first->addLayout(labelled(tr("&Preset:"), setting("preset")));
    first->addLayout(labelled(tr("&Decimals of new fields:"), setting("decimals")));
    first->addWidget(setting("zIsElevation"));
    first->addStretch();
    auto* all = new QPushButton(tr("&All attributes"), this);
    all->setObjectName(QStringLiteral("allAttributes"));
    all->setToolTip(tr("Lay out every attribute of the chosen objects anew"));
    connect(all, &QPushButton::clicked, this, [this] {
        const QScopedValueRollback<bool> ours(m_filling, true);
        m_own = false;
        m_layout->takeAll();
        m_layout->activate();
        showLacking();
        if (m_profile.done())
            fitColumns();
        scheduleRefresh();
    });
    first->addWidget(all);
    auto* second = new QHBoxLayout;
    second->setSpacing(14);
    second->addWidget(setting("lineBreaks"));
    second->addLayout(labelled(tr("&Files:"), setting("grouping")));
    m_useCustom = new QCheckBox(tr("&Own separator:"), this);
    m_useCustom->setObjectName(QStringLiteral("useCustomSeparator"));
    m_custom = new QLineEdit(this);
    m_custom->setObjectName(QStringLiteral("customSeparator"));
    m_custom->setAccessibleName(tr("Own separator"));
    m_custom->setMaximumWidth(80);
    second->addWidget(m_useCustom);
    second->addWidget(m_custom);
    second->addStretch();
    page.addLayout(first);
    page.addLayout(second);
}

void AsciiSheet::buildPreview(QVBoxLayout& page)
{
    m_lackingBox = new QWidget(this);
    auto* lackingRow = new QHBoxLayout(m_lackingBox);
    lackingRow->setContentsMargins(0, 0, 0, 0);
    m_lackingLabel = new QLabel(m_lackingBox);
    m_lackingLabel->setObjectName(QStringLiteral("lackingFields"));
    m_lackingLabel->setTextFormat(Qt::PlainText);
    m_lackingLabel->setWordWrap(true);
    auto* dismiss = new QPushButton(tr("Dismiss"), m_lackingBox);
    dismiss->setObjectName(QStringLiteral("dismissLacking"));
    connect(dismiss, &QPushButton::clicked, m_lackingBox, &QWidget::hide);
    lackingRow->addWidget(m_lackingLabel, 1);
    lackingRow->addWidget(dismiss);
    m_lackingBox->hide();
    page.addWidget(m_lackingBox);

    m_hintBox = new QWidget(this);
    m_hintBox->setObjectName(QStringLiteral("hints"));
    m_hints = new QVBoxLayout(m_hintBox);
    m_hints->setContentsMargins(0, 0, 0, 0);
    m_hints->setSpacing(2);
    m_hintBox->hide();
    page.addWidget(m_hintBox);

    auto* title = new QHBoxLayout;
    m_previewTitle = new QLabel(this);
    m_previewTitle->setObjectName(QStringLiteral("previewTitle"));
    m_previewTitle->setTextFormat(Qt::PlainText);
    m_previewTitle->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* marks = new QCheckBox(tr("&Show tabs, blanks and line ends"), this);
    marks->setObjectName(QStringLiteral("showMarks"));
    title->addWidget(m_previewTitle, 1);
    title->addWidget(marks);
    page.addLayout(title);
    m_preview = new QPlainTextEdit(this);
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setAccessibleName(tr("First lines of the file"));
    m_preview->setReadOnly(true);
    m_preview->setTabChangesFocus(true);
    m_preview->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_preview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_preview->setMinimumHeight(m_preview->fontMetrics().height() * leastPreviewLines);
    m_preview->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    page.addWidget(m_preview, 1);
    connect(marks, &QCheckBox::toggled, this, [this](bool on) {
        QTextOption option = m_preview->document()->defaultTextOption();
        option.setFlags(on ? QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators
                           : QTextOption::Flags());
        m_preview->document()->setDefaultTextOption(option);
    });
}

void AsciiSheet::refresh()
{
    m_refreshTimer.stop();
    const AsciiLayout layout = m_layout->asciiLayout();
    m_setup.settings.as<AsciiExportSettings>().layout = layout;
    const QString text = shownText(asciiPreview(settings(), m_objects, previewRows));
    if (text != m_preview->toPlainText())
        m_preview->setPlainText(text);
    m_previewTitle->setText(m_objects.empty()
                                ? tr("Preview")
                                : tr("Preview: first lines of %1").arg(m_objects.front()->name.simplified().left(60)));
    if (separatorsToLookFor(settings()) != m_profiledSeparators)
        startProfile();
    else if (m_profile.done())
        showHints();
}

void AsciiSheet::startProfile()
{
    m_profiledSeparators = separatorsToLookFor(settings());
    m_profile.start(m_objects, m_layout->offered(), m_profiledSeparators);
    m_workTimer.start();
}

void AsciiSheet::work()
{
    if (!m_profile.advance(workSlice))
        return;
    m_workTimer.stop();
    if (!m_own) {
        const QScopedValueRollback<bool> ours(m_filling, true);
        fitColumns();
    }
    showHints();
}

/// Until the user lays out columns of his own they are as wide as their values need.
void AsciiSheet::fitColumns()
{
    const QVector<kpBaseExport::QESAttribute> fields = fieldsFor(m_layout->asciiLayout(), m_layout->offered());
    QVector<int> widths;
    for (const kpBaseExport::QESAttribute& field : fields)
        widths.append(fittingWidth(m_profile, settings(), field));
    m_layout->place(widths);
}

void AsciiSheet::showLacking()
{
    const QStringList lacking = m_layout->lacking();
    if (lacking == m_toldLacking)
        return;
    m_toldLacking = lacking;
    m_lackingBox->setVisible(!lacking.isEmpty());
    QStringList names = lacking.mid(0, shownNames);
    for (QString& name : names)
        name = name.simplified().left(40);
    if (lacking.size() > shownNames)
        names.append(tr("and %1 more").arg(lacking.size() - shownNames));
    m_lackingLabel->setText(tr("The chosen objects lack these fields of the layout, which are left out: %1")
                                .arg(names.join(QStringLiteral(", "))));
    m_lackingLabel->setToolTip(m_lackingLabel->text());
}

void AsciiSheet::showHints()
{
    const AsciiLayout layout = m_layout->asciiLayout();
    const std::vector<AsciiHint> hints = asciiHints(m_profile, settings(), fieldsFor(layout, m_layout->offered()));
    while (QLayoutItem* item = m_hints->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    std::vector<AsciiHint> narrow;
    int shown = 0;
    for (const AsciiHint& hint : hints) {
        if (hint.cure == AsciiHint::Widen) {
            narrow.push_back(hint);
        } else if (shown++ < shownHints) {
            addHint(hint, hint.text, [this, hint] { cure(hint); });
        }
    }
    if (!narrow.empty()) {
        const bool several = narrow.size() > 1;
        AsciiHint all = narrow.front();
        if (several)
            all.cureText = tr("Widen all %1").arg(narrow.size());
        addHint(all, several ? tr("%1 (%2 columns are too narrow)").arg(all.text).arg(narrow.size()) : all.text,
                [this, narrow] {
                    for (const AsciiHint& each : narrow)
                        cure(each);
                });
    }
    m_hintBox->setVisible(m_hints->count() > 0);
}

void AsciiSheet::addHint(const AsciiHint& hint, const QString& text, std::function<void()> cureIt)
{
    auto* row = new QWidget(m_hintBox);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* icon = new QLabel(row);
    icon->setPixmap(QPixmap(QStringLiteral(":/kpBaseQt/Resources/error.png")));
    auto* label = new QLabel(row);
    label->setTextFormat(Qt::PlainText);
    label->setText(QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    label->setWordWrap(true);
    label->setObjectName(QStringLiteral("hintText"));
    line->addWidget(icon);
    line->addWidget(label, 1);
    if (!hint.cureText.isEmpty()) {
        auto* button = new QPushButton(hint.cureText, row);
        button->setObjectName(QStringLiteral("hintCure"));
        button->setAccessibleDescription(text);
        connect(button, &QPushButton::clicked, this, [cureIt] { cureIt(); });
        line->addWidget(button);
    }
    m_hints->addWidget(row);
}

void AsciiSheet::cure(const AsciiHint& hint)
{
    const auto set = [this](const char* key, const QString& value) {
        m_setup.settings.set(QString::fromLatin1(key), value);
        settingsToEditor();
    };
    switch (hint.cure) {
    case AsciiHint::UseSeparator:
        set("separator", m_setup.settings.find(QStringLiteral("separator"))->choiceKeys()[hint.number]);
        break;
    case AsciiHint::UseColumns:
        m_layout->setMode(kpBaseExport::QExportSpecification::ColumnBased);
        break;
    case AsciiHint::UseNullValue:
        m_layout->m_nullEdit->setText(hint.newText);
        break;
    case AsciiHint::WriteNull:
        m_layout->m_nullCheck->setChecked(true);
        break;
    case AsciiHint::Widen:
        m_layout->widen(hint.field, hint.number);
        break;
    case AsciiHint::UseDecimals:
        m_layout->refineCoordinates(hint.number);
        break;
    case AsciiHint::NoPreset:
        set("preset", QStringLiteral("none"));
        break;
    case AsciiHint::None:
        break;
    }
    scheduleRefresh();
}

} // namespace kpFormats
