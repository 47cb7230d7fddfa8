// SPDX-License-Identifier: MIT
#include "readers/PlyReader.h"

#include "readers/LoadError.h"
#include "readers/MeshBuilder.h"
#include "readers/PlyHeader.h"
#include "readers/PolygonTriangles.h"

#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

namespace kpFormats
{

namespace
{

/// The values of the rows, one after the other.
class PlyRows
{
public:
    virtual ~PlyRows() = default;
    virtual void beginRow() {}
    /// \throws LoadError when there is none
    virtual double next(PlyType type) = 0;
};

class TextRows : public PlyRows
{
public:
    TextRows(const QString& path, qint64 headerLines)
        : m_scanner(path)
    {
        for (qint64 line = 0; line < headerLines; ++line)
            m_scanner.nextLine();
    }
    void beginRow() override
    {
        do {
            if (!m_scanner.nextLine())
                m_scanner.failAtEnd(QStringLiteral("it has fewer rows than its header says"));
        } while (m_scanner.rest().empty());
    }
    double next(PlyType type) override
    {
        std::string_view word;
        if (!m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("the row has fewer values than the header says"),
                           QStringLiteral("correct the line"));
        if (!isReal(type)) {
            constexpr qint64 most = std::numeric_limits<quint32>::max();
            const qint64 number = m_scanner.integer(word);
            if (number > most || number < -most)
                m_scanner.fail(QStringLiteral("%1 does not fit its type").arg(number),
                               QStringLiteral("correct it at its source"));
            return static_cast<double>(number);
        }
        if (word == "nan" || word == "-nan" || word == "NaN")
            return std::numeric_limits<double>::quiet_NaN();
        return m_scanner.number(word);
    }

private:
    TextScanner m_scanner;
};

class BinaryRows : public PlyRows
{
public:
    BinaryRows(const QString& path, qint64 headerBytes, bool bigEndian)
        : m_path(path)
        , m_file(path)
        , m_bigEndian(bigEndian)
    {
        if (!m_file.open(QIODevice::ReadOnly) || !m_file.seek(headerBytes))
            throw LoadError(path, QStringLiteral("the file cannot be read"),
                            QStringLiteral("check the path and its permissions"));
    }
    double next(PlyType type) override
    {
        char bytes[8];
        const int size = bytesOf(type);
        if (m_file.read(bytes, size) != size)
            throw LoadError(m_path,
                            QStringLiteral("byte %1: it has fewer rows than its header says").arg(m_file.pos() + 1),
                            QStringLiteral("it was cut short; copy it again from its source"));
        switch (type) {
        case PlyType::Int8:
            return static_cast<double>(take<qint8, quint8>(bytes));
        case PlyType::UInt8:
            return static_cast<double>(take<quint8, quint8>(bytes));
        case PlyType::Int16:
            return static_cast<double>(take<qint16, quint16>(bytes));
        case PlyType::UInt16:
            return static_cast<double>(take<quint16, quint16>(bytes));
        case PlyType::Int32:
            return static_cast<double>(take<qint32, quint32>(bytes));
        case PlyType::UInt32:
            return static_cast<double>(take<quint32, quint32>(bytes));
        case PlyType::Float32:
            return static_cast<double>(take<float, quint32>(bytes));
        case PlyType::Float64:
            break;
        }
        return take<double, quint64>(bytes);
    }

private:
    template <typename Number, typename Bits>
    Number take(const char* bytes) const
    {
        const Bits bits = m_bigEndian ? qFromBigEndian<Bits>(bytes) : qFromLittleEndian<Bits>(bytes);
        Number number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    QString m_path;
    QFile m_file;
    bool m_bigEndian;
};

class PlyFile
{
public:
    explicit PlyFile(const QString& path)
        : m_path(path)
        , m_header(readPlyHeader(path))
    {
        if (m_header.format == PlyHeader::Format::Text)
            m_rows = std::make_unique<TextRows>(path, m_header.lines);
        else
            m_rows =
                std::make_unique<BinaryRows>(path, m_header.bytes, m_header.format == PlyHeader::Format::BigEndian);
    }

