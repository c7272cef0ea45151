#include "comparisons.h"

#include "floorform.h"
#include "handform.h"
#include "liveform.h"
#include "peerform.h"
#include "qmlform.h"

#include <layout/floatgrouplayout.h>
#include <valueframework/value.h>
#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <zorvaparser/zorvaformularmanager.h>
#include <zorvaparser/zorvaparser.h>

#include <QDomDocument>
#include <QScriptEngine>
#include <QSet>

#include <cstdio>
#include <map>
#include <memory>

namespace {

/// Something made for one round and dropped after it.
template <typename T>
using Slot = std::shared_ptr<std::unique_ptr<T>>;

template <typename T>
Slot<T> makeSlot()
{
    return std::make_shared<std::unique_ptr<T>>();
}

template <typename T>
std::function<void()> drop(const Slot<T>& slot)
{
    return [slot] {
        slot->reset();
        settle();
    };
}

std::shared_ptr<FloorForm> makeFloorForm(const Load& load, bool values)
{
    auto form = std::make_shared<FloorForm>();
    form->parse(load.description);
    form->buildElements();
    if (values)
        form->createValues();
    return form;
}

std::shared_ptr<LiveForm> makeShownForm(const Load& load)
{
    auto form = std::make_shared<LiveForm>(load.description);
    form->bringUp();
    return form;
}

std::shared_ptr<HandForm> makeShownHandForm(const Load& load, HandForm::Layout layout)
{
    auto form = std::make_shared<HandForm>(load.form, layout);
    showAndPaint(form->window(), form->content());
    return form;
}

// What was parsed lives until its next round: the heap that one side leaves behind
// must not become the other one's.
Work parseOurs(const Load& load)
{
    const auto slot = makeSlot<LiveForm>();
    return {drop(slot), [slot, &load] { *slot = std::make_unique<LiveForm>(load.description); }, [] {}};
}

Work parseFloor(const Load& load)
{
    const auto slot = makeSlot<FloorForm>();
    return {drop(slot),
            [slot, &load] {
                *slot = std::make_unique<FloorForm>();
                (*slot)->parse(load.description);
            },
            [] {}};
}

Comparison compareParse(const Load& load)
{
    return {parseFloor(load), parseOurs(load)};
}

Comparison compareParseDom(const Load& load)
{
    const auto slot = makeSlot<QDomDocument>();
    return {{drop(slot),
             [slot, &load] {
                 *slot = std::make_unique<QDomDocument>();
                 (*slot)->setContent(load.description);
             },
             [] {}},
            parseOurs(load)};
}

Work loadPeer(const Load& load, bool shown)
{
    const auto slot = makeSlot<PeerForm>();
    return {[] {},
            [slot, &load, shown] {
                *slot = std::make_unique<PeerForm>(load.ui);
                if (shown)
                    (*slot)->show();
            },
            drop(slot)};
}

Comparison compareParsePeer(const Load& load)
{
    return {loadPeer(load, false), parseOurs(load)};
}

// Creating the values runs the script; without one only the values count.
Comparison compareValues(const Load& load)
{
    FormGenerator form = load.form;
    form.setScript(false);
    const auto description = std::make_shared<QString>(form.description());
    const auto floor = makeSlot<FloorForm>();
    const auto ours = makeSlot<LiveForm>();
    return {{[floor, description] {
                 *floor = std::make_unique<FloorForm>();
                 (*floor)->parse(*description);
             },
             [floor] { (*floor)->createValues(); }, drop(floor)},
            {[ours, description] { *ours = std::make_unique<LiveForm>(*description); },
             [ours] { (*ours)->createValues(); }, drop(ours)}};
}

Work showOurs(const Load& load)
{
    const auto slot = makeSlot<LiveForm>();
    return {[slot, &load] {
                *slot = std::make_unique<LiveForm>(load.description);
                (*slot)->createValues();
            },
            [slot] {
                (*slot)->createGui();
                (*slot)->show();
            },
            drop(slot)};
}

Comparison compareShow(const Load& load)
{
    const auto slot = makeSlot<HandForm>();
    return {{[] {},
             [slot, &load] {
                 *slot = std::make_unique<HandForm>(load.form, HandForm::FormLayout);
                 showAndPaint((*slot)->window(), (*slot)->content());
             },
             drop(slot)},
            showOurs(load)};
}

Comparison compareShowPeer(const Load& load)
{
    return {loadPeer(load, true), showOurs(load)};
}

Work liveOurs(const Load& load)
{
    const auto slot = makeSlot<LiveForm>();
    return {[] {},
            [slot, &load] {
                *slot = std::make_unique<LiveForm>(load.description);
                (*slot)->bringUp();
            },
            drop(slot)};
}

Comparison compareLifePeer(const Load& load)
{
    return {loadPeer(load, true), liveOurs(load)};
}

Comparison compareLifeQml(const Load& load)
{
    const auto slot = makeSlot<QmlForm>();
    return {{[] {},
             [slot, &load] {
                 *slot = std::make_unique<QmlForm>(load.qml);
                 if (!(*slot)->show())
                     qFatal("The form of Qt Quick Controls does not show");
             },
             drop(slot)},
            liveOurs(load)};
}

QString lackOfQml()
{
    static const QString lack = QmlForm::lack(Load::ofSize(10).qml);
    return lack;
}

Work resizeOf(QWidget* window, const std::shared_ptr<void>& keep)
{
    return {[window] {
                window->resize(300, windowHeight);
                settle();
            },
            [window, keep] {
                window->resize(1600, windowHeight);
                settle();
            },
            [] {}};
}

Comparison compareResize(const Load& load)
{
    const auto floor = makeShownHandForm(load, HandForm::FormLayout);
    const auto ours = makeShownForm(load);
    return {resizeOf(floor->window(), floor), resizeOf(ours->window(), ours)};
}

/// Switches a shown form off and on again, each with its arrangement and paint.
template <typename Floor, typename Ours>
Comparison compareToggles(const Load& load, Floor floorToggle, Ours oursToggle, bool guarded)
{
    const auto floor = makeShownHandForm(load, HandForm::FloatLayout);
    const auto ours = makeShownForm(load);
    const auto runFloor = [floor, floorToggle, guarded] {
        for (const bool on : {false, true}) {
            std::unique_ptr<FloorGuard> guard;
            if (guarded)
                guard = std::make_unique<FloorGuard>(floor->content());
            floorToggle(*floor, on);
            guard.reset();
            settle();
        }
    };
    const auto runOurs = [ours, oursToggle] {
        for (const bool on : {false, true}) {
            oursToggle(*ours, on);
            settle();
        }
    };
    return {{[] {}, runFloor, [] {}}, {[] {}, runOurs, [] {}}};
}

Comparison compareGroupWith(const Load& load, bool guarded)
{
    return compareToggles(
        load, [](HandForm& form, bool on) { form.setGroupVisible(0, on); },
        [](LiveForm& form, bool on) {
            Orvane::ZorvaSheet& sheet = form->GetSheet();
            sheet.setGroupVisible(sheet.GetWidgetAt(0).data(), on);
        },
        guarded);
}

Comparison compareGroup(const Load& load)
{
    return compareGroupWith(load, true);
}

Comparison compareGroupPlain(const Load& load)
{
    return compareGroupWith(load, false);
}

QStringList headlineNames(const Load& load)
{
    QStringList names;
    for (const RowPlan& row : load.form.rows()) {
        if (row.kind == RowKind::Headline)
            names.append(row.name);
    }
    return names;
}

Comparison compareCollapseWith(const Load& load, bool guarded)
{
    const QStringList all = headlineNames(load);
    return compareToggles(
        load, [](HandForm& form, bool on) { form.setGroupsVisible(on); },
        [all](LiveForm& form, bool on) { form->GetSheet().SetCollapsed(on ? QStringList() : all); }, guarded);
}

Comparison compareCollapse(const Load& load)
{
    return compareCollapseWith(load, true);
}

Comparison compareCollapsePlain(const Load& load)
{
    return compareCollapseWith(load, false);
}

Comparison compareInputWith(const Load& load, bool guarded)
{
    return compareToggles(
        load, [](HandForm& form, bool on) { form.setControlsEnabled(on); },
        [](LiveForm& form, bool on) { form->EnableInput(on); }, guarded);
}

Comparison compareInput(const Load& load)
{
    return compareInputWith(load, true);
}

Comparison compareInputPlain(const Load& load)
{
    return compareInputWith(load, false);
}

std::shared_ptr<LiveForm> makeFormWithValues(const Load& load)
{
    auto form = std::make_shared<LiveForm>(load.description);
    form->createValues();
    return form;
}

Work writeOurs(const Load& load)
{
    const auto form = makeFormWithValues(load);
    return {[] {}, [form] { (*form)->GetXmlString(false); }, [] {}};
}

Comparison compareWrite(const Load& load)
{
    const auto floor = makeFloorForm(load, false);
    return {{[] {}, [floor] { floor->writeReady(); }, [] {}}, writeOurs(load)};
}

Comparison compareWriteProtocol(const Load& load)
{
    const auto floor = makeFloorForm(load, false);
    return {{[] {}, [floor] { floor->writeProperties(); }, [] {}}, writeOurs(load)};
}

Comparison compareWriteModified(const Load& load)
{
    const auto form = makeFormWithValues(load);
    const auto mark = [form, &load] {
        values::ValueBase* const value = (*form)->GetVTValue(load.form.rows().at(1).path);
        const auto* const selection = static_cast<values::ValueSelection*>(value);
        const long next = (selection->GetCurrentIndex() + 1) % selection->GetItemCount();
        value->SetStringValue(selection->GetItemIndex(next)->GetName(), nullptr);
    };
    return {writeOurs(load), {mark, [form] { (*form)->GetXmlString(true); }, [] {}}};
}

/// Each round reads the other of two documents, so that every value is new.
template <typename Read>
Work readInTurn(const Load& load, Read read)
{
    const auto changed = std::make_shared<bool>(false);
    return {[changed] { *changed = !*changed; },
            [read, changed, &load] { read(*changed ? load.changed : load.parameters, *changed); }, [] {}};
}

Work readOurs(const Load& load)
{
    const auto form = makeFormWithValues(load);
    return readInTurn(load, [form](const QString& text, bool) { (*form)->SetXmlString(text); });
}

Work readBare(const Load& load)
{
    const auto floor = makeFloorForm(load, false);
    return readInTurn(load, [floor](const QString& text, bool) { floor->readTexts(text); });
}

Comparison compareRead(const Load& load)
{
    return {readBare(load), readOurs(load)};
}

Comparison compareReadProtocol(const Load& load)
{
    const auto floor = makeFloorForm(load, true);
    return {readInTurn(load, [floor](const QString& text, bool) { floor->readProperties(text); }),
            readOurs(load)};
}

Comparison compareReadShownWith(const Load& load, bool guarded)
{
    const auto floor = makeFloorForm(load, true);
    const auto hand = makeShownHandForm(load, HandForm::FloatLayout);
    const auto ours = makeShownForm(load);
    const auto readFloor = [floor, hand, guarded](const QString& text, bool changed) {
        floor->readProperties(text);
        std::unique_ptr<FloorGuard> guard;
        if (guarded)
            guard = std::make_unique<FloorGuard>(hand->content());
        hand->writeControls(changed);
        guard.reset();
        settle();
    };
    return {readInTurn(load, readFloor), readInTurn(load, [ours](const QString& text, bool) {
                (*ours)->SetXmlString(text);
                settle();
            })};
}

Comparison compareReadShown(const Load& load)
{
    return compareReadShownWith(load, true);
}

Comparison compareReadShownPlain(const Load& load)
{
    return compareReadShownWith(load, false);
}

Comparison compareGroupings(const Load& load, Grouping grouping, Work (*work)(const Load&))
{
    return {work(load), work(Load::ofSize(load.form.rowCount(), grouping))};
}

Comparison compareParseFlat(const Load& load)
{
    return compareGroupings(load, Grouping::Flat, parseOurs);
}

Comparison compareParsePerRow(const Load& load)
{
    return compareGroupings(load, Grouping::PerRow, parseOurs);
}

Comparison compareReadFlat(const Load& load)
{
    return compareGroupings(load, Grouping::Flat, readOurs);
}

Comparison compareReadPerRow(const Load& load)
{
    return compareGroupings(load, Grouping::PerRow, readOurs);
}

/// What the twice as many tags cost the bare reader.
Comparison compareBareReadPerRow(const Load& load)
{
    return compareGroupings(load, Grouping::PerRow, readBare);
}

Comparison compareEmptyFormular(const Load&)
{
    constexpr int times = 20;
    return {{[] {},
             [] {
                 for (int i = 0; i < times; ++i)
                     QScriptEngine engine;
             },
             [] {}},
            {[] {},
             [] {
                 for (int i = 0; i < times; ++i)
                     Orvane::ZorvaFormular formular;
             },
             [] {}}};
}

Work buildSpins(const std::shared_ptr<QString>& description)
{
    const auto slot = makeSlot<LiveForm>();
    return {[slot, description] {
                *slot = std::make_unique<LiveForm>(*description);
                (*slot)->createValues();
            },
            [slot] { (*slot)->createGui(); }, drop(slot)};
}

Comparison compareSpinLimits(const Load& load)
{
    FormGenerator spins(load.form.rowCount());
    spins.setOnlySpins();
    const auto limited = std::make_shared<QString>(spins.description());
    spins.setLimits(false);
    return {buildSpins(limited), buildSpins(std::make_shared<QString>(spins.description()))};
}

/// A shown form and what stands for it by hand, made anew for each round.
struct ShownSides
{
    explicit ShownSides(const Load& load)
        : makeFloor([form = form, hand = hand, &load] {
            *form = std::make_unique<FloorForm>();
            (*form)->parse(load.description);
            *hand = std::make_unique<HandForm>(load.form, HandForm::FormLayout);
            showAndPaint((*hand)->window(), (*hand)->content());
        })
        , makeOurs([ours = ours, &load] {
            *ours = std::make_unique<LiveForm>(load.description);
            (*ours)->bringUp();
        })
    {
    }

