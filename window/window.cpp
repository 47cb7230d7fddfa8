// SPDX-License-Identifier: MIT
#include "cli/StartUp.h"
#include "window/RunGui.h"

#include <QtGlobal>

/// The program with its window, found by name: main() loads this module when no command is given.
extern "C" Q_DECL_EXPORT int kpexportWindow(int argc, char** argv)
{
    refhost::nameApplication();
    // The user sees in the window what a model loads, but not whom it calls.
    refhost::limitLoading(false, true);
    return refhost::runGui(argc, argv);
}
