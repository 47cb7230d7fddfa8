// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FilePlan.h"
#include "export/Findings.h"
#include "export/FormatInfo.h"
#include "export/Verification.h"
#include "model/kpFormatsExport.h"

#include <QStringList>

#include <optional>

namespace kpBase
{
class AbstractProgress;
}

namespace kpFormats
{

/// One file of an export with everything that is known of it before it is written. What prepare() found out and noted,
/// write() does not look for again.
class KPFORMATS_EXPORT PreparedFile
{
public:
    /// The selection outlives this, as do the objects.
    PreparedFile(PlannedFile file, const ExportSelection& selection);
    virtual ~PreparedFile();
    PreparedFile(const PreparedFile&) = delete;
    PreparedFile& operator=(const PreparedFile&) = delete;

    const PlannedFile& file() const { return m_file; }
    const ExportSelection& selection() const { return m_selection; }

    /// Every extension, without dot, of the files that can stand beside this one and belong to it.
    virtual QStringList sidecars() const { return {}; }
    /// Paths of those that stand there now.
    QStringList earlierSidecars() const;
    /// Writes the file to \a path, which has the final name but lies in a folder of its own, and its sidecars beside
    /// it. Everything that is in the folder afterwards moves to the final place together; an earlier sidecar that was
    /// not written again goes. Notes what only the values show. Stops early when the user cancels.
    /// \returns the number of rows, features or cells written
    /// \throws ObjectError when one object cannot be written but the others can; ExportError, std::exception
    virtual qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) = 0;
    /// Reads the file at \a path by another route than write() and compares it with the source. Nothing for a format
    /// that has no other route: then the report says that the file was not verified.
    virtual std::optional<Verification> verify(const QString& path) const;

private:
    PlannedFile m_file;
    const ExportSelection& m_selection;
};

} // namespace kpFormats
