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
    <message>
        <source>Convert</source>
        <translation>Konvertieren</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Convert All</source>
        <translation>Alle konvertieren</translation>
    </message>
    <message>
        <source>Skip All</source>
        <translation>Alle überspringen</translation>
    </message>
    <message>
        <source>White balance modified by preset</source>
        <translation>Weißabgleich durch Preset verändert</translation>
    </message>
    <message>
        <source>Your preset %1 contains values for the white balance.&lt;br/&gt;&lt;br/&gt;Equal white balance values can lead to different results in Capture One.&lt;br/&gt;Thus Stylewright translates the values instead of adapting them visually.&lt;br/&gt;Anyway we recommend to keep the white balance settings for neutralizing the image instead of using them for creating a look.&lt;br/&gt;For this reason they should not be inside a preset.</source>
        <translation>Ihr Preset %1 enthält Werte für den Weißabgleich.&lt;br/&gt;&lt;br/&gt;Gleiche Weißabgleichswerte können in Capture One zu anderen Ergebnissen führen.&lt;br/&gt;Deshalb übersetzt Stylewright die Werte, statt sie nach Augenmaß anzugleichen.&lt;br/&gt;Wir empfehlen trotzdem, den Weißabgleich zum Neutralisieren des Bildes zu verwenden und nicht, um einen Look zu gestalten.&lt;br/&gt;Aus diesem Grund sollte er nicht in einem Preset enthalten sein.</translation>
    </message>
    <message>
        <source>LUT</source>
        <translation>Farbtabelle (LUT)</translation>
    </message>
    <message>
        <source>Dehaze</source>
        <translation>Dunst entfernen</translation>
    </message>
    <message>
        <source>Unsupported parameters in preset</source>
        <translation>Nicht unterstützte Parameter im Preset</translation>
    </message>
    <message>
        <source>Your selected preset %1 contains the following parameters, which can&apos;t be mapped in Capture One:&lt;br/&gt;%2&lt;br/&gt;These parameters will be ignored.</source>
        <translation>Ihr gewähltes Preset %1 enthält die folgenden Parameter, die sich in Capture One nicht abbilden lassen:&lt;br/&gt;%2&lt;br/&gt;Diese Parameter werden ignoriert.</translation>
    </message>
    <message>
        <source>Camera calibration modified by preset</source>
        <translation>Kamerakalibrierung durch Preset verändert</translation>
    </message>
    <message>
        <source>The preset %1 contains values for the camera calibration.&lt;br/&gt;These settings may influence the resulting look significantly but will not be converted to Capture One.&lt;br/&gt;We recommend to reserve these parameters for the calibration of your camera and not for creating creative looks.</source>
        <translation>Das Preset %1 enthält Werte für die Kamerakalibrierung.&lt;br/&gt;Diese Einstellungen können den Look erheblich beeinflussen, werden aber nicht nach Capture One übertragen.&lt;br/&gt;Wir empfehlen, diese Parameter der Kalibrierung Ihrer Kamera vorzubehalten und nicht für kreative Looks zu verwenden.</translation>
    </message>
    <message>
        <source>Unsupported preset format</source>
        <translation>Nicht unterstütztes Preset-Format</translation>
    </message>
    <message>
        <source>Your preset %1 is in a format Stylewright can&apos;t convert.</source>
        <translation>Ihr Preset %1 liegt in einem Format vor, das Stylewright nicht konvertieren kann.</translation>
    </message>
    <message>
        <source>Can&apos;t read preset</source>
        <translation>Preset kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Your preset %1 can&apos;t be processed by Stylewright.&lt;br/&gt;&lt;br/&gt;Please contact the Quillmark support and send them a screenshot of this message and the preset file stated above to </source>
        <translation>Ihr Preset %1 kann von Stylewright nicht verarbeitet werden.&lt;br/&gt;&lt;br/&gt;Bitte wenden Sie sich an den Quillmark-Support und senden Sie ein Bildschirmfoto dieser Meldung und die oben genannte Preset-Datei an </translation>
    </message>
    <message>
        <source>Preset conversion failed</source>
        <translation>Konvertierung des Presets fehlgeschlagen</translation>
    </message>
    <message>
        <source>The preset %1 could not be converted to Capture One format.&lt;br&gt;Please contact Quillmark support and send them a screenshot of this message and the preset file stated above to </source>
        <translation>Das Preset %1 konnte nicht in das Capture-One-Format konvertiert werden.&lt;br&gt;Bitte wenden Sie sich an den Quillmark-Support und senden Sie ein Bildschirmfoto dieser Meldung und die oben genannte Preset-Datei an </translation>
    </message>
    <message>
        <source>Can&apos;t write style</source>
        <translation>Stil kann nicht gespeichert werden</translation>
    </message>
    <message>
        <source>The style %1 could not be written.&lt;br/&gt;%2</source>
        <translation>Der Stil %1 konnte nicht gespeichert werden.&lt;br/&gt;%2</translation>
    </message>
    <message>
        <source>Load Lightroom Template</source>
        <translation>Lightroom-Vorlage laden</translation>
    </message>
    <message>
        <source>Lightroom Templates(*.lrtemplate *.xmp)</source>
        <translation>Lightroom-Vorlagen(*.lrtemplate *.xmp)</translation>
    </message>
    <message>
        <source>Name Capture One Stylepack</source>
        <translation>Capture-One-Stilpaket benennen</translation>
    </message>
    <message>
        <source>Capture One Stylepack(*.costylepack)</source>
        <translation>Capture-One-Stilpaket(*.costylepack)</translation>
    </message>
    <message>
        <source>Converting presets</source>
        <translation>Presets werden konvertiert</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Converting preset %1 of %2:
