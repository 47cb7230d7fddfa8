// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/kpHostUiExport.h"

#include <QString>

class QWidget;

namespace kpBase
{

class AbstractSheetHandler;

/// One page of a wizard: knows its place in the sequence, its handler and the widget shown as the page.
/// A sheet owns neither neighbour, handler nor widget.
class KPHOST_UI_EXPORT AbstractSheet
{
public:
    explicit AbstractSheet(AbstractSheetHandler* handler = nullptr);
    AbstractSheet(const AbstractSheet&);
    AbstractSheet& operator=(const AbstractSheet&);

    virtual ~AbstractSheet();
    virtual void startup();           ///< the wizard starts
    virtual void shutdown();          ///< the wizard ends
    virtual void resume();            ///< work on the sheet goes on
    virtual void suspend();           ///< work on the sheet rests
    virtual void activate();          ///< the sheet has become the current one
    virtual void deactivate();        ///< the sheet is about to stop being the current one
    virtual void restart();           ///< back to the state after startup()
    virtual void update();            ///< what the sheet shows may have changed
    virtual bool isComplete() const;  ///< the wizard may go on to the next sheet; true here
    virtual bool isAvailable() const; ///< the sheet takes part in the sequence; true here
    virtual QString title();
    virtual void description(const QString& text);
    virtual QString description() const;
    virtual QString helpkey() const;
    virtual void setHelpKey(const QString& key);

    /// Neighbours in the wizard's sequence; null at its ends and outside a wizard.
    AbstractSheet* next() const;
    AbstractSheet* previous() const;
    void next(AbstractSheet* sheet);
    void previous(AbstractSheet* sheet);

    AbstractSheetHandler* getSheetHandler() const;
    /// The widget that the wizard shows for this sheet; null until the sheet has built it.
    QWidget* pageWidget() const;

protected:
    AbstractSheetHandler* m_sheetHandler; ///< not owned
    QWidget* m_pageWidget = nullptr;      ///< not owned

private:
    AbstractSheet* m_next = nullptr;
    AbstractSheet* m_previous = nullptr;
    QString m_description;
    QString m_helpKey;
};

} // namespace kpBase
