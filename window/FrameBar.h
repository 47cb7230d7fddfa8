// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "window/MapScene.h"

#include <QFrame>

class QComboBox;
class QLabel;

namespace refhost
{

/// Above the map: says that the model has objects which have no place among the others, and chooses what is shown.
/// Hidden when all can be drawn together.
class FrameBar : public QFrame
{
    Q_OBJECT

public:
    explicit FrameBar(QWidget* parent = nullptr);

    void show(const std::vector<MapFrame>& frames, int shown);

Q_SIGNALS:
    void frameChosen(int frame);

private:
    QLabel* m_text;
    QComboBox* m_frames;
};

/// The system of a frame in words.
QString nameOf(const MapFrame& frame);

} // namespace refhost
