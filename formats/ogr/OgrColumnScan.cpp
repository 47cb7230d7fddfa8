// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrColumnScan.h"

#include "formats/ogr/OgrFindings.h"
#include "formats/ogr/OgrMoments.h"
#include "host/data/AbstractProgress.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kpFormats
{

namespace
{

// Fields of a table (dBase III) hold numbers as text; what is wider or has more decimals, other readers refuse.
constexpr int usualWidth = 24;
constexpr int mostWidth = 32;
constexpr int mostDecimals = 15;
constexpr int keptDigits = 15;
constexpr double widest = 1e31;
constexpr double exactWhole = 9007199254740992.0; // 2^53
constexpr double powersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The power of ten of the first digit and the number of digits of the shortest text that gives the number back.
struct Digits
{
    int exponent = 0;
    int count = 1;
};

Digits digitsOf(double number)
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, std::abs(number), std::chars_format::scientific).ptr;
    const char* const mark = std::find(text, end, 'e');
    Digits digits;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, digits.exponent);
    digits.count = mark == text + 1 ? 1 : static_cast<int>(mark - text) - 1;
    return digits;
}

bool stopped(const kpBase::AbstractProgress* progress, std::size_t row)
{
    constexpr std::size_t block = 1 << 14;
    return progress && row % block == 0 && progress->isCancelled();
}

int utf8Size(const QString& text)
{
    int bytes = 0;
    for (const QChar character : text) {
        const ushort code = character.unicode();
        bytes += code < 0x80 ? 1 : code < 0x800 || character.isSurrogate() ? 2 : 3;
    }
    return bytes;
}

} // namespace

void OgrColumnScan::lookAtNumber(double number, qint64 features)
{
    if (!std::isfinite(number)) {
        m_notFinite += features;
        return;
    }
    if (number == 0.0)
        return;
    if (std::abs(number) >= widest) {
        if (m_wide == 0)
            m_wideExample = number;
        m_wide += features;
        return;
    }
    m_negative = m_negative || number < 0;
    // Most columns have numbers of a few decimals, and those need no closer look.
    const double scaled = number * powersOfTen[std::min(m_mostDecimals, 15)];
    if (!m_exact && std::abs(scaled) < exactWhole && scaled == std::floor(scaled) && std::abs(number) < m_range) {
        m_byDecimals[static_cast<std::size_t>(m_mostDecimals)] += features;
        return;
    }
    const Digits digits = digitsOf(number);
    const int decimals = std::clamp(std::min(digits.count, keptDigits) - 1 - digits.exponent, 0,
                                    static_cast<int>(m_byDecimals.size()) - 1);
    m_byDecimals[static_cast<std::size_t>(decimals)] += features;
    m_mostDecimals = std::max(m_mostDecimals, decimals);
    m_digits = std::max(m_digits, digits.exponent + 1);
    m_range = std::pow(10.0, m_digits);
}

void OgrColumnScan::lookAtText(const QString& text, qint64 features)
{
    if (text.isEmpty()) {
        m_empty += features;
        return;
    }
    if (m_column.meaning != TextMeaning::Plain && m_notMoment.isEmpty()
        && !holdsMoment(text, m_column.meaning, m_traits))
        m_notMoment = text;
    const auto leftOut = [this](QChar each) { return isLeftOut(each, m_traits.texts); };
    if (m_traits.texts != OgrTraits::Texts::Any && std::any_of(text.begin(), text.end(), leftOut))
        m_leftOut += features;
    const int bytes = utf8Size(text);
    m_longest = std::max(m_longest, bytes);
    if (m_traits.mostTextBytes > 0 && bytes > m_traits.mostTextBytes) {
        if (m_long == 0)
            m_longExample = text.left(40);
        m_long += features;
    }
    if (bytes == text.size())
        return;
    for (const QChar character : text) {
        if (character.unicode() >= 0x80 && !m_foreign.contains(character))
            m_foreign += character;
    }
}

void OgrColumnScan::lookAtValue(const QVariant& value, qint64 features)
{
    if (value.isNull()) {
        m_nulls += features;
        if (m_nullObject.isEmpty())
            m_nullObject = m_object;
        return;
    }
    if (m_column.kind == AttributeKind::Text && value.userType() == QMetaType::QString)
        lookAtText(*static_cast<const QString*>(value.constData()), features);
    else if (m_column.kind == AttributeKind::Text)
        lookAtText(writtenValue(m_column, value).toString(), features);
    else
        lookAtNumber(value.toDouble(), features);
}

void OgrColumnScan::lookAtTypes(const ModelObject& object, OgrShape shape, qint64 features)
{
    std::size_t hint = 0;
    const auto valueOf = [&](const OgrColumn& column, std::size_t row) -> QVariant {
        const AttributeColumn* values =
            shape == OgrShape::Points ? vertexAttributeOf(object, column.attribute, hint) : nullptr;
        if (values && values->kind != AttributeKind::Real)
            return values->values[static_cast<int>(row)];
        if (values)
            return values->missing && (*values->missing)[row] ? QVariant() : QVariant((*values->numbers)[row]);
        const ObjectAttribute* whole = objectAttributeOf(object, column.attribute, hint);
        return whole ? whole->value : QVariant();
    };
    const bool perVertex = shape == OgrShape::Points;
    for (std::size_t row = 0; row < (perVertex ? object.x->size() : 1); ++row) {
        const QVariant type = valueOf(m_column, row);
        const QString text = withDirection(writtenValue(m_column, type).toString(), valueOf(*m_dip, row));
        lookAtValue(type.isNull() ? QVariant() : QVariant(text), perVertex ? 1 : features);
    }
}

