<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>orv</name>
    <message>
        <source>The run has ended</source>
        <translation>Der Lauf ist beendet</translation>
    </message>
    <message>
        <source>The download has ended</source>
        <translation>Der Download ist beendet</translation>
    </message>
    <message>
        <source>It is no capture: its first line does not say so.</source>
        <translation>Das ist keine Mitschrift: Die erste Zeile weist sie nicht als solche aus.</translation>
    </message>
    <message>
        <source>It was made by a newer version of the program (%1). Read it with that version.</source>
        <translation>Sie stammt von einer neueren Version des Programms (%1). Mit dieser Version lesen.</translation>
    </message>
    <message>
        <source>Its first line does not say when it began.</source>
        <translation>Die erste Zeile sagt nicht, wann die Mitschrift begann.</translation>
    </message>
    <message>
        <source>is no JSON object</source>
        <translation>ist kein JSON-Objekt</translation>
    </message>
    <message>
        <source>does not say its time</source>
        <translation>nennt keine Zeit</translation>
    </message>
    <message>
        <source>has characters that are no bytes</source>
        <translation>enthält Zeichen, die keine Bytes sind</translation>
    </message>
    <message>
        <source>It is empty.</source>
        <translation>Sie ist leer.</translation>
    </message>
    <message>
        <source>It is no capture: its first line does not end.</source>
        <translation>Das ist keine Mitschrift: Die erste Zeile endet nicht.</translation>
    </message>
    <message>
        <source>Its line %1 is longer than any of a capture.</source>
        <translation>Zeile %1 ist länger als jede Zeile einer Mitschrift.</translation>
    </message>
    <message>
        <source>Its line %1 %2.</source>
        <translation>Zeile %1 %2.</translation>
    </message>
    <message>
        <source>The capture %1 cannot be read. %2</source>
        <translation>Die Mitschrift %1 kann nicht gelesen werden. %2</translation>
    </message>
    <message>
        <source>It is no file.</source>
        <translation>Das ist keine Datei.</translation>
    </message>
    <message>
        <source>The system says: %1.</source>
        <translation>Das System meldet: %1.</translation>
    </message>
    <message>
        <source>It is larger than any capture (64 MB).</source>
        <translation>Sie ist größer als jede Mitschrift (64 MB).</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>es ist keine Datei</translation>
    </message>
    <message>
        <source>%1 cannot be renamed</source>
        <translation>%1 kann nicht umbenannt werden</translation>
    </message>
    <message>
        <source>the older file of that name could not be kept (%1)</source>
        <translation>die ältere Datei dieses Namens konnte nicht aufbewahrt werden (%1)</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2.

A file that was there before is unchanged. Choose another folder or make room on the disk, then save again.</source>
        <translation>%1 konnte nicht gespeichert werden: %2.

Eine Datei, die schon da war, ist unverändert. Anderen Ordner wählen oder Platz schaffen, dann erneut speichern.</translation>
    </message>
    <message>
        <source>ORV Host Program</source>
        <translation>ORV-Host-Programm</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Überlauf</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Index außerhalb des Bereichs</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch null</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Ungültiges Argument</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Typen unverträglich</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>%1: the operation ended with the error &quot;%2&quot;.

The program goes on and all data is kept.</source>
        <translation>%1: Der Vorgang endete mit dem Fehler „%2“.

Das Programm läuft weiter, alle Daten bleiben erhalten.</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 Tage</translation>
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
        <translation>FARBE WÄHLEN</translation>
    </message>
    <message>
        <source>Add Instrument</source>
        <translation>Instrument hinzufügen</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächstes</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Voriges</translation>
    </message>
    <message>
        <source>Show Instrument</source>
        <translation>Instrument zeigen</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>Calc DP</source>
        <translation>DP berechnen</translation>
    </message>
    <message>
        <source>Save Cal Info</source>
        <translation>Kalibrierinfo speichern</translation>
    </message>
    <message>
        <source>no control bit</source>
        <translation>kein Steuerbit</translation>
    </message>
    <message>
        <source>; samples per point %1</source>
        <translation>; Abtastungen pro Punkt %1</translation>
    </message>
    <message>
        <source>, points per block %1</source>
        <translation>, Punkte pro Block %1</translation>
    </message>
    <message>
        <source>, seconds between points %1</source>
        <translation>, Sekunden zwischen Punkten %1</translation>
    </message>
    <message>
        <source>, hours before a block %1</source>
        <translation>, Stunden vor einem Block %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Reset Shutter</source>
        <translation>Verschluss zurücksetzen</translation>
    </message>
    <message>
        <source>Getting Settings</source>
        <translation>Einstellungen lesen</translation>
    </message>
    <message>
        <source>Sending New Settings</source>
        <translation>Neue Einstellungen senden</translation>
    </message>
    <message>
        <source>Restoring Orignal Settings</source>
        <translation>Einstellungen wiederherstellen</translation>
    </message>
    <message>
        <source>Moving Shutter</source>
        <translation>Verschluss bewegt sich</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>The settings from before could not be sent back. The instrument may still hold the temporary settings (%1).

</source>
        <translation>Die früheren Einstellungen konnten nicht zurückgesendet werden. Das Instrument hat vielleicht noch die vorübergehenden Einstellungen (%1).

</translation>
    </message>
    <message>
        <source>The settings from before are on the settings screen again (%1). When the instrument answers, send them with &quot;Apply Settings&quot;.</source>
        <translation>Die früheren Einstellungen stehen wieder im Einstellungsfenster (%1). Sobald das Instrument antwortet, mit „Einstellungen senden“ übertragen.</translation>
    </message>
    <message>
        <source>The shutter reset was interrupted before the temporary settings were sent. The instrument still has its own settings.</source>
        <translation>Das Zurücksetzen des Verschlusses wurde unterbrochen, bevor die vorübergehenden Einstellungen gesendet wurden. Das Instrument hat noch seine eigenen Einstellungen.</translation>
    </message>
    <message>
        <source>The shutter reset was interrupted. The instrument may still hold the temporary settings (%1).

</source>
        <translation>Das Zurücksetzen des Verschlusses wurde unterbrochen. Das Instrument hat vielleicht noch die vorübergehenden Einstellungen (%1).

</translation>
    </message>
    <message>
        <source>Its settings from before: %1.

When it is connected again, compare them with the settings screen, and send them with &quot;Apply Settings&quot; if they differ. This message can stay open meanwhile.</source>
        <translation>Seine früheren Einstellungen: %1.

Sobald es wieder verbunden ist: mit dem Einstellungsfenster vergleichen und bei Abweichung mit „Einstellungen senden“ übertragen. Diese Meldung kann solange offen bleiben.</translation>
    </message>
    <message>
        <source>Resetting Shutter</source>
        <translation>Verschluss wird zurückgesetzt</translation>
    </message>
    <message>
        <source>Air</source>
        <translation>Luft</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Reinwasser</translation>
    </message>
    <message>
        <source>Point 1</source>
        <translation>Punkt 1</translation>
    </message>
    <message>
        <source>Point 2</source>
        <translation>Punkt 2</translation>
    </message>
    <message>
        <source>Point 3</source>
        <translation>Punkt 3</translation>
    </message>
    <message>
        <source>Point 4</source>
        <translation>Punkt 4</translation>
    </message>
    <message>
        <source>&amp;Red</source>
        <translation>&amp;Rot</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>Bla&amp;u</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Grün</translation>
    </message>
    <message>
        <source>Worksheet</source>
        <translation>Arbeitsblatt</translation>
    </message>
    <message>
        <source>the netCDF library is missing. Install it (on Debian: apt install libnetcdf19), or choose a name that ends in .csv</source>
        <translation>die netCDF-Bibliothek fehlt. Installieren (unter Debian: apt install libnetcdf19) oder einen Namen wählen, der auf .csv endet</translation>
    </message>
    <message>
        <source>it is a folder or a device, not a file</source>
        <translation>es ist ein Ordner oder ein Gerät, keine Datei</translation>
    </message>
    <message>
        <source>a file of that name is there already</source>
        <translation>eine Datei dieses Namens gibt es schon</translation>
    </message>
    <message>
        <source>a sheet holds at most %1 rows</source>
        <translation>ein Blatt fasst höchstens %1 Zeilen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>CSV or NetCDF (*.csv *.nc)</source>
        <translation>CSV oder NetCDF (*.csv *.nc)</translation>
    </message>
    <message>
        <source>The sheet could not be exported as %1: %2.

Its rows are still on the sheet.</source>
        <translation>Das Blatt konnte nicht als %1 exportiert werden: %2.

Seine Zeilen sind noch auf dem Blatt.</translation>
    </message>
    <message>
        <source>it has no known type of instrument</source>
        <translation>es hat keinen bekannten Instrumenttyp</translation>
    </message>
    <message>
        <source>choose a name that ends in .csv or .nc</source>
        <translation>einen Namen wählen, der auf .csv oder .nc endet</translation>
    </message>
    <message>
        <source>%1 has been written.

%2</source>
        <translation>%1 wurde geschrieben.

%2</translation>
    </message>
    <message>
        <source>1 time could not be read and is missing.</source>
        <translation>1 Zeit konnte nicht gelesen werden und fehlt.</translation>
    </message>
    <message>
        <source>%1 times could not be read and are missing.</source>
        <translation>%1 Zeiten konnten nicht gelesen werden und fehlen.</translation>
    </message>
    <message>
        <source>1 number could not be read and is missing.</source>
        <translation>1 Zahl konnte nicht gelesen werden und fehlt.</translation>
    </message>
    <message>
        <source>%1 numbers could not be read and are missing.</source>
        <translation>%1 Zahlen konnten nicht gelesen werden und fehlen.</translation>
    </message>
    <message>
        <source>1 value was not there and is missing.</source>
        <translation>1 Wert war nicht da und fehlt.</translation>
    </message>
    <message>
        <source>%1 values were not there and are missing.</source>
        <translation>%1 Werte waren nicht da und fehlen.</translation>
    </message>
    <message>
        <source>1 line could not be read as a row and is left out.</source>
        <translation>1 Zeile konnte nicht als Messzeile gelesen werden und ist ausgelassen.</translation>
    </message>
    <message>
        <source>%1 lines could not be read as rows and are left out.</source>
        <translation>%1 Zeilen konnten nicht als Messzeilen gelesen werden und sind ausgelassen.</translation>
    </message>
    <message>
        <source>1 record number is left out between rows.</source>
        <translation>1 Datensatznummer fehlt zwischen den Zeilen.</translation>
    </message>
    <message>
        <source>%1 record numbers are left out between rows.</source>
        <translation>%1 Datensatznummern fehlen zwischen den Zeilen.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is left out.</source>
        <translation>1 Zeile eines anderen Instrumenttyps ist ausgelassen.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are left out.</source>
        <translation>%1 Zeilen eines anderen Instrumenttyps sind ausgelassen.</translation>
    </message>
    <message>
        <source>1 last reference of the older TRX has no column in a sheet file and is left out; .csv, .nc and .jsonl have one.</source>
        <translation>1 letzte Referenz des älteren TRX hat in einer Blattdatei keine Spalte und ist ausgelassen; .csv, .nc und .jsonl haben eine.</translation>
    </message>
    <message>
        <source>%1 last references of the older TRX have no column in a sheet file and are left out; .csv, .nc and .jsonl have one.</source>
        <translation>%1 letzte Referenzen des älteren TRX haben in einer Blattdatei keine Spalte und sind ausgelassen; .csv, .nc und .jsonl haben eine.</translation>
    </message>
    <message>
        <source>1 last line had no end and is left out.</source>
        <translation>1 letzte Zeile hatte kein Ende und ist ausgelassen.</translation>
    </message>
    <message>
        <source>%1 last lines had no end and are left out.</source>
        <translation>%1 letzte Zeilen hatten kein Ende und sind ausgelassen.</translation>
    </message>
    <message>
        <source>%1 could not be opened.

%2</source>
        <translation>%1 konnte nicht geöffnet werden.

%2</translation>
    </message>
    <message>
        <source>The debug output (&quot;Comm 2 Debug Output&quot;) is using it. Connect the instrument to the other port, or clear the box.</source>
        <translation>Die Debug-Ausgabe („Debug-Ausgabe auf COM 2“) benutzt ihn. Das Instrument am anderen Anschluss verbinden oder das Häkchen entfernen.</translation>
    </message>
    <message>
        <source>The connection on %1 was lost.

%2

</source>
        <translation>Die Verbindung an %1 ging verloren.

%2

</translation>
    </message>
    <message>
        <source>All rows received so far are kept. Check the cable, then connect again.</source>
        <translation>Alle empfangenen Zeilen bleiben erhalten. Kabel prüfen, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>The instrument is connected on it. Use &quot;Close Port&quot; first, or connect the instrument to COM 1.</source>
        <translation>Das Instrument ist daran verbunden. Zuerst „Anschluss schließen“ wählen oder das Instrument an COM 1 verbinden.</translation>
    </message>
    <message>
        <source>tick &quot;Comm 2 Debug Output&quot; again</source>
        <translation>„Debug-Ausgabe auf COM 2“ erneut ankreuzen</translation>
    </message>
    <message>
        <source>The debug output on %1</source>
        <translation>Die Debug-Ausgabe auf %1</translation>
    </message>
    <message>
        <source>The debug output on COM 2 has stopped.

%1

Tick &quot;Comm 2 Debug Output&quot; to try again.</source>
        <translation>Die Debug-Ausgabe auf COM 2 ist beendet.

%1

