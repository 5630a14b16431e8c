// A small X client for the drop test: a window that starts a file drag (text/uri-list) of the file
// named on the command line as soon as a button goes down in it. Prints "ready" once on screen and
// keeps running to hand over the data after the drop, until the test ends it.
#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QRasterWindow>
#include <QUrl>
#include <cstdio>
#include <utility>

namespace {

class DragSourceWindow final : public QRasterWindow {
public:
    explicit DragSourceWindow(QString file) : m_file(std::move(file)) {}

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(QRect(QPoint(), size()), Qt::blue); }
    void exposeEvent(QExposeEvent* event) override {
        QRasterWindow::exposeEvent(event);
        if (isExposed() && !std::exchange(m_announced, true)) {
            std::printf("ready\n");
            std::fflush(stdout);
        }
    }
    void mousePressEvent(QMouseEvent*) override {
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(m_file)});
        // Never deleted here: Qt's XDND code answers from this drag until the target has read the data.
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
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
    window.show();
    return app.exec();
}
