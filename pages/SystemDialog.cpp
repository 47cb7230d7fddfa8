// SPDX-License-Identifier: MIT
#include "pages/SystemDialog.h"

#include "geo/CoordinateSystems.h"
#include "geo/CoordinateTransform.h"
#include "pages/SearchWords.h"
#include "wizard/PlainText.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSettings>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace kpFormats
{

namespace
{

constexpr int mostRows = 200; ///< more than anybody reads
constexpr int mostRecent = 8;
constexpr int decimals = 2;
constexpr int decimalsOfDegrees = 5;
const QString recentKey = QStringLiteral("recentSystems");

std::optional<std::array<double, 2>> transformed(const SamplePosition& sample, const QString& wkt)
{
    std::vector<double> x{sample.x};
    std::vector<double> y{sample.y};
    std::vector<double> z{0.0};
    try {
        if (wkt.isEmpty() || sample.crs.isEmpty() || CoordinateTransform(sample.crs, wkt).transform(x, y, z) != 0)
            return std::nullopt;
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
    return std::array<double, 2>{x[0], y[0]};
}

QString shown(double x, double y, const QString& wkt)
{
    const int digits = unitsOf(wkt).degrees ? decimalsOfDegrees : decimals;
    const QLocale locale;
    return QStringLiteral("%1, %2").arg(locale.toString(x, 'f', digits), locale.toString(y, 'f', digits));
}

} // namespace

QString shownIn(const SamplePosition& sample, const QString& wkt)
{
    const std::optional<std::array<double, 2>> place = transformed(sample, wkt);
    return place ? SystemDialog::tr("%1 becomes %2")
                       .arg(shown(sample.x, sample.y, sample.crs), shown((*place)[0], (*place)[1], wkt))
                 : QString();
}

SystemDialog::SystemDialog(const std::optional<SamplePosition>& sample, QWidget* parent)
    : QDialog(parent)
    , m_sample(sample)
    , m_search(new QLineEdit(this))
    , m_list(new QTreeWidget(this))
    , m_more(new QLabel(this))
    , m_area(new QLabel(this))
{
    setWindowTitle(tr("Find a Coordinate System"));
    if (sample)
        m_place = transformed(*sample, wktOf(QStringLiteral("EPSG:4326")));
    m_search->setObjectName(QStringLiteral("searchSystems"));
    m_search->setPlaceholderText(tr("Name, code or place, such as \"MGA 50\", \"28350\", \"Norway UTM\""));
    m_search->setAccessibleName(tr("Search coordinate systems"));
    m_search->setClearButtonEnabled(true);
    m_list->setObjectName(QStringLiteral("systemList"));
    m_list->setAccessibleName(tr("Coordinate systems"));
    m_list->setHeaderLabels({tr("Name"), tr("Code"), tr("Used in")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->resizeSection(0, 300);
    m_list->header()->resizeSection(1, 100);
    m_more->setObjectName(QStringLiteral("moreSystems"));
    m_area->setObjectName(QStringLiteral("systemArea"));
    m_area->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_more);
    layout->addWidget(m_area);
    layout->addWidget(buttons);
    resize(720, 480);
    const auto showChosenAndButton = [this, buttons] {
        showChosen();
        buttons->button(QDialogButtonBox::Ok)->setEnabled(!chosen().isEmpty());
    };
    connect(m_search, &QLineEdit::textChanged, this, &SystemDialog::fill);
    connect(m_list, &QTreeWidget::currentItemChanged, this, showChosenAndButton);
    connect(m_list, &QTreeWidget::itemActivated, this, &SystemDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &SystemDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SystemDialog::reject);
    fill();
    showChosenAndButton();
}

void SystemDialog::addRow(const KnownSystem& system)
{
    auto* row = new QTreeWidgetItem(m_list, {system.name, system.code, system.area});
    row->setToolTip(2, kpBaseExport::plainText(system.area));
}

void SystemDialog::fill()
{
    m_list->clear();
    const SearchWords words(m_search->text());
    const QStringList recent = QSettings().value(recentKey).toStringList();
    std::vector<const KnownSystem*> found;
    for (const KnownSystem& system : knownSystems()) {
        if (words.areIn({system.code, system.name, system.area}))
            found.push_back(&system);
    }
    const auto rank = [&](const KnownSystem* system) {
        const int last = recent.indexOf(system->code);
        if (last >= 0)
            return last;
        return m_place && system->covers((*m_place)[0], (*m_place)[1]) ? mostRecent : mostRecent + 1;
    };
    std::stable_sort(found.begin(), found.end(),
                     [&rank](const KnownSystem* one, const KnownSystem* other) { return rank(one) < rank(other); });
    const std::size_t rows = std::min<std::size_t>(found.size(), mostRows);
    for (std::size_t index = 0; index < rows; ++index)
        addRow(*found[index]);
    m_more->setVisible(found.size() != rows);
    m_more->setText(tr("%1 more: write another word to find them.")
                        .arg(QLocale().toString(static_cast<qulonglong>(found.size() - rows))));
    if (rows != 0)
        m_list->setCurrentItem(m_list->topLevelItem(0));
}

QString SystemDialog::chosen() const
{
    return m_list->currentItem() ? m_list->currentItem()->text(1) : QString();
}

void SystemDialog::showChosen()
{
    const QString code = chosen();
    const auto& systems = knownSystems();
    const auto system =
        std::find_if(systems.begin(), systems.end(), [&code](const KnownSystem& one) { return one.code == code; });
    if (system == systems.end()) {
        m_area->clear();
        return;
    }
    QString text = system->area;
    if (m_sample) {
        const QString position = shownIn(*m_sample, wktOf(code));
        text += QLatin1Char('\n')
                + (position.isEmpty() ? tr("The objects have no place in it.")
                                      : tr("The first position, %1.").arg(position));
    }
    if (m_place && !system->covers((*m_place)[0], (*m_place)[1]))
        text += QLatin1Char('\n') + tr("The objects lie outside the area in which it is used.");
    m_area->setText(kpBaseExport::plainText(text));
}

void SystemDialog::accept()
{
    const QString code = chosen();
    if (code.isEmpty())
        return;
    QSettings stored;
    QStringList recent = stored.value(recentKey).toStringList();
    recent.removeAll(code);
    recent.prepend(code);
    stored.setValue(recentKey, QStringList(recent.mid(0, mostRecent)));
    QDialog::accept();
}

} // namespace kpFormats
