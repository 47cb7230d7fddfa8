// SPDX-License-Identifier: MIT
// The wizard with real savers and pages: sequence of pages, save run, questions answered in the real boxes.
#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/ui/WizardProgress.h"
#include "tests/app/FileContent.h"
#include "tests/core/TestFactories.h"
#include "tests/wizard/OneObjectSheet.h"
#include "wizard/QExportWizard.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

using namespace kpBaseExport;

namespace
{

/// What the tests' savers write and how.
struct Plan
{
    QStringList geoAttribute;
    QStringList geometry;
    QStringList attribute;
    QStringList other;
    bool selfNaming = false;
    bool succeed = true;
    bool goBack = false;
    std::function<void(kpBase::AbstractProgress&)> during;

    QString path;
    std::vector<QString> accepted;
    int saves = 0;
};

Plan plan;

class TestSaver : public AbstractSaver
{
public:
    TestSaver(const std::string& key, const char* formatName, const char* display)
        : AbstractSaver(key)
    {
        m_currentFileFormatName = QString::fromLatin1(formatName);
        m_formatDisplay = QString::fromLatin1(display);
        m_supportsAttributes = false;
    }
    bool newFilenameSystem() override { return plan.selfNaming; }
    bool shouldGoBack() override { return plan.goBack; }
    void set_selection(const QString& path, const std::vector<int>&, const std::vector<std::string>&,
                       const std::vector<std::string>&) override
    {
        plan.path = path;
    }
    void generateFileNames(const QString&, const std::vector<int>&, const std::vector<std::string>&,
                           const std::vector<std::string>&, QStringList& geoAttribute, QStringList& geometry,
                           QStringList& attribute, QStringList& other) override
    {
        geoAttribute = plan.geoAttribute;
        geometry = plan.geometry;
        attribute = plan.attribute;
        other = plan.other;
    }
    using AbstractSaver::generateFileNames;
    bool save(const std::vector<QString>& accepted, kpBase::AbstractProgress* progress) override
    {
        ++plan.saves;
        plan.accepted = accepted;
        if (plan.during)
            plan.during(*progress);
        if (!plan.succeed)
            static_cast<QExportWizard*>(get_wizard())->setErrorMessage(QStringLiteral("<a>.dat"), QStringLiteral("full disk"));
        return plan.succeed;
    }
    bool new_save(const std::string& path, kpBase::AbstractProgress*) override
    {
        m_savedFilenames = {path + ".1", path + ".2"};
        return plan.succeed;
    }
};

class OptionSheet : public QWidget, public QExportAbstractOptionSheet
{
public:
    OptionSheet()
        : QExportAbstractOptionSheet(nullptr)
    {
    }
    using QExportAbstractOptionSheet::initialize;
    void initialize(const QString&) override { m_pageWidget = this; }
    QString optionSummary() const override { return {}; }
};

class TestWizard : public QExportWizard
{
public:
    void availableAttributes(QVector<kpBase::UnitRegistry::AttributeInfo>&, bool, bool) override {}
    using QExportWizard::insertFileFormatDependentSheet;

    QString report() { return findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText(); }
    QString page() { return findChild<QStackedWidget*>(QStringLiteral("pages"))->currentWidget()->windowTitle(); }
};

/// Answers message boxes as they come, in the order given, and counts them.
class Answers : public QObject
{
public:
    explicit Answers(QList<QMessageBox::StandardButton> answers)
        : m_answers(std::move(answers))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            texts.append(box->text());
            buttons.append(box->standardButtons());
            const auto answer = m_answers.isEmpty() ? QMessageBox::No : m_answers.takeFirst();
            QTest::mouseClick(box->button(answer), Qt::LeftButton);
        });
        m_timer.start(10);
    }

    QStringList texts;
    QList<QMessageBox::StandardButtons> buttons;

private:
    QList<QMessageBox::StandardButton> m_answers;
    QTimer m_timer;
};

} // namespace

class WizardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void saversInOrder();
    void sheetsFollowTheFormat();
    void presetStartsBehindTheSelection();
    void questions_data();
    void questions();
    void uncheckedFiles();
    void selfNaming();
    void failureAndCancel();

private:
    QString file(const char* name, const char* content = nullptr);
    std::unique_ptr<TestWizard> wizardAtFormat(int format);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::vector<std::unique_ptr<TestSaverFactory>> m_savers;
    std::vector<std::unique_ptr<TestSheetFactory>> m_sheets;
};

