#include <QApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

namespace {

/// Ends the program when its first window has painted and nothing is left to do.
class FirstPaint : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget && widget->isWindow()) {
            qApp->removeEventFilter(this);
            // After what the window still has to paint.
            QTimer::singleShot(0, [] { std::_Exit(0); });
        }
        return false;
    }
};

} // namespace

/// Loaded by QT_QPA_GENERIC_PLUGINS into any program of Qt's, so that programs that know
/// nothing of being measured are measured alike.
class FirstPaintPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "firstpaint.json")

public:
    QObject* create(const QString& name, const QString&) override
    {
        if (name.compare(QLatin1String("firstpaint"), Qt::CaseInsensitive) != 0)
            return nullptr;
        auto* const watch = new FirstPaint; // whom the application owns
        qApp->installEventFilter(watch);
        return watch;
    }
};

#include "firstpaint.moc"
