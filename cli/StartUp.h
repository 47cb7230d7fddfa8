// SPDX-License-Identifier: MIT
#pragma once

namespace refhost
{

/// What holds for commands and window alike, before the application object is made: paths and names are UTF-8 whatever
/// locale the program is started in, and the application has its names.
void nameApplication();

} // namespace refhost
