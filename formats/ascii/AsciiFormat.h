// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/ascii/AsciiExportSettings.h"
#include "formats/ascii/AsciiLayout.h"
#include "formats/ascii/AsciiRecord.h"
#include "model/kpFormatsExport.h"

#include <optional>
#include <utility>

namespace kpFormats
{

/// Vertices as lines of text: X, Y, Z and every attribute of the chosen objects. Attributes of a whole object stand
/// in each of its rows; an object that lacks an attribute of another has the null value there. A layout says which
/// fields are written instead, in which order and columns.
class KPFORMATS_EXPORT AsciiFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

    /// The fields to write, their order and columns, and the settings that the file holds.
    void loadLayout(const QString& path) override;
    bool saveLayout(const QString& path) override;
    /// Without a layout every attribute is written.
    void setLayout(std::optional<AsciiLayout> layout) { m_layout = std::move(layout); }
    const std::optional<AsciiLayout>& layout() const { return m_layout; }
    const AsciiExportSettings& current() const { return m_settings; }

private:
    AsciiTable tableOf(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const;

    AsciiExportSettings m_settings;
    std::optional<AsciiLayout> m_layout;
};

} // namespace kpFormats
