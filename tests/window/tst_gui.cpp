// SPDX-License-Identifier: MIT
// The program's window and its export, driven as a user would: keys, mouse, the real dialogs.
#include "pages/ObjectSelectionSheet.h"
#include "tests/core/TestFactories.h"
#include "tests/support/BoxAnswer.h"
#include "tests/support/FileContent.h"
#include "tests/support/TestSettings.h"
#include "tests/wizard/FileDialog.h"
#include "window/ExportWizard.h"
#include "window/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>
#include <QtTest>

#include <functional>

using namespace kpFormats;
using namespace refhost;

namespace
{

/// Does each step when a modal window of its kind is up; a step that returns false is tried again.
class Script : public QObject
{
public:
    using Step = std::function<bool(QWidget&)>;

    explicit Script(std::vector<Step> steps)
        : m_steps(std::move(steps))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            QWidget* window = QApplication::activeModalWidget();
            if (m_busy || !window || m_next >= m_steps.size())
                return;
            m_busy = true;
            if (m_steps[m_next](*window))
                ++m_next;
            m_busy = false;
        });
        m_timer.start(20);
        // A walk that gets lost must end.
        connect(&m_lost, &QTimer::timeout, this, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                dialog->reject();
        });
        m_lost.start(30000);
    }

    bool finished() const { return m_next == m_steps.size(); }

private:
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    bool m_busy = false;
    QTimer m_timer;
    QTimer m_lost;
};

void later(std::function<void()> action)
{
    QTimer::singleShot(0, qApp, std::move(action));
}

/// Clicks a button of the wizard from the event loop, so that a dialog which it opens does not block the script.
Script::Step click(const char* name)
{
    return [name](QWidget& window) {
        auto* button = window.findChild<QPushButton*>(QString::fromLatin1(name));
        if (!button || !button->isVisible() || !button->isEnabled())
            return false;
        later([button] { QTest::mouseClick(button, Qt::LeftButton); });
        return true;
    };
}

Script::Step nameFile(const QString& path)
{
    return [path](QWidget& window) {
        auto* dialog = qobject_cast<QFileDialog*>(&window);
        if (!dialog)
            return false;
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(path);
        later([edit] { QTest::keyClick(edit, Qt::Key_Return); });
        return true;
    };
}

Script::Step answerBox(QMessageBox::StandardButton answer)
{
    return [answer](QWidget& window) {
        auto* box = qobject_cast<QMessageBox*>(&window);
        if (!box)
            return false;
        QPushButton* button = qobject_cast<QPushButton*>(box->button(answer));
        if (!button)
            return false;
        later([button] { QTest::mouseClick(button, Qt::LeftButton); });
        return true;
    };
}

Script::Step readReport(QString& text)
{
    return [&text](QWidget& window) {
        auto* view = window.findChild<QTextEdit*>(QStringLiteral("reportView"));
        if (!view || !view->isVisible() || view->toPlainText().isEmpty())
            return false;
        text = view->toPlainText();
        return true;
    };
}

/// A control that is shown and cannot be used.
Script::Step blocked(const char* name)
{
    return [name](QWidget& window) {
        auto* control = window.findChild<QWidget*>(QString::fromLatin1(name));
        return control && control->isVisible() && !control->isEnabled();
    };
}

/// Checks a box that has this text.
Script::Step check(const char* name, const char* text)
{
    return [name, text](QWidget& window) {
        auto* box = window.findChild<QCheckBox*>(QString::fromLatin1(name));
        if (!box || !box->isVisible() || box->text() != QLatin1String(text) || box->isChecked())
            return false;
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
        return box->isChecked();
    };
}

Script::Step choose(const char* combo, const char* value)
{
    return [combo, value](QWidget& window) {
        auto* box = window.findChild<QComboBox*>(QString::fromLatin1(combo));
        if (!box || !box->isVisible())
            return false;
        box->setCurrentText(QString::fromLatin1(value));
        return box->currentText() == QLatin1String(value);
    };
}

} // namespace

class GuiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void walk();
    void aFileForEachObject();
    void planAndCommandLine();
    void failedPartAgain();
    void failureIsReported();
    void selectionInTheWindow();
    void theChoiceIsKept();
    void unknownSystem();
    void backFromAFailure();
    void everyFormatHasItsPage();
    void ampersandIsShown();
    void noGridChosen();
    void cancelledInTheWizard();
    void droppedFile();
    void escapeAsks();
    void reportOfFiles();
    void presetWithoutPage();

private:
    QByteArray read(const QString& name) { return contentOf(m_folder.filePath(name)); }
    void exportWith(Script& script)
    {
        m_window->findChild<QAction*>(QStringLiteral("exportAction"))->trigger();
        QVERIFY(script.finished());
    }

    QTemporaryDir m_folder;
    std::unique_ptr<HostContext> m_context;
    std::unique_ptr<MainWindow> m_window;
};

void GuiTest::initTestCase()
{
    useTestSettings(m_folder.path());
    // The usual size of text; that of a platform without screen is larger.
    QFont font = QApplication::font();
    font.setPixelSize(12);
    QApplication::setFont(font);
    qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
    const QString lines = writeFile(m_folder.filePath(QStringLiteral("lines.geojson")),
                                    "{\"type\":\"FeatureCollection\",\"crs\":{\"type\":\"name\",\"properties\":{"
                                    "\"name\":\"EPSG:28350\"}},\"features\":["
                                    "{\"type\":\"Feature\",\"properties\":{\"n\":1},\"geometry\":{\"type\":"
                                    "\"LineString\",\"coordinates\":[[0,1,5],[2,3,6]]}},"
                                    "{\"type\":\"Feature\",\"properties\":{\"n\":2},\"geometry\":{\"type\":"
                                    "\"LineString\",\"coordinates\":[[7,8,9],[8,8,9]]}}]}");
    m_context = std::make_unique<HostContext>();
    m_window = std::make_unique<MainWindow>(*m_context);
    m_window->show();
    QVERIFY(!m_window->findChild<QAction*>(QStringLiteral("exportAction"))->isEnabled());
    m_window->openModel(lines);
    QVERIFY(m_window->findChild<QAction*>(QStringLiteral("exportAction"))->isEnabled());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("lines.geojson - kpexport"));
    QCOMPARE(m_context->model.objects().size(), std::size_t(2));
}

void GuiTest::walk()
{
    QString report;
    const QString path = m_folder.filePath(QStringLiteral("out"));
    Script first({click("nextButton"), choose("m_separatorCombo", "Semi-Colon (;)"), click("nextButton"),
                  nameFile(path), click("nextButton"), readReport(report), click("closeButton")});
    exportWith(first);
    const QByteArray expected =
        "X;Y;Z;n\n0.000;1.000;5.000;1\n2.000;3.000;6.000;1\n7.000;8.000;9.000;2\n8.000;8.000;9.000;2\n";
    QCOMPARE(read(QStringLiteral("out.csv")), expected);
    QVERIFY2(report.contains(QStringLiteral("Data has been exported successfully!"))
                 && report.contains(QStringLiteral("out.csv: 4 rows, %1 bytes").arg(expected.size())),
             qPrintable(report));

    // The extension came after the file dialog's own question, so the plan asks. Settings are remembered.
    Script second({click("nextButton"), click("nextButton"), nameFile(path), blocked("nextButton"),
                   check("replaceExisting", "Re&place 1 existing file"), click("nextButton"), readReport(report),
                   click("closeButton")});
    exportWith(second);
    QCOMPARE(read(QStringLiteral("out.csv")), expected);
    QVERIFY(report.contains(QStringLiteral("accepted,overwritten")));
}

