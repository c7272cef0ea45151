#include "parametertest.h"

namespace {

QString property(const char* name, const char* value)
{
    return QStringLiteral("<Property name=\"%1\"><String>%2</String></Property>")
        .arg(QLatin1String(name), QString::fromUtf8(value));
}

QString row(const char* name, const char* className, const QString& properties, bool sent = true)
{
    return QStringLiteral("<Widget name=\"%1\" class=\"%2\">%3"
                          "<Property name=\"generateParameterXml\"><Bool>%4</Bool></Property></Widget>")
        .arg(QLatin1String(name), QLatin1String(className), properties,
             QLatin1String(sent ? "true" : "false"));
}

QString choice(const char* shown, const char* value)
{
    return QStringLiteral("<EnumValue><DisplayName>%1</DisplayName><EnumIdentifier>ID_%2</EnumIdentifier>"
                          "<Value>%2</Value></EnumValue>")
        .arg(QLatin1String(shown), QLatin1String(value));
}

QString tuningRows()
{
    return row("first", "Headline", property("text", "Tuning")) +
           row("frequency", "FrequencyEdit",
               property("labelText", "Frequency") + property("value", "98500000") +
                   property("minimum", "8000") + property("maximum", "26500000000") + property("unit", "Hz") +
                   property("parameterXmlTag", "Tuner/Frequency")) +
           row("mode", "ComboBox",
               property("labelText", "Mode") + property("enumName", "Modes") +
                   property("currentValue", "FM") + property("parameterXmlTag", "Tuner/Mode")) +
           row("step", "ComboBox",
               property("labelText", "Step") + property("enumName", "Steps") +
                   property("currentValue", "1000") + property("parameterXmlTag", "Tuner/Step")) +
           row("width", "BandwidthEdit",
               property("labelText", "Bandwidth") + property("value", "120000") + property("minimum", "100") +
                   property("maximum", "500000") + property("unitScale", "1000") + property("unit", "Hz") +
                   property("parameterXmlTag", "Tuner/Width"));
}

QString audioRows()
{
    return row("second", "Headline", property("text", "Audio")) +
           row("mute", "CheckBox",
               property("labelText", "Mute") + property("checkedValue", "on") +
                   property("uncheckedValue", "off") + property("parameterXmlTag", "Audio/Mute")) +
           row("level", "DoubleSpinBox",
               property("labelText", "Level") + property("value", "1.5") + property("minimum", "-30") +
                   property("maximum", "130") + property("decimals", "1") + property("suffix", " dB") +
                   property("parameterXmlTag", "Audio/Level")) +
           row("remark", "LineEdit",
               property("labelText", "Remark") + property("parameterXmlTag", "Audio/Remark"));
}

QString scanRows()
{
    return row("range", "FrequencyRangeEdit",
               property("labelText", "Range") + property("startFrequency", "118000000") +
                   property("stopFrequency", "137000000") + property("minimum", "8000") +
                   property("maximum", "26500000000") + property("startFrequencyParameterXmlTag", "Start") +
                   property("stopFrequencyParameterXmlTag", "Stop") +
                   property("parameterXmlTag", "Scan/Range")) +
           row("shifts", "SpinBoxList",
               property("labelText", "Shifts") + property("itemCount", "3") + property("suffix", " Hz") +
                   property("parameterListItemTag", "Shift") + property("parameterXmlTag", "Scan/Shifts")) +
           row("exclusions", "SpecialObject_FHP", property("parameterXmlTag", "Scan/Exclusions")) +
           row("secret", "LineEdit", property("labelText", "Secret") + property("parameterXmlTag", "Secret"),
               false);
}

} // namespace

QByteArray stationForm(const QString& script)
{
    return QStringLiteral("<KVParamGui><Enums><Enum name=\"Modes\">%1</Enum><Enum name=\"Steps\">%2</Enum>"
                          "</Enums><Sheet name=\"station\">%3</Sheet><Script>%4</Script></KVParamGui>")
        .arg(choice("Frequency modulation", "FM") + choice("Amplitude", "AM"),
             choice("1 kHz", "1000") + choice("5 kHz", "5000") + choice("10 kHz", "10000"),
             tuningRows() + audioRows() + scanRows(), script)
        .toUtf8();
}

QString stationParameters(const QString& content)
{
    return QStringLiteral("<Parameters>%1</Parameters>").arg(content);
}
