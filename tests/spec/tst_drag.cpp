// SPDX-License-Identifier: MIT
// Dragging attributes and fields with the mouse, through Qt's own drag and drop.
#include "tests/spec/MouseDrag.h"
#include "tests/spec/SpecificationEditor.h"

#include <QDrag>
#include <QMimeData>
#include <QSignalSpy>

#include <memory>

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
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &enter);
            entered = enter.isAccepted();
            QDropEvent drop(middleOf(editor.m_fieldTable, row), Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &drop);
            accepted = drop.isAccepted();
            action = drop.dropAction();
            QTest::keyClick(editor.windowHandle(), Qt::Key_Escape);
        });
        auto* drag = new QDrag(source);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction | Qt::MoveAction);
    }
    bool entered = false;
    bool accepted = false;
    Qt::DropAction action = Qt::IgnoreAction;
};

} // namespace

class DragTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_editor = std::make_unique<SpecificationEditor>();
        m_editor->resize(760, 420);
        m_editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    }
    void cleanup() { m_editor.reset(); }
    void dragIntoTheTable();
    void dragIntoAGroup();
    void dragToReorder();
    void dropOnTheList();
    void foreignData();

private:
    std::unique_ptr<SpecificationEditor> m_editor;
};

void DragTest::dragIntoTheTable()
{
    m_editor->offer(words("a b c d"));
    m_editor->addField(fieldOf("c", 0));
    m_editor->addField(fieldOf("d", 1));
    m_editor->activate();
    QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
    dragByMouse(m_editor->m_attributeTable, 1, m_editor->m_fieldTable, middleOf(m_editor->m_fieldTable, 1));
    QCOMPARE(m_editor->fieldNames(), words("c b d"));
    QCOMPARE(m_editor->listed(), words("a"));
    QVERIFY(!changed.isEmpty());
    dragByMouse(m_editor->m_attributeTable, 0, m_editor->m_fieldTable, middleOf(m_editor->m_fieldTable, 3));
    QCOMPARE(m_editor->fieldNames(), words("c b d a"));
    QVERIFY(m_editor->listed().isEmpty());
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
}

void DragTest::dragIntoAGroup()
{
    m_editor->offer(words("a Facies:sand Facies:shale"));
    m_editor->activate();
    // The group itself cannot be dragged.
    dragByMouse(m_editor->m_attributeTable, 0, m_editor->m_fieldTable, QPoint(20, 20));
    QCOMPARE(m_editor->size(), 0);
    m_editor->populateAttributes(QStringLiteral("Facies"));
    dragByMouse(m_editor->m_attributeTable, 1, m_editor->m_fieldTable, QPoint(20, 20));
    QCOMPARE(m_editor->fieldNames(), words("Facies:sand"));
    QCOMPARE(m_editor->listed(), words(".. shale"));
}

void DragTest::dragToReorder()
{
    m_editor->offer(words("a b c"));
    for (const QESAttribute& each : {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 12, 18), fieldOf("c", 2, 21, 30)})
        m_editor->addField(each);
    m_editor->activate();
    m_editor->m_fieldTable->item(0, 1)->setText(QStringLiteral("3"));
    m_editor->m_fieldTable->item(0, 2)->setText(QStringLiteral("8"));
    QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
    dragByMouse(m_editor->m_fieldTable, 0, m_editor->m_fieldTable, middleOf(m_editor->m_fieldTable, 2));
    QCOMPARE(m_editor->fieldNames(), words("b c a"));
    QCOMPARE(changed.last().first().toStringList(), words("b c a"));
    QCOMPARE(SpecificationEditor::columnOf(*m_editor->m_fieldTable, 1), words("3 10 10"));
    QCOMPARE(SpecificationEditor::columnOf(*m_editor->m_fieldTable, 2), words("4 4 8"));
    QCOMPARE(m_editor->columns(), QStringList({QStringLiteral("b 1-10"), QStringLiteral("c 12-18"), QStringLiteral("a 21-30")}));
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));

    m_editor->setMode(QExportSpecification::ColumnBased);
    QTest::qWait(0);
    dragByMouse(m_editor->m_columnTable, 2, m_editor->m_columnTable, middleOf(m_editor->m_columnTable, 0));
    QCOMPARE(m_editor->columns(), QStringList({QStringLiteral("a 1-10"), QStringLiteral("b 12-18"), QStringLiteral("c 21-30")}));
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
    // Onto itself, onto the empty space, from the other table: nothing.
    changed.clear();
    dragByMouse(m_editor->m_columnTable, 1, m_editor->m_columnTable, middleOf(m_editor->m_columnTable, 1));
    dragByMouse(m_editor->m_columnTable, 1, m_editor->m_columnTable, middleOf(m_editor->m_columnTable, 3));
    QCOMPARE(m_editor->fieldNames(), words("a b c"));
    QCOMPARE(changed.size(), 0);
}

