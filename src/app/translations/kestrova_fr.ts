<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Clip</name>
    <message>
        <source>the encoder wrote no file</source>
        <translation>l&apos;encodeur n&apos;a écrit aucun fichier</translation>
    </message>
    <message>
        <source>the encoder wrote an empty file</source>
        <translation>l&apos;encodeur a écrit un fichier vide</translation>
    </message>
    <message>
        <source>not exported</source>
        <translation>non exporté</translation>
    </message>
    <message>
        <source>exporting...</source>
        <translation>export en cours...</translation>
    </message>
    <message>
        <source>queued...</source>
        <translation>en attente...</translation>
    </message>
    <message>
        <source>canceled</source>
        <translation>annulé</translation>
    </message>
    <message>
        <source>export failed!</source>
        <translation>échec de l&apos;export !</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>exporté</translation>
    </message>
    <message>
        <source>unknown status</source>
        <translation>état inconnu</translation>
    </message>
    <message>
        <source>%1
#%2 %3 (%4 sec) (%5)</source>
        <translation>%1
#%2 %3 (%4 s) (%5)</translation>
    </message>
    <message>
        <source>a clip with these times cannot be cut out</source>
        <translation>un clip avec ces temps ne peut pas être découpé</translation>
    </message>
</context>
<context>
    <name>ClipListWidget</name>
    <message>
        <source>Drop recordings here, or add them with the buttons above</source>
        <translation>Déposez des enregistrements ici ou ajoutez-les avec les boutons ci-dessus</translation>
    </message>
</context>
<context>
    <name>DetectionQueue</name>
    <message>
        <source>No thread to run detection on, trying again...</source>
        <translation>Le système n&apos;a pas de fil d&apos;exécution pour la recherche, nouvel essai...</translation>
    </message>
</context>
<context>
    <name>EditMaskWindow</name>
    <message>
        <source>Add file(s)</source>
        <translation>Ajouter des fichiers</translation>
    </message>
    <message>
        <source>File info:</source>
        <translation>Fichier :</translation>
    </message>
    <message>
        <source>Specify region of interest (ROI).
If none selected the whole image will be used.
Rectangle ROI will speed up detection but only one rectangle is allowed.
Free ROI can slow down detection.</source>
        <translation>Choisissez la zone où chercher du mouvement.
Sans sélection, toute l&apos;image est utilisée.
Un rectangle accélère la recherche ; un seul est possible.
Une zone libre peut la ralentir.</translation>
    </message>
    <message>
        <source>Rectangle ROI</source>
        <translation>Rectangle</translation>
    </message>
    <message>
        <source>Free ROI</source>
        <translation>Zone libre</translation>
    </message>
    <message>
        <source>Clear mask
Whole region will be used for motion detection.</source>
        <translation>Effacer la sélection
Le mouvement est cherché dans toute l&apos;image.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Invert masked and exposed regions</source>
        <translation>Échanger les zones choisies et exclues</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Inverser</translation>
    </message>
    <message>
        <source>Skip frames:</source>
        <translation>Images à sauter :</translation>
    </message>
    <message>
        <source>Specify how much skip frames for motion detection.
If set to 0 every frames would be detected for motion, 
if set to 1 only even frames would be detected etc.
High values can affect motion detection quality</source>
        <translation>Nombre d&apos;images à sauter entre deux images examinées.
Avec 0, chaque image est examinée ;
avec 1, une sur deux, etc.
Des valeurs élevées peuvent nuire à la détection</translation>
    </message>
    <message>
        <source>Export dir:</source>
        <translation>Dossier d&apos;export :</translation>
    </message>
    <message>
        <source>Video files with detected motion will create corresponding folder in Export dir. Existing clips would be silently rewritten</source>
        <translation>Chaque enregistrement avec du mouvement reçoit son dossier dans le dossier d&apos;export. Les clips existants sont remplacés sans question</translation>
    </message>
    <message>
        <source>Select folder to save</source>
        <translation>Choisir le dossier d&apos;enregistrement</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>If checked detected clips will exported to Export dir</source>
        <translation>Les clips trouvés sont exportés d&apos;eux-mêmes dans le dossier d&apos;export</translation>
    </message>
    <message>
        <source>Export all automatically</source>
        <translation>Tout exporter automatiquement</translation>
    </message>
    <message>
        <source>Prerecord:</source>
        <translation>Avant :</translation>
    </message>
    <message>
        <source>Specify video duration in seconds to write directly before detected motion</source>
        <translation>Nombre de secondes d&apos;un clip avant le mouvement</translation>
    </message>
    <message>
        <source>Postrecord:</source>
        <translation>Après :</translation>
    </message>
    <message>
        <source>Specify video duration in seconds to write directly after detected motion</source>
        <translation>Nombre de secondes d&apos;un clip après le mouvement</translation>
    </message>
    <message>
        <source>Minimum length:</source>
        <translation>Durée minimale :</translation>
    </message>
    <message>
        <source>Clips with motion duration in seconds less then Minimum length would not be written. All overlapping clips would be concatenated</source>
        <translation>Secondes pendant lesquelles il doit y avoir du mouvement au moins la moitié du temps pour qu&apos;un clip commence. Un mouvement plus court ne donne pas de clip</translation>
    </message>
    <message>
        <source>This also will force transcoding</source>
        <translation>Les clips sont alors réencodés</translation>
    </message>
    <message>
        <source>Export with timestamps</source>
        <translation>Exporter avec l&apos;heure</translation>
    </message>
    <message>
        <source>Video file start time</source>
        <translation>Début de l&apos;enregistrement</translation>
    </message>
    <message>
        <source>M/d/yyyy h:mm:ss AP</source>
        <translation>dd/MM/yyyy HH:mm:ss</translation>
    </message>
    <message>
        <source>Add single video file with current mask</source>
        <translation>Ajouter cet enregistrement avec la zone choisie</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Add all queued video files with current mask</source>
        <translation>Ajouter tous les enregistrements en attente avec la zone choisie</translation>
    </message>
    <message>
        <source>Add ALL</source>
        <translation>TOUT ajouter</translation>
    </message>
    <message>
        <source>Discard current video file</source>
        <translation>Écarter cet enregistrement</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Discard all queued video files</source>
        <translation>Écarter tous les enregistrements en attente</translation>
    </message>
    <message>
        <source>Cancel ALL</source>
        <translation>TOUT annuler</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Please check export dir name and permissions</source>
        <translation>Veuillez vérifier le nom et les droits du dossier d&apos;export</translation>
    </message>
    <message>
        <source>File %1 of %2</source>
        <translation>Fichier %1 sur %2</translation>
    </message>
    <message>
        <source>The region of %1 still applies. Draw a new one, or Clear.</source>
        <translation>La zone de %1 s’applique toujours. Dessinez-en une autre, ou appuyez sur « Effacer ».</translation>
    </message>
    <message>
        <source>The shapes drawn on %1 are gone, but not cleared: nothing would be found here. Draw new ones, or Clear.</source>
        <translation>Les formes dessinées sur %1 ont disparu sans être effacées : rien ne serait trouvé ici. Dessinez-en d’autres, ou appuyez sur « Effacer ».</translation>
    </message>
