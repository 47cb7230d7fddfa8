// SPDX-License-Identifier: MIT
#include "window/RunGui.h"

#include "window/MainWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>

namespace refhost
{

int runGui(int& argc, char** argv)
{
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    const QString option = QStringLiteral("model");
    parser.addOption({option, QString(), QStringLiteral("path")});
    parser.process(application);
    HostContext context;
    MainWindow window(context);
    window.show();
    QStringList models = parser.values(option);
    if (models.isEmpty() && QFileInfo::exists(QStringLiteral(KP_SAMPLE_MODEL)))
        models.append(QStringLiteral(KP_SAMPLE_MODEL));
    for (const QString& path : qAsConst(models))
        window.openModel(path);
    return QApplication::exec();
}

} // namespace refhost
