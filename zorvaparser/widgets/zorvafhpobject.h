#ifndef ZORVAFHPOBJECT_H
#define ZORVAFHPOBJECT_H

#include <valueframework/valuecommentedrangemap.h>
#include <valueframework/valueptr.h>
#include <zorvaparser/zorvadelegate.h>

namespace Orvane {

/**
 * A map of exclusion ranges without a row of its own: it goes in and out with
 * the parameter XML, whatever "generateParameterXml" says, and is edited in a
 * dialog that the form's script asks for. A map that stands in the tree already
 * is taken over, emptied; beside a value of another kind the map stays outside of
 * the tree.
 */
class ZorvaFHPObject : public ZorvaDelegate
{
    Q_OBJECT

public:
    explicit ZorvaFHPObject(ZorvaWidget* widget);
    /** Takes the map out of the tree. */
    ~ZorvaFHPObject() override;

    void CreateValueTree() override;
    void LetValuesGo() override;
    void CreateGUI(FloatGroupLayout* layout) override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ReadXml(QXmlStreamReader& reader) override;
    void ParseProperties(QXmlStreamReader& reader, bool custom) override;

Q_SIGNALS:
    void si_editEditExclusionRangesBtnClicked();

public Q_SLOTS:
    /** Runs the dialog; returns when it is closed. */
    void sl_editExclusionRanges();

public:
    Q_INVOKABLE void emitEditExclusionRangesBtnClicked();

    void Update(Observable* observable, TChangeCode code) override;

private:
    void RemoveMap();
    void NoteMissingPlace();

    values::ValueObservingPtr<values::ValueCommentedRangeMap>
        exclusionRanges; // the tree's; this row's outside of it
};

} // namespace Orvane

#endif
