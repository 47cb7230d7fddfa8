// SPDX-License-Identifier: MIT
#include "formats/ogr/SqliteRTree.h"

#include "formats/ogr/SqliteStatement.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

namespace kpFormats
{

namespace
{

constexpr int headBytes = 4;
constexpr int entryBytes = 24;

/// The module keeps single precision: a box grows to the next numbers outside.
float below(double value)
{
    const auto single = static_cast<float>(value);
    return single > value ? std::nextafter(single, -std::numeric_limits<float>::infinity()) : single;
}

float above(double value)
{
    return -below(-value);
}

void putFloat(char*& to, float value)
{
    quint32 bits;
    std::memcpy(&bits, &value, sizeof bits);
    qToBigEndian(bits, to);
    to += sizeof bits;
}

} // namespace

SqliteRTree::SqliteRTree(sqlite3* database, QString table)
    : m_database(database)
    , m_table(std::move(table))
{
}

void SqliteRTree::add(qint64 row, double minX, double maxX, double minY, double maxY)
{
    m_entries.push_back({{below(minX), above(maxX), below(minY), above(maxY)}, static_cast<quint32>(m_rows.size())});
    m_rows.push_back(row);
}

void SqliteRTree::write()
{
    if (m_entries.empty())
        return;
    SqliteStatement root(m_database,
                         QStringLiteral("SELECT length(data) FROM %1 WHERE nodeno = 1").arg(shadow("node")));
    if (!root.next() || root.whole(0) < headBytes + 2 * entryBytes)
        throw std::runtime_error("the table of the spatial index has no root");
    m_nodeBytes = static_cast<int>(root.whole(0));
    root.run();

    m_nodeOfRow.resize(m_rows.size());
    std::vector<Entry> entries = std::move(m_entries);
    int depth = 0;
    do {
        entries = pack(std::move(entries), depth);
        ++depth;
    } while (entries.size() > 1);

    SqliteStatement insert(m_database, QStringLiteral("INSERT INTO %1 VALUES (?, ?)").arg(shadow("rowid")));
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        insert.bind(1, m_rows[index]);
        insert.bind(2, qint64{m_nodeOfRow[index]});
        insert.run();
    }
}

/// Writes one level of the tree, which has height \a depth above the leaves. \returns the nodes made
std::vector<SqliteRTree::Entry> SqliteRTree::pack(std::vector<Entry> entries, int depth)
{
    const auto byMiddle = [](std::size_t axis) {
        return [axis](const Entry& one, const Entry& other) {
            const float left = one.box[axis] / 2 + one.box[axis + 1] / 2;
            const float right = other.box[axis] / 2 + other.box[axis + 1] / 2;
            return left != right ? left < right : one.index < other.index;
        };
    };
    const auto capacity = static_cast<std::size_t>((m_nodeBytes - headBytes) / entryBytes);
    const std::size_t nodes = (entries.size() + capacity - 1) / capacity;
    const auto slices = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(nodes))));
    const auto startOf = [&](std::size_t node) { return entries.data() + entries.size() * node / nodes; };
    std::sort(entries.begin(), entries.end(), byMiddle(0));
    for (std::size_t slice = 0; slice < slices; ++slice)
        std::sort(startOf(nodes * slice / slices), startOf(nodes * (slice + 1) / slices), byMiddle(2));

    SqliteStatement node(m_database, QStringLiteral("INSERT OR REPLACE INTO %1 VALUES (?, ?)").arg(shadow("node")));
    SqliteStatement parent(m_database, QStringLiteral("INSERT INTO %1 VALUES (?, ?)").arg(shadow("parent")));
    std::vector<Entry> made;
    made.reserve(nodes);
    for (std::size_t index = 0; index < nodes; ++index) {
        const quint32 number = nodes == 1 ? 1 : m_nextNode++;
        Entry whole = *startOf(index);
        whole.index = number;
        for (const Entry* entry = startOf(index); entry != startOf(index + 1); ++entry) {
            for (std::size_t axis = 0; axis < 4; axis += 2) {
                whole.box[axis] = std::min(whole.box[axis], entry->box[axis]);
                whole.box[axis + 1] = std::max(whole.box[axis + 1], entry->box[axis + 1]);
            }
            if (depth == 0) {
                m_nodeOfRow[entry->index] = number;
            } else {
                parent.bind(1, qint64{entry->index});
                parent.bind(2, qint64{number});
                parent.run();
            }
        }
        const QByteArray data = nodeOf(startOf(index), startOf(index + 1), depth);
        node.bind(1, qint64{number});
        node.bind(2, data);
        node.run();
        made.push_back(whole);
    }
    return made;
}

QByteArray SqliteRTree::nodeOf(const Entry* begin, const Entry* end, int depth) const
{
    QByteArray data(m_nodeBytes, '\0');
    char* to = data.data();
    // The height of the tree is read from the root only.
    qToBigEndian(static_cast<quint16>(depth), to);
    qToBigEndian(static_cast<quint16>(end - begin), to + 2);
    to += headBytes;
    for (const Entry* entry = begin; entry != end; ++entry) {
        qToBigEndian(depth == 0 ? m_rows[entry->index] : qint64{entry->index}, to);
        to += sizeof(qint64);
        for (const float number : entry->box)
            putFloat(to, number);
    }
    return data;
}

QString SqliteRTree::shadow(const char* kind) const
{
    return SqliteStatement::quoted(m_table + QLatin1Char('_') + QLatin1String(kind));
}

} // namespace kpFormats
