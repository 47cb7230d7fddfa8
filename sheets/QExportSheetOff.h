// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/data/kpUnits.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetOff;
}

namespace kpBaseExport
{

/// The options of the Geomview OFF format, which holds one object per file: the unit, and what file names begin with.
class KPBASEEXPORT_EXPORT QExportSheetOff : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetOff();
    ~QExportSheetOff() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    kpUnits units() const;
    /// Stands in front of the name of each file; may be empty.
    QString filePrefix() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetOff> m_ui;
};

} // namespace kpBaseExport
