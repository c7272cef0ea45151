#include "kindpage.h"

#include "kindtable.h"

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

const QString beginMark = QStringLiteral("<!-- kinds: ");
const QString endMark = QStringLiteral("<!-- kinds end -->");

/** Classes that a section tells of together, one for each kind. */
using Kinds = QList<const ControlClass*>;

QString code(const QString& text)
{
    return QLatin1Char('`') + text + QLatin1Char('`');
}

QString row(const QStringList& cells)
{
    QStringList escaped;
    for (QString cell : cells)
        escaped.append(cell.replace(QLatin1Char('|'), QLatin1String("\\|")));
    return QStringLiteral("| %1 |\n").arg(escaped.join(QLatin1String(" | ")));
}

/** Lines of a table that say the same for several kinds stand once, with the kinds they hold for. */
struct Line
{
    QString subject;
    QStringList types; // of properties; one of each
    QString absent;
    QString effect;
    Kinds kinds;
};

using Lines = QList<Line>;

void addLine(Lines& lines, const Line& line)
{
    for (Line& known : lines) {
        if (known.subject != line.subject || known.absent != line.absent || known.effect != line.effect)
            continue;
        if (!known.kinds.contains(line.kinds.first()))
            known.kinds.append(line.kinds);
        for (const QString& type : line.types) {
            if (!known.types.contains(type))
                known.types.append(type);
        }
        return;
    }
    // What the kinds say differently of one thing stands together.
    int place = lines.size();
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i).subject == line.subject)
            place = i + 1;
    }
    lines.insert(place, line);
}

/** The classes that a line is limited to, for the end of its text; empty if it holds for all. */
QString limitation(const Line& line, const Kinds& kinds)
{
    if (line.kinds.size() == kinds.size())
        return QString();
    QStringList names;
    for (const ControlClass& other : KindTable::instance().classes()) {
        for (const ControlClass* kind : line.kinds) {
            if (other.delegate == kind->delegate && other.needs == kind->needs)
                names.append(code(other.name));
        }
    }
    return QStringLiteral(" (%1)").arg(names.join(QLatin1String(", ")));
}

QString effectOf(const Property& property)
{
    QString text = property.effect;
    if (!property.unit.isEmpty() && !text.contains(property.unit))
        text += QStringLiteral(" (%1)").arg(property.unit);
    if (property.translated)
        text += QStringLiteral(", translated");
    if (!property.choices.isEmpty()) {
        QStringList choices;
        for (const QString& choice : property.choices)
            choices.append(code(choice));
        text = QStringLiteral("%1: %2").arg(choices.join(QStringLiteral(" or ")), text);
    }
    return text;
}

Lines propertyLines(const Kinds& kinds, const QList<Property> ControlClass::*properties, bool shared)
{
    Lines lines;
    for (const ControlClass* kind : kinds) {
        for (const Property& property : kind->*properties) {
            if (property.shared == shared)
                addLine(lines,
                        {code(property.name), {property.type}, property.absent, effectOf(property), {kind}});
        }
    }
    return lines;
}

QString propertyTable(const Lines& lines, const Kinds& kinds, const QString& title)
{
    if (lines.isEmpty())
        return QString();
    QString text =
        row({title, QStringLiteral("Type"), QStringLiteral("If absent"), QStringLiteral("Effect")}) +
        QStringLiteral("|---|---|---|---|\n");
    for (const Line& line : lines)
        text += row({line.subject, line.types.join(QStringLiteral(", ")), line.absent,
                     line.effect + limitation(line, kinds)});
    return text + QLatin1Char('\n');
}

/** "Without effect here: ...", for what all rows have and this kind makes nothing of. */
QString sharedNote(const ControlClass& kind, bool Property::*flag, const QString& words)
{
    QStringList names;
    for (const Property& property : kind.properties) {
        if (property.shared && property.*flag && property.name != QLatin1String("applyMode"))
            names.append(code(property.name));
    }
    return names.isEmpty() ? QString() : words.arg(names.join(QLatin1String(", "))) + QLatin1String("\n\n");
}

const char* titleOf(Method::Kind kind)
{
    static const char* const titles[] = {"Signal", "Slot", "Invokable"};
    return titles[kind];
}

/** A slot that says with its name what it does: "setMinimum". */
bool isPlainSetter(const Method& method)
{
    if (method.kind != Method::Slot || !method.name.startsWith(QLatin1String("set")))
        return false;
    const QString property = method.name.mid(3, 1).toLower() + method.name.mid(4);
    return method.effect == QStringLiteral("sets %1").arg(code(property));
}

Lines methodLines(const Kinds& kinds, int from, Method::Kind wanted, bool setters)
{
    Lines lines;
    for (const ControlClass* kind : kinds) {
        const int first = from < 0 ? 0 : kind->sharedMethods;
        const int last = from < 0 ? kind->sharedMethods : kind->methods.size();
        for (int i = first; i < last; ++i) {
            const Method& method = kind->methods.at(i);
            // Every control takes the focus; what all rows share tells it.
            const bool told = from >= 0 && method.name == QLatin1String("setFocus");
            if (method.kind == wanted && isPlainSetter(method) == setters && !told)
                addLine(lines, {code(method.call()), {}, QString(), method.effect, {kind}});
        }
    }
    return lines;
}

