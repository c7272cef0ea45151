#include "zorvadelegate.h"

#include "numericcast_p.h"

#include <zorvaparser/zorvaenum.h>
#include <zorvaparser/zorvasheet.h>
#include <zorvaparser/zorvawidget.h>

#include <layout/floatgrouplayout.h>
#include <valueframework/tree.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QScopedValueRollback>
#include <QStringBuilder>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>
#include <limits>
#include <utility>

namespace Orvane {

namespace {

// A block inside a block inside a block ...: the walk calls itself for each level,
// so a document must not choose the depth of the stack.
constexpr int deepestBlock = 500;
int blockDepth = 0;

// A description or parameter XML must not ask for all memory with one number.
constexpr qint64 mostCells = 1000000;

// Qt looks a dynamic property up one by one, so a row that is given a million of
// them would never be read to its end.
constexpr int mostProperties = 1000;

// No double has a digit behind this place; a tooltip asked for more is not worth the memory.
constexpr int lastDecimal = 1074;

constexpr double noMinimum = -1e308;
constexpr double noMaximum = 1e308;

/**
 * The write that is on its way to its own change event. Kept here and not in the
 * row, which the host may drop in answer.
 */
class PropertyWrite
{
    Q_DISABLE_COPY(PropertyWrite)

public:
    PropertyWrite(const QObject* row, const char* name, const QVariant& value)
        : m_row(row)
        , m_name(name)
        , m_value(value)
    {
        current = this;
    }
    // What stood before is not put back: its property may have been written again.
    ~PropertyWrite() { current = nullptr; }

    /** Null if nothing is on its way. Whatever is written in answer has an event of its own. */
    static const PropertyWrite* take() { return std::exchange(current, nullptr); }

    bool isOf(const QObject* row, const QByteArray& name) const { return row == m_row && name == m_name; }
    const QVariant& value() const { return m_value; }

private:
    static const PropertyWrite* current;

    const QObject* m_row;
    const char* m_name;
    const QVariant& m_value;
};

const PropertyWrite* PropertyWrite::current = nullptr;

bool isFloating(const QVariant& value)
{
    return value.userType() == QMetaType::Double || value.userType() == QMetaType::Float;
}

/** Rounds as QVariant does, but only where @p Int can hold the result. */
template <typename Int>
Int roundedOr(Int fallback, double number)
{
    constexpr double lowest = static_cast<double>(std::numeric_limits<Int>::min());
    const double beyond = std::ldexp(1.0, std::numeric_limits<Int>::digits);
    const double rounded = std::floor(number + 0.5);
    return rounded >= lowest && rounded < beyond ? static_cast<Int>(rounded) : fallback;
}

bool isSameNumber(double left, double right)
{
    return left == right || (std::isnan(left) && std::isnan(right));
}

/** A bound of a range tooltip. One without any limit has over 300 digits, and every row repeats it. */
QString boundText(double bound, int decimals)
{
    static double lastBound[2] = {0.0, 0.0};
    static int lastDecimals[2] = {-1, -1};
    static QString lastText[2];
    if (!(std::abs(bound) > 1e100))
        return QString::number(bound, 'f', decimals);
    const int slot = bound < 0.0 ? 0 : 1;
    if (lastDecimals[slot] != decimals || lastBound[slot] != bound) {
        lastText[slot] = QString::number(bound, 'f', decimals);
        lastBound[slot] = bound;
        lastDecimals[slot] = decimals;
    }
    return lastText[slot];
}

} // namespace

ZorvaDelegate::ZorvaDelegate(ZorvaWidget* owningWidget)
    : widget(owningWidget)
    , applyMode(static_cast<eApplyMode>(0))
    , generateParameterXml(false)
    , modified(false)
    , groupVisible(true)
{
    // One list for all rows: it is shared until a kind defines more.
    static const QStringList baseProperties{QStringLiteral("enabled"), QStringLiteral("readOnly"),
                                            QStringLiteral("visible"), QStringLiteral("toolTip")};
    definedProperties = baseProperties;
}

ZorvaDelegate::~ZorvaDelegate() = default;

void ZorvaDelegate::CreateValueTree() {}

void ZorvaDelegate::ResyncValueTree()
{
    if (ErrorHandler::Instance().GetTraceMask() & ErrorHandler::TraceNotes)
        _Q_Trace(QStringLiteral("ResyncValueTree empty implementation for %1").arg(xmlTagName),
                 QStringLiteral("zorvadelegate"), __LINE__);
}

void ZorvaDelegate::CreateGUI(FloatGroupLayout* layout)
{
    const QString text = property("labelText").toString();
    if (text.isEmpty())
        return;
    const QByteArray name = QStringLiteral("label%1").arg(widget->GetName()).toLatin1();
    label = layout->addLabel(Translate(text), name.constData());
    if (!property("visible").toBool())
        label->hide();
}

void ZorvaDelegate::GetXml(QXmlStreamWriter&) const {}

void ZorvaDelegate::ReadXml(QXmlStreamReader&) {}

values::ValueBase* ZorvaDelegate::GetVTValue() const
{
    return nullptr;
}

void ZorvaDelegate::ParseProperties(QXmlStreamReader& reader, bool custom)
{
    const QScopedValueRollback<int> nested(blockDepth, blockDepth + 1);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            break;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("Property")) {
            if (!ParseProperty(reader, custom))
                break;
        } else if (reader.name() == QLatin1String("CustomProperties")) {
            if (blockDepth < deepestBlock)
                ParseProperties(reader, true);
            else
                reader.skipCurrentElement();
        }
    }
    if (!custom)
        FinishParse();
}

