// SPDX-License-Identifier: MIT
#include "pages/CrsField.h"

#include "geo/CoordinateSystems.h"
#include "wizard/PlainText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <set>

namespace kpFormats
{

bool areSystemsKnown(const SettingsValue& settings)
{
    const Setting* const crs = settings.find(crsKey);
    const QString text = crs ? settings.get(*crs) : QString();
    return text.isEmpty() || !wktOf(text).isEmpty();
}

void showObjects(const QWidget& page, const std::vector<const ModelObject*>& objects)
{
    if (auto* field = page.findChild<CrsField*>())
        field->setObjects(objects);
}

CrsField::CrsField(bool ofOutput, QWidget* parent)
    : QWidget(parent)
    , m_ofOutput(ofOutput)
    , m_edit(new QLineEdit(this))
    , m_meaning(new QLabel(this))
{
    m_edit->setPlaceholderText(tr("such as EPSG:28350"));
    m_edit->setClearButtonEnabled(true);
    m_meaning->setObjectName(QStringLiteral("crsMeaning"));
    m_meaning->setWordWrap(true);
    auto* findButton = new QPushButton(tr("Find..."), this);
    findButton->setObjectName(QStringLiteral("findSystem"));
    findButton->setToolTip(tr("Finds a coordinate system by name, code or place"));
    findButton->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    row->addWidget(m_edit, 1);
    row->addWidget(findButton);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(m_meaning);
    setFocusProxy(m_edit);
    connect(m_edit, &QLineEdit::textChanged, this, &CrsField::explain);
    connect(findButton, &QPushButton::clicked, this, &CrsField::find);
    explain();
}

void CrsField::setObjects(const std::vector<const ModelObject*>& objects)
{
    std::set<QString> systems;
    int without = 0;
    m_sample.reset();
    for (const ModelObject* object : objects) {
        if (object->crs.isEmpty()) {
            ++without;
            continue;
        }
        systems.insert(object->crs);
        if (!m_sample && m_ofOutput && object->vertexCount() > 0)
            m_sample = SamplePosition{object->crs, object->x->front(), object->y->front()};
    }
    QString text = tr("such as EPSG:28350");
    if (m_ofOutput && systems.size() == 1)
        text = tr("as the objects: %1").arg(crsName(*systems.begin()));
    else if (m_ofOutput && !systems.empty())
        text = tr("as the objects, in %1 systems").arg(systems.size());
    else if (!m_ofOutput && without > 0)
        text = without == 1 ? tr("1 object has none") : tr("%1 objects have none").arg(without);
    m_edit->setPlaceholderText(text);
    explain();
}

void CrsField::find()
{
    SystemDialog dialog(m_sample, window());
    if (dialog.exec() == QDialog::Accepted)
        m_edit->setText(dialog.chosen());
}

void CrsField::explain()
{
    const QString wkt = wktOf(m_edit->text());
    const bool isWrong = wkt.isEmpty() && !m_edit->text().isEmpty();
    QString text = crsName(wkt);
    if (isWrong)
        text = tr(
            "There is no such coordinate system. Write a code such as EPSG:28350, or nothing for that of the objects.");
    else if (m_sample && !wkt.isEmpty() && text != crsName(m_sample->crs)) {
        const QString position = shownIn(*m_sample, wkt);
        text += QLatin1Char('\n') + (position.isEmpty() ? tr("The objects have no place in it.") : position);
    }
    m_meaning->setVisible(!text.isEmpty());
    m_meaning->setText(kpBaseExport::plainText(text));
    // Red by style only where it is wrong, so that a dark palette keeps its own colour.
    m_meaning->setStyleSheet(isWrong ? QStringLiteral("color: #d03030") : QString());
}

} // namespace kpFormats
