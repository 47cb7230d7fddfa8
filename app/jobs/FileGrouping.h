// SPDX-License-Identifier: MIT
#pragma once

namespace refhost
{

/// How the chosen objects spread over files.
enum class FileGrouping { Single, Object, Set };

} // namespace refhost
