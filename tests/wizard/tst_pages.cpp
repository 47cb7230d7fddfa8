// SPDX-License-Identifier: MIT
// The wizard's pages by themselves.
#include "tests/TestSettings.h"
#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportSheetSaveFile.h"
#include "wizard/QExportSheetSaveInfo.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>

using namespace kpBaseExport;

namespace
{

/// Drives the next file dialog: types \a name, or cancels when it is empty.
void answerFileDialog(const QString& name, QString* directory = nullptr)
{
    QTimer::singleShot(50, qApp, [name, directory] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        if (directory)
            *directory = dialog->directory().absolutePath();
        if (name.isEmpty()) {
            dialog->reject();
            return;
        }
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

} // namespace

class PagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void report();
    void failedReport();
    void listModel();
    void checkBoxIsToggledByMouse();
    void fileSelection();
    void attributes();

private:
    QTemporaryDir m_folder;
};

void PagesTest::initTestCase()
{
    useTestSettings(m_folder.path());
}

void PagesTest::report()
{
    QCOMPARE(ReportHtml::table(QStringLiteral("T"), {}), QString());
    QCOMPARE(ReportHtml::table(QStringLiteral("Geometric Data"),
                               {{QStringLiteral("a<b>.dat"), QExportAbstractSheet::ACCEPTED},
                                {QStringLiteral("c.dat"), QExportAbstractSheet::NO_WRITE_PERMISSION}}),
             QStringLiteral("<font color=\"black\" size=4><u><b>Geometric Data</b>:</u></font><br>"
                            "<table align=\"center\" border=1 width=500 cellpadding=5>"
                            "<tr><td><font color=\"blue\"  size=4>a&lt;b&gt;.dat</font><td>"
                            "<font color=\"black\" size=4>accepted</font></tr>"
                            "<tr><td><font color=\"blue\"  size=4>c.dat</font><td>"
                            "<font color=\"red\"   size=4>no write permission</font></tr></table><br><br>"));

    QExportSheetSaveInfo sheet(nullptr, QString());
    const auto text = [&sheet] { return sheet.findChild<QTextEdit*>()->toPlainText(); };
    sheet.setDirectory(QStringLiteral("/o"));
    sheet.setWarnings(QStringLiteral("careful"));
    sheet.addFileName(QStringLiteral("both"), QExportAbstractSheet::GEO_AND_ATTRIBUTE_DATA, QExportAbstractSheet::ACCEPTED);
    sheet.addFileName(QStringLiteral("only"), QExportAbstractSheet::ATTRIBUTE_DATA,
                      QExportAbstractSheet::USER_DID_NOT_ACCEPT_OVERWRITING);
    sheet.showInfo();
    QCOMPARE(text().count(QStringLiteral("both")), 2);
    QVERIFY(text().simplified().contains(QStringLiteral("Directory: /o")));
    QVERIFY(text().contains(QStringLiteral("careful")));
    QVERIFY(!text().contains(QStringLiteral("Other Files")));
    sheet.showInfo();
    QVERIFY(!text().contains(QStringLiteral("Geometric Data")));
}

void PagesTest::failedReport()
{
    QExportSheetSaveInfo sheet(nullptr, QString());
    const auto text = [&sheet] { return sheet.findChild<QTextEdit*>()->toPlainText(); };
    sheet.setErrorMessage(QStringLiteral("first "));
    sheet.setErrorMessage(QStringLiteral("second"));
    sheet.setErrorMessage(QStringLiteral("f1"), QString());
    sheet.setErrorMessage(QStringLiteral("f2"), QStringLiteral("why"));
    sheet.addFileName(QStringLiteral("x"), QExportAbstractSheet::GEO_DATA, QExportAbstractSheet::ACCEPTED);
    sheet.showInfoNoSuccess(false);
    QVERIFY(text().contains(QStringLiteral("first secondFailed to export f1\nFailed to export f2\nwhy")));
    QVERIFY(!text().contains(QStringLiteral("accepted")));
    sheet.clearErrorList();
    sheet.showInfoNoSuccess(false);
    QVERIFY(!text().contains(QStringLiteral("f1")));
    sheet.showInfoNoSuccess(true);
    QCOMPARE(text().trimmed(), QStringLiteral("Export process has been cancelled by the user!"));
    sheet.clearInfo();
    QCOMPARE(text(), QString());
}

void PagesTest::listModel()
{
    QObjectListModel model(nullptr, QStringLiteral("Title"));
    model.addName(QStringLiteral("b"), 7, QStringLiteral("Wells"), true);
    model.addName(QStringLiteral("a"), 3, QStringLiteral("Pins"), false);
    model.resetModel();
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Title"));
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Id"));
    QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("Type"));
    QCOMPARE(model.data(model.index(0, 0), Qt::TextAlignmentRole).toInt(), 0x81);
    QCOMPARE(model.data(model.index(0, 0).siblingAtColumn(0), Qt::CheckStateRole).toInt(), 2);
    model.setNameInListChecked(QStringLiteral("a"));
    QCOMPARE(model.selectedGeoIds(), (std::vector<int>{7, 3}));
    QCOMPARE(model.selectedGeoTypes(), (std::vector<std::string>{"Wells", "Pins"}));
    QVERIFY(!model.isNameInList(QStringLiteral("A")));
    QVERIFY(!model.setData(model.index(0, 0), 1.0, Qt::EditRole));
    model.clear();
    // What a view still holds finds nothing.
    QVERIFY(!model.data(model.index(0, 0), Qt::DisplayRole).isValid());

