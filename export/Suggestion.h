// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QStringList>

namespace kpFormats
{

/// What can be said of a name that is not known: "did you mean gpkg?" when some of \a names is spelled much like it, whatever
/// its case; else \a otherwise.
KPFORMATS_EXPORT QString suggestionFor(const QString& word, const QStringList& names, const QString& otherwise);

} // namespace kpFormats
