// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace kpFormats
{

/// Packs \a files, paths inside \a folder, into a ZIP archive at \a path, in this order (a .kmz begins with its .kml).
/// \throws std::runtime_error when it cannot be written completely
void writeArchive(const QString& path, const QString& folder, const QStringList& files);

} // namespace kpFormats
