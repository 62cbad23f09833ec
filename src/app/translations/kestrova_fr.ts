<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>AreaBar</name>
    <message>
        <source>Area</source>
        <translation>Zone</translation>
    </message>
    <message>
        <source>Free shape</source>
        <translation>Forme libre</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>All of this camera</source>
        <translation>Toute cette caméra</translation>
    </message>
    <message>
        <source>Draw a part of the picture: only clips with motion there are listed</source>
        <translation>Dessiner une partie de l’image : seuls les clips avec du mouvement à cet endroit restent dans la liste</translation>
    </message>
    <message>
        <source>Draw a free shape instead of a rectangle</source>
        <translation>Dessiner une forme libre au lieu d’un rectangle</translation>
    </message>
    <message>
        <source>For all recordings whose pictures have the same size</source>
        <translation>Pour tous les enregistrements dont les images ont la même taille</translation>
    </message>
</context>
<context>
    <name>AreaControl</name>
    <message>
        <source>Draw on the picture</source>
        <translation>Dessinez sur l’image</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Recherche en cours...</translation>
    </message>
    <message>
        <source>No maps of this recording are kept</source>
        <translation>Aucune carte de cet enregistrement n’est conservée</translation>
    </message>
    <message>
        <source>%1; of some recordings no maps are kept</source>
        <translation>%1 ; aucune carte de certains enregistrements n’est conservée</translation>
    </message>
    <message numerus="yes">
        <source>Area: %1 of %n clips</source>
        <translation>
            <numerusform>Zone : %1 sur %n clip</numerusform>
            <numerusform>Zone : %1 sur %n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AreaOverlay</name>
    <message>
        <source>Area of the picture</source>
        <translation>Zone de l’image</translation>
    </message>
    <message>
        <source>Arrow keys move it, with Shift they change its size, Delete clears it</source>
        <translation>Les flèches la déplacent, avec Maj elles changent sa taille, Suppr l’efface</translation>
    </message>
</context>
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
    <name>ClipListExport</name>
    <message>
        <source>Export list as</source>
        <translation>Exporter la liste comme</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>Impossible d’écrire %1 : %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: no thread</source>
        <translation>Impossible d’écrire %1 : le système n’a pas de fil d’exécution</translation>
    </message>
    <message numerus="yes">
        <source>%n clips listed in %1</source>
        <translation>
            <numerusform>%n clip dans la liste %1</numerusform>
            <numerusform>%n clips dans la liste %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1; %n clips are left out, since their recordings cannot be named or are not known</source>
        <translation>
            <numerusform>%1 ; %n clip omis, car son enregistrement ne peut pas être nommé ou n’est pas connu</numerusform>
            <numerusform>%1 ; %n clips omis, car leurs enregistrements ne peuvent pas être nommés ou ne sont pas connus</numerusform>
        </translation>
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
    <name>ClipMenu</name>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Montrer dans le dossier</translation>
    </message>
    <message>
        <source>Copy file name</source>
        <translation>Copier le nom du fichier</translation>
    </message>
    <message>
        <source>Only this recording</source>
        <translation>Cet enregistrement seulement</translation>
    </message>
    <message>
        <source>Export joined</source>
        <translation>Exporter réunis</translation>
    </message>
    <message>
        <source>Export list as</source>
        <translation>Exporter la liste comme</translation>
    </message>
    <message>
        <source>Playlist for VLC (M3U)</source>
        <translation>Liste de lecture pour VLC (M3U)</translation>
    </message>
    <message>
        <source>Edit list for mpv</source>
        <translation>Liste de montage pour mpv</translation>
    </message>
    <message>
        <source>Edit decision list (CMX 3600)</source>
        <translation>Liste de montage EDL (CMX 3600)</translation>
    </message>
    <message>
        <source>Cut list</source>
        <translation>Liste de coupes</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>Order found</source>
        <translation>Ordre de découverte</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Intensité</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Time of day</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>%1 has changed since it was added</source>
        <translation>%1 a changé depuis son ajout</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 n’est plus là</translation>
    </message>
    <message>
        <source>Project for video editors (MLT)</source>
        <translation>Projet pour logiciels de montage (MLT)</translation>
    </message>
