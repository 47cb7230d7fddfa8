// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/data/kpUnits.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetFlexDecomp;
}

namespace kpBaseExport
{

/// The options of the FlexDecomp format: the unit, and whether horizons get more vertices on the way.
class KPBASEEXPORT_EXPORT QExportSheetFlexDecomp : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetFlexDecomp();
    ~QExportSheetFlexDecomp() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    kpUnits units() const;
    /// Horizons are sampled anew at sampleInterval().
    bool upsamplesHorizons() const;
    /// Distance of the samples in metres, 0 to 1000.
    double sampleInterval() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetFlexDecomp> m_ui;
};

} // namespace kpBaseExport
