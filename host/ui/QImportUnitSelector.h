// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpUnits.h"
#include "host/ui/kpHostUiExport.h"

#include <QWidget>

class QComboBox;
class QRadioButton;

/// Lets the user choose the length unit and whether z is written as elevation or as depth.
class KPHOST_UI_EXPORT QImportUnitSelector : public QWidget
{
    Q_OBJECT

public:
    explicit QImportUnitSelector(QWidget* parent = nullptr);

    /// A code of kpUnits::ZDirection; ElevationOrDepth (64) keeps the user's choice.
    void gdf_setZDirection(int code);
    /// Whether the user may choose between elevation and depth.
    void enableElevationDepth(bool enable);
    kpUnits getUnits() const;
    void setUnits(const kpUnits& units);

Q_SIGNALS:
    void unitsChanged();

private:
    QComboBox* m_lengthUnit;
    QRadioButton* m_elevation;
    QRadioButton* m_depth;
};