</context>
<context>
    <name>ClipReplacement</name>
    <message>
        <source>%1: there is no thread or no memory to replace its clips</source>
        <translation>%1 : le système n’a pas de fil d’exécution ou de mémoire pour remplacer les clips</translation>
    </message>
    <message>
        <source>%1: %2, and its clips stay as they are</source>
        <translation>%1 : %2, les clips restent comme ils sont</translation>
    </message>
    <message>
        <source>it is being searched again</source>
        <translation>une nouvelle recherche y est en cours</translation>
    </message>
    <message>
        <source>nothing is kept to decide on</source>
        <translation>rien n’est conservé pour en décider</translation>
    </message>
</context>
<context>
    <name>DecidingForm</name>
    <message>
        <source>D&amp;etector:</source>
        <translation>Dét&amp;ecteur :</translation>
    </message>
    <message>
        <source>What tells motion: the mean change of all pixels, or the largest group of small areas that change, for what is small, distant or slow</source>
        <translation>Ce qui révèle le mouvement : le changement moyen de tous les pixels, ou le plus grand groupe de petites surfaces qui changent, pour ce qui est petit, lointain ou lent</translation>
    </message>
    <message>
        <source>Mean change</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Cellules</translation>
    </message>
    <message>
        <source>Th&amp;reshold:</source>
        <translation>&amp;Seuil :</translation>
    </message>
    <message>
        <source>Set more if you want less motion to be found</source>
        <translation>Plus haut pour trouver moins de mouvement</translation>
    </message>
    <message>
        <source>&amp;Minimum:</source>
        <translation>Durée &amp;min. :</translation>
    </message>
    <message>
        <source>Seconds of which motion must fill half for a clip to begin</source>
        <translation>Secondes pendant lesquelles il doit y avoir du mouvement au moins la moitié du temps pour qu’un clip commence</translation>
    </message>
    <message>
        <source>Sensiti&amp;vity:</source>
        <translation>Sensi&amp;bilité :</translation>
    </message>
    <message>
        <source>How faintly a cell may change to count: more for dusk and haze, less for fewer clips</source>
        <translation>Changement minime d’une cellule qui compte encore : plus haut pour le crépuscule et la brume, plus bas pour moins de clips</translation>
    </message>
    <message>
        <source>&amp;Before:</source>
        <translation>A&amp;vant :</translation>
    </message>
    <message>
        <source>Seconds before the motion with which a clip begins</source>
        <translation>Nombre de secondes d’un clip avant le mouvement</translation>
    </message>
    <message>
        <source>After:</source>
        <translation>A&amp;près :</translation>
    </message>
    <message>
        <source>Seconds of quiet after which a clip ends</source>
        <translation>Nombre de secondes de calme après lesquelles un clip finit</translation>
    </message>
    <message>
        <source>&amp;Join:</source>
        <translation>Ré&amp;unir :</translation>
    </message>
    <message>
        <source>Makes one clip of those that lie at most this many seconds apart</source>
        <translation>Fait un seul clip de ceux que séparent au plus autant de secondes</translation>
    </message>
    <message>
        <source>not joined</source>
        <translation>non</translation>
    </message>
    <message>
        <source>Leaves out what changes through most of a recording: clocks, leaves, fans</source>
        <translation>Laisse de côté ce qui change presque tout au long d’un enregistrement : horloges, feuilles, ventilateurs</translation>
    </message>
    <message>
        <source>&amp;Ignore what is restless</source>
        <translation>I&amp;gnorer ce qui s’agite</translation>
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
    <name>EmptyList</name>
    <message>
        <source>All clips are hidden at the moment</source>
        <translation>Tous les clips sont masqués pour le moment</translation>
    </message>
    <message>
        <source>No motion was found yet</source>
        <translation>Aucun mouvement trouvé pour l’instant</translation>
    </message>
    <message>
        <source>All clips were removed</source>
        <translation>Tous les clips ont été retirés</translation>
    </message>
    <message>
        <source>The search was cancelled before motion was found</source>
        <translation>La recherche a été annulée avant qu’un mouvement soit trouvé</translation>
    </message>
    <message>
        <source>Nothing of what was added could be read</source>
        <translation>Rien de ce qui a été ajouté n’a pu être lu</translation>
    </message>
    <message>
        <source>No motion was found</source>
        <translation>Aucun mouvement trouvé</translation>
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
    <name>FailureTexts</name>
    <message>
        <source>no regular file</source>
        <translation>ce n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>no video stream</source>
        <translation>aucune piste vidéo</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>aucun décodeur pour %1</translation>
    </message>
    <message>
        <source>its headers hold too many parameter sets</source>
        <translation>ses en-têtes contiennent trop de jeux de paramètres</translation>
    </message>
    <message>
        <source>a playlist, not a recording</source>
        <translation>une liste de lecture, pas un enregistrement</translation>
    </message>
    <message>
        <source>the address of a stream, not a recording</source>
        <translation>l’adresse d’un flux, pas un enregistrement</translation>
    </message>
    <message>
        <source>a script, not a recording</source>
        <translation>un script, pas un enregistrement</translation>
    </message>
    <message>
        <source>text, not a recording</source>
        <translation>du texte, pas un enregistrement</translation>
    </message>
    <message>
        <source>the index of another file, not a recording</source>
        <translation>l’index d’un autre fichier, pas un enregistrement</translation>
    </message>
    <message>
        <source>no picture could be decoded</source>
        <translation>aucune image n’a pu être décodée</translation>
    </message>
    <message>
        <source>only one picture could be decoded</source>
        <translation>une seule image a pu être décodée</translation>
    </message>
    <message>
        <source>no usable times</source>
        <translation>aucun temps utilisable</translation>
    </message>
    <message>
        <source>pictures of %1 x %2 are too large</source>
        <translation>des images de %1 x %2 sont trop grandes</translation>
    </message>
    <message>
        <source>its pictures become too large</source>
        <translation>ses images deviennent trop grandes</translation>
    </message>
    <message>
        <source>out of memory</source>
        <translation>la mémoire ne suffit pas</translation>
    </message>
    <message>
        <source>cannot be read to its end: %1</source>
        <translation>ne peut pas être lu jusqu’à la fin : %1</translation>
    </message>
    <message>
        <source>it was removed while it was searched</source>
        <translation>il a été supprimé pendant la recherche</translation>
    </message>
    <message>
        <source>it was changed while it was searched</source>
        <translation>il a été modifié pendant la recherche</translation>
    </message>
    <message>
        <source>it grew while it was searched; what came behind %1 is left out</source>
        <translation>il a grandi pendant la recherche ; ce qui vient après %1 est omis</translation>
    </message>
    <message>
        <source>Invalid data found when processing input</source>
        <translation>données non valides</translation>
    </message>
    <message>
        <source>End of file</source>
        <translation>fin du fichier</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>le fichier n’existe pas</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>permission refusée</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>c’est un dossier</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>erreur d’entrée/sortie</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>le fichier est introuvable sur le serveur</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>le dossier est un lien symbolique</translation>
    </message>
    <message>
        <source>it is a symbolic link of another user</source>
        <translation>le dossier est un lien symbolique d’un autre utilisateur</translation>
    </message>
    <message>
        <source>it cannot be encoded</source>
        <translation>elle ne peut pas être encodée</translation>
    </message>
    <message>
        <source>its pictures cannot be scaled</source>
        <translation>les images ne peuvent pas être réduites</translation>
    </message>
    <message>
        <source>cannot write the picture %1: %2</source>
        <translation>impossible d’écrire l’image %1 : %2</translation>
    </message>
    <message>
        <source>loading failed</source>
        <translation>le chargement a échoué</translation>
    </message>
    <message>
        <source>no audio or video data played</source>
        <translation>ni image ni son n’a pu être lu</translation>
    </message>
    <message>
        <source>unrecognized file format</source>
        <translation>format de fichier inconnu</translation>
    </message>
    <message>
        <source>a quick look compares key frames, and only one was found</source>
        <translation>un aperçu rapide compare les images clés, et une seule a été trouvée</translation>
    </message>
