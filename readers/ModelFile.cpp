// SPDX-License-Identifier: MIT
#include "readers/ModelFile.h"

#include "geo/LoadLimits.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"
#include "readers/SectionReader.h"
#include "readers/TableColumn.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace kpFormats
{

namespace
{

constexpr qint64 largestModelFile = 64 * 1024 * 1024;

struct TextKey
{
    const char* key;
    QString LoadOptions::*member;
};

constexpr TextKey textKeys[] = {
    {"layer", &LoadOptions::layer},
    {"name", &LoadOptions::name},
    {"nameField", &LoadOptions::nameField},
    {"set", &LoadOptions::set},
    {"color", &LoadOptions::color},
    {"crs", &LoadOptions::crs},
    {"lengthUnit", &LoadOptions::lengthUnit},
    {"x", &LoadOptions::x},
    {"y", &LoadOptions::y},
    {"z", &LoadOptions::z},
    {"survey", &LoadOptions::survey},
    {"dip", &LoadOptions::dip},
    {"encoding", &LoadOptions::encoding},
};

class Entry
{
public:
    Entry(const QString& modelFile, int number, const QJsonObject& object)
        : m_modelFile(modelFile)
        , m_number(number)
        , m_object(object)
    {
    }

    QString file() const
    {
        const QString name = m_object.value(QLatin1String("file")).toString();
        if (name.isEmpty())
            fail(QStringLiteral("there is no \"file\""), QStringLiteral("name the file to load"));
        return absolute(name);
    }

    LoadOptions options() const
    {
        LoadOptions options;
        for (auto member = m_object.begin(); member != m_object.end(); ++member)
            read(member.key(), member.value(), options);
        if (!options.survey.isEmpty())
            options.survey = absolute(options.survey);
        for (QString& log : options.logs)
            log = absolute(log);
        return options;
    }

private:
    [[noreturn]] void fail(const QString& cause, const QString& cure) const
    {
        throw LoadError(m_modelFile, QStringLiteral("object %1: %2").arg(m_number).arg(cause), cure);
    }

    QString absolute(const QString& name) const
    {
        const QString path = QFileInfo(m_modelFile).absoluteDir().filePath(name);
        if (isForbiddenOutside(m_modelFile, path))
            fail(QStringLiteral("%1 lies outside the model's folder").arg(name),
                 QStringLiteral("move it there, or add --allow-outside"));
        const QFileInfo info(path);
        if (info.exists() && !info.isFile() && !info.isDir())
            fail(QStringLiteral("%1 is a device or a pipe").arg(name), QStringLiteral("name a file"));
        return path;
    }

    /// The keys whose values are not texts. \returns whether it is one of them
    bool readOther(const QString& key, const QJsonValue& value, LoadOptions& options) const
    {
        if (key == QLatin1String("maxDepth")) {
            if (!value.isDouble())
                fail(QStringLiteral("\"maxDepth\" is not a number"), QStringLiteral("give a depth"));
            options.maxDepth = value.toDouble();
        } else if (key == QLatin1String("band")) {
            options.band = value.toInt(0);
            if (options.band < 1)
                fail(QStringLiteral("\"band\" is not the number of a band"), QStringLiteral("write 1, 2, ..."));
        } else if (key == QLatin1String("logs")) {
            const QJsonArray files = value.isString() ? QJsonArray{value} : value.toArray();
            for (const QJsonValue& file : files)
                options.logs.append(file.toString());
            if (options.logs.isEmpty() || options.logs.contains(QString()))
                fail(QStringLiteral("\"logs\" does not name files"), QStringLiteral("write [\"assay.csv\", ...]"));
        } else if (key == QLatin1String("columnTypes")) {
            const QJsonObject types = value.toObject();
            for (auto type = types.begin(); type != types.end(); ++type) {
                if (!columnTypeNames().contains(type.value().toString()))
                    fail(QStringLiteral("\"columnTypes\" gives %1 a type that is not known").arg(type.key()),
                         QStringLiteral("types: %1").arg(columnTypeNames().join(QStringLiteral(", "))));
                options.columnTypes.insert(type.key(), type.value().toString());
            }
            if (types.isEmpty())
                fail(QStringLiteral("\"columnTypes\" does not name columns"),
                     QStringLiteral("write {\"COLUMN\": \"text\", ...}"));
        } else {
            return false;
        }
        return true;
    }

    void read(const QString& key, const QJsonValue& value, LoadOptions& options) const
    {
        if (key == QLatin1String("file"))
            return;
        if (readOther(key, value, options))
            return;
        if (!value.isString())
            fail(QStringLiteral("\"%1\" is not text").arg(key), QStringLiteral("put its value in quotes"));
        const QString text = value.toString();
        if (key == QLatin1String("type")) {
            options.type = typeFromKey(text.toStdString());
            if (!options.type)
                fail(QStringLiteral("\"%1\" is not a type").arg(text), QStringLiteral("types: %1").arg(knownTypes()));
            return;
        }
        if (key == QLatin1String("dip") && text != QLatin1String("down") && text != QLatin1String("up"))
            fail(QStringLiteral("\"%1\" is not a way for dips to count").arg(text),
                 QStringLiteral("write \"down\" or \"up\""));
        if (key == QLatin1String("color") && !QColor(text).isValid())
            fail(QStringLiteral("\"%1\" is not a colour").arg(text), QStringLiteral("write it as #rrggbb"));
        static const QStringList units{QStringLiteral("m"), QStringLiteral("ft"), QStringLiteral("ftUS"),
                                       QStringLiteral("km")};
        if (key == QLatin1String("lengthUnit") && !units.contains(text))
            fail(QStringLiteral("\"%1\" is not a length unit").arg(text),
                 QStringLiteral("units: %1").arg(units.join(QStringLiteral(", "))));
        for (const TextKey& known : textKeys) {
            if (key == QLatin1String(known.key)) {
                options.*known.member = text;
                return;
            }
        }
        QStringList keys{QStringLiteral("file"), QStringLiteral("type"), QStringLiteral("maxDepth"),
                         QStringLiteral("band"), QStringLiteral("logs"), QStringLiteral("columnTypes")};
        for (const TextKey& known : textKeys)
            keys.append(QString::fromLatin1(known.key));
        fail(QStringLiteral("\"%1\" is not known").arg(key),
             QStringLiteral("keys: %1").arg(keys.join(QStringLiteral(", "))));
    }

    static QString knownTypes()
    {
        QStringList names;
        for (const ObjectType type : allObjectTypes())
            names.append(QString::fromStdString(typeKey(type)));
        return names.join(QStringLiteral(", "));
    }

    QString m_modelFile;
    int m_number;
    QJsonObject m_object;
};

QJsonObject readJson(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        throw LoadError(path, QStringLiteral("the file cannot be read"),
                        QStringLiteral("check the path and its permissions"));
    if (file.size() > largestModelFile)
        throw LoadError(path, QStringLiteral("the file is larger than a model file can be"),
                        QStringLiteral("check the path"));
    const QByteArray text = file.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        const int line = text.left(error.offset).count('\n') + 1;
        throw LoadError(path, QStringLiteral("line %1: %2").arg(line).arg(error.errorString()),
                        QStringLiteral("correct the JSON there"));
    }
    return document.object();
}

} // namespace

