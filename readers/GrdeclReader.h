// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

namespace kpFormats
{

/// Reads a corner-point grid from an Eclipse GRDECL file: SPECGRID or DIMENS, COORD, ZCORN, ACTNUM, MAPAXES, MAPUNITS,
/// GRIDUNIT, and every other keyword that has one number per cell as a cell attribute. Positions are taken to the map
/// by MAPAXES. The object's vertices are the top and the base of each pillar, as elevations.
/// Keywords that change other keywords (EQUALS, COPY, BOX ...) and files to include are not followed; they are noted.
/// The format: https://docs.opengosim.com/manual/input_deck/grid/grdecl and
/// http://docs.energistics.org/RESQML/RESQML_TOPICS/RESQML-000-292-0-C-sv2010.html
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readGrdecl(Model& model, const QString& path, const LoadOptions& options);

} // namespace kpFormats
