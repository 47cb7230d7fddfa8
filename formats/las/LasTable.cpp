// SPDX-License-Identifier: MIT
#include "formats/las/LasTable.h"

#include "export/BlockWriter.h"
#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/NumberColumns.h"
#include "export/SafeNames.h"
#include "formats/las/LasFindings.h"
#include "geo/CoordinateSystems.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) { return character.unicode() < 128; });
}

QString shortest(double number)
{
    std::string text;
    appendShortest(text, number);
    return QString::fromStdString(text);
}

class TableMaker
{
public:
    TableMaker(const ModelObject& object, const LasExportSettings& settings, OutputUnit unit, const QString& file,
               Findings& findings)
        : m_object(object)
        , m_settings(settings)
        , m_factors(object, unit, true)
        , m_depths(object, unit, file, findings)
        , m_file(file)
        , m_findings(findings)
    {
    }

    LasTable make(const ExportSelection& selection)
    {
        m_table.well = lasText(m_object.name);
        if (m_table.well != m_object.name)
            m_findings.note(finding::renamed, m_object, 1,
                            QStringLiteral("%1 is written as %2").arg(m_object.name, m_table.well));
        addDepths();
        if (m_settings.coordinates)
            addCoordinates();
        for (const NumberColumn& column : vertexColumns(m_object, selection, m_findings)) {
            if (column.name() != m_depths.attribute())
                addAttribute(column);
        }
        addParameters(selection);
        chooseNull();
        m_findings.note(lasFinding::notAscii, m_object, m_notAscii, m_firstNotAscii);
        return std::move(m_table);
    }

private:
    QString lengthUnit() const
    {
        return m_factors.heightUnit == QLatin1String("ft") ? QStringLiteral("FT") : QStringLiteral("M");
    }

    void addDepths()
    {
        const bool vertical = m_settings.index == LasExportSettings::Index::VerticalDepth;
        const auto depthOf = [&](std::size_t vertex) {
            return vertical ? m_depths.vertical(vertex) : m_depths.measured(vertex);
        };
        for (std::size_t vertex = 0; vertex < m_depths.size(); ++vertex) {
            if (std::isfinite(depthOf(vertex)))
                m_rows.push_back(vertex);
        }
        m_findings.note(finding::rowWithoutDepth, m_object, static_cast<qint64>(m_depths.size() - m_rows.size()),
                        m_object.name);
        if (m_rows.empty())
            throw ExportError(m_file, QStringLiteral("the well %1 has no depth at any vertex").arg(m_object.name),
                              QStringLiteral("give it heights or an attribute MD"));
        LasCurve& depth =
            add(QStringLiteral("DEPT"), lengthUnit(),
                vertical ? QStringLiteral("true vertical depth") : QStringLiteral("measured depth"), depthOf);
        checkOrder(depth);
        m_table.step = stepOf(depth);
        if (vertical)
            add(QStringLiteral("MD"), lengthUnit(), QStringLiteral("measured depth"),
                [this](std::size_t vertex) { return m_depths.measured(vertex); });
    }

    /// \throws ExportError unless each depth, as written, is below the one before
    void checkOrder(const LasCurve& depth) const
    {
        const double last = std::pow(10.0, -depth.decimals);
        for (std::size_t row = 1; row < depth.values.size(); ++row) {
            if (depth.values[row] - depth.values[row - 1] < 0.5 * last)
                throw ExportError(m_file,
                                  QStringLiteral("the %1 of the well %2 does not increase at %3")
                                      .arg(depth.description, m_object.name, shortest(depth.values[row])),
                                  m_settings.index == LasExportSettings::Index::VerticalDepth
                                      ? QStringLiteral("choose measured depth as index")
                                      : QStringLiteral("correct its depths, or choose more decimals"));
        }
    }

    static double stepOf(const LasCurve& depth)
    {
        const std::vector<double>& values = depth.values;
        if (values.size() < 2)
            return 0.0;
        const double scale = std::pow(10.0, depth.decimals);
        const auto written = [scale](double value) { return std::round(value * scale); };
        const double step = written(values[1]) - written(values[0]);
        for (std::size_t row = 1; row < values.size(); ++row) {
            if (written(values[row]) - written(values[row - 1]) != step)
                return 0.0;
        }
        return step / scale;
    }

    void addCoordinates()
    {
        const QString flat = m_factors.flatUnit == QLatin1String("degrees") ? QStringLiteral("DEG") : lengthUnit();
        const char* const names[] = {"X", "Y", "Z"};
        const char* const meanings[] = {"easting", "northing", "elevation, positive up"};
        for (std::size_t axis = 0; axis < 3; ++axis)
            add(QLatin1String(names[axis]), axis < 2 ? flat : lengthUnit(), QLatin1String(meanings[axis]),
                [this, axis](std::size_t vertex) { return m_depths.place(vertex)[axis]; });
    }

    void addAttribute(const NumberColumn& column)
    {
        const LasCurve& curve = add(column.name(), lasWord(column.unit()), column.name(),
                                    [&column](std::size_t vertex) { return column.at(static_cast<int>(vertex)); });
        if (curve.mnemonic != column.name())
            m_findings.note(finding::renamed, m_object, 1,
                            QStringLiteral("attribute %1 is written as %2").arg(column.name(), curve.mnemonic));
    }

