<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>orv</name>
    <message>
        <source>The run has ended</source>
        <translation>La medición ha terminado</translation>
    </message>
    <message>
        <source>The download has ended</source>
        <translation>La descarga ha terminado</translation>
    </message>
    <message>
        <source>It is no capture: its first line does not say so.</source>
        <translation>No es una captura: su primera línea no lo indica.</translation>
    </message>
    <message>
        <source>It was made by a newer version of the program (%1). Read it with that version.</source>
        <translation>La creó una versión más reciente del programa (%1). Léala con esa versión.</translation>
    </message>
    <message>
        <source>Its first line does not say when it began.</source>
        <translation>Su primera línea no indica cuándo empezó.</translation>
    </message>
    <message>
        <source>is no JSON object</source>
        <translation>no es un objeto JSON</translation>
    </message>
    <message>
        <source>does not say its time</source>
        <translation>no indica su hora</translation>
    </message>
    <message>
        <source>has characters that are no bytes</source>
        <translation>tiene caracteres que no son bytes</translation>
    </message>
    <message>
        <source>It is empty.</source>
        <translation>Está vacía.</translation>
    </message>
    <message>
        <source>It is no capture: its first line does not end.</source>
        <translation>No es una captura: su primera línea no termina.</translation>
    </message>
    <message>
        <source>Its line %1 is longer than any of a capture.</source>
        <translation>Su línea %1 es demasiado larga para una captura.</translation>
    </message>
    <message>
        <source>Its line %1 %2.</source>
        <translation>Su línea %1 %2.</translation>
    </message>
    <message>
        <source>The capture %1 cannot be read. %2</source>
        <translation>No se puede leer la captura %1. %2</translation>
    </message>
    <message>
        <source>It is no file.</source>
        <translation>No es un archivo.</translation>
    </message>
    <message>
        <source>The system says: %1.</source>
        <translation>El sistema indica: %1.</translation>
    </message>
    <message>
        <source>It is larger than any capture (64 MB).</source>
        <translation>Es mayor que cualquier captura (64 MB).</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>no es un archivo</translation>
    </message>
    <message>
        <source>%1 cannot be renamed</source>
        <translation>no se puede cambiar el nombre de %1</translation>
    </message>
    <message>
        <source>the older file of that name could not be kept (%1)</source>
        <translation>no se pudo conservar el archivo anterior de ese nombre (%1)</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2.

A file that was there before is unchanged. Choose another folder or make room on the disk, then save again.</source>
        <translation>No se pudo guardar %1: %2.

Si ya había un archivo, no ha cambiado. Elija otra carpeta o libere espacio en el disco y guarde de nuevo.</translation>
    </message>
    <message>
        <source>ORV Host Program</source>
        <translation>Programa ORV Host</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Desbordamiento</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Índice fuera de rango</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>División por cero</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Argumento no válido</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>No coinciden los tipos</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Error desconocido</translation>
    </message>
    <message>
        <source>%1: the operation ended with the error &quot;%2&quot;.

The program goes on and all data is kept.</source>
        <translation>%1: la operación terminó con el error «%2».

El programa sigue y se conservan todos los datos.</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 días</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>SELECT A COLOR</source>
        <translation>ELIJA UN COLOR</translation>
    </message>
    <message>
        <source>Add Instrument</source>
        <translation>Añadir instrumento</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Show Instrument</source>
        <translation>Mostrar instrumento</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vacía</translation>
    </message>
    <message>
        <source>Calc DP</source>
        <translation>Calcular DP</translation>
    </message>
    <message>
        <source>Save Cal Info</source>
        <translation>Guardar calibración</translation>
    </message>
    <message>
        <source>no control bit</source>
        <translation>ningún bit de control</translation>
    </message>
    <message>
        <source>; samples per point %1</source>
        <translation>; muestras por punto %1</translation>
    </message>
    <message>
        <source>, points per block %1</source>
        <translation>, puntos por bloque %1</translation>
    </message>
    <message>
        <source>, seconds between points %1</source>
        <translation>, segundos entre puntos %1</translation>
    </message>
    <message>
        <source>, hours before a block %1</source>
        <translation>, horas antes de un bloque %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>sin valor</translation>
    </message>
    <message>
        <source>Reset Shutter</source>
        <translation>Restablecer obturador</translation>
    </message>
    <message>
        <source>Getting Settings</source>
        <translation>Leyendo configuración</translation>
    </message>
    <message>
        <source>Sending New Settings</source>
        <translation>Enviando nueva configuración</translation>
    </message>
    <message>
        <source>Restoring Orignal Settings</source>
        <translation>Restaurando configuración</translation>
    </message>
    <message>
        <source>Moving Shutter</source>
        <translation>Moviendo obturador</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>The settings from before could not be sent back. The instrument may still hold the temporary settings (%1).

</source>
        <translation>No se pudo volver a enviar la configuración anterior. El instrumento puede conservar aún la configuración temporal (%1).

</translation>
    </message>
    <message>
        <source>The settings from before are on the settings screen again (%1). When the instrument answers, send them with &quot;Apply Settings&quot;.</source>
        <translation>La configuración anterior está otra vez en la pantalla de configuración (%1). Cuando el instrumento responda, envíela con «Enviar configuración».</translation>
    </message>
    <message>
        <source>The shutter reset was interrupted before the temporary settings were sent. The instrument still has its own settings.</source>
        <translation>El restablecimiento del obturador se interrumpió antes de enviar la configuración temporal. El instrumento conserva la suya.</translation>
    </message>
    <message>
        <source>The shutter reset was interrupted. The instrument may still hold the temporary settings (%1).

</source>
        <translation>El restablecimiento del obturador se interrumpió. El instrumento puede conservar aún la configuración temporal (%1).

</translation>
    </message>
    <message>
        <source>Its settings from before: %1.

When it is connected again, compare them with the settings screen, and send them with &quot;Apply Settings&quot; if they differ. This message can stay open meanwhile.</source>
        <translation>Su configuración anterior: %1.

Cuando vuelva a estar conectado, compárela con la pantalla de configuración y, si difiere, envíela con «Enviar configuración». Este mensaje puede quedar abierto mientras tanto.</translation>
    </message>
    <message>
        <source>Resetting Shutter</source>
        <translation>Restableciendo obturador</translation>
    </message>
    <message>
        <source>Air</source>
        <translation>Aire</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Agua limpia</translation>
    </message>
    <message>
        <source>Point 1</source>
        <translation>Punto 1</translation>
    </message>
    <message>
        <source>Point 2</source>
        <translation>Punto 2</translation>
    </message>
    <message>
        <source>Point 3</source>
        <translation>Punto 3</translation>
    </message>
    <message>
        <source>Point 4</source>
        <translation>Punto 4</translation>
    </message>
    <message>
        <source>&amp;Red</source>
        <translation>&amp;Rojo</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>A&amp;zul</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Verde</translation>
    </message>
    <message>
        <source>Worksheet</source>
        <translation>Hoja de trabajo</translation>
    </message>
    <message>
        <source>the netCDF library is missing. Install it (on Debian: apt install libnetcdf19), or choose a name that ends in .csv</source>
        <translation>falta la biblioteca netCDF. Instálela (en Debian: apt install libnetcdf19) o elija un nombre que termine en .csv</translation>
    </message>
    <message>
        <source>it is a folder or a device, not a file</source>
        <translation>es una carpeta o un dispositivo, no un archivo</translation>
    </message>
    <message>
        <source>a file of that name is there already</source>
        <translation>ya hay un archivo con ese nombre</translation>
    </message>
    <message>
        <source>a sheet holds at most %1 rows</source>
        <translation>una hoja admite como máximo %1 filas</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportar</translation>
    </message>
    <message>
        <source>CSV or NetCDF (*.csv *.nc)</source>
        <translation>CSV o NetCDF (*.csv *.nc)</translation>
    </message>
    <message>
        <source>The sheet could not be exported as %1: %2.

Its rows are still on the sheet.</source>
        <translation>No se pudo exportar la hoja como %1: %2.

Sus filas siguen en la hoja.</translation>
    </message>
    <message>
        <source>it has no known type of instrument</source>
        <translation>no tiene un tipo de instrumento conocido</translation>
    </message>
    <message>
        <source>choose a name that ends in .csv or .nc</source>
        <translation>elija un nombre que termine en .csv o .nc</translation>
    </message>
    <message>
        <source>%1 has been written.

%2</source>
        <translation>Se ha escrito %1.

%2</translation>
    </message>
    <message>
        <source>1 time could not be read and is missing.</source>
        <translation>1 hora no se pudo leer y queda vacía.</translation>
    </message>
    <message>
        <source>%1 times could not be read and are missing.</source>
        <translation>%1 horas no se pudieron leer y quedan vacías.</translation>
    </message>
    <message>
        <source>1 number could not be read and is missing.</source>
        <translation>1 número no se pudo leer y queda vacío.</translation>
    </message>
    <message>
        <source>%1 numbers could not be read and are missing.</source>
        <translation>%1 números no se pudieron leer y quedan vacíos.</translation>
    </message>
    <message>
        <source>1 value was not there and is missing.</source>
        <translation>1 valor no estaba y queda vacío.</translation>
    </message>
    <message>
        <source>%1 values were not there and are missing.</source>
        <translation>%1 valores no estaban y quedan vacíos.</translation>
    </message>
    <message>
        <source>1 line could not be read as a row and is left out.</source>
        <translation>1 línea no se pudo leer como fila y se omite.</translation>
    </message>
    <message>
        <source>%1 lines could not be read as rows and are left out.</source>
        <translation>%1 líneas no se pudieron leer como filas y se omiten.</translation>
    </message>
    <message>
        <source>1 record number is left out between rows.</source>
        <translation>Falta 1 número de registro entre las filas.</translation>
    </message>
    <message>
        <source>%1 record numbers are left out between rows.</source>
        <translation>Faltan %1 números de registro entre las filas.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is left out.</source>
        <translation>Se omite 1 fila de otro tipo de instrumento.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are left out.</source>
        <translation>Se omiten %1 filas de otro tipo de instrumento.</translation>
    </message>
    <message>
        <source>1 last reference of the older TRX has no column in a sheet file and is left out; .csv, .nc and .jsonl have one.</source>
        <translation>1 última referencia del TRX antiguo no tiene columna en un archivo de hoja y se omite; .csv, .nc y .jsonl tienen una.</translation>
    </message>
    <message>
        <source>%1 last references of the older TRX have no column in a sheet file and are left out; .csv, .nc and .jsonl have one.</source>
        <translation>%1 últimas referencias del TRX antiguo no tienen columna en un archivo de hoja y se omiten; .csv, .nc y .jsonl tienen una.</translation>
    </message>
    <message>
        <source>1 last line had no end and is left out.</source>
        <translation>1 última línea no tenía fin de línea y se omite.</translation>
    </message>
    <message>
        <source>%1 last lines had no end and are left out.</source>
        <translation>%1 últimas líneas no tenían fin de línea y se omiten.</translation>
    </message>
    <message>
        <source>%1 could not be opened.

%2</source>
        <translation>No se pudo abrir %1.

%2</translation>
    </message>
    <message>
        <source>The debug output (&quot;Comm 2 Debug Output&quot;) is using it. Connect the instrument to the other port, or clear the box.</source>
        <translation>La salida de depuración («Salida de depuración COM 2») lo usa. Conecte el instrumento al otro puerto o desmarque la casilla.</translation>
    </message>
    <message>
        <source>The connection on %1 was lost.

%2

</source>
        <translation>Se perdió la conexión en %1.

%2

</translation>
    </message>
    <message>
        <source>All rows received so far are kept. Check the cable, then connect again.</source>
        <translation>Se conservan todas las filas recibidas. Revise el cable y conecte de nuevo.</translation>
    </message>
    <message>
        <source>The instrument is connected on it. Use &quot;Close Port&quot; first, or connect the instrument to COM 1.</source>
        <translation>El instrumento está conectado en él. Use primero «Cerrar puerto» o conecte el instrumento a COM 1.</translation>
    </message>
    <message>
        <source>tick &quot;Comm 2 Debug Output&quot; again</source>
        <translation>marque otra vez «Salida de depuración COM 2»</translation>
    </message>
    <message>
        <source>The debug output on %1</source>
        <translation>la salida de depuración en %1</translation>
    </message>
    <message>
        <source>The debug output on COM 2 has stopped.

%1

Tick &quot;Comm 2 Debug Output&quot; to try again.</source>
        <translation>La salida de depuración en COM 2 se ha detenido.

%1

