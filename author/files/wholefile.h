#ifndef ZORVA_AUTHOR_WHOLEFILE_H
#define ZORVA_AUTHOR_WHOLEFILE_H

#include <QByteArray>
#include <QString>

namespace Orvane {
namespace Author {

/** What a file holds, or why it cannot be had. */
struct FileContent
{
    QString name; // for messages: the path, or "standard input"
    QByteArray bytes;
    QString problem; // empty if all was read

    bool isRead() const { return problem.isEmpty(); }
};

/** Bytes of the largest file that is read: more than any form, settings or translations have. */
constexpr int largestFile = 16 << 20;

/**
 * The whole content of the file at @p path; "-" is the standard input. One that is larger
 * than largestFile or never ends is a problem like any other.
 */
FileContent readWhole(const QString& path);
/** The same of what lies in a folder: a pipe, which may keep a window waiting for ever, is a problem. */
FileContent readStored(const QString& path);

/**
 * Puts @p bytes at @p path by a complete new file beside the old one, which is on
 * the disk before it takes the old one's place: a failure or a crash leaves the old
 * one as it was. Gives why it could not be done; empty if it was.
 */
QString writeWhole(const QString& path, const QByteArray& bytes);

} // namespace Author
} // namespace Orvane

#endif
