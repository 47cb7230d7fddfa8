// SPDX-License-Identifier: MIT
#include "export/ExportError.h"

namespace kpFormats
{

ExportError::ExportError(const QString& file, const QString& cause, const QString& cure)
    : std::runtime_error(QStringLiteral("%1: %2 (%3)").arg(file, cause, cure).toStdString())
    , m_file(file)
    , m_reason(QStringLiteral("%1 (%2)").arg(cause, cure))
{
}

} // namespace kpFormats
