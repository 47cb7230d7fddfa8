// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Vertices as lines of text: X, Y, Z and every attribute of the chosen objects. Attributes of a whole object stand
/// in each of its rows; an object that lacks an attribute of another has the null value there. A layout says which
/// fields are written instead, in which order and columns.
class KPFORMATS_EXPORT AsciiFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::AsciiFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    void requireUsable(const SettingsValue& settings) const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;

    /// The fields to write, their order and columns, and the settings that the file holds.
    void loadLayout(const QString& path, SettingsValue& settings) const override;
    QByteArray layoutBytes(const SettingsValue& settings) const override;
    /// Decimals go into the real fields of a layout.
    void overrule(SettingsValue& settings, const QString& key, const QString& value) const override;
};

} // namespace kpFormats