void GuiTest::aFileForEachObject()
{
    // The second object's file exists: it is kept, and the new one is called otherwise.
    writeFile(m_folder.filePath(QStringLiteral("each_lines 2.txt")), "earlier");
    QString report;
    const QString path = m_folder.filePath(QStringLiteral("each.txt"));
    Script script({click("nextButton"), choose("grouping", "A file per object"), click("nextButton"), nameFile(path),
                   blocked("nextButton"), click("keepBoth"), click("nextButton"), readReport(report),
                   click("closeButton")});
    exportWith(script);
    QCOMPARE(read(QStringLiteral("each_lines 1.txt")),
             QByteArray("X;Y;Z;n\n0.000;1.000;5.000;1\n2.000;3.000;6.000;1\n"));
    QCOMPARE(read(QStringLiteral("each_lines 2.txt")), QByteArray("earlier"));
    QCOMPARE(read(QStringLiteral("each_lines 2_2.txt")),
             QByteArray("X;Y;Z;n\n7.000;8.000;9.000;2\n8.000;8.000;9.000;2\n"));
    QVERIFY2(report.contains(QStringLiteral("the file is named differently")), qPrintable(report));

    QVERIFY(QFile::remove(m_folder.filePath(QStringLiteral("each_lines 1.txt"))));
    // What appears while the plan is shown is asked about too.
    const auto appears = [this](QWidget&) {
        writeFile(m_folder.filePath(QStringLiteral("each_lines 1.txt")), "a stranger's");
        return true;
    };
    Script all({click("nextButton"), click("nextButton"), nameFile(path),
                check("replaceExisting", "Re&place 1 existing file"), appears, click("nextButton"),
                check("replaceExisting", "Re&place 2 existing files"), click("nextButton"), readReport(report),
                click("closeButton")});
    exportWith(all);
    QVERIFY(read(QStringLiteral("each_lines 2.txt")).startsWith("X;Y;Z;n"));
    Script restore({click("nextButton"), choose("grouping", "One file"), click("closeButton")});
    exportWith(restore);
}

void GuiTest::planAndCommandLine()
{
    // The plan says what is replaced; the report gives the command that writes the same bytes.
    QString plan;
    QString report;
    const auto readPlan = [&plan](QWidget& window) {
        auto* summary = window.findChild<QLabel*>(QStringLiteral("planSummary"));
        auto* files = window.findChild<QTreeWidget*>(QStringLiteral("planFiles"));
        if (!summary || !summary->isVisible() || files->topLevelItemCount() != 1)
            return false;
        plan = summary->text() + QLatin1Char('|') + files->topLevelItem(0)->text(0) + QLatin1Char('|')
               + files->topLevelItem(0)->text(1);
        return true;
    };
    const QString path = m_folder.filePath(QStringLiteral("it's.csv"));
    writeFile(path, QByteArray());
    const auto oneDecimal = [](QWidget& window) {
        auto* fields = window.findChild<QTableWidget*>(QStringLiteral("m_fieldTable"));
        if (!fields || !fields->isVisible())
            return false;
        fields->item(0, 2)->setText(QStringLiteral("1"));
        return true;
    };
    Script script({click("nextButton"), choose("m_separatorCombo", "Space"), oneDecimal, click("nextButton"),
                   nameFile(path), answerBox(QMessageBox::Yes), readPlan, click("nextButton"), readReport(report),
                   click("copyCommandLine"), [](QWidget&) { return !QApplication::clipboard()->text().isEmpty(); },
                   click("closeButton")});
    exportWith(script);
    QVERIFY2(plan.startsWith(QStringLiteral("1 file, which replaces an existing one; about "))
                 && plan.endsWith(QStringLiteral("|it's.csv|replaces a file")),
             qPrintable(plan));
    const QByteArray written = read(QStringLiteral("it's.csv"));
    QVERIFY(written.startsWith("X Y Z n\n0.0 1.000 5.000 1\n"));
    QVERIFY(QFile::remove(path));
    const QString command = QApplication::clipboard()->text();
    QVERIFY2(command.startsWith(QStringLiteral("kpexport export ")), qPrintable(command));
    QProcess shell;
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("'") + QStringLiteral(KP_PROGRAM)
                                                                 + QStringLiteral("'") + command.mid(8)});
    QVERIFY(shell.waitForFinished(60000));
    QVERIFY2(shell.exitCode() == 0, qPrintable(command + QString::fromUtf8(shell.readAllStandardError())));
    QCOMPARE(read(QStringLiteral("it's.csv")), written);
    Script restore({click("nextButton"), choose("m_separatorCombo", "Semi-Colon (;)"), click("allAttributes"),
                    click("closeButton")});
    exportWith(restore);
}

