#include <vkbase/guithread.h>

#include <QCoreApplication>
#include <QThread>

bool isGuiThread()
{
    const QCoreApplication* const application = QCoreApplication::instance();
    return !application || application->thread() == QThread::currentThread();
}
