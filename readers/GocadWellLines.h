// SPDX-License-Identifier: MIT
#pragma once

#include "readers/GocadFile.h"
#include "readers/TextScanner.h"
#include "readers/WellPath.h"

namespace kpFormats
{

/// Reads the lines that a GOCAD Well has and other objects do not: its reference, its path, curves along it.
/// \throws LoadError naming the line
class GocadWellLines
{
public:
    /// Both outlive it.
    GocadWellLines(TextScanner& scanner, GocadObject& well);

    /// A line that begins with \a keyword.
    void read(std::string_view keyword);
    /// Gives the well its path and those curves whose depths are depths of the path.
    void finish();

private:
    /// One WELL_CURVE.
    struct Curve
    {
        QString name;
        QString unit;
        double noData;
        std::vector<double> depths;
        std::vector<double> values;
        bool elsewhere = false; ///< its values stand in another file
    };

    void readPlace(const char* keyword, std::array<double, 3>& place);
    void readPath();
    void readStation();
    void readCurve(std::string_view keyword);
    void addVertex(double depth, double x, double y, double z);
    void followStations();
    bool addCurve(Curve& curve);
    double number(const char* what);
    QString text() const;

    TextScanner& m_scanner;
    GocadObject& m_well;
    bool m_hasReference = false;
    bool m_inCurve = false;
    std::array<double, 3> m_reference{};
    double m_aboveReference = 0.0; ///< where depth 0 lies (KB)
    std::vector<WellStation> m_stations;
    std::vector<Curve> m_curves;
};

} // namespace kpFormats
