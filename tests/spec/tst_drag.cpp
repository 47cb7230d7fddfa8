// SPDX-License-Identifier: MIT
// Dragging attributes and fields with the mouse, through Qt's own drag and drop.
#include "tests/spec/MouseDrag.h"
#include "tests/spec/SpecificationEditor.h"

#include <QDrag>
#include <QMimeData>
#include <QSignalSpy>

using namespace kpBaseExport;

namespace
{

/// Drops on the field table while a drag of the list of attributes is under way, with data of the test's own making.
class DropWithin : public QObject
{
public:
    DropWithin(SpecificationEditor& editor, QWidget* source, QMimeData* data, int row)
    {
        QTimer::singleShot(0, this, [&editor, data, row, this] {
            QWidget* viewport = editor.m_fieldTable->viewport();
            QDragEnterEvent enter(QPoint(5, 5), both, data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &enter);
            entered = enter.isAccepted();
            QDropEvent drop(middleOf(editor.m_fieldTable, row), both, data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &drop);
            accepted = drop.isAccepted();
            action = drop.dropAction();
            QTest::keyClick(editor.windowHandle(), Qt::Key_Escape);
        });
        auto* drag = new QDrag(source);
        drag->setMimeData(data);
        drag->exec(both);
    }
    static constexpr Qt::DropActions both = Qt::CopyAction | Qt::MoveAction;
    bool entered = false;
    bool accepted = false;
    Qt::DropAction action = Qt::IgnoreAction;
};

} // namespace