</context>
<context>
    <name>JobModel</name>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Clips</source>
        <translation>Clips</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Strongest</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Début</translation>
    </message>
</context>
<context>
    <name>JobStatus</name>
    <message>
        <source>unreadable</source>
        <translation>illisible</translation>
    </message>
    <message>
        <source>unreadable: %1</source>
        <translation>illisible : %1</translation>
    </message>
    <message>
        <source>clips removed</source>
        <translation>clips retirés</translation>
    </message>
    <message>
        <source>no motion</source>
        <translation>aucun mouvement</translation>
    </message>
    <message>
        <source>searching %1 %</source>
        <translation>recherche %1 %</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>en attente</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>annulé</translation>
    </message>
    <message>
        <source>searched again</source>
        <translation>recherche refaite</translation>
    </message>
    <message>
        <source>file is gone</source>
        <translation>fichier disparu</translation>
    </message>
    <message>
        <source>file has changed since</source>
        <translation>fichier modifié depuis</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>pas lu jusqu’à la fin</translation>
    </message>
    <message>
        <source>%1 with clips</source>
        <translation>%1 avec clips</translation>
    </message>
    <message>
        <source>%1 without</source>
        <translation>%1 sans</translation>
    </message>
    <message>
        <source>%1 unreadable</source>
        <translation>%1 illisible(s)</translation>
    </message>
    <message>
        <source>%1 cancelled</source>
        <translation>%1 annulé(s)</translation>
    </message>
    <message>
        <source>%1 to go</source>
        <translation>%1 à venir</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>1 clip</source>
        <translation>1 clip</translation>
    </message>
    <message>
        <source>%1 clips</source>
        <translation>%1 clips</translation>
    </message>
