// SPDX-License-Identifier: MIT
#pragma once

#include "export/FilePlan.h"
#include "export/FormatInfo.h"
#include "export/PreparedFile.h"
#include "export/SettingsValue.h"
#include "model/kpFormatsExport.h"

#include <memory>
#include <vector>

namespace kpFormats
{

/// One export format. It has no state: objects and settings are passed to it, by the command line, the wizard and a
/// host's own code alike. A new format is one class derived from this and one line in a list of formats.
class KPFORMATS_EXPORT Format
{
public:
    virtual ~Format() = default;

    virtual FormatInfo info() const = 0;
    /// The members of the format's settings struct.
    virtual SettingsTable settings() const = 0;
    /// The settings that an export has of itself.
    SettingsValue defaults() const { return SettingsValue(settings()); }
    /// Takes a layout of fields saved in a file (".klf", ".fmt") and the settings in it.
    /// \throws SettingsError when the file holds none, or the format takes none
    virtual void loadLayout(const QString& path, SettingsValue& settings) const;
    /// The bytes of a file that loadLayout() takes, with the other settings, so that it gives the same bytes; empty when
    /// the settings have no layout.
    virtual QByteArray layoutBytes(const SettingsValue& settings) const;
    /// Sets what the user has asked for in so many words, also against what a layout says.
    /// \throws SettingsError when it cannot be, or contradicts the layout
    virtual void overrule(SettingsValue& settings, const QString& key, const QString& value) const;

    /// Whether the settings go together. \throws SettingsError
    virtual void requireUsable(const SettingsValue&) const {}
    /// The files of an export, under their final names, and what goes into each.
    virtual std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const = 0;
    /// Looks, without writing, for what is refused of a file, and notes what it will not carry, as far as a look at the
    /// objects tells that costs next to nothing beside writing them. The selection outlives the result.
    /// \throws ObjectError when one object cannot be written but the others can; ExportError, std::exception
    virtual std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                                  const SettingsValue& settings, Findings& findings) const = 0;
};

using Formats = std::vector<std::unique_ptr<const Format>>;

/// Every format of the kit, in the order listed.
KPFORMATS_EXPORT Formats makeFormats();

} // namespace kpFormats
