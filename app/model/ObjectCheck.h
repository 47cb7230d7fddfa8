// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/ModelObject.h"

namespace refhost
{

/// What is wrong with the object itself, in words: blocks of different lengths, parts, triangles or cells that point
/// outside. Empty when it is sound. Every writer relies on what this finds sound.
QString faultOf(const ModelObject& object);

} // namespace refhost
