#include "families.h"
#include "subject.h"

#include <QRegularExpression>
#include <QSet>
#include <QTextCodec>

namespace Orvane {
namespace Author {

namespace {

// Behind a broken place everything may look broken; more of it helps nobody.
constexpr int mostBreaks = 20;
// A reader notices a little later than a person.
constexpr int slack = 2;

#define BEFORE_TONE(content)                                                                                 \
    "<Widget name=\"volume\" class=\"Label\">\n" content "</Widget>\n<Widget name=\"tone\" "                 \
    "class=\"Label\"/>"

const QVector<Rule> rules{
    {"no-form", Severity::Error, "no form comes of the file",
     "The engine looks for the element `KVParamGui`. Without it, or where the text breaks before it, there "
     "is no "
     "form at all. Check the name of the outermost element and the encoding of the file.",
     R"(<KVParamGUI version="1.0">
  <Sheet name="audio"/>
</KVParamGUI>)",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
</KVParamGui>)"},
    {"unreadable-encoding", Severity::Error, "bytes that the encoding does not have",
     "The file says (or leaves unsaid, which means UTF-8) how its letters are written in bytes. Here it "
     "names an encoding that nobody knows, or there are bytes that mean nothing in it, as when an editor "
     "saved the file otherwise than its first line says. The engine then reads nothing, and there is no "
     "form. Save the file as UTF-8 and let its first line say so.",
     R"(<?xml version="1.0" encoding="ISO-99"?>
<KVParamGui version="1.0">
  <Sheet name="audio"/>
</KVParamGui>)",
     R"(<?xml version="1.0" encoding="UTF-8"?>
<KVParamGui version="1.0">
  <Sheet name="audio"/>
</KVParamGui>)"},
    {"not-well-formed", Severity::Error, "the text is no XML from here on",
     "The engine reads up to the first place where the text breaks the rules of XML and leaves out all that "
     "follows, without a word. Usually a tag is not ended, a quote is missing, or `&` or `<` stands for "
     "itself in a text.",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>Volume & Tone</String></Property>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>Volume &amp; Tone</String></Property>
</Widget>)"},
    {"root-in-wrapper", Severity::Error, "the form stands inside another element",
     "`KVParamGui` is found inside another element, of which nothing counts. The form comes up, but the "
     "schema, editors and later tools do not expect it there. Make `KVParamGui` the outermost element.",
     R"(<Forms>
  <KVParamGui version="1.0"><Sheet name="audio"/></KVParamGui>
</Forms>)",
     R"(<KVParamGui version="1.0"><Sheet name="audio"/></KVParamGui>)"},
    {"several-roots", Severity::Error, "more than one form in one file",
     "Of several `KVParamGui` in a file only the last one becomes a form; nothing is left of the others, "
     "their rows included. Put each form into a file of its own.",
     R"(<Forms>
  <KVParamGui version="1.0"><Sheet name="audio"/></KVParamGui>
  <KVParamGui version="1.0"><Sheet name="video"/></KVParamGui>
</Forms>)",
     R"(<KVParamGui version="1.0"><Sheet name="video"/></KVParamGui>)"},
    {"unknown-element", Severity::Error, "an element that the language does not have",
     "The engine skips an element that it does not know in this place, with all that it holds: a misspelt "
     "`Sheet` costs all rows. Names of elements are exact, with case. Correct the name, or move the element "
     "to where it belongs.",
     R"(<KVParamGui version="1.0">
  <sheet name="audio">
    <Widget name="tone" class="Label"/>
  </sheet>
</KVParamGui>)",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio">
    <Widget name="tone" class="Label"/>
  </Sheet>