Marque «Salida de depuración COM 2» para intentarlo otra vez.</translation>
    </message>
    <message>
        <source>%1 was lost. Check the cable, then press Connect.</source>
        <translation>Se perdió la conexión en %1. Revise el cable y pulse «Conectar».</translation>
    </message>
    <message>
        <source>Auto Connect Comm 1</source>
        <translation>Conexión automática COM 1</translation>
    </message>
    <message>
        <source>Auto Connect Comm 2</source>
        <translation>Conexión automática COM 2</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Conectando…</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Sin conexión</translation>
    </message>
    <message>
        <source>No answer from COM %1</source>
        <translation>COM %1 no responde</translation>
    </message>
    <message>
        <source>No answer from %1 within %2 s. Check power and cable, press Quit, connect again.</source>
        <translation>%1 no ha respondido en %2 s. Revise la alimentación y el cable, pulse «Cancelar» y conecte de nuevo.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>To start manual connection on Comm %1, click Proceed. If you wish to exit connection proccess click Quit</source>
        <translation>Para iniciar la conexión manual en COM %1, pulse «Continuar». Para abandonarla, pulse «Cancelar».</translation>
    </message>
    <message>
        <source>Attempt to Auto Connect Via Comm %1 Failed!      Make sure that this cable is DTR enabled, that power is supplied to the instrument, and that you selected the right Comm Port. Click Retry when ready.</source>
        <translation>¡La conexión automática en COM %1 ha fallado!      Compruebe que el cable lleva DTR, que el instrumento tiene alimentación y que el puerto es el correcto. Después pulse «Reintentar».</translation>
    </message>
    <message>
        <source>An attempt is under way.</source>
        <translation>Hay un intento en curso.</translation>
    </message>
    <message>
        <source>The port is still open, so this would do nothing. Press Quit, then connect again.</source>
        <translation>El puerto sigue abierto, así que esto no haría nada. Pulse «Cancelar» y conecte de nuevo.</translation>
    </message>
    <message>
        <source>Shut power off of sensor. Press (Start) then turn power on.</source>
        <translation>Apague el sensor. Pulse «Iniciar» y encienda el sensor.</translation>
    </message>
    <message>
        <source>Manual Connect</source>
        <translation>Conexión manual</translation>
    </message>
    <message>
        <source>Waiting for the instrument. &quot;Quit&quot; in the dialog ends it.</source>
        <translation>Esperando al instrumento. «Cancelar» en el diálogo termina la espera.</translation>
    </message>
    <message>
        <source>%1 is a file that this program writes itself while it runs, so nothing can be saved there.

Save again under another name.</source>
        <translation>%1 es un archivo que el propio programa escribe mientras funciona; no se puede guardar ahí.

Guarde con otro nombre.</translation>
    </message>
    <message>
        <source>The log file %1 can no longer be written: %2.

The program goes on; make room on the disk so that the log is complete again.</source>
        <translation>El archivo de log %1 ya no se puede escribir: %2.

El programa sigue; libere espacio en el disco para que el log vuelva a estar completo.</translation>
    </message>
    <message>
        <source>The log file %1 has become long and goes on in a new file. What was received before is in %2.

From now on this is done without a word, and only the newest of the older files is kept. Copy them if you need more.</source>
        <translation>El archivo de log %1 se ha hecho muy largo y sigue en un archivo nuevo. Lo recibido antes está en %2.

A partir de ahora esto se hará sin avisar y solo se conservará el más reciente de los archivos anteriores. Cópielos si necesita más.</translation>
    </message>
    <message>
        <source>The log file %1 has become long, and no new one could be begun: %2.

The program goes on. Make room in the folder, and start the program again when you can.</source>
        <translation>El archivo de log %1 se ha hecho muy largo y no se pudo empezar otro: %2.

El programa sigue. Libere espacio en la carpeta y reinicie el programa cuando pueda.</translation>
    </message>
    <message>
        <source>connect again</source>
        <translation>conecte de nuevo</translation>
    </message>
    <message>
        <source>The debug output uses COM %1. Clear &quot;Comm 2 Debug Output&quot; on the debug screen to free it.</source>
        <translation>La salida de depuración usa COM %1. Desmarque «Salida de depuración COM 2» en la pantalla de depuración para liberarlo.</translation>
    </message>
    <message>
        <source>Simulated instrument on %1</source>
        <translation>Instrumento simulado en %1</translation>
    </message>
    <message>
        <source>Simulated instruments on COM 1 and COM 2</source>
        <translation>Instrumentos simulados en COM 1 y COM 2</translation>
    </message>
    <message>
        <source>%1 is not there now. Plug it in, or choose another port.</source>
        <translation>%1 no está disponible ahora. Enchúfelo o elija otro puerto.</translation>
    </message>
    <message>
        <source>simulated scattering meter</source>
        <translation>medidor de dispersión simulado</translation>
    </message>
    <message>
        <source>simulated fluorometer</source>
        <translation>fluorómetro simulado</translation>
    </message>
    <message>
        <source>COM %1 is set to %2 already. Choose another device here, or change COM %1 first.</source>
        <translation>COM %1 ya usa %2. Elija aquí otro dispositivo o cambie antes COM %1.</translation>
    </message>
    <message>
        <source>%1 COM %2 stays %3.</source>
        <translation>%1 COM %2 sigue con %3.</translation>
    </message>
    <message>
        <source>%1 has ended: %2.

</source>
        <translation>%1 ha terminado: %2.

</translation>
    </message>
    <message>
        <source>Save the sheet and start the program again.</source>
        <translation>Guarde la hoja y reinicie el programa.</translation>
    </message>
    <message>
        <source>There is no such device. Plug the adapter in, check the device&apos;s name, and connect again.</source>
        <translation>No existe ese dispositivo. Enchufe el adaptador, revise el nombre del dispositivo y conecte de nuevo.</translation>
    </message>
    <message>
        <source>It is not a serial port. Choose the device of the serial adapter and connect again.</source>
        <translation>No es un puerto serie. Elija el dispositivo del adaptador serie y conecte de nuevo.</translation>
    </message>
    <message>
        <source>You have no permission to use it. Ask for your user to be added to the group &quot;%1&quot; (sudo usermod -aG %1 $USER), log out and in again, then connect again.</source>
        <translation>No tiene permiso para usarlo. Pida que añadan su usuario al grupo «%1» (sudo usermod -aG %1 $USER), cierre la sesión, entre otra vez y conecte de nuevo.</translation>
    </message>
    <message>
        <source>It is used by another program%1. Close that program, then connect again.</source>
        <translation>Lo usa otro programa%1. Cierre ese programa y conecte de nuevo.</translation>
    </message>
    <message>
        <source>The lock file that keeps other programs off the port cannot be written in %1. Ask for write permission to that folder, log out and in again, then connect again.</source>
        <translation>El archivo de bloqueo que impide a otros programas usar el puerto no se puede escribir en %1. Pida permiso de escritura en esa carpeta, cierre la sesión, entre otra vez y conecte de nuevo.</translation>
    </message>
    <message>
        <source>The system says: %1. Unplug the adapter and plug it in again, then connect again.</source>
        <translation>El sistema indica: %1. Desenchufe el adaptador, vuelva a enchufarlo y conecte de nuevo.</translation>
    </message>
    <message>
        <source>process %1</source>
        <translation>proceso %1</translation>
    </message>
    <message>
        <source>The device is gone: the cable was pulled or the adapter switched off.</source>
        <translation>El dispositivo ya no está: se desenchufó el cable o se apagó el adaptador.</translation>
    </message>
    <message>
        <source>The capture has ended: %1 cannot be written any further: %2.

What was captured before is kept, and the program goes on. Make room on the disk and start it again to capture on.</source>
        <translation>La captura ha terminado: %1 no se puede seguir escribiendo: %2.

Lo capturado antes se conserva y el programa sigue. Libere espacio en el disco y reinicie el programa para seguir capturando.</translation>
    </message>
    <message>
        <source>the program keeps that file itself</source>
        <translation>el propio programa usa ese archivo</translation>
    </message>
    <message>
        <source>Nothing is captured: %1 cannot be written: %2.

The program goes on without. Name a file in a folder where you may write, and start it again.</source>
        <translation>No se captura nada: %1 no se puede escribir: %2.

El programa sigue sin captura. Indique un archivo en una carpeta donde pueda escribir y reinicie el programa.</translation>
    </message>
    <message>
        <source>Save Support File</source>
        <translation>Guardar archivo de soporte</translation>
    </message>
    <message>
        <source>%1 tells what went over the line and what was done in the last ten minutes. Send it along when you ask for help. It can be read as text; your own files are not in it.</source>
        <translation>%1 contiene lo que pasó por la línea y lo que se hizo en los últimos diez minutos. Envíelo cuando pida ayuda. Se puede leer como texto; sus propios archivos no están en él.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no device. Give a serial port&apos;s name or path (ttyUSB0, /dev/ttyUSB0, COM3) or a simulated instrument (sim:trx, sim:glow).</source>
        <translation>«%1» no es un dispositivo. Indique el nombre o la ruta de un puerto serie (ttyUSB0, /dev/ttyUSB0, COM3) o un instrumento simulado (sim:trx, sim:glow).</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 fila</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 filas</translation>
    </message>
    <message>
        <source>Switch the instrument&apos;s power on.</source>
        <translation>Encienda el instrumento.</translation>
    </message>
    <message>
        <source>Waking the instrument on COM %1 (%2). This takes a few seconds.</source>
        <translation>Despertando el instrumento en COM %1 (%2). Tarda unos segundos.</translation>
    </message>
    <message>
        <source>Collecting. Reset ends the run.</source>
        <translation>Midiendo. «Restablecer» termina la medición.</translation>
    </message>
    <message>
        <source>%1. Reset ends the run.</source>
        <translation>%1. «Restablecer» termina la medición.</translation>
    </message>
    <message>
        <source> Only %1.</source>
        <translation> Solo %1.</translation>
    </message>
    <message>
        <source>Reading the instrument&apos;s settings.</source>
        <translation>Leyendo la configuración del instrumento.</translation>
    </message>
    <message>
        <source>Downloading. Reset stops it; what has arrived is kept.</source>
        <translation>Descargando. «Restablecer» detiene la descarga; lo que ha llegado se conserva.</translation>
    </message>
    <message>
        <source>Sending the settings.</source>
        <translation>Enviando la configuración.</translation>
    </message>
    <message>
        <source>Setting the instrument&apos;s clock.</source>
        <translation>Poniendo en hora el reloj del instrumento.</translation>
    </message>
    <message>
        <source>Moving the shutter.</source>
        <translation>Moviendo el obturador.</translation>
    </message>
    <message>
        <source>%1, not saved. Save As is on the page Output: Spread Sheet.</source>
        <translation>%1 sin guardar. «Guardar como» está en la página «Salida: hoja de cálculo».</translation>
    </message>
    <message>
        <source>Plug in an adapter, or choose a port and press Connect.</source>
        <translation>Enchufe un adaptador, o elija un puerto y pulse «Conectar».</translation>
    </message>
    <message>
        <source>Choose a port and press Connect.</source>
        <translation>Elija un puerto y pulse «Conectar».</translation>
    </message>
    <message>
        <source>The instrument has not said what it is. Press Reset to ask again.</source>
        <translation>El instrumento no se ha identificado. Pulse «Restablecer» para preguntar otra vez.</translation>
    </message>
    <message>
        <source>Press Run to collect. Reset ends a run.</source>
        <translation>Pulse «Medir» para empezar. «Restablecer» termina la medición.</translation>
    </message>
    <message>
        <source>A question waits for your answer.</source>
        <translation>Una pregunta espera su respuesta.</translation>
    </message>
    <message>
        <source>The dialog Manual Connection says how to go on.</source>
        <translation>El diálogo «Conexión manual» indica cómo seguir.</translation>
    </message>
    <message>
        <source>Status and Controls</source>
        <translation>Estado y controles</translation>
    </message>
    <message>
        <source>Output: Spread Sheet</source>
        <translation>Salida: hoja de cálculo</translation>
    </message>
    <message>
        <source>Output: Graphical</source>
        <translation>Salida: curvas</translation>
    </message>
    <message>
        <source>Debug Screen</source>
        <translation>Pantalla de depuración</translation>
    </message>
    <message>
        <source>Testing</source>
        <translation>Pruebas</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Calibración</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Close Port</source>
        <translation>Cerrar puerto</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Medir</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Borrar todo</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Recuperar</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Download Stored Data</source>
        <translation>Descargar datos almacenados</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>The rows on the sheet are not saved, and could not be kept for the next start either: %1.</source>
        <translation>Las filas de la hoja no están guardadas ni se pudieron conservar para el próximo inicio: %1.</translation>
    </message>
    <message>
        <source>Reading the port</source>
        <translation>Lectura del puerto</translation>
    </message>
    <message>
        <source>Reading the settings</source>
        <translation>Lectura de la configuración</translation>
    </message>
    <message>
        <source>Reading the clock</source>
        <translation>Lectura del reloj</translation>
    </message>
    <message>
        <source>Collecting</source>
        <translation>Medición</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Descarga</translation>
    </message>
    <message>
        <source>%1 rows/s</source>
        <translation>%1 filas/s</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>quedan %1</translation>
    </message>
    <message>
        <source>No row for %1</source>
        <translation>Ninguna fila desde hace %1</translation>
    </message>
    <message>
        <source>%1 MB are free on the disk</source>
        <translation>%1 MB libres en el disco</translation>
    </message>
    <message>
        <source>No lock file can be made in this folder, perhaps because the disk is full: %1

So that no other program&apos;s files are written to, this program works without log and record file. Make room on the disk, or choose another folder, and start the program again.</source>
        <translation>No se puede crear un archivo de bloqueo en esta carpeta, quizá porque el disco está lleno: %1

Para no escribir en archivos de otros programas, este funciona sin log ni archivo de medición. Libere espacio en el disco o elija otra carpeta y reinicie el programa.</translation>
    </message>
    <message>
        <source>This program works without such files. Start it in another folder, so that log and record file are kept.</source>
        <translation>El programa funciona sin esos archivos. Inícielo en otra carpeta para tener log y archivo de medición.</translation>
    </message>
    <message>
        <source>This program writes %1 and %2 instead.</source>
        <translation>Este programa escribe %1 y %2 en su lugar.</translation>
    </message>
    <message>
        <source>Another ORV Host Program uses this folder (%1): %2

