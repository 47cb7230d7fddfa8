// SPDX-License-Identifier: MIT
#include "readers/GocadFile.h"

#include "readers/GocadWellLines.h"
#include "readers/TextScanner.h"

#include <limits>
#include <unordered_map>

namespace kpFormats
{

namespace
{

QString textOf(std::string_view word)
{
    return QString::fromUtf8(word.data(), static_cast<int>(word.size()));
}

/// The words of a line, those in quotes as one, without their quotes.
QStringList wordsOf(std::string_view line)
{
    QStringList words;
    QString word;
    bool inQuotes = false;
    bool any = false;
    for (const QChar character : textOf(line)) {
        if (character == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            any = true;
        } else if (character.isSpace() && !inQuotes) {
            if (any)
                words.append(word);
            word.clear();
            any = false;
        } else {
            word += character;
            any = true;
        }
    }
    if (any)
        words.append(word);
    return words;
}

class GocadParser
{
public:
    explicit GocadParser(const QString& path)
        : m_scanner(path)
    {
    }

    std::vector<GocadObject> read(QStringList& others)
    {
        std::string_view word;
        while (m_scanner.nextLine()) {
            if (!m_scanner.nextWord(word) || word.front() == '#')
                continue;
            if (m_groups > 0 && word == "END_MEMBERS") {
                endGroup();
                continue;
            }
            if (word != "GOCAD")
                m_scanner.fail(QStringLiteral("%1 stands where an object should begin").arg(quoted(word)),
                               QStringLiteral("give a GOCAD ASCII file"));
            const bool hasType = m_scanner.nextWord(word);
            const QString type = hasType ? textOf(word) : QString();
            if (type == QLatin1String("VSet") || type == QLatin1String("PLine") || type == QLatin1String("TSurf"))
                readObject(type);
            else if (type == QLatin1String("Well"))
                readWell();
            else if (type.endsWith(QLatin1String("Group")))
                beginGroup(type);
            else
                passOver(type, others);
        }
        return std::move(m_objects);
    }

private:
    void passOver(const QString& type, QStringList& others)
    {
        others.append(type);
        while (m_scanner.nextLine()) {
            if (m_scanner.rest() == "END")
                return;
        }
    }

    void beginGroup(const QString& type)
    {
        while (m_scanner.nextLine()) {
            if (m_scanner.rest() == "END")
                return;
            if (m_scanner.rest() == "BEGIN_MEMBERS") {
                ++m_groups;
                return;
            }
        }
        m_scanner.failAtEnd(QStringLiteral("the %1 has no END").arg(type));
    }

    void endGroup()
    {
        --m_groups;
        while (m_scanner.nextLine()) {
            if (m_scanner.rest() == "END")
                return;
        }
        m_scanner.failAtEnd(QStringLiteral("a group has no END"));
    }

    void readWell()
    {
        m_objects.emplace_back();
        m_objects.back().type = QStringLiteral("Well");
        GocadWellLines lines(m_scanner, m_objects.back());
        std::string_view word;
        while (m_scanner.nextLine()) {
            if (!m_scanner.nextWord(word) || word.front() == '#')
                continue;
            if (word == "END") {
                lines.finish();
                return;
            }
            if (word == "HEADER" || word == "HEADER{")
                readHeader(m_objects.back());
            else if (word == "AXIS_UNIT" || word == "ZPOSITIVE")
                readDescription(m_objects.back(), word);
            else
                lines.read(word);
        }
        m_scanner.failAtEnd(QStringLiteral("the well %1 has no END").arg(m_objects.back().name));
    }

    void readObject(const QString& type)
    {
        m_objects.emplace_back();
        m_objects.back().type = type;
        m_indices.clear();
        m_sizes.clear();
        std::string_view word;
        while (m_scanner.nextLine()) {
            if (!m_scanner.nextWord(word) || word.front() == '#')
                continue;
            if (word == "END") {
                checkLine();
                nameNumbers();
                return;
            }
            readLine(word);
        }
        m_scanner.failAtEnd(QStringLiteral("the object %1 has no END").arg(m_objects.back().name));
    }

