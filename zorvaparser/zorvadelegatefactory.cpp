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
#include <QMetaType>
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

/**
 * Makes pointers to the kind a known type. The script engine asks for the type of each
 * row's class and base classes, and an unknown name takes Qt far longer than a known one.
 */
template <typename Kind>
Factory known(Factory factory)
{
    qRegisterMetaType<Kind*>();
    return factory;
}

template <typename Kind>
Factory makes()
{
    return known<Kind>(make<Kind>);
}

QMap<QString, Factory> buildFactories()
{
    return {
        {QStringLiteral("BandwidthEdit"), makes<ZorvaInt64SpinBox>()},
        {QStringLiteral("BaudRateSpinBox"), makes<ZorvaDoubleSpinBox>()},
        {QStringLiteral("ChannelSpacingTable"), makes<ZorvaChannelSpacingTable>()},
        {QStringLiteral("CheckBox"), makes<ZorvaCheckBox>()},
        {QStringLiteral("ComboBox"), makes<ZorvaComboBox>()},
        {QStringLiteral("DoubleSpinBox"), makes<ZorvaDoubleSpinBox>()},
        {QStringLiteral("DoubleSpinBoxList"), makes<ZorvaDoubleSpinBoxList>()},
        {QStringLiteral("FixedSpacer"), known<ZorvaSeparator>(makeSeparator<false>)},
        {QStringLiteral("FrequencyEdit"), makes<ZorvaFrequencyEdit>()},
        {QStringLiteral("FrequencyOffsetEdit"), makes<ZorvaInt64SpinBox>()},
        {QStringLiteral("FrequencyRangeEdit"), makes<ZorvaFrequencyRangeEdit>()},
        {QStringLiteral("Headline"), makes<ZorvaHeadline>()},
        {QStringLiteral("HiddenList"), makes<ZorvaHiddenList>()},
        {QStringLiteral("HiddenMap"), makes<ZorvaHiddenMap>()},
        {QStringLiteral("HiddenParameter"), makes<ZorvaHidden>()},
        {QStringLiteral("HiddenTable"), makes<ZorvaHiddenTable>()},
        {QStringLiteral("IPEdit"), makes<ZorvaLineEdit>()},
        {QStringLiteral("Label"), makes<ZorvaLabel>()},
        {QStringLiteral("LineEdit"), makes<ZorvaLineEdit>()},
        {QStringLiteral("PushButton"), makes<ZorvaPushButton>()},
        {QStringLiteral("ScriptControl"), makes<ZorvaScriptControl>()},
        {QStringLiteral("Separator"), known<ZorvaSeparator>(makeSeparator<true>)},
        {QStringLiteral("ShiftList"), makes<ZorvaDoubleSpinBoxList>()},
        {QStringLiteral("SpecialObject_Audio"), makes<ZorvaAudioObject>()},
        {QStringLiteral("SpecialObject_DSC"), makes<ZorvaDSCObject>()},
        {QStringLiteral("SpecialObject_FFT"), makes<ZorvaFFTObject>()},
        {QStringLiteral("SpecialObject_FHP"), makes<ZorvaFHPObject>()},
        {QStringLiteral("SpecialObject_Generic"), makes<ZorvaDelegate>()},
        {QStringLiteral("SpecialObject_Tuner"), makes<ZorvaTunerObject>()},
        {QStringLiteral("SpecialObject_WDE"), makes<ZorvaDelegate>()},
        {QStringLiteral("SpinBox"), makes<ZorvaSpinBox>()},
        {QStringLiteral("SpinBoxList"), makes<ZorvaSpinBoxList>()},
        {QStringLiteral("TableWidget"), makes<ZorvaTable>()},
    };
}

const QMap<QString, Factory>& factories()
{
    static const QMap<QString, Factory> table = buildFactories();
    return table;
}

} // namespace

ZorvaDelegate* createDelegateOfClass(const QString& className, ZorvaWidget* widget)
{
    const Factory factory = factories().value(className, make<ZorvaDelegate>);
    return factory(widget);
}

QStringList delegateClasses()
{
    return factories().keys();
}

ZorvaDelegate* createExternalDelegate(ZorvaWidget* widget, QWidget* externalWidget)
{
    return new ExternalWidget(widget, externalWidget);
}

} // namespace Orvane
