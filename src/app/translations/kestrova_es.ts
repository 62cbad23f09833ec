<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>AreaBar</name>
    <message>
        <source>Area</source>
        <translation>Zona</translation>
    </message>
    <message>
        <source>Free shape</source>
        <translation>Forma libre</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>All of this camera</source>
        <translation>Toda esta cámara</translation>
    </message>
    <message>
        <source>Draw a part of the picture: only clips with motion there are listed</source>
        <translation>Dibujar una parte de la imagen: solo quedan en la lista los clips con movimiento en ella</translation>
    </message>
    <message>
        <source>Draw a free shape instead of a rectangle</source>
        <translation>Dibujar una forma libre en vez de un rectángulo</translation>
    </message>
    <message>
        <source>For all recordings whose pictures have the same size</source>
        <translation>Para todas las grabaciones cuyas imágenes tienen el mismo tamaño</translation>
    </message>
</context>
<context>
    <name>AreaControl</name>
    <message>
        <source>Draw on the picture</source>
        <translation>Dibuje sobre la imagen</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Buscando...</translation>
    </message>
    <message>
        <source>No maps of this recording are kept</source>
        <translation>No se conservan mapas de esta grabación</translation>
    </message>
    <message>
        <source>%1; of some recordings no maps are kept</source>
        <translation>%1; de algunas grabaciones no se conservan mapas</translation>
    </message>
    <message numerus="yes">
        <source>Area: %1 of %n clips</source>
        <translation>
            <numerusform>Zona: %1 de %n clip</numerusform>
            <numerusform>Zona: %1 de %n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AreaOverlay</name>
    <message>
        <source>Area of the picture</source>
        <translation>Zona de la imagen</translation>
    </message>
    <message>
        <source>Arrow keys move it, with Shift they change its size, Delete clears it</source>
        <translation>Las flechas la mueven, con Mayús cambian su tamaño, Supr la borra</translation>
    </message>
</context>
<context>
    <name>Clip</name>
    <message>
        <source>the encoder wrote no file</source>
        <translation>el codificador no ha escrito ningún archivo</translation>
    </message>
    <message>
        <source>the encoder wrote an empty file</source>
        <translation>el codificador ha escrito un archivo vacío</translation>
    </message>
    <message>
        <source>not exported</source>
        <translation>sin exportar</translation>
    </message>
    <message>
        <source>exporting...</source>
        <translation>exportando...</translation>
    </message>
    <message>
        <source>queued...</source>
        <translation>en espera...</translation>
    </message>
    <message>
        <source>canceled</source>
        <translation>cancelado</translation>
    </message>
    <message>
        <source>export failed!</source>
        <translation>¡error al exportar!</translation>
    </message>
    <message>
        <source>exported</source>
        <translation>exportado</translation>
    </message>
    <message>
        <source>unknown status</source>
        <translation>estado desconocido</translation>
    </message>
    <message>
        <source>%1
#%2 %3 (%4 sec) (%5)</source>
        <translation>%1
#%2 %3 (%4 s) (%5)</translation>
    </message>
    <message>
        <source>a clip with these times cannot be cut out</source>
        <translation>un clip con estos tiempos no se puede recortar</translation>
    </message>
</context>
<context>
    <name>ClipListExport</name>
    <message>
        <source>Export list as</source>
        <translation>Exportar la lista como</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>No se puede escribir %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: no thread</source>
        <translation>No se puede escribir %1: el sistema no tiene un hilo</translation>
    </message>
    <message numerus="yes">
        <source>%n clips listed in %1</source>
        <translation>
            <numerusform>%n clip en la lista %1</numerusform>
            <numerusform>%n clips en la lista %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1; %n clips are left out, since their recordings cannot be named or are not known</source>
        <translation>
            <numerusform>%1; %n clip omitido, porque su grabación no se puede nombrar o no se conoce</numerusform>
            <numerusform>%1; %n clips omitidos, porque sus grabaciones no se pueden nombrar o no se conocen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ClipListWidget</name>
    <message>
        <source>Drop recordings here, or add them with the buttons above</source>
        <translation>Suelte aquí las grabaciones o añádalas con los botones de arriba</translation>
    </message>
</context>
<context>
    <name>ClipMenu</name>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Copy file name</source>
        <translation>Copiar el nombre del archivo</translation>
    </message>
    <message>
        <source>Only this recording</source>
        <translation>Solo esta grabación</translation>
    </message>
    <message>
        <source>Export joined</source>
        <translation>Exportar unidos</translation>
    </message>
    <message>
        <source>Export list as</source>
        <translation>Exportar la lista como</translation>
    </message>
    <message>
        <source>Playlist for VLC (M3U)</source>
        <translation>Lista de reproducción para VLC (M3U)</translation>
    </message>
    <message>
        <source>Edit list for mpv</source>
        <translation>Lista de edición para mpv</translation>
    </message>
    <message>
        <source>Edit decision list (CMX 3600)</source>
        <translation>Lista de edición EDL (CMX 3600)</translation>
    </message>
    <message>
        <source>Cut list</source>
        <translation>Lista de cortes</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>Order found</source>
        <translation>Orden de hallazgo</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Intensidad</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Time of day</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>%1 has changed since it was added</source>
        <translation>%1 ha cambiado desde que se añadió</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 ya no está</translation>
    </message>
    <message>
        <source>Project for video editors (MLT)</source>
        <translation>Proyecto para editores de vídeo (MLT)</translation>
    </message>
