// SPDX-License-Identifier: MIT
// The attribute panel and its page: what is listed, in which order, what is warned about.
#include "tests/core/TestFactories.h"
#include "tests/wizard/WizardUnderTest.h"
#include "wizard/QExportAttributeSheet.h"
#include "wizard/QExportAttributeWidget.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QtTest>

using namespace kpBaseExport;
using Info = WizardUnderTest::Info;

namespace
{

class Sheet : public QExportAttributeSheet
{
public:
    QString optionSummary() const override { return {}; }
    void begin(QExportWizard* wizard) { QExportAttributeSheet::initialize(wizard, QString()); }
};

} // namespace

class AttributesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lists_data()
    {
        QTest::addColumn<QString>("supply");
        QTest::addColumn<int>("unselectable");
        QTest::addColumn<QString>("listed");
        QTest::addColumn<QString>("warning");
        const auto row = [](const char* name, const char* supply, int unselectable, const char* listed,
                            const char* warning = "") {
            QTest::newRow(name) << QString::fromLatin1(supply) << unselectable << QString::fromLatin1(listed)
                                << QString::fromLatin1(warning);
        };
        const int text = QExportAttributeWidget::c_systemTypeText;
        row("sorted whatever the case", "gamma=real Beta=TEXT alpha=Color", 0, "alpha Beta gamma");
        row("the later of two that differ in case", "depth=real Depth=real", 0, "Depth");
        row("unsupported, in the order supplied", "Name=text a=real Col=color odd=matrix",
            text | QExportAttributeWidget::c_systemTypeColor, "a",
            "Unsupported Attributes for this Format: Name (text), Col (color), odd (matrix)");
        row("none supported", "Name=text", text, "");
        row("every type",
            "a=boolean b=color c=dip d=flag e=integer f=pattern g=real h=realvector2 i=realvector3 j=text k=vertexdisplay",
            0, "a b c d e f g h i j k");
    }

    void lists()
    {
        QFETCH(QString, supply);
        QFETCH(int, unselectable);
        QFETCH(QString, warning);
        WizardUnderTest wizard;
        for (const QString& entry : supply.split(QLatin1Char(' ')))
            wizard.supply.append(Info(entry.section(QLatin1Char('='), 0, 0).toStdString(),
                                      entry.section(QLatin1Char('='), 1).toStdString()));
        QExportAttributeWidget panel(&wizard, nullptr);
        panel.initialize(QString(), QExportAttributeWidget::OBJECT_LEVEL);
        panel.setUnselectableType(unselectable);
        panel.show();
        panel.activate();
        QStringList shown;
        for (const std::string& name : panel.selectedAttributeNames())
            shown.append(QString::fromStdString(name));
        QTEST(shown.join(QLatin1Char(' ')), "listed");
        QCOMPARE(child<QGroupBox>(panel, "warningBox")->isVisible(), !warning.isEmpty());
        if (!warning.isEmpty())
            QCOMPARE(child<QLabel>(panel, "m_warningLabel")->text(), warning);
        QVERIFY(!wizard.flags.first && wizard.flags.second);
    }

    void page()
    {
        WizardUnderTest wizard;
        wizard.supply = {Info("a", "real"), Info("b", "real")};
        Sheet sheet;
        sheet.begin(&wizard);
        QCOMPARE(sheet.windowTitle(), QStringLiteral("File Export: Attribute Export"));
        QCOMPARE(child<QGroupBox>(sheet, "groupBox")->title(), QStringLiteral("Export  Attributes"));
        sheet.setAllFlag(true);
        sheet.setVisibleFlag(false);
        sheet.activate();
        QVERIFY(wizard.flags.first && !wizard.flags.second);
        click(sheet, "m_deselectAllButton");
        QVERIFY(sheet.selectedAttributeNames().empty() && sheet.isComplete());
        child<QListWidget>(sheet, "m_attributeList")->item(1)->setCheckState(Qt::Checked);
        QCOMPARE(sheet.selectedAttributeNames(), std::vector<std::string>{"b"});
        // Coming back shows everything checked.
        sheet.activate();
        QCOMPARE(sheet.selectedAttributeNames().size(), std::size_t(2));
        // The panel without a wizard has nothing on offer and stays usable.
        QExportAttributeWidget panel(nullptr, nullptr);
        panel.initialize(QString(), QExportAttributeWidget::VERTEX_LEVEL);
        panel.activate();
        QVERIFY(panel.selectedAttributeNames().empty() && panel.isComplete());
    }

private:
    TestSheetFactory m_factory{"QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }};
};

QTEST_MAIN(AttributesTest)
#include "tst_attributes.moc"
