// SPDX-License-Identifier: MIT
#include "pages/OptionSheets.h"

#include "formats/ascii/AsciiFormat.h"
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

Page* makeShp(ExportFormat& format, const Model& model)
{
    return new BoundSheet<kpBaseExport::QExportSheetShp>(
        format, model,
        {{"m_exportAttsCheck", "attributes", B::Flag},
         {"m_exportArcMapLyr", "symbology", B::Flag, "",
          "Writes the colours as a style file in an open format beside the data; .lyr files are a closed format."}});
}

Page* makeTab(ExportFormat& format, const Model& model)
{
    return new BoundSheet<kpBaseExport::QExportSheetTab>(format, model, {{"m_exportAttsCheck", "attributes", B::Flag}});
}

Page* makeOff(ExportFormat& format, const Model& model)
{
    return new FilePerObjectSheet<kpBaseExport::QExportSheetOff>(format, model,
                                                                 {{"m_units", "lengthUnit", B::LengthUnit},
                                                                  {"m_units", "zPositive", B::Direction},
                                                                  {"m_filePrefix", "filePrefix", B::Text}});
}

Page* makeZMap(ExportFormat& format, const Model& model)
{
    return new FilePerObjectSheet<kpBaseExport::QExportSheetZMap>(format, model, {});
}

template <typename Sheet>
Page* make(ExportFormat& format, const Model& model)
{
    return new Sheet(format, model);
}

struct PageOfFormat
{
    const char* key;
    Page* (*make)(ExportFormat& format, const Model& model);
};

/// Formats with a page of the library. The others get one made from their settings.
constexpr PageOfFormat pages[] = {
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

kpBaseExport::QExportAbstractOptionSheet* makeOptionSheet(ExportFormat& format, const Model& model)
{
    if (auto* ascii = dynamic_cast<AsciiFormat*>(&format))
        return new AsciiSheet(*ascii, model);
    for (const PageOfFormat& page : pages) {
        if (format.info().key == QLatin1String(page.key))
            return page.make(format, model);
    }
    return new SettingsSheet(format);
}

} // namespace kpFormats