</context>
<context>
    <name>ClipReplacement</name>
    <message>
        <source>%1: there is no thread or no memory to replace its clips</source>
        <translation>%1: el sistema no tiene un hilo o memoria para reemplazar los clips</translation>
    </message>
    <message>
        <source>%1: %2, and its clips stay as they are</source>
        <translation>%1: %2, los clips se quedan como están</translation>
    </message>
    <message>
        <source>it is being searched again</source>
        <translation>se está buscando de nuevo en la grabación</translation>
    </message>
    <message>
        <source>nothing is kept to decide on</source>
        <translation>no se conserva nada con que decidir</translation>
    </message>
</context>
<context>
    <name>DecidingForm</name>
    <message>
        <source>D&amp;etector:</source>
        <translation>&amp;Detector:</translation>
    </message>
    <message>
        <source>What tells motion: the mean change of all pixels, or the largest group of small areas that change, for what is small, distant or slow</source>
        <translation>Lo que revela el movimiento: el cambio medio de todos los píxeles o, para lo pequeño, lejano o lento, el mayor grupo de superficies pequeñas que cambian</translation>
    </message>
    <message>
        <source>Mean change</source>
        <translation>Media</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Celdas</translation>
    </message>
    <message>
        <source>Th&amp;reshold:</source>
        <translation>&amp;Umbral:</translation>
    </message>
    <message>
        <source>Set more if you want less motion to be found</source>
        <translation>Más alto para encontrar menos movimiento</translation>
    </message>
    <message>
        <source>&amp;Minimum:</source>
        <translation>Duración &amp;mín.:</translation>
    </message>
    <message>
        <source>Seconds of which motion must fill half for a clip to begin</source>
        <translation>Segundos en los que debe haber movimiento al menos la mitad del tiempo para que empiece un clip</translation>
    </message>
    <message>
        <source>Sensiti&amp;vity:</source>
        <translation>Sensi&amp;bilidad:</translation>
    </message>
    <message>
        <source>How faintly a cell may change to count: more for dusk and haze, less for fewer clips</source>
        <translation>Lo poco que puede cambiar una celda para contar: más alta para el crepúsculo y la bruma, más baja para menos clips</translation>
    </message>
    <message>
        <source>&amp;Before:</source>
        <translation>An&amp;tes:</translation>
    </message>
    <message>
        <source>Seconds before the motion with which a clip begins</source>
        <translation>Segundos que un clip empieza antes del movimiento</translation>
    </message>
    <message>
        <source>After:</source>
        <translation>Des&amp;pués:</translation>
    </message>
    <message>
        <source>Seconds of quiet after which a clip ends</source>
        <translation>Segundos de calma tras los que termina un clip</translation>
    </message>
    <message>
        <source>&amp;Join:</source>
        <translation>Un&amp;ir:</translation>
    </message>
    <message>
        <source>Makes one clip of those that lie at most this many seconds apart</source>
        <translation>Hace un solo clip de los que distan como mucho esos segundos</translation>
    </message>
    <message>
        <source>not joined</source>
        <translation>sin unir</translation>
    </message>
    <message>
        <source>Leaves out what changes through most of a recording: clocks, leaves, fans</source>
        <translation>Deja fuera lo que cambia durante casi toda una grabación: relojes, hojas, ventiladores</translation>
    </message>
    <message>
        <source>&amp;Ignore what is restless</source>
        <translation>I&amp;gnorar lo inquieto</translation>
    </message>
</context>
<context>
    <name>DetectionQueue</name>
    <message>
        <source>No thread to run detection on, trying again...</source>
        <translation>El sistema no tiene un hilo para la búsqueda, se intenta de nuevo...</translation>
    </message>
</context>
<context>
    <name>EditMaskWindow</name>
    <message>
        <source>Add file(s)</source>
        <translation>Añadir archivos</translation>
    </message>
    <message>
        <source>File info:</source>
        <translation>Archivo:</translation>
    </message>
    <message>
        <source>Specify region of interest (ROI).
If none selected the whole image will be used.
Rectangle ROI will speed up detection but only one rectangle is allowed.
Free ROI can slow down detection.</source>
        <translation>Elija la zona en la que buscar movimiento.
Sin selección se usa toda la imagen.
Un rectángulo acelera la búsqueda; solo puede haber uno.
Una zona libre puede hacerla más lenta.</translation>
    </message>
    <message>
        <source>Rectangle ROI</source>
        <translation>Rectángulo</translation>
    </message>
    <message>
        <source>Free ROI</source>
        <translation>Zona libre</translation>
    </message>
    <message>
        <source>Clear mask
Whole region will be used for motion detection.</source>
        <translation>Borrar la selección
Se busca movimiento en toda la imagen.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>Invert masked and exposed regions</source>
        <translation>Intercambiar las zonas elegidas y excluidas</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertir</translation>
    </message>
    <message>
        <source>Skip frames:</source>
        <translation>Omitir imágenes:</translation>
    </message>
    <message>
        <source>Specify how much skip frames for motion detection.
If set to 0 every frames would be detected for motion, 
if set to 1 only even frames would be detected etc.
High values can affect motion detection quality</source>
        <translation>Cuántas imágenes se omiten entre dos imágenes examinadas.
