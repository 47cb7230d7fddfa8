// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "readers/CoordinateColumns.h"
#include "readers/FeatureFields.h"
#include "readers/LoadOptions.h"
#include "readers/MeshBuilder.h"

#include <map>
#include <memory>
#include <optional>

class OGRFeature;
class OGRGeometry;
class OGRGeometryCollection;
class OGRLayer;
class OGRPoint;
class OGRPolygon;
class OGRPolyhedralSurface;
class OGRSimpleCurve;

namespace kpFormats
{

/// Reads one layer into objects. Curves become lines, triangulated and polyhedral surfaces meshes, collections are taken
/// apart; the faces of a drawing become a mesh per drawing layer. Rows of a table without geometries, such as the sheet of
/// a spreadsheet, become points where it has columns of coordinates.
class LayerReader
{
public:
    LayerReader(Model& model, OGRLayer& layer, const QString& path, const LoadOptions& options);

    /// \returns the number of objects \throws LoadError
    int read(LoadNotes& notes);

private:
    /// Polygons that share corners at the same positions.
    struct Faces
    {
        MeshBuilder mesh;
        std::map<std::array<double, 3>, int> vertices;
        int count = 0;

        int vertexAt(const OGRPoint& point);
    };

    std::unique_ptr<OGRPoint> pointOf(const OGRFeature& feature) const;
    ModelObject makeObject(ObjectType type, const QString& name) const;
    QString featureName(const OGRFeature& feature) const;
    void readFeature(const OGRFeature& feature);
    void readGeometry(const OGRFeature& feature, const OGRGeometry& geometry);
    void addLines(const OGRFeature& feature, const OGRGeometry& geometry);
    void addParts(const OGRGeometry& geometry, ModelObject& object);
    void addPart(const OGRSimpleCurve& curve, bool closed, bool hole, ModelObject& object);
    void addSurface(const OGRFeature& feature, const OGRPolyhedralSurface& surface);
    bool addFace(const OGRPolygon& polygon, Faces& faces);
    void addFaceOfDrawing(const OGRFeature& feature, const OGRPolygon& polygon);
    void addMesh(const QString& name, Faces& faces, std::vector<ObjectAttribute> attributes);
    void addPoint(const OGRFeature& feature, const OGRPoint& point);
    void addCloud();
    void appendNotes(LoadNotes& notes) const;

    Model& m_model;
    OGRLayer& m_layer;
    QString m_path;
    const LoadOptions& m_options;
    QString m_name;
    std::optional<CoordinateColumns> m_columns; ///< of a table without geometries
    FeatureFields m_fields;
    int m_nameField = -1;
    int m_subClasses = -1; ///< fields of a drawing
    int m_drawingLayer = -1;
    QString m_crs;
    std::vector<double> m_x; ///< of the object that is being read
    std::vector<double> m_y;
    std::vector<double> m_z;
    MeshBuilder m_cloud; ///< its points
    bool m_cloudHasZ = false;
    std::map<QString, Faces> m_drawn; ///< faces by drawing layer
    int m_number = 0;
    int m_flatPoints = 0;
    int m_withoutGeometry = 0;
    int m_withoutNumbers = 0;
    int m_emptyPoints = 0;
    int m_curves = 0;
    int m_measured = 0;
    int m_collections = 0;
    int m_surfaces = 0;
    int m_badFaces = 0;
    int m_faceHoles = 0;
    int m_unknown = 0;
};

} // namespace kpFormats