    const Slot<FloorForm> form = makeSlot<FloorForm>();
    const Slot<HandForm> hand = makeSlot<HandForm>();
    const Slot<LiveForm> ours = makeSlot<LiveForm>();
    const std::function<void()> makeFloor;
    const std::function<void()> makeOurs;
};

Comparison compareTeardown(const Load& load)
{
    const ShownSides sides(load);
    return {{sides.makeFloor,
             [sides] {
                 sides.hand->reset();
                 sides.form->reset();
             },
             [] { settle(); }},
            {sides.makeOurs, [sides] { sides.ours->reset(); }, [] { settle(); }}};
}

/// Items whose hints cost nothing, in rows of two and a head for every twenty.
class BareItem : public QLayoutItem
{
public:
    explicit BareItem(int width)
        : m_width(width)
    {
    }

    QSize sizeHint() const override { return QSize(m_width, 22); }
    QSize minimumSize() const override { return QSize(m_width, 22); }
    QSize maximumSize() const override { return QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); }
    Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(const QRect& rect) override { m_rect = rect; }
    QRect geometry() const override { return m_rect; }
    bool isEmpty() const override { return false; }

private:
    int m_width;
    QRect m_rect;
};

/// The least an arrangement has to do: ask every hint once, put every item once.
void stackItems(const std::vector<std::unique_ptr<BareItem>>& items, QVector<QRect>& rects)
{
    int label = 0;
    for (const auto& item : items)
        label = qMax(label, item->sizeHint().width());
    int y = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const QSize hint = items[i]->sizeHint();
        rects[int(i)] = QRect(i % 2 ? label : 0, y, hint.width(), hint.height());
        if (i % 2)
            y += hint.height() + 4;
    }
}

