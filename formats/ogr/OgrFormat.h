// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/ogr/OgrExportSettings.h"
#include "formats/ogr/OgrSystems.h"
#include "formats/ogr/OgrTable.h"
#include "model/kpFormatsExport.h"
#include "ogr/OGRExporterOptions.h"

#include <vector>

namespace kpFormats
{

/// What the vector formats that are written through OGR share: objects become features of layers by geometry type,
/// attributes become fields, the result is opened again and counted.
class KPFORMATS_EXPORT OgrFormat : public ExportFormat
{
public:
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

protected:
    /// One file on its way.
    struct Output
    {
        const PlannedFile& file;
        QString path; ///< where it is written
        std::vector<OgrLayer> layers;
        std::vector<OgrTable> tables;
        std::vector<qint64> features; ///< made per layer
        OgrSystems systems;
    };

    virtual OgrTraits traits() const = 0;
    /// Extensions that a file may have, the usual one first.
    virtual QStringList extensions() const = 0;
    /// The systems of an output. \throws ExportError
    virtual OgrSystems systems(const PlannedFile& file, const ExportSelection& selection) const;
    /// What else the driver will refuse. \throws ExportError
    virtual void requireHoldable(const PlannedFile& file, const std::vector<OgrLayer>& layers) const;
    /// Creation options of the driver, made for the data. Stops early when the user cancels.
    virtual void tune(Output& output, kpBaseExport::OGRExporterOptions& options, Findings& findings,
                      const kpBase::AbstractProgress* progress) const;
    /// WKT written where the objects have no system.
    virtual QString noSystem() const { return {}; }
    /// Whether all that was written is there: GDAL closes files without a word when the disk is full.
    /// \throws ExportError
    virtual void check(const Output& output, Findings& findings) const;

    /// Adds the style that goes with the file. \throws ExportError
    virtual void addStyle(const Output& output, Findings& findings) const;

    /// Opens what was written and counts the features of each layer. \throws ExportError
    void openAndCount(const Output& output, Findings& findings) const;
    FormatInfo vectorInfo() const;
    /// The settings that all share.
    SettingsMap commonSettings();
    /// The first system among the selection, or that of the setting. \throws ExportError
    QString chosenSystem(const PlannedFile& file, const ExportSelection& selection) const;

    OgrExportSettings m_settings;

private:
    Output prepare(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                   const kpBase::AbstractProgress* progress) const;
    void noteSystems(const PlannedFile& file, OgrSystems& systems, Findings& findings) const;
};

/// Throws that the file could not be written completely. \throws ExportError
[[noreturn]] KPFORMATS_EXPORT void failIncomplete(const QString& file, const QString& why);

} // namespace kpFormats
