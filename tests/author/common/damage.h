#ifndef ZORVA_TESTS_AUTHOR_DAMAGE_H
#define ZORVA_TESTS_AUTHOR_DAMAGE_H

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>

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

#endif
