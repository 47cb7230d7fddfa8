// SPDX-License-Identifier: MIT
// The program's window by mouse and keys: map, tree, properties, files.
#include "tests/support/BoxAnswer.h"
#include "tests/support/FileContent.h"
#include "tests/support/TestSettings.h"
#include "window/MainWindow.h"
#include "window/MapView.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QUrl>
#include <QtTest>

using namespace kpFormats;
using namespace refhost;

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void systemsOnOneMap();
    void localObjects();
    void selectedOnTheMap();
    void rectangle();
    void menuOfTheMap();
    void shownAndHidden();
    void search();
    void properties();
    void filesOfTheModel();
    void faultyFilesAtOnce();
    void sampleIsOffered();
    void recentFiles();

private:
    QString write(const char* name, const QByteArray& bytes)
    {
        return writeFile(m_folder.filePath(QString::fromLatin1(name)), bytes);
    }
    /// A window without a model.
    void openWindow()
    {
        m_window.reset();
        m_context->model = Model();
        m_context->modelPaths.clear();
        m_context->selectedIds.clear();
        m_window = std::make_unique<MainWindow>(*m_context);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys)
    {
        QTest::mousePress(&map(), Qt::LeftButton, keys, from);
        QMouseEvent move(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, keys);
        QApplication::sendEvent(&map(), &move);
        QTest::mouseRelease(&map(), Qt::LeftButton, keys, to);
    }
    template <typename Child>
    Child* find(const char* name) const
    {
        return m_window->findChild<Child*>(QString::fromLatin1(name));
    }
    void trigger(const char* name) const { find<QAction>(name)->trigger(); }
    QTreeWidgetItem* row(const char* name) const
    {
        return find<QTreeWidget>("objectTree")
            ->findItems(QString::fromLatin1(name), Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }
    MapView& map() const { return *m_window->findChild<MapView*>(); }
    QPoint at(double x, double y) const { return map().pixelOf(x, y).toPoint(); }
    QString counts() const { return find<QLabel>("objectCounts")->text(); }
    QStringList figures(const char* list) const
    {
        QStringList rows;
        for (const QTreeWidgetItem* item :
             find<QTreeWidget>(list)->findItems(QString(), Qt::MatchContains | Qt::MatchRecursive)) {
            QStringList cells;
            for (int column = 0; column < item->columnCount(); ++column)
                cells.append(item->text(column));
            rows.append(cells.join(QLatin1Char('|')));
        }
        return rows;
    }

    QTemporaryDir m_folder;
    QString m_places; ///< two points and an area of EPSG:28350
    std::unique_ptr<HostContext> m_context;
    std::unique_ptr<MainWindow> m_window;
};

void MainWindowTest::initTestCase()
{
    useTestSettings(m_folder.path());
    m_context = std::make_unique<HostContext>();
    m_places =
        write("places.geojson",
              R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:28350"}},"features":[
{"type":"Feature","properties":{"name":"west","Au":1.5,"rock":"gneiss"},"geometry":{"type":"LineString","coordinates":[[500000,7500000,10],[500400,7500000,12.5]]}},
{"type":"Feature","properties":{"name":"east","Au":null,"rock":"gneiss"},"geometry":{"type":"LineString","coordinates":[[500800,7500000],[500800,7500400]]}},
{"type":"Feature","properties":{"name":"area","Au":3,"rock":"shale"},"geometry":{"type":"Polygon","coordinates":[[[500100,7500100],[500300,7500100],[500300,7500300],[500100,7500300],[500100,7500100]],[[500150,7500150],[500250,7500150],[500250,7500250],[500150,7500250],[500150,7500150]]]}}]})");
    m_places = write("places.kpmodel", R"({"version":1,"objects":[{"file":"places.geojson","nameField":"name"}]})");
}

void MainWindowTest::init()
{
    openWindow();
    m_window->openModel(m_places);
    QCOMPARE(m_context->model.objects().size(), std::size_t(3));
}

/// Degrees and metres of one place come to lie on each other.
void MainWindowTest::systemsOnOneMap()
{
    // Easting 500400, northing 7500100 by gdaltransform.
    m_window->openModel(write("point.csv", "longitude,latitude,z\n117.003892,-22.605953,0\n"));
    QCOMPARE(map().frames().size(), std::size_t(1));
    QCOMPARE(map().frames()[0].unit, QStringLiteral("m"));
    trigger("zoomAction");
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::NoModifier, at(500400, 7500100));
    QCOMPARE(m_context->selectedIds, std::set<int>{4});
    QVERIFY(!find<QFrame>("frameBar")->isVisible());
    QTest::mouseMove(&map(), at(500500.0, 7500200.0));
    QTRY_VERIFY(find<QLabel>("mapPosition")->text().endsWith(QStringLiteral("GDA94 / MGA zone 50 (EPSG:28350)")));

    // What was put together in degrees goes over to the first system with lengths.
    openWindow();
    m_window->openModel(m_folder.filePath(QStringLiteral("point.csv")));
    QCOMPARE(map().frames()[0].unit, QStringLiteral("degrees"));
    m_window->openModel(m_places);
    QCOMPARE(map().frames().size(), std::size_t(1));
    QCOMPARE(map().frames()[0].unit, QStringLiteral("m"));
}

