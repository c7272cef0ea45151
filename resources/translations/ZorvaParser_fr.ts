<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>EntryHint</name>
    <message>
        <source>%1 is the lowest</source>
        <translation>%1 est le minimum</translation>
    </message>
    <message>
        <source>%1 is the highest</source>
        <translation>%1 est le maximum</translation>
    </message>
</context>
<context>
    <name>Manual</name>
    <message>
        <source>Length</source>
        <translation>Longueur</translation>
    </message>
    <message>
        <source>at most %1 characters</source>
        <translation>au plus %1 caractères</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Plage</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>à partir de %1</translation>
    </message>
    <message>
        <source>up to %1</source>
        <translation>jusqu’à %1</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Pas</translation>
    </message>
    <message>
        <source>Choices</source>
        <translation>Choix</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Paramètre</translation>
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
        <translation>&amp;Nouvelle ligne</translation>
    </message>
    <message>
        <source>Create a new row in the list box</source>
        <translation>Créer une nouvelle ligne dans la liste</translation>
    </message>
    <message>
        <source>&amp;Delete row</source>
        <translation>&amp;Supprimer la ligne</translation>
    </message>
    <message>
        <source>Delete the selected element in the row</source>
        <translation>Supprimer l’élément sélectionné de la ligne</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaChannelSpacingTable</name>
    <message>
        <source>Set to all</source>
        <translation>Appliquer à tous</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaDSCObject</name>
    <message>
        <source>Excluded ranges (kHz)</source>
        <translation>Plages exclues (kHz)</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Trier</translation>
    </message>
    <message>
        <source>Sort entries by start frequency in ascending order</source>
        <translation>Trier les entrées par fréquence de début croissante</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaFHPObject</name>
    <message>
        <source>Excluded ranges (kHz)</source>
        <translation>Plages exclues (kHz)</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Trier</translation>
    </message>
    <message>
        <source>Sort entries by start frequency in ascending order</source>
        <translation>Trier les entrées par fréquence de début croissante</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaFrequencyEdit</name>
    <message>
        <source>Lock frequency range</source>
        <translation>Verrouiller la plage de fréquences</translation>
    </message>
    <message>
        <source>Unlock frequency range</source>
        <translation>Déverrouiller la plage de fréquences</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaFrequencyRangeEdit</name>
    <message>
        <source>Start Frequency</source>
        <translation>Fréquence de début</translation>
    </message>
    <message>
        <source>Stop Frequency</source>
        <translation>Fréquence de fin</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaScriptControl</name>
    <message>
        <source>Script loaded</source>
        <translation>Script chargé</translation>
    </message>
    <message>
        <source>NO Script loaded</source>
        <translation>AUCUN script chargé</translation>
    </message>
</context>
<context>
    <name>Orvane::ZorvaSheetUi</name>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Auto Apply</source>
        <translation>Appliquer automatiquement</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Taille du texte</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normale</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Grande</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>larger than 16 MiB</source>
        <translation>plus de 16 Mio</translation>
    </message>
</context>
<context>
    <name>TableField</name>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>VCFrequency</name>
    <message>
        <source>Unit shown</source>
        <translation>Unité affichée</translation>
    </message>
    <message>
        <source>Last frequencies</source>
        <translation>Dernières fréquences</translation>
    </message>
    <message>
        <source>Tune</source>
        <translation>Accorder</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>No frequency yet</source>
        <translation>Pas encore de fréquence</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Fréquence</translation>
    </message>
    <message>
        <source>Bandwidth</source>
        <translation>Largeur de bande</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Pas</translation>
    </message>
</context>
<context>
    <name>VCLineEdit</name>
    <message>
        <source>The text is not complete</source>
        <translation>Le texte n’est pas complet</translation>
    </message>
    <message>
        <source>Not a frequency. Examples: 98.5 MHz, 8k, 500</source>
        <translation>Ce n’est pas une fréquence. Exemples : 98.5 MHz, 8k, 500</translation>
    </message>
</context>
<context>
    <name>VCNumericFloatSpin</name>
    <message>
        <source>Not a number that fits. Example: %1</source>
        <translation>Ce nombre ne convient pas. Exemple : %1</translation>
    </message>
</context>
<context>
    <name>hostkit</name>
    <message>
        <source>on</source>
        <translation>activé</translation>
    </message>
    <message>
        <source>off</source>
        <translation>désactivé</translation>
    </message>
</context>
<context>
    <name>hostkit::DeviceLink</name>
    <message>
        <source>no answer</source>
        <translation>pas de réponse</translation>
    </message>
</context>
<context>
    <name>hostkit::FormLink</name>
    <message>
        <source>%1, not sent or not confirmed when the link was lost</source>
        <translation>%1, non envoyé ou non confirmé lors de la perte de la liaison</translation>
    </message>
    <message>
        <source>sent, but cannot be read back: %1</source>
        <translation>envoyé, mais impossible à relire : %1</translation>
    </message>
    <message>
        <source>the device reports %1, which this row cannot show</source>
        <translation>l’appareil indique %1, que cette ligne ne peut pas afficher</translation>
    </message>
    <message>
        <source>asked for %1, the device took %2</source>
        <translation>%1 demandé, l’appareil a pris %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
<context>
    <name>hostkit::ReviewDialog</name>
    <message>
        <source>Review</source>
        <translation>Vérification</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Paramètre</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Actuel</translation>
    </message>
    <message>
        <source>To be sent</source>
        <translation>À envoyer</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>not in this form</source>
        <translation>absent de ce formulaire</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>Send (%1)</source>
        <translation>Envoyer (%1)</translation>
    </message>
</context>
<context>
    <name>hostkit::RowStates</name>
    <message>
        <source>not read</source>
        <translation>non lu</translation>
    </message>
    <message>
        <source>requested</source>
        <translation>demandé</translation>
    </message>
    <message>
        <source>confirmed</source>
        <translation>confirmé</translation>
    </message>
    <message>
        <source>differing</source>
        <translation>différent</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>refusé</translation>
    </message>
    <message>
        <source>stale</source>
        <translation>périmé</translation>
    </message>
</context>
</TS>
