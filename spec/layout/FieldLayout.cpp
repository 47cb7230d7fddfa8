// SPDX-License-Identifier: MIT
#include "spec/layout/FieldLayout.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kpBaseExport
{

namespace layout
{

namespace
{

struct NonAttribute
{
    const char* name;
    const char* type;
    int typeId;
    int order;
    int start;
    int end;
    int width;
    int precision;
};

// X has no columns: it is placed by layOut().
constexpr NonAttribute nonAttributes[] = {
    {"X", "double", -6, 0, 0, 0, 14, 4}, {"Y", "double", -2, 1, 15, 28, 14, 4}, {"Z", "double", -3, 2, 29, 42, 14, 4},
    {"i", "int", -4, 3, 1, 10, 9, 0},    {"j", "int", -5, 4, 11, 20, 9, 0},
};

const NonAttribute* findNonAttribute(const QString& name)
{
    const auto found = std::find_if(std::begin(nonAttributes), std::end(nonAttributes),
                                    [&name](const NonAttribute& entry) { return name == QLatin1String(entry.name); });
    return found == std::end(nonAttributes) ? nullptr : found;
}

/// Sum that stays in the range of an int: a file may hold any number.
int sum(int a, int b)
{
    const std::int64_t total = std::int64_t{a} + b;
    return static_cast<int>(
        std::clamp<std::int64_t>(total, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

int distance(int from, int to)
{
    const std::int64_t length = std::int64_t{to} - from;
    return static_cast<int>(
        std::clamp<std::int64_t>(length, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

QString parentName(const QString& name)
{
    const int colon = name.indexOf(QLatin1Char(':'));
    return colon < 0 ? name : name.left(colon);
}

QString childName(const QString& name)
{
    const int colon = name.indexOf(QLatin1Char(':'));
    return colon < 0 ? name : name.mid(colon + 1);
}

bool isCompound(const QString& name)
{
    return name.contains(QLatin1Char(':'));
}

bool isNonAttribute(const QString& name)
{
    return findNonAttribute(name) != nullptr;
}

bool isNonAttribute(const QESAttribute& field)
{
    return std::any_of(std::begin(nonAttributes), std::end(nonAttributes), [&field](const NonAttribute& entry) {
        return entry.typeId == field.typeId() && writerName(QLatin1String(entry.name)) == writerName(field.name());
    });
}

void nonAttribute(const QString& name, QESAttribute& out)
{
    const NonAttribute* entry = findNonAttribute(name);
    if (!entry)
        return;
    out.name() = name;
    out.type() = QString::fromLatin1(entry->type);
    out.typeId() = entry->typeId;
    out.order() = entry->order;
    out.start() = entry->start;
    out.end() = entry->end;
    out.width() = entry->width;
    out.precision() = entry->precision;
}

Span spanBehind(int previousEnd, int width)
{
    const int start = sum(previousEnd, 1);
    return {start, sum(start, width)};
}

bool pushedRight(Span& span, int& next)
{
    if (span.start >= next)
        return false;
    const int length = distance(span.start, span.end);
    span = {next, sum(next, length)};
    next = sum(span.end, 1);
    return true;
}

QVector<QESAttribute> orderedFields(const QMap<QString, QESAttribute>& specification,
                                    const std::function<bool(const QString&)>& onOffer)
{
    QVector<QESAttribute> fields;
    for (auto entry = specification.begin(); entry != specification.end(); ++entry) {
        if (onOffer(entry.key()))
            fields.append(entry.value());
    }
    // Of two with the same order the one that comes later in the order of names stands first.
    std::reverse(fields.begin(), fields.end());
    std::stable_sort(fields.begin(), fields.end(), [](const QESAttribute& a, const QESAttribute& b) {
        const bool aPlaced = a.order() >= 0;
        const bool bPlaced = b.order() >= 0;
        return aPlaced != bPlaced ? aPlaced : a.order() < b.order();
    });
    for (int index = 0; index < fields.size(); ++index)
        fields[index].order() = index;
    return fields;
}

void layOut(QVector<QESAttribute>& fields)
{
    int position = 0;
    for (QESAttribute& field : fields) {
        if (field.start() == 0 && field.end() == 0) {
            field.start() = position;
            field.end() = sum(position, field.width());
        } else if (position > field.start()) {
            int span = distance(field.start(), field.end());
            if (span < 1)
                span = field.width();
            field.start() = position;
            field.end() = sum(position, span);
        } else if (field.end() < field.start()) {
            // Only a file that was edited by hand says so.
            field.end() = sum(field.start(), field.width());
        }
        position = sum(field.end(), 1);
    }
}

QString writerName(const QString& name)
{
    const bool coordinate = name == QLatin1String("X") || name == QLatin1String("Y") || name == QLatin1String("Z");
    return coordinate ? name.toLower() : name;
}

std::vector<MatrixDataExporter::FieldInfo> fieldInfos(const QVector<QESAttribute>& fields, bool columns)
{
    std::vector<MatrixDataExporter::FieldInfo> infos;
    infos.reserve(static_cast<std::size_t>(fields.size()));
    int position = 0;
    for (const QESAttribute& field : fields) {
        if (columns) {
            infos.push_back({writerName(field.name()), field.precision(), field.start(), field.end()});
        } else {
            const int end = sum(position, field.width());
            infos.push_back({writerName(field.name()), field.precision(), position, end});
            position = sum(end, 1);
        }
    }
    return infos;
}

} // namespace layout

} // namespace kpBaseExport
