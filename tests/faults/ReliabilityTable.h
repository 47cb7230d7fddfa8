// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QSet>
#include <QString>

/// What a test program has tried and what came of it: its rows of the table in docs/reliability.md.
class ReliabilityTable
{
public:
    /// \a program is the test program whose rows these are.
    explicit ReliabilityTable(const QString& program)
        : m_program(program)
    {
    }

    /// The test function that runs is tried with a format.
    void tries(const QString& format);
    /// It has had this outcome.
    void note(const QString& format, const QString& fault, const QString& outcome);
    /// Compares with the document what was tried here, and only that, for the formats that it was tried with.
    /// With KP_WRITE_TABLE set it writes it into the document instead.
    /// \returns what differs; empty when nothing does
    QString settle() const;

private:
    /// Fault, outcome and test to formats.
    using Rows = QMap<QStringList, QSet<QString>>;

    Rows merged(const Rows& documented) const;

    QString m_program;
    QMap<QString, QSet<QString>> m_tried; ///< test to formats
    QSet<QString> m_noted;                ///< tests of which an outcome was noted
    Rows m_rows;
};