Zum Wiederholen „Debug-Ausgabe auf COM 2“ ankreuzen.</translation>
    </message>
    <message>
        <source>%1 was lost. Check the cable, then press Connect.</source>
        <translation>Verbindung an %1 verloren. Kabel prüfen, dann „Verbinden“ drücken.</translation>
    </message>
    <message>
        <source>Auto Connect Comm 1</source>
        <translation>Automatisch verbinden, COM 1</translation>
    </message>
    <message>
        <source>Auto Connect Comm 2</source>
        <translation>Automatisch verbinden, COM 2</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Verbindungsaufbau …</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>No answer from COM %1</source>
        <translation>Keine Antwort von COM %1</translation>
    </message>
    <message>
        <source>No answer from %1 within %2 s. Check power and cable, press Quit, connect again.</source>
        <translation>Keine Antwort von %1 innerhalb von %2 s. Strom und Kabel prüfen, „Abbrechen“ drücken, erneut verbinden.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>To start manual connection on Comm %1, click Proceed. If you wish to exit connection proccess click Quit</source>
        <translation>Für die manuelle Verbindung an COM %1 auf „Fortfahren“ klicken. Andernfalls auf „Abbrechen“ klicken.</translation>
    </message>
    <message>
        <source>Attempt to Auto Connect Via Comm %1 Failed!      Make sure that this cable is DTR enabled, that power is supplied to the instrument, and that you selected the right Comm Port. Click Retry when ready.</source>
        <translation>Die automatische Verbindung über COM %1 ist gescheitert!      Prüfen, ob das Kabel DTR führt, das Instrument Strom hat und der richtige Anschluss gewählt ist. Dann auf „Erneut versuchen“ klicken.</translation>
    </message>
    <message>
        <source>An attempt is under way.</source>
        <translation>Ein Versuch läuft.</translation>
    </message>
    <message>
        <source>The port is still open, so this would do nothing. Press Quit, then connect again.</source>
        <translation>Der Anschluss ist noch offen, daher bliebe dies ohne Wirkung. „Abbrechen“ drücken, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>Shut power off of sensor. Press (Start) then turn power on.</source>
        <translation>Strom des Sensors ausschalten. „Starten“ drücken, dann Strom einschalten.</translation>
    </message>
    <message>
        <source>Manual Connect</source>
        <translation>Manuell verbinden</translation>
    </message>
    <message>
        <source>Waiting for the instrument. &quot;Quit&quot; in the dialog ends it.</source>
        <translation>Warten auf das Instrument. „Abbrechen“ im Dialog beendet es.</translation>
    </message>
    <message>
        <source>%1 is a file that this program writes itself while it runs, so nothing can be saved there.

Save again under another name.</source>
        <translation>%1 ist eine Datei, die das Programm im Betrieb selbst schreibt; dort kann nichts gespeichert werden.

Unter einem anderen Namen speichern.</translation>
    </message>
    <message>
        <source>The log file %1 can no longer be written: %2.

The program goes on; make room on the disk so that the log is complete again.</source>
        <translation>Die Logdatei %1 kann nicht mehr geschrieben werden: %2.

Das Programm läuft weiter; Platz schaffen, damit das Log wieder vollständig ist.</translation>
    </message>
    <message>
        <source>The log file %1 has become long and goes on in a new file. What was received before is in %2.

From now on this is done without a word, and only the newest of the older files is kept. Copy them if you need more.</source>
        <translation>Die Logdatei %1 ist lang geworden und geht in einer neuen Datei weiter. Was vorher empfangen wurde, steht in %2.

Von jetzt an geschieht das ohne Meldung, und nur die neueste der älteren Dateien bleibt. Bei Bedarf kopieren.</translation>
    </message>
    <message>
        <source>The log file %1 has become long, and no new one could be begun: %2.

The program goes on. Make room in the folder, and start the program again when you can.</source>
        <translation>Die Logdatei %1 ist lang geworden, und keine neue konnte begonnen werden: %2.

Das Programm läuft weiter. Platz im Ordner schaffen und das Programm bei Gelegenheit neu starten.</translation>
    </message>
    <message>
        <source>connect again</source>
        <translation>erneut verbinden</translation>
    </message>
    <message>
        <source>The debug output uses COM %1. Clear &quot;Comm 2 Debug Output&quot; on the debug screen to free it.</source>
        <translation>Die Debug-Ausgabe benutzt COM %1. „Debug-Ausgabe auf COM 2“ auf der Debug-Seite ausschalten, um den Anschluss freizugeben.</translation>
    </message>
    <message>
        <source>Simulated instrument on %1</source>
        <translation>Simuliertes Instrument an %1</translation>
    </message>
    <message>
        <source>Simulated instruments on COM 1 and COM 2</source>
        <translation>Simulierte Instrumente an COM 1 und COM 2</translation>
    </message>
    <message>
        <source>%1 is not there now. Plug it in, or choose another port.</source>
        <translation>%1 ist gerade nicht da. Einstecken oder einen anderen Anschluss wählen.</translation>
    </message>
    <message>
        <source>simulated scattering meter</source>
        <translation>simuliertes Streulichtmessgerät</translation>
    </message>
    <message>
        <source>simulated fluorometer</source>
        <translation>simuliertes Fluorometer</translation>
    </message>
    <message>
        <source>COM %1 is set to %2 already. Choose another device here, or change COM %1 first.</source>
        <translation>COM %1 steht schon auf %2. Hier ein anderes Gerät wählen oder zuerst COM %1 ändern.</translation>
    </message>
    <message>
        <source>%1 COM %2 stays %3.</source>
        <translation>%1 COM %2 bleibt %3.</translation>
    </message>
    <message>
        <source>%1 has ended: %2.

</source>
        <translation>%1 wurde abgebrochen: %2.

</translation>
    </message>
    <message>
        <source>Save the sheet and start the program again.</source>
        <translation>Das Blatt speichern und das Programm neu starten.</translation>
    </message>
    <message>
        <source>There is no such device. Plug the adapter in, check the device&apos;s name, and connect again.</source>
        <translation>Ein solches Gerät gibt es nicht. Adapter einstecken, Gerätenamen prüfen und erneut verbinden.</translation>
    </message>
    <message>
        <source>It is not a serial port. Choose the device of the serial adapter and connect again.</source>
        <translation>Das ist kein serieller Anschluss. Das Gerät des seriellen Adapters wählen und erneut verbinden.</translation>
    </message>
    <message>
        <source>You have no permission to use it. Ask for your user to be added to the group &quot;%1&quot; (sudo usermod -aG %1 $USER), log out and in again, then connect again.</source>
        <translation>Keine Berechtigung dafür. Den eigenen Benutzer in die Gruppe „%1“ aufnehmen lassen (sudo usermod -aG %1 $USER), ab- und wieder anmelden, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>It is used by another program%1. Close that program, then connect again.</source>
        <translation>Ein anderes Programm benutzt ihn%1. Dieses Programm schließen, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>The lock file that keeps other programs off the port cannot be written in %1. Ask for write permission to that folder, log out and in again, then connect again.</source>
        <translation>Die Sperrdatei, die andere Programme vom Anschluss fernhält, kann in %1 nicht geschrieben werden. Um Schreibrecht für diesen Ordner bitten, ab- und wieder anmelden, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>The system says: %1. Unplug the adapter and plug it in again, then connect again.</source>
        <translation>Das System meldet: %1. Adapter abziehen und wieder einstecken, dann erneut verbinden.</translation>
    </message>
    <message>
        <source>process %1</source>
        <translation>Prozess %1</translation>
    </message>
    <message>
        <source>The device is gone: the cable was pulled or the adapter switched off.</source>
        <translation>Das Gerät ist nicht mehr da: Das Kabel wurde gezogen oder der Adapter ausgeschaltet.</translation>
    </message>
    <message>
        <source>The capture has ended: %1 cannot be written any further: %2.

What was captured before is kept, and the program goes on. Make room on the disk and start it again to capture on.</source>
        <translation>Die Mitschrift ist zu Ende: %1 kann nicht weitergeschrieben werden: %2.

Was bis dahin mitgeschrieben wurde, bleibt erhalten, und das Programm läuft weiter. Platz schaffen und das Programm neu starten, um weiter mitzuschreiben.</translation>
    </message>
    <message>
        <source>the program keeps that file itself</source>
        <translation>das Programm führt diese Datei selbst</translation>
    </message>
    <message>
        <source>Nothing is captured: %1 cannot be written: %2.

The program goes on without. Name a file in a folder where you may write, and start it again.</source>
        <translation>Nichts wird mitgeschrieben: %1 kann nicht geschrieben werden: %2.

Das Programm läuft ohne Mitschrift weiter. Eine Datei in einem Ordner mit Schreibrecht nennen und das Programm neu starten.</translation>
    </message>
    <message>
        <source>Save Support File</source>
        <translation>Supportdatei speichern</translation>
    </message>
    <message>
        <source>%1 tells what went over the line and what was done in the last ten minutes. Send it along when you ask for help. It can be read as text; your own files are not in it.</source>
        <translation>%1 enthält, was in den letzten zehn Minuten geschah und über die Leitung ging. Bei Supportanfragen mitsenden. Die Datei ist als Text lesbar; eigene Dateien sind nicht darin.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no device. Give a serial port&apos;s name or path (ttyUSB0, /dev/ttyUSB0, COM3) or a simulated instrument (sim:trx, sim:glow).</source>
        <translation>„%1“ ist kein Gerät. Namen oder Pfad eines seriellen Anschlusses (ttyUSB0, /dev/ttyUSB0, COM3) oder ein simuliertes Instrument (sim:trx, sim:glow) angeben.</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 Zeile</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 Zeilen</translation>
    </message>
    <message>
        <source>Switch the instrument&apos;s power on.</source>
        <translation>Strom des Instruments einschalten.</translation>
    </message>
    <message>
        <source>Waking the instrument on COM %1 (%2). This takes a few seconds.</source>
        <translation>Das Instrument an COM %1 (%2) wird geweckt. Das dauert einige Sekunden.</translation>
    </message>
    <message>
        <source>Collecting. Reset ends the run.</source>
        <translation>Messung läuft. „Zurücksetzen“ beendet den Lauf.</translation>
    </message>
    <message>
        <source>%1. Reset ends the run.</source>
        <translation>%1. „Zurücksetzen“ beendet den Lauf.</translation>
    </message>
    <message>
        <source> Only %1.</source>
        <translation> Nur noch %1.</translation>
    </message>
    <message>
        <source>Reading the instrument&apos;s settings.</source>
        <translation>Die Einstellungen des Instruments werden gelesen.</translation>
    </message>
    <message>
        <source>Downloading. Reset stops it; what has arrived is kept.</source>
        <translation>Download läuft. „Zurücksetzen“ bricht ihn ab; was angekommen ist, bleibt.</translation>
    </message>
    <message>
        <source>Sending the settings.</source>
        <translation>Die Einstellungen werden gesendet.</translation>
    </message>
    <message>
        <source>Setting the instrument&apos;s clock.</source>
        <translation>Die Uhr des Instruments wird gestellt.</translation>
    </message>
    <message>
        <source>Moving the shutter.</source>
        <translation>Der Verschluss bewegt sich.</translation>
    </message>
    <message>
        <source>%1, not saved. Save As is on the page Output: Spread Sheet.</source>
        <translation>%1, nicht gespeichert. „Speichern unter“ ist auf der Seite „Ausgabe: Tabellenblatt“.</translation>
    </message>
    <message>
        <source>Plug in an adapter, or choose a port and press Connect.</source>
        <translation>Adapter einstecken oder einen Anschluss wählen, dann „Verbinden“ drücken.</translation>
    </message>
    <message>
        <source>Choose a port and press Connect.</source>
        <translation>Anschluss wählen und „Verbinden“ drücken.</translation>
    </message>
    <message>
        <source>The instrument has not said what it is. Press Reset to ask again.</source>
        <translation>Das Instrument hat nicht gesagt, was es ist. „Zurücksetzen“ fragt noch einmal.</translation>
    </message>
    <message>
        <source>Press Run to collect. Reset ends a run.</source>
        <translation>„Messen“ beginnt einen Lauf, „Zurücksetzen“ beendet ihn.</translation>
    </message>
    <message>
        <source>A question waits for your answer.</source>
        <translation>Eine Frage wartet auf Antwort.</translation>
    </message>
    <message>
        <source>The dialog Manual Connection says how to go on.</source>
        <translation>Der Dialog „Manuelle Verbindung“ sagt, wie es weitergeht.</translation>
    </message>
    <message>
        <source>Status and Controls</source>
        <translation>Status und Steuerung</translation>
    </message>
    <message>
        <source>Output: Spread Sheet</source>
        <translation>Ausgabe: Tabellenblatt</translation>
    </message>
    <message>
        <source>Output: Graphical</source>
        <translation>Ausgabe: Kurven</translation>
    </message>
    <message>
        <source>Debug Screen</source>
        <translation>Debug-Seite</translation>
    </message>
    <message>
        <source>Testing</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Close Port</source>
        <translation>Anschluss schließen</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Alles löschen</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Download Stored Data</source>
        <translation>Gespeicherte Daten herunterladen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>The rows on the sheet are not saved, and could not be kept for the next start either: %1.</source>
        <translation>Die Zeilen auf dem Blatt sind nicht gespeichert und konnten auch nicht für den nächsten Start aufbewahrt werden: %1.</translation>
    </message>
    <message>
        <source>Reading the port</source>
        <translation>Anschluss lesen</translation>
    </message>
    <message>
        <source>Reading the settings</source>
        <translation>Einstellungen werden gelesen</translation>
    </message>
    <message>
        <source>Reading the clock</source>
        <translation>Uhr lesen</translation>
    </message>
    <message>
        <source>Collecting</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Download</translation>
    </message>
    <message>
        <source>%1 rows/s</source>
        <translation>%1 Zeilen/s</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>No row for %1</source>
        <translation>Seit %1 keine Zeile</translation>
    </message>
    <message>
        <source>%1 MB are free on the disk</source>
        <translation>%1 MB auf der Platte frei</translation>
    </message>
    <message>
        <source>No lock file can be made in this folder, perhaps because the disk is full: %1

So that no other program&apos;s files are written to, this program works without log and record file. Make room on the disk, or choose another folder, and start the program again.</source>
        <translation>In diesem Ordner kann keine Sperrdatei angelegt werden, vielleicht weil die Platte voll ist: %1

Damit nicht in Dateien anderer Programme geschrieben wird, arbeitet das Programm ohne Log und Aufzeichnungsdatei. Platz schaffen oder einen anderen Ordner wählen, dann das Programm neu starten.</translation>
    </message>
    <message>
        <source>This program works without such files. Start it in another folder, so that log and record file are kept.</source>
        <translation>Das Programm arbeitet ohne diese Dateien. In einem anderen Ordner starten, damit Log und Aufzeichnungsdatei geführt werden.</translation>
    </message>
    <message>
        <source>This program writes %1 and %2 instead.</source>
        <translation>Dieses Programm schreibt stattdessen %1 und %2.</translation>
    </message>
    <message>
        <source>Another ORV Host Program uses this folder (%1): %2