    void readLine(std::string_view keyword)
    {
        GocadObject& object = m_objects.back();
        if (keyword == "VRTX" || keyword == "PVRTX")
            readVertex(object, keyword == "PVRTX");
        else if (keyword == "ATOM" || keyword == "PATOM")
            readAtom(object);
        else if (keyword == "TRGL")
            object.triangles.push_back(readCorners<3>("TSurf"));
        else if (keyword == "SEG")
            object.segments.push_back(readCorners<2>("PLine"));
        else if (keyword == "ILINE")
            object.lineStarts.push_back(static_cast<int>(object.x.size()));
        else if (keyword == "BSTONE" || keyword == "BORDER")
            ++object.borders;
        else if (keyword == "HEADER" || keyword == "HEADER{")
            readHeader(object);
        else if (keyword == "PROPERTY_CLASS_HEADER")
            skipBlock();
        else
            readDescription(object, keyword);
    }

    void readDescription(GocadObject& object, std::string_view keyword)
    {
        if (keyword == "PROPERTIES") {
            if (!object.x.empty())
                m_scanner.fail(QStringLiteral("PROPERTIES stands behind vertices"),
                               QStringLiteral("put it before the first vertex"));
            object.properties = wordsOf(m_scanner.rest());
            object.values.assign(static_cast<std::size_t>(object.properties.size()), {});
            m_sizes.assign(static_cast<std::size_t>(object.properties.size()), 1);
        } else if (keyword == "ESIZES") {
            std::string_view word;
            if (!object.x.empty())
                m_scanner.fail(QStringLiteral("ESIZES stands behind vertices"),
                               QStringLiteral("put it before the first vertex"));
            std::size_t numbers = 0;
            for (std::size_t property = 0; property < m_sizes.size(); ++property) {
                if (m_scanner.nextWord(word))
                    m_sizes[property] = sizeOf(word);
                numbers += static_cast<std::size_t>(m_sizes[property]);
            }
            object.values.assign(numbers, {});
        } else if (keyword == "NO_DATA_VALUES") {
            std::string_view word;
            object.noDataValues.clear();
            while (object.noDataValues.size() < m_sizes.size() && m_scanner.nextWord(word))
                object.noDataValues.push_back(m_scanner.number(word));
        } else if (keyword == "UNITS") {
            object.units = wordsOf(m_scanner.rest());
        } else if (keyword == "AXIS_UNIT") {
            object.unit = wordsOf(m_scanner.rest()).value(2);
        } else if (keyword == "ZPOSITIVE") {
            object.zIsDepth = m_scanner.rest() == "Depth";
        }
    }

    qint64 sizeOf(std::string_view word) const
    {
        const qint64 size = m_scanner.integer(word);
        constexpr qint64 mostNumbers = 1000;
        if (size < 1 || size > mostNumbers)
            m_scanner.fail(QStringLiteral("a property has %1 numbers").arg(size), QStringLiteral("correct ESIZES"));
        return size;
    }

    /// "HEADER {", then "key:value" a line, then "}"; the first pair may stand behind the brace.
    void readHeader(GocadObject& object)
    {
        std::string_view text = m_scanner.rest();
        if (!text.empty() && text.front() == '{')
            text.remove_prefix(1);
        do {
            const std::size_t end = text.find('}');
            readPair(object, text.substr(0, end));
            if (end != std::string_view::npos)
                return;
            if (!m_scanner.nextLine())
                m_scanner.failAtEnd(QStringLiteral("the header does not end"));
            text = m_scanner.rest();
        } while (true);
    }

    static void readPair(GocadObject& object, std::string_view pair)
    {
        const QString text = textOf(pair);
        const int colon = text.indexOf(QLatin1Char(':'));
        const QString key = text.left(colon).trimmed();
        if (key == QLatin1String("name"))
            object.name = text.mid(colon + 1).trimmed();
        else if (key.startsWith(QLatin1Char('*')) && key.endsWith(QLatin1String("*color")) && object.color.isEmpty())
            object.color = text.mid(colon + 1).trimmed();
    }

    void skipBlock()
    {
        while (m_scanner.rest().find('}') == std::string_view::npos) {
            if (!m_scanner.nextLine())
                m_scanner.failAtEnd(QStringLiteral("a property's header does not end"));
        }
    }

