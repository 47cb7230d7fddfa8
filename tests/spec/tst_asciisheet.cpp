// SPDX-License-Identifier: MIT
// The ASCII page of the library in a real wizard, and what it hands to the writer.
#include "spec/QExportSheetAscii.h"
#include "spec/SeparatorCode.h"
#include "spec/layout/FieldLayout.h"
#include "tests/core/TestFactories.h"
#include "tests/spec/SpecificationEditor.h"
#include "tests/wizard/WizardUnderTest.h"

#include <QtTest>

#include <limits>

using namespace kpBaseExport;

namespace
{

class Sheet : public QExportSheetAscii
{
public:
    Sheet()
    {
        editor = new SpecificationEditor(findChild<QFrame*>(QStringLiteral("m_frame")));
        m_editor = editor;
        connect(editor, &QExportSpecification::onSpecChange, this, &Sheet::onSpecChange);
    }
    QString optionSummary() const override { return {}; }
    SpecificationEditor* editor;
};

class Saver : public SilentSaver
{
public:
    using SilentSaver::SilentSaver;
    bool getRequiredAttributes(const std::vector<int>&, QStringList& names) override
    {
        names = words("second");
        return true;
    }
};

} // namespace

class AsciiSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void separators()
    {
        QCOMPARE(writerSeparator(QExportSpecification::Tab), 1);
        QCOMPARE(writerSeparator(QExportSpecification::Space), 0);
        QCOMPARE(writerSeparator(QExportSpecification::Comma), 2);
        QCOMPARE(writerSeparator(QExportSpecification::SemiColon), 3);
    }

    void forTheWriter()
    {
        Sheet sheet;
        sheet.editor->offer(words("X depth i Facies:sand"));
        for (const char* name : {"Facies:sand", "i", "depth", "X"}) {
            QESAttribute attribute = sheet.editor->attributes()[QString::fromLatin1(name)];
            attribute.order() = words("X depth i Facies:sand").indexOf(QString::fromLatin1(name));
            attribute.start() = attribute.end() = 0;
            sheet.editor->addField(attribute);
        }
        sheet.editor->activate();
        sheet.editor->m_fieldTable->item(0, 1)->setText(QStringLiteral("10"));
        sheet.editor->m_fieldTable->item(1, 1)->setText(QStringLiteral("8"));
        QCOMPARE(sheet.mode(), MatrixDataAsciiExporter::FieldBased);
        std::vector<MatrixDataExporter::FieldInfo> fields = sheet.fieldInfoList();
        QCOMPARE(fields.size(), std::size_t(4));
        QVERIFY(fields[0].name == QLatin1String("x") && fields[0].precision == 4);
        QVERIFY(fields[0].start == 0 && fields[0].end == 10);
        QVERIFY(fields[1].name == QLatin1String("depth") && fields[1].start == 11 && fields[1].end == 19);
        sheet.editor->setMode(QExportSpecification::ColumnBased);
        QCOMPARE(sheet.mode(), MatrixDataAsciiExporter::ColumnBased);
        fields = sheet.fieldInfoList();
        QVERIFY(fields[0].start == 0 && fields[0].end == 14 && fields[1].start == 15 && fields[1].end == 25);
        QCOMPARE(sheet.selectedAttributeNames(), (std::vector<std::string>{"depth", "Facies:sand"}));
    }

    void attributesNamedLikeCoordinates()
    {
        Sheet sheet;
        int order = 0;
        for (const char* name : {"X", "x", "i", "j", "y", "z"}) {
            QESAttribute attribute = fieldOf(name, 0);
            sheet.editor->getNonAttribute(attribute.name(), attribute);
            // Only "X" and "i" are the coordinate and the index here.
            if (order != 0 && order != 2)
                attribute.typeId() = 0;
            attribute.order() = order++;
            sheet.editor->addAttribute(attribute);
            sheet.editor->addField(attribute);
        }
        sheet.editor->activate();
        QCOMPARE(sheet.selectedAttributeNames(), (std::vector<std::string>{"x", "j", "y", "z"}));
    }

    void withoutEditor()
    {
        struct Bare : QExportSheetAscii
        {
            QString optionSummary() const override { return {}; }
        } sheet;
        QCOMPARE(sheet.mode(), MatrixDataAsciiExporter::FieldBased);
        QVERIFY(sheet.fieldInfoList().empty() && sheet.selectedAttributeNames().empty() && !sheet.isComplete());
    }

    void extremeNumbers()
    {
        // What a file that was edited by hand may hold: no overflow, no overlap before the end of the numbers.
        const int most = std::numeric_limits<int>::max();
        const int least = std::numeric_limits<int>::min();
        QVector<QESAttribute> fields{fieldOf("a", 0, least, most / 2), fieldOf("b", 1, 5, 2),
                                     fieldOf("c", 2, most, most), fieldOf("d", 3, least, most)};
        layout::layOut(fields);
        QCOMPARE(fields[0].start(), 0);
        int last = -1;
        for (const QESAttribute& field : fields) {
            QVERIFY(field.start() > last || last == most);
            last = field.end();
        }
        QVector<QESAttribute> reversed{fieldOf("a", 0, 20, 5), fieldOf("b", 1)};
        layout::layOut(reversed);
        QVERIFY(reversed[0].start() == 20 && reversed[0].end() == 30 && reversed[1].start() == 31);
        layout::Span span{least, most};
        int next = most;
        QVERIFY(layout::pushedRight(span, next));
        QVERIFY(span.start == most && span.end == most && next == most);
    }

    void inTheWizard()
    {
        const TestSaverFactory saver("layout", [] { return new Saver("layout"); });
        const TestSheetFactory objects("QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; });
        Sheet* sheet = nullptr;
        const TestSheetFactory sheets("layout", [&sheet] { return sheet = new Sheet; });
        WizardUnderTest wizard;
        wizard.startup();
        wizard.show();
        click(wizard, "nextButton");
        QVERIFY(sheet && wizard.current_sheet() == sheet);
        QCOMPARE(sheet->windowTitle(), QStringLiteral("File Export: ASCII Options"));
        QVERIFY(!wizard.nextButton()->isEnabled());
        sheet->editor->offer(words("first second"));
        sheet->activate();
        // What the saver requires comes first.
        QCOMPARE(sheet->editor->listed(), words("second first"));
        const auto clickFirst = [](QTableWidget* table) {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(table, 0));
        };
        clickFirst(sheet->editor->m_attributeTable);
        QTest::mouseClick(sheet->editor->m_toFieldButton, Qt::LeftButton);
        QVERIFY(wizard.nextButton()->isEnabled());
        QCOMPARE(sheet->fieldInfoList().front().name, QString());
        sheet->deactivate();
        QCOMPARE(sheet->fieldInfoList().front().name, QStringLiteral("second"));
        QCOMPARE(wizard.selectedAttributeNames(), std::vector<std::string>{"second"});
        clickFirst(sheet->editor->m_fieldTable);
        QTest::mouseClick(sheet->editor->m_toAttributeButton, Qt::LeftButton);
        QVERIFY(!wizard.nextButton()->isEnabled());
        // Without objects a layout alone is not enough.
        sheet->editor->addAttributeToSpec(0, fieldOf("first", 0));
        QVERIFY(sheet->isComplete());
        click(wizard, "backButton");
        click(wizard, "pushButtonDeselectAllObjects");
        sheet->activate();
        QVERIFY(!sheet->isComplete());
        QCOMPARE(sheet->editor->fieldNames(), words("first"));
    }
};

QTEST_MAIN(AsciiSheetTest)
#include "tst_asciisheet.moc"
