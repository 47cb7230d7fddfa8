// SPDX-License-Identifier: MIT
#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace refhost
{

/// Everything that an export from the command line or from a job file is made of.
struct ExportRequest
{
    QStringList models;
    QString format;
    QString output;
    QStringList objects;    ///< names or globs; all when empty
    QStringList types;      ///< type keys; all when empty
    QStringList attributes; ///< all when empty
    QString layout;         ///< file of a saved layout; none when empty
    QVector<QPair<QString, QString>> settings;
    bool overwrite = false;
    bool strict = false;
    bool quiet = false;
    QString report;
};

/// Carries the request out and prints what was written. \returns the exit code
int runRequest(const ExportRequest& request);

/// kpexport export. \returns the exit code
int exportCommand(const QStringList& arguments);

} // namespace refhost
