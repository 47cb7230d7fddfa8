// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/QExportSheet3DStress.h"
#include "sheets/QExportSheetAsciiFileSelection.h"
#include "sheets/QExportSheetDxf.h"
#include "sheets/QExportSheetEclipse.h"
#include "sheets/QExportSheetFlexDecomp.h"
#include "sheets/QExportSheetGeoCell.h"
#include "sheets/QExportSheetGeoquest.h"
#include "sheets/QExportSheetGeosec.h"
#include "sheets/QExportSheetGocad.h"
#include "sheets/QExportSheetLandmark.h"
#include "sheets/QExportSheetLocace.h"
#include "sheets/QExportSheetOff.h"
#include "sheets/QExportSheetOpenTecLink.h"
#include "sheets/QExportSheetRescue.h"
#include "sheets/QExportSheetShp.h"
#include "sheets/QExportSheetTab.h"
#include "sheets/QExportSheetZMap.h"

#include <functional>
#include <memory>
#include <vector>

/// A page as a host makes it: derived, with the operation that the library leaves open.
template <typename Sheet>
class Concrete : public Sheet
{
public:
    QString optionSummary() const override { return QStringLiteral("summary"); }
};

/// A page as widget and as sheet.
struct BuiltSheet
{
    std::unique_ptr<QWidget> widget;
    kpBaseExport::QExportAbstractOptionSheet* sheet = nullptr;
};

template <typename Sheet>
BuiltSheet build()
{
    auto page = std::make_unique<Concrete<Sheet>>();
    kpBaseExport::QExportAbstractOptionSheet* sheet = page.get();
    static_cast<kpBaseExport::QExportAbstractSheet*>(sheet)->initialize(QStringLiteral("key"));
    return {std::move(page), sheet};
}

struct SheetUnderTest
{
    const char* name;
    std::function<BuiltSheet()> make;
};

inline const std::vector<SheetUnderTest>& allSheets()
{
    using namespace kpBaseExport;
    static const std::vector<SheetUnderTest> sheets{
        {"QExportSheetGocad", build<QExportSheetGocad>},
        {"QExportSheetDxf", build<QExportSheetDxf>},
        {"QExportSheetAsciiFileSelection", build<QExportSheetAsciiFileSelection>},
        {"QExportSheet3DStress", build<QExportSheet3DStress>},
        {"QExportSheetGeoCell", build<QExportSheetGeoCell>},
        {"QExportSheetEclipse", build<QExportSheetEclipse>},
        {"QExportSheetRescue", build<QExportSheetRescue>},
        {"QExportSheetShp", build<QExportSheetShp>},
        {"QExportSheetTab", build<QExportSheetTab>},
        {"QExportSheetZMap", build<QExportSheetZMap>},
        {"QExportSheetOpenTecLink", build<QExportSheetOpenTecLink>},
        {"QExportSheetGeosec", build<QExportSheetGeosec>},
        {"QExportSheetFlexDecomp", build<QExportSheetFlexDecomp>},
        {"QExportSheetLocace", build<QExportSheetLocace>},
        {"QExportSheetLandmark", build<QExportSheetLandmark>},
        {"QExportSheetGeoquest", build<QExportSheetGeoquest>},
        {"QExportSheetOff", build<QExportSheetOff>},
    };
    return sheets;
}
