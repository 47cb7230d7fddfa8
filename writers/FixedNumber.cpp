// SPDX-License-Identifier: MIT
#include "writers/FixedNumber.h"

#include "writers/DecimalDigits.h"

#include <QByteArray>

namespace kpBaseExport
{

void appendFixed(std::string& text, double value, int precision)
{
    std::uint64_t number = 0;
    if (DecimalDigits::scaledMagnitude<DecimalDigits::Tie::AwayFromZero>(value, precision, number)) {
        DecimalDigits::appendScaled(text, value < 0.0, number, precision);
        return;
    }
    const QByteArray slow = QByteArray::number(value, 'f', precision);
    text.append(slow.constData(), static_cast<std::size_t>(slow.size()));
}

} // namespace kpBaseExport
