#ifndef ZORVA_FREQUENCYEDIT_P_H
#define ZORVA_FREQUENCYEDIT_P_H

#include <basicvaluewidgets/vclineedit.h>

/// The edit of the main frequency: arrows up and down and the wheel turn the
/// digit left of the cursor, page keys ask for a wide step. The digit stays the
/// same while it is being turned, also when carrying, trimmed zeros or another
/// unit move it within the text.
class FrequencyEdit : public VCLineEdit
{
    Q_OBJECT

public:
    FrequencyEdit(QWidget* parent, const char* name);

    /// False if nothing numeric is bound.
    bool currentFrequency(double* hertz) const;
    /// Writes as the user's choice, even while text is being typed.
    void enterFrequency(double hertz);
    /// Whether the tool tip is the range of the value; it follows the limits.
    void showRange(bool show);
    void Update(Observable* observable, TChangeCode code) override;

Q_SIGNALS:
    /// The user typed a frequency to the end; turned digits and entered
    /// frequencies are left out.
    void typed(double hertz);
    /// A step up (1) or down (-1) by more than a digit.
    void wideStep(int steps);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void finished(const QString& shown);
    void turnDigit(int steps);
    double weightAtCursor() const;
    void placeCursor(double weight);

    double m_weight = 0.0;   // hertz per step of the digit being turned, 0: none yet
    int m_weightCursor = -1; // where the cursor was left; elsewhere the digit is chosen anew
    bool m_entering = false;
    bool m_rangeShown = false;
    int m_wheelRest = 0; // parts of a notch, from fine wheels
};

#endif
