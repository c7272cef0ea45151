#include "formgenerator.h"

#include <QXmlStreamWriter>

#include <algorithm>

namespace {

// One headline opens each twenty rows: C choice, S spin, K check, L line, B label, H hidden.
constexpr char cycle[] = "XCSKCLSCKSBCSLCKSCLH";
constexpr int cycleLength = 20;
constexpr int choicesPerEnum = 10;

QString number(int index)
{
    return QStringLiteral("%1").arg(index, 5, 10, QLatin1Char('0'));
}

RowKind kindOf(int index)
{
    constexpr RowKind spins[] = {RowKind::Decimal, RowKind::Whole, RowKind::Wide};
    switch (cycle[index % cycleLength]) {
    case 'X':
        return RowKind::Headline;
    case 'C':
        return RowKind::Choice;
    case 'S':
        return spins[index % 3];
    case 'K':
        return RowKind::Flag;
    case 'L':
        return RowKind::Text;
    case 'B':
        return RowKind::Label;
    default:
        return RowKind::Hidden;
    }
}

const char* className(RowKind kind)
{
    switch (kind) {
    case RowKind::Headline:
        return "Headline";
    case RowKind::Choice:
        return "ComboBox";
    case RowKind::Decimal:
        return "DoubleSpinBox";
    case RowKind::Whole:
        return "SpinBox";
    case RowKind::Wide:
        return "BandwidthEdit";
    case RowKind::Flag:
        return "CheckBox";
    case RowKind::Text:
        return "LineEdit";
    case RowKind::Hidden:
        return "HiddenParameter";
    case RowKind::Label:
        break;
    }
    return "Label";
}

QString pathOf(int index, Grouping grouping)
{
    const QString tag = QStringLiteral("Par") + number(index);
    if (grouping == Grouping::Flat)
        return QStringLiteral("All/") + tag;
    if (grouping == Grouping::PerRow)
        return QStringLiteral("G%1/").arg(number(index)) + tag;
    const QString group = QStringLiteral("Group") + number(index / cycleLength);
    return group + (index % cycleLength < 10 ? QStringLiteral("/") : QStringLiteral("/Detail/")) + tag;
}

void setValues(RowPlan& row, int index)
{
    switch (row.kind) {
    case RowKind::Choice:
        row.value = QString::number(index % FormGenerator::choiceCount);
        row.newValue = QString::number((index + 3) % FormGenerator::choiceCount);
        break;
    case RowKind::Decimal:
        row.value = QString::number(index % 500 + 0.25, 'f', 2);
        row.newValue = QString::number(index % 500 + 1.75, 'f', 2);
        break;
    case RowKind::Whole:
    case RowKind::Wide:
        row.value = QString::number(index % 500);
        row.newValue = QString::number(index % 500 + 7);
        break;
    case RowKind::Flag:
        row.value = index % 2 ? QStringLiteral("true") : QStringLiteral("false");
        row.newValue = index % 2 ? QStringLiteral("false") : QStringLiteral("true");
        break;
    default:
        row.value = QStringLiteral("Text %1").arg(index);
        row.newValue = QStringLiteral("Other %1").arg(index);
        break;
    }
}

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

class PropertyWriter
{
public:
    explicit PropertyWriter(QXmlStreamWriter& writer)
        : m_writer(writer)
    {
    }

    void text(const char* name, const QString& value) { write(name, "String", value); }
    void flag(const char* name, bool value) { write(name, "Bool", latin(value ? "true" : "false")); }
    void number(const char* name, const QString& value) { write(name, "Double", value); }

private:
    void write(const char* name, const char* type, const QString& value)
    {
        m_writer.writeStartElement(QStringLiteral("Property"));
        m_writer.writeAttribute(QStringLiteral("name"), latin(name));
        m_writer.writeTextElement(latin(type), value);
        m_writer.writeEndElement();
    }

