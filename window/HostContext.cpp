// SPDX-License-Identifier: MIT
#include "window/HostContext.h"

#include <utility>

namespace refhost
{

HostContext::HostContext(Formats offered)
    : formats(model, std::move(offered), [this] { return selectedIds; })
{
}

} // namespace refhost
