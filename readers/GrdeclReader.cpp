// SPDX-License-Identifier: MIT
#include "readers/GrdeclReader.h"

#include "model/OutputUnit.h"
#include "readers/DeckValues.h"
#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <new>

namespace kpFormats
{

namespace
{

// A grid of this size takes some three gigabytes; more in a small file is a fault or an attack.
constexpr qint64 mostCells = 30'000'000;

QString unitOf(const TextScanner& scanner, std::string_view word)
{
    while (!word.empty() && (word.front() == '\'' || word.front() == '"' || word.front() == ' '))
        word.remove_prefix(1);
    if (word.substr(0, 3) == "MET")
        return QStringLiteral("m");
    if (word.substr(0, 3) == "FEE")
        return QStringLiteral("ft");
    scanner.fail(QStringLiteral("%1 is not a known unit").arg(quoted(word)), QStringLiteral("METRES or FEET"));
}

class GrdeclFile
{
public:
    explicit GrdeclFile(const QString& path)
        : m_words(path)
        , m_path(path)
    {
    }

    void read();
    void addTo(Model& model, const LoadOptions& options);
    LoadNotes notes() const;

private:
    const TextScanner& at() const { return m_words.scanner(); }
    qint64 cells() const { return static_cast<qint64>(m_grid.columns) * m_grid.rows * m_grid.layers; }

    void readKeyword(const QString& keyword);
    void readDimensions(const QString& keyword);
    void readMapAxes();
    void readGridUnit();
    QString readUnit();
    std::vector<double> readNumbers(const QString& keyword, qint64 count);
    void readActive();
    void readOther(const QString& keyword);
    void readInclude();
    void readOrientation();
    void skipRecord();
    void needDimensions(const QString& keyword) const;
    void moveToMap();
    void turnDown();

