// SPDX-License-Identifier: MIT
#include "HostWizard.h"
#include "Registration.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QSpinBox>
#include <QTextEdit>

#include <cstdio>

namespace
{

Horizon::Numbers numbers(std::vector<double> values)
{
    return std::make_shared<const std::vector<double>>(std::move(values));
}

Model exampleModel()
{
    Model model;
    model.horizons.push_back({1, QStringLiteral("Top"), numbers({500100.25, 500200.5}), numbers({7500000, 7500000}),
                              numbers({-1200.5, -1210}), QStringLiteral("amplitude"), numbers({0.125, 0.25})});
    model.horizons.push_back({2, QString::fromUtf8("Основа"), numbers({500100}), numbers({7500010}), numbers({-1500}),
                              QStringLiteral("amplitude"), numbers({-0.5})});
    return model;
}

/// Exports both formats into \a folder without a user: each wizard is led by its pages' controls, as a test does it.
bool exportWithoutUser(const Model& model, const QDir& folder)
{
    struct Run
    {
        const char* key;
        const char* file;
        void (*choose)(QWidget&);
    };
    const Run runs[] = {
        {"points", "points",
         [](QWidget& page) { page.findChild<QSpinBox*>(QStringLiteral("m_decimals"))->setValue(3); }},
        {"horizons", "horizons.hor", [](QWidget& page) {
             page.findChild<QComboBox*>(QStringLiteral("m_lengthUnit"))->setCurrentText(QStringLiteral("Feet (ft)"));
             page.findChild<QAbstractButton*>(QStringLiteral("m_depth"))->click();
         }}};
    for (const Run& run : runs) {
        HostWizard wizard(model);
        wizard.startup();
        auto* formats = wizard.findChild<QComboBox*>(QStringLiteral("fileFormatComboBox"));
        formats->setCurrentIndex(formats->findData(QString::fromLatin1(run.key)));
        wizard.activate_next_sheet();
        run.choose(*wizard.current_sheet()->pageWidget());
        wizard.slotSaveClicked(folder.filePath(QString::fromLatin1(run.file)), true);
        const QString report = wizard.findChild<QTextEdit*>(QStringLiteral("reportView"))->toPlainText();
        if (!report.contains(QStringLiteral("Data has been exported successfully!"))) {
            std::fprintf(stderr, "%s\n", qPrintable(report));
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("outsidehost"));
    const Model model = exampleModel();
    const Registration registration(model);
    if (argc == 3 && qstrcmp(argv[1], "--export") == 0)
        return exportWithoutUser(model, QDir(QString::fromLocal8Bit(argv[2]))) ? 0 : 1;
    HostWizard wizard(model);
    wizard.startup();
    wizard.exec();
    return 0;
}