    QXmlStreamWriter& m_writer;
};

void writeLimits(PropertyWriter& property, bool limits)
{
    if (limits) {
        property.number("minimum", latin("0"));
        property.number("maximum", latin("1000"));
    }
    property.number("singleStep", latin("1"));
}

void writeSpecial(PropertyWriter& property, const RowPlan& row, bool limits)
{
    switch (row.kind) {
    case RowKind::Headline:
        property.text("text", row.label);
        property.number("margin", latin("6"));
        break;
    case RowKind::Choice:
        property.text("enumName", row.enumName);
        property.text("currentValue", row.value);
        break;
    case RowKind::Decimal:
        writeLimits(property, limits);
        property.number("decimals", latin("2"));
        property.number("value", row.value);
        break;
    case RowKind::Whole:
    case RowKind::Wide:
        writeLimits(property, limits);
        property.number("value", row.value);
        break;
    case RowKind::Flag:
        property.flag("checked", row.value == QLatin1String("true"));
        break;
    case RowKind::Text:
        property.text("text", row.value);
        property.number("maxLength", latin("64"));
        break;
    case RowKind::Hidden:
        property.text("value", row.value);
        break;
    case RowKind::Label:
        property.text("text", row.value);
        break;
    }
}

void writeRow(QXmlStreamWriter& writer, const RowPlan& row, bool limits)
{
    writer.writeStartElement(QStringLiteral("Widget"));
    writer.writeAttribute(QStringLiteral("name"), row.name);
    writer.writeAttribute(QStringLiteral("class"), latin(className(row.kind)));
    PropertyWriter property(writer);
    property.flag("visible", true);
    property.flag("enabled", true);
    property.flag("generateParameterXml", row.hasParameter());
    if (row.kind != RowKind::Headline) {
        property.text("parameterXmlTag", row.path);
        property.text("labelText", row.label);
    }
    property.text("toolTip", QStringLiteral("Tip of ") + row.label);
    if (!row.isSpin()) {
        property.text("applyMode", latin("ekInstantApplyMode"));
        property.flag("readOnly", false);
    } else {
        property.text("suffix", latin(" dB"));
    }
    writeSpecial(property, row, limits);
    writer.writeEndElement();
}

void writeEnum(QXmlStreamWriter& writer, const QString& name, const QString& mark)
{
    writer.writeStartElement(QStringLiteral("Enum"));
    writer.writeAttribute(QStringLiteral("name"), name);
    for (int i = 0; i < FormGenerator::choiceCount; ++i) {
        writer.writeStartElement(QStringLiteral("EnumValue"));
        writer.writeTextElement(QStringLiteral("DisplayName"), FormGenerator::choiceName(i) + mark);
        writer.writeTextElement(QStringLiteral("EnumIdentifier"), name.toUpper() + QString::number(i));
        writer.writeTextElement(QStringLiteral("Value"), QString::number(i));
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void writeEnums(QXmlStreamWriter& writer, const QStringList& names, const QString& mark)
{
    writer.writeStartElement(QStringLiteral("Enums"));
    for (const QString& name : names)
        writeEnum(writer, name, mark);
    writer.writeEndElement();
}

void writeScript(QXmlStreamWriter& writer)
{
    writer.writeStartElement(QStringLiteral("Script"));
    writer.writeAttribute(QStringLiteral("language"), QStringLiteral("qtscript"));
    writer.writeCharacters(QStringLiteral("function twice(x) { return 2 * x; }\nvar four = twice(2);"));
    writer.writeEndElement();
}

class UiWriter
{
public:
    explicit UiWriter(QXmlStreamWriter& writer)
        : m_writer(writer)
    {
    }

    void open(const char* qtClass, const QString& name)
    {
        m_writer.writeStartElement(latin("widget"));
        m_writer.writeAttribute(latin("class"), latin(qtClass));
        m_writer.writeAttribute(latin("name"), name);
    }
    void close() { m_writer.writeEndElement(); }
    void property(const char* name, const char* type, const QString& value)
    {
        m_writer.writeStartElement(latin("property"));
        m_writer.writeAttribute(latin("name"), latin(name));
        m_writer.writeTextElement(latin(type), value);
        m_writer.writeEndElement();
    }
    void openItem(int row, int column, int span)
    {
        m_writer.writeStartElement(latin("item"));
        m_writer.writeAttribute(latin("row"), QString::number(row));
        m_writer.writeAttribute(latin("column"), QString::number(column));
        if (span > 1)
            m_writer.writeAttribute(latin("colspan"), QString::number(span));
    }
    void choices()
    {
        for (int i = 0; i < FormGenerator::choiceCount; ++i) {
            m_writer.writeStartElement(latin("item"));
            property("text", "string", FormGenerator::choiceName(i));
            m_writer.writeEndElement();
        }
    }
    void limits()
    {
        property("minimum", "double", latin("0"));
        property("maximum", "double", latin("1000"));
        property("suffix", "string", latin(" dB"));
    }

private:
    QXmlStreamWriter& m_writer;
};

void writeUiControl(UiWriter& ui, const RowPlan& row)
{
    switch (row.kind) {
    case RowKind::Choice:
        ui.open("QComboBox", row.name);
        ui.choices();
        ui.property("currentIndex", "number", row.value);
        break;
    case RowKind::Decimal:
    case RowKind::Whole:
    case RowKind::Wide:
        ui.open("QDoubleSpinBox", row.name);
        ui.limits();
        ui.property("decimals", "number", latin(row.kind == RowKind::Decimal ? "2" : "0"));
        ui.property("value", "double", row.value);
        break;
    case RowKind::Flag:
        ui.open("QCheckBox", row.name);
        ui.property("checked", "bool", row.value);
        break;
    case RowKind::Text:
        ui.open("QLineEdit", row.name);
        ui.property("text", "string", row.value);
        ui.property("maxLength", "number", latin("64"));
        break;
    default:
        ui.open("QLabel", row.name);
        ui.property("text", "string", row.value);
        break;
    }
    ui.property("enabled", "bool", latin("true"));
    ui.property("toolTip", "string", QStringLiteral("Tip of ") + row.label);
    ui.close();
}

void writeUiRow(QXmlStreamWriter& writer, UiWriter& ui, const RowPlan& row, int line)
{
    if (row.kind == RowKind::Hidden)
        return;
    if (row.kind == RowKind::Headline) {
        ui.openItem(line, 0, 2);
        ui.open("QGroupBox", row.name);
        ui.property("title", "string", row.label);
        ui.property("flat", "bool", latin("true"));
        ui.property("checkable", "bool", latin("true"));
        ui.close();
        writer.writeEndElement();
        return;
    }
    ui.openItem(line, 0, 1);
    ui.open("QLabel", QStringLiteral("label") + row.name);
    ui.property("text", "string", row.label);
    ui.close();
    writer.writeEndElement();
    ui.openItem(line, 1, 1);
    writeUiControl(ui, row);
    writer.writeEndElement();
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString qmlControl(const RowPlan& row, const QString& model)
{
    switch (row.kind) {
    case RowKind::Choice:
        return QStringLiteral("ComboBox { model: %1; currentIndex: %2").arg(model, row.value);
    case RowKind::Decimal:
    case RowKind::Whole:
    case RowKind::Wide:
        // Its spin boxes know whole numbers only.
        return QStringLiteral("SpinBox { from: 0; to: 1000; editable: true; value: %1")
            .arg(row.value.section(QLatin1Char('.'), 0, 0));
    case RowKind::Flag:
        return QStringLiteral("CheckBox { checked: %1").arg(row.value);
    case RowKind::Text:
        return QStringLiteral("TextField { maximumLength: 64; text: %1").arg(quoted(row.value));
    default:
        return QStringLiteral("Label { text: %1").arg(quoted(row.value));
    }
}

QString qmlRow(const RowPlan& row, const QString& model)
{
    if (row.kind == RowKind::Hidden)
        return QString();
    if (row.kind == RowKind::Headline)
        return QStringLiteral("CheckBox { Layout.columnSpan: 2; checked: true; text: %1 }\n")
            .arg(quoted(row.label));
    return QStringLiteral("Label { text: %1 } %2; enabled: true; ToolTip.text: %3 }\n")
        .arg(quoted(row.label), qmlControl(row, model), quoted(QStringLiteral("Tip of ") + row.label));
}

} // namespace

FormGenerator::FormGenerator(int rows, Grouping grouping)
{
    m_rows.reserve(rows);
    for (int i = 0; i < rows; ++i)
        addRow(i, grouping);
}

void FormGenerator::addRow(int index, Grouping grouping)
{
    RowPlan row;
    row.kind = kindOf(index);
    row.name = QStringLiteral("Row") + number(index);
    row.label = QStringLiteral("Parameter ") + number(index);
    if (row.kind != RowKind::Headline && row.kind != RowKind::Label)
        row.path = pathOf(index, grouping);
    if (row.kind == RowKind::Choice) {
        if (m_choiceRows++ % choicesPerEnum == 0)
            m_enums.append(QStringLiteral("Enum") + number(m_enums.size()));
        row.enumName = m_enums.last();
    }
    setValues(row, index);
    m_rows.append(row);
}

void FormGenerator::setOnlySpins()
{
    const auto isOther = [](const RowPlan& row) { return !row.isSpin(); };
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(), isOther), m_rows.end());
}

QString FormGenerator::choiceName(int index)
{
    return QStringLiteral("Choice number %1").arg(index);
}

QString FormGenerator::description() const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(2);
    writer.writeStartElement(QStringLiteral("KVParamGui"));
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    writeEnums(writer, m_enums, QString());
    if (m_script)
        writeScript(writer);
    writer.writeStartElement(QStringLiteral("Sheet"));
    writer.writeAttribute(QStringLiteral("name"), QStringLiteral("sheet"));
    for (const RowPlan& row : m_rows)
        writeRow(writer, row, m_limits);
    writer.writeEndElement();
    writer.writeEndElement();
    return text;
}