Comparison compareArrangement(const Load& load)
{
    const auto items = std::make_shared<std::vector<std::unique_ptr<BareItem>>>();
    const auto rects = std::make_shared<QVector<QRect>>(2 * load.form.rowCount());
    const auto parent = std::make_shared<QWidget>();
    auto* const layout = new FloatGroupLayout(parent.get());
    for (int row = 0; row < load.form.rowCount(); ++row) {
        if (row % 20 == 0)
            layout->addSection("section");
        layout->addGroup();
        for (int item = 0; item < 2; ++item) {
            items->push_back(std::make_unique<BareItem>(60 + row % 7));
            layout->addItem(new BareItem(60 + row % 7));
        }
    }
    return {{[] {}, [items, rects] { stackItems(*items, *rects); }, [] {}},
            {[layout] { layout->invalidate(); }, [layout, parent] { layout->heightForWidth(1000); }, [] {}}};
}

/// The user's edit of one row, from the control to the mark; in a form of ten rows and
/// in the load's.
Work editOne(const Load& load, bool painted)
{
    const auto form = makeShownForm(load);
    const auto turn = std::make_shared<int>(0);
    const QString path = load.form.rows().at(5).path;
    return {[] {},
            [form, turn, path, painted] {
                values::ValueBase* const value = (*form)->GetVTValue(path);
                value->SetStringValue(QStringLiteral("edit %1").arg(++*turn), nullptr);
                if (painted)
                    settle();
            },
            [] {}};
}