bool ZorvaDelegate::ParseProperty(QXmlStreamReader& reader, bool custom)
{
    // Qt names its properties in bytes; only the own table of the row takes every letter.
    const QByteArray key = reader.attributes().value(QLatin1String("name")).toLatin1();
    const QString customName =
        custom ? reader.attributes().value(QLatin1String("name")).toString() : QString();
    if (!reader.readNextStartElement())
        return false;
    const bool isBool = reader.name() == QLatin1String("Bool");
    const QString text = reader.readElementText();
    const QVariant value = isBool ? QVariant(text == QLatin1String("true")) : QVariant(text);
    if (custom)
        customProperties.insert(customName, value);
    if (!custom || customName == QLatin1String("toolTip"))
        SetParsedProperty(key, value);
    reader.skipCurrentElement();
    return true;
}

void ZorvaDelegate::SetParsedProperty(const QByteArray& key, const QVariant& value)
{
    if (dynamicPropertyNames().count() < mostProperties || property(key.constData()).isValid())
        setProperty(key.constData(), value);
}

void ZorvaDelegate::FinishParse()
{
    generateParameterXml = property("generateParameterXml").toBool();
    SetXmlPath(property("parameterXmlTag").toString());
    const QString mode = property("applyMode").toString();
    if (mode == QLatin1String("ekInstantApplyMode"))
        applyMode = ekInstantApplyMode;
    else if (mode == QLatin1String("ekNormalApplyMode"))
        applyMode = ekNormalApplyMode;
    else
        applyMode = static_cast<eApplyMode>(0);
}

void ZorvaDelegate::EnableInput(bool enable, bool)
{
    QVariant off(false);
    EnableProperty(QStringLiteral("enabled"), enable, &off);
}

void ZorvaDelegate::setApplyMode(eApplyMode mode)
{
    applyMode = mode;
}

void ZorvaDelegate::setEnabled(bool flag)
{
    setProperty("enabled", flag);
}

void ZorvaDelegate::setGenerateParameterXml(bool flag)
{
    setProperty("generateParameterXml", flag);
}

void ZorvaDelegate::setReadOnly(bool flag)
{
    setProperty("readOnly", flag);
}

void ZorvaDelegate::setVisible(bool flag)
{
    setProperty("visible", flag);
}

void ZorvaDelegate::setLabelText(QString text)
{
    ChangeProperty("labelText", text);
}

void ZorvaDelegate::setCustomProperty(QString name, QVariant value)
{
    if (value == customProperty(name))
        return;
    customProperties.insert(name, value);
    Q_EMIT customPropertyChanged(name, value);
}

void ZorvaDelegate::setGroupVisible(bool flag)
{
    if (flag == groupVisible)
        return;
    groupVisible = flag;
    QVariant hidden(false);
    EnableProperty(QStringLiteral("visible"), flag, &hidden);
}

