#include "formstrings.h"

#include <author/check/scripttokens.h>
#include <author/document/enginereading.h>
#include <author/live/liveform.h>

#include <zorvaparser/zorvadelegate.h>

#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QSet>
#include <QTranslator>
#include <QWidget>

#include <utility>

namespace Orvane {
namespace Author {

namespace {

using Key = std::pair<QString, QString>; // context and source

/** Translates nothing, and notes who asks for what. */
class Recorder : public QTranslator
{
public:
    Recorder() { QCoreApplication::installTranslator(this); }
    ~Recorder() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        const Key key(textOf(context), QString::fromUtf8(source));
        if (!key.second.isEmpty() && !m_known.contains(key)) {
            m_known.insert(key);
            m_asked.append(key);
        }
        return QString();
    }

    const QVector<Key>& asked() const { return m_asked; }

private:
    // Rows give their names in Latin-1, enumerations in UTF-8.
    static QString textOf(const char* context)
    {
        const QString text = QString::fromUtf8(context);
        return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(context) : text;
    }

    mutable QSet<Key> m_known;
    mutable QVector<Key> m_asked;
};

void changeLanguage(QWidget* window)
{
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &change);
    if (!window)
        return;
    const QWidgetList widgets = window->findChildren<QWidget*>();
    for (QWidget* const widget : widgets) {
        QEvent each(QEvent::LanguageChange);
        QCoreApplication::sendEvent(widget, &each);
    }
}

QStringList headlinesOf(ZorvaSheet& sheet)
{
    QStringList names;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (sheet.GetWidgetAt(i)->IsHeadline())
            names << sheet.GetWidgetAt(i)->GetName();
    }
    return names;
}

/** A text that a script gives to a row, now or later. */
struct ScriptText
{
    QString row;
    QString property;
    QString text;
};

/** "setText" sets "text". */
QString propertyOf(const QString& slot)
{
    return slot.size() > 3 && slot.startsWith(QLatin1String("set")) ? slot.at(3).toLower() + slot.mid(4)
                                                                    : QString();
}

/** What stands between the quotes of a text without escapes; null of another one. */
QString literalOf(const ScriptToken& token)
{
    const bool isPlain =
        token.kind == ScriptToken::Text && token.text.size() > 2 && !token.text.contains(QLatin1Char('\\'));
    return isPlain ? token.text.mid(1, token.text.size() - 2) : QString();
}

/** `row.setText("words")` and `row.text = "words"`, wherever they stand. */
QVector<ScriptText> scriptTexts(const QString& code)
{
    QVector<ScriptText> texts;
    const QVector<ScriptToken> tokens = scriptTokens(code);
    for (int i = 0; i + 4 < tokens.size(); ++i) {
        if (tokens.at(i).kind != ScriptToken::Word || !tokens.at(i + 1).is("."))
            continue;
        const QString member = tokens.at(i + 2).text;
        const QString property = tokens.at(i + 3).is("(")   ? propertyOf(member)
                                 : tokens.at(i + 3).is("=") ? member
                                                            : QString();
        const QString text = literalOf(tokens.at(i + 4));
        if (!property.isEmpty() && !text.isEmpty())
            texts.append({tokens.at(i).text, property, text});
    }
    return texts;
}

/** Does what the script would do at some time. */
void say(const QVector<ScriptText>& texts, ZorvaSheet& sheet)
{
    QHash<QString, ZorvaDelegate*> rows;
    for (int i = sheet.GetWidgetCount() - 1; i >= 0; --i)
        rows.insert(sheet.GetWidgetAt(i)->GetName(), sheet.GetWidgetAt(i)->GetDelegate());
    for (const ScriptText& each : texts) {
        if (ZorvaDelegate* const row = rows.value(each.row))
            row->ChangeProperty(each.property, each.text);
    }
}

/** What a form asks for in its life. */
QVector<Key> askedBy(const QByteArray& description, const QVector<ScriptText>& texts = {})
{
    const Recorder recorder;
    const LiveForm live(description, LiveForm::Built);
    if (!live.exists())
        return {};
    ZorvaSheet& sheet = live->GetSheet();
    const QStringList collapsed = sheet.GetCollapsed();
    for (const QStringList& names : {headlinesOf(sheet), QStringList(), collapsed})
        sheet.SetCollapsed(names);
    say(texts, sheet);
    changeLanguage(live->GetGUI());
    return recorder.asked();
}

/** The description without its scripts: what is asked for then, nobody has computed. */
QByteArray withoutScripts(const Description& description)
{
    QString text;
    int from = 0;
    const QString& whole = description.source().text();
    for (const SourceElement& element : description.elements()) {
        if (partOf(element) != Part::Script || element.tag.begin < from)
            continue;
        text += whole.midRef(from, element.tag.begin - from);
        from = element.end;
    }
    text += whole.midRef(from);
    // The text is no longer in the encoding that it declares.
    if (text.startsWith(QLatin1String("<?xml")))
        text.remove(0, text.indexOf(QLatin1String("?>")) + 2);
    return text.toUtf8();
}

/** Where the texts of a description stand, by context. */
class Places
{
public:
    Places(const Description& description, const ReadForm& form)
        : m_description(description)
    {
        for (const ReadRow& row : form.rows) {
            m_contexts.insert(row.name);
            enter(row.name, row.properties);
            enter(row.name, row.custom);
        }
        for (const ReadEnumeration& enumeration : form.enumerations) {
            m_contexts.insert(enumeration.name);
            for (const ReadEntry& entry : enumeration.entries)
                enter(enumeration.name, entry.displayName, description.child(entry.element, "DisplayName"));
        }
    }

    bool isContext(const QString& name) const { return m_contexts.contains(name); }
    QVector<int> linesOf(const Key& key) const { return m_lines.value(key); }

private:
    void enter(const QString& context, const QMap<QString, ReadProperty>& properties)
    {
        for (const ReadProperty& property : properties) {
            if (property.value.type() == QVariant::String)
                enter(context, property.value.toString(), property.element);
        }
    }

    void enter(const QString& context, const QString& text, int element)
    {
        if (element >= 0)
            m_lines[{context, text}].append(
                m_description.source().lineAt(m_description.element(element).tag.begin));
    }

    const Description& m_description;
    QSet<QString> m_contexts;
    QHash<Key, QVector<int>> m_lines;
};

} // namespace

FormStrings formStrings(const QByteArray& description)
{
    const Description written{SourceText(description)};
    const EngineReading reading(written);
    FormStrings result;
    result.hasForm = reading.hasForm();
    if (!result.hasForm)
        return result;
    const Places places(written, reading.form());
    const QVector<Key> plain = askedBy(withoutScripts(written));
    const QSet<Key> uncomputed(plain.cbegin(), plain.cend());
    const QVector<Key> all =
        plain + askedBy(written.source().engineBytes(), scriptTexts(reading.form().code));
    QSet<Key> taken;
    for (const Key& key : all) {
        const bool isWritten = uncomputed.contains(key) || reading.form().code.contains(key.second);
        if (!places.isContext(key.first) || !isWritten || taken.contains(key))
            continue;
        taken.insert(key);
        result.strings.append({key.first, key.second, places.linesOf(key)});
    }
    return result;
}

} // namespace Author
} // namespace Orvane
