// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "formats/ogr/OgrExportSettings.h"
#include "formats/ogr/OgrOutput.h"
#include "formats/ogr/OgrTraits.h"
#include "model/kpFormatsExport.h"
#include "ogr/OGRExporterOptions.h"

#include <QCoreApplication>

#include <gdal_priv.h>

namespace kpFormats
{

/// What the vector formats that are written through OGR share: objects become features of layers by geometry type,
/// attributes become fields, the result is opened again and counted.
class KPFORMATS_EXPORT OgrFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::OgrFormat)

public:
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;

    // What an output asks of its format.

    virtual OgrTraits traits() const = 0;
    /// Extensions that a file may have, the usual one first.
    virtual QStringList extensions() const = 0;
    /// Extensions of the files that belong to it.
    virtual QStringList sidecars() const { return {}; }
    /// The systems of an output. \throws ExportError
    virtual OgrSystems systems(const PlannedFile& file, const ExportSelection& selection,
                               const OgrExportSettings& settings) const;
    /// The system as the file will say it. Notes in \a findings what it cannot say.
    virtual WrittenSystem writtenSystem(OgrOutput& output, Findings& findings) const;
    /// What else the driver will refuse. \throws ExportError
    virtual void requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const;
    /// Creation options of the driver, made for the data. Stops early when the user cancels.
    virtual void tune(OgrOutput& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
                      const kpBase::AbstractProgress* progress) const;
    /// WKT written where the objects have no system.
    virtual QString noSystem() const { return {}; }
    /// What was written, for reading it again; null and a message of GDAL's when it is none.
    virtual GDALDatasetUniquePtr open(const QString& path) const;
    /// Whether all that was written is there: GDAL closes files without a word when the disk is full.
    /// \throws ExportError
    virtual void check(const OgrOutput& output, Findings& findings) const;
    /// Adds what the format makes better than its driver, such as an index of places. Stops early when the user cancels.
    /// \throws ExportError
    virtual void complete(const OgrOutput&, const kpBase::AbstractProgress*) const {}
    /// Adds the style that goes with the file. \throws ExportError
    virtual void addStyle(const OgrOutput& output, Findings& findings) const;

protected:
    /// Opens what was written and counts the features of each layer. \throws ExportError
    void openAndCount(const OgrOutput& output, Findings& findings) const;
    FormatInfo vectorInfo() const;
    /// The settings that all share.
    static SettingsTable commonSettings();
    /// The first system among the selection, or that of the setting. \throws ExportError
    static QString chosenSystem(const PlannedFile& file, const ExportSelection& selection,
                                const OgrExportSettings& settings);
};

} // namespace kpFormats