void GuiTest::failedPartAgain()
{
    // A directory stands where the second file is to go. When it is gone, only that file is written.
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("again_lines 2.txt")));
    QString failure;
    QString success;
    const QString first = m_folder.filePath(QStringLiteral("again_lines 1.txt"));
    const auto clearTheWay = [&](QWidget&) {
        QFile(first).remove();
        return QDir(m_folder.path()).rmdir(QStringLiteral("again_lines 2.txt"));
    };
    const auto readSuccess = [&success](QWidget& window) {
        success = window.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
        return success.contains(QStringLiteral("successfully!")) && !success.contains(QStringLiteral("has not been"));
    };
    const QString path = m_folder.filePath(QStringLiteral("again.txt"));
    Script script({click("nextButton"), choose("grouping", "A file per object"), click("nextButton"), nameFile(path),
                   click("nextButton"), readReport(failure), clearTheWay, click("retryFailed"), readSuccess,
                   click("closeButton")});
    exportWith(script);
    QVERIFY2(failure.contains(QStringLiteral("again_lines 2.txt"))
                 && failure.contains(QStringLiteral("this is a directory")),
             qPrintable(failure));
    QVERIFY(read(QStringLiteral("again_lines 2.txt")).startsWith("X;Y;Z;n"));
    QVERIFY2(!QFile::exists(first), "written again although it had not failed");
    Script restore({click("nextButton"), choose("grouping", "One file"), click("closeButton")});
    exportWith(restore);
}

void GuiTest::cancelledInTheWizard()
{
    // The close button cancels while the file is written; the earlier file is as it was.
    ModelObject large;
    large.name = QStringLiteral("Large");
    large.x = std::make_shared<const std::vector<double>>(std::vector<double>(3000000, 1234.5678));
    large.y = large.z = large.x;
    const int id = m_context->model.add(large);
    const QString path = m_folder.filePath(QStringLiteral("cancelled.csv"));
    writeFile(path, "earlier");
    const QStringList before = QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden);
    ExportWizard wizard(*m_context, m_window.get());
    wizard.setFormatAndSelectedGeo("ascii", {id});
    wizard.startup();
    wizard.show();
    auto* bar = wizard.findChild<QProgressBar*>(QStringLiteral("progressBar"));
    QElapsedTimer sinceCancel;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (!sinceCancel.isValid() && bar->isVisible() && bar->value() > 10) {
            sinceCancel.start();
            QTest::mouseClick(wizard.closeButton(), Qt::LeftButton);
        }
    });
    watch.start(1);
    wizard.slotSaveClicked(path, true);
    QVERIFY2(sinceCancel.isValid(), "the run ended before it was cancelled");
    const QString report = wizard.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
    QVERIFY2(report.contains(QStringLiteral("cancelled by the user")), qPrintable(report));
    QCOMPARE(read(QStringLiteral("cancelled.csv")), QByteArray("earlier"));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden), before);
}

void GuiTest::failureIsReported()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("no /dev/full here");
    QString report;
    const QString link = m_folder.filePath(QStringLiteral("out & <in>.csv"));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), link));
    // Through the wizard itself: Qt's file dialog asks about an existing file in its own way.
    ExportWizard wizard(*m_context, m_window.get());
    wizard.setFormatAndSelectedGeo("ascii", {1});
    wizard.startup();
    wizard.show();
    wizard.slotSaveClicked(link, true);
    report = wizard.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
    QVERIFY2(
        report.contains(QStringLiteral("has not been exported"))
            && report.contains(QStringLiteral("could not be written completely: No space left on device (make room")),
        qPrintable(report));
    // Names are shown as they are.
    QVERIFY2(report.contains(QStringLiteral("Failed to export ") + link), qPrintable(report));
}

