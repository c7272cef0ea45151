#include "families.h"
#include "subject.h"
#include "writtenrow.h"

#include <QRegularExpression>

namespace Orvane {
namespace Author {

namespace {

#define ENUM(entries)                                                                                        \
    "<KVParamGui version=\"1.0\">\n  <Enums>\n    <Enum name=\"Modes\">\n" entries                           \
    "    </Enum>\n  </Enums>\n  <Sheet name=\"audio\">\n    <Widget name=\"mode\" class=\"ComboBox\">\n"     \
    "      <Property name=\"labelText\"><String>Mode</String></Property>\n"                                  \
    "      <Property name=\"enumName\"><String>Modes</String></Property>\n"                                  \
    "      <Property name=\"enabled\"><Bool>true</Bool></Property>\n"                                        \
    "      <Property name=\"visible\"><Bool>true</Bool></Property>\n"                                        \
    "      <Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n"                           \
    "    </Widget>\n  </Sheet>\n</KVParamGui>"
#define ENTRY(name, identifier, value)                                                                       \
    "      <EnumValue><DisplayName>" name "</DisplayName><EnumIdentifier>" identifier                        \
    "</EnumIdentifier><Value>" value "</Value></EnumValue>\n"

const QVector<Rule> rules{
    {"entry-part", Severity::Warning, "an entry that lacks a part",
     "An entry needs `DisplayName` for the user, `EnumIdentifier` for scripts and `Value` for parameter XML. "
     "A missing or "
     "empty one is an empty text: a blank choice, an unreachable name, or an empty element.",
     ENUM("      <EnumValue><DisplayName>AM</DisplayName><Value>1</Value></EnumValue>\n"),
     ENUM(ENTRY("AM", "AM", "1"))},
    {"empty-enumeration", Severity::Warning, "an enumeration without entries",
     "A row with this enumeration offers nothing to choose from, unless the host fills it. Give it entries.",
     ENUM(""), ENUM(ENTRY("AM", "AM", "1"))},
    {"entry-identifier", Severity::Warning, "an identifier that no script can write",
     "A script writes `Modes.AM`. What is no name of the script language, for a blank or a minus in it or a "
     "digit ahead, can "
     "only be reached as `Modes[\"...\"]`. Use letters, digits and `_`.",
     ENUM(ENTRY("AM", "AM-wide", "1")), ENUM(ENTRY("AM", "AM_WIDE", "1"))},
    {"doubled-entry", Severity::Warning, "two entries that look the same",
     "A row knows its choice by what is shown, parameter XML by its value, a script by its identifier. Of "
     "two entries with "
     "the same the first is always found. Make them differ.",
     ENUM(ENTRY("AM", "AM", "1") ENTRY("AM", "FM", "2")),
     ENUM(ENTRY("AM", "AM", "1") ENTRY("FM", "FM", "2"))},
    {"doubled-part", Severity::Warning, "a part of an entry given twice",
     "Of two equal parts in one entry the later one counts. Perhaps `</EnumValue><EnumValue>` is missing "
     "between them.",
     ENUM("      "
          "<EnumValue><DisplayName>AM</DisplayName><DisplayName>FM</DisplayName><EnumIdentifier>FM</"
          "EnumIdentifier>"
          "<Value>1</Value></EnumValue>\n"),
     ENUM(ENTRY("FM", "FM", "1"))},
    {"unknown-enumeration", Severity::Error, "a row that asks for an enumeration that is not there",
     "The row has nothing to choose from. Names of enumerations are exact, with case.",
     R"(<Widget name="mode" class="ComboBox">
  <Property name="enumName"><String>Modes</String></Property>
</Widget>)",
     ENUM(ENTRY("AM", "AM", "1"))},
    {"start-value", Severity::Warning, "a start value that no entry has",
     "The row starts on the first entry instead, and that is what the device gets. `currentValue` must be "
     "the `Value` of an "
     "entry, not what the user reads.",
     R"(<KVParamGui version="1.0">
  <Enums>
    <Enum name="Modes"><EnumValue><DisplayName>AM</DisplayName><EnumIdentifier>AM</EnumIdentifier><Value>1</Value></EnumValue></Enum>
  </Enums>
  <Sheet name="audio">
    <Widget name="mode" class="ComboBox">
      <Property name="enumName"><String>Modes</String></Property>
      <Property name="currentValue"><String>AM</String></Property>
    </Widget>
  </Sheet>
</KVParamGui>)",
     ENUM(ENTRY("AM", "AM", "1"))},
    {"unused-enumeration", Severity::Note, "an enumeration that nothing uses",
     "No row and no script speaks of it. Remove it, or look whether a row means it under another name.",
     R"(<KVParamGui version="1.0">
  <Enums>
    <Enum name="Modes"><EnumValue><DisplayName>AM</DisplayName><EnumIdentifier>AM</EnumIdentifier><Value>1</Value></EnumValue></Enum>
  </Enums>
  <Sheet name="audio"/>
</KVParamGui>)",
     ENUM(ENTRY("AM", "AM", "1"))},
};

const char* const parts[] = {"DisplayName", "EnumIdentifier", "Value"};

class EnumerationsCheck
{
public:
    explicit EnumerationsCheck(Subject& subject)
        : m_subject(subject)
        , m_form(subject.written())
    {
    }

