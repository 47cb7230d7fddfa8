// SPDX-License-Identifier: MIT
#include "readers/TextTable.h"

#include "readers/CoordinateColumns.h"
#include "readers/LoadError.h"
#include "readers/TextEncoding.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace kpFormats
{

namespace
{

// A table wider than this is not a table of attributes.
constexpr int mostColumns = 10000;
constexpr std::size_t longestLine = 4 * 1024 * 1024;

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\f' || character == '\v';
}

bool isRemark(std::string_view line)
{
    const std::size_t first = line.find_first_not_of(" \t");
    return first != std::string_view::npos
           && (line[first] == '#' || line[first] == '!' || line.substr(first, 2) == "//");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        throw LoadError(path, QStringLiteral("the file cannot be read"),
                        QStringLiteral("check the path and its permissions"));
    if (file.size() > std::numeric_limits<int>::max() - 1024)
        throw LoadError(path, QStringLiteral("the table is larger than 2 GB"), QStringLiteral("split it"));
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw LoadError(path, QStringLiteral("reading failed: %1").arg(file.errorString()),
                        QStringLiteral("copy the file again from its source"));
    return content;
}

/// How often the separator stands in the line outside quotes; blanks count as one between words.
int countOf(std::string_view line, char separator)
{
    int count = 0;
    bool inQuotes = false;
    bool wasBlank = true;
    while (!line.empty() && isBlank(line.back()) && separator == ' ')
        line.remove_suffix(1);
    for (const char character : line) {
        if (character == '"')
            inQuotes = !inQuotes;
        const bool blank = isBlank(character);
        if (!inQuotes && (separator == ' ' ? blank && !wasBlank : character == separator))
            ++count;
        wasBlank = blank;
    }
    return count;
}

} // namespace

std::optional<double> numberOf(std::string_view text, bool decimalComma)
{
    std::array<char, 64> changed;
    if (decimalComma && text.size() < changed.size() && text.find(',') != std::string_view::npos) {
        if (text.find('.') != std::string_view::npos)
            return {};
        std::replace_copy(text.begin(), text.end(), changed.begin(), ',', '.');
        text = std::string_view(changed.data(), text.size());
    }
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (text.empty() || read.ptr != end || read.ec == std::errc::invalid_argument)
        return {};
    // Beyond what a double can hold it is still no text.
    if (read.ec == std::errc::result_out_of_range)
        return std::numeric_limits<double>::infinity();
    return value;
}

TextTable::TextTable(const QString& path, const QString& encoding)
    : m_path(path)
{
    QString guessed;
    QByteArray bytes = contentOf(path);
    const bool wide = bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff") || !encoding.isEmpty();
    if (!wide && bytes.left(4096).contains('\0'))
        throw LoadError(path, QStringLiteral("this is a binary file, not delimited text"),
                        QStringLiteral("give the file its proper extension"));
    m_text = toUtf8(path, std::move(bytes), encoding, guessed).toStdString();
    // Lines may end in carriage returns alone, and the last one as lines do elsewhere.
    if (std::count(m_text.begin(), m_text.end(), '\r') > 1 && m_text.find("\r\n") == std::string::npos
        && std::count(m_text.begin(), m_text.end(), '\n') <= 1)
        std::replace(m_text.begin(), m_text.end(), '\r', '\n');
    if (!guessed.isEmpty())
        m_notes.append(
            QStringLiteral("its text is not UTF-8 and is taken for %1 (say \"encoding\" in a model file where "
                           "it is another)")
                .arg(guessed));
    findSeparator();
    readRows();
}

void TextTable::findSeparator()
{
    constexpr int mostLines = 30;
    std::vector<std::string_view> lines;
    int firstLine = 1;
    const std::string_view text(m_text);
    for (std::size_t begin = 0; begin < text.size() && static_cast<int>(lines.size()) < mostLines;) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = text.substr(begin, end - begin);
        if (line.size() > longestLine)
            throw LoadError(m_path, QStringLiteral("a line is longer than %1 bytes").arg(longestLine),
                            QStringLiteral("give the file its proper extension"));
        if (line.find_first_not_of(" \t\r\f\v") != std::string_view::npos && !isRemark(line))
            lines.push_back(line);
        firstLine += lines.empty() ? 1 : 0;
        begin = end + 1;
    }
    if (lines.empty())
        throw LoadError(m_path, QStringLiteral("the file is empty"), QStringLiteral("export it again from its source"));
    int best = 0;
    bool found = false;
    for (const char separator : {'\t', ';', '|', ',', ' '}) {
        const int first = countOf(lines.front(), separator);
        const bool same = std::all_of(lines.begin(), lines.end(),
                                      [&](std::string_view line) { return countOf(line, separator) == first; });
        if (first > 0 && same) {
            m_separator = separator;
            found = true;
            break;
        }
        // Rows of different lengths: what is most often there in the first line; blanks stand in texts, too.
        if (separator != ' ' && first > best) {
            best = first;
            m_separator = separator;
        }
    }
    if (!found && best == 0)
        m_separator = ' ';
    const int columns = countOf(lines.front(), m_separator) + 1;
    if (columns > mostColumns)
        throw LoadError(
            m_path,
            QStringLiteral("line %1 has %2 columns; the limit is %3").arg(firstLine).arg(columns).arg(mostColumns),
            QStringLiteral("remove the columns that are not needed"));
}

