// SPDX-License-Identifier: MIT
// The layout editor: how its lists stay the same, the controls, the mouse, the files.
#include "host/data/FormatFile.h"
#include "spec/FieldLayout.h"
#include "spec/QESSpinBoxColumnDelegate.h"
#include "tests/TestSettings.h"
#include "tests/app/FileContent.h"
#include "tests/spec/SpecificationEditor.h"

#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace kpBaseExport;

class SpecificationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void newEditor();
    void signalAndSlots();
    void orderAndColumns();
    void insertion();
    void groups();
    void gridIndicesAndAdditional();
    void cellEdits();
    void ranges_data();
    void ranges();
    void rangesWithoutRoom();
    void arrows();
    void keyboard();
    void randomSequences_data();
    void randomSequences();
    void saveAndLoad();
    void loading();
    void directoryIsRemembered();
    void strangeNames();
    void manyAttributes();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<SpecificationEditor> m_editor;
};

void SpecificationTest::initTestCase()
{
    useTestSettings(m_folder.path());
}

void SpecificationTest::init()
{
    m_editor = std::make_unique<SpecificationEditor>();
    m_editor->resize(760, 420);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
}

void SpecificationTest::cleanup()
{
    m_editor.reset();
}

void SpecificationTest::newEditor()
{
    QCOMPARE(m_editor->mode(), QExportSpecification::FieldBased);
    QCOMPARE(m_editor->m_stackedWidget->currentIndex(), 0);
    QVERIFY(!m_editor->m_toFieldButton->isEnabled() && !m_editor->m_toAttributeButton->isEnabled());
    QVERIFY(!m_editor->isNull() && !m_editor->m_nullEdit->isEnabled() && m_editor->null().isEmpty());
    QCOMPARE(m_editor->m_nullEdit->text(), QStringLiteral("1.0E37"));
    m_editor->m_nullCheck->click();
    QCOMPARE(m_editor->null(), QStringLiteral("1.0E37"));
    QCOMPARE(m_editor->separator(), QExportSpecification::Tab);
    for (const auto separator : {QExportSpecification::Space, QExportSpecification::Comma, QExportSpecification::SemiColon, QExportSpecification::Tab}) {
        m_editor->setSeparator(separator);
        QCOMPARE(m_editor->m_separatorCombo->currentIndex(), static_cast<int>(separator));
        QCOMPARE(m_editor->separator(), separator);
    }
    QTest::mouseClick(m_editor->m_columnRadio, Qt::LeftButton);
    QVERIFY(m_editor->mode() == QExportSpecification::ColumnBased && m_editor->m_stackedWidget->currentIndex() == 1 && !m_editor->m_separatorCombo->isEnabled());
    m_editor->setMode(QExportSpecification::FieldBased);
    QVERIFY(m_editor->m_stackedWidget->currentIndex() == 0 && m_editor->m_separatorCombo->isEnabled());
    QESAttribute out;
    out.end() = 77;
    m_editor->getStringNonAttribute(QStringLiteral("Name"), 6, out);
    QVERIFY(out.name() == QLatin1String("Name") && out.type() == QLatin1String("string") && out.order() == 6 && out.width() == 12 && out.end() == 77);
    m_editor->getNonAttribute(QStringLiteral("Name"), out);
    QCOMPARE(out.order(), 6);
    m_editor->getNonAttribute(QStringLiteral("Y"), out);
    QVERIFY(out.typeId() == -2 && out.start() == 15 && out.end() == 28 && out.width() == 14 && out.precision() == 4);
}

void SpecificationTest::signalAndSlots()
{
    QStringList names;
    const QMetaObject& meta = QExportSpecification::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
        names.append(QString::fromLatin1(meta.method(index).name()));
    QCOMPARE(names, words("onSpecChange columnTableCellChanged onFieldToggle onColumnToggle onToFieldClicked onToAttributeClicked "
                          "onFieldSelectionChanged onColumnSelectionChanged onAttributeSelectionChanged onNullChecked "
                          "onLoadFormatClicked onSaveFormatClicked onAttributeDoubleClicked"));
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("onSpecChange(QStringList)"));
}

