// SPDX-License-Identifier: MIT
#include "formats/kml/KmlAttributeVerification.h"

#include "formats/kml/KmlDocumentWriter.h"

#include <QRegularExpression>

namespace kpFormats
{

namespace
{

/// An attribute that has a value.
struct Row
{
    QString title;
    QVariant value;
};

QString unescaped(QString text)
{
    return text.replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&quot;"), QLatin1String("\""))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

void addRow(std::vector<Row>& rows, const QString& name, const QString& unit, const QVariant& value)
{
    if (!value.isNull())
        rows.push_back({unit.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, unit), value});
}

std::vector<Row> rowsOf(const KmlExpectedFeature& feature, const ExportSelection& selection)
{
    std::vector<Row> rows;
    for (const ObjectAttribute& attribute : feature.object->objectAttributes) {
        if (selection.wantsAttribute(attribute.name))
            addRow(rows, attribute.name, attribute.unit, attribute.value);
    }
    for (const AttributeColumn& column : feature.object->vertexAttributes) {
        if (feature.vertex < 0 || !selection.wantsAttribute(column.name))
            continue;
        const auto vertex = static_cast<std::size_t>(feature.vertex);
        if (column.kind != AttributeKind::Real)
            addRow(rows, column.name, column.unit, column.values.value(feature.vertex));
        else if (!column.missing || (*column.missing)[vertex] == 0)
            addRow(rows, column.name, column.unit, (*column.numbers)[vertex]);
    }
    return rows;
}

/// Line ends of every kind are one to a reader of XML.
QString comparable(const QString& text)
{
    QString one = xmlText(text);
    return one.replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'))
        .simplified();
}

} // namespace

void compareKmlAttributes(const KmlExpectedFeature& feature, const QString& description,
                          const ExportSelection& selection, Verification& result)
{
    static const QRegularExpression pattern(QStringLiteral("<tr><td>(.*?)</td><td>(.*?)</td></tr>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    QRegularExpressionMatchIterator read = pattern.globalMatch(description);
    for (const Row& row : rowsOf(feature, selection)) {
        const auto where = [&] { return QStringLiteral("%1, %2").arg(feature.name, row.title); };
        if (!read.hasNext())
            return result.fail(QStringLiteral("%1: it is missing").arg(where()));
        const QRegularExpressionMatch cells = read.next();
        if (comparable(unescaped(cells.captured(1))) != comparable(row.title))
            return result.fail(QStringLiteral("%1: %2 stands in its place").arg(where(), cells.captured(1)));
        const QString text = unescaped(cells.captured(2));
        if (row.value.userType() == QMetaType::Double)
            result.compareValue(row.value.toDouble(), text.toDouble(), 0.0, where);
        else
            result.compareText(comparable(row.value.toString()), comparable(text), where);
    }
    if (read.hasNext())
        result.fail(QStringLiteral("%1: it has more attributes than the model").arg(feature.name));
}

} // namespace kpFormats
