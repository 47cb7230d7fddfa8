// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Eclipse GRDECL: one corner-point grid per file with MAPUNITS, MAPAXES, GRIDUNIT, SPECGRID, COORD, ZCORN, ACTNUM and
/// a keyword per cell attribute. Depths count downwards.
/// The format: https://docs.opengosim.com/manual/input_deck/grid/grdecl and
/// http://docs.energistics.org/RESQML/RESQML_TOPICS/RESQML-000-292-0-C-sv2010.html
class KPFORMATS_EXPORT GrdeclFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::GrdeclFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