void ZorvaDelegate::setFocus() {}

void ZorvaDelegate::setModified(bool autoApply)
{
    if (!generateParameterXml)
        return;
    modified = true;
    if (ZorvaSheet* const sheet = GetSheet())
        sheet->setModified(autoApply);
}

void ZorvaDelegate::resetModified()
{
    modified = false;
}

void ZorvaDelegate::forceFinishEditing() {}

QVariant ZorvaDelegate::customProperty(QString name)
{
    return customProperties.value(name, QVariant());
}

void ZorvaDelegate::Update(Observable*, TChangeCode) {}

bool ZorvaDelegate::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        const QByteArray key = static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName();
        const PropertyWrite* const write = PropertyWrite::take();
        if (!key.startsWith("_q_"))
            PropertyChanged(QString::fromLatin1(key), write && write->isOf(this, key)
                                                          ? QVariant(write->value())
                                                          : property(key.constData()));
    }
    return QObject::event(event);
}

bool ZorvaDelegate::setProperty(const char* name, const QVariant& value)
{
    const PropertyWrite write(this, name, value);
    return QObject::setProperty(name, value);
}

void ZorvaDelegate::PropertyChanged(const QString& name, const QVariant& value)
{
    if (name == QLatin1String("generateParameterXml")) {
        generateParameterXml = value.toBool();
    } else if (name == QLatin1String("labelText")) {
        if (label)
            label->setText(Translate(value.toString()));
    } else if (name == QLatin1String("visible")) {
        if (label && definedProperties.contains(name))
            label->setVisible(value.toBool());
    }
}

bool ZorvaDelegate::ChangeProperty(const QString& name, QVariant value)
{
    return ChangeProperty(name.toLatin1().constData(), value);
}

bool ZorvaDelegate::ChangeProperty(const char* name, const QVariant& value)
{
    if (value == property(name))
        return false;
    setProperty(name, value);
    return true;
}

void ZorvaDelegate::EnableProperty(const QString& name, bool enable, QVariant* value)
{
    const QByteArray key = name.toLatin1();
    if (enable) {
        heldBackLooks.remove(name);
        DefineProperty(name);
        setProperty(key.constData(), property(key.constData()));
        // An equal value sends no event, and the control must see the real value again.
        QDynamicPropertyChangeEvent change(key);
        QCoreApplication::sendEvent(this, &change);
        return;
    }
    if (!definedProperties.contains(name))
        return;
    const QVariant kept = property(key.constData());
    if (value) {
        heldBackLooks.insert(name, *value);
        setProperty(key.constData(), *value);
    }
    UndefineProperty(name);
    setProperty(key.constData(), kept);
}

void ZorvaDelegate::PushHeldBackProperties()
{
    const QMap<QString, QVariant> looks = heldBackLooks;
    for (auto look = looks.cbegin(); look != looks.cend(); ++look) {
        QVariant shown = look.value();
        EnableProperty(look.key(), true, nullptr);
        EnableProperty(look.key(), false, &shown);
    }
}

void ZorvaDelegate::DefineProperty(const QString& name)
{
    if (!definedProperties.contains(name))
        definedProperties.append(name);
}

void ZorvaDelegate::UndefineProperty(const QString& name)
{
    definedProperties.removeOne(name);
}

void ZorvaDelegate::PropagateProperties(QObject* target)
{
    if (!target)
        return;
    for (const QString& name : qAsConst(definedProperties)) {
        const QByteArray key = name.toLatin1();
        const QVariant value = property(key.constData());
        if (!value.isNull())
            target->setProperty(key.constData(), value);
    }
}

void ZorvaDelegate::PropagateProperty(const QString& name, QObject* target)
{
    if (!target || !definedProperties.contains(name))
        return;
    const QByteArray key = name.toLatin1();
    const QVariant value = property(key.constData());
    if (value.isNull())
        return;
    // The control's own "visible" can be unchanged while its parent has hidden it.
    if (name == QLatin1String("visible") || value != target->property(key.constData()))
        target->setProperty(key.constData(), value);
}

bool ZorvaDelegate::GetBool(const QString& name, bool fallback) const
{
    return GetBool(name.toLatin1().constData(), fallback);
}

