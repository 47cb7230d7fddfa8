// SPDX-License-Identifier: MIT
#include "readers/VtkXmlFile.h"

#include "readers/LoadError.h"
#include "readers/VtkXmlValues.h"

#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>

namespace kpFormats
{

namespace
{

// Of the part that is XML: the reader of it holds it as a whole.
constexpr qint64 mostXml = qint64{1} << 30;

/// The file up to the bytes that are no XML, and where these begin.
struct Head
{
    QByteArray xml;
    qint64 appended = -1;
};

Head headOf(QFile& file, const QString& path)
{
    constexpr qint64 block = 1 << 16;
    const QByteArray mark = "<AppendedData";
    Head head;
    int searched = 0;
    while (true) {
        const QByteArray bytes = file.read(block);
        head.xml += bytes;
        if (head.xml.size() > mostXml)
            throw LoadError(path, QStringLiteral("its part of text is more than can be read"),
                            QStringLiteral("save its arrays as appended, raw bytes"));
        const int at = head.xml.indexOf(mark, searched);
        const int open = at < 0 ? -1 : head.xml.indexOf('>', at);
        const int first = open < 0 ? -1 : head.xml.indexOf('_', open);
        if (first >= 0) {
            head.appended = first + 1;
            head.xml.truncate(open + 1);
            return head;
        }
        if (bytes.isEmpty())
            return head;
        searched = at >= 0 ? at : std::max(0, head.xml.size() - mark.size());
    }
}

class XmlFile
{
public:
    explicit XmlFile(const QString& path)
        : m_path(path)
        , m_file(path)
    {
        if (QFileInfo(path).isDir() || !m_file.open(QIODevice::ReadOnly))
            throw LoadError(path, QStringLiteral("the file cannot be read"),
                            QStringLiteral("check the path and its permissions"));
        m_head = headOf(m_file, path);
        m_xml.addData(m_head.xml);
    }

    std::vector<VtkDataSet> read()
    {
        const bool begins = m_xml.readNextStartElement();
        requireXml();
        if (!begins || m_xml.name() != QLatin1String("VTKFile"))
            fail(QStringLiteral("it does not begin with the element VTKFile"),
                 QStringLiteral("give a file of VTK's XML"));
        readRoot();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("AppendedData"))
                break;
            if (m_xml.name() != m_type)
                m_xml.skipCurrentElement();
            else
                readDataSet();
        }
        requireXml();
        if (m_pieces.empty())
            fail(QStringLiteral("there is no piece of a data set in it"),
                 QStringLiteral("save it again at its source"));
        m_inAppended = m_xml.name() == QLatin1String("AppendedData");
        m_base64 = m_xml.attributes().value(QLatin1String("encoding")) != QLatin1String("raw");
        std::vector<VtkDataSet> dataSets;
        for (Piece& piece : m_pieces)
            dataSets.push_back(finish(piece));
        return dataSets;
    }

private:
    enum class Place { None, Field, Point, Cell, Points, Verts, Lines, Strips, Polys, Cells };

    /// An array whose values are in the part that is appended, or already there.
    struct Declared
    {
        Place place;
        QString type;
        qint64 offset = -1; ///< -1: its values are there
        qint64 line;
        VtkDataArray array;
    };
    struct Piece
    {
        VtkDataSet dataSet;
        std::vector<Declared> arrays;
        qint64 points;
        qint64 line;
    };

    [[noreturn]] void fail(const QString& cause, const QString& cure) const { failAt(m_xml.lineNumber(), cause, cure); }
    [[noreturn]] void failAt(qint64 line, const QString& cause, const QString& cure) const
    {
        throw LoadError(m_path, QStringLiteral("line %1: %2").arg(line).arg(cause), cure);
    }
    void requireXml() const
    {
        const auto error = m_xml.error();
        // What follows the head is not read as XML.
        if (error == QXmlStreamReader::NoError
            || (error == QXmlStreamReader::PrematureEndOfDocumentError && m_head.appended >= 0))
            return;
        fail(QStringLiteral("it is no XML: %1").arg(m_xml.errorString()),
             QStringLiteral("save it again at its source"));
    }

    QString attribute(const char* name) const { return m_xml.attributes().value(QLatin1String(name)).toString(); }

    qint64 count(const char* name)
    {
        const QString text = attribute(name);
        bool good = false;
        const qint64 number = text.toLongLong(&good);
        if (!text.isEmpty() && (!good || number < 0))
            fail(QStringLiteral("%1 is \"%2\"").arg(QLatin1String(name), text.left(40)), QStringLiteral("correct it"));
        return number;
    }