    void run()
    {
        for (const int enumeration : m_subject.elements("Enum")) {
            m_byName.insert(m_subject.element(enumeration).value("name"), enumeration);
            checkEntries(enumeration);
        }
        for (const WrittenRow& row : m_form.rows())
            checkRow(row);
        for (auto found = m_byName.cbegin(); found != m_byName.cend(); ++found) {
            if (m_subject.reading().fate(*found).alive && !found.key().isEmpty() &&
                !m_used.contains(found.key()) && !m_form.scriptMentions(found.key()))
                m_subject.reportAt("unused-enumeration", *found,
                                   QStringLiteral("no row and no script uses `%1`").arg(found.key()));
        }
    }

private:
    QString part(int entry, const char* name) const
    {
        const int found = m_subject.description().child(entry, name);
        return found < 0 ? QString() : m_subject.description().textOf(found);
    }

    void checkEntries(int enumeration)
    {
        QHash<QString, int> seen[3];
        bool hasEntry = false;
        for (const int entry : m_subject.description().children(enumeration)) {
            if (m_subject.element(entry).name != QLatin1String("EnumValue"))
                continue;
            hasEntry = true;
            checkDoubledParts(entry);
            for (int i = 0; i < 3; ++i)
                checkPart(entry, i, seen[i]);
        }
        if (!hasEntry)
            m_subject.reportAt("empty-enumeration", enumeration,
                               QStringLiteral("`%1` has no entries, so there is nothing to choose")
                                   .arg(m_subject.element(enumeration).value("name")));
    }

    void checkDoubledParts(int entry)
    {
        for (const char* const name : parts) {
            int count = 0;
            for (const int child : m_subject.description().children(entry)) {
                if (m_subject.element(child).name == QLatin1String(name) && ++count > 1)
                    m_subject.reportAt(
                        "doubled-part", child,
                        QStringLiteral("this entry has a `%1` already, which this one replaces")
                            .arg(QLatin1String(name)));
            }
        }
    }

    void checkPart(int entry, int which, QHash<QString, int>& seen)
    {
        const QString text = part(entry, parts[which]);
        if (text.isEmpty()) {
            m_subject.reportAt("entry-part", entry,
                               QStringLiteral("this entry has no `%1`").arg(QLatin1String(parts[which])));
            return;
        }
        const int element = m_subject.description().child(entry, parts[which]);
        const Range place = m_subject.description().contentRange(element);
        if (which == 1)
            checkIdentifier(text, place);
        const auto earlier = seen.constFind(text);
        if (earlier != seen.cend())
            m_subject.report("doubled-entry", place,
                             QStringLiteral("the entry in line %1 has the same `%2`, and it is found first")
                                 .arg(m_subject.lineOf(*earlier))
                                 .arg(QLatin1String(parts[which])));
        else
            seen.insert(text, entry);
    }

    void checkIdentifier(const QString& text, Range place)
    {
        static const QRegularExpression name(QStringLiteral("\\A[A-Za-z_$][\\w$]*\\z"));
        if (!name.match(text).hasMatch())
            m_subject.report(
                "entry-identifier", place,
                QStringLiteral("a script cannot write `%1` behind a point; use letters, digits and `_`")
                    .arg(text));
    }

    void checkRow(const WrittenRow& row)
    {
        const WrittenProperty* chosen = nullptr;
        int enumeration = -1;
        for (const WrittenProperty& property : row.all()) {
            const Property* const known =
                property.isCustom ? nullptr : row.kind().findProperty(property.name);
            if (!known || property.type < 0 || row.find(property.name) != &property)
                continue;
            if (known->refers == QLatin1String("enumeration"))
                enumeration = checkReference(property);
            else if (known->refers == QLatin1String("entry"))
                chosen = &property;
        }
        if (chosen && enumeration >= 0)
            checkChoice(*chosen, enumeration);
    }

    int checkReference(const WrittenProperty& property)
    {
        m_used.insert(property.text);
        const int found = m_byName.value(property.text, -1);
        if (found < 0 && !property.text.isEmpty()) {
            const QStringList names = m_byName.keys();
            m_subject.reportValue(
                "unknown-enumeration", property,
                QStringLiteral("there is no enumeration `%1`, so there is nothing to choose")
                    .arg(property.text),
                nearest(property.text, names));
        }
        return found;
    }

    void checkChoice(const WrittenProperty& property, int enumeration)
    {
        QStringList values;
        for (const int entry : m_subject.description().children(enumeration)) {
            if (m_subject.element(entry).name == QLatin1String("EnumValue"))
                values.append(part(entry, "Value"));
        }
        if (values.isEmpty() || values.contains(property.text))
            return;
        const int first = m_subject.description().child(enumeration, "EnumValue");
        m_subject.reportValue(
            "start-value", property,
            QStringLiteral("no entry of `%1` has the value `%2`; the row starts on `%3` (%4) instead")
                .arg(m_subject.element(enumeration).value("name"), property.text, values.first(),
                     part(first, "DisplayName")),
            nearest(property.text, values));
    }

    Subject& m_subject;
    const WrittenForm& m_form;
    QMap<QString, int> m_byName; // the later of two, as in the engine
    QSet<QString> m_used;
};

void checkEnumerations(Subject& subject)
{
    EnumerationsCheck(subject).run();
}

} // namespace

const Family enumerationsFamily = {"enumerations", "Enumerations", rules, checkEnumerations};

} // namespace Author
} // namespace Orvane
