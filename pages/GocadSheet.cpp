// SPDX-License-Identifier: MIT
#include "pages/GocadSheet.h"

namespace kpFormats
{

GocadSheet::GocadSheet(FormatSetup& setup, const Model& model)
    : BoundSheet(setup, model,
                 {{"m_multipleRadio", "grouping", ControlBinding::NotValue, "single"},
                  {"m_singleRadio", "grouping", ControlBinding::Value, "single"},
                  {"m_useSetsAsFilenames", "grouping", ControlBinding::Value, "set"},
                  {"m_useObjectAsFilenames", "grouping", ControlBinding::Value, "object"},
                  {"m_filePrefix", "filePrefix", ControlBinding::Text},
                  {"m_headerCheck", "header", ControlBinding::InverseFlag}})
{
}

void GocadSheet::initialize(const QString& text)
{
    BoundSheet::initialize(text);
    // An object of this program's model belongs to one set.
    setSets(QStringList{tr("Set")});
}

} // namespace kpFormats
