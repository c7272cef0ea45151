#include "liveform.h"

#include <zorvaparser/zorvaparser.h>

#include <QCoreApplication>
#include <QEvent>
#include <QScrollArea>

namespace {

class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

    bool painted = false;
};

QString valuePath()
{
    static int forms = 0;
    return QStringLiteral("/bench/form%1").arg(++forms);
}

} // namespace

void settle()
{
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

bool showAndPaint(QWidget* window, QWidget* content)
{
    PaintWatch watch;
    content->installEventFilter(&watch);
    window->resize(windowWidth, windowHeight);
    window->show();
    settle();
    return watch.painted;
}

QWidget* contentOf(QWidget* window)
{
    auto* area = qobject_cast<QScrollArea*>(window);
    if (!area && window)
        area = window->findChild<QScrollArea*>();
    return area ? area->widget() : nullptr;
}

LiveForm::LiveForm(const QString& description)
    : m_formular(Orvane::ZorvaParser().ParseZORVA(description))
{
}

LiveForm::~LiveForm()
{
    delete window();
}

void LiveForm::createValues()
{
    m_formular->CreateValueTree(valuePath());
}

void LiveForm::createGui()
{
    m_formular->CreateGUI(false);
}

bool LiveForm::show()
{
    window()->resize(windowWidth, windowHeight);
    return showAndPaint(window(), content());
}

void LiveForm::bringUp()
{
    createValues();
    createGui();
    show();
}

void LiveForm::dropForm()
{
    m_window = window();
    m_formular.reset();
}
