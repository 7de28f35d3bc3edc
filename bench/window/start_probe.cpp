// Linked into a program with a window, ends it as soon as that window has been painted: the time and memory of the
// whole process are then those of its start. With HOURWRIGHT_BENCH_CLOSE set, the window is closed as a user closes it.
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace {

class StartProbe : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType() && !painted_) {
            painted_ = true;
            QWidget* const window = static_cast<QWidget*>(object)->window();
            // The other widgets are painted, and the picture handed over, before the event loop goes on.
            QTimer::singleShot(0, window, [window] { end(*window); });
        }
        return false;
    }

private:
    static void end(QWidget& window) {
        if (!qEnvironmentVariableIsSet("HOURWRIGHT_BENCH_CLOSE"))
            std::_Exit(0);
        window.close();
    }

    bool painted_ = false;
};

void watch() {
    qApp->installEventFilter(new StartProbe(qApp));
}
Q_COREAPP_STARTUP_FUNCTION(watch)

} // namespace
