// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/QExportAbstractOptionSheet.h"
#include "sheets/FileGroupingChoice.h"

#include <QSet>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QGroupBox;
class QLineEdit;
class QRadioButton;

namespace kpBaseExport
{

/// What the pages of formats that write one file or several have in common: the controls for it. Leaving the page
/// tells the wizard whether to ask for a file or for a directory.
class KPBASEEXPORT_EXPORT FileGroupingSheet : public QWidget, public QExportAbstractOptionSheet
{
    Q_OBJECT

public:
    ~FileGroupingSheet() override;

    void deactivate() override;

    /// The kinds of set that can divide the objects.
    void setSets(const QSet<QString>& sets);
    virtual void setSets(const QStringList& sets);

    FileGroupingChoice fileGrouping() const;

protected:
    FileGroupingSheet();
    using QExportAbstractOptionSheet::initialize;

    /// Fills the form's two group boxes; their texts are translated in the context of the form. The new controls
    /// follow \a before in the tab order and \a after follow them; \a before may be null.
    void buildFileGrouping(const char* context, QGroupBox* fileGroup, QGroupBox* fileNameGroup, QWidget* before,
                           const QList<QWidget*>& after);

protected Q_SLOTS:
    void onCheckMultipleFiles(bool flag);
    void onCheckFileSetType(bool flag);

private:
    QGroupBox* m_fileNameGroup = nullptr;
    QRadioButton* m_multipleRadio = nullptr;
    QLineEdit* m_filePrefix = nullptr;
    QComboBox* m_fileSetComboBox = nullptr;
    QRadioButton* m_useObjectAsFilenames = nullptr;
};

} // namespace kpBaseExport
