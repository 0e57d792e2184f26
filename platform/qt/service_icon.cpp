#include "service_icon.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <algorithm>

namespace corvex::qt {

QString serviceIconLetters(const QString& className) {
    QString letters;
    for (const QChar c : className) {
        if (c.isUpper() && letters.size() < 3) letters += c;
    }
    return letters.isEmpty() ? className.left(1).toUpper() : letters;
}

void paintServiceIcon(QPainter& painter, const QRect& rect, const QString& className) {
    if (rect.width() < 4 || rect.height() < 4) return;
    const QPalette palette = QApplication::palette();
    const QRect tile = rect.adjusted(0, 0, -1, -1);
    painter.save();
    painter.fillRect(tile, palette.color(QPalette::Button));
    // A raised edge, light above and left, dark below and right, as a tool icon stands.
    painter.setPen(palette.color(QPalette::Light));
    painter.drawLine(tile.topLeft(), tile.topRight());
    painter.drawLine(tile.topLeft(), tile.bottomLeft());
    painter.setPen(palette.color(QPalette::Dark));
    painter.drawLine(tile.bottomLeft(), tile.bottomRight());
    painter.drawLine(tile.topRight(), tile.bottomRight());
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(std::max(6, tile.height() / 3));
    painter.setFont(font);
    painter.setPen(palette.color(QPalette::ButtonText));
    painter.drawText(tile, Qt::AlignCenter, serviceIconLetters(className));
    painter.restore();
}

}  // namespace corvex::qt
