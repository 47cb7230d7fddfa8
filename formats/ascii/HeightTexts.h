// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/DoubleMatrixData.h"
#include "host/data/MatrixData.h"
#include "model/ModelObject.h"

namespace kpFormats
{

/// Heights as they are written, an empty text for one that is missing.
class HeightTexts : public kpBase::MatrixData
{
public:
    HeightTexts(Numbers heights, kpBase::DoubleMatrixData::Missing missing, int decimals, bool asDepths);

    QString name() const override { return QStringLiteral("Z"); }
    QString geoType() const override { return {}; }
    QString colorHexaString() const override { return {}; }
    QString colorHexaString(int, int) const override { return {}; }
    int rowCount() const override { return static_cast<int>(m_heights->size()); }
    QVariant value(int row, int column) const override;

private:
    Numbers m_heights;
    kpBase::DoubleMatrixData::Missing m_missing;
    int m_decimals;
    bool m_asDepths;
};

} // namespace kpFormats
