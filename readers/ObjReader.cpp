// SPDX-License-Identifier: MIT
#include "readers/ObjReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/StatedOffset.h"

#include <QFileInfo>

namespace kpFormats
{

namespace
{

struct Group
{
    QString name;
    std::vector<std::array<int, 3>> triangles;
};

/// The vertex that "7", "7/1", "7//3" or "-2" names.
int vertexOf(const TextScanner& scanner, std::string_view word, int vertexCount)
{
    const qint64 number = scanner.integer(word.substr(0, word.find('/')));
    // Vertices count from 1; a negative number counts back from the latest one.
    const qint64 vertex = number < 0 ? vertexCount + number : number - 1;
    if (number == 0 || vertex < 0 || vertex >= vertexCount)
        scanner.fail(QStringLiteral("there is no vertex %1, only %2 so far").arg(number).arg(vertexCount),
                     QStringLiteral("correct the face"));
    return static_cast<int>(vertex);
}

/// The group's triangles with the vertices that they use, renumbered.
void addGroup(Model& model, ModelObject object, const Group& group, const MeshBuilder& all, std::vector<int>& numbers)
{
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<int> used;
    for (const auto& corners : group.triangles) {
        std::array<int, 3> triangle{};
        for (std::size_t corner = 0; corner < 3; ++corner) {
            const auto vertex = static_cast<std::size_t>(corners[corner]);
            if (numbers[vertex] < 0) {
                numbers[vertex] = static_cast<int>(x.size());
                used.push_back(corners[corner]);
                x.push_back(all.x[vertex]);
                y.push_back(all.y[vertex]);
                z.push_back(all.z[vertex]);
            }
            triangle[corner] = numbers[vertex];
        }
        object.triangles.push_back(triangle);
    }
    for (const int vertex : used)
        numbers[static_cast<std::size_t>(vertex)] = -1;
    setCoordinates(object, std::move(x), std::move(y), std::move(z));
    model.add(std::move(object));
}

} // namespace

LoadNotes readObj(Model& model, const QString& path, const LoadOptions& options)
{
    TextScanner scanner(path);
    MeshBuilder mesh;
    std::vector<Group> groups(1);
    std::vector<int> corners;
    StatedOffset offset;
    int lines = 0;
    std::string_view word;
    while (scanner.nextLine()) {
        if (!scanner.nextWord(word))
            continue;
        if (word == "v") {
            mesh.readVertex(scanner);
        } else if (word == "f") {
            corners.clear();
            while (scanner.nextWord(word))
                corners.push_back(vertexOf(scanner, word, mesh.vertexCount()));
            if (corners.size() < 3)
                scanner.fail(QStringLiteral("a face needs three corners or more"), QStringLiteral("correct the line"));
            mesh.addPolygon(corners, scanner);
            auto& triangles = groups.back().triangles;
            triangles.insert(triangles.end(), mesh.triangles.begin(), mesh.triangles.end());
            mesh.triangles.clear();
        } else if (word == "o") {
            const std::string_view name = scanner.rest();
            groups.push_back({QString::fromUtf8(name.data(), static_cast<int>(name.size())), {}});
        } else if (word.front() == '#') {
            offset.take(scanner.line());
        } else if (word == "l" || word == "p") {
            ++lines;
        }
    }
    LoadNotes notes;
    if (lines > 0)
        notes.append(QStringLiteral("%1: %2 lines and points were left out").arg(path).arg(lines));
    offset.addTo(mesh.x, mesh.y, mesh.z);
    std::vector<int> numbers(mesh.x.size(), -1);
    bool any = false;
    for (const Group& group : groups) {
        if (group.triangles.empty())
            continue;
        any = true;
        const QString name = group.name.isEmpty() ? QFileInfo(path).completeBaseName() : group.name;
        addGroup(model,
                 newObject(path, options, ObjectType::MeshSurfaces, options.name.isEmpty() ? name : options.name,
                           QStringLiteral("Meshes")),
                 group, mesh, numbers);
    }
    if (!any)
        throw LoadError(path, QStringLiteral("there is no face in it"), QStringLiteral("give a file of polygons"));
    return notes;
}

} // namespace kpFormats