Comparison compareEdit(const Load& load)
{
    return {editOne(Load::ofSize(10), false), editOne(load, false)};
}

Comparison compareEditPainted(const Load& load)
{
    return {editOne(Load::ofSize(10), true), editOne(load, true)};
}

Comparison compareEditHand(const Load& load)
{
    const auto hand = makeShownHandForm(load, HandForm::FormLayout);
    const auto turn = std::make_shared<int>(0);
    return {{[] {},
             [hand, turn] {
                 hand->writeText(QStringLiteral("edit %1").arg(++*turn));
                 settle();
             },
             [] {}},
            editOne(load, true)};
}

/// The window stays when what it shows is gone, as it may with a host.
Comparison compareDrop(const Load& load)
{
    const ShownSides sides(load);
    return {{sides.makeFloor,
             [sides] {
                 sides.form->reset();
                 {
                     const FloorGuard guard((*sides.hand)->content());
                     (*sides.hand)->setControlsEnabled(false);
                 }
                 settle();
             },
             drop(sides.hand)},
            {sides.makeOurs,
             [sides] {
                 (*sides.ours)->dropForm();
                 settle();
             },
             drop(sides.ours)}};
}

Comparison compareSwitch(const Load& load)
{
    const auto first = makeShownHandForm(load, HandForm::FormLayout);
    const auto second = makeShownHandForm(load, HandForm::FormLayout);
    second->window()->hide();
    const auto manager = std::shared_ptr<Orvane::ZorvaFormularManager>(
        new Orvane::ZorvaFormularManager, [](Orvane::ZorvaFormularManager* owned) {
            owned->Reset();
            settle();
            delete owned;
        });
    manager->SetVTPath(QStringLiteral("/bench/switch"));
    const QStringList names{QStringLiteral("one"), QStringLiteral("two")};
    for (const QString& name : names) {
        manager->DefineFormular(name, load.description);
        manager->GetFormular(name)->GetGUI()->resize(windowWidth, windowHeight);
        manager->ShowFormular(name);
        settle();
    }
    const auto turn = std::make_shared<int>(0);
    return {{[] {},
             [first, second] {
                 HandForm& shown = first->window()->isVisible() ? *first : *second;
                 HandForm& next = &shown == first.get() ? *second : *first;
                 shown.window()->hide();
                 next.window()->show();
                 settle();
             },
             [] {}},
            {[] {},
             [manager, names, turn] {
                 manager->ShowFormular(names.at(++*turn % 2));
                 settle();
             },
             [] {}}};
}