void SpecificationTest::orderAndColumns()
{
    m_editor->offer(words("a b c d X"));
    for (const QESAttribute& each : {fieldOf("a", 3), fieldOf("b", -1), fieldOf("c", 0), fieldOf("gone", 1)})
        m_editor->addField(each);
    QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
    m_editor->activate();
    QCOMPARE(m_editor->refreshed, 1);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toStringList(), words("c a b"));
    QCOMPARE(m_editor->columns(), QStringList({QStringLiteral("c 0-10"), QStringLiteral("a 11-21"), QStringLiteral("b 22-32")}));
    m_editor->deactivate();
    QVERIFY(!m_editor->hasAttribute(QStringLiteral("gone")));
    QCOMPARE(m_editor->specification()[QStringLiteral("a")].order(), 1);

    // Equal orders: the later name first. Columns that overlap move, others stay.
    m_editor->clearFields();
    for (const QESAttribute& each : {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 5, 8), fieldOf("c", 2, 20, 25), fieldOf("d", 2)})
        m_editor->addField(each);
    m_editor->activate();
    QCOMPARE(m_editor->columns(), QStringList({QStringLiteral("a 1-10"), QStringLiteral("b 11-14"), QStringLiteral("d 15-25"), QStringLiteral("c 26-31")}));

    m_editor->clear();
    m_editor->offer(words("X"));
    QESAttribute x;
    m_editor->getNonAttribute(QStringLiteral("X"), x);
    m_editor->addField(x);
    m_editor->activate();
    QCOMPARE(m_editor->field(0).name(), QStringLiteral("x"));
    QCOMPARE(m_editor->field(0).end(), 14);
    QCOMPARE(m_editor->field(1).name(), QString());
    QCOMPARE(m_editor->m_attributeTable->horizontalHeaderItem(0)->text(), QStringLiteral("Attribute"));
}

void SpecificationTest::insertion()
{
    m_editor->offer(words("a b c new"));
    for (const QESAttribute& each : {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 15, 20), fieldOf("c", 2, 30, 35)})
        m_editor->addField(each);
    m_editor->activate();
    m_editor->addAttributeToSpec(1, fieldOf("new", 0));
    QCOMPARE(m_editor->columns(), QStringList({QStringLiteral("a 1-10"), QStringLiteral("new 11-21"), QStringLiteral("b 22-27"), QStringLiteral("c 30-35")}));
    QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
    m_editor->addAttributeToSpec(0, fieldOf("new", 0));
    QCOMPARE(m_editor->size(), 4);
    QCOMPARE(changed.size(), 1);
    // A field that has gone leaves its columns empty.
    m_editor->deleteAttributeFromSpec(fieldOf("b", 0));
    QCOMPARE(m_editor->columns(), QStringList({QStringLiteral("a 1-10"), QStringLiteral("new 11-21"), QStringLiteral("c 30-35")}));
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
    // The specification takes the fields over when the page is left.
    QCOMPARE(m_editor->field(1).name(), QString());
    m_editor->deactivate();
    QCOMPARE(m_editor->field(1).name(), QStringLiteral("new"));
    QVERIFY(m_editor->hasAttribute(QStringLiteral("new")) && !m_editor->hasAttribute(QStringLiteral("b")));
}

