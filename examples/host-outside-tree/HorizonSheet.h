// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/QExportSheetGeosec.h"

/// A page of the library, made concrete: unit, elevation or depth, and whether horizons keep their names.
class HorizonSheet : public kpBaseExport::QExportSheetGeosec
{
    Q_OBJECT

public:
    QString optionSummary() const override;
};
