// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace kpFormats
{

// What the formats that are SQLite databases share.

/// SQLite has 2000 columns in a table; some are the driver's own.
inline constexpr int mostSqliteFields = 1990;
/// The extensions of the journals that SQLite keeps beside files of these: that of an earlier file would be played into
/// the new one.
QStringList sqliteJournals(const QStringList& extensions);
/// GDAL's options for a database that nobody sees before it is complete: it is made durable when it is put into place, and
/// one that fails is thrown away.
QStringList fastSqlite();
/// \throws ExportError when the name of the file leaves no room for that of its journal
void requireRoomForJournal(const QString& path, const QString& fileKind);

} // namespace kpFormats
