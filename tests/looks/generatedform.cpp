#include "generatedform.h"

#include <formtext.h>

#include <QRandomGenerator>
#include <QStyleFactory>

#include <iterator>

namespace {

const char* const words[] = {"Frequency", "Mode",      "Attenuation", "RF",   "Gain control",          "Step",
                             "Q & A",     "Bandwidth", "Threshold",   "Lock", "of the second receiver"};

class Generator
{
public:
    explicit Generator(quint32 seed)
        : m_random(seed)
    {
    }

    QString form();

private:
    using Properties = QList<FormProperty>;

    int below(int end) { return m_random.bounded(end); }
    bool oneIn(int count) { return below(count) == 0; }
    QString text(int mostWords);
    QString row(const char* className, const Properties& properties = {});
    Properties numberProperties();
    QString numberRow();
    QString choiceRow();
    QString frequencyRow();
    QString listRow();
    QString tableRow();
    QString buttonRow();
    QString plainRow();
    QString divider();
    QString anyRow();
    QString enums();

    QRandomGenerator m_random;
    int m_count = 0;
    bool m_afterDivider = false;
};

QString Generator::text(int mostWords)
{
    QStringList chosen;
    for (int count = 1 + below(mostWords); count > 0; --count)
        chosen.append(QLatin1String(words[below(int(std::size(words)))]));
    return chosen.join(QLatin1Char(' '));
}

QString Generator::row(const char* className, const Properties& properties)
{
    const QByteArray name = className + QByteArray::number(m_count++);
    Properties all = properties;
    // Without a caption a row stands beside a divider above it.
    if (m_afterDivider || !oneIn(12))
        all.append({"labelText", text(3)});
    if (oneIn(15))
        all.append({"readOnly", true});
    return oneIn(25) ? widgetXml(className, name.constData(), all) : rowXml(className, name.constData(), all);
}

Generator::Properties Generator::numberProperties()
{
    Properties properties{{"suffix", QLatin1String(oneIn(2) ? "kHz" : "dB")}, {"unit", "Hz"}};
    if (oneIn(3))
        return properties;
    properties.append({"minimum", oneIn(2) ? 0 : -120});
    properties.append({"maximum", oneIn(3) ? 2000000000 : 1000});
    return properties;
}

QString Generator::numberRow()
{
    static const char* const kinds[] = {"SpinBox", "DoubleSpinBox", "BaudRateSpinBox", "BandwidthEdit",
                                        "FrequencyOffsetEdit"};
    return row(kinds[below(int(std::size(kinds)))], numberProperties() + Properties{{"decimals", below(4)}});
}

QString Generator::choiceRow()
{
    return row("ComboBox", {{"enumName", QLatin1String(oneIn(4) ? "Long" : "Short")}});
}

QString Generator::frequencyRow()
{
    if (oneIn(2))
        return row("FrequencyEdit", {{"MainFreqEdit", oneIn(2)}, {"value", 98500000}});
    return row("FrequencyRangeEdit", {{"startFrequency", 118000000}, {"stopFrequency", 137000000}});
}

QString Generator::listRow()
{
    static const char* const kinds[] = {"SpinBoxList", "DoubleSpinBoxList", "ShiftList"};
    return row(kinds[below(int(std::size(kinds)))], numberProperties() + Properties{{"itemCount", below(5)}});
}

QString Generator::tableRow()
{
    if (oneIn(2))
        return row("ChannelSpacingTable", {{"spacingsCount", 1 + below(4)}, {"headerLabel", text(3)}});
    return row("TableWidget", {{"rowCount", below(5)}, {"columnCount", 1 + below(5)}});
}

QString Generator::buttonRow()
{
    if (oneIn(2))
        return row("PushButton", {{"text", text(5)}});
    return row("ScriptControl", {{"visibleLoad", true},
                                 {"visibleEdit", oneIn(2)},
                                 {"visibleClear", oneIn(2)},
                                 {"enabledLoad", true},
                                 {"enabledEdit", true}});
}

QString Generator::plainRow()
{
    switch (below(4)) {
    case 0:
        return row("CheckBox");
    case 1:
        return row("Label", {{"text", text(oneIn(6) ? 30 : 4)}});
    case 2:
        return row("IPEdit");
    default:
        return row("LineEdit", {{"text", text(6)}});
    }
}

QString Generator::divider()
{
    if (oneIn(6))
        return row("FixedSpacer", {{"height", below(20)}});
    if (oneIn(5))
        return row("Separator", {{"margin", below(20)}});
    return row("Headline", {{"text", text(4)}, {"margin", below(12)}});
}

QString Generator::anyRow()
{
    switch (below(10)) {
    case 0:
    case 1:
        return numberRow();
    case 2:
        return choiceRow();
    case 3:
    case 4:
        return frequencyRow();
    case 5:
        return listRow();
    case 6:
        return tableRow();
    case 7:
        return buttonRow();
    default:
        return plainRow();
    }
}

QString Generator::enums()
{
    return enumXml("Short", {{"AM", "A", "1"}, {"FM", "B", "2"}}) +
           enumXml("Long",
                   {{"Automatic gain control with a fast attack", "C", "1"},
                    {"A choice of so many words that no column of a form can be meant to be as wide as "
                     "all of them together would like to have it",
                     "D", "2"},
                    {"Off", "E", "3"}});
}

QString Generator::form()
{
    QString rows;
    for (int count = 4 + below(40); count > 0; --count) {
        const bool divides = oneIn(6);
        rows += divides ? divider() : anyRow();
        m_afterDivider = divides;
    }
    return formXml(rows, oneIn(2) ? enums() : enumXml("Short", {{"AM", "A", "1"}, {"FM", "B", "2"}}));
}

} // namespace

QString generatedForm(quint32 seed)
{
    return Generator(seed).form();
}

QStringList testedStyles()
{
    QStringList styles{QStringLiteral("fusion")};
    const QStringList installed = QStyleFactory::keys();
    for (const QString& wish : {QStringLiteral("breeze"), QStringLiteral("adwaita")}) {
        if (installed.contains(wish, Qt::CaseInsensitive))
            styles.append(wish);
    }
    return styles;
}
