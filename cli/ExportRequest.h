// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace refhost
{

/// Settings of a format and their values, in the order given.
using SettingPairs = QVector<QPair<QString, QString>>;

/// Everything that an export from the command line or from a job file is made of.
struct ExportRequest
{
    QStringList models;
    QString format;
    QString output;
    QStringList objects;       ///< names, globs or "id:NUMBER"; all when empty
    QStringList types;         ///< type keys; all when empty
    QStringList attributes;    ///< all when empty
    bool noAttributes = false; ///< coordinates only
    QString layout;            ///< layout file of the ASCII format; none when empty
    SettingPairs settings;
    bool overwrite = false;
    bool keepBoth = false; ///< files take names that are free
    bool force = false;    ///< also under an extension that means another format
    bool strict = false;
    bool quiet = false;
    bool allowNetwork = false; ///< files may name places in the network
    bool allowOutside = false; ///< models may name files outside their folder
    bool verify = false;       ///< read each file again before it replaces an earlier one
    bool dryRun = false;       ///< only say what would be written
    QString report;
    QString jobFile; ///< that described it; empty when it was the command line
};

} // namespace refhost
