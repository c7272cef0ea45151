#ifndef ZORVA_TESTS_TRANSLATIONFILE_H
#define ZORVA_TESTS_TRANSLATIONFILE_H

#include <QByteArray>
#include <QList>
#include <QString>

/// A text of a translation file; everything but the translation as programs name it.
struct Message
{
    QByteArray context;
    QByteArray source;
    QByteArray comment;
    QString translation;
};

/// A .qm file as Qt's tools make it, with `furtherSection` at its end.
QByteArray translationFile(const QList<Message>& messages, const QByteArray& furtherSection = QByteArray());

#endif