TextTable::Cell TextTable::nextCell(std::size_t& position, bool& ended)
{
    const auto isEnd = [this](std::size_t at) { return at >= m_text.size() || m_text[at] == '\n'; };
    while (!isEnd(position) && isBlank(m_text[position]) && (m_separator == ' ' || m_text[position] != m_separator))
        ++position;
    Cell cell{position, 0};
    if (!isEnd(position) && m_text[position] == '"') {
        // Quotes within are doubled; the text moves up over the one that falls away.
        std::size_t to = cell.first;
        for (++position; position < m_text.size(); ++position) {
            if (m_text[position] == '"') {
                if (position + 1 >= m_text.size() || m_text[position + 1] != '"')
                    break;
                ++position;
            }
            m_line += m_text[position] == '\n' ? 1 : 0;
            m_text[to++] = m_text[position];
        }
        if (position >= m_text.size())
            throw LoadError(m_path, QStringLiteral("line %1: a text in quotes does not end").arg(m_line),
                            QStringLiteral("close the quotes"));
        cell.size = to - cell.first;
        ++position;
        while (!isEnd(position) && m_text[position] != m_separator
               && !(m_separator == ' ' && isBlank(m_text[position])))
            ++position;
    } else {
        while (!isEnd(position) && m_text[position] != m_separator
               && !(m_separator == ' ' && isBlank(m_text[position])))
            ++position;
        cell.size = position - cell.first;
        while (cell.size > 0 && isBlank(m_text[cell.first + cell.size - 1]))
            --cell.size;
    }
    if (m_separator == ' ') {
        while (!isEnd(position) && isBlank(m_text[position]))
            ++position;
        ended = isEnd(position);
    } else {
        ended = isEnd(position);
        if (!ended)
            ++position; // the separator
    }
    return cell;
}

bool TextTable::nextRow(Row& row)
{
    row.cells.clear();
    while (m_position < m_text.size()) {
        ++m_line;
        row.line = m_line;
        const std::size_t end = std::min(m_text.find('\n', m_position), m_text.size());
        const std::string_view line = std::string_view(m_text).substr(m_position, end - m_position);
        if (isRemark(line) || line.find_first_not_of(" \t\r\f\v") == std::string_view::npos) {
            if (isRemark(line) && m_lines.empty() && m_columns.isEmpty())
                m_remark = line;
            m_position = end + 1;
            continue;
        }
        bool ended = false;
        while (!ended) {
            row.cells.push_back(nextCell(m_position, ended));
            if (static_cast<int>(row.cells.size()) > mostColumns)
                throw LoadError(
                    m_path,
                    QStringLiteral("line %1 has more columns than %2, the limit").arg(row.line).arg(mostColumns),
                    QStringLiteral("remove the columns that are not needed"));
        }
        ++m_position; // the line end
        return true;
    }
    return false;
}

QString TextTable::textOf(const Cell& cell) const
{
    return QString::fromUtf8(m_text.data() + cell.first, static_cast<int>(cell.size));
}

bool TextTable::isNumber(const Cell& cell) const
{
    return numberOf(std::string_view(m_text).substr(cell.first, cell.size), m_separator != ',').has_value();
}

