// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/deviation/DeviationExportSettings.h"
#include "formats/deviation/DeviationSurvey.h"

namespace kpFormats
{

/// One deviation table, prepared.
class DeviationFile : public PreparedFile
{
public:
    /// \throws ExportError when the well is refused
    DeviationFile(PlannedFile file, const ExportSelection& selection, DeviationExportSettings settings,
                  Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    DeviationExportSettings m_settings;
    OutputUnit m_unit;
    std::vector<DeviationStation> m_stations;
    double m_reference = 0.0; ///< elevation of depth 0
    double m_distance = 0.0;  ///< between the path of the angles and the model's
};

} // namespace kpFormats
