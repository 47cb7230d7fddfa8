// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiHints.h"
#include "formats/ascii/AsciiProfile.h"
#include "pages/FormatSetup.h"
#include "pages/kpFormatsUiExport.h"
#include "spec/QExportSheetAscii.h"

#include <QJsonObject>
#include <QTimer>

#include <functional>

class QCheckBox;
class QLineEdit;
class QVBoxLayout;

namespace kpFormats
{

class AsciiHintList;
class AsciiSpecification;
class FilePreview;
class LackingFieldsNotice;
class Model;

/// The page of the ASCII format: the layout editor, the other settings, what the data have against the choice, and the
/// first lines of the file as it will be, made by the writer itself. Everything is remembered; until the user changes
/// the layout it holds all attributes of the chosen objects.
class KPFORMATSUI_EXPORT AsciiSheet : public kpBaseExport::QExportSheetAscii
{
    Q_OBJECT

public:
    /// \a setup is of the ASCII format; it and \a model outlive the page.
    AsciiSheet(FormatSetup& setup, const Model& model);

    using QExportSheetAscii::initialize;
    void initialize(const QString& text) override;
    void activate() override;
    void deactivate() override;
    QString optionSummary() const override;
    std::vector<std::string> selectedAttributeNames() override;
    /// True when preview and hints show the present choice.
    bool isSettled() const { return !m_refreshTimer.isActive() && m_profile.done(); }

private:
    void buildSettings(QVBoxLayout& page);
    void connectEditor();
    QWidget* addSetting(const QString& key);
    void restore();
    void store();
    void settingsToEditor();
    void editorToSettings();
    void applySettings(const QJsonObject& settings);

    void changedByUser();
    void scheduleRefresh();
    void refresh();
    void startProfile();
    void work();
    void showLacking();
    void showHints();
    void cure(const AsciiHint& hint);
    void fitColumns();
    void handToFormat();

    const AsciiExportSettings& settings() const { return m_setup.settings.as<AsciiExportSettings>(); }

    FormatSetup& m_setup;
    const Model& m_model;
    AsciiSpecification* m_layout = nullptr;            ///< the editor
    std::vector<std::function<void()>> m_showSettings; ///< put each setting into its control

    QCheckBox* m_useCustom = nullptr;
    QLineEdit* m_custom = nullptr;
    LackingFieldsNotice* m_lacking = nullptr;
    AsciiHintList* m_hints = nullptr;
    FilePreview* m_preview = nullptr;

    QTimer m_refreshTimer;
    QTimer m_workTimer;
    AsciiProfile m_profile;
    QStringList m_profiledSeparators;
    std::vector<const ModelObject*> m_objects;
    std::vector<int> m_shownFor; ///< objects whose attributes are on offer
    bool m_own = false;          ///< the user has changed the layout
    bool m_filling = false;      ///< changes are ours
};

} // namespace kpFormats
