#include "families.h"
#include "scriptnames.h"
#include "scripttrial.h"
#include "subject.h"
#include "writtenrow.h"

#include <author/document/scriptlines.h>

#include <QRegularExpression>
#include <QScriptEngine>

namespace Orvane {
namespace Author {

namespace {

#define FORM(code)                                                                                           \
    "<KVParamGui version=\"1.0\">\n  <Sheet name=\"audio\">\n    <Widget name=\"mute\" "                     \
    "class=\"CheckBox\">\n"                                                                                  \
    "      <Property name=\"labelText\"><String>Mute</String></Property>\n"                                  \
    "      <Property name=\"enabled\"><Bool>true</Bool></Property>\n"                                        \
    "      <Property name=\"visible\"><Bool>true</Bool></Property>\n"                                        \
    "      <Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n    </Widget>\n  "          \
    "</Sheet>\n"                                                                                             \
    "  <Script language=\"QtScript\"><![CDATA[\n" code "\n  ]]></Script>\n</KVParamGui>"

const QVector<Rule> rules{
    {"script-syntax", Severity::Error, "a script that does not compile",
     "Nothing of the script runs. The language is ECMAScript 3 with parts of 5: `var` and `function`, no "
     "`let`, no arrow "
     "functions.",
     FORM("let on = mute.checked;"), FORM("var on = mute.checked;")},
    {"script-exception", Severity::Error, "a script that fails at start-up",
     "The script ends at this line: what it did before stays, all that follows, connections included, is "
     "missing. The message says what the script language found; mostly a name or a slot is not what it is "
     "thought to be.",
     FORM("mute.check(true);"), FORM("mute.setChecked(true);")},
    {"script-endless", Severity::Error, "a script that does not end",
     "The script runs in the thread of the user interface, so the program that shows the form hangs for "
     "ever. A script cannot wait for the user or the device: connect a handler to a signal instead.",
     FORM("while (!mute.checked) {}"), FORM("mute.toggled.connect(function(on) { print(on); });")},
    {"script-memory", Severity::Error, "a script that takes more memory than a form may",
     "The program that shows the form runs out of memory. Look for a list or a text that grows in a loop.",
     FORM("var lines = [];\nwhile (true) lines.push(\"line \" + lines.length);"),
     FORM("var lines = [];\nwhile (lines.length < 10) lines.push(\"line \" + lines.length);")},
    {"script-crash", Severity::Error, "a script that brings the interpreter down",
     "The program that shows the form ends with it. Recursion without end does not do that, it is an "
     "exception; a regular expression that is nested very deeply does. Leave out one statement after the "
     "other to find the one that does it.",
     FORM("new RegExp(new Array(100000).join(\"(\") + new Array(100000).join(\")\"));"),
     FORM("new RegExp(\"(a(b))\");")},
    {"unknown-global", Severity::Warning, "a name that nothing bears",
     "The form has no row, enumeration or sheet of that name, and the script does not declare it. At "
     "start-up the script "
     "fails there; in a handler, the handler. If the host sets it, allow it with a comment.",
     FORM("mute.toggled.connect(function(on) { print(mut.checked); });"),
     FORM("mute.toggled.connect(function(on) { print(mute.checked); });")},
    {"unknown-member", Severity::Warning, "a slot, property or entry that the object does not have",
     "Reading it gives `undefined`, calling it fails. `zorva kinds CLASS` lists what a row understands.",
     FORM("mute.toggled.connect(function(on) { mute.setCheked(on); });"),
     FORM("mute.toggled.connect(function(on) { mute.setChecked(on); });")},
    {"unknown-signal", Severity::Warning, "a connection to a signal that the row does not have",
     "The script fails at the connection. `zorva kinds CLASS` lists the signals of a row.",
     FORM("function follow(on) { mute.togled.connect(follow); }"),
     FORM("function follow(on) { mute.toggled.connect(follow); }")},
    {"early-control", Severity::Warning, "a control that is used before it exists",
     "At start-up rows have values and no controls yet, so this does nothing. Do it in a handler.",
     FORM("mute.setFocus();"), FORM("mute.toggled.connect(function() { mute.setFocus(); });")},
    {"escape-case", Severity::Warning, "an escape in the wrong case",
     "Only `{{CR}}` and `{{LF}}` become line ends, exactly so; in any other case the braces stay and the "
     "script breaks.",
     FORM("var text = \"{{lf}}\";"), FORM("var text = \"a\";{{LF}}text += \"b\";")},
    {"script-language", Severity::Note, "a language that is not looked at",
     "The attribute is kept and never read: every script is run as Qt Script.",
     R"(<KVParamGui version="1.0">
  <Sheet name="audio"/>
  <Script language="Python">print(1)</Script>
</KVParamGui>)",
     FORM("print(1);")},
};

/** Reads one script against the names of its form. */
class NameCheck
{
public:
    /** @p offsets are the places of the characters of @p text. */
    NameCheck(Subject& subject, const QString& text, const QVector<int>& offsets)
        : m_subject(subject)
        , m_offsets(offsets)
        , m_names(text)
    {
        collectGlobals();
        for (int i = 0; i < m_names.tokens().size(); ++i)
            collectToken(i);
    }

