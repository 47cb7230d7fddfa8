// SPDX-License-Identifier: MIT
#include "readers/VtkLegacyFile.h"

#include "readers/LoadError.h"
#include "readers/TextScanner.h"
#include "readers/VtkXmlFile.h"
#include "readers/VtkXmlValues.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace kpFormats
{

namespace
{

constexpr qint64 longestLine = 1 << 16;
constexpr qint64 mostComponents = 100000;

class LegacyFile
{
public:
    explicit LegacyFile(const QString& path)
        : m_path(path)
        , m_file(path)
    {
        if (QFileInfo(path).isDir() || !m_file.open(QIODevice::ReadOnly))
            throw LoadError(path, QStringLiteral("the file cannot be read"),
                            QStringLiteral("check the path and its permissions"));
    }

    VtkDataSet read()
    {
        readHead();
        while (nextWords())
            readSection();
        const QString fault = faultOf(m_data);
        if (!fault.isEmpty())
            fail(fault, QStringLiteral("save the file again at its source"));
        return std::move(m_data);
    }

private:
    [[noreturn]] void fail(const QString& cause, const QString& cure) const
    {
        throw LoadError(m_path, QStringLiteral("byte %1: %2").arg(m_file.pos() + 1).arg(cause), cure);
    }
    [[noreturn]] void failCut() const
    {
        fail(QStringLiteral("the file ends too early"),
             QStringLiteral("it was cut short; copy it again from its source"));
    }
    static QString shown(const QByteArray& word)
    {
        return quoted(std::string_view(word.constData(), static_cast<std::size_t>(word.size())));
    }

    QByteArray line()
    {
        const QByteArray bytes = m_file.readLine(longestLine);
        if (bytes.size() + 1 >= longestLine)
            fail(QStringLiteral("the line does not end"), QStringLiteral("give a legacy VTK file"));
        return bytes;
    }

    /// The words of the next line that has any; false at the end.
    bool nextWords()
    {
        while (true) {
            const QByteArray bytes = line();
            if (bytes.isEmpty())
                return false;
            const QByteArray simple = bytes.simplified();
            if (simple.isEmpty())
                continue;
            m_words = simple.split(' ');
            return true;
        }
    }

    QByteArray word(int index) const
    {
        if (index >= m_words.size())
            fail(QStringLiteral("%1 needs more words").arg(shown(m_words[0])), QStringLiteral("correct the line"));
        return m_words[index];
    }
    /// A number of things; what is there is for the file to show.
    qint64 count(int index) const
    {
        bool good = false;
        const qint64 number = word(index).toLongLong(&good);
        if (!good || number < 0 || number > std::numeric_limits<int>::max())
            fail(QStringLiteral("%1 is not a number of things that can be read").arg(shown(word(index))),
                 QStringLiteral("correct the line"));
        return number;
    }
    double real(int index) const
    {
        bool good = false;
        const double number = word(index).toDouble(&good);
        if (!good || !std::isfinite(number))
            fail(QStringLiteral("%1 is not a number").arg(shown(word(index))), QStringLiteral("correct the line"));
        return number;
    }

    void readHead()
    {
        const QByteArray version = line();
        const QByteArray mark = "# vtk DataFile Version ";
        if (!version.startsWith(mark))
            fail(QStringLiteral("it does not begin with \"%1\"").arg(QString::fromLatin1(mark)),
                 QStringLiteral("give a legacy VTK file"));
        m_new = version.mid(mark.size()).trimmed().split('.').value(0).toInt() >= 5;
        line();
        const QByteArray kind = line().trimmed().toUpper();
        if (kind != "ASCII" && kind != "BINARY")
            fail(QStringLiteral("%1 stands where ASCII or BINARY should").arg(shown(kind)),
                 QStringLiteral("correct the line"));
        m_binary = kind == "BINARY";
        if (!nextWords() || m_words[0].toUpper() != "DATASET")
            fail(QStringLiteral("there is no DATASET"), QStringLiteral("correct the file"));
        const QByteArray type = word(1).toUpper();
        if (type == "POLYDATA")
            m_data.kind = VtkDataSet::Kind::PolyData;
        else if (type == "UNSTRUCTURED_GRID")
            m_data.kind = VtkDataSet::Kind::UnstructuredGrid;
        else if (type == "STRUCTURED_GRID")
            m_data.kind = VtkDataSet::Kind::StructuredGrid;
        else if (type == "STRUCTURED_POINTS")
            m_data.kind = VtkDataSet::Kind::ImageData;
        else
            fail(QStringLiteral("a data set of type %1 is not read").arg(shown(type)),
                 QStringLiteral("save it as POLYDATA, UNSTRUCTURED_GRID, STRUCTURED_GRID or STRUCTURED_POINTS"));
    }

    void readSection()
    {
        const QByteArray key = m_words[0].toUpper();
        if (key == "POINTS") {
            const VtkDataArray array = values(count(1) * 3, word(2));
            m_data.points.clear();
            for (std::size_t value = 0; value < array.valueCount(); ++value)
                m_data.points.push_back(array.number(value));
        } else if (key == "VERTICES") {
            m_data.verts = cells();
        } else if (key == "LINES") {
            m_data.lines = cells();
        } else if (key == "POLYGONS") {
            m_data.polys = cells();
        } else if (key == "TRIANGLE_STRIPS") {
            m_data.strips = cells();
        } else if (key == "CELLS") {
            m_data.cells = cells();
        } else if (key == "CELL_TYPES") {
            const VtkDataArray array = values(count(1), "int");
            m_data.types.assign(array.wholes.begin(), array.wholes.end());
        } else if (key == "DIMENSIONS") {
            readDimensions();
        } else if (key == "ORIGIN") {
            m_data.origin = {real(1), real(2), real(3)};
        } else if (key == "SPACING" || key == "ASPECT_RATIO") {
            m_data.spacing = {real(1), real(2), real(3)};
        } else if (key == "POINT_DATA" || key == "CELL_DATA") {
            m_arrays = key == "POINT_DATA" ? &m_data.pointData : &m_data.cellData;
            m_tuples = count(1);
        } else if (key == "METADATA") {
            skipMetadata();
        } else {
            readAttribute(key);
        }
    }

    void skipMetadata()
    {
        while (!line().trimmed().isEmpty()) {
        }
    }

    void readDimensions()
    {
        double points = 1.0;
        for (int axis = 0; axis < 3; ++axis) {
            const qint64 size = count(axis + 1);
            if (size < 1)
                fail(QStringLiteral("it has no points"), QStringLiteral("correct the line"));
            m_data.size[static_cast<std::size_t>(axis)] = static_cast<int>(size);
            points *= static_cast<double>(size);
        }
        if (points > std::numeric_limits<int>::max())
            fail(QStringLiteral("it has more points than an object can have"), QStringLiteral("split it"));
    }

    void readAttribute(const QByteArray& key)
    {
        if (key == "FIELD") {
            const qint64 arrays = count(2);
            for (qint64 array = 0; array < arrays; ++array)
                readFieldArray();
        } else if (key == "SCALARS") {
            const QByteArray name = word(1);
            const QByteArray type = word(2);
            const qint64 components = m_words.size() > 3 ? count(3) : 1;
            const qint64 before = m_file.pos();
            if (!nextWords())
                failCut();
            if (m_words[0].toUpper() != "LOOKUP_TABLE")
                m_file.seek(before); // an old file has none
            keep(name, components, values(m_tuples * bounded(components), type));
        } else if (key == "VECTORS" || key == "NORMALS") {
            const QByteArray name = word(1);
            keep(name, 3, values(m_tuples * 3, word(2)));
        } else if (key == "TENSORS" || key == "TENSORS6") {
            const QByteArray name = word(1);
            const qint64 components = key == "TENSORS" ? 9 : 6;
            keep(name, components, values(m_tuples * components, word(2)));
        } else if (key == "TEXTURE_COORDINATES") {
            const QByteArray name = word(1);
            const qint64 components = count(2);
            keep(name, components, values(m_tuples * bounded(components), word(3)));
        } else if (key == "COLOR_SCALARS") {
            const QByteArray name = word(1);
            const qint64 components = count(2);
            keep(name, components, values(m_tuples * bounded(components), m_binary ? "unsigned_char" : "float"));
        } else if (key == "GLOBAL_IDS" || key == "PEDIGREE_IDS") {
            const QByteArray name = word(1);
            keep(name, 1, values(m_tuples, word(2)));
        } else if (key == "LOOKUP_TABLE") {
            values(count(2) * 4, m_binary ? "unsigned_char" : "float");
        } else {
            fail(QStringLiteral("%1 is no word of a legacy VTK file").arg(shown(key)), QStringLiteral("correct it"));
        }
    }

    qint64 bounded(qint64 components) const
    {
        if (components < 1 || components > mostComponents)
            fail(QStringLiteral("%1 components are not possible").arg(components), QStringLiteral("correct the line"));
        return components;
    }

    void readFieldArray()
    {
        while (true) {
            if (!nextWords())
                failCut();
            if (m_words[0] != "METADATA")
                break;
            skipMetadata();
        }
        const QByteArray name = word(0);
        const qint64 components = bounded(count(1));
        const qint64 tuples = count(2);
        VtkDataArray array = values(components * tuples, word(3));
        array.name = QString::fromUtf8(QByteArray::fromPercentEncoding(name));
        array.components = static_cast<int>(components);
        (m_arrays ? *m_arrays : m_data.fieldData).push_back(std::move(array));
    }

    void keep(const QByteArray& name, qint64 components, VtkDataArray array)
    {
        if (!m_arrays)
            fail(QStringLiteral("the values belong neither to points nor to cells"),
                 QStringLiteral("correct the file"));
        array.name = QString::fromUtf8(QByteArray::fromPercentEncoding(name));
        array.components = static_cast<int>(components);
        m_arrays->push_back(std::move(array));
    }

    VtkCellList cells()
    {
        VtkCellList list;
        const qint64 number = count(1);
        const qint64 size = count(2);
        if (!m_new) {
            const VtkDataArray array = values(size, "int");
            std::size_t next = 0;
            for (qint64 cell = 0; cell < number; ++cell) {
                const std::int64_t corners = next < array.wholes.size() ? array.wholes[next++] : -1;
                if (corners < 0 || corners > static_cast<std::int64_t>(array.wholes.size() - next))
                    fail(QStringLiteral("cell %1 has other corners than it says").arg(cell + 1),
                         QStringLiteral("correct the file"));
                const auto first = array.wholes.begin() + static_cast<std::ptrdiff_t>(next);
                list.points.insert(list.points.end(), first, first + corners);
                next += static_cast<std::size_t>(corners);
                list.ends.push_back(static_cast<std::int64_t>(list.points.size()));
            }
            return list;
        }
        if (number == 0)
            return list;
        if (!nextWords() || m_words[0].toUpper() != "OFFSETS")
            fail(QStringLiteral("there are no OFFSETS"), QStringLiteral("correct the file"));
        list.ends = values(number, word(1)).wholes;
        if (list.ends.empty() || list.ends.front() != 0)
            fail(QStringLiteral("the OFFSETS do not begin with 0"), QStringLiteral("correct the file"));
        list.ends.erase(list.ends.begin());
        if (!nextWords() || m_words[0].toUpper() != "CONNECTIVITY")
            fail(QStringLiteral("there is no CONNECTIVITY"), QStringLiteral("correct the file"));
        list.points = values(size, word(1)).wholes;
        return list;
    }

    /// The name that VTK's XML has for a type.
    QString typeOf(const QByteArray& type) const
    {
        static const QHash<QByteArray, QString> types{
            {"unsigned_char", QStringLiteral("UInt8")}, {"char", QStringLiteral("Int8")},
            {"signed_char", QStringLiteral("Int8")},    {"unsigned_short", QStringLiteral("UInt16")},
            {"short", QStringLiteral("Int16")},         {"unsigned_int", QStringLiteral("UInt32")},
            {"int", QStringLiteral("Int32")},           {"unsigned_long", QStringLiteral("UInt64")},
            {"long", QStringLiteral("Int64")},          {"float", QStringLiteral("Float32")},
            {"double", QStringLiteral("Float64")},      {"vtkidtype", QStringLiteral("Int32")},
            {"vtktypeint64", QStringLiteral("Int64")},  {"vtktypeuint64", QStringLiteral("UInt64")},
            {"vtktypeint32", QStringLiteral("Int32")},  {"vtktypeuint32", QStringLiteral("UInt32")}};
        const auto found = types.find(type.toLower());
        if (found == types.end())
            fail(QStringLiteral("values of type %1 are not read").arg(shown(type)),
                 QStringLiteral("save the file again without them"));
        return *found;
    }

    static qint64 bytesOf(const QString& type)
    {
        if (type.endsWith(QLatin1String("64")))
            return 8;
        if (type.endsWith(QLatin1String("32")))
            return 4;
        return type.endsWith(QLatin1String("16")) ? 2 : 1;
    }

    VtkDataArray values(qint64 number, const QByteArray& type)
    {
        VtkDataArray array;
        if (type.toLower() == "string") {
            array.kind = VtkDataArray::Kind::Text;
            for (qint64 text = 0; text < number; ++text)
                array.texts.append(m_binary ? binaryText() : plainText());
            return array;
        }
        const QString name = typeOf(type);
        try {
            if (m_binary) {
                const qint64 bytes = number * bytesOf(name);
                if (bytes > m_file.size() - m_file.pos())
                    failCut();
                if (bytes > std::numeric_limits<int>::max() - 64)
                    throw std::runtime_error("it is more than one array may have");
                // Always the largest byte first.
                takeValues(array, name, m_file.read(bytes), true);
            } else {
                takeText(array, name, plainNumbers(number));
            }
        } catch (const LoadError&) {
            throw;
        } catch (const std::runtime_error& error) {
            fail(QStringLiteral("an array: %1").arg(QString::fromUtf8(error.what())),
                 QStringLiteral("save the file again at its source"));
        }
        return array;
    }

    /// So many words, from however many lines.
    QByteArray plainNumbers(qint64 number)
    {
        QByteArray text;
        char character = 0;
        for (qint64 words = 0; words < number; ++words) {
            do {
                if (!m_file.getChar(&character))
                    failCut();
            } while (isspace(static_cast<unsigned char>(character)));
            text += ' ';
            do {
                text += character;
            } while (m_file.getChar(&character) && !isspace(static_cast<unsigned char>(character)));
        }
        return text;
    }

    QString plainText()
    {
        const QByteArray bytes = line();
        if (bytes.isEmpty())
            failCut();
        return QString::fromUtf8(QByteArray::fromPercentEncoding(bytes.trimmed()));
    }

    /// Its length in 6, 14, 30 or 62 bits, as the first two say, then its bytes.
    QString binaryText()
    {
        char first = 0;
        if (!m_file.getChar(&first))
            failCut();
        const auto head = static_cast<unsigned char>(first);
        static const int more[] = {7, 3, 1, 0};
        quint64 length = head & 0x3fU;
        for (int byte = 0; byte < more[head >> 6]; ++byte) {
            char next = 0;
            if (!m_file.getChar(&next))
                failCut();
            length = (length << 8) | static_cast<unsigned char>(next);
        }
        if (length > static_cast<quint64>(m_file.size() - m_file.pos()))
            failCut();
        return QString::fromUtf8(m_file.read(static_cast<qint64>(length)));
    }

    QString m_path;
    QFile m_file;
    QList<QByteArray> m_words; ///< of the line at work
    bool m_binary = false;
    bool m_new = false; ///< cells have offsets
    VtkDataSet m_data;
    std::vector<VtkDataArray>* m_arrays = nullptr; ///< where attributes go
    qint64 m_tuples = 0;
};

} // namespace

VtkDataSet readVtkLegacy(const QString& path)
{
    return LegacyFile(path).read();
}

} // namespace kpFormats
