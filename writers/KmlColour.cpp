// SPDX-License-Identifier: MIT
#include "writers/KmlColour.h"

#include <QColor>

namespace kpBaseExport
{

std::string kmlColour(const char* alpha, const QColor& colour)
{
    const QColor shown = colour.isValid() ? colour : QColor(Qt::white);
    std::string text = alpha;
    for (const int component : {shown.blue(), shown.green(), shown.red()}) {
        constexpr char digits[] = "0123456789abcdef";
        text += digits[component / 16];
        text += digits[component % 16];
    }
    return text;
}

} // namespace kpBaseExport