Its log and record file are left alone. %3</source>
        <translation>Ein anderes ORV-Host-Programm benutzt diesen Ordner (%1): %2

Dessen Log und Aufzeichnungsdatei bleiben unberührt. %3</translation>
    </message>
    <message>
        <source>The log file %1 cannot be written in this folder: %2.

The program works without it. Start it in a folder where you may write files, so that log and record file are kept.</source>
        <translation>Die Logdatei %1 kann in diesem Ordner nicht geschrieben werden: %2.

Das Programm arbeitet ohne sie. In einem Ordner mit Schreibrecht starten, damit Log und Aufzeichnungsdatei geführt werden.</translation>
    </message>
    <message>
        <source>Load Device File</source>
        <translation>Gerätedatei laden</translation>
    </message>
    <message>
        <source>Save Device File</source>
        <translation>Gerätedatei speichern</translation>
    </message>
    <message>
        <source>Auto &amp;Start</source>
        <translation>Auto-&amp;Start</translation>
    </message>
    <message>
        <source>Auto Start: This tells the logger to start collecting data at power up.</source>
        <translation>Auto-Start: Der Logger beginnt beim Einschalten mit der Messung.</translation>
    </message>
    <message>
        <source>&amp;Gain</source>
        <translation>&amp;Verstärkung</translation>
    </message>
    <message>
        <source>Function not available</source>
        <translation>Funktion nicht verfügbar</translation>
    </message>
    <message>
        <source>Aux A&amp;DC</source>
        <translation>Aux-&amp;ADC</translation>
    </message>
    <message>
        <source>&amp;Log Enabled</source>
        <translation>Au&amp;fzeichnen</translation>
    </message>
    <message>
        <source>Log Enabled: This tells the logger to record data in memory</source>
        <translation>Aufzeichnen: Der Logger zeichnet Daten im Speicher auf</translation>
    </message>
    <message>
        <source>&amp;Wake Up</source>
        <translation>Auf&amp;wachen</translation>
    </message>
    <message>
        <source>Wake Up: This tells the logger to sleep after gathering a data block or stay ready to accept a command.</source>
        <translation>Aufwachen: Nach einem Datenblock bleibt der Logger für Befehle bereit. Ohne Häkchen schläft er.</translation>
    </message>
    <message>
        <source>App&amp;end</source>
        <translation>A&amp;nhängen</translation>
    </message>
    <message>
        <source>Append: This tells the logger to add new data blocks to the end of memory. If this is not set, all pervious data blocks will be erased.</source>
        <translation>Anhängen: Der Logger fügt neue Datenblöcke am Ende des Speichers an. Sonst werden alle früheren Datenblöcke gelöscht.</translation>
    </message>
    <message>
        <source>Samples Per &amp;Second</source>
        <translation>Abta&amp;stungen pro Messpunkt</translation>
    </message>
    <message>
        <source>This tells the logger to grab X number of samples and average then to determine one data point.</source>
        <translation>Der Logger macht so viele Abtastungen und mittelt sie zu einem Messpunkt.</translation>
    </message>
    <message>
        <source>Delay &amp;Before Data Blocks (hours)</source>
        <translation>Pause &amp;vor Datenblöcken (Stunden)</translation>
    </message>
    <message>
        <source>This is the amount of time in hours that the logger will wait before collecting a data block. For example: A value of 24 is 1 data block per 24 hours.</source>
        <translation>So viele Stunden wartet der Logger, bevor er einen Datenblock erfasst. Beispiel: 24 heißt 1 Datenblock in 24 Stunden.</translation>
    </message>
    <message>
        <source>&amp;Number of Data Points per Data Block</source>
        <translation>&amp;Anzahl Messpunkte pro Datenblock</translation>
    </message>
    <message>
        <source>Delay Between Data &amp;Points (Seconds)</source>
        <translation>Pause zwischen Mess&amp;punkten (Sekunden)</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>is not a complete mode file: it has fewer than ten lines</source>
        <translation>ist keine vollständige Modusdatei: Sie hat weniger als zehn Zeilen</translation>
    </message>
    <message>
        <source>is not a mode file: line %1 must be empty or hold at most %2 digits</source>
        <translation>ist keine Modusdatei: Zeile %1 muss leer sein oder höchstens %2 Ziffern haben</translation>
    </message>
    <message>
        <source>is not a mode file: line %1 must hold a number</source>
        <translation>ist keine Modusdatei: Zeile %1 muss eine Zahl enthalten</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Moored</source>
        <translation>Verankert</translation>
    </message>
    <message>
        <source>Save A User Defined Mode</source>
        <translation>Eigenen Modus speichern</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>%1 could not be written; nothing was saved.</source>
        <translation>%1 konnte nicht geschrieben werden; nichts wurde gespeichert.</translation>
    </message>
    <message>
        <source>Load A User Defined Mode</source>
        <translation>Eigenen Modus laden</translation>
    </message>
    <message>
        <source>%1 was not loaded: the instrument is busy. Try again.</source>
        <translation>„%1“ wurde nicht geladen: Das Instrument ist beschäftigt. Noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The mode file %1 could not be opened: %2.</source>
        <translation>Die Modusdatei %1 konnte nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>The mode file %1 could not be read: %2.</source>
        <translation>Die Modusdatei %1 konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>Loaded %1.</source>
        <translation>„%1“ geladen.</translation>
    </message>
    <message>
        <source>Sending %1...</source>
        <translation>„%1“ wird gesendet …</translation>
    </message>
    <message>
        <source>%1 was not sent whole: the connection ended.</source>
        <translation>„%1“ wurde nicht ganz gesendet: Die Verbindung endete.</translation>
    </message>
    <message>
        <source>%1 was sent.</source>
        <translation>„%1“ ist gesendet.</translation>
    </message>
    <message>
        <source>%1 was not sent whole: the instrument did not answer. Try again.</source>
        <translation>„%1“ wurde nicht ganz gesendet: Das Instrument antwortete nicht. Noch einmal versuchen.</translation>
    </message>
    <message>
        <source>

Nothing was changed and nothing was sent.</source>
        <translation>

Nichts wurde geändert und nichts gesendet.</translation>
    </message>
    <message>
        <source> half a second</source>
        <translation> eine halbe Sekunde</translation>
    </message>
    <message>
        <source> an hour</source>
        <translation> eine Stunde</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 Stunden</translation>
    </message>
    <message>
        <source>Then the sensor will sleep for %1 hour(s), %2 minute(s), %3 second(s).</source>
        <translation>Dann schläft der Sensor%1 h%2 min%3 s.</translation>
    </message>
    <message>
        <source>     The Orv Sensor will start to collect data % after power up</source>
        <translation>Der Orv-Sensor beginnt% nach dem Einschalten mit der Messung.</translation>
    </message>
    <message>
        <source>     The Orv Sensor will come up waiting for a command.</source>
        <translation>Der Orv-Sensor wartet nach dem Einschalten auf einen Befehl.</translation>
    </message>
    <message>
        <source>If you press run, it will start to collect data% after you press run.</source>
        <translation>Wird „Messen“ gedrückt, beginnt die Messung% danach.</translation>
    </message>
    <message>
        <source>It will bin for % sample(s) to create 1 data point.</source>
        <translation>Für 1 Messpunkt tastet er %-mal ab und bildet den Mittelwert.</translation>
    </message>
    <message>
        <source>After this it wakes up and takes another data point. The process</source>
        <translation>Danach wacht er auf und nimmt den nächsten Messpunkt auf.</translation>
    </message>
    <message>
        <source>continues until power is shut off. All of the data collected is known as the data block</source>
        <translation>Das wiederholt sich bis zum Ausschalten. Alle Messpunkte bilden den Datenblock.</translation>
    </message>
    <message>
        <source>The data point displayed will be saved in memory.</source>
        <translation>Der angezeigte Messpunkt wird im Speicher aufgezeichnet.</translation>
    </message>
    <message>
        <source>The data point displayed will not be saved in memory.</source>
        <translation>Der angezeigte Messpunkt wird nicht im Speicher aufgezeichnet.</translation>
    </message>
    <message>
        <source>continues for % data points to create 1 data block.</source>
        <translation>Das wiederholt sich, bis 1 Datenblock voll ist (Messpunkte: %).</translation>
    </message>
    <message>
        <source>After finishing a data block, the sensor will wait for new commands.</source>
        <translation>Nach einem Datenblock wartet der Sensor auf neue Befehle.</translation>
    </message>
    <message>
        <source>After finishing a data block, the sensor will sleep until power is cycled.</source>
        <translation>Nach einem Datenblock schläft der Sensor, bis der Strom aus- und eingeschaltet wird.</translation>
    </message>
    <message>
        <source>If you decide to take another data block, data in memory will be %.</source>
        <translation>Beim nächsten Datenblock werden die Daten im Speicher %.</translation>
    </message>
    <message>
        <source>appended</source>
        <translation>ergänzt</translation>
    </message>
    <message>
        <source>erased</source>
        <translation>gelöscht</translation>
    </message>
    <message>
        <source>Loading Properties</source>
        <translation>Einstellungen werden gelesen</translation>
    </message>
    <message>
        <source>Read from the instrument at %1</source>
        <translation>Vom Instrument gelesen um %1</translation>
    </message>
    <message>
        <source>Read at %1, but not all: %2 could not be read. Press &quot;Retrieve Settings&quot;.</source>
        <translation>Gelesen um %1, aber nicht alles: %2 nicht lesbar. „Einstellungen lesen“ drücken.</translation>
    </message>
    <message>
        <source>%1 could not be read back</source>
        <translation>%1 konnte nicht zurückgelesen werden</translation>
    </message>
    <message>
        <source>%1 is %2 there, not %3</source>
        <translation>%1 ist dort %2, nicht %3</translation>
    </message>
    <message>
        <source>Sent and read back at %1</source>
        <translation>Gesendet und zurückgelesen um %1</translation>
    </message>
    <message>
        <source>No answer for 10 s. Reset connects again.</source>
        <translation>Seit 10 s keine Antwort. „Zurücksetzen“ verbindet neu.</translation>
    </message>
    <message>
        <source>This was the 150th line of settings reports since the program started. There it ends the connection, once. Nothing is wrong: press Quit and connect again.</source>
        <translation>Dies war die 150. Zeile von Einstellungsberichten seit dem Programmstart. An dieser Stelle beendet das Programm die Verbindung, ein einziges Mal. Alles ist in Ordnung: „Abbrechen“ drücken und erneut verbinden.</translation>
    </message>
    <message>
        <source>%1 behind this computer&apos;s</source>
        <translation>geht gegenüber dem Computer %1 nach</translation>
    </message>
    <message>
        <source>%1 ahead of this computer&apos;s</source>
        <translation>geht gegenüber dem Computer %1 vor</translation>
    </message>
    <message>
        <source>Unable to read clock. Error #2</source>
        <translation>Uhr nicht lesbar. Fehler Nr. 2</translation>
    </message>
    <message>
        <source>Software Error</source>
        <translation>Softwarefehler</translation>
    </message>
    <message>
        <source>Sending ...</source>
        <translation>Wird gesendet …</translation>
    </message>
    <message>
        <source>Not sent whole: the instrument did not answer. What was sent before stays in it. Connect or press &quot;Retrieve Settings&quot; to see what it has.</source>
        <translation>Nicht ganz gesendet: Das Instrument antwortete nicht. Was vorher gesendet wurde, bleibt darin. Verbinden oder „Einstellungen lesen“ drücken, um zu sehen, was es hat.</translation>
    </message>
    <message>
        <source>Sent, and not read back yet</source>
        <translation>Gesendet und noch nicht zurückgelesen</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set to the minute and is %1 behind: the command carries no seconds.</source>
        <translation>Die Uhr des Instruments wurde nach Stunde und Minute gestellt und geht %1 nach: Der Befehl kennt keine Sekunden.</translation>
    </message>
    <message>
        <source>Sent, but the clock was not set and nothing was read back: the instrument did not answer. Press &quot;Retrieve Settings&quot; to see what it has.</source>
        <translation>Gesendet, aber die Uhr wurde nicht gestellt und nichts zurückgelesen: Das Instrument antwortete nicht. „Einstellungen lesen“ zeigt, was es hat.</translation>
    </message>
    <message>
        <source>Error Sending Prefs. Error Code 1</source>
        <translation>Fehler beim Senden der Einstellungen. Fehlercode 1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Logging and Continues Sampling invalid.</source>
        <translation>Aufzeichnen braucht einen Datenblock mit Ende. Bei „Anzahl Messpunkte pro Datenblock“ 1 bis 65535 eintragen oder „Aufzeichnen“ abwählen. Nichts wurde gesendet.</translation>
    </message>
    <message>
        <source>Invalid Setup</source>
        <translation>Ungültige Einstellung</translation>
    </message>
    <message>
        <source>Apply Settings</source>
        <translation>Einstellungen senden</translation>
    </message>
    <message>
        <source>Sync Time/Date</source>
        <translation>Uhrzeit/Datum stellen</translation>
    </message>
    <message>
        <source>The instrument did not say what it is. Connect again.</source>
        <translation>Das Instrument hat nicht gesagt, was es ist. Erneut verbinden.</translation>
    </message>
    <message>
        <source>1 record</source>
        <translation>1 Datensatz</translation>
    </message>
    <message>
        <source>%1 records</source>
        <translation>%1 Datensätze</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Nothing was asked of the instrument.</source>
        <translation>Vom Instrument wurde nichts angefordert.</translation>
    </message>
    <message>
        <source>Make room or choose another folder, and download it again.</source>
        <translation>Platz schaffen oder anderen Ordner wählen, dann noch einmal herunterladen.</translation>
    </message>
    <message>
        <source>Saving Sheet</source>
        <translation>Download in Datei</translation>
    </message>
    <message>
        <source>Exporting Memory</source>
        <translation>Download aufs Blatt</translation>
    </message>
    <message>
        <source>No data for 10 s. Reset stops the download.</source>
        <translation>Seit 10 s keine Daten. „Zurücksetzen“ bricht den Download ab.</translation>
    </message>
    <message>
        <source>Bytes Downloaded</source>
        <translation>Bytes heruntergeladen</translation>
    </message>
    <message>
        <source>It holds %1.</source>
        <translation>Die Datei enthält %1.</translation>
    </message>
    <message>
        <source>Press Reset, make room or choose another folder, and download it again.</source>
        <translation>„Zurücksetzen“ drücken, Platz schaffen oder anderen Ordner wählen, dann noch einmal herunterladen.</translation>
    </message>
    <message>
        <source>Bytes DownLoaded</source>
        <translation>Bytes heruntergeladen</translation>
    </message>
    <message>
        <source>It may not have everything.</source>
        <translation>In der Datei fehlt vielleicht etwas.</translation>
    </message>
    <message>
        <source>1 record could not be read; it is in %1</source>
        <translation>1 Datensatz war nicht lesbar; er steht in %1</translation>
    </message>
    <message>
        <source>%1 records could not be read; they are in %2</source>
        <translation>%1 Datensätze waren nicht lesbar; sie stehen in %2</translation>
    </message>
    <message>
        <source>Download stopped</source>
        <translation>Download abgebrochen</translation>
    </message>
    <message>
        <source> %1 arrived and can be found on the sheet.</source>
        <translation> Angekommen und auf dem Blatt: %1.</translation>
    </message>
    <message>
        <source> %1 arrived and can be found in %2.</source>
        <translation> Angekommen und in %2: %1.</translation>
    </message>
    <message>
        <source> %1 arrived and can be found on the sheet and in the files that were saved automatically.</source>
        <translation> Angekommen, auf dem Blatt und in den automatisch gespeicherten Dateien: %1.</translation>
    </message>
    <message>
        <source> What was saved automatically stays.</source>
        <translation> Was automatisch gespeichert wurde, bleibt.</translation>
    </message>
    <message>
        <source> The next start offers what is on the sheet.</source>
        <translation> Der nächste Start bietet an, was auf dem Blatt ist.</translation>
    </message>
    <message>
        <source> %1 could not be read; %2 has what was received.</source>
        <translation> Nicht lesbar: %1; %2 enthält, was empfangen wurde.</translation>
    </message>
    <message>
        <source>The download is incomplete: it was ended before the instrument had sent everything.%1%2

