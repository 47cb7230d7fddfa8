// SPDX-License-Identifier: MIT
#include "pages/OptionSheets.h"

#include "pages/AsciiSheet.h"
#include "pages/DxfSheet.h"
#include "pages/FilePerObjectSheet.h"
#include "pages/GocadSheet.h"
#include "pages/GrdeclSheet.h"
#include "pages/OpenTecSheet.h"
#include "pages/SettingsSheet.h"
#include "sheets/QExportSheetOff.h"
#include "sheets/QExportSheetShp.h"
#include "sheets/QExportSheetTab.h"
#include "sheets/QExportSheetZMap.h"

namespace kpFormats
{

namespace
{

using Page = kpBaseExport::QExportAbstractOptionSheet;
using B = ControlBinding;

Page* makeShp(FormatSetup& setup, const Model& model)
{
    return new BoundSheet<kpBaseExport::QExportSheetShp>(
        setup, model,
        {{"m_exportAttsCheck", "attributes", B::Flag},
         {"m_exportArcMapLyr", "symbology", B::Flag, "",
          "Writes the colours as a style file in an open format beside the data; .lyr files are a closed format."}});
}

Page* makeTab(FormatSetup& setup, const Model& model)
{
    return new BoundSheet<kpBaseExport::QExportSheetTab>(setup, model, {{"m_exportAttsCheck", "attributes", B::Flag}});
}

Page* makeOff(FormatSetup& setup, const Model& model)
{
    return new FilePerObjectSheet<kpBaseExport::QExportSheetOff>(setup, model,
                                                                 {{"m_units", "lengthUnit", B::LengthUnit},
                                                                  {"m_units", "zIsElevation", B::Direction},
                                                                  {"m_filePrefix", "filePrefix", B::Text}});
}

Page* makeZMap(FormatSetup& setup, const Model& model)
{
    return new FilePerObjectSheet<kpBaseExport::QExportSheetZMap>(setup, model, {});
}

template <typename Sheet>
Page* make(FormatSetup& setup, const Model& model)
{
    return new Sheet(setup, model);
}

struct PageOfFormat
{
    const char* key;
    Page* (*make)(FormatSetup& setup, const Model& model);
};

/// Formats with a page of the library. The others get one made from their settings.
constexpr PageOfFormat pages[] = {
    {"ascii", make<AsciiSheet>},
    {"dxf", make<DxfSheet>},
    {"gocad", make<GocadSheet>},
    {"grdecl", make<GrdeclSheet>},
    {"off", makeOff},
    {"opentec", make<OpenTecSheet>},
    {"shp", makeShp},
    {"tab", makeTab},
    {"zmap", makeZMap},
};

} // namespace

kpBaseExport::QExportAbstractOptionSheet* makeOptionSheet(FormatSetup& setup, const Model& model)
{
    for (const PageOfFormat& page : pages) {
        if (setup.format->info().key == QLatin1String(page.key))
            return page.make(setup, model);
    }
    return new SettingsSheet(setup, model);
}

} // namespace kpFormats
