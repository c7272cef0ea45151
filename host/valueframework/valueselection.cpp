#include <valueframework/valueselection.h>

#include <algorithm>
#include <utility>

namespace values {

namespace {

/// Above this many items look-ups by name and key go through a hash.
constexpr std::size_t indexedFrom = 16;

} // namespace

SelectionItem::SelectionItem(const QString& name, double value, long key)
    : m_name(name)
    , m_value(value)
    , m_key(key)
{
}

bool SelectionItem::operator==(const SelectionItem& other) const
{
    return m_name == other.m_name && m_value == other.m_value && m_key == other.m_key;
}

ValueSelection::ValueSelection(const QString& name, TValueState state)
    : ValueBase(name, state)
{
}

ValueSelection::~ValueSelection()
{
    retire();
}

void ValueSelection::Reserve(long count)
{
    m_items.reserve(static_cast<std::size_t>(std::max(count, 0L)));
}

void ValueSelection::AddItem(const QString& name, double value, long key, IObserver* originator)
{
    append(std::make_unique<SelectionItem>(name, value, key));
    HasChanged(ChangeCode::ItemChanged, originator);
}

void ValueSelection::AddItem(SelectionItem* item, IObserver* originator)
{
    if (!item)
        return;
    append(std::unique_ptr<SelectionItem>(item));
    HasChanged(ChangeCode::ItemChanged, originator);
}

void ValueSelection::AddItems(const QStringList& names, IObserver* originator)
{
    if (names.isEmpty())
        return;
    for (const QString& name : names) {
        const long position = GetItemCount();
        append(std::make_unique<SelectionItem>(name, static_cast<double>(position), position + 1));
    }
    HasChanged(ChangeCode::ItemChanged, originator);
}

void ValueSelection::AddItemsFrom(const ValueSelection& other, IObserver* originator)
{
    const std::size_t count = other.m_items.size(); // `other` may be this
    if (count == 0)
        return;
    for (std::size_t i = 0; i < count; ++i)
        append(std::make_unique<SelectionItem>(*other.m_items[i]));
    HasChanged(ChangeCode::ItemChanged, originator);
}

bool ValueSelection::DeleteItem(SelectionItem* item, IObserver* originator)
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [item](const auto& candidate) { return candidate.get() == item; });
    if (found == m_items.end())
        return false;
    const long position = static_cast<long>(found - m_items.begin());
    if (position == m_current) {
        m_lastName = item->GetName();
        m_current = -1;
    } else if (position < m_current) {
        --m_current;
    }
    m_items.erase(found);
    m_index.reset();
    HasChanged(ChangeCode::ItemsRemoved, originator);
    return true;
}

void ValueSelection::DeleteItems(IObserver* originator)
{
    if (m_items.empty())
        return;
    clearItems();
    HasChanged(ChangeCode::ItemsRemoved, originator);
}

bool ValueSelection::Select(const QString& name, IObserver* originator)
{
    return SelectIndex(indexOfName(name), originator);
}

bool ValueSelection::Select(const wchar_t* name, IObserver* originator)
{
    return name && Select(QString::fromWCharArray(name), originator);
}

bool ValueSelection::Select(double value, IObserver* originator, bool exact)
{
    return SelectIndex(indexOfValue(value, exact), originator);
}

bool ValueSelection::Select(long key, IObserver* originator)
{
    return SelectIndex(indexOfKey(key), originator);
}

bool ValueSelection::SelectIndex(long index, IObserver* originator)
{
    if (!GetItemIndex(index))
        return false;
    setCurrent(index, originator);
    return true;
}

double ValueSelection::GetCurrentValue() const
{
    const SelectionItem* const item = GetCurrentItem();
    return item ? item->GetValue() : 0.0;
}

