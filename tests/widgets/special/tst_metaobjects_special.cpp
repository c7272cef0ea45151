#include <zorvaparser/widgets/externalwidget.h>
#include <zorvaparser/widgets/freqrangetable.h>
#include <zorvaparser/widgets/zorvaaudioobject.h>
#include <zorvaparser/widgets/zorvachannelspacingtable.h>
#include <zorvaparser/widgets/zorvadscobject.h>
#include <zorvaparser/widgets/zorvafftobject.h>
#include <zorvaparser/widgets/zorvafhpobject.h>
#include <zorvaparser/widgets/zorvafrequencyedit.h>
#include <zorvaparser/widgets/zorvafrequencyrangeedit.h>
#include <zorvaparser/widgets/zorvascriptcontrol.h>
#include <zorvaparser/widgets/zorvatable.h>
#include <zorvaparser/widgets/zorvatunerobject.h>

#include <QMetaMethod>
#include <QTest>

Q_DECLARE_METATYPE(const QMetaObject*)

// Scripts and applications find methods by their order and their text: both are contract.
class tst_MetaObjectsSpecial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void methods_data();
    void methods();
};

void tst_MetaObjectsSpecial::methods_data()
{
    using namespace Orvane;
    QTest::addColumn<const QMetaObject*>("metaObject");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ZorvaTable") << &ZorvaTable::staticMetaObject
                                << "signal cellActivated(int,int)\n"
                                   "signal cellChanged(int,int)\n"
                                   "signal cellClicked(int,int)\n"
                                   "signal cellDoubleClicked(int,int)\n"
                                   "signal cellEntered(int,int)\n"
                                   "signal cellPressed(int,int)\n"
                                   "signal currentCellChanged(int,int,int,int)\n"
                                   "signal tableCleared()\n"
                                   "slot clear()\n"
                                   "slot setColumnCount(int)\n"
                                   "slot setRowCount(int)\n"
                                   "slot setFocus()\n"
                                   "private slot sl_cellChanged(int,int)\n"
                                   "method itemValue(int,int)\n"
                                   "method setItemValue(int,int,QVariant)\n";
    QTest::newRow("ZorvaChannelSpacingTable") << &ZorvaChannelSpacingTable::staticMetaObject
                                              << "signal currentSpacingChanged(int,int)\n"
                                                 "signal spacingActivated(int)\n"
                                                 "signal spacingChanged(int)\n"
                                                 "signal spacingClicked(int)\n"
                                                 "signal spacingDoubleClicked(int)\n"
                                                 "signal spacingEntered(int)\n"
                                                 "signal spacingPressed(int)\n"
                                                 "signal spacingValueChanged(int,double)\n"
                                                 "slot setAllSpacingValues(double)\n"
                                                 "slot setHeaderLabel(QString)\n"
                                                 "slot setSpacingsCount(int)\n"
                                                 "slot setDecimals(int)\n"
                                                 "slot setMaximum(double)\n"
                                                 "slot setMinimum(double)\n"
                                                 "slot setSingleStep(double)\n"
                                                 "slot setFocus()\n"
                                                 "private slot sl_cellChanged(int,int)\n"
                                                 "private slot sl_currentCellChanged(int,int,int,int)\n"
                                                 "private slot sl_cellActivated(int,int)\n"
                                                 "private slot sl_cellClicked(int,int)\n"
                                                 "private slot sl_cellDoubleClicked(int,int)\n"
                                                 "private slot sl_cellEntered(int,int)\n"
                                                 "private slot sl_cellPressed(int,int)\n"
                                                 "private slot sl_customContextMenuRequested(QPoint)\n"
                                                 "private slot sl_setToAll()\n"
                                                 "method spacingValue(int)\n"
                                                 "method setSpacingValue(int,double)\n";
    QTest::newRow("ExternalWidget") << &ExternalWidget::staticMetaObject << "slot setFocus()\n";
    QTest::newRow("ZorvaFrequencyEdit") << &ZorvaFrequencyEdit::staticMetaObject
                                        << "signal si_lockButtonToggled(bool)\n"
                                           "signal editingFinished()\n"
                                           "signal unitChanged(QString)\n"
                                           "signal valueChanged(qlonglong)\n"
                                           "signal returnPressed()\n"
                                           "slot autosetUnitScale()\n"
                                           "slot setDisplayOutOfRangeValues(bool)\n"
                                           "slot setMaxHistoryLength(int)\n"
                                           "slot setMaximum(qlonglong)\n"
                                           "slot setMinimum(qlonglong)\n"
                                           "slot setUnitHidden(bool)\n"
                                           "slot setUnitScale(QString)\n"
                                           "slot setUnitScale(qulonglong)\n"
                                           "slot setUseHistory(bool)\n"
                                           "slot setUseUniformHeights(bool)\n"
                                           "slot setValue(qlonglong)\n"
                                           "slot setFocus()\n"
                                           "slot forceFinishEditing()\n"
                                           "private slot SlotTextEdited(QString)\n"
                                           "private slot SlotReturnPressed()\n"
                                           "private slot SlotLockButtonChecked(bool)\n";
    QTest::newRow("ZorvaFrequencyRangeEdit") << &ZorvaFrequencyRangeEdit::staticMetaObject
                                             << "signal editingFinished()\n"
                                                "signal rangeChanged(qlonglong,qlonglong)\n"
                                                "signal returnPressed()\n"
                                                "signal startFrequencyUnitChanged(QString)\n"
                                                "signal stopFrequencyUnitChanged(QString)\n"
                                                "slot addValidBand(QString,qlonglong,qlonglong)\n"
                                                "slot clearValidBands()\n"
                                                "slot autosetUnitScale()\n"
                                                "slot setFocus()\n"
                                                "slot setMaximum(qlonglong)\n"
                                                "slot setMinimum(qlonglong)\n"
                                                "slot setRange(qlonglong,qlonglong)\n"
                                                "slot setStartFrequency(qlonglong)\n"
                                                "slot setStartFrequencyParameterXmlTag(QString)\n"
                                                "slot setStartFrequencyUnitScale(QString)\n"
                                                "slot setStartFrequencyUnitScale(qulonglong)\n"
                                                "slot setStopFrequency(qlonglong)\n"
                                                "slot setStopFrequencyParameterXmlTag(QString)\n"
                                                "slot setStopFrequencyUnitScale(QString)\n"
                                                "slot setStopFrequencyUnitScale(qulonglong)\n"
                                                "slot setUnitHidden(bool)\n"
                                                "slot forceFinishEditing()\n"
                                                "private slot SlotTextEdited(QString)\n"
                                                "private slot SlotTextEdited()\n"
                                                "private slot SlotReturnPressed()\n";
    QTest::newRow("FreqRangeTable") << &FreqRangeTable::staticMetaObject
                                    << "slot SlotSortByStartFrequencies()\n"
                                       "private slot SlotValueChanged(int,int)\n"
                                       "private slot SlotNew()\n"
                                       "private slot SlotDelete()\n";
    QTest::newRow("ZorvaFHPObject") << &ZorvaFHPObject::staticMetaObject
                                    << "signal si_editEditExclusionRangesBtnClicked()\n"
                                       "slot sl_editExclusionRanges()\n"
                                       "method emitEditExclusionRangesBtnClicked()\n";
    QTest::newRow("ZorvaDSCObject") << &ZorvaDSCObject::staticMetaObject
                                    << "signal si_editExclusionRangesBtnClicked()\n"
                                       "signal si_editScriptBtnClicked()\n"
                                       "signal si_loadProdCriteriaBtnClicked()\n"
                                       "signal si_loadSpectralDetectorDataClicked()\n"
                                       "signal si_spectralDetectorProcStatusToggled(bool)\n"
                                       "slot sl_editExclusionRanges()\n"
                                       "slot sl_setScanRanges(QString)\n"
                                       "method emitEditExclusionRangesBtnClicked()\n"
                                       "method emitEditScriptBtnClicked()\n"
                                       "method emitLoadProdCriteriaBtnClicked()\n"
                                       "method emitLoadSpectralDetectorDataClicked()\n"
                                       "method emitSpectralDetectorProcStatusToggled(bool)\n";
    QTest::newRow("ZorvaFFTObject") << &ZorvaFFTObject::staticMetaObject
                                    << "signal si_signalSampleRateChanged(qlonglong)\n"
                                       "signal si_spectralResolutionChanged(double,double)\n"
                                       "slot setFFTLength(uint)\n"
                                       "slot setSignalSampleRate(qlonglong)\n"
                                       "method frequencyResolutionString()\n"
                                       "method timeResolutionString()\n"
                                       "method frequencyResolution()\n"
                                       "method timeResolution()\n"
                                       "method signalSampleRate()\n";
    QTest::newRow("ZorvaTunerObject") << &ZorvaTunerObject::staticMetaObject
                                      << "signal si_IFPanSpectrumEnabled(bool)\n"
                                         "signal si_PIFPanSpectrumEnabled(bool)\n"
                                         "signal si_segmentChanged(qlonglong,uint)\n"
                                         "method emitSegment(qlonglong,uint)\n"
                                         "method setIFPanSpectrumEnabled(bool)\n"
                                         "method setPIFPanSpectrumEnabled(bool)\n";
    QTest::newRow("ZorvaAudioObject") << &ZorvaAudioObject::staticMetaObject
                                      << "signal si_audioSourceAnalog()\n"
                                         "signal si_audioSourceDigital()\n"
                                         "signal si_audioSourceNone()\n"
                                         "method setAudioSourceToAnalog()\n"
                                         "method setAudioSourceToDigital()\n"
                                         "method setAudioSourceToNone()\n";
    QTest::newRow("ZorvaScriptControl") << &ZorvaScriptControl::staticMetaObject
                                        << "signal clearScriptClicked()\n"
                                           "signal editScriptClicked()\n"
                                           "signal loadScriptClicked()\n"
                                           "slot setEnabledClear(bool)\n"
                                           "slot setEnabledEdit(bool)\n"
                                           "slot setEnabledLoad(bool)\n"
                                           "slot setVisibleClear(bool)\n"
                                           "slot setVisibleEdit(bool)\n"
                                           "slot setVisibleLoad(bool)\n"
                                           "slot sl_customPropertyChanged(QString,QVariant)\n";
}

void tst_MetaObjectsSpecial::methods()
{
    QFETCH(const QMetaObject*, metaObject);
    QString found;
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i) {
        const QMetaMethod method = metaObject->method(i);
        if (method.access() == QMetaMethod::Private)
            found += QStringLiteral("private ");
        found += method.methodType() == QMetaMethod::Signal ? QStringLiteral("signal ")
                 : method.methodType() == QMetaMethod::Slot ? QStringLiteral("slot ")
                                                            : QStringLiteral("method ");
        found += QString::fromLatin1(method.methodSignature()) + QLatin1Char('\n');
    }
    QTEST(found, "expected");
}

QTEST_APPLESS_MAIN(tst_MetaObjectsSpecial)
#include "tst_metaobjects_special.moc"
