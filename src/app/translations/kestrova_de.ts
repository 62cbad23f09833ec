<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AreaBar</name>
    <message>
        <source>Area</source>
        <translation>Bildbereich</translation>
    </message>
    <message>
        <source>Free shape</source>
        <translation>Freie Form</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>All of this camera</source>
        <translation>Alle dieser Kamera</translation>
    </message>
    <message>
        <source>Draw a part of the picture: only clips with motion there are listed</source>
        <translation>Einen Teil des Bildes einzeichnen: Nur Clips mit Bewegung dort bleiben in der Liste</translation>
    </message>
    <message>
        <source>Draw a free shape instead of a rectangle</source>
        <translation>Eine freie Form statt eines Rechtecks zeichnen</translation>
    </message>
    <message>
        <source>For all recordings whose pictures have the same size</source>
        <translation>Für alle Aufnahmen, deren Bilder gleich groß sind</translation>
    </message>
</context>
<context>
    <name>AreaControl</name>
    <message>
        <source>Draw on the picture</source>
        <translation>Auf dem Bild zeichnen</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft ...</translation>
    </message>
    <message>
        <source>No maps of this recording are kept</source>
        <translation>Zu dieser Aufnahme sind keine Karten aufbewahrt</translation>
    </message>
    <message>
        <source>%1; of some recordings no maps are kept</source>
        <translation>%1; zu manchen Aufnahmen sind keine Karten aufbewahrt</translation>
    </message>
    <message numerus="yes">
        <source>Area: %1 of %n clips</source>
        <translation>
            <numerusform>Bildbereich: %1 von %n Clip</numerusform>
            <numerusform>Bildbereich: %1 von %n Clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AreaOverlay</name>
    <message>
        <source>Area of the picture</source>
        <translation>Bereich des Bildes</translation>
    </message>
    <message>
        <source>Arrow keys move it, with Shift they change its size, Delete clears it</source>
        <translation>Pfeiltasten verschieben ihn, mit der Umschalttaste ändern sie die Größe, Entf löscht ihn</translation>
    </message>
</context>
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
    <name>ClipListExport</name>
    <message>
        <source>Export list as</source>
        <translation>Liste exportieren als</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: no thread</source>
        <translation>%1 lässt sich nicht schreiben: Das System gibt keinen Thread her</translation>
    </message>
    <message numerus="yes">
        <source>%n clips listed in %1</source>
        <translation>
            <numerusform>%n Clip in der Liste %1</numerusform>
            <numerusform>%n Clips in der Liste %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1; %n clips are left out, since their recordings cannot be named or are not known</source>
        <translation>
            <numerusform>%1; %n Clip ist ausgelassen, weil seine Aufnahme sich nicht benennen lässt oder nicht bekannt ist</numerusform>
            <numerusform>%1; %n Clips sind ausgelassen, weil ihre Aufnahmen sich nicht benennen lassen oder nicht bekannt sind</numerusform>
        </translation>
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
    <name>ClipMenu</name>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>Copy file name</source>
        <translation>Dateinamen kopieren</translation>
    </message>
    <message>
        <source>Only this recording</source>
        <translation>Nur diese Aufnahme</translation>
    </message>
    <message>
        <source>Export joined</source>
        <translation>Verbunden exportieren</translation>
    </message>
    <message>
        <source>Export list as</source>
        <translation>Liste exportieren als</translation>
    </message>
    <message>
        <source>Playlist for VLC (M3U)</source>
        <translation>Wiedergabeliste für VLC (M3U)</translation>
    </message>
    <message>
        <source>Edit list for mpv</source>
        <translation>Schnittliste für mpv</translation>
    </message>
    <message>
        <source>Edit decision list (CMX 3600)</source>
        <translation>Schnittliste EDL (CMX 3600)</translation>
    </message>
    <message>
        <source>Cut list</source>
        <translation>Liste der Schnitte</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortieren nach</translation>
    </message>
    <message>
        <source>Order found</source>
        <translation>Fundreihenfolge</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Time of day</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>%1 has changed since it was added</source>
        <translation>%1 hat sich seit dem Hinzufügen geändert</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 ist nicht mehr da</translation>
    </message>
    <message>
        <source>Project for video editors (MLT)</source>
        <translation>Projekt für Videoeditoren (MLT)</translation>
    </message>
