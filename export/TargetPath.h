// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// Where an output goes, as the user named it.
class KPFORMATS_EXPORT TargetPath
{
public:
    explicit TargetPath(const QString& given);

    /// Whether the text says how to reach a database, such as "PG:host=... password=...". No message may repeat it.
    static bool isDatabase(const QString& given);

    /// The file that a link leads to.
    const QString& resolved() const { return m_resolved; }
    /// Whether it is written to as it is, without an end and without a way back: a device, a pipe, or what the process
    /// already has open, such as /dev/stdout.
    bool isStream() const { return m_stream; }
    /// \throws ExportError when nothing can be written to it
    void requireWritable() const;

private:
    QString m_given;
    QString m_resolved;
    bool m_stream;
};

} // namespace kpFormats