    void run()
    {
        for (int i = 0; i < m_names.tokens().size(); ++i) {
            if (m_names.isGlobal(i) && m_names.declaringScope(i) < 0 && !m_assigned.contains(text(i)))
                checkUse(i);
        }
    }

private:
    bool is(int index, const char* text) const { return m_names.is(index, text); }
    const QString& text(int index) const { return m_names.tokens().at(index).text; }
    /** The word of the member that the script asks the name for; -1 if it asks for none. */
    int memberOf(int index) const { return is(index + 1, ".") && m_names.isWord(index + 2) ? index + 2 : -1; }

    void collectGlobals()
    {
        const WrittenForm& form = m_subject.written();
        for (const int enumeration : m_subject.elements("Enum")) {
            QStringList identifiers;
            for (const int entry : m_subject.description().children(enumeration)) {
                const int identifier = m_subject.description().child(entry, "EnumIdentifier");
                if (identifier >= 0)
                    identifiers.append(m_subject.description().textOf(identifier));
            }
            m_enumerations.insert(m_subject.element(enumeration).value("name"), identifiers);
        }
        for (const WrittenRow& sheet : form.sheets())
            m_rows.insert(sheet.name(), &sheet);
        for (const WrittenRow& row : form.rows())
            m_rows.insert(row.name(), &row);
        // Nameless rows are called after their class and place.
        for (const ReadRow& row : m_subject.reading().form().rows)
            m_known.insert(row.name);
        const ScriptLanguage& language = m_subject.kinds().script();
        for (const QStringList& names : {language.globals(), language.words, language.constants})
            m_known.unite(QSet<QString>(names.cbegin(), names.cend()));
        for (const char* const word :
             {"undefined", "arguments", "this", "NaN", "Infinity", "true", "false", "null"})
            m_known.insert(QLatin1String(word));
    }

    /** Notes what the script itself makes: names without "var", and members of anything. */
    void collectToken(int index)
    {
        const bool isMember = is(index - 1, ".");
        if (!isMember && !m_names.isGlobal(index))
            return;
        const bool isLoop = is(index - 1, "(") && is(index - 2, "for") && is(index + 1, "in");
        if ((is(index + 1, "=") && !is(index + 2, "=")) || isLoop)
            (isMember ? m_addedMembers : m_assigned).insert(text(index));
        else if (isMember)
            m_readMembers.insert(text(index));
    }

    Range place(int token) const
    {
        const int begin = m_offsets.at(m_names.tokens().at(token).offset);
        return {begin, begin + text(token).size()};
    }

    void report(const char* id, int token, const QString& message, const QString& fix = QString())
    {
        m_subject.report(id, place(token), message, -1, fix);
    }

    void checkUse(int index)
    {
        const QString& name = text(index);
        if (const WrittenRow* const row = m_rows.value(name, nullptr))
            checkMember(index, *row);
        else if (m_enumerations.contains(name))
            checkIdentifier(index);
        else if (!m_known.contains(name) && !is(index - 1, "typeof") && !m_told.contains(name))
            reportGlobal(index);
    }

