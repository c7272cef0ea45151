#include "words.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace radio {

const char* const tuningGroup = "Tuning";
const char* const modeGroup = "Mode";
const char* const meterGroup = "Meters";
const char* const receiverGroup = "Receiver";
const char* const audioGroup = "Audio and noise";
const char* const transmitterGroup = "Transmitter";
const char* const toneGroup = "Tone and code squelch";
const char* const scopeGroup = "Spectrum scope";
const char* const functionGroup = "Functions";
const char* const extraGroup = "Special to this model";
const char* const radioGroup = "Radio";

namespace {

constexpr double none = 0.0;

// Ranges stand here for the many models of which Hamlib tells none.
const Words levels[] = {
    {"PREAMP", "Preamplifier", "Gain ahead of the mixer", receiverGroup, "dB", 1, 0, none, none, 1},
    {"ATT", "Attenuator", "Attenuation at the antenna input", receiverGroup, "dB", 1, 0, none, none, 1},
    {"AGC", "AGC", "Speed of the automatic gain control", receiverGroup, "", 1, 0, none, none, 1},
    {"AGC_TIME", "AGC decay", "", receiverGroup, "s", 1, 1, 0, 10, 0.1},
    {"RF", "RF gain", "", receiverGroup, "%", 100, 1, 0, 100, 1},
    {"SQL", "Squelch", "", receiverGroup, "%", 100, 1, 0, 100, 1},
    {"IF", "IF shift", "", receiverGroup, "Hz", 1, 0, -10000, 10000, 10},
    {"PBT_IN", "Passband tuning, inner", "", receiverGroup, "%", 100, 1, 0, 100, 1},
    {"PBT_OUT", "Passband tuning, outer", "", receiverGroup, "%", 100, 1, 0, 100, 1},
    {"NOTCHF", "Notch frequency", "", receiverGroup, "Hz", 1, 0, 0, 10000, 10},
    {"NOTCHF_RAW", "Notch position", "", receiverGroup, "%", 100, 1, 0, 100, 1},
    {"SLOPE_LOW", "Low cut", "", receiverGroup, "Hz", 1, 0, 0, 10000, 50},
    {"SLOPE_HIGH", "High cut", "", receiverGroup, "Hz", 1, 0, 0, 10000, 50},
    {"BAND_SELECT", "Band", "Amateur band, with the frequency last used there", tuningGroup, "", 1, 0, none,
     none, 1},
    {"AF", "Volume", "", audioGroup, "%", 100, 1, 0, 100, 1},
    {"USB_AF", "Volume at USB and ACC", "", audioGroup, "%", 100, 1, 0, 100, 1},
    {"BAL", "Balance", "", audioGroup, "%", 100, 1, 0, 100, 1},
    {"NR", "Noise reduction", "", audioGroup, "%", 100, 1, 0, 100, 1},
    {"NB", "Noise blanker", "", audioGroup, "%", 100, 1, 0, 100, 1},
    {"APF", "Audio peak filter", "", audioGroup, "%", 100, 1, 0, 100, 1},
    {"CWPITCH", "CW pitch", "", audioGroup, "Hz", 1, 0, 0, 1500, 10},
    {"RFPOWER", "Transmit power", "", transmitterGroup, "%", 100, 1, 0, 100, 1},
    {"MICGAIN", "Microphone gain", "", transmitterGroup, "%", 100, 1, 0, 100, 1},
    {"COMP", "Speech compression", "", transmitterGroup, "%", 100, 1, 0, 100, 1},
    {"MONITOR_GAIN", "Monitor volume", "", transmitterGroup, "%", 100, 1, 0, 100, 1},
    {"VOXGAIN", "VOX gain", "", transmitterGroup, "%", 100, 1, 0, 100, 1},
    {"ANTIVOX", "Anti-VOX", "", transmitterGroup, "%", 100, 1, 0, 100, 1},
    {"VOXDELAY", "VOX delay", "", transmitterGroup, "s", 0.1, 1, 0, 10, 0.1},
    {"KEYSPD", "Keyer speed", "", transmitterGroup, "wpm", 1, 0, 0, 100, 1},
    {"BKINDL", "Break-in delay", "", transmitterGroup, "dots", 0.1, 1, 0, 30, 0.1},
    {"BKIN_DLYMS", "Break-in delay time", "", transmitterGroup, "ms", 1, 0, 0, 5000, 10},
    {"METER", "Meter shows", "What the radio's own meter shows when transmitting", transmitterGroup, "", 1, 0,
     none, none, 1},
    {"SPECTRUM_MODE", "Scope mode", "Around the tuned frequency, or between two edges", scopeGroup, "", 1, 0,
     none, none, 1},
    {"SPECTRUM_SPAN", "Scope span", "Width of the spectrum around the tuned frequency", scopeGroup, "Hz", 1,
     0, none, none, 1},
    {"SPECTRUM_EDGE_LOW", "Scope from", "", scopeGroup, "Hz", 1, 0, none, none, 1},
    {"SPECTRUM_EDGE_HIGH", "Scope to", "", scopeGroup, "Hz", 1, 0, none, none, 1},
    {"SPECTRUM_SPEED", "Scope speed", "", scopeGroup, "", 1, 0, 0, 10, 1},
    {"SPECTRUM_REF", "Scope reference level", "", scopeGroup, "dB", 1, 1, -100, 100, 0.5},
    {"SPECTRUM_AVG", "Scope averaging", "How many sweeps are averaged", scopeGroup, "", 1, 0, none, none, 1},
    {"SPECTRUM_ATT", "Scope attenuator", "Attenuation ahead of the spectrum scope", scopeGroup, "dB", 1, 0,
     none, none, 1},
    {"STRENGTH", "Signal strength", "As on an S meter", meterGroup, "", 1, 0, none, none, 1},
    {"RAWSTR", "Signal strength, raw", "The radio's own count", meterGroup, "", 1, 0, none, none, 1},
    {"SWR", "SWR", "Standing wave ratio at the antenna", meterGroup, "", 1, 1, none, none, 1},
    {"ALC", "ALC", "Automatic level control of the transmitter", meterGroup, "", 1, 2, none, none, 1},
    {"RFPOWER_METER", "Power out", "Share of the full power", meterGroup, "%", 100, 0, none, none, 1},
    {"RFPOWER_METER_WATTS", "Power out in watts", "", meterGroup, "W", 1, 1, none, none, 1},
    {"COMP_METER", "Compression", "Of the transmitted speech", meterGroup, "dB", 1, 1, none, none, 1},
    {"VD_METER", "Supply voltage", "Of the final stage", meterGroup, "V", 1, 1, none, none, 1},
    {"ID_METER", "Supply current", "Of the final stage", meterGroup, "A", 1, 1, none, none, 1},
    {"TEMP_METER", "Temperature", "Of the final stage", meterGroup,
     "\xc2\xb0"
     "C",
     1, 1, none, none, 1},
};

const Words functions[] = {
    {"FAGC", "Fast AGC", "", functionGroup, "", 1, 0, none, none, 1},
    {"NB", "Noise blanker", "Against impulse noise", functionGroup, "", 1, 0, none, none, 1},
    {"COMP", "Speech compressor", "", functionGroup, "", 1, 0, none, none, 1},
    {"VOX", "VOX", "Voice-operated transmission", functionGroup, "", 1, 0, none, none, 1},
    {"TONE", "CTCSS tone", "Send the tone", functionGroup, "", 1, 0, none, none, 1},
    {"TSQL", "CTCSS squelch", "Open the squelch for the tone alone", functionGroup, "", 1, 0, none, none, 1},
    {"SBKIN", "Semi break-in", "", functionGroup, "", 1, 0, none, none, 1},
    {"FBKIN", "Full break-in", "", functionGroup, "", 1, 0, none, none, 1},
    {"ANF", "Automatic notch", "", functionGroup, "", 1, 0, none, none, 1},
    {"NR", "Noise reduction", "", functionGroup, "", 1, 0, none, none, 1},
    {"AIP", "Intercept point (AIP)", "", functionGroup, "", 1, 0, none, none, 1},
    {"APF", "Audio peak filter", "", functionGroup, "", 1, 0, none, none, 1},
    {"MON", "Monitor", "Hear what is transmitted", functionGroup, "", 1, 0, none, none, 1},
    {"MN", "Manual notch", "", functionGroup, "", 1, 0, none, none, 1},
    {"RF", "RTTY filter", "", functionGroup, "", 1, 0, none, none, 1},
    {"ARO", "Automatic repeater offset", "", functionGroup, "", 1, 0, none, none, 1},
    {"LOCK", "Lock", "Lock the radio's tuning knob", functionGroup, "", 1, 0, none, none, 1},
    {"MUTE", "Mute", "", functionGroup, "", 1, 0, none, none, 1},
    {"VSC", "Voice scan control", "", functionGroup, "", 1, 0, none, none, 1},
    {"REV", "Reverse", "Swap transmit and receive frequency", functionGroup, "", 1, 0, none, none, 1},
    {"SQL", "Squelch", "", functionGroup, "", 1, 0, none, none, 1},
    {"ABM", "Automatic band mode", "", functionGroup, "", 1, 0, none, none, 1},
    {"BC", "Beat cancel", "", functionGroup, "", 1, 0, none, none, 1},
    {"MBC", "Manual beat cancel", "", functionGroup, "", 1, 0, none, none, 1},
    {"RIT", "RIT", "Shift the receiver alone", functionGroup, "", 1, 0, none, none, 1},
    {"AFC", "AFC", "Automatic frequency control", functionGroup, "", 1, 0, none, none, 1},
    {"SATMODE", "Satellite mode", "", functionGroup, "", 1, 0, none, none, 1},
    {"SCOPE", "Simple scope", "", functionGroup, "", 1, 0, none, none, 1},
    {"RESUME", "Scan resume", "", functionGroup, "", 1, 0, none, none, 1},
    {"TBURST", "Tone burst", "1750 Hz to open a repeater", functionGroup, "", 1, 0, none, none, 1},
    {"TUNER", "Antenna tuner", "", functionGroup, "", 1, 0, none, none, 1},
    {"XIT", "XIT", "Shift the transmitter alone", functionGroup, "", 1, 0, none, none, 1},
    {"NB2", "Second noise blanker", "", functionGroup, "", 1, 0, none, none, 1},
    {"CSQL", "DCS squelch (CSQL)", "", functionGroup, "", 1, 0, none, none, 1},
    {"AFLT", "Audio filter", "", functionGroup, "", 1, 0, none, none, 1},
    {"ANL", "Automatic noise limiter", "", functionGroup, "", 1, 0, none, none, 1},
    {"BC2", "Second beat cancel", "", functionGroup, "", 1, 0, none, none, 1},
    {"DUAL_WATCH", "Dual watch", "Receive on both VFOs", functionGroup, "", 1, 0, none, none, 1},
    {"DIVERSITY", "Diversity", "Receive with two antennas", functionGroup, "", 1, 0, none, none, 1},
    {"DSQL", "Digital squelch", "", functionGroup, "", 1, 0, none, none, 1},
    {"SCEN", "Scrambler", "", functionGroup, "", 1, 0, none, none, 1},
    {"SLICE", "Slice", "", functionGroup, "", 1, 0, none, none, 1},
    {"TRANSCEIVE", "Transceive", "The radio tells of changes by itself", functionGroup, "", 1, 0, none, none,
     1},
    {"SPECTRUM", "Spectrum data", "", functionGroup, "", 1, 0, none, none, 1},
    {"SPECTRUM_HOLD", "Hold spectrum", "", functionGroup, "", 1, 0, none, none, 1},
    {"SEND_MORSE", "Send Morse", "", functionGroup, "", 1, 0, none, none, 1},
    {"SEND_VOICE_MEM", "Send voice memory", "", functionGroup, "", 1, 0, none, none, 1},
    {"OVF_STATUS", "Overflow", "The input is overdriven", functionGroup, "", 1, 0, none, none, 1},
};

const Words settings[] = {
    {"ANN", "Announcements", "What the radio's voice announces", radioGroup, "", 1, 0, none, none, 1},
    {"APO", "Auto power-off", "", radioGroup, "min", 1, 0, 0, 1440, 1},
    {"BACKLIGHT", "Display light", "", radioGroup, "%", 100, 1, 0, 100, 1},
    {"BEEP", "Key beep", "", radioGroup, "", 1, 0, none, none, 1},
    {"TIME", "Clock", "", radioGroup, "s", 1, 0, 0, 86399, 60},
    {"BAT", "Battery", "Charge that is left", radioGroup, "%", 100, 0, none, none, 1},
    {"KEYLIGHT", "Key light", "", radioGroup, "%", 100, 1, 0, 100, 1},
    {"SCREENSAVER", "Screen saver", "", radioGroup, "min", 1, 0, 0, 1440, 1},
};

// Drivers list them beside what can be set. The first would key the transmitter.
const char* const reports[] = {"txst", "ifctr", "audio", "dtmfpend", "dtmfovrr", "ctcssact", "dcsact"};

struct ModeName
{
    const char* word;
    const char* name;
};

const ModeName modeNames[] = {
    {"USB", "USB (upper sideband)"},
    {"LSB", "LSB (lower sideband)"},
    {"CW", "CW"},
    {"CWR", "CW reverse"},
    {"RTTY", "RTTY"},
    {"RTTYR", "RTTY reverse"},
    {"AM", "AM"},
    {"AMS", "AM synchronous"},
    {"AMN", "AM narrow"},
    {"FM", "FM"},
    {"FMN", "FM narrow"},
    {"WFM", "WFM (broadcast)"},
    {"PKTUSB", "Data on USB"},
    {"PKTLSB", "Data on LSB"},
    {"PKTFM", "Data on FM"},
    {"PKTAM", "Data on AM"},
    {"PKTFMN", "Data on FM narrow"},
    {"DSB", "DSB (double sideband)"},
    {"SAM", "Synchronous AM"},
    {"SAL", "Synchronous AM, lower sideband"},
    {"SAH", "Synchronous AM, upper sideband"},
    {"ECSSUSB", "ECSS, upper sideband"},
    {"ECSSLSB", "ECSS, lower sideband"},
    {"FAX", "Fax"},
    {"DSTAR", "D-STAR"},
    {"D-STAR", "D-STAR"},
    {"PSK", "PSK"},
    {"PSKR", "PSK reverse"},
};

template <std::size_t Count>
const Words* find(const Words (&table)[Count], const QString& word)
{
    for (const Words& entry : table) {
        if (word == QLatin1String(entry.word))
            return &entry;
    }
    return nullptr;
}

} // namespace

const Words* levelWords(const QString& word)
{
    return find(levels, word);
}

const Words* functionWords(const QString& word)
{
    return find(functions, word);
}

const Words* settingWords(const QString& word)
{
    return find(settings, word);
}

bool isReport(const QString& word)
{
    return std::any_of(std::begin(reports), std::end(reports),
                       [&word](const char* report) { return word == QLatin1String(report); });
}

QString modeName(const QString& word)
{
    for (const ModeName& entry : modeNames) {
        if (word == QLatin1String(entry.word))
            return QString::fromLatin1(entry.name);
    }
    return word;
}

QString strengthWords(double overS9)
{
    // An S unit is 6 dB.
    const int units = qBound(0, 9 + static_cast<int>(std::floor(overS9 / 6.0)), 9);
    const int rest = static_cast<int>(std::lround(overS9));
    if (rest > 0)
        return QStringLiteral("S9+%1 dB").arg(rest);
    return QStringLiteral("S%1 (%2 dB)").arg(units).arg(rest);
}

} // namespace radio