    std::string_view need(const char* what)
    {
        std::string_view word;
        if (!m_scanner.nextWord(word))
            m_scanner.fail(QStringLiteral("%1 is missing").arg(QLatin1String(what)),
                           QStringLiteral("correct the line"));
        return word;
    }

    qint64 newVertex(const GocadObject& object)
    {
        if (object.x.size() >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
            m_scanner.fail(QStringLiteral("there are more vertices than an object can have"),
                           QStringLiteral("split the file"));
        return m_scanner.integer(need("the vertex number"));
    }

    void readVertex(GocadObject& object, bool withProperties)
    {
        m_indices[newVertex(object)] = static_cast<int>(object.x.size());
        for (std::vector<double>* axis : {&object.x, &object.y, &object.z})
            axis->push_back(m_scanner.number(need("a coordinate")));
        for (std::vector<double>& numbers : object.values)
            numbers.push_back(withProperties ? m_scanner.number(need("a property's value"))
                                             : std::numeric_limits<double>::quiet_NaN());
    }

    void readAtom(GocadObject& object)
    {
        const qint64 id = newVertex(object);
        // Before the new one is known: an atom cannot share its own position.
        const auto shared = static_cast<std::size_t>(indexOf(m_scanner.integer(need("the shared vertex"))));
        m_indices[id] = static_cast<int>(object.x.size());
        object.x.push_back(object.x[shared]);
        object.y.push_back(object.y[shared]);
        object.z.push_back(object.z[shared]);
        for (std::vector<double>& values : object.values)
            values.push_back(values[shared]);
    }

    int indexOf(qint64 id) const
    {
        const auto found = m_indices.find(id);
        if (found == m_indices.end())
            m_scanner.fail(QStringLiteral("there is no vertex %1 before it").arg(id),
                           QStringLiteral("correct the line"));
        return found->second;
    }

    /// A line's vertices that belong to no run would be lost, and with them what points at them.
    void checkLine() const
    {
        const GocadObject& object = m_objects.back();
        if (object.type == QLatin1String("PLine") && !object.x.empty() && object.lineStarts.empty()
            && object.segments.empty())
            m_scanner.fail(QStringLiteral("the line %1 has vertices but neither ILINE nor SEG").arg(object.name),
                           QStringLiteral("put ILINE before its first vertex"));
    }

    /// Gives each number of a property its own name, unit and value of "no data".
    void nameNumbers()
    {
        GocadObject& object = m_objects.back();
        QStringList names;
        QStringList units;
        std::vector<double> noData;
        for (std::size_t property = 0; property < m_sizes.size(); ++property) {
            for (qint64 number = 1; number <= m_sizes[property]; ++number) {
                const QString name = object.properties[static_cast<int>(property)];
                names.append(m_sizes[property] == 1 ? name : QStringLiteral("%1_%2").arg(name).arg(number));
                units.append(object.units.value(static_cast<int>(property)));
                if (property < object.noDataValues.size())
                    noData.push_back(object.noDataValues[property]);
            }
        }
        object.properties = names;
        if (!object.units.isEmpty())
            object.units = units;
        object.noDataValues = noData;
    }

    /// Vertices of what only an object of type \a owner has.
    template <std::size_t count>
    std::array<int, count> readCorners(const char* owner)
    {
        if (m_objects.back().type != QLatin1String(owner))
            m_scanner.fail(QStringLiteral("a %1 has no such line").arg(m_objects.back().type),
                           QStringLiteral("remove the line, or begin the object as %1").arg(QLatin1String(owner)));
        std::array<int, count> corners{};
        for (int& corner : corners)
            corner = indexOf(m_scanner.integer(need("a vertex number")));
        return corners;
    }

    TextScanner m_scanner;
    std::vector<GocadObject> m_objects;
    std::unordered_map<qint64, int> m_indices; ///< of the vertices by their number in the file
    std::vector<qint64> m_sizes;               ///< numbers per property
    int m_groups = 0;                          ///< begun and not yet ended
};

} // namespace

std::vector<GocadObject> readGocadObjects(const QString& path, QStringList& others)
{
    return GocadParser(path).read(others);
}

} // namespace kpFormats
