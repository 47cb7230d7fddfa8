// SPDX-License-Identifier: MIT
#include "formats/obj/ObjVerification.h"

#include "export/WrittenSurface.h"
#include "readers/ObjReader.h"

namespace kpFormats
{

namespace
{

void compareObject(const ModelObject& object, const ModelObject& read, const ObjExportSettings& settings,
                   Verification& result)
{
    result.compareSame(QStringLiteral("names"), object.name, objObjectName(object.name), read.name);
    const WrittenSurface surface(object, settings.lengthUnit, settings.zIsElevation);
    if (!result.compareCount(object.name, QStringLiteral("triangles"), surface.mesh().triangleCount(),
                             static_cast<qint64>(read.triangles.size())))
        return;
    result.alsoCompared(QStringLiteral("triangles"));
    std::size_t triangle = 0;
    surface.eachTriangle([&](const std::array<WrittenSurface::Place, 3>& corners) {
        const std::array<int, 3>& found = read.triangles[triangle++];
        for (std::size_t corner = 0; corner < 3; ++corner) {
            const auto vertex = static_cast<std::size_t>(found[corner]);
            result.comparePosition(corners[corner], {(*read.x)[vertex], (*read.y)[vertex], (*read.z)[vertex]}, [&] {
                return QStringLiteral("%1, triangle %2, corner %3").arg(object.name).arg(triangle).arg(corner + 1);
            });
        }
        return true;
    });
}

} // namespace

QString objObjectName(const QString& name)
{
    const QString legal = name.simplified();
    return legal.isEmpty() ? QStringLiteral("unnamed") : legal;
}

Verification verifyObj(const std::vector<const ModelObject*>& objects, const QString& path,
                       const ObjExportSettings& settings)
{
    Verification result(QStringLiteral("the program's OBJ reader"),
                        Allowance::ofDecimals(settings.decimals, QString()).most,
                        LengthFactors(*objects.front(), settings.lengthUnit, settings.zIsElevation));
    Model model;
    try {
        const LoadNotes notes = readObj(model, path, LoadOptions());
        if (!notes.isEmpty())
            result.fail(notes.front());
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
        return result;
    }
    if (!result.compareCount(QStringLiteral("file"), QStringLiteral("objects"), static_cast<qint64>(objects.size()),
                             static_cast<qint64>(model.objects().size())))
        return result;
    for (std::size_t index = 0; index < objects.size(); ++index)
        compareObject(*objects[index], model.objects()[index], settings, result);
    return result;
}

} // namespace kpFormats