</context>
<context>
    <name>ClipReplacement</name>
    <message>
        <source>%1: there is no thread or no memory to replace its clips</source>
        <translation>%1: Das System gibt keinen Thread oder keinen Speicher her, um die Clips zu ersetzen</translation>
    </message>
    <message>
        <source>%1: %2, and its clips stay as they are</source>
        <translation>%1: %2, die Clips bleiben, wie sie sind</translation>
    </message>
    <message>
        <source>it is being searched again</source>
        <translation>die Aufnahme wird erneut durchsucht</translation>
    </message>
    <message>
        <source>nothing is kept to decide on</source>
        <translation>nichts ist aufbewahrt, woraus sich Clips ergeben könnten</translation>
    </message>
</context>
<context>
    <name>DecidingForm</name>
    <message>
        <source>D&amp;etector:</source>
        <translation>&amp;Verfahren:</translation>
    </message>
    <message>
        <source>What tells motion: the mean change of all pixels, or the largest group of small areas that change, for what is small, distant or slow</source>
        <translation>Woran Bewegung erkannt wird: an der mittleren Änderung aller Bildpunkte oder, für Kleines, Fernes und Langsames, an der größten Gruppe kleiner Flächen, die sich ändern</translation>
    </message>
    <message>
        <source>Mean change</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>Th&amp;reshold:</source>
        <translation>&amp;Schwelle:</translation>
    </message>
    <message>
        <source>Set more if you want less motion to be found</source>
        <translation>Höher, wenn weniger Bewegung gefunden werden soll</translation>
    </message>
    <message>
        <source>&amp;Minimum:</source>
        <translation>&amp;Mindestdauer:</translation>
    </message>
    <message>
        <source>Seconds of which motion must fill half for a clip to begin</source>
        <translation>Sekunden, in denen sich mindestens die Hälfte der Zeit etwas bewegen muss, damit ein Clip beginnt</translation>
    </message>
    <message>
        <source>Sensiti&amp;vity:</source>
        <translation>Empf&amp;indlichkeit:</translation>
    </message>
    <message>
        <source>How faintly a cell may change to count: more for dusk and haze, less for fewer clips</source>
        <translation>Wie schwach sich eine Zelle ändern darf, um zu zählen: höher für Dämmerung und Dunst, niedriger für weniger Clips</translation>
    </message>
    <message>
        <source>&amp;Before:</source>
        <translation>Vorla&amp;uf:</translation>
    </message>
    <message>
        <source>Seconds before the motion with which a clip begins</source>
        <translation>Wie viele Sekunden vor der Bewegung ein Clip beginnt</translation>
    </message>
    <message>
        <source>After:</source>
        <translation>Nachlau&amp;f:</translation>
    </message>
    <message>
        <source>Seconds of quiet after which a clip ends</source>
        <translation>Nach wie vielen Sekunden Ruhe ein Clip endet</translation>
    </message>
    <message>
        <source>&amp;Join:</source>
        <translation>Ver&amp;binden:</translation>
    </message>
    <message>
        <source>Makes one clip of those that lie at most this many seconds apart</source>
        <translation>Macht einen Clip aus denen, die höchstens so viele Sekunden auseinanderliegen</translation>
    </message>
    <message>
        <source>not joined</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>Leaves out what changes through most of a recording: clocks, leaves, fans</source>
        <translation>Lässt aus, was sich die meiste Zeit einer Aufnahme ändert: Uhren, Blätter, Ventilatoren</translation>
    </message>
    <message>
        <source>&amp;Ignore what is restless</source>
        <translation>Un&amp;ruhiges übergehen</translation>
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
    <name>EmptyList</name>
    <message>
        <source>All clips are hidden at the moment</source>
        <translation>Alle Clips sind gerade ausgeblendet</translation>
    </message>
    <message>
        <source>No motion was found yet</source>
        <translation>Noch keine Bewegung gefunden</translation>
    </message>
    <message>
        <source>All clips were removed</source>
        <translation>Alle Clips wurden entfernt</translation>
    </message>
    <message>
        <source>The search was cancelled before motion was found</source>
        <translation>Die Suche wurde abgebrochen, bevor Bewegung gefunden war</translation>
    </message>
    <message>
        <source>Nothing of what was added could be read</source>
        <translation>Nichts von dem, was hinzugefügt wurde, war lesbar</translation>
    </message>
    <message>
        <source>No motion was found</source>
        <translation>Keine Bewegung gefunden</translation>
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
    <name>FailureTexts</name>
    <message>
        <source>no regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>no video stream</source>
        <translation>keine Bildspur</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>kein Decoder für %1</translation>
    </message>
    <message>
        <source>its headers hold too many parameter sets</source>
        <translation>ihre Kopfdaten enthalten zu viele Parametersätze</translation>
    </message>
    <message>
        <source>a playlist, not a recording</source>
        <translation>eine Wiedergabeliste, keine Aufnahme</translation>
    </message>
    <message>
        <source>the address of a stream, not a recording</source>
        <translation>die Adresse eines Streams, keine Aufnahme</translation>
    </message>
    <message>
        <source>a script, not a recording</source>
        <translation>ein Skript, keine Aufnahme</translation>
    </message>
    <message>
        <source>text, not a recording</source>
        <translation>Text, keine Aufnahme</translation>
    </message>
    <message>
        <source>the index of another file, not a recording</source>
        <translation>das Verzeichnis einer anderen Datei, keine Aufnahme</translation>
    </message>
    <message>
        <source>no picture could be decoded</source>
        <translation>kein Bild ließ sich dekodieren</translation>
    </message>
    <message>
        <source>only one picture could be decoded</source>
        <translation>nur ein Bild ließ sich dekodieren</translation>
    </message>
    <message>
        <source>no usable times</source>
        <translation>keine brauchbaren Zeiten</translation>
    </message>
    <message>
        <source>pictures of %1 x %2 are too large</source>
        <translation>Bilder mit %1 x %2 sind zu groß</translation>
    </message>
    <message>
        <source>its pictures become too large</source>
        <translation>ihre Bilder werden zu groß</translation>
    </message>
    <message>
        <source>out of memory</source>
        <translation>der Speicher reicht nicht</translation>
    </message>
    <message>
        <source>cannot be read to its end: %1</source>
        <translation>lässt sich nicht bis zum Ende lesen: %1</translation>
    </message>
    <message>
        <source>it was removed while it was searched</source>
        <translation>sie wurde während der Suche entfernt</translation>
    </message>
    <message>
        <source>it was changed while it was searched</source>
        <translation>sie wurde während der Suche geändert</translation>
    </message>
    <message>
        <source>it grew while it was searched; what came behind %1 is left out</source>
        <translation>sie ist während der Suche gewachsen; was nach %1 kam, ist ausgelassen</translation>
    </message>
    <message>
        <source>Invalid data found when processing input</source>
        <translation>ungültige Daten</translation>
    </message>
    <message>
        <source>End of file</source>
        <translation>Ende der Datei</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>die Datei ist nicht da</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>keine Berechtigung</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>die Datei ist auf dem Server nicht mehr zu finden</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>der Ordner ist eine symbolische Verknüpfung</translation>
    </message>
    <message>
        <source>it is a symbolic link of another user</source>
        <translation>der Ordner ist eine symbolische Verknüpfung eines anderen Benutzers</translation>
    </message>
    <message>
        <source>it cannot be encoded</source>
        <translation>es lässt sich nicht kodieren</translation>
    </message>
    <message>
        <source>its pictures cannot be scaled</source>
        <translation>die Bilder lassen sich nicht verkleinern</translation>
    </message>
    <message>
        <source>cannot write the picture %1: %2</source>
        <translation>das Bild %1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>loading failed</source>
        <translation>das Laden ist gescheitert</translation>
    </message>
    <message>
        <source>no audio or video data played</source>
        <translation>weder Bild noch Ton ließ sich abspielen</translation>
    </message>
    <message>
        <source>unrecognized file format</source>
        <translation>unbekanntes Dateiformat</translation>
    </message>
    <message>
        <source>a quick look compares key frames, and only one was found</source>
        <translation>schnelles Durchsehen vergleicht Schlüsselbilder, und nur eines wurde gefunden</translation>
    </message>