</context>
<context>
    <name>JobTable</name>
    <message>
        <source>The filter lets no recording through</source>
        <translation>Le filtre ne laisse passer aucun enregistrement</translation>
    </message>
    <message>
        <source>No recordings were added yet</source>
        <translation>Aucun enregistrement n’a encore été ajouté</translation>
    </message>
</context>
<context>
    <name>JoinedExport</name>
    <message>
        <source>Clips of %1 can be joined when its search has ended</source>
        <translation>Les clips de %1 pourront être réunis une fois la recherche terminée</translation>
    </message>
    <message>
        <source>Joined with others: %1</source>
        <translation>Réuni avec d’autres : %1</translation>
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
    <message>
        <source>Clips</source>
        <translation>Clips</translation>
    </message>
</context>
<context>
    <name>MeasurementCache</name>
    <message>
        <source>What was measured cannot be kept in %1: %2</source>
        <translation>Les valeurs mesurées ne peuvent pas être conservées dans %1 : %2</translation>
    </message>
    <message>
        <source>there is no temporary folder</source>
        <translation>il n’y a pas de dossier temporaire</translation>
    </message>
    <message>
        <source>What was measured cannot be kept: %1</source>
        <translation>Les valeurs mesurées ne peuvent pas être conservées : %1</translation>
    </message>
</context>
<context>
    <name>MotionDock</name>
    <message>
        <source>Drag the dashed line for another threshold. The wheel zooms; with Shift it scrolls, as dragging does</source>
        <translation>Tirez la ligne pointillée pour changer le seuil. La molette agrandit ; avec Maj elle fait défiler, comme en tirant</translation>
    </message>
    <message>
        <source>Replaces the listed clips of this recording by those that are hatched; what was exported or waits for it stays</source>
        <translation>Remplace les clips de cet enregistrement dans la liste par ceux qui sont hachurés ; ce qui est exporté ou l’attend reste</translation>
    </message>
    <message>
        <source>&amp;Use</source>
        <translation>Appli&amp;quer</translation>
    </message>
    <message>
        <source>The same for all recordings that were searched</source>
        <translation>De même pour tous les enregistrements où la recherche est faite</translation>
    </message>
    <message>
        <source>Use for a&amp;ll</source>
        <translation>À &amp;tous</translation>
    </message>
    <message>
        <source>Lists the clips that were replaced last</source>
        <translation>Remet dans la liste les derniers clips remplacés</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Mouvement</translation>
    </message>
    <message>
        <source>Motion: %1</source>
        <translation>Mouvement : %1</translation>
    </message>
    <message>
        <source>Cannot be worked out now: there is no thread or no memory for it</source>
        <translation>Calcul impossible pour l’instant : le système n’a pas de fil d’exécution ou de mémoire</translation>
    </message>
    <message>
        <source>Choose a recording or one of its clips</source>
        <translation>Choisissez un enregistrement ou un de ses clips</translation>
    </message>
    <message>
        <source>Not searched yet</source>
        <translation>La recherche n’a pas encore commencé</translation>
    </message>
    <message>
        <source>Being searched</source>
        <translation>Recherche en cours</translation>
    </message>
    <message>
        <source>No maps of changed cells are kept of this recording</source>
        <translation>Aucune carte des cellules changées de cet enregistrement n’est conservée</translation>
    </message>
    <message>
        <source>Nothing was measured of this recording</source>
        <translation>Rien n’a été mesuré dans cet enregistrement</translation>
    </message>
    <message>
        <source>1 clip, %1 long; now %2</source>
        <translation>1 clip, %1 de long ; actuellement %2</translation>
    </message>
    <message>
        <source>%1 clips, %2 in all; now %3</source>
        <translation>%1 clips, %2 au total ; actuellement %3</translation>
    </message>
    <message>
        <source>Its search was cancelled</source>
        <translation>La recherche dans cet enregistrement a été annulée</translation>
    </message>