</KVParamGui>)"},
    {"stray-element", Severity::Error, "an element that cuts everything behind it off",
     "A row and a block of properties hold `Property` and `CustomProperties` and nothing else. The engine "
     "walks into "
     "anything else there, takes its end for the end of the row, the end of the row for the end of the "
     "sheet, and so "
     "on: all rows behind it are gone, and with them every enumeration and script behind the sheet.",
     BEFORE_TONE("  <Note>loudness</Note>\n"), BEFORE_TONE("  <!-- loudness -->\n")},
    {"properties-in-row", Severity::Error, "a row with a block `Properties`",
     "The sheet wraps its properties in `Properties`, a row holds them directly. In a row the block acts as "
     "a stray "
     "element: the rest of the row and everything behind it is gone.",
     BEFORE_TONE("  <Properties>\n"
                 "    <Property name=\"text\"><String>loud</String></Property>\n"
                 "  </Properties>\n"),
     BEFORE_TONE("  <Property name=\"text\"><String>loud</String></Property>\n")},
    {"misplaced-property", Severity::Error, "a property directly in the sheet",
     "The properties of the sheet stand in a block `Properties`. One that stands beside it is skipped.",
     R"(<Property name="autoApplyEnabled"><Bool>true</Bool></Property>)",
     R"(<Properties><Property name="autoApplyEnabled"><Bool>true</Bool></Property></Properties>)"},
    {"property-without-type", Severity::Error, "a property without a type element",
     "The value of a property stands in an element that says its type: `<Int>40</Int>`. Without it the "
     "property is "
     "lost, and the engine leaves the row too early: everything behind it is gone, as with a stray element.",
     BEFORE_TONE("  <Property name=\"text\">loud</Property>\n"),
     BEFORE_TONE("  <Property name=\"text\"><String>loud</String></Property>\n")},
    {"element-in-text", Severity::Error, "an element inside a text",
     "Values, names and scripts are texts. At an element within one the engine stops reading the whole "
     "document, as at "
     "broken XML. Write `&lt;` for the character, or put a script into a CDATA section.",
     BEFORE_TONE("  <Property name=\"text\"><String>very <b>loud</b></String></Property>\n"),
     BEFORE_TONE("  <Property name=\"text\"><String>very &lt;b>loud&lt;/b></String></Property>\n")},
    {"second-value", Severity::Error, "a second element in a property",
     "The first element of a property is its value, and all others are skipped with what they hold. Perhaps "
     "the end "
     "tag of the property is missing.",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>loud</String><String>quiet</String></Property>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>loud</String></Property>
</Widget>)"},
    {"nested-block", Severity::Note, "custom properties inside another block",
     "A block `CustomProperties` stands directly in the sheet or in a row. Inside another block its "
     "properties "
     "count just as if it stood beside that block, but nobody looks for them there. Move the block out.",
     R"(<Widget name="volume" class="Label">
  <CustomProperties>
    <CustomProperties><Property name="origin"><String>amplifier</String></Property></CustomProperties>
  </CustomProperties>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <CustomProperties><Property name="origin"><String>amplifier</String></Property></CustomProperties>
</Widget>)"},
    {"stray-text", Severity::Note, "text between elements",
     "The sheet, its rows and properties, and the enumerations hold elements; text that stands directly in "
     "them is read "
     "by nobody. Mostly it is what is left of something: a tag, a quote, a line that was to be a comment.",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>loud</String></Property>>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>loud</String></Property>
</Widget>)"},
    {"foreign-namespace", Severity::Note, "a namespace, which the language does not have",
     "Elements are known by their names alone, so the form is the same with and without. But the schema and "
     "every tool "
     "that goes by it take elements of a namespace for elements of another language. Remove it.",
     R"(<KVParamGui xmlns="urn:example:forms" version="1.0">
  <Sheet name="audio"/>
</KVParamGui>)",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
</KVParamGui>)"},
    {"not-read", Severity::Error, "an element that does not reach the form",
     "It stands where the engine takes it for something else, as for the value of a property, or does not "
     "come to it at all; other findings may say why. Move it to its place: the form-language page has a "
     "table of what may stand where.",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><Enum name="Modes"/></Property>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>Modes</String></Property>
</Widget>)"},
    {"cut-script", Severity::Error, "a script that does not arrive whole",
     "The form holds less of the script than is written here, because reading stops within it. A script that "
     "is cut seldom compiles, and one that does not compile does nothing at all. Put the code into a CDATA "
     "section, where `<` and `&` are letters like others.",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
  <Script language="QtScript">
    var lowest = 1;
    <b>var highest = 9;</b>
  </Script>
</KVParamGui>)",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
  <Script language="QtScript"><![CDATA[
    var lowest = 1;
    var highest = 9;
  ]]></Script>
