#include "formwriter.h"

#include "words.h"

#include <QXmlStreamWriter>

#include <algorithm>

namespace radio {

namespace {

const char* const groups[] = {tuningGroup,   modeGroup,        meterGroup, receiverGroup,
                              audioGroup,    transmitterGroup, toneGroup,  scopeGroup,
                              functionGroup, extraGroup,       radioGroup};

/** A name that the script can use: letters, digits and "_". */
QString identifier(const QString& text)
{
    QString name;
    for (const QChar letter : text) {
        const bool plain = letter.unicode() < 128 && letter.isLetterOrNumber();
        name += plain ? letter : QLatin1Char('_');
    }
    if (text == QLatin1String("-"))
        name = QStringLiteral("MINUS");
    if (text == QLatin1String("+"))
        name = QStringLiteral("PLUS");
    return name;
}

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

/** Writes one description. */
class Writer
{
public:
    Writer(const QString& title, const QList<Parameter>& parameters)
        : m_title(title)
        , m_parameters(parameters)
        , m_writer(&m_xml)
    {
    }

    QString write()
    {
        m_writer.setAutoFormatting(true);
        m_writer.setAutoFormattingIndent(2);
        m_writer.writeStartDocument();
        m_writer.writeComment(QLatin1Char(' ') + QString(m_title).remove(QLatin1String("--")) +
                              QLatin1Char(' '));
        m_writer.writeStartElement(QStringLiteral("KVParamGui"));
        m_writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
        writeEnumerations();
        writeSheet();
        writeScript();
        m_writer.writeEndDocument();
        return m_xml;
    }

private:
    void writeEnumerations();
    void writeSheet();
    void writeGroup(const QString& title);
    void writeRow(const Parameter& parameter);
    void writeLook(const Parameter& parameter);
    void writeRange(const Parameter& parameter, const char* type);
    void writeScript();
    bool has(Call call) const;
    static QString follower(const QString& head, const QStringList& lines, const QString& row);
    void property(const char* name, const char* type, const QString& text);
    static QString enumName(const Parameter& parameter);
    static const char* className(const Parameter& parameter);

