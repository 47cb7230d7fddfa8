// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportReport.h"
#include "app/jobs/SettingsMap.h"
#include "app/model/ModelObject.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace kpBase
{
class AbstractProgress;
}

namespace refhost
{

/// What a format is, for lists, dialogs and docs.
struct FormatInfo
{
    QString key;              ///< "ascii"
    QString displayName;      ///< "ASCII (delimited or fixed columns)"
    QString fileFormatName;   ///< "ASCII", in file dialogs
    QString defaultExtension; ///< "csv"
    QString patterns;         ///< "*.csv *.txt"
    std::vector<ObjectType> types;
    bool supportsAttributes = true;
};

/// What to export and where to.
struct ExportSelection
{
    std::vector<const ModelObject*> objects;
    std::optional<QStringList> attributes; ///< only these; all when not set
    QString path;                          ///< as the user gave it
};

/// One file of a run and the objects that go into it.
struct PlannedFile
{
    QString path;
    std::vector<const ModelObject*> objects;
};

/// One export format: used alike by the command line and by the wizard. A new format is one class derived from this
/// and one line in makeFormats().
class ExportFormat
{
public:
    virtual ~ExportFormat() = default;

    virtual FormatInfo info() const = 0;
    /// The format's settings, bound to its settings struct.
    virtual SettingsMap settings() = 0;
    /// The files that a run writes, under their final names, and what goes into each.
    virtual std::vector<PlannedFile> plan(const ExportSelection& selection) const = 0;
    /// Writes one file to \a path (a temporary name). Stops early when the user cancels.
    /// \returns the number of rows, features or cells written
    /// \throws ExportError, std::exception
    virtual qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                         ExportReport& report, kpBase::AbstractProgress* progress) = 0;
};

/// Every format of this program, in the order listed.
std::vector<std::unique_ptr<ExportFormat>> makeFormats();

} // namespace refhost
