// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// What is wrong with the object itself, in words: blocks of different lengths, parts, triangles or cells that point
/// outside. Empty when it is sound. Model::add() takes nothing else.
KPFORMATS_EXPORT QString faultOf(const ModelObject& object);

} // namespace kpFormats
