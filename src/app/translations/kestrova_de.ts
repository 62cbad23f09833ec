<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Clip</name>
    <message>
        <source>the encoder wrote no file</source>
        <translation>der Encoder hat keine Datei geschrieben</translation>
    </message>
    <message>
        <source>the encoder wrote an empty file</source>
        <translation>der Encoder hat eine leere Datei geschrieben</translation>
    </message>
    <message>
        <source>not exported</source>
        <translation>nicht exportiert</translation>
    </message>
    <message>
        <source>exporting...</source>
        <translation>wird exportiert ...</translation>
    </message>
    <message>
        <source>queued...</source>
        <translation>wartet ...</translation>
    </message>
    <message>
        <source>canceled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>export failed!</source>
        <translation>Export fehlgeschlagen!</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>exportiert</translation>
    </message>
    <message>
        <source>unknown status</source>
        <translation>unbekannter Zustand</translation>
    </message>
    <message>
        <source>%1
#%2 %3 (%4 sec) (%5)</source>
        <translation>%1
#%2 %3 (%4 Sek.) (%5)</translation>
    </message>
    <message>
        <source>a clip with these times cannot be cut out</source>
        <translation>ein Clip mit diesen Zeiten lässt sich nicht ausschneiden</translation>
    </message>
</context>
<context>
    <name>ClipListWidget</name>
    <message>
        <source>Drop recordings here, or add them with the buttons above</source>
        <translation>Aufnahmen hierher ziehen oder mit den Schaltflächen oben hinzufügen</translation>
    </message>
</context>
<context>
    <name>DetectionQueue</name>
    <message>
        <source>No thread to run detection on, trying again...</source>
        <translation>Das System gibt keinen Thread für die Suche her, neuer Versuch ...</translation>
    </message>
</context>
<context>
    <name>EditMaskWindow</name>
    <message>
        <source>Add file(s)</source>
        <translation>Datei(en) hinzufügen</translation>
    </message>
    <message>
        <source>File info:</source>
        <translation>Datei:</translation>
    </message>
    <message>
        <source>Specify region of interest (ROI).
If none selected the whole image will be used.
Rectangle ROI will speed up detection but only one rectangle is allowed.
Free ROI can slow down detection.</source>
        <translation>Bereich festlegen, in dem nach Bewegung gesucht wird.
Ohne Auswahl wird das ganze Bild verwendet.
Ein Rechteck beschleunigt die Suche; es ist nur eines möglich.
Ein freier Bereich kann die Suche verlangsamen.</translation>
    </message>
    <message>
        <source>Rectangle ROI</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Free ROI</source>
        <translation>Freier Bereich</translation>
    </message>
    <message>
        <source>Clear mask
Whole region will be used for motion detection.</source>
        <translation>Auswahl löschen
Das ganze Bild wird nach Bewegung durchsucht.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Invert masked and exposed regions</source>
        <translation>Gewählte und ausgelassene Bereiche vertauschen</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>Skip frames:</source>
        <translation>Bilder auslassen:</translation>
    </message>
    <message>
        <source>Specify how much skip frames for motion detection.
If set to 0 every frames would be detected for motion, 
if set to 1 only even frames would be detected etc.
High values can affect motion detection quality</source>
        <translation>Wie viele Bilder zwischen zwei geprüften Bildern ausgelassen werden.
