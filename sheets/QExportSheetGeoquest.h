// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/data/kpUnits.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetGeoquest;
}

namespace kpBaseExport
{

/// The options of the Geoquest format: the unit, and whether horizons keep their names.
class KPBASEEXPORT_EXPORT QExportSheetGeoquest : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetGeoquest();
    ~QExportSheetGeoquest() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    kpUnits units() const;
    /// Horizons are written under their own names.
    bool usesHorizonNames() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetGeoquest> m_ui;
};

} // namespace kpBaseExport
