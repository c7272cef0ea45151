#include "basicvaluewidgets/vccomboboxclassic.h"

#include "basicvaluewidgets/comboaccess_p.h"
#include "basicvaluewidgets/fieldsize.h"
#include "basicvaluewidgets/refreshguard_p.h"
#include "basicvaluewidgets/sizehintcache_p.h"

#include <valueframework/valueselection.h>

#include <QAbstractItemView>
#include <QCache>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include <memory>

namespace {

// Of what an item holds clones share all, and many boxes offer the same entries.
QStandardItem* entryLike(const QString& name, const QString& shown)
{
    constexpr int mostKnown = 500;
    static QCache<QPair<QString, QString>, QStandardItem> known(mostKnown);
    const QPair<QString, QString> texts(name, shown);
    if (const QStandardItem* entry = known.object(texts))
        return entry->clone();
    auto entry = std::make_unique<QStandardItem>(shown);
    entry->setData(name, Qt::UserRole);
    QStandardItem* const first = entry->clone();
    known.insert(texts, entry.release()); // which owns it
    return first;
}

} // namespace

VCComboBoxClassic::VCComboBoxClassic(QWidget* parent, const char* name)
    : QComboBox(parent)
    , m_binding(this, this)
{
    ComboAccess::Install(); // before anything asks for the interface
    setObjectName(QString::fromLatin1(name));
    setFocusPolicy(Qt::StrongFocus);
    connect(this, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &VCComboBoxClassic::choose);
}

VCComboBoxClassic::~VCComboBoxClassic() = default;

values::ValueSelection* VCComboBoxClassic::selection() const
{
    return static_cast<values::ValueSelection*>(m_binding.Value());
}

QStandardItemModel* VCComboBoxClassic::items() const
{
    return qobject_cast<QStandardItemModel*>(model());
}

void VCComboBoxClassic::SetValueSelection(values::ValueSelection* value)
{
    ClearUndo();
    m_binding.Bind(value);
    resyncItems();
}

void VCComboBoxClassic::Update(Observable* observable, TChangeCode code)
{
    if (!m_binding.Concerns(observable, code))
        return;
    switch (code) {
    case ChangeCode::Content:
        refresh();
        break;
    case ChangeCode::ItemChanged:
        itemsAdded();
        break;
    case ChangeCode::Name:
    case ChangeCode::BulkEnd:
    case ChangeCode::ItemsRemoved:
        resyncItems();
        break;
    default:
        break;
    }
}

void VCComboBoxClassic::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    update();
}

void VCComboBoxClassic::setEnabled(bool enabled)
{
    m_binding.RequestEnabled(enabled);
}

QString VCComboBoxClassic::nameAt(int index) const
{
    const values::SelectionItem* item = selection()->GetItemIndex(index);
    return item ? item->GetName() : QString();
}

QString VCComboBoxClassic::shownName(const QString& name) const
{
    const QByteArray& context = selection()->GetTranslationNamespace();
    if (context.isEmpty() || name.isEmpty())
        return name;
    return QCoreApplication::translate(context.constData(), name.toUtf8().constData());
}

// Rows that kept their texts are left alone, so that what was switched off
// there stays so.
void VCComboBoxClassic::resyncItems()
{
    QStandardItemModel* model = items();
    if (!selection() || !model)
        return;
    const RefreshGuard guard(this, &m_refreshing);
    const int wanted = static_cast<int>(selection()->GetItemCount());
    const int kept = qMin(wanted, model->rowCount());
    bool changed = wanted != model->rowCount();
    for (int row = 0; row < kept; ++row)
        changed |= resyncItem(model->item(row), nameAt(row));
    if (model->rowCount() > wanted)
        model->removeRows(wanted, model->rowCount() - wanted);
    appendItems(kept);
    if (changed)
        entriesChanged();
    refresh();
}

bool VCComboBoxClassic::resyncItem(QStandardItem* item, const QString& name)
{
    const QString shown = shownName(name);
    if (item->text() == shown && item->data(Qt::UserRole).toString() == name)
        return false;
    item->setText(shown);
    item->setData(name, Qt::UserRole);
    item->setEnabled(true);
    return true;
}

// Items added one by one cost one row each: all rows are compared only once,
// when the events of the bulk are through, in case it replaced some of them.
void VCComboBoxClassic::itemsAdded()
{
    const int present = count();
    const bool appended = present > 0 && present < selection()->GetItemCount() &&
                          itemData(present - 1).toString() == nameAt(present - 1);
    if (!appended) {
        resyncItems();
        return;
    }
    const RefreshGuard guard(this, &m_refreshing);
    appendItems(present);
    entriesChanged();
    refresh();
    if (m_checkPending)
        return;
    m_checkPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_checkPending = false;
            resyncItems();
        },
        Qt::QueuedConnection);
}

