// SPDX-License-Identifier: MIT
#pragma once

#include "core/BlockStream.h"
#include "model/kpFormatsExport.h"

#include <QString>

#include <fstream>
#include <string>

namespace kpFormats
{

/// A text file that is written in blocks: callers append to text() and call check() now and then. Every failure to
/// write is noticed.
class KPFORMATS_EXPORT BlockWriter
{
public:
    /// \a path is what is opened, \a target the final name, for messages.
    /// \throws ExportError
    BlockWriter(const QString& path, const QString& target);

    std::string& text() { return m_block.text(); }
    /// Writes the text when there is enough of it. \throws ExportError
    void check();
    /// Writes what is left and closes. \throws ExportError
    void close();

private:
    std::filebuf m_file;
    kpBaseExport::BlockStream m_block;
    QString m_target;
};

/// Appends the shortest text that reads as the same number again; never depends on the locale.
KPFORMATS_EXPORT void appendShortest(std::string& text, double value);
KPFORMATS_EXPORT void appendInteger(std::string& text, qint64 value);

} // namespace kpFormats
