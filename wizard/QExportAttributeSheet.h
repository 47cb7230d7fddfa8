// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

namespace kpBaseExport
{

class QExportAttributeWidget;

/// The page that holds nothing but the attribute panel, for formats without options of their own. The host registers a
/// class derived from it under "QExportAttributeSheetImpl".
class KPBASEEXPORT_EXPORT QExportAttributeSheet : public QWidget,
                                                  public QExportAbstractOptionSheet,
                                                  public AttributeNamesSheet
{
    Q_OBJECT

public:
    QExportAttributeSheet();

    void initialize(const QString& key) override;
    void startup() override;
    void activate() override;
    bool isComplete() const override;
    virtual void setDataInformation();

    std::vector<std::string> selectedAttributeNames() override;
    void setAllFlag(bool all);
    void setVisibleFlag(bool visible);

protected:
    using QExportAbstractOptionSheet::initialize;

    QExportAttributeWidget* m_panel; ///< child of the sheet
};

} // namespace kpBaseExport
