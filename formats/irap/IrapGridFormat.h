// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "formats/irap/IrapGrid.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Irap classic grid: one regular grid per file, turned or not, row by row from its origin.
/// The format: the datamodel of regular surfaces of the xtgeo project, https://xtgeo.readthedocs.io, and the remarks of
/// petekio, https://docs.rs/petekio
class KPFORMATS_EXPORT IrapGridFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::IrapGridFormat)

public:
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;

protected:
    explicit IrapGridFormat(IrapForm form)
        : m_form(form)
    {
    }
    /// What both forms have.
    static SettingsTable commonSettings();

private:
    IrapForm m_form;
};

} // namespace kpFormats
