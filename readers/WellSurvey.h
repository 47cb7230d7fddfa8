// SPDX-License-Identifier: MIT
#pragma once

#include "readers/LoadOptions.h"
#include "readers/WellPath.h"

#include <QHash>

#include <vector>

namespace kpFormats
{

/// A table of deviation surveys: depth along the hole, azimuth, and dip or inclination at each station.
class WellSurvey
{
public:
    /// Reads the file that LoadOptions::survey names. An inclination counts from straight down. Dips count downwards or
    /// upwards as LoadOptions::dip says, else as their sign does, which has to be the same for all.
    /// \throws LoadError naming the line or the column
    explicit WellSurvey(const LoadOptions& options);

    /// The stations of a hole, by depth. A table of one hole without a column for its name is that of \a onlyHole.
    std::vector<WellStation> stations(const QString& hole, bool onlyHole) const;
    const LoadNotes& notes() const { return m_notes; }

private:
    QHash<QString, std::vector<WellStation>> m_stations;
    bool m_named = true;
    LoadNotes m_notes;
};

} // namespace kpFormats
