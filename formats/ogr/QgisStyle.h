// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "formats/ogr/OgrLayers.h"

#include <QByteArray>

namespace kpFormats
{

/// A QGIS layer style (QML, the XML of QGIS 3) that draws a layer in the objects' colours: by the values of the field
/// "colorval", or in one colour. QGIS uses a style that lies beside a file under its name by itself.
/// \a hasField tells whether "colorval" is there. Empty when no object has a colour.
QByteArray qgisStyle(const OgrLayer& layer, bool hasField, Findings& findings);

} // namespace kpFormats