Its log and record file are left alone. %3</source>
        <translation>Otro programa ORV Host usa esta carpeta (%1): %2

Su log y su archivo de medición no se tocan. %3</translation>
    </message>
    <message>
        <source>The log file %1 cannot be written in this folder: %2.

The program works without it. Start it in a folder where you may write files, so that log and record file are kept.</source>
        <translation>El archivo de log %1 no se puede escribir en esta carpeta: %2.

El programa funciona sin él. Inícielo en una carpeta donde pueda escribir para tener log y archivo de medición.</translation>
    </message>
    <message>
        <source>Load Device File</source>
        <translation>Cargar archivo de dispositivo</translation>
    </message>
    <message>
        <source>Save Device File</source>
        <translation>Guardar archivo de dispositivo</translation>
    </message>
    <message>
        <source>Auto &amp;Start</source>
        <translation>&amp;Inicio automático</translation>
    </message>
    <message>
        <source>Auto Start: This tells the logger to start collecting data at power up.</source>
        <translation>Inicio automático: el registrador empieza a tomar datos al encenderse.</translation>
    </message>
    <message>
        <source>&amp;Gain</source>
        <translation>&amp;Ganancia</translation>
    </message>
    <message>
        <source>Function not available</source>
        <translation>Función no disponible</translation>
    </message>
    <message>
        <source>Aux A&amp;DC</source>
        <translation>Aux A&amp;DC</translation>
    </message>
    <message>
        <source>&amp;Log Enabled</source>
        <translation>Gra&amp;bar</translation>
    </message>
    <message>
        <source>Log Enabled: This tells the logger to record data in memory</source>
        <translation>Grabar: el registrador guarda los datos en memoria</translation>
    </message>
    <message>
        <source>&amp;Wake Up</source>
        <translation>Desper&amp;tar</translation>
    </message>
    <message>
        <source>Wake Up: This tells the logger to sleep after gathering a data block or stay ready to accept a command.</source>
        <translation>Despertar: tras un bloque de datos el registrador queda listo para una orden. Sin marcar, duerme.</translation>
    </message>
    <message>
        <source>App&amp;end</source>
        <translation>&amp;Añadir</translation>
    </message>
    <message>
        <source>Append: This tells the logger to add new data blocks to the end of memory. If this is not set, all pervious data blocks will be erased.</source>
        <translation>Añadir: el registrador pone los bloques nuevos al final de la memoria. Si no, se borran todos los bloques anteriores.</translation>
    </message>
    <message>
        <source>Samples Per &amp;Second</source>
        <translation>Mue&amp;stras por punto</translation>
    </message>
    <message>
        <source>This tells the logger to grab X number of samples and average then to determine one data point.</source>
        <translation>El registrador toma ese número de muestras y las promedia en un punto de datos.</translation>
    </message>
    <message>
        <source>Delay &amp;Before Data Blocks (hours)</source>
        <translation>Pausa &amp;antes de bloques (horas)</translation>
    </message>
    <message>
        <source>This is the amount of time in hours that the logger will wait before collecting a data block. For example: A value of 24 is 1 data block per 24 hours.</source>
        <translation>Horas que el registrador espera antes de tomar un bloque de datos. Ejemplo: 24 es 1 bloque cada 24 horas.</translation>
    </message>
    <message>
        <source>&amp;Number of Data Points per Data Block</source>
        <translation>&amp;Número de puntos por bloque de datos</translation>
    </message>
    <message>
        <source>Delay Between Data &amp;Points (Seconds)</source>
        <translation>Pausa entre &amp;puntos (segundos)</translation>
    </message>
    <message>
        <source>on</source>
        <translation>activado</translation>
    </message>
    <message>
        <source>off</source>
        <translation>desactivado</translation>
    </message>
    <message>
        <source>is not a complete mode file: it has fewer than ten lines</source>
        <translation>no es un archivo de modo completo: tiene menos de diez líneas</translation>
    </message>
    <message>
        <source>is not a mode file: line %1 must be empty or hold at most %2 digits</source>
        <translation>no es un archivo de modo: la línea %1 debe estar vacía o tener como máximo %2 cifras</translation>
    </message>
    <message>
        <source>is not a mode file: line %1 must hold a number</source>
        <translation>no es un archivo de modo: la línea %1 debe tener un número</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Perfil</translation>
    </message>
    <message>
        <source>Moored</source>
        <translation>Fondeo</translation>
    </message>
    <message>
        <source>Save A User Defined Mode</source>
        <translation>Guardar modo propio</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Guardado como %1.</translation>
    </message>
    <message>
        <source>%1 could not be written; nothing was saved.</source>
        <translation>No se pudo escribir %1; no se guardó nada.</translation>
    </message>
    <message>
        <source>Load A User Defined Mode</source>
        <translation>Cargar modo propio</translation>
    </message>
    <message>
        <source>%1 was not loaded: the instrument is busy. Try again.</source>
        <translation>%1 no se cargó: el instrumento está ocupado. Inténtelo otra vez.</translation>
    </message>
    <message>
        <source>The mode file %1 could not be opened: %2.</source>
        <translation>No se pudo abrir el archivo de modo %1: %2.</translation>
    </message>
    <message>
        <source>The mode file %1 could not be read: %2.</source>
        <translation>No se pudo leer el archivo de modo %1: %2.</translation>
    </message>
    <message>
        <source>Loaded %1.</source>
        <translation>%1 cargado.</translation>
    </message>
    <message>
        <source>Sending %1...</source>
        <translation>Enviando %1…</translation>
    </message>
    <message>
        <source>%1 was not sent whole: the connection ended.</source>
        <translation>%1 no se envió por completo: la conexión terminó.</translation>
    </message>
    <message>
        <source>%1 was sent.</source>
        <translation>%1 enviado.</translation>
    </message>
    <message>
        <source>%1 was not sent whole: the instrument did not answer. Try again.</source>
        <translation>%1 no se envió por completo: el instrumento no respondió. Inténtelo otra vez.</translation>
    </message>
    <message>
        <source>

Nothing was changed and nothing was sent.</source>
        <translation>

No se cambió ni se envió nada.</translation>
    </message>
    <message>
        <source> half a second</source>
        <translation> medio segundo</translation>
    </message>
    <message>
        <source> an hour</source>
        <translation> una hora</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 horas</translation>
    </message>
    <message>
        <source>Then the sensor will sleep for %1 hour(s), %2 minute(s), %3 second(s).</source>
        <translation>Después el sensor duerme%1 h%2 min%3 s.</translation>
    </message>
    <message>
        <source>     The Orv Sensor will start to collect data % after power up</source>
        <translation>El sensor Orv empieza a medir% después de encenderse.</translation>
    </message>
    <message>
        <source>     The Orv Sensor will come up waiting for a command.</source>
        <translation>El sensor Orv espera una orden después de encenderse.</translation>
    </message>
    <message>
        <source>If you press run, it will start to collect data% after you press run.</source>
        <translation>Si pulsa «Medir», empieza a medir% después.</translation>
    </message>
    <message>
        <source>It will bin for % sample(s) to create 1 data point.</source>
        <translation>Muestras que promedia en 1 punto de datos: %.</translation>
    </message>
    <message>
        <source>After this it wakes up and takes another data point. The process</source>
        <translation>Después despierta y toma otro punto de datos.</translation>
    </message>
    <message>
        <source>continues until power is shut off. All of the data collected is known as the data block</source>
        <translation>Esto se repite hasta que se apaga. Todos los datos tomados forman el bloque de datos.</translation>
    </message>
    <message>
        <source>The data point displayed will be saved in memory.</source>
        <translation>El punto de datos mostrado se guarda en memoria.</translation>
    </message>
    <message>
        <source>The data point displayed will not be saved in memory.</source>
        <translation>El punto de datos mostrado no se guarda en memoria.</translation>
    </message>
    <message>
        <source>continues for % data points to create 1 data block.</source>
        <translation>Esto se repite hasta completar 1 bloque de datos (puntos: %).</translation>
    </message>
    <message>
        <source>After finishing a data block, the sensor will wait for new commands.</source>
        <translation>Tras un bloque de datos el sensor espera nuevas órdenes.</translation>
    </message>
    <message>
        <source>After finishing a data block, the sensor will sleep until power is cycled.</source>
        <translation>Tras un bloque de datos el sensor duerme hasta que se apaga y se enciende.</translation>
    </message>
    <message>
        <source>If you decide to take another data block, data in memory will be %.</source>
        <translation>Si toma otro bloque de datos, los datos en memoria se %.</translation>
    </message>
    <message>
        <source>appended</source>
        <translation>ampliarán</translation>
    </message>
    <message>
        <source>erased</source>
        <translation>borrarán</translation>
    </message>
    <message>
        <source>Loading Properties</source>
        <translation>Leyendo configuración</translation>
    </message>
    <message>
        <source>Read from the instrument at %1</source>
        <translation>Leído del instrumento a las %1</translation>
    </message>
    <message>
        <source>Read at %1, but not all: %2 could not be read. Press &quot;Retrieve Settings&quot;.</source>
        <translation>Leído a las %1, pero no todo: no se pudo leer %2. Pulse «Leer configuración».</translation>
    </message>
    <message>
        <source>%1 could not be read back</source>
        <translation>%1 no se pudo volver a leer</translation>
    </message>
    <message>
        <source>%1 is %2 there, not %3</source>
        <translation>%1 tiene allí el valor %2, no %3</translation>
    </message>
    <message>
        <source>Sent and read back at %1</source>
        <translation>Enviado y vuelto a leer a las %1</translation>
    </message>
    <message>
        <source>No answer for 10 s. Reset connects again.</source>
        <translation>Sin respuesta desde hace 10 s. «Restablecer» conecta de nuevo.</translation>
    </message>
    <message>
        <source>This was the 150th line of settings reports since the program started. There it ends the connection, once. Nothing is wrong: press Quit and connect again.</source>
        <translation>Esta fue la línea 150 de informes de configuración desde el inicio del programa. Ahí el programa termina la conexión, una sola vez. No hay ningún fallo: pulse «Cancelar» y conecte de nuevo.</translation>
    </message>
    <message>
        <source>%1 behind this computer&apos;s</source>
        <translation>%1 atrasado respecto a este equipo</translation>
    </message>
    <message>
        <source>%1 ahead of this computer&apos;s</source>
        <translation>%1 adelantado respecto a este equipo</translation>
    </message>
    <message>
        <source>Unable to read clock. Error #2</source>
        <translation>No se puede leer el reloj. Error n.º 2</translation>
    </message>
    <message>
        <source>Software Error</source>
        <translation>Error de software</translation>
    </message>
    <message>
        <source>Sending ...</source>
        <translation>Enviando…</translation>
    </message>
    <message>
        <source>Not sent whole: the instrument did not answer. What was sent before stays in it. Connect or press &quot;Retrieve Settings&quot; to see what it has.</source>
        <translation>No se envió por completo: el instrumento no respondió. Lo enviado antes queda en él. Conecte o pulse «Leer configuración» para ver lo que tiene.</translation>
    </message>
    <message>
        <source>Sent, and not read back yet</source>
        <translation>Enviado y aún no vuelto a leer</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set to the minute and is %1 behind: the command carries no seconds.</source>
        <translation>El reloj del instrumento se ajustó al minuto y está %1 atrasado: la orden no lleva segundos.</translation>
    </message>
    <message>
        <source>Sent, but the clock was not set and nothing was read back: the instrument did not answer. Press &quot;Retrieve Settings&quot; to see what it has.</source>
        <translation>Enviado, pero el reloj no se puso en hora ni se volvió a leer nada: el instrumento no respondió. Pulse «Leer configuración» para ver lo que tiene.</translation>
    </message>
    <message>
        <source>Error Sending Prefs. Error Code 1</source>
        <translation>Error al enviar la configuración. Código de error 1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Logging and Continues Sampling invalid.</source>
        <translation>Para grabar, el bloque de datos debe tener fin. Ponga de 1 a 65535 en «Número de puntos por bloque de datos» o desmarque «Grabar». No se envió nada.</translation>
    </message>
    <message>
        <source>Invalid Setup</source>
        <translation>Configuración no válida</translation>
    </message>
    <message>
        <source>Apply Settings</source>
        <translation>Enviar configuración</translation>
    </message>
    <message>
        <source>Sync Time/Date</source>
        <translation>Sincronizar fecha/hora</translation>
    </message>
    <message>
        <source>The instrument did not say what it is. Connect again.</source>
        <translation>El instrumento no se ha identificado. Conecte de nuevo.</translation>
    </message>
    <message>
        <source>1 record</source>
        <translation>1 registro</translation>
    </message>
    <message>
        <source>%1 records</source>
        <translation>%1 registros</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>Nothing was asked of the instrument.</source>
        <translation>No se pidió nada al instrumento.</translation>
    </message>
    <message>
        <source>Make room or choose another folder, and download it again.</source>
        <translation>Libere espacio o elija otra carpeta y descárguelos otra vez.</translation>
    </message>
    <message>
        <source>Saving Sheet</source>
        <translation>Guardando en archivo</translation>
    </message>
    <message>
        <source>Exporting Memory</source>
        <translation>Descargando memoria</translation>
    </message>
    <message>
        <source>No data for 10 s. Reset stops the download.</source>
        <translation>Sin datos desde hace 10 s. «Restablecer» detiene la descarga.</translation>
    </message>
    <message>
        <source>Bytes Downloaded</source>
        <translation>Bytes descargados</translation>
    </message>
    <message>
        <source>It holds %1.</source>
        <translation>Contiene %1.</translation>
    </message>
    <message>
        <source>Press Reset, make room or choose another folder, and download it again.</source>
        <translation>Pulse «Restablecer», libere espacio o elija otra carpeta y descárguelos otra vez.</translation>
    </message>
    <message>
        <source>Bytes DownLoaded</source>
        <translation>Bytes descargados</translation>
    </message>
    <message>
        <source>It may not have everything.</source>
        <translation>Quizá no lo tenga todo.</translation>
    </message>
    <message>
        <source>1 record could not be read; it is in %1</source>
        <translation>No se pudo leer 1 registro; está en %1</translation>
    </message>
    <message>
        <source>%1 records could not be read; they are in %2</source>
        <translation>No se pudieron leer %1 registros; están en %2</translation>
    </message>
    <message>
        <source>Download stopped</source>
        <translation>Descarga detenida</translation>
    </message>
    <message>
        <source> %1 arrived and can be found on the sheet.</source>
        <translation> Recibido en la hoja: %1.</translation>
    </message>
    <message>
        <source> %1 arrived and can be found in %2.</source>
        <translation> Recibido en %2: %1.</translation>
    </message>
    <message>
        <source> %1 arrived and can be found on the sheet and in the files that were saved automatically.</source>
        <translation> Recibido en la hoja y en los archivos guardados automáticamente: %1.</translation>
    </message>
    <message>
        <source> What was saved automatically stays.</source>
        <translation> Lo guardado automáticamente se conserva.</translation>
    </message>
    <message>
        <source> The next start offers what is on the sheet.</source>
        <translation> El próximo inicio ofrece lo que hay en la hoja.</translation>
    </message>
    <message>
        <source> %1 could not be read; %2 has what was received.</source>
        <translation> No se ha podido leer: %1; %2 tiene lo recibido.</translation>
    </message>
    <message>
        <source>The download is incomplete: it was ended before the instrument had sent everything.%1%2

