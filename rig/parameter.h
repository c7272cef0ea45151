#ifndef ZORVA_RIG_PARAMETER_H
#define ZORVA_RIG_PARAMETER_H

#include <QList>
#include <QString>
#include <QStringList>

#include <hamlib/rig.h>

namespace radio {

/** Which of Hamlib's calls reads and writes a parameter. */
enum class Call {
    Frequency,
    Mode,
    Passband, ///< set together with the mode
    Vfo,
    TuningStep,
    Rit,
    Xit,
    RepeaterShift,
    RepeaterOffset,
    Antenna,
    Split, ///< whether another VFO transmits, and which
    TransmitFrequency,
    TransmitMode,
    CtcssTone,
    CtcssSquelch,
    DcsCode,
    DcsSquelch,
    Level,
    Function,
    Setting ///< what Hamlib calls a parm
};

/** What a parameter looks like in a form. */
enum class Look { Frequency, Number, Choice, Switch, Reading };

/** One entry of a choice: what the operator reads, and Hamlib's word for it. */
struct Choice
{
    QString name;
    QString value;
};

/**
 * One thing that can be set or read at a radio. Texts of the form and of the radio
 * are the same but for numbers, which may be shown in another unit.
 */
struct Parameter
{
    QString path; ///< in parameter XML
    Call call = Call::Level;
    Look look = Look::Number;
    QString word;      ///< Hamlib's name of a level, function or setting
    token_t token = 0; ///< Hamlib's, of a level, function or setting that this model alone has; 0 for none
    QStringList modes; ///< of a passband: those it belongs to; empty for all
    QString group;     ///< title of its group
    QString caption;
    QString tip;

    bool readable = true;
    bool writable = true;
    bool whole = true; ///< the radio's number is a whole one

    // Numbers, in the form's unit, which is the radio's number times the factor.
    double factor = 1.0;
    double minimum = 0.0;
    double maximum = 0.0;
    double step = 1.0;
    int decimals = 0;
    QString unit;

    QList<Choice> choices; ///< of a reading: the words in place of its numbers

    /** Whether it means something in split operation alone. */
    bool isOfSplit() const { return call == Call::TransmitFrequency || call == Call::TransmitMode; }
    /** The words of a reading that is off or on. */
    static QList<Choice> offAndOn();
    /** Whether the radio tells, and takes, the name of a mode and the width of its filter. */
    bool isMode() const { return call == Call::Mode || call == Call::Passband || call == Call::TransmitMode; }
    /** The radio's text in the form's way; null if it is no number where one is wanted. */
    QString toForm(const QString& radioText) const;
    /** The form's text in the radio's way; null likewise. */
    QString toRadio(const QString& formText) const;
    /** The name of the row: a plain identifier. */
    QString rowName() const;
};

/**
 * All that a model offers, in the order in which a form shows it. @p capabilities
 * are Hamlib's own and are not kept.
 */
QList<Parameter> parametersOf(const rig_caps& capabilities);

} // namespace radio

#endif
