#include "floorform.h"

#include <QDynamicPropertyChangeEvent>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>

namespace {

RowKind kindOfClass(const QString& className)
{
    static const QHash<QString, RowKind> kinds{
        {QStringLiteral("Headline"), RowKind::Headline},
        {QStringLiteral("ComboBox"), RowKind::Choice},
        {QStringLiteral("DoubleSpinBox"), RowKind::Decimal},
        {QStringLiteral("SpinBox"), RowKind::Whole},
        {QStringLiteral("BandwidthEdit"), RowKind::Wide},
        {QStringLiteral("CheckBox"), RowKind::Flag},
        {QStringLiteral("LineEdit"), RowKind::Text},
        {QStringLiteral("HiddenParameter"), RowKind::Hidden},
    };
    return kinds.value(className, RowKind::Label);
}

FloorValue::Type valueType(RowKind kind)
{
    switch (kind) {
    case RowKind::Choice:
        return FloorValue::Choice;
    case RowKind::Flag:
        return FloorValue::Flag;
    case RowKind::Text:
    case RowKind::Hidden:
        return FloorValue::Text;
    default:
        return FloorValue::Number;
    }
}

} // namespace

void FloorValue::tell(const Listener* from)
{
    for (Listener* listener : listeners) {
        if (listener != from)
            listener->noticed(this);
    }
}

void FloorValue::setText(const QString& newText, const Listener* from)
{
    if (newText == text)
        return;
    text = newText;
    tell(from);
}

void FloorValue::setNumber(double newNumber, const Listener* from)
{
    const double bounded = qBound(minimum, newNumber, maximum);
    if (bounded == number)
        return;
    number = bounded;
    tell(from);
}

void FloorValue::select(int index, const Listener* from)
{
    if (index == current)
        return;
    current = index;
    tell(from);
}

QString FloorValue::shownText() const
{
    switch (type) {
    case Text:
        return text;
    case Choice:
        return current < 0 ? QString() : items[std::size_t(current)].name;
    case Flag:
        return number != 0.0 ? QStringLiteral("true") : QStringLiteral("false");
    case Number:
        break;
    }
    return QString::number(number);
}

FloorRow::FloorRow(const QString& rowName, const QString& rowClass)
    : className(rowClass)
    , kind(kindOfClass(rowClass))
{
    setObjectName(rowName);
}

const char* FloorRow::contentName() const
{
    switch (kind) {
    case RowKind::Choice:
        return "currentValue";
    case RowKind::Flag:
        return "checked";
    case RowKind::Text:
        return "text";
    default:
        return "value";
    }
}

bool FloorRow::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange && value) {
        const QByteArray key = static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName();
        if (key == contentName())
            contentChanged(property(key.constData()));
        else if (value->type == FloorValue::Number &&
                 (key == "minimum" || key == "maximum" || key == "singleStep"))
            configure();
    }
    return QObject::event(event);
}

void FloorRow::contentChanged(const QVariant& content)
{
    switch (value->type) {
    case FloorValue::Text:
        value->setText(content.toString(), this);
        break;
    case FloorValue::Flag:
        value->setNumber(content.toBool() ? 1.0 : 0.0, this);
        break;
    case FloorValue::Number:
        value->setNumber(content.toDouble(), this);
        break;
    case FloorValue::Choice: {
        const QString text = content.toString();
        for (int i = 0; i < enumeration->size(); ++i) {
            if (enumeration->at(i).value == text) {
                value->select(i, this);
                break;
            }
        }
        break;
    }
    }
}

void FloorRow::noticed(FloorValue* changed)
{
    lastText = changed->shownText();
}

double FloorRow::numberProperty(const char* name, double fallback) const
{
    bool ok = false;
    const double number = property(name).toDouble(&ok);
    return ok ? number : fallback;
}

bool FloorRow::takeConverted(const char* name, const char* marker, double& number, double factor,
                             double offset)
{
    const QVariant last = property(marker);
    if (last.isValid() && last.toDouble() == number)
        return false;
    number = (number - offset) / factor;
    setProperty(marker, number);
    setProperty(name, number);
    return true;
}

void FloorRow::configure()
{
    double step = numberProperty("singleStep", 1.0);
    double minimum = numberProperty("minimum", -1e308);
    double maximum = numberProperty("maximum", 1e308);
    const double factor = numberProperty("displayScalingFactor", 1.0);
    const double offset = numberProperty("displayAdditiveOffset", 0.0);
    if (takeConverted("minimum", "q_lastMinimum", minimum, factor, offset))
        value->minimum = minimum;
    if (takeConverted("maximum", "q_lastMaximum", maximum, factor, offset))
        value->maximum = maximum;
    if (takeConverted("singleStep", "q_lastStep", step, factor, 0.0))
        value->step = step;
}

