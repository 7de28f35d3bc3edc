#pragma once

#include "exchange/note_document.h"

#include <QImage>
#include <QPainter>
#include <QTextObjectInterface>

namespace hourwright::desktop {

/// Draws what stands in a note besides text: drawings on paper, recordings as a button with their length, pictures of
/// other programs as a frame. Hidden text and other kept parts have no width.
class NoteObjectPainter : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;
};

} // namespace hourwright::desktop