The instrument still holds its data; download it again.</source>
        <translation>Der Download ist unvollständig: Er wurde beendet, bevor das Instrument alles gesendet hatte.%1%2

Die Daten sind noch im Instrument; noch einmal herunterladen.</translation>
    </message>
    <message>
        <source>The stored data cannot be written to %1: %2.

%3 The instrument still holds its data. </source>
        <translation>Die gespeicherten Daten können nicht in %1 geschrieben werden: %2.

%3 Die Daten sind noch im Instrument. </translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Messung läuft</translation>
    </message>
    <message>
        <source>1 line could not be read; it is in %1</source>
        <translation>1 Zeile war nicht lesbar; sie steht in %1</translation>
    </message>
    <message>
        <source>%1 lines could not be read; they are in %2</source>
        <translation>%1 Zeilen waren nicht lesbar; sie stehen in %2</translation>
    </message>
    <message>
        <source>The record file %1 cannot be written: %2.

The run goes on and every row is on the sheet. Save the sheet when the run has ended.</source>
        <translation>Die Aufzeichnungsdatei %1 kann nicht geschrieben werden: %2.

Der Lauf geht weiter, und jede Zeile ist auf dem Blatt. Das Blatt nach dem Lauf speichern.</translation>
    </message>
    <message>
        <source>The last line was cut off and has been left out.</source>
        <translation>Die letzte Zeile war abgeschnitten und wurde ausgelassen.</translation>
    </message>
    <message>
        <source>1 line could not be read and was left out.</source>
        <translation>1 Zeile war nicht lesbar und wurde ausgelassen.</translation>
    </message>
    <message>
        <source>%1 lines could not be read and were left out.</source>
        <translation>%1 Zeilen waren nicht lesbar und wurden ausgelassen.</translation>
    </message>
    <message>
        <source>The numbers of the rows have gaps: 1 row is missing in the record file.</source>
        <translation>Die Nummern der Zeilen haben Lücken: 1 Zeile fehlt in der Aufzeichnungsdatei.</translation>
    </message>
    <message>
        <source>The numbers of the rows have gaps: %1 rows are missing in the record file.</source>
        <translation>Die Nummern der Zeilen haben Lücken: %1 Zeilen fehlen in der Aufzeichnungsdatei.</translation>
    </message>
    <message>
        <source>The sheet was saved or cleared during the run; rows from before that are left out.</source>
        <translation>Das Blatt wurde während des Laufs gespeichert oder gelöscht; die Zeilen davor sind ausgelassen.</translation>
    </message>
    <message>
        <source>The instrument&apos;s type was told by the rows; the sheet says %1 with firmware %2.</source>
        <translation>Der Typ des Instruments ergab sich aus den Zeilen; das Blatt nennt %1 mit Firmware %2.</translation>
    </message>
    <message>
        <source>The run began with row %1. If the rows before it were of a run too and not saved, they are in a file of this folder named with date and time.</source>
        <translation>Der Lauf begann mit Zeile %1. Gehörten die Zeilen davor auch zu einem Lauf und waren nicht gespeichert, stehen sie in einer mit Datum und Zeit benannten Datei dieses Ordners.</translation>
    </message>
    <message>
        <source>The last run in this folder did not end, and its record file %1 cannot be read: %2.

It stays as it is. Its rows are offered again at the next start.</source>
        <translation>Der letzte Lauf in diesem Ordner wurde nicht beendet, und seine Aufzeichnungsdatei %1 ist nicht lesbar: %2.

Sie bleibt, wie sie ist. Ihre Zeilen werden beim nächsten Start wieder angeboten.</translation>
    </message>
    <message>
        <source>The last run in this folder did not end, and its record file has no row that can be read. </source>
        <translation>Der letzte Lauf in diesem Ordner wurde nicht beendet, und seine Aufzeichnungsdatei hat keine lesbare Zeile. </translation>
    </message>
    <message>
        <source>The last run in this folder did not end. Load its %1 into the sheet?</source>
        <translation>Der letzte Lauf in diesem Ordner wurde nicht beendet. Seine %1 auf das Blatt laden?</translation>
    </message>
    <message>
        <source>The rows of the last run are on the sheet.

%1

Nothing is lost: the record file %2 has everything.%3</source>
        <translation>Die Zeilen des letzten Laufs sind auf dem Blatt.

%1

Nichts ist verloren: Die Aufzeichnungsdatei %2 enthält alles.%3</translation>
    </message>
    <message>
        <source> The next run keeps it under a name with date and time.</source>
        <translation> Der nächste Lauf bewahrt sie unter einem Namen mit Datum und Zeit auf.</translation>
    </message>
    <message>
        <source>The record file of the last run is kept as %1.</source>
        <translation>Die Aufzeichnungsdatei des letzten Laufs wird als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>The record file %1 could not be kept under a name with date and time: %2.

It stays as it is, and no run will overwrite it. Move it yourself.</source>
        <translation>Die Aufzeichnungsdatei %1 konnte nicht unter einem Namen mit Datum und Zeit aufbewahrt werden: %2.

Sie bleibt, wie sie ist, und kein Lauf überschreibt sie. Von Hand verschieben.</translation>
    </message>
    <message>
        <source>The record file %1 has it; the next run keeps that file under a name with date and time.</source>
        <translation>Die Aufzeichnungsdatei %1 enthält sie; der nächste Lauf bewahrt diese Datei unter einem Namen mit Datum und Zeit auf.</translation>
    </message>
    <message>
        <source>Of stored data, &quot;Download Stored Data: Save as Text&quot; writes it.</source>
        <translation>Für Daten aus dem Speicher des Instruments: „Gespeicherte Daten herunterladen: als Text speichern“ schreibt auch diese Referenz.</translation>
    </message>
    <message>
        <source>A sheet file has no column for the last reference of the older TRX.

%1</source>
        <translation>Die letzte Referenz des älteren TRX fehlt in der Datei: Eine Blattdatei hat dafür keine Spalte.

%1</translation>
    </message>
    <message>
        <source>The sheet still holds unsaved rows of the %1. Save or clear them first.</source>
        <translation>Auf dem Blatt sind noch nicht gespeicherte Zeilen des %1. Zuerst speichern oder löschen.</translation>
    </message>
    <message>
        <source>There is nothing to save: the sheet has no known type of instrument. Connect an instrument or open a sheet first.</source>
        <translation>Es gibt nichts zu speichern: Das Blatt hat keinen bekannten Instrumenttyp. Zuerst ein Instrument verbinden oder ein Blatt öffnen.</translation>
    </message>
    <message>
        <source> The file of that name is kept under a name with date and time.</source>
        <translation> Die Datei dieses Namens wird unter einem Namen mit Datum und Zeit aufbewahrt.</translation>
    </message>
    <message>
        <source>While you chose a name the sheet became long and was saved by itself: %1.

%2 has the rows since.%3</source>
        <translation>Während der Namenswahl wurde das Blatt lang und von selbst gespeichert: %1.

%2 enthält die Zeilen seither.%3</translation>
    </message>
    <message>
        <source>rows 1 to %1 as %2</source>
        <translation>Zeilen 1 bis %1 als %2</translation>
    </message>
    <message>
        <source>Save Data</source>
        <translation>Daten speichern</translation>
    </message>
    <message>
        <source>%1 could not be opened.

%2

The sheet is as it was.</source>
        <translation>%1 konnte nicht geöffnet werden.

%2

Das Blatt ist unverändert.</translation>
    </message>
    <message>
        <source>Data not Saved. Do you wish to save it now ?</source>
        <translation>Daten nicht gespeichert. Jetzt speichern?</translation>
    </message>
    <message>
        <source>The sheet could not be saved as %1: %2.

Its rows are still on the sheet. Choose another folder or make room on the disk, then save again.</source>
        <translation>Das Blatt konnte nicht als %1 gespeichert werden: %2.