    LoadNotes read(Model& model, const LoadOptions& options)
    {
        for (const PlyElement& element : m_header.elements)
            readElement(element);
        if (m_x.empty())
            throw LoadError(m_path, QStringLiteral("there is no vertex in it"), QStringLiteral("check the file"));
        const QString named = m_header.name.isEmpty() ? QFileInfo(m_path).completeBaseName() : m_header.name;
        ModelObject object =
            newObject(m_path, options, m_ends.empty() ? ObjectType::VertexClouds : ObjectType::MeshSurfaces,
                      options.name.isEmpty() ? named : options.name,
                      m_ends.empty() ? QStringLiteral("Points") : QStringLiteral("Meshes"));
        m_header.offset.addTo(m_x, m_y, m_z);
        if (object.lengthUnit.isEmpty())
            object.lengthUnit = m_header.lengthUnit;
        takeTriangles(object);
        takeColumns(object, options);
        if (m_header.zIsDepth)
            std::transform(m_z.begin(), m_z.end(), m_z.begin(), [](double depth) { return -depth; });
        setCoordinates(object, std::move(m_x), std::move(m_y), std::move(m_z));
        model.add(std::move(object));
        return std::move(m_notes);
    }

private:
    [[noreturn]] void failAt(const PlyElement& element, qint64 row, const QString& cause) const
    {
        throw LoadError(m_path, QStringLiteral("%1 %2: %3").arg(element.name.left(40)).arg(row + 1).arg(cause),
                        QStringLiteral("repair it at its source"));
    }

    void readElement(const PlyElement& element)
    {
        if (element.count > 0 && element.properties.empty())
            throw LoadError(m_path, QStringLiteral("the element %1 has no properties").arg(element.name.left(40)),
                            QStringLiteral("correct the header"));
        if (element.name == QLatin1String("vertex") && m_x.empty())
            return readVertices(element);
        if (element.name == QLatin1String("face") && m_ends.empty())
            return readFaces(element);
        for (qint64 row = 0; row < element.count; ++row) {
            m_rows->beginRow();
            for (const PlyProperty& property : element.properties)
                passOver(element, row, property);
        }
        if (element.count > 0)
            m_notes.append(QStringLiteral("%1: %2 elements called %3 were left out")
                               .arg(m_path)
                               .arg(element.count)
                               .arg(element.name.left(40)));
    }

    /// A list is as long as the rows are: what ends first is the file.
    qint64 lengthOf(const PlyElement& element, qint64 row, const PlyProperty& property)
    {
        const double length = m_rows->next(property.countType);
        if (!(length >= 0.0 && length <= std::numeric_limits<int>::max()) || std::floor(length) != length)
            failAt(element, row, QStringLiteral("a list of %1 values is not possible").arg(length));
        return static_cast<qint64>(length);
    }

    void passOver(const PlyElement& element, qint64 row, const PlyProperty& property)
    {
        const qint64 values = property.isList ? lengthOf(element, row, property) : 1;
        for (qint64 value = 0; value < values; ++value)
            m_rows->next(property.type);
    }

    void readVertices(const PlyElement& element)
    {
        const int x = element.propertyNamed({QStringLiteral("x")});
        const int y = element.propertyNamed({QStringLiteral("y")});
        const int z = element.propertyNamed({QStringLiteral("z")});
        if (x < 0 || y < 0 || z < 0)
            throw LoadError(m_path, QStringLiteral("its vertices have no x, y and z"),
                            QStringLiteral("correct the header"));
        m_columns.resize(element.properties.size());
        m_vertex = element;
        for (qint64 row = 0; row < element.count; ++row) {
            m_rows->beginRow();
            for (std::size_t index = 0; index < element.properties.size(); ++index) {
                const PlyProperty& property = element.properties[index];
                if (property.isList) {
                    passOver(element, row, property);
                    continue;
                }
                const double value = m_rows->next(property.type);
                const auto is = [index](int wanted) { return static_cast<int>(index) == wanted; };
                std::vector<double>& column = is(x) ? m_x : is(y) ? m_y : is(z) ? m_z : m_columns[index];
                if ((is(x) || is(y) || is(z)) && !std::isfinite(value))
                    failAt(element, row, QStringLiteral("a coordinate is not a number"));
                column.push_back(value);
            }
        }
    }

    void readFaces(const PlyElement& element)
    {
        const int corners = element.propertyNamed({QStringLiteral("vertex_indices"), QStringLiteral("vertex_index")});
        if (corners < 0 || !element.properties[static_cast<std::size_t>(corners)].isList)
            throw LoadError(m_path, QStringLiteral("its faces have no list of vertices"),
                            QStringLiteral("correct the header"));
        for (qint64 row = 0; row < element.count; ++row) {
            m_rows->beginRow();
            for (std::size_t index = 0; index < element.properties.size(); ++index) {
                const PlyProperty& property = element.properties[index];
                if (static_cast<int>(index) != corners) {
                    passOver(element, row, property);
                    continue;
                }
                const qint64 length = lengthOf(element, row, property);
                for (qint64 corner = 0; corner < length; ++corner) {
                    const double vertex = m_rows->next(property.type);
                    if (!(vertex >= 0.0 && vertex < std::numeric_limits<int>::max()) || std::floor(vertex) != vertex)
                        failAt(element, row, QStringLiteral("there is no vertex %1").arg(vertex));
                    m_corners.push_back(static_cast<int>(vertex));
                }
                m_ends.push_back(m_corners.size());
            }
        }
        m_face = element;
    }