Con 0 se examinan todas;
con 1, una de cada dos, etc.
Los valores altos pueden empeorar la detección</translation>
    </message>
    <message>
        <source>Export dir:</source>
        <translation>Carpeta de exportación:</translation>
    </message>
    <message>
        <source>Video files with detected motion will create corresponding folder in Export dir. Existing clips would be silently rewritten</source>
        <translation>Cada grabación con movimiento recibe su propia carpeta en la carpeta de exportación. Los clips existentes se sobrescriben sin preguntar</translation>
    </message>
    <message>
        <source>Select folder to save</source>
        <translation>Elegir la carpeta de destino</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>If checked detected clips will exported to Export dir</source>
        <translation>Los clips encontrados se exportan solos a la carpeta de exportación</translation>
    </message>
    <message>
        <source>Export all automatically</source>
        <translation>Exportar todo automáticamente</translation>
    </message>
    <message>
        <source>Prerecord:</source>
        <translation>Antes:</translation>
    </message>
    <message>
        <source>Specify video duration in seconds to write directly before detected motion</source>
        <translation>Segundos que un clip empieza antes del movimiento</translation>
    </message>
    <message>
        <source>Postrecord:</source>
        <translation>Después:</translation>
    </message>
    <message>
        <source>Specify video duration in seconds to write directly after detected motion</source>
        <translation>Segundos que un clip dura después del movimiento</translation>
    </message>
    <message>
        <source>Minimum length:</source>
        <translation>Duración mín.:</translation>
    </message>
    <message>
        <source>Clips with motion duration in seconds less then Minimum length would not be written. All overlapping clips would be concatenated</source>
        <translation>Segundos en los que debe haber movimiento al menos la mitad del tiempo para que empiece un clip. Un movimiento más corto no da ningún clip</translation>
    </message>
    <message>
        <source>This also will force transcoding</source>
        <translation>Para ello los clips se recodifican</translation>
    </message>
    <message>
        <source>Export with timestamps</source>
        <translation>Exportar con la hora</translation>
    </message>
    <message>
        <source>Video file start time</source>
        <translation>Comienzo de la grabación</translation>
    </message>
    <message>
        <source>M/d/yyyy h:mm:ss AP</source>
        <translation>dd/MM/yyyy HH:mm:ss</translation>
    </message>
    <message>
        <source>Add single video file with current mask</source>
        <translation>Añadir esta grabación con la zona elegida</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Add all queued video files with current mask</source>
        <translation>Añadir todas las grabaciones en espera con la zona elegida</translation>
    </message>
    <message>
        <source>Add ALL</source>
        <translation>Añadir TODAS</translation>
    </message>
    <message>
        <source>Discard current video file</source>
        <translation>Descartar esta grabación</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Discard all queued video files</source>
        <translation>Descartar todas las grabaciones en espera</translation>
    </message>
    <message>
        <source>Cancel ALL</source>
        <translation>Cancelar TODAS</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Please check export dir name and permissions</source>
        <translation>Compruebe el nombre y los permisos de la carpeta de exportación</translation>
    </message>
    <message>
        <source>File %1 of %2</source>
        <translation>Archivo %1 de %2</translation>
    </message>
    <message>
        <source>The region of %1 still applies. Draw a new one, or Clear.</source>
        <translation>La zona de %1 sigue vigente. Dibuje otra, o pulse «Borrar».</translation>
    </message>
    <message>
        <source>The shapes drawn on %1 are gone, but not cleared: nothing would be found here. Draw new ones, or Clear.</source>
        <translation>Las formas dibujadas en %1 ya no están, pero no se han borrado: aquí no se encontraría nada. Dibuje otras, o pulse «Borrar».</translation>
    </message>
</context>
<context>
    <name>EmptyList</name>
    <message>
        <source>All clips are hidden at the moment</source>
        <translation>Todos los clips están ocultos por ahora</translation>
    </message>
    <message>
        <source>No motion was found yet</source>
        <translation>Aún no se ha encontrado movimiento</translation>
    </message>
    <message>
        <source>All clips were removed</source>
        <translation>Se quitaron todos los clips</translation>
    </message>
    <message>
        <source>The search was cancelled before motion was found</source>
        <translation>La búsqueda se canceló antes de encontrar movimiento</translation>
    </message>
    <message>
        <source>Nothing of what was added could be read</source>
        <translation>No se pudo leer nada de lo añadido</translation>
    </message>
    <message>
        <source>No motion was found</source>
        <translation>No se encontró movimiento</translation>
    </message>
</context>
<context>
    <name>EncoderProcess</name>
    <message>
        <source>the encoder cannot be started</source>
        <translation>el codificador no se puede iniciar</translation>
    </message>
    <message>
        <source>the encoder crashed</source>
        <translation>el codificador ha fallado</translation>
    </message>
    <message>
        <source>the encoder failed</source>
        <translation>el codificador no ha podido terminar</translation>
    </message>