</KVParamGui>)"},
    {"doubled-property", Severity::Warning, "a property given twice",
     "Of two properties with one name the later one counts. Remove the one that is not meant.",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>loud</String></Property>
  <Property name="text"><String>quiet</String></Property>
</Widget>)",
     R"(<Widget name="volume" class="Label">
  <Property name="text"><String>quiet</String></Property>
</Widget>)"},
    {"several-scripts", Severity::Warning, "more than one script",
     "The later script replaces the earlier one; nothing of the earlier one runs. Join them.",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
  <Script language="QtScript">var a = 1;</Script>
  <Script language="QtScript">var b = 2;</Script>
</KVParamGui>)",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
  <Script language="QtScript">var a = 1; var b = 2;</Script>
</KVParamGui>)"},
    {"several-sheets", Severity::Warning, "more than one sheet",
     "A form has one sheet. The rows of a further `Sheet` are added to it, its properties replace earlier "
     "ones, and its "
     "name counts. Join the sheets, so that the form looks like its description.",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"><Widget name="volume" class="Label"/></Sheet>
  <Sheet name="video"><Widget name="picture" class="Label"/></Sheet>
</KVParamGui>)",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"><Widget name="volume" class="Label"/><Widget name="picture" class="Label"/></Sheet>
</KVParamGui>)"},
    {"nameless", Severity::Warning, "a row, property, enumeration or sheet without a name",
     "A row without a name is called after its class and its position, so the name changes when a row is put "
     "before "
     "it; an enumeration or property without one can hardly be referred to. Give it a name.",
     R"(<Widget class="Label"/>)", R"(<Widget name="volume" class="Label"/>)"},
    {"unknown-attribute", Severity::Warning, "an attribute that its element does not have",
     "The engine looks for the attributes of the language by their exact names and does not see any other.",
     R"(<Widget name="volume" Class="Label" class="Label"/>)", R"(<Widget name="volume" class="Label"/>)"},
};

class DocumentCheck
{
public:
    explicit DocumentCheck(Subject& subject)
        : m_subject(subject)
        , m_description(subject.description())
    {
    }

    void run()
    {
        checkForm();
        checkRoots();
        for (int i = 0; i < m_description.elements().size(); ++i) {
            checkPlace(i);
            checkAttributes(i);
            checkPrefix(i);
        }
        for (const TextPiece& text : m_description.texts())
            checkText(text);
        checkTwins();
    }

private:
    const SourceElement& element(int index) const { return m_subject.element(index); }
    QString parentName(int index) const
    {
        const int parent = element(index).parent;
        return parent < 0 ? QString() : element(parent).name;
    }

    void checkForm();
    Range unknownEncoding() const;
    void reportBreak(const Problem* problem, int place);
    void checkRoots();
    void reportNoForm();
    void checkPlace(int index);
    void checkInBlock(int index);
    void checkInProperty(int index);
    void checkSkipped(int index);
    bool isText(int index) const;
    void checkText(const TextPiece& text);
    void checkAttributes(int index);
    void checkPrefix(int index);
    bool isBroken(int offset) const;
    void checkTwins();
    void checkDoubledProperties(int block);

    Subject& m_subject;
    const Description& m_description;
    QSet<int> m_reportedSecond;    // properties whose second value was told
    QSet<QString> m_knownPrefixes; // of elements, told already
};

void DocumentCheck::reportBreak(const Problem* problem, int place)
{
    if (problem) {
        m_subject.report("not-well-formed", problem->range, problem->message);
        return;
    }
    m_subject.report("not-well-formed", {qMax(0, place - 1), place},
                     QStringLiteral("the XML breaks here: %1").arg(m_subject.reading().brokenBy()));
}

/** Where the XML declaration names an encoding that there is none of; empty otherwise. */
Range DocumentCheck::unknownEncoding() const
{
    constexpr int longest = 1024;
    static const QRegularExpression declaration(
        QStringLiteral("\\A<\\?xml\\s[^>]*?\\sencoding\\s*=\\s*[\"']([^\"'>]+)[\"']"));
    const QRegularExpressionMatch match = declaration.match(m_subject.source().text().left(longest));
    if (!match.hasMatch() || QTextCodec::codecForName(match.captured(1).toLatin1()))
        return Range();
    return {match.capturedStart(1), match.capturedEnd(1)};
}

