// SPDX-License-Identifier: MIT
#include "readers/DeviationReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"

#include <QFile>
#include <QFileInfo>

namespace kpFormats
{

namespace
{

const char* const beginning = "# deviation survey";

struct Table
{
    QString well;
    QString unit;
    QStringList names;
    std::vector<std::vector<double>> columns;
};

void readRemark(Table& table, const QString& remark)
{
    if (remark.startsWith(QLatin1String("# well: ")))
        table.well = remark.mid(8).trimmed();
    if (remark.startsWith(QLatin1String("# lengths in ")))
        table.unit = remark.mid(13).section(QLatin1Char(','), 0, 0).trimmed();
}

Table readTable(TextScanner& scanner)
{
    Table table;
    std::string_view word;
    while (scanner.nextLine()) {
        const std::string_view line = scanner.line();
        if (!line.empty() && line.front() == '#') {
            readRemark(table, QString::fromUtf8(line.data(), static_cast<int>(line.size())));
            continue;
        }
        if (!scanner.nextWord(word))
            continue;
        if (table.names.isEmpty()) {
            do
                table.names.append(QString::fromUtf8(word.data(), static_cast<int>(word.size())));
            while (scanner.nextWord(word));
            table.columns.resize(static_cast<std::size_t>(table.names.size()));
            continue;
        }
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
            if (column > 0 && !scanner.nextWord(word))
                scanner.fail(QStringLiteral("a row needs %1 numbers").arg(table.names.size()),
                             QStringLiteral("correct the line"));
            table.columns[column].push_back(scanner.number(word));
        }
    }
    return table;
}

} // namespace

bool isDeviationTable(const QString& path)
{
    QFile file(path);
    return !QFileInfo(path).isDir() && file.open(QIODevice::ReadOnly)
           && file.read(static_cast<qint64>(qstrlen(beginning))) == beginning;
}

LoadNotes readDeviation(Model& model, const QString& path, const LoadOptions& options)
{
    TextScanner scanner(path);
    Table table = readTable(scanner);
    std::vector<double>* axes[3] = {};
    const QStringList places{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
    for (int axis = 0; axis < 3; ++axis) {
        const int column = table.names.indexOf(places[axis]);
        if (column < 0 || table.columns[static_cast<std::size_t>(column)].empty())
            throw LoadError(path, QStringLiteral("it has no rows with %1").arg(places[axis]),
                            QStringLiteral("give columns X, Y and Z"));
        axes[axis] = &table.columns[static_cast<std::size_t>(column)];
    }
    const QString name = !options.name.isEmpty() ? options.name
                         : !table.well.isEmpty() ? table.well
                                                 : QFileInfo(path).completeBaseName();
    ModelObject well = newObject(path, options, ObjectType::Wells, name, QStringLiteral("Wells"));
    if (well.lengthUnit.isEmpty())
        well.lengthUnit = table.unit;
    well.parts.push_back({0, static_cast<int>(axes[0]->size()), false, false});
    for (int column = 0; column < table.names.size(); ++column) {
        if (places.contains(table.names[column]))
            continue;
        AttributeColumn values;
        values.name = table.names[column];
        const bool angle = values.name == QLatin1String("INC") || values.name == QLatin1String("AZI");
        values.unit = angle ? QStringLiteral("deg") : table.unit;
        values.numbers = std::make_shared<const std::vector<double>>(table.columns[static_cast<std::size_t>(column)]);
        well.vertexAttributes.push_back(std::move(values));
    }
    setCoordinates(well, std::move(*axes[0]), std::move(*axes[1]), std::move(*axes[2]));
    model.add(std::move(well));
    return {};
}

} // namespace kpFormats