void GuiTest::selectionInTheWindow()
{
    auto* tree = m_window->findChild<QTreeWidget*>(QStringLiteral("objectTree"));
    tree->expandAll();
    tree->setCurrentItem(tree->topLevelItem(0)->child(1));
    QCOMPARE(m_context->selectedIds, std::set<int>{2});
    ExportWizard wizard(*m_context, m_window.get());
    wizard.startup();
    wizard.show();
    QCOMPARE(wizard.selectedGeoIds(), std::vector<int>{2});
    QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("pushButtonSelectAllObjects")), Qt::LeftButton);
    QCOMPARE(wizard.selectedGeoIds(), (std::vector<int>{1, 2}));
    QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("pushButtonMatchModelSelection")), Qt::LeftButton);
    QCOMPARE(wizard.selectedGeoIds(), std::vector<int>{2});
    QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("pushButtonDeselectAllObjects")), Qt::LeftButton);
    QVERIFY(!wizard.nextButton()->isEnabled());
    // Types that the format cannot take are disabled, the others list their objects.
    QTest::mousePress(wizard.findChild<QPushButton*>(QStringLiteral("deselectAllButton")), Qt::LeftButton);
    QCOMPARE(wizard.findChild<QTableView*>(QStringLiteral("listViewObjects"))->model()->rowCount(), 0);
    QTest::mousePress(wizard.findChild<QPushButton*>(QStringLiteral("selectAllButton")), Qt::LeftButton);
    QCOMPARE(wizard.findChild<QTableView*>(QStringLiteral("listViewObjects"))->model()->rowCount(), 2);
    const QList<QTreeWidgetItem*> tetra =
        wizard.findChild<QTreeWidget*>(QStringLiteral("m_objectTree"))
            ->findItems(QStringLiteral("Tetra Volumes"), Qt::MatchExactly | Qt::MatchRecursive);
    QVERIFY(tetra.first()->isDisabled());
    // Sections are a type of this program; the format for them takes nothing else.
    auto* sections = wizard.findChild<QTreeWidget*>(QStringLiteral("m_objectTree"))
                         ->findItems(QStringLiteral("Cross Sections"), Qt::MatchExactly | Qt::MatchRecursive)
                         .value(0);
    QVERIFY(sections && sections->isDisabled() && sections->checkState(0) == Qt::Checked);
    QCOMPARE(sections->data(0, Qt::UserRole).toString(), QStringLiteral("cross_section"));
}

/// What is unchecked stays so whatever the format; the search shows some rows, and the buttons act on those.
void GuiTest::theChoiceIsKept()
{
    m_window->findChild<QTreeWidget*>(QStringLiteral("objectTree"))->clearSelection();
    ExportWizard wizard(*m_context, m_window.get());
    wizard.startup();
    wizard.show();
    auto* view = wizard.findChild<QTableView*>(QStringLiteral("listViewObjects"));
    auto* search = wizard.findChild<QLineEdit*>(QStringLiteral("objectSearch"));
    const auto* summary = wizard.findChild<QLabel*>(QStringLiteral("objectSummary"));
    QCOMPARE(summary->text(), QStringLiteral("2 of 2 objects, 4 vertices, 1 coordinate system"));
    // The second row's check box by its key; the set tells objects of one name apart.
    view->setCurrentIndex(view->model()->index(1, 1));
    QTest::keyClick(view, Qt::Key_Space);
    QCOMPARE(wizard.selectedGeoIds(), std::vector<int>{1});
    QCOMPARE(summary->text(), QStringLiteral("1 of 2 objects, 2 vertices, 1 coordinate system"));
    QCOMPARE(view->model()->columnCount(), 4);
    QCOMPARE(view->model()->headerData(3, Qt::Horizontal).toString(), QStringLiteral("Set"));
    QCOMPARE(view->model()->index(0, 3).data().toString(), m_context->model.find(1)->set);
    auto* formats = wizard.findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"));
    for (const char* key : {"kml", "grdecl", "ascii"}) {
        formats->setCurrentIndex(formats->findData(QString::fromLatin1(key)));
        Q_EMIT formats->activated(formats->currentIndex());
        QCOMPARE(wizard.selectedGeoIds(), key == QByteArray("grdecl") ? std::vector<int>() : std::vector<int>{1});
    }
    QTest::mousePress(wizard.findChild<QPushButton*>(QStringLiteral("deselectAllButton")), Qt::LeftButton);
    QTest::mousePress(wizard.findChild<QPushButton*>(QStringLiteral("selectAllButton")), Qt::LeftButton);
    QCOMPARE(wizard.selectedGeoIds(), std::vector<int>{1});

    QTest::keyClicks(search, QStringLiteral("LINES 2"));
    QCOMPARE(view->model()->rowCount(), 1);
    QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("pushButtonDeselectAllObjects")), Qt::LeftButton);
    QCOMPARE(wizard.selectedGeoIds(), std::vector<int>{1});
    search->clear();
    auto* checkedOnly = wizard.findChild<QCheckBox*>(QStringLiteral("checkedOnly"));
    checkedOnly->setChecked(true);
    QCOMPARE(view->model()->rowCount(), 1);
    checkedOnly->setChecked(false);
    view->selectAll();
    view->setCurrentIndex(view->model()->index(1, 0));
    view->selectAll();
    QTest::keyClick(view, Qt::Key_Space);
    QCOMPARE(wizard.selectedGeoIds(), (std::vector<int>{1, 2}));
    // Tab goes on to the next control, and no cell can be edited.
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Tab);
    QVERIFY(!view->hasFocus());
    QVERIFY(!(view->model()->index(0, 0).flags() & Qt::ItemIsEditable));
}

