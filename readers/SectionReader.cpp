// SPDX-License-Identifier: MIT
#include "readers/SectionReader.h"

#include "geo/CoordinateSystems.h"
#include "geo/CoordinateTransform.h"
#include "model/SectionCutter.h"
#include "readers/LoadError.h"
#include "readers/VectorReader.h"

#include <QHash>
#include <QJsonObject>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kpFormats
{

namespace
{

/// Whether two coordinate systems are the same although their texts differ; remembers what it has found.
class SameSystem
{
public:
    bool operator()(const QString& a, const QString& b)
    {
        if (a == b || a.isEmpty() || b.isEmpty())
            return a == b;
        const QString pair = a + QChar(0) + b;
        if (!m_known.contains(pair))
            m_known.insert(pair, compare(a, b));
        return m_known.value(pair);
    }

private:
    static bool compare(const QString& a, const QString& b)
    {
        try {
            return CoordinateTransform(a, b).isIdentity();
        } catch (const std::runtime_error&) {
            return false;
        }
    }

    QHash<QString, bool> m_known;
};

class SectionEntry
{
public:
    SectionEntry(QString modelFile, int number, const QJsonObject& entry)
        : m_modelFile(std::move(modelFile))
        , m_number(number)
        , m_entry(entry)
    {
        static const QStringList keys{QStringLiteral("name"),  QStringLiteral("trace"), QStringLiteral("set"),
                                      QStringLiteral("color"), QStringLiteral("crs"),   QStringLiteral("objects")};
        for (const QString& key : entry.keys()) {
            if (!keys.contains(key))
                fail(QStringLiteral("\"%1\" is not known").arg(key),
                     QStringLiteral("keys: %1").arg(keys.join(QStringLiteral(", "))));
        }
    }

    ModelObject object(const Model& model, SameSystem& same) const
    {
        ModelObject section;
        section.type = ObjectType::CrossSections;
        section.name = text("name");
        if (section.name.isEmpty())
            fail(QStringLiteral("there is no \"name\""), QStringLiteral("name the section"));
        section.set = m_entry.contains(QLatin1String("set")) ? text("set") : QStringLiteral("Sections");
        section.color = m_entry.contains(QLatin1String("color")) ? QColor(text("color")) : QColor(0xc0, 0x20, 0x20);
        if (!section.color.isValid())
            fail(QStringLiteral("\"%1\" is not a colour").arg(text("color")), QStringLiteral("write it as #rrggbb"));
        section.crs = wktOf(text("crs"));
        if (!text("crs").isEmpty() && section.crs.isEmpty())
            fail(QStringLiteral("\"%1\" is not a known coordinate system").arg(text("crs")),
                 QStringLiteral("give one like EPSG:28350"));
        section.source = m_modelFile;
        section.hasZ = false;
        readTrace(section);
        draw(section, model, same);
        return section;
    }

private:
    [[noreturn]] void fail(const QString& cause, const QString& cure) const
    {
        throw LoadError(m_modelFile, QStringLiteral("section %1: %2").arg(m_number).arg(cause), cure);
    }

    QString text(const char* key) const
    {
        const QJsonValue value = m_entry.value(QLatin1String(key));
        if (!value.isUndefined() && !value.isString())
            fail(QStringLiteral("\"%1\" is not text").arg(QLatin1String(key)),
                 QStringLiteral("put its value in quotes"));
        return value.toString();
    }

    void readTrace(ModelObject& section) const
    {
        std::vector<double> x;
        std::vector<double> y;
        const QString cure = QStringLiteral("write \"trace\": [[x, y], [x, y], ...] with two or more different points");
        for (const QJsonValue& value : m_entry.value(QLatin1String("trace")).toArray()) {
            const QJsonArray point = value.toArray();
            if (point.size() != 2 || !point[0].isDouble() || !point[1].isDouble())
                fail(QStringLiteral("point %1 of the trace is not a pair of numbers").arg(x.size() + 1), cure);
            x.push_back(point[0].toDouble());
            y.push_back(point[1].toDouble());
        }
        bool hasLength = false;
        for (std::size_t index = 1; index < x.size(); ++index)
            hasLength = hasLength || x[index] != x.front() || y[index] != y.front();
        if (!hasLength)
            fail(QStringLiteral("the trace has no length"), cure);
        section.parts = {{0, static_cast<int>(x.size()), false, false}};
        section.z = std::make_shared<const std::vector<double>>(x.size(), 0.0);
        section.x = std::make_shared<const std::vector<double>>(std::move(x));
        section.y = std::make_shared<const std::vector<double>>(std::move(y));
    }

    void draw(ModelObject& section, const Model& model, SameSystem& same) const
    {
        QStringList chosen;
        for (const QJsonValue& name : m_entry.value(QLatin1String("objects")).toArray())
            chosen.append(name.toString());
        for (const QString& name : qAsConst(chosen)) {
            const auto isIt = [&name](const ModelObject& object) { return object.name == name; };
            if (std::none_of(model.objects().begin(), model.objects().end(), isIt))
                fail(QStringLiteral("there is no object \"%1\"").arg(name),
                     QStringLiteral("kpexport inspect lists the names"));
        }
        const SectionCutter cutter(*section.x, *section.y);
        auto drawing = std::make_shared<CrossSection>();
        bool first = true;
        for (const ModelObject& object : model.objects()) {
            if ((!chosen.isEmpty() && !chosen.contains(object.name)) || object.type == ObjectType::CrossSections)
                continue;
            if (!section.crs.isEmpty() && !same(section.crs, object.crs))
                continue;
            if (!first && object.lengthUnit != section.lengthUnit)
                continue;
            std::vector<SectionSegment> segments = cutter.cut(object);
            if (segments.empty())
                continue;
            if (first) {
                section.crs = object.crs;
                section.lengthUnit = object.lengthUnit;
                first = false;
            }
            std::move(segments.begin(), segments.end(), std::back_inserter(drawing->segments));
        }
        section.section = std::move(drawing);
    }

    QString m_modelFile;
    int m_number;
    QJsonObject m_entry;
};

} // namespace

LoadNotes readSections(Model& model, const QString& path, const QJsonArray& sections)
{
    LoadNotes notes;
    SameSystem same;
    int number = 0;
    for (const QJsonValue& value : sections) {
        ModelObject section = SectionEntry(path, ++number, value.toObject()).object(model, same);
        if (section.section->segments.empty())
            notes.append(QStringLiteral("%1: section %2 meets no object with heights").arg(path, section.name));
        model.add(std::move(section));
    }
    return notes;
}

} // namespace kpFormats
