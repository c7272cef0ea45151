#ifndef ZORVA_VCMINIFREQUENCY_H
#define ZORVA_VCMINIFREQUENCY_H

#include <frequencylists/frequencylists_export.h>

#include <QToolButton>

/// The small button beside a frequency that opens a list to choose from.
class FREQUENCYLISTS_EXPORT VCMiniFrequency : public QToolButton
{
    Q_OBJECT

public:
    /// name is the object name, null for none.
    VCMiniFrequency(QWidget* parent, const char* name);

    /// The same as setEnabled().
    void enable(bool enable) { setEnabled(enable); }
};

#endif
