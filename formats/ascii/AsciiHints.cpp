// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiHints.h"

#include "formats/ascii/AsciiFindings.h"
#include "formats/ascii/AsciiOutput.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

using Settings = AsciiExportSettings;
using Fields = QVector<kpBaseExport::QESAttribute>;

constexpr int mostDecimals = 8; // as many as the editor takes

const char* nameOf(Settings::Separator separator)
{
    static const char* const names[] = {"a blank", "a tab", "a comma", "a semicolon", "the separator"};
    return names[static_cast<int>(separator)];
}

QString shortened(const QString& text)
{
    return text.size() > 40 ? text.left(40) + QStringLiteral("...") : text;
}

void separatorHint(std::vector<AsciiHint>& hints, const AsciiProfile& profile, const Settings& settings,
                   const Fields& fields)
{
    const QString separator = separatorText(settings);
    if (settings.mode == Settings::Mode::Columns)
        return;
    AsciiHint hint;
    if (separator.isEmpty()) {
        hint.text = QStringLiteral("There is no text between the values: they run into each other.");
    } else {
        for (const auto& field : fields) {
            const QString text = profile.column(field.name()).holding.value(separator);
            const bool quoted = settings.quoting != Settings::Quoting::None;
            if (!text.isEmpty() && !quoted && hint.text.isEmpty())
                hint.text = QStringLiteral("The separator stands in texts of %1: \"%2\".")
                                .arg(shortened(field.name()), shortened(text));
        }
    }
    if (hint.text.isEmpty())
        return;
    hint.cure = AsciiHint::UseColumns;
    hint.cureText = QStringLiteral("Use fixed columns");
    if (settings.preset != Settings::Preset::None) {
        hint.cure = AsciiHint::NoPreset; // the separator is the preset's
        hint.cureText = QStringLiteral("No preset header");
    } else {
        for (const auto other :
             {Settings::Separator::Comma, Settings::Separator::Semicolon, Settings::Separator::Tab}) {
            Settings changed = settings;
            changed.separator = other;
            const QString text = separatorText(changed);
            const bool free = text != separator && std::none_of(fields.begin(), fields.end(), [&](const auto& field) {
                                  return profile.column(field.name()).holding.contains(text);
                              });
            if (free) {
                hint.cure = AsciiHint::UseSeparator;
                hint.number = static_cast<int>(other);
                hint.cureText = QStringLiteral("Use %1").arg(QLatin1String(nameOf(other)));
                break;
            }
        }
    }
    hints.push_back(hint);
}

/// A field of numbers in whose range \a value lies.
QString fieldAround(double value, const AsciiProfile& profile, const Fields& fields)
{
    for (const auto& field : fields) {
        const AsciiProfile::Column column = profile.column(field.name());
        if (column.hasNumbers() && value >= column.least && value <= column.most)
            return field.name();
    }
    return {};
}

void nullHint(std::vector<AsciiHint>& hints, const AsciiProfile& profile, const Settings& settings,
              const Fields& fields)
{
    AsciiHint hint;
    if (!settings.writeNullValue) {
        for (const auto& field : fields) {
            const AsciiProfile::Column column = profile.column(field.name());
            if (column.missing > 0 && column.kind != AttributeKind::Text && column.kind != AttributeKind::Color
                && hint.text.isEmpty())
                hint.text = QStringLiteral("Missing values of %1 are written as 0.").arg(shortened(field.name()));
        }
        hint.cure = AsciiHint::WriteNull;
        hint.cureText = QStringLiteral("Write the null value");
    } else {
        bool isNumber = false;
        const double value = settings.nullValue.toDouble(&isNumber);
        const QString field = isNumber ? fieldAround(value, profile, fields) : QString();
        if (!field.isEmpty()) {
            hint.text = QStringLiteral("The null value %1 could be a true value of %2.")
                            .arg(settings.nullValue, shortened(field));
            for (const char* other : {"-9999", "-99999", "1.0E37"}) {
                if (hint.newText.isEmpty() && fieldAround(QByteArray(other).toDouble(), profile, fields).isEmpty())
                    hint.newText = QString::fromLatin1(other);
            }
            hint.cure = hint.newText.isEmpty() ? AsciiHint::None : AsciiHint::UseNullValue;
            hint.cureText = hint.newText.isEmpty() ? QString() : QStringLiteral("Use %1").arg(hint.newText);
        }
    }
    if (!hint.text.isEmpty())
        hints.push_back(hint);
}

/// Characters that the longest value of a field takes.
int longestOf(const AsciiProfile::Column& column, const kpBaseExport::QESAttribute& field, const Settings& settings,
              QString& example)
{
    int longest = column.longest.size();
    example = column.longest;
    const auto look = [&](const QString& text) {
        if (text.size() > longest) {
            longest = text.size();
            example = text;
        }
    };
    const bool whole = column.kind == AttributeKind::Integer || column.kind == AttributeKind::Boolean;
    const double sign = field.name() == QLatin1String("Z") && !settings.zIsElevation ? -1.0 : 1.0;
    if (column.hasNumbers()) {
        for (const double number : {sign * column.least, sign * column.most})
            look(QString::fromLatin1(QByteArray::number(number, 'f', whole ? 0 : field.precision())));
    }
    if (column.notFinite)
        look(QStringLiteral("-inf"));
    if (column.missing > 0 && settings.writeNullValue)
        look(settings.nullValue);
    return longest;
}