void DocumentCheck::checkForm()
{
    const Range encoding = unknownEncoding();
    if (encoding.end > 0 && !m_subject.reading().hasForm()) {
        const QString name = m_subject.source().text().mid(encoding.begin, encoding.end - encoding.begin);
        m_subject.report(
            "unreadable-encoding", encoding,
            QStringLiteral("nobody here knows the encoding `%1`; save the file as UTF-8 and say so")
                .arg(name),
            -1, QStringLiteral("UTF-8"));
        return;
    }
    const int unreadable = m_subject.source().firstUnreadable();
    if (unreadable >= 0 && !m_subject.reading().hasForm()) {
        m_subject.report("unreadable-encoding", {unreadable, unreadable + 1},
                         QStringLiteral("the bytes here are no text in the encoding of this file; save it in "
                                        "the encoding that its first line names, or as UTF-8"));
        return;
    }
    const int place = m_subject.reading().brokenAt();
    // Where there is no element at all, that is what there is to say.
    if (place < 0 || m_description.elements().isEmpty())
        return;
    // What this reader guesses about the first break is said better than what the engine's reader says of it.
    const Problem* first = nullptr;
    for (const Problem& problem : m_description.problems()) {
        if (!first && problem.range.begin <= place && place <= problem.until + slack)
            first = &problem;
    }
    reportBreak(first, place);
    int count = 0;
    for (const Problem& problem : m_description.problems()) {
        if (problem.range.begin > place && &problem != first && ++count < mostBreaks)
            reportBreak(&problem, place);
    }
}

void DocumentCheck::checkRoots()
{
    const QVector<int> roots = m_subject.elements("KVParamGui");
    if (!m_subject.reading().hasForm())
        reportNoForm();
    for (const int root : roots) {
        if (root != m_subject.reading().form().element && m_subject.reading().hasForm())
            m_subject.reportAt(
                "several-roots", root,
                QStringLiteral("only one `KVParamGui` of a file becomes a form, and it is the one "
                               "in line %1; put each form into a file of its own")
                    .arg(m_subject.reading().form().element < 0
                             ? 1
                             : m_subject.lineOf(m_subject.reading().form().element)));
        else if (element(root).parent >= 0)
            m_subject.reportAt(
                "root-in-wrapper", root,
                QStringLiteral("`KVParamGui` stands inside `%1`, of which nothing counts; make it "
                               "the outermost element")
                    .arg(parentName(root)));
    }
}

void DocumentCheck::reportNoForm()
{
    const QVector<int> outermost = m_description.children(-1);
    if (outermost.isEmpty()) {
        m_subject.report("no-form", {0, 0},
                         QStringLiteral("there is no element here, and so no form; a form begins with "
                                        "`<KVParamGui version=\"1.0\">`"));
        return;
    }
    const int root = outermost.first();
    if (element(root).name == QLatin1String("KVParamGui")) {
        m_subject.reportAt(
            "no-form", root,
            QStringLiteral("the engine cannot read as far as `KVParamGui`, so there is no form"));
        return;
    }
    const bool isNear = isNearMiss(element(root).name, QStringLiteral("KVParamGui"));
    m_subject.reportAt(
        "no-form", root,
        QStringLiteral("the outermost element is `%1`, so there is no form; it must be `KVParamGui`")
            .arg(element(root).name),
        isNear ? QStringLiteral("KVParamGui") : QString());
}

/** True for elements that hold text and nothing else. */
bool DocumentCheck::isText(int index) const
{
    const QString parent = parentName(index);
    if (parent == QLatin1String("Property"))
        return element(element(index).parent).firstChild == index;
    const Element* const known = m_subject.kinds().findElement(element(index).name);
    return known && known->holdsText && known->parents.contains(parent);
}

void DocumentCheck::checkPlace(int index)
{
    const int parent = element(index).parent;
    if (parent < 0 || element(index).name == QLatin1String("KVParamGui"))
        return;
    const QString& name = element(parent).name;
    if (isText(parent)) {
        if (element(parent).firstChild == index)
            m_subject.reportAt(
                "element-in-text", index,
                QStringLiteral("`%1` holds text only; the engine stops reading at the `%2` in it")
                    .arg(name, element(index).name));
        return;
    }
    if (name == QLatin1String("Widget") || name == QLatin1String("Properties") ||
        name == QLatin1String("CustomProperties"))
        checkInBlock(index);
    else if (name == QLatin1String("Property"))
        checkInProperty(index);
    else if (m_subject.kinds().findElement(name))
        checkSkipped(index);
}