    DeckWords m_words;
    QString m_path;
    CellGrid m_grid;
    std::vector<double> m_mapAxes;
    QString m_mapUnit;
    QString m_gridUnit;
    QString m_deckUnit;
    bool m_upwards = false;    ///< GDORIENT says that z is elevation
    bool m_decreasing = false; ///< ... that an axis runs backwards
    bool m_onMap = false;      ///< GRIDUNIT says that positions are on the map already
    QStringList m_passedOver;
};

void GrdeclFile::read()
{
    std::string_view word;
    while (m_words.next(word)) {
        // What follows the grid and its properties in a deck says nothing of them.
        if (m_words.isKeyword() && (word == "SUMMARY" || word == "SCHEDULE"))
            break;
        // What is not a keyword is left of a keyword that was passed over.
        if (m_words.isKeyword())
            readKeyword(QString::fromLatin1(word.data(), static_cast<int>(word.size())));
    }
    if (m_grid.coord.empty() || m_grid.zcorn.empty())
        throw LoadError(m_path,
                        QStringLiteral("there is no corner-point grid in it: SPECGRID, COORD or ZCORN is missing"),
                        QStringLiteral("give a file that holds all three"));
}

void GrdeclFile::readKeyword(const QString& keyword)
{
    if (keyword == QLatin1String("SPECGRID") || keyword == QLatin1String("DIMENS")) {
        readDimensions(keyword);
    } else if (keyword == QLatin1String("COORD")) {
        needDimensions(keyword);
        m_grid.coord = readNumbers(keyword, 6LL * (m_grid.columns + 1) * (m_grid.rows + 1));
    } else if (keyword == QLatin1String("ZCORN")) {
        needDimensions(keyword);
        m_grid.zcorn = readNumbers(keyword, 8 * cells());
    } else if (keyword == QLatin1String("ACTNUM")) {
        needDimensions(keyword);
        readActive();
    } else if (keyword == QLatin1String("MAPAXES")) {
        readMapAxes();
    } else if (keyword == QLatin1String("MAPUNITS")) {
        m_mapUnit = readUnit();
    } else if (keyword == QLatin1String("GRIDUNIT")) {
        readGridUnit();
    } else {
        readOther(keyword);
    }
}

void GrdeclFile::needDimensions(const QString& keyword) const
{
    if (m_grid.columns == 0)
        at().fail(QStringLiteral("%1 comes before the grid's size").arg(keyword), QStringLiteral("put SPECGRID first"));
}

void GrdeclFile::readDimensions(const QString& keyword)
{
    std::array<int, 3> size{};
    std::string_view word;
    for (int& number : size) {
        if (!m_words.next(word) || word == "/")
            at().fail(QStringLiteral("%1 needs three numbers").arg(keyword),
                      QStringLiteral("give columns, rows and layers"));
        const qint64 value = at().integer(word);
        if (value < 1 || value > mostCells)
            at().fail(QStringLiteral("a grid cannot have %1 cells in one direction").arg(value),
                      QStringLiteral("correct the size"));
        number = static_cast<int>(value);
    }
    const double total = static_cast<double>(size[0]) * size[1] * size[2];
    if (total > static_cast<double>(mostCells))
        at().fail(QStringLiteral("the grid would have %1 cells; the limit is %2").arg(total, 0, 'f', 0).arg(mostCells),
                  QStringLiteral("split or coarsen it"));
    const bool same = size == std::array<int, 3>{m_grid.columns, m_grid.rows, m_grid.layers};
    if (m_grid.columns != 0 && !same)
        at().fail(QStringLiteral("a second grid begins"), QStringLiteral("keep one grid per file"));
    m_grid.columns = size[0];
    m_grid.rows = size[1];
    m_grid.layers = size[2];
    while (m_words.next(word) && word != "/") {
        if (word == "T" || word == "'T'")
            at().fail(QStringLiteral("the grid is radial"), QStringLiteral("give a grid of straight columns and rows"));
        if (m_words.isKeyword() && word.size() > 1) {
            m_words.putBack();
            return;
        }
    }
}

std::vector<double> GrdeclFile::readNumbers(const QString& keyword, qint64 count)
{
    DeckValues values = readDeckValues(m_words, count, true, keyword);
    if (std::any_of(values.numbers.begin(), values.numbers.end(), [](double number) { return std::isnan(number); }))
        at().fail(QStringLiteral("%1 has defaults instead of numbers").arg(keyword),
                  QStringLiteral("write every number"));
    return std::move(values.numbers);
}

void GrdeclFile::readActive()
{
    const DeckValues values = readDeckValues(m_words, cells(), true, QStringLiteral("ACTNUM"));
    m_grid.active.clear();
    m_grid.active.reserve(values.numbers.size());
    for (const double number : values.numbers)
        m_grid.active.push_back(number == 0.0 ? 0 : 1); // a default is active
}

void GrdeclFile::readMapAxes()
{
    m_mapAxes = readNumbers(QStringLiteral("MAPAXES"), 6);
    const double yLength = std::hypot(m_mapAxes[0] - m_mapAxes[2], m_mapAxes[1] - m_mapAxes[3]);
    const double xLength = std::hypot(m_mapAxes[4] - m_mapAxes[2], m_mapAxes[5] - m_mapAxes[3]);
    if (!(yLength > 0.0) || !(xLength > 0.0))
        at().fail(QStringLiteral("MAPAXES has an axis of no length"), QStringLiteral("give three different points"));
}

QString GrdeclFile::readUnit()
{
    std::string_view word;
    if (!m_words.next(word))
        m_words.scanner().failAtEnd(QStringLiteral("a unit is missing"));
    const QString unit = unitOf(at(), word);
    skipRecord();
    return unit;
}

void GrdeclFile::readGridUnit()
{
    std::string_view word;
    if (!m_words.next(word))
        m_words.scanner().failAtEnd(QStringLiteral("a unit is missing"));
    m_gridUnit = unitOf(at(), word);
    while (m_words.next(word) && word != "/")
        m_onMap = m_onMap || word.find("MAP") != std::string_view::npos;
}

void GrdeclFile::skipRecord()
{
    std::string_view word;
    while (m_words.next(word) && word != "/") {
    }
}

void GrdeclFile::readInclude()
{
    std::string_view word;
    if (!m_words.next(word) || word == "/")
        at().fail(QStringLiteral("INCLUDE names no file"), QStringLiteral("write INCLUDE, then 'FILE' /"));
    while (word.size() > 1 && (word.front() == '\'' || word.front() == '"')) {
        word.remove_prefix(1);
        word.remove_suffix(1);
    }
    const QString name = QString::fromUtf8(word.data(), static_cast<int>(word.size()));
    skipRecord();
    m_words.include(name);
}

void GrdeclFile::readOrientation()
{
    std::string_view word;
    while (m_words.next(word) && word != "/") {
        m_upwards = m_upwards || word == "UP";
        m_decreasing = m_decreasing || word == "DEC";
    }
}

void GrdeclFile::readOther(const QString& keyword)
{
    if (keyword == QLatin1String("TITLE")) {
        m_words.skipLine();
        return;
    }
    if (keyword == QLatin1String("INCLUDE")) {
        readInclude();
        return;
    }
    if (keyword == QLatin1String("GDORIENT")) {
        readOrientation();
        return;
    }
    // The unit of a whole deck.
    if (keyword == QLatin1String("METRIC") || keyword == QLatin1String("FIELD")) {
        m_deckUnit = keyword == QLatin1String("METRIC") ? QStringLiteral("m") : QStringLiteral("ft");
        return;
    }
    const qint64 most = cells();
    DeckValues values = readDeckValues(m_words, most, false, keyword);
    const bool perCell = most > 0 && values.complete && static_cast<qint64>(values.numbers.size()) == most;
    if (!perCell) {
        if (!values.numbers.empty() || !values.complete)
            m_passedOver.append(keyword);
        return;
    }
    AttributeColumn column = deckColumn(keyword, std::move(values));
    auto& attributes = m_grid.cellAttributes;
    const auto earlier = std::find_if(attributes.begin(), attributes.end(),
                                      [&keyword](const AttributeColumn& known) { return known.name == keyword; });
    // As in a simulator, the last one counts.
    if (earlier == attributes.end())
        attributes.push_back(std::move(column));
    else
        *earlier = std::move(column);
}

void GrdeclFile::moveToMap()
{
    if (m_mapAxes.empty() || m_onMap)
        return;
    const double factor =
        m_mapUnit.isEmpty() || m_gridUnit.isEmpty() || m_mapUnit == m_gridUnit
            ? 1.0
            : unitFactor(m_mapUnit, m_gridUnit == QLatin1String("ft") ? OutputUnit::Foot : OutputUnit::Metre);
    const double originX = m_mapAxes[2] * factor;
    const double originY = m_mapAxes[3] * factor;
    const double yLength = std::hypot(m_mapAxes[0] - m_mapAxes[2], m_mapAxes[1] - m_mapAxes[3]);
    const double xLength = std::hypot(m_mapAxes[4] - m_mapAxes[2], m_mapAxes[5] - m_mapAxes[3]);
    const double xAxis[2] = {(m_mapAxes[4] - m_mapAxes[2]) / xLength, (m_mapAxes[5] - m_mapAxes[3]) / xLength};
    const double yAxis[2] = {(m_mapAxes[0] - m_mapAxes[2]) / yLength, (m_mapAxes[1] - m_mapAxes[3]) / yLength};
    for (std::size_t index = 0; index + 2 < m_grid.coord.size(); index += 3) {
        const double x = m_grid.coord[index];
        const double y = m_grid.coord[index + 1];
        m_grid.coord[index] = originX + x * xAxis[0] + y * yAxis[0];
        m_grid.coord[index + 1] = originY + x * xAxis[1] + y * yAxis[1];
    }
}

void GrdeclFile::turnDown()
{
    for (std::size_t index = 2; index < m_grid.coord.size(); index += 3)
        m_grid.coord[index] = -m_grid.coord[index];
    for (double& depth : m_grid.zcorn)
        depth = -depth;
}

void GrdeclFile::addTo(Model& model, const LoadOptions& options)
{
    if (m_gridUnit.isEmpty())
        m_gridUnit = m_deckUnit;
    moveToMap();
    if (m_upwards)
        turnDown();
    ModelObject object = newObject(m_path, options, ObjectType::GeoCellularVolumes,
                                   options.name.isEmpty() ? QFileInfo(m_path).completeBaseName() : options.name,
                                   QStringLiteral("Cell grids"));
    if (!m_gridUnit.isEmpty())
        object.lengthUnit = m_gridUnit;
    setOutline(object, m_grid);
    object.cells = std::make_shared<const CellGrid>(std::move(m_grid));
    model.add(std::move(object));
}

LoadNotes GrdeclFile::notes() const
{
    LoadNotes notes;
    if (m_upwards)
        notes.append(QStringLiteral("%1: its z counts upwards, as GDORIENT says").arg(m_path));
    if (m_decreasing)
        notes.append(
            QStringLiteral("%1: GDORIENT says that an axis of the grid runs backwards; cells keep their order and "
                           "places")
                .arg(m_path));
    static const std::vector<double> straight{0, 1, 0, 0, 1, 0};
    std::vector<double> axes = m_mapAxes;
    // A point on an axis may be any.
    if (axes.size() == straight.size() && axes[1] > 0.0 && axes[4] > 0.0)
        axes[1] = axes[4] = 1.0;
    if (m_onMap && !m_mapAxes.empty() && axes != straight)
        notes.append(
            QStringLiteral("%1: MAPAXES moves or turns the grid, but GRIDUNIT says that it is on the map: it was "
                           "left where it is")
                .arg(m_path));
    QStringList names = m_passedOver;
    names.removeDuplicates();
    if (names.isEmpty())
        return notes;
    constexpr int mostNames = 12;
    const QString more =
        names.size() > mostNames ? QStringLiteral(" and %1 more").arg(names.size() - mostNames) : QString();
    notes.append(QStringLiteral("%1: keywords that are not properties of the cells were passed over: %2%3")
                     .arg(m_path, names.mid(0, mostNames).join(QStringLiteral(", ")), more));
    return notes;
}

} // namespace

LoadNotes readGrdecl(Model& model, const QString& path, const LoadOptions& options)
{
    try {
        GrdeclFile file(path);
        file.read();
        file.addTo(model, options);
        return file.notes();
    } catch (const std::bad_alloc&) {
        throw LoadError(path, QStringLiteral("the grid does not fit into memory"),
                        QStringLiteral("split or coarsen it"));
    }
}

} // namespace kpFormats