    model.addName(QStringLiteral("Top"), 65.5, true);
    model.addName(QStringLiteral("Base"), 70.0, false);
    model.resetModel();
    QCOMPARE(model.columnCount(), 2);
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Age"));
    QVERIFY(model.setData(model.index(0, 0), 66.0, Qt::EditRole));
    QCOMPARE(model.selectedValues(), std::vector<double>{66.0});
    QVERIFY(model.selectedGeoIds().empty());
    model.setIdInListChecked(1);
    model.selectAll();
    QCOMPARE(model.selectedNames(), (std::vector<std::string>{"Top", "Base"}));
}

void PagesTest::checkBoxIsToggledByMouse()
{
    QObjectListModel model(nullptr, QStringLiteral("Title"));
    model.addName(QStringLiteral("a"), 1, QStringLiteral("t"), true);
    model.resetModel();
    QTableView view;
    view.setModel(&model);
    view.show();
    QSignalSpy spy(&model, &QObjectListModel::objectChecked);
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(model.index(0, 0));
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    const QRect box = view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, box.center());
    QCOMPARE(spy.size(), 1);
    QVERIFY(model.selectedGeoIds().empty());
}

void PagesTest::fileSelection()
{
    const QString name = m_folder.filePath(QString::fromUtf8("Грифон.dat"));
    {
        QExportSheetSaveFile sheet(nullptr, QString());
        sheet.setFiltersAndDefaultSuffix(QStringLiteral("ZMap"), QStringLiteral("dat"), QStringLiteral("*.dat"));
        QSignalSpy saved(&sheet, &QExportSheetSaveFile::saveClicked);
        QSignalSpy cancelled(&sheet, &QExportSheetSaveFile::saveCancelled);
        QString start;
        answerFileDialog(QString(), &start);
        sheet.doFileSelection();
        QCOMPARE(start, QDir::homePath());
        QCOMPARE(cancelled.size(), 1);
        QVERIFY(saved.isEmpty() && sheet.fileName().isEmpty());
        QVERIFY(!QSettings().contains(QStringLiteral("QExportSheetSaveFiledat/directory")));
        answerFileDialog(name);
        sheet.doFileSelection();
        QCOMPARE(saved.size(), 1);
        QCOMPARE(saved.first().at(0).toString(), name);
        QCOMPARE(saved.first().at(1).toBool(), true);
    }
    // Another dialog, another run of the program: the directory is remembered for this suffix only.
    QExportSheetSaveFile sheet(nullptr, QString());
    QString start;
    sheet.setFiltersAndDefaultSuffix(QStringLiteral("Other"), QStringLiteral("txt"), QStringLiteral("*.txt"));
    answerFileDialog(QString(), &start);
    sheet.doFileSelection();
    QCOMPARE(start, QDir::homePath());
    sheet.setFiltersAndDefaultSuffix(QStringLiteral("ZMap"), QStringLiteral("dat"), QStringLiteral("*.dat"));
    answerFileDialog(QString(), &start);
    sheet.doFileSelection();
    QCOMPARE(start, m_folder.path());
}

void PagesTest::attributes()
{
    // The panel without a wizard has nothing on offer and stays usable.
    QExportAttributeWidget panel(nullptr, nullptr);
    panel.initialize(QString(), QExportAttributeWidget::VERTEX_LEVEL);
    QCOMPARE(panel.findChild<QGroupBox*>(QStringLiteral("groupBox"))->title(), QStringLiteral("Export  Vertex  Attributes"));
    panel.activate();
    QVERIFY(panel.selectedAttributeNames().empty());
    QVERIFY(panel.isComplete());
}

QTEST_MAIN(PagesTest)
#include "tst_pages.moc"