void MainWindowTest::localObjects()
{
    m_window->openModel(write("local.csv", "x,y,z\n10,20,0\n30,40,0\n"));
    QCOMPARE(map().frames().size(), std::size_t(2));
    auto* choice = find<QComboBox>("frameChoice");
    QVERIFY(find<QFrame>("frameBar")->isVisible());
    // What was opened last is shown.
    QCOMPARE(choice->currentText(), QStringLiteral("no coordinate system (1)"));
    QCOMPARE(find<QLabel>("frameText")->text(), QStringLiteral("3 objects have no place among those that are shown: "
                                                               "their coordinates are local or another's."));
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::NoModifier, at(10, 20));
    QCOMPARE(m_context->selectedIds, std::set<int>{4});
    QTest::keyClick(choice, Qt::Key_Up);
    QCOMPARE(map().shownFrame(), 0);
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::NoModifier, at(500200, 7500000));
    QCOMPARE(m_context->selectedIds, std::set<int>{1});
}

void MainWindowTest::selectedOnTheMap()
{
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::NoModifier, at(500200, 7500000));
    QCOMPARE(m_context->selectedIds, std::set<int>{1});
    QVERIFY(row("west")->isSelected());
    QCOMPARE(counts(), QStringLiteral("3 objects, 1 selected"));
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::ControlModifier, at(500120, 7500200));
    QCOMPARE(m_context->selectedIds, (std::set<int>{1, 3}));
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::ControlModifier, at(500200, 7500000));
    QCOMPARE(m_context->selectedIds, std::set<int>{3});
    // A hole is not the area, and beside everything is nothing.
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::NoModifier, at(500200, 7500200));
    QCOMPARE(m_context->selectedIds, std::set<int>());
    // What is hidden is not hit, and a drag is no click.
    row("west")->setCheckState(0, Qt::Unchecked);
    QTest::mouseClick(&map(), Qt::LeftButton, Qt::NoModifier, at(500200, 7500000));
    const QPoint from = at(500120, 7500200);
    drag(from, from + QPoint(40, 0), Qt::NoModifier);
    QCOMPARE(m_context->selectedIds, std::set<int>());
    QCOMPARE(at(500120, 7500200), from + QPoint(40, 0));
}

void MainWindowTest::rectangle()
{
    // Across a line without holding one of its vertices, and the border of the area.
    drag(at(500200, 7500120), at(500240, 7499980), Qt::ShiftModifier);
    QCOMPARE(m_context->selectedIds, (std::set<int>{1, 3}));
    drag(at(500790, 7500110), at(500810, 7500100), Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(m_context->selectedIds, (std::set<int>{1, 2, 3}));
    // Within the area, within its hole.
    drag(at(500110, 7500140), at(500140, 7500120), Qt::ShiftModifier);
    QCOMPARE(m_context->selectedIds, std::set<int>{3});
    drag(at(500180, 7500220), at(500220, 7500180), Qt::ShiftModifier);
    QCOMPARE(m_context->selectedIds, std::set<int>());
}

void MainWindowTest::menuOfTheMap()
{
    QTest::mousePress(&map(), Qt::RightButton, Qt::NoModifier, at(500800, 7500200));
    QCOMPARE(m_context->selectedIds, std::set<int>{2});
    QCOMPARE(find<QAction>("exportSelectedAction")->text(), QStringLiteral("&Export 1 Selected..."));
    QContextMenuEvent event(QContextMenuEvent::Mouse, at(500800, 7500200), map().mapToGlobal(at(500800, 7500200)));
    QApplication::sendEvent(&map(), &event);
    auto* menu = find<QMenu>("selectionMenu");
    QTRY_VERIFY(menu->isVisible());
    menu->close();
    trigger("selectNothingAction");
    QVERIFY(m_context->selectedIds.empty() && !find<QAction>("exportSelectedAction")->isEnabled());
}

void MainWindowTest::shownAndHidden()
{
    const auto shown = [this] {
        QStringList names;
        for (const char* name : {"west", "east", "area"}) {
            if (row(name)->checkState(0) == Qt::Checked)
                names.append(QString::fromLatin1(name));
        }
        return names.join(QLatin1Char(' '));
    };
    find<QTreeWidget>("objectTree")->setCurrentItem(row("east"));
    QTest::keyClick(m_window.get(), Qt::Key_H, Qt::ControlModifier);
    QCOMPARE(shown(), QStringLiteral("west area"));
    trigger("showOnlyAction");
    QCOMPARE(shown(), QStringLiteral("east"));
    trigger("showAllAction");
    QCOMPARE(shown(), QStringLiteral("west east area"));
}

void MainWindowTest::search()
{
    auto* edit = find<QLineEdit>("searchTree");
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("POLYL wes"));
    QVERIFY(!row("west")->isHidden() && row("east")->isHidden() && row("Polygons")->isHidden());
    // A group that is selected means what the search shows of it.
    find<QTreeWidget>("objectTree")->setCurrentItem(row("Polylines"));
    QCOMPARE(m_context->selectedIds, std::set<int>{1});
    edit->clear();
    QVERIFY(!row("east")->isHidden() && !row("Polygons")->isHidden());
}

