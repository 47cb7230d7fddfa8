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

/// The key of the format that the extension of the output stands for.
/// \throws Refusal when it stands for none, or for several
QString formatOfOutput(const QString& output);

/// Where the output has an extension that is not one of this format's but another's: which file, and whose it is; else empty.
/// Nobody who reads the file would expect this format in it.
QString foreignExtension(const FormatInfo& info, const QString& output);

/// The extensions of files of the format, without dots.
QStringList extensionsOf(const FormatInfo& info);

} // namespace refhost
