// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <vector>

struct sqlite3;

namespace kpFormats
{

/// Fills an empty table of SQLite's R*Tree module, of two dimensions, at once. Inserting row by row takes three times as
/// long as all the rest of a GeoPackage; here the boxes are sorted into full nodes (sort-tile-recursive packing,
/// Leutenegger, Lopez and Edgington 1997), which are written into the module's own tables as
/// https://www.sqlite.org/rtree.html describes them ("Shadow Tables"). Needs 32 bytes a row.
/// Errors of SQLite are thrown as std::runtime_error.
class SqliteRTree
{
public:
    SqliteRTree(sqlite3* database, QString table);

    /// The box of a row of the indexed table. Rows come in rising order.
    void add(qint64 row, double minX, double maxX, double minY, double maxY);
    void write();

private:
    struct Entry
    {
        std::array<float, 4> box; ///< minX, maxX, minY, maxY
        quint32 index;            ///< of the row in m_rows, or the number of the node below
    };

    std::vector<Entry> pack(std::vector<Entry> entries, int depth);
    QByteArray nodeOf(const Entry* begin, const Entry* end, int depth) const;
    QString shadow(const char* kind) const;

    sqlite3* m_database;
    QString m_table;
    std::vector<Entry> m_entries;
    std::vector<qint64> m_rows;
    std::vector<quint32> m_nodeOfRow;
    int m_nodeBytes = 0;
    quint32 m_nextNode = 2; ///< the root is node 1
};

} // namespace kpFormats
