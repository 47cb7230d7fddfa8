// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <stdexcept>

namespace kpFormats
{

/// An output that could not be written. what() is "FILE: what is wrong (what to do)".
class KPFORMATS_EXPORT ExportError : public std::runtime_error
{
public:
    ExportError(const QString& file, const QString& cause, const QString& cure)
        : std::runtime_error(QStringLiteral("%1: %2 (%3)").arg(file, cause, cure).toStdString())
        , m_file(file)
        , m_reason(QStringLiteral("%1 (%2)").arg(cause, cure))
    {
    }

    const QString& file() const { return m_file; }
    /// Cause and cure without the file.
    const QString& reason() const { return m_reason; }

private:
    QString m_file;
    QString m_reason;
};

} // namespace kpFormats