    template <typename Value>
    LasCurve& add(const QString& name, const QString& unit, const QString& description, Value valueOf)
    {
        LasCurve curve;
        curve.mnemonic = m_names.take(lasWord(name));
        curve.unit = unit;
        curve.description = lasText(description).replace(QLatin1Char(':'), QLatin1Char(';'));
        DecimalsNeed need;
        for (const std::size_t row : m_rows) {
            curve.values.push_back(valueOf(row));
            need.add(curve.values.back());
        }
        const bool degrees = unit == QLatin1String("DEG");
        curve.decimals = m_settings.decimals != automaticDecimals
                             ? m_settings.decimals
                             : need.decimals(degrees ? lasDegreeDecimals : lasDecimals);
        RoundedToZero zeros(curve.decimals);
        for (const double value : curve.values)
            zeros.add(value);
        zeros.note(m_object, name, m_findings);
        countLetters(name);
        m_table.curves.push_back(std::move(curve));
        return m_table.curves.back();
    }

    void countLetters(const QString& name)
    {
        if (!isAscii(name) && m_notAscii++ == 0)
            m_firstNotAscii = name;
    }

    void addParameter(UniqueNames& names, const QString& name, const QString& unit, const QString& value,
                      const QString& description)
    {
        m_table.parameters.push_back({names.take(lasWord(name)), lasWord(unit), lasText(value),
                                      lasText(description).replace(QLatin1Char(':'), QLatin1Char(';'))});
    }

    void addParameters(const ExportSelection& selection)
    {
        UniqueNames names;
        const auto first = m_depths.place(m_rows.front());
        const QString flat = m_factors.flatUnit == QLatin1String("degrees") ? QStringLiteral("DEG") : lengthUnit();
        if (std::isfinite(first[0]) && std::isfinite(first[1])) {
            addParameter(names, QStringLiteral("X"), flat, shortest(first[0]),
                         QStringLiteral("easting of the first row"));
            addParameter(names, QStringLiteral("Y"), flat, shortest(first[1]),
                         QStringLiteral("northing of the first row"));
        }
        if (!m_object.crs.isEmpty())
            addParameter(names, QStringLiteral("HZCS"), QString(), crsName(m_object.crs),
                         QStringLiteral("horizontal coordinate system"));
        if (std::isfinite(m_depths.reference()))
            addParameter(names, QStringLiteral("EREF"), lengthUnit(), shortest(m_depths.reference()),
                         QStringLiteral("elevation of depth 0"));
        for (const ObjectAttribute& attribute : m_object.objectAttributes) {
            if (!selection.wantsAttribute(attribute.name) || attribute.value.isNull())
                continue;
            bool isNumber = attribute.kind == AttributeKind::Real || attribute.kind == AttributeKind::Integer;
            addParameter(names, attribute.name, attribute.unit,
                         isNumber ? shortest(attribute.value.toDouble()) : attribute.value.toString(), attribute.name);
            countLetters(attribute.name);
        }
        countLetters(m_object.name);
    }

    bool isTaken(double nullValue) const
    {
        return std::any_of(m_table.curves.begin(), m_table.curves.end(), [nullValue](const LasCurve& curve) {
            const double half = 0.5 * std::pow(10.0, -curve.decimals);
            return std::any_of(curve.values.begin(), curve.values.end(),
                               [&](double value) { return std::abs(value - nullValue) <= half + 1e-9; });
        });
    }

    void chooseNull()
    {
        m_table.nullValue = m_settings.nullValue;
        for (double next = -9999.25; isTaken(m_table.nullValue); next = next * 10.0 - 6.75)
            m_table.nullValue = next;
        if (m_table.nullValue != m_settings.nullValue)
            m_findings.note(lasFinding::nullValueChanged, m_object, 1,
                            QStringLiteral("a value is %1, so that %2 says that there is none")
                                .arg(shortest(m_settings.nullValue), shortest(m_table.nullValue)));
    }

    const ModelObject& m_object;
    const LasExportSettings& m_settings;
    LengthFactors m_factors;
    WellDepths m_depths;
    QString m_file;
    Findings& m_findings;
    LasTable m_table;
    std::vector<std::size_t> m_rows; ///< vertices with a depth
    UniqueNames m_names;
    qint64 m_notAscii = 0;
    QString m_firstNotAscii;
};

} // namespace

QString lasText(const QString& text)
{
    return text.simplified();
}

QString lasWord(const QString& name)
{
    QString word = name.simplified();
    for (QChar& character : word) {
        if (character.isSpace() || QStringLiteral(".:~#").contains(character))
            character = QLatin1Char('_');
    }
    return word;
}

LasTable lasTable(const ModelObject& object, const ExportSelection& selection, const LasExportSettings& settings,
                  OutputUnit unit, const QString& file, Findings& findings)
{
    return TableMaker(object, settings, unit, file, findings).make(selection);
}

} // namespace kpFormats
