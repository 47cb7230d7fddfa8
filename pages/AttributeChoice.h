// SPDX-License-Identifier: MIT
#pragma once

#include "pages/kpFormatsUiExport.h"

#include <QStringList>

#include <string>
#include <vector>

class QListWidget;
class QWidget;

namespace kpBaseExport
{
class QExportAttributeWidget;
class QExportWizard;
} // namespace kpBaseExport

namespace kpFormats
{

/// The library's attribute panel on a page of ours: what the user has unchecked stays unchecked when the list is filled
/// anew for other objects.
class KPFORMATSUI_EXPORT AttributeChoice
{
public:
    /// A new panel, a child of \a page.
    static kpBaseExport::QExportAttributeWidget* newPanel(kpBaseExport::QExportWizard* wizard, QWidget* page);

    /// \a panel is owned by its page; both may be null, and then nothing is chosen.
    void attach(kpBaseExport::QExportAttributeWidget* panel, kpBaseExport::QExportWizard* wizard);
    kpBaseExport::QExportAttributeWidget* panel() const { return m_panel; }

    /// Fills the list for the wizard's objects, by \a fill where the page does it itself.
    void refill();
    template <typename Fill>
    void refill(Fill fill)
    {
        const QStringList unchecked = uncheckedNames();
        fill();
        uncheck(unchecked);
    }
    /// Names of the checked attributes in UTF-8. The panel shows names that differ in case only once; all of them go out.
    std::vector<std::string> selectedNames() const;

private:
    QListWidget* list() const;
    QStringList uncheckedNames();
    void uncheck(const QStringList& names);
    void showWarning();

    kpBaseExport::QExportAttributeWidget* m_panel = nullptr;
    kpBaseExport::QExportWizard* m_wizard = nullptr;
    QStringList m_unchecked; ///< by the user, also of objects that are not chosen at the moment
};

} // namespace kpFormats
