// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "export/LengthFactors.h"
#include "export/SettingsTable.h"
#include "model/kpFormatsExport.h"

#include <QByteArray>

#include <array>

namespace kpFormats
{

/// What the coordinates of a file count from: the origin of the map, a place near them that the file states, or that
/// where single precision would move something by more than a ten-thousandth of the unit.
enum class CoordinateOrigin { Automatic, Map, Local };

KPFORMATS_EXPORT std::vector<SettingChoice> coordinateOrigins();
KPFORMATS_EXPORT QString coordinateOriginLabel();
KPFORMATS_EXPORT QString coordinateOriginDescription();

template <typename Struct>
void addCoordinateOrigin(SettingsTable& table, CoordinateOrigin Struct::*member)
{
    table.addChoice("origin", member, coordinateOriginLabel(), coordinateOrigins(), coordinateOriginDescription());
}

/// A round place near an object, in the units of the file, that its coordinates there count from.
class KPFORMATS_EXPORT MapOffset
{
public:
    using Place = std::array<double, 3>;

    MapOffset() = default;
    MapOffset(const std::vector<const ModelObject*>& objects, OutputUnit unit, bool zIsElevation,
              CoordinateOrigin origin);

    bool isZero() const { return m_offset == Place{0, 0, 0}; }
    const Place& place() const { return m_offset; }
    /// "offset to add: 540000 7490000 0", which the program's readers understand; empty for none.
    std::string text() const;
    /// How far single precision may move what is left of a coordinate: half of its last bit.
    double mostRounding() const;
    /// Whether that is more than a ten-thousandth of the unit.
    bool isRoundingLarge() const;
    /// The largest number of a coordinate that is left.
    double largest() const { return m_largest; }
    void note(const FindingObject& object, Findings& findings) const;

    /// Writes the file beside \a path that states the offset; none for a target that is no file.
    /// \a target is the final name, for messages. \throws ExportError
    void writeSidecar(const QString& path, const QString& target, const ModelObject& object, OutputUnit unit,
                      bool zIsElevation) const;
    /// Of that file, for a target: "obj.offset.json", as files of several formats may have one name.
    static QString sidecarExtension(const QString& target);

private:
    Place m_offset{0, 0, 0};
    double m_largest = 0.0;
};

} // namespace kpFormats
