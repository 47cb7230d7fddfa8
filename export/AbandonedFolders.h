// SPDX-License-Identifier: MIT
#pragma once

#include "export/platform/Folder.h"

#include <QByteArray>

namespace kpFormats
{

/// A new name of a staging folder that nobody can guess.
QByteArray newStagingName();

/// Deals with the staging folders that killed runs of this user have left in a directory: a commit that was decided is
/// finished, one that was being taken back is taken back, and what was only prepared is removed. A folder of somebody
/// else, a link, one that others may change, one whose run is at work and one without a journal of its own are left
/// alone.
void finishAbandoned(const Folder& directory);

} // namespace kpFormats
