// SPDX-License-Identifier: MIT
#include "readers/ZMapReader.h"

#include "readers/MeshBuilder.h"
#include "readers/RegularGrid.h"
#include "readers/TextTable.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr qint64 mostNodes = 500'000'000;

QStringList fieldsOf(const TextScanner& scanner)
{
    QStringList fields;
    const std::string_view line = scanner.line();
    for (const QString& field : QString::fromUtf8(line.data(), static_cast<int>(line.size())).split(QLatin1Char(',')))
        fields.append(field.trimmed());
    return fields;
}

class ZMapFile
{
public:
    explicit ZMapFile(const QString& path)
        : m_scanner(path)
    {
    }

    RegularGrid read()
    {
        readHead();
        readNodes();
        return std::move(m_grid);
    }

private:
    QStringList headLine(int least)
    {
        do {
            if (!m_scanner.nextLine())
                m_scanner.failAtEnd(QStringLiteral("the head of the grid is not complete"));
        } while (!m_scanner.line().empty() && m_scanner.line().front() == '!');
        const QStringList fields = fieldsOf(m_scanner);
        if (fields.size() < least)
            m_scanner.fail(QStringLiteral("the head has %1 of %2 fields here").arg(fields.size()).arg(least),
                           QStringLiteral("correct the line"));
        return fields;
    }

    double number(const QString& field) const
    {
        const QByteArray text = field.toUtf8();
        return m_scanner.number({text.constData(), static_cast<std::size_t>(text.size())});
    }

    int count(const QString& field, const char* what) const
    {
        const double value = number(field);
        if (value < 1 || value > 1e8 || value != std::floor(value))
            m_scanner.fail(QStringLiteral("%1 is not a possible number of %2").arg(field, QLatin1String(what)),
                           QStringLiteral("correct the line"));
        return static_cast<int>(value);
    }

    void readHead()
    {
        const QStringList kind = headLine(3);
        if (!kind[0].startsWith(QLatin1Char('@')) || kind[1].toUpper() != QLatin1String("GRID"))
            m_scanner.fail(QStringLiteral("this is not the head of a grid"), QStringLiteral("give a ZMap+ grid"));
        const QStringList widths = headLine(4);
        m_width = static_cast<std::size_t>(count(widths[0], "characters"));
        // The null value or, in its stead, a text.
        if (!widths[1].isEmpty()) {
            m_hasNull = true;
            m_null = number(widths[1]);
        }
        m_nullText = widths[2].toStdString();
        const QStringList limits = headLine(6);
        m_grid.geometry.rows = count(limits[0], "rows");
        m_grid.geometry.columns = count(limits[1], "columns");
        if (static_cast<qint64>(m_grid.geometry.rows) * m_grid.geometry.columns > mostNodes)
            m_scanner.fail(QStringLiteral("the grid would have more than %1 nodes").arg(mostNodes),
                           QStringLiteral("correct or coarsen it"));
        const double west = number(limits[2]);
        const double east = number(limits[3]);
        const double south = number(limits[4]);
        const double north = number(limits[5]);
        if (east < west || north < south)
            m_scanner.fail(QStringLiteral("the limits of the grid are the wrong way round"),
                           QStringLiteral("write least x, greatest x, least y, greatest y"));
        m_grid.geometry.originX = west;
        m_grid.geometry.originY = south;
        m_grid.geometry.stepX = m_grid.geometry.columns > 1 ? (east - west) / (m_grid.geometry.columns - 1) : 1.0;
        m_grid.geometry.stepY = m_grid.geometry.rows > 1 ? (north - south) / (m_grid.geometry.rows - 1) : 1.0;
        while (true) {
            const QStringList line = headLine(1);
            if (line[0].startsWith(QLatin1Char('@')))
                return;
        }
    }

    void add(std::string_view word)
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const bool isNull = !m_nullText.empty() && word == m_nullText;
        double value = isNull ? nan : m_scanner.number(word);
        // A null of fewer decimals than the nodes, or of more.
        if (m_hasNull && std::abs(value - m_null) <= 1e-6 * std::abs(m_null))
            value = nan;
        m_values.push_back(value);
    }

    void readLine()
    {
        std::string_view word;
        const std::string_view line = m_scanner.line();
        std::vector<std::string_view> words;
        while (m_scanner.nextWord(word))
            words.push_back(word);
        const bool apart = std::all_of(words.begin(), words.end(), [this](std::string_view one) {
            return one == m_nullText || numberOf(one).has_value();
        });
        if (apart) {
            for (const std::string_view one : words)
                add(one);
            return;
        }
        // Fields that fill their width stand against each other.
        for (std::size_t first = 0; first < line.size(); first += m_width) {
            std::string_view field = line.substr(first, m_width);
            while (!field.empty() && field.front() == ' ')
                field.remove_prefix(1);
            while (!field.empty() && (field.back() == ' ' || field.back() == '\r'))
                field.remove_suffix(1);
            if (!field.empty())
                add(field);
        }
    }

    void readNodes()
    {
        const auto columns = static_cast<std::size_t>(m_grid.geometry.columns);
        const auto rows = static_cast<std::size_t>(m_grid.geometry.rows);
        while (m_values.size() < columns * rows && m_scanner.nextLine()) {
            const std::string_view line = m_scanner.line();
            if (line.empty() || line.front() == '+' || line.front() == '!')
                continue;
            readLine();
        }
        if (m_values.size() < columns * rows)
            m_scanner.failAtEnd(QStringLiteral("it has %1 of %2 nodes").arg(m_values.size()).arg(columns * rows));
        m_grid.z.resize(columns * rows);
        for (std::size_t column = 0; column < columns; ++column) {
            for (std::size_t row = 0; row < rows; ++row)
                m_grid.z[(rows - 1 - row) * columns + column] = m_values[column * rows + row];
        }
    }

    TextScanner m_scanner;
    RegularGrid m_grid;
    std::size_t m_width = 0;
    bool m_hasNull = false;
    double m_null = 0.0;
    std::string m_nullText;
    std::vector<double> m_values; ///< as in the file
};

} // namespace

bool isZMapGrid(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    // Comments, then "@NAME HEADER, GRID, 5".
    constexpr int mostComments = 100;
    constexpr qint64 longestLine = 1000;
    for (int number = 0; number < mostComments; ++number) {
        const QByteArray line = file.readLine(longestLine);
        if (!line.startsWith('!'))
            return line.startsWith('@') && line.split(',').value(1).trimmed().toUpper() == "GRID";
    }
    return false;
}

LoadNotes readZMap(Model& model, const QString& path, const LoadOptions& options)
{
    RegularGrid grid = ZMapFile(path).read();
    return addGrid(model, path, options, std::move(grid));
}

} // namespace kpFormats
