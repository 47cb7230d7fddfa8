// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/grdecl/GrdeclExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Eclipse GRDECL: one corner-point grid per file with MAPUNITS, MAPAXES, GRIDUNIT, SPECGRID, COORD, ZCORN, ACTNUM and
/// a keyword per cell attribute. Depths count downwards.
/// The format: https://docs.opengosim.com/manual/input_deck/grid/grdecl and
/// http://docs.energistics.org/RESQML/RESQML_TOPICS/RESQML-000-292-0-C-sv2010.html
class KPFORMATS_EXPORT GrdeclFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

private:
    void noteUnit(const ModelObject& object, OutputUnit unit, Findings& findings) const;

    GrdeclExportSettings m_settings;
};

} // namespace kpFormats
