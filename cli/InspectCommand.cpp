// SPDX-License-Identifier: MIT
#include "cli/InspectCommand.h"

#include "cli/CommandLine.h"
#include "cli/Refusal.h"
#include "cli/StartUp.h"
#include "cli/Terminal.h"
#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace refhost
{

namespace
{

const char* kindName(AttributeKind kind)
{
    switch (kind) {
    case AttributeKind::Real:
        return "real";
    case AttributeKind::Integer:
        return "integer";
    case AttributeKind::Text:
        return "text";
    case AttributeKind::Boolean:
        return "boolean";
    case AttributeKind::Color:
        return "color";
    }
    return "text";
}

QJsonObject attributeJson(const QString& name, AttributeKind kind, const QString& unit)
{
    return {{QStringLiteral("name"), name},
            {QStringLiteral("type"), QLatin1String(kindName(kind))},
            {QStringLiteral("unit"), unit}};
}

QJsonArray extentOf(const Numbers& numbers)
{
    double least = INFINITY;
    double most = -INFINITY;
    for (const double number : *numbers) {
        if (std::isfinite(number)) {
            least = std::min(least, number);
            most = std::max(most, number);
        }
    }
    return least > most ? QJsonArray() : QJsonArray{least, most};
}

int withoutHeight(const ModelObject& object)
{
    return static_cast<int>(
        std::count_if(object.z->begin(), object.z->end(), [](double z) { return !std::isfinite(z); }));
}

QJsonObject objectJson(const ModelObject& object)
{
    QJsonArray attributes;
    for (const AttributeColumn& column : object.vertexAttributes)
        attributes.append(attributeJson(column.name, column.kind, column.unit));
    if (object.cells) {
        for (const AttributeColumn& column : object.cells->cellAttributes)
            attributes.append(attributeJson(column.name, column.kind, column.unit));
    }
    for (const ObjectAttribute& attribute : object.objectAttributes)
        attributes.append(attributeJson(attribute.name, attribute.kind, attribute.unit));
    return {{QStringLiteral("id"), object.id},
            {QStringLiteral("name"), object.name},
            {QStringLiteral("type"), QString::fromStdString(typeKey(object.type))},
            {QStringLiteral("set"), object.set},
            {QStringLiteral("vertices"), object.vertexCount()},
            {QStringLiteral("withoutHeight"), object.hasZ ? withoutHeight(object) : object.vertexCount()},
            {QStringLiteral("parts"), static_cast<int>(object.parts.size())},
            {QStringLiteral("attributes"), attributes},
            {QStringLiteral("x"), extentOf(object.x)},
            {QStringLiteral("y"), extentOf(object.y)},
            {QStringLiteral("z"), object.hasZ ? extentOf(object.z) : QJsonArray()},
            {QStringLiteral("lengthUnit"), object.lengthUnit},
            {QStringLiteral("crs"), crsName(object.crs)}};
}

QString range(const QJsonObject& object, const char* axis)
{
    const QJsonArray extent = object.value(QLatin1String(axis)).toArray();
    if (extent.isEmpty())
        return QStringLiteral("%1 -").arg(QLatin1String(axis));
    return QStringLiteral("%1 %2 .. %3")
        .arg(QLatin1String(axis))
        .arg(extent[0].toDouble(), 0, 'f', 2)
        .arg(extent[1].toDouble(), 0, 'f', 2);
}

QStringList fieldsOf(const QJsonObject& object)
{
    QStringList attributes;
    for (const QJsonValue& value : object.value(QLatin1String("attributes")).toArray()) {
        const QJsonObject attribute = value.toObject();
        attributes.append(QStringLiteral("%1 (%2)").arg(attribute.value(QLatin1String("name")).toString(),
                                                        attribute.value(QLatin1String("type")).toString()));
    }
    const QString crs = object.value(QLatin1String("crs")).toString();
    const int flat = object.value(QLatin1String("withoutHeight")).toInt();
    const bool some = !object.value(QLatin1String("z")).toArray().isEmpty() && flat > 0;
    const QString heights = range(object, "z") + (some ? QStringLiteral(" (%1 without)").arg(flat) : QString());
    return {QString::number(object.value(QLatin1String("id")).toInt()),
            object.value(QLatin1String("name")).toString(),
            object.value(QLatin1String("type")).toString(),
            QStringLiteral("%1 vertices").arg(object.value(QLatin1String("vertices")).toInt()),
            QStringLiteral("%1, %2, %3").arg(range(object, "x"), range(object, "y"), heights),
            crs.isEmpty() ? QStringLiteral("no coordinate system") : crs,
            attributes.join(QStringLiteral(", "))};
}

} // namespace

int inspectCommand(const CommandArguments& arguments)
{
    limitLoading(arguments.request().allowNetwork, arguments.request().allowOutside);
    if (arguments.words().isEmpty())
        throw Refusal(WrongUse, QStringLiteral("inspect: no file is named (give one or more)"));
    Model model;
    LoadNotes notes;
    try {
        for (const QString& path : arguments.words())
            notes += loadInto(model, path);
    } catch (const LoadError& error) {
        printError(QString::fromUtf8(error.what()));
        return NotAllWritten;
    }
    // On standard error, so that the lines and the JSON hold objects only.
    for (const QString& note : qAsConst(notes))
        std::fprintf(stderr, "kpexport: note: %s\n", qPrintable(note));
    QJsonArray objects;
    for (const ModelObject& object : model.objects())
        objects.append(objectJson(object));
    if (arguments.has("json")) {
        printJson(QJsonDocument(QJsonObject{{QStringLiteral("schema"), QStringLiteral("kpexport-inspect-1")},
                                            {QStringLiteral("objects"), objects}}));
    } else {
        for (const QJsonValue& object : objects)
            printFields(fieldsOf(object.toObject()));
    }
    return AllWritten;
}

} // namespace refhost
