// SPDX-License-Identifier: MIT
#include "formats/ogr/QgisStyle.h"

#include "formats/ogr/OgrFindings.h"

#include <QMap>
#include <QXmlStreamWriter>

namespace kpFormats
{

namespace
{

/// Each colour and the name of the first object that has it.
using Colours = QMap<QString, QString>;

Colours coloursOf(const OgrLayer& layer)
{
    Colours colours;
    for (const ModelObject* object : layer.objects) {
        const QString colour = object->color.isValid() ? object->color.name() : QString();
        if (!colour.isEmpty() && !colours.contains(colour))
            colours.insert(colour, object->set.isEmpty() ? object->name
                                                         : object->name + QStringLiteral(" (%1)").arg(object->set));
    }
    return colours;
}

void writeOption(QXmlStreamWriter& xml, const char* name, const QString& value)
{
    xml.writeEmptyElement(QStringLiteral("Option"));
    xml.writeAttribute(QStringLiteral("name"), QString::fromLatin1(name));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("QString"));
    xml.writeAttribute(QStringLiteral("value"), value);
}

void writeSymbol(QXmlStreamWriter& xml, OgrShape shape, const QString& name, const QString& hexColour)
{
    static const char* const types[] = {"marker", "line", "fill"};
    static const char* const classes[] = {"SimpleMarker", "SimpleLine", "SimpleFill"};
    const QColor colour(hexColour);
    const QString text = QStringLiteral("%1,%2,%3,255").arg(colour.red()).arg(colour.green()).arg(colour.blue());
    xml.writeStartElement(QStringLiteral("symbol"));
    xml.writeAttribute(QStringLiteral("name"), name);
    xml.writeAttribute(QStringLiteral("type"), QString::fromLatin1(types[static_cast<int>(shape)]));
    xml.writeAttribute(QStringLiteral("alpha"), QStringLiteral("1"));
    xml.writeStartElement(QStringLiteral("layer"));
    xml.writeAttribute(QStringLiteral("class"), QString::fromLatin1(classes[static_cast<int>(shape)]));
    xml.writeAttribute(QStringLiteral("enabled"), QStringLiteral("1"));
    xml.writeStartElement(QStringLiteral("Option"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("Map"));
    switch (shape) {
    case OgrShape::Points:
        writeOption(xml, "color", text);
        writeOption(xml, "name", QStringLiteral("circle"));
        writeOption(xml, "size", QStringLiteral("2"));
        break;
    case OgrShape::Lines:
        writeOption(xml, "line_color", text);
        writeOption(xml, "line_width", QStringLiteral("0.5"));
        break;
    case OgrShape::Polygons:
        writeOption(xml, "color", text);
        writeOption(xml, "style", QStringLiteral("solid"));
        writeOption(xml, "outline_color", QStringLiteral("60,60,60,255"));
        writeOption(xml, "outline_width", QStringLiteral("0.1"));
        break;
    }
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
}

void writeRenderer(QXmlStreamWriter& xml, OgrShape shape, const Colours& colours, bool byField)
{
    xml.writeStartElement(QStringLiteral("renderer-v2"));
    xml.writeAttribute(QStringLiteral("type"),
                       byField ? QStringLiteral("categorizedSymbol") : QStringLiteral("singleSymbol"));
    if (byField) {
        xml.writeAttribute(QStringLiteral("attr"), QStringLiteral("colorval"));
        xml.writeStartElement(QStringLiteral("categories"));
        int number = 0;
        for (auto colour = colours.begin(); colour != colours.end(); ++colour) {
            xml.writeEmptyElement(QStringLiteral("category"));
            xml.writeAttribute(QStringLiteral("value"), colour.key());
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("string"));
            xml.writeAttribute(QStringLiteral("label"), colour.value());
            xml.writeAttribute(QStringLiteral("symbol"), QString::number(number++));
            xml.writeAttribute(QStringLiteral("render"), QStringLiteral("true"));
        }
        xml.writeEndElement();
    }
    xml.writeStartElement(QStringLiteral("symbols"));
    int number = 0;
    for (auto colour = colours.begin(); colour != colours.end(); ++colour) {
        if (byField || number == 0)
            writeSymbol(xml, shape, QString::number(number++), colour.key());
    }
    xml.writeEndElement();
    xml.writeEndElement();
}

} // namespace

QByteArray qgisStyle(const OgrLayer& layer, bool hasField, Findings& findings)
{
    const Colours colours = coloursOf(layer);
    if (colours.isEmpty())
        return {};
    const bool byField = hasField && colours.size() > 1;
    if (colours.size() > 1 && !byField) {
        findings.note(ogrFinding::colourNotCarried, QString(), colours.size() - 1,
                      QStringLiteral("the style has one colour; switch attributes and color on"));
    }
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeDTD(QStringLiteral("<!DOCTYPE qgis>"));
    xml.writeStartElement(QStringLiteral("qgis"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("3.22"));
    xml.writeAttribute(QStringLiteral("styleCategories"), QStringLiteral("Symbology"));
    writeRenderer(xml, layer.shape, colours, byField);
    xml.writeEndElement();
    xml.writeEndDocument();
    return text;
}

} // namespace kpFormats