void WizardTest::initTestCase()
{
    const auto saver = [this](const char* key, const char* name, const char* display) {
        m_savers.push_back(std::make_unique<TestSaverFactory>(key, [=] { return new TestSaver(key, name, display); }));
    };
    saver("old", "KLX 1.6", "Old");
    saver("plain", "Plain", "Plain");
    saver("hidden", "Hidden", "");
    saver("opt", "Options", "With options");
    saver("new", "KLX 2.1", "New");
    m_sheets.push_back(std::make_unique<TestSheetFactory>("QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }));
    m_sheets.push_back(std::make_unique<TestSheetFactory>("opt", [] { return new OptionSheet; }));
}

void WizardTest::init()
{
    plan = Plan();
    m_folder = std::make_unique<QTemporaryDir>();
}

QString WizardTest::file(const char* name, const char* content)
{
    const QString path = m_folder->filePath(QString::fromLatin1(name));
    return content ? writeFile(path, content) : path;
}

std::unique_ptr<TestWizard> WizardTest::wizardAtFormat(int format)
{
    auto wizard = std::make_unique<TestWizard>();
    wizard->startup();
    wizard->findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"))->setCurrentIndex(format);
    wizard->insertFileFormatDependentSheet();
    return wizard;
}

void WizardTest::saversInOrder()
{
    TestWizard wizard;
    wizard.startup();
    QStringList keys;
    for (const auto& saver : wizard.savers())
        keys.append(QString::fromStdString(saver->key()));
    QCOMPARE(keys.join(QLatin1Char(' ')), QStringLiteral("new old plain opt"));
    QVERIFY(wizard.nextButton()->isEnabled());
    QVERIFY(!wizard.backButton()->isEnabled());
    QCOMPARE(wizard.page(), QStringLiteral("File Export: Format and Data Selection"));
}

void WizardTest::sheetsFollowTheFormat()
{
    const auto wizard = wizardAtFormat(3);
    kpBase::AbstractSheet* first = wizard->current_sheet();
    kpBase::AbstractSheet* option = first->next();
    auto* page = dynamic_cast<OptionSheet*>(option);
    QVERIFY(page);
    QCOMPARE(page->key(), std::string("opt"));
    wizard->activate_next_sheet();
    QCOMPARE(wizard->current_sheet(), option);
    QTest::mouseClick(wizard->backButton(), Qt::LeftButton);
    QCOMPARE(wizard->current_sheet(), first);
    // Another format takes the sheet out; the same page comes back with its format.
    auto* formats = wizard->findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"));
    formats->setCurrentIndex(2);
    wizard->insertFileFormatDependentSheet();
    QVERIFY(first->next() != option);
    QVERIFY(!option->next());
    formats->setCurrentIndex(3);
    wizard->insertFileFormatDependentSheet();
    QCOMPARE(first->next(), option);
    QCOMPARE(option->previous(), first);
}

void WizardTest::presetStartsBehindTheSelection()
{
    TestWizard wizard;
    wizard.setFormatAndSelectedGeo("opt", {4, 5});
    wizard.startup();
    QVERIFY(dynamic_cast<OptionSheet*>(wizard.current_sheet()));
    QCOMPARE(wizard.selectedGeoIds(), (std::vector<int>{4, 5}));
    QVERIFY(!wizard.backButton()->isEnabled());
}

void WizardTest::questions_data()
{
    QTest::addColumn<int>("files");
    QTest::addColumn<bool>("firstIsNew");
    QTest::addColumn<bool>("alreadyAccepted");
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("accepted");
    const int yes = QMessageBox::Yes;
    const int no = QMessageBox::No;
    const int all = QMessageBox::YesToAll;
    QTest::newRow("one, new") << 1 << true << false << QList<int>{} << 0 << 1;
    QTest::newRow("one, accepted in the file dialog") << 1 << false << true << QList<int>{} << 0 << 1;
    QTest::newRow("one, yes") << 1 << false << false << QList<int>{yes} << 1 << 1;
    QTest::newRow("one, no") << 1 << false << false << QList<int>{no} << 1 << 0;
    QTest::newRow("five, yes to all") << 5 << false << false << QList<int>{yes, no, all} << 3 << 4;
    QTest::newRow("three, one by one") << 3 << false << false << QList<int>{no, yes, no} << 3 << 1;
    QTest::newRow("three, first new") << 3 << true << true << QList<int>{yes, yes} << 2 << 3;
}

void WizardTest::questions()
{
    QFETCH(int, files);
    QFETCH(bool, firstIsNew);
    QFETCH(bool, alreadyAccepted);
    QFETCH(QList<int>, answers);
    QFETCH(int, asked);
    QFETCH(int, accepted);
    for (int index = 0; index < files; ++index) {
        const QByteArray name = QByteArray::number(index) + "&.dat";
        plan.geometry.append(file(name.constData(), index == 0 && firstIsNew ? nullptr : "earlier"));
    }
    const auto wizard = wizardAtFormat(2);
    QList<QMessageBox::StandardButton> buttons;
    for (const int answer : qAsConst(answers))
        buttons.append(static_cast<QMessageBox::StandardButton>(answer));
    const Answers box(buttons);
    wizard->slotSaveClicked(m_folder->filePath(QStringLiteral("x.dat")), alreadyAccepted);
    QCOMPARE(box.texts.size(), asked);
    if (asked > 0) {
        QVERIFY2(box.texts.first().endsWith(QStringLiteral("&.dat already exists.\nDo you want to replace it?")),
                 qPrintable(box.texts.first()));
        QCOMPARE(box.buttons.first().testFlag(QMessageBox::YesToAll), files > 1);
    }
    QCOMPARE(plan.saves, 1);
    QCOMPARE(static_cast<int>(plan.accepted.size()), accepted);
    QCOMPARE(plan.path, QDir::toNativeSeparators(m_folder->filePath(QStringLiteral("x.dat"))));
    const QString report = wizard->report();
    QVERIFY(report.contains(QStringLiteral("Data has been exported successfully!")));
    QCOMPARE(report.count(QStringLiteral("user did not accept overwriting")), files - accepted);
    QVERIFY(report.contains(QStringLiteral("0&.dat")));
    QVERIFY(!wizard->nextButton()->isVisibleTo(wizard.get()));
    QCOMPARE(wizard->closeButton()->text(), QStringLiteral("Close"));
}

void WizardTest::uncheckedFiles()
{
    plan.attribute = QStringList{file("a.dat", "earlier"), file("new.dat")};
    plan.other = QStringList{m_folder->filePath(QStringLiteral("missing/x.dat"))};
    plan.geoAttribute = QStringList{m_folder->filePath(QStringLiteral("missing/y.dat"))};
    const auto wizard = wizardAtFormat(2);
    wizard->slotSaveClicked(m_folder->filePath(QStringLiteral("x.dat")));
    QVERIFY(plan.accepted.empty());
    QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("new.dat"))));
    const QString report = wizard->report();
    QVERIFY(report.contains(QStringLiteral("accepted,overwritten")));
    // y.dat is listed as geometry and as attributes, x.dat as another file.
    QCOMPARE(report.count(QStringLiteral("no create permission")), 3);
}

