// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"

#include <QWidget>

class QSpinBox;

namespace kpBaseExport
{
class QExportAttributeWidget;
}

/// A page of this host's own: the decimals, and the library's panel for the choice of attributes.
class PointSheet : public QWidget,
                   public kpBaseExport::QExportAbstractOptionSheet,
                   public kpBaseExport::AttributeNamesSheet
{
    Q_OBJECT

public:
    PointSheet();

    void initialize(const QString& key) override;
    void activate() override;
    QString optionSummary() const override;
    std::vector<std::string> selectedAttributeNames() override;

    int decimals() const;

protected:
    using QExportAbstractOptionSheet::initialize;

private:
    QSpinBox* m_decimals = nullptr;
    kpBaseExport::QExportAttributeWidget* m_attributes = nullptr;
};
