#ifndef ZORVA_VALUEFRAMEWORK_VALUESELECTION_H
#define ZORVA_VALUEFRAMEWORK_VALUESELECTION_H

#include <valueframework/valuebase.h>
#include <valueframework/valueframework_export.h>

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace values {

/// One entry of a selection; never changes.
class VALUEFRAMEWORK_EXPORT SelectionItem
{
public:
    /// An entry: the name shown, the number it stands for, the key a host knows it by.
    explicit SelectionItem(const QString& name, double value = 0.0, long key = 0);
    SelectionItem(const SelectionItem&) = default; ///< Likewise.

    /// Name, number and key of the entry.
    const QString& GetName() const { return m_name; }
    double GetValue() const { return m_value; } ///< Likewise.
    long GetKey() const { return m_key; }       ///< Likewise.

    /// Entries are equal if all three are.
    bool operator==(const SelectionItem& other) const;
    bool operator!=(const SelectionItem& other) const { return !(*this == other); } ///< Likewise.

private:
    QString m_name;
    double m_value;
    long m_key;
};

/// A choice among named items. Its text is the name of the chosen one.
///
/// A new choice tells of `ChangeCode::Content`; items added tell of
/// `ChangeCode::ItemChanged` and items removed of `ChangeCode::ItemsRemoved`,
/// never of the content. When the current item is removed nothing is current,
/// but its name is remembered: an item of that name added later becomes current,
/// silently. Names and keys may occur twice; look-ups find the first.
class VALUEFRAMEWORK_EXPORT ValueSelection : public ValueBase
{
public:
    /// An empty list of that name, outside the tree.
    explicit ValueSelection(const QString& name, TValueState state = ValueState::Normal);
    ~ValueSelection() override;

    /// Makes room for `count` items in all at once; tells nobody.
    void Reserve(long count);
    /// Appends an entry and sends code 5 to all but @p originator, who may be null.
    void AddItem(const QString& name, double value, long key, IObserver* originator);
    /// Takes ownership of `item`; null is ignored. @p originator is not told; null tells all.
    void AddItem(SelectionItem* item, IObserver* originator);
    /// Appends items whose value is their position and whose key is that plus 1, told once to all but
    /// @p originator, who may be null.
    void AddItems(const QStringList& names, IObserver* originator);
    /// Appends copies of the items of `other`, told once to all but @p originator, who may be null.
    void AddItemsFrom(const ValueSelection& other, IObserver* originator);
    /// Removes and deletes `item`. False if it is null or not of this selection. @p originator is not told;
    /// null tells all.
    bool DeleteItem(SelectionItem* item, IObserver* originator);
    /// Removes all entries and sends code 8 to all but @p originator; the choice's name is remembered.
    void DeleteItems(IObserver* originator);

    // All return whether there is such an item; choosing the current one is silent.

    /// By name, exactly; false if there is none. @p originator is not told; null tells all.
    bool Select(const QString& name, IObserver* originator);
    /// `name` may be null: false. @p originator is not told; null tells all.
    bool Select(const wchar_t* name, IObserver* originator);
    /// Exact: the first item of that value; otherwise the item with the smallest
    /// value not below `value`, the first of equals. @p originator is not told; null tells all.
    bool Select(double value, IObserver* originator, bool exact);
    /// By key, or by position from 0; false if there is none. @p originator is not told; null tells all.
    bool Select(long key, IObserver* originator);
    /// Likewise.
    bool Select(int key, IObserver* originator) { return Select(static_cast<long>(key), originator); }
    bool SelectIndex(long index, IObserver* originator); ///< Likewise.

    /// Null if nothing is current.
    SelectionItem* GetCurrentItem() const { return GetItemIndex(m_current); }
    /// -1 if nothing is current.
    long GetCurrentIndex() const { return m_current; }
    /// 0 if nothing is current.
    double GetCurrentValue() const;

    /// How many entries there are.
    long GetItemCount() const { return static_cast<long>(m_items.size()); }
    /// The item at a position; null if out of range. Owned by the selection, like all items handed out.
    SelectionItem* GetItemIndex(long index) const;
    /// By name, number or key, exactly; null if there is none. Owned by the selection.
    SelectionItem* GetItem(const QString& name) const;
    SelectionItem* GetItem(double value) const;                                       ///< Likewise.
    SelectionItem* GetItem(long key) const;                                           ///< Likewise.
    SelectionItem* GetItem(int key) const { return GetItem(static_cast<long>(key)); } ///< Likewise.

    /// -1 if there is no such name.
    long GetKeyForItemName(const QString& name) const;
    /// Null string if there is no such key.
    QString GetItemNameForKey(long key) const;

    /// As the interface says.
    ValueType GetType() const override { return TypeSelection; }
    /// Empty if nothing is current.
    QString GetStringValue() const override;
    /// Chooses by name; empty text chooses nothing, unless an item has an empty
    /// name. False for an unknown name; then nothing changes. @p originator is not told; null tells all.
    bool SetStringValue(QString text, IObserver* originator) override;
    /// From a selection: its items and its choice.
    bool Assign(const ValueBase& other) override;
    bool Compare(const ValueBase* other) const override;

private:
    struct Index
    {
        QHash<QString, long> byName;
        QHash<long, long> byKey;
    };

    void append(std::unique_ptr<SelectionItem> item);
    void clearItems();
    bool sameItems(const ValueSelection& other) const;
    bool setCurrent(long index, IObserver* originator);
    const Index* index() const;
    static void enter(Index* index, const SelectionItem& item, long position);
    long indexOfName(const QString& name) const;
    long indexOfKey(long key) const;
    long indexOfValue(double value, bool exact) const;

    std::vector<std::unique_ptr<SelectionItem>> m_items;
    mutable std::unique_ptr<Index> m_index; // made by the first look-up in a long list
    long m_current = -1;
    QString m_lastName; // name of the current item that was removed, else null
};

} // namespace values

#endif
