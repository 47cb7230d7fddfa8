// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"
#include "host/ui/AbstractSheet.h"

#include <string>

namespace kpBaseExport
{

class QExportWizard;

/// A page of the export wizard that knows its wizard and the key under which it was made.
class KPBASEEXPORT_EXPORT QExportAbstractSheet : public kpBase::AbstractSheet
{
public:
    /// What a written file holds.
    enum InfoType { GEO_DATA = 0, ATTRIBUTE_DATA = 1, GEO_AND_ATTRIBUTE_DATA = 2, OTHER_FILE = 3 };

    /// The outcome for one output file.
    enum FileInfo {
        ACCEPTED = 0,
        ACCEPTED_OVERWRITTEN = 1,
        USER_DID_NOT_ACCEPT_OVERWRITING = 2,
        NO_WRITE_PERMISSION = 3,
        NO_CREATE_PERMISSION = 4
    };

    QExportAbstractSheet(const QExportAbstractSheet&);
    QExportAbstractSheet& operator=(const QExportAbstractSheet&);
    ~QExportAbstractSheet() override;

    /// The key under which the sheet was made; empty for a sheet made without one.
    virtual const std::string& key() const;
    /// Builds the sheet's widgets; does nothing here.
    virtual void initialize(const QString& text);

protected:
    explicit QExportAbstractSheet(QExportWizard* wizard);

    /// Hands the sheet to \a wizard (which may be null), then calls initialize(text).
    virtual void initialize(QExportWizard* wizard, const QString& text);

    QExportWizard* m_wizard; ///< not owned, may be null
    std::string m_key;

    // Sheets made by key are initialised by whoever made them.
    friend class QExportAbstractOptionSheet;
    friend class QExportWizard;
};

} // namespace kpBaseExport