bool ZorvaDelegate::GetBool(const char* name, bool fallback) const
{
    const QVariant value = property(name);
    return value.isNull() ? fallback : value.toBool();
}

int ZorvaDelegate::GetInt(const QString& name, int fallback) const
{
    return GetInt(name.toLatin1().constData(), fallback);
}

int ZorvaDelegate::GetInt(const char* name, int fallback) const
{
    const QVariant value = property(name);
    if (isFloating(value))
        return roundedOr<int>(fallback, value.toDouble());
    bool ok = false;
    const int number = value.toInt(&ok);
    return ok ? number : fallback;
}

qint64 ZorvaDelegate::GetInt64(const QString& name, qint64 fallback) const
{
    return GetInt64(name.toLatin1().constData(), fallback);
}

qint64 ZorvaDelegate::GetInt64(const char* name, qint64 fallback) const
{
    const QVariant value = property(name);
    if (isFloating(value))
        return roundedOr<qint64>(fallback, value.toDouble());
    bool ok = false;
    const qint64 number = value.toLongLong(&ok);
    return ok ? number : fallback;
}

quint64 ZorvaDelegate::GetUInt64(const QString& name, quint64 fallback) const
{
    return GetUInt64(name.toLatin1().constData(), fallback);
}

quint64 ZorvaDelegate::GetUInt64(const char* name, quint64 fallback) const
{
    const QVariant value = property(name);
    if (isFloating(value))
        return roundedOr<quint64>(fallback, value.toDouble());
    bool ok = false;
    const quint64 number = value.toULongLong(&ok);
    return ok ? number : fallback;
}

double ZorvaDelegate::GetDouble(const QString& name, double fallback) const
{
    return GetDouble(name.toLatin1().constData(), fallback);
}

double ZorvaDelegate::GetDouble(const char* name, double fallback) const
{
    bool ok = false;
    const double number = property(name).toDouble(&ok);
    return ok ? number : fallback;
}

QString ZorvaDelegate::GetString(const QString& name, QString fallback) const
{
    return GetString(name.toLatin1().constData(), fallback);
}

QString ZorvaDelegate::GetString(const char* name, const QString& fallback) const
{
    const QString text = property(name).toString();
    return text.isEmpty() ? fallback : text;
}

QString ZorvaDelegate::GetTranslated(const QString& name)
{
    return GetTranslated(name.toLatin1().constData());
}

QString ZorvaDelegate::GetTranslated(const char* name)
{
    const QString text = property(name).toString();
    return text.isEmpty() ? QString() : Translate(text);
}

bool ZorvaDelegate::isEnabled()
{
    return property("enabled").toBool();
}

bool ZorvaDelegate::isGroupVisible()
{
    return groupVisible;
}

bool ZorvaDelegate::isModified()
{
    return modified;
}

QVariant ZorvaDelegate::GetListValue(const QList<QVariant>& list, int row, int column, int columnCount)
{
    const qint64 index = qint64(row) * columnCount + column;
    if (row < 0 || column < 0 || index < 0 || index >= list.size())
        return QVariant();
    return list.at(static_cast<int>(index));
}

bool ZorvaDelegate::SetListValue(QList<QVariant>& list, QVariant value, int row, int column, int columnCount)
{
    const qint64 index = qint64(row) * columnCount + column;
    if (row < 0 || column < 0 || index < 0 || index >= list.size())
        return false;
    QVariant& cell = list[static_cast<int>(index)];
    if (value == cell)
        return false;
    cell = value;
    return true;
}

QString ZorvaDelegate::Translate(const QString& text)
{
    return QCoreApplication::translate(objectName().toLatin1().constData(), text.toUtf8().constData(),
                                       nullptr, -1);
}

void ZorvaDelegate::SetXmlPath(const QString& path)
{
    const QString oldTag = xmlTagName;
    xmlPath = path.isEmpty() ? objectName() : path;
    xmlTagName = xmlPath.mid(xmlPath.lastIndexOf(QLatin1Char('/')) + 1);
    if (!path.isEmpty())
        allTags.append(xmlTagName);
    ZorvaSheet* const sheet = GetSheet();
    if (sheet && xmlTagName != oldTag)
        sheet->TagsChanged();
}

