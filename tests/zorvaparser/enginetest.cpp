#include "enginetest.h"

#include "leftovers.h"

#include <zorvaparser/zorvaparser.h>

using Orvane::ZorvaDelegate;
using Orvane::ZorvaFormular;
using Orvane::ZorvaSheet;

void EngineTest::init()
{
    m_messages = std::make_unique<MessageGuard>();
    // What the screenless platform says of windows and menus.
    m_messages->allow(QRegularExpression(QStringLiteral("^This plugin does not support ")));
}

void EngineTest::cleanup()
{
    m_messages.reset();
    QCOMPARE(leftovers(), QString());
}

ReferenceTimer::ReferenceTimer(int interval)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_loop, &QEventLoop::quit);
    m_timer.start(interval);
}

void ReferenceTimer::pass()
{
    m_loop.exec();
}

FormPointer parsed(const QString& description)
{
    return FormPointer(Orvane::ZorvaParser().ParseZORVA(description));
}

QString rootXml(const QString& content)
{
    return QStringLiteral("<KVParamGui version=\"1\">") + content + QStringLiteral("</KVParamGui>");
}

QString sheetXml(const QString& content)
{
    return rootXml(QStringLiteral("<Sheet name=\"sheet\">") + content + QStringLiteral("</Sheet>"));
}

QString propertyXml(const char* name, const char* text, const char* type)
{
    return QStringLiteral("<Property name=\"%1\"><%2>%3</%2></Property>")
        .arg(QString::fromUtf8(name), QString::fromUtf8(type), QString::fromUtf8(text));
}

QStringList widgetNames(ZorvaSheet& sheet)
{
    QStringList names;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        names << sheet.GetWidgetAt(i)->GetName();
    return names;
}

ZorvaDelegate* delegateNamed(ZorvaSheet& sheet, const char* name)
{
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (sheet.GetWidgetAt(i)->GetName() == QString::fromUtf8(name))
            return sheet.GetWidgetAt(i)->GetDelegate();
    }
    return nullptr;
}

QString scriptText(ZorvaFormular* formular, const char* global)
{
    return formular->GetScriptValues().value(QString::fromUtf8(global)).toString();
}

QString evaluated(ZorvaFormular* formular, const QString& expression)
{
    formular->EvaluateScript(QStringLiteral("evaluatedExpression = (%1)").arg(expression));
    return scriptText(formular, "evaluatedExpression");
}
