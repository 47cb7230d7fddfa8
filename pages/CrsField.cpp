// SPDX-License-Identifier: MIT
#include "pages/CrsField.h"

#include "geo/CoordinateSystems.h"
#include "wizard/PlainText.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kpFormats
{

bool areSystemsKnown(const SettingsValue& settings)
{
    const Setting* const crs = settings.find(crsKey);
    const QString text = crs ? settings.get(*crs) : QString();
    return text.isEmpty() || !wktOf(text).isEmpty();
}

CrsField::CrsField(QWidget* parent)
    : QWidget(parent)
    , m_edit(new QLineEdit(this))
    , m_meaning(new QLabel(this))
{
    m_edit->setPlaceholderText(tr("such as EPSG:28350"));
    m_meaning->setObjectName(QStringLiteral("crsMeaning"));
    m_meaning->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit);
    layout->addWidget(m_meaning);
    setFocusProxy(m_edit);
    connect(m_edit, &QLineEdit::textChanged, this, &CrsField::show);
    show({});
}

void CrsField::show(const QString& text)
{
    const QString wkt = wktOf(text);
    m_meaning->setVisible(!text.isEmpty());
    m_meaning->setText(wkt.isEmpty() ? tr("There is no such coordinate system. Write a code such as EPSG:28350, or "
                                          "nothing for that of the objects.")
                                     : kpBaseExport::plainText(crsName(wkt)));
    // Red by style only where it is wrong, so that a dark palette keeps its own colour.
    m_meaning->setStyleSheet(wkt.isEmpty() ? QStringLiteral("color: #d03030") : QString());
}

} // namespace kpFormats
