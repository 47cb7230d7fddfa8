// SPDX-License-Identifier: MIT
#pragma once

#include "export/BlockWriter.h"

#include <QString>
#include <QStringList>

namespace kpFormats
{

/// The numbers of one keyword: as many on a line as fit, runs of one number as "n*v", a "/" at the end.
class GrdeclRecord
{
public:
    /// How numbers are written: with that many decimals, or as short as they are exact.
    enum class Style { Fixed, Real, Whole };

    GrdeclRecord(BlockWriter& out, const std::string& keyword, Style style, int decimals = 0);

    void add(double value)
    {
        if (m_run > 0 && value == m_value) {
            ++m_run;
            return;
        }
        writeRun();
        m_value = value;
        m_run = 1;
    }
    /// Ends the record.
    void end();

private:
    void writeRun();

    BlockWriter& m_out;
    Style m_style;
    int m_decimals;
    double m_value = 0.0;
    qint64 m_run = 0;
    std::size_t m_column = 0; ///< characters on the line
    std::string m_word;
};

/// Names of at most eight characters for keywords: capitals, digits and "_", a letter first, none twice and none
/// that the format uses itself.
class GrdeclNames
{
public:
    QString take(const QString& name);

private:
    QStringList m_taken;
};

} // namespace kpFormats