void SpecificationTest::groups()
{
    m_editor->offer(words("depth Facies:sand Facies:shale X"));
    m_editor->activate();
    QCOMPARE(m_editor->listed(), words("X Facies... depth"));
    // A group and the way out of it can be chosen, but not taken into the layout.
    m_editor->m_attributeTable->setCurrentCell(1, 0);
    QVERIFY(!m_editor->m_toFieldButton->isEnabled());
    const auto doubleClick = [this](int row) {
        const QPoint place = middleOf(m_editor->m_attributeTable, row);
        QTest::mouseClick(m_editor->m_attributeTable->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(m_editor->m_attributeTable->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    };
    doubleClick(1);
    QCOMPARE(m_editor->listed(), words(".. sand shale"));
    m_editor->m_attributeTable->setCurrentCell(0, 0);
    QVERIFY(!m_editor->m_toFieldButton->isEnabled());
    m_editor->m_attributeTable->setCurrentCell(1, 0);
    QVERIFY(m_editor->m_toFieldButton->isEnabled());
    QTest::mouseClick(m_editor->m_toFieldButton, Qt::LeftButton);
    QCOMPARE(m_editor->fieldNames(), words("Facies:sand"));
    m_editor->deactivate();
    m_editor->activate();
    QCOMPARE(m_editor->listed(), words(".. shale"));
    doubleClick(0);
    QCOMPARE(m_editor->listed(), words("X Facies... depth"));
    m_editor->setAttributeFilter(QStringLiteral("SH"));
    QCOMPARE(m_editor->listed(), words("Facies..."));
}

void SpecificationTest::gridIndicesAndAdditional()
{
    m_editor->offer(words("a b:1 b:2 c X Z i"));
    m_editor->setAdditionalList(words("c b:2"));
    m_editor->activate();
    QCOMPARE(m_editor->listed(), words("X Z c b... a i"));
    m_editor->setGridIndices(true);
    m_editor->activate();
    QCOMPARE(m_editor->listed(), words("i X Z c b... a"));
}

void SpecificationTest::cellEdits()
{
    m_editor->offer(words("a b"));
    m_editor->addField(fieldOf("a", 0));
    m_editor->addField(fieldOf("b", 1));
    m_editor->activate();
    QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
    m_editor->m_fieldTable->item(0, 1)->setText(QStringLiteral("7"));
    m_editor->m_fieldTable->item(0, 2)->setText(QStringLiteral("3"));
    m_editor->m_columnTable->item(1, 1)->setText(QStringLiteral("12"));
    m_editor->m_columnTable->item(1, 2)->setText(QStringLiteral("30"));
    m_editor->m_columnTable->item(1, 3)->setText(QStringLiteral("no"));
    QVERIFY(m_editor->fields()[0].width() == 7 && m_editor->fields()[0].precision() == 3);
    QVERIFY(m_editor->fields()[1].start() == 12 && m_editor->fields()[1].end() == 30 && m_editor->fields()[1].precision() == 0);
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
    m_editor->m_columnTable->item(1, 0)->setText(QStringLiteral("c"));
    QCOMPARE(m_editor->fieldNames(), words("a c"));
    // A name that is taken is put back.
    m_editor->m_fieldTable->item(1, 0)->setText(QStringLiteral("a"));
    QCOMPARE(m_editor->fieldNames(), words("a c"));
    QCOMPARE(changed.size(), 0);
}

void SpecificationTest::ranges_data()
{
    QTest::addColumn<int>("table");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    QTest::newRow("start of the first") << 1 << 0 << 1 << 1 << 9;
    QTest::newRow("end of the first") << 1 << 0 << 2 << 2 << 11;
    QTest::newRow("start between") << 1 << 1 << 1 << 11 << 17;
    QTest::newRow("end between") << 1 << 1 << 2 << 13 << 20;
    QTest::newRow("end of the last") << 1 << 2 << 2 << 22 << 130;
    QTest::newRow("decimals of a column") << 1 << 1 << 3 << 0 << 8;
    QTest::newRow("width") << 0 << 1 << 1 << 0 << 20;
    QTest::newRow("decimals of a field") << 0 << 1 << 2 << 0 << 8;
}

void SpecificationTest::ranges()
{
    QFETCH(int, table);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, least);
    QFETCH(int, most);
    m_editor->offer(words("a b c"));
    for (const QESAttribute& each : {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 12, 18), fieldOf("c", 2, 21, 30)})
        m_editor->addField(each);
    m_editor->activate();
    m_editor->setMode(table == 1 ? QExportSpecification::ColumnBased : QExportSpecification::FieldBased);
    QTableWidget* view = table == 1 ? m_editor->m_columnTable : m_editor->m_fieldTable;
    view->setCurrentCell(row, column);
    view->editItem(view->item(row, column));
    auto* box = view->findChild<QSpinBox*>();
    QVERIFY(box);
    QCOMPARE(box->minimum(), least);
    QCOMPARE(box->maximum(), most);
    QCOMPARE(box->value(), view->item(row, column)->text().toInt());
    // What is typed beyond the range does not get in.
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, QString::number(most + 1));
    QTest::keyClick(box, Qt::Key_Return);
    const int value = view->item(row, column)->text().toInt();
    QVERIFY(value >= least && value <= most);
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
}

