#ifndef ZORVA_TESTS_AUTHOR_DAMAGE_H
#define ZORVA_TESTS_AUTHOR_DAMAGE_H

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>

#include <functional>

/// Spoils a description in one place, as authors and tools do: elements and attributes go
/// missing, are renamed, doubled, moved or inserted where they do not belong, and text breaks.
class Damage
{
public:
    explicit Damage(quint32 seed);

    /// `text` with one damage; `what` then says which, for the message of a failing test.
    QString apply(const QString& text);
    const QString& what() const { return m_what; }

private:
    struct Stretch
    {
        int begin = 0;
        int end = 0;
    };

    Stretch anyTag(const QString& text);
    Stretch anyElement(const QString& text);
    Stretch anyAttribute(const QString& text);
    int anyPlace(const QString& text);
    int anyTagEnd(const QString& text);
    QString anySnippet();

    QRandomGenerator m_random;
    QString m_what;
};

/// The text of a file below examples/.
QString exampleText(const char* name);
/// A column "text" with descriptions that are worth damaging.
void addTextsToDamage();

/// What a test finds wrong with a description; empty if nothing.
using Judge = std::function<QString(const QByteArray& bytes)>;
/// What `judge` finds wrong first with `bytes` cut behind every `step`th one, and where;
/// every `thoroughStep`th by night.
QString faultOfPrefixes(const QByteArray& bytes, int step, int thoroughStep, const Judge& judge);
/// The same with `text` damaged in `count` ways once or twice; by night as often as the
/// variable ZORVA_DAMAGES says.
QString faultOfDamages(const QString& text, int count, const Judge& judge);

#endif