</context>
<context>
    <name>MotionStripWidget</name>
    <message>
        <source>Motion over time</source>
        <translation>Mouvement au fil du temps</translation>
    </message>
    <message>
        <source>%1: nothing measured</source>
        <translation>%1 : rien de mesuré</translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 long, strongest motion %3, %n clips</source>
        <translation>
            <numerusform>%1 : durée %2, mouvement maximal %3, %n clip</numerusform>
            <numerusform>%1 : durée %2, mouvement maximal %3, %n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MpvPlayer</name>
    <message>
        <source>The library that plays recordings, libmpv 2, is not installed.</source>
        <translation>La bibliothèque qui lit les enregistrements, libmpv 2, n’est pas installée.</translation>
    </message>
    <message>
        <source>The library that plays recordings, libmpv, cannot begin.</source>
        <translation>La bibliothèque qui lit les enregistrements, libmpv, ne peut pas démarrer.</translation>
    </message>
    <message>
        <source>Cannot be played: %1</source>
        <translation>Lecture impossible : %1</translation>
    </message>
    <message>
        <source>The recording is no longer there.</source>
        <translation>L’enregistrement n’est plus là.</translation>
    </message>
    <message>
        <source>This is no file that can be played.</source>
        <translation>Ce n’est pas un fichier qui peut être lu.</translation>
    </message>
    <message>
        <source>Cannot be read: %1</source>
        <translation>Fichier illisible : %1</translation>
    </message>
    <message>
        <source>The recording has changed since it was searched.</source>
        <translation>L’enregistrement a changé depuis la recherche.</translation>
    </message>
    <message>
        <source>The recording has changed while it was played.</source>
        <translation>L’enregistrement a changé pendant la lecture.</translation>
    </message>
</context>
<context>
    <name>PictureWidget</name>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
</context>
<context>
    <name>Playback</name>
    <message>
        <source>There is no thread to play it on.</source>
        <translation>Le système n’a pas de fil d’exécution pour la lecture.</translation>
    </message>
    <message>
        <source>The recording does not answer.</source>
        <translation>L’enregistrement ne répond pas.</translation>
    </message>
</context>
<context>
    <name>PlayerControls</name>
    <message>
        <source>Previous clip (P)</source>
        <translation>Clip précédent (P)</translation>
    </message>
    <message>
        <source>A picture back (comma)</source>
        <translation>Une image en arrière (virgule)</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Lire ou mettre en pause (Espace)</translation>
    </message>
    <message>
        <source>A picture on (full stop)</source>
        <translation>Une image en avant (point)</translation>
    </message>
    <message>
        <source>Next clip (N)</source>
        <translation>Clip suivant (N)</translation>
    </message>
    <message>
        <source>Whole recording</source>
        <translation>Enregistrement entier</translation>
    </message>
    <message>
        <source>Mute (M)</source>
        <translation>Couper le son (M)</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Plein écran (F)</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Entier</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
</context>
<context>
    <name>PlayerDock</name>
    <message>
        <source>Player</source>
        <translation>Lecteur</translation>
    </message>
    <message>
        <source>Player: %1</source>
        <translation>Lecteur : %1</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Open in another program</source>
        <translation>Ouvrir dans un autre programme</translation>
    </message>
