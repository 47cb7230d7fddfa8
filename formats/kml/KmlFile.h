// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/kml/KmlExportSettings.h"

#include <QSet>

namespace kpFormats
{

class ProgressTicker;

/// Whether a KML export writes an archive with its pictures (.kmz) under that name.
bool isArchive(const QString& path, const KmlExportSettings& settings);

/// One KML file or KMZ archive, prepared.
class KmlFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    KmlFile(PlannedFile file, const ExportSelection& selection, KmlExportSettings settings, Findings& findings);

    QStringList sidecars() const override;
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    void requireSystems() const;
    void requireDrawable() const;
    qint64 writeDocument(const QString& document, Findings& findings, ProgressTicker& ticker) const;

    KmlExportSettings m_settings;
    bool m_archive;
    QSet<const ModelObject*> m_undrawable; ///< objects of which nothing can be drawn, as noted
};

} // namespace kpFormats