/** One row for each set of kinds that have the same setters. */
QString setterRows(const Kinds& kinds, int from)
{
    QStringList limitations;
    QList<QStringList> calls;
    for (const Line& line : methodLines(kinds, from, Method::Slot, true)) {
        const QString limited = limitation(line, kinds);
        if (!limitations.contains(limited)) {
            limitations.append(limited);
            calls.append(QStringList());
        }
        calls[limitations.indexOf(limited)].append(line.subject);
    }
    QString text;
    for (int i = 0; i < limitations.size(); ++i)
        text += row({QStringLiteral("Slots that set the property of their name") + limitations.at(i),
                     calls.at(i).join(QStringLiteral(", "))});
    return text;
}

QString parameterRow(const Kinds& kinds)
{
    Lines lines;
    for (const ControlClass* kind : kinds) {
        const ParameterElement& parameter = kind->parameter;
        QString text = parameter.text + (parameter.hasUnit ? QStringLiteral(", with `unit`") : QString());
        if (!parameter.example.isEmpty())
            text = code(parameter.example) + QStringLiteral(": ") + text;
        addLine(lines, {QString(), {}, QString(), text, {kind}});
    }
    QStringList texts;
    for (const Line& line : lines)
        texts.append(line.effect + limitation(line, kinds));
    return row({QStringLiteral("Parameter XML"), texts.join(QStringLiteral("; "))});
}

QString methodTable(const Kinds& kinds, int from)
{
    QString text;
    for (const Method::Kind kind : {Method::Signal, Method::Slot, Method::Invokable}) {
        if (kind == Method::Slot)
            text += setterRows(kinds, from);
        for (const Line& line : methodLines(kinds, from, kind, false))
            text += row({QLatin1String(titleOf(kind)) + QLatin1Char(' ') + line.subject,
                         line.effect + limitation(line, kinds)});
    }
    return text;
}

QString headless(const QString& rows)
{
    return rows.isEmpty() ? QString() : QStringLiteral("| | |\n|---|---|\n") + rows + QLatin1Char('\n');
}

QString sectionTables(const Kinds& kinds)
{
    QString text = propertyTable(propertyLines(kinds, &ControlClass::properties, false), kinds,
                                 QStringLiteral("Property"));
    text += propertyTable(propertyLines(kinds, &ControlClass::customProperties, false), kinds,
                          QStringLiteral("Custom property"));
    const ControlClass& first = *kinds.first();
    text += sharedNote(first, &Property::inert,
                       QStringLiteral("Of what all rows share, without effect here: %1."));
    text += sharedNote(
        first, &Property::late,
        QStringLiteral("Of what all rows share, heard only when it changes later and stands in the "
                       "description: %1."));
    return text + headless(methodTable(kinds, 0) + parameterRow(kinds));
}

/** A kind for which nothing that all rows have is without effect. */
Kinds usualRow()
{
    return {KindTable::instance().findClass(QStringLiteral("CheckBox"))};
}

QString sharedTables()
{
    const Kinds usual = usualRow();
    return propertyTable(propertyLines(usual, &ControlClass::properties, true), usual,
                         QStringLiteral("Property")) +
           propertyTable(propertyLines(usual, &ControlClass::customProperties, true), usual,
                         QStringLiteral("Custom property"));
}

QString sharedObjectTables()
{
    return headless(methodTable(usualRow(), -1));
}

QString sheetTables()
{
    const Kinds sheet = {&KindTable::instance().sheet()};
    return propertyTable(propertyLines(sheet, &ControlClass::properties, false), sheet,
                         QStringLiteral("Property"));
}

QString sheetObjectTables()
{
    return headless(methodTable({&KindTable::instance().sheet()}, 0));
}

/** The tables for the names of one marker; null if one of them is unknown. */
QString tablesFor(const QStringList& names, QStringList& classes)
{
    if (names == QStringList(QStringLiteral("rows")))
        return sharedTables();
    if (names == QStringList(QStringLiteral("row-object")))
        return sharedObjectTables();
    if (names == QStringList(QStringLiteral("sheet")))
        return sheetTables();
    if (names == QStringList(QStringLiteral("sheet-object")))
        return sheetObjectTables();
    Kinds kinds;
    for (const QString& name : names) {
        const ControlClass* const controlClass = KindTable::instance().findClass(name);
        if (!controlClass)
            return QString();
        classes.append(name);
        const bool known = std::any_of(kinds.cbegin(), kinds.cend(), [&](const ControlClass* kind) {
            return kind->delegate == controlClass->delegate && kind->needs == controlClass->needs;
        });
        if (!known)
            kinds.append(controlClass);
    }
    return sectionTables(kinds);
}

} // namespace

KindPage renewKindPage(const QString& page)
{
    KindPage renewed;
    int place = 0;
    for (;;) {
        const int begin = page.indexOf(beginMark, place);
        if (begin < 0)
            break;
        const int lineEnd = page.indexOf(QLatin1Char('\n'), begin);
        const int end = page.indexOf(endMark, begin);
        const int names = begin + beginMark.size();
        const QString list = page.mid(names, page.indexOf(QLatin1String("-->"), names) - names).trimmed();
        const QString tables = tablesFor(list.split(QLatin1Char(' ')), renewed.classes);
        if (lineEnd < 0 || end < lineEnd || tables.isNull()) {
            renewed.problem = list;
            break;
        }
        renewed.text += page.midRef(place, lineEnd + 1 - place) + QLatin1Char('\n') + tables;
        place = end;
    }
    renewed.text += page.midRef(place);
    return renewed;
}

} // namespace Author
} // namespace Orvane
