// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace kpBaseExport
{

/// Shows an "&" in the text of a button as it is, instead of making the character behind it an underlined key.
class LiteralTextStyle : public QProxyStyle
{
public:
    QRect itemTextRect(const QFontMetrics& metrics, const QRect& room, int flags, bool enabled,
                       const QString& text) const override
    {
        return QProxyStyle::itemTextRect(metrics, room, literal(flags), enabled, text);
    }
    void drawItemText(QPainter* painter, const QRect& room, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override
    {
        QProxyStyle::drawItemText(painter, room, literal(flags), palette, enabled, text, role);
    }

private:
    static int literal(int flags) { return flags & ~(Qt::TextShowMnemonic | Qt::TextHideMnemonic); }
};

} // namespace kpBaseExport
