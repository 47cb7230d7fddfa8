// SPDX-License-Identifier: MIT
#include "readers/PlyHeader.h"

#include "readers/LoadError.h"
#include "readers/TextScanner.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <limits>

namespace kpFormats
{

namespace
{

class HeaderReader
{
public:
    explicit HeaderReader(const QString& path)
        : m_path(path)
        , m_file(path)
    {
        if (QFileInfo(path).isDir() || !m_file.open(QIODevice::ReadOnly))
            throw LoadError(path, QStringLiteral("the file cannot be read"),
                            QStringLiteral("check the path and its permissions"));
    }

    PlyHeader read()
    {
        if (nextLine() != "ply")
            fail(QStringLiteral("it does not begin with \"ply\""), QStringLiteral("give a PLY file"));
        bool hasFormat = false;
        while (true) {
            const QByteArray line = nextLine();
            const QList<QByteArray> words = line.simplified().split(' ');
            if (words[0] == "end_header")
                break;
            if (words[0] == "format") {
                readFormat(words);
                hasFormat = true;
            } else if (words[0] == "comment" || words[0] == "obj_info") {
                readRemark(line.mid(words[0].size()).trimmed());
            } else if (words[0] == "element") {
                readElement(words);
            } else if (words[0] == "property") {
                readProperty(words);
            } else if (!words[0].isEmpty()) {
                fail(QStringLiteral("%1 is no word of a header").arg(shown(words[0])), QStringLiteral("correct it"));
            }
        }
        if (!hasFormat)
            fail(QStringLiteral("the header has no format"), QStringLiteral("correct it"));
        m_header.bytes = m_file.pos();
        return m_header;
    }

private:
    static QString shown(const QByteArray& word)
    {
        return quoted(std::string_view(word.constData(), static_cast<std::size_t>(word.size())));
    }
    [[noreturn]] void fail(const QString& cause, const QString& cure) const
    {
        throw LoadError(m_path, QStringLiteral("line %1: %2").arg(m_header.lines).arg(cause), cure);
    }

    QByteArray nextLine()
    {
        constexpr qint64 longest = 4096;
        ++m_header.lines;
        QByteArray line = m_file.readLine(longest);
        if (!line.endsWith('\n'))
            fail(line.size() + 1 < longest ? QStringLiteral("the header does not end")
                                           : QStringLiteral("the line is longer than a header's may be"),
                 QStringLiteral("it was cut short or is no PLY file; copy it again from its source"));
        line.chop(1);
        if (line.endsWith('\r'))
            line.chop(1);
        return line;
    }

    void readFormat(const QList<QByteArray>& words)
    {
        const QByteArray name = words.value(1);
        if (name == "ascii")
            m_header.format = PlyHeader::Format::Text;
        else if (name == "binary_little_endian")
            m_header.format = PlyHeader::Format::LittleEndian;
        else if (name == "binary_big_endian")
            m_header.format = PlyHeader::Format::BigEndian;
        else
            fail(QStringLiteral("%1 is no format of PLY").arg(shown(name)), QStringLiteral("correct it"));
    }

    void readRemark(const QByteArray& remark)
    {
        m_header.offset.take(std::string_view(remark.constData(), static_cast<std::size_t>(remark.size())));
        const QString text = QString::fromUtf8(remark);
        static const QStringList units{QStringLiteral("m"), QStringLiteral("ft"), QStringLiteral("ftUS"),
                                       QStringLiteral("km")};
        const QString unitOf = QStringLiteral("unit of ");
        if (text.startsWith(QLatin1String("name: ")))
            m_header.name = text.mid(6).trimmed();
        else if (text.startsWith(QLatin1String("unit: ")) && units.contains(text.mid(6)))
            m_header.lengthUnit = text.mid(6);
        else if (text == QLatin1String("z: depth, positive down"))
            m_header.zIsDepth = true;
        else if (text.startsWith(unitOf))
            m_header.units.insert(text.mid(unitOf.size()).section(QStringLiteral(": "), 0, 0),
                                  text.section(QStringLiteral(": "), 1));
    }

    void readElement(const QList<QByteArray>& words)
    {
        PlyElement element;
        element.name = QString::fromUtf8(words.value(1));
        bool good = false;
        element.count = words.value(2).toLongLong(&good);
        if (words.size() != 3 || !good || element.count < 0)
            fail(QStringLiteral("an element needs a name and how many there are"), QStringLiteral("correct the line"));
        if (element.count > std::numeric_limits<int>::max())
            fail(QStringLiteral("%1 rows are more than an object can have").arg(element.count),
                 QStringLiteral("split the file"));
        m_header.elements.push_back(element);
    }

    PlyType typeOf(const QByteArray& word) const
    {
        static const QHash<QByteArray, PlyType> types{
            {"char", PlyType::Int8},      {"int8", PlyType::Int8},       {"uchar", PlyType::UInt8},
            {"uint8", PlyType::UInt8},    {"short", PlyType::Int16},     {"int16", PlyType::Int16},
            {"ushort", PlyType::UInt16},  {"uint16", PlyType::UInt16},   {"int", PlyType::Int32},
            {"int32", PlyType::Int32},    {"uint", PlyType::UInt32},     {"uint32", PlyType::UInt32},
            {"float", PlyType::Float32},  {"float32", PlyType::Float32}, {"double", PlyType::Float64},
            {"float64", PlyType::Float64}};
        const auto found = types.find(word);
        if (found == types.end())
            fail(QStringLiteral("%1 is no type of PLY").arg(shown(word)), QStringLiteral("correct the line"));
        return *found;
    }

    void readProperty(const QList<QByteArray>& words)
    {
        if (m_header.elements.empty())
            fail(QStringLiteral("the property belongs to no element"), QStringLiteral("correct the header"));
        PlyProperty property;
        property.isList = words.value(1) == "list";
        if (words.size() != (property.isList ? 5 : 3))
            fail(QStringLiteral("a property needs a type and a name"), QStringLiteral("correct the line"));
        if (property.isList) {
            property.countType = typeOf(words[2]);
            if (isReal(property.countType))
                fail(QStringLiteral("the length of a list is no whole number"), QStringLiteral("correct the line"));
        }
        property.type = typeOf(words[words.size() - 2]);
        property.name = QString::fromUtf8(words.last());
        m_header.elements.back().properties.push_back(property);
    }

    QString m_path;
    QFile m_file;
    PlyHeader m_header;
};

} // namespace

int PlyElement::propertyNamed(const QStringList& names) const
{
    for (std::size_t index = 0; index < properties.size(); ++index) {
        if (names.contains(properties[index].name))
            return static_cast<int>(index);
    }
    return -1;
}

bool isReal(PlyType type)
{
    return type == PlyType::Float32 || type == PlyType::Float64;
}

int bytesOf(PlyType type)
{
    switch (type) {
    case PlyType::Int8:
    case PlyType::UInt8:
        return 1;
    case PlyType::Int16:
    case PlyType::UInt16:
        return 2;
    case PlyType::Int32:
    case PlyType::UInt32:
    case PlyType::Float32:
        return 4;
    case PlyType::Float64:
        break;
    }
    return 8;
}

PlyHeader readPlyHeader(const QString& path)
{
    return HeaderReader(path).read();
}

} // namespace kpFormats