</context>
<context>
    <name>EncoderProcess</name>
    <message>
        <source>the encoder cannot be started</source>
        <translation>l&apos;encodeur ne démarre pas</translation>
    </message>
    <message>
        <source>the encoder crashed</source>
        <translation>l&apos;encodeur a planté</translation>
    </message>
    <message>
        <source>the encoder failed</source>
        <translation>l&apos;encodeur a échoué</translation>
    </message>
</context>
<context>
    <name>LeftOutBar</name>
    <message>
        <source>Set them up</source>
        <translation>Préparer</translation>
    </message>
    <message>
        <source>Leave them out</source>
        <translation>Laisser de côté</translation>
    </message>
    <message>
        <source>Not set up, since others were added: %1 and %2 more</source>
        <translation>Pas préparés, car d’autres ont été ajoutés : %1 et %2 de plus</translation>
    </message>
    <message>
        <source>Not set up, since others were added: %1</source>
        <translation>Pas préparés, car d’autres ont été ajoutés : %1</translation>
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
        <translation>Ajouter des &amp;fichiers</translation>
    </message>
    <message>
        <source>Add &amp;directory</source>
        <translation>Ajouter un &amp;dossier</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>Fic&amp;hier</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>Add file(s)</source>
        <translation>Ajouter des fichiers</translation>
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
        <translation>Ouvrir la sélection</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Export selected</source>
        <translation>Exporter la sélection</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Remove selected</source>
        <translation>Retirer la sélection</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Remove all</source>
        <translation>Tout retirer</translation>
    </message>
    <message>
        <source>Ctrl+Del</source>
        <translation>Ctrl+Del</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Finds the moving stretches in recordings of fixed cameras.</source>
        <translation>Trouve les passages en mouvement dans les enregistrements de caméras fixes.</translation>
    </message>
    <message>
        <source>Credits:</source>
        <translation>Repose sur :</translation>
    </message>
    <message>
        <source>About Kestrova</source>
        <translation>À propos de Kestrova</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Choisir un ou plusieurs fichiers</translation>
    </message>
    <message>
        <source>Select folder to add</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>%1 clips queued to export...</source>
        <translation>Clips en attente d&apos;export : %1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Can&apos;t open manual.pdf</source>
        <translation>Impossible d&apos;ouvrir manual.pdf</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Pixels threshold</source>
        <translation>Seuil par pixel</translation>
    </message>
    <message>
        <source>Set more for noise videos, 0 - no treshold apply</source>
        <translation>Plus haut pour des images bruitées ; 0 : aucun seuil</translation>
    </message>
    <message>
        <source>Motion detection threshold</source>
        <translation>Seuil de mouvement</translation>
    </message>
    <message>
        <source>Set more if you want less motion to detect</source>
        <translation>Plus haut pour détecter moins de mouvement</translation>
    </message>
    <message>
        <source>Output video bitrate for 720p, Mbit/sec</source>
        <translation>Débit de sortie en 720p, Mbit/s</translation>
    </message>
    <message>
        <source>Increase in case of low quality output.
Decrease to use less file space.
Applies only with transcoding</source>
        <translation>Plus haut pour une meilleure image.
Plus bas pour des fichiers plus petits.
Seulement en cas de réencodage</translation>
    </message>
    <message>
        <source>Check in case of problems with export.
Transcoding is time consuming and may result to quality loss.
MJPEG is always transcoded.</source>
        <translation>À cocher si l&apos;export pose problème.
Le réencodage est long et peut coûter de la qualité.
Le MJPEG est toujours réencodé.</translation>
    </message>
    <message>
        <source>Force transcoding</source>
        <translation>Toujours réencoder</translation>
    </message>
    <message>
        <source>Try to disable audio output in case of problems with export</source>
        <translation>Essayer sans le son si l&apos;export pose problème</translation>
    </message>
    <message>
        <source>Disable audio output</source>
        <translation>Sans le son</translation>
    </message>
    <message>
        <source>Container format</source>
        <translation>Format de fichier</translation>
    </message>
    <message>
        <source>Select output container
- AVI for Windows Media Player
- MP4 for Mac QuickTime Player</source>
        <translation>Format des clips
- AVI pour Windows Media Player
- MP4 pour QuickTime Player sur Mac</translation>
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