    void readRoot()
    {
        m_type = attribute("type");
        m_encoding.bigEndian = attribute("byte_order") == QLatin1String("BigEndian");
        m_encoding.longHeaders = attribute("header_type") == QLatin1String("UInt64");
        const QString compressor = attribute("compressor");
        m_encoding.zlib = compressor == QLatin1String("vtkZLibDataCompressor");
        if (!compressor.isEmpty() && !m_encoding.zlib)
            fail(QStringLiteral("it is compressed by %1").arg(compressor.left(40)),
                 QStringLiteral("save it uncompressed, or with zlib"));
        static const std::array<std::pair<const char*, VtkDataSet::Kind>, 4> kinds{
            {{"PolyData", VtkDataSet::Kind::PolyData},
             {"UnstructuredGrid", VtkDataSet::Kind::UnstructuredGrid},
             {"StructuredGrid", VtkDataSet::Kind::StructuredGrid},
             {"ImageData", VtkDataSet::Kind::ImageData}}};
        const auto known = std::find_if(kinds.begin(), kinds.end(),
                                        [this](const auto& kind) { return m_type == QLatin1String(kind.first); });
        if (known == kinds.end())
            fail(QStringLiteral("a data set of type \"%1\" is not read").arg(m_type.left(40)),
                 QStringLiteral("save it as PolyData, UnstructuredGrid, StructuredGrid or ImageData"));
        m_kind = known->second;
    }

