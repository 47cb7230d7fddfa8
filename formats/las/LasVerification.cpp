// SPDX-License-Identifier: MIT
#include "formats/las/LasVerification.h"

#include "export/AutomaticDecimals.h"
#include "export/NumberColumns.h"
#include "export/SafeNames.h"
#include "export/WellDepths.h"
#include "formats/las/LasTable.h"
#include "geo/CoordinateSystems.h"
#include "readers/LasFile.h"
#include "readers/TextTable.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

class LasCheck
{
public:
    LasCheck(const ModelObject& object, const LasFile& read, const LasExportSettings& settings, OutputUnit unit,
             Verification& result)
        : m_object(object)
        , m_read(read)
        , m_vertical(settings.index == LasExportSettings::Index::VerticalDepth)
        , m_settings(settings)
        , m_factors(object, unit, true)
        , m_depths(object, unit, QString(), m_told)
        , m_result(result)
    {
        for (std::size_t vertex = 0; vertex < m_depths.size(); ++vertex) {
            if (std::isfinite(depthOf(vertex)))
                m_rows.push_back(vertex);
        }
    }

    void compare(const ExportSelection& selection)
    {
        m_result.compareSame(QStringLiteral("well"), m_object.name, lasText(m_object.name), m_read.well);
        m_result.compareSame(QStringLiteral("unit"), m_object.name, m_factors.heightUnit, m_read.depthUnit);
        if (!m_result.compareCount(m_object.name, QStringLiteral("rows"), static_cast<qint64>(m_rows.size()),
                                   static_cast<qint64>(m_read.depths.size())))
            return;
        const double half = halfOf([this](std::size_t vertex) { return depthOf(vertex); });
        compareHead(half, selection);
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            m_result.compareValue(depthOf(m_rows[row]), m_read.depths[row], half,
                                  [&] { return where(row, QStringLiteral("depth")); });
        if (m_vertical)
            compareCurve(QStringLiteral("MD"), m_factors.heightUnit.toUpper(),
                         [this](std::size_t vertex) { return m_depths.measured(vertex); });
        if (m_settings.coordinates)
            comparePlaces();
        for (const NumberColumn& column : vertexColumns(m_object, selection, m_told)) {
            if (column.name() != m_depths.attribute())
                compareCurve(column.name(), lasWord(column.unit()),
                             [&column](std::size_t vertex) { return column.at(static_cast<int>(vertex)); });
        }
        m_result.compareCount(m_object.name, QStringLiteral("curves"), static_cast<qint64>(m_next),
                              static_cast<qint64>(m_read.curves.size()));
    }

private:
    double depthOf(std::size_t vertex) const
    {
        return m_vertical ? m_depths.reference() - (*m_object.z)[vertex] * m_factors.height : m_depths.measured(vertex);
    }
    /// Half of the last decimal that a column needs.
    template <typename Value>
    double halfOf(Value valueOf) const
    {
        DecimalsNeed need;
        for (const std::size_t vertex : m_rows)
            need.add(valueOf(vertex));
        const int decimals =
            m_settings.decimals == automaticDecimals ? need.decimals(lasDecimals) : m_settings.decimals;
        return 0.5 * std::pow(10.0, -decimals);
    }
    QString where(std::size_t row, const QString& curve) const
    {
        return QStringLiteral("%1, vertex %2, %3").arg(m_object.name).arg(m_rows[row] + 1).arg(curve);
    }

    void compareHead(double half, const ExportSelection& selection)
    {
        if (m_rows.empty())
            return;
        compareHeadNumber(m_read.wellSection, QStringLiteral("STRT"), depthOf(m_rows.front()), half);
        compareHeadNumber(m_read.wellSection, QStringLiteral("STOP"), depthOf(m_rows.back()), half);
        const std::size_t top = m_rows.front();
        const double x = (*m_object.x)[top] * m_factors.flat;
        const double y = (*m_object.y)[top] * m_factors.flat;
        UniqueNames names;
        if (std::isfinite(x) && std::isfinite(y)) {
            compareHeadNumber(m_read.parameters, names.take(QStringLiteral("X")), x, 0.0);
            compareHeadNumber(m_read.parameters, names.take(QStringLiteral("Y")), y, 0.0);
        }
        if (!m_object.crs.isEmpty())
            compareHeadText(names.take(QStringLiteral("HZCS")), crsName(m_object.crs));
        if (std::isfinite(m_depths.reference()))
            compareHeadNumber(m_read.parameters, names.take(QStringLiteral("EREF")), m_depths.reference(), 0.0);
        for (const ObjectAttribute& attribute : m_object.objectAttributes) {
            if (!selection.wantsAttribute(attribute.name) || attribute.value.isNull())
                continue;
            const QString name = names.take(lasWord(attribute.name));
            if (attribute.kind == AttributeKind::Real || attribute.kind == AttributeKind::Integer)
                compareHeadNumber(m_read.parameters, name, attribute.value.toDouble(), 0.0);
            else
                compareHeadText(name, attribute.value.toString());
        }
    }
    void compareHeadNumber(const QHash<QString, QString>& section, const QString& name, double wanted, double allowed)
    {
        const auto read = numberOf(section.value(name.toUpper()).toStdString());
        m_result.compareValue(wanted, read ? *read : std::nan(""), allowed,
                              [&] { return QStringLiteral("%1, %2 in the head").arg(m_object.name, name); });
    }
    void compareHeadText(const QString& name, const QString& wanted)
    {
        m_result.compareText(lasText(wanted), m_read.parameters.value(name.toUpper()),
                             [&] { return QStringLiteral("%1, %2 in the head").arg(m_object.name, name); });
    }