</context>
<context>
    <name>JobModel</name>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Clips</source>
        <translation>Clips</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Strongest</source>
        <translation>Höchstwert</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Beginn</translation>
    </message>
</context>
<context>
    <name>JobStatus</name>
    <message>
        <source>unreadable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>unreadable: %1</source>
        <translation>nicht lesbar: %1</translation>
    </message>
    <message>
        <source>clips removed</source>
        <translation>Clips entfernt</translation>
    </message>
    <message>
        <source>no motion</source>
        <translation>keine Bewegung</translation>
    </message>
    <message>
        <source>searching %1 %</source>
        <translation>Suche %1 %</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>wartet</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>searched again</source>
        <translation>erneut durchsucht</translation>
    </message>
    <message>
        <source>file is gone</source>
        <translation>Datei ist weg</translation>
    </message>
    <message>
        <source>file has changed since</source>
        <translation>Datei hat sich seitdem geändert</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>nicht bis zum Ende gelesen</translation>
    </message>
    <message>
        <source>%1 with clips</source>
        <translation>%1 mit Clips</translation>
    </message>
    <message>
        <source>%1 without</source>
        <translation>%1 ohne</translation>
    </message>
    <message>
        <source>%1 unreadable</source>
        <translation>%1 nicht lesbar</translation>
    </message>
    <message>
        <source>%1 cancelled</source>
        <translation>%1 abgebrochen</translation>
    </message>
    <message>
        <source>%1 to go</source>
        <translation>%1 noch offen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>1 clip</source>
        <translation>1 Clip</translation>
    </message>
    <message>
        <source>%1 clips</source>
        <translation>%1 Clips</translation>
    </message>
