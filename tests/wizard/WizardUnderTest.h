// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Child.h"
#include "wizard/QExportSheetObjectSelection.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QtTest>
#include <QtWidgets>

/// The page of objects with one object, chosen.
class OneObjectSheet : public kpBaseExport::QExportSheetObjectSelection
{
protected:
    void fillObjectList(const std::set<std::string>&) override
    {
        m_model->addName(QStringLiteral("A"), 1, QStringLiteral("t"), true);
        m_model->resetModel();
    }
    void updateObjectTypes() override {}
    void matchModelSelection() override {}
};

/// A wizard whose attributes the test offers.
class WizardUnderTest : public kpBaseExport::QExportWizard
{
public:
    using Info = kpBase::UnitRegistry::AttributeInfo;

    void availableAttributes(QVector<Info>& list, bool all, bool visible) override
    {
        list = supply;
        flags = {all, visible};
    }
    QVector<Info> supply;
    QPair<bool, bool> flags;
};

inline void click(QWidget& page, const char* name)
{
    auto* button = child<QAbstractButton>(page, name);
    // Towards the left, where the box of a wide check box is.
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
}

/// The names of the controls in the order in which the Tab key visits them.
inline QString tabOrder(QWidget& page)
{
    QStringList names;
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        const bool reached = next->isVisible() && (next->focusPolicy() & Qt::TabFocus) != 0 && !next->focusProxy();
        if (reached && !next->objectName().startsWith(QLatin1String("qt_")))
            names.append(next->objectName());
    }
    return names.join(QLatin1Char(' '));
}