void SpecificationTest::rangesWithoutRoom()
{
    // Fields of one column between neighbours: opening and closing the cell changes nothing.
    m_editor->offer(words("a b c"));
    for (const QESAttribute& each : {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 11, 11), fieldOf("c", 2, 12, 30)})
        m_editor->addField(each);
    m_editor->activate();
    m_editor->setMode(QExportSpecification::ColumnBased);
    for (const int column : {1, 2}) {
        m_editor->m_columnTable->setCurrentCell(1, column);
        m_editor->m_columnTable->editItem(m_editor->m_columnTable->item(1, column));
        auto* box = m_editor->m_columnTable->findChild<QSpinBox*>();
        QVERIFY(box);
        QTest::keyClick(box, Qt::Key_Up);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(m_editor->columns().at(1), QStringLiteral("b 11-11"));
        QTRY_VERIFY(!m_editor->m_columnTable->findChild<QSpinBox*>());
    }
}

void SpecificationTest::arrows()
{
    m_editor->offer(words("a b c"));
    m_editor->activate();
    for (int count = 0; count < 3; ++count) {
        m_editor->m_attributeTable->setCurrentCell(0, 0);
        QTest::mouseClick(m_editor->m_toFieldButton, Qt::LeftButton);
    }
    QCOMPARE(m_editor->fieldNames(), words("a b c"));
    QVERIFY(m_editor->listed().isEmpty() && !m_editor->m_toFieldButton->isEnabled());
    m_editor->m_fieldTable->setCurrentCell(1, 0);
    QVERIFY(m_editor->m_toAttributeButton->isEnabled());
    QTest::mouseClick(m_editor->m_toAttributeButton, Qt::LeftButton);
    QCOMPARE(m_editor->fieldNames(), words("a c"));
    QCOMPARE(m_editor->listed(), words("b"));
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
    // A field that is no longer on offer cannot be taken out.
    m_editor->deleteAttribute(QStringLiteral("a"));
    m_editor->m_fieldTable->setCurrentCell(1, 0);
    m_editor->m_fieldTable->setCurrentCell(0, 0);
    QVERIFY(!m_editor->m_toAttributeButton->isEnabled());
}

