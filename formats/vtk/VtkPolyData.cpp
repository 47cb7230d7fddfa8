// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkPolyData.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"
#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "formats/vtk/VtkColumns.h"
#include "formats/vtk/VtkFigures.h"
#include "formats/vtk/VtkObjects.h"

#include <memory>

namespace kpFormats
{

namespace
{

/// The figures of all objects of a file, and where the points of each begin.
class Figures
{
public:
    Figures(const std::vector<const ModelObject*>& objects, const VtkExportSettings& settings)
    {
        for (const ModelObject* object : objects) {
            all.emplace_back(*object);
            m_firstPoints.push_back(points);
            m_factors.emplace_back(*object, settings.lengthUnit, settings.zIsElevation);
            points += all.back().pointCount();
            verts += all.back().vertCount();
            lines += all.back().lineCount();
            lineCorners += all.back().lineCorners();
            faces += all.back().faceCount();
            faceCorners += all.back().faceCorners();
        }
    }

    qint64 cells() const { return verts + lines + faces; }

    void putPositions(VtkValues& values) const
    {
        for (std::size_t object = 0; object < all.size(); ++object) {
            const ModelObject& source = all[object].object();
            const LengthFactors& by = m_factors[object];
            all[object].eachPoint([&](int vertex) {
                const auto at = static_cast<std::size_t>(vertex);
                values.real((*source.x)[at] * by.flat);
                values.real((*source.y)[at] * by.flat);
                values.real((*source.z)[at] * by.height);
                return values.next();
            });
        }
    }

    /// Of each point, the object and the vertex.
    void eachPoint(const std::function<bool(std::size_t, int)>& visit) const
    {
        bool on = true;
        for (std::size_t object = 0; on && object < all.size(); ++object)
            all[object].eachPoint([&](int vertex) { return on = visit(object, vertex); });
    }

    /// Of each cell, the object and which ring it is: lone points, lines, faces.
    void eachCell(const std::function<bool(std::size_t, int)>& visit) const
    {
        bool on = true;
        constexpr int noRing = static_cast<int>(VtkRing::Line);
        for (std::size_t object = 0; on && object < all.size(); ++object)
            all[object].eachVert([&](qint64) { return on = visit(object, noRing); });
        for (std::size_t object = 0; on && object < all.size(); ++object)
            all[object].eachLine(
                [&](qint64, qint64, bool, VtkRing ring) { return on = visit(object, static_cast<int>(ring)); });
        for (std::size_t object = 0; on && object < all.size(); ++object)
            all[object].eachFace([&](const Face&, int) { return on = visit(object, noRing); });
    }

    void putVerts(VtkValues& values) const
    {
        each(values, [&](const VtkFigures& figures, qint64 first) {
            figures.eachVert([&](qint64 point) {
                values.whole(first + point);
                return values.next();
            });
        });
    }
    void putLines(VtkValues& values) const
    {
        each(values, [&](const VtkFigures& figures, qint64 first) {
            figures.eachLine([&](qint64 begin, qint64 count, bool leadsBack, VtkRing) {
                for (qint64 point = 0; point < count; ++point) {
                    values.whole(first + begin + point);
                    if (!values.next())
                        return false;
                }
                if (leadsBack)
                    values.whole(first + begin);
                return true;
            });
        });
    }
    void putFaces(VtkValues& values) const
    {
        each(values, [&](const VtkFigures& figures, qint64 first) {
            figures.eachFace([&](const Face& face, int corners) {
                for (int corner = 0; corner < corners; ++corner)
                    values.whole(first + face[static_cast<std::size_t>(corner)]);
                return values.next();
            });
        });
    }
    /// Where each cell ends in the list of corners.
    void putVertEnds(VtkValues& values) const
    {
        for (qint64 end = 1; end <= verts; ++end) {
            values.whole(end);
            if (!values.next())
                return;
        }
    }
    void putLineEnds(VtkValues& values) const
    {
        qint64 end = 0;
        each(values, [&](const VtkFigures& figures, qint64) {
            figures.eachLine([&](qint64, qint64 count, bool leadsBack, VtkRing) {
                values.whole(end += count + (leadsBack ? 1 : 0));
                return values.next();
            });
        });
    }
    void putFaceEnds(VtkValues& values) const
    {
        qint64 end = 0;
        each(values, [&](const VtkFigures& figures, qint64) {
            figures.eachFace([&](const Face&, int corners) {
                values.whole(end += corners);
                return values.next();
            });
        });
    }

    std::vector<VtkFigures> all;
    qint64 points = 0;
    qint64 verts = 0;
    qint64 lines = 0;
    qint64 lineCorners = 0;
    qint64 faces = 0;
    qint64 faceCorners = 0;

private:
    template <typename Visit>
    void each(const VtkValues& values, Visit visit) const
    {
        for (std::size_t object = 0; object < all.size() && !values.cancelled(); ++object)
            visit(all[object], m_firstPoints[object]);
    }

