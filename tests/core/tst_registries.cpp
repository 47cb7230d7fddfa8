// SPDX-License-Identifier: MIT
#include "core/saver/QExportAbstractOptionSheet.h"
#include "tests/core/TestFactories.h"

#include <QtTest>

#include <memory>

using namespace kpBaseExport;

namespace
{

class PlainSheet : public QExportAbstractOptionSheet
{
public:
    PlainSheet()
        : QExportAbstractOptionSheet(nullptr)
    {
    }
    using QExportAbstractOptionSheet::initialize;
    void initialize(const QString&) override { ++initialized; }
    QString optionSummary() const override { return {}; }

    int initialized = 0;
};

struct SheetFactory : TestSheetFactory
{
    explicit SheetFactory(const std::string& key)
        : TestSheetFactory(key, [] { return new PlainSheet; })
    {
    }
};

template <typename Function>
QByteArray thrown(Function function)
{
    try {
        function();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

} // namespace

class RegistriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savers()
    {
        const QByteArray none = "Abstract factory has no registered concrete factory classes. "
                                "Please contact Quillmere with a bug-report.";
        QVERIFY(AbstractSaverFactory::products().empty());
        QCOMPARE(thrown([] { AbstractSaverFactory::create("x"); }), none);
        QCOMPARE(thrown([] { AbstractSaverFactory::create_unmanaged(); }), none);

        static SilentSaverFactory second("b");
        static SilentSaverFactory first("a");
        QCOMPARE(AbstractSaverFactory::products(), (std::vector<std::string>{"b", "a"}));
        QCOMPARE(AbstractSaverFactory::create()->key(), std::string("a"));
        QCOMPARE(AbstractSaverFactory::create("b")->key(), std::string("b"));
        QCOMPARE(thrown([] { AbstractSaverFactory::create("c"); }),
                 QByteArray("Abstract factory 'AbstractSaverFactory' does not have the required product name 'c' "
                            "registered. Please contact Quillmere with a bug-report"));
        QCOMPARE(thrown([] { SilentSaverFactory("a", true); }),
                 QByteArray("Two products with name 'a' are attempting to register with abstract factory "
                            "'AbstractSaverFactory'. Please contact Quillmere with a bug-report."));
        QCOMPARE(AbstractSaverFactory::products().size(), std::size_t(2));

        static SilentSaverFactory third("c", true);
        static SilentSaverFactory fourth("d", true);
        QCOMPARE(AbstractSaverFactory::create("unknown")->key(), std::string("d"));
        const std::unique_ptr<AbstractSaver> made(AbstractSaverFactory::create_unmanaged());
        QCOMPARE(made->key(), std::string("d"));
    }

    void sheets()
    {
        QVERIFY(!QExportAbstractOptionSheet::create_unmanaged("x", nullptr, QString()));
        SilentSaver saver("x");
        QVERIFY(saver.build_sheets(nullptr).isEmpty());

        // Without a sheet of its own the format gets the attribute sheet, unless it takes no attributes.
        static SheetFactory attributes("QExportAttributeSheetImpl");
        SilentSaver plain("x");
        plain.m_supportsAttributes = false;
        QVERIFY(plain.build_sheets(nullptr).isEmpty());
        const QList<QExportAbstractOptionSheet*> made = saver.build_sheets(nullptr);
        QCOMPARE(made.size(), 1);
        QCOMPARE(made.first()->key(), std::string("QExportAttributeSheetImpl"));
        QCOMPARE(static_cast<PlainSheet*>(made.first())->initialized, 1);
        QCOMPARE(saver.build_sheets(nullptr), made);
        delete made.first();

        // A page that cannot be made, or is none of options, is not a page, whatever its factory throws.
        struct OtherSheet : QExportAbstractSheet
        {
            OtherSheet()
                : QExportAbstractSheet(nullptr)
            {
            }
        };
        static TestSheetFactory broken("broken", []() -> QExportAbstractSheet* { throw 7; });
        static TestSheetFactory other("other", [] { return new OtherSheet; });
        QVERIFY(!QExportAbstractOptionSheet::create_unmanaged("broken", nullptr, QString()));
        QVERIFY(!QExportAbstractOptionSheet::create("other", nullptr, QString()));

        static SheetFactory own("y");
        const auto sheet = QExportAbstractOptionSheet::create("y", nullptr, QString());
        QCOMPARE(sheet->key(), std::string("y"));
        QVERIFY(!sheet->getSheetHandler());
        QCOMPARE(thrown([] { SheetFactory("y"); }),
                 QByteArray("Two products with name 'y' are attempting to register with abstract factory "
                            "'QExportAbstractSheetFactory'. Please contact Quillmere with a bug-report."));
    }

    void fileNames()
    {
        const auto names = [](const char* path, const char* extension) {
            SilentSaver saver("x");
            saver.m_currentDefaultFileFormatExt = QString::fromLatin1(extension);
            QStringList lists[4];
            saver.generateFileNames(QString::fromLatin1(path), {}, {}, {}, lists[0], lists[1], lists[2], lists[3]);
            return (lists[0] + lists[1] + lists[2] + lists[3]).join(QLatin1Char('|'));
        };
        QCOMPARE(names("/a/out", "dat"), QStringLiteral("/a/out.dat"));
        QCOMPARE(names("/a/out.txt", "dat"), QStringLiteral("/a/out.txt"));
        QCOMPARE(names("/a/out", ""), QStringLiteral("/a/out"));
    }
};

QTEST_GUILESS_MAIN(RegistriesTest)
#include "tst_registries.moc"