Seine Zeilen sind noch auf dem Blatt. Anderen Ordner wählen oder Platz schaffen, dann erneut speichern.</translation>
    </message>
    <message>
        <source>It is not a sheet: its first line does not tell the instrument&apos;s type, its firmware and the number of rows. Choose a file that &quot;Save As&quot; has written.</source>
        <translation>Das ist kein Blatt: Die erste Zeile nennt nicht Instrumenttyp, Firmware und Zahl der Zeilen. Eine Datei wählen, die „Speichern unter“ geschrieben hat.</translation>
    </message>
    <message>
        <source>It has %1 rows; the sheet holds at most %2. Split the file and correct the number of rows on the first line of each part.</source>
        <translation>Die Datei hat %1 Zeilen; das Blatt fasst höchstens %2. Die Datei teilen und in jedem Teil die Zeilenzahl in der ersten Zeile berichtigen.</translation>
    </message>
    <message>
        <source>It is cut short: its last line has no end. If nothing is missing, add a line end to it.</source>
        <translation>Die Datei ist abgeschnitten: Die letzte Zeile hat kein Ende. Fehlt nichts, ein Zeilenende anfügen.</translation>
    </message>
    <message>
        <source>It is cut short: the column headers are missing.</source>
        <translation>Die Datei ist abgeschnitten: Die Spaltenköpfe fehlen.</translation>
    </message>
    <message>
        <source>%1 Its first line promises %2 rows, but there are %3. If rows were taken out or added on purpose, correct the number on the first line.</source>
        <translation>%1 Die erste Zeile verspricht %2 Zeilen, es sind aber %3. Wurden absichtlich Zeilen entfernt oder eingefügt, die Zahl in der ersten Zeile berichtigen.</translation>
    </message>
    <message>
        <source>It is cut short.</source>
        <translation>Die Datei ist abgeschnitten.</translation>
    </message>
    <message>
        <source>It holds more than it says.</source>
        <translation>Die Datei enthält mehr, als sie angibt.</translation>
    </message>
    <message>
        <source>It is a folder or a device, not a file.</source>
        <translation>Das ist ein Ordner oder ein Gerät, keine Datei.</translation>
    </message>
    <message>
        <source>It cannot be read: %1.</source>
        <translation>Die Datei kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>It is far too large to be a sheet.</source>
        <translation>Die Datei ist für ein Blatt viel zu groß.</translation>
    </message>
    <message>
        <source>&amp;Air</source>
        <translation>&amp;Luft</translation>
    </message>
    <message>
        <source>&amp;Clean</source>
        <translation>Reinw&amp;asser</translation>
    </message>
    <message>
        <source>Point &amp;1</source>
        <translation>Punkt &amp;1</translation>
    </message>
    <message>
        <source>Point &amp;2</source>
        <translation>Punkt &amp;2</translation>
    </message>
    <message>
        <source>Point &amp;3</source>
        <translation>Punkt &amp;3</translation>
    </message>
    <message>
        <source>Point &amp;4</source>
        <translation>Punkt &amp;4</translation>
    </message>
    <message>
        <source>Calibration TRX(S)</source>
        <translation>Kalibrierung TRX(S)</translation>
    </message>
    <message>
        <source>Instruments</source>
        <translation>Instrumente</translation>
    </message>
    <message>
        <source>Name or serial number of the next instrument of the batch.</source>
        <translation>Name oder Seriennummer des nächsten Instruments der Charge.</translation>
    </message>
    <message>
        <source>Instrument name or serial number</source>
        <translation>Name oder Seriennummer des Instruments</translation>
    </message>
    <message>
        <source>Add Ins&amp;trument</source>
        <translation>&amp;Instrument hinzufügen</translation>
    </message>
    <message>
        <source>Adds the named instrument with its light colour; a batch has up to seven.</source>
        <translation>Fügt das genannte Instrument mit seiner Lichtfarbe hinzu; eine Charge hat bis zu sieben.</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>What is still missing.</source>
        <translation>Was noch fehlt.</translation>
    </message>
    <message>
        <source>Name or serial n&amp;umber:</source>
        <translation>Name &amp;oder Seriennummer:</translation>
    </message>
    <message>
        <source>Instruments &amp;entered:</source>
        <translation>Einge&amp;tragene Instrumente:</translation>
    </message>
    <message>
        <source>&amp;Messages:</source>
        <translation>&amp;Meldungen:</translation>
    </message>
    <message>
        <source>Light source:</source>
        <translation>Lichtquelle:</translation>
    </message>
    <message>
        <source>Colour of the instrument&apos;s light source; also chooses the reference values of the report.</source>
        <translation>Farbe der Lichtquelle des Instruments; wählt auch die Referenzwerte des Berichts.</translation>
    </message>
    <message>
        <source>Light source %1</source>
        <translation>Lichtquelle %1</translation>
    </message>
    <message>
        <source>Instruments entered</source>
        <translation>Eingetragene Instrumente</translation>
    </message>
    <message>
        <source>Choose an instrument to show its worksheet.</source>
        <translation>Ein Instrument wählen, um sein Arbeitsblatt zu zeigen.</translation>
    </message>
    <message>
        <source>Total entered</source>
        <translation>Eingetragen insgesamt</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>&amp;Vorige</translation>
    </message>
    <message>
        <source>Shows the instrument before; from the first, the last.</source>
        <translation>Zeigt das vorige Instrument; vom ersten aus das letzte.</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Nächste</translation>
    </message>
    <message>
        <source>Shows the instrument after; from the last, the first.</source>
        <translation>Zeigt das nächste Instrument; vom letzten aus das erste.</translation>
    </message>
    <message>
        <source>Total Entered :</source>
        <translation>Eingetragen:</translation>
    </message>
    <message>
        <source>Instrument index</source>
        <translation>Index des Instruments</translation>
    </message>
    <message>
        <source>Calc &amp;DP</source>
        <translation>DP bere&amp;chnen</translation>
    </message>
    <message>
        <source>Writes the means of the rows on the data sheet into the selected row; for a point also its DP values. Keeps the worksheet.</source>
        <translation>Schreibt die Mittelwerte der Zeilen auf dem Tabellenblatt in die gewählte Zeile, bei einem Punkt auch seine DP-Werte. Behält das Arbeitsblatt.</translation>
    </message>
    <message>
        <source>Save Cal &amp;Info</source>
        <translation>Kalibrierinfo &amp;speichern</translation>
    </message>
    <message>
        <source>Writes this worksheet and the reference values of the light colour to a report file.</source>
        <translation>Schreibt dieses Arbeitsblatt und die Referenzwerte der Lichtfarbe in eine Berichtsdatei.</translation>
    </message>
    <message>
        <source>Instrument index:</source>
        <translation>Instrumentindex:</translation>
    </message>
    <message>
        <source>The rows on the data sheet were measured for &quot;%1&quot;.</source>
        <translation>Die Zeilen auf dem Tabellenblatt wurden für „%1“ gemessen.</translation>
    </message>
    <message>
        <source>%1, angle %2</source>
        <translation>%1, Winkel %2</translation>
    </message>
    <message>
        <source>%1: kept as a whole number from -32768 to 32767.</source>
        <translation>%1: wird als ganze Zahl von -32768 bis 32767 gespeichert.</translation>
    </message>
    <message>
        <source>Expected counts of the point last calculated.</source>
        <translation>Erwartete Zählwerte des zuletzt berechneten Punkts.</translation>
    </message>
    <message>
        <source>DP, angle %1</source>
        <translation>DP, Winkel %1</translation>
    </message>
    <message>
        <source>&amp;KP 7</source>
        <translation>K&amp;P 7</translation>
    </message>
    <message>
        <source>&quot;Calc DP&quot; uses this column for the angle %1, the report for the light colour %2.</source>
        <translation>„DP berechnen“ nimmt diese Spalte für den Winkel %1, der Bericht für die Lichtfarbe %2.</translation>
    </message>
    <message>
        <source>Reference %1, column %2</source>
        <translation>Referenz %1, Spalte %2</translation>
    </message>
    <message>
        <source>Brings the shutter back to its rest position. The instrument only moves it with particular settings, so its own are read and kept, temporary ones are sent, the shutter moves for about half a minute, and the settings from before are sent back.

Leave the cable in its place until the settings have been read back. &quot;Reset&quot;, &quot;Close Port&quot; and &quot;Quit&quot; interrupt the reset; the instrument may then still hold the temporary settings.</source>
        <translation>Bringt den Verschluss in seine Ruhelage zurück. Das Instrument bewegt ihn nur mit bestimmten Einstellungen; daher werden seine eigenen gelesen und aufbewahrt, vorübergehende gesendet, der Verschluss bewegt sich etwa eine halbe Minute, und die früheren Einstellungen werden zurückgesendet.

Das Kabel stecken lassen, bis die Einstellungen zurückgelesen sind. „Zurücksetzen“, „Anschluss schließen“ und „Beenden“ unterbrechen den Vorgang; das Instrument hat dann vielleicht noch die vorübergehenden Einstellungen.</translation>
    </message>
    <message>
        <source>&amp;Reset Shutter</source>
        <translation>Ve&amp;rschluss zurücksetzen</translation>
    </message>
    <message>
        <source>Moves the shutter to its rest position; takes up to a minute and a half.</source>
        <translation>Bewegt den Verschluss in seine Ruhelage; dauert bis zu anderthalb Minuten.</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Progress of the shutter reset</source>
        <translation>Fortschritt beim Zurücksetzen des Verschlusses</translation>
    </message>
    <message>
        <source>The step of the shutter reset under way.</source>
        <translation>Der laufende Schritt beim Zurücksetzen des Verschlusses.</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Restzeit</translation>
    </message>
    <message>
        <source>How long the shutter still moves.</source>
        <translation>Wie lange sich der Verschluss noch bewegt.</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>Status:</translation>
    </message>
    <message>
        <source>Pro&amp;gress:</source>
        <translation>&amp;Fortschritt:</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Datensatz</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Shows or hides this curve.</source>
        <translation>Zeigt oder verbirgt diese Kurve.</translation>
    </message>
    <message>
        <source>Curve %1</source>
        <translation>Kurve %1</translation>
    </message>
    <message>
        <source>Value of %1</source>
        <translation>Wert von %1</translation>
    </message>
    <message>
        <source>Tidelane Debug Screen</source>
        <translation>Tidelane-Debug-Seite</translation>
    </message>
    <message>
        <source>&amp;Traffic, newest last:</source>
        <translation>Daten&amp;verkehr, Neuestes zuletzt:</translation>
    </message>
    <message>
        <source>&amp;Comm 2 Debug Output</source>
        <translation>Debug-Ausgabe auf &amp;COM 2</translation>
    </message>
    <message>
        <source>Copies what the program announces about its own work to COM 2.</source>
        <translation>Kopiert nach COM 2, was das Programm über seine Arbeit meldet.</translation>
    </message>
    <message>
        <source>&amp;Raw Buffer</source>
        <translation>&amp;Rohdaten</translation>
    </message>
    <message>
        <source>Lists every block of characters as it is read from the instrument.</source>
        <translation>Listet jeden Zeichenblock so auf, wie er vom Instrument gelesen wird.</translation>
    </message>
    <message>
        <source>Sho&amp;w Parsing</source>
        <translation>&amp;Zeilen zeigen</translation>
    </message>
    <message>
        <source>Lists every line that is cut out of what the instrument sends.</source>
        <translation>Listet jede Zeile auf, die aus den Daten des Instruments geschnitten wird.</translation>
    </message>
    <message>
        <source>Traffic from the instrument, newest last</source>
        <translation>Datenverkehr vom Instrument, Neuestes zuletzt</translation>
    </message>
    <message>
        <source>What the instrument sends, as blocks or lines; CR, LF and TAB as symbols. The newest 10000 entries are kept.</source>
        <translation>Was das Instrument sendet, als Blöcke oder Zeilen; CR, LF und TAB als Symbole. Die neuesten 10000 Einträge bleiben.</translation>
    </message>
    <message>
        <source>Why the list is empty</source>
        <translation>Warum die Liste leer ist</translation>
    </message>
    <message>
        <source>Nothing has been received since.</source>
        <translation>Seither wurde nichts empfangen.</translation>
    </message>
    <message>
        <source>Choose &quot;Raw Buffer&quot; or &quot;Show Parsing&quot; to list what the instrument sends.</source>
        <translation>„Rohdaten“ oder „Zeilen zeigen“ wählen, um aufzulisten, was das Instrument sendet.</translation>
    </message>
    <message>
        <source>Is sent exactly as typed; nothing is added at its end.</source>
        <translation>Wird genau wie eingegeben gesendet; am Ende wird nichts angefügt.</translation>
    </message>
    <message>
        <source>&amp;Direct Send</source>
        <translation>Direkt se&amp;nden</translation>
    </message>
    <message>
        <source>Sends the text to the instrument, if a port is open and nothing else is under way.</source>
        <translation>Sendet den Text an das Instrument, wenn ein Anschluss offen ist und sonst nichts läuft.</translation>
    </message>
    <message>
        <source>Te&amp;xt to send:</source>
        <translation>Te&amp;xt zum Senden:</translation>
    </message>
    <message>
        <source>Buffer</source>
        <translation>Puffer</translation>
    </message>
    <message>
        <source>Characters received that do not make a whole line yet.</source>
        <translation>Empfangene Zeichen, die noch keine ganze Zeile bilden.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Fluorometer</source>
        <translation>Fluorometer</translation>
    </message>
    <message>
        <source>Fluorometer output</source>
        <translation>Ausgabe des Fluorometers</translation>
    </message>
    <message>
        <source>Scattering Meter</source>
        <translation>Streulichtmessgerät</translation>
    </message>
    <message>
        <source>Scattering output at %1 degrees</source>
        <translation>Streulicht bei %1 Grad</translation>
    </message>
    <message>
        <source>Ref Det</source>
        <translation>Ref.-Det.</translation>
    </message>
    <message>
        <source>Reference detector</source>
        <translation>Referenzdetektor</translation>
    </message>
    <message>
        <source>Transmissometer</source>
        <translation>Transmissometer</translation>
    </message>
    <message>
        <source>Transmissometer output</source>
        <translation>Ausgabe des Transmissometers</translation>
    </message>
    <message>
        <source>Turbidty Sensor</source>
        <translation>Trübungssensor</translation>
    </message>
    <message>
        <source>Turbidity sensor output</source>
        <translation>Ausgabe des Trübungssensors</translation>
    </message>
    <message>
        <source>The newest values that the instrument has sent in a run.</source>
        <translation>Die neuesten Werte, die das Instrument in einem Lauf gesendet hat.</translation>
    </message>
    <message>
        <source>About Orv Host</source>
        <translation>Über Orv Host</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Connects the ORV self-logging optical water sensors GLOW and TRX:
settings, live data, stored data, calibration.</source>
        <translation>Für die selbstaufzeichnenden optischen ORV-Wassersensoren GLOW und TRX:
Einstellungen, Live-Daten, gespeicherte Daten, Kalibrierung.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Manual Connection</source>
        <translation>Manuelle Verbindung</translation>
    </message>
    <message>
        <source>What to do</source>
        <translation>Was zu tun ist</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>&amp;Proceed</source>
        <translation>&amp;Fortfahren</translation>
    </message>
    <message>
        <source>&amp;Retry</source>
        <translation>&amp;Erneut versuchen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Datenübertragung</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>What is counted</source>
        <translation>Was gezählt wird</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Reset on the page Status and Controls stops it.</source>
        <translation>„Zurücksetzen“ auf „Status und Steuerung“ bricht ab.</translation>
    </message>
    <message>
        <source>&amp;Abort</source>
        <translation>&amp;Stoppen</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>In Plain English</source>
        <translation>In Worten</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Graphical</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>As P&amp;NG, pixels, for screens and documents</source>
        <translation>Als P&amp;NG, Bildpunkte, für Bildschirm und Dokumente</translation>
    </message>
    <message>
        <source>As P&amp;DF, a page to print or send</source>
        <translation>Als P&amp;DF, eine Seite zum Drucken oder Versenden</translation>
    </message>
    <message>
        <source>As S&amp;VG, lines, for drawing programs</source>
        <translation>Als S&amp;VG, Linien, für Zeichenprogramme</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>What the curves are drawn over.</source>
        <translation>Worüber die Kurven gezeichnet werden.</translation>
    </message>
    <message>
        <source>Record number</source>
        <translation>Datensatznummer</translation>
    </message>
    <message>
        <source>All curves on one axis; a pane for each, with its own scale; or each less its mean over what is seen.</source>
        <translation>Alle Kurven auf einer Achse; für jede ein Feld mit eigener Skala; oder jede abzüglich ihres Mittelwerts im sichtbaren Bereich.</translation>
    </message>
    <message>
        <source>One axis</source>
        <translation>Eine Achse</translation>
    </message>
    <message>
        <source>Stacked</source>
        <translation>Gestapelt</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Änderung</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>&amp;Folgen</translation>
    </message>
    <message>
        <source>Shows the newest rows as they come.</source>
        <translation>Zeigt die neuesten Zeilen, sobald sie kommen.</translation>
    </message>
    <message>
        <source>Show A&amp;ll</source>
        <translation>A&amp;lles zeigen</translation>
    </message>
    <message>
        <source>Shows all rows. A double click on the curves does the same.</source>
        <translation>Zeigt alle Zeilen. Ein Doppelklick auf die Kurven tut dasselbe.</translation>
    </message>
    <message>
        <source>Choose &amp;Range</source>
        <translation>Be&amp;reich wählen</translation>
    </message>
    <message>
        <source>The pointer chooses a range of rows instead of moving the curves: for their mean and standard deviation, and to select them on the sheet.</source>
        <translation>Der Zeiger wählt einen Bereich von Zeilen, statt die Kurven zu verschieben: für Mittelwert und Standardabweichung, und um sie auf dem Blatt auszuwählen.</translation>
    </message>
    <message>
        <source>&amp;X axis :</source>
        <translation>&amp;X-Achse:</translation>
    </message>
    <message>
        <source>&amp;View :</source>
        <translation>&amp;Ansicht:</translation>
    </message>
    <message>
        <source>Save Pict&amp;ure</source>
        <translation>Bild s&amp;peichern</translation>
    </message>
    <message>
        <source>Saves the curves as they are seen as a PNG, PDF or SVG file.</source>
        <translation>Speichert die Kurven, wie sie zu sehen sind, als PNG-, PDF- oder SVG-Datei.</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Kop&amp;ieren</translation>
    </message>
    <message>
        <source>Copies the curves as they are seen as a picture to the clipboard.</source>
        <translation>Kopiert die Kurven, wie sie zu sehen sind, als Bild in die Zwischenablage.</translation>
    </message>
    <message>
        <source>Print &amp;Graph...</source>
        <translation>K&amp;urven drucken …</translation>
    </message>
    <message>
        <source>Prints the curves as they are seen.</source>
        <translation>Druckt die Kurven, wie sie zu sehen sind.</translation>
    </message>
    <message>
        <source>No rows yet.

