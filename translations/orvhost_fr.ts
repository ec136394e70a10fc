<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>orv</name>
    <message>
        <source>The run has ended</source>
        <translation>La mesure est terminée</translation>
    </message>
    <message>
        <source>The download has ended</source>
        <translation>Le téléchargement est terminé</translation>
    </message>
    <message>
        <source>It is no capture: its first line does not say so.</source>
        <translation>Ce n&apos;est pas une capture&#xa0;: sa première ligne ne l&apos;indique pas.</translation>
    </message>
    <message>
        <source>It was made by a newer version of the program (%1). Read it with that version.</source>
        <translation>Elle vient d&apos;une version plus récente du programme (%1). Lisez-la avec cette version.</translation>
    </message>
    <message>
        <source>Its first line does not say when it began.</source>
        <translation>Sa première ligne n&apos;indique pas quand elle a commencé.</translation>
    </message>
    <message>
        <source>is no JSON object</source>
        <translation>n&apos;est pas un objet JSON</translation>
    </message>
    <message>
        <source>does not say its time</source>
        <translation>n&apos;indique pas l&apos;heure</translation>
    </message>
    <message>
        <source>has characters that are no bytes</source>
        <translation>contient des caractères qui ne sont pas des octets</translation>
    </message>
    <message>
        <source>It is empty.</source>
        <translation>Elle est vide.</translation>
    </message>
    <message>
        <source>It is no capture: its first line does not end.</source>
        <translation>Ce n&apos;est pas une capture&#xa0;: sa première ligne n&apos;a pas de fin.</translation>
    </message>
    <message>
        <source>Its line %1 is longer than any of a capture.</source>
        <translation>Sa ligne %1 est trop longue pour une capture.</translation>
    </message>
    <message>
        <source>Its line %1 %2.</source>
        <translation>Sa ligne %1 %2.</translation>
    </message>
    <message>
        <source>The capture %1 cannot be read. %2</source>
        <translation>La capture %1 ne peut pas être lue. %2</translation>
    </message>
    <message>
        <source>It is no file.</source>
        <translation>Ce n&apos;est pas un fichier.</translation>
    </message>
    <message>
        <source>The system says: %1.</source>
        <translation>Message du système&#xa0;: %1.</translation>
    </message>
    <message>
        <source>It is larger than any capture (64 MB).</source>
        <translation>Elle est trop grande pour une capture (64 Mo au plus).</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>ce n&apos;est pas un fichier</translation>
    </message>
    <message>
        <source>%1 cannot be renamed</source>
        <translation>%1 ne peut pas être renommé</translation>
    </message>
    <message>
        <source>the older file of that name could not be kept (%1)</source>
        <translation>l&apos;ancien fichier de ce nom n&apos;a pas pu être conservé (%1)</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2.

A file that was there before is unchanged. Choose another folder or make room on the disk, then save again.</source>
        <translation>%1 n&apos;a pas pu être enregistré&#xa0;: %2.

Un fichier déjà présent reste inchangé. Choisissez un autre dossier ou libérez de l&apos;espace disque, puis enregistrez à nouveau.</translation>
    </message>
    <message>
        <source>ORV Host Program</source>
        <translation>Programme ORV Host</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Dépassement de capacité</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Indice hors limites</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division par zéro</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>Argument non valide</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Type incompatible</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Erreur inconnue</translation>
    </message>
    <message>
        <source>%1: the operation ended with the error &quot;%2&quot;.

The program goes on and all data is kept.</source>
        <translation>%1&#xa0;: l&apos;opération s&apos;est terminée par l&apos;erreur «&#xa0;%2&#xa0;».

Le programme continue et toutes les données sont conservées.</translation>
    </message>
    <message>
        <source>%1 days</source>
        <translation>%1 jours</translation>
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
        <translation>CHOISISSEZ UNE COULEUR</translation>
    </message>
    <message>
        <source>Add Instrument</source>
        <translation>Ajouter l&apos;instrument</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Show Instrument</source>
        <translation>Afficher l&apos;instrument</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>vide</translation>
    </message>
    <message>
        <source>Calc DP</source>
        <translation>Calculer DP</translation>
    </message>
    <message>
        <source>Save Cal Info</source>
        <translation>Enregistrer l&apos;étalonnage</translation>
    </message>
    <message>
        <source>no control bit</source>
        <translation>aucun bit de commande</translation>
    </message>
    <message>
        <source>; samples per point %1</source>
        <translation>&#xa0;; échantillons par point %1</translation>
    </message>
    <message>
        <source>, points per block %1</source>
        <translation>, points par bloc %1</translation>
    </message>
    <message>
        <source>, seconds between points %1</source>
        <translation>, secondes entre points %1</translation>
    </message>
    <message>
        <source>, hours before a block %1</source>
        <translation>, heures avant un bloc %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>Reset Shutter</source>
        <translation>Réinitialiser l&apos;obturateur</translation>
    </message>
    <message>
        <source>Getting Settings</source>
        <translation>Lecture des réglages</translation>
    </message>
    <message>
        <source>Sending New Settings</source>
        <translation>Envoi de nouveaux réglages</translation>
    </message>
    <message>
        <source>Restoring Orignal Settings</source>
        <translation>Rétablissement des réglages</translation>
    </message>
    <message>
        <source>Moving Shutter</source>
        <translation>Mouvement de l&apos;obturateur</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>The settings from before could not be sent back. The instrument may still hold the temporary settings (%1).

</source>
        <translation>Les réglages précédents n&apos;ont pas pu être renvoyés. L&apos;instrument a peut-être encore les réglages temporaires (%1).

</translation>
    </message>
    <message>
        <source>The settings from before are on the settings screen again (%1). When the instrument answers, send them with &quot;Apply Settings&quot;.</source>
        <translation>Les réglages précédents sont de nouveau sur l&apos;écran des réglages (%1). Dès que l&apos;instrument répond, envoyez-les avec «&#xa0;Envoyer les réglages&#xa0;».</translation>
    </message>
    <message>
        <source>The shutter reset was interrupted before the temporary settings were sent. The instrument still has its own settings.</source>
        <translation>La réinitialisation de l&apos;obturateur a été interrompue avant l&apos;envoi des réglages temporaires. L&apos;instrument a encore ses propres réglages.</translation>
    </message>
    <message>
        <source>The shutter reset was interrupted. The instrument may still hold the temporary settings (%1).

</source>
        <translation>La réinitialisation de l&apos;obturateur a été interrompue. L&apos;instrument a peut-être encore les réglages temporaires (%1).

</translation>
    </message>
    <message>
        <source>Its settings from before: %1.

When it is connected again, compare them with the settings screen, and send them with &quot;Apply Settings&quot; if they differ. This message can stay open meanwhile.</source>
        <translation>Ses réglages précédents&#xa0;: %1.

