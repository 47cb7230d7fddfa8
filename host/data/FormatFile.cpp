// SPDX-License-Identifier: MIT
#include "host/data/FormatFile.h"

#include "host/data/FormatFileText.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace
{

constexpr char formatMark[] = "kp-layout";
constexpr int newestVersion = 1;

struct NumberMember
{
    const char* key;
    int impAttribute::*member;
};
struct TextMember
{
    const char* key;
    std::string impAttribute::*member;
};

constexpr TextMember textMembers[] = {
    {"name", &impAttribute::name}, {"type", &impAttribute::type}, {"label", &impAttribute::label}};
constexpr NumberMember numberMembers[] = {{"typeId", &impAttribute::typeId}, {"order", &impAttribute::order},
                                          {"width", &impAttribute::width},   {"start", &impAttribute::start},
                                          {"end", &impAttribute::end},       {"precision", &impAttribute::precision},
                                          {"flags", &impAttribute::flags}};

int wholeNumber(const QJsonValue& value, int line, const char* key)
{
    const double number = value.toDouble(std::nan(""));
    if (!value.isDouble() || number != std::floor(number) || number < std::numeric_limits<int>::min()
        || number > std::numeric_limits<int>::max())
        throw FormatFileError(line, QStringLiteral("\"%1\" is not a whole number").arg(QLatin1String(key)));
    return static_cast<int>(number);
}

FormatFile::Field fieldOf(const QJsonValue& value, int line)
{
    if (!value.isObject())
        throw FormatFileError(line, QStringLiteral("the field is not an object { ... }"));
    QJsonObject object = value.toObject();
    impAttribute attribute;
    if (!object.contains(QLatin1String("name")))
        throw FormatFileError(line, QStringLiteral("the field has no \"name\""));
    for (const TextMember& member : textMembers) {
        const QJsonValue text = object.take(QLatin1String(member.key));
        if (text.isUndefined())
            continue;
        if (!text.isString())
            throw FormatFileError(line, QStringLiteral("\"%1\" is not a text").arg(QLatin1String(member.key)));
        attribute.*member.member = text.toString().toStdString();
    }
    for (const NumberMember& member : numberMembers) {
        const QJsonValue number = object.take(QLatin1String(member.key));
        if (!number.isUndefined())
            attribute.*member.member = wholeNumber(number, line, member.key);
    }
    FormatFile::Field field;
    field.setAttribute(attribute);
    field.unknown() = object;
    return field;
}

/// Whether a key holds a NUL. Qt orders such keys by where they stood, and then does not find them.
bool hasKeyWithNul(const QJsonValue& value)
{
    const QJsonArray list = value.toArray();
    if (value.isArray())
        return std::any_of(list.begin(), list.end(), hasKeyWithNul);
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (member.key().contains(QChar(0)) || hasKeyWithNul(member.value()))
            return true;
    }
    return false;
}

QJsonObject parsedObject(const QByteArray& content)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError)
        throw FormatFileError(content.left(error.offset).count('\n') + 1, error.errorString());
    if (!document.isObject())
        throw FormatFileError(1, QStringLiteral("this is not a JSON object { ... }"));
    if (hasKeyWithNul(document.object()))
        throw FormatFileError(1, QStringLiteral("a key holds the character NUL"));
    return document.object();
}

FormatFile::SpecificationType typeOf(const QJsonValue& value, int line)
{
    if (value.toString() == QLatin1String("fields"))
        return FormatFile::FieldBased;
    if (value.toString() == QLatin1String("columns"))
        return FormatFile::ColumnBased;
    throw FormatFileError(line, QStringLiteral("\"type\" is neither \"fields\" nor \"columns\""));
}

std::unique_ptr<FormatFile> parsedKlf(const QByteArray& content)
{
    QJsonObject object = parsedObject(content);
    const JsonPlaces places(content);
    if (object.take(QStringLiteral("format")).toString() != QLatin1String(formatMark))
        throw FormatFileError(places.lineOf("format"),
                              QStringLiteral("\"format\" is not \"%1\"").arg(QLatin1String(formatMark)));
    const int version = wholeNumber(object.take(QStringLiteral("version")), places.lineOf("version"), "version");
    if (version < 1 || version > newestVersion)
        throw FormatFileError(
            places.lineOf("version"),
            QStringLiteral("version %1 is not known (known: 1 to %2)").arg(version).arg(newestVersion));
    auto file = std::make_unique<FormatFile>();
    file->type() = typeOf(object.take(QStringLiteral("type")), places.lineOf("type"));
    file->name() = object.take(QStringLiteral("name")).toString();
    const QJsonValue fields = object.take(QStringLiteral("fields"));
    if (!fields.isArray())
        throw FormatFileError(places.lineOf("fields"), QStringLiteral("\"fields\" is not a list [ ... ]"));
    const QJsonArray list = fields.toArray();
    for (int index = 0; index < list.size(); ++index) {
        FormatFile::Field field = fieldOf(list[index], places.lineOfField(index));
        file->addField(field);
    }
    file->unknown() = object;
    return file;
}

