// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractSheet.h"
#include "host/data/UnitRegistry.h"
#include "host/ui/Wizard.h"

#include <QStringList>
#include <QVector>

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace kpBaseExport
{

class AbstractSaver;
class AdditionalListSheet;
class QExportSheetObjectSelection;
class QExportSheetSaveFile;
class QExportSheetSaveInfo;

/// The export dialog: object selection, the chosen format's option sheets, file selection, report.
/// The host derives from it, registers savers and sheets first, and calls startup() and exec().
class KPBASEEXPORT_EXPORT QExportWizard : public kpBase::Wizard
{
    Q_OBJECT

public:
    /// \throws std::runtime_error when no object selection sheet is registered
    explicit QExportWizard(QWidget* parent = nullptr,
                           Qt::WindowFlags flags = Qt::WindowTitleHint | Qt::WindowSystemMenuHint);
    ~QExportWizard() override;

    void startup() override;
    void activate_next_sheet() override;
    void activate_previous_sheet() override;
    void update_navigation() override;

    /// Names of the chosen objects and attributes, in UTF-8.
    virtual std::vector<std::string> selectedGeoNames();
    virtual std::vector<std::string> selectedAttributeNames();
    /// Lets the user choose format and objects.
    virtual void setGeoSelectionMode();
    /// Presets format and objects; the wizard then starts behind the object selection.
    virtual void setFormatAndSelectedGeo(const std::string& key, const std::vector<int>& ids);
    /// Fills \a list with the attributes of the objects chosen for export. What the two flags select is the host's.
    virtual void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>& list, bool all, bool visible) = 0;

    std::vector<int> selectedGeoIds();
    void setDirectoryMode(bool directory);
    bool directoryMode() const;
    /// One saver per format that has a display name, in the order shown.
    const std::vector<boost::shared_ptr<AbstractSaver>>& savers();
    /// The saver of the format whose sheets are inserted; null until a format has been chosen.
    AbstractSaver* currentSaver() const;

    /// For savers: what the report shows, as HTML but for the name of the file. Before startup() there is no report,
    /// and these do nothing. A text outlives the run; the list of files does until clearErrorList().
    void setErrorMessage(const QString& text);
    void setErrorMessage(const QString& file, const QString& detail);
    void clearErrorList();
    void setWarnings(const QString& text);

    void setSaveMode();
    void setSaveModeComplete();
    void showInfoSheet();
    void showInfoSheetNoSuccess(bool cancelled);
    void saveCancelled();

public Q_SLOTS:
    /// Saves to \a path. \a userAlreadyAccepted: the user has agreed to replace the (first) file. The run ends in the
    /// report, also when the saver throws. Does nothing before startup().
    void slotSaveClicked(const QString& path, bool userAlreadyAccepted = false);
    void slotSaveCancelled();
    void onFileSelectionRequired();

protected:
    /// Lets the current sheet keep what it has to; Cancel and Escape lead here.
    void closeEvent(QCloseEvent* event) override;
    void populate_sheets() override;
    virtual void insertFileFormatDependentSheet();
    /// The user has agreed already to replace every file of the next run: it asks no more. Off at first.
    void setReplacingAgreed(bool agreed) { m_replacingAgreed = agreed; }

    QExportAbstractSheet::FileInfo fileCanBeSaved(const QString& fileName, bool& askAgain, bool single, bool ask);
    void checkFileNamesUserAccepted(const QStringList& names, const QString& path,
                                    const QExportAbstractSheet::InfoType& type, bool& askAgain,
                                    std::vector<QString>& accepted, bool single, bool userAlreadyAccepted);

private:
    std::string chosenFormatKey() const;
    AbstractSaver* saverOf(const std::string& key);
    void enterFileSelection();
    void saveSelfNamed(const QString& path);
    void saveNameFirst(const QString& path, bool userAlreadyAccepted);
    void addUncheckedFiles(const QStringList& names, QExportAbstractSheet::InfoType type);
    /// Ends a run that could not be carried through in its report.
    void endRun(const QString& cause);

    QExportSheetObjectSelection* m_objectSelection = nullptr;
    AdditionalListSheet* m_additionalListSheet = nullptr;
    QExportSheetSaveFile* m_fileSelection = nullptr;
    QExportSheetSaveInfo* m_report = nullptr;
    std::vector<boost::shared_ptr<AbstractSaver>> m_savers;
    boost::shared_ptr<AbstractSaver> m_currentSaver;
    bool m_formatPreset = false;
    std::string m_presetKey;
    std::vector<int> m_presetIds;
    bool m_directoryMode = false;
    bool m_replacingAgreed = false;
};

} // namespace kpBaseExport
