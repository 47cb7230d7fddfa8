// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads a model file: a JSON object {"version": 1, "objects": [{"file": ..., ...}, ...]}, where each entry names a
/// file, relative to the model file, and how to load it. The keys are the members of LoadOptions. "sections" lists
/// cross-sections to cut through them. docs/model-file.md describes both.
/// \throws LoadError naming the line or the entry
KPFORMATS_EXPORT LoadNotes readModelFile(Model& model, const QString& path);

} // namespace kpFormats