The instrument still holds its data; download it again.</source>
        <translation>La descarga está incompleta: terminó antes de que el instrumento lo enviara todo.%1%2

El instrumento conserva sus datos; descárguelos otra vez.</translation>
    </message>
    <message>
        <source>The stored data cannot be written to %1: %2.

%3 The instrument still holds its data. </source>
        <translation>Los datos almacenados no se pueden escribir en %1: %2.

%3 El instrumento conserva sus datos. </translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Midiendo</translation>
    </message>
    <message>
        <source>1 line could not be read; it is in %1</source>
        <translation>No se pudo leer 1 línea; está en %1</translation>
    </message>
    <message>
        <source>%1 lines could not be read; they are in %2</source>
        <translation>No se pudieron leer %1 líneas; están en %2</translation>
    </message>
    <message>
        <source>The record file %1 cannot be written: %2.

The run goes on and every row is on the sheet. Save the sheet when the run has ended.</source>
        <translation>El archivo de medición %1 no se puede escribir: %2.

La medición sigue y todas las filas están en la hoja. Guarde la hoja cuando termine.</translation>
    </message>
    <message>
        <source>The last line was cut off and has been left out.</source>
        <translation>La última línea estaba cortada y se ha omitido.</translation>
    </message>
    <message>
        <source>1 line could not be read and was left out.</source>
        <translation>No se pudo leer 1 línea y se ha omitido.</translation>
    </message>
    <message>
        <source>%1 lines could not be read and were left out.</source>
        <translation>No se pudieron leer %1 líneas y se han omitido.</translation>
    </message>
    <message>
        <source>The numbers of the rows have gaps: 1 row is missing in the record file.</source>
        <translation>Los números de las filas tienen huecos: falta 1 fila en el archivo de medición.</translation>
    </message>
    <message>
        <source>The numbers of the rows have gaps: %1 rows are missing in the record file.</source>
        <translation>Los números de las filas tienen huecos: faltan %1 filas en el archivo de medición.</translation>
    </message>
    <message>
        <source>The sheet was saved or cleared during the run; rows from before that are left out.</source>
        <translation>La hoja se guardó o se borró durante la medición; las filas anteriores se omiten.</translation>
    </message>
    <message>
        <source>The instrument&apos;s type was told by the rows; the sheet says %1 with firmware %2.</source>
        <translation>El tipo del instrumento se dedujo de las filas; la hoja indica %1 con firmware %2.</translation>
    </message>
    <message>
        <source>The run began with row %1. If the rows before it were of a run too and not saved, they are in a file of this folder named with date and time.</source>
        <translation>La medición empezó con la fila %1. Si las filas anteriores eran también de una medición sin guardar, están en un archivo de esta carpeta con fecha y hora en el nombre.</translation>
    </message>
    <message>
        <source>The last run in this folder did not end, and its record file %1 cannot be read: %2.

It stays as it is. Its rows are offered again at the next start.</source>
        <translation>La última medición en esta carpeta no terminó, y su archivo de medición %1 no se puede leer: %2.

Se queda como está. Sus filas se ofrecen otra vez en el próximo inicio.</translation>
    </message>
    <message>
        <source>The last run in this folder did not end, and its record file has no row that can be read. </source>
        <translation>La última medición en esta carpeta no terminó, y su archivo de medición no tiene ninguna fila legible. </translation>
    </message>
    <message>
        <source>The last run in this folder did not end. Load its %1 into the sheet?</source>
        <translation>La última medición en esta carpeta no terminó. ¿Cargar sus datos (%1) en la hoja?</translation>
    </message>
    <message>
        <source>The rows of the last run are on the sheet.

%1

Nothing is lost: the record file %2 has everything.%3</source>
        <translation>Las filas de la última medición están en la hoja.

%1

No se pierde nada: el archivo de medición %2 lo tiene todo.%3</translation>
    </message>
    <message>
        <source> The next run keeps it under a name with date and time.</source>
        <translation> La próxima medición lo conserva con fecha y hora en el nombre.</translation>
    </message>
    <message>
        <source>The record file of the last run is kept as %1.</source>
        <translation>El archivo de la última medición se conserva como %1.</translation>
    </message>
    <message>
        <source>The record file %1 could not be kept under a name with date and time: %2.

It stays as it is, and no run will overwrite it. Move it yourself.</source>
        <translation>El archivo de medición %1 no se pudo conservar con fecha y hora en el nombre: %2.

Se queda como está y ninguna medición lo sobrescribe. Muévalo usted.</translation>
    </message>
    <message>
        <source>The record file %1 has it; the next run keeps that file under a name with date and time.</source>
        <translation>El archivo de medición %1 la tiene; la próxima medición conserva ese archivo con fecha y hora en el nombre.</translation>
    </message>
    <message>
        <source>Of stored data, &quot;Download Stored Data: Save as Text&quot; writes it.</source>
        <translation>De los datos almacenados la escribe «Descargar datos: guardar como texto».</translation>
    </message>
    <message>
        <source>A sheet file has no column for the last reference of the older TRX.

%1</source>
        <translation>Un archivo de hoja no tiene columna para la última referencia del TRX antiguo.

%1</translation>
    </message>
    <message>
        <source>The sheet still holds unsaved rows of the %1. Save or clear them first.</source>
        <translation>La hoja tiene aún filas sin guardar del %1. Guárdelas o bórrelas antes.</translation>
    </message>
    <message>
        <source>There is nothing to save: the sheet has no known type of instrument. Connect an instrument or open a sheet first.</source>
        <translation>No hay nada que guardar: la hoja no tiene un tipo de instrumento conocido. Conecte antes un instrumento o abra una hoja.</translation>
    </message>
    <message>
        <source> The file of that name is kept under a name with date and time.</source>
        <translation> El archivo de ese nombre se conserva con fecha y hora en el nombre.</translation>
    </message>
    <message>
        <source>While you chose a name the sheet became long and was saved by itself: %1.

%2 has the rows since.%3</source>
        <translation>Mientras elegía un nombre, la hoja se hizo muy larga y se guardó automáticamente: %1.

%2 tiene las filas desde entonces.%3</translation>
    </message>
    <message>
        <source>rows 1 to %1 as %2</source>
        <translation>filas 1 a %1 como %2</translation>
    </message>
    <message>
        <source>Save Data</source>
        <translation>Guardar datos</translation>
    </message>
    <message>
        <source>%1 could not be opened.

%2

The sheet is as it was.</source>
        <translation>No se pudo abrir %1.

%2

La hoja no ha cambiado.</translation>
    </message>
    <message>
        <source>Data not Saved. Do you wish to save it now ?</source>
        <translation>Datos sin guardar. ¿Desea guardarlos ahora?</translation>
    </message>
    <message>
        <source>The sheet could not be saved as %1: %2.

Its rows are still on the sheet. Choose another folder or make room on the disk, then save again.</source>
        <translation>No se pudo guardar la hoja como %1: %2.

Sus filas siguen en la hoja. Elija otra carpeta o libere espacio en el disco y guarde de nuevo.</translation>
    </message>
    <message>
        <source>It is not a sheet: its first line does not tell the instrument&apos;s type, its firmware and the number of rows. Choose a file that &quot;Save As&quot; has written.</source>
        <translation>No es una hoja: su primera línea no indica el tipo del instrumento, su firmware y el número de filas. Elija un archivo escrito por «Guardar como».</translation>
    </message>
    <message>
        <source>It has %1 rows; the sheet holds at most %2. Split the file and correct the number of rows on the first line of each part.</source>
        <translation>Tiene %1 filas; la hoja admite como máximo %2. Divida el archivo y corrija el número de filas en la primera línea de cada parte.</translation>
    </message>
    <message>
        <source>It is cut short: its last line has no end. If nothing is missing, add a line end to it.</source>
        <translation>Está cortado: su última línea no tiene fin de línea. Si no falta nada, añádaselo.</translation>
    </message>
    <message>
        <source>It is cut short: the column headers are missing.</source>
        <translation>Está cortado: faltan los encabezados de las columnas.</translation>
    </message>
    <message>
        <source>%1 Its first line promises %2 rows, but there are %3. If rows were taken out or added on purpose, correct the number on the first line.</source>
        <translation>%1 Su primera línea indica %2 filas, pero hay %3. Si se quitaron o añadieron filas a propósito, corrija el número de la primera línea.</translation>
    </message>
    <message>
        <source>It is cut short.</source>
        <translation>Está cortado.</translation>
    </message>
    <message>
        <source>It holds more than it says.</source>
        <translation>Contiene más de lo que indica.</translation>
    </message>
    <message>
        <source>It is a folder or a device, not a file.</source>
        <translation>Es una carpeta o un dispositivo, no un archivo.</translation>
    </message>
    <message>
        <source>It cannot be read: %1.</source>
        <translation>No se puede leer: %1.</translation>
    </message>
    <message>
        <source>It is far too large to be a sheet.</source>
        <translation>Es demasiado grande para ser una hoja.</translation>
    </message>
    <message>
        <source>&amp;Air</source>
        <translation>&amp;Aire</translation>
    </message>
    <message>
        <source>&amp;Clean</source>
        <translation>A&amp;gua limpia</translation>
    </message>
    <message>
        <source>Point &amp;1</source>
        <translation>Punto &amp;1</translation>
    </message>
    <message>
        <source>Point &amp;2</source>
        <translation>Punto &amp;2</translation>
    </message>
    <message>
        <source>Point &amp;3</source>
        <translation>Punto &amp;3</translation>
    </message>
    <message>
        <source>Point &amp;4</source>
        <translation>Punto &amp;4</translation>
    </message>
    <message>
        <source>Calibration TRX(S)</source>
        <translation>Calibración TRX(S)</translation>
    </message>
    <message>
        <source>Instruments</source>
        <translation>Instrumentos</translation>
    </message>
    <message>
        <source>Name or serial number of the next instrument of the batch.</source>
        <translation>Nombre o número de serie del próximo instrumento del lote.</translation>
    </message>
    <message>
        <source>Instrument name or serial number</source>
        <translation>Nombre o número de serie del instrumento</translation>
    </message>
    <message>
        <source>Add Ins&amp;trument</source>
        <translation>Añad&amp;ir instrumento</translation>
    </message>
    <message>
        <source>Adds the named instrument with its light colour; a batch has up to seven.</source>
        <translation>Añade el instrumento con su color de luz; un lote tiene hasta siete.</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Mensajes</translation>
    </message>
    <message>
        <source>What is still missing.</source>
        <translation>Lo que falta todavía.</translation>
    </message>
    <message>
        <source>Name or serial n&amp;umber:</source>
        <translation>&amp;Nombre o número de serie:</translation>
    </message>
    <message>
        <source>Instruments &amp;entered:</source>
        <translation>Instrum&amp;entos añadidos:</translation>
    </message>
    <message>
        <source>&amp;Messages:</source>
        <translation>&amp;Mensajes:</translation>
    </message>
    <message>
        <source>Light source:</source>
        <translation>Fuente de luz:</translation>
    </message>
    <message>
        <source>Colour of the instrument&apos;s light source; also chooses the reference values of the report.</source>
        <translation>Color de la fuente de luz del instrumento; elige también los valores de referencia del informe.</translation>
    </message>
    <message>
        <source>Light source %1</source>
        <translation>Fuente de luz %1</translation>
    </message>
    <message>
        <source>Instruments entered</source>
        <translation>Instrumentos añadidos</translation>
    </message>
    <message>
        <source>Choose an instrument to show its worksheet.</source>
        <translation>Elija un instrumento para mostrar su hoja de trabajo.</translation>
    </message>
    <message>
        <source>Total entered</source>
        <translation>Total añadido</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>An&amp;terior</translation>
    </message>
    <message>
        <source>Shows the instrument before; from the first, the last.</source>
        <translation>Muestra el instrumento anterior; desde el primero, el último.</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Siguiente</translation>
    </message>
    <message>
        <source>Shows the instrument after; from the last, the first.</source>
        <translation>Muestra el instrumento siguiente; desde el último, el primero.</translation>
    </message>
    <message>
        <source>Total Entered :</source>
        <translation>Total:</translation>
    </message>
    <message>
        <source>Instrument index</source>
        <translation>Índice del instrumento</translation>
    </message>
    <message>
        <source>Calc &amp;DP</source>
        <translation>Calcular D&amp;P</translation>
    </message>
    <message>
        <source>Writes the means of the rows on the data sheet into the selected row; for a point also its DP values. Keeps the worksheet.</source>
        <translation>Escribe las medias de las filas de la hoja de cálculo en la fila elegida; para un punto, también sus valores DP. Conserva la hoja de trabajo.</translation>
    </message>
    <message>
        <source>Save Cal &amp;Info</source>
        <translation>G&amp;uardar calibración</translation>
    </message>
    <message>
        <source>Writes this worksheet and the reference values of the light colour to a report file.</source>
        <translation>Escribe esta hoja de trabajo y los valores de referencia del color de luz en un archivo de informe.</translation>
    </message>
    <message>
        <source>Instrument index:</source>
        <translation>Índice del instrumento:</translation>
    </message>
    <message>
        <source>The rows on the data sheet were measured for &quot;%1&quot;.</source>
        <translation>Las filas de la hoja de cálculo se midieron para «%1».</translation>
    </message>
    <message>
        <source>%1, angle %2</source>
        <translation>%1, ángulo %2</translation>
    </message>
    <message>
        <source>%1: kept as a whole number from -32768 to 32767.</source>
        <translation>%1: se guarda como número entero de -32768 a 32767.</translation>
    </message>
    <message>
        <source>Expected counts of the point last calculated.</source>
        <translation>Cuentas esperadas del último punto calculado.</translation>
    </message>
    <message>
        <source>DP, angle %1</source>
        <translation>DP, ángulo %1</translation>
    </message>
    <message>
        <source>&amp;KP 7</source>
        <translation>&amp;KP 7</translation>
    </message>
    <message>
        <source>&quot;Calc DP&quot; uses this column for the angle %1, the report for the light colour %2.</source>
        <translation>«Calcular DP» usa esta columna para el ángulo %1; el informe, para el color de luz %2.</translation>
    </message>
    <message>
        <source>Reference %1, column %2</source>
        <translation>Referencia %1, columna %2</translation>
    </message>
    <message>
        <source>Brings the shutter back to its rest position. The instrument only moves it with particular settings, so its own are read and kept, temporary ones are sent, the shutter moves for about half a minute, and the settings from before are sent back.