void OgrColumnScan::look(const ModelObject& object, OgrShape shape, qint64 features,
                         const kpBase::AbstractProgress* progress)
{
    m_object = object.name;
    switch (m_column.content) {
    case OgrColumn::ObjectName:
        lookAtText(object.name, features);
        return;
    case OgrColumn::Colour:
        m_longest = std::max(m_longest, 7);
        return;
    case OgrColumn::Height:
        if (!object.hasZ) {
            m_nulls += features;
            return;
        }
        for (const double z : *object.z) {
            // A node without a height makes no point.
            if (!object.grid || !std::isnan(z))
                lookAtNumber(z, 1);
        }
        return;
    case OgrColumn::Attribute:
        break;
    }
    if (m_dip)
        return lookAtTypes(object, shape, features);
    const AttributeColumn* values =
        shape == OgrShape::Points ? vertexAttributeOf(object, m_column.attribute, m_vertexHint) : nullptr;
    if (!values) {
        const ObjectAttribute* value = objectAttributeOf(object, m_column.attribute, m_objectHint);
        lookAtValue(value ? value->value : QVariant(), features);
        return;
    }
    if (values->kind != AttributeKind::Real) {
        for (int row = 0; row < values->values.size() && !stopped(progress, static_cast<std::size_t>(row)); ++row)
            lookAtValue(values->values[row], 1);
        return;
    }
    for (std::size_t row = 0; row < values->numbers->size() && !stopped(progress, row); ++row) {
        if (values->missing && (*values->missing)[row])
            lookAtValue(QVariant(), 1);
        else if (m_column.kind == AttributeKind::Text)
            lookAtValue((*values->numbers)[row], 1);
        else
            lookAtNumber((*values->numbers)[row], 1);
    }
}

void OgrColumnScan::size(OgrColumn& column, int decimals) const
{
    if (!m_notMoment.isEmpty())
        column.meaning = TextMeaning::Plain;
    if (column.meaning != TextMeaning::Plain)
        return;
    if (column.kind == AttributeKind::Text) {
        if (m_traits.sizedTexts)
            column.width = m_traits.mostTextBytes > 0 ? std::min(m_longest, m_traits.mostTextBytes) : m_longest;
        column.leaveOut = m_leftOut > 0 ? m_traits.texts : OgrTraits::Texts::Any;
        column.cutTo = m_long > 0 ? m_traits.mostTextBytes : 0;
        return;
    }
    if (!m_traits.sizedNumbers)
        return;
    const int sign = m_negative ? 1 : 0;
    column.width = m_digits + sign;
    if (column.kind != AttributeKind::Real)
        return;
    const int room = std::max(0, usualWidth - 1 - column.width);
    column.decimals = decimals >= 0 ? decimals : std::min({m_mostDecimals, room, mostDecimals});
    // Rounding may carry into one digit more.
    column.width += column.decimals < m_mostDecimals ? 1 : 0;
    column.width = std::min(column.width + (column.decimals > 0 ? column.decimals + 1 : 0), mostWidth);
    // A real field without decimals would be read as one of whole numbers.
    if (column.decimals == 0 && decimals < 0 && column.width + 2 <= mostWidth) {
        column.decimals = 1;
        column.width += 2;
    }
    column.most = widest;
}

void OgrColumnScan::report(const OgrColumn& column, Findings& findings) const
{
    const QString name = column.attribute.isEmpty() ? column.field : column.attribute;
    findings.note(ogrFinding::momentAsText, QString(), m_notMoment.isEmpty() ? 0 : 1,
                  QStringLiteral("%1: a field of dates cannot hold \"%2\"").arg(name, m_notMoment));
    if (column.meaning != TextMeaning::Plain)
        return;
    findings.note(ogrFinding::numberNotFinite, QString(), m_notFinite, QStringLiteral("in %1").arg(name));
    findings.note(
        ogrFinding::textCut, QString(), m_long,
        QStringLiteral("in %1 after %2 bytes: \"%3...\"").arg(name).arg(m_traits.mostTextBytes).arg(m_longExample));
    findings.note(ogrFinding::characterLeftOut, QString(), m_leftOut, QStringLiteral("in %1").arg(name));
    if (!m_traits.nulls) {
        findings.note(column.kind == AttributeKind::Text ? ogrFinding::missingTextAsEmpty
                                                         : ogrFinding::missingNumberWrittenAs0,
                      QString(), m_nulls + (column.kind == AttributeKind::Text ? 0 : m_notFinite),
                      QStringLiteral("in %1, first in %2").arg(name, m_nullObject));
    }
    if (!m_traits.emptyTexts && m_traits.nulls && column.kind == AttributeKind::Text) {
        findings.note(ogrFinding::emptyText, QString(), m_empty, QStringLiteral("in %1").arg(name));
    }
    if (column.kind != AttributeKind::Real || !m_traits.sizedNumbers)
        return;
    findings.note(ogrFinding::numberTooWide, QString(), m_wide,
                  QStringLiteral("%1 in %2").arg(m_wideExample).arg(name));
    qint64 rounded = 0;
    for (std::size_t decimals = static_cast<std::size_t>(column.decimals) + 1; decimals < m_byDecimals.size();
         ++decimals)
        rounded += m_byDecimals[decimals];
    findings.note(ogrFinding::numberRounded, QString(), rounded,
                  QStringLiteral("%1 keeps %2 decimals").arg(name).arg(column.decimals));
}

} // namespace kpFormats
