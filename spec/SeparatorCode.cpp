// SPDX-License-Identifier: MIT
#include "spec/SeparatorCode.h"

namespace kpBaseExport
{

int writerSeparator(QExportSpecification::Separator separator)
{
    switch (separator) {
    case QExportSpecification::Space:
        return 0;
    case QExportSpecification::Tab:
        return 1;
    case QExportSpecification::Comma:
        return 2;
    case QExportSpecification::SemiColon:
        return 3;
    }
    return 1;
}

} // namespace kpBaseExport
