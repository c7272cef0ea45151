#ifndef ZORVA_PARAMETERFILE_P_H
#define ZORVA_PARAMETERFILE_P_H

#include <QByteArray>
#include <QString>

namespace Orvane {

/**
 * The file in which the test shell keeps the parameters of a form. Its names of
 * reasons are for the person who started the program.
 */
class ParameterFile
{
public:
    explicit ParameterFile(const QString& path);

    /** What stands in the file; empty, and no reason, if there is none. */
    QByteArray Read();
    /**
     * Replaces what stands in the file as a whole or not at all: by a complete new
     * file beside it, or, where the folder does not allow that, by writing over the
     * old one. What earlier stores left behind when they were killed is removed.
     */
    bool Store(const QByteArray& content);
    /** Why the last Read() or Store() failed; empty if it did not. */
    const QString& Reason() const { return reason; }

private:
    QString whyUnusable() const;
    void sweepLeftovers() const;
    bool replace(const QByteArray& content);
    bool writeOver(const QByteArray& content);

    QString path;
    QString reason;
};

} // namespace Orvane

#endif
