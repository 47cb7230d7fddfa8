// SPDX-License-Identifier: MIT
#include "readers/RmsWellReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/TextTable.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <optional>

namespace kpFormats
{

namespace
{

constexpr double undefined = -999.0;

struct Log
{
    QString name;
    bool discrete = false;
    QHash<qint64, QString> names; ///< of the codes of a discrete log
    std::vector<double> values;   ///< NaN where there is none
};

/// The third line: a name, which may have blanks and numbers, then x and y, then perhaps the height of the rotary table.
struct Head
{
    QStringList words;
    QString name;
    double x = 0.0;
    double y = 0.0;
    std::optional<double> rotaryTable;

    double numberAt(int fromEnd) const
    {
        const std::string word = words.value(words.size() - fromEnd).toStdString();
        return numberOf(word).value_or(std::nan(""));
    }
    /// Where two readings are possible, x and y are those nearer to the path.
    void settle(double firstX, double firstY)
    {
        const double ends = std::hypot(numberAt(2) - firstX, numberAt(1) - firstY);
        const double before = std::hypot(numberAt(3) - firstX, numberAt(2) - firstY);
        const bool hasTable = words.size() > 3 && std::isfinite(numberAt(1)) && before < ends;
        if (hasTable)
            rotaryTable = numberAt(1);
        x = numberAt(hasTable ? 3 : 2);
        y = numberAt(hasTable ? 2 : 1);
        name = words.mid(0, words.size() - (hasTable ? 3 : 2)).join(QLatin1Char(' '));
    }
};

QString textOf(std::string_view word)
{
    return QString::fromUtf8(word.data(), static_cast<int>(word.size()));
}

struct Well
{
    Head head;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<Log> logs;
};

/// A file holds one well after the other.
class RmsParser
{
public:
    explicit RmsParser(const QString& path)
        : m_scanner(path)
    {
    }

    std::vector<Well> read()
    {
        std::string_view word;
        while (m_scanner.nextLine()) {
            if (!m_scanner.nextWord(word))
                continue;
            if (m_wells.empty() || m_scanner.rest().empty())
                readHead();
            else
                readRow(word);
        }
        if (m_wells.empty() || m_wells.back().x.empty())
            m_scanner.failAtEnd(QStringLiteral("the well has no row of a path"));
        endWell();
        return std::move(m_wells);
    }

private:
    void needLine()
    {
        if (!m_scanner.nextLine())
            m_scanner.failAtEnd(QStringLiteral("the head of the well is not complete"));
    }

    void endWell()
    {
        if (m_wells.empty())
            return;
        Well& well = m_wells.back();
        if (well.x.empty())
            m_scanner.fail(QStringLiteral("the well before it has no row of a path"),
                           QStringLiteral("it may be cut short; copy the file again from its source"));
        well.head.settle(well.x.front(), well.y.front());
    }

    /// From the line with the version, which is the only one of a single word.
    void readHead()
    {
        endWell();
        m_wells.emplace_back();
        needLine();
        needLine();
        std::string_view word;
        while (m_scanner.nextWord(word))
            m_wells.back().head.words.append(textOf(word));
        needLine();
        if (!m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("the number of logs is missing"), QStringLiteral("correct the line"));
        const qint64 count = m_scanner.integer(word);
        for (qint64 log = 0; log < count; ++log)
            readLog();
    }

    /// A name, the kind, and, of a discrete log, pairs of codes and their names.
    void readLog()
    {
        needLine();
        Log log;
        std::string_view word;
        if (!m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("the name of a log is missing"), QStringLiteral("correct the line"));
        log.name = textOf(word);
        log.discrete = m_scanner.nextWord(word) && word == "DISC";
        std::string_view name;
        while (log.discrete && m_scanner.nextWord(word)) {
            if (!m_scanner.nextWord(name))
                m_scanner.fail(QStringLiteral("the code %1 has no name").arg(quoted(word)),
                               QStringLiteral("give pairs of codes and names"));
            log.names.insert(m_scanner.integer(word), textOf(name));
        }
        m_wells.back().logs.push_back(std::move(log));
    }

