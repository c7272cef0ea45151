#ifndef ZORVAHIDDEN_H
#define ZORVAHIDDEN_H

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaparser_export.h>

namespace Orvane {

/**
 * A text in the value tree and in parameter XML that no control shows. Unlike
 * rows with a control, a new text read from parameter XML marks the row.
 */
class ZORVAPARSER_EXPORT ZorvaHidden : public ZorvaDelegate
{
    Q_OBJECT

public:
    /** @p widget is the owning row, never owned nor null. */
    explicit ZorvaHidden(ZorvaWidget* widget);
    ~ZorvaHidden() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    values::ValueBase* GetVTValue() const override;
    void Update(Observable* observable, TChangeCode code) override;

Q_SIGNALS:
    /** A script, the tree or parameters set the text. */
    void valueChanged(QString value);

public Q_SLOTS:
    /** Sets the text, marks the row and tells. */
    void setValue(QString value);

protected:
    void PropertyChanged(const QString& name, const QVariant& value) override;

private:
    values::ValueString* value; // owned; cleared when it goes away
};

} // namespace Orvane

#endif
