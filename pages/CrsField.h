// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

class QLabel;
class QLineEdit;

namespace kpFormats
{

/// The setting of a coordinate system.
inline const QString crsKey = QStringLiteral("crs");

/// Whether the settings name no coordinate system, or one that PROJ knows.
KPFORMATSUI_EXPORT bool areSystemsKnown(const SettingsValue& settings);

/// Takes the name of a coordinate system and says below which one that is, or that it is none.
class KPFORMATSUI_EXPORT CrsField : public QWidget
{
public:
    explicit CrsField(QWidget* parent);

    QLineEdit* edit() const { return m_edit; }

private:
    void show(const QString& text);

    QLineEdit* m_edit;
    QLabel* m_meaning;
};

} // namespace kpFormats
