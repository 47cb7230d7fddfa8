// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/data/kpUnits.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetLocace;
}

namespace kpBaseExport
{

/// The options of the Locace format: the unit, and how much stands in front of each segment.
class KPBASEEXPORT_EXPORT QExportSheetLocace : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetLocace();
    ~QExportSheetLocace() override;

    void initialize(const QString& key) override;
    bool isComplete() const override;

    kpUnits units() const;
    /// Each segment gets its full header.
    bool writesSegmentHeaders() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetLocace> m_ui;
};

} // namespace kpBaseExport
