// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/data/kpUnits.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetLandmark;
}

namespace kpBaseExport
{

/// The options of the Landmark format: the unit, and whether horizons keep their names.
class KPBASEEXPORT_EXPORT QExportSheetLandmark : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetLandmark();
    ~QExportSheetLandmark() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    kpUnits units() const;
    /// Horizons are written under their own names.
    bool usesHorizonNames() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetLandmark> m_ui;
};

} // namespace kpBaseExport
