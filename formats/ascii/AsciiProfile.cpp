// SPDX-License-Identifier: MIT
#include "formats/ascii/AsciiProfile.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr int rowsOfStep = 32768;

template <typename List>
auto named(const List& list, const QString& name)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [&name](const auto& entry) { return entry.name == name; });
    return found == list.end() ? nullptr : &*found;
}

/// The least number of decimals with which two numbers are written differently; \a most when none below it does.
/// With half a unit of rounding between them more decimals may write them alike again; that is left aside.
int decimalsToTell(double a, double b, int most)
{
    if (a == b || (std::isnan(a) && std::isnan(b)))
        return most;
    if (!std::isfinite(a) || !std::isfinite(b) || std::abs(a - b) >= 1.0)
        return 0;
    double scale = 1.0;
    for (int decimals = 0; decimals < most; ++decimals, scale *= 10.0) {
        if (std::nearbyint(a * scale) != std::nearbyint(b * scale))
            return decimals;
    }
    return most;
}

} // namespace

void AsciiProfile::start(const std::vector<const ModelObject*>& objects, const std::vector<OfferedField>& fields,
                         const QStringList& separators)
{
    m_fields = fields;
    m_separators = separators;
    m_columns.clear();
    for (const OfferedField& field : fields)
        m_columns[field.name].kind = field.kind;
    m_work.clear();
    m_next = 0;
    m_row = 0;
    m_pairs.assign(decimalSteps * decimalSteps * decimalSteps, 0);
    for (const ModelObject* object : objects) {
        m_work.push_back({object, -1});
        for (int field = 0; field < static_cast<int>(fields.size()); ++field)
            m_work.push_back({object, field});
    }
}

bool AsciiProfile::advance(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (!done() && time.elapsed() <= milliseconds) {
        const Work& work = m_work[m_next];
        const int rows = work.object->vertexCount();
        const int end = std::min(m_row + rowsOfStep, rows);
        if (work.field < 0)
            compareNeighbours(*work.object, m_row, end);
        else
            look(*work.object, m_fields[static_cast<std::size_t>(work.field)], m_row, end);
        m_row = end;
        if (m_row >= rows) {
            m_row = 0;
            ++m_next;
        }
    }
    return done();
}

void AsciiProfile::compareNeighbours(const ModelObject& object, int from, int to)
{
    const double* x = object.x->data();
    const double* y = object.y->data();
    const double* z = object.z->data();
    const int never = decimalSteps - 1;
    for (int row = std::max(from, 1); row < to; ++row) {
        const int inX = decimalsToTell(x[row - 1], x[row], never);
        const int inY = decimalsToTell(y[row - 1], y[row], never);
        const int inZ = decimalsToTell(z[row - 1], z[row], never);
        ++m_pairs[static_cast<std::size_t>((inX * decimalSteps + inY) * decimalSteps + inZ)];
    }
}

qint64 AsciiProfile::alike(int xDecimals, int yDecimals, int zDecimals) const
{
    qint64 pairs = 0;
    const int never = decimalSteps - 1;
    for (int inX = std::max(xDecimals + 1, 0); inX < decimalSteps; ++inX) {
        for (int inY = std::max(yDecimals + 1, 0); inY < decimalSteps; ++inY) {
            for (int inZ = std::max(zDecimals + 1, 0); inZ < decimalSteps; ++inZ) {
                // A coordinate that is not written tells nothing apart, but its difference is no matter of decimals.
                const bool curable = (xDecimals >= 0 && inX < never) || (yDecimals >= 0 && inY < never)
                                     || (zDecimals >= 0 && inZ < never);
                if (curable)
                    pairs += m_pairs[static_cast<std::size_t>((inX * decimalSteps + inY) * decimalSteps + inZ)];
            }
        }
    }
    return pairs;
}

void AsciiProfile::look(const ModelObject& object, const OfferedField& field, int from, int to)
{
    Column& column = m_columns[field.name];
    if (field.attribute.isEmpty()) {
        const Numbers* numbers = field.name == QLatin1String("X")   ? &object.x
                                 : field.name == QLatin1String("Y") ? &object.y
                                 : field.name == QLatin1String("Z") ? &object.z
                                                                    : nullptr;
        if (numbers)
            lookAtNumbers(column, (*numbers)->data(), nullptr, from, to);
        else if (object.grid)
            lookAtValue(column, field.name == QLatin1String("i") ? object.grid->columns : object.grid->rows, 1);
        // A node without z is a missing number.
        if (field.name == QLatin1String("Z") && column.notFinite) {
            column.notFinite = false;
            column.missing = std::max<qint64>(column.missing, 1);
        }
        return;
    }
    if (const AttributeColumn* attribute = named(object.vertexAttributes, field.attribute)) {
        if (attribute->kind == AttributeKind::Real) {
            lookAtNumbers(column, attribute->numbers->data(), attribute->missing ? attribute->missing->data() : nullptr,
                          from, to);
        } else {
            for (int row = from; row < to; ++row)
                lookAtValue(column, attribute->values[row], 1);
        }
    } else if (const ObjectAttribute* whole = named(object.objectAttributes, field.attribute)) {
        if (from == 0)
            lookAtValue(column, whole->value, object.vertexCount());
    }
}

void AsciiProfile::lookAtNumbers(Column& column, const double* numbers, const unsigned char* missing, int from, int to)
{
    for (int row = from; row < to; ++row) {
        if (missing && missing[row] != 0) {
            ++column.missing;
        } else if (std::isfinite(numbers[row])) {
            column.least = std::min(column.least, numbers[row]);
            column.most = std::max(column.most, numbers[row]);
        } else {
            column.notFinite = true;
        }
    }
}

void AsciiProfile::lookAtValue(Column& column, const QVariant& value, int times)
{
    if (value.isNull()) {
        if (column.kind != AttributeKind::Text)
            column.missing += times;
        return;
    }
    switch (column.kind) {
    case AttributeKind::Text:
        lookAtText(column, value.toString());
        break;
    case AttributeKind::Color:
        column.longest = QStringLiteral("#rrggbb");
        break;
    case AttributeKind::Real: {
        const double number = value.toDouble();
        lookAtNumbers(column, &number, nullptr, 0, 1);
        break;
    }
    case AttributeKind::Integer:
    case AttributeKind::Boolean: {
        const int number = value.toInt();
        column.least = std::min(column.least, double{1.0} * number);
        column.most = std::max(column.most, double{1.0} * number);
        break;
    }
    }
}

void AsciiProfile::lookAtText(Column& column, const QString& text)
{
    if (text.size() > column.longest.size())
        column.longest = text;
    for (const QString& separator : qAsConst(m_separators)) {
        if (!column.holding.contains(separator) && text.contains(separator))
            column.holding.insert(separator, text);
    }
}

} // namespace kpFormats
