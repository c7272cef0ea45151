#include "families.h"
#include "subject.h"

#include <QHash>
#include <QSet>

namespace Orvane {
namespace Author {

namespace {

const QVector<Rule> rules{
    {"doubled-row", Severity::Warning, "two rows of one name",
     "Both rows are built, but a script reaches only the later one and an overlay only the earlier one, and "
     "without "
     "paths of their own they share one element of parameter XML and one place in the value tree: the later "
     "one then "
     "shows a control that changes nothing. Give each row a name of its own.",
     R"(<Widget name="volume" class="Label"/>
<Widget name="volume" class="Label"/>)",
     R"(<Widget name="volume" class="Label"/>
<Widget name="volume2" class="Label"/>)"},
    {"hidden-global", Severity::Warning, "a name that hides another one from the script",
     "The sheet, every row and every enumeration are globals of the script under their names. A later one of "
     "the same "
     "name, or the name of something that the language has itself, hides the other. Rename one of them.",
     R"(<Widget name="Date" class="Label"/>)", R"(<Widget name="date" class="Label"/>)"},
    {"doubled-enumeration", Severity::Error, "two enumerations of one name",
     "The later enumeration replaces the earlier one with all its entries. Join them, or rename one.",
     R"(<KVParamGui version="1.0">
  <Enums>
    <Enum name="Modes"><EnumValue><DisplayName>AM</DisplayName><EnumIdentifier>AM</EnumIdentifier><Value>1</Value></EnumValue></Enum>
    <Enum name="Modes"><EnumValue><DisplayName>FM</DisplayName><EnumIdentifier>FM</EnumIdentifier><Value>2</Value></EnumValue></Enum>
  </Enums>
  <Sheet name="audio"/>
</KVParamGui>)",
     R"(<KVParamGui version="1.0">
  <Enums>
    <Enum name="Modes">
      <EnumValue><DisplayName>AM</DisplayName><EnumIdentifier>AM</EnumIdentifier><Value>1</Value></EnumValue>
      <EnumValue><DisplayName>FM</DisplayName><EnumIdentifier>FM</EnumIdentifier><Value>2</Value></EnumValue>
    </Enum>
  </Enums>
  <Sheet name="audio"/>
  <Script language="QtScript">var mode = Modes.FM;</Script>
</KVParamGui>)"},
    {"property-name", Severity::Warning, "a property name that cannot work",
     "Qt names properties in bytes, so letters beyond Latin-1 all become the same question mark; and the "
     "engine uses some "
     "names for itself: `objectName` would rename the row, and names that begin with `_q_` or "
     "`q_internalLast` hold "
     "its own notes. Choose another name.",
     R"(<Widget name="volume" class="Label">
  <Property name="objectName"><String>loud</String></Property>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>loud</String></Property>
</Widget>)"},
};

class NamesCheck
{
public:
    explicit NamesCheck(Subject& subject)
        : m_subject(subject)
    {
    }

    void run()
    {
        const QStringList globals = m_subject.kinds().script().globals();
        m_builtIn = QSet<QString>(globals.cbegin(), globals.cend());
        for (int i = 0; i < m_subject.description().elements().size(); ++i) {
            const QString& kind = m_subject.element(i).name;
            if (kind == QLatin1String("Property"))
                checkProperty(i);
            else if (kind == QLatin1String("Widget") || kind == QLatin1String("Enum") ||
                     kind == QLatin1String("Sheet"))
                checkGlobal(i);
        }
    }

private:
    void checkGlobal(int index)
    {
        const SourceElement& owner = m_subject.element(index);
        const QString name = owner.value("name");
        if (name.isEmpty())
            return;
        if (m_builtIn.contains(name))
            m_subject.report(
                "hidden-global", owner.attribute("name")->valueRange,
                QStringLiteral("the script can no longer use its own `%1` behind this `%2`; rename it")
                    .arg(name, owner.name),
                index);
        const int earlier = m_globals.value(name, -1);
        m_globals.insert(name, index);
        if (earlier >= 0)
            checkTwins(earlier, index);
    }

    void checkTwins(int earlier, int later)
    {
        const QString& kind = m_subject.element(later).name;
        const QString name = m_subject.element(later).value("name");
        const Range place = m_subject.element(later).attribute("name")->valueRange;
        if (m_subject.element(earlier).name != kind) {
            m_subject.report(
                "hidden-global", place,
                QStringLiteral("this `%1` hides the `%2` of the same name in line %3 from the script")
                    .arg(kind, m_subject.element(earlier).name)
                    .arg(m_subject.lineOf(earlier)),
                later);
        } else if (kind == QLatin1String("Widget")) {
            m_subject.report(
                "doubled-row", place,
                QStringLiteral("there is a row `%1` in line %2 already; a script reaches only this one, "
                               "an overlay only the other")
                    .arg(name)
                    .arg(m_subject.lineOf(earlier)),
                later);
        } else if (kind == QLatin1String("Enum")) {
            m_subject.reportAt(
                "doubled-enumeration", earlier,
                QStringLiteral("nothing is left of this `%1`: the enumeration of the same name in "
                               "line %2 replaces it")
                    .arg(name)
                    .arg(m_subject.lineOf(later)));
        }
    }

    void checkProperty(int index)
    {
        const SourceAttribute* const name = m_subject.element(index).attribute("name");
        if (!name || name->value.isEmpty())
            return;
        const int parent = m_subject.element(index).parent;
        const bool isCustom =
            parent >= 0 && m_subject.element(parent).name == QLatin1String("CustomProperties");
        if (isCustom)
            return;
        if (QString::fromLatin1(name->value.toLatin1()) != name->value)
            m_subject.report(
                "property-name", name->valueRange,
                QStringLiteral("`%1` has letters that a property name cannot hold; use plain ones")
                    .arg(name->value),
                index);
        else if (m_subject.kinds().isReservedProperty(name->value))
            m_subject.report(
                "property-name", name->valueRange,
                QStringLiteral("the engine uses `%1` for itself; choose another name").arg(name->value),
                index);
    }

    Subject& m_subject;
    QSet<QString> m_builtIn;
    QHash<QString, int> m_globals;
};

void checkNames(Subject& subject)
{
    NamesCheck(subject).run();
}

} // namespace

const Family namesFamily = {"names", "Names", rules, checkNames};

} // namespace Author
} // namespace Orvane
