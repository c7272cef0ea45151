#include <valueframework/valuebase.h>

#include <valueframework/tree.h>
#include <vkbase/guithread.h>

namespace values {

ValueBase::ValueBase(const QString& name, TValueState state)
    : m_name(name)
    , m_state(state)
    , m_transactionDepth(0)
    , m_retired(false)
{
}

ValueBase::~ValueBase()
{
    retire();
}

void ValueBase::retire()
{
    if (m_retired)
        return;
    m_retired = true;
    const QString path = m_treeNode ? Tree::Instance()->takeOut(this) : QString();
    m_state = ValueState::GoingAway;
    if (!path.isEmpty())
        Tree::Instance()->tellLeft(this, path);
    NotifyObservers(ChangeCode::State);
    if (m_deleteObserver)
        m_deleteObserver->ValueDeleted(this);
}

bool ValueBase::SetName(const QString& name, IObserver* originator)
{
    if (name == m_name)
        return true;
    if (m_treeNode)
        return Tree::Instance()->rename(this, name, originator);
    m_name = name;
    HasChanged(ChangeCode::Name, originator);
    return true;
}

QString ValueBase::GetPathName() const
{
    return m_treeNode ? Tree::pathOf(this) : QString();
}

void ValueBase::SetState(TValueState state, IObserver* originator)
{
    if (m_retired || state == m_state)
        return;
    m_state = state;
    HasChanged(ChangeCode::State, originator);
}

QString ValueBase::GetTypeName() const
{
    switch (GetType()) {
    case TypeBool:
        return QStringLiteral("bool");
    case TypeString:
        return QStringLiteral("string");
    case TypeInt:
        return QStringLiteral("int");
    case TypeInt64:
        return QStringLiteral("int64");
    case TypeDouble:
        return QStringLiteral("double");
    case TypeSelection:
        return QStringLiteral("selection");
    case TypeRangeMap:
        return QStringLiteral("rangemap");
    }
    return QString();
}

bool ValueBase::HasChanged(TChangeCode code, IObserver* originator)
{
    if (m_treeNode || GetObserverCount() > 0)
        assertGuiThread(Q_FUNC_INFO);
    return IsTransactionActive() || NotifyObservers(code, originator);
}

bool ValueBase::AddObserver(IObserver* observer)
{
    return !m_retired && Observable::AddObserver(observer);
}

bool ValueBase::MakeFirstObserver(IObserver* observer)
{
    return !m_retired && Observable::MakeFirstObserver(observer);
}

void ValueBase::StartTransaction(IObserver* originator)
{
    Q_UNUSED(originator)
    ++m_transactionDepth;
}

void ValueBase::EndTransaction(TChangeCode code, IObserver* originator)
{
    if (closeTransaction())
        NotifyObservers(code, originator);
}

bool ValueBase::closeTransaction()
{
    return m_transactionDepth > 0 && --m_transactionDepth == 0;
}

ValueTransaction ValueBase::CreateTransaction(std::initializer_list<TChangeCode> codes, IObserver* originator)
{
    return ValueTransaction(this, codes, originator);
}

void ValueBase::SetTranslationNamespace(const char* context, IObserver* originator)
{
    SetTranslationNamespace(QByteArray(context), originator);
}

void ValueBase::SetTranslationNamespace(const QByteArray& context, IObserver* originator)
{
    if (m_translationNamespace == context)
        return;
    m_translationNamespace = context;
    HasChanged(ChangeCode::Name, originator);
}

void ValueBase::TimerCallback(int timerId)
{
    Q_UNUSED(timerId)
}

bool ValueBase::IsTriggerNeeded() const
{
    return GetObserverCount() > 0 && !IsTransactionActive();
}

} // namespace values
