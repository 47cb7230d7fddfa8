// SPDX-License-Identifier: MIT
#include "formats/off/OffVerification.h"

#include "model/SurfaceMesh.h"
#include "readers/OffReader.h"

#include <QFile>

#include <cmath>

namespace kpFormats
{

namespace
{

void compareVertices(const ModelObject& object, const ModelObject& read, const OffExportSettings& settings,
                     Verification& result)
{
    const double factor = unitFactor(object.lengthUnit, settings.lengthUnit);
    const double up = settings.zIsElevation ? factor : -factor;
    std::size_t next = 0;
    for (std::size_t vertex = 0; vertex < object.x->size(); ++vertex) {
        const Verification::Place wanted{(*object.x)[vertex] * factor, (*object.y)[vertex] * factor,
                                         (*object.z)[vertex] * up};
        // One without a place is left out, which the report tells.
        if (!std::isfinite(wanted[0]) || !std::isfinite(wanted[1]) || !std::isfinite(wanted[2]))
            continue;
        if (next >= read.x->size())
            return result.fail(QStringLiteral("%1: vertex %2 is missing").arg(object.name).arg(vertex + 1));
        result.comparePosition(wanted, {(*read.x)[next], (*read.y)[next], (*read.z)[next]},
                               [&] { return QStringLiteral("%1, vertex %2").arg(object.name).arg(vertex + 1); });
        ++next;
    }
    result.compareCount(object.name, QStringLiteral("vertices"), static_cast<qint64>(next), read.vertexCount());
}

void compareTriangles(const ModelObject& object, const ModelObject& read, Verification& result)
{
    const SurfaceMesh mesh(object);
    if (!result.compareCount(object.name, QStringLiteral("triangles"), mesh.triangleCount(),
                             static_cast<qint64>(read.triangles.size())))
        return;
    std::size_t next = 0;
    mesh.eachTriangle([&](int a, int b, int c) {
        if (read.triangles[next++] != std::array<int, 3>{a, b, c})
            result.fail(QStringLiteral("%1: triangle %2 has other corners").arg(object.name).arg(next));
        return result.good();
    });
    result.alsoCompared(QStringLiteral("triangles"));
}

/// The reader passes colours over: they are what follows the corners of a face.
void compareColours(const ModelObject& object, const QString& path, Verification& result)
{
    QFile file(path);
    const QByteArray wanted = QStringLiteral("%1 %2 %3")
                                  .arg(object.color.red())
                                  .arg(object.color.green())
                                  .arg(object.color.blue())
                                  .toLatin1();
    bool open = file.open(QIODevice::ReadOnly);
    while (open && !file.atEnd()) {
        const QList<QByteArray> words = file.readLine().simplified().split(' ');
        const bool isFace = words.size() > 3 && words.front() == "3";
        if (isFace && words.mid(4).join(' ') != wanted)
            return result.fail(
                QStringLiteral("%1: a face has the colour \"%2\" instead of \"%3\"")
                    .arg(object.name, QString::fromLatin1(words.mid(4).join(' ')), QString::fromLatin1(wanted)));
    }
    result.alsoCompared(QStringLiteral("colours"));
}

} // namespace

Verification verifyOff(const ModelObject& object, const QString& path, const OffExportSettings& settings)
{
    Verification result(QStringLiteral("the program's OFF reader"),
                        Allowance::ofDecimals(settings.decimals, writtenUnit(object.lengthUnit, settings.lengthUnit)));
    Model model;
    try {
        const LoadNotes notes = readOff(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    const ModelObject& read = model.objects().front();
    compareVertices(object, read, settings, result);
    compareTriangles(object, read, result);
    if (settings.colours && object.color.isValid())
        compareColours(object, path, result);
    return result;
}

} // namespace kpFormats