</context>
<context>
    <name>PrivateFolder</name>
    <message>
        <source>the folder is a link that somebody may have put there</source>
        <translation>le dossier est un lien que quelqu’un a pu placer là</translation>
    </message>
    <message>
        <source>the folder belongs to somebody else</source>
        <translation>le dossier appartient à quelqu’un d’autre</translation>
    </message>
</context>
<context>
    <name>RecordingCheck</name>
    <message>
        <source>the recording is no longer there</source>
        <translation>l’enregistrement n’est plus là</translation>
    </message>
    <message>
        <source>the recording has changed since it was searched</source>
        <translation>l’enregistrement a changé depuis la recherche</translation>
    </message>
</context>
<context>
    <name>RecordingDecision</name>
    <message>
        <source>it is gone</source>
        <translation>le fichier a disparu</translation>
    </message>
    <message>
        <source>it has changed</source>
        <translation>le fichier a changé</translation>
    </message>
</context>
<context>
    <name>RecordingMenu</name>
    <message>
        <source>&amp;Search again...</source>
        <translation>&amp;Chercher à nouveau...</translation>
    </message>
    <message>
        <source>&amp;Cancel this one</source>
        <translation>&amp;Annuler cette recherche</translation>
    </message>
    <message>
        <source>Show in &amp;folder</source>
        <translation>Montrer dans le &amp;dossier</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>Copier le &amp;nom</translation>
    </message>
    <message>
        <source>&amp;Only this recording</source>
        <translation>Cet &amp;enregistrement seulement</translation>
    </message>
    <message>
        <source>&amp;Remove its clips</source>
        <translation>&amp;Retirer ses clips</translation>
    </message>
</context>
<context>
    <name>RecordingsDock</name>
    <message>
        <source>Recordings</source>
        <translation>Enregistrements</translation>
    </message>
    <message>
        <source>Recordings: %1</source>
        <translation>Enregistrements : %1</translation>
    </message>
    <message>
        <source>Recordings: %1, %2 unreadable</source>
        <translation>Enregistrements : %1, illisibles : %2</translation>
    </message>
</context>
<context>
    <name>RecordingsPanel</name>
    <message>
        <source>Recordings</source>
        <translation>Enregistrements</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>Keep measured values</source>
        <translation>Conserver les valeurs mesurées</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>Filter recordings by name</source>
        <translation>Filtrer les enregistrements par nom</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>With clips</source>
        <translation>Avec clips</translation>
    </message>
    <message>
        <source>Without</source>
        <translation>Sans</translation>
    </message>
    <message>
        <source>Unreadable</source>
        <translation>Illisibles</translation>
    </message>
    <message>
        <source>Which recordings are shown</source>
        <translation>Quels enregistrements sont montrés</translation>
    </message>
    <message>
        <source>Order, and measured values</source>
        <translation>Ordre et valeurs mesurées</translation>
    </message>
    <message>
        <source>Searches the recordings that were cancelled</source>
        <translation>Cherche dans les enregistrements dont la recherche a été annulée</translation>
    </message>
    <message>
        <source>Writes a page that shows what is listed, for a browser</source>
        <translation>Écrit une page pour le navigateur qui montre ce qui est dans la liste</translation>
    </message>
    <message>
        <source>As they came</source>
        <translation>Comme ajoutés</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 Mo</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 Go</translation>
    </message>
    <message>
        <source>&amp;Search the rest</source>
        <translation>&amp;Chercher dans le reste</translation>
    </message>
    <message>
        <source>Save re&amp;port...</source>
        <translation>Enregistrer &amp;le rapport...</translation>
    </message>
    <message>
        <source>Search the likeliest first</source>
        <translation>Chercher d’abord dans les plus probables</translation>
    </message>
    <message>
        <source>Of the recordings that wait, the one is searched next whose packet sizes promise motion most; the rows stay in their order</source>
        <translation>Parmi les enregistrements en attente, le suivant est celui dont les tailles de paquets promettent le plus de mouvement ; les lignes gardent leur ordre</translation>
    </message>
