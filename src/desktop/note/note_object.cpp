#include "desktop/note/note_object.h"

#include "desktop/note/ink_image.h"
#include "desktop/note/note_text.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/notes.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPalette>
#include <algorithm>

namespace hourwright::desktop {

namespace {

using exchange::ForeignGroup;
using exchange::InkDrawing;
using exchange::NoteItem;
using exchange::VoiceClip;

QString clipText(const VoiceClip& clip) {
    const auto seconds = (clip.milliseconds + 500) / 1000;
    return QString("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
}

bool isPicture(const ForeignGroup& group) {
    return group.rtf.find("\\pict") != std::string::npos || group.rtf.find("\\object") != std::string::npos;
}

QSizeF buttonSize(const QTextDocument& document, const QString& text) {
    const QFontMetricsF metrics(document.defaultFont());
    return {metrics.horizontalAdvance(text) + 2.6 * metrics.height(), 1.5 * metrics.height()};
}

QSizeF fitted(QSizeF size, const QTextDocument& document) {
    const double room = document.textWidth() - 2 * document.documentMargin();
    if (room > 20 && size.width() > room)
        size *= room / size.width();
    return size;
}

void drawButton(QPainter& painter, const QRectF& rect, const QString& text, bool playing) {
    const QPalette palette = QApplication::palette();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette.color(QPalette::Mid));
    painter.setBrush(palette.color(QPalette::Button));
    painter.drawRoundedRect(rect.adjusted(1, 1, -1, -1), 4, 4);
    painter.setPen(palette.color(QPalette::ButtonText));
    QRectF textRect = rect.adjusted(rect.height() * 0.4, 0, -rect.height() * 0.3, 0);
    if (playing) {
        const double side = rect.height() * 0.4;
        const QPointF corner(rect.left() + side, rect.center().y() - side / 2);
        painter.setBrush(palette.color(QPalette::ButtonText));
        painter.drawPolygon(QPolygonF({corner, corner + QPointF(side * 0.9, side / 2), corner + QPointF(0, side)}));
        textRect.setLeft(corner.x() + side * 1.5);
    }
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft, text);
}

void drawPaper(QPainter& painter, const QRectF& rect, const InkDrawing& drawing) {
    painter.setPen(QApplication::palette().color(QPalette::Mid));
    painter.setBrush(paperColour);
    painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setClipRect(rect);
    painter.translate(rect.topLeft());
    paintInk(painter, drawing, inkScale * rect.width() / inkSize(drawing).width());
}

} // namespace

QSizeF NoteObjectPainter::intrinsicSize(QTextDocument* document, int /*position*/, const QTextFormat& format) {
    const auto item = noteItemOf(format);
    if (item == nullptr)
        return {};
    if (const auto* drawing = std::get_if<InkDrawing>(item.get()))
        return fitted(inkSize(*drawing), *document);
    if (const auto* clip = std::get_if<VoiceClip>(item.get()))
        return buttonSize(*document, clipText(*clip));
    const auto* group = std::get_if<ForeignGroup>(item.get());
    if (group != nullptr && isPicture(*group))
        return buttonSize(*document, platform::toQString(resources::notes::foreignPicture));
    return {0, 1};
}

void NoteObjectPainter::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* /*document*/, int /*position*/,
                                   const QTextFormat& format) {
    const auto item = noteItemOf(format);
    if (item == nullptr || rect.width() < 1)
        return;
    painter->save();
    if (const auto* drawing = std::get_if<InkDrawing>(item.get()))
        drawPaper(*painter, rect, *drawing);
    else if (const auto* clip = std::get_if<VoiceClip>(item.get()))
        drawButton(*painter, rect, clipText(*clip), true);
    else
        drawButton(*painter, rect, platform::toQString(resources::notes::foreignPicture), false);
    painter->restore();
}

} // namespace hourwright::desktop
