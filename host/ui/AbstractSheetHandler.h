// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/kpHostUiExport.h"

namespace kpBase
{

class AbstractSheet;

/// Whoever shows sheets one at a time: keeps the current one and moves along the sequence.
class KPHOST_UI_EXPORT AbstractSheetHandler
{
public:
    AbstractSheetHandler();
    virtual ~AbstractSheetHandler();

    AbstractSheetHandler(const AbstractSheetHandler&) = delete;
    AbstractSheetHandler& operator=(const AbstractSheetHandler&) = delete;

    AbstractSheet* current_sheet() const;

    /// Make the neighbouring sheet that is available the current one; nothing happens at the ends.
    virtual void activate_next_sheet();
    virtual void activate_previous_sheet();
    /// Reads the current sheet's isComplete() again and enables the navigation accordingly.
    virtual void update_navigation();
    /// Starts the sequence.
    virtual void startup();

protected:
    /// Builds the sheets; called once, by the first startup().
    virtual void populate_sheets();
    /// Makes \a sheet the current one: deactivates the one before, shows it, activates it.
    virtual void set_current_sheet(AbstractSheet* sheet);

private:
    AbstractSheet* m_current = nullptr;
};

} // namespace kpBase