QString FormGenerator::parameters(bool changed) const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setCodec("UTF-8");
    writer.writeStartElement(QStringLiteral("Parameters"));
    QStringList open;
    for (const RowPlan& row : m_rows) {
        if (!row.hasParameter())
            continue;
        QStringList groups = row.path.split(QLatin1Char('/'));
        const QString tag = groups.takeLast();
        int same = 0;
        while (same < qMin(open.size(), groups.size()) && open.at(same) == groups.at(same))
            ++same;
        for (; open.size() > same; open.removeLast())
            writer.writeEndElement();
        for (int i = same; i < groups.size(); ++i) {
            writer.writeStartElement(groups.at(i));
            open.append(groups.at(i));
        }
        writer.writeTextElement(tag, changed ? row.newValue : row.value);
    }
    writer.writeEndDocument();
    return text.mid(text.indexOf(QLatin1Char('<'))).trimmed();
}

QString FormGenerator::overlay(const QString& mark) const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(2);
    writer.writeStartElement(QStringLiteral("KVParamGui"));
    writeEnums(writer, m_enums, mark);
    writer.writeStartElement(QStringLiteral("Sheet"));
    for (const RowPlan& row : m_rows) {
        writer.writeStartElement(QStringLiteral("Widget"));
        writer.writeAttribute(QStringLiteral("name"), row.name);
        PropertyWriter(writer).text("toolTip", QStringLiteral("Tip ") + mark);
        writer.writeEndElement();
    }
    writer.writeEndElement();
    writer.writeEndElement();
    return text;
}

