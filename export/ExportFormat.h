// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/FilePlan.h"
#include "export/Findings.h"
#include "export/SettingsMap.h"
#include "export/Verification.h"
#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace kpBase
{
class AbstractProgress;
}

namespace kpFormats
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
    bool valuesOfFeatures = false; ///< a line or polygon has one value of an attribute, not one for each vertex
    bool takesLayout = false;      ///< loadLayout() is for this format
};

/// One export format: used alike by the command line and by the wizard. A new format is one class derived from this
/// and one line in makeFormats().
class KPFORMATS_EXPORT ExportFormat
{
public:
    virtual ~ExportFormat() = default;

    virtual FormatInfo info() const = 0;
    /// The format's settings, bound to its settings struct.
    virtual SettingsMap settings() = 0;
    /// Takes a layout of fields saved in a file (".klf", ".fmt") and the settings in it.
    /// \throws SettingsError when the file holds none, or the format takes none
    virtual void loadLayout(const QString& path);
    /// Saves the layout that the next export uses, with the settings, so that loadLayout() gives the same bytes.
    /// \returns false when there is none, or the file cannot be written
    virtual bool saveLayout(const QString& path);
    /// The files that a run writes, under their final names, and what goes into each.
    virtual std::vector<PlannedFile> plan(const ExportSelection& selection) const = 0;
    /// Every extension, without dot, of the files that can stand beside a file of this format and belong to it.
    virtual QStringList sidecars() const { return {}; }
    /// A rough guess of a file's size, for a look at what fits on the disk.
    virtual qint64 estimatedBytes(const PlannedFile& file, const ExportSelection& selection) const;
    /// Looks, without writing, for what write() will refuse in a file, and notes in \a findings what it will not carry, as
    /// far as a look at the objects tells that costs next to nothing beside writing them. Both the plan and the run ask
    /// this first.
    /// \throws ObjectError when one object cannot be written but the others can; ExportError, std::exception
    virtual void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const;
    /// Writes one file to \a path, which has the final name but lies in a folder of its own, and its sidecars beside
    /// it. Everything that is in the folder afterwards moves to the final place together; an earlier sidecar that was
    /// not written again goes. Stops early when the user cancels.
    /// \returns the number of rows, features or cells written
    /// \throws ObjectError when one object cannot be written but the others can; ExportError, std::exception
    virtual qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                         Findings& findings, kpBase::AbstractProgress* progress) = 0;
    /// Reads the file that write() left at \a path by another route and compares it with the source.
    virtual Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection);
};

/// Every format of this program, in the order listed.
KPFORMATS_EXPORT std::vector<std::unique_ptr<ExportFormat>> makeFormats();

} // namespace kpFormats