void WizardTest::selfNaming()
{
    plan.selfNaming = true;
    auto wizard = wizardAtFormat(3);
    wizard->slotSaveClicked(QStringLiteral("/o/x.dat"));
    QCOMPARE(wizard->report().count(QStringLiteral("accepted")), 2);
    QVERIFY(wizard->report().contains(QStringLiteral("/o/x.dat.2")));

    plan.succeed = false;
    plan.goBack = true;
    wizard->slotSaveClicked(QStringLiteral("/o/x.dat"));
    QVERIFY(dynamic_cast<OptionSheet*>(wizard->current_sheet()));
    QVERIFY(wizard->nextButton()->isVisibleTo(wizard.get()));
    QCOMPARE(wizard->nextButton()->text(), QStringLiteral("Next"));
}

void WizardTest::failureAndCancel()
{
    plan.geometry = QStringList{file("a.dat")};
    plan.succeed = false;
    auto wizard = wizardAtFormat(2);
    wizard->slotSaveClicked(m_folder->filePath(QStringLiteral("a.dat")));
    QVERIFY(wizard->report().contains(QStringLiteral("Data has not been exported successfully!")));
    QVERIFY(wizard->report().contains(QStringLiteral("Failed to export <a>.dat\nfull disk")));

    plan.during = [](kpBase::AbstractProgress&) { throw std::runtime_error("out of <memory>"); };
    wizard->slotSaveClicked(m_folder->filePath(QStringLiteral("a.dat")), true);
    QVERIFY(wizard->report().contains(QStringLiteral("out of <memory>")));

    // The user presses Close during a long save.
    plan.succeed = true;
    wizard->show();
    bool noticed = false;
    plan.during = [&](kpBase::AbstractProgress& progress) {
        QTimer::singleShot(0, wizard.get(), [&wizard] { QTest::mouseClick(wizard->closeButton(), Qt::LeftButton); });
        QElapsedTimer time;
        time.start();
        for (int percent = 0; time.elapsed() < 20000 && !noticed; ++percent) {
            progress.progressChanged(percent % 100);
            noticed = progress.isCancelled();
        }
    };
    wizard->slotSaveClicked(m_folder->filePath(QStringLiteral("a.dat")), true);
    QVERIFY(noticed);
    QVERIFY(wizard->isVisible());
    QVERIFY(wizard->report().contains(QStringLiteral("cancelled by the user")));
    // A later run is not cancelled by the earlier one.
    plan.during = nullptr;
    wizard->slotSaveClicked(m_folder->filePath(QStringLiteral("a.dat")), true);
    QVERIFY(wizard->report().contains(QStringLiteral("successfully!")));
    QVERIFY(!wizard->report().contains(QStringLiteral("not been")));
}

QTEST_MAIN(WizardTest)
#include "tst_wizard.moc"
