// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QByteArray>
#include <QString>

namespace kpFormats
{

/// Turns the bytes of a text file into UTF-8 without a byte order mark. \a encoding is a name such as "windows-1251";
/// empty: UTF-8 or UTF-16 where the bytes say so, else the Windows encoding, Cyrillic or Western, that they fit.
/// \a guessed receives the name of an encoding that the bytes do not prove.
/// \throws LoadError when the encoding is not known or the bytes are not of it; no character is ever replaced
KPFORMATS_EXPORT QByteArray toUtf8(const QString& path, QByteArray bytes, const QString& encoding, QString& guessed);

} // namespace kpFormats