Une fois l&apos;instrument reconnecté, comparez-les avec l&apos;écran des réglages et, s&apos;ils diffèrent, envoyez-les avec «&#xa0;Envoyer les réglages&#xa0;». Ce message peut rester ouvert entre-temps.</translation>
    </message>
    <message>
        <source>Resetting Shutter</source>
        <translation>Réinitialisation de l&apos;obturateur</translation>
    </message>
    <message>
        <source>Air</source>
        <translation>Air</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Eau pure</translation>
    </message>
    <message>
        <source>Point 1</source>
        <translation>Point 1</translation>
    </message>
    <message>
        <source>Point 2</source>
        <translation>Point 2</translation>
    </message>
    <message>
        <source>Point 3</source>
        <translation>Point 3</translation>
    </message>
    <message>
        <source>Point 4</source>
        <translation>Point 4</translation>
    </message>
    <message>
        <source>&amp;Red</source>
        <translation>Rou&amp;ge</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>&amp;Bleu</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Vert</translation>
    </message>
    <message>
        <source>Worksheet</source>
        <translation>Feuille de travail</translation>
    </message>
    <message>
        <source>the netCDF library is missing. Install it (on Debian: apt install libnetcdf19), or choose a name that ends in .csv</source>
        <translation>la bibliothèque netCDF manque. Installez-la (sous Debian&#xa0;: apt install libnetcdf19) ou choisissez un nom qui finit par .csv</translation>
    </message>
    <message>
        <source>it is a folder or a device, not a file</source>
        <translation>c&apos;est un dossier ou un périphérique, pas un fichier</translation>
    </message>
    <message>
        <source>a file of that name is there already</source>
        <translation>un fichier de ce nom existe déjà</translation>
    </message>
    <message>
        <source>a sheet holds at most %1 rows</source>
        <translation>une feuille contient au plus %1 lignes</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>CSV or NetCDF (*.csv *.nc)</source>
        <translation>CSV ou NetCDF (*.csv *.nc)</translation>
    </message>
    <message>
        <source>The sheet could not be exported as %1: %2.

Its rows are still on the sheet.</source>
        <translation>La feuille n&apos;a pas pu être exportée dans %1&#xa0;: %2.

Ses lignes sont encore sur la feuille.</translation>
    </message>
    <message>
        <source>it has no known type of instrument</source>
        <translation>elle n&apos;a pas de type d&apos;instrument connu</translation>
    </message>
    <message>
        <source>choose a name that ends in .csv or .nc</source>
        <translation>choisissez un nom qui finit par .csv ou .nc</translation>
    </message>
    <message>
        <source>%1 has been written.

%2</source>
        <translation>%1 a été écrit.

%2</translation>
    </message>
    <message>
        <source>1 time could not be read and is missing.</source>
        <translation>1 horodatage n&apos;a pas pu être lu et manque.</translation>
    </message>
    <message>
        <source>%1 times could not be read and are missing.</source>
        <translation>%1 horodatages n&apos;ont pas pu être lus et manquent.</translation>
    </message>
    <message>
        <source>1 number could not be read and is missing.</source>
        <translation>1 nombre n&apos;a pas pu être lu et manque.</translation>
    </message>
    <message>
        <source>%1 numbers could not be read and are missing.</source>
        <translation>%1 nombres n&apos;ont pas pu être lus et manquent.</translation>
    </message>
    <message>
        <source>1 value was not there and is missing.</source>
        <translation>1 valeur était absente et manque.</translation>
    </message>
    <message>
        <source>%1 values were not there and are missing.</source>
        <translation>%1 valeurs étaient absentes et manquent.</translation>
    </message>
    <message>
        <source>1 line could not be read as a row and is left out.</source>
        <translation>1 ligne n&apos;a pas pu être lue comme ligne de mesure et est omise.</translation>
    </message>
    <message>
        <source>%1 lines could not be read as rows and are left out.</source>
        <translation>%1 lignes n&apos;ont pas pu être lues comme lignes de mesure et sont omises.</translation>
    </message>
    <message>
        <source>1 record number is left out between rows.</source>
        <translation>1 numéro de ligne manque entre les lignes.</translation>
    </message>
    <message>
        <source>%1 record numbers are left out between rows.</source>
        <translation>%1 numéros de ligne manquent entre les lignes.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is left out.</source>
        <translation>1 ligne d&apos;un autre type d&apos;instrument est omise.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are left out.</source>
        <translation>%1 lignes d&apos;un autre type d&apos;instrument sont omises.</translation>
    </message>
    <message>
        <source>1 last reference of the older TRX has no column in a sheet file and is left out; .csv, .nc and .jsonl have one.</source>
        <translation>1 dernière référence de l&apos;ancien TRX n&apos;a pas de colonne dans un fichier de feuille et est omise&#xa0;; .csv, .nc et .jsonl en ont une.</translation>
    </message>
    <message>
        <source>%1 last references of the older TRX have no column in a sheet file and are left out; .csv, .nc and .jsonl have one.</source>
        <translation>%1 dernières références de l&apos;ancien TRX n&apos;ont pas de colonne dans un fichier de feuille et sont omises&#xa0;; .csv, .nc et .jsonl en ont une.</translation>
    </message>
    <message>
        <source>1 last line had no end and is left out.</source>
        <translation>1 dernière ligne n&apos;avait pas de fin et est omise.</translation>
    </message>
    <message>
        <source>%1 last lines had no end and are left out.</source>
        <translation>%1 dernières lignes n&apos;avaient pas de fin et sont omises.</translation>
    </message>
    <message>
        <source>%1 could not be opened.

%2</source>
        <translation>Impossible d&apos;ouvrir %1.

%2</translation>
    </message>
    <message>
        <source>The debug output (&quot;Comm 2 Debug Output&quot;) is using it. Connect the instrument to the other port, or clear the box.</source>
        <translation>La sortie de débogage («&#xa0;Sortie de débogage COM 2&#xa0;») l&apos;utilise. Connectez l&apos;instrument à l&apos;autre port ou décochez la case.</translation>
    </message>
    <message>
        <source>The connection on %1 was lost.

%2

</source>
        <translation>La connexion sur %1 est perdue.

%2

</translation>
    </message>
    <message>
        <source>All rows received so far are kept. Check the cable, then connect again.</source>
        <translation>Toutes les lignes reçues sont conservées. Vérifiez le câble, puis relancez la connexion.</translation>
    </message>
    <message>
        <source>The instrument is connected on it. Use &quot;Close Port&quot; first, or connect the instrument to COM 1.</source>
        <translation>L&apos;instrument y est connecté. Utilisez d&apos;abord «&#xa0;Fermer le port&#xa0;», ou connectez l&apos;instrument à COM 1.</translation>
    </message>
    <message>
        <source>tick &quot;Comm 2 Debug Output&quot; again</source>
        <translation>cochez à nouveau «&#xa0;Sortie de débogage COM 2&#xa0;»</translation>
    </message>
    <message>
        <source>The debug output on %1</source>
        <translation>la sortie de débogage sur %1</translation>
    </message>
    <message>
        <source>The debug output on COM 2 has stopped.

%1

Tick &quot;Comm 2 Debug Output&quot; to try again.</source>
        <translation>La sortie de débogage sur COM 2 s&apos;est arrêtée.

%1

Cochez «&#xa0;Sortie de débogage COM 2&#xa0;» pour réessayer.</translation>
    </message>
    <message>
        <source>%1 was lost. Check the cable, then press Connect.</source>
        <translation>La connexion sur %1 est perdue. Vérifiez le câble, puis appuyez sur «&#xa0;Connecter&#xa0;».</translation>
    </message>
    <message>
        <source>Auto Connect Comm 1</source>
        <translation>Connexion automatique COM 1</translation>
    </message>
    <message>
        <source>Auto Connect Comm 2</source>
        <translation>Connexion automatique COM 2</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>Connexion…</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Hors ligne</translation>
    </message>
    <message>
        <source>No answer from COM %1</source>
        <translation>Pas de réponse de COM %1</translation>
    </message>
    <message>
        <source>No answer from %1 within %2 s. Check power and cable, press Quit, connect again.</source>
        <translation>Pas de réponse de %1 en %2 s. Vérifiez l&apos;alimentation et le câble, appuyez sur «&#xa0;Annuler&#xa0;», puis relancez la connexion.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>To start manual connection on Comm %1, click Proceed. If you wish to exit connection proccess click Quit</source>
        <translation>Pour la connexion manuelle sur COM %1, appuyez sur «&#xa0;Continuer&#xa0;». Pour y renoncer, appuyez sur «&#xa0;Annuler&#xa0;».</translation>
    </message>
    <message>
        <source>Attempt to Auto Connect Via Comm %1 Failed!      Make sure that this cable is DTR enabled, that power is supplied to the instrument, and that you selected the right Comm Port. Click Retry when ready.</source>
        <translation>La connexion automatique par COM %1 a échoué&#xa0;!      Vérifiez que le câble transmet le signal DTR, que l&apos;instrument est alimenté et que le bon port est choisi. Appuyez ensuite sur «&#xa0;Réessayer&#xa0;».</translation>
    </message>
    <message>
        <source>An attempt is under way.</source>
        <translation>Une tentative est en cours.</translation>
    </message>
    <message>
        <source>The port is still open, so this would do nothing. Press Quit, then connect again.</source>
        <translation>Le port est encore ouvert, cela ne ferait donc rien. Appuyez sur «&#xa0;Annuler&#xa0;», puis relancez la connexion.</translation>
    </message>
    <message>
        <source>Shut power off of sensor. Press (Start) then turn power on.</source>
        <translation>Coupez l&apos;alimentation du capteur. Appuyez sur «&#xa0;Démarrer&#xa0;», puis rétablissez l&apos;alimentation.</translation>
    </message>
    <message>
        <source>Manual Connect</source>
        <translation>Connexion manuelle</translation>
    </message>
    <message>
        <source>Waiting for the instrument. &quot;Quit&quot; in the dialog ends it.</source>
        <translation>Attente de l&apos;instrument. «&#xa0;Annuler&#xa0;» dans la boîte de dialogue y met fin.</translation>
    </message>
    <message>
        <source>%1 is a file that this program writes itself while it runs, so nothing can be saved there.

Save again under another name.</source>
        <translation>%1 est un fichier que ce programme écrit lui-même&#xa0;; rien ne peut y être enregistré.

Enregistrez sous un autre nom.</translation>
    </message>
    <message>
        <source>The log file %1 can no longer be written: %2.

The program goes on; make room on the disk so that the log is complete again.</source>
        <translation>Le fichier journal %1 ne peut plus être écrit&#xa0;: %2.

Le programme continue&#xa0;; libérez de l&apos;espace disque pour que le journal soit de nouveau complet.</translation>
    </message>
    <message>
        <source>The log file %1 has become long and goes on in a new file. What was received before is in %2.

From now on this is done without a word, and only the newest of the older files is kept. Copy them if you need more.</source>
        <translation>Le fichier journal %1 est devenu long et continue dans un nouveau fichier. Ce qui a été reçu avant est dans %2.

Désormais, cela se fera sans avertissement, et seul le plus récent des anciens fichiers sera conservé. Copiez-les au besoin.</translation>
    </message>
    <message>
        <source>The log file %1 has become long, and no new one could be begun: %2.

The program goes on. Make room in the folder, and start the program again when you can.</source>
        <translation>Le fichier journal %1 est devenu long et aucun nouveau n&apos;a pu être commencé&#xa0;: %2.

Le programme continue. Libérez de la place dans le dossier et redémarrez le programme dès que possible.</translation>
    </message>
    <message>
        <source>connect again</source>
        <translation>relancez la connexion</translation>
    </message>
    <message>
        <source>The debug output uses COM %1. Clear &quot;Comm 2 Debug Output&quot; on the debug screen to free it.</source>
        <translation>La sortie de débogage utilise COM %1. Décochez «&#xa0;Sortie de débogage COM 2&#xa0;» sur l&apos;écran de débogage pour le libérer.</translation>
    </message>
    <message>
        <source>Simulated instrument on %1</source>
        <translation>Instrument simulé sur %1</translation>
    </message>
    <message>
        <source>Simulated instruments on COM 1 and COM 2</source>
        <translation>Instruments simulés sur COM 1 et COM 2</translation>
    </message>
    <message>
        <source>%1 is not there now. Plug it in, or choose another port.</source>
        <translation>%1 est absent pour le moment. Branchez-le ou choisissez un autre port.</translation>
    </message>
    <message>
        <source>simulated scattering meter</source>
        <translation>diffusiomètre simulé</translation>
    </message>
    <message>
        <source>simulated fluorometer</source>
        <translation>fluoromètre simulé</translation>
    </message>
    <message>
        <source>COM %1 is set to %2 already. Choose another device here, or change COM %1 first.</source>
        <translation>COM %1 est déjà réglé sur %2. Choisissez ici un autre périphérique ou changez d&apos;abord COM %1.</translation>
    </message>
    <message>
        <source>%1 COM %2 stays %3.</source>
        <translation>%1 COM %2 reste réglé sur %3.</translation>
    </message>
    <message>
        <source>%1 has ended: %2.

</source>
        <translation>L&apos;opération «&#xa0;%1&#xa0;» s&apos;est arrêtée&#xa0;: %2.

</translation>
    </message>
    <message>
        <source>Save the sheet and start the program again.</source>
        <translation>Enregistrez la feuille et redémarrez le programme.</translation>
    </message>
    <message>
        <source>There is no such device. Plug the adapter in, check the device&apos;s name, and connect again.</source>
        <translation>Ce périphérique n&apos;existe pas. Branchez l&apos;adaptateur, vérifiez le nom du périphérique et relancez la connexion.</translation>
    </message>
    <message>
        <source>It is not a serial port. Choose the device of the serial adapter and connect again.</source>
        <translation>Ce n&apos;est pas un port série. Choisissez le périphérique de l&apos;adaptateur série et relancez la connexion.</translation>
    </message>
    <message>
        <source>You have no permission to use it. Ask for your user to be added to the group &quot;%1&quot; (sudo usermod -aG %1 $USER), log out and in again, then connect again.</source>
        <translation>Vous n&apos;avez pas le droit de l&apos;utiliser. Faites ajouter votre utilisateur au groupe «&#xa0;%1&#xa0;» (sudo usermod -aG %1 $USER), fermez puis rouvrez la session et relancez la connexion.</translation>
    </message>
    <message>
        <source>It is used by another program%1. Close that program, then connect again.</source>
        <translation>Un autre programme l&apos;utilise%1. Fermez ce programme, puis relancez la connexion.</translation>
    </message>
    <message>
        <source>The lock file that keeps other programs off the port cannot be written in %1. Ask for write permission to that folder, log out and in again, then connect again.</source>
        <translation>Le fichier verrou qui tient les autres programmes à l&apos;écart du port ne peut pas être écrit dans %1. Demandez le droit d&apos;écriture dans ce dossier, fermez puis rouvrez la session et relancez la connexion.</translation>
    </message>
    <message>
        <source>The system says: %1. Unplug the adapter and plug it in again, then connect again.</source>
        <translation>Message du système&#xa0;: %1. Débranchez l&apos;adaptateur, rebranchez-le, puis relancez la connexion.</translation>
    </message>
    <message>
        <source>process %1</source>
        <translation>processus %1</translation>
    </message>
    <message>
        <source>The device is gone: the cable was pulled or the adapter switched off.</source>
        <translation>Le périphérique a disparu&#xa0;: le câble a été débranché ou l&apos;adaptateur éteint.</translation>
    </message>
    <message>
        <source>The capture has ended: %1 cannot be written any further: %2.

What was captured before is kept, and the program goes on. Make room on the disk and start it again to capture on.</source>
        <translation>La capture est terminée&#xa0;: %1 ne peut plus être écrit&#xa0;: %2.

Ce qui a été capturé avant est conservé, et le programme continue. Libérez de l&apos;espace disque et redémarrez le programme pour reprendre la capture.</translation>
    </message>
    <message>
        <source>the program keeps that file itself</source>
        <translation>le programme utilise lui-même ce fichier</translation>
    </message>
    <message>
        <source>Nothing is captured: %1 cannot be written: %2.

The program goes on without. Name a file in a folder where you may write, and start it again.</source>
        <translation>Rien n&apos;est capturé&#xa0;: %1 ne peut pas être écrit&#xa0;: %2.

Le programme continue sans capture. Nommez un fichier dans un dossier où vous pouvez écrire et redémarrez le programme.</translation>
    </message>
    <message>
        <source>Save Support File</source>
        <translation>Enregistrer un fichier d&apos;assistance</translation>
    </message>
    <message>
        <source>%1 tells what went over the line and what was done in the last ten minutes. Send it along when you ask for help. It can be read as text; your own files are not in it.</source>
        <translation>%1 contient ce qui est passé sur la ligne et ce qui a été fait pendant les dix dernières minutes. À joindre aux demandes d&apos;aide. Il se lit comme du texte&#xa0;; vos propres fichiers n&apos;y sont pas.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no device. Give a serial port&apos;s name or path (ttyUSB0, /dev/ttyUSB0, COM3) or a simulated instrument (sim:trx, sim:glow).</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un périphérique. Donnez le nom ou le chemin d&apos;un port série (ttyUSB0, /dev/ttyUSB0, COM3) ou un instrument simulé (sim:trx, sim:glow).</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 ligne</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 lignes</translation>
    </message>
    <message>
        <source>Switch the instrument&apos;s power on.</source>
        <translation>Mettez l&apos;instrument sous tension.</translation>
    </message>
    <message>
        <source>Waking the instrument on COM %1 (%2). This takes a few seconds.</source>
        <translation>Réveil de l&apos;instrument sur COM %1 (%2). Cela prend quelques secondes.</translation>
    </message>
    <message>
        <source>Collecting. Reset ends the run.</source>
        <translation>Mesure en cours. «&#xa0;Réinitialiser&#xa0;» y met fin.</translation>
    </message>
    <message>
        <source>%1. Reset ends the run.</source>
        <translation>%1. «&#xa0;Réinitialiser&#xa0;» met fin à la mesure.</translation>
    </message>
    <message>
        <source> Only %1.</source>
        <translation> Plus que %1.</translation>
    </message>
    <message>
        <source>Reading the instrument&apos;s settings.</source>
        <translation>Lecture des réglages de l&apos;instrument.</translation>
    </message>
    <message>
        <source>Downloading. Reset stops it; what has arrived is kept.</source>
        <translation>Téléchargement en cours. «&#xa0;Réinitialiser&#xa0;» y met fin&#xa0;; ce qui est arrivé est conservé.</translation>
    </message>
    <message>
        <source>Sending the settings.</source>
        <translation>Envoi des réglages.</translation>
    </message>
    <message>
        <source>Setting the instrument&apos;s clock.</source>
        <translation>Mise à l&apos;heure de l&apos;instrument.</translation>
    </message>
    <message>
        <source>Moving the shutter.</source>
        <translation>Mouvement de l&apos;obturateur.</translation>
    </message>
    <message>
        <source>%1, not saved. Save As is on the page Output: Spread Sheet.</source>
        <translation>%1 à enregistrer. «&#xa0;Enregistrer sous&#xa0;» est sur la page «&#xa0;Sortie&#xa0;: feuille&#xa0;».</translation>
    </message>
    <message>
        <source>Plug in an adapter, or choose a port and press Connect.</source>
        <translation>Branchez un adaptateur, ou choisissez un port et appuyez sur «&#xa0;Connecter&#xa0;».</translation>
    </message>
    <message>
        <source>Choose a port and press Connect.</source>
        <translation>Choisissez un port et appuyez sur «&#xa0;Connecter&#xa0;».</translation>
    </message>
    <message>
        <source>The instrument has not said what it is. Press Reset to ask again.</source>
        <translation>L&apos;instrument ne s&apos;est pas identifié. Appuyez sur «&#xa0;Réinitialiser&#xa0;» pour redemander.</translation>
    </message>
    <message>
        <source>Press Run to collect. Reset ends a run.</source>
        <translation>Appuyez sur «&#xa0;Mesurer&#xa0;» pour commencer. «&#xa0;Réinitialiser&#xa0;» met fin à la mesure.</translation>
    </message>
    <message>
        <source>A question waits for your answer.</source>
        <translation>Une question attend votre réponse.</translation>
    </message>
    <message>
        <source>The dialog Manual Connection says how to go on.</source>
        <translation>La boîte de dialogue «&#xa0;Connexion manuelle&#xa0;» indique comment continuer.</translation>
    </message>
    <message>
        <source>Status and Controls</source>
        <translation>État et commandes</translation>
    </message>
    <message>
        <source>Output: Spread Sheet</source>
        <translation>Sortie&#xa0;: feuille</translation>
    </message>
    <message>
        <source>Output: Graphical</source>
        <translation>Sortie&#xa0;: courbes</translation>
    </message>
    <message>
        <source>Debug Screen</source>
        <translation>Écran de débogage</translation>
    </message>
    <message>
        <source>Testing</source>
        <translation>Essais</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Étalonnage</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Close Port</source>
        <translation>Fermer le port</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Mesurer</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Tout effacer</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Récupérer</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Download Stored Data</source>
        <translation>Télécharger les données stockées</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>The rows on the sheet are not saved, and could not be kept for the next start either: %1.</source>
        <translation>Les lignes de la feuille ne sont pas enregistrées et n&apos;ont pas non plus pu être conservées pour le prochain démarrage&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Reading the port</source>
        <translation>Lecture du port</translation>
    </message>
    <message>
        <source>Reading the settings</source>
        <translation>Lecture des réglages</translation>
    </message>
    <message>
        <source>Reading the clock</source>
        <translation>Lecture de l&apos;horloge</translation>
    </message>
    <message>
        <source>Collecting</source>
        <translation>Mesure</translation>
    </message>
    <message>
        <source>Downloading</source>
        <translation>Téléchargement</translation>
    </message>
    <message>
        <source>%1 rows/s</source>
        <translation>%1 lignes/s</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>reste %1</translation>
    </message>
    <message>
        <source>No row for %1</source>
        <translation>Aucune ligne depuis %1</translation>
    </message>
    <message>
        <source>%1 MB are free on the disk</source>
        <translation>%1 Mo libres sur le disque</translation>
    </message>
    <message>
        <source>No lock file can be made in this folder, perhaps because the disk is full: %1

So that no other program&apos;s files are written to, this program works without log and record file. Make room on the disk, or choose another folder, and start the program again.</source>
        <translation>Aucun fichier verrou ne peut être créé dans ce dossier, peut-être parce que le disque est plein&#xa0;: %1

Pour ne pas écrire dans les fichiers d&apos;autres programmes, celui-ci fonctionne sans journal ni fichier de mesure. Libérez de l&apos;espace disque ou choisissez un autre dossier, puis redémarrez le programme.</translation>
    </message>
    <message>
        <source>This program works without such files. Start it in another folder, so that log and record file are kept.</source>
        <translation>Ce programme fonctionne sans ces fichiers. Démarrez-le dans un autre dossier pour avoir journal et fichier de mesure.</translation>
    </message>
    <message>
        <source>This program writes %1 and %2 instead.</source>
        <translation>Ce programme écrit %1 et %2 à la place.</translation>
    </message>
    <message>
        <source>Another ORV Host Program uses this folder (%1): %2

Its log and record file are left alone. %3</source>
        <translation>Un autre programme ORV Host utilise ce dossier (%1)&#xa0;: %2

Son journal et son fichier de mesure restent intacts. %3</translation>
    </message>
    <message>
        <source>The log file %1 cannot be written in this folder: %2.

The program works without it. Start it in a folder where you may write files, so that log and record file are kept.</source>
        <translation>Le fichier journal %1 ne peut pas être écrit dans ce dossier&#xa0;: %2.

Le programme fonctionne sans lui. Démarrez-le dans un dossier où vous pouvez écrire pour avoir journal et fichier de mesure.</translation>
    </message>
    <message>
        <source>Load Device File</source>
        <translation>Charger un fichier d&apos;appareil</translation>
    </message>
    <message>
        <source>Save Device File</source>
        <translation>Enregistrer un fichier d&apos;appareil</translation>
    </message>
    <message>
        <source>Auto &amp;Start</source>
        <translation>&amp;Démarrage automatique</translation>
    </message>
    <message>
        <source>Auto Start: This tells the logger to start collecting data at power up.</source>
        <translation>Démarrage automatique&#xa0;: l&apos;enregistreur commence à mesurer à la mise sous tension.</translation>
    </message>
    <message>
        <source>&amp;Gain</source>
        <translation>&amp;Gain</translation>
    </message>
    <message>
        <source>Function not available</source>
        <translation>Fonction non disponible</translation>
    </message>
    <message>
        <source>Aux A&amp;DC</source>
        <translation>&amp;Aux ADC</translation>
    </message>
    <message>
        <source>&amp;Log Enabled</source>
        <translation>&amp;Mémorisation</translation>
    </message>
    <message>
        <source>Log Enabled: This tells the logger to record data in memory</source>
        <translation>Mémorisation&#xa0;: l&apos;enregistreur conserve les données en mémoire</translation>
    </message>
    <message>
        <source>&amp;Wake Up</source>
        <translation>Ré&amp;veil</translation>
    </message>
    <message>
        <source>Wake Up: This tells the logger to sleep after gathering a data block or stay ready to accept a command.</source>
        <translation>Réveil&#xa0;: après un bloc de données, l&apos;enregistreur reste prêt à recevoir une commande. Si la case est décochée, il se met en veille.</translation>
    </message>
    <message>
        <source>App&amp;end</source>
        <translation>A&amp;jout</translation>
    </message>
    <message>
        <source>Append: This tells the logger to add new data blocks to the end of memory. If this is not set, all pervious data blocks will be erased.</source>
        <translation>Ajout&#xa0;: l&apos;enregistreur met les nouveaux blocs à la fin de la mémoire. Sinon, tous les blocs précédents sont effacés.</translation>
    </message>
    <message>
        <source>Samples Per &amp;Second</source>
        <translation>Échantillon&amp;s par point</translation>
    </message>
    <message>
        <source>This tells the logger to grab X number of samples and average then to determine one data point.</source>
        <translation>L&apos;enregistreur prend ce nombre d&apos;échantillons et en fait la moyenne pour un point de données.</translation>
    </message>
    <message>
        <source>Delay &amp;Before Data Blocks (hours)</source>
        <translation>Délai &amp;avant les blocs (heures)</translation>
    </message>
    <message>
        <source>This is the amount of time in hours that the logger will wait before collecting a data block. For example: A value of 24 is 1 data block per 24 hours.</source>
        <translation>Nombre d&apos;heures que l&apos;enregistreur attend avant un bloc de données. Exemple&#xa0;: 24 donne 1 bloc toutes les 24 heures.</translation>
    </message>
    <message>
        <source>&amp;Number of Data Points per Data Block</source>
        <translation>&amp;Nombre de points par bloc de données</translation>
    </message>
    <message>
        <source>Delay Between Data &amp;Points (Seconds)</source>
        <translation>Délai entre les &amp;points (secondes)</translation>
    </message>
    <message>
        <source>on</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>off</source>
        <translation>non</translation>
    </message>
    <message>
        <source>is not a complete mode file: it has fewer than ten lines</source>
        <translation>n&apos;est pas un fichier de mode complet&#xa0;: il a moins de dix lignes</translation>
    </message>
    <message>
        <source>is not a mode file: line %1 must be empty or hold at most %2 digits</source>
        <translation>n&apos;est pas un fichier de mode&#xa0;: la ligne %1 doit être vide ou avoir au plus %2 chiffres</translation>
    </message>
    <message>
        <source>is not a mode file: line %1 must hold a number</source>
        <translation>n&apos;est pas un fichier de mode&#xa0;: la ligne %1 doit contenir un nombre</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Moored</source>
        <translation>Mouillage</translation>
    </message>
    <message>
        <source>Save A User Defined Mode</source>
        <translation>Enregistrer un mode personnalisé</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Enregistré sous %1.</translation>
    </message>
    <message>
        <source>%1 could not be written; nothing was saved.</source>
        <translation>%1 n&apos;a pas pu être écrit&#xa0;; rien n&apos;a été enregistré.</translation>
    </message>
    <message>
        <source>Load A User Defined Mode</source>
        <translation>Charger un mode personnalisé</translation>
    </message>
    <message>
        <source>%1 was not loaded: the instrument is busy. Try again.</source>
        <translation>%1 n&apos;a pas été chargé&#xa0;: l&apos;instrument est occupé. Réessayez.</translation>
    </message>
    <message>
        <source>The mode file %1 could not be opened: %2.</source>
        <translation>Le fichier de mode %1 n&apos;a pas pu être ouvert&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The mode file %1 could not be read: %2.</source>
        <translation>Le fichier de mode %1 n&apos;a pas pu être lu&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Loaded %1.</source>
        <translation>%1 chargé.</translation>
    </message>
    <message>
        <source>Sending %1...</source>
        <translation>Envoi de %1…</translation>
    </message>
    <message>
        <source>%1 was not sent whole: the connection ended.</source>
        <translation>%1 n&apos;a pas été envoyé en entier&#xa0;: la connexion a pris fin.</translation>
    </message>
    <message>
        <source>%1 was sent.</source>
        <translation>%1 envoyé.</translation>
    </message>
    <message>
        <source>%1 was not sent whole: the instrument did not answer. Try again.</source>
        <translation>%1 n&apos;a pas été envoyé en entier&#xa0;: l&apos;instrument n&apos;a pas répondu. Réessayez.</translation>
    </message>
    <message>
        <source>

Nothing was changed and nothing was sent.</source>
        <translation>

Rien n&apos;a été modifié ni envoyé.</translation>
    </message>
    <message>
        <source> half a second</source>
        <translation> une demi-seconde</translation>
    </message>
    <message>
        <source> an hour</source>
        <translation> une heure</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 heures</translation>
    </message>
    <message>
        <source>Then the sensor will sleep for %1 hour(s), %2 minute(s), %3 second(s).</source>
        <translation>Ensuite, le capteur est en veille pendant%1 h%2 min%3 s.</translation>
    </message>
    <message>
        <source>     The Orv Sensor will start to collect data % after power up</source>
        <translation>Le capteur Orv commence la mesure% après la mise sous tension.</translation>
    </message>
    <message>
        <source>     The Orv Sensor will come up waiting for a command.</source>
        <translation>Le capteur Orv attend une commande après la mise sous tension.</translation>
    </message>
    <message>
        <source>If you press run, it will start to collect data% after you press run.</source>
        <translation>Si vous appuyez sur «&#xa0;Mesurer&#xa0;», il commence la mesure% après l&apos;appui.</translation>
    </message>
    <message>
        <source>It will bin for % sample(s) to create 1 data point.</source>
        <translation>Pour 1 point de données, il échantillonne % fois et fait la moyenne.</translation>
    </message>
    <message>
        <source>After this it wakes up and takes another data point. The process</source>
        <translation>Puis il se réveille et prend un autre point de données.</translation>
    </message>
    <message>
        <source>continues until power is shut off. All of the data collected is known as the data block</source>
        <translation>Cela se répète jusqu&apos;à la mise hors tension. Tous les points forment le bloc de données.</translation>
    </message>
    <message>
        <source>The data point displayed will be saved in memory.</source>
        <translation>Le point affiché est conservé en mémoire.</translation>
    </message>
    <message>
        <source>The data point displayed will not be saved in memory.</source>
        <translation>Le point affiché n&apos;est pas conservé en mémoire.</translation>
    </message>
    <message>
        <source>continues for % data points to create 1 data block.</source>
        <translation>Cela se répète jusqu&apos;à compléter 1 bloc de données (points&#xa0;: %).</translation>
    </message>
    <message>
        <source>After finishing a data block, the sensor will wait for new commands.</source>
        <translation>Après un bloc de données, le capteur attend de nouvelles commandes.</translation>
    </message>
    <message>
        <source>After finishing a data block, the sensor will sleep until power is cycled.</source>
        <translation>Après un bloc de données, le capteur se met en veille jusqu&apos;à ce que l&apos;alimentation soit coupée puis rétablie.</translation>
    </message>
    <message>
        <source>If you decide to take another data block, data in memory will be %.</source>
        <translation>Si vous mesurez un autre bloc de données, les données en mémoire seront %.</translation>
    </message>
    <message>
        <source>appended</source>
        <translation>complétées</translation>
    </message>
    <message>
        <source>erased</source>
        <translation>effacées</translation>
    </message>
    <message>
        <source>Loading Properties</source>
        <translation>Lecture des réglages</translation>
    </message>
    <message>
        <source>Read from the instrument at %1</source>
        <translation>Lu dans l&apos;instrument à %1</translation>
    </message>
    <message>
        <source>Read at %1, but not all: %2 could not be read. Press &quot;Retrieve Settings&quot;.</source>
        <translation>Lu à %1, mais pas en entier&#xa0;; illisible&#xa0;: %2. Appuyez sur «&#xa0;Lire les réglages&#xa0;».</translation>
    </message>
    <message>
        <source>%1 could not be read back</source>
        <translation>%1 (relecture impossible)</translation>
    </message>
    <message>
        <source>%1 is %2 there, not %3</source>
        <translation>%1 (%2 au lieu de %3)</translation>
    </message>
    <message>
        <source>Sent and read back at %1</source>
        <translation>Envoyé et relu à %1</translation>
    </message>
    <message>
        <source>No answer for 10 s. Reset connects again.</source>
        <translation>Aucune réponse depuis 10 s. «&#xa0;Réinitialiser&#xa0;» reconnecte.</translation>
    </message>
    <message>
        <source>This was the 150th line of settings reports since the program started. There it ends the connection, once. Nothing is wrong: press Quit and connect again.</source>
        <translation>C&apos;était la 150e ligne de rapports de réglages depuis le démarrage du programme. Elle met fin à la connexion, une seule fois. Ce n&apos;est pas une panne&#xa0;: appuyez sur «&#xa0;Annuler&#xa0;», puis relancez la connexion.</translation>
    </message>
    <message>
        <source>%1 behind this computer&apos;s</source>
        <translation>%1 de retard sur l&apos;ordinateur</translation>
    </message>
    <message>
        <source>%1 ahead of this computer&apos;s</source>
        <translation>%1 d&apos;avance sur l&apos;ordinateur</translation>
    </message>
    <message>
        <source>Unable to read clock. Error #2</source>
        <translation>Horloge illisible. Erreur n°&#xa0;2</translation>
    </message>
    <message>
        <source>Software Error</source>
        <translation>Erreur du logiciel</translation>
    </message>
    <message>
        <source>Sending ...</source>
        <translation>Envoi…</translation>
    </message>
    <message>
        <source>Not sent whole: the instrument did not answer. What was sent before stays in it. Connect or press &quot;Retrieve Settings&quot; to see what it has.</source>
        <translation>Envoi incomplet&#xa0;: l&apos;instrument n&apos;a pas répondu. Ce qui a été envoyé avant y reste. Relancez la connexion ou appuyez sur «&#xa0;Lire les réglages&#xa0;» pour voir ce qu&apos;il contient.</translation>
    </message>
    <message>
        <source>Sent, and not read back yet</source>
        <translation>Envoyé, pas encore relu</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set to the minute and is %1 behind: the command carries no seconds.</source>
        <translation>L&apos;horloge de l&apos;instrument a été réglée à la minute et retarde de %1&#xa0;: la commande ne transmet pas les secondes.</translation>
    </message>
    <message>
        <source>Sent, but the clock was not set and nothing was read back: the instrument did not answer. Press &quot;Retrieve Settings&quot; to see what it has.</source>
        <translation>Envoyé, mais l&apos;horloge n&apos;a pas été réglée et rien n&apos;a été relu&#xa0;: l&apos;instrument n&apos;a pas répondu. Appuyez sur «&#xa0;Lire les réglages&#xa0;» pour voir ce qu&apos;il contient.</translation>
    </message>
    <message>
        <source>Error Sending Prefs. Error Code 1</source>
        <translation>Erreur à l&apos;envoi des réglages. Code d&apos;erreur 1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Logging and Continues Sampling invalid.</source>
        <translation>La mémorisation demande un bloc de données fini. Indiquez de 1 à 65535 dans «&#xa0;Nombre de points par bloc de données&#xa0;» ou décochez «&#xa0;Mémorisation&#xa0;». Rien n&apos;a été envoyé.</translation>
    </message>
    <message>
        <source>Invalid Setup</source>
        <translation>Réglage non valide</translation>
    </message>
    <message>
        <source>Apply Settings</source>
        <translation>Envoyer les réglages</translation>
    </message>
    <message>
        <source>Sync Time/Date</source>
        <translation>Synchroniser date/heure</translation>
    </message>
    <message>
        <source>The instrument did not say what it is. Connect again.</source>
        <translation>L&apos;instrument ne s&apos;est pas identifié. Relancez la connexion.</translation>
    </message>
    <message>
        <source>1 record</source>
        <translation>1 enregistrement</translation>
    </message>
    <message>
        <source>%1 records</source>
        <translation>%1 enregistrements</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Enregistrer sous</translation>
    </message>
    <message>
        <source>Nothing was asked of the instrument.</source>
        <translation>Rien n&apos;a été demandé à l&apos;instrument.</translation>
    </message>
    <message>
        <source>Make room or choose another folder, and download it again.</source>
        <translation>Libérez de la place ou choisissez un autre dossier, puis relancez le téléchargement.</translation>
    </message>
    <message>
        <source>Saving Sheet</source>
        <translation>Écriture du fichier</translation>
    </message>
    <message>
        <source>Exporting Memory</source>
        <translation>Téléchargement</translation>
    </message>
    <message>
        <source>No data for 10 s. Reset stops the download.</source>
        <translation>Rien reçu depuis 10 s. «&#xa0;Réinitialiser&#xa0;» arrête le téléchargement.</translation>
    </message>
    <message>
        <source>Bytes Downloaded</source>
        <translation>Octets téléchargés</translation>
    </message>
    <message>
        <source>It holds %1.</source>
        <translation>Il contient %1.</translation>
    </message>
    <message>
        <source>Press Reset, make room or choose another folder, and download it again.</source>
        <translation>Appuyez sur «&#xa0;Réinitialiser&#xa0;», libérez de la place ou choisissez un autre dossier, puis relancez le téléchargement.</translation>
    </message>
    <message>
        <source>Bytes DownLoaded</source>
        <translation>Octets téléchargés</translation>
    </message>
    <message>
        <source>It may not have everything.</source>
        <translation>Il est peut-être incomplet.</translation>
    </message>
    <message>
        <source>1 record could not be read; it is in %1</source>
        <translation>1 enregistrement n&apos;a pas pu être lu&#xa0;; il est dans %1</translation>
    </message>
    <message>
        <source>%1 records could not be read; they are in %2</source>
        <translation>%1 enregistrements n&apos;ont pas pu être lus&#xa0;; ils sont dans %2</translation>
    </message>
    <message>
        <source>Download stopped</source>
        <translation>Téléchargement arrêté</translation>
    </message>
    <message>
        <source> %1 arrived and can be found on the sheet.</source>
        <translation> Reçu, sur la feuille&#xa0;: %1.</translation>
    </message>
    <message>
        <source> %1 arrived and can be found in %2.</source>
        <translation> Reçu, dans %2&#xa0;: %1.</translation>
    </message>
    <message>
        <source> %1 arrived and can be found on the sheet and in the files that were saved automatically.</source>
        <translation> Reçu, sur la feuille et dans les fichiers enregistrés automatiquement&#xa0;: %1.</translation>
    </message>
    <message>
        <source> What was saved automatically stays.</source>
        <translation> Ce qui a été enregistré automatiquement est conservé.</translation>
    </message>
    <message>
        <source> The next start offers what is on the sheet.</source>
        <translation> Ce qui est sur la feuille sera proposé au prochain démarrage.</translation>
    </message>
    <message>
        <source> %1 could not be read; %2 has what was received.</source>
        <translation> Illisible&#xa0;: %1&#xa0;; %2 contient ce qui a été reçu.</translation>
    </message>
    <message>
        <source>The download is incomplete: it was ended before the instrument had sent everything.%1%2

The instrument still holds its data; download it again.</source>
        <translation>Le téléchargement est incomplet&#xa0;: il s&apos;est terminé avant que l&apos;instrument ait tout envoyé.%1%2

L&apos;instrument conserve ses données&#xa0;; relancez le téléchargement.</translation>
    </message>
    <message>
        <source>The stored data cannot be written to %1: %2.

%3 The instrument still holds its data. </source>
        <translation>Les données stockées ne peuvent pas être écrites dans %1&#xa0;: %2.

%3 L&apos;instrument conserve ses données. </translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Mesure en cours</translation>
    </message>
    <message>
        <source>1 line could not be read; it is in %1</source>
        <translation>1 ligne n&apos;a pas pu être lue&#xa0;; elle est dans %1</translation>
    </message>
    <message>
        <source>%1 lines could not be read; they are in %2</source>
        <translation>%1 lignes n&apos;ont pas pu être lues&#xa0;; elles sont dans %2</translation>
    </message>
    <message>
        <source>The record file %1 cannot be written: %2.

The run goes on and every row is on the sheet. Save the sheet when the run has ended.</source>
        <translation>Le fichier de mesure %1 ne peut pas être écrit&#xa0;: %2.

La mesure continue et chaque ligne est sur la feuille. Enregistrez la feuille après la mesure.</translation>
    </message>
    <message>
        <source>The last line was cut off and has been left out.</source>
        <translation>La dernière ligne était tronquée et a été omise.</translation>
    </message>
    <message>
        <source>1 line could not be read and was left out.</source>
        <translation>1 ligne n&apos;a pas pu être lue et a été omise.</translation>
    </message>
    <message>
        <source>%1 lines could not be read and were left out.</source>
        <translation>%1 lignes n&apos;ont pas pu être lues et ont été omises.</translation>
    </message>
    <message>
        <source>The numbers of the rows have gaps: 1 row is missing in the record file.</source>
        <translation>La numérotation des lignes a des lacunes&#xa0;: 1 ligne manque dans le fichier de mesure.</translation>
    </message>
    <message>
        <source>The numbers of the rows have gaps: %1 rows are missing in the record file.</source>
        <translation>La numérotation des lignes a des lacunes&#xa0;: %1 lignes manquent dans le fichier de mesure.</translation>
    </message>
    <message>
        <source>The sheet was saved or cleared during the run; rows from before that are left out.</source>
        <translation>La feuille a été enregistrée ou effacée pendant la mesure&#xa0;; les lignes antérieures sont omises.</translation>
    </message>
    <message>
        <source>The instrument&apos;s type was told by the rows; the sheet says %1 with firmware %2.</source>
        <translation>Le type de l&apos;instrument a été déduit des lignes&#xa0;; la feuille indique %1 avec le firmware %2.</translation>
    </message>
    <message>
        <source>The run began with row %1. If the rows before it were of a run too and not saved, they are in a file of this folder named with date and time.</source>
        <translation>La mesure a commencé à la ligne %1. Si les lignes précédentes venaient aussi d&apos;une mesure et n&apos;ont pas été enregistrées, elles sont dans un fichier de ce dossier dont le nom porte la date et l&apos;heure.</translation>
    </message>
    <message>
        <source>The last run in this folder did not end, and its record file %1 cannot be read: %2.

It stays as it is. Its rows are offered again at the next start.</source>
        <translation>La dernière mesure dans ce dossier ne s&apos;est pas terminée, et son fichier de mesure %1 ne peut pas être lu&#xa0;: %2.

Il reste tel quel. Ses lignes sont proposées à nouveau au prochain démarrage.</translation>
    </message>
    <message>
        <source>The last run in this folder did not end, and its record file has no row that can be read. </source>
        <translation>La dernière mesure dans ce dossier ne s&apos;est pas terminée, et son fichier de mesure n&apos;a aucune ligne lisible. </translation>
    </message>
    <message>
        <source>The last run in this folder did not end. Load its %1 into the sheet?</source>
        <translation>La dernière mesure dans ce dossier ne s&apos;est pas terminée. Charger ses données (%1) sur la feuille&#xa0;?</translation>
    </message>
    <message>
        <source>The rows of the last run are on the sheet.

%1

Nothing is lost: the record file %2 has everything.%3</source>
        <translation>Les lignes de la dernière mesure sont sur la feuille.

%1

Rien n&apos;est perdu&#xa0;: le fichier de mesure %2 contient tout.%3</translation>
    </message>
    <message>
        <source> The next run keeps it under a name with date and time.</source>
        <translation> La prochaine mesure le conservera sous un nom avec date et heure.</translation>
    </message>
    <message>
        <source>The record file of the last run is kept as %1.</source>
        <translation>Le fichier de la dernière mesure est conservé sous %1.</translation>
    </message>
    <message>
        <source>The record file %1 could not be kept under a name with date and time: %2.

It stays as it is, and no run will overwrite it. Move it yourself.</source>
        <translation>Le fichier de mesure %1 n&apos;a pas pu être conservé sous un nom avec date et heure&#xa0;: %2.

Il reste tel quel et aucune mesure ne l&apos;écrasera. Déplacez-le vous-même.</translation>
    </message>
    <message>
        <source>The record file %1 has it; the next run keeps that file under a name with date and time.</source>
        <translation>Elle est dans le fichier de mesure %1&#xa0;; la prochaine mesure conservera ce fichier sous un nom avec date et heure.</translation>
    </message>
    <message>
        <source>Of stored data, &quot;Download Stored Data: Save as Text&quot; writes it.</source>
        <translation>Pour les données stockées, «&#xa0;Télécharger les données&#xa0;: enregistrer comme texte&#xa0;» l&apos;écrit.</translation>
    </message>
    <message>
        <source>A sheet file has no column for the last reference of the older TRX.

%1</source>
        <translation>Un fichier de feuille n&apos;a pas de colonne pour la dernière référence de l&apos;ancien TRX.

%1</translation>
    </message>
    <message>
        <source>The sheet still holds unsaved rows of the %1. Save or clear them first.</source>
        <translation>La feuille contient encore des lignes non enregistrées du %1. Enregistrez-les ou effacez-les d&apos;abord.</translation>
    </message>
    <message>
        <source>There is nothing to save: the sheet has no known type of instrument. Connect an instrument or open a sheet first.</source>
        <translation>Il n&apos;y a rien à enregistrer&#xa0;: la feuille n&apos;a pas de type d&apos;instrument connu. Connectez d&apos;abord un instrument ou ouvrez une feuille.</translation>
    </message>
    <message>
        <source> The file of that name is kept under a name with date and time.</source>
        <translation> Le fichier de ce nom est conservé sous un nom avec date et heure.</translation>
    </message>
    <message>
        <source>While you chose a name the sheet became long and was saved by itself: %1.

%2 has the rows since.%3</source>
        <translation>Pendant le choix du nom, la feuille est devenue longue et a été enregistrée automatiquement&#xa0;: %1.

%2 contient les lignes suivantes.%3</translation>
    </message>
    <message>
        <source>rows 1 to %1 as %2</source>
        <translation>lignes 1 à %1 sous %2</translation>
    </message>
    <message>
        <source>Save Data</source>
        <translation>Enregistrer les données</translation>
    </message>
    <message>
        <source>%1 could not be opened.

%2

The sheet is as it was.</source>
        <translation>Impossible d&apos;ouvrir %1.

%2

La feuille est inchangée.</translation>
    </message>
    <message>
        <source>Data not Saved. Do you wish to save it now ?</source>
        <translation>Données non enregistrées. Les enregistrer maintenant&#xa0;?</translation>
    </message>
    <message>
        <source>The sheet could not be saved as %1: %2.

Its rows are still on the sheet. Choose another folder or make room on the disk, then save again.</source>
        <translation>La feuille n&apos;a pas pu être enregistrée sous %1&#xa0;: %2.

Ses lignes sont encore sur la feuille. Choisissez un autre dossier ou libérez de l&apos;espace disque, puis enregistrez à nouveau.</translation>
    </message>
    <message>
        <source>It is not a sheet: its first line does not tell the instrument&apos;s type, its firmware and the number of rows. Choose a file that &quot;Save As&quot; has written.</source>
        <translation>Ce n&apos;est pas une feuille&#xa0;: sa première ligne n&apos;indique pas le type de l&apos;instrument, son firmware et le nombre de lignes. Choisissez un fichier écrit par «&#xa0;Enregistrer sous&#xa0;».</translation>
    </message>
    <message>
        <source>It has %1 rows; the sheet holds at most %2. Split the file and correct the number of rows on the first line of each part.</source>
        <translation>Il a %1 lignes&#xa0;; la feuille en contient au plus %2. Divisez le fichier et corrigez le nombre de lignes à la première ligne de chaque partie.</translation>
    </message>
    <message>
        <source>It is cut short: its last line has no end. If nothing is missing, add a line end to it.</source>
        <translation>Il est tronqué&#xa0;: sa dernière ligne n&apos;a pas de fin. S&apos;il ne manque rien, ajoutez-y une fin de ligne.</translation>
    </message>
    <message>
        <source>It is cut short: the column headers are missing.</source>
        <translation>Il est tronqué&#xa0;: les en-têtes des colonnes manquent.</translation>
    </message>
    <message>
        <source>%1 Its first line promises %2 rows, but there are %3. If rows were taken out or added on purpose, correct the number on the first line.</source>
        <translation>%1 Sa première ligne annonce %2 lignes, mais il y en a %3. Si des lignes ont été ôtées ou ajoutées exprès, corrigez le nombre à la première ligne.</translation>
    </message>
    <message>
        <source>It is cut short.</source>
        <translation>Il est tronqué.</translation>
    </message>
    <message>
        <source>It holds more than it says.</source>
        <translation>Il contient plus qu&apos;il n&apos;annonce.</translation>
    </message>
    <message>
        <source>It is a folder or a device, not a file.</source>
        <translation>C&apos;est un dossier ou un périphérique, pas un fichier.</translation>
    </message>
    <message>
        <source>It cannot be read: %1.</source>
        <translation>Il ne peut pas être lu&#xa0;: %1.</translation>
    </message>
    <message>
        <source>It is far too large to be a sheet.</source>
        <translation>Il est bien trop grand pour une feuille.</translation>
    </message>
    <message>
        <source>&amp;Air</source>
        <translation>A&amp;ir</translation>
    </message>
    <message>
        <source>&amp;Clean</source>
        <translation>Ea&amp;u pure</translation>
    </message>
    <message>
        <source>Point &amp;1</source>
        <translation>Point &amp;1</translation>
    </message>
    <message>
        <source>Point &amp;2</source>
        <translation>Point &amp;2</translation>
    </message>
    <message>
        <source>Point &amp;3</source>
        <translation>Point &amp;3</translation>
    </message>
    <message>
        <source>Point &amp;4</source>
        <translation>Point &amp;4</translation>
    </message>
    <message>
        <source>Calibration TRX(S)</source>
        <translation>Étalonnage TRX(S)</translation>
    </message>
    <message>
        <source>Instruments</source>
        <translation>Instruments</translation>
    </message>
    <message>
        <source>Name or serial number of the next instrument of the batch.</source>
        <translation>Nom ou numéro de série du prochain instrument du lot.</translation>
    </message>
    <message>
        <source>Instrument name or serial number</source>
        <translation>Nom ou numéro de série de l&apos;instrument</translation>
    </message>
    <message>
        <source>Add Ins&amp;trument</source>
        <translation>A&amp;jouter l&apos;instrument</translation>
    </message>
    <message>
        <source>Adds the named instrument with its light colour; a batch has up to seven.</source>
        <translation>Ajoute l&apos;instrument nommé avec sa couleur de lumière&#xa0;; un lot en a jusqu&apos;à sept.</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>What is still missing.</source>
        <translation>Ce qui manque encore.</translation>
    </message>
    <message>
        <source>Name or serial n&amp;umber:</source>
        <translation>&amp;Nom ou numéro de série&#xa0;:</translation>
    </message>
    <message>
        <source>Instruments &amp;entered:</source>
        <translation>Ins&amp;truments saisis&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Messages:</source>
        <translation>&amp;Messages&#xa0;:</translation>
    </message>
    <message>
        <source>Light source:</source>
        <translation>Lumière&#xa0;:</translation>
    </message>
    <message>
        <source>Colour of the instrument&apos;s light source; also chooses the reference values of the report.</source>
        <translation>Couleur de la source de lumière de l&apos;instrument&#xa0;; choisit aussi les valeurs de référence du rapport.</translation>
    </message>
    <message>
        <source>Light source %1</source>
        <translation>Source de lumière %1</translation>
    </message>
    <message>
        <source>Instruments entered</source>
        <translation>Instruments saisis</translation>
    </message>
    <message>
        <source>Choose an instrument to show its worksheet.</source>
        <translation>Choisissez un instrument pour afficher sa feuille de travail.</translation>
    </message>
    <message>
        <source>Total entered</source>
        <translation>Total saisi</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>Shows the instrument before; from the first, the last.</source>
        <translation>Affiche l&apos;instrument précédent&#xa0;; depuis le premier, le dernier.</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>Shows the instrument after; from the last, the first.</source>
        <translation>Affiche l&apos;instrument suivant&#xa0;; depuis le dernier, le premier.</translation>
    </message>
    <message>
        <source>Total Entered :</source>
        <translation>Total saisi&#xa0;:</translation>
    </message>
    <message>
        <source>Instrument index</source>
        <translation>Rang de l&apos;instrument</translation>
    </message>
    <message>
        <source>Calc &amp;DP</source>
        <translation>Calcu&amp;ler DP</translation>
    </message>
    <message>
        <source>Writes the means of the rows on the data sheet into the selected row; for a point also its DP values. Keeps the worksheet.</source>
        <translation>Écrit les moyennes des lignes de la feuille de données dans la ligne choisie&#xa0;; pour un point, aussi ses valeurs DP. Conserve la feuille de travail.</translation>
    </message>
    <message>
        <source>Save Cal &amp;Info</source>
        <translation>&amp;Enregistrer l&apos;étalonnage</translation>
    </message>
    <message>
        <source>Writes this worksheet and the reference values of the light colour to a report file.</source>
        <translation>Écrit cette feuille de travail et les valeurs de référence de la couleur de lumière dans un fichier de rapport.</translation>
    </message>
    <message>
        <source>Instrument index:</source>
        <translation>Rang de l&apos;instrument&#xa0;:</translation>
    </message>
    <message>
        <source>The rows on the data sheet were measured for &quot;%1&quot;.</source>
        <translation>Les lignes de la feuille de données ont été mesurées pour «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>%1, angle %2</source>
        <translation>%1, angle %2</translation>
    </message>
    <message>
        <source>%1: kept as a whole number from -32768 to 32767.</source>
        <translation>%1&#xa0;: conservé comme nombre entier de -32768 à 32767.</translation>
    </message>
    <message>
        <source>Expected counts of the point last calculated.</source>
        <translation>Comptes attendus du dernier point calculé.</translation>
    </message>
    <message>
        <source>DP, angle %1</source>
        <translation>DP, angle %1</translation>
    </message>
    <message>
        <source>&amp;KP 7</source>
        <translation>&amp;KP 7</translation>
    </message>
    <message>
        <source>&quot;Calc DP&quot; uses this column for the angle %1, the report for the light colour %2.</source>
        <translation>«&#xa0;Calculer DP&#xa0;» utilise cette colonne pour l&apos;angle %1, le rapport pour la couleur de lumière %2.</translation>
    </message>
    <message>
        <source>Reference %1, column %2</source>
        <translation>Référence %1, colonne %2</translation>
    </message>
    <message>
        <source>Brings the shutter back to its rest position. The instrument only moves it with particular settings, so its own are read and kept, temporary ones are sent, the shutter moves for about half a minute, and the settings from before are sent back.

Leave the cable in its place until the settings have been read back. &quot;Reset&quot;, &quot;Close Port&quot; and &quot;Quit&quot; interrupt the reset; the instrument may then still hold the temporary settings.</source>
        <translation>Ramène l&apos;obturateur à sa position de repos. L&apos;instrument ne le bouge qu&apos;avec certains réglages&#xa0;; les siens sont donc lus et conservés, des réglages temporaires envoyés, l&apos;obturateur bouge pendant environ une demi-minute, et les réglages précédents sont renvoyés.

Laissez le câble en place jusqu&apos;à la relecture des réglages. «&#xa0;Réinitialiser&#xa0;», «&#xa0;Fermer le port&#xa0;» et «&#xa0;Quitter&#xa0;» interrompent l&apos;opération&#xa0;; l&apos;instrument a alors peut-être encore les réglages temporaires.</translation>
    </message>
    <message>
        <source>&amp;Reset Shutter</source>
        <translation>Ré&amp;initialiser l&apos;obturateur</translation>
    </message>
    <message>
        <source>Moves the shutter to its rest position; takes up to a minute and a half.</source>
        <translation>Amène l&apos;obturateur à sa position de repos&#xa0;; prend jusqu&apos;à une minute et demie.</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Progress of the shutter reset</source>
        <translation>Progression de la réinitialisation de l&apos;obturateur</translation>
    </message>
    <message>
        <source>The step of the shutter reset under way.</source>
        <translation>L&apos;étape en cours de la réinitialisation de l&apos;obturateur.</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Temps restant</translation>
    </message>
    <message>
        <source>How long the shutter still moves.</source>
        <translation>Combien de temps l&apos;obturateur bouge encore.</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>État&#xa0;:</translation>
    </message>
    <message>
        <source>Pro&amp;gress:</source>
        <translation>&amp;Progression&#xa0;:</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>N°</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Shows or hides this curve.</source>
        <translation>Affiche ou masque cette courbe.</translation>
    </message>
    <message>
        <source>Curve %1</source>
        <translation>Courbe %1</translation>
    </message>
    <message>
        <source>Value of %1</source>
        <translation>Valeur de %1</translation>
    </message>
    <message>
        <source>Tidelane Debug Screen</source>
        <translation>Écran de débogage Tidelane</translation>
    </message>
    <message>
        <source>&amp;Traffic, newest last:</source>
        <translation>&amp;Trafic, le plus récent à la fin&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Comm 2 Debug Output</source>
        <translation>Sortie de débogage &amp;COM 2</translation>
    </message>
    <message>
        <source>Copies what the program announces about its own work to COM 2.</source>
        <translation>Copie sur COM 2 ce que le programme annonce de son travail.</translation>
    </message>
    <message>
        <source>&amp;Raw Buffer</source>
        <translation>Données &amp;brutes</translation>
    </message>
    <message>
        <source>Lists every block of characters as it is read from the instrument.</source>
        <translation>Liste chaque bloc de caractères tel qu&apos;il arrive de l&apos;instrument.</translation>
    </message>
    <message>
        <source>Sho&amp;w Parsing</source>
        <translation>Afficher les &amp;lignes</translation>
    </message>
    <message>
        <source>Lists every line that is cut out of what the instrument sends.</source>
        <translation>Liste chaque ligne découpée dans ce que l&apos;instrument envoie.</translation>
    </message>
    <message>
        <source>Traffic from the instrument, newest last</source>
        <translation>Trafic de l&apos;instrument, le plus récent à la fin</translation>
    </message>
    <message>
        <source>What the instrument sends, as blocks or lines; CR, LF and TAB as symbols. The newest 10000 entries are kept.</source>
        <translation>Ce que l&apos;instrument envoie, en blocs ou en lignes&#xa0;; CR, LF et TAB en symboles. Les 10000 entrées les plus récentes sont conservées.</translation>
    </message>
    <message>
        <source>Why the list is empty</source>
        <translation>Pourquoi la liste est vide</translation>
    </message>
    <message>
        <source>Nothing has been received since.</source>
        <translation>Rien n&apos;a été reçu depuis.</translation>
    </message>
    <message>
        <source>Choose &quot;Raw Buffer&quot; or &quot;Show Parsing&quot; to list what the instrument sends.</source>
        <translation>Choisissez «&#xa0;Données brutes&#xa0;» ou «&#xa0;Afficher les lignes&#xa0;» pour lister ce que l&apos;instrument envoie.</translation>
    </message>
    <message>
        <source>Is sent exactly as typed; nothing is added at its end.</source>
        <translation>Est envoyé tel que saisi&#xa0;; rien n&apos;est ajouté à la fin.</translation>
    </message>
    <message>
        <source>&amp;Direct Send</source>
        <translation>&amp;Envoi direct</translation>
    </message>
    <message>
        <source>Sends the text to the instrument, if a port is open and nothing else is under way.</source>
        <translation>Envoie le texte à l&apos;instrument si un port est ouvert et que rien d&apos;autre n&apos;est en cours.</translation>
    </message>
    <message>
        <source>Te&amp;xt to send:</source>
        <translation>Te&amp;xte à envoyer&#xa0;:</translation>
    </message>
    <message>
        <source>Buffer</source>
        <translation>Tampon</translation>
    </message>
    <message>
        <source>Characters received that do not make a whole line yet.</source>
        <translation>Caractères reçus qui ne forment pas encore une ligne entière.</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Fluorometer</source>
        <translation>Fluoromètre</translation>
    </message>
    <message>
        <source>Fluorometer output</source>
        <translation>Sortie du fluoromètre</translation>
    </message>
    <message>
        <source>Scattering Meter</source>
        <translation>Diffusiomètre</translation>
    </message>
    <message>
        <source>Scattering output at %1 degrees</source>
        <translation>Diffusion à %1 degrés</translation>
    </message>
    <message>
        <source>Ref Det</source>
        <translation>Dét. réf.</translation>
    </message>
    <message>
        <source>Reference detector</source>
        <translation>Détecteur de référence</translation>
    </message>
    <message>
        <source>Transmissometer</source>
        <translation>Transmissomètre</translation>
    </message>
    <message>
        <source>Transmissometer output</source>
        <translation>Sortie du transmissomètre</translation>
    </message>
    <message>
        <source>Turbidty Sensor</source>
        <translation>Capteur de turbidité</translation>
    </message>
    <message>
        <source>Turbidity sensor output</source>
        <translation>Sortie du capteur de turbidité</translation>
    </message>
    <message>
        <source>The newest values that the instrument has sent in a run.</source>
        <translation>Les valeurs les plus récentes que l&apos;instrument a envoyées au cours d&apos;une mesure.</translation>
    </message>
    <message>
        <source>About Orv Host</source>
        <translation>À propos d&apos;Orv Host</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Connects the ORV self-logging optical water sensors GLOW and TRX:
settings, live data, stored data, calibration.</source>
        <translation>Pour les capteurs optiques autonomes ORV pour l&apos;eau, GLOW et TRX&#xa0;:
réglages, données en direct, données stockées, étalonnage.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Manual Connection</source>
        <translation>Connexion manuelle</translation>
    </message>
    <message>
        <source>What to do</source>
        <translation>Que faire</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>&amp;Proceed</source>
        <translation>&amp;Continuer</translation>
    </message>
    <message>
        <source>&amp;Retry</source>
        <translation>&amp;Réessayer</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Transfert de données</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>What is counted</source>
        <translation>Ce qui est compté</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Reset on the page Status and Controls stops it.</source>
        <translation>«&#xa0;Réinitialiser&#xa0;» sur la page «&#xa0;État et commandes&#xa0;» y met fin.</translation>
    </message>
    <message>
        <source>&amp;Abort</source>
        <translation>&amp;Abandonner</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>In Plain English</source>
        <translation>En clair</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Graphical</source>
        <translation>Courbes</translation>
    </message>
    <message>
        <source>As P&amp;NG, pixels, for screens and documents</source>
        <translation>En P&amp;NG, pixels, pour écrans et documents</translation>
    </message>
    <message>
        <source>As P&amp;DF, a page to print or send</source>
        <translation>En P&amp;DF, une page à imprimer ou envoyer</translation>
    </message>
    <message>
        <source>As S&amp;VG, lines, for drawing programs</source>
        <translation>En S&amp;VG, lignes, pour programmes de dessin</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Enregistrer l&apos;image</translation>
    </message>
    <message>
        <source>What the curves are drawn over.</source>
        <translation>En fonction de quoi les courbes sont tracées.</translation>
    </message>
    <message>
        <source>Record number</source>
        <translation>Numéro de ligne</translation>
    </message>
    <message>
        <source>All curves on one axis; a pane for each, with its own scale; or each less its mean over what is seen.</source>
        <translation>Toutes les courbes sur un axe&#xa0;; un panneau pour chacune avec sa propre échelle&#xa0;; ou chacune moins sa moyenne sur la partie visible.</translation>
    </message>
    <message>
        <source>One axis</source>
        <translation>Un axe</translation>
    </message>
    <message>
        <source>Stacked</source>
        <translation>Empilées</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Variation</translation>
    </message>
    <message>
        <source>&amp;Follow</source>
        <translation>&amp;Suivre</translation>
    </message>
    <message>
        <source>Shows the newest rows as they come.</source>
        <translation>Affiche les lignes les plus récentes à leur arrivée.</translation>
    </message>
    <message>
        <source>Show A&amp;ll</source>
        <translation>&amp;Tout afficher</translation>
    </message>
    <message>
        <source>Shows all rows. A double click on the curves does the same.</source>
        <translation>Affiche toutes les lignes. Un double clic sur les courbes fait de même.</translation>
    </message>
    <message>
        <source>Choose &amp;Range</source>
        <translation>Choisir une &amp;plage</translation>
    </message>
    <message>
        <source>The pointer chooses a range of rows instead of moving the curves: for their mean and standard deviation, and to select them on the sheet.</source>
        <translation>Le pointeur choisit une plage de lignes au lieu de déplacer les courbes&#xa0;: pour leur moyenne et leur écart type, et pour les sélectionner sur la feuille.</translation>
    </message>
    <message>
        <source>&amp;X axis :</source>
        <translation>Axe &amp;X&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;View :</source>
        <translation>&amp;Vue&#xa0;:</translation>
    </message>
    <message>
        <source>Save Pict&amp;ure</source>
        <translation>&amp;Enregistrer l&apos;image</translation>
    </message>
    <message>
        <source>Saves the curves as they are seen as a PNG, PDF or SVG file.</source>
        <translation>Enregistre les courbes telles qu&apos;elles sont affichées dans un fichier PNG, PDF ou SVG.</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copies the curves as they are seen as a picture to the clipboard.</source>
        <translation>Copie l&apos;image des courbes telles qu&apos;elles sont affichées dans le presse-papiers.</translation>
    </message>
    <message>
        <source>Print &amp;Graph...</source>
        <translation>&amp;Imprimer les courbes…</translation>
    </message>
    <message>
        <source>Prints the curves as they are seen.</source>
        <translation>Imprime les courbes telles qu&apos;elles sont affichées.</translation>
    </message>
    <message>
        <source>No rows yet.

Collect or download data, or open a sheet:
its columns are drawn here.</source>
        <translation>Aucune ligne.

Mesurez, téléchargez des données ou ouvrez une feuille&#xa0;:
ses colonnes sont tracées ici.</translation>
    </message>
    <message>
        <source>No row can be placed on this axis.

Choose the other one under &quot;X axis&quot;.</source>
        <translation>Aucune ligne ne peut être placée sur cet axe.

Choisissez l&apos;autre sous «&#xa0;Axe X&#xa0;».</translation>
    </message>
    <message>
        <source>All curves are switched off.</source>
        <translation>Toutes les courbes sont masquées.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is not drawn.</source>
        <translation>1 ligne d&apos;un autre type d&apos;instrument non tracée.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are not drawn.</source>
        <translation>%1 lignes d&apos;un autre type d&apos;instrument non tracées.</translation>
    </message>
    <message>
        <source>1 row without a readable time is not drawn.</source>
        <translation>1 ligne sans heure lisible non tracée.</translation>
    </message>
    <message>
        <source>%1 rows without a readable time are not drawn.</source>
        <translation>%1 lignes sans heure lisible non tracées.</translation>
    </message>
    <message>
        <source>1 row without a record number is not drawn.</source>
        <translation>1 ligne sans numéro de ligne non tracée.</translation>
    </message>
    <message>
        <source>%1 rows without a record number are not drawn.</source>
        <translation>%1 lignes sans numéro de ligne non tracées.</translation>
    </message>
    <message>
        <source>Wheel zooms the axis, with Ctrl the values; dragging moves, with Shift it chooses a range; a double click shows all.</source>
        <translation>Molette&#xa0;: zoom (Ctrl&#xa0;: valeurs). Glisser&#xa0;: déplacer (Maj&#xa0;: choisir une plage). Double clic&#xa0;: tout.</translation>
    </message>
    <message>
        <source>Row under the cursor</source>
        <translation>Ligne sous le curseur</translation>
    </message>
    <message>
        <source>Newest row</source>
        <translation>Dernière ligne</translation>
    </message>
    <message>
        <source>The picture could not be saved as %1: %2.

Choose another folder or make room on the disk, then save again.</source>
        <translation>L&apos;image n&apos;a pas pu être enregistrée sous %1&#xa0;: %2.

Choisissez un autre dossier ou libérez de l&apos;espace disque, puis enregistrez à nouveau.</translation>
    </message>
    <message>
        <source>Print Graph</source>
        <translation>Imprimer les courbes</translation>
    </message>
    <message>
        <source>The printer did not take the page.

See whether it is switched on and connected, then print again, or save the curves as PDF and print that.</source>
        <translation>L&apos;imprimante n&apos;a pas accepté la page.

Vérifiez qu&apos;elle est allumée et connectée, puis imprimez à nouveau, ou enregistrez les courbes en PDF et imprimez celui-ci.</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
    <message>
        <source>Form Select Tabs.</source>
        <translation>Choisir la page.</translation>
    </message>
    <message>
        <source>Service pages</source>
        <translation>Pages de service</translation>
    </message>
    <message>
        <source>Special Tidelane Debug screens and Tools. Internal use only so far.</source>
        <translation>Écrans et outils de débogage spéciaux Tidelane. Usage interne seulement pour l&apos;instant.</translation>
    </message>
    <message>
        <source>Service mode</source>
        <translation>Mode service</translation>
    </message>
    <message>
        <source>Simulated instrument</source>
        <translation>Instrument simulé</translation>
    </message>
    <message>
        <source>What it measures is made up by this program. Choose a real port in &quot;Ports&quot; on the page &quot;Status and Controls&quot;.</source>
        <translation>Ce qu&apos;il mesure est inventé par ce programme. Choisissez un vrai port sous «&#xa0;Ports&#xa0;» sur la page «&#xa0;État et commandes&#xa0;».</translation>
    </message>
    <message>
        <source>%1 (simulated instrument)</source>
        <translation>%1 (instrument simulé)</translation>
    </message>
    <message>
        <source>&amp;Operation</source>
        <translation>&amp;Opération</translation>
    </message>
    <message>
        <source>&amp;Close Port</source>
        <translation>&amp;Fermer le port</translation>
    </message>
    <message>
        <source>&amp;Processing</source>
        <translation>&amp;Données</translation>
    </message>
    <message>
        <source>Download Stored Data: &amp;Save as Text</source>
        <translation>Télécharger les données&#xa0;: enregistrer comme &amp;texte</translation>
    </message>
    <message>
        <source>Download Stored Data: &amp;View with Host Program</source>
        <translation>Télécharger les données&#xa0;: &amp;voir dans le programme</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Réglages</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Sommaire</translation>
    </message>
    <message>
        <source>&amp;Save Support File...</source>
        <translation>&amp;Enregistrer un fichier d&apos;assistance…</translation>
    </message>
    <message>
        <source>&amp;About Orv Host ...</source>
        <translation>À &amp;propos d&apos;Orv Host…</translation>
    </message>
    <message>
        <source>&amp;Auto Connect Comm 1</source>
        <translation>Connexion &amp;automatique COM 1</translation>
    </message>
    <message>
        <source>A&amp;uto Connect Comm 2</source>
        <translation>Connexion a&amp;utomatique COM 2</translation>
    </message>
    <message>
        <source>&amp;Manual Connect Comm 1</source>
        <translation>Connexion &amp;manuelle COM 1</translation>
    </message>
    <message>
        <source>Mau&amp;nal Connect Comm 2</source>
        <translation>Connexion ma&amp;nuelle COM 2</translation>
    </message>
    <message>
        <source>&amp;Start Communication</source>
        <translation>É&amp;tablir la communication</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Oui</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Non</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existe déjà.
Voulez-vous le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Fichier introuvable.
Vérifiez le nom du fichier.</translation>
    </message>
    <message>
        <source>Only digits, at most %1.</source>
        <translation>Uniquement des chiffres, %1 au plus.</translation>
    </message>
    <message>
        <source>%1 is less than the minimum of %2.</source>
        <translation>%1 est inférieur au minimum de %2.</translation>
    </message>
    <message>
        <source>%1 is more than the maximum of %2.</source>
        <translation>%1 est supérieur au maximum de %2.</translation>
    </message>
    <message>
        <source>Curves of the data sheet</source>
        <translation>Courbes de la feuille de données</translation>
    </message>
    <message>
        <source>Left and Right move to the row before and after, with Shift they move the curves; Plus and Minus zoom, Home shows all, End follows the newest rows. Space begins and ends the choice of a range, Escape drops it.</source>
        <translation>Gauche et Droite vont à la ligne précédente ou suivante, avec Maj elles déplacent les courbes&#xa0;; Plus et Moins zooment, Début affiche tout, Fin suit les lignes les plus récentes. Espace commence et termine le choix d&apos;une plage, Échap l&apos;abandonne.</translation>
    </message>
    <message>
        <source>Device behind COM %1</source>
        <translation>Périphérique sur COM %1</translation>
    </message>
    <message>
        <source>Choose a port or type the name of a device.</source>
        <translation>Choisissez un port ou tapez le nom d&apos;un périphérique.</translation>
    </message>
    <message>
        <source>Dis&amp;connect</source>
        <translation>Déco&amp;nnecter</translation>
    </message>
    <message>
        <source>Disco&amp;nnect</source>
        <translation>Déconnec&amp;ter</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>Co&amp;nnecter</translation>
    </message>
    <message>
        <source>Co&amp;nnect</source>
        <translation>Connec&amp;ter</translation>
    </message>
    <message>
        <source>%1 COM %2</source>
        <translation>%1 COM %2</translation>
    </message>
    <message>
        <source>Closes COM %1. Rows on the sheet stay.</source>
        <translation>Ferme COM %1. Les lignes de la feuille sont conservées.</translation>
    </message>
    <message>
        <source>Wakes the instrument on COM %1 and reads its settings.</source>
        <translation>Réveille l&apos;instrument sur COM %1 et lit ses réglages.</translation>
    </message>
    <message>
        <source>Ports</source>
        <translation>Ports</translation>
    </message>
    <message>
        <source>What is wrong with the device for COM %1</source>
        <translation>Ce qui ne va pas avec le périphérique de COM %1</translation>
    </message>
    <message>
        <source>COM &amp;%1</source>
        <translation>COM &amp;%1</translation>
    </message>
    <message>
        <source>Next step</source>
        <translation>Étape suivante</translation>
    </message>
    <message>
        <source>&amp;Try a Simulated Instrument</source>
        <translation>&amp;Essayer un instrument simulé</translation>
    </message>
    <message>
        <source>Chooses a simulated scattering meter for COM 1 and connects: everything can be tried without an instrument.</source>
        <translation>Choisit un diffusiomètre simulé pour COM 1 et lance la connexion&#xa0;: tout peut être essayé sans instrument.</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>non envoyé</translation>
    </message>
    <message>
        <source>No instrument has reported these settings.</source>
        <translation>Aucun instrument n&apos;a transmis ces réglages.</translation>
    </message>
    <message>
        <source>These settings have not been sent to the instrument: %1.</source>
        <translation>Ces réglages n&apos;ont pas été envoyés à l&apos;instrument&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Modes</source>
        <translation>Modes</translation>
    </message>
    <message>
        <source>&amp;Profile</source>
        <translation>&amp;Profil</translation>
    </message>
    <message>
        <source>&amp;Moored</source>
        <translation>&amp;Mouillage</translation>
    </message>
    <message>
        <source>&amp;Save A User Defined Mode</source>
        <translation>En&amp;registrer un mode personnalisé</translation>
    </message>
    <message>
        <source>&amp;Load A User Defined Mode</source>
        <translation>&amp;Charger un mode personnalisé</translation>
    </message>
    <message>
        <source>&amp;View Current Settings Transcribed as Text</source>
        <translation>&amp;Voir les réglages actuels en texte</translation>
    </message>
    <message>
        <source>Mode file</source>
        <translation>Fichier de mode</translation>
    </message>
    <message>
        <source>This mode Autostarts, takes 1 data point per second, and repeats this indefinatly. Data is NOT logged.</source>
        <translation>Ce mode démarre seul et prend 1 point de données par seconde, sans fin. Les données ne sont PAS mémorisées.</translation>
    </message>
    <message>
        <source>This Mode Autostarts, takes 1 data point per second. It repeats once an hour. It logs up to 60000 data points.</source>
        <translation>Ce mode démarre seul et prend 1 point de données par seconde. Il se répète une fois par heure. Il mémorise jusqu&apos;à 60000 points.</translation>
    </message>
    <message>
        <source>Time and Date</source>
        <translation>Date et heure</translation>
    </message>
    <message>
        <source>&amp;Display Logger Time/Date</source>
        <translation>&amp;Afficher date/heure de l&apos;enregistreur</translation>
    </message>
    <message>
        <source>Computer Time / Date</source>
        <translation>Date / heure de l&apos;ordinateur</translation>
    </message>
    <message>
        <source>This is the computers Time and Date.</source>
        <translation>Heure et date de l&apos;ordinateur.</translation>
    </message>
    <message>
        <source>Computer Time</source>
        <translation>Heure de l&apos;ordinateur</translation>
    </message>
    <message>
        <source>Computer Date</source>
        <translation>Date de l&apos;ordinateur</translation>
    </message>
    <message>
        <source>Logger Time / Date</source>
        <translation>Date / heure de l&apos;enregistreur</translation>
    </message>
    <message>
        <source>This is the Loggers Time and Date at last display.</source>
        <translation>Heure et date de l&apos;enregistreur au dernier affichage.</translation>
    </message>
    <message>
        <source>Logger Date</source>
        <translation>Date de l&apos;enregistreur</translation>
    </message>
    <message>
        <source>Logger Time</source>
        <translation>Heure de l&apos;enregistreur</translation>
    </message>
    <message>
        <source>&amp;Sync Time/Date</source>
        <translation>&amp;Synchroniser date/heure</translation>
    </message>
    <message>
        <source>This tells the Host to set the Loggers Time and Date to that of the Computer. (Updated after send settings)</source>
        <translation>Règle l&apos;heure et la date de l&apos;enregistreur sur celles de l&apos;ordinateur. (Après l&apos;envoi des réglages)</translation>
    </message>
    <message>
        <source>At the full &amp;minute</source>
        <translation>Au début d&apos;une &amp;minute</translation>
    </message>
    <message>
        <source>Waits until a minute begins, so that the Loggers seconds are right too: it takes hour and minute only.</source>
        <translation>Attend le début d&apos;une minute, pour que les secondes de l&apos;enregistreur soient justes aussi&#xa0;: il n&apos;accepte que l&apos;heure et la minute.</translation>
    </message>
    <message>
        <source>The clock will be set at %1, in %2 s.</source>
        <translation>L&apos;horloge sera réglée à %1, dans %2 s.</translation>
    </message>
    <message>
        <source>Control Bits</source>
        <translation>Bits de commande</translation>
    </message>
    <message>
        <source>%1 data points per second</source>
        <translation>Points de données par seconde&#xa0;: %1</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>Max Values</source>
        <translation>Valeurs max.</translation>
    </message>
    <message>
        <source>Samples and Intervals</source>
        <translation>Échantillons et intervalles</translation>
    </message>
    <message>
        <source>Logger Capacity (% full)</source>
        <translation>Mémoire occupée (%)</translation>
    </message>
    <message>
        <source>Memory pointer</source>
        <translation>Pointeur de mémoire</translation>
    </message>
    <message>
        <source>This is the % of data memory used in the logger.</source>
        <translation>Part de la mémoire de données utilisée dans l&apos;enregistreur, en %.</translation>
    </message>
    <message>
        <source>Memory pointer as the logger reports it, 0 to 65525.</source>
        <translation>Pointeur de mémoire indiqué par l&apos;enregistreur, 0 à 65525.</translation>
    </message>
    <message>
        <source>Clean Water Offset</source>
        <translation>Décalage en eau pure</translation>
    </message>
    <message>
        <source>&amp;Provide Raw Counts</source>
        <translation>Fournir les comptes brut&amp;s</translation>
    </message>
    <message>
        <source>Angle &amp;100 (l1)</source>
        <translation>Angle &amp;100 (l1)</translation>
    </message>
    <message>
        <source>Angle 1&amp;25 (l2)</source>
        <translation>Angle 1&amp;25 (l2)</translation>
    </message>
    <message>
        <source>Angle 1&amp;50 (l3)</source>
        <translation>Angle 1&amp;50 (l3)</translation>
    </message>
    <message>
        <source>TRX Calibration: Offsets and B calculations</source>
        <translation>Étalonnage TRX&#xa0;: décalages et calcul de B</translation>
    </message>
    <message>
        <source>&amp;Load Device File</source>
        <translation>&amp;Charger un fichier d&apos;appareil</translation>
    </message>
    <message>
        <source>&amp;Save Device File</source>
        <translation>En&amp;registrer un fichier d&apos;appareil</translation>
    </message>
    <message>
        <source>Calc &amp;B Values</source>
        <translation>Calculer les valeurs &amp;B</translation>
    </message>
    <message>
        <source>GLW Calibration: Offsets and B calculations</source>
        <translation>Étalonnage GLW&#xa0;: décalage et calcul de la concentration</translation>
    </message>
    <message>
        <source>C&amp;ounts -</source>
        <translation>Comp&amp;tes -</translation>
    </message>
    <message>
        <source>Device files are for the TRX only.</source>
        <translation>Les fichiers d&apos;appareil ne servent qu&apos;au TRX.</translation>
    </message>
    <message>
        <source>Calc Consentration in &amp;ug/L</source>
        <translation>Calculer la concentration en &amp;ug/L</translation>
    </message>
    <message>
        <source>Sampling</source>
        <translation>Échantillonnage</translation>
    </message>
    <message>
        <source>Connect an instrument to see its calibration.</source>
        <translation>Connectez un instrument pour voir son étalonnage.</translation>
    </message>
    <message>
        <source>Logger Settings</source>
        <translation>Réglages de l&apos;enregistreur</translation>
    </message>
    <message>
        <source>Groups of settings</source>
        <translation>Groupes de réglages</translation>
    </message>
    <message>
        <source>The settings in plain English</source>
        <translation>Les réglages en clair</translation>
    </message>
    <message>
        <source>Choose a tab to see its settings.</source>
        <translation>Choisissez un onglet pour voir ses réglages.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Changed and not sent yet: %1</source>
        <translation>Modifié et pas encore envoyé&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Retrieve Settings</source>
        <translation>&amp;Lire les réglages</translation>
    </message>
    <message>
        <source>Retrieve settings from the logger</source>
        <translation>Lire les réglages de l&apos;enregistreur</translation>
    </message>
    <message>
        <source>&amp;Apply Settings</source>
        <translation>&amp;Envoyer les réglages</translation>
    </message>
    <message>
        <source>Send Settings to the logger</source>
        <translation>Envoyer les réglages à l&apos;enregistreur</translation>
    </message>
    <message>
        <source>Verify that settings are correct before closing this window</source>
        <translation>Vérifiez les réglages avant de fermer cette fenêtre</translation>
    </message>
    <message>
        <source>Another run or download begins here.</source>
        <translation>Une autre mesure ou un autre téléchargement commence ici.</translation>
    </message>
    <message>
        <source>Data sheet</source>
        <translation>Feuille de données</translation>
    </message>
    <message>
        <source>Rows on the sheet</source>
        <translation>Lignes sur la feuille</translation>
    </message>
    <message>
        <source>What became of the rows</source>
        <translation>Ce que sont devenues les lignes</translation>
    </message>
    <message>
        <source>&amp;Bring them back</source>
        <translation>Les ré&amp;cupérer</translation>
    </message>
    <message>
        <source>Puts the rows on the sheet again, as they were.</source>
        <translation>Remet les lignes sur la feuille, telles qu&apos;elles étaient.</translation>
    </message>
    <message>
        <source>What to look for in the cells of the sheet.</source>
        <translation>Ce qu&apos;il faut chercher dans les cellules de la feuille.</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Trouvé</translation>
    </message>
    <message>
        <source>Select cells, a row by its number or a column by its header: to copy them, and for their mean and standard deviation.</source>
        <translation>Sélectionnez des cellules, lignes (numéro) ou colonnes (en-tête) pour les copier ou voir leurs statistiques.</translation>
    </message>
    <message>
        <source>Default File Name, and the file name used for auto-recording of long profiles.</source>
        <translation>Nom de fichier par défaut, aussi pour l&apos;enregistrement automatique de longs profils.</translation>
    </message>
    <message>
        <source>Automatic saves</source>
        <translation>Enregistrements automatiques</translation>
    </message>
    <message>
        <source>This is used to indicated how many records were automatically created over a long profile, or data gathering.</source>
        <translation>Nombre de fichiers enregistrés automatiquement pendant un long profil ou une longue mesure.</translation>
    </message>
    <message>
        <source>Save &amp;As</source>
        <translation>Enregistrer &amp;sous</translation>
    </message>
    <message>
        <source>Save all Data on the Spread Sheet to a Tab Delimited Text File.</source>
        <translation>Enregistre toutes les données de la feuille dans un fichier texte séparé par des tabulations.</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xporter</translation>
    </message>
    <message>
        <source>Op&amp;en</source>
        <translation>Ou&amp;vrir</translation>
    </message>
    <message>
        <source>Open a saved sheet. It replaces what is on the Spread Sheet.</source>
        <translation>Ouvre une feuille enregistrée. Elle remplace ce qui est sur la feuille de données.</translation>
    </message>
    <message>
        <source>&amp;Clear All</source>
        <translation>&amp;Tout effacer</translation>
    </message>
    <message>
        <source>Clears the Spread Sheet of all data.</source>
        <translation>Efface toutes les données de la feuille.</translation>
    </message>
    <message>
        <source>File &amp;name :</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Rows :</source>
        <translation>Lignes&#xa0;:</translation>
    </message>
    <message>
        <source>Records :</source>
        <translation>Fichiers auto&#xa0;:</translation>
    </message>
    <message>
        <source>%1 cleared.</source>
        <translation>Effacé&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>Enregistré dans %2&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Bring it back</source>
        <translation>La ré&amp;cupérer</translation>
    </message>
    <message>
        <source>Nex&amp;t</source>
        <translation>S&amp;uivant</translation>
    </message>
    <message>
        <source>The next cell with this text. The Enter key does the same.</source>
        <translation>La cellule suivante contenant ce texte. La touche Entrée fait de même.</translation>
    </message>
    <message>
        <source>The cell with this text before.</source>
        <translation>La cellule précédente contenant ce texte.</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Puts the line away. The Escape key does the same.</source>
        <translation>Masque la barre de recherche. La touche Échap fait de même.</translation>
    </message>
    <message>
        <source>F&amp;ind :</source>
        <translation>C&amp;hercher&#xa0;:</translation>
    </message>
    <message>
        <source>Record %1</source>
        <translation>N° %1</translation>
    </message>
    <message>
        <source>Not found.</source>
        <translation>Introuvable.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copy &amp;Without Header</source>
        <translation>Copier sans &amp;en-tête</translation>
    </message>
    <message>
        <source>Select &amp;Rows</source>
        <translation>Sélectionner les &amp;lignes</translation>
    </message>
    <message>
        <source>Select Co&amp;lumns</source>
        <translation>Sélectionner les c&amp;olonnes</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>C&amp;hercher</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Écart type</translation>
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
        <translation>Lignes</translation>
    </message>
    <message>
        <source>No rows yet. Connect, then press Run.</source>
        <translation>Aucune ligne. Connectez l&apos;instrument, puis appuyez sur «&#xa0;Mesurer&#xa0;».</translation>
    </message>
    <message>
        <source>How far the run or the download has come</source>
        <translation>Où en est la mesure ou le téléchargement</translation>
    </message>
    <message>
        <source>Shutter reset progress</source>
        <translation>Progression de la réinitialisation de l&apos;obturateur</translation>
    </message>
    <message>
        <source>Time the shutter still moves</source>
        <translation>Temps pendant lequel l&apos;obturateur bouge encore</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>How the instrument&apos;s clock stands</source>
        <translation>L&apos;état de l&apos;horloge de l&apos;instrument</translation>
    </message>
    <message>
        <source>Instrument:</source>
        <translation>Instrument</translation>
    </message>
    <message>
        <source>Firmware Ver.</source>
        <translation>Version du firmware</translation>
    </message>
    <message>
        <source>Bytes downloaded</source>
        <translation>Octets téléchargés</translation>
    </message>
    <message>
        <source>Characters in the receive buffer</source>
        <translation>Caractères dans le tampon de réception</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Horloge</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Mesurer</translation>
    </message>
    <message>
        <source>Starts a real-time collection. Rows go to the Spread Sheet and to Orvtemp.tmp.</source>
        <translation>Commence une mesure. Les lignes vont sur la feuille de données et dans Orvtemp.tmp.</translation>
    </message>
    <message>
        <source>R&amp;eset</source>
        <translation>Ré&amp;initialiser</translation>
    </message>
    <message>
        <source>Stops current collection and requires the instrument to be reset.</source>
        <translation>Arrête la mesure en cours&#xa0;; l&apos;instrument doit être réinitialisé.</translation>
    </message>
    <message>
        <source>Reset Sh&amp;utter</source>
        <translation>Réinitialiser l&apos;o&amp;bturateur</translation>
    </message>
    <message>
        <source>Moves the instrument&apos;s shutter back to its rest position.</source>
        <translation>Ramène l&apos;obturateur de l&apos;instrument à sa position de repos.</translation>
    </message>
    <message>
        <source>Sending the settings</source>
        <translation>Envoi des réglages</translation>
    </message>
    <message>
        <source>Settings sent</source>
        <translation>Réglages envoyés</translation>
    </message>
    <message>
        <source>Settings read</source>
        <translation>Réglages lus</translation>
    </message>
    <message>
        <source>Sending failed</source>
        <translation>L&apos;envoi a échoué</translation>
    </message>
    <message>
        <source>Nothing read or sent yet</source>
        <translation>Encore rien lu ni envoyé</translation>
    </message>
    <message>
        <source>Status lamp</source>
        <translation>Voyant d&apos;état</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>the mean of a column</comment>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1; the disk may be full</source>
        <translation>%1&#xa0;; le disque est peut-être plein</translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation>Chapitres</translation>
    </message>
    <message>
        <source>What to look for in the guide.</source>
        <translation>Ce qu&apos;il faut chercher dans le guide.</translation>
    </message>
    <message>
        <source>User Guide</source>
        <translation>Guide d&apos;utilisation</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Guide d&apos;utilisation</translation>
    </message>
    <message>
        <source>&amp;Chapters</source>
        <translation>&amp;Chapitres</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Retour</translation>
    </message>
    <message>
        <source>To what was shown before.</source>
        <translation>Revient à ce qui était affiché avant.</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Avancer</translation>
    </message>
    <message>
        <source>To what you came back from.</source>
        <translation>Va à l&apos;endroit quitté avec «&#xa0;Retour&#xa0;».</translation>
    </message>
    <message>
        <source>The next place with this text. The Enter key does the same.</source>
        <translation>Le passage suivant contenant ce texte. La touche Entrée fait de même.</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>The place with this text before.</source>
        <translation>Le passage précédent contenant ce texte.</translation>
    </message>
    <message>
        <source>Export 1 row</source>
        <translation>Exporter 1 ligne</translation>
    </message>
    <message>
        <source>Export all %1 rows</source>
        <translation>Exporter les %1 lignes</translation>
    </message>
    <message>
        <source>Export 1 selected row</source>
        <translation>Exporter 1 ligne sélectionnée</translation>
    </message>
    <message>
        <source>Export %1 selected rows</source>
        <translation>Exporter %1 lignes sélectionnées</translation>
    </message>
    <message>
        <source>the selected rows have gone from the sheet meanwhile</source>
        <translation>les lignes sélectionnées ne sont plus sur la feuille</translation>
    </message>
    <message>
        <source>%1 Reset stops it.</source>
        <translation>%1 «&#xa0;Réinitialiser&#xa0;» y met fin.</translation>
    </message>
    <message>
        <source>Waiting for the full minute: %1 s.</source>
        <translation>Attente du début de la minute&#xa0;: %1 s.</translation>
    </message>
    <message>
        <source>within %1 s of this computer&apos;s</source>
        <translation>écart de %1 s au plus avec l&apos;ordinateur</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set at the full minute and is %1.</source>
        <translation>L&apos;horloge de l&apos;instrument a été réglée au début d&apos;une minute&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The instrument&apos;s clock was set to the minute and is %1.</source>
        <translation>L&apos;horloge de l&apos;instrument a été réglée à la minute&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>Attente du début de la minute</translation>
    </message>
    <message>
        <source>Setting the clock</source>
        <translation>Réglage de l&apos;horloge</translation>
    </message>
    <message>
        <source>&quot;Sync Time/Date&quot; alone leaves the clock up to 59 s behind: the command carries no seconds. &quot;At the full minute&quot; waits until a minute begins, so that the seconds are right too.</source>
        <translation>«&#xa0;Synchroniser date/heure&#xa0;» seul laisse l&apos;horloge jusqu&apos;à 59 s en retard&#xa0;: la commande ne transmet pas les secondes. «&#xa0;Au début d&apos;une minute&#xa0;» attend le début d&apos;une minute&#xa0;: les secondes sont alors justes aussi.</translation>
    </message>
    <message>
        <source>%1 &quot;At the full minute&quot; sets it right.</source>
        <translation>%1 «&#xa0;Au début d&apos;une minute&#xa0;» la met à l&apos;heure.</translation>
    </message>
    <message>
        <source>%1 %2 is still ticked: &quot;Apply Settings&quot; sets the clock again.</source>
        <translation>%1 «&#xa0;%2&#xa0;» est encore coché&#xa0;: «&#xa0;Envoyer les réglages&#xa0;» réglera de nouveau l&apos;horloge.</translation>
    </message>
    <message>
        <source>1 column</source>
        <translation>1 colonne</translation>
    </message>
    <message>
        <source>%1 columns</source>
        <translation>%1 colonnes</translation>
    </message>
    <message>
        <source>1 cell</source>
        <translation>1 cellule</translation>
    </message>
    <message>
        <source>%1 cells</source>
        <translation>%1 cellules</translation>
    </message>
    <message>
        <source>Write the rows as CSV or NetCDF for other programs, with what is known of the instrument: those that are selected, else all.</source>
        <translation>Écrit les lignes en CSV ou NetCDF pour d&apos;autres programmes, avec ce que l&apos;on sait de l&apos;instrument&#xa0;: celles qui sont sélectionnées, sinon toutes.</translation>
    </message>
    <message>
        <source>%1 copied.</source>
        <translation>Copié&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Exported %1 to %2</source>
        <translation>Exporté dans %2&#xa0;: %1</translation>
    </message>
    <message>
        <source>Exported %1 to %2 (and %3)</source>
        <translation>Exporté dans %2 (et %3)&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>Sélection&#xa0;: %1</translation>
    </message>
    <message>
        <source>No rows yet. Press Run.</source>
        <translation>Aucune ligne. Appuyez sur «&#xa0;Mesurer&#xa0;».</translation>
    </message>
    <message>
        <source>%1. &quot;At the full minute&quot; sets it.</source>
        <translation>%1. «&#xa0;Au début d&apos;une minute&#xa0;» la règle.</translation>
    </message>
    <message>
        <source>it has been removed</source>
        <translation>il a été supprimé</translation>
    </message>
    <message>
        <source>Not sent whole: the connection ended. What was sent before stays in the instrument. Connect to see what it has.</source>
        <translation>Envoi incomplet&#xa0;: la connexion a pris fin. Ce qui a été envoyé avant reste dans l&apos;instrument. Connectez-le pour voir ce qu&apos;il contient.</translation>
    </message>
    <message>
        <source>%1 %2, not saved.</source>
        <translation>%1 %2 à enregistrer.</translation>
    </message>
    <message>
        <source>its process is not known</source>
        <translation>son processus n&apos;est pas connu</translation>
    </message>
    <message>
        <source>%1 on the computer %2</source>
        <translation>%1 sur l&apos;ordinateur %2</translation>
    </message>
    <message>
        <source>no lock file can be made in this folder</source>
        <translation>aucun fichier verrou ne peut être créé dans ce dossier</translation>
    </message>
    <message>
        <source>other programs use this folder</source>
        <translation>d&apos;autres programmes utilisent ce dossier</translation>
    </message>
    <message>
        <source>another program may use it (%1)</source>
        <translation>un autre programme l&apos;utilise peut-être (%1)</translation>
    </message>
    <message>
        <source>no lock file can be made beside it</source>
        <translation>aucun fichier verrou ne peut être créé à côté</translation>
    </message>
    <message>
        <source>they are of no known type of instrument</source>
        <translation>elles ne sont d&apos;aucun type d&apos;instrument connu</translation>
    </message>
    <message>
        <source>No rows yet.</source>
        <translation>Aucune ligne.</translation>
    </message>
    <message>
        <source>Newest row (from before this run)</source>
        <translation>Dernière ligne (d&apos;avant cette mesure)</translation>
    </message>
    <message>
        <source>%1 could not be opened. %2</source>
        <translation>Impossible d&apos;ouvrir %1. %2</translation>
    </message>
    <message>
        <source>%1 and %2 others</source>
        <translation>%1 et %2 autres</translation>
    </message>
    <message>
        <source>Record %1 (the sheet follows the run)</source>
        <translation>N° %1 (la feuille suit la mesure)</translation>
    </message>
    <message>
        <source>Data #</source>
        <translation>N°</translation>
    </message>
    <message>
        <source>Data Point</source>
        <translation>Point de données</translation>
    </message>
    <message>
        <source>This guide is in English, and so are the captions in it.</source>
        <translation>Ce guide est en anglais, et les libellés qu&apos;il cite aussi.</translation>
    </message>
    <message>
        <source>the rows of the run before could not be kept under another name (%1)</source>
        <translation>les lignes de la mesure précédente n&apos;ont pas pu être conservées sous un autre nom (%1)</translation>
    </message>
    <message>
        <source>%1. Rows have come since.</source>
        <translation>%1. D&apos;autres lignes sont arrivées depuis.</translation>
    </message>
    <message>
        <source>Sent at %1, but the instrument has not all of it: %2. Correct it or press &quot;Apply Settings&quot; again.</source>
        <translation>Envoyé à %1, mais l&apos;instrument n&apos;a pas tout pris&#xa0;: %2. Corrigez ou appuyez de nouveau sur «&#xa0;Envoyer les réglages&#xa0;».</translation>
    </message>
    <message>
        <source>The clock was sent, but could not be read back. Press &quot;Display Logger Time/Date&quot; to see how it stands.</source>
        <translation>L&apos;horloge a été envoyée, mais n&apos;a pas pu être relue. Appuyez sur «&#xa0;Afficher date/heure de l&apos;enregistreur&#xa0;» pour voir ce qu&apos;elle indique.</translation>
    </message>
    <message>
        <source>The settings that the instrument gave at the beginning of the shutter reset are not those that it gave before: %1. They were sent back as it gave them last.

</source>
        <translation>Les réglages que l&apos;instrument a donnés au début de la réinitialisation de l&apos;obturateur ne sont pas ceux qu&apos;il avait donnés avant&#xa0;: %1. Ils ont été renvoyés tels qu&apos;il les a donnés en dernier.

</translation>
    </message>
    <message>
        <source>Look at the settings screen; if they are wrong, correct them and press &quot;Apply Settings&quot;.</source>
        <translation>Regardez l&apos;écran des réglages&#xa0;; s&apos;ils sont faux, corrigez-les et appuyez sur «&#xa0;Envoyer les réglages&#xa0;».</translation>
    </message>
    <message>
        <source>The sheet has rows of another type of instrument. Clear All is on the page Output: Spread Sheet.</source>
        <translation>La feuille a des lignes d&apos;un autre type d&apos;instrument. «&#xa0;Tout effacer&#xa0;» est sur la page «&#xa0;Sortie&#xa0;: feuille&#xa0;».</translation>
    </message>
    <message>
        <source>The instrument ended the run after %1 of %2 rows; %3 has what came</source>
        <translation>L&apos;instrument a terminé la mesure après %1 lignes sur %2&#xa0;; %3 contient ce qui est arrivé</translation>
    </message>
    <message>
        <source>Value %1</source>
        <translation>Valeur %1</translation>
    </message>
    <message>
        <source>Saved to %1.</source>
        <translation>Enregistré dans %1.</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Copié.</translation>
    </message>
    <message>
        <source>1 row, record %1</source>
        <translation>1 ligne, n° %1</translation>
    </message>
    <message>
        <source>%1 rows, records %2 to %3</source>
        <translation>%1 lignes, n° %2 à %3</translation>
    </message>
    <message>
        <source>Switch the instrument&apos;s power on: its first line is waited for. Quit ends the wait.</source>
        <translation>Mettez l&apos;instrument sous tension&#xa0;: le programme attend sa première ligne. «&#xa0;Annuler&#xa0;» met fin à l&apos;attente.</translation>
    </message>
    <message>
        <source>%1 of %2 rows</source>
        <translation>%1 sur %2 lignes</translation>
    </message>
    <message>
        <source>Nothing of this page is sent: it acts on the rows that come from now on.</source>
        <translation>Rien de cette page n&apos;est envoyé&#xa0;: elle s&apos;applique aux lignes qui arrivent désormais.</translation>
    </message>
    <message>
        <source>What is to be done</source>
        <translation>Que faire</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <comment>of the dialog only</comment>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>The program is in service mode.</source>
        <translation>Le programme est en mode service.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>When read: %1</source>
        <translation>À la lecture&#xa0;: %1</translation>
    </message>
    <message>
        <source>Connect to read and to send settings.</source>
        <translation>Connectez l&apos;instrument pour lire et envoyer les réglages.</translation>
    </message>
    <message>
        <source>No rows yet. Collect or download data, or open a sheet.</source>
        <translation>Aucune ligne. Mesurez ou téléchargez des données, ou ouvrez une feuille.</translation>
    </message>
    <message>
        <source>Export all rows</source>
        <translation>Exporter toutes les lignes</translation>
    </message>
    <message>
        <source>%1 and the header row copied.</source>
        <translation>Copié&#xa0;: %1 et l&apos;en-tête.</translation>
    </message>
    <message>
        <source>Dragging chooses a range; a click or Esc drops it.</source>
        <translation>Glisser choisit une plage&#xa0;; un clic ou Échap la supprime.</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>&amp;Nom de fichier&#xa0;:</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Type de fichier&#xa0;:</translation>
    </message>
    <message>
        <source>points/s</source>
        <translation>points/s</translation>
    </message>
    <message>
        <source>(memory pointer)</source>
        <translation>(pointeur de mémoire)</translation>
    </message>
    <message>
        <source>%1 &quot;Start&quot; can do nothing while the port is open.</source>
        <translation>%1 «&#xa0;Démarrer&#xa0;» ne peut rien faire tant que le port est ouvert.</translation>
    </message>
    <message>
        <source>COM %1 is open. &quot;Close Port&quot; in the menu &quot;Operation&quot; lets you choose another device.</source>
        <translation>COM %1 est ouvert. «&#xa0;Fermer le port&#xa0;» dans le menu «&#xa0;Opération&#xa0;» permet de choisir un autre périphérique.</translation>
    </message>
    <message>
        <source>The first three values of this sheet are %1.</source>
        <translation>Les trois premières valeurs de cette feuille sont %1.</translation>
    </message>
    <message>
        <source>The capture %1 has no further connection. Choose another port and then this one again to play it from its beginning.</source>
        <translation>La capture %1 n&apos;a plus d&apos;autre connexion. Choisissez un autre port, puis de nouveau celui-ci, pour la rejouer depuis le début.</translation>
    </message>
    <message>
        <source>It could not be opened.</source>
        <translation>L&apos;ouverture a échoué.</translation>
    </message>
    <message>
        <source>The line failed.</source>
        <translation>La ligne est tombée en panne.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no replay. %2</source>
        <translation>«&#xa0;%1&#xa0;» ne désigne aucune relecture. %2</translation>
    </message>
    <message>
        <source>The option %1 must be %2, not &quot;%3&quot;.</source>
        <translation>L&apos;option %1 doit être %2, et non «&#xa0;%3&#xa0;».</translation>
    </message>
    <message>
        <source>a number from 0 (without any delay) to 1000</source>
        <translation>un nombre de 0 (sans aucun délai) à 1000</translation>
    </message>
    <message>
        <source>There is no option &quot;%1&quot;. The options are %2.</source>
        <translation>L&apos;option «&#xa0;%1&#xa0;» n&apos;existe pas. Les options sont %2.</translation>
    </message>
    <message>
        <source>It must be %1.</source>
        <translation>Il faut écrire %1.</translation>
    </message>
    <message>
        <source>The cable of the simulated instrument was pulled out. Connecting again plugs it back in.</source>
        <translation>Le câble de l&apos;instrument simulé a été débranché. Une nouvelle connexion le rebranche.</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>un nombre entier de %1 à %2</translation>
    </message>
    <message>
        <source>a number of seconds from 0 to 3600</source>
        <translation>un nombre de secondes de 0 à 3600</translation>
    </message>
    <message>
        <source>a number from 0.001 to 1000</source>
        <translation>un nombre de 0.001 à 1000</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 ou %2</translation>
    </message>
    <message>
        <source>one of %1</source>
        <translation>l&apos;une de ces valeurs&#xa0;: %1</translation>
    </message>
    <message>
        <source>a number of bytes, 0% to 100% or a number of milliseconds (&quot;1500ms&quot;)</source>
        <translation>un nombre d&apos;octets, de 0% à 100% ou un nombre de millisecondes («&#xa0;1500ms&#xa0;»)</translation>
    </message>
    <message>
        <source>The option %1 is given twice.</source>
        <translation>L&apos;option %1 est donnée deux fois.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names no simulated instrument. %2</source>
        <translation>«&#xa0;%1&#xa0;» ne désigne aucun instrument simulé. %2</translation>
    </message>
    <message>
        <source>It must begin with sim:trx or sim:glow.</source>
        <translation>Le nom doit commencer par sim:trx ou sim:glow.</translation>
    </message>
    <message>
        <source>The option delay needs fault=late.</source>
        <translation>L&apos;option delay nécessite fault=late.</translation>
    </message>
    <message>
        <source>The option after needs fault=cut or fault=unplug.</source>
        <translation>L&apos;option after nécessite fault=cut ou fault=unplug.</translation>
    </message>
    <message>
        <source>The shutter is being reset: until that is done, these may be temporary settings.</source>
        <translation>L&apos;obturateur est en cours de réinitialisation&#xa0;: jusqu&apos;à la fin, ces réglages peuvent être temporaires.</translation>
    </message>
    <message>
        <source>The sheet held unsaved rows of another type of instrument. They have been saved as %1, and stay on the sheet too.

&quot;Clear All&quot; makes room for the rows of the one connected now.</source>
        <translation>La feuille contenait des lignes non enregistrées d&apos;un autre type d&apos;instrument. Elles ont été enregistrées sous %1 et restent aussi sur la feuille.

«&#xa0;Tout effacer&#xa0;» fait de la place pour les lignes de l&apos;instrument connecté maintenant.</translation>
    </message>
    <message>
        <source>Only a number such as -0.5, with a point and no comma.</source>
        <translation>Uniquement un nombre comme -0.5, avec un point et sans virgule.</translation>
    </message>
    <message>
        <source>1 row of another type of instrument is not counted.</source>
        <translation>1 ligne d&apos;un autre type d&apos;instrument n&apos;est pas comptée.</translation>
    </message>
    <message>
        <source>%1 rows of another type of instrument are not counted.</source>
        <translation>%1 lignes d&apos;un autre type d&apos;instrument ne sont pas comptées.</translation>
    </message>
    <message>
        <source>Pre&amp;vious</source>
        <comment>the instrument before</comment>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <comment>the instrument after</comment>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>The sheet holds no rows. Collect or open those of this point first.</source>
        <translation>La feuille ne contient aucune ligne. Mesurez ou ouvrez d&apos;abord celles de ce point.</translation>
    </message>
    <message>
        <source>In the frame &quot;KP 7&quot; the value of &quot;%1&quot; in column %2 is empty or 0. Fill it in, then press &quot;Calc DP&quot; again.</source>
        <translation>Dans le cadre «&#xa0;KP 7&#xa0;», la valeur «&#xa0;%1&#xa0;» de la colonne %2 est vide ou nulle. Remplissez-la, puis appuyez de nouveau sur «&#xa0;Calculer DP&#xa0;».</translation>
    </message>
    <message>
        <source>The value of &quot;%1&quot; for the angle %2 is not from -32768 to 32767. Correct it first.</source>
        <translation>La valeur de «&#xa0;%1&#xa0;» pour l&apos;angle %2 n&apos;est pas comprise entre -32768 et 32767. Corrigez-la d&apos;abord.</translation>
    </message>
    <message>
        <source>Only a whole number from -32768 to 32767.</source>
        <translation>Uniquement un nombre entier de -32768 à 32767.</translation>
    </message>
    <message>
        <source>(no name)</source>
        <translation>(sans nom)</translation>
    </message>
    <message>
        <source>1 row is of another type of instrument, with other columns.</source>
        <translation>1 ligne vient d&apos;un autre type d&apos;instrument, avec d&apos;autres colonnes.</translation>
    </message>
    <message>
        <source>%1 rows are of another type of instrument, with other columns.</source>
        <translation>%1 lignes viennent d&apos;un autre type d&apos;instrument, avec d&apos;autres colonnes.</translation>
    </message>
</context>
</TS>
