#include "zorvadelegatefactory_p.h"

#include <zorvaparser/widgets/externalwidget.h>
#include <zorvaparser/widgets/zorvaaudioobject.h>
#include <zorvaparser/widgets/zorvachannelspacingtable.h>
#include <zorvaparser/widgets/zorvacheckbox.h>
#include <zorvaparser/widgets/zorvacombobox.h>
#include <zorvaparser/widgets/zorvadoublespinbox.h>
#include <zorvaparser/widgets/zorvadoublespinboxlist.h>
#include <zorvaparser/widgets/zorvadscobject.h>
#include <zorvaparser/widgets/zorvafftobject.h>
#include <zorvaparser/widgets/zorvafhpobject.h>
#include <zorvaparser/widgets/zorvafrequencyedit.h>
#include <zorvaparser/widgets/zorvafrequencyrangeedit.h>
#include <zorvaparser/widgets/zorvaheadline.h>
#include <zorvaparser/widgets/zorvahidden.h>
#include <zorvaparser/widgets/zorvahiddenlist.h>
#include <zorvaparser/widgets/zorvahiddenmap.h>
#include <zorvaparser/widgets/zorvahiddentable.h>
#include <zorvaparser/widgets/zorvaint64spinbox.h>
#include <zorvaparser/widgets/zorvalabel.h>
#include <zorvaparser/widgets/zorvalineedit.h>
#include <zorvaparser/widgets/zorvapushbutton.h>
#include <zorvaparser/widgets/zorvascriptcontrol.h>
#include <zorvaparser/widgets/zorvaseparator.h>
#include <zorvaparser/widgets/zorvaspinbox.h>
#include <zorvaparser/widgets/zorvaspinboxlist.h>
#include <zorvaparser/widgets/zorvatable.h>
#include <zorvaparser/widgets/zorvatunerobject.h>
#include <zorvaparser/zorvadelegate.h>

#include <QMap>
#include <QString>

namespace Orvane {

namespace {

using Factory = ZorvaDelegate* (*)(ZorvaWidget*);

template <typename Kind>
ZorvaDelegate* make(ZorvaWidget* widget)
{
    return new Kind(widget);
}

template <bool IsLine>
ZorvaDelegate* makeSeparator(ZorvaWidget* widget)
{
    return new ZorvaSeparator(widget, IsLine);
}

QMap<QString, Factory> buildFactories()
{
    return {
        {QStringLiteral("BandwidthEdit"), make<ZorvaInt64SpinBox>},
        {QStringLiteral("BaudRateSpinBox"), make<ZorvaDoubleSpinBox>},
        {QStringLiteral("ChannelSpacingTable"), make<ZorvaChannelSpacingTable>},
        {QStringLiteral("CheckBox"), make<ZorvaCheckBox>},
        {QStringLiteral("ComboBox"), make<ZorvaComboBox>},
        {QStringLiteral("DoubleSpinBox"), make<ZorvaDoubleSpinBox>},
        {QStringLiteral("DoubleSpinBoxList"), make<ZorvaDoubleSpinBoxList>},
        {QStringLiteral("FixedSpacer"), makeSeparator<false>},
        {QStringLiteral("FrequencyEdit"), make<ZorvaFrequencyEdit>},
        {QStringLiteral("FrequencyOffsetEdit"), make<ZorvaInt64SpinBox>},
        {QStringLiteral("FrequencyRangeEdit"), make<ZorvaFrequencyRangeEdit>},
        {QStringLiteral("Headline"), make<ZorvaHeadline>},
        {QStringLiteral("HiddenList"), make<ZorvaHiddenList>},
        {QStringLiteral("HiddenMap"), make<ZorvaHiddenMap>},
        {QStringLiteral("HiddenParameter"), make<ZorvaHidden>},
        {QStringLiteral("HiddenTable"), make<ZorvaHiddenTable>},
        {QStringLiteral("IPEdit"), make<ZorvaLineEdit>},
        {QStringLiteral("Label"), make<ZorvaLabel>},
        {QStringLiteral("LineEdit"), make<ZorvaLineEdit>},
        {QStringLiteral("PushButton"), make<ZorvaPushButton>},
        {QStringLiteral("ScriptControl"), make<ZorvaScriptControl>},
        {QStringLiteral("Separator"), makeSeparator<true>},
        {QStringLiteral("ShiftList"), make<ZorvaDoubleSpinBoxList>},
        {QStringLiteral("SpecialObject_Audio"), make<ZorvaAudioObject>},
        {QStringLiteral("SpecialObject_DSC"), make<ZorvaDSCObject>},
        {QStringLiteral("SpecialObject_FFT"), make<ZorvaFFTObject>},
        {QStringLiteral("SpecialObject_FHP"), make<ZorvaFHPObject>},
        {QStringLiteral("SpecialObject_Generic"), make<ZorvaDelegate>},
        {QStringLiteral("SpecialObject_Tuner"), make<ZorvaTunerObject>},
        {QStringLiteral("SpecialObject_WDE"), make<ZorvaDelegate>},
        {QStringLiteral("SpinBox"), make<ZorvaSpinBox>},
        {QStringLiteral("SpinBoxList"), make<ZorvaSpinBoxList>},
        {QStringLiteral("TableWidget"), make<ZorvaTable>},
    };
}

} // namespace

ZorvaDelegate* createDelegateOfClass(const QString& className, ZorvaWidget* widget)
{
    static const QMap<QString, Factory> factories = buildFactories();
    const Factory factory = factories.value(className, make<ZorvaDelegate>);
    return factory(widget);
}

ZorvaDelegate* createExternalDelegate(ZorvaWidget* widget, QWidget* externalWidget)
{
    return new ExternalWidget(widget, externalWidget);
}

} // namespace Orvane
