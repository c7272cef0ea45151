#include "damage.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QVector>

namespace {

const char* const snippets[] = {
    "<x/>",
    "<x>",
    "</x>",
    "<x><Widget name=\"extra\" class=\"Label\"/></x>",
    "<Widget name=\"extra\" class=\"Label\"/>",
    "<Widget class=\"SpinBox\">",
    "</Widget>",
    "<Property name=\"extra\"/>",
    "<Property name=\"visible\"><Bool>false</Bool></Property>",
    "<Property name=\"toolTip\"><String>a</String><String>b</String></Property>",
    "<Properties><Property name=\"unit\"><String>u</String></Property></Properties>",
    "<CustomProperties><Property name=\"toolTip\"><String>c</String></Property>"
    "</CustomProperties>",
    "<CustomProperties>",
    "<Enums><Enum name=\"Extra\"><EnumValue><Value>1</Value></EnumValue></Enum></Enums>",
    "<Enum name=\"Extra\"/>",
    "<EnumValue/>",
    "<Script>var extra;</Script>",
    "<Script/>",
    "<Sheet name=\"extra\"><Widget name=\"further\" class=\"Label\"/></Sheet>",
    "<KVParamGui/>",
    "<!-- note -->",
    "<!--",
    "-->",
    "<![CDATA[",
    "]]>",
    "<?pi",
    "<?pi done?>",
    "&amp;",
    "&none;",
    "&",
    "<",
    ">",
    "\"",
    "'",
    "/",
    "=",
    "\x01",
    "<z:Widget/>",
    "<Widget name=\"open\" ",
    "</Sheet>",
    "</KVParamGui>",
    " ",
    "\n",
    "x"};

const char* const countOfTheNight = "ZORVA_DAMAGES";

} // namespace

Damage::Damage(quint32 seed)
    : m_random(seed)
{
}

int Damage::anyPlace(const QString& text)
{
    return m_random.bounded(text.size() + 1);
}

Damage::Stretch Damage::anyTag(const QString& text)
{
    const int begin = text.indexOf(QLatin1Char('<'), anyPlace(text));
    if (begin < 0)
        return {0, 0};
    const int end = text.indexOf(QLatin1Char('>'), begin);
    return {begin, end < 0 ? text.size() : end + 1};
}

int Damage::anyTagEnd(const QString& text)
{
    return anyTag(text).end;
}

Damage::Stretch Damage::anyElement(const QString& text)
{
    static const QRegularExpression start(QStringLiteral("<([A-Za-z0-9]+)[^<>]*>"));
    const QRegularExpressionMatch match = start.match(text, anyPlace(text));
    if (!match.hasMatch())
        return {0, 0};
    const int begin = match.capturedStart();
    if (match.captured().endsWith(QLatin1String("/>")))
        return {begin, match.capturedEnd()};
    const QString endTag = QStringLiteral("</%1>").arg(match.captured(1));
    const int end = text.indexOf(endTag, begin);
    return {begin, end < 0 ? match.capturedEnd() : end + endTag.size()};
}

Damage::Stretch Damage::anyAttribute(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral(" [a-z]+=\"[^\"]*\""));
    const QRegularExpressionMatch match = pattern.match(text, anyPlace(text));
    return match.hasMatch() ? Stretch{match.capturedStart(), match.capturedEnd()} : Stretch{0, 0};
}

QString Damage::anySnippet()
{
    constexpr int count = sizeof snippets / sizeof *snippets;
    return QString::fromLatin1(snippets[m_random.bounded(count)]);
}