const QString& ZorvaDelegate::GetXmlPath() const
{
    return xmlPath;
}

const QString& ZorvaDelegate::GetXmlTagName() const
{
    return xmlTagName;
}

void ZorvaDelegate::AddXmlTag(QString tag)
{
    if (!ContainsXmlTag(tag))
        allTags.append(tag);
}

bool ZorvaDelegate::ContainsXmlTag(QString tag)
{
    return allTags.contains(tag, Qt::CaseInsensitive);
}

const QStringList& ZorvaDelegate::GetAllTags() const
{
    return allTags;
}

bool ZorvaDelegate::HasSeveralXmlTags()
{
    return allTags.count() > 1;
}

void ZorvaDelegate::SetVTPath(const QString& path)
{
    // An empty path counts as one that ends in a slash, and so gives no leading one.
    if (path.isEmpty() || path.endsWith(QLatin1Char('/')))
        vtPath = path + xmlPath;
    else
        vtPath = path % QLatin1Char('/') % xmlPath;
}

const QString& ZorvaDelegate::GetVTPath() const
{
    return vtPath;
}

QString ZorvaDelegate::GetVTName()
{
    const int slash = vtPath.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? vtPath.mid(slash + 1) : QString();
}

QString ZorvaDelegate::GetVTNodePath()
{
    const int slash = vtPath.lastIndexOf(QLatin1Char('/'));
    return slash > 0 ? vtPath.left(slash) : QString();
}

template <typename V>
V* ZorvaDelegate::PrepareValue(V* value)
{
    value->SetTranslationNamespace(objectName().toLatin1(), nullptr);
    return value;
}

template <typename V>
V* ZorvaDelegate::InsertValue(V* value)
{
    if (values::Tree::Instance()->AddValue(GetVTNodePath(), value))
        return value;
    delete value;
    return nullptr;
}

QString ZorvaDelegate::ValueName(int index)
{
    const QString name = GetVTName();
    return index < 0 ? name : name + QLatin1Char('_') + QString::number(index);
}

values::ValueBool* ZorvaDelegate::CreateValueBoolean(const QString& name)
{
    auto* const value = PrepareValue(new values::ValueBool(GetVTName(), ValueState::Normal));
    value->SetValue(property(name.toLatin1().constData()).toBool(), nullptr);
    return InsertValue(value);
}

values::ValueString* ZorvaDelegate::CreateValueString(const QString& name)
{
    auto* const value = PrepareValue(new values::ValueString(GetVTName(), ValueState::Normal));
    value->SetValue(PropertyText(name.toLatin1().constData()), nullptr);
    // A text that finds its place taken lives outside the tree.
    values::Tree::Instance()->AddValue(GetVTNodePath(), value);
    return value;
}

values::NumericDouble* ZorvaDelegate::CreateValueNumericFloat(const QString& name, int index)
{
    auto* const value = PrepareValue(new values::NumericDouble(ValueName(index), ValueState::Normal));
    TakeStandingLimits(value);
    ConfigureValueNumeric(value);
    value->SetValue(GetDouble(name, 0.0), nullptr);
    return InsertValue(value);
}

values::NumericInt* ZorvaDelegate::CreateValueNumericInt(const QString& name, int index)
{
    auto* const value = PrepareValue(new values::NumericInt(ValueName(index), ValueState::Normal));
    TakeStandingLimits(value);
    ConfigureValueNumeric(value);
    value->SetValue(GetInt(name, 0), nullptr);
    return InsertValue(value);
}

values::ValueSelection*
ZorvaDelegate::CreateValueSelection(const QString& name, QExplicitlySharedDataPointer<ZorvaEnum> enumeration)
{
    if (!enumeration)
        return nullptr;
    auto* const value = PrepareValue(new values::ValueSelection(
        GetVTName() + QLatin1Char('_') + enumeration->GetName(), ValueState::Normal));
    value->Reserve(enumeration->GetValueCount());
    for (int i = 0; i < enumeration->GetValueCount(); ++i) {
        const ZorvaEnumValue& entry = enumeration->GetValueAt(i);
        value->AddItem(entry.GetDisplayName(), entry.GetDoubleValue(i), i + 1, nullptr);
    }
    const QString text = property(name.toLatin1().constData()).toString();
    const ZorvaEnumValue& current = enumeration->FindValue(text, nullptr);
    value->SetStringValue(current.GetDisplayName(), this);
    ChangeProperty(name, current.GetValue());
    return InsertValue(value);
}

