// SPDX-License-Identifier: MIT
// The host layer: matrices, units, spin boxes, icons, the sequence of a wizard's pages.
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "host/ui/AbstractSheet.h"
#include "host/ui/QRestrictedImportUnitSelector.h"
#include "host/ui/QUnitDoubleSpinBox.h"
#include "host/ui/Wizard.h"
#include "host/ui/WizardProgress.h"

#include <QtTest>
#include <QtWidgets>

using namespace kpBase;

namespace
{

class Page : public QWidget, public AbstractSheet
{
public:
    explicit Page(const QString& title)
    {
        setWindowTitle(title);
        m_pageWidget = this;
    }
    bool isComplete() const override { return true; }
};

class TestWizard : public Wizard
{
public:
    QString sequence() const
    {
        QString titles;
        const AbstractSheet* last = nullptr;
        for (AbstractSheet* sheet = pages.front(); sheet; sheet = sheet->next()) {
            if (sheet->previous() != last)
                return QStringLiteral("previous is wrong");
            titles += sheet->title();
            last = sheet;
        }
        return titles;
    }

    std::vector<Page*> pages; ///< children of the dialog

protected:
    void populate_sheets() override
    {
        for (const char* title : {"a", "b", "c"}) {
            pages.push_back(new Page(QString::fromLatin1(title)));
            add_sheet(pages.back());
        }
    }
};

} // namespace

class HostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matrices()
    {
        using Missing = std::vector<unsigned char>;
        using Values = std::vector<double>;
        const DoubleMatrixData numbers(QStringLiteral("n"), std::make_shared<const Values>(Values{1.5, 2.5}),
                                       std::make_shared<const Missing>(Missing{0, 1}));
        QCOMPARE(numbers.value(0, 0), QVariant(1.5));
        QVERIFY(numbers.value(1, 0).isNull() && numbers.value(2, 0).isNull() && numbers.value(0, 1).isNull());
        QCOMPARE(numbers.doubleColumn(0).values[1], 2.5);
        QVERIFY(!numbers.doubleColumn(1).values);
        // Columns without values, and one that is shorter than the first.
        const DoubleMatrixData none(QStringLiteral("n"), nullptr);
        QVERIFY(none.rowCount() == 0 && !none.doubleColumn(0).values && none.value(0, 0).isNull());
        const auto values = [](Values list) { return std::make_shared<const Values>(std::move(list)); };
        const DoubleMatrixData uneven(QStringLiteral("n"),
                                      {{values({1, 2}), nullptr}, {nullptr, nullptr}, {values({3}), nullptr}});
        QVERIFY(uneven.value(0, 1).isNull() && uneven.value(1, 2).isNull());
        QCOMPARE(uneven.value(0, 2), QVariant(3.0));

        const VariantMatrixData cells(QStringLiteral("c"), MatrixData::Color,
                                      {QColor(1, 2, 3), QVariant(), QVariant(), QColor(Qt::red)}, 2);
        QCOMPARE(cells.rowCount(), 2);
        QCOMPARE(cells.colorHexaString(0, 0), QStringLiteral("#010203"));
        QCOMPARE(cells.colorHexaString(1, 1), QStringLiteral("#ff0000"));
        QCOMPARE(cells.colorHexaString(0, 1), QString());
        QVERIFY(!cells.doubleColumn(0).values);
    }

    void unitSelector()
    {
        QRestrictedImportUnitSelector selector;
        auto* lengthUnit = selector.findChild<QComboBox*>(QStringLiteral("m_lengthUnit"));
        auto* depth = selector.findChild<QRadioButton*>(QStringLiteral("m_depth"));
        QCOMPARE(lengthUnit->count(), 2);
        QSignalSpy changed(&selector, &QImportUnitSelector::unitsChanged);
        lengthUnit->setCurrentIndex(1);
        depth->click();
        QCOMPARE(changed.size(), 2);
        QCOMPARE(selector.getUnits().abbreviation(), "ft");
        QVERIFY(!selector.getUnits().zIsElevation());
        // 64 leaves the choice to the user.
        selector.gdf_setZDirection(64);
        QVERIFY(!selector.getUnits().zIsElevation());
        selector.gdf_setZDirection(kpUnits::Elevation);
        QVERIFY(selector.getUnits().zIsElevation());
        selector.enableElevationDepth(false);
        QVERIFY(!depth->isEnabled());
    }

    void unitSpinBox()
    {
        QUnitDoubleSpinBox box;
        box.setModelRange(0.0, 1000.0);
        QSignalSpy changed(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        box.setModelValue(30.48, false);
        QCOMPARE(changed.size(), 0);
        box.setDisplayUnit(kpUnits::LengthUnit::Foot);
        QCOMPARE(box.text(), QStringLiteral("100.00 ft"));
        // The rounding of what is shown does not reach the length.
        box.setModelValue(1.0, true);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(box.value(), 1.0);
        box.stepUp();
        QVERIFY(std::abs(box.value() - 4.28 * 0.3048) < 1e-12);
        // A step that is set is one of the model, whatever unit is shown.
        box.setModelValue(50.0, true);
        box.setSingleStep(10.0);
        box.stepUp();
        QCOMPARE(box.value(), 60.0);
        box.setModelValue(5000.0, true);
        QCOMPARE(box.value(), 1000.0);
    }

    void autoRepeat()
    {
        for (const bool allowed : {true, false}) {
            QUnitDoubleSpinBox box;
            box.setModelRange(0.0, 1000.0);
            box.setAllowAutoRepeat(allowed);
            box.resize(120, 30);
            box.show();
            QStyleOptionSpinBox option;
            option.initFrom(&box);
            option.subControls = QStyle::SC_All;
            const auto part = QStyle::SC_SpinBoxUp;
            const QPoint up = box.style()->subControlRect(QStyle::CC_SpinBox, &option, part, &box).center();
            QTest::mousePress(&box, Qt::LeftButton, Qt::NoModifier, up);
            if (allowed)
                QTRY_VERIFY(box.value() >= 3.0);
            else
                QTest::qWait(900);
            QTest::mouseRelease(&box, Qt::LeftButton, Qt::NoModifier, up);
            QVERIFY(allowed || box.value() == 1.0);
        }
    }

    void icons()
    {
        QStringList files;
        for (const char* name : {"arrow_left", "arrow_right", "disk", "error", "folder_page", "geocell_small",
                                 "gridSurface", "image", "polygon", "trimesh", "well"})
            files.append(QStringLiteral(":/kpBaseQt/Resources/%1.png").arg(QLatin1String(name)));
        for (const char* name : {"line", "pin", "point", "post", "text"})
            files.append(QLatin1String(":/2DKelvo/Resources/2DKelvo/iconobject_insert") + QLatin1String(name)
                         + QLatin1String(".png"));
        for (const QString& file : qAsConst(files))
            QVERIFY2(QIcon(file).pixmap(16).size() == QSize(16, 16), qPrintable(file));
    }

    void pageSequence()
    {
        TestWizard wizard;
        wizard.startup();
        QCOMPARE(wizard.sequence(), QStringLiteral("abc"));
        auto* extra = new Page(QStringLiteral("x"));
        wizard.insert_sheet(extra, wizard.pages[2]);
        QCOMPARE(wizard.sequence(), QStringLiteral("abxc"));
        wizard.remove_sheet(wizard.pages[1]);
        QCOMPARE(wizard.sequence(), QStringLiteral("axc"));
        QVERIFY(!wizard.pages[1]->next() && !wizard.pages[1]->previous());
        wizard.insert_sheet(wizard.pages[1], extra);
        QCOMPARE(wizard.sequence(), QStringLiteral("abxc"));
    }

    void closeButton()
    {
        TestWizard wizard;
        wizard.startup();
        wizard.show();
        wizard.get_progress()->begin();
        QVERIFY(!wizard.pages[0]->isEnabled());
        QTest::keyClick(&wizard, Qt::Key_Escape);
        QVERIFY(wizard.isVisible() && wizard.get_progress()->isCancelled());
        wizard.get_progress()->begin();
        QVERIFY(!wizard.get_progress()->isCancelled());
        wizard.get_progress()->progressFinished();
        QVERIFY(wizard.pages[0]->isEnabled());
        QSignalSpy finished(&wizard, &QDialog::finished);
        QTest::mouseClick(wizard.closeButton(), Qt::LeftButton);
        QVERIFY(!wizard.isVisible());
        wizard.show();
        QTest::keyClick(&wizard, Qt::Key_Escape);
        QVERIFY(!wizard.isVisible());
        QCOMPARE(finished, (QList<QVariantList>{{QDialog::Rejected}, {QDialog::Rejected}}));
    }
};

QTEST_MAIN(HostTest)
#include "tst_host.moc"
