// SPDX-License-Identifier: MIT
#include "readers/LoadError.h"

namespace kpFormats
{

LoadError::LoadError(const QString& file, const QString& cause, const QString& cure)
    : std::runtime_error(QStringLiteral("%1: %2 (%3)").arg(file, cause, cure).toStdString())
{
}

} // namespace kpFormats
