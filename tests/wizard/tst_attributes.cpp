// SPDX-License-Identifier: MIT
// The attribute panel and its page: what is listed, in which order, what is warned about.
#include "tests/core/TestFactories.h"
#include "tests/wizard/OneObjectSheet.h"
#include "wizard/QExportAttributeSheet.h"
#include "wizard/QExportAttributeWidget.h"
#include "wizard/QExportWizard.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using namespace kpBaseExport;
using Info = kpBase::UnitRegistry::AttributeInfo;

namespace
{

class Wizard : public QExportWizard
{
public:
    void availableAttributes(QVector<Info>& list, bool all, bool visible) override
    {
        list = supply;
        flags = {all, visible};
    }
    QVector<Info> supply;
    QPair<bool, bool> flags;
};

class Sheet : public QExportAttributeSheet
{
public:
    QString optionSummary() const override { return {}; }
    void begin(QExportWizard* wizard) { QExportAttributeSheet::initialize(wizard, QString()); }
};

} // namespace

using Supply = QVector<QPair<const char*, const char*>>;
Q_DECLARE_METATYPE(Supply)

class AttributesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lists_data();
    void lists();
    void page();

private:
    TestSheetFactory m_factory{"QExportSheetObjectSelectionImpl", [] { return new OneObjectSheet; }};
};

void AttributesTest::lists_data()
{
    QTest::addColumn<Supply>("supply");
    QTest::addColumn<int>("unselectable");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<QString>("warning");
    const auto list = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); };
    QTest::newRow("sorted whatever the case") << Supply{{"gamma", "real"}, {"Beta", "TEXT"}, {"alpha", "Color"}} << 0 << list("alpha Beta gamma") << QString();
    QTest::newRow("the later of two that differ in case") << Supply{{"depth", "real"}, {"Depth", "real"}} << 0 << list("Depth") << QString();
    QTest::newRow("unsupported, in the order supplied") << Supply{{"Name", "text"}, {"a", "real"}, {"Col", "color"}, {"odd", "matrix"}}
                                                        << (QExportAttributeWidget::c_systemTypeText | QExportAttributeWidget::c_systemTypeColor) << list("a")
                                                        << QStringLiteral("Unsupported Attributes for this Format: Name (text), Col (color), odd (matrix)");
    QTest::newRow("none supported") << Supply{{"Name", "text"}} << static_cast<int>(QExportAttributeWidget::c_systemTypeText) << QStringList() << QString();
    QTest::newRow("every type") << Supply{{"a", "boolean"}, {"b", "color"}, {"c", "dip"}, {"d", "flag"}, {"e", "integer"}, {"f", "pattern"}, {"g", "real"},
                                          {"h", "realvector2"}, {"i", "realvector3"}, {"j", "text"}, {"k", "vertexdisplay"}}
                                << 0 << list("a b c d e f g h i j k") << QString();
}

void AttributesTest::lists()
{
    QFETCH(Supply, supply);
    QFETCH(int, unselectable);
    QFETCH(QStringList, listed);
    QFETCH(QString, warning);
    Wizard wizard;
    for (const auto& entry : supply)
        wizard.supply.append(Info(entry.first, entry.second));
    QExportAttributeWidget panel(&wizard, nullptr);
    panel.initialize(QString(), QExportAttributeWidget::OBJECT_LEVEL);
    panel.setUnselectableType(unselectable);
    panel.show();
    panel.activate();
    QStringList shown;
    for (const std::string& name : panel.selectedAttributeNames())
        shown.append(QString::fromStdString(name));
    QCOMPARE(shown, listed);
    QCOMPARE(panel.findChild<QGroupBox*>(QStringLiteral("warningBox"))->isVisible(), !warning.isEmpty());
    if (!warning.isEmpty())
        QCOMPARE(panel.findChild<QLabel*>(QStringLiteral("m_warningLabel"))->text(), warning);
    QVERIFY(!wizard.flags.first && wizard.flags.second);
}

void AttributesTest::page()
{
    Wizard wizard;
    wizard.supply = {Info("a", "real"), Info("b", "real")};
    Sheet sheet;
    sheet.begin(&wizard);
    QCOMPARE(sheet.windowTitle(), QStringLiteral("File Export: Attribute Export"));
    QCOMPARE(sheet.findChild<QGroupBox*>(QStringLiteral("groupBox"))->title(), QStringLiteral("Export  Attributes"));
    sheet.setAllFlag(true);
    sheet.setVisibleFlag(false);
    sheet.activate();
    QVERIFY(wizard.flags.first && !wizard.flags.second);
    QTest::mouseClick(sheet.findChild<QPushButton*>(QStringLiteral("m_deselectAllButton")), Qt::LeftButton);
    QVERIFY(sheet.selectedAttributeNames().empty() && sheet.isComplete());
    sheet.findChild<QListWidget*>(QStringLiteral("m_attributeList"))->item(1)->setCheckState(Qt::Checked);
    QCOMPARE(sheet.selectedAttributeNames(), std::vector<std::string>{"b"});
    // Coming back shows everything checked.
    sheet.activate();
    QCOMPARE(sheet.selectedAttributeNames().size(), std::size_t(2));
}

QTEST_MAIN(AttributesTest)
#include "tst_attributes.moc"
