// SPDX-License-Identifier: MIT
#pragma once

namespace kpFormats
{
}

/// The reference host: the program kpexport, written on top of the kit, whose names it uses as its own.
namespace refhost
{
using namespace kpFormats;
}
