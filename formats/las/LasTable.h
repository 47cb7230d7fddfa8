// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Findings.h"
#include "export/WellDepths.h"
#include "formats/las/LasExportSettings.h"

namespace kpFormats
{

/// That are written at least, of lengths and values, and of degrees.
constexpr int lasDecimals = 4;
constexpr int lasDegreeDecimals = 8;

/// A column of a LAS file.
struct LasCurve
{
    QString mnemonic;
    QString unit;
    QString description;
    std::vector<double> values; ///< NaN where there is none
    int decimals = 0;
};

/// A line of the section of parameters.
struct LasParameter
{
    QString mnemonic;
    QString unit;
    QString value;
    QString description;
};

/// What a LAS file says of a well, ready to be written.
struct LasTable
{
    QString well;
    std::vector<LasCurve> curves; ///< the depth first
    std::vector<LasParameter> parameters;
    double step = 0.0; ///< of the depths; 0 when they are not even
    double nullValue = 0.0;
};

/// Notes what is left out or changed. \a file is for messages.
/// \throws ExportError when the well cannot be written
LasTable lasTable(const ModelObject& object, const ExportSelection& selection, const LasExportSettings& settings,
                  OutputUnit unit, const QString& file, Findings& findings);

/// A text in one line, with nothing that would end it.
QString lasText(const QString& text);
/// A name without what ends a mnemonic or a unit.
QString lasWord(const QString& name);

} // namespace kpFormats