%3</source>
        <translation>Preset %1 von %2 wird konvertiert:
%3</translation>
    </message>
    <message>
        <source>… and %1 more, listed in the application log.</source>
        <translation>… und %1 weitere, aufgeführt im Anwendungsprotokoll.</translation>
    </message>
    <message>
        <source>Presets not read from archive</source>
        <translation>Nicht gelesene Presets aus dem Archiv</translation>
    </message>
    <message>
        <source>The archive can&apos;t be read: %1.</source>
        <translation>Das Archiv kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>The archive holds more than %1 entries; it was not read.</source>
        <translation>Das Archiv enthält mehr als %1 Einträge; es wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The entry&apos;s name leads outside the archive; it was not read.</source>
        <translation>Der Name des Eintrags führt aus dem Archiv heraus; er wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The preset is larger than %1 MB; it was not read.</source>
        <translation>Das Preset ist größer als %1 MB; es wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The archive&apos;s presets together are larger than %1 MB; the rest was not read.</source>
        <translation>Die Presets des Archivs sind zusammen größer als %1 MB; der Rest wurde nicht gelesen.</translation>
    </message>
    <message>
        <source>The entry can&apos;t be read: %1.</source>
        <translation>Der Eintrag kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>Output folder can&apos;t be used</source>
        <translation>Ausgabeordner nicht verwendbar</translation>
    </message>
    <message>
        <source>The output folder %1 can&apos;t be used for the styles.&lt;br/&gt;%2</source>
        <translation>Der Ausgabeordner %1 kann nicht für die Stile verwendet werden.&lt;br/&gt;%2</translation>
    </message>
    <message>
        <source>It is a file, not a folder.</source>
        <translation>Es ist eine Datei, kein Ordner.</translation>
    </message>
    <message>
        <source>The folder can&apos;t be created.</source>
        <translation>Der Ordner kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Zip Archives of Presets(*.zip)</source>
        <translation>Zip-Archive mit Presets(*.zip)</translation>
    </message>
    <message>
        <source>%1 converted, %2 skipped, %3 failed</source>
        <translation>%1 konvertiert, %2 übersprungen, %3 fehlgeschlagen</translation>
    </message>
    <message>
        <source>empty style</source>
        <translation>leerer Stil</translation>
    </message>
    <message>
        <source>local adjustments (%1)</source>
        <translation>lokale Korrekturen (%1)</translation>
    </message>
    <message>
        <source>white balance “%1”</source>
        <translation>Weißabgleich „%1“</translation>
    </message>
    <message>
        <source>1 other setting</source>
        <translation>1 weitere Einstellung</translation>
    </message>
    <message>
        <source>%1 other settings</source>
        <translation>%1 weitere Einstellungen</translation>
    </message>
    <message>
        <source>converted into the pack as %1</source>
        <translation>ins Paket konvertiert als %1</translation>
    </message>
    <message>
        <source>converted into %1</source>
        <translation>konvertiert in %1</translation>
    </message>
    <message>
        <source>leaves out %1</source>
        <translation>ohne %1</translation>
    </message>
    <message>
        <source>skipped (Skip All): %1</source>
        <translation>übersprungen (Alle überspringen): %1</translation>
    </message>
    <message>
        <source>skipped: %1</source>
        <translation>übersprungen: %1</translation>
    </message>
    <message>
        <source>failed: %1</source>
        <translation>fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Not a DNG preset</source>
        <translation>Kein DNG-Preset</translation>
    </message>
    <message>
        <source>The DNG file %1 holds no develop settings.</source>
        <translation>Die DNG-Datei %1 enthält keine Entwicklungseinstellungen.</translation>
    </message>
    <message>
        <source>it holds no develop settings</source>
        <translation>sie enthält keine Entwicklungseinstellungen</translation>
    </message>
    <message>
        <source>%1 is a Lightroom profile, not a develop preset; Capture One cannot use Lightroom profiles.</source>
        <translation>%1 ist ein Lightroom-Profil, kein Entwicklungs-Preset; Capture One kann Lightroom-Profile nicht verwenden.</translation>
    </message>
    <message>
        <source>%1 gives the same style as %2; written once</source>
        <translation>%1 ergibt denselben Stil wie %2; einmal geschrieben</translation>
    </message>
    <message>
        <source>skipped: a Lightroom profile, not a develop preset; Capture One cannot use Lightroom profiles</source>
        <translation>übersprungen: ein Lightroom-Profil, kein Entwicklungs-Preset; Capture One kann Lightroom-Profile nicht verwenden</translation>
    </message>
    <message>
        <source>skipped: gives the same style as %1; written once</source>
        <translation>übersprungen: ergibt denselben Stil wie %1; einmal geschrieben</translation>
    </message>
    <message>
        <source>All Presets and Archives(*.lrtemplate *.xmp *.dng *.zip)</source>
        <translation>Alle Presets und Archive(*.lrtemplate *.xmp *.dng *.zip)</translation>
    </message>
    <message>
        <source>%1 camera profile (.dcp)</source>
        <translation>%1 Kameraprofil (.dcp)</translation>
    </message>
    <message>
        <source>%1 camera profiles (.dcp)</source>
        <translation>%1 Kameraprofile (.dcp)</translation>
    </message>
    <message>
        <source>%1 lens profile (.lcp)</source>
        <translation>%1 Objektivprofil (.lcp)</translation>
    </message>
    <message>
        <source>%1 lens profiles (.lcp)</source>
        <translation>%1 Objektivprofile (.lcp)</translation>
    </message>
    <message>
        <source>%1 LUT (.cube)</source>
        <translation>%1 LUT (.cube)</translation>
    </message>
    <message>
        <source>%1 LUTs (.cube)</source>
        <translation>%1 LUTs (.cube)</translation>
    </message>
    <message>
        <source>%1 LUT (.3dl)</source>
        <translation>%1 LUT (.3dl)</translation>
    </message>
    <message>
        <source>%1 LUTs (.3dl)</source>
        <translation>%1 LUTs (.3dl)</translation>
    </message>
    <message>
        <source>%1 Capture One style (.costyle)</source>
        <translation>%1 Capture-One-Stil (.costyle)</translation>
    </message>
    <message>
        <source>%1 Capture One styles (.costyle)</source>
        <translation>%1 Capture-One-Stile (.costyle)</translation>
    </message>
    <message>
        <source>%1 Capture One style pack (.costylepack)</source>
        <translation>%1 Capture-One-Stilpaket (.costylepack)</translation>
    </message>
    <message>
        <source>%1 Capture One style packs (.costylepack)</source>
        <translation>%1 Capture-One-Stilpakete (.costylepack)</translation>
    </message>
    <message>
        <source>%1 Lightroom smart collection (.lrsmcol)</source>
        <translation>%1 Lightroom-Smart-Sammlung (.lrsmcol)</translation>
    </message>
    <message>
        <source>%1 Lightroom smart collections (.lrsmcol)</source>
        <translation>%1 Lightroom-Smart-Sammlungen (.lrsmcol)</translation>
    </message>
    <message>
        <source>%1 Lightroom catalogue (.lrcat)</source>
        <translation>%1 Lightroom-Katalog (.lrcat)</translation>
    </message>
    <message>
        <source>%1 Lightroom catalogues (.lrcat)</source>
        <translation>%1 Lightroom-Kataloge (.lrcat)</translation>
    </message>
    <message>
        <source>No preset found in this folder.</source>
        <translation>In diesem Ordner wurde kein Preset gefunden.</translation>
    </message>
    <message>
        <source>No preset found in this folder, only files Stylewright does not convert: %1.</source>
        <translation>In diesem Ordner wurde kein Preset gefunden, nur Dateien, die Stylewright nicht konvertiert: %1.</translation>
    </message>
    <message>
        <source>Archives nested more than %1 deep are not opened.</source>
        <translation>Archive, die tiefer als %1 Ebenen verschachtelt sind, werden nicht geöffnet.</translation>
    </message>
    <message>
        <source>%1 converted</source>
        <translation>%1 konvertiert</translation>
    </message>
    <message>
        <source>%1 lost to a later style of the same name</source>
        <translation>%1 an einen späteren Stil gleichen Namens verloren</translation>
    </message>
    <message>
        <source>%1 not saved</source>
        <translation>%1 nicht gespeichert</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 übersprungen</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 fehlgeschlagen</translation>
    </message>
    <message>
        <source>the style pack was cancelled</source>
        <translation>das Stilpaket wurde abgebrochen</translation>
    </message>
    <message>
        <source>%1 brush</source>
        <translation>%1 Pinsel</translation>
    </message>
    <message>
        <source>%1 brushes</source>
        <translation>%1 Pinsel</translation>
    </message>
    <message>
        <source>%1 linear gradient</source>
        <translation>%1 linearer Verlauf</translation>
    </message>
    <message>
        <source>%1 linear gradients</source>
        <translation>%1 lineare Verläufe</translation>
    </message>
    <message>
        <source>%1 mask</source>
        <translation>%1 Maske</translation>
    </message>
    <message>
        <source>%1 masks</source>
        <translation>%1 Masken</translation>
    </message>
    <message>
        <source>%1 radial gradient</source>
        <translation>%1 Radialverlauf</translation>
    </message>
    <message>
        <source>%1 radial gradients</source>
        <translation>%1 Radialverläufe</translation>
    </message>
    <message>
        <source>white balance</source>
        <translation>Weißabgleich</translation>
    </message>
    <message>
        <source>camera calibration</source>
        <translation>Kamerakalibrierung</translation>
    </message>
    <message>
        <source>lens corrections</source>
        <translation>Objektivkorrekturen</translation>
    </message>
    <message>
        <source>transform</source>
        <translation>Transformieren</translation>
    </message>
    <message>
        <source>crop</source>
        <translation>Freistellen</translation>
    </message>
    <message>
        <source>texture</source>
        <translation>Struktur</translation>
    </message>
    <message>
        <source>dehaze</source>
        <translation>Dunst entfernen</translation>
    </message>
    <message>
        <source>profile and Look</source>
        <translation>Profil und Look</translation>
    </message>
    <message>
        <source>local adjustments</source>
        <translation>lokale Korrekturen</translation>
    </message>
    <message>
        <source>tone curve details</source>
        <translation>Details der Gradationskurve</translation>
    </message>
    <message>
        <source>HSL and colour grading details</source>
        <translation>Details von HSL und Color Grading</translation>
    </message>
    <message>
        <source>detail</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>other</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>profile and the Look “%1”</source>
        <translation>Profil und der Look „%1“</translation>
    </message>
    <message>
        <source>lost: replaced by the style of %1 (same file name)</source>
        <translation>verloren: ersetzt durch den Stil von %1 (gleicher Dateiname)</translation>
    </message>
    <message>
        <source>not saved: %1</source>
        <translation>nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>converted into %1, written over an earlier file</source>
        <translation>konvertiert in %1, über eine frühere Datei geschrieben</translation>
    </message>
    <message>
        <source>Restart Capture One to see the new styles.</source>
        <translation>Starten Sie Capture One neu, um die neuen Stile zu sehen.</translation>
    </message>
    <message>
        <source>Its context menu converts Lightroom&apos;s own presets.</source>
        <translation>Sein Kontextmenü konvertiert Lightrooms eigene Presets.</translation>
    </message>
    <message>
        <source>Its context menu chooses Capture One&apos;s styles folder.</source>
        <translation>Sein Kontextmenü wählt den Stilordner von Capture One.</translation>
    </message>
    <message>
        <source>Lightroom and Capture One run only on macOS and Windows; their folders are not looked for here.</source>
        <translation>Lightroom und Capture One laufen nur unter macOS und Windows; ihre Ordner werden hier nicht gesucht.</translation>
    </message>
    <message>
        <source>Not found: %1</source>
        <translation>Nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Convert Lightroom&apos;s presets</source>
        <translation>Lightrooms Presets konvertieren</translation>
    </message>
    <message>
        <source>Capture One&apos;s styles folder</source>
        <translation>Stilordner von Capture One</translation>
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
<context>
    <name>run_account</name>
    <message>
        <source>in the pack as %1</source>
        <translation>im Paket als %1</translation>
    </message>
    <message>
        <source>written as %1</source>
        <translation>geschrieben als %1</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Show the folder the styles were written to</source>
        <translation>Den Ordner zeigen, in den die Stile geschrieben wurden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy this account as plain text</source>
        <translation>Diesen Bericht als Text kopieren</translation>
    </message>
    <message>
        <source>Hide Details</source>
        <translation>Details ausblenden</translation>
    </message>
    <message>
        <source>Show or hide the list of presets</source>
        <translation>Die Liste der Presets zeigen oder ausblenden</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Preset</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Nicht übernommen</translation>
    </message>
    <message>
        <source>Style pack: %1</source>
        <translation>Stilpaket: %1</translation>
    </message>
    <message>
        <source>The style pack was not saved.</source>
        <translation>Das Stilpaket wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>The style pack %1 could not be written: %2</source>
        <translation>Das Stilpaket %1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>No presets found</source>
        <translation>Keine Presets gefunden</translation>
    </message>
    <message>
        <source>Show Details</source>
        <translation>Details zeigen</translation>
    </message>
    <message>
        <source>written as %1 over an earlier file</source>
        <translation>geschrieben als %1 über eine frühere Datei</translation>
    </message>
</context>
</TS>