void MainWindowTest::properties()
{
    QTest::keyClick(m_window.get(), Qt::Key_F4);
    QVERIFY(find<QDockWidget>("propertiesDock")->isVisible());
    QCOMPARE(figures("propertyList"),
             QStringList{QStringLiteral("Nothing selected|Select objects on the map or in the list")});
    find<QTreeWidget>("objectTree")->setCurrentItem(row("west"));
    QCOMPARE(
        figures("propertyList"),
        (QStringList{QStringLiteral("Name|west"), QStringLiteral("Type|Polylines"), QStringLiteral("Set|places"),
                     QStringLiteral("File|places.geojson"), QStringLiteral("Vertices|2"), QStringLiteral("Parts|1"),
                     QStringLiteral("Coordinate system|GDA94 / MGA zone 50 (EPSG:28350)"),
                     QStringLiteral("X|500,000.00 to 500,400.00"), QStringLiteral("Y|7,500,000.00 to 7,500,000.00"),
                     QStringLiteral("Z|10.00 to 12.50"), QStringLiteral("Unit of lengths|m")}));
    QVERIFY2(figures("attributeList").contains(QStringLiteral("Au|number||1|0|1.5")),
             qPrintable(figures("attributeList").join(QLatin1Char('\n'))));
    const QAbstractItemModel* vertices = find<QTableView>("vertexTable")->model();
    QCOMPARE(vertices->index(1, 0).data().toString(), QStringLiteral("500,400.000"));
    QCOMPARE(vertices->index(1, 2).data().toString(), QStringLiteral("12.500"));
    // Numbers of vertices: range, mean and what is missing.
    m_window->openModel(write("assays.csv", "x,y,z,Cu,rock\n500000,7500000,1,2,gneiss\n500001,7500000,1,,shale\n500002,"
                                            "7500000,1,4,gneiss\n"));
    find<QTreeWidget>("objectTree")->setCurrentItem(row("assays"));
    QCOMPARE(figures("attributeList"), (QStringList{QStringLiteral("Cu|whole number||2|1|2 to 4, mean 3"),
                                                    QStringLiteral("rock|text||3|0|2 different, such as gneiss")}));
    find<QTreeWidget>("objectTree")->selectAll();
    QVERIFY2(figures("propertyList").contains(QStringLiteral("Vertices|17")),
             qPrintable(figures("propertyList").join(QLatin1Char('\n'))));
}

void MainWindowTest::filesOfTheModel()
{
    const QString more = write("more.csv", "x,y,z\n1,2,3\n");
    m_window->openModel(more);
    auto* menu = find<QMenu>("filesMenu");
    Q_EMIT menu->aboutToShow();
    QCOMPARE(menu->actions().at(3)->text(), QStringLiteral("Remove more.csv"));
    // What has changed on the disk since.
    write("more.csv", "x,y,z\n1,2,3\n4,5,6\n");
    menu->actions().at(0)->trigger();
    QCOMPARE(m_context->model.objects().size(), std::size_t(4));
    QCOMPARE(m_context->model.objects().back().vertexCount(), 2);
    Q_EMIT menu->aboutToShow();
    menu->actions().at(2)->trigger();
    QCOMPARE(m_context->modelPaths, QStringList{more});
    QCOMPARE(counts(), QStringLiteral("1 object"));
    QCOMPARE(m_context->model.objects().front().id, 1);
    QVERIFY(row("more") && !row("west"));
}

void MainWindowTest::faultyFilesAtOnce()
{
    const BoxAnswer box(QMessageBox::Ok);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write("bad.ply", "none")), QUrl::fromLocalFile(write("good.csv", "x,y\n1,2\n")),
                  QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("absent.csv")))});
    QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QDropEvent drop(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    QTRY_COMPARE(box.texts.size(), 1);
    QCOMPARE(box.texts.front(), QStringLiteral("2 of 3 files could not be opened."));
    QCOMPARE(counts(), QStringLiteral("4 objects"));
}

void MainWindowTest::sampleIsOffered()
{
    openWindow();
    m_window->offerSample(m_places);
    auto* button = find<QPushButton>("openSample");
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(counts(), QStringLiteral("3 objects"));
    QVERIFY(!button->isVisible());
}

void MainWindowTest::recentFiles()
{
    auto* menu = find<QMenu>("recentFiles");
    const QString gone = write("gone.csv", "x,y\n1,2\n");
    m_window->openModel(gone);
    m_window->openModel(m_places);
    QVERIFY(QFile::remove(gone));
    Q_EMIT menu->aboutToShow();
    QCOMPARE(menu->actions().front()->toolTip(), m_places);
    for (const QAction* action : menu->actions())
        QVERIFY(action->text() != QLatin1String("gone.csv"));
    menu->actions().front()->trigger();
    QCOMPARE(counts(), QStringLiteral("10 objects"));
}

QTEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
