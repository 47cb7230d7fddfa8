// SPDX-License-Identifier: MIT
#include "readers/OffReader.h"

#include "readers/MeshBuilder.h"

#include <QFileInfo>

#include <limits>

namespace kpFormats
{

namespace
{

/// Goes to the next line that holds something besides a comment.
bool nextFilledLine(TextScanner& scanner)
{
    while (scanner.nextLine()) {
        const std::string_view text = scanner.rest();
        if (!text.empty() && text.front() != '#')
            return true;
    }
    return false;
}

struct Counts
{
    int vertices = 0;
    int faces = 0;
};

int readCount(TextScanner& scanner, std::string_view word, const char* what)
{
    const qint64 count = scanner.integer(word);
    if (count < 0 || count > std::numeric_limits<int>::max())
        scanner.fail(QStringLiteral("%1 %2 are not possible").arg(count).arg(QLatin1String(what)),
                     QStringLiteral("correct the counts"));
    return static_cast<int>(count);
}

/// The keyword, if there is one, and the counts: "OFF", then "8 6 12", on one line or two.
Counts readHead(TextScanner& scanner)
{
    if (!nextFilledLine(scanner))
        scanner.failAtEnd(QStringLiteral("it is empty"));
    std::string_view word;
    scanner.nextWord(word);
    const bool keyword = word.size() >= 3 && word.substr(word.size() - 3) == "OFF";
    if (keyword) {
        const std::string_view prefix = word.substr(0, word.size() - 3);
        if (prefix.find_first_not_of("STCN") != std::string_view::npos)
            scanner.fail(QStringLiteral("%1 has other than three dimensions").arg(quoted(word)),
                         QStringLiteral("save it as plain OFF"));
        if (!scanner.nextWord(word) || word.front() == '#') {
            if (!nextFilledLine(scanner))
                scanner.failAtEnd(QStringLiteral("there are no counts"));
            scanner.nextWord(word);
        } else if (word == "BINARY") {
            scanner.fail(QStringLiteral("this is a binary OFF file"), QStringLiteral("save it as text"));
        }
    }
    Counts counts;
    counts.vertices = readCount(scanner, word, "vertices");
    if (!scanner.nextWord(word))
        scanner.fail(QStringLiteral("the number of faces is missing"),
                     QStringLiteral("write vertices, faces and edges"));
    counts.faces = readCount(scanner, word, "faces");
    return counts;
}

void readFace(TextScanner& scanner, MeshBuilder& mesh, std::vector<int>& corners)
{
    std::string_view word;
    scanner.nextWord(word);
    const qint64 count = scanner.integer(word);
    corners.clear();
    for (qint64 corner = 0; corner < count; ++corner) {
        if (!scanner.nextWord(word))
            scanner.fail(QStringLiteral("the face has %1 of its %2 corners").arg(corner).arg(count),
                         QStringLiteral("correct the line"));
        const qint64 vertex = scanner.integer(word);
        if (vertex < 0 || vertex >= mesh.vertexCount())
            scanner.fail(QStringLiteral("there is no vertex %1, only 0 to %2").arg(vertex).arg(mesh.vertexCount() - 1),
                         QStringLiteral("correct the face"));
        corners.push_back(static_cast<int>(vertex));
    }
}

} // namespace

LoadNotes readOff(Model& model, const QString& path, const LoadOptions& options)
{
    TextScanner scanner(path);
    const Counts counts = readHead(scanner);
    MeshBuilder mesh;
    for (int vertex = 0; vertex < counts.vertices; ++vertex) {
        if (!nextFilledLine(scanner))
            scanner.failAtEnd(QStringLiteral("it has %1 of %2 vertices").arg(vertex).arg(counts.vertices));
        mesh.readVertex(scanner);
    }
    std::vector<int> corners;
    int thin = 0;
    for (int face = 0; face < counts.faces; ++face) {
        if (!nextFilledLine(scanner))
            scanner.failAtEnd(QStringLiteral("it has %1 of %2 faces").arg(face).arg(counts.faces));
        readFace(scanner, mesh, corners);
        thin += corners.size() < 3 ? 1 : 0;
        mesh.addPolygon(corners, scanner);
    }
    LoadNotes notes;
    if (thin > 0)
        notes.append(QStringLiteral("%1: %2 faces with fewer than three corners were left out").arg(path).arg(thin));
    if (nextFilledLine(scanner))
        notes.append(QStringLiteral("%1: what follows the last face, from line %2, was left out")
                         .arg(path)
                         .arg(scanner.lineNumber()));

    ModelObject object =
        newObject(path, options, ObjectType::MeshSurfaces,
                  options.name.isEmpty() ? QFileInfo(path).completeBaseName() : options.name, QStringLiteral("Meshes"));
    setCoordinates(object, std::move(mesh.x), std::move(mesh.y), std::move(mesh.z));
    object.triangles = std::move(mesh.triangles);
    model.add(std::move(object));
    return notes;
}

} // namespace kpFormats
