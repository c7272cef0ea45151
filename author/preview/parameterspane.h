#ifndef ZORVA_AUTHOR_PARAMETERSPANE_H
#define ZORVA_AUTHOR_PARAMETERSPANE_H

#include <QString>
#include <QWidget>

class QComboBox;
class QPlainTextEdit;

namespace Orvane {
namespace Author {

class PreviewForm;

/** Parameter XML of the form: all of it, what is changed and not applied, or what was applied last. */
class ParametersPane : public QWidget
{
    Q_OBJECT

public:
    explicit ParametersPane(QWidget* parent = nullptr);

    /** Shows the XML of @p form now; null empties the pane. */
    void show(const PreviewForm* form);
    /** What was sent; shown when asked for. */
    void setApplied(const QString& xml) { m_applied = xml; }

Q_SIGNALS:
    /** Another part is asked for: show() is due. */
    void selectionChanged();

private:
    enum Selection { All, Changed, Applied };

    QComboBox* m_selection; // owned, like the text
    QPlainTextEdit* m_text;
    QString m_applied;
};

} // namespace Author
} // namespace Orvane

#endif
