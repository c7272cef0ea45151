#include "formhold_p.h"

#include <zorvaparser/zorvaformular.h>

#include <QPointer>
#include <QVector>

namespace Orvane {

FormHold* FormHold::s_newest = nullptr;

FormHold::FormHold(ZorvaFormular* form) noexcept
    : m_form(form)
    , m_below(s_newest)
{
    s_newest = this;
    if (!form)
        return;
    ++form->holds;
    if (!form->keptAlive && form->ref.loadRelaxed() > 0) {
        form->ref.ref();
        form->keptAlive = true;
    }
}

FormHold::~FormHold()
{
    s_newest = m_below;
    if (m_form && --m_form->holds == 0)
        m_form->ComeToRest();
}

bool FormHold::isLetGo(const ZorvaFormular* form)
{
    if (!form)
        return false;
    return form->letGo || (form->keptAlive && form->ref.loadRelaxed() == 1);
}

void FormHold::freePlaces()
{
    QVector<QPointer<ZorvaFormular>> forms;
    for (const FormHold* hold = s_newest; hold; hold = hold->m_below) {
        if (isLetGo(hold->m_form))
            forms.append(hold->m_form);
    }
    for (const QPointer<ZorvaFormular>& form : qAsConst(forms)) {
        if (form)
            form->sheet.LetValuesGo();
    }
}

void FormHold::forget(const ZorvaFormular* form)
{
    for (FormHold* hold = s_newest; hold; hold = hold->m_below) {
        if (hold->m_form != form)
            continue;
        hold->m_form = nullptr;
        hold->m_lost = true;
    }
}

} // namespace Orvane
