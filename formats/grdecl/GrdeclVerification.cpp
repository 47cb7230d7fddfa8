// SPDX-License-Identifier: MIT
#include "formats/grdecl/GrdeclVerification.h"

#include "export/NumberColumns.h"
#include "formats/grdecl/GrdeclRecord.h"
#include "readers/GrdeclReader.h"

#include <cmath>

namespace kpFormats
{

namespace
{

class GridCheck
{
public:
    GridCheck(const ModelObject& object, const ModelObject& read, double factor, Verification& result)
        : m_name(object.name)
        , m_expected(*object.cells)
        , m_read(*read.cells)
        , m_factor(factor)
        , m_result(result)
    {
    }

    bool sameSize()
    {
        return m_result.compareCount(m_name, QStringLiteral("columns"), m_expected.columns, m_read.columns)
               && m_result.compareCount(m_name, QStringLiteral("rows"), m_expected.rows, m_read.rows)
               && m_result.compareCount(m_name, QStringLiteral("layers"), m_expected.layers, m_read.layers)
               && sameLength("COORD", m_expected.coord, m_read.coord)
               && sameLength("ZCORN", m_expected.zcorn, m_read.zcorn);
    }

    void comparePillars()
    {
        for (std::size_t index = 0; index + 2 < m_expected.coord.size(); index += 3) {
            const auto where = [&] {
                return QStringLiteral("%1, pillar %2, %3")
                    .arg(m_name)
                    .arg(index / 6 + 1)
                    .arg(index % 6 == 0 ? QStringLiteral("top") : QStringLiteral("base"));
            };
            m_result.comparePosition(placeIn(m_expected.coord, index, m_factor), placeIn(m_read.coord, index, 1.0),
                                     where);
        }
    }

    void compareDepths()
    {
        for (std::size_t corner = 0; corner < m_expected.zcorn.size(); ++corner) {
            const double depth = m_expected.zcorn[corner];
            const auto where = [&] { return QStringLiteral("%1, corner %2 of ZCORN").arg(m_name).arg(corner + 1); };
            // One of an inactive cell that has no depth is 0, which the report tells.
            if (!std::isfinite(depth))
                m_result.compareMissing(m_read.zcorn[corner] == 0.0, QString::number(m_read.zcorn[corner]), where);
            else
                m_result.compareCoordinate(depth * m_factor, m_read.zcorn[corner], m_result.allowed().most, where);
            m_result.countPosition();
        }
    }

    void compareActive()
    {
        m_result.alsoCompared(QStringLiteral("active cells"));
        const std::size_t cells = m_expected.zcorn.size() / 8;
        for (std::size_t cell = 0; cell < cells; ++cell) {
            const bool wanted = m_expected.active.empty() || m_expected.active[cell] != 0;
            const bool active = m_read.active.empty() || m_read.active[cell] != 0;
            if (wanted != active)
                return m_result.fail(QStringLiteral("%1, cell %2: it is %3")
                                         .arg(m_name)
                                         .arg(cell + 1)
                                         .arg(active ? QStringLiteral("active") : QStringLiteral("inactive")));
        }
    }

    void compareProperties(const std::vector<NumberColumn>& columns, double nullValue)
    {
        if (!m_result.compareCount(m_name, QStringLiteral("properties"), static_cast<qint64>(columns.size()),
                                   static_cast<qint64>(m_read.cellAttributes.size())))
            return;
        GrdeclNames names;
        for (std::size_t index = 0; index < columns.size(); ++index) {
            const AttributeColumn& attribute = m_read.cellAttributes[index];
            m_result.compareSame(QStringLiteral("names of properties"), m_name, names.take(columns[index].name()),
                                 attribute.name);
            const bool real = columns[index].kind() == AttributeKind::Real;
            if (real != (attribute.kind == AttributeKind::Real))
                m_result.fail(
                    QStringLiteral("%1, %2: it has %3 numbers")
                        .arg(m_name, attribute.name, real ? QStringLiteral("whole") : QStringLiteral("real")));
            compareProperty(columns[index], NumberColumn(attribute), nullValue);
        }
    }

private:
    static Verification::Place placeIn(const std::vector<double>& numbers, std::size_t index, double factor)
    {
        return {numbers[index] * factor, numbers[index + 1] * factor, numbers[index + 2] * factor};
    }
    bool sameLength(const char* what, const std::vector<double>& expected, const std::vector<double>& read)
    {
        return m_result.compareCount(m_name, QStringLiteral("numbers of %1").arg(QLatin1String(what)),
                                     static_cast<qint64>(expected.size()), static_cast<qint64>(read.size()));
    }
    void compareProperty(const NumberColumn& wanted, const NumberColumn& read, double nullValue)
    {
        const auto cells = static_cast<int>(m_expected.zcorn.size() / 8);
        for (int cell = 0; cell < cells; ++cell) {
            const auto where = [&] {
                return QStringLiteral("%1, cell %2, %3").arg(m_name).arg(cell + 1).arg(read.name());
            };
            const double value = wanted.at(cell);
            const double found = read.at(cell);
            if (std::isfinite(value))
                m_result.compareValue(value, found, 0.0, where);
            else
                m_result.compareMissing(found == nullValue, QString::number(found), where);
        }
    }

    QString m_name;
    const CellGrid& m_expected;
    const CellGrid& m_read;
    double m_factor;
    Verification& m_result;
};

} // namespace

Verification verifyGrdecl(const ModelObject& object, const QString& path, const ExportSelection& selection,
                          const GrdeclExportSettings& settings, OutputUnit unit)
{
    const QString unitName = writtenUnit(object.lengthUnit, unit);
    Verification result(QStringLiteral("the program's GRDECL reader"),
                        Allowance::ofDecimals(settings.decimals, unitName));
    Model model;
    try {
        const LoadNotes notes = readGrdecl(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    const ModelObject& read = model.objects().front();
    result.compareSame(QStringLiteral("length unit"), object.name, unitName, read.lengthUnit);
    GridCheck check(object, read, unitFactor(object.lengthUnit, unit), result);
    if (!check.sameSize())
        return result;
    check.comparePillars();
    check.compareDepths();
    check.compareActive();
    Findings told;
    check.compareProperties(cellColumns(object, selection, told), settings.nullValue);
    return result;
}

} // namespace kpFormats