/// A system that there is not is said on the page, is in the way of going on, and is not remembered.
void GuiTest::unknownSystem()
{
    for (const char* format : {"kml", "shp", "gpkg"}) {
        {
            ExportWizard wizard(*m_context, m_window.get());
            wizard.setFormatAndSelectedGeo(format, {1});
            wizard.startup();
            wizard.show();
            auto* crs = wizard.findChild<QLineEdit*>(QStringLiteral("crs"));
            const auto* meaning = wizard.findChild<QLabel*>(QStringLiteral("crsMeaning"));
            QTest::keyClicks(crs, QStringLiteral("EPSG:2835"));
            QVERIFY2(wizard.nextButton()->isEnabled(), qPrintable(meaning->text()));
            QTest::keyClicks(crs, QStringLiteral("000"));
            QVERIFY(!wizard.nextButton()->isEnabled());
            QVERIFY(meaning->isVisible() && meaning->text().startsWith(QStringLiteral("There is no such")));
            wizard.current_sheet()->deactivate();
            crs->clear();
            QTest::keyClicks(crs, QStringLiteral("EPSG:28350"));
            QVERIFY(wizard.nextButton()->isEnabled());
            QCOMPARE(meaning->text(), QStringLiteral("GDA94 / MGA zone 50 (EPSG:28350)"));
            crs->clear();
            crs->setText(QStringLiteral("nowhere"));
            wizard.close();
        }
        ExportWizard next(*m_context, m_window.get());
        next.setFormatAndSelectedGeo(format, {1});
        next.startup();
        const QString remembered = next.findChild<QLineEdit*>(QStringLiteral("crs"))->text();
        QVERIFY2(!remembered.contains(QStringLiteral("nowhere")) && !remembered.endsWith(QStringLiteral("000")),
                 qPrintable(remembered));
        next.findChild<QLineEdit*>(QStringLiteral("crs"))->clear();
        next.current_sheet()->deactivate();
    }
}

/// From the report of a failure one goes back to the plan and the pages before it, with everything as it was.
void GuiTest::backFromAFailure()
{
    const QString target = m_folder.filePath(QStringLiteral("back.csv"));
    QString report;
    const auto inTheWay = [&target](QWidget&) { return QDir().mkdir(target); };
    const auto outOfTheWay = [&target](QWidget&) { return QDir().rmdir(target); };
    QString success;
    const auto readSuccess = [&success](QWidget& window) {
        success = window.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
        return success.contains(QStringLiteral("successfully!"));
    };
    Script script({click("nextButton"), click("nextButton"), nameFile(target), inTheWay, click("nextButton"),
                   readReport(report), outOfTheWay, click("backButton"), click("nextButton"), readSuccess,
                   click("closeButton")});
    exportWith(script);
    QVERIFY2(report.contains(QStringLiteral("this is a directory")), qPrintable(report));
    QVERIFY2(read(QStringLiteral("back.csv")).startsWith("X"), qPrintable(success));
}