</context>
<context>
    <name>JobTable</name>
    <message>
        <source>The filter lets no recording through</source>
        <translation>Der Filter lässt keine Aufnahme durch</translation>
    </message>
    <message>
        <source>No recordings were added yet</source>
        <translation>Noch keine Aufnahmen hinzugefügt</translation>
    </message>
</context>
<context>
    <name>JoinedExport</name>
    <message>
        <source>Clips of %1 can be joined when its search has ended</source>
        <translation>Clips von %1 lassen sich verbinden, wenn die Suche beendet ist</translation>
    </message>
    <message>
        <source>Joined with others: %1</source>
        <translation>Mit anderen verbunden: %1</translation>
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
    <message>
        <source>Clips</source>
        <translation>Clips</translation>
    </message>
</context>
<context>
    <name>MeasurementCache</name>
    <message>
        <source>What was measured cannot be kept in %1: %2</source>
        <translation>Die Messwerte lassen sich in %1 nicht aufbewahren: %2</translation>
    </message>
    <message>
        <source>there is no temporary folder</source>
        <translation>es gibt keinen Ordner für temporäre Dateien</translation>
    </message>
    <message>
        <source>What was measured cannot be kept: %1</source>
        <translation>Die Messwerte lassen sich nicht aufbewahren: %1</translation>
    </message>
</context>
<context>
    <name>MotionDock</name>
    <message>
        <source>Drag the dashed line for another threshold. The wheel zooms; with Shift it scrolls, as dragging does</source>
        <translation>Die gestrichelte Linie ziehen, um die Schwelle zu ändern. Das Mausrad vergrößert; mit der Umschalttaste verschiebt es, wie Ziehen auch</translation>
    </message>
    <message>
        <source>Replaces the listed clips of this recording by those that are hatched; what was exported or waits for it stays</source>
        <translation>Ersetzt die Clips dieser Aufnahme in der Liste durch die schraffierten; was exportiert ist oder darauf wartet, bleibt</translation>
    </message>
    <message>
        <source>&amp;Use</source>
        <translation>Über&amp;nehmen</translation>
    </message>
    <message>
        <source>The same for all recordings that were searched</source>
        <translation>Dasselbe für alle durchsuchten Aufnahmen</translation>
    </message>
    <message>
        <source>Use for a&amp;ll</source>
        <translation>Für a&amp;lle</translation>
    </message>
    <message>
        <source>Lists the clips that were replaced last</source>
        <translation>Holt die zuletzt ersetzten Clips zurück in die Liste</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>Rückgängi&amp;g</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Motion: %1</source>
        <translation>Bewegung: %1</translation>
    </message>
    <message>
        <source>Cannot be worked out now: there is no thread or no memory for it</source>
        <translation>Lässt sich gerade nicht ausrechnen: Das System gibt keinen Thread oder keinen Speicher her</translation>
    </message>
    <message>
        <source>Choose a recording or one of its clips</source>
        <translation>Eine Aufnahme oder einen ihrer Clips auswählen</translation>
    </message>
    <message>
        <source>Not searched yet</source>
        <translation>Noch nicht durchsucht</translation>
    </message>
    <message>
        <source>Being searched</source>
        <translation>Wird gerade durchsucht</translation>
    </message>
    <message>
        <source>No maps of changed cells are kept of this recording</source>
        <translation>Zu dieser Aufnahme sind keine Karten der geänderten Zellen aufbewahrt</translation>
    </message>
    <message>
        <source>Nothing was measured of this recording</source>
        <translation>Zu dieser Aufnahme wurde nichts gemessen</translation>
    </message>
    <message>
        <source>1 clip, %1 long; now %2</source>
        <translation>1 Clip, %1 lang; jetzt %2</translation>
    </message>
    <message>
        <source>%1 clips, %2 in all; now %3</source>
        <translation>%1 Clips, zusammen %2; jetzt %3</translation>
    </message>
    <message>
        <source>Its search was cancelled</source>
        <translation>Die Suche darin wurde abgebrochen</translation>
    </message>
