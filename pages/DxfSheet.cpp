// SPDX-License-Identifier: MIT
#include "pages/DxfSheet.h"

namespace kpFormats
{

DxfSheet::DxfSheet(FormatSetup& setup, const Model& model)
    : BoundSheet(setup, model,
                 {{"m_units", "lengthUnit", ControlBinding::LengthUnit},
                  {"m_export3DCheck", "dimension", ControlBinding::Value, "3d"},
                  {"m_export2DMapCheck", "dimension", ControlBinding::Value, "map"},
                  {"m_export2DSectionCheck", "dimension", ControlBinding::Value, "section"},
                  {"m_multipleRadio", "grouping", ControlBinding::NotValue, "single"},
                  {"m_singleRadio", "grouping", ControlBinding::Value, "single"},
                  {"m_useSetsAsFilenames", "grouping", ControlBinding::Value, "set"},
                  {"m_useObjectAsFilenames", "grouping", ControlBinding::Value, "object"},
                  {"m_filePrefix", "filePrefix", ControlBinding::Text},
                  {"m_useSetsAsLayers", "layers", ControlBinding::Value, "set"},
                  {"m_useObjectTypesAsLayers", "layers", ControlBinding::Value, "type"},
                  {"m_noLayers", "layers", ControlBinding::Value, "none"},
                  // After the dimension, which changes them.
                  {"m_surface3DFaceCheck", "faces", ControlBinding::Flag},
                  {"m_surfacePointsCheck", "meshPoints", ControlBinding::Flag},
                  {"m_surfaceBoundaryCheck", "boundaries", ControlBinding::Flag}})
{
}

void DxfSheet::initialize(const QString& text)
{
    BoundSheet::initialize(text);
    // An object of this program's model belongs to one set.
    setSets(QStringList{tr("Set")});
}

} // namespace kpFormats