    const QString m_title;
    const QList<Parameter>& m_parameters;
    QString m_xml;
    QXmlStreamWriter m_writer;
};

void Writer::property(const char* name, const char* type, const QString& text)
{
    m_writer.writeStartElement(QStringLiteral("Property"));
    m_writer.writeAttribute(QStringLiteral("name"), QLatin1String(name));
    m_writer.writeTextElement(QLatin1String(type), text);
    m_writer.writeEndElement();
}

QString Writer::enumName(const Parameter& parameter)
{
    return QStringLiteral("Choices_") + parameter.rowName();
}

void Writer::writeEnumerations()
{
    m_writer.writeStartElement(QStringLiteral("Enums"));
    for (const Parameter& parameter : m_parameters) {
        if (parameter.look != Look::Choice)
            continue;
        m_writer.writeStartElement(QStringLiteral("Enum"));
        m_writer.writeAttribute(QStringLiteral("name"), enumName(parameter));
        for (const Choice& choice : parameter.choices) {
            m_writer.writeStartElement(QStringLiteral("EnumValue"));
            m_writer.writeTextElement(QStringLiteral("DisplayName"), choice.name);
            m_writer.writeTextElement(QStringLiteral("EnumIdentifier"),
                                      QStringLiteral("IS_") + identifier(choice.value));
            m_writer.writeTextElement(QStringLiteral("Value"), choice.value);
            m_writer.writeEndElement();
        }
        m_writer.writeEndElement();
    }
    m_writer.writeEndElement();
}

void Writer::writeSheet()
{
    m_writer.writeStartElement(QStringLiteral("Sheet"));
    m_writer.writeAttribute(QStringLiteral("name"), QStringLiteral("radio"));
    m_writer.writeStartElement(QStringLiteral("Properties"));
    property("parametersXmlTypeAttribute", "String", QStringLiteral("Radio"));
    property("autoApplyTimeout", "Int", QStringLiteral("500"));
    m_writer.writeEndElement();
    for (const char* title : groups)
        writeGroup(QString::fromLatin1(title));
    m_writer.writeEndElement();
}

void Writer::writeGroup(const QString& title)
{
    const auto belongs = [&](const Parameter& parameter) { return parameter.group == title; };
    if (std::none_of(m_parameters.begin(), m_parameters.end(), belongs))
        return;
    m_writer.writeStartElement(QStringLiteral("Widget"));
    m_writer.writeAttribute(QStringLiteral("name"), QStringLiteral("group_") + identifier(title));
    m_writer.writeAttribute(QStringLiteral("class"), QStringLiteral("Headline"));
    property("text", "String", title);
    property("margin", "Int", QStringLiteral("8"));
    property("enabled", "Bool", QStringLiteral("true"));
    property("visible", "Bool", QStringLiteral("true"));
    m_writer.writeEndElement();
    for (const Parameter& parameter : m_parameters) {
        if (belongs(parameter))
            writeRow(parameter);
    }
}

const char* Writer::className(const Parameter& parameter)
{
    switch (parameter.look) {
    case Look::Frequency:
        return "FrequencyEdit";
    case Look::Number:
        return parameter.decimals > 0 ? "DoubleSpinBox" : "SpinBox";
    case Look::Choice:
        return "ComboBox";
    case Look::Switch:
        return "CheckBox";
    case Look::Reading:
        break;
    }
    return "Label";
}

void Writer::writeRow(const Parameter& parameter)
{
    m_writer.writeStartElement(QStringLiteral("Widget"));
    m_writer.writeAttribute(QStringLiteral("name"), parameter.rowName());
    m_writer.writeAttribute(QStringLiteral("class"), QLatin1String(className(parameter)));
    property("labelText", "String", parameter.caption);
    writeLook(parameter);
    property("enabled", "Bool", QStringLiteral("true"));
    property("visible", "Bool", QStringLiteral("true"));
    if (parameter.look != Look::Reading)
        property("generateParameterXml", "Bool", QStringLiteral("true"));
    property("parameterXmlTag", "String", parameter.path);
    m_writer.writeEndElement();
}

void Writer::writeLook(const Parameter& parameter)
{
    // Rows of numbers make a tool tip of their own, with the range.
    if (parameter.look != Look::Number && !parameter.tip.isEmpty())
        property("toolTip", "String", parameter.tip);
    switch (parameter.look) {
    case Look::Frequency:
        property("MainFreqEdit", "Bool",
                 parameter.call == Call::Frequency ? QStringLiteral("true") : QStringLiteral("false"));
        writeRange(parameter, "Int64");
        property("unit", "String", QStringLiteral("Hz"));
        break;
    case Look::Number:
        writeRange(parameter, parameter.decimals > 0 ? "Double" : "Int");
        if (parameter.decimals > 0)
            property("decimals", "Int", QString::number(parameter.decimals));
        if (!parameter.unit.isEmpty()) {
            property("suffix", "String", QLatin1Char(' ') + parameter.unit);
            property("unit", "String", parameter.unit);
        }
        break;
    case Look::Choice:
        property("enumName", "String", enumName(parameter));
        property("currentValue", "String", parameter.choices.first().value);
        break;
    case Look::Switch:
        property("checked", "Bool", QStringLiteral("false"));
        property("checkedValue", "String", QStringLiteral("1"));
        property("uncheckedValue", "String", QStringLiteral("0"));
        break;
    case Look::Reading:
        property("text", "String", QStringLiteral("-"));
        break;
    }
}

void Writer::writeRange(const Parameter& parameter, const char* type)
{
    const double start = qBound(parameter.minimum, 0.0, parameter.maximum);
    property("value", type, number(start, parameter.decimals));
    property("minimum", type, number(parameter.minimum, parameter.decimals));
    property("maximum", type, number(parameter.maximum, parameter.decimals));
    property("singleStep", type, number(parameter.step, parameter.decimals));
}

// The filters that are shown follow the mode, and what is set of the transmitter follows the split.
void Writer::writeScript()
{
    QStringList filters;
    QStringList ofSplit;
    for (const Parameter& parameter : m_parameters) {
        if (parameter.call == Call::Passband)
            filters.append(QStringLiteral("    %1.setVisible(belongs(mode, \"%2\"));")
                               .arg(parameter.rowName(), parameter.modes.join(QLatin1Char(' '))));
        else if (parameter.isOfSplit())
            ofSplit.append(QStringLiteral("    %1.setVisible(vfo != \"Off\");").arg(parameter.rowName()));
    }
    QString code;
    if (!filters.isEmpty() && has(Call::Mode))
        code += QStringLiteral("\n"
                               "function belongs(mode, modes) {\n"
                               "    return (\" \" + modes + \" \").indexOf(\" \" + mode + \" \") >= 0;\n"
                               "}\n") +
                follower(QStringLiteral("followMode(mode)"), filters, QStringLiteral("mode_Mode"));
    if (!ofSplit.isEmpty())
        code += follower(QStringLiteral("followSplit(vfo)"), ofSplit, QStringLiteral("tuning_Split"));
    if (code.isEmpty())
        return;
    m_writer.writeStartElement(QStringLiteral("Script"));
    m_writer.writeAttribute(QStringLiteral("language"), QStringLiteral("QtScript"));
    m_writer.writeCDATA(code);
    m_writer.writeEndElement();
}

bool Writer::has(Call call) const
{
    return std::any_of(m_parameters.begin(), m_parameters.end(),
                       [call](const Parameter& row) { return row.call == call; });
}

/** A function of that head, called with the choice of a row now and whenever it changes. */
QString Writer::follower(const QString& head, const QStringList& lines, const QString& row)
{
    return QStringLiteral("\n"
                          "function %1 {\n"
                          "%2\n"
                          "}\n\n"
                          "%3.currentValueChanged.connect(%4);\n"
                          "%4(%3.currentValue);\n")
        .arg(head, lines.join(QLatin1Char('\n')), row, head.section(QLatin1Char('('), 0, 0));
}

} // namespace

QString formFor(const QString& title, const QList<Parameter>& parameters)
{
    return Writer(title, parameters).write();
}

} // namespace radio