</context>
<context>
    <name>FailureTexts</name>
    <message>
        <source>no regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>no video stream</source>
        <translation>sin pista de vídeo</translation>
    </message>
    <message>
        <source>no decoder for %1</source>
        <translation>no hay decodificador para %1</translation>
    </message>
    <message>
        <source>its headers hold too many parameter sets</source>
        <translation>sus cabeceras contienen demasiados conjuntos de parámetros</translation>
    </message>
    <message>
        <source>a playlist, not a recording</source>
        <translation>una lista de reproducción, no una grabación</translation>
    </message>
    <message>
        <source>the address of a stream, not a recording</source>
        <translation>la dirección de un flujo, no una grabación</translation>
    </message>
    <message>
        <source>a script, not a recording</source>
        <translation>un script, no una grabación</translation>
    </message>
    <message>
        <source>text, not a recording</source>
        <translation>texto, no una grabación</translation>
    </message>
    <message>
        <source>the index of another file, not a recording</source>
        <translation>el índice de otro archivo, no una grabación</translation>
    </message>
    <message>
        <source>no picture could be decoded</source>
        <translation>no se pudo decodificar ninguna imagen</translation>
    </message>
    <message>
        <source>only one picture could be decoded</source>
        <translation>solo se pudo decodificar una imagen</translation>
    </message>
    <message>
        <source>no usable times</source>
        <translation>sin tiempos utilizables</translation>
    </message>
    <message>
        <source>pictures of %1 x %2 are too large</source>
        <translation>las imágenes de %1 x %2 son demasiado grandes</translation>
    </message>
    <message>
        <source>its pictures become too large</source>
        <translation>sus imágenes se hacen demasiado grandes</translation>
    </message>
    <message>
        <source>out of memory</source>
        <translation>memoria insuficiente</translation>
    </message>
    <message>
        <source>cannot be read to its end: %1</source>
        <translation>no se puede leer hasta el final: %1</translation>
    </message>
    <message>
        <source>it was removed while it was searched</source>
        <translation>se eliminó durante la búsqueda</translation>
    </message>
    <message>
        <source>it was changed while it was searched</source>
        <translation>se modificó durante la búsqueda</translation>
    </message>
    <message>
        <source>it grew while it was searched; what came behind %1 is left out</source>
        <translation>creció durante la búsqueda; lo que vino después de %1 se omite</translation>
    </message>
    <message>
        <source>Invalid data found when processing input</source>
        <translation>datos no válidos</translation>
    </message>
    <message>
        <source>End of file</source>
        <translation>fin del archivo</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>el archivo no existe</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>permiso denegado</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>es una carpeta</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>error de entrada/salida</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>el archivo ya no se encuentra en el servidor</translation>
    </message>
    <message>
        <source>it is a symbolic link</source>
        <translation>la carpeta es un enlace simbólico</translation>
    </message>
    <message>
        <source>it is a symbolic link of another user</source>
        <translation>la carpeta es un enlace simbólico de otro usuario</translation>
    </message>
    <message>
        <source>it cannot be encoded</source>
        <translation>no se puede codificar</translation>
    </message>
    <message>
        <source>its pictures cannot be scaled</source>
        <translation>las imágenes no se pueden reducir</translation>
    </message>
    <message>
        <source>cannot write the picture %1: %2</source>
        <translation>no se puede escribir la imagen %1: %2</translation>
    </message>
    <message>
        <source>loading failed</source>
        <translation>la carga ha fallado</translation>
    </message>
    <message>
        <source>no audio or video data played</source>
        <translation>no se pudo reproducir ni imagen ni sonido</translation>
    </message>
    <message>
        <source>unrecognized file format</source>
        <translation>formato de archivo desconocido</translation>
    </message>
    <message>
        <source>a quick look compares key frames, and only one was found</source>
        <translation>un vistazo rápido compara fotogramas clave, y solo se encontró uno</translation>
    </message>
</context>
<context>
    <name>JobModel</name>
    <message>
        <source>Recording</source>
        <translation>Grabación</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Clips</source>
        <translation>Clips</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>Strongest</source>
        <translation>Máximo</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Comienzo</translation>
    </message>
</context>
<context>
    <name>JobStatus</name>
    <message>
        <source>unreadable</source>
        <translation>ilegible</translation>
    </message>
    <message>
        <source>unreadable: %1</source>
        <translation>ilegible: %1</translation>
    </message>
    <message>
        <source>clips removed</source>
        <translation>clips quitados</translation>
    </message>
    <message>
        <source>no motion</source>
        <translation>sin movimiento</translation>
    </message>
    <message>
        <source>searching %1 %</source>
        <translation>buscando %1 %</translation>
    </message>
    <message>
        <source>waiting</source>
        <translation>en espera</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>cancelada</translation>
    </message>
    <message>
        <source>searched again</source>
        <translation>buscada de nuevo</translation>
    </message>
    <message>
        <source>file is gone</source>
        <translation>el archivo ya no está</translation>
    </message>
    <message>
        <source>file has changed since</source>
        <translation>el archivo ha cambiado desde entonces</translation>
    </message>
    <message>
        <source>not read to its end</source>
        <translation>no leída hasta el final</translation>
    </message>
    <message>
        <source>%1 with clips</source>
        <translation>%1 con clips</translation>
    </message>
    <message>
        <source>%1 without</source>
        <translation>%1 sin clips</translation>
    </message>
    <message>
        <source>%1 unreadable</source>
        <translation>%1 ilegible(s)</translation>
    </message>
    <message>
        <source>%1 cancelled</source>
        <translation>%1 cancelada(s)</translation>
    </message>
    <message>
        <source>%1 to go</source>
        <translation>%1 por hacer</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
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
        <translation>El filtro no deja pasar ninguna grabación</translation>
    </message>
    <message>
        <source>No recordings were added yet</source>
        <translation>Aún no se han añadido grabaciones</translation>
    </message>
</context>
<context>
    <name>JoinedExport</name>
    <message>
        <source>Clips of %1 can be joined when its search has ended</source>
        <translation>Los clips de %1 se podrán unir cuando termine la búsqueda</translation>
    </message>
    <message>
        <source>Joined with others: %1</source>
        <translation>Unido con otros: %1</translation>
    </message>
