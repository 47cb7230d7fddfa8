// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

namespace kpBaseExport
{

/// The page of the ZMap format, which has no options: an empty page.
class KPBASEEXPORT_EXPORT QExportSheetZMap : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    QExportSheetZMap();
    ~QExportSheetZMap() override;

    void initialize(const QString& key) override;

protected:
    using QExportAbstractOptionSheet::initialize;
};

} // namespace kpBaseExport