</context>
<context>
    <name>MotionStripWidget</name>
    <message>
        <source>Motion over time</source>
        <translation>Bewegung im Lauf der Zeit</translation>
    </message>
    <message>
        <source>%1: nothing measured</source>
        <translation>%1: nichts gemessen</translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 long, strongest motion %3, %n clips</source>
        <translation>
            <numerusform>%1: %2 lang, stärkste Bewegung %3, %n Clip</numerusform>
            <numerusform>%1: %2 lang, stärkste Bewegung %3, %n Clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MpvPlayer</name>
    <message>
        <source>The library that plays recordings, libmpv 2, is not installed.</source>
        <translation>Die Bibliothek, die Aufnahmen abspielt, libmpv 2, ist nicht installiert.</translation>
    </message>
    <message>
        <source>The library that plays recordings, libmpv, cannot begin.</source>
        <translation>Die Bibliothek, die Aufnahmen abspielt, libmpv, kann nicht beginnen.</translation>
    </message>
    <message>
        <source>Cannot be played: %1</source>
        <translation>Lässt sich nicht abspielen: %1</translation>
    </message>
    <message>
        <source>The recording is no longer there.</source>
        <translation>Die Aufnahme ist nicht mehr da.</translation>
    </message>
    <message>
        <source>This is no file that can be played.</source>
        <translation>Das ist keine Datei, die sich abspielen lässt.</translation>
    </message>
    <message>
        <source>Cannot be read: %1</source>
        <translation>Lässt sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>The recording has changed since it was searched.</source>
        <translation>Die Aufnahme hat sich seit der Suche geändert.</translation>
    </message>
    <message>
        <source>The recording has changed while it was played.</source>
        <translation>Die Aufnahme hat sich beim Abspielen geändert.</translation>
    </message>
</context>
<context>
    <name>PictureWidget</name>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>Playback</name>
    <message>
        <source>There is no thread to play it on.</source>
        <translation>Das System gibt keinen Thread zum Abspielen her.</translation>
    </message>
    <message>
        <source>The recording does not answer.</source>
        <translation>Die Aufnahme antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>PlayerControls</name>
    <message>
        <source>Previous clip (P)</source>
        <translation>Voriger Clip (P)</translation>
    </message>
    <message>
        <source>A picture back (comma)</source>
        <translation>Ein Bild zurück (Komma)</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Abspielen oder anhalten (Leertaste)</translation>
    </message>
    <message>
        <source>A picture on (full stop)</source>
        <translation>Ein Bild weiter (Punkt)</translation>
    </message>
    <message>
        <source>Next clip (N)</source>
        <translation>Nächster Clip (N)</translation>
    </message>
    <message>
        <source>Whole recording</source>
        <translation>Ganze Aufnahme</translation>
    </message>
    <message>
        <source>Mute (M)</source>
        <translation>Stumm (M)</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Vollbild (F)</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Stelle</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Ganz</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
</context>
<context>
    <name>PlayerDock</name>
    <message>
        <source>Player</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Player: %1</source>
        <translation>Wiedergabe: %1</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Open in another program</source>
        <translation>In anderem Programm öffnen</translation>
    </message>
