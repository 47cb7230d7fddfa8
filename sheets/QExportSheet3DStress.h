// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpUnits.h"
#include "sheets/FileGroupingSheet.h"

#include <memory>

namespace Ui
{
class QExportSheet3DStress;
}

namespace kpBaseExport
{

/// The options of the 3DStress format: the unit, and one file or several.
class KPBASEEXPORT_EXPORT QExportSheet3DStress : public FileGroupingSheet
{
    Q_OBJECT

public:
    QExportSheet3DStress();
    ~QExportSheet3DStress() override;

    void initialize(const QString& key) override;

    kpUnits units() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheet3DStress> m_ui;
};

} // namespace kpBaseExport
