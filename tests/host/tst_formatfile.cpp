// SPDX-License-Identifier: MIT
// Format files: what is stored comes back, what is wrong is refused with its line.
#include "host/data/FormatFile.h"
#include "tests/support/FileContent.h"

#include <QtTest>

#include <limits>
#include <memory>

namespace
{

impAttribute attribute(const std::string& name, int order)
{
    impAttribute record;
    record.label = "l\"abel";
    record.name = name;
    record.type = "double";
    record.typeId = -6;
    record.order = order;
    record.width = 17;
    record.start = std::numeric_limits<int>::min();
    record.end = std::numeric_limits<int>::max();
    record.precision = 9;
    record.flags = -1;
    return record;
}

impAttribute named(const char* name)
{
    impAttribute record;
    record.name = name;
    return record;
}

FormatFile layoutOf(const std::vector<impAttribute>& records)
{
    FormatFile file;
    for (const impAttribute& record : records) {
        FormatFile::Field field;
        field.setAttribute(record);
        file.addField(field);
    }
    return file;
}

bool equal(const impAttribute& a, const impAttribute& b)
{
    return a.label == b.label && a.name == b.name && a.type == b.type && a.typeId == b.typeId && a.order == b.order
           && a.width == b.width && a.start == b.start && a.end == b.end && a.precision == b.precision
           && a.flags == b.flags;
}

impAttribute recordOf(const FormatFile& file, int index)
{
    impAttribute record;
    file.field(index).getAttribute(record);
    return record;
}

using Layout = std::unique_ptr<FormatFile>;

} // namespace

class FormatFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMemberComesBack()
    {
        const std::vector<impAttribute> records{
            attribute("Facies:sand", 0),   attribute("quote\" back\\ line\nend\r\ttab", 1),
            attribute("\xE5\x9C\xB0", 2),  attribute(std::string(10000, 'n'), 3),
            attribute("{\"fields\":[", 4), named("d")};
        FormatFile file = layoutOf(records);
        file.type() = FormatFile::ColumnBased;
        file.name() = QStringLiteral("/a \"b\"\\c\nд.klf");
        const QString path = m_folder.filePath(QStringLiteral("д ü.klf"));
        QVERIFY(file.write(path));
        const Layout back(FormatFile::read(path));
        QVERIFY(back);
        QCOMPARE(back->type(), FormatFile::ColumnBased);
        QCOMPARE(back->name(), file.name());
        QCOMPARE(back->size(), 6);
        for (int index = 0; index < 6; ++index)
            QVERIFY(equal(recordOf(*back, index), records[static_cast<std::size_t>(index)]));
    }

    void text()
    {
        impAttribute record = named("X");
        record.type = "double";
        QCOMPARE(layoutOf({record}).toBytes(),
                 QByteArray("{\n  \"format\": \"kp-layout\",\n  \"version\": 1,\n  \"type\": \"fields\",\n"
                            "  \"name\": \"\",\n  \"fields\": [\n    {\"name\": \"X\", \"type\": \"double\", "
                            "\"label\": \"\", \"typeId\": -5, \"order\": -1, \"width\": 10, \"start\": 0, "
                            "\"end\": 0, \"precision\": 2, \"flags\": 0}\n  ]\n}\n"));
    }

    void unknownKeysStay()
    {
        const Layout loaded(FormatFile::fromBytes(
            "{\"format\":\"kp-layout\",\"version\":1,\"type\":\"fields\",\"later\":{\"a\":[1,null]},"
            "\"fields\":[{\"name\":\"A\",\"unit\":\"ft\"},{\"name\":\"B\"}]}"));
        QVERIFY(loaded);
        FormatFile saved = layoutOf({named("B"), named("A"), named("C")});
        saved.adoptUnknown(*loaded);
        const Layout back(FormatFile::fromBytes(saved.toBytes()));
        const QJsonObject later = back->unknown().value(QStringLiteral("later")).toObject();
        QCOMPARE(QJsonDocument(later).toJson(QJsonDocument::Compact), QByteArray("{\"a\":[1,null]}"));
        QCOMPARE(back->field(1).unknown(), (QJsonObject{{QStringLiteral("unit"), QStringLiteral("ft")}}));
        QVERIFY(back->field(0).unknown().isEmpty());
    }

    void failedWriteKeepsTheEarlierFile()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("taken.klf")));
        QVERIFY(!FormatFile().write(m_folder.filePath(QStringLiteral("taken.klf"))));
        QVERIFY(!FormatFile().write(m_folder.filePath(QStringLiteral("no/such/folder.klf"))));
        const QString path = file("earlier.klf", "earlier");
        QVERIFY(FormatFile().write(path));
        QCOMPARE(QDir(m_folder.path()).entryList({QStringLiteral("earlier*")}, QDir::Files),
                 QStringList{QStringLiteral("earlier.klf")});
    }

    void table()
    {
        QString error;
        const QString path = file("t.fmt", "\xEF\xBB\xBF# a comment\r\n\r\nX double 1 12 2\r\n"
                                           "\t\"Facies:\"\"sand\"\" 1\"\tstring 13\t22 0\r\nj int 23 24 0\n");
        const Layout columns(FormatFile::readLandmark(path, &error));
        QVERIFY2(columns, qPrintable(error));
        QCOMPARE(columns->type(), FormatFile::ColumnBased);
        QCOMPARE(columns->size(), 3);
        const impAttribute x = recordOf(*columns, 0);
        QVERIFY(x.name == "X" && x.typeId == -6 && x.order == 0 && x.start == 1 && x.end == 12 && x.precision == 2);
        const impAttribute sand = recordOf(*columns, 1);
        QVERIFY(sand.name == "Facies:\"sand\" 1" && sand.type == "string" && sand.typeId == 0 && sand.order == 1);
        QVERIFY(sand.start == 13 && sand.end == 22);
        QCOMPARE(recordOf(*columns, 2).typeId, -5);

        const Layout fields(FormatFile::readLandmark(file("f.fmt", "A int 0 0 0")));
        QVERIFY(fields);
        QCOMPARE(fields->type(), FormatFile::FieldBased);
    }

    void namelessField()
    {
        const QByteArray content = layoutOf({attribute("", 1), attribute("a", 0)}).toBytes();
        const Layout read(FormatFile::fromBytes(content));
        QVERIFY(read);
        QVERIFY(recordOf(*read, 0).name.empty() && recordOf(*read, 0).order == 1);
    }

    void refused_data()
    {
        QTest::addColumn<bool>("isTable");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const QByteArray& content, const char* error, bool isTable = false) {
            QTest::newRow(name) << isTable << content << QString::fromLatin1(error);
        };
        row("empty", "", "line 1: ");
        row("no JSON", "X Y Z", "line 1: ");
        row("a list", "[1]", "line 1: this is not a JSON object");
        row("another format", "{\n\"format\":\"x\"}", "line 2: \"format\" is not");
        const QByteArray start = "{\"format\":\"kp-layout\",\n";
        row("newer version", start + "\n\"version\":2}", "line 3: version 2 is not known");
        row("other type", start + "\"version\":1,\"type\":\"rows\"}", "line 2: \"type\" is neither");
        row("no fields", start + "\"version\":1,\"type\":\"fields\"}", "line 1: \"fields\" is not a list");
        const QByteArray head = start + "\"version\":1,\n\"type\":\"fields\",\n\"fields\":[\n{\"name\":\"A\"},\n";
        row("field is a number", head + "[{\"a\":\"[\"}],\n7]}", "line 6: the field is not an object");
        row("no name", head + "{\"width\":1}]}", "line 6: the field has no");
        row("width is a text", head + "{\"name\":\"]}{\"},\n{\"name\":\"B\",\n\"width\":\"1\"}]}",
            "line 7: \"width\" is not a whole number");
        row("order is broken", head + "{\"name\":\"B\",\"order\":1.5}]}", "line 6: \"order\" is not a whole number");
        row("start is too large", head + "{\"name\":\"B\",\"start\":1e300}]}",
            "line 6: \"start\" is not a whole number");
        row("name is a list", head + "{\"name\":[]}]}", "line 6: \"name\" is not a text");
        row("deep", QByteArray(100000, '['), "line 1: ");
        row("empty table", "# only this\n", "there is no field", true);
        row("too few", "X double 1 2 3\n\nY double 1", "line 3: 3 entries instead of", true);
        row("no number", "X double a 2 3", "line 1: start \"a\" is not a whole number", true);
        row("negative", "X double 1 2 -3", "line 1: decimals \"-3\"", true);
        row("ends first", "X double 9 2 3", "line 1: the field ends before", true);
        row("type", "X float 1 2 3", "line 1: type \"float\" is none of", true);
        row("open quote", "\"X double 1 2 3", "line 1: a quote", true);
        row("a .klf", FormatFile().toBytes(), "line 1: ", true);
    }

    void refused()
    {
        QFETCH(bool, isTable);
        QFETCH(QByteArray, content);
        QFETCH(QString, error);
        const QString path = file("wrong", content);
        QString said;
        const Layout read(isTable ? FormatFile::readLandmark(path, &said) : FormatFile::read(path, &said));
        QVERIFY(!read);
        QVERIFY2(said.startsWith(error), qPrintable(said));
    }

    void everyTruncationIsRefused()
    {
        const QByteArray content = layoutOf({attribute("a\"[{", 3), attribute("a\"[{", 3)}).toBytes();
        for (int length = 0; length < content.size() - 2; ++length) {
            QString error;
            const Layout read(FormatFile::fromBytes(content.left(length), &error));
            QVERIFY2(!read && error.startsWith(QLatin1String("line ")), qPrintable(QString::number(length)));
        }
    }

    void huge()
    {
        const QString path = m_folder.filePath(QStringLiteral("huge.klf"));
        QFile sparse(path);
        QVERIFY(sparse.open(QIODevice::WriteOnly) && sparse.resize(Q_INT64_C(5000000000)));
        QString error;
        QVERIFY(!FormatFile::read(path, &error));
        QVERIFY2(error.contains(QLatin1String("larger than a layout")), qPrintable(error));
        QVERIFY(!FormatFile::readLandmark(m_folder.path(), &error));
        QVERIFY(error.contains(QLatin1String("cannot be opened")));
        if (QFile::exists(QStringLiteral("/dev/zero")))
            QVERIFY(!FormatFile::read(QStringLiteral("/dev/zero"), &error));
    }

private:
    QString file(const char* name, const QByteArray& content)
    {
        return writeFile(m_folder.filePath(QString::fromLatin1(name)), content);
    }
    QTemporaryDir m_folder;
};

QTEST_MAIN(FormatFileTest)
#include "tst_formatfile.moc"