Leave the cable in its place until the settings have been read back. &quot;Reset&quot;, &quot;Close Port&quot; and &quot;Quit&quot; interrupt the reset; the instrument may then still hold the temporary settings.</source>
        <translation>Devuelve el obturador a su posición de reposo. El instrumento solo lo mueve con una configuración determinada; por eso se lee y conserva la suya, se envía una temporal, el obturador se mueve durante medio minuto aproximadamente y se vuelve a enviar la configuración anterior.

Deje el cable en su sitio hasta que se haya vuelto a leer la configuración. «Restablecer», «Cerrar puerto» y «Salir» interrumpen el proceso; el instrumento puede conservar entonces la configuración temporal.</translation>
    </message>
    <message>
        <source>&amp;Reset Shutter</source>
        <translation>&amp;Restablecer obturador</translation>
    </message>
    <message>
        <source>Moves the shutter to its rest position; takes up to a minute and a half.</source>
        <translation>Mueve el obturador a su posición de reposo; tarda hasta minuto y medio.</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Progress of the shutter reset</source>
        <translation>Progreso del restablecimiento del obturador</translation>
    </message>
    <message>
        <source>The step of the shutter reset under way.</source>
        <translation>El paso en curso del restablecimiento del obturador.</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Tiempo restante</translation>
    </message>
    <message>
        <source>How long the shutter still moves.</source>
        <translation>Tiempo que el obturador seguirá moviéndose.</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>Estado:</translation>
    </message>
    <message>
        <source>Pro&amp;gress:</source>
        <translation>&amp;Progreso:</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Registro</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Fecha</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Shows or hides this curve.</source>
        <translation>Muestra u oculta esta curva.</translation>
    </message>
    <message>
        <source>Curve %1</source>
        <translation>Curva %1</translation>
    </message>
    <message>
        <source>Value of %1</source>
        <translation>Valor de %1</translation>
    </message>
    <message>
        <source>Tidelane Debug Screen</source>
        <translation>Pantalla de depuración Tidelane</translation>
    </message>
    <message>
        <source>&amp;Traffic, newest last:</source>
        <translation>&amp;Tráfico, lo último al final:</translation>
    </message>
    <message>
        <source>&amp;Comm 2 Debug Output</source>
        <translation>Salida de dep&amp;uración COM 2</translation>
    </message>
    <message>
        <source>Copies what the program announces about its own work to COM 2.</source>
        <translation>Copia en COM 2 lo que el programa anuncia de su trabajo.</translation>
    </message>
    <message>
        <source>&amp;Raw Buffer</source>
        <translation>Datos &amp;brutos</translation>
    </message>
    <message>
        <source>Lists every block of characters as it is read from the instrument.</source>
        <translation>Lista cada bloque de caracteres tal como se lee del instrumento.</translation>
    </message>
    <message>
        <source>Sho&amp;w Parsing</source>
        <translation>Mostrar &amp;líneas</translation>
    </message>
    <message>
        <source>Lists every line that is cut out of what the instrument sends.</source>
        <translation>Lista cada línea que se extrae de lo que envía el instrumento.</translation>
    </message>
    <message>
        <source>Traffic from the instrument, newest last</source>
        <translation>Tráfico del instrumento, lo último al final</translation>
    </message>
    <message>
        <source>What the instrument sends, as blocks or lines; CR, LF and TAB as symbols. The newest 10000 entries are kept.</source>
        <translation>Lo que envía el instrumento, en bloques o líneas; CR, LF y TAB como símbolos. Se conservan las 10000 entradas más recientes.</translation>
    </message>
    <message>
        <source>Why the list is empty</source>
        <translation>Por qué está vacía la lista</translation>
    </message>
    <message>
        <source>Nothing has been received since.</source>
        <translation>Desde entonces no se ha recibido nada.</translation>
    </message>
    <message>
        <source>Choose &quot;Raw Buffer&quot; or &quot;Show Parsing&quot; to list what the instrument sends.</source>
        <translation>Elija «Datos brutos» o «Mostrar líneas» para listar lo que envía el instrumento.</translation>
    </message>
    <message>
        <source>Is sent exactly as typed; nothing is added at its end.</source>
        <translation>Se envía tal como se escribe; no se añade nada al final.</translation>
    </message>
    <message>
        <source>&amp;Direct Send</source>
        <translation>&amp;Envío directo</translation>
    </message>
    <message>
        <source>Sends the text to the instrument, if a port is open and nothing else is under way.</source>
        <translation>Envía el texto al instrumento si hay un puerto abierto y nada más en curso.</translation>
    </message>
    <message>
        <source>Te&amp;xt to send:</source>
        <translation>Te&amp;xto a enviar:</translation>
    </message>
    <message>
        <source>Buffer</source>
        <translation>Búfer</translation>
    </message>
    <message>
        <source>Characters received that do not make a whole line yet.</source>
        <translation>Caracteres recibidos que aún no forman una línea entera.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Fluorometer</source>
        <translation>Fluorómetro</translation>
    </message>
    <message>
        <source>Fluorometer output</source>
        <translation>Salida del fluorómetro</translation>
    </message>
    <message>
        <source>Scattering Meter</source>
        <translation>Medidor de dispersión</translation>
    </message>
    <message>
        <source>Scattering output at %1 degrees</source>
        <translation>Dispersión a %1 grados</translation>
    </message>
    <message>
        <source>Ref Det</source>
        <translation>Det. ref.</translation>
    </message>
    <message>
        <source>Reference detector</source>
        <translation>Detector de referencia</translation>
    </message>
    <message>
        <source>Transmissometer</source>
        <translation>Transmisómetro</translation>
    </message>
    <message>
        <source>Transmissometer output</source>
        <translation>Salida del transmisómetro</translation>
    </message>
    <message>
        <source>Turbidty Sensor</source>
        <translation>Sensor de turbidez</translation>
    </message>
    <message>
        <source>Turbidity sensor output</source>
        <translation>Salida del sensor de turbidez</translation>
    </message>
    <message>
        <source>The newest values that the instrument has sent in a run.</source>
        <translation>Los valores más recientes que el instrumento ha enviado en una medición.</translation>
    </message>
    <message>
        <source>About Orv Host</source>
        <translation>Acerca de Orv Host</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>Connects the ORV self-logging optical water sensors GLOW and TRX:
settings, live data, stored data, calibration.</source>
        <translation>Para los sensores ópticos autónomos de agua ORV GLOW y TRX:
configuración, datos en vivo, datos almacenados, calibración.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>Manual Connection</source>
        <translation>Conexión manual</translation>
    </message>
    <message>
        <source>What to do</source>
        <translation>Qué hacer</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Iniciar</translation>
    </message>
    <message>
        <source>&amp;Proceed</source>
        <translation>&amp;Continuar</translation>
    </message>
    <message>
        <source>&amp;Retry</source>
        <translation>&amp;Reintentar</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Transferencia de datos</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>What is counted</source>
        <translation>Qué se cuenta</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Reset on the page Status and Controls stops it.</source>
        <translation>«Restablecer» en la página «Estado y controles» lo detiene.</translation>
    </message>
    <message>
        <source>&amp;Abort</source>
        <translation>&amp;Interrumpir</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>In Plain English</source>
        <translation>En lenguaje claro</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descripción</translation>
    </message>
    <message>
        <source>Graphical</source>
        <translation>Curvas</translation>
    </message>
    <message>
        <source>As P&amp;NG, pixels, for screens and documents</source>
        <translation>Como P&amp;NG, píxeles, para pantallas y documentos</translation>
    </message>
    <message>
        <source>As P&amp;DF, a page to print or send</source>
        <translation>Como P&amp;DF, una página para imprimir o enviar</translation>
    </message>
    <message>
        <source>As S&amp;VG, lines, for drawing programs</source>
        <translation>Como S&amp;VG, líneas, para programas de dibujo</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Guardar imagen</translation>
    </message>
    <message>
        <source>What the curves are drawn over.</source>
        <translation>Sobre qué se dibujan las curvas.</translation>
    </message>
    <message>
        <source>Record number</source>
        <translation>Número de registro</translation>
    </message>
    <message>
        <source>All curves on one axis; a pane for each, with its own scale; or each less its mean over what is seen.</source>
        <translation>Todas las curvas en un eje; un panel para cada una con su escala; o cada una menos su media en la parte visible.</translation>
    </message>
    <message>
        <source>One axis</source>
        <translation>Un eje</translation>
    </message>
    <message>
        <source>Stacked</source>
        <translation>Apiladas</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Variación</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>&amp;Seguir</translation>
    </message>
    <message>
        <source>Shows the newest rows as they come.</source>
        <translation>Muestra las filas más recientes según llegan.</translation>
    </message>
    <message>
        <source>Show A&amp;ll</source>
        <translation>Mostrar &amp;todo</translation>
    </message>
    <message>
        <source>Shows all rows. A double click on the curves does the same.</source>
        <translation>Muestra todas las filas. Un doble clic en las curvas hace lo mismo.</translation>
    </message>
    <message>
        <source>Choose &amp;Range</source>
        <translation>Elegir &amp;rango</translation>
    </message>
    <message>
        <source>The pointer chooses a range of rows instead of moving the curves: for their mean and standard deviation, and to select them on the sheet.</source>
        <translation>El puntero elige un rango de filas en vez de mover las curvas: para su media y desviación estándar, y para seleccionarlas en la hoja.</translation>
    </message>
    <message>
        <source>&amp;X axis :</source>
        <translation>Eje &amp;X:</translation>
    </message>
    <message>
        <source>&amp;View :</source>
        <translation>&amp;Vista:</translation>
    </message>
    <message>
        <source>Save Pict&amp;ure</source>
        <translation>Guardar ima&amp;gen</translation>
    </message>
    <message>
        <source>Saves the curves as they are seen as a PNG, PDF or SVG file.</source>
        <translation>Guarda las curvas tal como se ven, en un archivo PNG, PDF o SVG.</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Co&amp;piar</translation>
    </message>
    <message>
        <source>Copies the curves as they are seen as a picture to the clipboard.</source>
        <translation>Copia las curvas tal como se ven, como imagen, al portapapeles.</translation>
    </message>
    <message>
        <source>Print &amp;Graph...</source>
        <translation>&amp;Imprimir curvas…</translation>
    </message>
    <message>
        <source>Prints the curves as they are seen.</source>
        <translation>Imprime las curvas tal como se ven.</translation>
    </message>
    <message>
        <source>No rows yet.