    void takeTriangles(ModelObject& object)
    {
        std::size_t begin = 0;
        int thin = 0;
        std::vector<int> corners;
        for (std::size_t face = 0; face < m_ends.size(); ++face) {
            corners.assign(m_corners.begin() + static_cast<std::ptrdiff_t>(begin),
                           m_corners.begin() + static_cast<std::ptrdiff_t>(m_ends[face]));
            begin = m_ends[face];
            for (const int corner : corners) {
                if (static_cast<std::size_t>(corner) >= m_x.size())
                    failAt(m_face, static_cast<qint64>(face),
                           QStringLiteral("there is no vertex %1, only 0 to %2").arg(corner).arg(m_x.size() - 1));
            }
            thin += corners.size() < 3 ? 1 : 0;
            if (corners.size() > 2 && !appendTriangles(corners, m_x, m_y, m_z, object.triangles))
                failAt(m_face, static_cast<qint64>(face),
                       QStringLiteral("it has %1 corners and is not convex").arg(corners.size()));
        }
        if (thin > 0)
            m_notes.append(
                QStringLiteral("%1: %2 faces with fewer than three corners were left out").arg(m_path).arg(thin));
    }

    /// Whether all vertices have one colour, which is the object's then.
    bool takeColour(ModelObject& object, const LoadOptions& options)
    {
        int rgb[3];
        for (int channel = 0; channel < 3; ++channel) {
            static const char* const names[] = {"red", "green", "blue"};
            const int property = m_vertex.propertyNamed({QLatin1String(names[channel])});
            if (property < 0 || m_vertex.properties[static_cast<std::size_t>(property)].type != PlyType::UInt8)
                return false;
            const std::vector<double>& column = m_columns[static_cast<std::size_t>(property)];
            if (column.empty()
                || std::any_of(column.begin(), column.end(), [&](double value) { return value != column.front(); }))
                return false;
            if (column.front() < 0.0 || column.front() > 255.0)
                return false;
            rgb[channel] = static_cast<int>(column.front());
        }
        if (options.color.isEmpty())
            object.color = QColor(rgb[0], rgb[1], rgb[2]);
        return true;
    }

    void takeColumns(ModelObject& object, const LoadOptions& options)
    {
        const bool coloured = takeColour(object, options);
        static const QStringList colours{QStringLiteral("red"), QStringLiteral("green"), QStringLiteral("blue")};
        for (std::size_t index = 0; index < m_columns.size(); ++index) {
            const PlyProperty& property = m_vertex.properties[index];
            if (m_columns[index].size() != m_x.size() || (coloured && colours.contains(property.name)))
                continue;
            AttributeColumn column;
            column.name = property.name;
            column.unit = m_header.units.value(property.name);
            std::vector<double>& numbers = m_columns[index];
            if (isReal(property.type)) {
                column.missing = missingOf(numbers);
                column.numbers = std::make_shared<const std::vector<double>>(std::move(numbers));
            } else {
                column.kind = AttributeKind::Integer;
                for (const double number : numbers)
                    column.values.append(std::isfinite(number) ? QVariant(static_cast<qlonglong>(number)) : QVariant());
            }
            object.vertexAttributes.push_back(std::move(column));
        }
    }

    static kpBase::DoubleMatrixData::Missing missingOf(const std::vector<double>& numbers)
    {
        std::vector<unsigned char> missing;
        for (const double number : numbers)
            missing.push_back(std::isnan(number) ? 1 : 0);
        if (std::find(missing.begin(), missing.end(), 1) == missing.end())
            return {};
        return std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    }

    QString m_path;
    PlyHeader m_header;
    std::unique_ptr<PlyRows> m_rows;
    LoadNotes m_notes;
    PlyElement m_vertex;
    PlyElement m_face;
    std::vector<double> m_x;
    std::vector<double> m_y;
    std::vector<double> m_z;
    std::vector<std::vector<double>> m_columns; ///< one per property of the vertices
    std::vector<int> m_corners;
    std::vector<std::size_t> m_ends; ///< where the corners of each face end
};

} // namespace

LoadNotes readPly(Model& model, const QString& path, const LoadOptions& options)
{
    return PlyFile(path).read(model, options);
}

} // namespace kpFormats