    void reportGlobal(int index)
    {
        m_told.insert(text(index));
        report("unknown-global", index,
               QStringLiteral(
                   "nothing is called `%1`: no row, no enumeration, and the script does not declare it")
                   .arg(text(index)),
               nearest(text(index), m_rows.keys() + m_enumerations.keys() + m_known.values()));
    }

    void checkIdentifier(int index)
    {
        const QStringList identifiers = m_enumerations.value(text(index));
        const int member = memberOf(index);
        if (member < 0 || identifiers.contains(text(member)) || m_addedMembers.contains(text(member)) ||
            isCommon(text(member)))
            return;
        report("unknown-member", member,
               QStringLiteral("the enumeration `%1` has no identifier `%2`").arg(text(index), text(member)),
               nearest(text(member), identifiers));
    }

    static bool isCommon(const QString& member)
    {
        static const QStringList common{QStringLiteral("toString"), QStringLiteral("hasOwnProperty"),
                                        QStringLiteral("valueOf"), QStringLiteral("constructor"),
                                        QStringLiteral("prototype")};
        return common.contains(member);
    }

    void checkMember(int index, const WrittenRow& row)
    {
        const int place = memberOf(index);
        if (place < 0)
            return;
        const QString& member = text(place);
        const QList<const Method*> methods = row.kind().findMethods(member);
        const int asked = memberOf(place);
        const bool connects = is(asked, "connect") || is(asked, "disconnect");
        if (connects && !isSignal(methods)) {
            report("unknown-signal", place,
                   QStringLiteral("`%1` has no signal `%2` to connect to").arg(row.name(), member),
                   nearest(member, namesOf(row, true)));
            return;
        }
        if (methods.isEmpty() && !connects && !isKnownMember(row, member)) {
            report("unknown-member", place,
                   QStringLiteral("`%1` has no slot and no property `%2`").arg(row.name(), member),
                   nearest(member, namesOf(row, false)));
            return;
        }
        if (m_names.tokens().at(index).depth == 0 && is(place + 1, "(") && needsControl(row, member))
            report("early-control", place,
                   QStringLiteral("`%1` has no control yet when the script starts, so `%2` does nothing; "
                                  "call it in a handler")
                       .arg(row.name(), member));
    }

    static bool isSignal(const QList<const Method*>& methods)
    {
        for (const Method* const method : methods) {
            if (method->kind == Method::Signal)
                return true;
        }
        return false;
    }

    bool isKnownMember(const WrittenRow& row, const QString& member) const
    {
        if (row.kind().findProperty(member) || row.find(member) || isOwnMember(row, member) ||
            isCommon(member))
            return true;
        for (const ScriptFunction& function : m_subject.kinds().script().members) {
            if (function.name == member)
                return true;
        }
        return member == QLatin1String("objectName");
    }

    /** True for what the script keeps on its objects itself; a slip of the pen it would never read. */
    bool isOwnMember(const WrittenRow& row, const QString& member) const
    {
        return m_addedMembers.contains(member) &&
               (m_readMembers.contains(member) || nearest(member, namesOf(row, false)).isEmpty());
    }

    static QStringList namesOf(const WrittenRow& row, bool onlySignals)
    {
        QStringList names;
        for (const Method& method : row.kind().methods) {
            if (!onlySignals || method.kind == Method::Signal)
                names.append(method.name);
        }
        for (const Property& property : row.kind().properties) {
            if (!onlySignals)
                names.append(property.name);
        }
        return names;
    }

    static bool needsControl(const WrittenRow& row, const QString& member)
    {
        if (member == QLatin1String("setFocus") || member == QLatin1String("animateClick"))
            return true;
        return row.className() == QLatin1String("ScriptControl") && member.size() > 10 &&
               (member.startsWith(QLatin1String("setEnabled")) ||
                member.startsWith(QLatin1String("setVisible")));
    }

    Subject& m_subject;
    const QVector<int>& m_offsets;
    ScriptNames m_names;
    QHash<QString, const WrittenRow*> m_rows;
    QHash<QString, QStringList> m_enumerations;
    QSet<QString> m_known;
    QSet<QString> m_assigned;     // names that the script assigns to
    QSet<QString> m_addedMembers; // the same behind a point, on whatever object
    QSet<QString> m_readMembers;
    QSet<QString> m_told;
};

class ScriptCheck
{
public:
    explicit ScriptCheck(Subject& subject)
        : m_subject(subject)
    {
    }