/// Each control of a library's page stands for a setting that the format really has.
void GuiTest::everyFormatHasItsPage()
{
    const std::map<QString, const char*> pages{{QStringLiteral("dxf"), "kpBaseExport::QExportSheetDxf"},
                                               {QStringLiteral("gocad"), "kpBaseExport::QExportSheetGocad"},
                                               {QStringLiteral("grdecl"), "kpBaseExport::QExportSheetEclipse"},
                                               {QStringLiteral("off"), "kpBaseExport::QExportSheetOff"},
                                               {QStringLiteral("opentec"), "kpBaseExport::QExportSheetOpenTecLink"},
                                               {QStringLiteral("shp"), "kpBaseExport::QExportSheetShp"},
                                               {QStringLiteral("tab"), "kpBaseExport::QExportSheetTab"},
                                               {QStringLiteral("zmap"), "kpBaseExport::QExportSheetZMap"}};
    for (const auto& setup : m_context->formats.setups()) {
        const QString key = setup->format->info().key;
        ExportWizard wizard(*m_context, m_window.get());
        wizard.setFormatAndSelectedGeo(key.toStdString(), {1});
        wizard.startup();
        wizard.show();
        QWidget* page = wizard.current_sheet()->pageWidget();
        QVERIFY2(page->windowTitle().startsWith(QStringLiteral("File Export: ")), qPrintable(key));
        if (pages.count(key) != 0)
            QCOMPARE(page->metaObject()->className(), pages.at(key));
        // A small screen holds it; what has no room is scrolled.
        QVERIFY2(wizard.minimumSizeHint().width() <= 820 && wizard.minimumSizeHint().height() <= 600,
                 qPrintable(QStringLiteral("%1: %2 x %3")
                                .arg(key)
                                .arg(wizard.minimumSizeHint().width())
                                .arg(wizard.minimumSizeHint().height())));
        for (const QWidget* control : page->findChildren<QWidget*>())
            QVERIFY2(!control->toolTip().contains(QStringLiteral("has no such option")),
                     qPrintable(key + QLatin1Char(' ') + control->objectName()));
    }
}

/// The text has one "&", which must be seen and be no key.
void GuiTest::ampersandIsShown()
{
    ExportWizard wizard(*m_context, m_window.get());
    wizard.setFormatAndSelectedGeo("grdecl", {1});
    wizard.startup();
    wizard.show();
    auto* box = wizard.findChild<QCheckBox*>(QStringLiteral("m_GRDECLFormatCheckBox"));
    QVERIFY(box->text().endsWith(QStringLiteral("COORD & ZCORN")));
    QCheckBox twin(QString(box->text()).replace(QLatin1Char('&'), QStringLiteral("&&")), box->parentWidget());
    twin.setChecked(true);
    QCOMPARE(box->sizeHint(), twin.sizeHint());
    QCheckBox key(box->text());
    QVERIFY(box->sizeHint() != key.sizeHint());
    twin.resize(box->size());
    QCOMPARE(box->grab().toImage(), twin.grab().toImage());
}

void GuiTest::noGridChosen()
{
    ExportWizard wizard(*m_context, m_window.get());
    wizard.setFormatAndSelectedGeo("grdecl", {1}); // a line
    wizard.startup();
    wizard.show();
    const auto* warning = wizard.findChild<QLabel*>(QStringLiteral("m_multipleGridWarning"));
    QVERIFY(!wizard.nextButton()->isEnabled() && warning->isVisible());
    QVERIFY2(warning->text().contains(QStringLiteral("no grid has been chosen")), qPrintable(warning->text()));
}

