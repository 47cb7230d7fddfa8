// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace kpFormats
{

/// One statement of SQL on a connection that is somebody else's. Parameters count from 1, columns from 0.
/// Everything throws std::runtime_error with SQLite's message.
class SqliteStatement
{
public:
    SqliteStatement(sqlite3* database, const QString& sql);

    void bind(int parameter, qint64 value);
    /// \a value must live until the statement has run.
    void bind(int parameter, const QByteArray& value);
    void bind(int parameter, const QString& value);
    /// \returns whether there is a row
    bool next();
    /// Runs to the end, and is ready to run again.
    void run();

    qint64 whole(int column) const;
    double real(int column) const;
    QString text(int column) const;

    /// A name as SQL takes it.
    static QString quoted(const QString& name);

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* statement) const;
    };

    void require(int result, int wanted);

    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

} // namespace kpFormats