void DragTest::dropOnTheList()
{
    m_editor->offer(words("a b c"));
    for (const QESAttribute& each : {fieldOf("a", 0), fieldOf("b", 1)})
        m_editor->addField(each);
    m_editor->activate();
    dragByMouse(m_editor->m_fieldTable, 0, m_editor->m_attributeTable, middleOf(m_editor->m_attributeTable, 0));
    QCOMPARE(m_editor->fieldNames(), words("a b"));
    m_editor->m_attributeTable->setDragDropMode(QAbstractItemView::DragDrop);
    m_editor->m_attributeTable->viewport()->setAcceptDrops(true);
    dragByMouse(m_editor->m_fieldTable, 0, m_editor->m_attributeTable, middleOf(m_editor->m_attributeTable, 0));
    QCOMPARE(m_editor->fieldNames(), words("b"));
    QCOMPARE(m_editor->listed(), words("a c"));
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
}

void DragTest::foreignData()
{
    m_editor->offer(words("a b c d"));
    for (const QESAttribute& each : {fieldOf("c", 0), fieldOf("d", 1)})
        m_editor->addField(each);
    m_editor->activate();
    // Two attributes at once, as Qt packs them: sorted, the first at the row of the drop.
    QTableWidget packer(2, 1);
    packer.setItem(0, 0, new QTableWidgetItem(QStringLiteral("b")));
    packer.setItem(1, 0, new QTableWidgetItem(QStringLiteral("a")));
    const auto packed = [&packer] { return packer.model()->mimeData({packer.model()->index(0, 0), packer.model()->index(1, 0)}); };
    const DropWithin both(*m_editor, m_editor->m_attributeTable, packed(), 1);
    QVERIFY(both.entered && both.accepted && both.action == Qt::MoveAction);
    QCOMPARE(m_editor->fieldNames(), words("c a b d"));
    // The same again, foreign sources, other and broken data change nothing.
    const DropWithin again(*m_editor, m_editor->m_attributeTable, packed(), 1);
    QCOMPARE(m_editor->size(), 4);
    const DropWithin foreign(*m_editor, m_editor->m_nullEdit, packed(), 1);
    QVERIFY(!foreign.entered && !foreign.accepted);
    auto* text = new QMimeData;
    text->setText(QStringLiteral("a"));
    const DropWithin other(*m_editor, m_editor->m_attributeTable, text, 0);
    QVERIFY(other.entered && !other.accepted);
    auto* broken = new QMimeData;
    broken->setData(QStringLiteral("application/x-qabstractitemmodeldatalist"), QByteArray("\0\0\0\0\0\0\0\0\x7f\xff\xff\xff\0\0\0\x08garbage", 23));
    const DropWithin damaged(*m_editor, m_editor->m_attributeTable, broken, 0);
    QCOMPARE(m_editor->fieldNames(), words("c a b d"));
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
}

KP_DRAG_TEST_MAIN(DragTest)
#include "tst_drag.moc"