Collect or download data, or open a sheet:
its columns are drawn here.</source>
        <translation>Noch keine Zeilen.

Messen, Daten herunterladen oder ein Blatt öffnen:
Die Spalten werden hier gezeichnet.</translation>
    </message>
    <message>
        <source>No row can be placed on this axis.

Choose the other one under &quot;X axis&quot;.</source>
        <translation>Auf dieser Achse hat keine Zeile einen Platz.

Unter „X-Achse“ die andere wählen.</translation>
    </message>
    <message>
        <source>All curves are switched off.</source>
        <translation>Alle Kurven sind ausgeschaltet.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is not drawn.</source>
        <translation>1 Zeile eines anderen Instrumenttyps nicht gezeichnet.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are not drawn.</source>
        <translation>%1 Zeilen eines anderen Instrumenttyps nicht gezeichnet.</translation>
    </message>
    <message>
        <source>1 row without a readable time is not drawn.</source>
        <translation>1 Zeile ohne lesbare Zeit nicht gezeichnet.</translation>
    </message>
    <message>
        <source>%1 rows without a readable time are not drawn.</source>
        <translation>%1 Zeilen ohne lesbare Zeit nicht gezeichnet.</translation>
    </message>
    <message>
        <source>1 row without a record number is not drawn.</source>
        <translation>1 Zeile ohne Datensatznummer nicht gezeichnet.</translation>
    </message>
    <message>
        <source>%1 rows without a record number are not drawn.</source>
        <translation>%1 Zeilen ohne Datensatznummer nicht gezeichnet.</translation>
    </message>
    <message>
        <source>Wheel zooms the axis, with Ctrl the values; dragging moves, with Shift it chooses a range; a double click shows all.</source>
        <translation>Mausrad: Zoom, mit Strg der Werte. Ziehen: verschieben, mit Umschalt Bereich wählen. Doppelklick: alles.</translation>
    </message>
    <message>
        <source>Row under the cursor</source>
        <translation>Zeile unter dem Zeiger</translation>
    </message>
    <message>
        <source>Newest row</source>
        <translation>Neueste Zeile</translation>
    </message>
    <message>
        <source>The picture could not be saved as %1: %2.

Choose another folder or make room on the disk, then save again.</source>
        <translation>Das Bild konnte nicht als %1 gespeichert werden: %2.

Anderen Ordner wählen oder Platz schaffen, dann erneut speichern.</translation>
    </message>
    <message>
        <source>Print Graph</source>
        <translation>Kurven drucken</translation>
    </message>
    <message>
        <source>The printer did not take the page.

See whether it is switched on and connected, then print again, or save the curves as PDF and print that.</source>
        <translation>Der Drucker hat die Seite nicht angenommen.

Prüfen, ob er eingeschaltet und angeschlossen ist, dann erneut drucken oder die Kurven als PDF speichern und dieses drucken.</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Form Select Tabs.</source>
        <translation>Seite wählen.</translation>
    </message>
    <message>
        <source>Service pages</source>
        <translation>Service-Seiten</translation>
    </message>
    <message>
        <source>Special Tidelane Debug screens and Tools. Internal use only so far.</source>
        <translation>Besondere Tidelane-Debug-Seiten und Werkzeuge. Bisher nur für internen Gebrauch.</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Servicemodus</translation>
    </message>
    <message>
        <source>Simulated instrument</source>
        <translation>Simuliertes Instrument</translation>
    </message>
    <message>
        <source>What it measures is made up by this program. Choose a real port in &quot;Ports&quot; on the page &quot;Status and Controls&quot;.</source>
        <translation>Was es misst, erfindet dieses Programm. Unter „Anschlüsse“ auf der Seite „Status und Steuerung“ einen echten Anschluss wählen.</translation>
    </message>
    <message>
        <source>%1 (simulated instrument)</source>
        <translation>%1 (simuliertes Instrument)</translation>
    </message>
    <message>
        <source>&amp;Operation</source>
        <translation>&amp;Bedienung</translation>
    </message>
    <message>
        <source>&amp;Close Port</source>
        <translation>Anschluss s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Processing</source>
        <translation>&amp;Daten</translation>
    </message>
    <message>
        <source>Download Stored Data: &amp;Save as Text</source>
        <translation>Gespeicherte Daten herunterladen: als Text &amp;speichern</translation>
    </message>
    <message>
        <source>Download Stored Data: &amp;View with Host Program</source>
        <translation>Gespeicherte Daten herunterladen: im Programm &amp;ansehen</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;Save Support File...</source>
        <translation>&amp;Supportdatei speichern …</translation>
    </message>
    <message>
        <source>&amp;About Orv Host ...</source>
        <translation>Ü&amp;ber Orv Host …</translation>
    </message>
    <message>
        <source>&amp;Auto Connect Comm 1</source>
        <translation>&amp;Automatisch verbinden, COM 1</translation>
    </message>
    <message>
        <source>A&amp;uto Connect Comm 2</source>
        <translation>A&amp;utomatisch verbinden, COM 2</translation>
    </message>
    <message>
        <source>&amp;Manual Connect Comm 1</source>
        <translation>&amp;Manuell verbinden, COM 1</translation>
    </message>
    <message>
        <source>Mau&amp;nal Connect Comm 2</source>
        <translation>Ma&amp;nuell verbinden, COM 2</translation>
    </message>
    <message>
        <source>&amp;Start Communication</source>
        <translation>&amp;Verbindung aufbauen</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 gibt es schon.