    const AttributeColumn* nextCurve(const QString& name)
    {
        if (m_next >= m_read.curves.size()) {
            m_result.fail(QStringLiteral("%1: the curve %2 is missing").arg(m_object.name, name));
            return nullptr;
        }
        return &m_read.curves[m_next++];
    }

    void comparePlaces()
    {
        const AttributeColumn* axes[3];
        for (const AttributeColumn*& axis : axes)
            axis = nextCurve(QStringLiteral("X, Y or Z"));
        if (!axes[2])
            return;
        m_result.compareSame(QStringLiteral("names of curves"), m_object.name, QStringLiteral("X Y Z"),
                             axes[0]->name + QLatin1Char(' ') + axes[1]->name + QLatin1Char(' ') + axes[2]->name);
        for (std::size_t row = 0; row < m_rows.size(); ++row) {
            const std::size_t vertex = m_rows[row];
            const double z = m_object.hasZ ? (*m_object.z)[vertex] * m_factors.height : std::nan("");
            const Verification::Place wanted{(*m_object.x)[vertex] * m_factors.flat,
                                             (*m_object.y)[vertex] * m_factors.flat, z};
            const auto read = [&](int axis) { return NumberColumn(*axes[axis]).at(static_cast<int>(row)); };
            m_result.comparePosition(wanted, {read(0), read(1), read(2)},
                                     [&] { return where(row, QStringLiteral("position")); });
        }
    }

    template <typename Value>
    void compareCurve(const QString& name, const QString& unit, Value valueOf)
    {
        const AttributeColumn* curve = nextCurve(name);
        if (!curve)
            return;
        const QString begin = lasWord(name);
        if (!curve->name.startsWith(begin))
            return m_result.fail(
                QStringLiteral("%1: the curve %2 is called %3").arg(m_object.name, begin, curve->name));
        m_result.compareSame(QStringLiteral("units of curves"), m_object.name, unit, curve->unit);
        const NumberColumn read(*curve);
        const double half = halfOf(valueOf);
        for (std::size_t row = 0; row < m_rows.size(); ++row) {
            const double wanted = valueOf(m_rows[row]);
            const double value = read.at(static_cast<int>(row));
            if (std::isfinite(wanted))
                m_result.compareValue(wanted, value, half, [&] { return where(row, name); });
            else
                m_result.compareMissing(std::isnan(value), QString::number(value), [&] { return where(row, name); });
        }
    }

    const ModelObject& m_object;
    const LasFile& m_read;
    bool m_vertical;
    const LasExportSettings& m_settings;
    LengthFactors m_factors;
    Findings m_told; ///< said already
    WellDepths m_depths;
    Verification& m_result;
    std::vector<std::size_t> m_rows; ///< vertices with a depth
    std::size_t m_next = 0;          ///< curve
};

} // namespace

Verification verifyLas(const ModelObject& object, const QString& path, const ExportSelection& selection,
                       const LasExportSettings& settings, OutputUnit unit)
{
    const LengthFactors factors(object, unit, true);
    const bool chosen = settings.decimals != automaticDecimals;
    const int flat = factors.flatUnit == QLatin1String("degrees") ? lasDegreeDecimals : lasDecimals;
    Verification result(QStringLiteral("the program's LAS reader"),
                        Allowance::ofDecimals(chosen ? settings.decimals : flat, factors.flatUnit),
                        Allowance::ofDecimals(chosen ? settings.decimals : lasDecimals, factors.heightUnit));
    try {
        const LasFile read = readLasFile(path, QString());
        if (!read.notes.isEmpty())
            result.fail(read.notes.front());
        LasCheck(object, read, settings, unit, result).compare(selection);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
    }
    return result;
}

} // namespace kpFormats