Bei 0 wird jedes Bild geprüft,
bei 1 jedes zweite und so weiter.
Hohe Werte können die Erkennung verschlechtern</translation>
    </message>
    <message>
        <source>Export dir:</source>
        <translation>Exportordner:</translation>
    </message>
    <message>
        <source>Video files with detected motion will create corresponding folder in Export dir. Existing clips would be silently rewritten</source>
        <translation>Für jede Aufnahme mit Bewegung entsteht im Exportordner ein eigener Ordner. Vorhandene Clips werden ohne Nachfrage überschrieben</translation>
    </message>
    <message>
        <source>Select folder to save</source>
        <translation>Ordner zum Speichern auswählen</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>If checked detected clips will exported to Export dir</source>
        <translation>Gefundene Clips werden von selbst in den Exportordner exportiert</translation>
    </message>
    <message>
        <source>Export all automatically</source>
        <translation>Alle automatisch exportieren</translation>
    </message>
    <message>
        <source>Prerecord:</source>
        <translation>Vorlauf:</translation>
    </message>
    <message>
        <source>Specify video duration in seconds to write directly before detected motion</source>
        <translation>Wie viele Sekunden vor der Bewegung ein Clip beginnt</translation>
    </message>
    <message>
        <source>Postrecord:</source>
        <translation>Nachlauf:</translation>
    </message>
    <message>
        <source>Specify video duration in seconds to write directly after detected motion</source>
        <translation>Wie viele Sekunden nach der Bewegung ein Clip endet</translation>
    </message>
    <message>
        <source>Minimum length:</source>
        <translation>Mindestdauer:</translation>
    </message>
    <message>
        <source>Clips with motion duration in seconds less then Minimum length would not be written. All overlapping clips would be concatenated</source>
        <translation>Sekunden, in denen sich mindestens die Hälfte der Zeit etwas bewegen muss, damit ein Clip beginnt. Kürzere Bewegung ergibt keinen Clip</translation>
    </message>
    <message>
        <source>This also will force transcoding</source>
        <translation>Dafür werden die Clips neu kodiert</translation>
    </message>
    <message>
        <source>Export with timestamps</source>
        <translation>Mit Uhrzeit exportieren</translation>
    </message>
    <message>
        <source>Video file start time</source>
        <translation>Beginn der Aufnahme</translation>
    </message>
    <message>
        <source>M/d/yyyy h:mm:ss AP</source>
        <translation>dd.MM.yyyy HH:mm:ss</translation>
    </message>
    <message>
        <source>Add single video file with current mask</source>
        <translation>Diese Aufnahme mit dem gewählten Bereich hinzufügen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Add all queued video files with current mask</source>
        <translation>Alle wartenden Aufnahmen mit dem gewählten Bereich hinzufügen</translation>
    </message>
    <message>
        <source>Add ALL</source>
        <translation>ALLE hinzufügen</translation>
    </message>
    <message>
        <source>Discard current video file</source>
        <translation>Diese Aufnahme verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Discard all queued video files</source>
        <translation>Alle wartenden Aufnahmen verwerfen</translation>
    </message>
    <message>
        <source>Cancel ALL</source>
        <translation>ALLE abbrechen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Please check export dir name and permissions</source>
        <translation>Bitte Namen und Rechte des Exportordners prüfen</translation>
    </message>
    <message>
        <source>File %1 of %2</source>
        <translation>Datei %1 von %2</translation>
    </message>
    <message>
        <source>The region of %1 still applies. Draw a new one, or Clear.</source>
        <translation>Der Bereich von %1 gilt weiter. Zeichnen Sie einen neuen, oder drücken Sie „Löschen“.</translation>
    </message>
    <message>
        <source>The shapes drawn on %1 are gone, but not cleared: nothing would be found here. Draw new ones, or Clear.</source>
        <translation>Die auf %1 gezeichneten Formen sind weg, aber nicht gelöscht: Hier würde nichts gefunden. Zeichnen Sie neue, oder drücken Sie „Löschen“.</translation>
    </message>
</context>
<context>
    <name>EncoderProcess</name>
    <message>
        <source>the encoder cannot be started</source>
        <translation>der Encoder lässt sich nicht starten</translation>
    </message>
    <message>
        <source>the encoder crashed</source>
        <translation>der Encoder ist abgestürzt</translation>
    </message>
    <message>
        <source>the encoder failed</source>
        <translation>der Encoder ist gescheitert</translation>
    </message>
