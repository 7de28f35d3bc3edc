#include "desktop/note/ink_pad.h"

#include "desktop/desktop_fixture.h"
#include "desktop/note/ink_image.h"

#include <QSignalSpy>
#include <QTest>

namespace hourwright::desktop {
namespace {

class InkPadTest : public testing::Test {
protected:
    InkPadTest() {
        pad_.resize(400, 300);
        pad_.show();
    }
    void stroke(QPoint from, QPoint to) {
        QTest::mousePress(&pad_, Qt::LeftButton, {}, from);
        QTest::mouseMove(&pad_, (from + to) / 2);
        QTest::mouseMove(&pad_, to);
        QTest::mouseRelease(&pad_, Qt::LeftButton, {}, to);
    }
    void pen(QEvent::Type type, QPoint at, double pressure,
             QPointingDevice::PointerType pointer = QPointingDevice::PointerType::Pen) {
        const QPointingDevice device("pen", 1, QInputDevice::DeviceType::Stylus, pointer,
                                     QInputDevice::Capability::Pressure, 1, 1);
        QTabletEvent event(type, &device, at, pad_.mapToGlobal(at), pressure, 0, 0, 0, 0, 0, {}, Qt::LeftButton,
                           Qt::LeftButton);
        QApplication::sendEvent(&pad_, &event);
    }

    InkPad pad_;
};

TEST_F(InkPadTest, DrawsWithTheMouseInHundredthsOfAMillimetre) {
    pad_.setColour(0xFFC62828);
    pad_.setTip(140);
    stroke({96, 48}, {192, 48});
    ASSERT_EQ(pad_.strokes().size(), 1U);
    const auto& made = pad_.strokes()[0];
    EXPECT_EQ(made.colour, 0xFFC62828U);
    EXPECT_EQ(made.width, 140U);
    EXPECT_EQ(made.points,
              (std::vector<exchange::InkPoint>{{2540, 1270, 65535}, {3810, 1270, 65535}, {5080, 1270, 65535}}));
}

TEST_F(InkPadTest, APenPressesAndItsOtherEndErases) {
    pen(QEvent::TabletPress, {10, 10}, 0.5);
    pen(QEvent::TabletMove, {30, 10}, 1.0);
    pen(QEvent::TabletRelease, {30, 10}, 0.0);
    ASSERT_EQ(pad_.strokes().size(), 1U);
    ASSERT_EQ(pad_.strokes()[0].points.size(), 2U);
    EXPECT_EQ(pad_.strokes()[0].points[0].pressure, 32768);
    EXPECT_EQ(pad_.strokes()[0].points[1].pressure, 65535);
    pen(QEvent::TabletPress, {20, 11}, 0.5, QPointingDevice::PointerType::Eraser);
    pen(QEvent::TabletRelease, {20, 11}, 0.5, QPointingDevice::PointerType::Eraser);
    EXPECT_TRUE(pad_.strokes().empty());
}

TEST_F(InkPadTest, StepsAreUndoneAndRedone) {
    const QSignalSpy changes(&pad_, &InkPad::changed);
    stroke({10, 10}, {100, 10});
    stroke({10, 100}, {100, 100});
    pad_.setErasing(true);
    stroke({50, 80}, {50, 110});
    EXPECT_EQ(pad_.strokes().size(), 1U);
    pad_.clear();
    EXPECT_EQ(changes.count(), 4);
    const std::size_t counts[] = {1, 2, 1, 0, 0};
    for (const std::size_t count : counts) {
        pad_.undo();
        EXPECT_EQ(pad_.strokes().size(), count);
    }
    EXPECT_FALSE(pad_.canUndo());
    pad_.redo();
    pad_.redo();
    EXPECT_EQ(pad_.strokes().size(), 2U);
    pad_.setErasing(false);
    stroke({10, 10}, {20, 20});
    EXPECT_FALSE(pad_.canRedo());
}

TEST_F(InkPadTest, ADrawingMovesIntoTheCornerOnce) {
    stroke({200, 200}, {260, 220});
    const auto drawn = pad_.drawing();
    EXPECT_LT(inkSize(drawn).width(), 80);
    EXPECT_LT(inkSize(drawn).height(), 40);
    pad_.setDrawing(drawn);
    EXPECT_EQ(pad_.drawing(), drawn);
}

TEST_F(InkPadTest, ThePictureShowsTheInk) {
    pad_.setColour(0xFF0000FF);
    pad_.setTip(200);
    stroke({20, 20}, {80, 20});
    auto drawn = pad_.drawing();
    addInkPicture(drawn);
    const QByteArray png(reinterpret_cast<const char*>(drawn.picture->png.data()),
                         static_cast<qsizetype>(drawn.picture->png.size()));
    const QImage image = QImage::fromData(png, "PNG");
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), QSize(drawn.picture->pixelWidth, drawn.picture->pixelHeight));
    int blue = 0;
    for (int x = 0; x < image.width(); ++x)
        blue += image.pixelColor(x, 9).blue() > 200 && image.pixelColor(x, 9).red() < 60 ? 1 : 0;
    EXPECT_GT(blue, 60);
    EXPECT_LT(drawn.picture->png.size(), 4000U);
}

} // namespace
} // namespace hourwright::desktop
