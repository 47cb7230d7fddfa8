// SPDX-License-Identifier: MIT
#include "readers/IrapReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/RegularGrid.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace kpFormats
{

namespace
{

constexpr double mark = -996;
constexpr double noValue = 9999900.0;
constexpr double mostNodes = 500e6;
constexpr int headNumbers = 19;

/// The order of the numbers in the head of the text form.
enum Head { Mark, Rows, StepX, StepY, West, East, South, North, Columns, Rotation, AboutX, AboutY };

RegularGrid gridOf(const std::array<double, headNumbers>& head, const QString& path)
{
    const auto isCount = [](double number) { return number >= 1 && number <= 1e7 && number == std::floor(number); };
    if (head[Mark] != mark || !isCount(head[Rows]) || !isCount(head[Columns]) || head[Rows] * head[Columns] > mostNodes
        || !(head[StepX] > 0) || !(head[StepY] > 0)
        || !std::all_of(head.begin(), head.end(), [](double number) { return std::isfinite(number); }))
        throw LoadError(path, QStringLiteral("its head does not describe a grid"),
                        QStringLiteral("copy the file again from its source"));
    RegularGrid grid;
    grid.geometry.columns = static_cast<int>(head[Columns]);
    grid.geometry.rows = static_cast<int>(head[Rows]);
    // It is turned about a point, which is its origin as a rule.
    const double turned = head[Rotation] * M_PI / 180.0;
    const double east = head[West] - head[AboutX];
    const double north = head[South] - head[AboutY];
    grid.geometry.originX = head[AboutX] + (east * std::cos(turned) - north * std::sin(turned));
    grid.geometry.originY = head[AboutY] + (east * std::sin(turned) + north * std::cos(turned));
    grid.geometry.stepX = head[StepX];
    grid.geometry.stepY = head[StepY];
    grid.geometry.rotation = head[Rotation];
    return grid;
}

/// What the head says twice and not the same way.
LoadNotes contradictions(const std::array<double, headNumbers>& head, const QString& path)
{
    constexpr double roundings = 1e-6; // of single precision, of the whole extent
    LoadNotes notes;
    const auto compare = [&](const char* axis, Head first, Head last, double steps, double step) {
        const double end = head[first] + steps * step;
        if (std::abs(head[last] - end) > roundings * (std::abs(head[first]) + steps * step) + 1e-8 * steps)
            notes.append(QStringLiteral("%1: its head says that %2 ends at %3, its steps lead to %4")
                             .arg(path, QLatin1String(axis))
                             .arg(head[last], 0, 'f', 3)
                             .arg(end, 0, 'f', 3));
    };
    compare("x", West, East, head[Columns] - 1.0, head[StepX]);
    compare("y", South, North, head[Rows] - 1.0, head[StepY]);
    return notes;
}

double heightOf(double value)
{
    return value >= noValue ? std::numeric_limits<double>::quiet_NaN() : value;
}

/// A binary file is a row of records: their size, the bytes, their size again, numbers with the high byte first.
class Records
{
public:
    explicit Records(const QString& path)
        : m_path(path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw LoadError(path, QStringLiteral("the file cannot be read"), QStringLiteral("check its permissions"));
        m_bytes = file.readAll();
    }

    /// The next record, of 4-byte numbers. False at the end of the file.
    bool next()
    {
        if (m_position >= m_bytes.size())
            return false;
        const qint64 size = m_bytes.size() - m_position >= 8 ? integerAt(m_position) : -1;
        if (size < 0 || size % 4 != 0 || size > m_bytes.size() - m_position - 8
            || integerAt(m_position + 4 + static_cast<int>(size)) != size)
            throw LoadError(m_path, QStringLiteral("the record at byte %1 is damaged").arg(m_position),
                            QStringLiteral("copy the file again from its source"));
        m_first = m_position + 4;
        m_count = static_cast<int>(size / 4);
        m_position = m_first + static_cast<int>(size) + 4;
        return true;
    }
    int count() const { return m_count; }
    qint32 integer(int number) const { return integerAt(m_first + 4 * number); }
    double real(int number) const
    {
        const quint32 bits = qFromBigEndian<quint32>(m_bytes.constData() + m_first + 4 * number);
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return static_cast<double>(value);
    }
    /// A record of at least that many numbers. \throws LoadError when there is none
    void need(int numbers)
    {
        if (!next() || m_count < numbers)
            throw LoadError(m_path, QStringLiteral("its head is not complete"),
                            QStringLiteral("copy the file again from its source"));
    }

private:
    qint32 integerAt(int position) const { return qFromBigEndian<qint32>(m_bytes.constData() + position); }

    QString m_path;
    QByteArray m_bytes;
    int m_position = 0;
    int m_first = 0;
    int m_count = 0;
};

RegularGrid readBinary(const QString& path, LoadNotes& notes)
{
    Records records(path);
    std::array<double, headNumbers> head{};
    records.need(8);
    head[Mark] = records.integer(0);
    head[Rows] = records.integer(1);
    const Head order[] = {West, East, South, North, StepX, StepY};
    for (int number = 0; number < 6; ++number)
        head[order[number]] = records.real(number + 2);
    records.need(4);
    head[Columns] = records.integer(0);
    head[Rotation] = records.real(1);
    head[AboutX] = records.real(2);
    head[AboutY] = records.real(3);
    records.need(7);
    RegularGrid grid = gridOf(head, path);
    notes = contradictions(head, path);
    const std::size_t count =
        static_cast<std::size_t>(grid.geometry.columns) * static_cast<std::size_t>(grid.geometry.rows);
    while (grid.z.size() < count && records.next()) {
        for (int number = 0; number < records.count() && grid.z.size() < count; ++number)
            grid.z.push_back(heightOf(records.real(number)));
    }
    if (grid.z.size() < count)
        throw LoadError(path, QStringLiteral("it has %1 of %2 nodes").arg(grid.z.size()).arg(count),
                        QStringLiteral("it was cut short; copy it again from its source"));
    return grid;
}

RegularGrid readText(const QString& path, LoadNotes& notes)
{
    TextScanner scanner(path);
    std::string_view word;
    const auto next = [&] {
        while (!scanner.nextWord(word)) {
            if (!scanner.nextLine())
                return false;
        }
        return true;
    };
    std::array<double, headNumbers> head{};
    for (double& number : head) {
        if (!next())
            scanner.failAtEnd(QStringLiteral("its head is not complete"));
        number = scanner.number(word);
    }
    RegularGrid grid = gridOf(head, path);
    notes = contradictions(head, path);
    const std::size_t count =
        static_cast<std::size_t>(grid.geometry.columns) * static_cast<std::size_t>(grid.geometry.rows);
    while (grid.z.size() < count) {
        if (!next())
            scanner.failAtEnd(QStringLiteral("it has %1 of %2 nodes").arg(grid.z.size()).arg(count));
        grid.z.push_back(heightOf(scanner.number(word)));
    }
    return grid;
}

using Coordinates = std::array<std::vector<double>, 3>;

/// Calls \a take with the points of each line. \throws LoadError when there is none
template <typename Take>
void eachIrapLine(const QString& path, Take take)
{
    TextScanner scanner(path);
    Coordinates points;
    bool any = false;
    const auto end = [&] {
        if (!points[0].empty()) {
            take(points);
            any = true;
        }
        points = {};
    };
    std::string_view word;
    while (scanner.nextLine()) {
        if (!scanner.nextWord(word))
            continue;
        std::array<double, 3> position{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            if (axis > 0 && !scanner.nextWord(word))
                scanner.fail(QStringLiteral("a point needs three numbers"), QStringLiteral("correct the line"));
            position[axis] = scanner.number(word);
        }
        if (position == std::array<double, 3>{999, 999, 999}) {
            end();
            continue;
        }
        for (std::size_t axis = 0; axis < 3; ++axis)
            points[axis].push_back(position[axis]);
    }
    end();
    if (!any)
        throw LoadError(path, QStringLiteral("there is no point in it"), QStringLiteral("check the file"));
}

} // namespace

bool isIrapGrid(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray begin = file.read(64);
    if (begin.size() >= 8 && qFromBigEndian<qint32>(begin.constData()) == 32
        && qFromBigEndian<qint32>(begin.constData() + 4) == static_cast<qint32>(mark))
        return true;
    return begin.simplified().startsWith("-996 ");
}

LoadNotes readIrapGrid(Model& model, const QString& path, const LoadOptions& options)
{
    QFile file(path);
    const bool binary = file.open(QIODevice::ReadOnly) && file.read(1).startsWith('\0');
    LoadNotes notes;
    RegularGrid grid = binary ? readBinary(path, notes) : readText(path, notes);
    return notes + addGrid(model, path, options, std::move(grid));
}

LoadNotes readIrapPolygons(Model& model, const QString& path, const LoadOptions& options)
{
    int number = 0;
    const QString base = options.name.isEmpty() ? QFileInfo(path).completeBaseName() : options.name;
    eachIrapLine(path, [&](Coordinates& points) {
        const bool closed = points[0].size() > 3 && points[0].front() == points[0].back()
                            && points[1].front() == points[1].back() && points[2].front() == points[2].back();
        ModelObject object =
            newObject(path, options, closed ? ObjectType::Polygons : ObjectType::Polylines,
                      QStringLiteral("%1 %2").arg(base).arg(++number), QFileInfo(path).completeBaseName());
        object.parts.push_back({0, static_cast<int>(points[0].size()), closed, false});
        setCoordinates(object, std::move(points[0]), std::move(points[1]), std::move(points[2]));
        model.add(std::move(object));
    });
    return {};
}

LoadNotes readIrapPoints(Model& model, const QString& path, const LoadOptions& options)
{
    Coordinates all;
    eachIrapLine(path, [&all](const Coordinates& points) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            all[axis].insert(all[axis].end(), points[axis].begin(), points[axis].end());
    });
    const QString base = QFileInfo(path).completeBaseName();
    ModelObject object =
        newObject(path, options, ObjectType::VertexClouds, options.name.isEmpty() ? base : options.name, base);
    setCoordinates(object, std::move(all[0]), std::move(all[1]), std::move(all[2]));
    model.add(std::move(object));
    return {};
}

} // namespace kpFormats
