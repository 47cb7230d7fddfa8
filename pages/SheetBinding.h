// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "pages/AttributeChoice.h"
#include "pages/ControlBinding.h"
#include "pages/FormArea.h"
#include "pages/FormatSetup.h"
#include "pages/kpFormatsUiExport.h"

namespace kpFormats
{

/// Ties a page of the library to a format of this program. The form's controls show and set the format's settings;
/// settings that have no control, and the attributes where the page has no panel for them, get room beside the form.
/// What is set is what --set sets; it is remembered per format and stays when the user goes back and forth.
class KPFORMATSUI_EXPORT SheetBinding
{
public:
    /// A binding whose setting the format does not have disables its control. Format and model outlive the binding.
    SheetBinding(FormatSetup& setup, const Model& model, std::vector<ControlBinding> controls);

    /// Once the page has built its form.
    void attach(QWidget& page, kpBaseExport::QExportWizard* wizard);
    /// The page is entered; \a fillPage, which runs when the chosen objects are others than before, is the library's part.
    template <typename FillPage>
    void enter(FillPage fillPage)
    {
        if (!objectsChanged())
            return;
        if (m_ownPanel) {
            fillPage();
            m_attributes.refill();
        } else {
            m_attributes.refill(fillPage);
        }
        showUnits();
        FormArea::growWindow(*m_page);
    }
    bool isComplete() const;
    /// The page is left: settings are filled from the controls and remembered.
    void leave();

    const std::vector<const ModelObject*>& objects() const { return m_objects; }
    SettingsValue& settings() { return m_setup.settings; }
    QString summary() const;
    std::vector<std::string> selectedAttributeNames() const { return m_attributes.selectedNames(); }

private:
    bool objectsChanged();
    void arrange(QWidget& page);
    void showControl(const ControlBinding& binding);
    void readControl(const ControlBinding& binding);
    void showUnits();
    QStringList boundKeys() const;

    FormatSetup& m_setup;
    const Model& m_model;
    std::vector<ControlBinding> m_controls;
    AttributeChoice m_attributes;
    kpBaseExport::QExportWizard* m_wizard = nullptr;
    QWidget* m_page = nullptr;
    bool m_ownPanel = false;    ///< the attribute panel was added here
    bool m_unitIsUsers = false; ///< the length unit was chosen by the user
    bool m_entered = false;
    std::vector<int> m_ids;
    std::vector<const ModelObject*> m_objects;
};

} // namespace kpFormats
