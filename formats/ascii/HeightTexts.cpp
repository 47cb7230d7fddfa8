// SPDX-License-Identifier: MIT
#include "formats/ascii/HeightTexts.h"

#include "writers/FixedNumber.h"

#include <string>
#include <utility>

namespace kpFormats
{

HeightTexts::HeightTexts(Numbers heights, kpBase::DoubleMatrixData::Missing missing, int decimals, bool asDepths)
    : MatrixData(String)
    , m_heights(std::move(heights))
    , m_missing(std::move(missing))
    , m_decimals(decimals)
    , m_asDepths(asDepths)
{
}

QVariant HeightTexts::value(int row, int column) const
{
    const auto index = static_cast<std::size_t>(row);
    if (row < 0 || row >= rowCount() || column != 0 || (*m_missing)[index] != 0)
        return QString();
    std::string text;
    kpBaseExport::appendFixed(text, m_asDepths ? -(*m_heights)[index] : (*m_heights)[index], m_decimals);
    return QString::fromStdString(text);
}

} // namespace kpFormats
