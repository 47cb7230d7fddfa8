// SPDX-License-Identifier: MIT
#include "tests/faults/FaultModel.h"

#include "tests/support/FileContent.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

constexpr double east = 500000;
constexpr double north = 7500000;

QByteArray number(double value)
{
    return QByteArray::number(value, 'f', 3);
}

double height(int column, int row)
{
    // Nothing that compression makes small.
    return 100.0 + column % 7 - row % 5 + 0.001 * ((column * 37 + row * 91) % 997);
}

QByteArray points(int size, double shift)
{
    QByteArray text = "X,Y,Z,name,grade\n";
    for (int index = 0; index < size * size; ++index) {
        text += number(east + shift + index % size) + ',' + number(north + index / size) + ','
                + number(height(index, index)) + ",p" + QByteArray::number(index) + ','
                + (index % 9 == 4 ? QByteArray() : number(index / 7.0)) + '\n';
    }
    return text;
}

QByteArray lines(int size, double shift, bool rings)
{
    QJsonArray features;
    for (int line = 0; line < size; ++line) {
        QJsonArray vertices;
        for (int vertex = 0; vertex < size; ++vertex)
            vertices.append(QJsonArray{east + shift + vertex, north + 2 * line + (rings && vertex % 2 ? 1.0 : 0.0),
                                       height(vertex, line)});
        if (rings) {
            vertices.append(QJsonArray{east + shift + size, north + 2 * line + 1.5, 100.0});
            vertices.append(vertices.first());
        }
        const QJsonArray coordinates = rings ? QJsonArray{vertices} : vertices;
        features.append(QJsonObject{
            {QStringLiteral("type"), QStringLiteral("Feature")},
            {QStringLiteral("properties"),
             QJsonObject{{QStringLiteral("n"), line}, {QStringLiteral("text"), QStringLiteral("слой %1").arg(line)}}},
            {QStringLiteral("geometry"),
             QJsonObject{{QStringLiteral("type"), rings ? QStringLiteral("Polygon") : QStringLiteral("LineString")},
                         {QStringLiteral("coordinates"), coordinates}}}});
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("type"), QStringLiteral("FeatureCollection")},
                                     {QStringLiteral("features"), features}})
        .toJson(QJsonDocument::Compact);
}

QByteArray grid(int size, double shift)
{
    QByteArray text = "ncols " + QByteArray::number(size) + "\nnrows " + QByteArray::number(size) + "\nxllcorner "
                      + number(east + shift) + "\nyllcorner " + number(north) + "\ncellsize 1\nNODATA_value -9999\n";
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column)
            text += (column == 1 && row == 1 ? QByteArray("-9999") : number(height(column, row))) + ' ';
        text += '\n';
    }
    return text;
}

QByteArray mesh(int size, double shift)
{
    QByteArray text =
        "OFF\n" + QByteArray::number(size * size) + ' ' + QByteArray::number(2 * (size - 1) * (size - 1)) + " 0\n";
    for (int index = 0; index < size * size; ++index)
        text += number(east + shift + index % size) + ' ' + number(north + index / size) + ' '
                + number(height(index % size, index / size)) + '\n';
    for (int row = 0; row + 1 < size; ++row) {
        for (int column = 0; column + 1 < size; ++column) {
            const int corner = row * size + column;
            const auto triangle = [&text](int a, int b, int c) {
                text += "3 " + QByteArray::number(a) + ' ' + QByteArray::number(b) + ' ' + QByteArray::number(c) + '\n';
            };
            triangle(corner, corner + 1, corner + size);
            triangle(corner + 1, corner + size + 1, corner + size);
        }
    }
    return text;
}

