// SPDX-License-Identifier: MIT
#pragma once

#include "export/FilePlan.h"
#include "export/Format.h"
#include "export/SettingsValue.h"
#include "model/kpFormatsExport.h"

#include <map>
#include <optional>
#include <vector>

namespace kpFormats
{

/// Sizes of files that are not written yet, for a look at what fits on the disk. How many bytes a format takes hangs on
/// its settings and on the values, so samples of the objects of each type are written aside, and an object counts as
/// many bytes for each unit of a rough guess as those did. Where that is not possible the guess stands.
class KPFORMATS_EXPORT SizeTrial
{
public:
    /// All must outlive the trial.
    SizeTrial(const Format& format, const ExportSelection& selection, const SettingsValue& settings);

    /// Bytes of the file and all that belongs to it.
    qint64 bytesOf(const PlannedFile& file);

private:
    using ByType = std::map<ObjectType, std::vector<const ModelObject*>>;

    /// Bytes as a linear function of the guesses.
    struct Rates
    {
        double fixed = 0.0;
        std::map<ObjectType, double> slopes;
    };
    /// What was written, and the guess for the objects of each type.
    struct Sample
    {
        double bytes = 0.0;
        std::map<ObjectType, double> guesses;
    };

    /// Of the files with one object each, the largest shows best what a row takes.
    ByType largest(ObjectType type) const;
    Rates measure(const PlannedFile& file, const ByType& objects) const;
    Sample write(const PlannedFile& file, const ByType& objects, std::optional<ObjectType> reduced) const;
    double guess(const std::vector<const ModelObject*>& objects) const;

    const Format& m_format;
    const ExportSelection& m_selection;
    const SettingsValue& m_settings;
    FormatInfo m_info;
    std::map<std::vector<ObjectType>, Rates> m_rates; ///< by the types of a file
};

/// A size for people: "12.3 MB".
KPFORMATS_EXPORT QString sizeText(qint64 bytes);

} // namespace kpFormats