Collect or download data, or open a sheet:
its columns are drawn here.</source>
        <translation>Aún no hay filas.

Mida, descargue datos o abra una hoja:
sus columnas se dibujan aquí.</translation>
    </message>
    <message>
        <source>No row can be placed on this axis.

Choose the other one under &quot;X axis&quot;.</source>
        <translation>Ninguna fila tiene lugar en este eje.

Elija el otro en «Eje X».</translation>
    </message>
    <message>
        <source>All curves are switched off.</source>
        <translation>Todas las curvas están ocultas.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is not drawn.</source>
        <translation>1 fila de otro tipo de instrumento no se dibuja.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are not drawn.</source>
        <translation>%1 filas de otro tipo de instrumento no se dibujan.</translation>
    </message>
    <message>
        <source>1 row without a readable time is not drawn.</source>
        <translation>1 fila sin hora legible no se dibuja.</translation>
    </message>
    <message>
        <source>%1 rows without a readable time are not drawn.</source>
        <translation>%1 filas sin hora legible no se dibujan.</translation>
    </message>
    <message>
        <source>1 row without a record number is not drawn.</source>
        <translation>1 fila sin número de registro no se dibuja.</translation>
    </message>
    <message>
        <source>%1 rows without a record number are not drawn.</source>
        <translation>%1 filas sin número de registro no se dibujan.</translation>
    </message>
    <message>
        <source>Wheel zooms the axis, with Ctrl the values; dragging moves, with Shift it chooses a range; a double click shows all.</source>
        <translation>Rueda: zoom (Control: valores). Arrastrar: mover (Mayúsculas: elegir rango). Doble clic: todo.</translation>
    </message>
    <message>
        <source>Row under the cursor</source>
        <translation>Fila bajo el cursor</translation>
    </message>
    <message>
        <source>Newest row</source>
        <translation>Última fila</translation>
    </message>
    <message>
        <source>The picture could not be saved as %1: %2.

Choose another folder or make room on the disk, then save again.</source>
        <translation>No se pudo guardar la imagen como %1: %2.

Elija otra carpeta o libere espacio en el disco y guarde de nuevo.</translation>
    </message>
    <message>
        <source>Print Graph</source>
        <translation>Imprimir curvas</translation>
    </message>
    <message>
        <source>The printer did not take the page.

See whether it is switched on and connected, then print again, or save the curves as PDF and print that.</source>
        <translation>La impresora no aceptó la página.

Compruebe que está encendida y conectada e imprima otra vez, o guarde las curvas como PDF e imprímalo.</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Páginas</translation>
    </message>
    <message>
        <source>Form Select Tabs.</source>
        <translation>Elegir página.</translation>
    </message>
    <message>
        <source>Service pages</source>
        <translation>Páginas de servicio</translation>
    </message>
    <message>
        <source>Special Tidelane Debug screens and Tools. Internal use only so far.</source>
        <translation>Pantallas y herramientas especiales de depuración Tidelane. Por ahora solo para uso interno.</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Modo de servicio</translation>
    </message>
    <message>
        <source>Simulated instrument</source>
        <translation>Instrumento simulado</translation>
    </message>
    <message>
        <source>What it measures is made up by this program. Choose a real port in &quot;Ports&quot; on the page &quot;Status and Controls&quot;.</source>
        <translation>Lo que mide lo inventa este programa. Elija un puerto real en «Puertos» en la página «Estado y controles».</translation>
    </message>
    <message>
        <source>%1 (simulated instrument)</source>
        <translation>%1 (instrumento simulado)</translation>
    </message>
    <message>
        <source>&amp;Operation</source>
        <translation>&amp;Operación</translation>
    </message>
    <message>
        <source>&amp;Close Port</source>
        <translation>&amp;Cerrar puerto</translation>
    </message>
    <message>
        <source>&amp;Processing</source>
        <translation>&amp;Datos</translation>
    </message>
    <message>
        <source>Download Stored Data: &amp;Save as Text</source>
        <translation>Descargar datos: &amp;guardar como texto</translation>
    </message>
    <message>
        <source>Download Stored Data: &amp;View with Host Program</source>
        <translation>Descargar datos: &amp;ver en el programa</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Configuración</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Contenido</translation>
    </message>
    <message>
        <source>&amp;Save Support File...</source>
        <translation>&amp;Guardar archivo de soporte…</translation>
    </message>
    <message>
        <source>&amp;About Orv Host ...</source>
        <translation>&amp;Acerca de Orv Host…</translation>
    </message>
    <message>
        <source>&amp;Auto Connect Comm 1</source>
        <translation>Conexión &amp;automática COM 1</translation>
    </message>
    <message>
        <source>A&amp;uto Connect Comm 2</source>
        <translation>Conexión a&amp;utomática COM 2</translation>
    </message>
    <message>
        <source>&amp;Manual Connect Comm 1</source>
        <translation>Conexión &amp;manual COM 1</translation>
    </message>
    <message>
        <source>Mau&amp;nal Connect Comm 2</source>
        <translation>Conexión ma&amp;nual COM 2</translation>
    </message>
    <message>
        <source>&amp;Start Communication</source>
        <translation>&amp;Iniciar comunicación</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sí</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ya existe.
¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
No se encontró el archivo.
Compruebe el nombre.</translation>
    </message>
    <message>
        <source>Only digits, at most %1.</source>
        <translation>Solo cifras, %1 como máximo.</translation>
    </message>
    <message>
        <source>%1 is less than the minimum of %2.</source>
        <translation>%1 es menor que el mínimo, %2.</translation>
    </message>
    <message>
        <source>%1 is more than the maximum of %2.</source>
        <translation>%1 es mayor que el máximo, %2.</translation>
    </message>
    <message>
        <source>Curves of the data sheet</source>
        <translation>Curvas de la hoja de cálculo</translation>
    </message>
    <message>
        <source>Left and Right move to the row before and after, with Shift they move the curves; Plus and Minus zoom, Home shows all, End follows the newest rows. Space begins and ends the choice of a range, Escape drops it.</source>
        <translation>Izquierda y Derecha van a la fila anterior y siguiente, con Mayúsculas mueven las curvas; Más y Menos amplían y reducen, Inicio muestra todo, Fin sigue las filas más recientes. Espacio empieza y termina la elección de un rango, Escape la descarta.</translation>
    </message>
    <message>
        <source>Device behind COM %1</source>
        <translation>Dispositivo en COM %1</translation>
    </message>
    <message>
        <source>Choose a port or type the name of a device.</source>
        <translation>Elija un puerto o escriba el nombre de un dispositivo.</translation>
    </message>
    <message>
        <source>Dis&amp;connect</source>
        <translation>Desco&amp;nectar</translation>
    </message>
    <message>
        <source>Disco&amp;nnect</source>
        <translation>Desconec&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>Co&amp;nectar</translation>
    </message>
    <message>
        <source>Co&amp;nnect</source>
        <translation>Conec&amp;tar</translation>
    </message>
    <message>
        <source>%1 COM %2</source>
        <translation>%1 COM %2</translation>
    </message>
    <message>
        <source>Closes COM %1. Rows on the sheet stay.</source>
        <translation>Cierra COM %1. Las filas de la hoja se conservan.</translation>
    </message>
    <message>
        <source>Wakes the instrument on COM %1 and reads its settings.</source>
        <translation>Despierta el instrumento en COM %1 y lee su configuración.</translation>
    </message>
    <message>
        <source>Ports</source>
        <translation>Puertos</translation>
    </message>
    <message>
        <source>What is wrong with the device for COM %1</source>
        <translation>Qué le pasa al dispositivo de COM %1</translation>
    </message>
    <message>
        <source>COM &amp;%1</source>
        <translation>COM &amp;%1</translation>
    </message>
    <message>
        <source>Next step</source>
        <translation>Paso siguiente</translation>
    </message>
    <message>
        <source>&amp;Try a Simulated Instrument</source>
        <translation>&amp;Probar un instrumento simulado</translation>
    </message>
    <message>
        <source>Chooses a simulated scattering meter for COM 1 and connects: everything can be tried without an instrument.</source>
        <translation>Elige un medidor de dispersión simulado para COM 1 y conecta: todo se puede probar sin instrumento.</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>sin enviar</translation>
    </message>
    <message>
        <source>No instrument has reported these settings.</source>
        <translation>Ningún instrumento ha comunicado esta configuración.</translation>
    </message>
    <message>
        <source>These settings have not been sent to the instrument: %1.</source>
        <translation>Esta configuración no se ha enviado al instrumento: %1.</translation>
    </message>
    <message>
        <source>Modes</source>
        <translation>Modos</translation>
    </message>
    <message>
        <source>&amp;Profile</source>
        <translation>&amp;Perfil</translation>
    </message>
    <message>
        <source>&amp;Moored</source>
        <translation>Fo&amp;ndeo</translation>
    </message>
    <message>
        <source>&amp;Save A User Defined Mode</source>
        <translation>&amp;Guardar modo propio</translation>
    </message>
    <message>
        <source>&amp;Load A User Defined Mode</source>
        <translation>C&amp;argar modo propio</translation>
    </message>
    <message>
        <source>&amp;View Current Settings Transcribed as Text</source>
        <translation>&amp;Ver la configuración actual como texto</translation>
    </message>
    <message>
        <source>Mode file</source>
        <translation>Archivo de modo</translation>
    </message>
    <message>
        <source>This mode Autostarts, takes 1 data point per second, and repeats this indefinatly. Data is NOT logged.</source>
        <translation>Este modo se inicia automáticamente, toma 1 punto de datos por segundo y lo repite sin fin. Los datos NO se graban.</translation>
    </message>
    <message>
        <source>This Mode Autostarts, takes 1 data point per second. It repeats once an hour. It logs up to 60000 data points.</source>
        <translation>Este modo se inicia automáticamente y toma 1 punto de datos por segundo. Se repite una vez por hora. Graba hasta 60000 puntos de datos.</translation>
    </message>
    <message>
        <source>Time and Date</source>
        <translation>Fecha y hora</translation>
    </message>
    <message>
        <source>&amp;Display Logger Time/Date</source>
        <translation>&amp;Mostrar fecha/hora del registrador</translation>
    </message>
    <message>
        <source>Computer Time / Date</source>
        <translation>Hora / fecha de este equipo</translation>
    </message>
    <message>
        <source>This is the computers Time and Date.</source>
        <translation>Hora y fecha de este equipo.</translation>
    </message>
    <message>
        <source>Computer Time</source>
        <translation>Hora de este equipo</translation>
    </message>
    <message>
        <source>Computer Date</source>
        <translation>Fecha de este equipo</translation>
    </message>
    <message>
        <source>Logger Time / Date</source>
        <translation>Hora / fecha del registrador</translation>
    </message>
    <message>
        <source>This is the Loggers Time and Date at last display.</source>
        <translation>Hora y fecha del registrador al mostrarlas por última vez.</translation>
    </message>
    <message>
        <source>Logger Date</source>
        <translation>Fecha del registrador</translation>
    </message>
    <message>
        <source>Logger Time</source>
        <translation>Hora del registrador</translation>
    </message>
    <message>
        <source>&amp;Sync Time/Date</source>
        <translation>&amp;Sincronizar fecha/hora</translation>
    </message>
    <message>
        <source>This tells the Host to set the Loggers Time and Date to that of the Computer. (Updated after send settings)</source>
        <translation>Pone en el registrador la hora y la fecha de este equipo. (Se actualiza tras enviar la configuración)</translation>
    </message>
    <message>
        <source>At the full &amp;minute</source>
        <translation>Al minuto e&amp;xacto</translation>
    </message>
    <message>
        <source>Waits until a minute begins, so that the Loggers seconds are right too: it takes hour and minute only.</source>
        <translation>Espera a que empiece un minuto, para que también los segundos del registrador sean correctos: solo acepta hora y minuto.</translation>
    </message>
    <message>
        <source>The clock will be set at %1, in %2 s.</source>
        <translation>El reloj se pondrá en hora a las %1, dentro de %2 s.</translation>
    </message>
    <message>
        <source>Control Bits</source>
        <translation>Bits de control</translation>
    </message>
    <message>
        <source>%1 data points per second</source>
        <translation>Puntos de datos por segundo: %1</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Observación</translation>
    </message>
    <message>
        <source>Max Values</source>
        <translation>Valores máx.</translation>
    </message>
    <message>
        <source>Samples and Intervals</source>
        <translation>Muestras e intervalos</translation>
    </message>
    <message>
        <source>Logger Capacity (% full)</source>
        <translation>Memoria ocupada (%)</translation>
    </message>
    <message>
        <source>Memory pointer</source>
        <translation>Puntero de memoria</translation>
    </message>
    <message>
        <source>This is the % of data memory used in the logger.</source>
        <translation>Porcentaje usado de la memoria de datos del registrador.</translation>
    </message>
    <message>
        <source>Memory pointer as the logger reports it, 0 to 65525.</source>
        <translation>Puntero de memoria como lo comunica el registrador, 0 a 65525.</translation>
    </message>
    <message>
        <source>Clean Water Offset</source>
        <translation>Offset de agua limpia</translation>
    </message>
    <message>
        <source>&amp;Provide Raw Counts</source>
        <translation>&amp;Mostrar cuentas brutas</translation>
    </message>
    <message>
        <source>Angle &amp;100 (l1)</source>
        <translation>Ángulo &amp;100 (l1)</translation>
    </message>
    <message>
        <source>Angle 1&amp;25 (l2)</source>
        <translation>Ángulo 1&amp;25 (l2)</translation>
    </message>
    <message>
        <source>Angle 1&amp;50 (l3)</source>
        <translation>Ángulo 1&amp;50 (l3)</translation>
    </message>
    <message>
        <source>TRX Calibration: Offsets and B calculations</source>
        <translation>Calibración TRX: offsets y cálculo de B</translation>
    </message>
    <message>
        <source>&amp;Load Device File</source>
        <translation>Cargar arc&amp;hivo de dispositivo</translation>
    </message>
    <message>
        <source>&amp;Save Device File</source>
        <translation>Guard&amp;ar archivo de dispositivo</translation>
    </message>
    <message>
        <source>Calc &amp;B Values</source>
        <translation>Calcular valores &amp;B</translation>
    </message>
    <message>
        <source>GLW Calibration: Offsets and B calculations</source>
        <translation>Calibración GLW: offset y cálculo de la concentración</translation>
    </message>
    <message>
        <source>C&amp;ounts -</source>
        <translation>Cuen&amp;tas -</translation>
    </message>
    <message>
        <source>Device files are for the TRX only.</source>
        <translation>Los archivos de dispositivo son solo para el TRX.</translation>
    </message>
    <message>
        <source>Calc Consentration in &amp;ug/L</source>
        <translation>Calcular concentración en &amp;ug/L</translation>
    </message>
    <message>
        <source>Sampling</source>
        <translation>Muestreo</translation>
    </message>
    <message>
        <source>Connect an instrument to see its calibration.</source>
        <translation>Conecte un instrumento para ver su calibración.</translation>
    </message>
    <message>
        <source>Logger Settings</source>
        <translation>Configuración del registrador</translation>
    </message>
    <message>
        <source>Groups of settings</source>
        <translation>Grupos de configuración</translation>
    </message>
    <message>
        <source>The settings in plain English</source>
        <translation>La configuración en lenguaje claro</translation>
    </message>
    <message>
        <source>Choose a tab to see its settings.</source>
        <translation>Elija una pestaña para ver su configuración.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>Changed and not sent yet: %1</source>
        <translation>Cambiado y aún no enviado: %1</translation>
    </message>
    <message>
        <source>&amp;Retrieve Settings</source>
        <translation>&amp;Leer configuración</translation>
    </message>
    <message>
        <source>Retrieve settings from the logger</source>
        <translation>Leer la configuración del registrador</translation>
    </message>
    <message>
        <source>&amp;Apply Settings</source>
        <translation>&amp;Enviar configuración</translation>
    </message>
    <message>
        <source>Send Settings to the logger</source>
        <translation>Enviar la configuración al registrador</translation>
    </message>
    <message>
        <source>Verify that settings are correct before closing this window</source>
        <translation>Compruebe la configuración antes de cerrar esta ventana</translation>
    </message>
    <message>
        <source>Another run or download begins here.</source>
        <translation>Aquí empieza otra medición o descarga.</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Hoja de cálculo</translation>
    </message>
    <message>
        <source>Rows on the sheet</source>
        <translation>Filas en la hoja</translation>
    </message>
    <message>
        <source>What became of the rows</source>
        <translation>Qué fue de las filas</translation>
    </message>
    <message>
        <source>&amp;Bring them back</source>
        <translation>&amp;Recuperarlas</translation>
    </message>
    <message>
        <source>Puts the rows on the sheet again, as they were.</source>
        <translation>Vuelve a poner las filas en la hoja, como estaban.</translation>
    </message>
    <message>
        <source>What to look for in the cells of the sheet.</source>
        <translation>Qué buscar en las celdas de la hoja.</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Encontrado</translation>
    </message>
    <message>
        <source>Select cells, a row by its number or a column by its header: to copy them, and for their mean and standard deviation.</source>
        <translation>Seleccione celdas, filas (número) o columnas (encabezado) para copiarlas y ver su media y desviación estándar.</translation>
    </message>
    <message>
        <source>Default File Name, and the file name used for auto-recording of long profiles.</source>
        <translation>Nombre de archivo predeterminado; se usa también para guardar automáticamente perfiles largos.</translation>
    </message>
    <message>
        <source>Automatic saves</source>
        <translation>Guardados automáticos</translation>
    </message>
    <message>
        <source>This is used to indicated how many records were automatically created over a long profile, or data gathering.</source>
        <translation>Cuántos archivos se han guardado automáticamente en un perfil o una medición larga.</translation>
    </message>
    <message>
        <source>Save &amp;As</source>
        <translation>&amp;Guardar como</translation>
    </message>
    <message>
        <source>Save all Data on the Spread Sheet to a Tab Delimited Text File.</source>
        <translation>Guarda todos los datos de la hoja en un archivo de texto separado por tabuladores.</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xportar</translation>
    </message>
    <message>
        <source>Op&amp;en</source>
        <translation>&amp;Abrir</translation>
    </message>
    <message>
        <source>Open a saved sheet. It replaces what is on the Spread Sheet.</source>
        <translation>Abre una hoja guardada. Reemplaza lo que hay en la hoja de cálculo.</translation>
    </message>
    <message>
        <source>&amp;Clear All</source>
        <translation>&amp;Borrar todo</translation>
    </message>
    <message>
        <source>Clears the Spread Sheet of all data.</source>
        <translation>Borra todos los datos de la hoja.</translation>
    </message>
    <message>
        <source>File &amp;name :</source>
        <translation>&amp;Nombre:</translation>
    </message>
    <message>
        <source>Rows :</source>
        <translation>Filas:</translation>
    </message>
    <message>
        <source>Records :</source>
        <translation>Archivos auto.:</translation>
    </message>
    <message>
        <source>%1 cleared.</source>
        <translation>Borrado: %1.</translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>Guardado en %2: %1</translation>
    </message>
    <message>
        <source>&amp;Bring it back</source>
        <translation>&amp;Recuperarla</translation>
    </message>
    <message>
        <source>Nex&amp;t</source>
        <translation>&amp;Siguiente</translation>
    </message>
    <message>
        <source>The next cell with this text. The Enter key does the same.</source>
        <translation>La siguiente celda con este texto. La tecla Intro hace lo mismo.</translation>
    </message>
    <message>
        <source>The cell with this text before.</source>
        <translation>La celda anterior con este texto.</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>C&amp;errar</translation>
    </message>
    <message>
        <source>Puts the line away. The Escape key does the same.</source>
        <translation>Cierra la barra de búsqueda. La tecla Escape hace lo mismo.</translation>
    </message>
    <message>
        <source>F&amp;ind :</source>
        <translation>B&amp;uscar:</translation>
    </message>
    <message>
        <source>Record %1</source>
        <translation>Registro %1</translation>
    </message>
    <message>
        <source>Not found.</source>
        <translation>No se encontró.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>Copy &amp;Without Header</source>
        <translation>Copiar &amp;sin encabezado</translation>
    </message>
    <message>
        <source>Select &amp;Rows</source>
        <translation>Seleccionar &amp;filas</translation>
    </message>
    <message>
        <source>Select Co&amp;lumns</source>
        <translation>Seleccionar c&amp;olumnas</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Seleccionar &amp;todo</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Buscar</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Recuento</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Media</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Desviación estándar</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Mínimo</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Máximo</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Filas</translation>
    </message>
    <message>
        <source>No rows yet. Connect, then press Run.</source>
        <translation>Aún no hay filas. Conecte y pulse «Medir».</translation>
    </message>
    <message>
        <source>How far the run or the download has come</source>
        <translation>Cuánto lleva la medición o la descarga</translation>
    </message>
    <message>
        <source>Shutter reset progress</source>
        <translation>Progreso del restablecimiento del obturador</translation>
    </message>
    <message>
        <source>Time the shutter still moves</source>
        <translation>Tiempo que el obturador seguirá moviéndose</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrumento</translation>
    </message>
    <message>
        <source>How the instrument&apos;s clock stands</source>
        <translation>Cómo va el reloj del instrumento</translation>
    </message>
    <message>
        <source>Instrument:</source>
        <translation>Instrumento</translation>
    </message>
    <message>
        <source>Firmware Ver.</source>
        <translation>Versión del firmware</translation>
    </message>
    <message>
        <source>Bytes downloaded</source>
        <translation>Bytes descargados</translation>
    </message>
    <message>
        <source>Characters in the receive buffer</source>
        <translation>Caracteres en el búfer de recepción</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Reloj</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Controles</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Medir</translation>
    </message>
    <message>
        <source>Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp.</source>
        <translation>Empieza una medición en tiempo real. Las filas van a la hoja de cálculo y a Orvtemp.tmp.</translation>
    </message>
    <message>
        <source>R&amp;eset</source>
        <translation>&amp;Restablecer</translation>
    </message>
    <message>
        <source>Stops current collection and requires the instrument to be reset.</source>
        <translation>Detiene la medición en curso; el instrumento debe restablecerse.</translation>
    </message>
    <message>
        <source>Reset Sh&amp;utter</source>
        <translation>Restablecer o&amp;bturador</translation>
    </message>
    <message>
        <source>Moves the instrument&apos;s shutter back to its rest position.</source>
        <translation>Mueve el obturador del instrumento a su posición de reposo.</translation>
    </message>
    <message>
        <source>Sending the settings</source>
        <translation>Enviando la configuración</translation>
    </message>
    <message>
        <source>Settings sent</source>
        <translation>Configuración enviada</translation>
    </message>
    <message>
        <source>Settings read</source>
        <translation>Configuración leída</translation>
    </message>
    <message>
        <source>Sending failed</source>
        <translation>El envío ha fallado</translation>
    </message>
    <message>
        <source>Nothing read or sent yet</source>
        <translation>Aún no se ha leído ni enviado nada</translation>
    </message>
    <message>
        <source>Status lamp</source>
        <translation>Luz de estado</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>the mean of a column</comment>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1; the disk may be full</source>
        <translation>%1; quizá el disco esté lleno</translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation>Capítulos</translation>
    </message>
    <message>
        <source>What to look for in the guide.</source>
        <translation>Qué buscar en la guía.</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Guía del usuario</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Guía del usuario</translation>
    </message>
    <message>
        <source>&amp;Chapters</source>
        <translation>&amp;Capítulos</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Atrás</translation>
    </message>
    <message>
        <source>To what was shown before.</source>
        <translation>A lo que se mostraba antes.</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>A&amp;delante</translation>
    </message>
    <message>
        <source>To what you came back from.</source>
        <translation>A donde estaba antes de volver.</translation>
    </message>
    <message>
        <source>The next place with this text. The Enter key does the same.</source>
        <translation>El siguiente lugar con este texto. La tecla Intro hace lo mismo.</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>An&amp;terior</translation>
    </message>
    <message>
        <source>The place with this text before.</source>
        <translation>El lugar anterior con este texto.</translation>
    </message>
    <message>
        <source>Export 1 row</source>
        <translation>Exportar 1 fila</translation>
    </message>
    <message>
        <source>Export all %1 rows</source>
        <translation>Exportar las %1 filas</translation>
    </message>
    <message>
        <source>Export 1 selected row</source>
        <translation>Exportar 1 fila seleccionada</translation>
    </message>
    <message>
        <source>Export %1 selected rows</source>
        <translation>Exportar %1 filas seleccionadas</translation>
    </message>
    <message>
        <source>the selected rows have gone from the sheet meanwhile</source>
        <translation>las filas seleccionadas ya no están en la hoja</translation>
    </message>
    <message>
        <source>%1 Reset stops it.</source>
        <translation>%1 «Restablecer» detiene la espera.</translation>
    </message>
    <message>
        <source>Waiting for the full minute: %1 s.</source>
        <translation>Esperando el minuto exacto: %1 s.</translation>
    </message>
    <message>
        <source>within %1 s of this computer&apos;s</source>
        <translation>a menos de %1 s de la hora de este equipo</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set at the full minute and is %1.</source>
        <translation>El reloj del instrumento se ajustó al minuto exacto y está %1.</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set to the minute and is %1.</source>
        <translation>El reloj del instrumento se ajustó al minuto y está %1.</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Esperando el minuto exacto</translation>
    </message>
    <message>
        <source>Setting the clock</source>
        <translation>Puesta en hora</translation>
    </message>
    <message>
        <source>&quot;Sync Time/Date&quot; alone leaves the clock up to 59 s behind: the command carries no seconds. &quot;At the full minute&quot; waits until a minute begins, so that the seconds are right too.</source>
        <translation>«Sincronizar fecha/hora» por sí solo deja el reloj hasta 59 s atrasado: la orden no lleva segundos. «Al minuto exacto» espera a que empiece un minuto, para que también los segundos sean correctos.</translation>
    </message>
    <message>
        <source>%1 &quot;At the full minute&quot; sets it right.</source>
        <translation>%1 «Al minuto exacto» lo corrige.</translation>
    </message>
    <message>
        <source>%1 %2 is still ticked: &quot;Apply Settings&quot; sets the clock again.</source>
        <translation>%1 «%2» sigue marcado: «Enviar configuración» vuelve a poner en hora el reloj.</translation>
    </message>
    <message>
        <source>1 column</source>
        <translation>1 columna</translation>
    </message>
    <message>
        <source>%1 columns</source>
        <translation>%1 columnas</translation>
    </message>
    <message>
        <source>1 cell</source>
        <translation>1 celda</translation>
    </message>
    <message>
        <source>%1 cells</source>
        <translation>%1 celdas</translation>
    </message>
    <message>
        <source>Write the rows as CSV or NetCDF for other programs, with what is known of the instrument: those that are selected, else all.</source>
        <translation>Escribe las filas como CSV o NetCDF para otros programas, con lo que se sabe del instrumento: las seleccionadas o, si no hay, todas.</translation>
    </message>
    <message>
        <source>%1 copied.</source>
        <translation>Copiado: %1.</translation>
    </message>
    <message>
        <source>Exported %1 to %2</source>
        <translation>Exportado a %2: %1</translation>
    </message>
    <message>
        <source>Exported %1 to %2 (and %3)</source>
        <translation>Exportado a %2 (y %3): %1</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>Selección: %1</translation>
    </message>
    <message>
        <source>No rows yet. Press Run.</source>
        <translation>Aún no hay filas. Pulse «Medir».</translation>
    </message>
    <message>
        <source>%1. &quot;At the full minute&quot; sets it.</source>
        <translation>%1. «Al minuto exacto» lo pone en hora.</translation>
    </message>
    <message>
        <source>it has been removed</source>
        <translation>se ha eliminado</translation>
    </message>
    <message>
        <source>Not sent whole: the connection ended. What was sent before stays in the instrument. Connect to see what it has.</source>
        <translation>No se envió por completo: la conexión terminó. Lo enviado antes queda en el instrumento. Conecte para ver lo que tiene.</translation>
    </message>
    <message>
        <source>%1 %2, not saved.</source>
        <translation>%1 %2 sin guardar.</translation>
    </message>
    <message>
        <source>its process is not known</source>
        <translation>no se conoce su proceso</translation>
    </message>
    <message>
        <source>%1 on the computer %2</source>
        <translation>%1 en el equipo %2</translation>
    </message>
    <message>
        <source>no lock file can be made in this folder</source>
        <translation>no se puede crear ningún archivo de bloqueo en esta carpeta</translation>
    </message>
    <message>
        <source>other programs use this folder</source>
        <translation>otros programas usan esta carpeta</translation>
    </message>
    <message>
        <source>another program may use it (%1)</source>
        <translation>puede que otro programa la use (%1)</translation>
    </message>
    <message>
        <source>no lock file can be made beside it</source>
        <translation>no se puede crear un archivo de bloqueo a su lado</translation>
    </message>
    <message>
        <source>they are of no known type of instrument</source>
        <translation>no son de ningún tipo de instrumento conocido</translation>
    </message>
    <message>
        <source>No rows yet.</source>
        <translation>Aún no hay filas.</translation>
    </message>
    <message>
        <source>Newest row (from before this run)</source>
        <translation>Última fila (anterior a esta medición)</translation>
    </message>
    <message>
        <source>%1 could not be opened. %2</source>
        <translation>No se pudo abrir %1. %2</translation>
    </message>
    <message>
        <source>%1 and %2 others</source>
        <translation>%1 y %2 más</translation>
    </message>
    <message>
        <source>Record %1 (the sheet follows the run)</source>
        <translation>Registro %1 (la hoja sigue la medición)</translation>
    </message>
    <message>
        <source>Data #</source>
        <translation>N.º</translation>
    </message>
    <message>
        <source>Data Point</source>
        <translation>Punto de datos</translation>
    </message>
    <message>
        <source>This guide is in English, and so are the captions in it.</source>
        <translation>Esta guía está en inglés, y también los rótulos que cita.</translation>
    </message>
    <message>
        <source>the rows of the run before could not be kept under another name (%1)</source>
        <translation>las filas de la medición anterior no se pudieron conservar con otro nombre (%1)</translation>
    </message>
    <message>
        <source>%1. Rows have come since.</source>
        <translation>%1. Desde entonces han llegado más filas.</translation>
    </message>
    <message>
        <source>Sent at %1, but the instrument has not all of it: %2. Correct it or press &quot;Apply Settings&quot; again.</source>
        <translation>Enviado a las %1, pero el instrumento no lo tiene todo: %2. Corríjalo o pulse otra vez «Enviar configuración».</translation>
    </message>
    <message>
        <source>The clock was sent, but could not be read back. Press &quot;Display Logger Time/Date&quot; to see how it stands.</source>
        <translation>El reloj se envió, pero no se pudo volver a leer. Pulse «Mostrar fecha/hora del registrador» para ver cómo está.</translation>
    </message>
    <message>
        <source>The settings that the instrument gave at the beginning of the shutter reset are not those that it gave before: %1. They were sent back as it gave them last.