QByteArray cells(int size, double shift)
{
    const int layers = 4;
    const QByteArray side = QByteArray::number(size);
    QByteArray text = "SPECGRID\n" + side + ' ' + side + ' ' + QByteArray::number(layers) + " 1 F /\nCOORD\n";
    for (int row = 0; row <= size; ++row) {
        for (int column = 0; column <= size; ++column) {
            const QByteArray position = number(east + shift + column) + ' ' + number(north + row) + ' ';
            text += position + "100 " + position + "200\n";
        }
    }
    text += "/\nZCORN\n";
    for (int layer = 0; layer < layers; ++layer) {
        for (int face = 0; face < 2; ++face) {
            for (int corner = 0; corner < 2 * size; ++corner)
                text += QByteArray::number(2 * size) + '*' + number(100 + 10 * (layer + face) + corner / 2 % 3) + '\n';
        }
    }
    text += "/\nPORO\n";
    for (int cell = 0; cell < size * size * layers; ++cell)
        text += number(cell % 30 / 100.0) + '\n';
    return text + "/\n";
}

QByteArray stations(int size)
{
    QByteArray text = "BHID,DEPTH,AZ,DIP\n";
    for (int station = 0; station < size * size; ++station)
        text += "W," + QByteArray::number(10 * station) + ',' + number(station % 720 / 2.0) + ",85\n";
    return text;
}

} // namespace

QStringList hostileNames()
{
    return {QStringLiteral("a/b"),       QStringLiteral("..\\..\\c:*?"), QStringLiteral("CON"),
            QStringLiteral(".."),        QStringLiteral("two\nlines"),   QString(),
            QStringLiteral("Same"),      QStringLiteral("same"),         QStringLiteral("same"),
            QString(300, QChar(0x0416)), QStringLiteral("<>|\"';&]]>"),  QString::fromUtf8("断层 №1 é")};
}

QString writeFaultModel(const QString& folder, int size, double shift)
{
    const QDir directory(folder);
    writeFile(directory.filePath(QStringLiteral("points.csv")), points(size, shift));
    writeFile(directory.filePath(QStringLiteral("lines.geojson")), lines(size, shift, false));
    writeFile(directory.filePath(QStringLiteral("rings.geojson")), lines(size, shift, true));
    writeFile(directory.filePath(QStringLiteral("grid.asc")), grid(size, shift));
    writeFile(directory.filePath(QStringLiteral("mesh.off")), mesh(size, shift));
    writeFile(directory.filePath(QStringLiteral("cells.grdecl")), cells(size, shift));
    writeFile(directory.filePath(QStringLiteral("collar.csv")),
              "BHID,X,Y,Z\nW," + number(east + shift + 3.7) + ',' + number(north + 2.3) + ",100\n");
    writeFile(directory.filePath(QStringLiteral("survey.csv")), stations(size));
    QJsonArray objects;
    for (const char* name : {"points.csv", "lines.geojson", "rings.geojson", "grid.asc", "mesh.off", "cells.grdecl"})
        objects.append(QJsonObject{{QStringLiteral("file"), QLatin1String(name)},
                                   {QStringLiteral("crs"), QStringLiteral("EPSG:28350")}});
    objects.append(QJsonObject{{QStringLiteral("file"), QStringLiteral("collar.csv")},
                               {QStringLiteral("survey"), QStringLiteral("survey.csv")},
                               {QStringLiteral("maxDepth"), 1e6},
                               {QStringLiteral("crs"), QStringLiteral("EPSG:28350")}});
    const QJsonArray trace{QJsonArray{east + shift + 0.5, north + 0.5},
                           QJsonArray{east + shift + size - 1.5, north + size - 1.5}};
    const QJsonObject section{{QStringLiteral("name"), QStringLiteral("Section A")}, {QStringLiteral("trace"), trace}};
    const QJsonObject model{{QStringLiteral("version"), 1},
                            {QStringLiteral("objects"), objects},
                            {QStringLiteral("sections"), QJsonArray{section}}};
    const QString path = directory.filePath(QStringLiteral("model.kpmodel"));
    writeFile(path, QJsonDocument(model).toJson());
    return path;
}