void DocumentCheck::checkInBlock(int index)
{
    const QStringList allowed{QStringLiteral("Property"), QStringLiteral("CustomProperties")};
    const QString& name = element(index).name;
    if (name == QLatin1String("Property")) {
        if (element(index).firstChild < 0)
            m_subject.reportAt("property-without-type", index,
                               QStringLiteral("the value of `%1` stands in no type element; write "
                                              "`<String>...</String>` around it")
                                   .arg(element(index).value("name")));
        return;
    }
    if (name == QLatin1String("CustomProperties") && parentName(index) != QLatin1String("Widget"))
        m_subject.reportAt("nested-block", index,
                           QStringLiteral("this block stands inside `%1`; its properties count, but it "
                                          "belongs beside it")
                               .arg(parentName(index)));
    if (allowed.contains(name))
        return;
    if (name == QLatin1String("Properties") && parentName(index) == QLatin1String("Widget")) {
        m_subject.reportAt(
            "properties-in-row", index,
            QStringLiteral("a row holds its properties directly; remove `Properties`, which cuts "
                           "off everything behind it"));
        return;
    }
    const QString hint =
        m_subject.kinds().findElement(name)
            ? QStringLiteral("is the end tag `</%1>` missing before it?").arg(parentName(index))
            : QStringLiteral("it cuts off everything behind it");
    m_subject.reportAt("stray-element", index,
                       QStringLiteral("`%1` does not belong into `%2`, which holds `Property` and "
                                      "`CustomProperties` only; %3")
                           .arg(name, parentName(index), hint),
                       nearest(name, allowed));
}

void DocumentCheck::checkInProperty(int index)
{
    const int parent = element(index).parent;
    if (element(parent).firstChild == index || m_reportedSecond.contains(parent))
        return;
    m_reportedSecond.insert(parent);
    m_subject.reportAt(
        "second-value", index,
        QStringLiteral("only the first element in the property `%1` counts, and `%2` is skipped; "
                       "is `</Property>` missing before it?")
            .arg(element(parent).value("name"), element(index).name));
}

void DocumentCheck::checkSkipped(int index)
{
    const Element* const parent = m_subject.kinds().findElement(parentName(index));
    const QString& name = element(index).name;
    if (parent->children.contains(name))
        return;
    if (name == QLatin1String("Property") && parent->name == QLatin1String("Sheet")) {
        m_subject.reportAt(
            "misplaced-property", index,
            QStringLiteral("the sheet does not see `%1` here; put it into a block `Properties`")
                .arg(element(index).value("name")));
        return;
    }
    const Element* const known = m_subject.kinds().findElement(name);
    const QString why =
        known ? QStringLiteral("it belongs into `%1`").arg(known->parents.join(QLatin1String("` or `")))
              : QStringLiteral("it is skipped with all that it holds");
    m_subject.reportAt("unknown-element", index,
                       QStringLiteral("`%1` does not know an element `%2`; %3").arg(parent->name, name, why),
                       nearest(name, parent->children));
}

/** True behind the place where the text stops being well-formed: there anything may look like anything. */
bool DocumentCheck::isBroken(int offset) const
{
    const int place = m_subject.reading().brokenAt();
    return place >= 0 && offset >= place;
}

void DocumentCheck::checkText(const TextPiece& text)
{
    const Range range = m_description.trimmed(text.range);
    if (range.begin >= range.end || text.element < 0 || isBroken(range.begin) || isText(text.element))
        return;
    const SourceElement& around = element(text.element);
    const Element* const known = m_subject.kinds().findElement(around.name);
    const bool hasOwnFinding = around.name == QLatin1String("Property") && around.firstChild < 0;
    if (!known || known->holdsText || hasOwnFinding)
        return;
    constexpr int longestShown = 30;
    QString shown = m_subject.source().text().mid(range.begin, range.end - range.begin).simplified();
    if (shown.size() > longestShown)
        shown = shown.left(longestShown) + QLatin1String(" ...");
    m_subject.report(
        "stray-text", range,
        QStringLiteral("nobody reads the text `%1` here: `%2` holds elements; remove it, or make "
                       "a comment of it")
            .arg(shown, around.name));
}

