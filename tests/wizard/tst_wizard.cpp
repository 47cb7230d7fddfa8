// SPDX-License-Identifier: MIT
// The wizard with real savers and pages: sequence of pages, save run, questions answered in the real boxes.
#include "core/saver/QExportAbstractOptionSheet.h"
#include "host/ui/WizardProgress.h"
#include "tests/core/TestFactories.h"
#include "tests/support/FileContent.h"
#include "tests/wizard/WizardUnderTest.h"

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
    QByteArray throwsIn; ///< the operation of the saver that throws
    bool throwsNumber = false;

    void reach(const char* operation) const
    {
        if (throwsIn != operation)
            return;
        if (throwsNumber)
            throw 7;
        throw std::runtime_error("out of <memory>");
    }

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
    bool newFilenameSystem() override
    {
        plan.reach("newFilenameSystem");
        return plan.selfNaming;
    }
    bool shouldGoBack() override { return plan.goBack; }
    void set_selection(const QString& path, const std::vector<int>&, const std::vector<std::string>&,
                       const std::vector<std::string>&) override
    {
        plan.reach("set_selection");
        plan.path = path;
    }
    void generateFileNames(const QString&, const std::vector<int>&, const std::vector<std::string>&,
                           const std::vector<std::string>&, QStringList& geoAttribute, QStringList& geometry,
                           QStringList& attribute, QStringList& other) override
    {
        plan.reach("generateFileNames");
        geoAttribute = plan.geoAttribute;
        geometry = plan.geometry;
        attribute = plan.attribute;
        other = plan.other;
    }
    using AbstractSaver::generateFileNames;
    bool save(const std::vector<QString>& accepted, kpBase::AbstractProgress* progress) override
    {
        plan.reach("save");
        ++plan.saves;
        plan.accepted = accepted;
        if (plan.during)
            plan.during(*progress);
        if (!plan.succeed)
            static_cast<QExportWizard*>(get_wizard())
                ->setErrorMessage(QStringLiteral("<a>.dat"), QStringLiteral("full disk"));
        return plan.succeed;
    }
    bool new_save(const std::string& path, kpBase::AbstractProgress*) override
    {
        plan.reach("new_save");
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
    void deactivate() override { ++left; }
    QString optionSummary() const override { return {}; }

    int left = 0;
};

class TestWizard : public WizardUnderTest
{
public:
    using WizardUnderTest::insertFileFormatDependentSheet;

    std::vector<std::string> selectedAttributeNames() override
    {
        plan.reach("selectedAttributeNames");
        return WizardUnderTest::selectedAttributeNames();
    }

    /// Takes the page of a format in, as Next does.
    void useFormat(int format)
    {
        child<QComboBox>(*this, "fileFormatComboBox")->setCurrentIndex(format);
        insertFileFormatDependentSheet();
    }
    /// The report of a save run.
    QString save(const QString& path, bool accepted = false)
    {
        slotSaveClicked(path, accepted);
        return child<QTextEdit>(*this, "reportView")->toPlainText();
    }
};

/// Answers message boxes as they come, one letter each: yes, no, all. Counts them.
class Answers : public QObject
{
public:
    explicit Answers(QString answers)
        : m_answers(std::move(answers))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            texts.append(box->text());
            buttons = box->standardButtons();
            const QChar answer = m_answers.isEmpty() ? QLatin1Char('n') : m_answers.at(0);
            m_answers.remove(0, 1);
            const auto other = answer == QLatin1Char('y') ? QMessageBox::Yes : QMessageBox::No;
            QTest::mouseClick(box->button(answer == QLatin1Char('a') ? QMessageBox::YesToAll : other), Qt::LeftButton);
        });
        m_timer.start(10);
    }

    QStringList texts;
    QMessageBox::StandardButtons buttons;

private:
    QString m_answers;
    QTimer m_timer;
};

} // namespace

class WizardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const auto saver = [this](const char* key, const char* name, const char* display) {
            const auto make = [=] { return new TestSaver(key, name, display); };
            m_savers.push_back(std::make_unique<TestSaverFactory>(key, make));
        };
        saver("old", "KLX 1.6", "Old");
        saver("plain", "Plain", "Plain");
        saver("hidden", "Hidden", "");
        saver("opt", "Options", "With options");
        saver("new", "KLX 2.1", "New");
    }

    void init()
    {
        plan = Plan();
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void saversInOrder()
    {
        TestWizard wizard;
        wizard.startup();
        QStringList keys;
        for (const auto& saver : wizard.savers())
            keys.append(QString::fromStdString(saver->key()));
        QCOMPARE(keys.join(QLatin1Char(' ')), QStringLiteral("new old plain opt"));
        QVERIFY(wizard.nextButton()->isEnabled() && !wizard.backButton()->isEnabled());
        QCOMPARE(child<QStackedWidget>(wizard, "pages")->currentWidget()->windowTitle(),
                 QStringLiteral("File Export: Format and Data Selection"));
    }

    void sheetsFollowTheFormat()
    {
        const auto wizard = wizardAtFormat(3);
        kpBase::AbstractSheet* first = wizard->current_sheet();
        kpBase::AbstractSheet* option = first->next();
        QVERIFY(dynamic_cast<OptionSheet*>(option));
        QCOMPARE(dynamic_cast<OptionSheet*>(option)->key(), std::string("opt"));
        wizard->activate_next_sheet();
        QCOMPARE(wizard->current_sheet(), option);
        click(*wizard, "backButton");
        QCOMPARE(wizard->current_sheet(), first);
        // Another format takes the sheet out; the same page comes back with its format.
        wizard->useFormat(2);
        QVERIFY(first->next() != option && !option->next());
        wizard->useFormat(3);
        QCOMPARE(first->next(), option);
        QCOMPARE(option->previous(), first);
    }

    void presetStartsBehindTheSelection()
    {
        TestWizard wizard;
        wizard.setFormatAndSelectedGeo("opt", {4, 5});
        wizard.startup();
        QVERIFY(dynamic_cast<OptionSheet*>(wizard.current_sheet()));
        QCOMPARE(wizard.selectedGeoIds(), (std::vector<int>{4, 5}));
        QVERIFY(!wizard.backButton()->isEnabled());
    }

    void questions_data()
    {
        QTest::addColumn<QString>("files"); // "n": new, "e": there is an earlier one
        QTest::addColumn<bool>("alreadyAccepted");
        QTest::addColumn<QString>("answers"); // to as many questions
        QTest::addColumn<int>("accepted");
        const auto row = [](const char* name, const char* files, bool already, const char* answers, int accepted) {
            QTest::newRow(name) << QString::fromLatin1(files) << already << QString::fromLatin1(answers) << accepted;
        };
        row("one, new", "n", false, "", 1);
        row("one, accepted in the file dialog", "e", true, "", 1);
        row("one, yes", "e", false, "y", 1);
        row("one, no", "e", false, "n", 0);
        row("five, yes to all", "eeeee", false, "yna", 4);
        row("three, one by one", "eee", false, "nyn", 1);
        row("three, first new", "nee", true, "yy", 3);
    }

    void questions()
    {
        QFETCH(QString, files);
        QFETCH(bool, alreadyAccepted);
        QFETCH(QString, answers);
        QFETCH(int, accepted);
        for (const QChar kind : qAsConst(files)) {
            const QByteArray name = QByteArray::number(plan.geometry.size()) + "&.dat";
            plan.geometry.append(file(name.constData(), kind == QLatin1Char('n') ? nullptr : "earlier"));
        }
        const auto wizard = wizardAtFormat(2);
        const Answers box(answers);
        const QString report = wizard->save(file("x.dat"), alreadyAccepted);
        QCOMPARE(box.texts.size(), answers.size());
        if (!answers.isEmpty()) {
            QVERIFY2(box.texts.first().endsWith(QStringLiteral("&.dat already exists.\nDo you want to replace it?")),
                     qPrintable(box.texts.first()));
            QCOMPARE(box.buttons.testFlag(QMessageBox::YesToAll), files.size() > 1);
        }
        QCOMPARE(plan.saves, 1);
        QCOMPARE(static_cast<int>(plan.accepted.size()), accepted);
        QCOMPARE(plan.path, QDir::toNativeSeparators(file("x.dat")));
        QVERIFY(report.contains(QStringLiteral("Data has been exported successfully!")));
        QCOMPARE(report.count(QStringLiteral("user did not accept overwriting")), files.size() - accepted);
        QVERIFY(report.contains(QStringLiteral("0&.dat")));
        QVERIFY(!wizard->nextButton()->isVisibleTo(wizard.get()));
        QCOMPARE(wizard->closeButton()->text(), QStringLiteral("Close"));
    }

    void uncheckedFiles()
    {
        plan.attribute = QStringList{file("a.dat", "earlier"), file("new.dat")};
        plan.other = QStringList{file("missing/x.dat")};
        plan.geoAttribute = QStringList{file("missing/y.dat")};
        const QString report = wizardAtFormat(2)->save(file("x.dat"));
        QVERIFY(plan.accepted.empty() && QFile::exists(file("new.dat")));
        QVERIFY(report.contains(QStringLiteral("accepted,overwritten")));
        // y.dat is listed as geometry and as attributes, x.dat as another file.
        QCOMPARE(report.count(QStringLiteral("no create permission")), 3);
    }

    void selfNaming()
    {
        plan.selfNaming = true;
        const auto wizard = wizardAtFormat(3);
        const QString report = wizard->save(QStringLiteral("/o/x.dat"));
        QCOMPARE(report.count(QStringLiteral("accepted")), 2);
        QVERIFY(report.contains(QStringLiteral("/o/x.dat.2")));

        plan.succeed = false;
        plan.goBack = true;
        wizard->save(QStringLiteral("/o/x.dat"));
        QVERIFY(dynamic_cast<OptionSheet*>(wizard->current_sheet()));
        QVERIFY(wizard->nextButton()->isVisibleTo(wizard.get()));
        QCOMPARE(wizard->nextButton()->text(), QStringLiteral("Next"));
    }

    void throwingSaver_data()
    {
        QTest::addColumn<bool>("selfNaming");
        for (const char* operation :
             {"newFilenameSystem", "selectedAttributeNames", "set_selection", "generateFileNames", "save"})
            QTest::newRow(operation) << false;
        QTest::newRow("new_save") << true;
    }

    void throwingSaver()
    {
        QFETCH(bool, selfNaming);
        const auto wizard = wizardAtFormat(2);
        wizard->show();
        plan.geometry = QStringList{file("a.dat")};
        plan.selfNaming = selfNaming;
        plan.goBack = true;
        plan.throwsIn = QTest::currentDataTag();
        QVERIFY(wizard->save(file("a.dat"), true).contains(QStringLiteral("successfully! \nout of <memory>")));
        plan.throwsNumber = true;
        const QString report = wizard->save(file("a.dat"), true);
        // Each run tells its own cause, and the dialog can be closed.
        QVERIFY(report.contains(QStringLiteral("failed without saying why")));
        QVERIFY(!report.contains(QStringLiteral("memory")));
        QCOMPARE(wizard->closeButton()->text(), QStringLiteral("Close"));
        QVERIFY(!wizard->get_progress()->isRunning());
        click(*wizard, "closeButton");
        QVERIFY(!wizard->isVisible());
    }

    void leavingTellsThePage()
    {
        const auto wizard = wizardAtFormat(3);
        wizard->activate_next_sheet();
        const auto* page = dynamic_cast<OptionSheet*>(wizard->current_sheet());
        int left = page->left;
        for (const bool escape : {true, false}) {
            wizard->show();
            if (escape)
                QTest::keyClick(wizard.get(), Qt::Key_Escape);
            else
                click(*wizard, "closeButton");
            QVERIFY(!wizard->isVisible());
            QCOMPARE(page->left, ++left);
        }
    }

    void beforeStartup()
    {
        TestWizard wizard;
        wizard.setErrorMessage(QStringLiteral("a"));
        wizard.setErrorMessage(QStringLiteral("a"), QStringLiteral("b"));
        wizard.setWarnings(QStringLiteral("a"));
        wizard.clearErrorList();
        wizard.slotSaveClicked(file("a.dat"));
        wizard.onFileSelectionRequired();
        wizard.showInfoSheet();
        wizard.showInfoSheetNoSuccess(true);
        QVERIFY(wizard.selectedGeoNames().empty() && wizard.selectedAttributeNames().empty());
        wizard.startup();
        // Nor is there a saver before a format has been chosen.
        wizard.showInfoSheet();
        QVERIFY(wizard.save(file("a.dat")).contains(QStringLiteral("No saver is registered")));
    }

    void failureAndCancel()
    {
        const QString path = file("a.dat");
        plan.geometry = QStringList{path};
        plan.succeed = false;
        const auto wizard = wizardAtFormat(2);
        const QString failed = wizard->save(path);
        QVERIFY(failed.contains(QStringLiteral("Data has not been exported successfully!")));
        QVERIFY(failed.contains(QStringLiteral("Failed to export <a>.dat\nfull disk")));

        // The user presses Close during a long save.
        plan.succeed = true;
        wizard->show();
        bool noticed = false;
        plan.during = [&](kpBase::AbstractProgress& progress) {
            QTimer::singleShot(0, wizard.get(), [&wizard] { click(*wizard, "closeButton"); });
            QElapsedTimer time;
            time.start();
            for (int percent = 0; time.elapsed() < 20000 && !noticed; ++percent) {
                progress.progressChanged(percent % 100);
                noticed = progress.isCancelled();
            }
        };
        QVERIFY(wizard->save(path, true).contains(QStringLiteral("cancelled by the user")));
        QVERIFY(noticed && wizard->isVisible());
        // A later run is not cancelled by the earlier one.
        plan.during = nullptr;
        const QString later = wizard->save(path, true);
        QVERIFY(later.contains(QStringLiteral("successfully!")) && !later.contains(QStringLiteral("not been")));
    }

private:
    QString file(const char* name, const char* content = nullptr)
    {
        const QString path = m_folder->filePath(QString::fromLatin1(name));
        return content ? writeFile(path, content) : path;
    }

    std::unique_ptr<TestWizard> wizardAtFormat(int format)
    {
        auto wizard = std::make_unique<TestWizard>();
        wizard->startup();
        wizard->useFormat(format);
        return wizard;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::vector<std::unique_ptr<TestSaverFactory>> m_savers;
    TestSheetFactory m_objects{"QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }};
    TestSheetFactory m_options{"opt", [] { return new OptionSheet; }};
};

QTEST_MAIN(WizardTest)
#include "tst_wizard.moc"