Ersetzen?</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Datei nicht gefunden.
Bitte den Dateinamen prüfen.</translation>
    </message>
    <message>
        <source>Only digits, at most %1.</source>
        <translation>Nur Ziffern, höchstens %1.</translation>
    </message>
    <message>
        <source>%1 is less than the minimum of %2.</source>
        <translation>%1 ist kleiner als der Mindestwert %2.</translation>
    </message>
    <message>
        <source>%1 is more than the maximum of %2.</source>
        <translation>%1 ist größer als der Höchstwert %2.</translation>
    </message>
    <message>
        <source>Curves of the data sheet</source>
        <translation>Kurven des Tabellenblatts</translation>
    </message>
    <message>
        <source>Left and Right move to the row before and after, with Shift they move the curves; Plus and Minus zoom, Home shows all, End follows the newest rows. Space begins and ends the choice of a range, Escape drops it.</source>
        <translation>Links und Rechts gehen zur Zeile davor und danach, mit Umschalt verschieben sie die Kurven; Plus und Minus zoomen, Pos1 zeigt alles, Ende folgt den neuesten Zeilen. Leertaste beginnt und beendet die Wahl eines Bereichs, Esc verwirft sie.</translation>
    </message>
    <message>
        <source>Device behind COM %1</source>
        <translation>Gerät an COM %1</translation>
    </message>
    <message>
        <source>Choose a port or type the name of a device.</source>
        <translation>Einen Anschluss wählen oder den Namen eines Geräts eintippen.</translation>
    </message>
    <message>
        <source>Dis&amp;connect</source>
        <translation>T&amp;rennen</translation>
    </message>
    <message>
        <source>Disco&amp;nnect</source>
        <translation>Tren&amp;nen</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>Ve&amp;rbinden</translation>
    </message>
    <message>
        <source>Co&amp;nnect</source>
        <translation>Verbi&amp;nden</translation>
    </message>
    <message>
        <source>%1 COM %2</source>
        <translation>COM %2 %1</translation>
    </message>
    <message>
        <source>Closes COM %1. Rows on the sheet stay.</source>
        <translation>Schließt COM %1. Zeilen auf dem Blatt bleiben.</translation>
    </message>
    <message>
        <source>Wakes the instrument on COM %1 and reads its settings.</source>
        <translation>Weckt das Instrument an COM %1 und liest seine Einstellungen.</translation>
    </message>
    <message>
        <source>Ports</source>
        <translation>Anschlüsse</translation>
    </message>
    <message>
        <source>What is wrong with the device for COM %1</source>
        <translation>Was mit dem Gerät für COM %1 nicht stimmt</translation>
    </message>
    <message>
        <source>COM &amp;%1</source>
        <translation>COM &amp;%1</translation>
    </message>
    <message>
        <source>Next step</source>
        <translation>Nächster Schritt</translation>
    </message>
    <message>
        <source>&amp;Try a Simulated Instrument</source>
        <translation>&amp;Simuliertes Instrument ausprobieren</translation>
    </message>
    <message>
        <source>Chooses a simulated scattering meter for COM 1 and connects: everything can be tried without an instrument.</source>
        <translation>Wählt ein simuliertes Streulichtmessgerät für COM 1 und verbindet: Alles lässt sich ohne Instrument ausprobieren.</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>nicht gesendet</translation>
    </message>
    <message>
        <source>No instrument has reported these settings.</source>
        <translation>Kein Instrument hat diese Einstellungen gemeldet.</translation>
    </message>
    <message>
        <source>These settings have not been sent to the instrument: %1.</source>
        <translation>Diese Einstellungen wurden nicht an das Instrument gesendet: %1.</translation>
    </message>
    <message>
        <source>Modes</source>
        <translation>Modi</translation>
    </message>
    <message>
        <source>&amp;Profile</source>
        <translation>&amp;Profil</translation>
    </message>
    <message>
        <source>&amp;Moored</source>
        <translation>&amp;Verankert</translation>
    </message>
    <message>
        <source>&amp;Save A User Defined Mode</source>
        <translation>Eigenen Modus &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Load A User Defined Mode</source>
        <translation>Eigenen Modus &amp;laden</translation>
    </message>
    <message>
        <source>&amp;View Current Settings Transcribed as Text</source>
        <translation>Aktuelle Einstellungen als &amp;Text ansehen</translation>
    </message>
    <message>
        <source>Mode file</source>
        <translation>Modusdatei</translation>
    </message>
    <message>
        <source>This mode Autostarts, takes 1 data point per second, and repeats this indefinatly. Data is NOT logged.</source>
        <translation>Dieser Modus startet von selbst, nimmt 1 Messpunkt pro Sekunde auf und wiederholt das endlos. Daten werden NICHT aufgezeichnet.</translation>
    </message>
    <message>
        <source>This Mode Autostarts, takes 1 data point per second. It repeats once an hour. It logs up to 60000 data points.</source>
        <translation>Dieser Modus startet von selbst, nimmt 1 Messpunkt pro Sekunde auf und wiederholt das stündlich. Bis zu 60000 Messpunkte werden aufgezeichnet.</translation>
    </message>
    <message>
        <source>Time and Date</source>
        <translation>Uhrzeit und Datum</translation>
    </message>
    <message>
        <source>&amp;Display Logger Time/Date</source>
        <translation>Uhrzeit/Datum des &amp;Loggers anzeigen</translation>
    </message>
    <message>
        <source>Computer Time / Date</source>
        <translation>Uhrzeit / Datum des Computers</translation>
    </message>
    <message>
        <source>This is the computers Time and Date.</source>
        <translation>Uhrzeit und Datum des Computers.</translation>
    </message>
    <message>
        <source>Computer Time</source>
        <translation>Uhrzeit des Computers</translation>
    </message>
    <message>
        <source>Computer Date</source>
        <translation>Datum des Computers</translation>
    </message>
    <message>
        <source>Logger Time / Date</source>
        <translation>Uhrzeit / Datum des Loggers</translation>
    </message>
    <message>
        <source>This is the Loggers Time and Date at last display.</source>
        <translation>Uhrzeit und Datum des Loggers bei der letzten Anzeige.</translation>
    </message>
    <message>
        <source>Logger Date</source>
        <translation>Datum des Loggers</translation>
    </message>
    <message>
        <source>Logger Time</source>
        <translation>Uhrzeit des Loggers</translation>
    </message>
    <message>
        <source>&amp;Sync Time/Date</source>
        <translation>Uhrzeit/Datum s&amp;tellen</translation>
    </message>
    <message>
        <source>This tells the Host to set the Loggers Time and Date to that of the Computer. (Updated after send settings)</source>
        <translation>Stellt Uhrzeit und Datum des Loggers nach dem Computer. (Nach dem Senden der Einstellungen)</translation>
    </message>
    <message>
        <source>At the full &amp;minute</source>
        <translation>Zur vollen &amp;Minute</translation>
    </message>
    <message>
        <source>Waits until a minute begins, so that the Loggers seconds are right too: it takes hour and minute only.</source>
        <translation>Wartet, bis eine Minute beginnt, damit auch die Sekunden des Loggers stimmen: Er nimmt nur Stunde und Minute an.</translation>
    </message>
    <message>
        <source>The clock will be set at %1, in %2 s.</source>
        <translation>Die Uhr wird in %2 s gestellt, um %1.</translation>
    </message>
    <message>
        <source>Control Bits</source>
        <translation>Steuerbits</translation>
    </message>
    <message>
        <source>%1 data points per second</source>
        <translation>Messpunkte pro Sekunde: %1</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Bemerkung</translation>
    </message>
    <message>
        <source>Max Values</source>
        <translation>Höchstwerte</translation>
    </message>
    <message>
        <source>Samples and Intervals</source>
        <translation>Abtastungen und Abstände</translation>
    </message>
    <message>
        <source>Logger Capacity (% full)</source>
        <translation>Logger-Speicher (% voll)</translation>
    </message>
    <message>
        <source>Memory pointer</source>
        <translation>Speicherzeiger</translation>
    </message>
    <message>
        <source>This is the % of data memory used in the logger.</source>
        <translation>So viel % des Datenspeichers im Logger sind belegt.</translation>
    </message>
    <message>
        <source>Memory pointer as the logger reports it, 0 to 65525.</source>
        <translation>Speicherzeiger, wie ihn der Logger meldet, 0 bis 65525.</translation>
    </message>
    <message>
        <source>Clean Water Offset</source>
        <translation>Reinwasser-Offset</translation>
    </message>
    <message>
        <source>&amp;Provide Raw Counts</source>
        <translation>Rohwerte &amp;ausgeben</translation>
    </message>
    <message>
        <source>Angle &amp;100 (l1)</source>
        <translation>Winkel &amp;100 (l1)</translation>
    </message>
    <message>
        <source>Angle 1&amp;25 (l2)</source>
        <translation>Winkel 1&amp;25 (l2)</translation>
    </message>
    <message>
        <source>Angle 1&amp;50 (l3)</source>
        <translation>Winkel 1&amp;50 (l3)</translation>
    </message>
    <message>
        <source>TRX Calibration: Offsets and B calculations</source>
        <translation>TRX-Kalibrierung: Offsets und B-Berechnung</translation>
    </message>
    <message>
        <source>&amp;Load Device File</source>
        <translation>Gerätedatei &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Save Device File</source>
        <translation>Gerätedatei &amp;speichern</translation>
    </message>
    <message>
        <source>Calc &amp;B Values</source>
        <translation>&amp;B-Werte berechnen</translation>
    </message>
    <message>
        <source>GLW Calibration: Offsets and B calculations</source>
        <translation>GLW-Kalibrierung: Offset und Konzentration</translation>
    </message>
    <message>
        <source>C&amp;ounts -</source>
        <translation>Zähl&amp;werte -</translation>
    </message>
    <message>
        <source>Device files are for the TRX only.</source>
        <translation>Gerätedateien sind nur für das TRX.</translation>
    </message>
    <message>
        <source>Calc Consentration in &amp;ug/L</source>
        <translation>Konzentration in &amp;ug/L berechnen</translation>
    </message>
    <message>
        <source>Sampling</source>
        <translation>Abtastung</translation>
    </message>
    <message>
        <source>Connect an instrument to see its calibration.</source>
        <translation>Ein Instrument verbinden, um seine Kalibrierung zu sehen.</translation>
    </message>
    <message>
        <source>Logger Settings</source>
        <translation>Logger-Einstellungen</translation>
    </message>
    <message>
        <source>Groups of settings</source>
        <translation>Gruppen von Einstellungen</translation>
    </message>
    <message>
        <source>The settings in plain English</source>
        <translation>Die Einstellungen in Worten</translation>
    </message>
    <message>
        <source>Choose a tab to see its settings.</source>
        <translation>Eine Registerkarte wählen, um ihre Einstellungen zu sehen.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Changed and not sent yet: %1</source>
        <translation>Geändert und noch nicht gesendet: %1</translation>
    </message>
    <message>
        <source>&amp;Retrieve Settings</source>
        <translation>Einstellungen l&amp;esen</translation>
    </message>
    <message>
        <source>Retrieve settings from the logger</source>
        <translation>Einstellungen aus dem Logger lesen</translation>
    </message>
    <message>
        <source>&amp;Apply Settings</source>
        <translation>Einstellungen sen&amp;den</translation>
    </message>
    <message>
        <source>Send Settings to the logger</source>
        <translation>Einstellungen an den Logger senden</translation>
    </message>
    <message>
        <source>Verify that settings are correct before closing this window</source>
        <translation>Vor dem Schließen prüfen, ob die Einstellungen stimmen</translation>
    </message>
    <message>
        <source>Another run or download begins here.</source>
        <translation>Hier beginnt ein anderer Lauf oder Download.</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Tabellenblatt</translation>
    </message>
    <message>
        <source>Rows on the sheet</source>
        <translation>Zeilen auf dem Blatt</translation>
    </message>
    <message>
        <source>What became of the rows</source>
        <translation>Was aus den Zeilen wurde</translation>
    </message>
    <message>
        <source>&amp;Bring them back</source>
        <translation>Z&amp;urückholen</translation>
    </message>
    <message>
        <source>Puts the rows on the sheet again, as they were.</source>
        <translation>Bringt die Zeilen wieder aufs Blatt, wie sie waren.</translation>
    </message>
    <message>
        <source>What to look for in the cells of the sheet.</source>
        <translation>Was in den Zellen des Blatts gesucht wird.</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Select cells, a row by its number or a column by its header: to copy them, and for their mean and standard deviation.</source>
        <translation>Zellen, Zeilen (Nummer) oder Spalten (Kopf) auswählen: zum Kopieren, für Mittelwert und Standardabweichung.</translation>
    </message>
    <message>
        <source>Default File Name, and the file name used for auto-recording of long profiles.</source>
        <translation>Vorgegebener Dateiname, auch für das automatische Speichern langer Profile.</translation>
    </message>
    <message>
        <source>Automatic saves</source>
        <translation>Automatische Speicherungen</translation>
    </message>
    <message>
        <source>This is used to indicated how many records were automatically created over a long profile, or data gathering.</source>
        <translation>Wie viele Dateien bei einem langen Profil oder einer langen Messung automatisch gespeichert wurden.</translation>
    </message>
    <message>
        <source>Save &amp;As</source>
        <translation>&amp;Speichern unter</translation>
    </message>
    <message>
        <source>Save all Data on the Spread Sheet to a Tab Delimited Text File.</source>
        <translation>Speichert alle Daten des Tabellenblatts in eine Textdatei mit Tabulatoren.</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xportieren</translation>
    </message>
    <message>
        <source>Op&amp;en</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open a saved sheet. It replaces what is on the Spread Sheet.</source>
        <translation>Öffnet ein gespeichertes Blatt. Es ersetzt, was auf dem Tabellenblatt ist.</translation>
    </message>
    <message>
        <source>&amp;Clear All</source>
        <translation>&amp;Alles löschen</translation>
    </message>
    <message>
        <source>Clears the Spread Sheet of all data.</source>
        <translation>Löscht alle Daten vom Tabellenblatt.</translation>
    </message>
    <message>
        <source>File &amp;name :</source>
        <translation>Datei&amp;name:</translation>
    </message>
    <message>
        <source>Rows :</source>
        <translation>Zeilen:</translation>
    </message>
    <message>
        <source>Records :</source>
        <translation>Dateien:</translation>
    </message>
    <message>
        <source>%1 cleared.</source>
        <translation>%1 gelöscht.</translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>%1 gespeichert in %2</translation>
    </message>
    <message>
        <source>&amp;Bring it back</source>
        <translation>Z&amp;urückholen</translation>
    </message>
    <message>
        <source>Nex&amp;t</source>
        <translation>Nächs&amp;te</translation>
    </message>
    <message>
        <source>The next cell with this text. The Enter key does the same.</source>
        <translation>Die nächste Zelle mit diesem Text. Die Eingabetaste tut dasselbe.</translation>
    </message>
    <message>
        <source>The cell with this text before.</source>
        <translation>Die vorige Zelle mit diesem Text.</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Puts the line away. The Escape key does the same.</source>
        <translation>Blendet die Suchzeile aus. Die Esc-Taste tut dasselbe.</translation>
    </message>
    <message>
        <source>F&amp;ind :</source>
        <translation>Su&amp;chen:</translation>
    </message>
    <message>
        <source>Record %1</source>
        <translation>Datensatz %1</translation>
    </message>
    <message>
        <source>Not found.</source>
        <translation>Nicht gefunden.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;Without Header</source>
        <translation>Kopieren &amp;ohne Kopfzeile</translation>
    </message>
    <message>
        <source>Select &amp;Rows</source>
        <translation>&amp;Zeilen auswählen</translation>
    </message>
    <message>
        <source>Select Co&amp;lumns</source>
        <translation>&amp;Spalten auswählen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>S&amp;uchen</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Standardabweichung</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>No rows yet. Connect, then press Run.</source>
        <translation>Noch keine Zeilen. Verbinden, dann „Messen“ drücken.</translation>
    </message>
    <message>
        <source>How far the run or the download has come</source>
        <translation>Wie weit Lauf oder Download sind</translation>
    </message>
    <message>
        <source>Shutter reset progress</source>
        <translation>Fortschritt beim Zurücksetzen des Verschlusses</translation>
    </message>
    <message>
        <source>Time the shutter still moves</source>
        <translation>Wie lange sich der Verschluss noch bewegt</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>How the instrument&apos;s clock stands</source>
        <translation>Wie die Uhr des Instruments geht</translation>
    </message>
    <message>
        <source>Instrument:</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Firmware Ver.</source>
        <translation>Firmware-Version</translation>
    </message>
    <message>
        <source>Bytes downloaded</source>
        <translation>Bytes heruntergeladen</translation>
    </message>
    <message>
        <source>Characters in the receive buffer</source>
        <translation>Zeichen im Empfangspuffer</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Steuerung</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp.</source>
        <translation>Beginnt eine Messung. Die Zeilen kommen auf das Tabellenblatt und in Orvtemp.tmp.</translation>
    </message>
    <message>
        <source>R&amp;eset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Stops current collection and requires the instrument to be reset.</source>
        <translation>Beendet die laufende Messung; das Instrument muss zurückgesetzt werden.</translation>
    </message>
    <message>
        <source>Reset Sh&amp;utter</source>
        <translation>Verschl&amp;uss zurücksetzen</translation>
    </message>
    <message>
        <source>Moves the instrument&apos;s shutter back to its rest position.</source>
        <translation>Bewegt den Verschluss des Instruments in seine Ruhelage.</translation>
    </message>
    <message>
        <source>Sending the settings</source>
        <translation>Einstellungen werden gesendet</translation>
    </message>
    <message>
        <source>Settings sent</source>
        <translation>Einstellungen gesendet</translation>
    </message>
    <message>
        <source>Settings read</source>
        <translation>Einstellungen gelesen</translation>
    </message>
    <message>
        <source>Sending failed</source>
        <translation>Senden gescheitert</translation>
    </message>
    <message>
        <source>Nothing read or sent yet</source>
        <translation>Noch nichts gelesen oder gesendet</translation>
    </message>
    <message>
        <source>Status lamp</source>
        <translation>Statuslampe</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>the mean of a column</comment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1; the disk may be full</source>
        <translation>%1; vielleicht ist die Platte voll</translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation>Kapitel</translation>
    </message>
    <message>
        <source>What to look for in the guide.</source>
        <translation>Was im Handbuch gesucht wird.</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>&amp;Chapters</source>
        <translation>&amp;Kapitel</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>To what was shown before.</source>
        <translation>Zu dem, was vorher zu sehen war.</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>V&amp;orwärts</translation>
    </message>
    <message>
        <source>To what you came back from.</source>
        <translation>Wieder zu dem, was vor dem Zurückgehen zu sehen war.</translation>
    </message>
    <message>
        <source>The next place with this text. The Enter key does the same.</source>
        <translation>Die nächste Stelle mit diesem Text. Die Eingabetaste tut dasselbe.</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Vorige</translation>
    </message>
    <message>
        <source>The place with this text before.</source>
        <translation>Die vorige Stelle mit diesem Text.</translation>
    </message>
    <message>
        <source>Export 1 row</source>
        <translation>1 Zeile exportieren</translation>
    </message>
    <message>
        <source>Export all %1 rows</source>
        <translation>Alle %1 Zeilen exportieren</translation>
    </message>
    <message>
        <source>Export 1 selected row</source>
        <translation>1 ausgewählte Zeile exportieren</translation>
    </message>
    <message>
        <source>Export %1 selected rows</source>
        <translation>%1 ausgewählte Zeilen exportieren</translation>
    </message>
    <message>
        <source>the selected rows have gone from the sheet meanwhile</source>
        <translation>die ausgewählten Zeilen sind inzwischen nicht mehr auf dem Blatt</translation>
    </message>
    <message>
        <source>%1 Reset stops it.</source>
        <translation>%1 „Zurücksetzen“ bricht ab.</translation>
    </message>
    <message>
        <source>Waiting for the full minute: %1 s.</source>
        <translation>Warten auf die volle Minute: %1 s.</translation>
    </message>
    <message>
        <source>within %1 s of this computer&apos;s</source>
        <translation>weicht höchstens %1 s vom Computer ab</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set at the full minute and is %1.</source>
        <translation>Die Uhr des Instruments wurde zur vollen Minute gestellt und %1.</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set to the minute and is %1.</source>
        <translation>Die Uhr des Instruments wurde nach Stunde und Minute gestellt und %1.</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Warten auf volle Minute</translation>
    </message>
    <message>
        <source>Setting the clock</source>
        <translation>Stellen der Uhr</translation>
    </message>
    <message>
        <source>&quot;Sync Time/Date&quot; alone leaves the clock up to 59 s behind: the command carries no seconds. &quot;At the full minute&quot; waits until a minute begins, so that the seconds are right too.</source>
        <translation>„Uhrzeit/Datum stellen“ allein lässt die Uhr bis zu 59 s nachgehen: Der Befehl kennt keine Sekunden. „Zur vollen Minute“ wartet, bis eine Minute beginnt, damit auch die Sekunden stimmen.</translation>
    </message>
    <message>
        <source>%1 &quot;At the full minute&quot; sets it right.</source>
        <translation>%1 „Zur vollen Minute“ stellt sie richtig.</translation>
    </message>
    <message>
        <source>%1 %2 is still ticked: &quot;Apply Settings&quot; sets the clock again.</source>
        <translation>%1 „%2“ ist noch angekreuzt: „Einstellungen senden“ stellt die Uhr erneut.</translation>
    </message>
    <message>
        <source>1 column</source>
        <translation>1 Spalte</translation>
    </message>
    <message>
        <source>%1 columns</source>
        <translation>%1 Spalten</translation>
    </message>
    <message>
        <source>1 cell</source>
        <translation>1 Zelle</translation>
    </message>
    <message>
        <source>%1 cells</source>
        <translation>%1 Zellen</translation>
    </message>
    <message>
        <source>Write the rows as CSV or NetCDF for other programs, with what is known of the instrument: those that are selected, else all.</source>
        <translation>Schreibt die Zeilen als CSV oder NetCDF für andere Programme, mit dem, was vom Instrument bekannt ist: die ausgewählten, sonst alle.</translation>
    </message>
    <message>
        <source>%1 copied.</source>
        <translation>%1 kopiert.</translation>
    </message>
    <message>
        <source>Exported %1 to %2</source>
        <translation>%1 exportiert nach %2</translation>
    </message>
    <message>
        <source>Exported %1 to %2 (and %3)</source>
        <translation>%1 exportiert nach %2 (und %3)</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>No rows yet. Press Run.</source>
        <translation>Noch keine Zeilen. „Messen“ drücken.</translation>
    </message>
    <message>
        <source>%1. &quot;At the full minute&quot; sets it.</source>
        <translation>%1. „Zur vollen Minute“ stellt sie.</translation>
    </message>
    <message>
        <source>it has been removed</source>
        <translation>sie wurde gelöscht</translation>
    </message>
    <message>
        <source>Not sent whole: the connection ended. What was sent before stays in the instrument. Connect to see what it has.</source>
        <translation>Nicht ganz gesendet: Die Verbindung endete. Was vorher gesendet wurde, bleibt im Instrument. Verbinden, um zu sehen, was es hat.</translation>
    </message>
    <message>
        <source>%1 %2, not saved.</source>
        <translation>%1 %2, nicht gespeichert.</translation>
    </message>
    <message>
        <source>its process is not known</source>
        <translation>ihr Prozess ist nicht bekannt</translation>
    </message>
    <message>
        <source>%1 on the computer %2</source>
        <translation>%1 auf dem Computer %2</translation>
    </message>
    <message>
        <source>no lock file can be made in this folder</source>
        <translation>in diesem Ordner lässt sich keine Sperrdatei anlegen</translation>
    </message>
    <message>
        <source>other programs use this folder</source>
        <translation>andere Programme benutzen diesen Ordner</translation>
    </message>
    <message>
        <source>another program may use it (%1)</source>
        <translation>ein anderes Programm benutzt sie vielleicht (%1)</translation>
    </message>
    <message>
        <source>no lock file can be made beside it</source>
        <translation>daneben lässt sich keine Sperrdatei anlegen</translation>
    </message>
    <message>
        <source>they are of no known type of instrument</source>
        <translation>sie gehören zu keinem bekannten Instrumenttyp</translation>
    </message>
    <message>
        <source>No rows yet.</source>
        <translation>Noch keine Zeilen.</translation>
    </message>
    <message>
        <source>Newest row (from before this run)</source>
        <translation>Neueste Zeile (von vor diesem Lauf)</translation>
    </message>
    <message>
        <source>%1 could not be opened. %2</source>
        <translation>%1 konnte nicht geöffnet werden. %2</translation>
    </message>
    <message>
        <source>%1 and %2 others</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>Record %1 (the sheet follows the run)</source>
        <translation>Datensatz %1 (das Blatt folgt dem Lauf)</translation>
    </message>
    <message>
        <source>Data #</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Data Point</source>
        <translation>Messpunkt</translation>
    </message>
    <message>
        <source>This guide is in English, and so are the captions in it.</source>
        <translation>Dieses Handbuch ist auf Englisch, die Beschriftungen darin auch.</translation>
    </message>
    <message>
        <source>the rows of the run before could not be kept under another name (%1)</source>
        <translation>die Zeilen des vorigen Laufs konnten nicht unter anderem Namen aufbewahrt werden (%1)</translation>
    </message>
    <message>
        <source>%1. Rows have come since.</source>
        <translation>%1. Seither sind Zeilen gekommen.</translation>
    </message>
    <message>
        <source>Sent at %1, but the instrument has not all of it: %2. Correct it or press &quot;Apply Settings&quot; again.</source>
        <translation>Gesendet um %1, aber das Instrument hat nicht alles übernommen: %2. Berichtigen oder noch einmal „Einstellungen senden“ drücken.</translation>
    </message>
    <message>
        <source>The clock was sent, but could not be read back. Press &quot;Display Logger Time/Date&quot; to see how it stands.</source>
        <translation>Die Uhr wurde gesendet, konnte aber nicht zurückgelesen werden. „Uhrzeit/Datum des Loggers anzeigen“ zeigt, wie sie steht.</translation>
    </message>
    <message>
        <source>The settings that the instrument gave at the beginning of the shutter reset are not those that it gave before: %1. They were sent back as it gave them last.

