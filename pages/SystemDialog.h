// SPDX-License-Identifier: MIT
#pragma once

#include "geo/KnownSystems.h"
#include "pages/kpFormatsUiExport.h"

#include <QDialog>

#include <array>
#include <optional>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace kpFormats
{

/// A position of the objects that are exported, and the system in which it is given.
struct SamplePosition
{
    QString crs; ///< WKT
    double x = 0.0;
    double y = 0.0;
};

/// Finds a coordinate system by name, code or place, and shows what it makes of a position. Those chosen last come first,
/// those used where the objects lie next.
class KPFORMATSUI_EXPORT SystemDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a sample may be missing.
    SystemDialog(const std::optional<SamplePosition>& sample, QWidget* parent);

    /// Such as "EPSG:28350"; empty when none is chosen.
    QString chosen() const;
    void accept() override;

private:
    void fill();
    void addRow(const KnownSystem& system);
    void showChosen();

    std::optional<SamplePosition> m_sample;
    std::optional<std::array<double, 2>> m_place; ///< of the sample, in degrees
    QLineEdit* m_search;
    QTreeWidget* m_list;
    QLabel* m_more;
    QLabel* m_area;
};

/// What a system makes of a position, as "505,000.00, 7,500,000.00 becomes 117.04850, -22.60685"; empty when it has no place
/// there.
KPFORMATSUI_EXPORT QString shownIn(const SamplePosition& sample, const QString& wkt);

} // namespace kpFormats
