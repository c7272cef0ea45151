#ifndef ZORVALINEEDIT_H
#define ZORVALINEEDIT_H

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaparser_export.h>

#include <QPointer>

class VCLineEdit;

namespace Orvane {

/**
 * A row with free text. Typing marks the row without auto-apply; the final text
 * changes property and value and marks it with auto-apply; Return applies the
 * sheet at once.
 */
class ZORVAPARSER_EXPORT ZorvaLineEdit : public ZorvaDelegate
{
    Q_OBJECT

public:
    /** @p widget is the owning row, never owned nor null. */
    explicit ZorvaLineEdit(ZorvaWidget* widget);
    ~ZorvaLineEdit() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    values::ValueBase* GetVTValue() const override;
    void Update(Observable* observable, TChangeCode code) override;

    /** What the control shows, or else the property of that name. */
    QString inputMask();
    QString text();        ///< Likewise.
    int maxLength() const; ///< Likewise.
    /** What the control says; of no meaning before there is one. */
    bool isEnabled() const;
    bool isReadOnly() const; ///< Likewise.

Q_SIGNALS:
    /** The user made the text final, or pressed Return. */
    void editingFinished();
    void returnPressed(); ///< Likewise.
    /** The text that is shown changed. */
    void textChanged(QString text);
    /** While typing, and once more when the text is final. */
    void textEdited(QString text);

public Q_SLOTS:
    /** Sets the property of that name; no signal, no mark. */
    void setInputMask(QString inputMask);
    void setMaxLength(int maxLength); ///< Likewise.
    void setText(QString text);       ///< Likewise.
    /** Gives the control the keyboard focus, once there is one. */
    void setFocus() override;
    /** Makes text final that is still being typed. */
    void forceFinishEditing() override;

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private Q_SLOTS:
    void SlotTextEdited(QString text);
    void SlotTextFinallyChanged(QString value);
    void SlotReturnPressed();

private:
    values::ValueString* textValue; // owned; cleared when it goes away
    QPointer<VCLineEdit> lineEdit;  // owned by the widget tree
};

} // namespace Orvane

#endif
