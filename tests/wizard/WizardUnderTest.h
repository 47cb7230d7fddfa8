// SPDX-License-Identifier: MIT
#pragma once

#include "wizard/QExportSheetObjectSelection.h"
#include "wizard/QExportWizard.h"
#include "wizard/QObjectListModel.h"

#include <QPushButton>
#include <QtTest>

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

template <typename Control>
Control* child(QWidget& page, const char* name)
{
    auto* found = page.findChild<Control*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

inline void click(QWidget& page, const char* name)
{
    auto* button = child<QAbstractButton>(page, name);
    // Towards the left, where the box of a wide check box is.
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
}
