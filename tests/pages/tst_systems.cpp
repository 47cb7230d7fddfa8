// SPDX-License-Identifier: MIT
// Finding a coordinate system by name, code or place, and what the field of a page says of it.
#include "pages/CrsField.h"
#include "pages/SystemDialog.h"
#include "tests/support/Animations.h"
#include "tests/support/TestObjects.h"
#include "tests/support/TestSettings.h"
#include "tests/support/TextRows.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

using namespace kpFormats;

class SystemsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestSettings(m_folder.path()); }
    void init() { QSettings().clear(); }
    void cleanup() { letAnimationsEnd(); }
    void areas();
    void found_data();
    void found();
    void nothingFound();
    void wherePositionsLie();
    void recentFirst();
    void fieldOfAPage();
    void placeholders();

private:
    static SamplePosition pilbara() { return {wktOf(QStringLiteral("EPSG:28350")), 505000.0, 7500000.0}; }
    static QStringList codes(const SystemDialog& dialog)
    {
        const auto* list = dialog.findChild<QTreeWidget*>(QStringLiteral("systemList"));
        QStringList codes;
        for (int row = 0; row < list->topLevelItemCount(); ++row)
            codes.append(list->topLevelItem(row)->text(1));
        return codes;
    }
    static void search(SystemDialog& dialog, const QString& text)
    {
        dialog.findChild<QLineEdit*>(QStringLiteral("searchSystems"))->setText(text);
    }

    QTemporaryDir m_folder;
};

void SystemsTest::areas()
{
    const auto& systems = knownSystems();
    const auto named = [&systems](const char* code) {
        return *std::find_if(systems.begin(), systems.end(),
                             [code](const KnownSystem& one) { return one.code == QLatin1String(code); });
    };
    QVERIFY(named("EPSG:28350").covers(117.0, -22.6) && !named("EPSG:28350").covers(147.0, -22.6));
    // The area of New Zealand's system lies on both sides of 180 degrees.
    QVERIFY(named("EPSG:4167").covers(179.0, -35.0) && named("EPSG:4167").covers(-175.0, -35.0));
    QVERIFY(!named("EPSG:4167").covers(0.0, -35.0));
    QVERIFY(named("EPSG:4326").degrees && !named("EPSG:28350").degrees);
    // Those that are no longer in use are not offered.
    QVERIFY(std::none_of(systems.begin(), systems.end(),
                         [](const KnownSystem& one) { return one.code == QLatin1String("EPSG:3785"); }));
}

void SystemsTest::found_data()
{
    textRows({"words", "code"}, {{"gda94 mga zone 50", "EPSG:28350"},
                                 {"28350", "EPSG:28350"},
                                 {"utm 12N nad83(2011)", "EPSG:6341"},
                                 {"RD New Netherlands onshore", "EPSG:28992"}});
}

void SystemsTest::found()
{
    QFETCH(QString, words);
    QFETCH(QString, code);
    SystemDialog dialog(std::nullopt, nullptr);
    search(dialog, words);
    QVERIFY2(codes(dialog).contains(code), qPrintable(codes(dialog).join(QLatin1Char(' '))));
    QCOMPARE(dialog.chosen(), codes(dialog).front());
}

void SystemsTest::nothingFound()
{
    SystemDialog dialog(std::nullopt, nullptr);
    // All of them are too many to show.
    QCOMPARE(codes(dialog).size(), 200);
    QVERIFY(dialog.findChild<QLabel*>(QStringLiteral("moreSystems"))->text().contains(QLatin1String("more: write")));
    const auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    QVERIFY(ok->isEnabled());
    search(dialog, QStringLiteral("no such place"));
    QVERIFY(codes(dialog).isEmpty() && dialog.chosen().isEmpty() && !ok->isEnabled());
}

void SystemsTest::wherePositionsLie()
{
    SystemDialog dialog(pilbara(), nullptr);
    search(dialog, QStringLiteral("MGA"));
    QVERIFY2(dialog.chosen().startsWith(QLatin1String("EPSG:")), qPrintable(dialog.chosen()));
    const auto area = [&dialog] { return dialog.findChild<QLabel*>(QStringLiteral("systemArea"))->text(); };
    QVERIFY2(!area().contains(QLatin1String("outside")), qPrintable(area()));
    search(dialog, QStringLiteral("28355"));
    QVERIFY2(area().contains(QLatin1String("The objects lie outside the area in which it is used.")),
             qPrintable(area()));
    QVERIFY2(area().contains(QLatin1String("The first position, 505,000.00, 7,500,000.00 becomes ")),
             qPrintable(area()));
}

void SystemsTest::recentFirst()
{
    {
        SystemDialog dialog(pilbara(), nullptr);
        search(dialog, QStringLiteral("28992"));
        dialog.accept();
    }
    SystemDialog dialog(pilbara(), nullptr);
    QCOMPARE(codes(dialog).front(), QStringLiteral("EPSG:28992"));
}

/// The button, the dialog by keys, and what the field says then.
void SystemsTest::fieldOfAPage()
{
    CrsField field(true, nullptr);
    const ModelObject object = objectOf(ObjectType::Polylines, QStringLiteral("L"),
                                        {{505000, 7500000, 0}, {505001, 7500000, 0}}, "EPSG:28350");
    field.setObjects({&object});
    field.show();
    QTimer::singleShot(0, &field, [] {
        auto* dialog = qobject_cast<SystemDialog*>(QApplication::activeModalWidget());
        auto* words = dialog->findChild<QLineEdit*>(QStringLiteral("searchSystems"));
        QTest::keyClicks(words, QStringLiteral("4283"));
        QTest::keyClick(words, Qt::Key_Return);
    });
    QTest::mouseClick(field.findChild<QPushButton*>(QStringLiteral("findSystem")), Qt::LeftButton);
    QCOMPARE(field.edit()->text(), QStringLiteral("EPSG:4283"));
    const auto* meaning = field.findChild<QLabel*>(QStringLiteral("crsMeaning"));
    // By gdaltransform.
    QCOMPARE(meaning->text(),
             QStringLiteral("GDA94 (EPSG:4283)\n505,000.00, 7,500,000.00 becomes 117.04865, -22.60685"));
    field.edit()->setText(QStringLiteral("nonsense"));
    QVERIFY(meaning->text().startsWith(QStringLiteral("There is no such coordinate system.")));
}

void SystemsTest::placeholders()
{
    const ModelObject one = objectOf(ObjectType::Polylines, QStringLiteral("L"), {{0, 0, 0}, {1, 0, 0}}, "EPSG:28350");
    const ModelObject other = objectOf(ObjectType::Polylines, QStringLiteral("L"), {{0, 0, 0}, {1, 0, 0}}, "EPSG:4326");
    const ModelObject without = objectOf(ObjectType::Polylines, QStringLiteral("L"), {{0, 0, 0}, {1, 0, 0}}, "");
    CrsField output(true, nullptr);
    output.setObjects({&one, &one});
    QCOMPARE(output.edit()->placeholderText(), QStringLiteral("as the objects: GDA94 / MGA zone 50 (EPSG:28350)"));
    output.setObjects({&one, &other});
    QCOMPARE(output.edit()->placeholderText(), QStringLiteral("as the objects, in 2 systems"));
    CrsField missing(false, nullptr);
    missing.setObjects({&one, &without, &without});
    QCOMPARE(missing.edit()->placeholderText(), QStringLiteral("2 objects have none"));
}

QTEST_MAIN(SystemsTest)
#include "tst_systems.moc"
