// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/data/kpUnits.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetGeosec;
}

namespace kpBaseExport
{

/// The options of the Geosec format: the unit, and whether horizons keep their names.
class KPBASEEXPORT_EXPORT QExportSheetGeosec : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetGeosec();
    ~QExportSheetGeosec() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    kpUnits units() const;
    /// Horizons are written under their own names.
    bool usesHorizonNames() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetGeosec> m_ui;
};

} // namespace kpBaseExport
