// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportFormat.h"
#include "app/savers/AsciiExportSettings.h"

namespace refhost
{

/// Vertices as lines of text: X, Y, Z and every attribute of the chosen objects. Attributes of a whole object stand
/// in each of its rows; an object that lacks an attribute of another has the null value there.
class AsciiFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection,
                 ExportReport& report, kpBase::AbstractProgress* progress) override;

private:
    AsciiExportSettings m_settings;
};

} // namespace refhost