bool ZorvaDelegate::TakeConverted(const char* name, const char* marker, double& number, double factor,
                                  double offset)
{
    const QVariant last = property(marker);
    if (last.isValid() && isSameNumber(number, last.toDouble()))
        return false;
    number = reverseDisplayTransformation(number, factor, offset);
    // The marker first: writing the property comes back here, and must find nothing to do.
    setProperty(marker, number);
    setProperty(name, number);
    return true;
}

// Limits are converted once a row, but each of its values needs them.
void ZorvaDelegate::TakeStandingLimits(values::IValueNumeric* value)
{
    const QVariant minimum = property("q_internalLastMinimum");
    if (!minimum.isValid())
        return;
    value->SetMin(minimum.toDouble(), this);
    value->SetMax(property("q_internalLastMaximum").toDouble(), this);
    value->SetStep(property("q_internalLastSingleStep").toDouble(), this);
}

void ZorvaDelegate::ConfigureValueNumeric(values::IValueNumeric* value)
{
    if (!value)
        return;
    double step = GetDouble("singleStep", 1.0);
    double minimum = GetDouble("minimum", noMinimum);
    double maximum = GetDouble("maximum", noMaximum);
    const double factor = GetDouble("displayScalingFactor", 1.0);
    const double offset = GetDouble("displayAdditiveOffset", 0.0);
    if (TakeConverted("minimum", "q_internalLastMinimum", minimum, factor, offset))
        value->SetMin(minimum, this);
    if (TakeConverted("maximum", "q_internalLastMaximum", maximum, factor, offset))
        value->SetMax(maximum, this);
    if (TakeConverted("singleStep", "q_internalLastSingleStep", step, factor, 0.0))
        value->SetStep(step, this);
}

void ZorvaDelegate::WriteUnitAttribute(QXmlStreamWriter& writer) const
{
    const QString unit = property("unit").toString();
    if (!unit.isEmpty())
        writer.writeAttribute(QStringLiteral("unit"), unit);
}

double ZorvaDelegate::displayTransformation(double value, double factor, double offset)
{
    return value * factor + offset;
}

double ZorvaDelegate::displayTransformation(double value) const
{
    return displayTransformation(value, GetDouble("displayScalingFactor", 1.0),
                                 GetDouble("displayAdditiveOffset", 0.0));
}

double ZorvaDelegate::reverseDisplayTransformation(double value, double factor, double offset)
{
    return (value - offset) / factor;
}

double ZorvaDelegate::reverseDisplayTransformation(double value) const
{
    return reverseDisplayTransformation(value, GetDouble("displayScalingFactor", 1.0),
                                        GetDouble("displayAdditiveOffset", 0.0));
}

QString ZorvaDelegate::formatString(double value, int decimals, QString suffix)
{
    QString text = QString::number(value, 'f', qMin(decimals, lastDecimal));
    bool trimming = decimals > 0;
    while (trimming && !text.isEmpty()) {
        const QChar last = text.at(text.size() - 1);
        if (last.isDigit() && last != QLatin1Char('0'))
            break;
        trimming = last.isDigit();
        text.chop(1);
    }
    return text + suffix;
}

void ZorvaDelegate::SetRangeTooltip(QWidget* control, const QString& lowest, const QString& highest)
{
    QString text = QStringLiteral("<html>") + GetTranslated("labelText");
    if (!lowest.isEmpty() || !highest.isEmpty())
        text += QStringLiteral("<br>") + lowest + QStringLiteral("...") + highest;
    control->setToolTip(text);
}

void ZorvaDelegate::SetDoubleTooltip(QWidget* control)
{
    if (!control)
        return;
    const double scale = GetDouble("unitScale", 1.0);
    const double lowest = displayTransformation(GetDouble("minimum", noMinimum)) / scale;
    const double highest = displayTransformation(GetDouble("maximum", noMaximum)) / scale;
    const int decimals = qMin(property("decimals").toInt(), lastDecimal);
    SetRangeTooltip(control, lowest > noMinimum ? boundText(lowest, decimals) : QString(),
                    highest < noMaximum ? boundText(highest, decimals) : QString());
}

