// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractSheet.h"

#include <boost/shared_ptr.hpp>

namespace kpBaseExport
{

/// Base of the pages that hold the options of one format.
class KPBASEEXPORT_EXPORT QExportAbstractOptionSheet : public QExportAbstractSheet
{
public:
    QExportAbstractOptionSheet(const QExportAbstractOptionSheet&);
    QExportAbstractOptionSheet& operator=(const QExportAbstractOptionSheet&);
    ~QExportAbstractOptionSheet() override;

    /// Makes and initialises the sheet registered under \a key; null when there is none, when it cannot be made or
    /// when it is of another kind.
    /// The sheet lives as long as the dialog that shows it.
    static QExportAbstractOptionSheet* create_unmanaged(const std::string& key, QExportWizard* wizard,
                                                        const QString& text);
    /// The same, owned by the pointer.
    static boost::shared_ptr<QExportAbstractOptionSheet> create(const std::string& key, QExportWizard* wizard,
                                                                const QString& text);

    /// The chosen options in a few words, for hosts that list them. Not called by the library.
    virtual QString optionSummary() const = 0;

protected:
    explicit QExportAbstractOptionSheet(QExportWizard* wizard);
};

} // namespace kpBaseExport
