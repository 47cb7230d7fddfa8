// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace Ui
{
class QExportAttributeWidget;
}

namespace kpBaseExport
{

class QExportWizard;

/// The panel on which the user chooses attributes: those of the chosen objects whose type the format can take, all
/// checked at first; the others are named in a warning.
class KPBASEEXPORT_EXPORT QExportAttributeWidget : public QWidget
{
    Q_OBJECT

public:
    /// Bits of the attribute types, for setSelectableTypes().
    static constexpr int c_systemTypeBoolean = 1;
    static constexpr int c_systemTypeColor = 2;
    static constexpr int c_systemTypeDip = 4;
    static constexpr int c_systemTypeFlag = 8;
    static constexpr int c_systemTypeInteger = 16;
    static constexpr int c_systemTypePattern = 32;
    static constexpr int c_systemTypeReal = 64;
    static constexpr int c_systemTypeRealVector2 = 128;
    static constexpr int c_systemTypeRealVector3 = 256;
    static constexpr int c_systemTypeText = 512;
    static constexpr int c_systemTypeVertexDisplay = 1024;
    static constexpr int c_systemTypeAll = 2047;

    /// Which attributes the panel's title speaks of.
    enum AttributeLevel { UNSPECIFIED_LEVEL = 0, VERTEX_LEVEL = 1, FACE_LEVEL = 2, OBJECT_LEVEL = 3 };

    QExportAttributeWidget(QExportWizard* wizard, QWidget* parent);
    ~QExportAttributeWidget() override;

    /// Builds the panel; nothing else may be called before. The key is not used.
    virtual void initialize(const QString& key, AttributeLevel level);
    virtual void startup();
    /// Fills the list anew from the wizard's selection, everything checked.
    virtual void activate();
    virtual bool isComplete() const;
    virtual void setDataInformation();

    /// Names of the checked attributes in UTF-8, in the order of the list.
    std::vector<std::string> selectedAttributeNames();

    /// Handed through to QExportWizard::availableAttributes().
    void setAllFlag(bool all);
    void setVisibleFlag(bool visible);
    void setSelectableTypes(int types);
    void setUnselectableType(int type);
    void setWizard(QExportWizard* wizard);

protected:
    bool isSelectable(const std::string& typeName) const;
    void setAttributeLevel(AttributeLevel level);

protected Q_SLOTS:
    void onSelectAll();
    void onDeselectAll();

private:
    void setAllChecked(Qt::CheckState state);

    std::unique_ptr<Ui::QExportAttributeWidget> m_ui;
    QExportWizard* m_wizard; ///< not owned
    bool m_all = false;
    bool m_visible = true;
    int m_selectableTypes = c_systemTypeAll;
};

} // namespace kpBaseExport