    void readRow(std::string_view word)
    {
        Well& well = m_wells.back();
        well.x.push_back(m_scanner.number(word));
        for (std::vector<double>* axis : {&well.y, &well.z})
            axis->push_back(m_scanner.number(needWord(word)));
        well.z.back() = -well.z.back();
        for (Log& log : well.logs) {
            const std::string_view text = needWord(word);
            const bool none = text == "nan" || text == "NaN" || text == "UNDEF";
            const double value = none ? undefined : m_scanner.number(text);
            constexpr double mostCode = 1e15;
            if (log.discrete && (value != std::floor(value) || std::abs(value) > mostCode))
                m_scanner.fail(QStringLiteral("the discrete log %1 has the value %2, which is no code")
                                   .arg(log.name, quoted(text)),
                               QStringLiteral("correct it at its source"));
            log.values.push_back(value == undefined ? std::nan("") : value);
        }
        if (m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("the row has more than %1 numbers").arg(m_wells.back().logs.size() + 3),
                           QStringLiteral("name every log in the head"));
    }

    std::string_view needWord(std::string_view& word)
    {
        if (!m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("the row has fewer than %1 numbers").arg(m_wells.back().logs.size() + 3),
                           QStringLiteral("correct the line"));
        return word;
    }

    TextScanner m_scanner;
    std::vector<Well> m_wells;
};

void addLog(ModelObject& well, Log& log)
{
    AttributeColumn column;
    column.name = log.name;
    if (log.discrete) {
        column.kind = AttributeKind::Integer;
        AttributeColumn names;
        names.name = log.name + QStringLiteral("_name");
        names.kind = AttributeKind::Text;
        for (const double value : log.values) {
            const auto code = std::isnan(value) ? 0 : static_cast<qint64>(value);
            column.values.append(std::isnan(value) ? QVariant() : QVariant(code));
            const bool named = !std::isnan(value) && log.names.contains(code);
            names.values.append(named ? QVariant(log.names.value(code)) : QVariant());
        }
        well.vertexAttributes.push_back(std::move(column));
        if (!log.names.isEmpty())
            well.vertexAttributes.push_back(std::move(names));
        return;
    }
    std::vector<unsigned char> missing;
    for (double& value : log.values) {
        missing.push_back(std::isnan(value) ? 1 : 0);
        value = std::isnan(value) ? 0.0 : value;
    }
    column.numbers = std::make_shared<const std::vector<double>>(std::move(log.values));
    if (std::find(missing.begin(), missing.end(), 1) != missing.end())
        column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    well.vertexAttributes.push_back(std::move(column));
}

} // namespace

bool isRmsWell(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    constexpr qint64 longest = 100000;
    const auto words = [&file] { return file.readLine(longest).simplified().split(' '); };
    const auto isNumber = [](const QByteArray& word) {
        return numberOf({word.constData(), static_cast<std::size_t>(word.size())}).has_value();
    };
    const QList<QByteArray> version = words();
    words();
    const QList<QByteArray> head = words();
    const QList<QByteArray> count = words();
    bool isCount = false;
    const int logs = count.first().toInt(&isCount);
    constexpr int mostLogs = 10000;
    if (version.size() != 1 || !isNumber(version.first()) || head.size() < 3 || !isNumber(head.last())
        || !isNumber(head[head.size() - 2]) || count.size() != 1 || !isCount || logs < 0 || logs > mostLogs)
        return false;
    for (int log = 0; log < logs; ++log)
        words();
    const QList<QByteArray> row = words();
    return row.size() >= 3 && row.size() == logs + 3 && isNumber(row[0]) && isNumber(row[1]) && isNumber(row[2]);
}

LoadNotes readRmsWell(Model& model, const QString& path, const LoadOptions& options)
{
    int elsewhere = 0;
    QString first;
    for (Well& source : RmsParser(path).read()) {
        const Head& head = source.head;
        const QString name = !options.name.isEmpty() ? options.name
                             : !head.name.isEmpty()  ? head.name
                                                     : QFileInfo(path).completeBaseName();
        ModelObject well = newObject(path, options, ObjectType::Wells, name, QStringLiteral("Wells"));
        well.parts.push_back({0, static_cast<int>(source.x.size()), false, false});
        if ((source.x.front() != head.x || source.y.front() != head.y) && elsewhere++ == 0)
            first = QStringLiteral("%1 at %2 %3").arg(name).arg(head.x, 0, 'f', 3).arg(head.y, 0, 'f', 3);
        setCoordinates(well, std::move(source.x), std::move(source.y), std::move(source.z));
        if (head.rotaryTable)
            well.objectAttributes.push_back({QStringLiteral("RKB"), AttributeKind::Real, QString(), *head.rotaryTable});
        for (Log& log : source.logs)
            addLog(well, log);
        model.add(std::move(well));
    }
    LoadNotes notes;
    if (elsewhere > 0)
        notes.append(QStringLiteral("%1: the heads of %2 wells are not where their paths begin and were left out; the "
                                    "first is %3")
                         .arg(path)
                         .arg(elsewhere)
                         .arg(first));
    return notes;
}

} // namespace kpFormats