</context>
<context>
    <name>PrivateFolder</name>
    <message>
        <source>the folder is a link that somebody may have put there</source>
        <translation>der Ordner ist eine Verknüpfung, die jemand dort angelegt haben kann</translation>
    </message>
    <message>
        <source>the folder belongs to somebody else</source>
        <translation>der Ordner gehört jemand anderem</translation>
    </message>
</context>
<context>
    <name>RecordingCheck</name>
    <message>
        <source>the recording is no longer there</source>
        <translation>die Aufnahme ist nicht mehr da</translation>
    </message>
    <message>
        <source>the recording has changed since it was searched</source>
        <translation>die Aufnahme hat sich seit der Suche geändert</translation>
    </message>
</context>
<context>
    <name>RecordingDecision</name>
    <message>
        <source>it is gone</source>
        <translation>die Datei ist weg</translation>
    </message>
    <message>
        <source>it has changed</source>
        <translation>die Datei hat sich geändert</translation>
    </message>
</context>
<context>
    <name>RecordingMenu</name>
    <message>
        <source>&amp;Search again...</source>
        <translation>Erneut &amp;durchsuchen ...</translation>
    </message>
    <message>
        <source>&amp;Cancel this one</source>
        <translation>Diese Suche &amp;abbrechen</translation>
    </message>
    <message>
        <source>Show in &amp;folder</source>
        <translation>Im &amp;Ordner zeigen</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>&amp;Namen kopieren</translation>
    </message>
    <message>
        <source>&amp;Only this recording</source>
        <translation>Nur di&amp;ese Aufnahme</translation>
    </message>
    <message>
        <source>&amp;Remove its clips</source>
        <translation>Ihre &amp;Clips entfernen</translation>
    </message>
</context>
<context>
    <name>RecordingsDock</name>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Recordings: %1</source>
        <translation>Aufnahmen: %1</translation>
    </message>
    <message>
        <source>Recordings: %1, %2 unreadable</source>
        <translation>Aufnahmen: %1, %2 nicht lesbar</translation>
    </message>
</context>
<context>
    <name>RecordingsPanel</name>
    <message>
        <source>Recordings</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sortieren nach</translation>
    </message>
    <message>
        <source>Keep measured values</source>
        <translation>Messwerte aufbewahren</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Filter recordings by name</source>
        <translation>Aufnahmen nach Namen filtern</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>With clips</source>
        <translation>Mit Clips</translation>
    </message>
    <message>
        <source>Without</source>
        <translation>Ohne</translation>
    </message>
    <message>
        <source>Unreadable</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>Which recordings are shown</source>
        <translation>Welche Aufnahmen gezeigt werden</translation>
    </message>
    <message>
        <source>Order, and measured values</source>
        <translation>Reihenfolge und Messwerte</translation>
    </message>
    <message>
        <source>Searches the recordings that were cancelled</source>
        <translation>Durchsucht die Aufnahmen, deren Suche abgebrochen wurde</translation>
    </message>
    <message>
        <source>Writes a page that shows what is listed, for a browser</source>
        <translation>Schreibt eine Seite für den Browser, die zeigt, was in der Liste steht</translation>
    </message>
    <message>
        <source>As they came</source>
        <translation>Wie hinzugefügt</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>&amp;Search the rest</source>
        <translation>Rest dur&amp;chsuchen</translation>
    </message>
    <message>
        <source>Save re&amp;port...</source>
        <translation>Bericht s&amp;peichern ...</translation>
    </message>
    <message>
        <source>Search the likeliest first</source>
        <translation>Die wahrscheinlichsten zuerst durchsuchen</translation>
    </message>
    <message>
        <source>Of the recordings that wait, the one is searched next whose packet sizes promise motion most; the rows stay in their order</source>
        <translation>Von den wartenden Aufnahmen wird als Nächstes die durchsucht, deren Paketgrößen am ehesten Bewegung versprechen; die Zeilen behalten ihre Reihenfolge</translation>
    </message>
</context>
<context>
    <name>ReportControl</name>
    <message>
        <source>Select a folder for the report</source>
        <translation>Ordner für den Bericht auswählen</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Bericht speichern</translation>
    </message>
    <message>
        <source>There is a page already: %1</source>
        <translation>Es gibt schon eine Seite: %1</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Saving the report...</source>
        <translation>Der Bericht wird gespeichert ...</translation>
    </message>
    <message>
        <source>no thread to do it on</source>
        <translation>das System gibt keinen Thread dafür her</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Bericht gespeichert: %1</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>Der Bericht ließ sich nicht speichern: %1</translation>
    </message>
