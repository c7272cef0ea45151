#ifndef ZORVA_ENTRYHINT_P_H
#define ZORVA_ENTRYHINT_P_H

#include <QString>
#include <QTimer>

class QWidget;

/// The bubble below a control in which somebody types: what the text is read as,
/// or why it was refused. A refusal is also announced to assistive tools, and
/// stands in the control's accessible description until the bubble goes.
class EntryHint
{
public:
    /// The control is not owned and outlives the hint, which is its member.
    explicit EntryHint(QWidget* control);
    ~EntryHint();
    Q_DISABLE_COPY(EntryHint)

    void ShowReading(const QString& reading);
    void ShowRefusal(const QString& why);
    /// Takes back what is shown or about to be shown.
    void Hide();

    /// "8 kHz is the lowest" or "26.5 GHz is the highest".
    static QString OutOfRange(const QString& limit, bool tooLow);

private:
    void show(const QString& text);

    QWidget* m_control;
    QString m_text; // null: nothing shown
    QString m_descriptionBefore;
    bool m_refused = false;
    QTimer m_end;
};

#endif
