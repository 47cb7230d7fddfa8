// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/kml/KmlExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

class ProgressTicker;

/// KML 2.1 for globe viewers: placemarks in WGS 84, surfaces as pictures laid on the ground. A picture stands beside the
/// file, or in it when it is a .kmz.
class KPFORMATS_EXPORT KmlFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    QStringList sidecars() const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

private:
    bool archived(const QString& path) const;
    void requireSystems(const PlannedFile& file) const;
    void requireDrawable(const PlannedFile& file) const;
    qint64 writeDocument(const PlannedFile& file, const QString& document, const ExportSelection& selection,
                         Findings& findings, ProgressTicker& ticker) const;

    KmlExportSettings m_settings;
    /// Whether the files last planned are archives by their name; those of one plan share it.
    mutable bool m_archivesPlanned = false;
};

} // namespace kpFormats