class DragTest : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { openEditor(); }

    void dragIntoAGroup()
    {
        enter("a Facies:sand Facies:shale");
        // The group itself cannot be dragged.
        dragByMouse(m_list, 0, m_table, QPoint(20, 20));
        QCOMPARE(m_editor->size(), 0);
        m_editor->populateAttributes(QStringLiteral("Facies"));
        dragByMouse(m_list, 1, m_table, QPoint(20, 20));
        QCOMPARE(m_editor->lists(), QStringLiteral("Facies:sand | .. shale"));
    }

    void dragToReorder()
    {
        enter("a b c", {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 12, 18), fieldOf("c", 2, 21, 30)});
        m_table->item(0, 1)->setText(QStringLiteral("3"));
        m_table->item(0, 2)->setText(QStringLiteral("8"));
        QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
        dragByMouse(m_table, 0, m_table, middleOf(m_table, 2));
        QCOMPARE(m_editor->fieldNames(), words("b c a"));
        QCOMPARE(changed.last().first().toStringList(), words("b c a"));
        QCOMPARE(SpecificationEditor::columnOf(*m_table, 1), words("3 10 10"));
        QCOMPARE(SpecificationEditor::columnOf(*m_table, 2), words("4 4 8"));
        QCOMPARE(m_editor->columns(), QStringLiteral("b 1-10, c 12-18, a 21-30"));
        QCOMPARE(m_editor->fault(), QString());

        m_editor->setMode(QExportSpecification::ColumnBased);
        QTest::qWait(0);
        dragByMouse(m_columns, 2, m_columns, middleOf(m_columns, 0));
        QCOMPARE(m_editor->columns(), QStringLiteral("a 1-10, b 12-18, c 21-30"));
        QCOMPARE(m_editor->fault(), QString());
        // Onto itself, onto the empty space, from the other m_table: nothing.
        changed.clear();
        dragByMouse(m_columns, 1, m_columns, middleOf(m_columns, 1));
        dragByMouse(m_columns, 1, m_columns, middleOf(m_columns, 3));
        QCOMPARE(m_editor->fieldNames(), words("a b c"));
        QCOMPARE(changed.size(), 0);
    }

    void dropOnTheList()
    {
        enter("a b c", {fieldOf("a", 0), fieldOf("b", 1)});
        dragByMouse(m_table, 0, m_list, middleOf(m_list, 0));
        QCOMPARE(m_editor->fieldNames(), words("a b"));
        m_list->setDragDropMode(QAbstractItemView::DragDrop);
        m_list->viewport()->setAcceptDrops(true);
        dragByMouse(m_table, 0, m_list, middleOf(m_list, 0));
        QCOMPARE(m_editor->lists(), QStringLiteral("b | a c"));
        QCOMPARE(m_editor->fault(), QString());
    }

    void dragOutOfTheColumns()
    {
        // The list lies on the other page; a host may show it beside the columns.
        enter("a b c", {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 12, 18), fieldOf("c", 2, 21, 30)});
        m_editor->setMode(QExportSpecification::ColumnBased);
        m_editor->vboxLayout3->insertWidget(0, m_list);
        m_list->show();
        m_list->setDragDropMode(QAbstractItemView::DragDrop);
        m_list->viewport()->setAcceptDrops(true);
        QTest::qWait(0);
        dragByMouse(m_columns, 1, m_list, QPoint(20, 20));
        QCOMPARE(m_editor->lists(), QStringLiteral("a c | b"));
        QCOMPARE(m_editor->columns(), QStringLiteral("a 1-10, c 21-30"));
        QCOMPARE(m_editor->fault(), QString());
        // And back in, to where it is dropped.
        dragByMouse(m_list, 0, m_columns, middleOf(m_columns, 1));
        QCOMPARE(m_editor->columns(), QStringLiteral("a 1-10, b 11-21, c 22-31"));
        QCOMPARE(m_editor->fault(), QString());
    }

    void tablesWithoutEditor()
    {
        // Tables that a host has given no sheet take drags and leave everything as it is.
        QWidget page;
        QHBoxLayout layout(&page);
        QESAttributeTableWidget list;
        QESSpecificationTableWidget fields;
        list.setSource(&fields);
        fields.setSource(&list);
        for (QTableWidget* table : {static_cast<QTableWidget*>(&list), static_cast<QTableWidget*>(&fields)}) {
            table->setColumnCount(1);
            table->setRowCount(1);
            table->setItem(0, 0, new QTableWidgetItem(QStringLiteral("a")));
            table->setDragDropMode(QAbstractItemView::DragDrop);
            table->setSelectionBehavior(QAbstractItemView::SelectRows);
            table->setSelectionMode(QAbstractItemView::SingleSelection);
            layout.addWidget(table);
        }
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        dragByMouse(&list, 0, &fields, QPoint(20, 60));
        dragByMouse(&fields, 0, &list, QPoint(20, 60));
        QVERIFY(list.rowCount() == 1 && fields.rowCount() == 1);
    }

    void foreignData()
    {
        enter("a b c d", {fieldOf("c", 0), fieldOf("d", 1)});
        // Two attributes at once, as Qt packs them: sorted, the first at the row of the drop.
        QTableWidget packer(2, 1);
        packer.setItem(0, 0, new QTableWidgetItem(QStringLiteral("b")));
        packer.setItem(1, 0, new QTableWidgetItem(QStringLiteral("a")));
        const QAbstractItemModel* model = packer.model();
        const auto packed = [model] { return model->mimeData({model->index(0, 0), model->index(1, 0)}); };
        const DropWithin both(*m_editor, m_list, packed(), 1);
        QVERIFY(both.entered && both.accepted && both.action == Qt::MoveAction);
        QCOMPARE(m_editor->fieldNames(), words("c a b d"));
        // The same again, foreign sources, other and broken data change nothing.
        const DropWithin again(*m_editor, m_list, packed(), 1);
        QCOMPARE(m_editor->size(), 4);
        const DropWithin foreign(*m_editor, m_editor->m_nullEdit, packed(), 1);
        QVERIFY(!foreign.entered && !foreign.accepted);
        auto* text = new QMimeData;
        text->setText(QStringLiteral("a"));
        const DropWithin other(*m_editor, m_list, text, 0);
        QVERIFY(other.entered && !other.accepted);
        auto* broken = new QMimeData;
        broken->setData(QStringLiteral("application/x-qabstractitemmodeldatalist"),
                        QByteArray("\0\0\0\0\0\0\0\0\x7f\xff\xff\xff\0\0\0\x08garbage", 23));
        const DropWithin damaged(*m_editor, m_list, broken, 0);
        QCOMPARE(m_editor->fieldNames(), words("c a b d"));
        QCOMPARE(m_editor->fault(), QString());
    }
};

KP_DRAG_TEST_MAIN(DragTest)
#include "tst_drag.moc"