void TextTable::takeHeader(Row& first, const Row& second)
{
    static const QStringList known{QStringLiteral("x"),    QStringLiteral("easting"),   QStringLiteral("east"),
                                   QStringLiteral("lon"),  QStringLiteral("longitude"), QStringLiteral("long"),
                                   QStringLiteral("bhid"), QStringLiteral("xcollar")};
    const auto numbers = [this](const Row& row) {
        return std::count_if(row.cells.begin(), row.cells.end(), [this](const Cell& cell) { return isNumber(cell); });
    };
    const bool named = std::any_of(first.cells.begin(), first.cells.end(), [this](const Cell& cell) {
        return known.contains(textOf(cell), Qt::CaseInsensitive);
    });
    m_hasHeader = named || numbers(first) == 0 || numbers(first) < numbers(second);
    if (m_hasHeader) {
        for (const Cell& cell : first.cells)
            m_columns.append(textOf(cell));
        return;
    }
    // Names may stand in the remark above: "# X Y Z".
    const std::size_t begin = m_remark.find_first_not_of("#!/ \t");
    if (begin != std::string::npos) {
        const QString text = QString::fromUtf8(m_remark.c_str() + begin).trimmed();
        const QStringList names =
            m_separator == ' ' ? text.simplified().split(QLatin1Char(' ')) : text.split(QLatin1Char(m_separator));
        const auto isKnown = [](const QString& name) { return known.contains(name.trimmed(), Qt::CaseInsensitive); };
        if (static_cast<std::size_t>(names.size()) == first.cells.size()
            && std::any_of(names.begin(), names.end(), isKnown)) {
            for (const QString& name : names)
                m_columns.append(name.trimmed());
            return;
        }
    }
    nameColumns(first);
}

void TextTable::nameColumns(const Row& first)
{
    static const char* const axes[] = {"x", "y", "z"};
    std::size_t axis = 0;
    for (std::size_t column = 0; column < first.cells.size(); ++column) {
        if (axis < 3 && isNumber(first.cells[column]))
            m_columns.append(QLatin1String(axes[axis++]));
        else
            m_columns.append(QStringLiteral("column %1").arg(column + 1));
    }
    m_notes.append(QStringLiteral("line %1 is not a header: the first columns of numbers are taken as x, y and z")
                       .arg(first.line));
}

void TextTable::readRows()
{
    Row first;
    Row row;
    nextRow(first);
    const bool hasSecond = nextRow(row);
    takeHeader(first, row);
    for (int column = 0; column < m_columns.size(); ++column) {
        QString name = m_columns[column].isEmpty() ? QStringLiteral("column %1").arg(column + 1) : m_columns[column];
        const QString asked = name;
        const QStringList before = m_columns.mid(0, column);
        for (int number = 2; before.contains(name, Qt::CaseInsensitive); ++number)
            name = QStringLiteral("%1_%2").arg(asked).arg(number);
        if (name != asked)
            m_notes.append(QStringLiteral("the column %1 is there twice: the second is called %2").arg(asked, name));
        m_columns[column] = name;
    }
    m_width = static_cast<std::size_t>(m_columns.size());
    int tooLong = 0;
    int firstTooLong = 0;
    const auto add = [&](const Row& added) {
        // A separator at the end of the line begins no cell.
        if (added.cells.size() > m_width + (added.cells.back().size == 0 ? 1 : 0) && tooLong++ == 0)
            firstTooLong = added.line;
        for (std::size_t column = 0; column < m_width; ++column)
            m_cells.push_back(column < added.cells.size() ? added.cells[column] : Cell());
        m_lines.push_back(added.line);
        // Short rows under a wide header would take memory out of proportion.
        if (m_cells.size() > 4 * m_text.size() + 1000000)
            throw LoadError(m_path,
                            QStringLiteral("line %1 and others have far fewer cells than line 1").arg(added.line),
                            QStringLiteral("check what parts the columns"));
    };
    if (!m_hasHeader)
        add(first);
    if (hasSecond) {
        do {
            add(row);
        } while (nextRow(row));
    }
    if (tooLong > 0)
        m_notes.append(QStringLiteral("%1 rows have more cells than there are columns, and what is too many was left "
                                      "out; the first is line %2")
                           .arg(tooLong)
                           .arg(firstTooLong));
    findDecimalSign();
}

void TextTable::findDecimalSign()
{
    if (m_separator == ',')
        return;
    constexpr int mostRows = 1000;
    bool comma = false;
    for (int row = 0; row < std::min(rowCount(), mostRows); ++row) {
        for (int column = 0; column < static_cast<int>(m_width); ++column) {
            const std::string_view text = cell(row, column);
            if (text.find('.') != std::string_view::npos && numberOf(text))
                return;
            comma = comma || (text.find(',') != std::string_view::npos && numberOf(text, true));
        }
    }
    m_decimalComma = comma;
}

std::optional<double> TextTable::number(int row, int column) const
{
    return numberOf(cell(row, column), m_decimalComma);
}

int TextTable::columnNamed(const QStringList& names) const
{
    return kpFormats::columnNamed(m_columns, names);
}

} // namespace kpFormats
