#ifndef ZORVA_VALUEFRAMEWORK_VALUECOMMENTEDRANGEMAP_H
#define ZORVA_VALUEFRAMEWORK_VALUECOMMENTEDRANGEMAP_H

#include <valueframework/valuebase.h>
#include <valueframework/valueframework_export.h>

#include <QString>
#include <QStringList>

#include <limits>
#include <list>
#include <map>
#include <utility>

namespace values {

/// A frequency range, all in hertz and 0 at first. NaN is ignored by the setters.
class VALUEFRAMEWORK_EXPORT CommentedRange
{
public:
    /// The range's number, and its frequencies in hertz.
    unsigned int GetID() const { return m_id; }
    double GetRangeStart() const { return m_start; }    ///< Likewise.
    double GetRangeStop() const { return m_stop; }      ///< Likewise.
    double GetFrequency() const { return m_frequency; } ///< Likewise.
    double GetBandwidth() const { return m_bandwidth; } ///< Likewise.

    /// Sets one of them; nobody is told.
    void SetID(unsigned int id) { m_id = id; }
    void SetRangeStart(double hertz); ///< Likewise.
    void SetRangeStop(double hertz);  ///< Likewise.
    void SetFrequency(double hertz);  ///< Likewise.
    void SetBandwidth(double hertz);  ///< Likewise.

    /// By start, then by stop.
    bool operator<(const CommentedRange& other) const;
    /// Ranges are equal if all they hold is.
    bool operator==(const CommentedRange& other) const;
    bool operator!=(const CommentedRange& other) const { return !(*this == other); } ///< Likewise.

private:
    double m_start = 0.0;
    double m_stop = 0.0;
    double m_frequency = 0.0;
    double m_bandwidth = 0.0;
    unsigned int m_id = 0;
};

/// A range as text: start, stop, frequency and bandwidth, a blank between them.
struct VALUEFRAMEWORK_EXPORT CommentedRangeItemFormat
{
    /// The range in words, for traces and tests.
    static QString toText(const CommentedRange& range);
    /// False, and `range` untouched, unless the text is four numbers.
    static bool fromText(const QString& text, CommentedRange* range);
};

/// Where a range keeps its id.
struct VALUEFRAMEWORK_EXPORT CommentedRangeItemAdapter
{
    /// The number that a range brings along and takes.
    static unsigned int id(const CommentedRange& range) { return range.GetID(); }
    static void setId(CommentedRange* range, unsigned int id) { range->SetID(id); } ///< Likewise.
};

/// What maps of items have in common, whatever the items are.
class VALUEFRAMEWORK_EXPORT ValueItemMapBase : public ValueBase
{
public:
    using ValueBase::ValueBase;
    ~ValueItemMapBase() override;

    /// How many ranges there are.
    virtual int GetItemCount() const = 0;
    /// Removes all items and tells all but @p originator, who may be null, of `ChangeCode::ItemsRemoved`.
    virtual void Clear(IObserver* originator) = 0;
    /// False if there is no such item; else tells all but @p originator, who may be null, of
    /// `ChangeCode::ItemsRemoved`.
    virtual bool EraseAt(unsigned int key, IObserver* originator) = 0;
    /// One above the highest key, 0 in an empty map; the lowest free one if there is none above.
    virtual unsigned int CreateNewUniqueKey() const = 0;

    /// As the interface says.
    ValueType GetType() const override { return TypeRangeMap; }
};

/// A map from ids to items, ordered by id; each item knows its id. Its text is
/// "id=item" for each, with ";" between them.
template <typename Item, typename ItemFormat, typename ItemAdapter>
class VALUEFRAMEWORK_EXPORT ValueFrequencyItemMap : public ValueItemMapBase
{
public:
    /// The ranges by key, in the order of the keys.
    using Data = std::map<unsigned int, Item>;

    using ValueItemMapBase::ValueItemMapBase;
    ~ValueFrequencyItemMap() override { this->retire(); }

    /// The ranges by key, in the order of the keys.
    const Data& data() const { return m_items; }
    /// How many ranges there are.
    int GetItemCount() const override { return static_cast<int>(m_items.size()); }

    /// Removes all and sends code 8 to all but @p originator, who may be null; silent if there are none.
    void Clear(IObserver* originator) override
    {
        if (m_items.empty())
            return;
        m_items.clear();
        this->HasChanged(ChangeCode::ItemsRemoved, originator);
    }

