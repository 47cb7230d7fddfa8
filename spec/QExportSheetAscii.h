// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/AdditionalListSheet.h"
#include "core/saver/AttributeNamesSheet.h"
#include "core/saver/QExportAbstractOptionSheet.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <QStringList>
#include <QWidget>

#include <memory>

namespace Ui
{
class QExportSpecSheetAscii;
}

namespace kpBaseExport
{

class QExportSpecification;

/// The page on which the layout of an ASCII export is designed. The host derives from it, makes its editor inside the
/// frame "m_frame", stores it in m_editor and connects its onSpecChange() to the slot here.
class KPBASEEXPORT_EXPORT QExportSheetAscii : public QWidget,
                                              public QExportAbstractOptionSheet,
                                              public AttributeNamesSheet,
                                              public AdditionalListSheet
{
    Q_OBJECT

public:
    QExportSheetAscii();
    ~QExportSheetAscii() override;

    using QExportAbstractOptionSheet::initialize;
    void startup() override;
    void activate() override;
    void deactivate() override;
    /// True when objects are chosen and the layout has a field.
    bool isComplete() const override;
    bool isAvailable() const override;
    void initialize(const QString& text) override;

    /// The layout's mode; separated fields while there is no editor.
    MatrixDataAsciiExporter::Mode mode() const;
    /// The fields for the ASCII writer.
    std::vector<MatrixDataExporter::FieldInfo> fieldInfoList() const;
    /// Names of the fields that are attributes, in UTF-8.
    std::vector<std::string> selectedAttributeNames() override;
    /// Names that the list of attributes shows first, from the next activate() on.
    void setAdditionalList(const QStringList& names) override;

protected Q_SLOTS:
    void onSpecChange(const QStringList& l);

protected:
    std::unique_ptr<Ui::QExportSpecSheetAscii> m_ui;
    QExportSpecification* m_editor = nullptr; ///< set by the host, not owned
    bool m_hasObjects = false;
    QStringList m_additional;
};

} // namespace kpBaseExport
