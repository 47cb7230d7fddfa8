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
#include <vector>

/// A page as a host makes it: derived, with the operation that the library leaves open.
template <typename Sheet>
class Concrete : public Sheet
{
public:
    QString optionSummary() const override { return QStringLiteral("summary"); }
};

/// A page with its controls, shown, without a wizard.
template <typename Sheet>
class ShownPage : public Concrete<Sheet>
{
public:
    ShownPage()
    {
        static_cast<kpBaseExport::QExportAbstractSheet*>(this)->initialize(QStringLiteral("key"));
        this->show();
    }
};

struct SheetUnderTest
{
    const char* name;
    std::function<kpBaseExport::QExportAbstractOptionSheet*()> make;
};

template <typename Sheet>
kpBaseExport::QExportAbstractOptionSheet* make()
{
    return new Concrete<Sheet>;
}

inline const std::vector<SheetUnderTest>& allSheets()
{
    using namespace kpBaseExport;
    static const std::vector<SheetUnderTest> sheets{
        {"QExportSheetGocad", make<QExportSheetGocad>},
        {"QExportSheetDxf", make<QExportSheetDxf>},
        {"QExportSheetAsciiFileSelection", make<QExportSheetAsciiFileSelection>},
        {"QExportSheet3DStress", make<QExportSheet3DStress>},
        {"QExportSheetGeoCell", make<QExportSheetGeoCell>},
        {"QExportSheetEclipse", make<QExportSheetEclipse>},
        {"QExportSheetRescue", make<QExportSheetRescue>},
        {"QExportSheetShp", make<QExportSheetShp>},
        {"QExportSheetTab", make<QExportSheetTab>},
        {"QExportSheetZMap", make<QExportSheetZMap>},
        {"QExportSheetOpenTecLink", make<QExportSheetOpenTecLink>},
        {"QExportSheetGeosec", make<QExportSheetGeosec>},
        {"QExportSheetFlexDecomp", make<QExportSheetFlexDecomp>},
        {"QExportSheetLocace", make<QExportSheetLocace>},
        {"QExportSheetLandmark", make<QExportSheetLandmark>},
        {"QExportSheetGeoquest", make<QExportSheetGeoquest>},
        {"QExportSheetOff", make<QExportSheetOff>},
    };
    return sheets;
}