    std::vector<qint64> m_firstPoints;
    std::vector<LengthFactors> m_factors;
};

using SharedFigures = std::shared_ptr<const Figures>;

VtkArray arrayOf(const char* name, VtkType type, int components, qint64 tuples, const SharedFigures& figures,
                 void (Figures::*put)(VtkValues&) const)
{
    VtkArray array;
    array.name = QString::fromLatin1(name);
    array.type = type;
    array.components = components;
    array.tuples = tuples;
    array.write = [figures, put](VtkValues& values) { (figures.get()->*put)(values); };
    return array;
}

VtkSection cellSection(const char* tag, qint64 corners, qint64 cells, const SharedFigures& figures,
                       void (Figures::*putCorners)(VtkValues&) const, void (Figures::*putEnds)(VtkValues&) const)
{
    return {tag,
            {arrayOf("connectivity", VtkType::Int64, 1, corners, figures, putCorners),
             arrayOf("offsets", VtkType::Int64, 1, cells, figures, putEnds)}};
}

/// The arrays that every file has at its cells.
std::vector<VtkArray> ownCellArrays(const SharedFigures& figures, const VtkExportSettings& settings)
{
    std::vector<VtkArray> arrays(2);
    arrays[0].name = QStringLiteral("object");
    arrays[0].type = VtkType::Int64;
    arrays[0].tuples = figures->cells();
    arrays[0].write = [figures](VtkValues& values) {
        figures->eachCell([&](std::size_t object, int) {
            values.whole(static_cast<qint64>(object));
            return values.next();
        });
    };
    arrays[1].name = QStringLiteral("ring");
    arrays[1].type = VtkType::UInt8;
    arrays[1].tuples = figures->cells();
    arrays[1].write = [figures](VtkValues& values) {
        figures->eachCell([&](std::size_t, int ring) {
            values.byte(ring);
            return values.next();
        });
    };
    if (!settings.colours)
        return arrays;
    VtkArray colour;
    colour.name = QStringLiteral("colour");
    colour.type = VtkType::UInt8;
    colour.components = 3;
    colour.tuples = figures->cells();
    colour.write = [figures](VtkValues& values) {
        figures->eachCell([&](std::size_t object, int) {
            const QRgb rgb = figures->all[object].object().color.rgb();
            values.byte(qRed(rgb));
            values.byte(qGreen(rgb));
            values.byte(qBlue(rgb));
            return values.next();
        });
    };
    arrays.push_back(std::move(colour));
    return arrays;
}

void noteLosses(const Figures& figures, Findings& findings)
{
    for (const VtkFigures& figure : figures.all) {
        const ModelObject& object = figure.object();
        findings.note(finding::vertexWithoutPosition, object, figure.leftOutPoints(),
                      QStringLiteral("its height or place is missing"));
        findings.note(finding::triangleWithoutPosition, object, figure.leftOutFaces(),
                      QStringLiteral("a corner's height or place is missing"));
        if (!object.hasZ)
            findings.note(finding::objectWithoutHeights, object, 1, object.name);
    }
}

} // namespace

std::vector<const ModelObject*> vtkPlaced(const std::vector<const ModelObject*>& objects)
{
    std::vector<const ModelObject*> placed;
    for (const ModelObject* object : objects) {
        if (hasAnyPosition(*object))
            placed.push_back(object);
    }
    return placed;
}

VtkDocument vtkPolyData(const PlannedFile& file, const ExportSelection& selection, const VtkExportSettings& settings,
                        Findings& findings)
{
    noteMissingAttributes(file.objects, selection, findings);
    const std::vector<const ModelObject*> objects = vtkPlaced(file.objects);
    for (const ModelObject* object : file.objects) {
        if (!hasAnyPosition(*object))
            findings.note(finding::objectWithoutPosition, *object, 1, object->name);
    }
    if (objects.empty())
        throw ExportError(
            file.path,
            QStringLiteral("none of its objects has a position, the first is %1").arg(file.objects.front()->name),
            QStringLiteral("choose objects with coordinates"));
    const auto figures = std::make_shared<const Figures>(objects, settings);
    noteLosses(*figures, findings);

    VtkDocument document;
    document.type = "PolyData";
    const auto count = [](const char* what, qint64 number) {
        return std::string(" NumberOf") + what + "=\"" + std::to_string(number) + '"';
    };
    document.piece = count("Points", figures->points) + count("Verts", figures->verts) + count("Lines", figures->lines)
                     + count("Strips", 0) + count("Polys", figures->faces);
    document.rows = figures->points;
    document.fieldData = vtkObjects(objects, settings, findings);

    VtkSection pointData{"PointData", {}};
    UniqueNames pointNames;
    const VtkRows pointRows = [figures](const auto& visit) { figures->eachPoint(visit); };
    for (VtkColumn& column : vtkColumns(objects, VtkPlace::Vertices, selection, settings, pointNames, findings))
        pointData.arrays.push_back(vtkArrayOf(std::move(column), figures->points, pointRows));

    VtkSection cellData{"CellData", ownCellArrays(figures, settings)};
    UniqueNames cellNames;
    for (const VtkArray& array : cellData.arrays)
        cellNames.take(array.name);
    const VtkRows cellRows = [figures](const auto& visit) { figures->eachCell(visit); };
    for (VtkColumn& column : vtkColumns(objects, VtkPlace::Object, selection, settings, cellNames, findings))
        cellData.arrays.push_back(vtkArrayOf(std::move(column), figures->cells(), cellRows));

    document.sections = {
        std::move(pointData),
        std::move(cellData),
        {"Points", {arrayOf("Points", VtkType::Float64, 3, figures->points, figures, &Figures::putPositions)}},
        cellSection("Verts", figures->verts, figures->verts, figures, &Figures::putVerts, &Figures::putVertEnds),
        cellSection("Lines", figures->lineCorners, figures->lines, figures, &Figures::putLines, &Figures::putLineEnds),
        cellSection("Polys", figures->faceCorners, figures->faces, figures, &Figures::putFaces, &Figures::putFaceEnds)};
    return document;
}

} // namespace kpFormats
