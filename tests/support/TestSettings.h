// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QSettings>

/// Settings of the test's own, in a folder of its own; file dialogs that a test can drive.
inline void useTestSettings(const QString& folder)
{
    QCoreApplication::setOrganizationName(QStringLiteral("kp-test"));
    QCoreApplication::setApplicationName(QStringLiteral("test"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}
