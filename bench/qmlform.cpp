#include "qmlform.h"

#include "liveform.h"

#include <QDeadlineTimer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace {

constexpr int patienceInMilliseconds = 300000;

void chooseRenderer()
{
    static const bool chosen = [] {
        qputenv("QML_DISABLE_DISK_CACHE", "1");
        qputenv("QSG_RENDER_LOOP", "basic");
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
        return true;
    }();
    Q_UNUSED(chosen)
}

} // namespace

QString QmlForm::lack(const QString& qml)
{
    chooseRenderer();
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(qml.toUtf8(), QUrl());
    const std::unique_ptr<QObject> root(component.create());
    if (root)
        return {};
    return component.errorString().simplified();
}

QmlForm::QmlForm(const QString& qml)
{
    chooseRenderer();
    m_view = std::make_unique<QQuickView>();
    m_view->setResizeMode(QQuickView::SizeRootObjectToView);
    auto* const component = new QQmlComponent(m_view->engine(), m_view.get());
    component->setData(qml.toUtf8(), QUrl());
    m_view->setContent(QUrl(), component, component->create());
    for (const QQmlError& error : component->errors())
        qWarning("%s", qPrintable(error.toString()));
}

QmlForm::~QmlForm() = default;

bool QmlForm::show()
{
    bool painted = false;
    QObject::connect(m_view.get(), &QQuickWindow::frameSwapped, m_view.get(), [&painted] { painted = true; });
    m_view->resize(windowWidth, windowHeight);
    m_view->show();
    const QDeadlineTimer deadline(patienceInMilliseconds);
    while (!painted && m_view->rootObject() && !deadline.hasExpired())
        settle();
    settle();
    QObject::disconnect(m_view.get(), &QQuickWindow::frameSwapped, m_view.get(), nullptr);
    return painted && m_view->rootObject();
}