</context>
<context>
    <name>SearchAgainDialog</name>
    <message>
        <source>Search again</source>
        <translation>Erneut durchsuchen</translation>
    </message>
    <message>
        <source>&amp;Detector</source>
        <translation>&amp;Verfahren</translation>
    </message>
    <message>
        <source>Mean change</source>
        <translation>Mittlere Änderung</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>&amp;Threshold</source>
        <translation>&amp;Schwelle</translation>
    </message>
    <message>
        <source>&amp;Minimum length</source>
        <translation>&amp;Mindestdauer</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Before</source>
        <translation>Vorla&amp;uf</translation>
    </message>
    <message>
        <source>&amp;After</source>
        <translation>Nach&amp;lauf</translation>
    </message>
    <message>
        <source>&amp;Join clips up to</source>
        <translation>Clips ver&amp;binden bis</translation>
    </message>
    <message>
        <source>Join clips up to</source>
        <translation>Clips verbinden bis</translation>
    </message>
    <message>
        <source>&amp;Ignore what is restless</source>
        <translation>Un&amp;ruhiges übergehen</translation>
    </message>
    <message>
        <source>&amp;Quick look</source>
        <translation>S&amp;chnell durchsehen</translation>
    </message>
    <message>
        <source>Looks at key frames alone: much faster, and blind to motion between two of them</source>
        <translation>Sieht nur Schlüsselbilder an: viel schneller, aber blind für Bewegung zwischen zweien</translation>
    </message>
    <message>
        <source>&amp;Exclude</source>
        <translation>&amp;Ausschließen</translation>
    </message>
    <message>
        <source>Rectangles in which nothing is looked for: left, top, width and height in pixels of the recording</source>
        <translation>Rechtecke, in denen nichts gesucht wird: links, oben, Breite und Höhe in Bildpunkten der Aufnahme</translation>
    </message>
    <message>
        <source>Rectangles read as in &quot;600,200,300x240; 0,0,100x50&quot;: left, top, width and height in whole pixels.</source>
        <translation>Rechtecke werden so geschrieben: „600,200,300x240; 0,0,100x50“, das heißt links, oben, Breite und Höhe in ganzen Bildpunkten.</translation>
    </message>
    <message>
        <source>Search again: %1</source>
        <translation>Erneut durchsuchen: %1</translation>
    </message>
    <message>
        <source>What tells motion: the mean change of all pixels, or the largest group of small areas that change, for what is small, distant or slow</source>
        <translation>Woran Bewegung erkannt wird: an der mittleren Änderung aller Bildpunkte oder, für Kleines, Fernes und Langsames, an der größten Gruppe kleiner Flächen, die sich ändern</translation>
    </message>
    <message>
        <source>Makes one clip of those that lie at most this many seconds apart</source>
        <translation>Macht einen Clip aus denen, die höchstens so viele Sekunden auseinanderliegen</translation>
    </message>
    <message>
        <source>Leaves out what changes through most of a recording: clocks, leaves, fans</source>
        <translation>Lässt aus, was sich die meiste Zeit einer Aufnahme ändert: Uhren, Blätter, Ventilatoren</translation>
    </message>
</context>
<context>
    <name>SearchNotice</name>
    <message>
        <source>Search finished</source>
        <translation>Suche beendet</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n Aufnahme</numerusform>
            <numerusform>%n Aufnahmen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n Clip</numerusform>
            <numerusform>%n Clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SessionControl</name>
    <message>
        <source>No thread to read the last session on</source>
        <translation>Das System gibt keinen Thread her, um die letzte Sitzung zu lesen</translation>
    </message>
    <message>
        <source>Out of memory while the last session was read</source>
        <translation>Der Speicher reichte nicht, um die letzte Sitzung zu lesen</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Another window of this program keeps its session; this one&apos;s is not kept</source>
        <translation>Ein anderes Fenster dieses Programms behält seine Sitzung; die dieses Fensters wird nicht aufbewahrt</translation>
    </message>
    <message>
        <source>The last session cannot be read; it stays as it is, and this one is not kept: %1</source>
        <translation>Die letzte Sitzung lässt sich nicht lesen; sie bleibt, wie sie ist, und diese wird nicht aufbewahrt: %1</translation>
    </message>
    <message>
        <source>The last session is of another version, and was put aside: %1</source>
        <translation>Die letzte Sitzung stammt von einer anderen Version und wurde beiseitegelegt: %1</translation>
    </message>
    <message>
        <source>The last session is damaged, and was put aside: %1</source>
        <translation>Die letzte Sitzung ist beschädigt und wurde beiseitegelegt: %1</translation>
    </message>
    <message>
        <source>The session cannot be kept: %1</source>
        <translation>Die Sitzung lässt sich nicht aufbewahren: %1</translation>
    </message>