</context>
<context>
    <name>ReportControl</name>
    <message>
        <source>Select a folder for the report</source>
        <translation>Choisir un dossier pour le rapport</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Enregistrer le rapport</translation>
    </message>
    <message>
        <source>There is a page already: %1</source>
        <translation>Il y a déjà une page : %1</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message>
        <source>Saving the report...</source>
        <translation>Enregistrement du rapport en cours...</translation>
    </message>
    <message>
        <source>no thread to do it on</source>
        <translation>le système n’a pas de fil d’exécution pour cela</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Rapport enregistré : %1</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>Le rapport n’a pas pu être enregistré : %1</translation>
    </message>
</context>
<context>
    <name>SearchAgainDialog</name>
    <message>
        <source>Search again</source>
        <translation>Chercher à nouveau</translation>
    </message>
    <message>
        <source>&amp;Detector</source>
        <translation>&amp;Détecteur</translation>
    </message>
    <message>
        <source>Mean change</source>
        <translation>Changement moyen</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Cellules</translation>
    </message>
    <message>
        <source>&amp;Threshold</source>
        <translation>&amp;Seuil</translation>
    </message>
    <message>
        <source>&amp;Minimum length</source>
        <translation>Durée &amp;minimale</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Before</source>
        <translation>A&amp;vant</translation>
    </message>
    <message>
        <source>&amp;After</source>
        <translation>A&amp;près</translation>
    </message>
    <message>
        <source>&amp;Join clips up to</source>
        <translation>Ré&amp;unir les clips jusqu’à</translation>
    </message>
    <message>
        <source>Join clips up to</source>
        <translation>Réunir les clips jusqu’à</translation>
    </message>
    <message>
        <source>&amp;Ignore what is restless</source>
        <translation>I&amp;gnorer ce qui s’agite</translation>
    </message>
    <message>
        <source>&amp;Quick look</source>
        <translation>Aperçu &amp;rapide</translation>
    </message>
    <message>
        <source>Looks at key frames alone: much faster, and blind to motion between two of them</source>
        <translation>Ne regarde que les images clés : bien plus rapide, mais aveugle au mouvement entre deux d’entre elles</translation>
    </message>
    <message>
        <source>&amp;Exclude</source>
        <translation>E&amp;xclure</translation>
    </message>
    <message>
        <source>Rectangles in which nothing is looked for: left, top, width and height in pixels of the recording</source>
        <translation>Rectangles où rien n’est cherché : gauche, haut, largeur et hauteur en pixels de l’enregistrement</translation>
    </message>
    <message>
        <source>Rectangles read as in &quot;600,200,300x240; 0,0,100x50&quot;: left, top, width and height in whole pixels.</source>
        <translation>Les rectangles s’écrivent ainsi : « 600,200,300x240; 0,0,100x50 », soit gauche, haut, largeur et hauteur en pixels entiers.</translation>
    </message>
    <message>
        <source>Search again: %1</source>
        <translation>Chercher à nouveau : %1</translation>
    </message>
    <message>
        <source>What tells motion: the mean change of all pixels, or the largest group of small areas that change, for what is small, distant or slow</source>
        <translation>Ce qui révèle le mouvement : le changement moyen de tous les pixels, ou le plus grand groupe de petites surfaces qui changent, pour ce qui est petit, lointain ou lent</translation>
    </message>
    <message>
        <source>Makes one clip of those that lie at most this many seconds apart</source>
        <translation>Fait un seul clip de ceux que séparent au plus autant de secondes</translation>
    </message>
    <message>
        <source>Leaves out what changes through most of a recording: clocks, leaves, fans</source>
        <translation>Laisse de côté ce qui change presque tout au long d’un enregistrement : horloges, feuilles, ventilateurs</translation>
    </message>