LoadNotes readModelFile(Model& model, const QString& path)
{
    const QJsonObject root = readJson(path);
    const ModelBounds bounds(path);
    if (root.value(QLatin1String("version")).toInt() != 1)
        throw LoadError(path, QStringLiteral("this is not a model file of version 1"),
                        QStringLiteral("add \"version\": 1"));
    const QJsonArray objects = root.value(QLatin1String("objects")).toArray();
    if (objects.isEmpty())
        throw LoadError(path, QStringLiteral("there are no \"objects\""),
                        QStringLiteral("list the files to load there"));
    LoadNotes notes;
    int number = 0;
    for (const QJsonValue& value : objects) {
        const Entry entry(path, ++number, value.toObject());
        const QString file = entry.file();
        // A model file in a model file could name itself.
        if (file.endsWith(QLatin1String(".kpmodel"), Qt::CaseInsensitive))
            throw LoadError(path, QStringLiteral("object %1 is a model file").arg(number),
                            QStringLiteral("list its objects here"));
        notes += loadInto(model, file, entry.options());
    }
    const QJsonValue sections = root.value(QLatin1String("sections"));
    if (!sections.isUndefined() && !sections.isArray())
        throw LoadError(path, QStringLiteral("\"sections\" is not a list"),
                        QStringLiteral("put the sections in brackets"));
    notes += readSections(model, path, sections.toArray());
    return notes;
}

} // namespace kpFormats
