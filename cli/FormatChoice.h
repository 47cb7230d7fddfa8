// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "export/Format.h"

#include <QStringList>

namespace refhost
{

/// \throws Refusal when there is no format of that key
std::unique_ptr<const Format> findFormat(const QString& key);

/// The keys of the types that the format takes.
QStringList typeKeys(const FormatInfo& info);
/// The keys of the types that any format takes.
QStringList allTypeKeys();

/// The extensions of files of the format, without dots.
QStringList extensionsOf(const FormatInfo& info);

} // namespace refhost
