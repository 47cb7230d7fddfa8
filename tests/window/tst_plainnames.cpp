// SPDX-License-Identifier: MIT
// Names that look like HTML, in the window and in the whole way of an export.
#include "tests/support/BoxAnswer.h"
#include "tests/support/FileContent.h"
#include "tests/support/TestSettings.h"
#include "window/ExportWizard.h"
#include "window/MainWindow.h"
#include "wizard/QExportSheetSaveFile.h"

#include <QAbstractItemView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QtTest>

using namespace kpFormats;
using namespace refhost;

namespace
{

/// What a window shows of \a text where it takes HTML for HTML.
QString shownAs(const QString& text, Qt::TextFormat format = Qt::AutoText)
{
    const bool rich = format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text));
    return rich ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

const QString hostile = QStringLiteral("<b>Zq<img src=x>");

/// The texts of labels and tool tips in which a name of the hostile model has lost its markup; counts those that name one.
QStringList markedUp(const QWidget& root, int& named)
{
    QStringList shown;
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        shown.append(shownAs(widget->toolTip()));
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            shown.append(shownAs(label->text(), label->textFormat()));
        if (const auto* view = qobject_cast<const QTextEdit*>(widget))
            shown.append(view->toPlainText());
        const auto* items = qobject_cast<const QAbstractItemView*>(widget);
        if (!items || !items->model())
            continue;
        const QAbstractItemModel& model = *items->model();
        std::vector<QModelIndex> parents{QModelIndex()};
        while (!parents.empty()) {
            const QModelIndex parent = parents.back();
            parents.pop_back();
            for (int row = 0; row < model.rowCount(parent); ++row) {
                for (int column = 0; column < model.columnCount(parent); ++column)
                    shown.append(shownAs(model.index(row, column, parent).data(Qt::ToolTipRole).toString()));
                parents.push_back(model.index(row, 0, parent));
            }
        }
    }
    // Names of files may have "_" instead.
    static const QRegularExpression lost(QStringLiteral("(?<![>_])Zq"));
    named += shown.filter(QStringLiteral("Zq")).size();
    return shown.filter(lost);
}

/// A model whose object, set, attribute and file bear the hostile name.
QString hostileModel(const QString& folder)
{
    writeFile(folder + QLatin1Char('/') + hostile + QStringLiteral(".csv"),
              "X,Y,Z," + hostile.toUtf8() + "\n1,2,3,4\n2,3,4,=1+1\n");
    const QJsonObject object{{QStringLiteral("file"), hostile + QStringLiteral(".csv")},
                             {QStringLiteral("name"), hostile},
                             {QStringLiteral("set"), hostile}};
    return writeFile(folder + QStringLiteral("/hostile.kpmodel"),
                     QJsonDocument(QJsonObject{{QStringLiteral("version"), 1},
                                               {QStringLiteral("objects"), QJsonArray{object, object}}})
                         .toJson());
}

} // namespace

class PlainNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void wizard_data();
    void wizard();
    void boxes();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<HostContext> m_context;
    std::unique_ptr<MainWindow> m_window;
};

void PlainNamesTest::initTestCase()
{
    useTestSettings(m_folder.path());
    qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
    m_context = std::make_unique<HostContext>();
    m_window = std::make_unique<MainWindow>(*m_context);
    m_window->openModel(hostileModel(m_folder.path()));
    m_window->show();
    QCOMPARE(m_context->model.objects().size(), std::size_t(2));
    int named = 0;
    QCOMPARE(markedUp(*m_window, named), QStringList());
    QVERIFY(named >= 4); // name and set of each object
}

void PlainNamesTest::wizard_data()
{
    QTest::addColumn<QString>("format");
    for (const auto& setup : m_context->formats.setups()) {
        const FormatInfo info = setup->format->info();
        if (std::find(info.types.begin(), info.types.end(), m_context->model.objects().front().type)
            != info.types.end())
            QTest::newRow(qPrintable(info.key)) << info.key;
    }
}

/// A name that looks like HTML shows to the letter wherever it is told of, and brings in no picture.
void PlainNamesTest::wizard()
{
    QFETCH(QString, format);
    ExportWizard dialog(*m_context, m_window.get());
    dialog.setFormatAndSelectedGeo(format.toStdString(), {1, 2});
    dialog.startup();
    dialog.show();
    int named = 0;
    QCOMPARE(markedUp(dialog, named), QStringList());
    named = 0;
    Q_EMIT dialog.findChild<kpBaseExport::QExportSheetSaveFile*>()->saveClicked(
        m_folder.filePath(hostile + QStringLiteral(".out")), true);
    QCOMPARE(markedUp(dialog, named), QStringList());
    QVERIFY(named > 0);
    named = 0;
    dialog.activate_next_sheet();
    QCOMPARE(markedUp(dialog, named), QStringList());
    QVERIFY(dialog.findChild<QPushButton*>(QStringLiteral("copyCommandLine"))->isVisible() && named > 1);
}

/// Questions and failures name files.
void PlainNamesTest::boxes()
{
    QStringList texts;
    {
        const BoxAnswer no(QMessageBox::No);
        ExportWizard dialog(*m_context, m_window.get());
        dialog.setFormatAndSelectedGeo("ascii", {1});
        dialog.startup();
        dialog.slotSaveClicked(m_folder.filePath(hostile + QStringLiteral(".csv")), false);
        texts += no.texts;
    }
    {
        const BoxAnswer ok(QMessageBox::Ok);
        m_window->openModel(m_folder.filePath(hostile + QStringLiteral(".kpmodel")));
        texts += ok.texts;
    }
    QVERIFY2(texts.size() == 2, qPrintable(texts.join(QLatin1Char('|'))));
    for (const QString& text : texts)
        QVERIFY2(shownAs(text).contains(hostile), qPrintable(text));
}

QTEST_MAIN(PlainNamesTest)
#include "tst_plainnames.moc"