void SpecificationTest::keyboard()
{
    m_editor->offer(words("a b g:1"));
    m_editor->activate();
    m_editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_editor.get()));
    m_editor->m_attributeTable->setFocus();
    m_editor->m_attributeTable->setCurrentCell(0, 0);
    QTest::keyClick(m_editor->m_attributeTable, Qt::Key_Return);
    QCOMPARE(m_editor->fieldNames(), words("a"));
    m_editor->m_attributeTable->setCurrentCell(0, 0);
    QTest::keyClick(m_editor->m_attributeTable, Qt::Key_Right, Qt::AltModifier);
    QTRY_COMPARE(m_editor->fieldNames(), words("a b"));
    m_editor->m_attributeTable->setCurrentCell(0, 0);
    QTest::keyClick(m_editor->m_attributeTable, Qt::Key_Return);
    QCOMPARE(m_editor->listed(), words(".. 1"));
    QTest::keyClick(m_editor->m_attributeTable, Qt::Key_Down);
    QTest::keyClick(m_editor->m_attributeTable, Qt::Key_Down);
    QTest::keyClick(m_editor->m_attributeTable, Qt::Key_Return);
    QCOMPARE(m_editor->fieldNames(), words("a b g:1"));

    m_editor->m_fieldTable->setFocus();
    m_editor->m_fieldTable->setCurrentCell(2, 0);
    QTest::keyClick(m_editor->m_fieldTable, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(m_editor->fieldNames(), words("a g:1 b"));
    QCOMPARE(m_editor->m_fieldTable->currentRow(), 1);
    QTest::keyClick(m_editor->m_fieldTable, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(m_editor->m_fieldTable, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(m_editor->fieldNames(), words("a b g:1"));
    QTest::keyClick(m_editor->m_fieldTable, Qt::Key_Delete);
    QCOMPARE(m_editor->fieldNames(), words("a b"));
    // On the page of the columns the arrow button is hidden, its shortcut is not.
    m_editor->setMode(QExportSpecification::ColumnBased);
    m_editor->m_columnTable->setFocus();
    m_editor->m_columnTable->setCurrentCell(0, 0);
    QTest::keyClick(m_editor->m_columnTable, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(m_editor->fieldNames(), words("b"));
    // The order in which Tab goes through the controls.
    const QStringList wanted = words("m_fieldRadio m_columnRadio m_loadFormatButton m_saveFormatButton m_nullCheck m_nullEdit "
                                     "m_toAttributeButton m_toFieldButton m_separatorCombo m_columnTable");
    QStringList order;
    const QWidget* widget = m_editor->m_fieldRadio;
    do {
        if (wanted.contains(widget->objectName()))
            order.append(widget->objectName());
        widget = widget->nextInFocusChain();
    } while (widget != m_editor->m_fieldRadio);
    QCOMPARE(order, wanted);
    for (const QWidget* control : {static_cast<QWidget*>(m_editor->m_toFieldButton), static_cast<QWidget*>(m_editor->m_toAttributeButton),
                                   static_cast<QWidget*>(m_editor->m_loadFormatButton), static_cast<QWidget*>(m_editor->m_saveFormatButton),
                                   static_cast<QWidget*>(m_editor->m_attributeTable), static_cast<QWidget*>(m_editor->m_fieldTable)})
        QVERIFY(!control->accessibleName().isEmpty());
}

void SpecificationTest::randomSequences_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void SpecificationTest::randomSequences()
{
    struct Row
    {
        QString name;
        int start, end;
    };
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    QStringList names;
    for (int index = 0; index < 12; ++index)
        names.append(QStringLiteral("n%1").arg(index));
    m_editor->offer(names);
    m_editor->activate();
    std::vector<Row> reference;
    const auto below = [&random](std::size_t count) { return static_cast<int>(random.bounded(static_cast<quint32>(count))); };
    for (int step = 0; step < 150; ++step) {
        const int action = below(6);
        if (action <= 1) {
            // Add: right behind the row before; the rows behind give way.
            const QString name = names[below(12)];
            const int row = below(reference.size() + 1);
            QESAttribute added = m_editor->attributes()[name];
            added.width() = below(21);
            m_editor->addAttributeToSpec(row, added);
            if (std::none_of(reference.begin(), reference.end(), [&](const Row& each) { return each.name == name; })) {
                const int start = row > 0 ? reference[static_cast<std::size_t>(row) - 1].end + 1 : 0;
                reference.insert(reference.begin() + row, {name, start, start + added.width()});
                for (std::size_t at = static_cast<std::size_t>(row) + 1; at < reference.size() && reference[at].start <= reference[at - 1].end; ++at) {
                    const int shift = reference[at - 1].end + 1 - reference[at].start;
                    reference[at].start += shift;
                    reference[at].end += shift;
                }
            }
        } else if (action == 2) {
            const QString name = names[below(12)];
            m_editor->deleteAttributeFromSpec(m_editor->attributes()[name]);
            reference.erase(std::remove_if(reference.begin(), reference.end(), [&](const Row& each) { return each.name == name; }), reference.end());
        } else if (action == 3 && reference.size() > 1) {
            // Reorder: names travel, columns stay.
            m_editor->setMode(below(2) == 0 ? QExportSpecification::FieldBased : QExportSpecification::ColumnBased);
            const int from = below(reference.size());
            const int to = below(reference.size());
            m_editor->moveField(from, to);
            QStringList order;
            for (const Row& each : reference)
                order.append(each.name);
            order.move(from, to);
            for (std::size_t at = 0; at < reference.size(); ++at)
                reference[at].name = order[static_cast<int>(at)];
        } else if (action == 4 && !reference.empty()) {
            // Edit a column in its spin box.
            m_editor->setMode(QExportSpecification::ColumnBased);
            const int row = below(reference.size());
            const int column = 1 + below(2);
            QTableWidget* view = m_editor->m_columnTable;
            view->setCurrentCell(row, column);
            const std::unique_ptr<QSpinBox> box(qobject_cast<QSpinBox*>(
                view->itemDelegateForColumn(column)->createEditor(view->viewport(), {}, view->model()->index(row, column))));
            box->setValue(box->minimum() + below(static_cast<std::size_t>(box->maximum() - box->minimum() + 1)));
            view->itemDelegateForColumn(column)->setModelData(box.get(), view->model(), view->model()->index(row, column));
            Row& edited = reference[static_cast<std::size_t>(row)];
            (column == 1 ? edited.start : edited.end) = box->value();
        } else if (action == 5) {
            m_editor->deactivate();
            m_editor->activate();
            // Only the standing of a first field without columns is worked out anew.
            if (!reference.empty() && reference[0].start == 0 && reference[0].end == 0)
                break;
        }
        QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
        QStringList wanted;
        for (const Row& each : reference)
            wanted.append(QStringLiteral("%1 %2-%3").arg(each.name).arg(each.start).arg(each.end));
        QCOMPARE(m_editor->columns(), wanted);
    }
}

void SpecificationTest::saveAndLoad()
{
    m_editor->offer(words("a b X"));
    m_editor->activate();
    for (const char* name : {"b", "X", "a"})
        m_editor->addAttributeToSpec(99, m_editor->attributes()[QString::fromLatin1(name)]);
    m_editor->m_fieldTable->item(0, 1)->setText(QStringLiteral("6"));
    m_editor->m_fieldTable->item(0, 2)->setText(QStringLiteral("1"));
    m_editor->m_columnTable->item(2, 2)->setText(QStringLiteral("70"));
    m_editor->setMode(QExportSpecification::ColumnBased);
    const QStringList columns = m_editor->columns();
    chooseInDialog(m_folder.filePath(QStringLiteral("layout.KLF")));
    QTest::mouseClick(m_editor->m_saveFormatButton, Qt::LeftButton);
    const QString path = m_folder.filePath(QStringLiteral("layout.KLF.klf"));
    QVERIFY(QFile::exists(path));

    SpecificationEditor fresh;
    fresh.show();
    fresh.offer(words("a b X"));
    fresh.addField(fieldOf("gone", 0));
    QSignalSpy changed(&fresh, &QExportSpecification::onSpecChange);
    chooseInDialog(path);
    QTest::mouseClick(fresh.m_loadFormatButton, Qt::LeftButton);
    QCOMPARE(fresh.columns(), columns);
    QCOMPARE(fresh.mode(), QExportSpecification::ColumnBased);
    QCOMPARE(fresh.m_stackedWidget->currentIndex(), 1);
    QVERIFY(fresh.fields()[0].width() == 10 && fresh.fields()[0].precision() == 1 && fresh.fields()[1].typeId() == -6);
    QCOMPARE(changed.size(), 0);
    QVERIFY(fresh.missing.isEmpty());
    // Field names in the file stand in order of names.
    const std::unique_ptr<FormatFile> file(FormatFile::read(path));
    impAttribute second;
    file->field(1).getAttribute(second);
    QVERIFY(file->name() == path && second.name == "a" && second.order == 2 && second.end == 70 && second.label.empty());
}

void SpecificationTest::loading()
{
    const auto write = [this](const char* name, const QByteArray& content) { return writeFile(m_folder.filePath(QString::fromLatin1(name)), content); };
    const QByteArray table = "a double 1 8 2\nq int 9 12 0\nX double 13 20 1\n";
    m_editor->offer(words("a b"));
    m_editor->addField(fieldOf("b", 0));
    m_editor->activate();
    const auto load = [this](const QString& path) {
        chooseInDialog(path);
        m_editor->onLoadFormatClicked();
    };
    // Whatever cannot be read leaves the layout as it is; a .klf is not tried as a table.
    for (const QString& path : {QString(), write("bad.klf", table), write("bad.fmt", "{}"), write("bad.txt", "{}")}) {
        load(path);
        QCOMPARE(m_editor->fieldNames(), words("b"));
        QCOMPARE(m_editor->mode(), QExportSpecification::FieldBased);
    }
    load(write("spec.txt", table));
    QCOMPARE(m_editor->columns(), QStringList{QStringLiteral("a 1-8")});
    QCOMPARE(m_editor->mode(), QExportSpecification::ColumnBased);
    QVERIFY(m_editor->hasAttribute(QStringLiteral("q")));
    // X has a type of its own, so it is no attribute that is missing... but its code lies below those named.
    QCOMPARE(m_editor->missing, words("q X"));
    // Keys that a file holds beyond ours are written again.
    load(write("more.klf", "{\"format\":\"kp-layout\",\"version\":1,\"type\":\"fields\",\"tool\":\"t\",\"fields\":[{\"name\":\"a\",\"unit\":\"ft\"}]}"));
    QCOMPARE(m_editor->fieldNames(), words("a"));
    const std::unique_ptr<FormatFile> saved = m_editor->savedFormat(QString());
    QCOMPARE(saved->unknown().value(QStringLiteral("tool")).toString(), QStringLiteral("t"));
    QCOMPARE(saved->field(0).unknown().value(QStringLiteral("unit")).toString(), QStringLiteral("ft"));
}

void SpecificationTest::directoryIsRemembered()
{
    const QString folder = m_folder.filePath(QStringLiteral("specs"));
    QVERIFY(QDir().mkpath(folder));
    chooseInDialog(folder + QStringLiteral("/a.klf"));
    m_editor->onSaveFormatClicked();
    QCOMPARE(QSettings().value(QStringLiteral("QExportSpecification/directory")).toString(), folder + QLatin1Char('/'));
    QString openedIn;
    QTimer::singleShot(0, this, [&openedIn] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        openedIn = dialog->directory().absolutePath();
        dialog->reject();
    });
    QCOMPARE(m_editor->getFormatFile(true), QString());
    QCOMPARE(openedIn, folder);
}

void SpecificationTest::strangeNames()
{
    const QStringList names{QStringLiteral("a:b:c"), QStringLiteral("tail:"), QStringLiteral("\"q\"'`"), QStringLiteral("two\nlines\r"),
                            QString(10000, QLatin1Char('n')), QStringLiteral("地層"), QStringLiteral("%1 & <b>")};
    m_editor->offer(names);
    m_editor->activate();
    for (const char* group : {"", "a", "tail"}) {
        m_editor->populateAttributes(QString::fromLatin1(group));
        for (int row = 0; row < m_editor->m_attributeTable->rowCount();) {
            m_editor->m_attributeTable->setCurrentCell(row, 0);
            if (m_editor->m_toFieldButton->isEnabled())
                m_editor->m_toFieldButton->click();
            else
                ++row;
        }
    }
    QStringList taken = m_editor->fieldNames();
    QStringList wanted = names;
    taken.sort();
    wanted.sort();
    QCOMPARE(taken, wanted);
    const std::unique_ptr<FormatFile> file = m_editor->savedFormat(QString());
    const std::unique_ptr<FormatFile> back(FormatFile::fromBytes(file->toBytes()));
    SpecificationEditor fresh;
    fresh.offer(names);
    fresh.loadFormat(*back);
    QCOMPARE(fresh.columns(), m_editor->columns());
    QVERIFY(fresh.missing.isEmpty());
}

void SpecificationTest::manyAttributes()
{
    QStringList names;
    for (int index = 0; index < 5000; ++index)
        names.append(QStringLiteral("%1attribute %2").arg(index % 5 == 0 ? QStringLiteral("group %1:").arg(index % 100) : QString()).arg(index));
    m_editor->offer(names);
    m_editor->activate();
    QCOMPARE(m_editor->listed().size(), 4000 + 20);
    m_editor->setAttributeFilter(QStringLiteral("499"));
    QCOMPARE(m_editor->listed().size(), 14 + 1);
    m_editor->setAttributeFilter(QString());
    for (const QString& name : qAsConst(names))
        m_editor->addField(m_editor->attributes()[name]);
    m_editor->activate();
    QCOMPARE(m_editor->size(), 5000);
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
    m_editor->deleteAttributeFromSpec(m_editor->attributes()[names[2500]]);
    QCOMPARE(m_editor->size(), 4999);
    QVERIFY2(m_editor->fault().isEmpty(), qPrintable(m_editor->fault()));
}

QTEST_MAIN(SpecificationTest)
#include "tst_specification.moc"
