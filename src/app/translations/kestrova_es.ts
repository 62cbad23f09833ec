<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
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
    <name>ClipListWidget</name>
    <message>
        <source>Drop recordings here, or add them with the buttons above</source>
        <translation>Suelte aquí las grabaciones o añádalas con los botones de arriba</translation>
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
</TS>
