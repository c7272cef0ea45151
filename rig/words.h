#ifndef ZORVA_RIG_WORDS_H
#define ZORVA_RIG_WORDS_H

#include <QString>

namespace radio {

/** Groups of a form, in their order. */
extern const char* const tuningGroup;
extern const char* const modeGroup;
extern const char* const meterGroup;
extern const char* const receiverGroup;
extern const char* const audioGroup;
extern const char* const transmitterGroup;
extern const char* const toneGroup;
extern const char* const scopeGroup;
extern const char* const functionGroup;
extern const char* const extraGroup;
extern const char* const radioGroup;

/** What radio people call one of Hamlib's levels, functions or parms, and how its number reads. */
struct Words
{
    const char* word; ///< Hamlib's
    const char* caption;
    const char* tip;
    const char* group;
    const char* unit;
    double factor; ///< from the radio's number to the one shown
    int decimals;
    double minimum; ///< as shown, where Hamlib gives no range
    double maximum;
    double step;
};

/** Null if the word is not known. */
const Words* levelWords(const QString& word);
const Words* functionWords(const QString& word);
const Words* settingWords(const QString& word);

/** Whether what a model calls a setting, by that word, is nothing to be set: the radio reports it. */
bool isReport(const QString& word);

/** The width of a range that nobody tells. */
constexpr double rangeOfUnknown = 100.0;

/** "Upper sideband" for "USB"; the word itself if there is no better one. */
QString modeName(const QString& word);

/** A signal strength, in decibels over S9, as it is read off an S meter: "S7", "S9+20 dB". */
QString strengthWords(double overS9);

} // namespace radio

#endif