Comparison compareOverlay(const Load& load)
{
    const auto floor = makeFloorForm(load, true);
    const auto ours = makeFormWithValues(load);
    const auto texts = std::make_shared<QStringList>(
        QStringList{load.form.overlay(QStringLiteral(" a")), load.form.overlay(QStringLiteral(" b"))});
    const auto turns = std::make_shared<std::pair<int, int>>(0, 0);
    return {
        {[] {}, [floor, texts, turns] { floor->applyOverlay(texts->at(++turns->first % 2)); }, [] {}},
        {[] {}, [ours, texts, turns] { (*ours)->SetChangedZORVA(texts->at(++turns->second % 2)); }, [] {}}};
}

Comparison compareGetValues(const Load& load)
{
    const auto floor = makeFloorForm(load, true);
    const auto ours = makeFormWithValues(load);
    struct Targets
    {
        ~Targets() { qDeleteAll(ours); }

        QStringList paths;
        QVector<QString> floor;
        QList<values::ValueBase*> ours;
    };
    const auto targets = std::make_shared<Targets>();
    for (const RowPlan& row : load.form.rows()) {
        if (!row.hasParameter())
            continue;
        targets->paths.append(row.path);
        targets->ours.append(new values::ValueString(row.path.section(QLatin1Char('/'), -1)));
    }
    targets->floor.resize(targets->paths.size());
    return {{[] {},
             [floor, targets] {
                 for (int i = 0; i < targets->paths.size(); ++i)
                     targets->floor[i] = floor->value(targets->paths.at(i))->shownText();
             },
             [] {}},
            {[targets] {
                 for (values::ValueBase* const target : qAsConst(targets->ours))
                     target->SetStringValue(QString(), nullptr);
             },
             [ours, targets] { (*ours)->GetVTValues(targets->ours, nullptr, false); }, [] {}}};
}

