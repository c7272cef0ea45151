#ifndef ZORVA_TESTS_SERVER_FORMS_H
#define ZORVA_TESTS_SERVER_FORMS_H

#include <QString>

/// A small form with every kind of name, used in every kind of place.
inline QString smallForm()
{
    return QString::fromUtf8(R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- A tuner
     of two rows and a remark. -->
<KVParamGui version="1.0">
  <Enums>
    <Enum name="Modes">
      <EnumValue>
        <DisplayName>Broad</DisplayName>
        <EnumIdentifier>MODE_FM</EnumIdentifier>
        <Value>FM</Value>
      </EnumValue>
      <EnumValue>
        <DisplayName>Narrow</DisplayName>
        <EnumIdentifier>MODE_AM</EnumIdentifier>
        <Value>AM</Value>
      </EnumValue>
    </Enum>
  </Enums>
  <Sheet name="tuner">
    <Widget name="head" class="Headline">
      <Property name="text"><String>Tuning</String></Property>
      <Property name="enabled"><Bool>true</Bool></Property>
      <Property name="visible"><Bool>true</Bool></Property>
    </Widget>
    <Widget name="gain" class="SpinBox">
      <Property name="labelText"><String>Gain</String></Property>
      <Property name="value"><Int>40</Int></Property>
      <Property name="minimum"><Int>0</Int></Property>
      <Property name="maximum"><Int>30</Int></Property>
      <Property name="enabled"><Bool>TRUE</Bool></Property>
      <Property name="visible"><Bool>true</Bool></Property>
      <Property name="generateParameterXml"><Bool>true</Bool></Property>
      <Property name="parameterXmlTag"><String>Level/gain</String></Property>
    </Widget>
    <Widget name="mode" class="ComboBox">
      <Property name="labelText"><String>Mode</String></Property>
      <Property name="enumName"><String>Modes</String></Property>
      <Property name="currentValue"><String>AM</String></Property>
      <Property name="enabled"><Bool>true</Bool></Property>
      <Property name="visible"><Bool>true</Bool></Property>
    </Widget>
  </Sheet>
  <Script language="QtScript"><![CDATA[
function follow(value) {
    var gain = 3; // no row
    print(gain);
    mode.setEnabled(value == Modes.MODE_FM);
}
mode.currentValueChanged.connect(follow);
gain.setMaximum(20);
var table = { gain: 1 };
table.gain = 2;
print("gain");
  ]]></Script>
</KVParamGui>
)");
}

/// Where `mark` stands in `where`, which stands once in the text; -1 if it does not.
inline int placeOf(const QString& text, const char* where, const char* mark)
{
    const int begin = text.indexOf(QString::fromUtf8(where));
    const int inside = QString::fromUtf8(where).indexOf(QString::fromUtf8(mark));
    return begin < 0 || inside < 0 ? -1 : begin + inside;
}

#endif
