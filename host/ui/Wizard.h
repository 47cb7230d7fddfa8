// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/AbstractSheetHandler.h"

#include <QDialog>

#include <memory>
#include <vector>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace kpBase
{

class WizardProgress;

/// A dialog that shows sheets as pages, with Back, Next and Close below and a progress bar during long work.
/// The dialog takes the page widgets as children when their sheets are added, so the sheets live as long as it does,
/// whether they stand in the sequence or have been taken out.
class KPHOST_UI_EXPORT Wizard : public QDialog, public AbstractSheetHandler
{
    Q_OBJECT

public:
    explicit Wizard(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~Wizard() override;

    /// Builds the sheets through populate_sheets() the first time and makes the first one current.
    void startup() override;

    /// Shows or hides Back and Next and gives Next its text.
    void show_next_previous(bool show, const QString& nextText);
    /// The close button reads "Cancel" from here on.
    void set_cancel_button_mode();
    /// Makes \a sheet current; with \a show its page is brought to the front.
    void activate_sheet(AbstractSheet* sheet, bool show);
    /// Appends \a sheet to the sequence.
    void add_sheet(AbstractSheet* sheet);
    /// Inserts \a sheet just before \a before; appends it when \a before is not in the sequence.
    void insert_sheet(AbstractSheet* sheet, AbstractSheet* before);
    /// Takes \a sheet out of the sequence; it is not deleted.
    void remove_sheet(AbstractSheet* sheet);
    /// The progress shown in this dialog. Owned by the wizard.
    WizardProgress* get_progress() const;

    void activate_next_sheet() override;
    void activate_previous_sheet() override;
    void update_navigation() override;

    QPushButton* nextButton() const;  ///< object name "nextButton"
    QPushButton* backButton() const;  ///< object name "backButton"
    QPushButton* closeButton() const; ///< object name "closeButton"

protected:
    /// Ends the dialog, whose result is rejected. During a run it stays open and the run is cancelled instead.
    void closeEvent(QCloseEvent* event) override;
    /// Closes the dialog.
    void reject() override;
    void set_current_sheet(AbstractSheet* sheet) override;

private:
    void link_sheets();
    void take_page(AbstractSheet* sheet);

    QLabel* m_title;
    QStackedWidget* m_pages;
    QPushButton* m_back;
    QPushButton* m_next;
    QPushButton* m_close;
    std::unique_ptr<WizardProgress> m_progress;
    std::vector<AbstractSheet*> m_sheets;
    bool m_populated = false;
};

} // namespace kpBase
