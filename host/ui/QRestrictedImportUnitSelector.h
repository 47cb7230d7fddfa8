// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/QImportUnitSelector.h"

/// The selector of formats that know metres and feet only.
class KPHOST_UI_EXPORT QRestrictedImportUnitSelector : public QImportUnitSelector
{
    Q_OBJECT

public:
    explicit QRestrictedImportUnitSelector(QWidget* parent = nullptr);
};
