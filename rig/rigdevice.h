#ifndef ZORVA_RIG_RIGDEVICE_H
#define ZORVA_RIG_RIGDEVICE_H

#include "parameter.h"

#include <hostkit/device.h>

#include <QDeadlineTimer>
#include <QHash>
#include <QString>
#include <QStringList>

namespace radio {

/**
 * A radio as a device of parameters, whichever way it is reached. Texts towards
 * the radio are those of Hamlib's own command language.
 */
class RigDevice : public hostkit::Device
{
public:
    explicit RigDevice(const QList<Parameter>& parameters);

    hostkit::Answer write(const QString& path, const QString& text) override;
    hostkit::Answer read(const QString& path) override;
    QStringList affectedBy(const QString& path) const override;

    /** Whether the radio has a parameter at @p path; "Mode/Passband" is the passband of any mode. */
    bool knows(const QString& path) const;
    /** Whether it is only read, and moves by itself. */
    bool isLive(const QString& path) const;

protected:
    /**
     * The radio's text, null if it has nothing to tell. Two things have a blank between: a mode's name and
     * its width; whether there is split operation, "1" or "0", and the VFO that transmits.
     */
    virtual hostkit::Answer get(const Parameter& parameter) = 0;
    virtual hostkit::Answer set(const Parameter& parameter, const QString& text) = 0;

private:
    /** The text by which the parameter was asked for last, if the radio's is another word for the same. */
    QString asWritten(const Parameter& parameter, const QString& text) const;

    /** An answer of just now, kept while several parameters of a round are told by it. */
    struct Recent
    {
        hostkit::Answer answer;
        QDeadlineTimer until;
    };

    hostkit::Answer getRecent(Recent& recent, const Parameter& parameter);
    /** Whether another VFO transmits than the receiver's; true of a radio that does not tell. */
    hostkit::Answer isSplit(bool* split);
    hostkit::Answer readPassband(const Parameter& parameter);
    hostkit::Answer writeSplit(const Parameter& parameter, const QString& vfo);
    hostkit::Answer writePassband(const Parameter& parameter, const QString& width);

    QHash<QString, Parameter> m_parameters; // by path
    QStringList m_passbands;                // their paths
    QHash<QString, QString> m_written;      // by path: what was asked for last
    Recent m_mode;
    Recent m_split;
};

} // namespace radio

#endif
