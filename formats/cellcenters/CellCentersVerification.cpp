// SPDX-License-Identifier: MIT
#include "formats/cellcenters/CellCentersVerification.h"

#include "readers/TableReader.h"

#include <cmath>

namespace kpFormats
{

namespace
{

class TableCheck
{
public:
    TableCheck(const CellTable& table, const ModelObject& object, const ModelObject& read, Verification& result)
        : m_table(table)
        , m_name(object.name)
        , m_read(read)
        , m_result(result)
    {
    }

    void compare()
    {
        // A depth is an attribute of points, since they count heights upwards.
        const bool isDepth = m_table.heightName() != QLatin1String("z");
        QStringList names = m_table.indexNames();
        if (isDepth)
            names.append(m_table.heightName());
        names += m_table.propertyNames();
        QStringList found;
        for (const AttributeColumn& column : m_read.vertexAttributes)
            found.append(column.name);
        if (!m_result.compareSame(QStringLiteral("names of columns"), m_name, names.join(QLatin1Char(',')),
                                  found.join(QLatin1Char(',')))
            || !m_result.compareCount(m_name, QStringLiteral("cells"), static_cast<qint64>(m_table.cells().size()),
                                      m_read.vertexCount()))
            return;
        std::vector<NumberColumn> columns(m_read.vertexAttributes.begin(), m_read.vertexAttributes.end());
        const auto indices = static_cast<std::size_t>(m_table.indexNames().size());
        const std::size_t properties = indices + (isDepth ? 1 : 0);
        for (int row = 0; row < m_read.vertexCount(); ++row) {
            const auto at = static_cast<std::size_t>(row);
            const qint64 cell = m_table.cells()[at];
            const std::vector<int> wanted = m_table.indices(cell);
            for (std::size_t index = 0; index < indices; ++index)
                m_result.compareValue(wanted[index], columns[index].at(row), 0.0,
                                      [&] { return where(row, columns[index].name()); });
            const double height = isDepth ? columns[indices].at(row) : m_read.hasZ ? (*m_read.z)[at] : std::nan("");
            m_result.comparePosition(m_table.centre(cell), {(*m_read.x)[at], (*m_read.y)[at], height},
                                     [&] { return where(row, QStringLiteral("centre")); });
            for (std::size_t index = 0; index < m_table.properties().size(); ++index)
                compareProperty(m_table.properties()[index].at(static_cast<int>(cell)), columns[properties + index],
                                row);
        }
    }

private:
    QString where(int row, const QString& what) const
    {
        return QStringLiteral("%1, row %2, %3").arg(m_name).arg(row + 1).arg(what);
    }
    void compareProperty(double wanted, const NumberColumn& column, int row)
    {
        const double value = column.at(row);
        if (std::isfinite(wanted))
            m_result.compareValue(wanted, value, 0.0, [&] { return where(row, column.name()); });
        else
            m_result.compareMissing(std::isnan(value), QString::number(value),
                                    [&] { return where(row, column.name()); });
    }

    const CellTable& m_table;
    QString m_name;
    const ModelObject& m_read;
    Verification& m_result;
};

} // namespace

Verification verifyCellCenters(const CellTable& table, const ModelObject& object, const QString& path)
{
    const LengthFactors& factors = table.factors();
    Verification result(QStringLiteral("the program's reader of tables"),
                        Allowance::ofDecimals(table.flatDecimals(), factors.flatUnit),
                        Allowance::ofDecimals(table.heightDecimals(), factors.heightUnit));
    Model model;
    try {
        readTable(model, path, LoadOptions());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    TableCheck(table, object, model.objects().front(), result).compare();
    return result;
}

} // namespace kpFormats
