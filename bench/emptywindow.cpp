#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QWidget>

// One process from nothing to the picture of an empty window: what a picture of a
// form stands on.
int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QWidget window;
    window.resize(480, 1280);
    window.show();
    QCoreApplication::processEvents();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    return window.grab().save(&buffer, "PNG") ? 0 : 1;
}
