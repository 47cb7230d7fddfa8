// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FileGrouping.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// One file of a run and the objects that go into it.
struct PlannedFile
{
    QString path;
    std::vector<const ModelObject*> objects;
    QString renamedFrom =
        QString(); ///< name of the object or set that the file is named after, where its own had to differ
};

/// \a path with the extension, unless it has one of its own.
KPFORMATS_EXPORT QString withExtension(const QString& path, const QString& extension);

/// The files of a run. Several files are named after the path and the object or set; names that would clash, also
/// where case does not count, are numbered. Where \a path is a directory, the files go into it under the object's or
/// set's name alone, after \a prefix.
KPFORMATS_EXPORT std::vector<PlannedFile> planFiles(const ExportSelection& selection, FileGrouping grouping,
                                                    const QString& extension, const QString& prefix = QString());

/// One file per object, for formats that hold no more: a single object goes into \a path itself, unless that is a
/// directory.
KPFORMATS_EXPORT std::vector<PlannedFile> planOneEach(const ExportSelection& selection, const QString& extension,
                                                      const QString& prefix = QString());

} // namespace kpFormats
