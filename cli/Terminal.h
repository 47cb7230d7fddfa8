// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include <QJsonDocument>
#include <QString>
#include <QStringList>

namespace refhost
{

// Texts of a model or of a file's name reach the terminal only as characters that it shows: what it would obey, and what
// would change the order of the text, is written as \xNN or \uNNNN.

/// \a text without control characters, line ends and tabs among them.
QString shownText(const QString& text);

/// Prints "kpexport: error: TEXT" on standard error.
void printError(const QString& text);
/// Prints "kpexport: note: TEXT" on standard error.
void printNote(const QString& text);
/// Prints a line on standard output, its fields set apart by tabs.
void printFields(const QStringList& fields);
/// Prints \a text of the program itself on standard output.
void printText(const QString& text);
/// Prints JSON on standard output.
void printJson(const QJsonDocument& document);
/// Writes what is left of standard output. False, after an error message, when it could not be written; a reader that
/// has closed its end of a pipe is not a failure.
bool finishOutput();

} // namespace refhost