</source>
        <translation>Zu Beginn des Vorgangs gab das Instrument andere Einstellungen an als vorher: %1. Sie wurden so zurückgesendet, wie es sie zuletzt angab.

</translation>
    </message>
    <message>
        <source>Look at the settings screen; if they are wrong, correct them and press &quot;Apply Settings&quot;.</source>
        <translation>Im Einstellungsfenster nachsehen; wenn sie falsch sind, berichtigen und „Einstellungen senden“ drücken.</translation>
    </message>
    <message>
        <source>The sheet has rows of another type of instrument. Clear All is on the page Output: Spread Sheet.</source>
        <translation>Auf dem Blatt sind Zeilen eines anderen Instrumenttyps. „Alles löschen“ ist auf der Seite „Ausgabe: Tabellenblatt“.</translation>
    </message>
    <message>
        <source>The instrument ended the run after %1 of %2 rows; %3 has what came</source>
        <translation>Das Instrument beendete den Lauf nach %1 von %2 Zeilen; %3 enthält, was kam</translation>
    </message>
    <message>
        <source>Value %1</source>
        <translation>Wert %1</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>Gespeichert in %1.</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Kopiert.</translation>
    </message>
    <message>
        <source>1 row, record %1</source>
        <translation>1 Zeile, Datensatz %1</translation>
    </message>
    <message>
        <source>%1 rows, records %2 to %3</source>
        <translation>%1 Zeilen, Datensatz %2 bis %3</translation>
    </message>
    <message>
        <source>Switch the instrument&apos;s power on: its first line is waited for. Quit ends the wait.</source>
        <translation>Das Instrument einschalten. Gewartet wird auf seine erste Zeile. „Abbrechen“ beendet das Warten.</translation>
    </message>
    <message>
        <source>%1 of %2 rows</source>
        <translation>%1 von %2 Zeilen</translation>
    </message>
    <message>
        <source>Nothing of this page is sent: it acts on the rows that come from now on.</source>
        <translation>Von dieser Seite wird nichts gesendet: Sie gilt für die Zeilen, die von jetzt an kommen.</translation>
    </message>
    <message>
        <source>What is to be done</source>
        <translation>Was zu tun ist</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <comment>of the dialog only</comment>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>The program is in service mode.</source>
        <translation>Das Programm ist im Servicemodus.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>When read: %1</source>
        <translation>Beim Lesen: %1</translation>
    </message>
    <message>
        <source>Connect to read and to send settings.</source>
        <translation>Zum Lesen und Senden von Einstellungen verbinden.</translation>
    </message>
    <message>
        <source>No rows yet. Collect or download data, or open a sheet.</source>
        <translation>Noch keine Zeilen. Daten messen oder herunterladen oder ein Blatt öffnen.</translation>
    </message>
    <message>
        <source>Export all rows</source>
        <translation>Alle Zeilen exportieren</translation>
    </message>
    <message>
        <source>%1 and the header row copied.</source>
        <translation>%1 und die Kopfzeile kopiert.</translation>
    </message>
    <message>
        <source>Dragging chooses a range; a click or Esc drops it.</source>
        <translation>Ziehen wählt einen Bereich; ein Klick oder Esc hebt ihn auf.</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Datei&amp;name:</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Dateien des Typs:</translation>
    </message>
    <message>
        <source>points/s</source>
        <translation>Messpunkte/s</translation>
    </message>
    <message>
        <source>(memory pointer)</source>
        <translation>(Speicherzeiger)</translation>
    </message>
    <message>
        <source>%1 &quot;Start&quot; can do nothing while the port is open.</source>
        <translation>%1 „Starten“ ist ohne Wirkung, solange der Anschluss offen ist.</translation>
    </message>
    <message>
        <source>COM %1 is open. &quot;Close Port&quot; in the menu &quot;Operation&quot; lets you choose another device.</source>
        <translation>COM %1 ist offen. Mit „Anschluss schließen“ im Menü „Bedienung“ lässt sich ein anderes Gerät wählen.</translation>
    </message>
    <message>
        <source>The first three values of this sheet are %1.</source>
        <translation>Die ersten drei Werte dieses Blatts sind %1.</translation>
    </message>
    <message>
        <source>The capture %1 has no further connection. Choose another port and then this one again to play it from its beginning.</source>
        <translation>Die Mitschrift %1 hat keine weitere Verbindung. Einen anderen Anschluss und dann wieder diesen wählen, um sie von vorn abzuspielen.</translation>
    </message>
    <message>
        <source>It could not be opened.</source>
        <translation>Der Anschluss ließ sich nicht öffnen.</translation>
    </message>
    <message>
        <source>The line failed.</source>
        <translation>Die Leitung ist ausgefallen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no replay. %2</source>
        <translation>„%1“ bezeichnet keine Wiedergabe. %2</translation>
    </message>
    <message>
        <source>The option %1 must be %2, not &quot;%3&quot;.</source>
        <translation>Die Option %1 muss %2 sein, nicht „%3“.</translation>
    </message>
    <message>
        <source>a number from 0 (without any delay) to 1000</source>
        <translation>eine Zahl von 0 (ohne jede Verzögerung) bis 1000</translation>
    </message>
    <message>
        <source>There is no option &quot;%1&quot;. The options are %2.</source>
        <translation>Eine Option „%1“ gibt es nicht. Die Optionen sind %2.</translation>
    </message>
    <message>
        <source>It must be %1.</source>
        <translation>Es muss %1 heißen.</translation>
    </message>
    <message>
        <source>The cable of the simulated instrument was pulled out. Connecting again plugs it back in.</source>
        <translation>Das Kabel des simulierten Instruments wurde gezogen. Erneutes Verbinden steckt es wieder ein.</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>a number of seconds from 0 to 3600</source>
        <translation>0 bis 3600 Sekunden</translation>
    </message>
    <message>
        <source>a number from 0.001 to 1000</source>
        <translation>eine Zahl von 0.001 bis 1000</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>einer der Werte %1</translation>
    </message>
    <message>
        <source>a number of bytes, 0% to 100% or a number of milliseconds (&quot;1500ms&quot;)</source>
        <translation>eine Anzahl Bytes, 0% bis 100% oder eine Anzahl Millisekunden („1500ms“)</translation>
    </message>
    <message>
        <source>The option %1 is given twice.</source>
        <translation>Die Option %1 steht zweimal da.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no simulated instrument. %2</source>
        <translation>„%1“ bezeichnet kein simuliertes Instrument. %2</translation>
    </message>
    <message>
        <source>It must begin with sim:trx or sim:glow.</source>
        <translation>Der Name muss mit sim:trx oder sim:glow beginnen.</translation>
    </message>
    <message>
        <source>The option delay needs fault=late.</source>
        <translation>Die Option delay braucht fault=late.</translation>
    </message>
    <message>
        <source>The option after needs fault=cut or fault=unplug.</source>
        <translation>Die Option after braucht fault=cut oder fault=unplug.</translation>
    </message>
    <message>
        <source>The shutter is being reset: until that is done, these may be temporary settings.</source>
        <translation>Der Verschluss wird gerade zurückgesetzt. Bis das beendet ist, können dies die vorübergehenden Einstellungen sein.</translation>
    </message>
    <message>
        <source>The sheet held unsaved rows of another type of instrument. They have been saved as %1, and stay on the sheet too.

&quot;Clear All&quot; makes room for the rows of the one connected now.</source>
        <translation>Auf dem Blatt waren nicht gespeicherte Zeilen eines anderen Instrumenttyps. Sie sind als %1 gespeichert und bleiben auch auf dem Blatt.

„Alles löschen“ macht Platz für die Zeilen des jetzt verbundenen Instruments.</translation>
    </message>
    <message>
        <source>Only a number such as -0.5, with a point and no comma.</source>
        <translation>Nur eine Zahl wie -0.5, mit Punkt statt Komma.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is not counted.</source>
        <translation>1 Zeile eines anderen Instrumenttyps ist nicht mitgerechnet.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are not counted.</source>
        <translation>%1 Zeilen eines anderen Instrumenttyps sind nicht mitgerechnet.</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <comment>the instrument before</comment>
        <translation>&amp;Voriges</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <comment>the instrument after</comment>
        <translation>&amp;Nächstes</translation>
    </message>
    <message>
        <source>The sheet holds no rows. Collect or open those of this point first.</source>
        <translation>Das Blatt ist leer. Zuerst die Zeilen dieses Punkts messen oder öffnen.</translation>
    </message>
    <message>
        <source>In the frame &quot;KP 7&quot; the value of &quot;%1&quot; in column %2 is empty or 0. Fill it in, then press &quot;Calc DP&quot; again.</source>
        <translation>Im Rahmen „KP 7“ ist der Wert „%1“ in Spalte %2 leer oder 0. Ausfüllen, dann noch einmal „DP berechnen“ drücken.</translation>
    </message>
    <message>
        <source>The value of &quot;%1&quot; for the angle %2 is not from -32768 to 32767. Correct it first.</source>
        <translation>Der Wert „%1“ für den Winkel %2 liegt nicht zwischen -32768 und 32767. Zuerst berichtigen.</translation>
    </message>
    <message>
        <source>Only a whole number from -32768 to 32767.</source>
        <translation>Nur eine ganze Zahl von -32768 bis 32767.</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(ohne Namen)</translation>
    </message>
    <message>
        <source>1 row is of another type of instrument, with other columns.</source>
        <translation>1 Zeile ist von einem anderen Instrumenttyp mit anderen Spalten.</translation>
    </message>
    <message>
        <source>%1 rows are of another type of instrument, with other columns.</source>
        <translation>%1 Zeilen sind von einem anderen Instrumenttyp mit anderen Spalten.</translation>
    </message>
</context>
</TS>