void ZorvaDelegate::SetIntTooltip(QWidget* control)
{
    if (!control)
        return;
    constexpr int none = std::numeric_limits<int>::min();
    constexpr int noEnd = std::numeric_limits<int>::max();
    const double scale = GetDouble("unitScale", 1.0);
    const int lowest = truncatedTo<int>(displayTransformation(GetInt("minimum", none)) / scale);
    const int highest = truncatedTo<int>(displayTransformation(GetInt("maximum", noEnd)) / scale);
    SetRangeTooltip(control, lowest > none ? QString::number(lowest, 10) : QString(),
                    highest < noEnd ? QString::number(highest, 10) : QString());
}

void ZorvaDelegate::SetInt64Tooltip(QWidget* control)
{
    if (!control)
        return;
    constexpr qint64 none = std::numeric_limits<qint64>::min();
    constexpr qint64 noEnd = std::numeric_limits<qint64>::max();
    const double scale = GetDouble("unitScale", 1.0);
    const double low = static_cast<double>(GetInt64("minimum", none));
    const double high = static_cast<double>(GetInt64("maximum", noEnd));
    const qint64 lowest = truncatedTo<qint64>(displayTransformation(low) / scale);
    // Without a maximum the number is just out of range, and shows as the lowest one.
    const qint64 highest = truncatedTo<qint64>(displayTransformation(high) / scale);
    SetRangeTooltip(control, lowest > none ? QString::number(lowest, 10) : QString(),
                    highest < noEnd ? QString::number(highest, 10) : QString());
}

bool ZorvaDelegate::ResizeList(QList<QVariant>& list, int rows, int columns, int oldColumns)
{
    if (rows < 0 || columns < 0 || oldColumns < 0)
        return false;
    const qint64 size = qint64(rows) * columns;
    if (size == list.size() || size > mostCells)
        return false;
    if (columns == oldColumns) {
        // Every cell keeps its place; growing a list by one at a time stays cheap.
        list.erase(list.begin() + static_cast<int>(qMin<qint64>(size, list.size())), list.end());
        while (list.size() < size)
            list.append(QVariant());
        return true;
    }
    const QList<QVariant> old = list;
    list.clear();
    list.reserve(static_cast<int>(size));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            list.append(GetListValue(old, row, column, oldColumns));
    }
    return true;
}

bool ZorvaDelegate::MarkModified()
{
    const QPointer<ZorvaDelegate> alive(this);
    setModified(true);
    return alive;
}

void ZorvaDelegate::PlaceControl(FloatGroupLayout* layout, QWidget* control)
{
    layout->addWidget(control);
    layout->addGroup();
}

QString ZorvaDelegate::FallbackToolTip() const
{
    return label ? label->text() : widget->GetXmlTagName();
}

void ZorvaDelegate::FocusControl(QWidget* control)
{
    if (control)
        control->setFocus(Qt::OtherFocusReason);
}

void ZorvaDelegate::WriteTextElement(QXmlStreamWriter& writer, const QString& text, bool withUnit) const
{
    writer.writeStartElement(GetXmlTagName());
    if (withUnit)
        WriteUnitAttribute(writer);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

QString ZorvaDelegate::VariantText(const QVariant& value)
{
    if (isFloating(value)) {
        const double number = value.toDouble();
        if (std::abs(number) < 1e17 && number == std::trunc(number))
            return QString::number(number, 'f', 0);
    }
    return value.toString();
}

QString ZorvaDelegate::PropertyText(const char* name) const
{
    return VariantText(property(name));
}

QByteArray ZorvaDelegate::ControlName() const
{
    return widget->GetName().toLatin1();
}

ZorvaSheet* ZorvaDelegate::GetSheet() const
{
    return widget ? widget->GetSheet() : nullptr;
}

ZorvaFormular* ZorvaDelegate::GetFormular() const
{
    return widget ? widget->GetFormular() : nullptr;
}

} // namespace Orvane
