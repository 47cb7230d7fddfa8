// SPDX-License-Identifier: MIT
#include "export/CommonSettings.h"

#include <QCoreApplication>

namespace kpFormats
{

namespace
{

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::CommonSettings)
};

} // namespace

std::vector<SettingChoice> groupingChoices()
{
    return {{QStringLiteral("single"), Texts::tr("One file")},
            {QStringLiteral("object"), Texts::tr("A file per object")},
            {QStringLiteral("set"), Texts::tr("A file per set")}};
}

std::vector<SettingChoice> lengthUnitChoices()
{
    const QString texts[] = {Texts::tr("that of the model"), Texts::tr("metres (m)"), Texts::tr("feet (ft)"),
                             Texts::tr("US survey feet (ftUS)"), Texts::tr("kilometres (km)")};
    std::vector<SettingChoice> choices;
    for (const QString& key : outputUnitKeys())
        choices.push_back({key, texts[choices.size()]});
    return choices;
}

QString groupingLabel()
{
    return Texts::tr("Grouping");
}

QString groupingDescription()
{
    return Texts::tr("one file, one per object, one per set");
}

QString lengthUnitLabel()
{
    return Texts::tr("Length unit");
}

QString filePrefixLabel()
{
    return Texts::tr("File prefix");
}

QString filePrefixDescription()
{
    return Texts::tr("begins the names of several files in a directory");
}

QString elevationLabel()
{
    return Texts::tr("z is elevation");
}

QString elevationDescription()
{
    return Texts::tr("false writes depths, positive down");
}

} // namespace kpFormats
