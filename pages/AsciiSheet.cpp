// SPDX-License-Identifier: MIT
#include "pages/AsciiSheet.h"

#include "formats/ascii/AsciiLayoutFile.h"
#include "formats/ascii/AsciiOutput.h"
#include "host/data/FormatFile.h"
#include "model/Model.h"
#include "pages/AsciiHintList.h"
#include "pages/AsciiSpecification.h"
#include "pages/FilePreview.h"
#include "pages/FormArea.h"
#include "pages/LackingFieldsNotice.h"
#include "pages/SettingControl.h"
#include "pages/SettingsMemory.h"
#include "spec/QESSpecificationTableWidget.h"
#include "spec/SeparatorCode.h"
#include "wizard/QExportWizard.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSettings>
#include <QVBoxLayout>

namespace kpFormats
{

namespace
{

using Settings = AsciiExportSettings;

constexpr int refreshDelay = 10; // ms: changes that come together are shown together
constexpr int workSlice = 8;     // ms
constexpr int previewRows = 12;

/// The editor's separator for a setting; Comma for one that the editor does not have.
kpBaseExport::QExportSpecification::Separator editorSeparator(Settings::Separator separator)
{
    using Editor = kpBaseExport::QExportSpecification;
    for (const auto candidate : {Editor::Tab, Editor::Space, Editor::Comma, Editor::SemiColon}) {
        if (kpBaseExport::writerSeparator(candidate) == static_cast<int>(separator))
            return candidate;
    }
    return Editor::Comma;
}

QString textOf(bool on)
{
    return on ? QStringLiteral("true") : QStringLiteral("false");
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

AsciiSheet::AsciiSheet(FormatSetup& setup, const Model& model)
    : m_setup(setup)
    , m_model(model)
{
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(refreshDelay);
    connect(&m_refreshTimer, &QTimer::timeout, this, &AsciiSheet::refresh);
    m_workTimer.setInterval(0);
    connect(&m_workTimer, &QTimer::timeout, this, &AsciiSheet::work);
}

void AsciiSheet::initialize(const QString& text)
{
    QExportSheetAscii::initialize(text);
    auto* frame = findChild<QFrame*>(QStringLiteral("m_frame"));
    auto* content = new QWidget(frame);
    auto* page = new QVBoxLayout(content);
    page->setContentsMargins(6, 2, 6, 6);
    page->setSpacing(5);
    m_layout = new AsciiSpecification(content);
    m_editor = m_layout;
    m_layout->setWizard(m_wizard);
    page->addWidget(m_layout, 3);
    buildSettings(*page);
    m_lacking = new LackingFieldsNotice(content);
    page->addWidget(m_lacking);
    m_hints = new AsciiHintList([this](const AsciiHint& hint) { cure(hint); }, content);
    page->addWidget(m_hints);
    m_preview = new FilePreview(content);
    page->addWidget(m_preview, 1);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding); // smaller than its content, it scrolls
    auto* whole = new QVBoxLayout(frame);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(new FormArea(content, frame));
    layout()->setContentsMargins(0, 0, 0, 0);
    restore();
    connectEditor();
}

QWidget* AsciiSheet::addSetting(const QString& key)
{
    const QString checkText = key == QLatin1String("header")          ? tr("&Header line")
                              : key == QLatin1String("lineBreaks")    ? tr("Object &name before, empty line after")
                              : key == QLatin1String("guardFormulas") ? tr("&Guard formulas")
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
    const auto row = [&page] {
        auto* controls = new QHBoxLayout;
        controls->setSpacing(14);
        page.addLayout(controls);
        return controls;
    };
    QHBoxLayout* fields = row();
    fields->addWidget(setting("header"));
    fields->addLayout(labelled(tr("&Preset:"), setting("preset")));
    fields->addLayout(labelled(tr("&Decimals of new fields:"), setting("decimals")));
    fields->addStretch();
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
    fields->addWidget(all);
    QHBoxLayout* objects = row();
    objects->addWidget(setting("zIsElevation"));
    objects->addLayout(labelled(tr("&Missing z:"), setting("missingZ")));
    objects->addWidget(setting("lineBreaks"));
    objects->addLayout(labelled(tr("&Files:"), setting("grouping")));
    objects->addStretch();
    QHBoxLayout* texts = row();
    texts->addLayout(labelled(tr("&Quotes:"), setting("quoting")));
    texts->addWidget(setting("guardFormulas"));
    m_useCustom = new QCheckBox(tr("&Own separator:"), this);
    m_useCustom->setObjectName(QStringLiteral("useCustomSeparator"));
    m_custom = new QLineEdit(this);
    m_custom->setObjectName(QStringLiteral("customSeparator"));
    m_custom->setAccessibleName(tr("Own separator"));
    m_custom->setMaximumWidth(80);
    texts->addWidget(m_useCustom);
    texts->addWidget(m_custom);
    texts->addStretch();
}

void AsciiSheet::connectEditor()
{
    using Editor = kpBaseExport::QExportSpecification;
    connect(m_layout, &Editor::onSpecChange, this, &AsciiSheet::onSpecChange);
    connect(m_layout, &Editor::onSpecChange, this, &AsciiSheet::changedByUser);
    const auto refreshLater = [this] {
        editorToSettings();
        scheduleRefresh();
    };
    for (QTableWidget* table : m_layout->findChildren<QTableWidget*>())
        connect(table, &QTableWidget::cellChanged, this, &AsciiSheet::changedByUser);
    for (QAbstractButton* button :
         {static_cast<QAbstractButton*>(m_layout->m_fieldRadio), static_cast<QAbstractButton*>(m_layout->m_columnRadio),
          static_cast<QAbstractButton*>(m_layout->m_nullCheck)})
        connect(button, &QAbstractButton::toggled, this, refreshLater);
    connect(m_layout->m_separatorCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, refreshLater);
    connect(m_layout->m_nullEdit, &QLineEdit::textChanged, this, refreshLater);
    connect(m_useCustom, &QCheckBox::toggled, this, refreshLater);
    connect(m_custom, &QLineEdit::textChanged, this, refreshLater);
    connect(m_layout, &AsciiSpecification::formatOpened, this, [this](const QJsonObject& settings) {
        m_own = true;
        applySettings(settings);
        m_lacking->forget();
        showLacking();
        if (m_wizard)
            m_wizard->update_navigation();
        scheduleRefresh();
    });
    m_layout->settingsToSave = [this] { return layoutSettings(m_setup.settings); };
}

void AsciiSheet::restore()
{
    const QString key = m_setup.format->info().key;
    restoreSettings(m_setup.settings, key);
    QSettings stored;
    stored.beginGroup(settingsGroup(key));
    const std::unique_ptr<FormatFile> layout(
        FormatFile::fromBytes(stored.value(QStringLiteral("layout")).toByteArray()));
    m_own = layout && stored.value(QStringLiteral("ownLayout")).toBool();
    if (m_own)
        m_layout->restore(*layout);
    settingsToEditor();
}

void AsciiSheet::store()
{
    const QString key = m_setup.format->info().key;
    storeSettings(m_setup.settings, key);
    QSettings stored;
    stored.beginGroup(settingsGroup(key));
    stored.setValue(QStringLiteral("layout"), m_layout->snapshot()->toBytes());
    stored.setValue(QStringLiteral("ownLayout"), m_own);
}

void AsciiSheet::applySettings(const QJsonObject& settings)
{
    for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
        try {
            if (setting.key() != QLatin1String("mode"))
                m_setup.settings.set(setting.key(), setting.value().toVariant().toString());
        } catch (const SettingsError&) {
            // A file of another version: what it says and this program does not know changes nothing.
            continue;
        }
    }
    m_setup.settings.set(QStringLiteral("mode"), m_layout->mode() == kpBaseExport::QExportSpecification::FieldBased
                                                     ? QStringLiteral("separated")
                                                     : QStringLiteral("columns"));
    settingsToEditor();
}

void AsciiSheet::settingsToEditor()
{
    const QScopedValueRollback<bool> ours(m_filling, true);
    const Settings copy = settings(); // the controls write back while they are set
    const bool custom = copy.separator == Settings::Separator::Custom;
    m_layout->setMode(copy.mode == Settings::Mode::Columns ? kpBaseExport::QExportSpecification::ColumnBased
                                                           : kpBaseExport::QExportSpecification::FieldBased);
    if (!custom)
        m_layout->setSeparator(editorSeparator(copy.separator));
    m_useCustom->setChecked(custom);
    m_custom->setText(copy.customSeparator);
    m_layout->m_nullCheck->setChecked(copy.writeNullValue);
    m_layout->m_nullEdit->setText(copy.nullValue);
    m_layout->setDecimals(copy.decimals);
    for (const auto& show : m_showSettings)
        show();
    m_custom->setEnabled(custom);
    m_layout->m_separatorCombo->setEnabled(!custom && copy.mode == Settings::Mode::Separated);
}

void AsciiSheet::editorToSettings()
{
    if (m_filling)
        return;
    const bool separated = m_layout->mode() == kpBaseExport::QExportSpecification::FieldBased;
    const bool custom = m_useCustom->isChecked();
    m_setup.settings.set(QStringLiteral("mode"), separated ? QStringLiteral("separated") : QStringLiteral("columns"));
    const Setting& separator = *m_setup.settings.find(QStringLiteral("separator"));
    m_setup.settings.set(separator.key,
                         separator.choiceKeys()[custom ? static_cast<int>(Settings::Separator::Custom)
                                                       : kpBaseExport::writerSeparator(m_layout->separator())]);
    m_setup.settings.set(QStringLiteral("customSeparator"), m_custom->text());
    m_setup.settings.set(QStringLiteral("writeNullValue"), textOf(m_layout->isNull()));
    m_setup.settings.set(QStringLiteral("nullValue"), m_layout->m_nullEdit->text());
    m_custom->setEnabled(custom);
    m_layout->m_separatorCombo->setEnabled(separated && !custom);
}

void AsciiSheet::activate()
{
    const std::vector<int> ids = m_wizard ? m_wizard->selectedGeoIds() : std::vector<int>();
    const bool others = ids != m_shownFor;
    m_objects = m_model.find(ids);
    m_layout->setObjects(m_objects);
    {
        const QScopedValueRollback<bool> ours(m_filling, true);
        if (others && !m_own)
            m_layout->takeAll();
        QExportSheetAscii::activate();
    }
    // Objects preset by the program are not in the list of the first page.
    m_hasObjects = !m_objects.empty();
    if (m_wizard)
        m_wizard->update_navigation();
    m_shownFor = ids;
    showLacking();
    if (others)
        startProfile();
    refresh();
}

void AsciiSheet::deactivate()
{
    handToFormat();
    m_refreshTimer.stop();
    m_workTimer.stop();
    store();
}

/// The format writes what the page holds. Columns that are still to be fitted to their values are fitted first.
void AsciiSheet::handToFormat()
{
    if (!m_own && !m_profile.done() && m_layout->mode() == kpBaseExport::QExportSpecification::ColumnBased) {
        const QScopedValueRollback<bool> ours(m_filling, true);
        while (!m_profile.advance(1000)) {
        }
        fitColumns();
    }
    m_layout->deactivate();
    m_setup.settings.as<AsciiExportSettings>().layout = m_layout->asciiLayout();
}

std::vector<std::string> AsciiSheet::selectedAttributeNames()
{
    // The save run asks for these first; what it then writes is what the page shows.
    handToFormat();
    return QExportSheetAscii::selectedAttributeNames();
}

QString AsciiSheet::optionSummary() const
{
    return summaryOf(m_setup.settings);
}

void AsciiSheet::changedByUser()
{
    if (!m_filling)
        m_own = true;
    scheduleRefresh();
}

void AsciiSheet::scheduleRefresh()
{
    if (!m_refreshTimer.isActive())
        m_refreshTimer.start();
}

void AsciiSheet::refresh()
{
    m_refreshTimer.stop();
    m_setup.settings.as<AsciiExportSettings>().layout = m_layout->asciiLayout();
    m_preview->showBytes(asciiPreview(settings(), m_objects, previewRows),
                         m_objects.empty() ? QString() : m_objects.front()->name);
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
    m_lacking->tell(m_layout->lacking());
}

void AsciiSheet::showHints()
{
    m_hints->showHints(asciiHints(m_profile, settings(), fieldsFor(m_layout->asciiLayout(), m_layout->offered())));
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