    void run()
    {
        for (const int script : m_subject.elements("Script"))
            checkScript(script);
    }

private:
    void checkScript(int script)
    {
        const QString text = m_subject.description().textOf(script);
        // Asked once, for a script may have a finding in each word.
        const QVector<int> offsets = m_subject.description().textOffsets(script);
        checkLanguage(script);
        checkEscapes(text, offsets);
        if (!checkSyntax(script, text))
            return;
        NameCheck(m_subject, text, offsets).run();
        if (script == m_subject.reading().form().script && m_subject.reading().fate(script).alive)
            checkRun(script, text);
    }

    void checkLanguage(int script)
    {
        const SourceAttribute* const language = m_subject.element(script).attribute("language");
        static const QStringList fine{QStringLiteral("qtscript"), QStringLiteral("javascript"),
                                      QStringLiteral("ecmascript")};
        if (language && !language->value.isEmpty() && !fine.contains(language->value.toLower()))
            m_subject.report("script-language", language->valueRange,
                             QStringLiteral("`%1` is not looked at: every script is run as Qt Script")
                                 .arg(language->value));
    }

    void checkEscapes(const QString& text, const QVector<int>& offsets)
    {
        static const QRegularExpression escape(QStringLiteral("\\{\\{(CR|LF)\\}\\}"),
                                               QRegularExpression::CaseInsensitiveOption);
        for (auto match = escape.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch found = match.next();
            if (found.captured() == found.captured().toUpper())
                continue;
            const int begin = offsets.at(found.capturedStart());
            m_subject.report("escape-case", {begin, begin + found.capturedLength()},
                             QStringLiteral("`%1` stays as it is; only `%2` becomes a line end")
                                 .arg(found.captured(), found.captured().toUpper()),
                             -1, found.captured().toUpper());
        }
    }

    Range lineRange(int script, const QString& text, int line) const
    {
        const int begin = m_subject.description().offsetInText(script, offsetOfScriptLine(text, line));
        int end = m_subject.source().text().indexOf(QLatin1Char('\n'), begin);
        if (end < 0)
            end = m_subject.source().size();
        return {begin, qMin(end, qMax(begin, m_subject.element(script).contentEnd))};
    }

    bool checkSyntax(int script, const QString& text)
    {
        const QScriptSyntaxCheckResult result = QScriptEngine::checkSyntax(withoutEscapes(text));
        if (result.state() == QScriptSyntaxCheckResult::Valid)
            return true;
        const QString why =
            result.errorMessage().isEmpty() ? QStringLiteral("it ends too early") : result.errorMessage();
        m_subject.report("script-syntax", lineRange(script, text, result.errorLineNumber()),
                         QStringLiteral("the script does not compile, so nothing of it runs: %1").arg(why),
                         -1);
        return false;
    }

    void checkRun(int script, const QString& text)
    {
        const ScriptTrial trial = m_subject.tryScript();
        switch (trial.end) {
        case ScriptTrial::NotRun:
        case ScriptTrial::Done:
            return;
        case ScriptTrial::Failed:
            m_subject.report(
                "script-exception", lineRange(script, text, trial.line),
                QStringLiteral("the script ends here at start-up, and all behind it is missing: %1")
                    .arg(trial.message));
            return;
        case ScriptTrial::Endless:
            m_subject.reportAt(
                "script-endless", script,
                QStringLiteral("the script does not end, and a program that shows this form hangs"));
            return;
        case ScriptTrial::Hungry:
            m_subject.reportAt("script-memory", script,
                               QStringLiteral("the script takes more memory than there may be"));
            return;
        case ScriptTrial::Crashed:
            m_subject.reportAt(
                "script-crash", script,
                QStringLiteral("the script brings the interpreter down, and with it the program"));
            return;
        }
    }

    Subject& m_subject;
};

void checkScripts(Subject& subject)
{
    ScriptCheck(subject).run();
}

} // namespace

const Family scriptFamily = {"script", "The script", rules, checkScripts};

} // namespace Author
} // namespace Orvane
