// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace refhost
{

/// A finding in words: "3 names were changed". Its kind is for programs, this is for people. A kind without words of
/// its own comes as "kind: 3".
QString findingText(const QString& kind, qint64 count);

} // namespace refhost
