// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetShp;
}

namespace kpBaseExport
{

/// The options of the ESRI Shapefile format: what goes out beside the geometry.
class KPBASEEXPORT_EXPORT QExportSheetShp : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetShp();
    ~QExportSheetShp() override;

    void initialize(const QString& key) override;
    void startup() override;
    void activate() override;
    /// True once the page has been built.
    bool isComplete() const override;

    bool writesAttributes() const;
    /// A style file is written beside the data.
    bool writesSymbology() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetShp> m_ui;
    bool m_complete = false;
};

} // namespace kpBaseExport
