#ifndef ZORVA_VALUEFRAMEWORK_VALUEPTR_H
#define ZORVA_VALUEFRAMEWORK_VALUEPTR_H

#include <valueframework/tree.h>
#include <valueframework/valuebase.h>
#include <vkbase/iobserver.h>

#include <QString>

#include <memory>

namespace values {

/// A pointer to a value of the tree that becomes null when the value goes. It
/// does not own the value.
template <typename T>
class ValuePtr : public IObserver
{
public:
    /// `value` may be null.
    explicit ValuePtr(T* value = nullptr) { ValuePtr::Set(value); }
    ValuePtr(const ValuePtr&) = delete;
    ValuePtr& operator=(const ValuePtr&) = delete;
    ~ValuePtr() override { ValuePtr::Set(nullptr); }

    /// The value pointed to; null once it has gone.
    T* Get() const { return m_value; }
    T* operator->() const { return m_value; } ///< Likewise.
    T& operator*() const { return *m_value; } ///< Likewise.
    /// Whether there is a value.
    explicit operator bool() const { return m_value != nullptr; }

    /// Leaves the old value and watches the new one, which may be null. One that
    /// is being destroyed is not taken: the pointer is null then.
    virtual void Set(T* value)
    {
        if (value == m_value)
            return;
        if (m_value)
            m_value->DeleteObserver(this);
        m_value = value && value->AddObserver(this) ? value : nullptr;
    }

    /// Points to the value at `path`; null and false if there is none of this type.
    bool Locate(const QString& path)
    {
        Set(nullptr);
        Set(dynamic_cast<T*>(Tree::Instance()->GetValue(path)));
        return m_value != nullptr;
    }

    /// Points to a new value made at `path`. False if there is one of this type
    /// already, which is then pointed to, or if the path names nothing (then
    /// null). A place that is taken otherwise leaves the new value outside of the
    /// tree; it is the caller's then.
    bool Create(const QString& path)
    {
        const QString name = Tree::NameIn(path);
        if (Locate(path) || name.isEmpty())
            return false;
        auto value = std::make_unique<T>(name, ValueState::Normal);
        Tree::Instance()->AddValue(Tree::NodePathIn(path), value.get());
        Set(value.release());
        return true;
    }

    void Update(Observable* observable, TChangeCode code) override
    {
        if (code == ChangeCode::State && m_value && observable == m_value &&
            m_value->GetState() == ValueState::GoingAway)
            Set(nullptr);
    }

private:
    T* m_value = nullptr; // not owned: cleared when the value goes away
};

/// A `ValuePtr` that keeps its owner attached to the value as an observer, too.
template <typename T>
class ValueObservingPtr : public ValuePtr<T>
{
public:
    /// `owner` outlives this pointer; null watches for nobody.
    explicit ValueObservingPtr(IObserver* owner, T* value = nullptr)
        : m_owner(owner)
    {
        ValueObservingPtr::Set(value);
    }
    ~ValueObservingPtr() override { ValueObservingPtr::Set(nullptr); }

    void Set(T* value) override
    {
        T* const old = this->Get();
        if (value == old)
            return;
        if (old)
            old->ReleaseObserver(m_owner);
        // Of two pointers of one owner, either may go first.
        const bool claimed = value && value->ClaimObserver(m_owner);
        ValuePtr<T>::Set(value);
        if (claimed && !this->Get())
            value->ReleaseObserver(m_owner);
    }

private:
    IObserver* m_owner; // not owned
};

} // namespace values

#endif