/// A dropped file adds its objects; what was hidden and selected stays so.
void GuiTest::droppedFile()
{
    auto* tree = m_window->findChild<QTreeWidget*>(QStringLiteral("objectTree"));
    const auto all = [tree] { return tree->findItems(QString(), Qt::MatchContains | Qt::MatchRecursive); };
    const auto named = [&](const char* name) {
        return tree->findItems(QString::fromLatin1(name), Qt::MatchExactly | Qt::MatchRecursive).value(0);
    };
    named("lines 1")->setCheckState(0, Qt::Unchecked);
    tree->setCurrentItem(named("lines 2"));
    const auto before = m_context->model.objects().size();
    const int rows = all().size();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writeFile(m_folder.filePath(QStringLiteral("dropped.csv")), "x,y,z\n1,2,3\n")),
                  QUrl(QStringLiteral("http://localhost/no"))});
    QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    QTRY_COMPARE(m_context->model.objects().size(), before + 1);
    QVERIFY(all().size() > rows && named("dropped"));
    QCOMPARE(named("lines 1")->checkState(0), Qt::Unchecked);
    QCOMPARE(m_context->selectedIds, std::set<int>{2});
    QCOMPARE(m_window->windowTitle(), QStringLiteral("lines.geojson and 1 more - kpexport"));
    QVERIFY(
        m_window->findChild<QLabel*>(QStringLiteral("objectCounts"))->text().endsWith(QStringLiteral(", 1 selected")));
}

void GuiTest::escapeAsks()
{
    ExportWizard wizard(*m_context, m_window.get());
    const auto open = [&wizard] {
        wizard.startup();
        wizard.show();
    };
    open();
    const BoxAnswer no(QMessageBox::No);
    QTest::keyClick(&wizard, Qt::Key_Escape);
    QVERIFY(!wizard.isVisible() && no.texts.isEmpty());
    // Something was chosen, nothing written.
    open();
    QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("pushButtonDeselectAllObjects")), Qt::LeftButton);
    QTest::keyClick(&wizard, Qt::Key_Escape);
    QVERIFY(wizard.isVisible() && no.texts.size() == 1);
    // Cancel says itself what it does.
    QTest::mouseClick(wizard.closeButton(), Qt::LeftButton);
    QVERIFY(!wizard.isVisible() && no.texts.size() == 1);
}

void GuiTest::reportOfFiles()
{
    const auto report = [this](const char* format, const char* name) {
        ExportWizard wizard(*m_context, m_window.get());
        wizard.setFormatAndSelectedGeo(format, {1});
        wizard.startup();
        wizard.slotSaveClicked(m_folder.filePath(QString::fromLatin1(name)), true);
        return wizard.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
    };
    // A format without attributes writes geometry alone, and each file is named once.
    const QString drawing = report("dxf", "lines.dxf");
    QVERIFY2(drawing.contains(QStringLiteral("Geometric Data")) && !drawing.contains(QStringLiteral("Attribute Data")),
             qPrintable(drawing));
    const QString shapes = report("shp", "lines.shp");
    QVERIFY2(!shapes.contains(QStringLiteral("Other Files"))
                 && shapes.contains(QStringLiteral("with lines.cpg, lines.dbf, lines.prj, lines.shx")),
             qPrintable(shapes));
}

/// Cancelling the choice of a file leads to the page that the preset has passed over.
void GuiTest::presetWithoutPage()
{
    struct BareSaver : SilentSaver
    {
        BareSaver()
            : SilentSaver("bare")
        {
            m_supportsAttributes = false;
            m_supportedTypes.insert(typeKey(ObjectType::Polylines));
        }
    };
    static TestSaverFactory bare("bare", [] { return new BareSaver; });
    ExportWizard wizard(*m_context, m_window.get());
    wizard.setFormatAndSelectedGeo("bare", {2});
    wizard.startup();
    wizard.show();
    chooseInDialog(QString());
    QTRY_VERIFY(dynamic_cast<ObjectSelectionSheet*>(wizard.current_sheet()));
    QCOMPARE(wizard.selectedGeoIds(), std::vector<int>{2});
    QCOMPARE(wizard.selectedGeoNames(), std::vector<std::string>{"lines 2"});
    QCOMPARE(wizard.findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"))->currentText(), QStringLiteral("bare"));
    QVERIFY(wizard.nextButton()->isEnabled() && wizard.nextButton()->text() == QLatin1String("Next"));
    // From here on the user chooses.
    QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("pushButtonSelectAllObjects")), Qt::LeftButton);
    QCOMPARE(wizard.selectedGeoIds(), (std::vector<int>{1, 2}));
}

QTEST_MAIN(GuiTest)
#include "tst_gui.moc"