</context>
<context>
    <name>LeftOutBar</name>
    <message>
        <source>Set them up</source>
        <translation>Preparar</translation>
    </message>
    <message>
        <source>Leave them out</source>
        <translation>Dejarlos fuera</translation>
    </message>
    <message>
        <source>Not set up, since others were added: %1 and %2 more</source>
        <translation>Sin preparar, porque se añadieron otros: %1 y %2 más</translation>
    </message>
    <message>
        <source>Not set up, since others were added: %1</source>
        <translation>Sin preparar, porque se añadieron otros: %1</translation>
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
        <translation>Añadir &amp;archivos</translation>
    </message>
    <message>
        <source>Add &amp;directory</source>
        <translation>Añadir &amp;carpeta</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Ca&amp;ncelar</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>A&amp;rchivo</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Herramientas</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>Add file(s)</source>
        <translation>Añadir archivos</translation>
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
        <translation>Abrir la selección</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Return</translation>
    </message>
    <message>
        <source>Export selected</source>
        <translation>Exportar la selección</translation>
    </message>
    <message>
        <source>Ctrl+E</source>
        <translation>Ctrl+E</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Remove selected</source>
        <translation>Quitar la selección</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Remove all</source>
        <translation>Quitar todo</translation>
    </message>
    <message>
        <source>Ctrl+Del</source>
        <translation>Ctrl+Del</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Finds the moving stretches in recordings of fixed cameras.</source>
        <translation>Encuentra los tramos con movimiento en grabaciones de cámaras fijas.</translation>
    </message>
    <message>
        <source>Credits:</source>
        <translation>Se basa en:</translation>
    </message>
    <message>
        <source>About Kestrova</source>
        <translation>Acerca de Kestrova</translation>
    </message>
    <message>
        <source>Select one or more files to open</source>
        <translation>Elegir uno o varios archivos</translation>
    </message>
    <message>
        <source>Select folder to add</source>
        <translation>Elegir una carpeta</translation>
    </message>
    <message>
        <source>%1 clips queued to export...</source>
        <translation>Clips en espera de exportación: %1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Can&apos;t open manual.pdf</source>
        <translation>No se puede abrir manual.pdf</translation>
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
        <translation>Los valores medidos no se pueden conservar en %1: %2</translation>
    </message>
    <message>
        <source>there is no temporary folder</source>
        <translation>no hay carpeta temporal</translation>
    </message>
    <message>
        <source>What was measured cannot be kept: %1</source>
        <translation>Los valores medidos no se pueden conservar: %1</translation>
    </message>
</context>
<context>
    <name>MotionDock</name>
    <message>
        <source>Drag the dashed line for another threshold. The wheel zooms; with Shift it scrolls, as dragging does</source>
        <translation>Arrastre la línea discontinua para cambiar el umbral. La rueda amplía; con Mayús desplaza, igual que al arrastrar</translation>
    </message>
    <message>
        <source>Replaces the listed clips of this recording by those that are hatched; what was exported or waits for it stays</source>
        <translation>Reemplaza los clips de esta grabación en la lista por los rayados; lo exportado o en espera de exportación se queda</translation>
    </message>
    <message>
        <source>&amp;Use</source>
        <translation>Ap&amp;licar</translation>
    </message>
    <message>
        <source>The same for all recordings that were searched</source>
        <translation>Lo mismo para todas las grabaciones en las que ya se buscó</translation>
    </message>
    <message>
        <source>Use for a&amp;ll</source>
        <translation>A t&amp;odas</translation>
    </message>
    <message>
        <source>Lists the clips that were replaced last</source>
        <translation>Devuelve a la lista los últimos clips reemplazados</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>De&amp;shacer</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Movimiento</translation>
    </message>
    <message>
        <source>Motion: %1</source>
        <translation>Movimiento: %1</translation>
    </message>
    <message>
        <source>Cannot be worked out now: there is no thread or no memory for it</source>
        <translation>No se puede calcular ahora: el sistema no tiene un hilo o memoria</translation>
    </message>
    <message>
        <source>Choose a recording or one of its clips</source>
        <translation>Elija una grabación o uno de sus clips</translation>
    </message>
    <message>
        <source>Not searched yet</source>
        <translation>Aún no se ha buscado</translation>
    </message>
    <message>
        <source>Being searched</source>
        <translation>Búsqueda en curso</translation>
    </message>
    <message>
        <source>No maps of changed cells are kept of this recording</source>
        <translation>No se conservan mapas de las celdas cambiadas de esta grabación</translation>
    </message>
    <message>
        <source>Nothing was measured of this recording</source>
        <translation>No se midió nada en esta grabación</translation>
    </message>
    <message>
        <source>1 clip, %1 long; now %2</source>
        <translation>1 clip, %1 de duración; ahora %2</translation>
    </message>
    <message>
        <source>%1 clips, %2 in all; now %3</source>
        <translation>%1 clips, %2 en total; ahora %3</translation>
    </message>
    <message>
        <source>Its search was cancelled</source>
        <translation>La búsqueda en esta grabación se canceló</translation>
    </message>
