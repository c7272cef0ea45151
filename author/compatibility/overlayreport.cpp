#include "overlaytrial.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Orvane {
namespace Author {

namespace {

/** Raised when a reader of the old form would stumble over the new one. */
constexpr int formatVersion = 1;

QString kindName(OverlayChange::Kind kind)
{
    static const QStringList names{QStringLiteral("property"), QStringLiteral("custom property"),
                                   QStringLiteral("value"), QStringLiteral("mark")};
    return names.at(kind);
}

QString shown(const QString& text)
{
    return text.isNull() ? QStringLiteral("nothing") : QLatin1Char('"') + text + QLatin1Char('"');
}

QJsonValue textOrNull(const QString& text)
{
    return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QString listText(const QStringList& entries)
{
    return entries.isEmpty() ? QStringLiteral("nothing") : entries.join(QLatin1String(", "));
}

QString changeText(const QString& overlay, const OverlayChange& change)
{
    const QString place = change.line > 0 ? QStringLiteral("%1:%2: ").arg(overlay).arg(change.line)
                                          : QStringLiteral("%1: follows: ").arg(overlay);
    const QString name = change.name.isEmpty() ? kindName(change.kind)
                                               : kindName(change.kind) + QLatin1Char(' ') + change.name;
    return place + QStringLiteral("%1, %2: %3 -> %4\n")
                       .arg(change.row, name, shown(change.before), shown(change.after));
}

QString enumerationText(const QString& overlay, const OverlayEnumeration& one)
{
    QString text =
        QStringLiteral("%1:%2: enumeration %3: %4 -> %5\n")
            .arg(overlay)
            .arg(one.line)
            .arg(one.name, one.isNew ? QStringLiteral("new") : listText(one.before), listText(one.after));
    if (!one.stale.isEmpty())
        text += QStringLiteral("    scripts go on seeing: %1\n").arg(one.stale.join(QLatin1String(", ")));
    return text;
}

} // namespace

QString overlayText(const QString& overlay, const OverlayTrial& trial)
{
    QString text;
    for (const OverlayEnumeration& one : trial.enumerations())
        text += enumerationText(overlay, one);
    for (const OverlayChange& change : trial.changes())
        text += changeText(overlay, change);
    if (trial.scriptLine() > 0)
        text +=
            QStringLiteral("%1:%2: the script is stored and not run\n").arg(overlay).arg(trial.scriptLine());
    for (const OverlayLoss& loss : trial.losses())
        text +=
            QStringLiteral("%1:%2: lost: %3: %4\n").arg(overlay).arg(loss.line).arg(loss.what, loss.reason);
    return text + QStringLiteral("%1 changes, %2 enumerations, %3 lost\n")
                      .arg(trial.changes().size())
                      .arg(trial.enumerations().size())
                      .arg(trial.losses().size());
}

QByteArray overlayJson(const OverlayTrial& trial)
{
    QJsonArray changes;
    for (const OverlayChange& change : trial.changes())
        changes.append(QJsonObject{{QStringLiteral("kind"), kindName(change.kind)},
                                   {QStringLiteral("row"), change.row},
                                   {QStringLiteral("name"), change.name},
                                   {QStringLiteral("before"), textOrNull(change.before)},
                                   {QStringLiteral("after"), textOrNull(change.after)},
                                   {QStringLiteral("line"), change.line}});
    QJsonArray enumerations;
    for (const OverlayEnumeration& one : trial.enumerations())
        enumerations.append(QJsonObject{{QStringLiteral("name"), one.name},
                                        {QStringLiteral("new"), one.isNew},
                                        {QStringLiteral("before"), QJsonArray::fromStringList(one.before)},
                                        {QStringLiteral("after"), QJsonArray::fromStringList(one.after)},
                                        {QStringLiteral("stale"), QJsonArray::fromStringList(one.stale)},
                                        {QStringLiteral("line"), one.line}});
    QJsonArray lost;
    for (const OverlayLoss& loss : trial.losses())
        lost.append(QJsonObject{{QStringLiteral("what"), loss.what},
                                {QStringLiteral("reason"), loss.reason},
                                {QStringLiteral("line"), loss.line}});
    return QJsonDocument(QJsonObject{{QStringLiteral("version"), formatVersion},
                                     {QStringLiteral("changes"), changes},
                                     {QStringLiteral("enumerations"), enumerations},
                                     {QStringLiteral("script"), trial.scriptLine()},
                                     {QStringLiteral("lost"), lost}})
        .toJson();
}

} // namespace Author
} // namespace Orvane