    void readDataSet()
    {
        m_common.kind = m_kind;
        if (m_kind == VtkDataSet::Kind::ImageData) {
            takeNumbers("Origin", m_common.origin);
            takeNumbers("Spacing", m_common.spacing);
            takeNumbers("Direction", m_common.direction);
        }
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("FieldData"))
                readArrays(Place::Field, m_fieldArrays);
            else if (m_xml.name() == QLatin1String("Piece"))
                readPiece();
            else
                m_xml.skipCurrentElement();
        }
    }

    template <std::size_t size>
    void takeNumbers(const char* name, std::array<double, size>& numbers)
    {
        const QStringList words = attribute(name).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (words.isEmpty())
            return;
        bool good = words.size() == static_cast<int>(size);
        for (std::size_t index = 0; good && index < size; ++index) {
            numbers[index] = words[static_cast<int>(index)].toDouble(&good);
            good = good && std::isfinite(numbers[index]);
        }
        if (!good)
            fail(QStringLiteral("%1 is not %2 numbers").arg(QLatin1String(name)).arg(size),
                 QStringLiteral("correct it"));
    }

    void readPiece()
    {
        Piece piece;
        piece.line = m_xml.lineNumber();
        piece.dataSet = m_common;
        piece.points = count("NumberOfPoints");
        if (m_kind == VtkDataSet::Kind::ImageData || m_kind == VtkDataSet::Kind::StructuredGrid)
            readExtent(piece.dataSet);
        static const std::array<std::pair<const char*, Place>, 8> places{{{"PointData", Place::Point},
                                                                          {"CellData", Place::Cell},
                                                                          {"Points", Place::Points},
                                                                          {"Verts", Place::Verts},
                                                                          {"Lines", Place::Lines},
                                                                          {"Strips", Place::Strips},
                                                                          {"Polys", Place::Polys},
                                                                          {"Cells", Place::Cells}}};
        while (m_xml.readNextStartElement()) {
            const auto known = std::find_if(places.begin(), places.end(), [this](const auto& place) {
                return m_xml.name() == QLatin1String(place.first);
            });
            if (known == places.end())
                m_xml.skipCurrentElement();
            else
                readArrays(known->second, piece.arrays);
        }
        m_pieces.push_back(std::move(piece));
    }

    void readExtent(VtkDataSet& dataSet)
    {
        std::array<double, 6> extent{0, -1, 0, -1, 0, -1};
        takeNumbers("Extent", extent);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const double size = extent[2 * axis + 1] - extent[2 * axis] + 1.0;
            if (!(size >= 1.0 && size <= std::numeric_limits<int>::max()) || std::floor(size) != size)
                fail(QStringLiteral("its extent has no points"), QStringLiteral("correct it"));
            dataSet.size[axis] = static_cast<int>(size);
            // The origin is that of index 0.
            for (std::size_t row = 0; row < 3 && m_kind == VtkDataSet::Kind::ImageData; ++row)
                dataSet.origin[row] += dataSet.direction[3 * row + axis] * dataSet.spacing[axis] * extent[2 * axis];
        }
        if (static_cast<double>(dataSet.size[0]) * dataSet.size[1] * dataSet.size[2] > std::numeric_limits<int>::max())
            fail(QStringLiteral("it has more points than an object can have"), QStringLiteral("split it"));
    }

    void readArrays(Place place, std::vector<Declared>& arrays)
    {
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("DataArray") || m_xml.name() == QLatin1String("Array"))
                arrays.push_back(readArray(place));
            else
                m_xml.skipCurrentElement();
        }
    }

    Declared readArray(Place place)
    {
        Declared declared;
        declared.place = place;
        declared.type = attribute("type");
        declared.line = m_xml.lineNumber();
        declared.array.name = attribute("Name");
        const qint64 components = count("NumberOfComponents");
        if (components > 1000000)
            fail(QStringLiteral("%1 components are not possible").arg(components), QStringLiteral("correct it"));
        declared.array.components = std::max(1, static_cast<int>(components));
        const QString format = attribute("format");
        if (format == QLatin1String("appended"))
            declared.offset = count("offset");
        QByteArray text;
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::EndElement)
                break;
            if (token == QXmlStreamReader::Characters)
                text += m_xml.text().toUtf8();
            else if (token == QXmlStreamReader::StartElement)
                readInformation(declared.array);
        }
        if (format == QLatin1String("appended"))
            return declared;
        values(declared, [&] {
            if (format == QLatin1String("binary")) {
                VtkBase64 source(text, 0);
                takeValues(declared.array, declared.type, arrayBytes(source, m_encoding), m_encoding.bigEndian);
            } else {
                takeText(declared.array, declared.type, text);
            }
        });
        return declared;
    }

    void readInformation(VtkDataArray& array)
    {
        if (m_xml.name() == QLatin1String("InformationKey") && attribute("name") == QLatin1String("UNITS_LABEL"))
            array.unit = m_xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        else
            m_xml.skipCurrentElement();
    }

    /// Runs what gives an array its values and says of which it is what goes wrong.
    template <typename Take>
    void values(Declared& declared, Take take) const
    {
        try {
            take();
        } catch (const LoadError&) {
            throw;
        } catch (const std::runtime_error& error) {
            failAt(declared.line,
                   QStringLiteral("the array \"%1\": %2")
                       .arg(declared.array.name.left(40), QString::fromUtf8(error.what())),
                   QStringLiteral("save the file again at its source"));
        }
        if (declared.array.valueCount() % static_cast<std::size_t>(declared.array.components) != 0)
            failAt(declared.line,
                   QStringLiteral("the array \"%1\" has %2 values, which are not groups of %3")
                       .arg(declared.array.name.left(40))
                       .arg(declared.array.valueCount())
                       .arg(declared.array.components),
                   QStringLiteral("save the file again at its source"));
    }

    void fetch(Declared& declared)
    {
        if (declared.offset < 0)
            return;
        values(declared, [&] {
            if (!m_inAppended || m_head.appended < 0)
                throw std::runtime_error("the file has no appended data");
            if (m_base64) {
                if (m_appendedText.isEmpty()) {
                    m_file.seek(m_head.appended);
                    m_appendedText = m_file.read(mostXml);
                }
                VtkBase64 source(m_appendedText, declared.offset);
                takeValues(declared.array, declared.type, arrayBytes(source, m_encoding), m_encoding.bigEndian);
            } else {
                VtkRawBytes source(m_file, declared.offset > m_file.size() ? declared.offset
                                                                           : m_head.appended + declared.offset);
                takeValues(declared.array, declared.type, arrayBytes(source, m_encoding), m_encoding.bigEndian);
            }
        });
    }

    VtkDataSet finish(Piece& piece)
    {
        VtkDataSet& dataSet = piece.dataSet;
        std::vector<Declared> fields = m_fieldArrays;
        for (Declared& field : fields) {
            fetch(field);
            dataSet.fieldData.push_back(std::move(field.array));
        }
        for (Declared& declared : piece.arrays) {
            fetch(declared);
            place(dataSet, declared);
        }
        const bool implicit = dataSet.kind == VtkDataSet::Kind::ImageData;
        const qint64 points = static_cast<qint64>(dataSet.pointCount());
        if (!implicit && dataSet.kind != VtkDataSet::Kind::StructuredGrid && points != piece.points)
            failAt(piece.line, QStringLiteral("it has %1 of %2 points").arg(points).arg(piece.points),
                   QStringLiteral("save the file again at its source"));
        const QString fault = faultOf(dataSet);
        if (!fault.isEmpty())
            failAt(piece.line, fault, QStringLiteral("save the file again at its source"));
        return std::move(dataSet);
    }

    void place(VtkDataSet& dataSet, Declared& declared)
    {
        VtkDataArray& array = declared.array;
        switch (declared.place) {
        case Place::Point:
            dataSet.pointData.push_back(std::move(array));
            break;
        case Place::Cell:
            dataSet.cellData.push_back(std::move(array));
            break;
        case Place::Points:
            if (array.components != 3 || array.kind == VtkDataArray::Kind::Text)
                failAt(declared.line, QStringLiteral("positions need three numbers each"),
                       QStringLiteral("correct it"));
            dataSet.points.reserve(array.valueCount());
            for (std::size_t value = 0; value < array.valueCount(); ++value)
                dataSet.points.push_back(array.number(value));
            break;
        case Place::Verts:
            placeCells(dataSet.verts, declared);
            break;
        case Place::Lines:
            placeCells(dataSet.lines, declared);
            break;
        case Place::Strips:
            placeCells(dataSet.strips, declared);
            break;
        case Place::Polys:
            placeCells(dataSet.polys, declared);
            break;
        case Place::Cells:
            if (array.name == QLatin1String("types"))
                dataSet.types.assign(array.wholes.begin(), array.wholes.end());
            else
                placeCells(dataSet.cells, declared);
            break;
        case Place::Field:
        case Place::None:
            break;
        }
    }

    void placeCells(VtkCellList& cells, Declared& declared) const
    {
        VtkDataArray& array = declared.array;
        if (array.kind != VtkDataArray::Kind::Whole)
            failAt(declared.line, QStringLiteral("\"%1\" needs whole numbers").arg(array.name.left(40)),
                   QStringLiteral("correct it"));
        if (array.name == QLatin1String("connectivity"))
            cells.points = std::move(array.wholes);
        else if (array.name == QLatin1String("offsets"))
            cells.ends = std::move(array.wholes);
    }

    QString m_path;
    QFile m_file;
    Head m_head;
    QXmlStreamReader m_xml;
    QString m_type;
    VtkEncoding m_encoding;
    VtkDataSet::Kind m_kind = VtkDataSet::Kind::PolyData;
    VtkDataSet m_common; ///< what every piece has
    std::vector<Declared> m_fieldArrays;
    std::vector<Piece> m_pieces;
    bool m_inAppended = false;
    bool m_base64 = false;
    QByteArray m_appendedText;
};

