// SPDX-License-Identifier: MIT
#pragma once

#include "export/FileGrouping.h"
#include "export/SettingsTable.h"
#include "model/OutputUnit.h"
#include "model/kpFormatsExport.h"

// Settings that several formats have, under one name and with the same words.

namespace kpFormats
{

/// The values of FileGrouping.
KPFORMATS_EXPORT std::vector<SettingChoice> groupingChoices();
/// The values of OutputUnit.
KPFORMATS_EXPORT std::vector<SettingChoice> lengthUnitChoices();
KPFORMATS_EXPORT QString groupingLabel();
KPFORMATS_EXPORT QString groupingDescription();
KPFORMATS_EXPORT QString lengthUnitLabel();
KPFORMATS_EXPORT QString filePrefixLabel();
KPFORMATS_EXPORT QString filePrefixDescription();
KPFORMATS_EXPORT QString elevationLabel();
KPFORMATS_EXPORT QString elevationDescription();

template <typename Struct>
void addGrouping(SettingsTable& table, FileGrouping Struct::*member)
{
    table.addChoice("grouping", member, groupingLabel(), groupingChoices(), groupingDescription());
}

template <typename Struct>
void addLengthUnit(SettingsTable& table, OutputUnit Struct::*member, const QString& description)
{
    table.addChoice("lengthUnit", member, lengthUnitLabel(), lengthUnitChoices(), description);
}

template <typename Struct>
void addFilePrefix(SettingsTable& table, QString Struct::*member)
{
    table.addText("filePrefix", member, filePrefixLabel(), filePrefixDescription());
}

/// Which way z counts. Some formats called it zPositive, with the values elevation and depth.
template <typename Struct>
void addElevation(SettingsTable& table, bool Struct::*member)
{
    Setting& setting = table.addBoolean("zIsElevation", member, elevationLabel(), elevationDescription());
    setting.former.push_back(
        {QStringLiteral("zPositive"),
         {{QStringLiteral("elevation"), QStringLiteral("true")}, {QStringLiteral("depth"), QStringLiteral("false")}}});
}

} // namespace kpFormats
