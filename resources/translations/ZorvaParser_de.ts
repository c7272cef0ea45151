<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>EntryHint</name>
    <message>
        <source>%1 is the lowest</source>
        <translation>%1 ist das Minimum</translation>
    </message>
    <message>
        <source>%1 is the highest</source>
        <translation>%1 ist das Maximum</translation>
    </message>
</context>
<context>
    <name>Manual</name>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>at most %1 characters</source>
        <translation>höchstens %1 Zeichen</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>ab %1</translation>
    </message>
    <message>
        <source>up to %1</source>
        <translation>bis %1</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>Choices</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
</context>
<context>
    <name>Orvane::FreqRangeTable</name>
    <message>
        <source>min</source>
        <translation>min</translation>
    </message>
    <message>
        <source>max</source>
        <translation>max</translation>
    </message>
    <message>
        <source>&amp;New row</source>
        <translation>&amp;Neue Zeile</translation>
    </message>
    <message>
        <source>Create a new row in the list box</source>
        <translation>Eine neue Zeile in der Liste anlegen</translation>
    </message>
    <message>
        <source>&amp;Delete row</source>
        <translation>Zeile &amp;löschen</translation>
    </message>
    <message>
        <source>Delete the selected element in the row</source>
        <translation>Das ausgewählte Element der Zeile löschen</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaChannelSpacingTable</name>
    <message>
        <source>Set to all</source>
        <translation>Für alle übernehmen</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaDSCObject</name>
    <message>
        <source>Excluded ranges (kHz)</source>
        <translation>Ausgeschlossene Bereiche (kHz)</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Sortieren</translation>
    </message>
    <message>
        <source>Sort entries by start frequency in ascending order</source>
        <translation>Einträge aufsteigend nach Startfrequenz sortieren</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaFHPObject</name>
    <message>
        <source>Excluded ranges (kHz)</source>
        <translation>Ausgeschlossene Bereiche (kHz)</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Sortieren</translation>
    </message>
    <message>
        <source>Sort entries by start frequency in ascending order</source>
        <translation>Einträge aufsteigend nach Startfrequenz sortieren</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaFrequencyEdit</name>
    <message>
        <source>Lock frequency range</source>
        <translation>Frequenzbereich sperren</translation>
    </message>
    <message>
        <source>Unlock frequency range</source>
        <translation>Frequenzbereich entsperren</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaFrequencyRangeEdit</name>
    <message>
        <source>Start Frequency</source>
        <translation>Startfrequenz</translation>
    </message>
    <message>
        <source>Stop Frequency</source>
        <translation>Stoppfrequenz</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaScriptControl</name>
    <message>
        <source>Script loaded</source>
        <translation>Skript geladen</translation>
    </message>
    <message>
        <source>NO Script loaded</source>
        <translation>KEIN Skript geladen</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaSheetUi</name>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Auto Apply</source>
        <translation>Automatisch anwenden</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Textgröße</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>larger than 16 MiB</source>
        <translation>größer als 16 MiB</translation>
    </message>
</context>
<context>
    <name>TableField</name>
    <message>
        <source>Select all</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>VCFrequency</name>
    <message>
        <source>Unit shown</source>
        <translation>Angezeigte Einheit</translation>
    </message>
    <message>
        <source>Last frequencies</source>
        <translation>Letzte Frequenzen</translation>
    </message>
    <message>
        <source>Tune</source>
        <translation>Abstimmen</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>No frequency yet</source>
        <translation>Noch keine Frequenz</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Bandwidth</source>
        <translation>Bandbreite</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
</context>
<context>
    <name>VCLineEdit</name>
    <message>
        <source>The text is not complete</source>
        <translation>Der Text ist nicht vollständig</translation>
    </message>
    <message>
        <source>Not a frequency. Examples: 98.5 MHz, 8k, 500</source>
        <translation>Keine Frequenz. Beispiele: 98.5 MHz, 8k, 500</translation>
    </message>
</context>
<context>
    <name>VCNumericFloatSpin</name>
    <message>
        <source>Not a number that fits. Example: %1</source>
        <translation>Keine passende Zahl. Beispiel: %1</translation>
    </message>
</context>
<context>
    <name>hostkit</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
</context>
<context>
    <name>hostkit::DeviceLink</name>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
</context>
<context>
    <name>hostkit::FormLink</name>
    <message>
        <source>%1, not sent or not confirmed when the link was lost</source>
        <translation>%1, beim Abriss der Verbindung nicht gesendet oder nicht bestätigt</translation>
    </message>
    <message>
        <source>sent, but cannot be read back: %1</source>
        <translation>gesendet, aber nicht zurückzulesen: %1</translation>
    </message>
    <message>
        <source>the device reports %1, which this row cannot show</source>
        <translation>das Gerät meldet %1, was diese Zeile nicht zeigen kann</translation>
    </message>
    <message>
        <source>asked for %1, the device took %2</source>
        <translation>angefordert war %1, das Gerät nahm %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>hostkit::ReviewDialog</name>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>To be sent</source>
        <translation>Zu senden</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>not in this form</source>
        <translation>nicht in diesem Formular</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>Send (%1)</source>
        <translation>Senden (%1)</translation>
    </message>
</context>
<context>
    <name>hostkit::RowStates</name>
    <message>
        <source>not read</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>requested</source>
        <translation>angefordert</translation>
    </message>
    <message>
        <source>confirmed</source>
        <translation>bestätigt</translation>
    </message>
    <message>
        <source>differing</source>
        <translation>abweichend</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>stale</source>
        <translation>veraltet</translation>
    </message>
</context>
</TS>