</context>
<context>
    <name>MotionStripWidget</name>
    <message>
        <source>Motion over time</source>
        <translation>Movimiento a lo largo del tiempo</translation>
    </message>
    <message>
        <source>%1: nothing measured</source>
        <translation>%1: nada medido</translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 long, strongest motion %3, %n clips</source>
        <translation>
            <numerusform>%1: duración %2, movimiento máximo %3, %n clip</numerusform>
            <numerusform>%1: duración %2, movimiento máximo %3, %n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MpvPlayer</name>
    <message>
        <source>The library that plays recordings, libmpv 2, is not installed.</source>
        <translation>La biblioteca que reproduce grabaciones, libmpv 2, no está instalada.</translation>
    </message>
    <message>
        <source>The library that plays recordings, libmpv, cannot begin.</source>
        <translation>La biblioteca que reproduce grabaciones, libmpv, no puede empezar.</translation>
    </message>
    <message>
        <source>Cannot be played: %1</source>
        <translation>No se puede reproducir: %1</translation>
    </message>
    <message>
        <source>The recording is no longer there.</source>
        <translation>La grabación ya no está.</translation>
    </message>
    <message>
        <source>This is no file that can be played.</source>
        <translation>Esto no es un archivo que se pueda reproducir.</translation>
    </message>
    <message>
        <source>Cannot be read: %1</source>
        <translation>No se puede leer: %1</translation>
    </message>
    <message>
        <source>The recording has changed since it was searched.</source>
        <translation>La grabación ha cambiado desde la búsqueda.</translation>
    </message>
    <message>
        <source>The recording has changed while it was played.</source>
        <translation>La grabación ha cambiado durante la reproducción.</translation>
    </message>
</context>
<context>
    <name>PictureWidget</name>
    <message>
        <source>Picture</source>
        <translation>Imagen</translation>
    </message>
</context>
<context>
    <name>Playback</name>
    <message>
        <source>There is no thread to play it on.</source>
        <translation>El sistema no tiene un hilo para la reproducción.</translation>
    </message>
    <message>
        <source>The recording does not answer.</source>
        <translation>La grabación no responde.</translation>
    </message>
</context>
<context>
    <name>PlayerControls</name>
    <message>
        <source>Previous clip (P)</source>
        <translation>Clip anterior (P)</translation>
    </message>
    <message>
        <source>A picture back (comma)</source>
        <translation>Una imagen atrás (coma)</translation>
    </message>
    <message>
        <source>Play or pause (Space)</source>
        <translation>Reproducir o pausar (Espacio)</translation>
    </message>
    <message>
        <source>A picture on (full stop)</source>
        <translation>Una imagen adelante (punto)</translation>
    </message>
    <message>
        <source>Next clip (N)</source>
        <translation>Clip siguiente (N)</translation>
    </message>
    <message>
        <source>Whole recording</source>
        <translation>Grabación entera</translation>
    </message>
    <message>
        <source>Mute (M)</source>
        <translation>Silenciar (M)</translation>
    </message>
    <message>
        <source>Full screen (F)</source>
        <translation>Pantalla completa (F)</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Entera</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
</context>
<context>
    <name>PlayerDock</name>
    <message>
        <source>Player</source>
        <translation>Reproductor</translation>
    </message>
    <message>
        <source>Player: %1</source>
        <translation>Reproductor: %1</translation>
    </message>
</context>
<context>
    <name>PlayerView</name>
    <message>
        <source>Open in another program</source>
        <translation>Abrir en otro programa</translation>
    </message>
</context>
<context>
    <name>PrivateFolder</name>
    <message>
        <source>the folder is a link that somebody may have put there</source>
        <translation>la carpeta es un enlace que alguien puede haber puesto ahí</translation>
    </message>
    <message>
        <source>the folder belongs to somebody else</source>
        <translation>la carpeta pertenece a otra persona</translation>
    </message>
</context>
<context>
    <name>RecordingCheck</name>
    <message>
        <source>the recording is no longer there</source>
        <translation>la grabación ya no está</translation>
    </message>
    <message>
        <source>the recording has changed since it was searched</source>
        <translation>la grabación ha cambiado desde la búsqueda</translation>
    </message>
</context>
<context>
    <name>RecordingDecision</name>
    <message>
        <source>it is gone</source>
        <translation>el archivo ya no está</translation>
    </message>
    <message>
        <source>it has changed</source>
        <translation>el archivo ha cambiado</translation>
    </message>
</context>
<context>
    <name>RecordingMenu</name>
    <message>
        <source>&amp;Search again...</source>
        <translation>&amp;Buscar de nuevo...</translation>
    </message>
    <message>
        <source>&amp;Cancel this one</source>
        <translation>Ca&amp;ncelar esta búsqueda</translation>
    </message>
    <message>
        <source>Show in &amp;folder</source>
        <translation>Mostrar en la &amp;carpeta</translation>
    </message>
    <message>
        <source>Copy &amp;name</source>
        <translation>C&amp;opiar el nombre</translation>
    </message>
    <message>
        <source>&amp;Only this recording</source>
        <translation>&amp;Solo esta grabación</translation>
    </message>
    <message>
        <source>&amp;Remove its clips</source>
        <translation>&amp;Quitar sus clips</translation>
    </message>
</context>
<context>
    <name>RecordingsDock</name>
    <message>
        <source>Recordings</source>
        <translation>Grabaciones</translation>
    </message>
    <message>
        <source>Recordings: %1</source>
        <translation>Grabaciones: %1</translation>
    </message>
    <message>
        <source>Recordings: %1, %2 unreadable</source>
        <translation>Grabaciones: %1, ilegibles: %2</translation>
    </message>
