#include "parameterreports.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Orvane {
namespace Author {

namespace {

/** Raised when a reader of the old form would stumble over the new one. */
constexpr int formatVersion = 1;

QByteArray document(const char* name, const QJsonArray& array)
{
    return QJsonDocument(
               QJsonObject{{QStringLiteral("version"), formatVersion}, {QLatin1String(name), array}})
        .toJson();
}

/** A text or, where there is none, null. */
QJsonValue textOrNull(const QString& text)
{
    return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

/** The words of a text that is there. */
QJsonValue wordsOrNull(const QString& text, const QString& words)
{
    return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(words);
}

QString quoted(const QString& text, const QString& words)
{
    if (text.isNull())
        return QStringLiteral("nothing");
    return words.isEmpty() ? QStringLiteral("\"\"") : words;
}

QString heading(Difference::Kind kind)
{
    static const QStringList names{QStringLiteral("equal"),     QStringLiteral("changed"),
                                   QStringLiteral("only in A"), QStringLiteral("only in B"),
                                   QStringLiteral("unknown"),   QStringLiteral("not sent")};
    return names.at(kind);
}

QString line(const Difference& one)
{
    const QString a = quoted(one.textA, one.wordsA);
    const QString b = quoted(one.textB, one.wordsB);
    QString content = QStringLiteral("%1 -> %2").arg(a, b);
    if (!one.isDifferent)
        content = a;
    else if (one.kind == Difference::OnlyInA)
        content = a;
    else if (one.kind == Difference::OnlyInB)
        content = b;
    return QStringLiteral("%1  %2: %3\n").arg(heading(one.kind), -9).arg(one.name, content);
}

} // namespace

QString explanationText(const SettingsForm& form, const ParameterSet& set)
{
    QString text;
    for (const Setting& setting : set.settings()) {
        const Words words = form.words().of(setting);
        text += setting.row < 0
                    ? QStringLiteral("unknown to the form: %1: %2\n").arg(setting.key, words.value)
                    : QStringLiteral("%1: %2\n").arg(words.name(), words.value);
    }
    return text;
}

QByteArray explanationJson(const SettingsForm& form, const ParameterSet& set)
{
    QJsonArray array;
    for (const Setting& setting : set.settings()) {
        const Words words = form.words().of(setting);
        const Place place = set.source().place(setting.range.begin);
        array.append(QJsonObject{{QStringLiteral("path"), setting.key},
                                 {QStringLiteral("line"), place.line},
                                 {QStringLiteral("column"), place.column},
                                 {QStringLiteral("known"), setting.row >= 0},
                                 {QStringLiteral("group"), words.group},
                                 {QStringLiteral("caption"), words.caption},
                                 {QStringLiteral("text"), setting.text()},
                                 {QStringLiteral("words"), words.value}});
    }
    return document("settings", array);
}

QString differencesText(const QVector<Difference>& differences, bool all)
{
    QString text;
    QVector<int> counts(Difference::NotSent + 1);
    for (const Difference& one : differences) {
        ++counts[one.kind];
        if (all || one.kind != Difference::Equal)
            text += line(one);
    }
    QStringList parts;
    for (int kind = Difference::Equal; kind <= Difference::NotSent; ++kind)
        parts.append(
            QStringLiteral("%1 %2").arg(counts.at(kind)).arg(heading(static_cast<Difference::Kind>(kind))));
    return text + parts.join(QLatin1String(", ")) + QLatin1Char('\n');
}

QByteArray differencesJson(const QVector<Difference>& differences)
{
    QJsonArray array;
    for (const Difference& one : differences)
        array.append(QJsonObject{{QStringLiteral("kind"), kindName(one.kind)},
                                 {QStringLiteral("path"), one.key},
                                 {QStringLiteral("name"), one.name},
                                 {QStringLiteral("differs"), one.isDifferent},
                                 {QStringLiteral("a"), textOrNull(one.textA)},
                                 {QStringLiteral("b"), textOrNull(one.textB)},
                                 {QStringLiteral("wordsA"), wordsOrNull(one.textA, one.wordsA)},
                                 {QStringLiteral("wordsB"), wordsOrNull(one.textB, one.wordsB)}});
    return document("settings", array);
}

QString conflictsText(const QVector<Conflict>& conflicts)
{
    QString text;
    for (const Conflict& one : conflicts)
        text += QStringLiteral("conflict  %1: %2 in A, %3 in B, %4 in BASE\n")
                    .arg(one.name, quoted(one.textOurs, one.wordsOurs),
                         quoted(one.textTheirs, one.wordsTheirs), quoted(one.textBase, one.wordsBase));
    return text;
}

QByteArray conflictsJson(const QVector<Conflict>& conflicts)
{
    QJsonArray array;
    for (const Conflict& one : conflicts)
        array.append(
            QJsonObject{{QStringLiteral("path"), one.key},
                        {QStringLiteral("name"), one.name},
                        {QStringLiteral("base"), textOrNull(one.textBase)},
                        {QStringLiteral("ours"), textOrNull(one.textOurs)},
                        {QStringLiteral("theirs"), textOrNull(one.textTheirs)},
                        {QStringLiteral("wordsBase"), wordsOrNull(one.textBase, one.wordsBase)},
                        {QStringLiteral("wordsOurs"), wordsOrNull(one.textOurs, one.wordsOurs)},
                        {QStringLiteral("wordsTheirs"), wordsOrNull(one.textTheirs, one.wordsTheirs)}});
    return document("conflicts", array);
}

} // namespace Author
} // namespace Orvane
