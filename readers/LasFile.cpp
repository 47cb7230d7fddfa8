// SPDX-License-Identifier: MIT
#include "readers/LasFile.h"

#include "readers/LoadError.h"
#include "readers/TextEncoding.h"
#include "readers/TextTable.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kpFormats
{

namespace
{

/// "MNEM.UNIT  DATA : DESCRIPTION"
struct HeadLine
{
    QString name;
    QString unit;
    QString data;
    QString description;
};

HeadLine headLineOf(const QString& line)
{
    HeadLine head;
    const int dot = line.indexOf(QLatin1Char('.'));
    const int colon = line.lastIndexOf(QLatin1Char(':'));
    head.name = line.left(dot).trimmed();
    int unitEnd = dot + 1;
    while (unitEnd < line.size() && !line[unitEnd].isSpace() && line[unitEnd] != QLatin1Char(':'))
        ++unitEnd;
    head.unit = line.mid(dot + 1, unitEnd - dot - 1);
    const int dataEnd = colon < unitEnd ? line.size() : colon;
    head.data = line.mid(unitEnd, dataEnd - unitEnd).trimmed();
    head.description = colon < unitEnd ? QString() : line.mid(colon + 1).trimmed();
    return head;
}

class LasParser
{
public:
    LasParser(const QString& path, const QString& encoding)
        : m_path(path)
    {
        QFile file(path);
        if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
            throw LoadError(path, QStringLiteral("the file cannot be read"),
                            QStringLiteral("check the path and its permissions"));
        QString guessed;
        m_lines = toUtf8(path, file.readAll(), encoding, guessed).split('\n');
        if (!guessed.isEmpty())
            m_las.notes.append(QStringLiteral("%1: its text is taken for %2").arg(path, guessed));
    }

    LasFile read()
    {
        char section = 0;
        for (const QByteArray& raw : qAsConst(m_lines)) {
            ++m_number;
            const QByteArray line = raw.trimmed();
            if (line.isEmpty() || line.startsWith('#'))
                continue;
            if (line.startsWith('~')) {
                section = line.size() > 1 ? static_cast<char>(std::toupper(static_cast<unsigned char>(line[1]))) : '?';
                if (section == 'A')
                    beginData();
                continue;
            }
            if (section == 0)
                fail(QStringLiteral("a section, such as ~Version, should begin here"));
            if (section == 'A')
                readData(line);
            else
                readHead(section, headLineOf(QString::fromUtf8(line)));
        }
        finish();
        return std::move(m_las);
    }

private:
    [[noreturn]] void fail(const QString& cause) const
    {
        throw LoadError(m_path, QStringLiteral("line %1: %2").arg(m_number).arg(cause),
                        QStringLiteral("correct it at its source"));
    }

    void readHead(char section, const HeadLine& line)
    {
        const QString name = line.name.toUpper();
        if (section == 'V') {
            if (name == QLatin1String("WRAP"))
                m_wrapped = line.data.startsWith(QLatin1String("YES"), Qt::CaseInsensitive);
            else if (name == QLatin1String("VERS"))
                m_version = line.data.toDouble();
            if (m_version >= 3)
                fail(QStringLiteral("this is LAS %1; versions 1.2 and 2.0 are read").arg(line.data));
        } else if (section == 'W') {
            if (name == QLatin1String("NULL")) {
                bool isNumber = false;
                m_null = line.data.toDouble(&isNumber);
                m_hasNull = isNumber;
            } else if (name == QLatin1String("WELL")) {
                // Version 1.2 has the value where version 2.0 has the description.
                m_las.well = m_version < 2 && !line.description.isEmpty() ? line.description : line.data;
            }
            m_las.wellSection.insert(name, line.data);
        } else if (section == 'P') {
            m_las.parameters.insert(name, line.data);
        } else if (section == 'C') {
            if (!m_values.empty())
                fail(QStringLiteral("a curve is described behind the data"));
            AttributeColumn curve;
            curve.name = line.name;
            curve.unit = line.unit;
            if (m_curves.empty())
                m_las.index = line.description;
            m_curves.push_back(curve);
        }
    }

    void beginData()
    {
        if (m_curves.empty())
            fail(QStringLiteral("no curve is described before the data"));
        m_values.resize(m_curves.size());
    }

    void readData(const QByteArray& line)
    {
        for (const QByteArray& word : line.simplified().split(' ')) {
            const auto value = numberOf({word.constData(), static_cast<std::size_t>(word.size())});
            if (!value && m_column == 0)
                fail(QStringLiteral("\"%1\" is not a depth").arg(QString::fromUtf8(word)));
            m_texts += value ? 0 : 1;
            m_values[m_column].push_back(value.value_or(std::nan("")));
            m_column = (m_column + 1) % m_values.size();
        }
        if (m_column != 0 && !m_wrapped)
            fail(QStringLiteral("the line has not a value for each of the %1 curves").arg(m_curves.size()));
    }

    void finish()
    {
        if (m_values.empty() || m_values.front().empty() || m_column != 0)
            throw LoadError(m_path, QStringLiteral("there is no complete row of data in it"),
                            QStringLiteral("it may be cut short; copy it again from its source"));
        const QString unit = m_curves.front().unit.toUpper();
        if (unit.startsWith(QLatin1Char('M')))
            m_las.depthUnit = QStringLiteral("m");
        else if (unit.startsWith(QLatin1Char('F')))
            m_las.depthUnit = QStringLiteral("ft");
        else
            throw LoadError(m_path,
                            QStringLiteral("its first curve, %1, is in \"%2\" and is not a depth")
                                .arg(m_curves.front().name, m_curves.front().unit),
                            QStringLiteral("give a log by depth in metres or feet"));
        for (const double depth : m_values.front()) {
            if (!std::isfinite(depth))
                throw LoadError(m_path, QStringLiteral("a row has no depth"),
                                QStringLiteral("remove it at its source"));
        }
        std::vector<std::size_t> order(m_values.front().size());
        std::iota(order.begin(), order.end(), std::size_t(0));
        const std::vector<double>& depths = m_values.front();
        std::stable_sort(order.begin(), order.end(),
                         [&depths](std::size_t a, std::size_t b) { return depths[a] < depths[b]; });
        // Two values at one depth cannot both stand.
        const auto same = [&depths](std::size_t a, std::size_t b) { return depths[a] == depths[b]; };
        const auto end = std::unique(order.begin(), order.end(), same);
        const auto doubled = order.end() - end;
        order.erase(end, order.end());
        if (doubled > 0)
            m_las.notes.append(QStringLiteral("%1: %2 rows repeat a depth and were left out").arg(m_path).arg(doubled));
        if (m_texts > 0)
            m_las.notes.append(
                QStringLiteral("%1: %2 values that are not numbers are missing").arg(m_path).arg(m_texts));
        for (std::size_t curve = 1; curve < m_curves.size(); ++curve)
            m_las.curves.push_back(ordered(m_curves[curve], m_values[curve], order));
        for (const std::size_t row : order)
            m_las.depths.push_back(depths[row]);
    }

    AttributeColumn ordered(AttributeColumn column, const std::vector<double>& values,
                            const std::vector<std::size_t>& order) const
    {
        std::vector<double> numbers;
        std::vector<unsigned char> missing;
        bool any = false;
        for (const std::size_t row : order) {
            const bool none = !std::isfinite(values[row]) || (m_hasNull && values[row] == m_null);
            numbers.push_back(none ? 0.0 : values[row]);
            missing.push_back(none ? 1 : 0);
            any = any || none;
        }
        column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
        if (any)
            column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
        return column;
    }

    QString m_path;
    QList<QByteArray> m_lines;
    int m_number = 0;
    double m_version = 2.0;
    bool m_wrapped = false;
    bool m_hasNull = false;
    double m_null = 0.0;
    int m_texts = 0;
    std::size_t m_column = 0;
    std::vector<AttributeColumn> m_curves;
    std::vector<std::vector<double>> m_values;
    LasFile m_las;
};

} // namespace

LasFile readLasFile(const QString& path, const QString& encoding)
{
    return LasParser(path, encoding).read();
}

} // namespace kpFormats