</context>
<context>
    <name>RecordingsPanel</name>
    <message>
        <source>Recordings</source>
        <translation>Grabaciones</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>Keep measured values</source>
        <translation>Conservar los valores medidos</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>Filter recordings by name</source>
        <translation>Filtrar las grabaciones por nombre</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Todas</translation>
    </message>
    <message>
        <source>With clips</source>
        <translation>Con clips</translation>
    </message>
    <message>
        <source>Without</source>
        <translation>Sin clips</translation>
    </message>
    <message>
        <source>Unreadable</source>
        <translation>Ilegibles</translation>
    </message>
    <message>
        <source>Which recordings are shown</source>
        <translation>Qué grabaciones se muestran</translation>
    </message>
    <message>
        <source>Order, and measured values</source>
        <translation>Orden y valores medidos</translation>
    </message>
    <message>
        <source>Searches the recordings that were cancelled</source>
        <translation>Busca en las grabaciones cuya búsqueda se canceló</translation>
    </message>
    <message>
        <source>Writes a page that shows what is listed, for a browser</source>
        <translation>Escribe una página para el navegador que muestra lo que hay en la lista</translation>
    </message>
    <message>
        <source>As they came</source>
        <translation>Según se añadieron</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>No</translation>
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
        <translation>Buscar en &amp;el resto</translation>
    </message>
    <message>
        <source>Save re&amp;port...</source>
        <translation>Guardar el in&amp;forme...</translation>
    </message>
    <message>
        <source>Search the likeliest first</source>
        <translation>Buscar primero en las más probables</translation>
    </message>
    <message>
        <source>Of the recordings that wait, the one is searched next whose packet sizes promise motion most; the rows stay in their order</source>
        <translation>De las grabaciones que esperan, la siguiente es aquella cuyos tamaños de paquete prometen más movimiento; las filas conservan su orden</translation>
    </message>
</context>
<context>
    <name>ReportControl</name>
    <message>
        <source>Select a folder for the report</source>
        <translation>Elegir una carpeta para el informe</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Guardar el informe</translation>
    </message>
    <message>
        <source>There is a page already: %1</source>
        <translation>Ya hay una página: %1</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
    <message>
        <source>Saving the report...</source>
        <translation>Guardando el informe...</translation>
    </message>
    <message>
        <source>no thread to do it on</source>
        <translation>el sistema no tiene un hilo para ello</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Informe guardado: %1</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>No se pudo guardar el informe: %1</translation>
    </message>
</context>
<context>
    <name>SearchAgainDialog</name>
    <message>
        <source>Search again</source>
        <translation>Buscar de nuevo</translation>
    </message>
    <message>
        <source>&amp;Detector</source>
        <translation>&amp;Detector</translation>
    </message>
    <message>
        <source>Mean change</source>
        <translation>Cambio medio</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Celdas</translation>
    </message>
    <message>
        <source>&amp;Threshold</source>
        <translation>&amp;Umbral</translation>
    </message>
    <message>
        <source>&amp;Minimum length</source>
        <translation>Duración &amp;mínima</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Before</source>
        <translation>An&amp;tes</translation>
    </message>
    <message>
        <source>&amp;After</source>
        <translation>Des&amp;pués</translation>
    </message>
    <message>
        <source>&amp;Join clips up to</source>
        <translation>Un&amp;ir clips hasta</translation>
    </message>
    <message>
        <source>Join clips up to</source>
        <translation>Unir clips hasta</translation>
    </message>
    <message>
        <source>&amp;Ignore what is restless</source>
        <translation>I&amp;gnorar lo inquieto</translation>
    </message>
    <message>
        <source>&amp;Quick look</source>
        <translation>Vistazo &amp;rápido</translation>
    </message>
    <message>
        <source>Looks at key frames alone: much faster, and blind to motion between two of them</source>
        <translation>Mira solo los fotogramas clave: mucho más rápido, pero ciego al movimiento entre dos de ellos</translation>
    </message>
    <message>
        <source>&amp;Exclude</source>
        <translation>E&amp;xcluir</translation>
    </message>
    <message>
        <source>Rectangles in which nothing is looked for: left, top, width and height in pixels of the recording</source>
        <translation>Rectángulos en los que no se busca nada: izquierda, arriba, ancho y alto en píxeles de la grabación</translation>
    </message>
    <message>
        <source>Rectangles read as in &quot;600,200,300x240; 0,0,100x50&quot;: left, top, width and height in whole pixels.</source>
        <translation>Los rectángulos se escriben así: «600,200,300x240; 0,0,100x50», es decir, izquierda, arriba, ancho y alto en píxeles enteros.</translation>
    </message>
    <message>
        <source>Search again: %1</source>
        <translation>Buscar de nuevo: %1</translation>
    </message>
    <message>
        <source>What tells motion: the mean change of all pixels, or the largest group of small areas that change, for what is small, distant or slow</source>
        <translation>Lo que revela el movimiento: el cambio medio de todos los píxeles o, para lo pequeño, lejano o lento, el mayor grupo de superficies pequeñas que cambian</translation>
    </message>
    <message>
        <source>Makes one clip of those that lie at most this many seconds apart</source>
        <translation>Hace un solo clip de los que distan como mucho esos segundos</translation>
    </message>
    <message>
        <source>Leaves out what changes through most of a recording: clocks, leaves, fans</source>
        <translation>Deja fuera lo que cambia durante casi toda una grabación: relojes, hojas, ventiladores</translation>
    </message>
</context>
<context>
    <name>SearchNotice</name>
    <message>
        <source>Search finished</source>
        <translation>Búsqueda terminada</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n grabación</numerusform>
            <numerusform>%n grabaciones</numerusform>
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
        <translation>El sistema no tiene un hilo para leer la última sesión</translation>
    </message>
    <message>
        <source>Out of memory while the last session was read</source>
        <translation>No hubo memoria suficiente para leer la última sesión</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Another window of this program keeps its session; this one&apos;s is not kept</source>
        <translation>Otra ventana de este programa guarda su sesión; la de esta no se conserva</translation>
    </message>
    <message>
        <source>The last session cannot be read; it stays as it is, and this one is not kept: %1</source>
        <translation>La última sesión no se puede leer; se queda como está, y esta no se conserva: %1</translation>
    </message>
    <message>
        <source>The last session is of another version, and was put aside: %1</source>
        <translation>La última sesión es de otra versión y se ha apartado: %1</translation>
    </message>
    <message>
        <source>The last session is damaged, and was put aside: %1</source>
        <translation>La última sesión está dañada y se ha apartado: %1</translation>
    </message>
    <message>
        <source>The session cannot be kept: %1</source>
        <translation>La sesión no se puede conservar: %1</translation>
    </message>
