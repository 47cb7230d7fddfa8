// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "export/ExportReport.h"
#include "model/kpFormatsExport.h"

#include <QJsonObject>

namespace kpFormats
{

/// What a run would write: to look at before it does.
struct KPFORMATS_EXPORT ExportPlan
{
    struct Output
    {
        QString path;
        QString renamedFrom; ///< the name asked for, when the file's had to differ
        QStringList objects;
        bool replaces = false; ///< the file exists
        QStringList sidecars;  ///< files that belong to it, exist and are replaced or removed with it
        qint64 vertices = 0;   ///< that go in, and cells of grids
        qint64 bytes = 0;      ///< a rough guess
    };

    std::vector<Output> outputs;
    ExportReport foreseen; ///< what the run will refuse, an outcome for each output, and what it will not carry
    qint64 freeBytes = -1; ///< on the output's disk; -1 when it is not known

    int replaced() const;
    /// Files that will be refused.
    int refused() const;
    qint64 bytes() const;
    /// One line about all: files, replaced files, size against free space.
    QString summary() const;
    QJsonObject toJson(const QString& formatKey) const;
};

/// \a foreseen is what is known to be lost before there is a plan.
KPFORMATS_EXPORT ExportPlan makePlan(const ExportFormat& format, const ExportSelection& selection,
                                     const std::vector<PlannedFile>& files,
                                     const ExportReport& foreseen = ExportReport());

/// A size for people: "12.3 MB".
KPFORMATS_EXPORT QString sizeText(qint64 bytes);

} // namespace kpFormats
