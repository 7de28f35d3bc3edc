#include "desktop/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

// The drawings are in a static library, whose resources the program has to ask for; the macro wants no namespace.
static void initDrawings() {
    Q_INIT_RESOURCE(icons);
}

namespace hourwright::desktop {

namespace {

QByteArray drawing(const QString& name) {
    initDrawings();
    QFile file(":/icons/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Drawings use "currentColor"; it becomes the palette's text colour when they are painted, at any size.
class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(QList<QByteArray> layers) : layers_(std::move(layers)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        const QByteArray colour = QApplication::palette().color(group, role).name().toLatin1();
        for (QByteArray layer : layers_) {
            QSvgRenderer renderer(layer.replace("currentColor", colour));
            renderer.render(painter, rect);
        }
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new DrawnIcon(layers_); }

private:
    QList<QByteArray> layers_;
};

} // namespace

QIcon applicationIcon() {
    initDrawings();
    return QIcon(":/icons/hourwright.svg");
}

QIcon icon(const QString& name) {
    return QIcon(new DrawnIcon({drawing(name)}));
}

QIcon statusIcon(store::EntryStatus status, bool note) {
    const auto number = std::min(static_cast<int>(status), 3);
    QList<QByteArray> layers{drawing("status-" + QString::number(number))};
    if (note)
        layers.append(drawing("note-overlay"));
    return QIcon(new DrawnIcon(layers));
}

} // namespace hourwright::desktop