SelectionItem* ValueSelection::GetItemIndex(long index) const
{
    const bool inRange = index >= 0 && index < GetItemCount();
    return inRange ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

SelectionItem* ValueSelection::GetItem(const QString& name) const
{
    return GetItemIndex(indexOfName(name));
}

SelectionItem* ValueSelection::GetItem(double value) const
{
    return GetItemIndex(indexOfValue(value, true));
}

SelectionItem* ValueSelection::GetItem(long key) const
{
    return GetItemIndex(indexOfKey(key));
}

long ValueSelection::GetKeyForItemName(const QString& name) const
{
    const SelectionItem* const item = GetItem(name);
    return item ? item->GetKey() : -1;
}

QString ValueSelection::GetItemNameForKey(long key) const
{
    const SelectionItem* const item = GetItem(key);
    return item ? item->GetName() : QString();
}

QString ValueSelection::GetStringValue() const
{
    const SelectionItem* const item = GetCurrentItem();
    return item ? item->GetName() : QString();
}

bool ValueSelection::SetStringValue(QString text, IObserver* originator)
{
    if (Select(text, originator))
        return true;
    if (!text.isEmpty())
        return false;
    setCurrent(-1, originator);
    return true;
}

bool ValueSelection::Assign(const ValueBase& other)
{
    const ValueSelection* const same = dynamic_cast<const ValueSelection*>(&other);
    if (!same)
        return SetStringValue(other.GetStringValue(), nullptr);
    const QString oldName = GetStringValue();
    const bool hadItems = !m_items.empty();
    const bool newItems = !sameItems(*same);
    if (newItems) {
        clearItems();
        for (const auto& item : same->m_items)
            append(std::make_unique<SelectionItem>(*item));
    }
    m_lastName = QString();
    const bool newChoice = std::exchange(m_current, same->m_current) != same->m_current;
    const bool tellContent = newItems ? GetStringValue() != oldName : newChoice;

    if (newItems && hadItems && !HasChanged(ChangeCode::ItemsRemoved, nullptr))
        return true;
    if (newItems && !HasChanged(ChangeCode::ItemChanged, nullptr))
        return true;
    if (tellContent)
        HasChanged(ChangeCode::Content, nullptr);
    return true;
}

bool ValueSelection::Compare(const ValueBase* other) const
{
    const ValueSelection* const same = dynamic_cast<const ValueSelection*>(other);
    return same && same->m_current == m_current && sameItems(*same);
}

void ValueSelection::append(std::unique_ptr<SelectionItem> item)
{
    const long position = GetItemCount();
    if (m_current < 0 && !m_lastName.isNull() && item->GetName() == m_lastName) {
        m_current = position;
        m_lastName = QString();
    }
    if (m_index)
        enter(m_index.get(), *item, position);
    m_items.push_back(std::move(item));
}

void ValueSelection::clearItems()
{
    if (const SelectionItem* const item = GetCurrentItem())
        m_lastName = item->GetName();
    m_current = -1;
    m_items.clear();
    m_index.reset();
}

bool ValueSelection::sameItems(const ValueSelection& other) const
{
    return std::equal(m_items.begin(), m_items.end(), other.m_items.begin(), other.m_items.end(),
                      [](const auto& mine, const auto& theirs) { return *mine == *theirs; });
}

bool ValueSelection::setCurrent(long index, IObserver* originator)
{
    m_lastName = QString();
    if (std::exchange(m_current, index) == index)
        return false;
    HasChanged(ChangeCode::Content, originator);
    return true;
}

const ValueSelection::Index* ValueSelection::index() const
{
    if (!m_index && m_items.size() > indexedFrom) {
        m_index = std::make_unique<Index>();
        for (long position = 0; position < GetItemCount(); ++position)
            enter(m_index.get(), *GetItemIndex(position), position);
    }
    return m_index.get();
}

void ValueSelection::enter(Index* index, const SelectionItem& item, long position)
{
    if (!index->byName.contains(item.GetName()))
        index->byName.insert(item.GetName(), position);
    if (!index->byKey.contains(item.GetKey()))
        index->byKey.insert(item.GetKey(), position);
}

long ValueSelection::indexOfName(const QString& name) const
{
    if (const Index* const hashed = index())
        return hashed->byName.value(name, -1);
    for (long position = 0; position < GetItemCount(); ++position) {
        if (GetItemIndex(position)->GetName() == name)
            return position;
    }
    return -1;
}

long ValueSelection::indexOfKey(long key) const
{
    if (const Index* const hashed = index())
        return hashed->byKey.value(key, -1);
    for (long position = 0; position < GetItemCount(); ++position) {
        if (GetItemIndex(position)->GetKey() == key)
            return position;
    }
    return -1;
}

long ValueSelection::indexOfValue(double value, bool exact) const
{
    long best = -1;
    double bestValue = 0.0;
    for (long position = 0; position < GetItemCount(); ++position) {
        const double candidate = GetItemIndex(position)->GetValue();
        const bool fits = exact ? candidate == value : candidate >= value;
        if (fits && (best < 0 || candidate < bestValue)) {
            best = position;
            bestValue = candidate;
        }
    }
    return best;
}

} // namespace values
