// SPDX-License-Identifier: MIT
#include "window/FrameBar.h"

#include "geo/CoordinateSystems.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QSignalBlocker>

namespace refhost
{

QString nameOf(const MapFrame& frame)
{
    const QString name = crsName(frame.crs);
    return name.isEmpty() ? FrameBar::tr("no coordinate system") : name;
}

FrameBar::FrameBar(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_frames(new QComboBox(this))
{
    setObjectName(QStringLiteral("frameBar"));
    // A note on paper: its own ink, so that it can be read under a dark palette too.
    setStyleSheet(QStringLiteral("#frameBar { background: #fff3c4; } #frameText { color: #4a3b00; }"));
    m_text->setObjectName(QStringLiteral("frameText"));
    m_text->setWordWrap(true);
    m_frames->setObjectName(QStringLiteral("frameChoice"));
    m_frames->setAccessibleName(tr("Shown on the map"));
    m_frames->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_frames->setMinimumContentsLength(28);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_frames);
    connect(m_frames, qOverload<int>(&QComboBox::activated), this, &FrameBar::frameChosen);
    hide();
}

void FrameBar::show(const std::vector<MapFrame>& frames, int shown)
{
    const QSignalBlocker blocker(m_frames);
    m_frames->clear();
    int others = 0;
    for (std::size_t frame = 0; frame < frames.size(); ++frame) {
        m_frames->addItem(
            QStringLiteral("%1 (%2)").arg(nameOf(frames[frame]), QLocale().toString(frames[frame].objects)));
        if (static_cast<int>(frame) != shown)
            others += frames[frame].objects;
    }
    m_frames->setCurrentIndex(shown);
    m_text->setText(others == 1 ? tr("1 object has no place among those that are shown: its coordinates are local.")
                                : tr("%1 objects have no place among those that are shown: their coordinates are local "
                                     "or another's.")
                                      .arg(others));
    setVisible(frames.size() > 1);
}

} // namespace refhost