</source>
        <translation>La configuración que el instrumento dio al comienzo del restablecimiento del obturador no es la que dio antes: %1. Se volvió a enviar tal como la dio la última vez.

</translation>
    </message>
    <message>
        <source>Look at the settings screen; if they are wrong, correct them and press &quot;Apply Settings&quot;.</source>
        <translation>Mire la pantalla de configuración; si está mal, corríjala y pulse «Enviar configuración».</translation>
    </message>
    <message>
        <source>The sheet has rows of another type of instrument. Clear All is on the page Output: Spread Sheet.</source>
        <translation>La hoja tiene filas de otro tipo de instrumento. «Borrar todo» está en la página «Salida: hoja de cálculo».</translation>
    </message>
    <message>
        <source>The instrument ended the run after %1 of %2 rows; %3 has what came</source>
        <translation>El instrumento terminó la medición tras %1 de %2 filas; %3 tiene lo que llegó</translation>
    </message>
    <message>
        <source>Value %1</source>
        <translation>Valor %1</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>Guardado en %1.</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Copiado.</translation>
    </message>
    <message>
        <source>1 row, record %1</source>
        <translation>1 fila, registro %1</translation>
    </message>
    <message>
        <source>%1 rows, records %2 to %3</source>
        <translation>%1 filas, registros %2 a %3</translation>
    </message>
    <message>
        <source>Switch the instrument&apos;s power on: its first line is waited for. Quit ends the wait.</source>
        <translation>Encienda el instrumento: se espera su primera línea. «Cancelar» termina la espera.</translation>
    </message>
    <message>
        <source>%1 of %2 rows</source>
        <translation>%1 de %2 filas</translation>
    </message>
    <message>
        <source>Nothing of this page is sent: it acts on the rows that come from now on.</source>
        <translation>Nada de esta página se envía: vale para las filas que lleguen desde ahora.</translation>
    </message>
    <message>
        <source>What is to be done</source>
        <translation>Qué hacer</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <comment>of the dialog only</comment>
        <translation>Cance&amp;lar</translation>
    </message>
    <message>
        <source>The program is in service mode.</source>
        <translation>El programa está en modo de servicio.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>When read: %1</source>
        <translation>Al leerlo: %1</translation>
    </message>
    <message>
        <source>Connect to read and to send settings.</source>
        <translation>Conecte para leer y enviar la configuración.</translation>
    </message>
    <message>
        <source>No rows yet. Collect or download data, or open a sheet.</source>
        <translation>Aún no hay filas. Mida o descargue datos, o abra una hoja.</translation>
    </message>
    <message>
        <source>Export all rows</source>
        <translation>Exportar todas las filas</translation>
    </message>
    <message>
        <source>%1 and the header row copied.</source>
        <translation>Copiado: %1 y el encabezado.</translation>
    </message>
    <message>
        <source>Dragging chooses a range; a click or Esc drops it.</source>
        <translation>Arrastrar elige un rango; un clic o Esc lo quita.</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>&amp;Nombre de archivo:</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Tipo de archivo:</translation>
    </message>
    <message>
        <source>points/s</source>
        <translation>puntos/s</translation>
    </message>
    <message>
        <source>(memory pointer)</source>
        <translation>(puntero de memoria)</translation>
    </message>
    <message>
        <source>%1 &quot;Start&quot; can do nothing while the port is open.</source>
        <translation>%1 «Iniciar» no hace nada mientras el puerto esté abierto.</translation>
    </message>
    <message>
        <source>COM %1 is open. &quot;Close Port&quot; in the menu &quot;Operation&quot; lets you choose another device.</source>
        <translation>COM %1 está abierto. «Cerrar puerto» en el menú «Operación» permite elegir otro dispositivo.</translation>
    </message>
    <message>
        <source>The first three values of this sheet are %1.</source>
        <translation>Los tres primeros valores de esta hoja son %1.</translation>
    </message>
    <message>
        <source>The capture %1 has no further connection. Choose another port and then this one again to play it from its beginning.</source>
        <translation>La captura %1 no tiene más conexiones. Elija otro puerto y después este de nuevo para reproducirla desde el principio.</translation>
    </message>
    <message>
        <source>It could not be opened.</source>
        <translation>No se pudo abrir.</translation>
    </message>
    <message>
        <source>The line failed.</source>
        <translation>La línea falló.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no replay. %2</source>
        <translation>«%1» no designa ninguna reproducción. %2</translation>
    </message>
    <message>
        <source>The option %1 must be %2, not &quot;%3&quot;.</source>
        <translation>La opción %1 debe ser %2, no «%3».</translation>
    </message>
    <message>
        <source>a number from 0 (without any delay) to 1000</source>
        <translation>un número de 0 (sin ninguna demora) a 1000</translation>
    </message>
    <message>
        <source>There is no option &quot;%1&quot;. The options are %2.</source>
        <translation>No hay ninguna opción «%1». Las opciones son %2.</translation>
    </message>
    <message>
        <source>It must be %1.</source>
        <translation>Debe ser %1.</translation>
    </message>
    <message>
        <source>The cable of the simulated instrument was pulled out. Connecting again plugs it back in.</source>
        <translation>Se desenchufó el cable del instrumento simulado. Al conectar de nuevo se vuelve a enchufar.</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>un número entero de %1 a %2</translation>
    </message>
    <message>
        <source>a number of seconds from 0 to 3600</source>
        <translation>un número de segundos de 0 a 3600</translation>
    </message>
    <message>
        <source>a number from 0.001 to 1000</source>
        <translation>un número de 0.001 a 1000</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 o %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>uno de estos: %1</translation>
    </message>
    <message>
        <source>a number of bytes, 0% to 100% or a number of milliseconds (&quot;1500ms&quot;)</source>
        <translation>un número de bytes, de 0% a 100% o un número de milisegundos («1500ms»)</translation>
    </message>
    <message>
        <source>The option %1 is given twice.</source>
        <translation>La opción %1 aparece dos veces.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no simulated instrument. %2</source>
        <translation>«%1» no designa ningún instrumento simulado. %2</translation>
    </message>
    <message>
        <source>It must begin with sim:trx or sim:glow.</source>
        <translation>Debe comenzar con sim:trx o sim:glow.</translation>
    </message>
    <message>
        <source>The option delay needs fault=late.</source>
        <translation>La opción delay necesita fault=late.</translation>
    </message>
    <message>
        <source>The option after needs fault=cut or fault=unplug.</source>
        <translation>La opción after necesita fault=cut o fault=unplug.</translation>
    </message>
    <message>
        <source>The shutter is being reset: until that is done, these may be temporary settings.</source>
        <translation>El obturador se está restableciendo: hasta que termine, esta configuración puede ser la temporal.</translation>
    </message>
    <message>
        <source>The sheet held unsaved rows of another type of instrument. They have been saved as %1, and stay on the sheet too.

&quot;Clear All&quot; makes room for the rows of the one connected now.</source>
        <translation>La hoja tenía filas sin guardar de otro tipo de instrumento. Se han guardado como %1 y siguen también en la hoja.

«Borrar todo» deja sitio para las filas del instrumento conectado ahora.</translation>
    </message>
    <message>
        <source>Only a number such as -0.5, with a point and no comma.</source>
        <translation>Solo un número como -0.5, con punto y sin coma.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is not counted.</source>
        <translation>1 fila de otro tipo de instrumento no se cuenta.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are not counted.</source>
        <translation>%1 filas de otro tipo de instrumento no se cuentan.</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <comment>the instrument before</comment>
        <translation>An&amp;terior</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <comment>the instrument after</comment>
        <translation>&amp;Siguiente</translation>
    </message>
    <message>
        <source>The sheet holds no rows. Collect or open those of this point first.</source>
        <translation>La hoja no tiene filas. Primero mida o abra las de este punto.</translation>
    </message>
    <message>
        <source>In the frame &quot;KP 7&quot; the value of &quot;%1&quot; in column %2 is empty or 0. Fill it in, then press &quot;Calc DP&quot; again.</source>
        <translation>En el recuadro «KP 7» el valor de «%1» en la columna %2 está vacío o es 0. Complételo y pulse otra vez «Calcular DP».</translation>
    </message>
    <message>
        <source>The value of &quot;%1&quot; for the angle %2 is not from -32768 to 32767. Correct it first.</source>
        <translation>El valor de «%1» para el ángulo %2 no está entre -32768 y 32767. Corríjalo primero.</translation>
    </message>
    <message>
        <source>Only a whole number from -32768 to 32767.</source>
        <translation>Solo un número entero de -32768 a 32767.</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(sin nombre)</translation>
    </message>
    <message>
        <source>1 row is of another type of instrument, with other columns.</source>
        <translation>1 fila es de otro tipo de instrumento, con otras columnas.</translation>
    </message>
    <message>
        <source>%1 rows are of another type of instrument, with other columns.</source>
        <translation>%1 filas son de otro tipo de instrumento, con otras columnas.</translation>
    </message>
</context>
</TS>
