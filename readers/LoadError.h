// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <stdexcept>

namespace kpFormats
{

/// A file that could not be loaded: "FILE: what is wrong (what to do)".
class KPFORMATS_EXPORT LoadError : public std::runtime_error
{
public:
    LoadError(const QString& file, const QString& cause, const QString& cure)
        : std::runtime_error(QStringLiteral("%1: %2 (%3)").arg(file, cause, cure).toStdString())
    {
    }
};

} // namespace kpFormats
