#include "basicvaluewidgets/vccheckbox.h"

#include "basicvaluewidgets/fieldsize.h"
#include "basicvaluewidgets/refreshguard_p.h"
#include "basicvaluewidgets/sizehintcache_p.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

// Before a box is unchecked, its siblings are searched for an exclusive group,
// which takes time with every widget of the form; a box in a group of its own
// is spared that. One that is exclusive by itself needs its siblings.
class ScratchGroup
{
public:
    explicit ScratchGroup(QAbstractButton* button)
        : m_button(button->group() || button->autoExclusive() ? nullptr : button)
    {
        m_group.setExclusive(false);
        if (m_button)
            m_group.addButton(m_button);
    }
    ~ScratchGroup()
    {
        if (m_button && m_button->group() == &m_group)
            m_group.removeButton(m_button);
    }
    Q_DISABLE_COPY(ScratchGroup)

private:
    QButtonGroup m_group;
    QPointer<QAbstractButton> m_button; // a listener may delete it; null: the box has others to heed
};

} // namespace

VCCheckBox::VCCheckBox(QWidget* parent, const char* name)
    : QCheckBox(parent)
    , m_binding(this, this)
{
    setObjectName(QString::fromLatin1(name));
    connect(this, &QCheckBox::toggled, this, &VCCheckBox::write);
}

VCCheckBox::~VCCheckBox() = default;

values::ValueBool* VCCheckBox::boolean() const
{
    return static_cast<values::ValueBool*>(m_binding.Value());
}

void VCCheckBox::SetBoolean(values::ValueBool* value)
{
    ClearUndo();
    m_binding.Bind(value);
    refresh();
}

void VCCheckBox::Update(Observable* observable, TChangeCode code)
{
    if (m_binding.Concerns(observable, code) && code == ChangeCode::Content)
        refresh();
}

void VCCheckBox::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    update();
}

// Inactive, but legible: without a pale tick nobody could read it.
void VCCheckBox::paintEvent(QPaintEvent* event)
{
    if (!m_readOnly) {
        QCheckBox::paintEvent(event);
        return;
    }
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        option.palette.setBrush(QPalette::Disabled, role, palette().brush(QPalette::Inactive, role));
    option.palette.setBrush(QPalette::Disabled, QPalette::Base, palette().brush(QPalette::Window));
    option.palette.setBrush(QPalette::Disabled, QPalette::Highlight, palette().brush(QPalette::Mid));
    option.palette.setCurrentColorGroup(QPalette::Disabled);
    QStylePainter(this).drawControl(QStyle::CE_CheckBox, option);
}

void VCCheckBox::setEnabled(bool enabled)
{
    m_binding.RequestEnabled(enabled);
}

void VCCheckBox::refresh()
{
    if (!boolean())
        return;
    const RefreshGuard guard(this, &m_refreshing);
    setCheckedCheaply(boolean()->GetValue());
}

void VCCheckBox::setCheckedCheaply(bool checked)
{
    if (checked == isChecked())
        return;
    if (checked) {
        setChecked(true);
        return;
    }
    const ScratchGroup group(this);
    setChecked(false);
}

void VCCheckBox::nextCheckState()
{
    if (m_readOnly)
        return;
    const ScratchGroup group(this);
    QCheckBox::nextCheckState();
}

void VCCheckBox::write(bool checked)
{
    if (m_refreshing)
        return;
    RecordEdit(!checked, checked);
    if (boolean())
        boolean()->SetValue(checked, this);
}

void VCCheckBox::ApplyRecordedState(const QVariant& state)
{
    setCheckedCheaply(state.toBool());
}

QSize VCCheckBox::sizeHint() const
{
    return SizeHintCache::Hint(this, text(), [this] {
        const QSize own = QCheckBox::sizeHint();
        return QSize(own.width(), qMax(own.height(), FieldSize::CommonHeight(this)));
    });
}

bool VCCheckBox::hitButton(const QPoint& position) const
{
    return !m_readOnly && QCheckBox::hitButton(position);
}

bool VCCheckBox::event(QEvent* event)
{
    return ClaimUndoShortcut(event) || QCheckBox::event(event);
}

void VCCheckBox::keyPressEvent(QKeyEvent* event)
{
    if (m_readOnly && event->key() == Qt::Key_Space)
        return;
    if (m_readOnly || !HandleUndoKey(event))
        QCheckBox::keyPressEvent(event);
}

void VCCheckBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange)
        SizeHintCache::Forget();
    QCheckBox::changeEvent(event);
    m_binding.ControlChanged(event);
}
