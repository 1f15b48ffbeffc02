<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>vel::about_dialog</name>
    <message>
        <source>FreeSans fonts</source>
        <translation>FreeSans-Schriften</translation>
    </message>
    <message>
        <source>GNU General Public License v3 with font exception</source>
        <translation>GNU General Public License v3 mit Schriften-Ausnahme</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Support</translation>
    </message>
    <message>
        <source>Licensed under the GNU General Public License, version 3 or later.</source>
        <translation>Lizenziert unter der GNU General Public License, Version 3 oder später.</translation>
    </message>
    <message>
        <source>Libraries used</source>
        <translation>Verwendete Bibliotheken</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>vel::help</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>vel::information_box</name>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Operating system</source>
        <translation>Betriebssystem</translation>
    </message>
    <message>
        <source>Processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>Processor features</source>
        <translation>Prozessor-Erweiterungen</translation>
    </message>
    <message>
        <source>none detected</source>
        <translation>keine erkannt</translation>
    </message>
    <message>
        <source>Settings file</source>
        <translation>Einstellungsdatei</translation>
    </message>
    <message>
        <source>Application Information</source>
        <translation>Programminformationen</translation>
    </message>
    <message>
        <source>Click to show the folder of the settings file.</source>
        <translation>Klicken, um den Ordner der Einstellungsdatei anzuzeigen.</translation>
    </message>
    <message>
        <source>Copy to Clipboard</source>
        <translation>In die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>vel::language</name>
    <message>
        <source>Application language changed</source>
        <translation>Programmsprache geändert</translation>
    </message>
    <message>
        <source>The application language has been changed.
The application needs to be restarted to use the new language.</source>
        <translation>Die Programmsprache wurde geändert.
Das Programm muss neu gestartet werden, um die neue Sprache zu verwenden.</translation>
    </message>
    <message>
        <source>Continue working</source>
        <translation>Weiterarbeiten</translation>
    </message>
    <message>
        <source>Quit now</source>
        <translation>Jetzt beenden</translation>
    </message>
</context>
<context>
    <name>vel::message_box</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
</TS>
