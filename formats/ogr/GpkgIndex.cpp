// SPDX-License-Identifier: MIT
#include "formats/ogr/GpkgIndex.h"

#include "formats/ogr/SqliteRTree.h"
#include "formats/ogr/SqliteStatement.h"
#include "geo/GdalSession.h"

#include <QStringList>

#include <cpl_vsi.h>

#include <stdexcept>

namespace kpFormats
{

namespace
{

/// The connection on which a dataset of GDAL's works.
sqlite3* connectionOf(GDALDataset& dataset)
{
    void* const connection = dataset.GetInternalHandle("SQLITE_HANDLE");
    if (!connection)
        throw std::runtime_error("the driver does not give its connection away");
    return static_cast<sqlite3*>(connection);
}

QString literal(QString text)
{
    text.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

/// A GeoPackage in memory with an empty layer that has an index of GDAL's making.
class IndexedExample
{
public:
    IndexedExample(const QString& table, const QString& column, const QString& key)
        : m_path("/vsimem/kp_index_" + QByteArray::number(reinterpret_cast<quintptr>(this)) + ".gpkg")
        , m_dataset(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(m_path.constData(), 0, 0, 0, GDT_Unknown,
                                                                            nullptr))
    {
        CPLStringList options;
        options.SetNameValue("SPATIAL_INDEX", "NO");
        options.SetNameValue("GEOMETRY_NAME", column.toUtf8().constData());
        options.SetNameValue("FID", key.toUtf8().constData());
        if (!m_dataset || !m_dataset->CreateLayer(table.toUtf8().constData(), nullptr, wkbUnknown, options.List()))
            throw std::runtime_error("there is no room for an empty GeoPackage in memory");
        SqliteStatement(connection(),
                        QStringLiteral("SELECT CreateSpatialIndex(%1, %2)").arg(literal(table), literal(column)))
            .run();
    }
    ~IndexedExample()
    {
        m_dataset.reset();
        VSIUnlink(m_path.constData());
    }
    IndexedExample(const IndexedExample&) = delete;
    IndexedExample& operator=(const IndexedExample&) = delete;

    /// The first column of what \a query gives.
    QStringList texts(const QString& query) const
    {
        QStringList texts;
        SqliteStatement statement(connection(), query);
        while (statement.next())
            texts.append(statement.text(0));
        return texts;
    }

private:
    sqlite3* connection() const { return connectionOf(*m_dataset); }

    QByteArray m_path;
    GDALDatasetUniquePtr m_dataset;
};

/// What makes an index that has no entries, as GDAL makes it.
QStringList indexStatements(const QString& table, const QString& column, const QString& key)
{
    const IndexedExample example(table, column, key);
    QStringList statements =
        example.texts(QStringLiteral("SELECT replace(sql, 'CREATE TABLE', 'CREATE TABLE IF NOT EXISTS') FROM "
                                     "sqlite_master WHERE name = 'gpkg_extensions'"));
    statements += example.texts(QStringLiteral(
        "SELECT 'INSERT INTO gpkg_extensions VALUES (' || quote(table_name) || ', ' || quote(column_name) "
        "|| ', ' || quote(extension_name) || ', ' || quote(definition) || ', ' || quote(scope) || ')' "
        "FROM gpkg_extensions WHERE extension_name = 'gpkg_rtree_index'"));
    statements += example.texts(QStringLiteral("SELECT sql FROM sqlite_master WHERE sql LIKE 'CREATE VIRTUAL TABLE%'"));
    statements +=
        example.texts(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'trigger' AND name LIKE 'rtree%'"));
    return statements;
}

} // namespace

void addGpkgIndex(GDALDataset& dataset, OGRLayer& layer, const kpBase::AbstractProgress* progress)
{
    constexpr std::size_t betweenAsking = 4096;

    const QString table = QString::fromUtf8(layer.GetName());
    const QString column = QString::fromUtf8(layer.GetGeometryColumn());
    const QString key = QString::fromUtf8(layer.GetFIDColumn());
    sqlite3* const connection = connectionOf(dataset);
    const auto run = [connection](const QString& sql) { SqliteStatement(connection, sql).run(); };
    run(QStringLiteral("BEGIN"));
    for (const QString& statement : indexStatements(table, column, key))
        run(statement);

    SqliteRTree tree(connection, QStringLiteral("rtree_%1_%2").arg(table, column));
    const QString geometry = SqliteStatement::quoted(column);
    SqliteStatement boxes(connection,
                          QStringLiteral("SELECT %1, ST_MinX(%2), ST_MaxX(%2), ST_MinY(%2), ST_MaxY(%2) FROM "
                                         "%3 WHERE %2 NOT NULL AND NOT ST_IsEmpty(%2) ORDER BY %1")
                              .arg(SqliteStatement::quoted(key), geometry, SqliteStatement::quoted(table)));
    for (std::size_t row = 0; boxes.next(); ++row) {
        if (progress && row % betweenAsking == 0 && progress->isCancelled())
            return;
        tree.add(boxes.whole(0), boxes.real(1), boxes.real(2), boxes.real(3), boxes.real(4));
    }
    tree.write();
    run(QStringLiteral("COMMIT"));
}

} // namespace kpFormats
