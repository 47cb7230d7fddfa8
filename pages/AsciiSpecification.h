// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiLayout.h"
#include "pages/kpFormatsUiExport.h"
#include "spec/QExportSpecification.h"

#include <QJsonObject>

#include <functional>
#include <vector>

namespace kpFormats
{

/// The layout editor over the chosen objects. Fields that these lack are set aside: they are not shown, are there
/// again when other objects have them, and stay in saved files.
class KPFORMATSUI_EXPORT AsciiSpecification : public kpBaseExport::QExportSpecification
{
    Q_OBJECT

public:
    explicit AsciiSpecification(QWidget* parent);

    /// What is on offer from the next activate() on.
    void setObjects(const std::vector<const ModelObject*>& objects);
    const std::vector<OfferedField>& offered() const { return m_offered; }
    /// Decimals of real fields that are added from now on.
    void setDecimals(int decimals);

    void activate() override;
    void deactivate() override;

    /// Puts every field on offer into the layout, in the order offered, in place of what it holds; shown from
    /// the next activate() on.
    void takeAll();
    /// Puts back a layout as deactivate() left it, widths included.
    void restore(const FormatFile& file);
    /// The present layout, with what is set aside.
    std::unique_ptr<FormatFile> snapshot();
    /// The layout for the writer.
    AsciiLayout asciiLayout() const;
    /// Gives the fields, in their order, columns of these widths with one blank between.
    void place(const QVector<int>& widths);
    /// Gives a column at least that many characters; those behind it give way.
    void widen(int row, int characters);
    /// Gives X, Y and Z at least that many decimals.
    void refineCoordinates(int decimals);
    QStringList lacking() const { return m_lacking.keys(); }

    /// The host's settings that a format file holds; set by the page.
    std::function<QJsonObject()> settingsToSave;

Q_SIGNALS:
    /// A format file has been loaded; the settings that it holds.
    void formatOpened(const QJsonObject& settings);

protected:
    void attributeMissing(const kpBaseExport::QESAttribute& attribute) override;
    void refreshAttributes() override;
    void formatLoaded(const FormatFile& file) override;
    void formatAboutToBeSaved(FormatFile& file) override;
    /// Tells the user.
    void formatFailed(const QString& path, const QString& cause) override;
    /// Asks the user.
    bool mayReplaceFormat(const QString& path) override;

private:
    void addFilter();
    void setAside();

    std::vector<OfferedField> m_offered;
    int m_decimals = 3;
    QMap<QString, kpBaseExport::QESAttribute> m_lacking; ///< fields that the chosen objects lack
};

} // namespace kpFormats
