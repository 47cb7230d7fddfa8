// SPDX-License-Identifier: MIT
#include "readers/StlReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/StatedOffset.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cmath>
#include <cstring>
#include <map>

namespace kpFormats
{

namespace
{

/// A title of 80 bytes, the number of facets, then 50 bytes for each: a normal, three corners, two bytes more.
constexpr qint64 titleSize = 80;
constexpr qint64 facetSize = 50;

class StlMesh
{
public:
    MeshBuilder mesh;

    int vertexAt(const std::array<double, 3>& position)
    {
        const auto found = m_vertices.emplace(position, mesh.vertexCount());
        if (found.second) {
            mesh.x.push_back(position[0]);
            mesh.y.push_back(position[1]);
            mesh.z.push_back(position[2]);
        }
        return found.first->second;
    }
    void add(const std::array<int, 3>& corners)
    {
        if (corners[0] == corners[1] || corners[1] == corners[2] || corners[0] == corners[2])
            ++thin;
        else
            mesh.triangles.push_back(corners);
    }

    int thin = 0; ///< facets without an area, which are left out

private:
    std::map<std::array<double, 3>, int> m_vertices;
};

/// The facets that a binary file has room for; -1 when it is none.
qint64 binaryFacets(QFile& file)
{
    char head[titleSize + 4];
    if (file.read(head, sizeof head) != sizeof head)
        return -1;
    const qint64 count = qFromLittleEndian<quint32>(head + titleSize);
    return file.size() == titleSize + 4 + count * facetSize ? count : -1;
}

StlFacets facetsOf(QFile& file, const QString& path, qint64 count)
{
    StlFacets facets;
    file.seek(0);
    facets.title = file.read(titleSize).toStdString();
    file.seek(titleSize + 4);
    facets.corners.reserve(static_cast<std::size_t>(count) * 3);
    for (qint64 facet = 0; facet < count; ++facet) {
        char bytes[facetSize];
        if (file.read(bytes, facetSize) != facetSize)
            throw LoadError(path, QStringLiteral("reading facet %1 failed").arg(facet + 1),
                            QStringLiteral("copy the file again from its source"));
        const auto numbersAt = [&bytes](std::size_t place) {
            std::array<double, 3> numbers{};
            for (double& number : numbers) {
                const quint32 bits = qFromLittleEndian<quint32>(bytes + place);
                float value = 0;
                std::memcpy(&value, &bits, sizeof value);
                number = static_cast<double>(value);
                place += sizeof bits;
            }
            return numbers;
        };
        facets.normals.push_back(numbersAt(0));
        for (std::size_t corner = 1; corner <= 3; ++corner) {
            facets.corners.push_back(numbersAt(corner * 12));
            const std::array<double, 3>& position = facets.corners.back();
            if (!std::all_of(position.begin(), position.end(), [](double number) { return std::isfinite(number); }))
                throw LoadError(path, QStringLiteral("facet %1 has a corner that is not a number").arg(facet + 1),
                                QStringLiteral("repair it at its source"));
        }
    }
    return facets;
}

void readBinary(const StlFacets& facets, StlMesh& stl)
{
    for (std::size_t first = 0; first < facets.corners.size(); first += 3) {
        std::array<int, 3> corners{};
        for (std::size_t corner = 0; corner < 3; ++corner)
            corners[corner] = stl.vertexAt(facets.corners[first + corner]);
        stl.add(corners);
    }
    StatedOffset offset;
    offset.take(facets.title);
    offset.addTo(stl.mesh.x, stl.mesh.y, stl.mesh.z);
}

void openStl(QFile& file, const QString& path)
{
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        throw LoadError(path, QStringLiteral("the file cannot be read"),
                        QStringLiteral("check the path and its permissions"));
}

void readText(const QString& path, StlMesh& stl)
{
    TextScanner scanner(path);
    std::array<int, 3> corners{};
    std::size_t corner = 0;
    std::string_view word;
    while (scanner.nextLine()) {
        if (!scanner.nextWord(word))
            continue;
        if (word == "vertex") {
            if (corner == 3)
                scanner.fail(QStringLiteral("the facet has more than three corners"), QStringLiteral("correct it"));
            std::array<double, 3> position{};
            for (double& number : position) {
                if (!scanner.nextWord(word))
                    scanner.fail(QStringLiteral("a vertex needs three numbers"), QStringLiteral("correct the line"));
                number = scanner.number(word);
            }
            corners[corner++] = stl.vertexAt(position);
        } else if (word == "endfacet") {
            if (corner != 3)
                scanner.fail(QStringLiteral("the facet has %1 of three corners").arg(corner),
                             QStringLiteral("correct it"));
            stl.add(corners);
            corner = 0;
        } else if (scanner.lineNumber() == 1 && word != "solid") {
            scanner.fail(QStringLiteral("%1 stands where \"solid\" should").arg(quoted(word)),
                         QStringLiteral("give an STL file, text or binary"));
        }
    }
    if (corner != 0)
        scanner.failAtEnd(QStringLiteral("the last facet is not complete"));
}

} // namespace

StlFacets readStlFacets(const QString& path)
{
    QFile file(path);
    openStl(file, path);
    const qint64 facets = binaryFacets(file);
    if (facets < 0)
        throw LoadError(path, QStringLiteral("its size is not that of its facets"),
                        QStringLiteral("give a whole binary STL file"));
    return facetsOf(file, path, facets);
}

LoadNotes readStl(Model& model, const QString& path, const LoadOptions& options)
{
    StlMesh stl;
    QFile file(path);
    openStl(file, path);
    const qint64 facets = binaryFacets(file);
    if (facets >= 0)
        readBinary(facetsOf(file, path, facets), stl);
    else
        readText(path, stl);
    if (stl.mesh.triangles.empty())
        throw LoadError(path, QStringLiteral("there is no facet in it"), QStringLiteral("check the file"));
    ModelObject object =
        newObject(path, options, ObjectType::MeshSurfaces,
                  options.name.isEmpty() ? QFileInfo(path).completeBaseName() : options.name, QStringLiteral("Meshes"));
    setCoordinates(object, std::move(stl.mesh.x), std::move(stl.mesh.y), std::move(stl.mesh.z));
    object.triangles = std::move(stl.mesh.triangles);
    model.add(std::move(object));
    if (stl.thin == 0)
        return {};
    return {QStringLiteral("%1: %2 facets without an area were left out").arg(path).arg(stl.thin)};
}

} // namespace kpFormats