</context>
<context>
    <name>SessionOffer</name>
    <message>
        <source>Do without it</source>
        <translation>Darauf verzichten</translation>
    </message>
    <message>
        <source>Reading the last session...</source>
        <translation>Die letzte Sitzung wird gelesen ...</translation>
    </message>
    <message>
        <source>Go on with the last session: %1, %2</source>
        <translation>Letzte Sitzung fortsetzen: %1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n Aufnahme</numerusform>
            <numerusform>%n Aufnahmen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n Clip</numerusform>
            <numerusform>%n Clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SessionRestore</name>
    <message>
        <source>It was exported, but its file is no longer there</source>
        <translation>War exportiert, aber die Datei ist nicht mehr da</translation>
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
<context>
    <name>ShownBar</name>
    <message>
        <source>Show all clips</source>
        <translation>Alle Clips zeigen</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n clips are listed</source>
        <translation>
            <numerusform>%1 von %n Clip in der Liste</numerusform>
            <numerusform>%1 von %n Clips in der Liste</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StartOffer</name>
    <message>
        <source>Use %1 (from the name)</source>
        <translation>%1 übernehmen (Name)</translation>
    </message>
    <message>
        <source>Use %1 (from the video)</source>
        <translation>%1 übernehmen (Aufnahme)</translation>
    </message>
    <message>
        <source>Use %1 (from the file)</source>
        <translation>%1 übernehmen (Datei)</translation>
    </message>
    <message>
        <source>The day in its name can be read in several ways.</source>
        <translation>Der Tag im Namen lässt sich verschieden lesen.</translation>
    </message>
    <message>
        <source>The clock was put forward over that hour.</source>
        <translation>In dieser Stunde wurde die Uhr vorgestellt.</translation>
    </message>
    <message>
        <source>That hour came twice; this is the first one.</source>
        <translation>Diese Stunde gab es zweimal; gemeint ist die erste.</translation>
    </message>
    <message>
        <source>The name has no seconds.</source>
        <translation>Der Name nennt keine Sekunden.</translation>
    </message>
    <message>
        <source>The number in the name is read as seconds since 1970.</source>
        <translation>Die Zahl im Namen wird als Sekunden seit 1970 gelesen.</translation>
    </message>
    <message>
        <source>This computer&apos;s clock is more than a year from it.</source>
        <translation>Die Uhr dieses Rechners ist mehr als ein Jahr davon entfernt.</translation>
    </message>
    <message>
        <source>If the camera wrote it in UTC, as it should have.</source>
        <translation>Falls die Kamera sie in UTC geschrieben hat, wie es sich gehört.</translation>
    </message>
    <message>
        <source>The file&apos;s last change, less the recording&apos;s length. A copy may have another one.</source>
        <translation>Die letzte Änderung der Datei, abzüglich der Länge der Aufnahme. Eine Kopie kann eine andere haben.</translation>
    </message>
</context>
<context>
    <name>UseReport</name>
    <message>
        <source>Replacing clips: recording %1 of %2</source>
        <translation>Clips werden ersetzt: Aufnahme %1 von %2</translation>
    </message>
    <message numerus="yes">
        <source>The clips of %n recordings are replaced</source>
        <translation>
            <numerusform>Die Clips von %n Aufnahme sind ersetzt</numerusform>
            <numerusform>Die Clips von %n Aufnahmen sind ersetzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, those of %n are not; the last one: %2</source>
        <translation>
            <numerusform>%1, die von %n nicht: %2</numerusform>
            <numerusform>%1, die von %n nicht; zuletzt: %2</numerusform>
        </translation>
    </message>
</context>
</TS>