</context>
<context>
    <name>LeftOutBar</name>
    <message>
        <source>Set them up</source>
        <translation>Einrichten</translation>
    </message>
    <message>
        <source>Leave them out</source>
        <translation>Weglassen</translation>
    </message>
    <message>
        <source>Not set up, since others were added: %1 and %2 more</source>
        <translation>Nicht eingerichtet, weil andere dazukamen: %1 und %2 weitere</translation>
    </message>
    <message>
        <source>Not set up, since others were added: %1</source>
        <translation>Nicht eingerichtet, weil andere dazukamen: %1</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Kestrova</source>
        <translation>Kestrova</translation>
    </message>
    <message>
        <source>&amp;Add file(s)</source>
        <translation>Dateien hin&amp;zufügen</translation>
    </message>
    <message>
        <source>Add &amp;directory</source>
        <translation>&amp;Ordner hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Add file(s)</source>
        <translation>Datei(en) hinzufügen</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Ctrl+Shift+O</source>
        <translation>Ctrl+Shift+O</translation>
    </message>
    <message>
        <source>Open selected</source>
        <translation>Auswahl öffnen</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Export selected</source>
        <translation>Auswahl exportieren</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Remove selected</source>
        <translation>Auswahl entfernen</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Remove all</source>
        <translation>Alle entfernen</translation>
    </message>
    <message>
        <source>Ctrl+Del</source>
        <translation>Ctrl+Del</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über Kestrova</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Finds the moving stretches in recordings of fixed cameras.</source>
        <translation>Findet die Stellen mit Bewegung in Aufnahmen fester Kameras.</translation>
    </message>
    <message>
        <source>Credits:</source>
        <translation>Beruht auf:</translation>
    </message>
    <message>
        <source>About Kestrova</source>
        <translation>Über Kestrova</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Eine oder mehrere Dateien auswählen</translation>
    </message>
    <message>
        <source>Select folder to add</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>%1 clips queued to export...</source>
        <translation>Clips, die auf den Export warten: %1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Can&apos;t open manual.pdf</source>
        <translation>manual.pdf kann nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Pixels threshold</source>
        <translation>Schwelle für Bildpunkte</translation>
    </message>
    <message>
        <source>Set more for noise videos, 0 - no treshold apply</source>
        <translation>Höher für verrauschte Aufnahmen; 0: keine Schwelle</translation>
    </message>
    <message>
        <source>Motion detection threshold</source>
        <translation>Schwelle für Bewegung</translation>
    </message>
    <message>
        <source>Set more if you want less motion to detect</source>
        <translation>Höher, wenn weniger Bewegung gefunden werden soll</translation>
    </message>
    <message>
        <source>Output video bitrate for 720p, Mbit/sec</source>
        <translation>Bitrate der Ausgabe bei 720p, Mbit/s</translation>
    </message>
    <message>
        <source>Increase in case of low quality output.
Decrease to use less file space.
Applies only with transcoding</source>
        <translation>Höher für bessere Bilder.
Niedriger für kleinere Dateien.
Gilt nur, wenn neu kodiert wird</translation>
    </message>
    <message>
        <source>Check in case of problems with export.
Transcoding is time consuming and may result to quality loss.
MJPEG is always transcoded.</source>
        <translation>Wählen, wenn der Export Schwierigkeiten macht.
Neu kodieren dauert lange und kann Qualität kosten.
MJPEG wird immer neu kodiert.</translation>
    </message>
    <message>
        <source>Force transcoding</source>
        <translation>Immer neu kodieren</translation>
    </message>
    <message>
        <source>Try to disable audio output in case of problems with export</source>
        <translation>Ohne Ton versuchen, wenn der Export Schwierigkeiten macht</translation>
    </message>
    <message>
        <source>Disable audio output</source>
        <translation>Ohne Ton</translation>
    </message>
    <message>
        <source>Container format</source>
        <translation>Dateiformat</translation>
    </message>
    <message>
        <source>Select output container
- AVI for Windows Media Player
- MP4 for Mac QuickTime Player</source>
        <translation>Dateiformat der Clips
- AVI für Windows Media Player
- MP4 für QuickTime Player auf dem Mac</translation>
    </message>
    <message>
        <source>AVI</source>
        <translation>AVI</translation>
    </message>
    <message>
        <source>MP4</source>
        <translation>MP4</translation>
    </message>
    <message>
        <source>MKV</source>
        <translation>MKV</translation>
    </message>
</context>
</TS>