int FloorValue::takeItems(const FloorEnum& entries, const QString& wanted)
{
    int found = 0;
    items.clear();
    items.reserve(std::size_t(entries.size()));
    for (int i = 0; i < entries.size(); ++i) {
        bool ok = false;
        const double value = entries.at(i).value.toDouble(&ok);
        items.push_back({entries.at(i).displayName, ok ? value : i, i + 1});
        if (entries.at(i).value == wanted)
            found = i;
    }
    return found;
}

void FloorRow::createChoice(const FloorEnum& entries)
{
    value->select(value->takeItems(entries, property("currentValue").toString()), this);
}

void FloorRow::createValue(const QHash<QString, FloorEnum>& enums, QHash<QString, FloorValue*>& tree)
{
    if (!hasParameter)
        return;
    value = std::make_unique<FloorValue>(valueType(kind), tag);
    value->addListener(this);
    if (value->type == FloorValue::Number) {
        configure();
        value->setNumber(numberProperty("value", 0.0), nullptr);
    } else if (value->type == FloorValue::Choice) {
        enumeration = &*enums.constFind(property("enumName").toString());
        createChoice(*enumeration);
    } else if (value->type == FloorValue::Flag) {
        value->setNumber(property("checked").toBool() ? 1.0 : 0.0, nullptr);
    } else {
        value->setText(property(contentName()).toString(), nullptr);
    }
    if (!tree.contains(path))
        tree.insert(path, value.get());
}

void FloorRow::write(QXmlStreamWriter& writer) const
{
    writer.writeStartElement(tag);
    const QString unit = property("unit").toString();
    if (!unit.isEmpty())
        writer.writeAttribute(QStringLiteral("unit"), unit);
    switch (kind) {
    case RowKind::Flag:
        writer.writeCharacters(property("checked").toBool() ? QStringLiteral("true")
                                                            : QStringLiteral("false"));
        break;
    case RowKind::Decimal:
        writer.writeCharacters(
            QString::number(property("value").toDouble(), 'f', property("decimals").toInt()));
        break;
    default:
        writer.writeCharacters(property(contentName()).toString());
        break;
    }
    writer.writeEndElement();
}

void FloorRow::readText(const QString& text)
{
    switch (kind) {
    case RowKind::Flag:
        setProperty("checked", text == QLatin1String("true"));
        break;
    case RowKind::Decimal:
        setProperty("value", text.toDouble());
        break;
    case RowKind::Whole:
        setProperty("value", text.toInt());
        break;
    case RowKind::Wide:
        setProperty("value", text.toLongLong());
        break;
    default:
        setProperty(contentName(), text);
        break;
    }
}

FloorForm::FloorForm()
    : m_engine(std::make_unique<QScriptEngine>())
{
}

void FloorForm::parse(const QString& description)
{
    QXmlStreamReader reader(description);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("Widget"))
            parseRow(reader, true);
        else if (reader.name() == QLatin1String("Enum"))
            parseEnum(reader);
        else if (reader.name() == QLatin1String("Script"))
            m_script = reader.readElementText();
    }
}

void FloorForm::parseEnum(QXmlStreamReader& reader)
{
    FloorEnum& entries = m_enums[reader.attributes().value(QLatin1String("name")).toString()];
    entries.clear();
    while (reader.readNextStartElement()) {
        FloorEnumEntry entry;
        while (reader.readNextStartElement()) {
            if (reader.name() == QLatin1String("DisplayName"))
                entry.displayName = reader.readElementText();
            else if (reader.name() == QLatin1String("EnumIdentifier"))
                entry.identifier = reader.readElementText();
            else
                entry.value = reader.readElementText();
        }
        entries.append(entry);
    }
}