/// As many entries as the load has rows: enumeration, value and control take them.
Comparison compareRefill(const Load& load)
{
    const auto floor = makeFloorForm(Load::ofSize(10), true);
    const auto hand = makeShownHandForm(Load::ofSize(10), HandForm::FormLayout);
    const auto ours = makeShownForm(Load::ofSize(10));
    const auto source = std::make_shared<values::ValueSelection>(QStringLiteral("source"));
    const auto names = std::make_shared<QStringList>();
    for (int i = 0; i < load.form.rowCount(); ++i)
        names->append(QStringLiteral("Entry %1").arg(i));
    source->AddItems(*names, nullptr);
    const QString enumName = Load::ofSize(10).form.rows().at(1).enumName;
    return {{[] {},
             [floor, hand, names, enumName] {
                 floor->refill(enumName, *names);
                 hand->refillChoice(*names);
             },
             [] {}},
            {[] {},
             [ours, source, enumName] {
                 (*ours)->InitEnumeration(enumName, source.get(), nullptr);
                 // Only one row takes the list here, so that entries are what counts.
                 (*ours)->GetSheet().GetWidgetAt(1)->ResyncValueTree();
             },
             [] {}}};
}

class BareListener : public FloorValue::Listener, public IObserver
{
public:
    void noticed(FloorValue*) override { ++heard; }
    void Update(Observable*, TChangeCode) override { ++heard; }

    int heard = 0;
};

Comparison compareObservers(const Load& load)
{
    const auto listeners = std::make_shared<std::vector<BareListener>>(std::size_t(load.form.rowCount()));
    const auto ours = std::make_shared<values::NumericDouble>(QStringLiteral("ours"), ValueState::Normal);
    return {{[] {},
             [listeners] {
                 QSet<const IObserver*> known;
                 for (const BareListener& listener : *listeners)
                     known.insert(&listener);
                 for (const BareListener& listener : *listeners)
                     known.remove(&listener);
             },
             [] {}},
            {[] {},
             [ours, listeners] {
                 for (BareListener& listener : *listeners)
                     ours->AddObserver(&listener);
                 for (BareListener& listener : *listeners)
                     ours->DeleteObserver(&listener);
             },
             [] {}}};
}

Comparison compareFanOut(const Load& load)
{
    const auto listeners = std::make_shared<std::vector<BareListener>>(std::size_t(load.form.rowCount()));
    const auto floor = std::make_shared<FloorValue>(FloorValue::Number, QStringLiteral("floor"));
    const auto ours = std::make_shared<values::NumericDouble>(QStringLiteral("ours"), ValueState::Normal);
    for (BareListener& listener : *listeners) {
        floor->addListener(&listener);
        ours->AddObserver(&listener);
    }
    constexpr int notices = 10;
    return {{[] {},
             [floor, listeners] {
                 for (int i = 0; i < notices; ++i)
                     floor->setNumber(floor->number + 1.0, nullptr);
             },
             [] {}},
            {[] {},
             [ours, listeners] {
                 for (int i = 0; i < notices; ++i)
                     ours->SetValue(ours->GetValue() + 1.0, nullptr);
             },
             [] {}}};
}

} // namespace

Load::Load(int rows, Grouping grouping)
    : form(rows, grouping)
    , description(form.description())
    , parameters(form.parameters(false))
    , changed(form.parameters(true))
    , ui(grouping == Grouping::Twenty ? form.uiForm() : QString())
    , qml(grouping == Grouping::Twenty ? form.qmlForm() : QString())
{
}

const Load& Load::ofSize(int rows, Grouping grouping)
{
    static std::map<std::pair<int, Grouping>, std::unique_ptr<Load>> loads;
    std::unique_ptr<Load>& load = loads[{rows, grouping}];
    if (!load)
        load = std::make_unique<Load>(rows, grouping);
    return *load;
}

bool isAvailable(const ComparisonKind& kind)
{
    const QString lack = kind.lack ? kind.lack() : QString();
    if (!lack.isEmpty())
        std::fprintf(stderr, "skipped: %s: %s\n", kind.title, qPrintable(lack));
    return lack.isEmpty();
}

