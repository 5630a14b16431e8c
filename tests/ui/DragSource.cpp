// A small X client for the drop test: a window that starts a file drag (text/uri-list) of the file
// named on the command line as soon as a button goes down in it. Qt speaks XDND for it; xdotool
// moves the pointer. Prints "ready" once the window is on screen and "dropped <action>" after the drop;
// it keeps running to hand over the data, until the test ends it.
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QUrl>
#include <cstdio>

namespace {

class DragSourceWindow final : public QRasterWindow {
public:
    explicit DragSourceWindow(QString file) : m_file(std::move(file)) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(QRect(QPoint(), size()), QColor(40, 120, 200));
    }
    void exposeEvent(QExposeEvent* event) override {
        QRasterWindow::exposeEvent(event);
        if (isExposed() && !m_announced) {
            m_announced = true;
            std::printf("ready\n");
            std::fflush(stdout);
        }
    }
    void mousePressEvent(QMouseEvent*) override {
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(m_file)});
        // On the heap and never deleted here: the target reads the data after the drop, and Qt's XDND
        // code answers from this drag until that transfer is over.
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        const Qt::DropAction action = drag->exec(Qt::CopyAction);
        std::printf("dropped %d\n", static_cast<int>(action));
        std::fflush(stdout);
        // Stays up: the target fetches the data after the drop, and the test ends this program.
    }

private:
    QString m_file;
    bool m_announced = false;
};

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc < 2) return 2;
    DragSourceWindow window(QString::fromLocal8Bit(argv[1]));
    window.setFlag(Qt::X11BypassWindowManagerHint);
    window.setGeometry(100, 400, 200, 200);
    window.setTitle(QStringLiteral("vantrelle-drag-source"));
    window.show();
    return app.exec();
}
