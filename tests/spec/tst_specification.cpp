// SPDX-License-Identifier: MIT
// The layout editor: how its lists stay the same, the controls, the mouse, the files.
#include "host/data/FormatFile.h"
#include "tests/spec/SpecificationEditor.h"
#include "tests/support/FileContent.h"
#include "tests/support/TestSettings.h"
#include "tests/wizard/WizardUnderTest.h"

#include <memory>

using namespace kpBaseExport;

class SpecificationTest : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestSettings(m_folder.path()); }
    void init() { openEditor(); }

    void newEditor()
    {
        const auto mode = [this] {
            return QStringLiteral("%1 %2 %3")
                .arg(m_editor->mode())
                .arg(m_editor->m_stackedWidget->currentIndex())
                .arg(m_editor->m_separatorCombo->isEnabled());
        };
        QCOMPARE(mode(), QStringLiteral("0 0 1"));
        QVERIFY(!m_editor->m_toFieldButton->isEnabled() && !m_editor->m_toAttributeButton->isEnabled());
        QVERIFY(!m_editor->isNull() && !m_editor->m_nullEdit->isEnabled() && m_editor->null().isEmpty());
        QCOMPARE(m_editor->m_nullEdit->text(), QStringLiteral("1.0E37"));
        m_editor->m_nullCheck->click();
        QCOMPARE(m_editor->null(), QStringLiteral("1.0E37"));
        QCOMPARE(m_editor->separator(), QExportSpecification::Tab);
        m_editor->setSeparator(QExportSpecification::SemiColon);
        QCOMPARE(m_editor->m_separatorCombo->currentIndex(), 3);
        QTest::mouseClick(m_editor->m_columnRadio, Qt::LeftButton);
        QCOMPARE(mode(), QStringLiteral("1 1 0"));
        m_editor->setMode(QExportSpecification::FieldBased);
        QCOMPARE(mode(), QStringLiteral("0 0 1"));
        QESAttribute out;
        out.end() = 77;
        m_editor->getStringNonAttribute(QStringLiteral("Name"), 6, out);
        QVERIFY(out.name() == QLatin1String("Name") && out.type() == QLatin1String("string") && out.order() == 6
                && out.width() == 12 && out.end() == 77);
        m_editor->getNonAttribute(QStringLiteral("Name"), out);
        QCOMPARE(out.order(), 6);
        m_editor->getNonAttribute(QStringLiteral("Y"), out);
        QVERIFY(out.typeId() == -2 && out.start() == 15 && out.end() == 28 && out.width() == 14);
        QCOMPARE(out.precision(), 4);
    }

    void orderAndColumns()
    {
        QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
        enter("a b c d X", {fieldOf("a", 3), fieldOf("b", -1), fieldOf("c", 0), fieldOf("gone", 1)});
        QCOMPARE(m_editor->refreshed, 1);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toStringList(), words("c a b"));
        QCOMPARE(m_editor->columns(), QStringLiteral("c 0-10, a 11-21, b 22-32"));
        m_editor->deactivate();
        QVERIFY(!m_editor->hasAttribute(QStringLiteral("gone")));
        QCOMPARE(m_editor->field(1).order(), 1);

        // Equal orders: the later name first. Columns that overlap move, others stay.
        m_editor->clear();
        enter("a b c d", {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 5, 8), fieldOf("c", 2, 20, 25), fieldOf("d", 2)});
        QCOMPARE(m_editor->columns(), QStringLiteral("a 1-10, b 11-14, d 15-25, c 26-31"));

        m_editor->clear();
        QESAttribute x;
        m_editor->getNonAttribute(QStringLiteral("X"), x);
        enter("X", {x});
        QCOMPARE(m_editor->field(0).name(), QStringLiteral("x"));
        QCOMPARE(m_editor->field(0).end(), 14);
        QCOMPARE(m_editor->field(1).name(), QString());
        QCOMPARE(m_list->horizontalHeaderItem(0)->text(), QStringLiteral("Attribute"));
    }

    void groups()
    {
        enter("depth Facies:sand Facies:shale X");
        QCOMPARE(m_editor->listed(), words("X Facies... depth"));
        // A group and the way out of it can be chosen, but not taken into the layout.
        m_list->setCurrentCell(1, 0);
        QVERIFY(!m_editor->m_toFieldButton->isEnabled());
        const auto doubleClick = [this](int row) {
            const QPoint place = middleOf(m_list, row);
            QTest::mouseClick(m_list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        };
        doubleClick(1);
        QCOMPARE(m_editor->listed(), words(".. sand shale"));
        m_list->setCurrentCell(0, 0);
        QVERIFY(!m_editor->m_toFieldButton->isEnabled());
        take(1);
        m_editor->deactivate();
        m_editor->activate();
        QCOMPARE(m_editor->lists(), QStringLiteral("Facies:sand | .. shale"));
        doubleClick(0);
        QCOMPARE(m_editor->listed(), words("X Facies... depth"));
        m_editor->setAttributeFilter(QStringLiteral("SH"));
        QCOMPARE(m_editor->listed(), words("Facies..."));
    }

    void gridIndicesAndAdditional()
    {
        m_editor->offer(words("a b:1 b:2 c X Z i"));
        m_editor->setAdditionalList(words("c b:2"));
        m_editor->activate();
        QCOMPARE(m_editor->listed(), words("X Z c b... a i"));
        m_editor->setGridIndices(true);
        m_editor->activate();
        QCOMPARE(m_editor->listed(), words("i X Z c b... a"));
    }

    void cellEdits()
    {
        enter("a b", {fieldOf("a", 0), fieldOf("b", 1)});
        QSignalSpy changed(m_editor.get(), &QExportSpecification::onSpecChange);
        m_table->item(0, 1)->setText(QStringLiteral("7"));
        m_table->item(0, 2)->setText(QStringLiteral("3"));
        m_columns->item(1, 1)->setText(QStringLiteral("12"));
        m_columns->item(1, 2)->setText(QStringLiteral("30"));
        m_columns->item(1, 3)->setText(QStringLiteral("no"));
        QCOMPARE(SpecificationEditor::rowOf(*m_table, 0), words("a 7 3"));
        QCOMPARE(SpecificationEditor::rowOf(*m_columns, 1), words("b 12 30 0"));
        QCOMPARE(m_editor->fault(), QString());
        m_columns->item(1, 0)->setText(QStringLiteral("c"));
        QCOMPARE(m_editor->fieldNames(), words("a c"));
        // A name that is taken is put back.
        m_table->item(1, 0)->setText(QStringLiteral("a"));
        QCOMPARE(m_editor->fieldNames(), words("a c"));
        QCOMPARE(changed.size(), 0);
    }

    void ranges_data()
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
        QTest::newRow("start without room") << 1 << 3 << 1 << 31 << 31;
        QTest::newRow("end without room") << 1 << 3 << 2 << 31 << 31;
        QTest::newRow("end of the last") << 1 << 4 << 2 << 33 << 140;
        QTest::newRow("decimals of a column") << 1 << 1 << 3 << 0 << 8;
        QTest::newRow("width") << 0 << 1 << 1 << 0 << 20;
        QTest::newRow("decimals of a field") << 0 << 1 << 2 << 0 << 8;
    }

    void ranges()
    {
        QFETCH(int, table);
        QFETCH(int, row);
        QFETCH(int, column);
        QFETCH(int, least);
        QFETCH(int, most);
        enter("a b c d e", {fieldOf("a", 0, 1, 10), fieldOf("b", 1, 12, 18), fieldOf("c", 2, 21, 30),
                            fieldOf("d", 3, 31, 31), fieldOf("e", 4, 32, 40)});
        m_editor->setMode(table == 1 ? QExportSpecification::ColumnBased : QExportSpecification::FieldBased);
        QTableWidget* view = table == 1 ? m_columns : m_table;
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
        QCOMPARE(m_editor->fault(), QString());
    }

    void arrows()
    {
        enter("a b c");
        for (int count = 0; count < 3; ++count)
            take(0);
        QCOMPARE(m_editor->lists(), QStringLiteral("a b c | "));
        QVERIFY(!m_editor->m_toFieldButton->isEnabled());
        m_table->setCurrentCell(1, 0);
        QVERIFY(m_editor->m_toAttributeButton->isEnabled());
        QTest::mouseClick(m_editor->m_toAttributeButton, Qt::LeftButton);
        QCOMPARE(m_editor->lists(), QStringLiteral("a c | b"));
        QCOMPARE(m_editor->fault(), QString());
        // A field that is no longer on offer cannot be taken out.
        m_editor->deleteAttribute(QStringLiteral("a"));
        m_table->setCurrentCell(1, 0);
        m_table->setCurrentCell(0, 0);
        QVERIFY(!m_editor->m_toAttributeButton->isEnabled());
    }

    void keyboard()
    {
        enter("a b g:1");
        m_editor->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_editor.get()));
        const auto press = [](QTableWidget* table, int row, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            table->setFocus();
            table->setCurrentCell(row, 0);
            QTest::keyClick(table, key, modifiers);
        };
        press(m_list, 0, Qt::Key_Return);
        QCOMPARE(m_editor->fieldNames(), words("a"));
        press(m_list, 0, Qt::Key_Right, Qt::AltModifier);
        QTRY_COMPARE(m_editor->fieldNames(), words("a b"));
        press(m_list, 0, Qt::Key_Return);
        QCOMPARE(m_editor->listed(), words(".. 1"));
        QTest::keyClick(m_list, Qt::Key_Down);
        QTest::keyClick(m_list, Qt::Key_Down);
        QTest::keyClick(m_list, Qt::Key_Return);
        QCOMPARE(m_editor->fieldNames(), words("a b g:1"));

        press(m_table, 2, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(m_editor->fieldNames(), words("a g:1 b"));
        QCOMPARE(m_table->currentRow(), 1);
        QTest::keyClick(m_table, Qt::Key_Down, Qt::AltModifier);
        QTest::keyClick(m_table, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(m_editor->fieldNames(), words("a b g:1"));
        QTest::keyClick(m_table, Qt::Key_Delete);
        QCOMPARE(m_editor->fieldNames(), words("a b"));
        // On the page of the columns the arrow button is hidden, its shortcut is not.
        m_editor->setMode(QExportSpecification::ColumnBased);
        press(m_columns, 0, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(m_editor->fieldNames(), words("b"));
        const QString head =
            QStringLiteral("m_fieldRadio m_loadFormatButton m_saveFormatButton m_nullCheck m_nullEdit ");
        QCOMPARE(tabOrder(*m_editor), head + QStringLiteral("m_separatorCombo m_columnTable"));
        m_editor->setMode(QExportSpecification::FieldBased);
        QCOMPARE(tabOrder(*m_editor), head
                                          + QStringLiteral("m_toAttributeButton m_toFieldButton m_separatorCombo "
                                                           "m_attributeTable m_fieldTable"));
        for (const char* name : {"m_toFieldButton", "m_toAttributeButton", "m_loadFormatButton", "m_saveFormatButton",
                                 "m_attributeTable", "m_fieldTable"})
            QVERIFY2(!m_editor->findChild<QWidget*>(QLatin1String(name))->accessibleName().isEmpty(), name);
    }

    void randomSequences_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 12; ++seed)
            QTest::addRow("%u", seed) << seed;
    }

    void randomSequences()
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
        QVector<Row> reference;
        const auto below = [&random](int count) { return random.bounded(count); };
        for (int step = 0; step < 150; ++step) {
            const int action = below(6);
            if (action <= 2) {
                const QString name = names[below(12)];
                const auto present = std::find_if(reference.begin(), reference.end(),
                                                  [&](const Row& each) { return each.name == name; });
                if (action == 2) {
                    m_editor->deleteAttributeFromSpec(m_editor->attributes()[name]);
                    if (present != reference.end())
                        reference.erase(present);
                } else {
                    // Add: right behind the row before; the rows behind give way.
                    const int row = below(reference.size() + 1);
                    QESAttribute added = m_editor->attributes()[name];
                    added.width() = below(21);
                    m_editor->addAttributeToSpec(row, added);
                    const int start = row > 0 ? reference[row - 1].end + 1 : 0;
                    if (present == reference.end())
                        reference.insert(row, {name, start, start + added.width()});
                    for (int at = 1; at < reference.size(); ++at) {
                        const int shift = qMax(0, reference[at - 1].end + 1 - reference[at].start);
                        reference[at].start += shift;
                        reference[at].end += shift;
                    }
                }
            } else if (action == 3 && reference.size() > 1) {
                // Reorder: names travel, columns stay.
                m_editor->setMode(below(2) == 0 ? QExportSpecification::FieldBased : QExportSpecification::ColumnBased);
                const int from = below(reference.size());
                const int to = below(reference.size());
                m_editor->moveField(from, to);
                for (int at = from; at != to; at += to > from ? 1 : -1)
                    std::swap(reference[at].name, reference[to > from ? at + 1 : at - 1].name);
            } else if (action == 4 && !reference.empty()) {
                // Edit a column in its spin box.
                m_editor->setMode(QExportSpecification::ColumnBased);
                const int row = below(reference.size());
                const int column = 1 + below(2);
                m_columns->setCurrentCell(row, column);
                QAbstractItemDelegate* delegate = m_columns->itemDelegateForColumn(column);
                const QModelIndex cell = m_columns->model()->index(row, column);
                const std::unique_ptr<QWidget> editor(delegate->createEditor(m_columns->viewport(), {}, cell));
                auto& box = dynamic_cast<QSpinBox&>(*editor);
                box.setValue(box.minimum() + below(box.maximum() - box.minimum() + 1));
                delegate->setModelData(&box, m_columns->model(), cell);
                (column == 1 ? reference[row].start : reference[row].end) = box.value();
            } else if (action == 5) {
                m_editor->deactivate();
                m_editor->activate();
                // Only the standing of a first field without columns is worked out anew.
                if (!reference.empty() && reference[0].start == 0 && reference[0].end == 0)
                    break;
            }
            QCOMPARE(m_editor->fault(), QString());
            QStringList wanted;
            for (const Row& each : qAsConst(reference))
                wanted.append(QStringLiteral("%1 %2-%3").arg(each.name).arg(each.start).arg(each.end));
            QCOMPARE(m_editor->columns(), wanted.join(QStringLiteral(", ")));
        }
    }

    void saveAndLoad()
    {
        enter("a b X");
        for (const char* name : {"b", "X", "a"})
            m_editor->addAttributeToSpec(99, m_editor->attributes()[QString::fromLatin1(name)]);
        m_table->item(0, 1)->setText(QStringLiteral("6"));
        m_table->item(0, 2)->setText(QStringLiteral("1"));
        m_columns->item(2, 2)->setText(QStringLiteral("70"));
        m_editor->setMode(QExportSpecification::ColumnBased);
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
        QCOMPARE(fresh.columns(), m_editor->columns());
        QCOMPARE(fresh.mode(), QExportSpecification::ColumnBased);
        QCOMPARE(fresh.m_stackedWidget->currentIndex(), 1);
        QCOMPARE(SpecificationEditor::rowOf(*fresh.m_fieldTable, 0), words("b 10 1"));
        QCOMPARE(fresh.fields()[1].typeId(), -6);
        QCOMPARE(changed.size(), 0);
        QVERIFY(fresh.missing.isEmpty());
        // Field names in the file stand in order of names.
        const std::unique_ptr<FormatFile> file(FormatFile::read(path));
        impAttribute second;
        file->field(1).getAttribute(second);
        QCOMPARE(file->name(), path);
        QVERIFY(second.name == "a" && second.order == 2 && second.end == 70 && second.label.empty());
    }

    void loading()
    {
        const auto write = [this](const char* name, const QByteArray& content) {
            return writeFile(m_folder.filePath(QString::fromLatin1(name)), content);
        };
        const QByteArray table = "a double 1 8 2\nq int 9 12 0\nX double 13 20 1\n";
        enter("a b", {fieldOf("b", 0)});
        const auto load = [this](const QString& path) {
            chooseInDialog(path);
            QTest::mouseClick(m_editor->m_loadFormatButton, Qt::LeftButton);
        };
        // Whatever cannot be read leaves the layout as it is; a .klf is not tried as a table.
        for (const auto& path : {QString(), write("bad.klf", table), write("bad.fmt", "{}"), write("bad.txt", "{}")}) {
            load(path);
            QCOMPARE(m_editor->fieldNames(), words("b"));
            QCOMPARE(m_editor->mode(), QExportSpecification::FieldBased);
        }
        QCOMPARE(m_editor->failures.size(), 3);
        QVERIFY2(m_editor->failures[0].startsWith(QStringLiteral("bad.klf: line 1: ")),
                 qPrintable(m_editor->failures[0]));
        QVERIFY2(m_editor->failures[1].startsWith(QStringLiteral("bad.fmt: line 1: ")),
                 qPrintable(m_editor->failures[1]));
        load(write("spec.txt", table));
        QCOMPARE(m_editor->columns(), QStringLiteral("a 1-8"));
        QCOMPARE(m_editor->mode(), QExportSpecification::ColumnBased);
        QVERIFY(m_editor->hasAttribute(QStringLiteral("q")));
        // X has a type of its own, so it is not an attribute that is missing... but its code lies below those named.
        QCOMPARE(m_editor->missing, words("q X"));
        // Keys that a file holds beyond ours are written again.
        load(write("more.klf", "{\"format\":\"kp-layout\",\"version\":1,\"type\":\"fields\",\"tool\":\"t\","
                               "\"fields\":[{\"name\":\"a\",\"unit\":\"ft\"}]}"));
        QCOMPARE(m_editor->fieldNames(), words("a"));
        const std::unique_ptr<FormatFile> saved = m_editor->savedFormat(QString());
        QCOMPARE(saved->unknown().value(QStringLiteral("tool")).toString(), QStringLiteral("t"));
        QCOMPARE(saved->field(0).unknown().value(QStringLiteral("unit")).toString(), QStringLiteral("ft"));
    }

    void savingAsks()
    {
        enter("a", {fieldOf("a", 0)});
        const auto saveAs = [this](const char* name) {
            chooseInDialog(m_folder.filePath(QString::fromLatin1(name)));
            QTest::mouseClick(m_editor->m_saveFormatButton, Qt::LeftButton);
        };
        const QString kept = writeFile(m_folder.filePath(QStringLiteral("keep.klf")), "kept");
        m_editor->mayReplace = false;
        saveAs("keep");
        QCOMPARE(contentOf(kept), QByteArray("kept"));
        m_editor->mayReplace = true;
        saveAs("keep");
        QVERIFY(contentOf(kept).contains("\"name\": \"a\""));
        saveAs("other");
        QCOMPARE(m_editor->asked, (QStringList{QStringLiteral("keep.klf"), QStringLiteral("keep.klf")}));
        QVERIFY(m_editor->failures.isEmpty());
        // A folder in the way.
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("folder.klf")));
        saveAs("folder");
        QCOMPARE(m_editor->failures.size(), 1);
        QVERIFY2(m_editor->failures[0].size() > 12, qPrintable(m_editor->failures[0]));
    }

    void directoryIsRemembered()
    {
        const QString folder = m_folder.filePath(QStringLiteral("specs"));
        QVERIFY(QDir().mkpath(folder));
        chooseInDialog(folder + QStringLiteral("/a.klf"));
        QTest::mouseClick(m_editor->m_saveFormatButton, Qt::LeftButton);
        QCOMPARE(QSettings().value(QStringLiteral("QExportSpecification/directory")).toString(),
                 folder + QLatin1Char('/'));
        ShownDialog shown;
        chooseInDialog(QString(), &shown);
        QTest::mouseClick(m_editor->m_loadFormatButton, Qt::LeftButton);
        QCOMPARE(shown.directory, folder);
    }

    void strangeNames()
    {
        const QString all = QString::fromUtf8("a:b:c|tail:|\"q\"'`|two\nlines\r|地層|%1 & <b>|");
        QStringList names = (all + QString(10000, QLatin1Char('n'))).split(QLatin1Char('|'));
        m_editor->offer(names);
        m_editor->activate();
        for (const char* group : {"", "a", "tail"}) {
            m_editor->populateAttributes(QString::fromLatin1(group));
            for (int row = 0; row < m_list->rowCount();) {
                m_list->setCurrentCell(row, 0);
                if (m_editor->m_toFieldButton->isEnabled())
                    m_editor->m_toFieldButton->click();
                else
                    ++row;
            }
        }
        QStringList taken = m_editor->fieldNames();
        taken.sort();
        names.sort();
        QCOMPARE(taken, names);
    }

private:
    QTemporaryDir m_folder;
};

QTEST_MAIN(SpecificationTest)
#include "tst_specification.moc"
