// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedExport.h"
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

/// The plan of an export: a view of what was found out when it was prepared.
KPFORMATS_EXPORT ExportPlan planOf(const PreparedExport& prepared);

} // namespace kpFormats