QString FormGenerator::qmlForm() const
{
    QStringList choices;
    for (int i = 0; i < choiceCount; ++i)
        choices.append(quoted(choiceName(i)));
    const QString model = QLatin1Char('[') + choices.join(QLatin1String(", ")) + QLatin1Char(']');
    QString text =
        QStringLiteral("import QtQuick 2.15\nimport QtQuick.Controls 2.15\nimport QtQuick.Layouts 1.15\n"
                       "ScrollView { clip: true; GridLayout { columns: 2\n");
    for (const RowPlan& row : m_rows)
        text += qmlRow(row, model);
    return text + QStringLiteral("} }\n");
}

QString FormGenerator::uiForm() const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(1);
    writer.writeStartDocument();
    writer.writeStartElement(latin("ui"));
    writer.writeAttribute(latin("version"), latin("4.0"));
    writer.writeTextElement(latin("class"), latin("Form"));
    UiWriter ui(writer);
    ui.open("QScrollArea", latin("area"));
    ui.property("widgetResizable", "bool", latin("true"));
    ui.open("QWidget", latin("content"));
    writer.writeStartElement(latin("layout"));
    writer.writeAttribute(latin("class"), latin("QFormLayout"));
    writer.writeAttribute(latin("name"), latin("formLayout"));
    for (int i = 0; i < m_rows.size(); ++i)
        writeUiRow(writer, ui, m_rows.at(i), i);
    writer.writeEndDocument();
    return text;
}