void DocumentCheck::checkPrefix(int index)
{
    const SourceElement& owner = element(index);
    const int length = owner.qualifiedName.size() - owner.name.size();
    if (length == 0)
        return;
    const QString prefix = owner.qualifiedName.left(length);
    if (m_knownPrefixes.contains(prefix) || isBroken(owner.tag.end) ||
        !m_subject.kinds().findElement(owner.name))
        return;
    m_knownPrefixes.insert(prefix);
    m_subject.report("foreign-namespace", owner.nameRange(),
                     QStringLiteral("`%1` counts as `%2`, but to other tools it is an element of another "
                                    "language; remove the prefix")
                         .arg(owner.qualifiedName, owner.name));
}

void DocumentCheck::checkAttributes(int index)
{
    const Element* const known = m_subject.kinds().findElement(element(index).name);
    if (!known)
        return;
    const QStringList names = namesOf(known->attributes);
    for (const SourceAttribute& attribute : element(index).attributes) {
        if (attribute.name == QLatin1String("xmlns") && !attribute.value.isEmpty())
            m_subject.report(
                "foreign-namespace", attribute.nameRange,
                QStringLiteral("the language has no namespace; the form does not mind, but other "
                               "tools take this for another language; remove it"));
        if (names.contains(attribute.name) || attribute.name == QLatin1String("xmlns") ||
            attribute.name.startsWith(QLatin1String("xmlns:")))
            continue;
        m_subject.report("unknown-attribute", attribute.nameRange,
                         names.isEmpty()
                             ? QStringLiteral("`%1` has no attributes, so `%2` is not seen")
                                   .arg(known->name, attribute.name)
                             : QStringLiteral("`%1` has no attribute `%2`, so it is not seen; there is `%3`")
                                   .arg(known->name, attribute.name, names.join(QLatin1String("`, `"))),
                         -1, nearest(attribute.name, names));
    }
    if (element(index).sound && names.contains(QLatin1String("name")) &&
        element(index).value("name").isEmpty())
        m_subject.reportAt(
            "nameless", index,
            QStringLiteral("this `%1` has no name, so nothing can refer to it").arg(known->name));
}

void DocumentCheck::checkTwins()
{
    for (const int root : m_subject.elements("KVParamGui")) {
        QVector<int> scripts;
        bool sheetSeen = false;
        for (const int child : m_description.children(root)) {
            if (element(child).name == QLatin1String("Script"))
                scripts.append(child);
            if (element(child).name != QLatin1String("Sheet"))
                continue;
            if (sheetSeen)
                m_subject.reportAt(
                    "several-sheets", child,
                    QStringLiteral("this is a further `Sheet`; its rows are added to the one before, "
                                   "and its name replaces the other"));
            sheetSeen = true;
        }
        for (int i = 0; i + 1 < scripts.size(); ++i)
            m_subject.reportAt("several-scripts", scripts.at(i),
                               QStringLiteral("nothing of this script runs: the one in line %1 replaces it")
                                   .arg(m_subject.lineOf(scripts.at(i + 1))));
    }
    for (int i = 0; i < m_description.elements().size(); ++i)
        checkDoubledProperties(i);
}

void DocumentCheck::checkDoubledProperties(int index)
{
    const SourceElement& property = element(index);
    if (property.name != QLatin1String("Property"))
        return;
    const Fate& fate = m_subject.reading().fate(index);
    if (!fate.isReplaced() || fate.by < 0)
        return;
    m_subject.reportAt("doubled-property", index,
                       QStringLiteral("`%1` is given once more in line %2, and that one counts")
                           .arg(property.value("name"))
                           .arg(m_subject.lineOf(fate.by)));
}

void checkDocument(Subject& subject)
{
    DocumentCheck(subject).run();
}

} // namespace

const Family documentFamily = {"document", "The document", rules, checkDocument};

} // namespace Author
} // namespace Orvane