void narrowHints(std::vector<AsciiHint>& hints, const AsciiProfile& profile, const Settings& settings,
                 const Fields& fields)
{
    if (settings.mode != Settings::Mode::Columns)
        return;
    for (int row = 0; row < fields.size(); ++row) {
        const auto& field = fields[row];
        const int width = field.end() - field.start() + 1;
        QString example;
        const int longest = longestOf(profile.column(field.name()), field, settings, example);
        const bool header = settings.header && field.name().size() > width;
        if (longest <= width && !header)
            continue;
        AsciiHint hint;
        hint.text = longest > width ? QStringLiteral("%1: \"%2\" needs %3 columns, it has %4 and is cut.")
                                          .arg(shortened(field.name()), shortened(example))
                                          .arg(longest)
                                          .arg(width)
                                    : QStringLiteral("%1: the name in the header is cut.").arg(shortened(field.name()));
        hint.kind = &asciiFinding::columnTooNarrow;
        hint.cure = AsciiHint::Widen;
        hint.cureText = QStringLiteral("Widen");
        hint.field = row;
        hint.number = std::max(longest, settings.header ? field.name().size() : 0);
        hints.push_back(hint);
    }
}

void decimalsHint(std::vector<AsciiHint>& hints, const AsciiProfile& profile, const Fields& fields)
{
    int decimals[] = {-1, -1, -1};
    for (const auto& field : fields) {
        for (int axis = 0; axis < 3; ++axis) {
            if (field.name() == QString(QLatin1Char("XYZ"[axis])))
                decimals[axis] = field.precision();
        }
    }
    const auto alikeWith = [&](int most) {
        const auto of = [&](int axis) { return decimals[axis] < 0 ? -1 : std::max(decimals[axis], most); };
        return profile.alike(of(0), of(1), of(2));
    };
    const qint64 pairs = alikeWith(0);
    if (pairs == 0)
        return;
    AsciiHint hint;
    hint.text = QStringLiteral("%1 neighbouring points differ, but are written alike: too few decimals.").arg(pairs);
    for (int enough = 1; enough <= mostDecimals; ++enough) {
        if (alikeWith(enough) == 0) {
            hint.cure = AsciiHint::UseDecimals;
            hint.number = enough;
            hint.cureText = QStringLiteral("Use %1 decimals").arg(enough);
            break;
        }
    }
    hints.push_back(hint);
}

void presetHint(std::vector<AsciiHint>& hints, const Settings& settings, const Fields& fields)
{
    if (settings.preset == Settings::Preset::None || !settings.header)
        return;
    const bool inOrder = fields.size() >= 3 && fields[0].name() == QLatin1String("X")
                         && fields[1].name() == QLatin1String("Y") && fields[2].name() == QLatin1String("Z");
    if (inOrder)
        return;
    AsciiHint hint;
    hint.kind = &asciiFinding::headerOfAnotherLayout;
    hint.text = QStringLiteral("The preset header speaks of X, Y, Z first; the layout begins otherwise.");
    hint.cure = AsciiHint::NoPreset;
    hint.cureText = QStringLiteral("No preset header");
    hints.push_back(hint);
}

} // namespace

int widthNeeded(const AsciiProfile& profile, const Settings& settings, const kpBaseExport::QESAttribute& field)
{
    QString example;
    const int longest = longestOf(profile.column(field.name()), field, settings, example);
    return std::max(longest, settings.header ? field.name().size() : 0);
}

int fittingWidth(const AsciiProfile& profile, const Settings& settings, const kpBaseExport::QESAttribute& field)
{
    return std::max({widthNeeded(profile, settings, field), field.name().size(), settings.nullValue.size()});
}

QStringList separatorsToLookFor(const Settings& settings)
{
    QStringList texts{QStringLiteral(" "), QStringLiteral("\t"), QStringLiteral(","), QStringLiteral(";")};
    if (!settings.customSeparator.isEmpty() && !texts.contains(settings.customSeparator))
        texts.append(settings.customSeparator);
    return texts;
}

std::vector<AsciiHint> asciiHints(const AsciiProfile& profile, const Settings& settings, const Fields& fields)
{
    std::vector<AsciiHint> hints;
    presetHint(hints, settings, fields);
    separatorHint(hints, profile, settings, fields);
    nullHint(hints, profile, settings, fields);
    decimalsHint(hints, profile, fields);
    narrowHints(hints, profile, settings, fields);
    return hints;
}

void noteHints(const std::vector<const ModelObject*>& objects, const Settings& settings, Findings& findings)
{
    const bool inColumns = settings.mode == Settings::Mode::Columns;
    if (!settings.layout || (!inColumns && settings.preset == Settings::Preset::None))
        return;
    const std::vector<OfferedField> offered = offeredFields(objects);
    AsciiProfile profile;
    profile.start(objects, inColumns ? offered : std::vector<OfferedField>(), {});
    while (!profile.advance(1000)) {
    }
    const Fields fields = fieldsFor(*settings.layout, offered);
    std::vector<AsciiHint> hints;
    presetHint(hints, settings, fields);
    narrowHints(hints, profile, settings, fields);
    for (const AsciiHint& hint : hints)
        findings.note(*hint.kind, QString(), 1, hint.text);
}

} // namespace kpFormats