const std::vector<ComparisonKind>& comparisonKinds()
{
    static const std::vector<ComparisonKind> kinds{
        // First, where the heap is as it is for both sides: forms leave holes that one of them would fill.
        {"observers", "N observers come to a value and leave / a set of them", compareObservers, true},
        {"fan-out", "10 notices to N observers / plain vector", compareFanOut, true},
        {"parse", "ParseZORVA / parse floor", compareParse, true},
        {"parse-dom", "ParseZORVA / QDomDocument::setContent", compareParseDom, true},
        {"parse-uiloader", "ParseZORVA / QUiLoader::load", compareParsePeer, false, PeerForm::lack},
        {"values", "CreateValueTree / value floor", compareValues, true},
        {"show", "CreateGUI + Show + paint / QFormLayout by hand", compareShow, false},
        {"show-uiloader", "CreateGUI + Show + paint / QUiLoader load + show", compareShowPeer, false,
         PeerForm::lack},
        {"life-uiloader", "whole life / QUiLoader load + show", compareLifePeer, false, PeerForm::lack},
        {"life-qml", "whole life / Qt Quick Controls", compareLifeQml, false, lackOfQml},
        {"arrange", "arrangement alone / one pass over the items", compareArrangement, true},
        {"group", "one group toggled / guarded by hand", compareGroup, false},
        {"group-plain", "one group toggled / plain loop", compareGroupPlain, false},
        {"collapse", "SetCollapsed / guarded by hand", compareCollapse, false},
        {"collapse-plain", "SetCollapsed / plain loop", compareCollapsePlain, false},
        {"input", "EnableInput / guarded by hand", compareInput, false},
        {"input-plain", "EnableInput / plain loop", compareInputPlain, false},
        {"write", "GetXmlString(false) / write floor", compareWrite, true},
        {"write-protocol", "GetXmlString(false) / writer fed from properties", compareWriteProtocol, true},
        {"write-modified", "GetXmlString(true), one modified / GetXmlString(false)", compareWriteModified,
         true},
        {"read", "SetXmlString / read floor", compareRead, true},
        {"read-protocol", "SetXmlString / properties and values by hand", compareReadProtocol, true},
        {"read-shown", "SetXmlString, shown / guarded by hand", compareReadShown, false},
        {"read-shown-plain", "SetXmlString, shown / plain loop", compareReadShownPlain, false},
        {"parse-flat", "ParseZORVA, one group / groups of 20", compareParseFlat, true},
        {"parse-perrow", "ParseZORVA, a group per row / groups of 20", compareParsePerRow, true},
        {"read-flat", "SetXmlString, one group / groups of 20", compareReadFlat, true},
        {"read-perrow", "SetXmlString, a group per row / groups of 20", compareReadPerRow, true},
        {"read-perrow-bare", "read floor, a group per row / groups of 20", compareBareReadPerRow, true},
        {"formular", "ZorvaFormular made and deleted / QScriptEngine", compareEmptyFormular, true},
        {"spins", "CreateGUI, spin rows without limits / with limits", compareSpinLimits, true},
        {"teardown", "window and form deleted / hand-built form and parse floor", compareTeardown, false},
        {"edit", "edit of one row / in a form of 10 rows", compareEdit, false},
        {"edit-painted", "edit of one row + paint / in a form of 10 rows", compareEditPainted, false},
        {"edit-hand", "edit of one row + paint / setText by hand + paint", compareEditHand, false},
        {"drop", "form deleted below its window + paint / parse floor, guarded by hand", compareDrop, false},
        {"switch", "ShowFormular / hide and show by hand", compareSwitch, false},
        {"overlay", "SetChangedZORVA / walk and setProperty", compareOverlay, true},
        {"get-values", "GetVTValues / hash look-ups", compareGetValues, true},
        {"refill", "InitEnumeration + resync of a row / list, value and combo box refilled", compareRefill,
         true},
        // The last one that is counted: what windows leave in the heap moves the allocations of others.
        {"resize", "resize + paint / QFormLayout by hand", compareResize, true},
    };
    return kinds;
}

const ComparisonKind* findComparison(const QString& name)
{
    for (const ComparisonKind& kind : comparisonKinds()) {
        if (name == QLatin1String(kind.name))
            return &kind;
    }
    return nullptr;
}
