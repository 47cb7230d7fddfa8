// SPDX-License-Identifier: MIT
#pragma once

namespace refhost
{

/// What holds for commands and window alike, before the application object is made: paths and names are UTF-8 whatever
/// locale the program is started in, and the application has its names.
void nameApplication();

/// Sets what files may ask for; before anything is loaded.
void limitLoading(bool allowNetwork, bool allowOutside);

/// The number of the first argument that is not UTF-8, from 1; 0 when all are. Such a name cannot be told from another
/// one once it has become text.
int foreignArgument(int argc, const char* const* argv);

} // namespace refhost
