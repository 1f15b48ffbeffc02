<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>MainWindow</name>
    <message>
        <source>Select the folder where the converted Lightroom presets will be saved.</source>
        <translation>Wählen Sie den Ordner, in dem die konvertierten Lightroom-Presets gespeichert werden.</translation>
    </message>
    <message>
        <source>Output Folder</source>
        <translation>Ausgabeordner</translation>
    </message>
    <message>
        <source>Load Lightroom preset(s) and convert to Capture One.</source>
        <translation>Lightroom-Preset(s) laden und für Capture One konvertieren.</translation>
    </message>
    <message>
        <source>Show settings dialog</source>
        <translation>Einstellungen anzeigen</translation>
    </message>
    <message>
        <source>Show information about this program</source>
        <translation>Informationen über dieses Programm anzeigen</translation>
    </message>
    <message>
        <source>Display the help page for this program</source>
        <translation>Hilfeseite zu diesem Programm anzeigen</translation>
    </message>
    <message>
        <source>Select output folder</source>
        <translation>Ausgabeordner wählen</translation>
    </message>
</context>
<context>
    <name>dialog_settings</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Separate Styles</source>
        <translation>Einzelne Stile</translation>
    </message>
    <message>
        <source>Stylepack</source>
        <translation>Stilpaket</translation>
    </message>
    <message>
        <source>Stylepack with Category</source>
        <translation>Stilpaket mit Kategorie</translation>
    </message>
    <message>
        <source>Color Space</source>
        <translation>Farbraum</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
</context>
</TS>