</context>
<context>
    <name>SearchNotice</name>
    <message>
        <source>Search finished</source>
        <translation>Recherche terminée</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n enregistrement</numerusform>
            <numerusform>%n enregistrements</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SessionControl</name>
    <message>
        <source>No thread to read the last session on</source>
        <translation>Le système n’a pas de fil d’exécution pour lire la dernière session</translation>
    </message>
    <message>
        <source>Out of memory while the last session was read</source>
        <translation>La mémoire n’a pas suffi pour lire la dernière session</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Another window of this program keeps its session; this one&apos;s is not kept</source>
        <translation>Une autre fenêtre de ce programme garde sa session ; celle de cette fenêtre n’est pas conservée</translation>
    </message>
    <message>
        <source>The last session cannot be read; it stays as it is, and this one is not kept: %1</source>
        <translation>La dernière session ne peut pas être lue ; elle reste comme elle est, et celle-ci n’est pas conservée : %1</translation>
    </message>
    <message>
        <source>The last session is of another version, and was put aside: %1</source>
        <translation>La dernière session vient d’une autre version et a été mise de côté : %1</translation>
    </message>
    <message>
        <source>The last session is damaged, and was put aside: %1</source>
        <translation>La dernière session est endommagée et a été mise de côté : %1</translation>
    </message>
    <message>
        <source>The session cannot be kept: %1</source>
        <translation>La session ne peut pas être conservée : %1</translation>
    </message>
</context>
<context>
    <name>SessionOffer</name>
    <message>
        <source>Do without it</source>
        <translation>S’en passer</translation>
    </message>
    <message>
        <source>Reading the last session...</source>
        <translation>Lecture de la dernière session en cours...</translation>
    </message>
    <message>
        <source>Go on with the last session: %1, %2</source>
        <translation>Continuer la dernière session : %1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n enregistrement</numerusform>
            <numerusform>%n enregistrements</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SessionRestore</name>
    <message>
        <source>It was exported, but its file is no longer there</source>
        <translation>Il était exporté, mais son fichier n’est plus là</translation>
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
<context>
    <name>ShownBar</name>
    <message>
        <source>Show all clips</source>
        <translation>Montrer tous les clips</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n clips are listed</source>
        <translation>
            <numerusform>%1 clip sur %n dans la liste</numerusform>
            <numerusform>%1 clips sur %n dans la liste</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StartOffer</name>
    <message>
        <source>Use %1 (from the name)</source>
        <translation>Prendre %1 (nom)</translation>
    </message>
    <message>
        <source>Use %1 (from the video)</source>
        <translation>Prendre %1 (vidéo)</translation>
    </message>
    <message>
        <source>Use %1 (from the file)</source>
        <translation>Prendre %1 (fichier)</translation>
    </message>
    <message>
        <source>The day in its name can be read in several ways.</source>
        <translation>Le jour dans le nom peut se lire de plusieurs façons.</translation>
    </message>
    <message>
        <source>The clock was put forward over that hour.</source>
        <translation>À cette heure, l&apos;horloge a été avancée.</translation>
    </message>
    <message>
        <source>That hour came twice; this is the first one.</source>
        <translation>Cette heure s&apos;est répétée ; c&apos;est ici la première.</translation>
    </message>
    <message>
        <source>The name has no seconds.</source>
        <translation>Le nom n&apos;a pas de secondes.</translation>
    </message>
    <message>
        <source>The number in the name is read as seconds since 1970.</source>
        <translation>Le nombre dans le nom est lu comme des secondes depuis 1970.</translation>
    </message>
    <message>
        <source>This computer&apos;s clock is more than a year from it.</source>
        <translation>L&apos;horloge de cet ordinateur en est à plus d&apos;un an.</translation>
    </message>
    <message>
        <source>If the camera wrote it in UTC, as it should have.</source>
        <translation>Si la caméra l&apos;a écrite en UTC, comme il se doit.</translation>
    </message>
    <message>
        <source>The file&apos;s last change, less the recording&apos;s length. A copy may have another one.</source>
        <translation>La dernière modification du fichier, moins la durée de l&apos;enregistrement. Une copie peut en avoir une autre.</translation>
    </message>
</context>
<context>
    <name>UseReport</name>
    <message>
        <source>Replacing clips: recording %1 of %2</source>
        <translation>Remplacement des clips : enregistrement %1 sur %2</translation>
    </message>
    <message numerus="yes">
        <source>The clips of %n recordings are replaced</source>
        <translation>
            <numerusform>Les clips de %n enregistrement sont remplacés</numerusform>
            <numerusform>Les clips de %n enregistrements sont remplacés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, those of %n are not; the last one: %2</source>
        <translation>
            <numerusform>%1, ceux de %n autre ne le sont pas : %2</numerusform>
            <numerusform>%1, ceux de %n autres ne le sont pas ; le dernier : %2</numerusform>
        </translation>
    </message>
</context>
</TS>
