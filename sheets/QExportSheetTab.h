// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSheetTab;
}

namespace kpBaseExport
{

/// The options of the MapInfo TAB format: what goes out beside the geometry.
class KPBASEEXPORT_EXPORT QExportSheetTab : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetTab();
    ~QExportSheetTab() override;

    void initialize(const QString& key) override;
    void startup() override;
    void activate() override;
    /// True once the page has been built.
    bool isComplete() const override;

    bool writesAttributes() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    std::unique_ptr<Ui::QExportSheetTab> m_ui;
    bool m_complete = false;
};

} // namespace kpBaseExport
