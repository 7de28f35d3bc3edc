#pragma once

#include "exchange/note_document.h"

#include <QWidget>
#include <cstdint>
#include <vector>

namespace hourwright::desktop {

/// A sheet of paper to draw on with pen, finger or mouse. A pen's pressure makes the stroke thicker; its eraser end and
/// the eraser take whole strokes away. Every stroke and every erasing can be undone.
class InkPad : public QWidget {
    Q_OBJECT

public:
    explicit InkPad(QWidget* parent = nullptr);

    void setDrawing(const exchange::InkDrawing& drawing);
    /// What is drawn, moved into the corner, without a picture.
    [[nodiscard]] exchange::InkDrawing drawing() const;
    [[nodiscard]] const std::vector<exchange::InkStroke>& strokes() const { return strokes_; }

    void setColour(QRgb colour) { colour_ = colour; }
    /// The width of the tip in hundredths of a millimetre.
    void setTip(std::uint32_t width) { tip_ = width; }
    void setErasing(bool erasing);
    void undo();
    void redo();
    void clear();
    [[nodiscard]] bool canUndo() const { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const { return !redo_.empty(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {160, 160}; }

signals:
    /// Strokes came or went.
    void changed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void tabletEvent(QTabletEvent* event) override;

private:
    using Strokes = std::vector<exchange::InkStroke>;

    void begin(QPointF position, double pressure, bool erase);
    void move(QPointF position, double pressure);
    void end();
    void addPoint(QPointF position, double pressure);
    void eraseAt(QPointF position);
    void keep(Strokes before);

    Strokes strokes_;
    Strokes before_; // what was there when the pen came down
    std::vector<Strokes> undo_;
    std::vector<Strokes> redo_;
    QRgb colour_ = 0xFF1A1A1A;
    std::uint32_t tip_ = 50;
    bool erasing_ = false; // what the tip does
    bool down_ = false;
    bool erasesNow_ = false; // what this contact does
};

} // namespace hourwright::desktop