void FloorForm::parseRow(QXmlStreamReader& reader, bool isNew)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    const QString name = attributes.value(QLatin1String("name")).toString();
    FloorRow* row = nullptr;
    if (isNew) {
        const QString className = attributes.value(QLatin1String("class")).toString();
        m_rows.push_back(std::make_unique<FloorRow>(name, className));
        row = m_rows.back().get();
        m_engine->globalObject().setProperty(name, m_engine->newQObject(row, QScriptEngine::QtOwnership));
    } else {
        row = m_rowByName.value(name);
    }
    while (reader.readNextStartElement()) {
        const QString key = reader.attributes().value(QLatin1String("name")).toString();
        reader.readNextStartElement();
        const bool isBool = reader.name() == QLatin1String("Bool");
        const QString text = reader.readElementText();
        row->setProperty(key.toLatin1().constData(),
                         isBool ? QVariant(text == QLatin1String("true")) : QVariant(text));
        reader.skipCurrentElement();
    }
    if (!isNew)
        return;
    row->hasParameter = row->property("generateParameterXml").toBool();
    row->path = row->property("parameterXmlTag").toString();
    row->tag = row->path.mid(row->path.lastIndexOf(QLatin1Char('/')) + 1);
}

void FloorForm::buildElements()
{
    for (const auto& row : m_rows) {
        m_rowByName.insert(row->objectName(), row.get());
        if (!row->hasParameter)
            continue;
        FloorElement* group = &m_root;
        for (const QString& part : row->path.split(QLatin1Char('/'))) {
            FloorElement*& child = group->byTag[part];
            if (!child) {
                group->children.push_back(std::make_unique<FloorElement>());
                child = group->children.back().get();
                child->tag = part;
            }
            group = child;
        }
        group->row = row.get();
        group->text = row->property(row->kind == RowKind::Choice ? "currentValue"
                                    : row->kind == RowKind::Flag ? "checked"
                                    : row->kind == RowKind::Text ? "text"
                                                                 : "value")
                          .toString();
    }
}

void FloorForm::createValues()
{
    for (const auto& row : m_rows)
        row->createValue(m_enums, m_tree);
}

template <typename Leaf>
QString FloorForm::write(Leaf&& leaf) const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setCodec("UTF-8");
    writer.writeStartElement(QStringLiteral("Parameters"));
    const auto writeBelow = [&](const FloorElement& group, auto&& self) -> void {
        for (const auto& child : group.children) {
            if (child->row) {
                leaf(writer, *child);
            } else {
                writer.writeStartElement(child->tag);
                self(*child, self);
                writer.writeEndElement();
            }
        }
    };
    writeBelow(m_root, writeBelow);
    writer.writeEndElement();
    return text;
}

QString FloorForm::writeReady() const
{
    return write([](QXmlStreamWriter& writer, const FloorElement& element) {
        writer.writeTextElement(element.tag, element.text);
    });
}

QString FloorForm::writeProperties() const
{
    return write([](QXmlStreamWriter& writer, const FloorElement& element) { element.row->write(writer); });
}

template <typename Leaf>
void FloorForm::read(const QString& parameters, Leaf&& leaf)
{
    QXmlStreamReader reader(parameters);
    reader.readNextStartElement();
    std::vector<const FloorElement*> open{&m_root};
    while (!open.empty() && !reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement) {
            open.pop_back();
        } else if (token == QXmlStreamReader::StartElement) {
            const FloorElement* const element = open.back()->byTag.value(reader.name().toString());
            if (!element)
                reader.skipCurrentElement();
            else if (element->row)
                leaf(*element->row, reader.readElementText());
            else
                open.push_back(element);
        }
    }
}

void FloorForm::readTexts(const QString& parameters)
{
    read(parameters, [](FloorRow& row, const QString& text) { row.lastText = text; });
}

void FloorForm::readProperties(const QString& parameters)
{
    read(parameters, [](FloorRow& row, const QString& text) { row.readText(text); });
}

void FloorForm::applyOverlay(const QString& overlay)
{
    QXmlStreamReader reader(overlay);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("Widget"))
            parseRow(reader, false);
        else if (reader.name() == QLatin1String("Enum"))
            parseEnum(reader);
    }
    for (const auto& row : m_rows) {
        if (!row->value || row->value->type != FloorValue::Choice)
            continue;
        for (int i = 0; i < row->enumeration->size(); ++i)
            row->value->items[std::size_t(i)].name = row->enumeration->at(i).displayName;
    }
}

void FloorForm::refill(const QString& enumName, const QStringList& names)
{
    FloorEnum& entries = m_enums[enumName];
    entries.clear();
    entries.reserve(names.size());
    for (int i = 0; i < names.size(); ++i) {
        const QString value = QString::number(i, 'f', 2);
        entries.append({names.at(i), enumName.toUpper() + QLatin1Char('_') + value, value});
    }
    for (const auto& row : m_rows) {
        if (row->value && row->enumeration == &entries) {
            row->value->select(row->value->takeItems(entries, row->property("currentValue").toString()),
                               nullptr);
            return;
        }
    }
}
