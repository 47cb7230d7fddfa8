// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace refhost
{

/// Replaces files all or nothing. Outputs are written under temporary names beside their targets; commit() makes them
/// durable and renames them over the targets. Destroyed without commit(), nothing has changed.
/// A target that is a device is written directly: there is nothing to rename.
class OutputTransaction
{
public:
    OutputTransaction() = default;
    ~OutputTransaction();
    OutputTransaction(const OutputTransaction&) = delete;
    OutputTransaction& operator=(const OutputTransaction&) = delete;

    /// The path to write in place of \a target.
    /// \throws ExportError when the directory is missing or closed to writing, or the target is a directory
    QString stage(const QString& target);
    /// Drops what was staged for \a target.
    void drop(const QString& target);
    /// Renames everything that was staged. On a failure the targets renamed before are brought back.
    /// \throws ExportError
    void commit();

private:
    struct Entry
    {
        QString target;    ///< as the user named it
        QString resolved;  ///< with symbolic links followed
        QString temporary; ///< equal to resolved for a device
        QString backup;    ///< the earlier file while commit() runs
    };

    void putIntoPlace(Entry& entry);

    std::vector<Entry> m_entries;
};

} // namespace refhost
