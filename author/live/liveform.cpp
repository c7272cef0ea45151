#include "liveform.h"

#include <zorvaparser/zorvaparser.h>

#include <QWidget>

namespace Orvane {
namespace Author {

namespace {

QString ownPlace()
{
    static int last = 0;
    return QStringLiteral("/zorva/%1").arg(++last);
}

} // namespace

LiveForm::LiveForm(const QByteArray& description, Stage stage, const QString& name)
    : m_form(ZorvaParser().ParseZORVA(description))
{
    if (m_form)
        m_form->SetName(name);
    bring(stage);
}

LiveForm::~LiveForm()
{
    if (m_form)
        delete m_form->GetGUI();
}

void LiveForm::bring(Stage stage)
{
    if (!m_form)
        return;
    if (m_stage < Running && stage >= Running)
        m_form->CreateValueTree(ownPlace());
    if (m_stage < Built && stage >= Built)
        m_form->CreateGUI(true);
    m_stage = qMax(m_stage, stage);
}

QScriptEngine* LiveForm::engine() const
{
    for (const QScriptValue& global : m_form->GetScriptValues()) {
        if (global.engine())
            return global.engine();
    }
    return nullptr;
}

} // namespace Author
} // namespace Orvane