/// One value as JSON on one line.
QByteArray jsonText(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

QByteArray member(const QString& key, const QJsonValue& value)
{
    return jsonText(key) + ": " + jsonText(value);
}

QString nameOf(const FormatFile::Field& field)
{
    impAttribute attribute;
    field.getAttribute(attribute);
    return QString::fromStdString(attribute.name);
}

QByteArray fieldLine(const FormatFile::Field& field)
{
    impAttribute attribute;
    field.getAttribute(attribute);
    QByteArrayList members;
    for (const TextMember& text : textMembers)
        members.append(member(QLatin1String(text.key), QString::fromStdString(attribute.*text.member)));
    for (const NumberMember& number : numberMembers)
        members.append(member(QLatin1String(number.key), attribute.*number.member));
    for (auto extra = field.unknown().begin(); extra != field.unknown().end(); ++extra)
        members.append(member(extra.key(), extra.value()));
    return "    {" + members.join(", ") + '}';
}

/// Runs a reader and turns its failure into null and a text.
template <typename Reader>
FormatFile* guarded(QString* error, Reader reader)
{
    try {
        return reader().release();
    } catch (const FormatFileError& failure) {
        if (error)
            *error = QString::fromUtf8(failure.what());
        return nullptr;
    }
}

} // namespace

// Defined beside its table of columns.
std::unique_ptr<FormatFile> parsedLandmark(const QByteArray& content);

void FormatFile::Field::setAttribute(const impAttribute& attribute)
{
    m_attribute = attribute;
}

void FormatFile::Field::getAttribute(impAttribute& attribute) const
{
    attribute = m_attribute;
}

FormatFile* FormatFile::read(const QString& path, QString* error)
{
    return guarded(error, [&path] { return parsedKlf(formatFileContent(path)); });
}

FormatFile* FormatFile::readLandmark(const QString& path, QString* error)
{
    return guarded(error, [&path] {
        std::unique_ptr<FormatFile> file = parsedLandmark(formatFileContent(path));
        file->name() = path;
        return file;
    });
}

FormatFile* FormatFile::fromBytes(const QByteArray& content, QString* error)
{
    return guarded(error, [&content] { return parsedKlf(content); });
}

void FormatFile::addField(Field& field)
{
    m_fields.push_back(field);
}

void FormatFile::adoptUnknown(const FormatFile& earlier)
{
    m_unknown = earlier.m_unknown;
    QHash<QString, const Field*> byName;
    for (const Field& field : earlier.m_fields)
        byName.insert(nameOf(field), &field);
    for (Field& field : m_fields) {
        if (const Field* same = byName.value(nameOf(field)))
            field.unknown() = same->unknown();
    }
}

QByteArray FormatFile::toBytes() const
{
    QByteArrayList fields;
    for (const Field& field : m_fields)
        fields.append(fieldLine(field));
    QByteArrayList members{member(QStringLiteral("format"), QLatin1String(formatMark)),
                           member(QStringLiteral("version"), newestVersion),
                           member(QStringLiteral("type"), QLatin1String(m_type == FieldBased ? "fields" : "columns")),
                           member(QStringLiteral("name"), m_name)};
    for (auto extra = m_unknown.begin(); extra != m_unknown.end(); ++extra)
        members.append(member(extra.key(), extra.value()));
    members.append(fields.isEmpty() ? "\"fields\": []" : "\"fields\": [\n" + fields.join(",\n") + "\n  ]");
    return "{\n  " + members.join(",\n  ") + "\n}\n";
}

bool FormatFile::write(const QString& path, QString* error) const
{
    const QByteArray content = toBytes();
    QSaveFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
    if (!written && error)
        *error = file.errorString();
    return written;
}