    /// Writes many items and tells all but @p originator, who may be null, of
    /// `ChangeCode::Content` once. `replace` drops what was there; `keepIds` files each item under its own
    /// id, otherwise they get fresh ids in the order of the list (0 and up after a replacement).
    void Set(const std::list<Item>& items, bool replace, bool keepIds, IObserver* originator)
    {
        Data merged;
        if (!replace)
            merged = m_items;
        for (const Item& item : items)
            file(&merged, keepIds ? ItemAdapter::id(item) : freeKey(merged), item);
        become(std::move(merged), originator);
    }

    /// Writes one item and tells all but @p originator, who may be null, of `ChangeCode::ItemChanged`.
    /// Returns `key`.
    unsigned int SetAt(unsigned int key, const Item& item, IObserver* originator)
    {
        if (file(&m_items, key, item))
            this->HasChanged(ChangeCode::ItemChanged, originator);
        return key;
    }

    /// Removes one and sends code 8 to all but @p originator, who may be null; false without such a key.
    bool EraseAt(unsigned int key, IObserver* originator) override
    {
        if (m_items.erase(key) == 0)
            return false;
        this->HasChanged(ChangeCode::ItemsRemoved, originator);
        return true;
    }

    /// The highest key plus 1.
    unsigned int CreateNewUniqueKey() const override { return freeKey(m_items); }

    /// The ranges as text that SetStringValue() reads.
    QString GetStringValue() const override
    {
        QStringList texts;
        for (const auto& entry : m_items)
            texts << QString::number(entry.first) + QLatin1Char('=') + ItemFormat::toText(entry.second);
        return texts.join(QLatin1Char(';'));
    }

    /// False, and nothing changed, if the text cannot be read. @p originator is not told, null tells all.
    bool SetStringValue(QString text, IObserver* originator) override
    {
        Data items;
        for (const QString& entry : text.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            bool ok = false;
            const unsigned int key = entry.section(QLatin1Char('='), 0, 0).trimmed().toUInt(&ok);
            Item item;
            if (!ok || !ItemFormat::fromText(entry.section(QLatin1Char('='), 1), &item))
                return false;
            file(&items, key, item);
        }
        become(std::move(items), originator);
        return true;
    }

    /// Takes the ranges of @p other, or of its text if that is of another type; false if it cannot be read.
    bool Assign(const ValueBase& other) override
    {
        const ValueFrequencyItemMap* same = dynamic_cast<const ValueFrequencyItemMap*>(&other);
        if (!same)
            return SetStringValue(other.GetStringValue(), nullptr);
        become(same->m_items, nullptr);
        return true;
    }
    /// Whether @p other, which may be null, is of this type and has the same ranges.
    bool Compare(const ValueBase* other) const override
    {
        const ValueFrequencyItemMap* same = dynamic_cast<const ValueFrequencyItemMap*>(other);
        return same && same->m_items == m_items;
    }

private:
    /// True if that changed something.
    static bool file(Data* items, unsigned int key, Item item)
    {
        ItemAdapter::setId(&item, key);
        const auto found = items->find(key);
        if (found == items->end()) {
            items->emplace_hint(items->end(), key, item);
            return true;
        }
        if (found->second == item)
            return false;
        found->second = item;
        return true;
    }

    static unsigned int freeKey(const Data& items)
    {
        if (items.empty())
            return 0;
        const unsigned int highest = items.rbegin()->first;
        if (highest < std::numeric_limits<unsigned int>::max())
            return highest + 1;
        unsigned int key = 0;
        while (items.count(key) > 0)
            ++key;
        return key;
    }

    void become(Data items, IObserver* originator)
    {
        if (items == m_items)
            return;
        m_items = std::move(items);
        this->HasChanged(ChangeCode::Content, originator);
    }

    Data m_items;
};

extern template class ValueFrequencyItemMap<CommentedRange, CommentedRangeItemFormat,
                                            CommentedRangeItemAdapter>;

/// A list of frequency ranges, each with an id.
class VALUEFRAMEWORK_EXPORT ValueCommentedRangeMap
    : public ValueFrequencyItemMap<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>
{
public:
    /// Without a name.
    ValueCommentedRangeMap();
    /// An empty map of that name, outside the tree.
    explicit ValueCommentedRangeMap(QString name, TValueState state = ValueState::Normal);
    ~ValueCommentedRangeMap() override;
};

} // namespace values

#endif
