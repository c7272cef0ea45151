#include "subcommand.h"
#include "terminal.h"

#include <author/files/wholefile.h>
#include <author/kinds/kindpage.h>
#include <author/kinds/kindtable.h>

using namespace Orvane::Author;

namespace {

QString plain(QString text)
{
    return text.remove(QLatin1Char('`')).remove(QLatin1String("**"));
}

QString classList()
{
    QString text;
    for (const ControlClass& controlClass : KindTable::instance().classes())
        text += QStringLiteral("%1  %2\n").arg(controlClass.name, -22).arg(plain(controlClass.summary));
    return text;
}

QString propertyLines(const QList<Property>& properties)
{
    QString text;
    for (const Property& property : properties) {
        const QString absent =
            property.absent.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(property.absent);
        text += QStringLiteral("  %1  %2  %3%4\n")
                    .arg(property.name, -28)
                    .arg(property.type, -6)
                    .arg(plain(property.effect), plain(absent));
    }
    return text;
}

QString methodLines(const ControlClass& controlClass, Method::Kind kind)
{
    QString text;
    for (const Method& method : controlClass.methods) {
        if (method.kind == kind)
            text += QStringLiteral("  %1  %2\n").arg(method.call(), -36).arg(plain(method.effect));
    }
    return text;
}

QString chapter(const QString& title, const QString& lines)
{
    return lines.isEmpty() ? QString() : QStringLiteral("\n%1:\n%2").arg(title, lines);
}

QString description(const ControlClass& controlClass)
{
    return QStringLiteral("%1: %2\n").arg(controlClass.name, plain(controlClass.summary)) +
           chapter(QStringLiteral("Properties, with what their absence means"),
                   propertyLines(controlClass.properties)) +
           chapter(QStringLiteral("Custom properties"), propertyLines(controlClass.customProperties)) +
           chapter(QStringLiteral("Signals"), methodLines(controlClass, Method::Signal)) +
           chapter(QStringLiteral("Slots"), methodLines(controlClass, Method::Slot)) +
           chapter(QStringLiteral("Invokables"), methodLines(controlClass, Method::Invokable)) +
           chapter(QStringLiteral("Parameter XML"),
                   QStringLiteral("  %1\n").arg(plain(controlClass.parameter.text)));
}

int renew(const QString& path)
{
    const FileContent old = readWhole(path);
    if (!old.isRead())
        return fail(QStringLiteral("kinds: cannot read %1: %2").arg(path, old.problem));
    const KindPage page = renewKindPage(QString::fromUtf8(old.bytes));
    if (!page.problem.isEmpty())
        return fail(QStringLiteral("kinds: %1: the tables for \"%2\" have no end, or a name in it is unknown")
                        .arg(path, page.problem));
    const QString problem = writeWhole(path, page.text.toUtf8());
    return problem.isEmpty() ? Clean : fail(QStringLiteral("kinds: cannot write %1: %2").arg(path, problem));
}

int run(const QStringList& arguments)
{
    if (arguments.size() == 2 && arguments.first() == QLatin1String("--renew"))
        return renew(arguments.at(1));
    if (arguments.isEmpty()) {
        print(classList());
        return Clean;
    }
    if (arguments.size() > 1)
        return fail(QStringLiteral("kinds: too many arguments: %1").arg(arguments.at(1)));
    const ControlClass* const controlClass = KindTable::instance().findClass(arguments.first());
    if (!controlClass)
        return fail(
            QStringLiteral("kinds: no class \"%1\"; \"zorva kinds\" lists them").arg(arguments.first()));
    print(description(*controlClass));
    return Clean;
}

} // namespace

const Subcommand kindsCommand = {
    "kinds",
    "lists the control kinds, or tells all about one",
    "Usage: zorva kinds [CLASS | --renew PAGE]\n"
    "Lists the classes that a Widget can have; with a CLASS, its properties, signals,\n"
    "slots, invokables and parameter XML.\n\n"
    "Options:\n"
    "  --renew PAGE  make the tables of a Markdown page anew, which stand between\n"
    "                <!-- kinds: CLASS... --> and <!-- kinds end -->\n",
    Subcommand::Core,
    run,
};
