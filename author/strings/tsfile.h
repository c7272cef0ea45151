#ifndef ZORVA_AUTHOR_TSFILE_H
#define ZORVA_AUTHOR_TSFILE_H

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {
namespace Author {

/** One text with its translation, as Qt's tools keep it. */
struct TsMessage
{
    enum State { Finished, Unfinished, Vanished, Obsolete };

    QString context;
    QString source;
    QString comment;                          // tells texts of one context apart; forms have none
    QVector<QPair<QString, int>> places;      // file and line
    QVector<QPair<QString, QString>> remarks; // other elements with their texts, as they were
    QString translation;
    State state = Unfinished;

    /** A text that was there once: its translation is kept for the day it comes back. */
    bool isGone() const { return state == Vanished || state == Obsolete; }
};

/** A file of translations (.ts). */
struct TsFile
{
    QString language; // empty if it is not known
    QString sourceLanguage;
    QVector<TsMessage> messages; // in the order of the file
    QString problem;             // why it cannot be read; empty if it could
};

/** Reads what linguist, lupdate and writeTs() write. */
TsFile readTs(const QByteArray& xml);
/** One context after the other, as lupdate writes. */
QByteArray writeTs(const TsFile& file);

/**
 * @p wanted in place of what @p file has: translations of texts that are still there stay,
 * new texts are unfinished, and those that are gone are marked as Qt's tools do: "vanished" if they
 * were translated, "obsolete" if a translation was begun, and left out if there is none.
 */
TsFile updatedTs(const TsFile& file, const QVector<TsMessage>& wanted);

/** "de_CH" of "receiver_de_CH.ts"; empty if the name does not end in a language. */
QString languageOfFile(const QString& fileName);

/** What translators and authors have to do, a line for each: not translated, not in the file, gone. */
QStringList openPoints(const TsFile& file, const QVector<TsMessage>& wanted);

} // namespace Author
} // namespace Orvane

#endif
