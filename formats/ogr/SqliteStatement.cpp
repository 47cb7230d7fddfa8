// SPDX-License-Identifier: MIT
#include "formats/ogr/SqliteStatement.h"

#include <sqlite3.h>

#include <stdexcept>

namespace kpFormats
{

SqliteStatement::SqliteStatement(sqlite3* database, const QString& sql)
    : m_database(database)
{
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr), SQLITE_OK);
    m_statement.reset(statement);
}

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

void SqliteStatement::require(int result, int wanted)
{
    if (result != wanted)
        throw std::runtime_error(sqlite3_errmsg(m_database));
}

void SqliteStatement::bind(int parameter, qint64 value)
{
    require(sqlite3_bind_int64(m_statement.get(), parameter, value), SQLITE_OK);
}

void SqliteStatement::bind(int parameter, const QByteArray& value)
{
    require(sqlite3_bind_blob(m_statement.get(), parameter, value.constData(), value.size(), SQLITE_STATIC), SQLITE_OK);
}

void SqliteStatement::bind(int parameter, const QString& value)
{
    const QByteArray utf8 = value.toUtf8();
    require(sqlite3_bind_text(m_statement.get(), parameter, utf8.constData(), utf8.size(), SQLITE_TRANSIENT),
            SQLITE_OK);
}

bool SqliteStatement::next()
{
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    require(result, SQLITE_DONE);
    return false;
}

void SqliteStatement::run()
{
    while (next()) {
    }
    require(sqlite3_reset(m_statement.get()), SQLITE_OK);
}

qint64 SqliteStatement::whole(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double SqliteStatement::real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

QString SqliteStatement::text(int column) const
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column)));
}

QString SqliteStatement::quoted(const QString& name)
{
    QString doubled = name;
    doubled.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doubled + QLatin1Char('"');
}

} // namespace kpFormats
