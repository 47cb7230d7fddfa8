// SPDX-License-Identifier: MIT
#pragma once

namespace kpFormats
{

/// How the chosen objects spread over files.
enum class FileGrouping { Single, Object, Set };

} // namespace kpFormats
