// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractSheet.h"

#include <QString>

#include <vector>

namespace kpBaseExport
{

/// One file of a report.
struct ReportEntry
{
    QString name;
    QExportAbstractSheet::FileInfo state;
};

/// The HTML pieces of the save report. File names are escaped; warnings and messages are HTML already.
namespace ReportHtml
{

/// Font tags of the report.
KPBASEEXPORT_EXPORT const QString& blueTag();
KPBASEEXPORT_EXPORT const QString& blackTag();
KPBASEEXPORT_EXPORT const QString& redTag();

/// What the report says of an outcome; empty for a value that is none.
KPBASEEXPORT_EXPORT QString stateText(QExportAbstractSheet::FileInfo state);
/// The font tag of an outcome.
KPBASEEXPORT_EXPORT QString stateTag(QExportAbstractSheet::FileInfo state);

/// A table of files under a title; empty when there are no files.
KPBASEEXPORT_EXPORT QString table(const QString& title, const std::vector<ReportEntry>& entries);

} // namespace ReportHtml

} // namespace kpBaseExport