QString cellFault(const VtkCellList& cells, std::size_t points)
{
    std::int64_t before = 0;
    for (const std::int64_t end : cells.ends) {
        if (end < before || static_cast<std::size_t>(end) > cells.points.size())
            return QStringLiteral("its cells have no sound ends");
        before = end;
    }
    const bool outside = std::any_of(cells.points.begin(), cells.points.end(), [points](std::int64_t point) {
        return point < 0 || static_cast<std::size_t>(point) >= points;
    });
    return outside ? QStringLiteral("a cell has a point that is not there") : QString();
}

std::size_t cellCountOf(const VtkDataSet& dataSet)
{
    switch (dataSet.kind) {
    case VtkDataSet::Kind::PolyData:
        return dataSet.verts.size() + dataSet.lines.size() + dataSet.strips.size() + dataSet.polys.size();
    case VtkDataSet::Kind::UnstructuredGrid:
        return dataSet.cells.size();
    case VtkDataSet::Kind::StructuredGrid:
    case VtkDataSet::Kind::ImageData:
        break;
    }
    std::size_t cells = 1;
    for (const int points : dataSet.size)
        cells *= static_cast<std::size_t>(std::max(1, points - 1));
    return cells;
}

QString tupleFault(const std::vector<VtkDataArray>& arrays, std::size_t count, const char* what)
{
    for (const VtkDataArray& array : arrays) {
        if (array.tupleCount() != count)
            return QStringLiteral("the array \"%1\" has %2 values for %3 %4")
                .arg(array.name.left(40))
                .arg(array.tupleCount())
                .arg(count)
                .arg(QLatin1String(what));
    }
    return {};
}

} // namespace

QString faultOf(const VtkDataSet& dataSet)
{
    const std::size_t points = dataSet.pointCount();
    if (points > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return QStringLiteral("it has more points than an object can have");
    for (const VtkCellList* cells : {&dataSet.verts, &dataSet.lines, &dataSet.strips, &dataSet.polys, &dataSet.cells}) {
        const QString fault = cellFault(*cells, points);
        if (!fault.isEmpty())
            return fault;
    }
    if (dataSet.kind == VtkDataSet::Kind::UnstructuredGrid && dataSet.types.size() != dataSet.cells.size())
        return QStringLiteral("its cells and their types are not equally many");
    if (dataSet.kind == VtkDataSet::Kind::StructuredGrid) {
        std::size_t wanted = 1;
        for (const int along : dataSet.size)
            wanted *= static_cast<std::size_t>(along);
        if (wanted != points)
            return QStringLiteral("it has %1 points for %2 places").arg(points).arg(wanted);
    }
    const QString fault = tupleFault(dataSet.pointData, points, "points");
    return fault.isEmpty() ? tupleFault(dataSet.cellData, cellCountOf(dataSet), "cells") : fault;
}

std::vector<VtkDataSet> readVtkXml(const QString& path)
{
    return XmlFile(path).read();
}

} // namespace kpFormats