void VCComboBoxClassic::appendItems(int first)
{
    const int wanted = static_cast<int>(selection()->GetItemCount());
    QList<QStandardItem*> added;
    added.reserve(qMax(0, wanted - first));
    for (int row = first; row < wanted; ++row) {
        const QString name = nameAt(row);
        added.append(entryLike(name, shownName(name)));
    }
    if (!added.isEmpty())
        items()->invisibleRootItem()->appendRows(added); // which owns them
}

void VCComboBoxClassic::entriesChanged()
{
    m_entriesKey.clear();
    ClearUndo(); // it speaks of positions
    updateGeometry();
}

void VCComboBoxClassic::refresh()
{
    if (!selection())
        return;
    const RefreshGuard guard(this, &m_refreshing);
    m_shownIndex = static_cast<int>(selection()->GetCurrentIndex());
    setCurrentIndex(m_shownIndex < count() ? m_shownIndex : -1);
}

void VCComboBoxClassic::choose(int index)
{
    if (m_refreshing)
        return;
    RecordEdit(m_shownIndex, index);
    m_shownIndex = index;
    if (!selection())
        return;
    const QPointer<VCComboBoxClassic> alive(this);
    if (index >= 0)
        selection()->SelectIndex(index, this);
    else
        selection()->SetStringValue(QString(), this);
    if (alive)
        refresh(); // who heard of it may have chosen otherwise
}

void VCComboBoxClassic::ApplyRecordedState(const QVariant& state)
{
    setCurrentIndex(state.toInt());
}

QString VCComboBoxClassic::entriesKey() const
{
    if (m_entriesKey.isNull()) {
        QStringList texts;
        texts.reserve(count());
        for (int i = 0; i < count(); ++i)
            texts.append(itemText(i));
        m_entriesKey = SizeHintCache::Shared(texts.join(QChar(0x1f)) + QChar(0x1f));
    }
    return m_entriesKey;
}

QSize VCComboBoxClassic::contentsSize() const
{
    const QFontMetrics metrics = fontMetrics();
    int width = count() ? 0 : 7 * metrics.horizontalAdvance(QLatin1Char('x'));
    for (int i = 0; i < count(); ++i)
        width = qMax(width, metrics.boundingRect(itemText(i)).width());
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option,
                                     QSize(width, FieldSize::ChoiceLineHeight(this)), this);
}

QSize VCComboBoxClassic::sizeHint() const
{
    const QSize common = SizeHintCache::Hint(this, QStringLiteral("common"), [this] {
        return QSize(FieldSize::CommonWidth(this), FieldSize::CommonHeight(this));
    });
    return minimumSizeHint().expandedTo(common);
}

QSize VCComboBoxClassic::minimumSizeHint() const
{
    return SizeHintCache::Hint(this, entriesKey() + QLatin1Char(hasFrame() ? 'f' : 'n'), [this] {
        return contentsSize().boundedTo(QSize(FieldSize::UpperWidth(this), QWIDGETSIZE_MAX));
    });
}

void VCComboBoxClassic::showPopup()
{
    if (m_readOnly)
        return;
    // What the box has no room for is whole in the list.
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    view()->setMinimumWidth(qMin(contentsSize().width() + scrollBar, screen()->availableGeometry().width()));
    QComboBox::showPopup();
}

void VCComboBoxClassic::paintEvent(QPaintEvent* event)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width();
    const QString whole = option.currentText;
    option.currentText = option.fontMetrics.elidedText(whole, Qt::ElideRight, room);
    if (m_readOnly) {
        paintReadOnly(option);
        return;
    }
    if (option.currentText == whole || isEditable() || !option.currentIcon.isNull()) {
        QComboBox::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

// As an edit that can only be read: a box with nothing to open is no button.
void VCComboBoxClassic::paintReadOnly(QStyleOptionComboBox& option)
{
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    frame.state |= QStyle::State_Sunken | QStyle::State_ReadOnly;
    frame.state &= ~QStyle::State_MouseOver;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        frame.palette.setBrush(group, QPalette::Base, palette().brush(group, QPalette::Window));
    QStylePainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, nullptr); // no style knows it in a box
    option.palette.setBrush(QPalette::ButtonText, palette().brush(QPalette::Text));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

bool VCComboBoxClassic::event(QEvent* event)
{
    return ClaimUndoShortcut(event) || QComboBox::event(event);
}

void VCComboBoxClassic::keyPressEvent(QKeyEvent* event)
{
    if (m_readOnly)
        event->ignore();
    else if (!HandleUndoKey(event))
        QComboBox::keyPressEvent(event);
}

void VCComboBoxClassic::mousePressEvent(QMouseEvent* event)
{
    if (!m_readOnly)
        QComboBox::mousePressEvent(event);
}

void VCComboBoxClassic::wheelEvent(QWheelEvent* event)
{
    if (m_readOnly || !hasFocus())
        event->ignore();
    else
        QComboBox::wheelEvent(event);
}

void VCComboBoxClassic::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange)
        SizeHintCache::Forget();
    QComboBox::changeEvent(event);
    m_binding.ControlChanged(event);
    if (event->type() == QEvent::LanguageChange)
        resyncItems();
}