</context>
<context>
    <name>SessionOffer</name>
    <message>
        <source>Do without it</source>
        <translation>Prescindir de ella</translation>
    </message>
    <message>
        <source>Reading the last session...</source>
        <translation>Leyendo la última sesión...</translation>
    </message>
    <message>
        <source>Go on with the last session: %1, %2</source>
        <translation>Continuar la última sesión: %1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings</source>
        <translation>
            <numerusform>%n grabación</numerusform>
            <numerusform>%n grabaciones</numerusform>
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
        <translation>Estaba exportado, pero su archivo ya no está</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>Pixels threshold</source>
        <translation>Umbral por píxel</translation>
    </message>
    <message>
        <source>Set more for noise videos, 0 - no treshold apply</source>
        <translation>Más alto para grabaciones con ruido; 0: sin umbral</translation>
    </message>
    <message>
        <source>Motion detection threshold</source>
        <translation>Umbral de movimiento</translation>
    </message>
    <message>
        <source>Set more if you want less motion to detect</source>
        <translation>Más alto para detectar menos movimiento</translation>
    </message>
    <message>
        <source>Output video bitrate for 720p, Mbit/sec</source>
        <translation>Tasa de bits de salida en 720p, Mbit/s</translation>
    </message>
    <message>
        <source>Increase in case of low quality output.
Decrease to use less file space.
Applies only with transcoding</source>
        <translation>Más alta para mejor imagen.
Más baja para archivos más pequeños.
Solo se aplica al recodificar</translation>
    </message>
    <message>
        <source>Check in case of problems with export.
Transcoding is time consuming and may result to quality loss.
MJPEG is always transcoded.</source>
        <translation>Márquelo si la exportación da problemas.
Recodificar tarda y puede reducir la calidad.
MJPEG siempre se recodifica.</translation>
    </message>
    <message>
        <source>Force transcoding</source>
        <translation>Recodificar siempre</translation>
    </message>
    <message>
        <source>Try to disable audio output in case of problems with export</source>
        <translation>Pruebe sin sonido si la exportación da problemas</translation>
    </message>
    <message>
        <source>Disable audio output</source>
        <translation>Sin sonido</translation>
    </message>
    <message>
        <source>Container format</source>
        <translation>Formato de archivo</translation>
    </message>
    <message>
        <source>Select output container
- AVI for Windows Media Player
- MP4 for Mac QuickTime Player</source>
        <translation>Formato de los clips
- AVI para Windows Media Player
- MP4 para QuickTime Player en Mac</translation>
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
        <translation>Mostrar todos los clips</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n clips are listed</source>
        <translation>
            <numerusform>%1 de %n clip en la lista</numerusform>
            <numerusform>%1 de %n clips en la lista</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StartOffer</name>
    <message>
        <source>Use %1 (from the name)</source>
        <translation>Usar %1 (nombre)</translation>
    </message>
    <message>
        <source>Use %1 (from the video)</source>
        <translation>Usar %1 (vídeo)</translation>
    </message>
    <message>
        <source>Use %1 (from the file)</source>
        <translation>Usar %1 (archivo)</translation>
    </message>
    <message>
        <source>The day in its name can be read in several ways.</source>
        <translation>El día del nombre puede leerse de varias maneras.</translation>
    </message>
    <message>
        <source>The clock was put forward over that hour.</source>
        <translation>A esa hora se adelantó el reloj.</translation>
    </message>
    <message>
        <source>That hour came twice; this is the first one.</source>
        <translation>Esa hora se repitió; esta es la primera.</translation>
    </message>
    <message>
        <source>The name has no seconds.</source>
        <translation>El nombre no tiene segundos.</translation>
    </message>
    <message>
        <source>The number in the name is read as seconds since 1970.</source>
        <translation>El número del nombre se lee como segundos desde 1970.</translation>
    </message>
    <message>
        <source>This computer&apos;s clock is more than a year from it.</source>
        <translation>El reloj de este equipo está a más de un año de ella.</translation>
    </message>
    <message>
        <source>If the camera wrote it in UTC, as it should have.</source>
        <translation>Si la cámara la escribió en UTC, como debía.</translation>
    </message>
    <message>
        <source>The file&apos;s last change, less the recording&apos;s length. A copy may have another one.</source>
        <translation>El último cambio del archivo, menos la duración de la grabación. Una copia puede tener otro.</translation>
    </message>
</context>
<context>
    <name>UseReport</name>
    <message>
        <source>Replacing clips: recording %1 of %2</source>
        <translation>Sustituyendo clips: grabación %1 de %2</translation>
    </message>
    <message numerus="yes">
        <source>The clips of %n recordings are replaced</source>
        <translation>
            <numerusform>Los clips de %n grabación se han sustituido</numerusform>
            <numerusform>Los clips de %n grabaciones se han sustituido</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, those of %n are not; the last one: %2</source>
        <translation>
            <numerusform>%1, los de %n no: %2</numerusform>
            <numerusform>%1, los de %n no; la última: %2</numerusform>
        </translation>
    </message>
</context>
</TS>
