// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "model/ModelObject.h"
#include "pages/SystemDialog.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

#include <optional>
#include <vector>

class QLabel;
class QLineEdit;

namespace kpFormats
{

/// The setting of a coordinate system.
inline const QString crsKey = QStringLiteral("crs");

/// Whether the settings name no coordinate system, or one that PROJ knows.
KPFORMATSUI_EXPORT bool areSystemsKnown(const SettingsValue& settings);

/// Tells the field of a page, where it has one, what is exported now.
KPFORMATSUI_EXPORT void showObjects(const QWidget& page, const std::vector<const ModelObject*>& objects);

/// Takes the name of a coordinate system, or finds one, and says below which one that is and what it makes of the first
/// position of the objects, or that it is none.
class KPFORMATSUI_EXPORT CrsField : public QWidget
{
    Q_OBJECT

public:
    /// \a ofOutput: positions are brought into the system; else it is that of objects which have none.
    CrsField(bool ofOutput, QWidget* parent);

    QLineEdit* edit() const { return m_edit; }
    /// What is exported now.
    void setObjects(const std::vector<const ModelObject*>& objects);

private:
    void find();
    void explain();

    bool m_ofOutput;
    QLineEdit* m_edit;
    QLabel* m_meaning;
    std::optional<SamplePosition> m_sample;
};

} // namespace kpFormats
