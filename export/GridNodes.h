// SPDX-License-Identifier: MIT
#pragma once

#include "export/NumberColumns.h"
#include "model/kpFormatsExport.h"

#include <optional>

namespace kpFormats
{

// What formats of regular grids ask of a grid surface. \a file is the output and \a fileKind what it is, such as
// "ZMap+ grid", for messages. All throw ExportError.

/// That it has the nodes that its geometry says, and steps.
KPFORMATS_EXPORT void requireNodes(const ModelObject& object, const QString& file);
/// That it has two rows and two columns, from which a reader takes the steps.
KPFORMATS_EXPORT void requireSteps(const ModelObject& object, const QString& file, const QString& fileKind);
/// That no node is farther from where an unrotated grid has it than mostTurn steps.
KPFORMATS_EXPORT void requireUnrotated(const ModelObject& object, const QString& file, const QString& fileKind);
inline constexpr double mostTurn = 1e-3;

/// The numeric attribute of the nodes with that name; nothing for no name. Throws when there is none.
KPFORMATS_EXPORT std::optional<NumberColumn> nodeAttribute(const ModelObject& object, const QString& name,
                                                           const QString& file);
/// Notes the attributes beside that one, for formats with one value per node.
KPFORMATS_EXPORT void noteOtherAttributes(const ModelObject& object, const QString& attribute, Findings& findings);

} // namespace kpFormats
