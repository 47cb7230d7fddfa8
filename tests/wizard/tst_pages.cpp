// SPDX-License-Identifier: MIT
// The wizard's pages by themselves.
#include "tests/TestSettings.h"
#include "tests/wizard/FileDialog.h"
#include "wizard/QExportSheetSaveFile.h"
#include "wizard/QExportSheetSaveInfo.h"
#include "wizard/QObjectListModel.h"

#include <QTableView>
#include <QTextEdit>
#include <QtTest>

using namespace kpBaseExport;

class PagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestSettings(m_folder.path()); }

    void report()
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

        using Sheet = QExportAbstractSheet;
        QExportSheetSaveInfo sheet(nullptr, QString());
        const auto shows = [&sheet](const char* text) { return textOf(sheet).count(QString::fromLatin1(text)); };
        sheet.setDirectory(QStringLiteral("/o"));
        sheet.setWarnings(QStringLiteral("careful"));
        sheet.addFileName(QStringLiteral("both"), Sheet::GEO_AND_ATTRIBUTE_DATA, Sheet::ACCEPTED);
        sheet.addFileName(QStringLiteral("only"), Sheet::ATTRIBUTE_DATA, Sheet::USER_DID_NOT_ACCEPT_OVERWRITING);
        sheet.showInfo();
        QCOMPARE(shows("both"), 2);
        QVERIFY(textOf(sheet).simplified().contains(QStringLiteral("Directory: /o")));
        QVERIFY(shows("careful") && !shows("Other Files"));
        sheet.showInfo();
        QVERIFY(!shows("Geometric Data"));

        sheet.setErrorMessage(QStringLiteral("first "));
        sheet.setErrorMessage(QStringLiteral("second"));
        sheet.setErrorMessage(QStringLiteral("f1"), QString());
        sheet.setErrorMessage(QStringLiteral("f2"), QStringLiteral("why"));
        sheet.addFileName(QStringLiteral("x"), Sheet::GEO_DATA, Sheet::ACCEPTED);
        sheet.showInfoNoSuccess(false);
        QVERIFY(shows("first secondFailed to export f1\nFailed to export f2\nwhy") && !shows("accepted"));
        sheet.clearErrorList();
        sheet.showInfoNoSuccess(false);
        QVERIFY(!shows("f1"));
        sheet.showInfoNoSuccess(true);
        QCOMPARE(textOf(sheet).simplified(), QStringLiteral("Export process has been cancelled by the user! careful"));
        sheet.clearInfo();
        QCOMPARE(textOf(sheet), QString());
    }

    void listModel()
    {
        QObjectListModel model(nullptr, QStringLiteral("Title"));
        const auto headers = [&model] {
            QStringList texts;
            for (int column = 0; column < model.columnCount(); ++column)
                texts.append(model.headerData(column, Qt::Horizontal).toString());
            return texts.join(QLatin1Char(' '));
        };
        model.addName(QStringLiteral("b"), 7, QStringLiteral("Wells"), true);
        model.addName(QStringLiteral("a"), 3, QStringLiteral("Pins"), false);
        model.resetModel();
        QCOMPARE(headers(), QStringLiteral("Title Id Type"));
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
        QCOMPARE(headers(), QStringLiteral("Title Age"));
        QVERIFY(model.setData(model.index(0, 0), 66.0, Qt::EditRole));
        QCOMPARE(model.selectedValues(), std::vector<double>{66.0});
        QVERIFY(model.selectedGeoIds().empty());
        model.setIdInListChecked(1);
        model.selectAll();
        QCOMPARE(model.selectedNames(), (std::vector<std::string>{"Top", "Base"}));
    }

    void checkBoxIsToggledByMouse()
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

    void fileSelection()
    {
        const QString name = m_folder.filePath(QString::fromUtf8("Грифон.dat"));
        ShownDialog shown;
        const auto select = [&shown](QExportSheetSaveFile& sheet, const char* suffix, const QString& answer) {
            const QString text = QString::fromLatin1(suffix);
            sheet.setFiltersAndDefaultSuffix(text, text, QStringLiteral("*.") + text);
            chooseInDialog(answer, &shown);
            sheet.doFileSelection();
            return shown.directory;
        };
        {
            QExportSheetSaveFile sheet(nullptr, QString());
            QSignalSpy saved(&sheet, &QExportSheetSaveFile::saveClicked);
            QSignalSpy cancelled(&sheet, &QExportSheetSaveFile::saveCancelled);
            QCOMPARE(select(sheet, "dat", QString()), QDir::homePath());
            QCOMPARE(cancelled.size(), 1);
            QVERIFY(saved.isEmpty() && sheet.fileName().isEmpty());
            QVERIFY(!QSettings().contains(QStringLiteral("QExportSheetSaveFiledat/directory")));
            select(sheet, "dat", name);
            QCOMPARE(saved.size(), 1);
            QCOMPARE(saved.first(), (QVariantList{name, true}));
        }
        // Another dialog, another run of the program: the directory is remembered for this suffix only.
        QExportSheetSaveFile sheet(nullptr, QString());
        QCOMPARE(select(sheet, "txt", QString()), QDir::homePath());
        QCOMPARE(select(sheet, "dat", QString()), m_folder.path());
    }

private:
    static QString textOf(QWidget& sheet) { return sheet.findChild<QTextEdit*>()->toPlainText(); }

    QTemporaryDir m_folder;
};

QTEST_MAIN(PagesTest)
#include "tst_pages.moc"