QString Damage::apply(const QString& text)
{
    QString damaged = text;
    const int kind = m_random.bounded(14);
    const Stretch element = anyElement(text);
    const Stretch tag = anyTag(text);
    const Stretch attribute = anyAttribute(text);
    const QString whole = text.mid(element.begin, element.end - element.begin);
    switch (kind) {
    case 0:
        m_what = QStringLiteral("element removed at %1").arg(element.begin);
        return damaged.remove(element.begin, element.end - element.begin);
    case 1:
        m_what = QStringLiteral("element doubled at %1").arg(element.begin);
        return damaged.insert(element.end, whole);
    case 2: {
        const int to = anyTagEnd(text);
        m_what = QStringLiteral("element moved from %1 to %2").arg(element.begin).arg(to);
        damaged.insert(to, whole);
        return damaged.remove(to <= element.begin ? element.begin + whole.size() : element.begin,
                              whole.size());
    }
    case 3: {
        const int place = tag.begin + 1 + m_random.bounded(8);
        m_what = QStringLiteral("letter exchanged in a tag at %1").arg(place);
        return damaged.replace(place, 1, QStringLiteral("q"));
    }
    case 4:
        m_what = QStringLiteral("tag removed at %1").arg(tag.begin);
        return damaged.remove(tag.begin, tag.end - tag.begin);
    case 5:
        m_what = QStringLiteral("tag doubled at %1").arg(tag.begin);
        return damaged.insert(tag.end, text.mid(tag.begin, tag.end - tag.begin));
    case 6:
        m_what = QStringLiteral("attribute removed at %1").arg(attribute.begin);
        return damaged.remove(attribute.begin, attribute.end - attribute.begin);
    case 7:
        m_what = QStringLiteral("attribute doubled at %1").arg(attribute.begin);
        return damaged.insert(attribute.end, text.mid(attribute.begin, attribute.end - attribute.begin));
    case 8: {
        const Stretch other = anyAttribute(text);
        m_what = QStringLiteral("attribute at %1 made like %2").arg(attribute.begin).arg(other.begin);
        return damaged.replace(attribute.begin, attribute.end - attribute.begin,
                               text.mid(other.begin, other.end - other.begin));
    }
    case 9: {
        const int place = anyPlace(text);
        m_what = QStringLiteral("character removed at %1").arg(place);
        return damaged.remove(place, 1);
    }
    case 10: {
        const int place = anyPlace(text);
        const QString snippet = anySnippet();
        m_what = QStringLiteral("%1 inserted at %2").arg(snippet).arg(place);
        return damaged.insert(place, snippet);
    }
    case 11: {
        const int place = anyPlace(text);
        const int count = 1 + m_random.bounded(300);
        m_what = QStringLiteral("%1 characters removed at %2").arg(count).arg(place);
        return damaged.remove(place, count);
    }
    case 12: {
        // A whole element with a new name, at both ends.
        static const QRegularExpression name(QStringLiteral("^<([A-Za-z0-9]+)"));
        const QString old = name.match(whole).captured(1);
        const QString renamed =
            QString(whole)
                .replace(QLatin1Char('<') + old, QLatin1Char('<') + old + QLatin1Char('s'))
                .replace(QLatin1String("</") + old, QLatin1String("</") + old + QLatin1Char('s'));
        m_what = QStringLiteral("element renamed at %1").arg(element.begin);
        return damaged.replace(element.begin, whole.size(), renamed);
    }
    default: {
        const int place = anyTagEnd(text);
        const QString snippet = anySnippet();
        m_what = QStringLiteral("%1 inserted behind a tag at %2").arg(snippet).arg(place);
        return damaged.insert(place, snippet);
    }
    }
}

QString exampleText(const char* name)
{
    QFile file(QStringLiteral(ZORVA_EXAMPLES_DIR "/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void addTextsToDamage()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("receiver") << exampleText("receiver.zorva");
    QTest::newRow("gallery") << exampleText("gallery.zorva");
}

QString faultOfPrefixes(const QByteArray& bytes, int step, int thoroughStep, const Judge& judge)
{
    const int wide = qEnvironmentVariableIsSet(countOfTheNight) ? thoroughStep : step;
    for (int size = 0; size <= bytes.size(); size += wide) {
        const QString fault = judge(bytes.left(size));
        if (!fault.isEmpty())
            return QStringLiteral("%1 at %2").arg(fault).arg(size);
    }
    return QString();
}

QString faultOfDamages(const QString& text, int count, const Judge& judge)
{
    bool isNight = false;
    const int many = qEnvironmentVariableIntValue(countOfTheNight, &isNight);
    for (int seed = 0; seed < (isNight ? many : count); ++seed) {
        Damage damage(static_cast<quint32>(seed));
        QString damaged = damage.apply(text);
        if (seed % 3 == 0)
            damaged = damage.apply(damaged);
        const QString fault = judge(damaged.toUtf8());
        if (!fault.isEmpty())
            return QStringLiteral("%1, seed %2: %3").arg(fault).arg(seed).arg(damage.what());
    }
    return QString();
}
