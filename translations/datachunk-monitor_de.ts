<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>Archiving</name>
    <message>
        <source>There is no place for temporary files.</source>
        <translation>Es gibt keinen Platz für temporäre Dateien.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>BackgroundJob</name>
    <message>
        <source>%1: the system has no thread left.</source>
        <translation>%1: Das System hat keinen Thread mehr frei.</translation>
    </message>
    <message>
        <source>Close other programs and try again.</source>
        <translation>Schließen Sie andere Programme und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1: the memory is not enough.</source>
        <translation>%1: Der Speicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>Close other programs or traces and try again.</source>
        <translation>Schließen Sie andere Programme oder Traces und versuchen Sie es noch einmal.</translation>
    </message>
</context>
<context>
    <name>BusAdvice</name>
    <message>
        <source>There is no CAN bus plug-in &quot;%1&quot;.</source>
        <translation>Es gibt kein CAN-Bus-Plug-in „%1“.</translation>
    </message>
    <message>
        <source>Install the plug-ins of Qt&apos;s serial bus module.</source>
        <translation>Installieren Sie die Plug-ins des Qt-Moduls für serielle Busse.</translation>
    </message>
    <message>
        <source>The plug-ins here are: %1.</source>
        <translation>Hier gibt es die Plug-ins %1.</translation>
    </message>
    <message>
        <source>There is no CAN interface %1.</source>
        <translation>Es gibt keine CAN-Schnittstelle %1.</translation>
    </message>
    <message>
        <source>Make it: &quot;sudo ip link add %1 type vcan&quot;, then &quot;sudo ip link set %1 up&quot;.</source>
        <translation>Legen Sie sie an: „sudo ip link add %1 type vcan“, dann „sudo ip link set %1 up“.</translation>
    </message>
    <message>
        <source>The CAN interface %1 is down.</source>
        <translation>Die CAN-Schnittstelle %1 ist nicht aktiv.</translation>
    </message>
    <message>
        <source>Bring it up: &quot;sudo ip link set %1 up&quot;.</source>
        <translation>Aktivieren Sie sie: „sudo ip link set %1 up“.</translation>
    </message>
    <message>
        <source>Bring it up: &quot;sudo ip link set %1 up type can bitrate %2&quot;.</source>
        <translation>Aktivieren Sie sie: „sudo ip link set %1 up type can bitrate %2“.</translation>
    </message>
    <message>
        <source>%1 of %2 could not be connected.</source>
        <translation>%1 von %2 konnte nicht verbunden werden.</translation>
    </message>
    <message>
        <source>You may not use this device: have yourself added to the group that owns it, and log in again.</source>
        <translation>Sie dürfen dieses Gerät nicht benutzen: Lassen Sie sich in die Gruppe aufnehmen, der es gehört, und melden Sie sich neu an.</translation>
    </message>
    <message>
        <source>The library of the adapter&apos;s maker is missing: install his driver for Linux and connect again.</source>
        <translation>Die Bibliothek des Adapterherstellers fehlt: Installieren Sie seinen Treiber für Linux und verbinden Sie noch einmal.</translation>
    </message>
    <message>
        <source>Plug the adapter in and connect again; no other interface is found.</source>
        <translation>Stecken Sie den Adapter ein und verbinden Sie noch einmal; eine andere Schnittstelle ist nicht zu finden.</translation>
    </message>
    <message>
        <source>Plug the adapter in and connect again, or take one of these: %1.</source>
        <translation>Stecken Sie den Adapter ein und verbinden Sie noch einmal, oder nehmen Sie eine von diesen: %1.</translation>
    </message>
</context>
<context>
    <name>BusDesk</name>
    <message>
        <source>&amp;Connect…</source>
        <translation>&amp;Verbinden…</translation>
    </message>
    <message>
        <source>&amp;Try it without hardware</source>
        <translation>&amp;Ohne Hardware ausprobieren</translation>
    </message>
    <message>
        <source>Connects a generator of traffic.</source>
        <translation>Verbindet einen Generator für Verkehr.</translation>
    </message>
    <message>
        <source>&amp;New recording</source>
        <translation>&amp;Neue Aufzeichnung</translation>
    </message>
    <message>
        <source>Recording s&amp;ettings…</source>
        <translation>&amp;Einstellungen der Aufzeichnung…</translation>
    </message>
    <message>
        <source>Another monitor runs already.</source>
        <translation>Ein anderer Monitor läuft schon.</translation>
    </message>
    <message>
        <source>Both may record, each into a folder of its own; settings are kept from the one that changes them last.</source>
        <translation>Beide können aufzeichnen, jeder in einen eigenen Ordner; Einstellungen bleiben von dem, der sie zuletzt ändert.</translation>
    </message>
    <message>
        <source>Stop &amp;all lines</source>
        <translation>Alle Kanäle &amp;stoppen</translation>
    </message>
    <message>
        <source>&amp;Save recording…</source>
        <translation>A&amp;ufzeichnung speichern…</translation>
    </message>
</context>
<context>
    <name>BusLine</name>
    <message>
        <source>connecting</source>
        <translation>verbindet</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>verbunden</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>pausiert</translation>
    </message>
    <message>
        <source>lost, trying again</source>
        <translation>verloren, neuer Versuch</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>gestoppt</translation>
    </message>
</context>
<context>
    <name>BusLines</name>
    <message numerus="yes">
        <source>There are %n bus lines already.</source>
        <translation>
            <numerusform>Es gibt schon %n Kanal.</numerusform>
            <numerusform>Es gibt schon %n Kanäle.</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove those that are not needed any more.</source>
        <translation>Entfernen Sie die, die nicht mehr gebraucht werden.</translation>
    </message>
</context>
<context>
    <name>ChunkCopy</name>
    <message>
        <source>%1 is there already.</source>
        <translation>%1 gibt es schon.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>There are no chunks in %1; somebody has removed them.</source>
        <translation>In %1 sind keine Chunks; jemand hat sie entfernt.</translation>
    </message>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>ChunksDialog</name>
    <message>
        <source>Chunk</source>
        <translation>Chunk</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>First time</source>
        <translation>Erste Zeit</translation>
    </message>
    <message>
        <source>Last time</source>
        <translation>Letzte Zeit</translation>
    </message>
    <message>
        <source>in memory</source>
        <translation>im Speicher</translation>
    </message>
    <message>
        <source>Chunks of %1</source>
        <translation>Chunks von %1</translation>
    </message>
    <message>
        <source>&amp;Go there</source>
        <translation>&amp;Dorthin gehen</translation>
    </message>
</context>
<context>
    <name>ConnectDialog</name>
    <message>
        <source>Look a&amp;gain</source>
        <translation>Erneut s&amp;uchen</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>What it is</source>
        <translation>Was es ist</translation>
    </message>
    <message>
        <source>Shown as bus li&amp;ne:</source>
        <translation>Gezeigt als Ka&amp;nal:</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>Recorded trace</source>
        <translation>Aufgezeichneter Trace</translation>
    </message>
    <message>
        <source>comes again as if it were received</source>
        <translation>kommt noch einmal, als würde er empfangen</translation>
    </message>
    <message>
        <source>Generator</source>
        <translation>Generator</translation>
    </message>
    <message>
        <source>traffic without hardware</source>
        <translation>Verkehr ohne Hardware</translation>
    </message>
    <message>
        <source>connected last</source>
        <translation>zuletzt verbunden</translation>
    </message>
    <message>
        <source>looking for interfaces…</source>
        <translation>Schnittstellen werden gesucht…</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Andere…</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>none found; type its name</source>
        <translation>keine gefunden; Namen eintippen</translation>
    </message>
</context>
<context>
    <name>ConvertDialog</name>
    <message>
        <source>&amp;Each into a file of its own, in the folder</source>
        <translation>&amp;Jede in eine eigene Datei, in den Ordner</translation>
    </message>
    <message>
        <source>All &amp;merged by time, into the file</source>
        <translation>Alle nach &amp;Zeit zusammengeführt, in die Datei</translation>
    </message>
    <message>
        <source>&amp;Convert</source>
        <translation>&amp;Konvertieren</translation>
    </message>
    <message>
        <source>Files to convert</source>
        <translation>Zu konvertierende Dateien</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>Dur&amp;chsuchen…</translation>
    </message>
    <message>
        <source>&amp;Into:</source>
        <translation>&amp;Nach:</translation>
    </message>
    <message>
        <source>F&amp;ormat:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>This is one of the files to read; choose another name.</source>
        <translation>Das ist eine der zu lesenden Dateien; wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>The file exists already and will be replaced.</source>
        <translation>Die Datei gibt es schon; sie wird ersetzt.</translation>
    </message>
    <message>
        <source>This is a folder; add a name.</source>
        <translation>Das ist ein Ordner; fügen Sie einen Namen an.</translation>
    </message>
    <message>
        <source>Add the files and folders to convert, or drop them here.</source>
        <translation>Fügen Sie die zu konvertierenden Dateien und Ordner hinzu, oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>Convert files</source>
        <translation>Dateien konvertieren</translation>
    </message>
    <message>
        <source>&amp;Add files…</source>
        <translation>&amp;Dateien hinzufügen…</translation>
    </message>
    <message>
        <source>Add &amp;folder…</source>
        <translation>&amp;Ordner hinzufügen…</translation>
    </message>
    <message>
        <source>Merge files</source>
        <translation>Dateien zusammenführen</translation>
    </message>
    <message>
        <source>Folder of chunks to convert</source>
        <translation>Zu konvertierender Chunk-Ordner</translation>
    </message>
</context>
<context>
    <name>Converting</name>
    <message>
        <source>At most %1 traces are merged at a time.</source>
        <translation>Höchstens %1 Traces werden auf einmal zusammengeführt.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>DeviceLine</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 is back, and the recording goes on.</source>
        <translation>%1 ist wieder da, und die Aufzeichnung geht weiter.</translation>
    </message>
    <message>
        <source>%1 was lost.</source>
        <translation>%1 ging verloren.</translation>
    </message>
    <message>
        <source>%1 was lost: %2</source>
        <translation>%1 ging verloren: %2</translation>
    </message>
    <message>
        <source>Plug the adapter in again: the recording goes on as soon as it is back.</source>
        <translation>Stecken Sie den Adapter wieder ein: Die Aufzeichnung geht weiter, sobald er wieder da ist.</translation>
    </message>
    <message>
        <source>The controller of %1 had no room for all frames, and some are lost.</source>
        <translation>Der Controller von %1 hatte nicht für alle Frames Platz, und einige sind verloren.</translation>
    </message>
    <message>
        <source>Close programs that keep the computer busy.</source>
        <translation>Schließen Sie Programme, die den Rechner beschäftigen.</translation>
    </message>
</context>
<context>
    <name>DevicePage</name>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>as it is set</source>
        <translation>wie eingestellt</translation>
    </message>
    <message>
        <source>CAN &amp;FD</source>
        <translation>CAN &amp;FD</translation>
    </message>
    <message>
        <source>&amp;Interface:</source>
        <translation>&amp;Schnittstelle:</translation>
    </message>
    <message>
        <source>Bit &amp;rate:</source>
        <translation>Bit&amp;rate:</translation>
    </message>
    <message>
        <source>&amp;Data bit rate:</source>
        <translation>&amp;Datenbitrate:</translation>
    </message>
    <message>
        <source>the name of the interface</source>
        <translation>der Name der Schnittstelle</translation>
    </message>
    <message>
        <source>Set it with &quot;sudo ip link set %1 up type can bitrate …&quot;.</source>
        <translation>Stellen Sie sie mit „sudo ip link set %1 up type can bitrate …“ ein.</translation>
    </message>
</context>
<context>
    <name>DeviceReader</name>
    <message>
        <source>It does not answer.</source>
        <translation>Sie antwortet nicht.</translation>
    </message>
    <message>
        <source>The interface went down or was unplugged.</source>
        <translation>Die Schnittstelle wurde abgeschaltet oder ausgesteckt.</translation>
    </message>
</context>
<context>
    <name>DigestText</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>So far: %1 of %2 messages</source>
        <translation>Bisher: %1 von %2 Nachrichten</translation>
    </message>
    <message>
        <source>%1 messages of more identifiers are not listed</source>
        <translation>%1 Nachrichten weiterer Identifier sind nicht aufgeführt</translation>
    </message>
</context>
<context>
    <name>DiskWatch</name>
    <message>
        <source>The disk of the recording is nearly full: %1 are left.</source>
        <translation>Der Datenträger der Aufzeichnung ist fast voll: %1 sind frei.</translation>
    </message>
    <message>
        <source>Delete what is not needed, or save the recording to another disk.</source>
        <translation>Löschen Sie, was nicht gebraucht wird, oder speichern Sie die Aufzeichnung auf einem anderen Datenträger.</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>Times from message to &amp;message</source>
        <translation>Zeiten von Nachricht zu N&amp;achricht</translation>
    </message>
    <message>
        <source>Write &amp;notes behind their messages</source>
        <translation>&amp;Notizen hinter ihre Nachrichten schreiben</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>%1 exportieren</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xportieren</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>&amp;All, %1</source>
        <translation>A&amp;lle, %1</translation>
    </message>
    <message>
        <source>Those that the &amp;filter shows: %1</source>
        <translation>Die vom &amp;Filter gezeigten: %1</translation>
    </message>
    <message>
        <source>Those that the &amp;filter shows</source>
        <translation>Die vom &amp;Filter gezeigten</translation>
    </message>
    <message>
        <source>&amp;Selected rows, %1</source>
        <translation>Au&amp;sgewählte Zeilen, %1</translation>
    </message>
    <message>
        <source>&amp;Positions from</source>
        <translation>&amp;Positionen von</translation>
    </message>
    <message>
        <source>&amp;Times from</source>
        <translation>&amp;Zeiten von</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>Dur&amp;chsuchen…</translation>
    </message>
    <message>
        <source>F&amp;ile:</source>
        <translation>Dat&amp;ei:</translation>
    </message>
    <message>
        <source>F&amp;ormat:</source>
        <translation>F&amp;ormat:</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>This is a folder; add a name.</source>
        <translation>Das ist ein Ordner; fügen Sie einen Namen an.</translation>
    </message>
    <message>
        <source>There is no such folder.</source>
        <translation>Diesen Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>The trace is read from there; choose another name.</source>
        <translation>Der Trace wird von dort gelesen; wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>The file exists already and will be replaced.</source>
        <translation>Die Datei gibt es schon; sie wird ersetzt.</translation>
    </message>
    <message>
        <source>The range is not complete, or its end is in front of its beginning.</source>
        <translation>Der Bereich ist nicht vollständig, oder sein Ende liegt vor seinem Anfang.</translation>
    </message>
    <message>
        <source>%1 first</source>
        <translation>%1, Anfang</translation>
    </message>
    <message>
        <source>%1 last</source>
        <translation>%1, Ende</translation>
    </message>
</context>
<context>
    <name>Exporting</name>
    <message>
        <source>There is no message to write.</source>
        <translation>Es gibt keine Nachricht zu schreiben.</translation>
    </message>
    <message>
        <source>Writing %1 was cancelled.</source>
        <translation>Das Schreiben von %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Nothing of it was kept.</source>
        <translation>Nichts davon wurde behalten.</translation>
    </message>
    <message>
        <source>%1 could not be written. %2</source>
        <translation>%1 konnte nicht geschrieben werden. %2</translation>
    </message>
    <message>
        <source>Choose another place or name, or other messages.</source>
        <translation>Wählen Sie einen anderen Ort oder Namen, oder andere Nachrichten.</translation>
    </message>
    <message>
        <source>%1: %2 written.</source>
        <translation>%1: %2 geschrieben.</translation>
    </message>
    <message>
        <source>A chunk file (.dck) keeps everything.</source>
        <translation>Eine Chunk-Datei (.dck) behält alles.</translation>
    </message>
</context>
<context>
    <name>FileDesk</name>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Chunks…</source>
        <translation>&amp;Chunks…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
    <message>
        <source>Open &amp;folder…</source>
        <translation>&amp;Ordner öffnen…</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Import report</source>
        <translation>&amp;Importbericht</translation>
    </message>
    <message>
        <source>Read in &amp;another way…</source>
        <translation>&amp;Anders einlesen…</translation>
    </message>
    <message>
        <source>&amp;Pack into an archive…</source>
        <translation>In ein Archiv &amp;packen…</translation>
    </message>
    <message>
        <source>&amp;Unpack an archive…</source>
        <translation>Archi&amp;v entpacken…</translation>
    </message>
    <message>
        <source>Con&amp;vert files…</source>
        <translation>Dateien &amp;konvertieren…</translation>
    </message>
    <message>
        <source>&amp;Merge files…</source>
        <translation>Dateien zusa&amp;mmenführen…</translation>
    </message>
    <message>
        <source>Open traces</source>
        <translation>Traces öffnen</translation>
    </message>
    <message>
        <source>Open a folder of chunks</source>
        <translation>Chunk-Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message numerus="yes">
        <source>%L1 messages</source>
        <translation>
            <numerusform>%L1 Nachricht</numerusform>
            <numerusform>%L1 Nachrichten</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weitere</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>There are %n more.</source>
        <translation>
            <numerusform>Es gibt noch %n.</numerusform>
            <numerusform>Es gibt noch %n.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>F3</source>
        <translation>F3</translation>
    </message>
    <message>
        <source>Shift+F3</source>
        <translation>Shift+F3</translation>
    </message>
    <message>
        <source>Ctrl+Shift+F</source>
        <translation>Ctrl+Shift+F</translation>
    </message>
    <message>
        <source>All messages stay in sight, and the expression is looked for</source>
        <translation>Alle Nachrichten bleiben zu sehen, und der Ausdruck wird gesucht</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Saved and recent filters</source>
        <translation>Gespeicherte und zuletzt benutzte Filter</translation>
    </message>
    <message>
        <source>Find, for example: id==1a0 and b0&gt;80</source>
        <translation>Suchen, zum Beispiel: id==1a0 and b0&gt;80</translation>
    </message>
    <message>
        <source>Filter, for example: id==1a0 and b0&gt;80</source>
        <translation>Filtern, zum Beispiel: id==1a0 and b0&gt;80</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Sucht…</translation>
    </message>
    <message>
        <source>No more; F3 begins at the top</source>
        <translation>Keine mehr; F3 beginnt oben</translation>
    </message>
    <message>
        <source>No more; Shift+F3 begins at the end</source>
        <translation>Keine mehr; Umschalt+F3 beginnt am Ende</translation>
    </message>
    <message>
        <source>%1 found</source>
        <translation>%1 gefunden</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>&amp;Zuletzt benutzt</translation>
    </message>
    <message>
        <source>&amp;Manage…</source>
        <translation>&amp;Verwalten…</translation>
    </message>
    <message>
        <source>Name of the filter:</source>
        <translation>Name des Filters:</translation>
    </message>
    <message>
        <source>Sa&amp;ved filters</source>
        <translation>&amp;Gespeicherte Filter</translation>
    </message>
    <message>
        <source>&amp;Find or filter…</source>
        <translation>&amp;Suchen oder filtern…</translation>
    </message>
    <message>
        <source>Find ne&amp;xt</source>
        <translation>&amp;Weitersuchen</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>&amp;Rückwärts suchen</translation>
    </message>
    <message>
        <source>Find &amp;only</source>
        <translation>N&amp;ur suchen</translation>
    </message>
    <message>
        <source>&amp;Save this filter…</source>
        <translation>Diesen Filter &amp;speichern…</translation>
    </message>
    <message>
        <source>Save filter</source>
        <translation>Filter speichern</translation>
    </message>
</context>
<context>
    <name>FilterDialog</name>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>Saved filters</source>
        <translation>Gespeicherte Filter</translation>
    </message>
</context>
<context>
    <name>FilterField</name>
    <message>
        <source>Ctrl+Space shows what may stand there.</source>
        <translation>Strg+Leertaste zeigt, was dort stehen kann.</translation>
    </message>
</context>
<context>
    <name>FilterWords</name>
    <message>
        <source>identifier, hexadecimal: id==1a0, id in 100..1ff</source>
        <translation>Identifier, hexadezimal: id==1a0, id in 100..1ff</translation>
    </message>
    <message>
        <source>bus line: line==0</source>
        <translation>Kanal: line==0</translation>
    </message>
    <message>
        <source>bytes of payload: len&lt;8</source>
        <translation>Bytes der Daten: len&lt;8</translation>
    </message>
    <message>
        <source>message number: number&gt;=1000</source>
        <translation>Nummer der Nachricht: number&gt;=1000</translation>
    </message>
    <message>
        <source>time stamp as recorded, in seconds: time 12.5..13</source>
        <translation>Zeitstempel wie aufgezeichnet, in Sekunden: time 12.5..13</translation>
    </message>
    <message>
        <source>first byte, and so on to b63: b0==ff, b3&amp;f0==a0</source>
        <translation>erstes Byte, und so weiter bis b63: b0==ff, b3&amp;f0==a0</translation>
    </message>
    <message>
        <source>extended identifiers</source>
        <translation>Extended-Identifier</translation>
    </message>
    <message>
        <source>CAN FD frames</source>
        <translation>CAN-FD-Frames</translation>
    </message>
    <message>
        <source>bit rate switch</source>
        <translation>Umschaltung der Bitrate (BRS)</translation>
    </message>
    <message>
        <source>error state indicator</source>
        <translation>Anzeige des Fehlerzustands (ESI)</translation>
    </message>
    <message>
        <source>remote frames</source>
        <translation>Remote-Frames</translation>
    </message>
    <message>
        <source>error frames</source>
        <translation>Error-Frames</translation>
    </message>
    <message>
        <source>sent by this node</source>
        <translation>von diesem Knoten gesendet</translation>
    </message>
    <message>
        <source>these bytes anywhere: data~&quot;11 ?? 33&quot;</source>
        <translation>diese Bytes irgendwo: data~&quot;11 ?? 33&quot;</translation>
    </message>
    <message>
        <source>other payload than the message before</source>
        <translation>andere Daten als die Nachricht davor</translation>
    </message>
    <message>
        <source>messages with a note</source>
        <translation>Nachrichten mit einer Notiz</translation>
    </message>
    <message>
        <source>notes with this text: note~&quot;door&quot;</source>
        <translation>Notizen mit diesem Text: note~&quot;Tür&quot;</translation>
    </message>
    <message>
        <source>both</source>
        <translation>beides</translation>
    </message>
    <message>
        <source>one of them</source>
        <translation>eines davon</translation>
    </message>
    <message>
        <source>all others</source>
        <translation>alle anderen</translation>
    </message>
    <message>
        <source>in one of these ranges</source>
        <translation>in einem dieser Bereiche</translation>
    </message>
</context>
<context>
    <name>FormatBox</name>
    <message>
        <source>Chunk file (.dck)</source>
        <translation>Chunk-Datei (.dck)</translation>
    </message>
    <message>
        <source>Text (.txt)</source>
        <translation>Text (.txt)</translation>
    </message>
    <message>
        <source>Does not keep bookmarks.</source>
        <translation>Behält keine Lesezeichen.</translation>
    </message>
    <message>
        <source>Vector ASC (.asc)</source>
        <translation>Vector ASC (.asc)</translation>
    </message>
    <message>
        <source>Does not keep notes and bookmarks.</source>
        <translation>Behält keine Notizen und Lesezeichen.</translation>
    </message>
    <message>
        <source>candump log (.log)</source>
        <translation>candump-Log (.log)</translation>
    </message>
    <message>
        <source>Does not keep directions, notes and bookmarks.</source>
        <translation>Behält keine Richtungen, Notizen und Lesezeichen.</translation>
    </message>
    <message>
        <source>candump on the screen (.txt)</source>
        <translation>candump am Bildschirm (.txt)</translation>
    </message>
    <message>
        <source>Comma-separated values (.csv)</source>
        <translation>Werte mit Kommas (.csv)</translation>
    </message>
    <message>
        <source>JSON lines (.jsonl)</source>
        <translation>JSON-Zeilen (.jsonl)</translation>
    </message>
    <message>
        <source>Packet capture (.pcapng)</source>
        <translation>Paketmitschnitt (.pcapng)</translation>
    </message>
    <message>
        <source>PEAK trace 2.1 (.trc)</source>
        <translation>PEAK-Trace 2.1 (.trc)</translation>
    </message>
    <message>
        <source>PEAK trace 1.1 (.trc)</source>
        <translation>PEAK-Trace 1.1 (.trc)</translation>
    </message>
    <message>
        <source>Does not keep CAN FD frames, bus lines, notes and bookmarks.</source>
        <translation>Behält keine CAN-FD-Frames, Kanäle, Notizen und Lesezeichen.</translation>
    </message>
    <message>
        <source>Parquet (.parquet)</source>
        <translation>Parquet (.parquet)</translation>
    </message>
</context>
<context>
    <name>GeneratorLine</name>
    <message>
        <source>Generator</source>
        <translation>Generator</translation>
    </message>
</context>
<context>
    <name>GeneratorPage</name>
    <message>
        <source>CAN &amp;FD frames among them</source>
        <translation>Auch CAN-&amp;FD-Frames</translation>
    </message>
    <message>
        <source>&amp;Error frames among them</source>
        <translation>Auch &amp;Error-Frames</translation>
    </message>
    <message>
        <source> messages/s</source>
        <translation> Nachrichten/s</translation>
    </message>
    <message>
        <source>&amp;Rate:</source>
        <translation>&amp;Rate:</translation>
    </message>
    <message>
        <source>Bus &amp;lines:</source>
        <translation>Kanä&amp;le:</translation>
    </message>
</context>
<context>
    <name>IdentifierTable</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Bus line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Extended, remote, CAN FD, error frame</source>
        <translation>Extended, Remote, CAN FD, Error-Frame</translation>
    </message>
    <message>
        <source>Len</source>
        <translation>Lg.</translation>
    </message>
    <message>
        <source>Payload bytes of the last message</source>
        <translation>Datenbytes der letzten Nachricht</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Payload of the last message; bytes that have just changed are marked</source>
        <translation>Daten der letzten Nachricht; Bytes, die sich gerade geändert haben, sind markiert</translation>
    </message>
    <message>
        <source>Over time</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Messages over the whole trace</source>
        <translation>Nachrichten über den ganzen Trace</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Messages in the trace</source>
        <translation>Nachrichten im Trace</translation>
    </message>
    <message>
        <source>Per s</source>
        <translation>Je s</translation>
    </message>
    <message>
        <source>Messages each second, of late</source>
        <translation>Nachrichten in jeder Sekunde, zuletzt</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Periode</translation>
    </message>
    <message>
        <source>Time between messages, mean of the last eight</source>
        <translation>Zeit zwischen Nachrichten, Mittel der letzten acht</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Time between messages, mean of all</source>
        <translation>Zeit zwischen Nachrichten, Mittel aller</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Shortest time between two messages</source>
        <translation>Kürzeste Zeit zwischen zwei Nachrichten</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Longest time between two messages</source>
        <translation>Längste Zeit zwischen zwei Nachrichten</translation>
    </message>
    <message>
        <source>Age</source>
        <translation>Alter</translation>
    </message>
    <message>
        <source>Time from the last message to the end of the trace</source>
        <translation>Zeit von der letzten Nachricht bis zum Ende des Traces</translation>
    </message>
</context>
<context>
    <name>IdentifierView</name>
    <message>
        <source>Type an identifier to see only those that contain it</source>
        <translation>Identifier eintippen, um nur die zu sehen, die ihn enthalten</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>Identifiers</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>&amp;Show last message</source>
        <translation>&amp;Letzte Nachricht zeigen</translation>
    </message>
    <message>
        <source>&amp;Only this identifier</source>
        <translation>&amp;Nur diesen Identifier</translation>
    </message>
    <message>
        <source>&amp;All but this identifier</source>
        <translation>&amp;Alle außer diesem Identifier</translation>
    </message>
</context>
<context>
    <name>IdentifiersPage</name>
    <message>
        <source>Identifiers</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>Choose an identifier to see its rate</source>
        <translation>Wählen Sie einen Identifier, um seine Rate zu sehen</translation>
    </message>
    <message>
        <source>Messages per second</source>
        <translation>Nachrichten je Sekunde</translation>
    </message>
</context>
<context>
    <name>ImportedTrace</name>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
    <message>
        <source>Reading %1 was cancelled.</source>
        <translation>Das Lesen von %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The %1 up to there are shown.</source>
        <translation>Bis dahin gelesen und gezeigt: %1.</translation>
    </message>
    <message>
        <source>%1 cannot be read as %2. %3</source>
        <translation>%1 kann nicht als %2 gelesen werden. %3</translation>
    </message>
    <message>
        <source>Try another type or way of reading it.</source>
        <translation>Versuchen Sie einen anderen Typ oder eine andere Art, sie zu lesen.</translation>
    </message>
    <message>
        <source>%1 is not complete. %2</source>
        <translation>%1 ist nicht vollständig. %2</translation>
    </message>
    <message>
        <source>What could be read is shown. Try another copy of it.</source>
        <translation>Was gelesen werden konnte, wird gezeigt. Versuchen Sie eine andere Kopie davon.</translation>
    </message>
    <message>
        <source>%1: %2 read.</source>
        <translation>%1: %2 gelesen.</translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines could not be read as frames.</source>
        <translation>
            <numerusform>%L1 Zeile konnte nicht als Frame gelesen werden.</numerusform>
            <numerusform>%L1 Zeilen konnten nicht als Frames gelesen werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 frames may not be as the file means them.</source>
        <translation>
            <numerusform>%L1 Frame ist vielleicht nicht so, wie die Datei ihn meint.</numerusform>
            <numerusform>%L1 Frames sind vielleicht nicht so, wie die Datei sie meint.</numerusform>
        </translation>
    </message>
    <message>
        <source>The report tells which lines these are.</source>
        <translation>Der Bericht sagt, welche Zeilen das sind.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Reading %1 has ended early. %2</source>
        <translation>Das Lesen von %1 endete vorzeitig. %2</translation>
    </message>
    <message>
        <source>Make room on the disk of %1 and open it again; what was read is shown.</source>
        <translation>Schaffen Sie Platz auf dem Datenträger von %1 und öffnen Sie die Datei noch einmal; was gelesen wurde, wird gezeigt.</translation>
    </message>
</context>
<context>
    <name>Items</name>
    <message numerus="yes">
        <source>%L1 messages are no longer there.</source>
        <translation>
            <numerusform>%L1 Nachricht ist nicht mehr da.</numerusform>
            <numerusform>%L1 Nachrichten sind nicht mehr da.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines of %2 could not be read as frames.</source>
        <translation>
            <numerusform>%L1 Zeile von %2 konnte nicht als Frame gelesen werden.</numerusform>
            <numerusform>%L1 Zeilen von %2 konnten nicht als Frames gelesen werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 konnte nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>JobRows</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel: %1</source>
        <translation>Abbrechen: %1</translation>
    </message>
    <message>
        <source>%1: being cancelled</source>
        <translation>%1: wird abgebrochen</translation>
    </message>
    <message>
        <source>%1: waits for its turn</source>
        <translation>%1: wartet, bis es an der Reihe ist</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more wait</source>
        <translation>
            <numerusform>%n weitere wartet</numerusform>
            <numerusform>%n weitere warten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>JumpTarget</name>
    <message>
        <source>A number from 0 to 4294967295 is wanted.</source>
        <translation>Gefragt ist eine Zahl von 0 bis 4294967295.</translation>
    </message>
    <message>
        <source>This is no time.</source>
        <translation>Das ist keine Zeit.</translation>
    </message>
    <message>
        <source>14:05:09.5, with a date in front if need be; +1.5 or -1.5 from the current message</source>
        <translation>14:05:09.5, bei Bedarf mit einem Datum davor; +1.5 oder -1.5 ab der aktuellen Nachricht</translation>
    </message>
    <message>
        <source>12.5 in seconds as shown, 14:05:09 of the day, +1.5 or -1.5 from the current message</source>
        <translation>12.5 in Sekunden wie gezeigt, 14:05:09 als Uhrzeit, +1.5 oder -1.5 ab der aktuellen Nachricht</translation>
    </message>
    <message>
        <source>12.5 in seconds as shown, 1:02:03 from the start, +1.5 or -1.5 from the current message</source>
        <translation>12.5 in Sekunden wie gezeigt, 1:02:03 ab Beginn, +1.5 oder -1.5 ab der aktuellen Nachricht</translation>
    </message>
</context>
<context>
    <name>LeftRecordings</name>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>A recording of %1 was not closed, because its monitor was killed.</source>
        <translation>Eine Aufzeichnung vom %1 wurde nicht geschlossen, weil ihr Monitor abgebrochen wurde.</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings were not closed, the last one of %1.</source>
        <translation>
            <numerusform>%n Aufzeichnung wurde nicht geschlossen, die letzte vom %1.</numerusform>
            <numerusform>%n Aufzeichnungen wurden nicht geschlossen, die letzte vom %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>It can be recovered up to its last minute.</source>
        <translation>Wiederhergestellt werden kann alles bis zur letzten Minute.</translation>
    </message>
    <message>
        <source>Recover or delete…</source>
        <translation>Wiederherstellen oder löschen…</translation>
    </message>
    <message>
        <source>Recordings left behind</source>
        <translation>Zurückgelassene Aufzeichnungen</translation>
    </message>
    <message>
        <source>What is to become of the recordings that were not closed?</source>
        <translation>Was soll aus den Aufzeichnungen werden, die nicht geschlossen wurden?</translation>
    </message>
    <message>
        <source>There are %1. Recovered, they are put into %2 and opened.</source>
        <translation>Es sind %1. Wiederhergestellt werden sie in %2 abgelegt und geöffnet.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Recovered %1</source>
        <translation>Wiederhergestellt %1</translation>
    </message>
    <message>
        <source>What could not be read stays where it is.</source>
        <translation>Was nicht gelesen werden konnte, bleibt, wo es ist.</translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages were recovered.</source>
        <translation>
            <numerusform>%L1 Nachricht wurde wiederhergestellt.</numerusform>
            <numerusform>%L1 Nachrichten wurden wiederhergestellt.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LineModel</name>
    <message>
        <source>Line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Per s</source>
        <translation>Je s</translation>
    </message>
    <message numerus="yes">
        <source>%L1 frames were no messages and are not recorded.</source>
        <translation>
            <numerusform>%L1 Frame war keine Nachricht und ist nicht aufgezeichnet.</numerusform>
            <numerusform>%L1 Frames waren keine Nachrichten und sind nicht aufgezeichnet.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LineTable</name>
    <message>
        <source>In kbit/s; press F2 to change it.</source>
        <translation>In kbit/s; F2 drücken, um sie zu ändern.</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Bus line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Last</translation>
    </message>
    <message>
        <source>Bus load in the last second of the trace</source>
        <translation>Buslast in der letzten Sekunde des Traces</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Bus load over the whole trace</source>
        <translation>Buslast über den ganzen Trace</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Spitze</translation>
    </message>
    <message>
        <source>Bus load in the busiest second</source>
        <translation>Buslast in der stärksten Sekunde</translation>
    </message>
    <message>
        <source>Per s</source>
        <translation>Je s</translation>
    </message>
    <message>
        <source>Messages in the last second of the trace</source>
        <translation>Nachrichten in der letzten Sekunde des Traces</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Messages in the trace</source>
        <translation>Nachrichten im Trace</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Error frames</source>
        <translation>Error-Frames</translation>
    </message>
    <message>
        <source>kbit/s</source>
        <translation>kbit/s</translation>
    </message>
    <message>
        <source>Bit rate, for the load; press F2 to change it</source>
        <translation>Bitrate, für die Last; F2 drücken, um sie zu ändern</translation>
    </message>
    <message>
        <source>FD kbit/s</source>
        <translation>FD kbit/s</translation>
    </message>
    <message>
        <source>Bit rate of CAN FD data, for the load; press F2 to change it</source>
        <translation>Bitrate der CAN-FD-Daten, für die Last; F2 drücken, um sie zu ändern</translation>
    </message>
</context>
<context>
    <name>LinesDock</name>
    <message>
        <source>Bus lines</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Nothing is connected yet.</source>
        <translation>Noch ist nichts verbunden.</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>&amp;Stoppen</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pausieren</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Speed</source>
        <translation>&amp;Tempo</translation>
    </message>
    <message>
        <source>%1 times</source>
        <translation>%1-fach</translation>
    </message>
    <message>
        <source>as fast as possible</source>
        <translation>so schnell wie möglich</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
</context>
<context>
    <name>LinesPage</name>
    <message>
        <source>Lines</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>Bus load</source>
        <translation>Buslast</translation>
    </message>
    <message>
        <source>Messages per second</source>
        <translation>Nachrichten je Sekunde</translation>
    </message>
</context>
<context>
    <name>LookMenus</name>
    <message>
        <source>&amp;Time</source>
        <translation>&amp;Zeit</translation>
    </message>
    <message>
        <source>&amp;Numbers</source>
        <translation>Za&amp;hlen</translation>
    </message>
    <message>
        <source>Since the &amp;start</source>
        <translation>Seit &amp;Beginn</translation>
    </message>
    <message>
        <source>Since the message &amp;before</source>
        <translation>Seit der Nachricht &amp;davor</translation>
    </message>
    <message>
        <source>Since the &amp;marked message</source>
        <translation>Seit der &amp;markierten Nachricht</translation>
    </message>
    <message>
        <source>&amp;Date and time of day</source>
        <translation>Datum und &amp;Uhrzeit</translation>
    </message>
    <message>
        <source>Seconds as &amp;recorded</source>
        <translation>&amp;Sekunden wie aufgezeichnet</translation>
    </message>
    <message>
        <source>&amp;Hexadecimal identifiers</source>
        <translation>&amp;Hexadezimale Identifier</translation>
    </message>
    <message>
        <source>&amp;Decimal identifiers</source>
        <translation>&amp;Dezimale Identifier</translation>
    </message>
    <message>
        <source>He&amp;xadecimal data</source>
        <translation>He&amp;xadezimale Daten</translation>
    </message>
    <message>
        <source>D&amp;ecimal data</source>
        <translation>D&amp;ezimale Daten</translation>
    </message>
</context>
<context>
    <name>LossQuestion</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>C&amp;lose all the same</source>
        <translation>&amp;Trotzdem schließen</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Records from CAN buses, and shows traces of many CAN tools.</source>
        <translation>Zeichnet von CAN-Bussen auf und zeigt Traces vieler CAN-Programme.</translation>
    </message>
    <message>
        <source>Files, folders and archives to open.</source>
        <translation>Dateien, Ordner und Archive zum Öffnen.</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>The language changes when the program is started again.</source>
        <translation>Die Sprache wechselt, wenn das Programm neu gestartet wird.</translation>
    </message>
    <message>
        <source>&amp;System</source>
        <translation>&amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>By &amp;identifier</source>
        <translation>Nach &amp;Identifier</translation>
    </message>
    <message>
        <source>datachunk monitor</source>
        <translation>datachunk monitor</translation>
    </message>
    <message>
        <source>About the monitor</source>
        <translation>Über den Monitor</translation>
    </message>
    <message>
        <source>datachunk monitor %1

Records from CAN buses, and shows traces of many CAN tools.</source>
        <translation>datachunk monitor %1

Zeichnet von CAN-Bussen auf und zeigt Traces vieler CAN-Programme.</translation>
    </message>
    <message>
        <source>What was dropped is no file on this machine.</source>
        <translation>Was hier abgelegt wurde, ist keine Datei auf diesem Rechner.</translation>
    </message>
    <message>
        <source>Save it to a disk first, and drop it from there.</source>
        <translation>Speichern Sie es zuerst auf einem Datenträger und ziehen Sie es von dort hierher.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Bus</source>
        <translation>B&amp;us</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About the monitor</source>
        <translation>&amp;Über den Monitor</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>S&amp;prache</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Notes and bookmarks on %1 are nowhere else: export it as a chunk file, or pack it, to keep them.</source>
        <translation>Notizen und Lesezeichen an %1 sind sonst nirgends: Exportieren Sie ihn als Chunk-Datei, oder packen Sie ihn, um sie zu behalten.</translation>
    </message>
    <message>
        <source>Close %1 all the same?</source>
        <translation>%1 trotzdem schließen?</translation>
    </message>
    <message>
        <source>%1 has not ended, and nothing of it would be there.</source>
        <translation>Nicht beendet: %1. Nichts davon wäre da.</translation>
    </message>
    <message>
        <source>Close the monitor all the same?</source>
        <translation>Den Monitor trotzdem schließen?</translation>
    </message>
    <message>
        <source>Close &amp;tab</source>
        <translation>&amp;Tab schließen</translation>
    </message>
    <message>
        <source>C&amp;olours</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>&amp;Bus lines</source>
        <translation>&amp;Kanäle</translation>
    </message>
    <message>
        <source>Notes &amp;and bookmarks</source>
        <translation>&amp;Notizen und Lesezeichen</translation>
    </message>
    <message>
        <source>&amp;Statistics</source>
        <translation>S&amp;tatistik</translation>
    </message>
</context>
<context>
    <name>MarksModel</name>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Lesezeichen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
</context>
<context>
    <name>Merging</name>
    <message>
        <source>The system has no thread left.</source>
        <translation>Das System hat keinen Thread mehr frei.</translation>
    </message>
</context>
<context>
    <name>MessageBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>MessageModel</name>
    <message>
        <source>Characters</source>
        <translation>Zeichen</translation>
    </message>
</context>
<context>
    <name>NotesDock</name>
    <message>
        <source>Notes and bookmarks</source>
        <translation>Notizen und Lesezeichen</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Write a note on the current message</source>
        <translation>Schreibt eine Notiz an die aktuelle Nachricht</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Lesezeichen</translation>
    </message>
    <message>
        <source>Set a bookmark on the current message</source>
        <translation>Setzt ein Lesezeichen an die aktuelle Nachricht</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Search in notes and bookmarks</source>
        <translation>In Notizen und Lesezeichen suchen</translation>
    </message>
    <message>
        <source>Only those on the first %1 messages are listed; filter the trace for notes to see the others.</source>
        <translation>Nur die an den ersten %1 Nachrichten sind aufgeführt; filtern Sie den Trace nach Notizen, um die anderen zu sehen.</translation>
    </message>
    <message>
        <source>Nothing is written on this trace. Select a message and press &quot;Note&quot; or &quot;Bookmark&quot;.</source>
        <translation>An diesem Trace steht noch nichts. Wählen Sie eine Nachricht und drücken Sie „Notiz“ oder „Lesezeichen“.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Notes and bookmarks: %1</source>
        <translation>Notizen und Lesezeichen: %1</translation>
    </message>
</context>
<context>
    <name>OpenedTrace</name>
    <message>
        <source>What could be read is shown. Another copy may have more, and &quot;datachunk recover&quot; saves what is whole of damaged chunks.</source>
        <translation>Was gelesen werden konnte, wird gezeigt. Eine andere Kopie hat vielleicht mehr, und „datachunk recover“ rettet, was an beschädigten Chunks heil ist.</translation>
    </message>
</context>
<context>
    <name>OverviewStrip</name>
    <message>
        <source>No messages yet</source>
        <translation>Noch keine Nachrichten</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/s</translation>
    </message>
    <message>
        <source>Overview of the trace</source>
        <translation>Übersicht über den Trace</translation>
    </message>
    <message>
        <source>Show &amp;all of the trace</source>
        <translation>Den &amp;ganzen Trace zeigen</translation>
    </message>
    <message>
        <source>&amp;Time of day</source>
        <translation>&amp;Uhrzeit</translation>
    </message>
    <message>
        <source>Line %1: %2 messages per second</source>
        <translation>Kanal %1: %2 Nachrichten je Sekunde</translation>
    </message>
    <message numerus="yes">
        <source>%n error frame(s)</source>
        <translation>
            <numerusform>%n Error-Frame</numerusform>
            <numerusform>%n Error-Frames</numerusform>
        </translation>
    </message>
    <message>
        <source>Bookmark: %1</source>
        <translation>Lesezeichen: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Notiz: %1</translation>
    </message>
    <message>
        <source>Only the first %L1 notes and bookmarks are marked.</source>
        <translation>Nur die ersten %L1 Notizen und Lesezeichen sind markiert.</translation>
    </message>
</context>
<context>
    <name>PacedLine</name>
    <message>
        <source>The system has no thread left.</source>
        <translation>Das System hat keinen Thread mehr frei.</translation>
    </message>
    <message>
        <source>Close other programs and try again.</source>
        <translation>Schließen Sie andere Programme und versuchen Sie es noch einmal.</translation>
    </message>
</context>
<context>
    <name>PathEdit</name>
    <message>
        <source>&amp;Browse…</source>
        <translation>Dur&amp;chsuchen…</translation>
    </message>
</context>
<context>
    <name>PlaceLine</name>
    <message>
        <source>No messages</source>
        <translation>Keine Nachrichten</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 selected, no more at once</source>
        <translation>%1 ausgewählt, mehr geht nicht auf einmal</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages, following the end</source>
        <translation>
            <numerusform>%L1 Nachricht, folgt dem Ende</numerusform>
            <numerusform>%L1 Nachrichten, folgt dem Ende</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages</source>
        <translation>
            <numerusform>%L1 Nachricht</numerusform>
            <numerusform>%L1 Nachrichten</numerusform>
        </translation>
    </message>
    <message>
        <source>No messages found; clear the filter to see all</source>
        <translation>Keine Nachrichten gefunden; ohne Filter sind alle zu sehen</translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
    <message>
        <source>&amp;Forget them</source>
        <translation>Liste &amp;vergessen</translation>
    </message>
</context>
<context>
    <name>Recording</name>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message numerus="yes">
        <source>The recording has used up its budget of %n MiB: from now on its oldest messages are deleted.</source>
        <translation>
            <numerusform>Die Aufzeichnung hat ihr Budget von %n MiB aufgebraucht: Ab jetzt werden ihre ältesten Nachrichten gelöscht.</numerusform>
            <numerusform>Die Aufzeichnung hat ihr Budget von %n MiB aufgebraucht: Ab jetzt werden ihre ältesten Nachrichten gelöscht.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save the recording, or give it more room.</source>
        <translation>Speichern Sie die Aufzeichnung, oder geben Sie ihr mehr Platz.</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
</context>
<context>
    <name>RecordingKeeper</name>
    <message>
        <source>Save the recording before a new one begins?</source>
        <translation>Die Aufzeichnung speichern, bevor eine neue beginnt?</translation>
    </message>
    <message>
        <source>&amp;Discard it</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Speichern…</translation>
    </message>
    <message>
        <source>There is nothing to save yet.</source>
        <translation>Es gibt noch nichts zu speichern.</translation>
    </message>
    <message>
        <source>Connect a bus line first.</source>
        <translation>Verbinden Sie zuerst einen Kanal.</translation>
    </message>
    <message>
        <source>Recording %1</source>
        <translation>Aufzeichnung %1</translation>
    </message>
    <message>
        <source>The recording was saved: %1</source>
        <translation>Die Aufzeichnung wurde gespeichert: %1</translation>
    </message>
    <message>
        <source>Saving was cancelled, and the recording is not saved.</source>
        <translation>Das Speichern wurde abgebrochen, und die Aufzeichnung ist nicht gespeichert.</translation>
    </message>
    <message>
        <source>It is kept as long as the monitor runs.</source>
        <translation>Sie bleibt, solange der Monitor läuft.</translation>
    </message>
    <message>
        <source>Save…</source>
        <translation>Speichern…</translation>
    </message>
    <message>
        <source>Make room on the disk of the recording, or give it more in the settings: messages that it does not take are dropped.</source>
        <translation>Schaffen Sie Platz auf dem Datenträger der Aufzeichnung, oder geben Sie ihr mehr in den Einstellungen: Nachrichten, die sie nicht aufnimmt, werden verworfen.</translation>
    </message>
    <message>
        <source>Somebody has removed the folder of the recording: %1</source>
        <translation>Jemand hat den Ordner der Aufzeichnung entfernt: %1</translation>
    </message>
    <message>
        <source>What was in it is gone, and nothing more can be written there. Begin a new recording; the lines go on.</source>
        <translation>Was darin war, ist weg, und es kann nichts mehr hineingeschrieben werden. Beginnen Sie eine neue Aufzeichnung; die Kanäle laufen weiter.</translation>
    </message>
    <message>
        <source>New recording</source>
        <translation>Neue Aufzeichnung</translation>
    </message>
    <message>
        <source>The recording is being saved.</source>
        <translation>Die Aufzeichnung wird gespeichert.</translation>
    </message>
    <message>
        <source>The window closes when that is done.</source>
        <translation>Das Fenster schließt sich, wenn das erledigt ist.</translation>
    </message>
    <message>
        <source>Save the recording before the monitor is closed?</source>
        <translation>Die Aufzeichnung speichern, bevor der Monitor geschlossen wird?</translation>
    </message>
    <message>
        <source>The recording before is still being saved.</source>
        <translation>Die vorige Aufzeichnung wird noch gespeichert.</translation>
    </message>
    <message>
        <source>Save this one when that is done; it goes on meanwhile.</source>
        <translation>Speichern Sie diese, wenn das erledigt ist; sie geht inzwischen weiter.</translation>
    </message>
    <message numerus="yes">
        <source>It has %L1 messages. Discarded, they are gone for good.</source>
        <translation>
            <numerusform>Sie hat %L1 Nachricht. Verworfen ist sie endgültig weg.</numerusform>
            <numerusform>Sie hat %L1 Nachrichten. Verworfen sind sie endgültig weg.</numerusform>
        </translation>
    </message>
    <message>
        <source>The recording has no folder: none could be made in %1.</source>
        <translation>Die Aufzeichnung hat keinen Ordner: In %1 konnte keiner angelegt werden.</translation>
    </message>
    <message>
        <source>Only the last messages are kept, in memory. Make room there, or see to the permissions, and begin a new recording.</source>
        <translation>Nur die letzten Nachrichten bleiben, im Speicher. Schaffen Sie dort Platz oder sorgen Sie für die Rechte, und beginnen Sie eine neue Aufzeichnung.</translation>
    </message>
</context>
<context>
    <name>RecordingSaver</name>
    <message>
        <source>The archive %1 could not be written.</source>
        <translation>Das Archiv %1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The recording was not saved. %1</source>
        <translation>Die Aufzeichnung wurde nicht gespeichert. %1</translation>
    </message>
    <message>
        <source>It is still there: save it to another place, or make room first.</source>
        <translation>Sie ist noch da: Speichern Sie sie an einem anderen Ort, oder schaffen Sie zuerst Platz.</translation>
    </message>
</context>
<context>
    <name>RecordingStatus</name>
    <message>
        <source>saving, %p %</source>
        <translation>speichert, %p %</translation>
    </message>
    <message>
        <source>Cancel saving</source>
        <translation>Speichern abbrechen</translation>
    </message>
    <message>
        <source>taken %1   stored %2   dropped %3</source>
        <translation>angenommen %1   gespeichert %2   verworfen %3</translation>
    </message>
    <message>
        <source>Messages received, kept by the recording, and lost because the disk was too slow or did not take them.</source>
        <translation>Nachrichten, die empfangen wurden, die die Aufzeichnung behält, und die verloren sind, weil der Datenträger zu langsam war oder sie nicht aufnahm.</translation>
    </message>
    <message numerus="yes">
        <source>The budget has taken the %n oldest chunk files of those stored.</source>
        <translation>
            <numerusform>Wegen des Budgets wurde %n der gespeicherten Chunk-Dateien gelöscht, die älteste.</numerusform>
            <numerusform>Wegen des Budgets wurden die %n ältesten der gespeicherten Chunk-Dateien gelöscht.</numerusform>
        </translation>
    </message>
    <message>
        <source>no folder</source>
        <translation>kein Ordner</translation>
    </message>
    <message>
        <source>The recording lies in %1; click to open it.</source>
        <translation>Die Aufzeichnung liegt in %1; zum Öffnen klicken.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Room that the recording takes, of its budget.</source>
        <translation>Platz, den die Aufzeichnung einnimmt, von ihrem Budget.</translation>
    </message>
    <message>
        <source>%1 are left on the disk.</source>
        <translation>Auf dem Datenträger sind %1 frei.</translation>
    </message>
</context>
<context>
    <name>ReopenDialog</name>
    <message>
        <source>By the &amp;letter, as other programs read it</source>
        <translation>&amp;Wörtlich, wie andere Programme es lesen</translation>
    </message>
    <message>
        <source>Read %1 as</source>
        <translation>%1 lesen als</translation>
    </message>
    <message>
        <source>what stands in the fields of a line</source>
        <translation>was in den Feldern einer Zeile steht</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>&amp;Beschreibung:</translation>
    </message>
</context>
<context>
    <name>ReplayLine</name>
    <message>
        <source>%1 is not there any more.</source>
        <translation>%1 ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Choose another trace to replay.</source>
        <translation>Wählen Sie einen anderen Trace zum Wiedergeben.</translation>
    </message>
    <message>
        <source>There are no messages in %1.</source>
        <translation>In %1 sind keine Nachrichten.</translation>
    </message>
    <message>
        <source>%1 cannot be replayed: %2</source>
        <translation>%1 kann nicht wiedergegeben werden: %2</translation>
    </message>
    <message>
        <source>Choose a trace, a chunk file or an archive of them.</source>
        <translation>Wählen Sie einen Trace, eine Chunk-Datei oder ein Archiv davon.</translation>
    </message>
    <message>
        <source>%1 could not be replayed. %2</source>
        <translation>%1 konnte nicht wiedergegeben werden. %2</translation>
    </message>
    <message>
        <source>Choose another trace, or open this one to see what is whole of it.</source>
        <translation>Wählen Sie einen anderen Trace, oder öffnen Sie diesen, um zu sehen, was daran heil ist.</translation>
    </message>
    <message>
        <source>Not all of %1 could be replayed. %2</source>
        <translation>%1 konnte nicht ganz wiedergegeben werden. %2</translation>
    </message>
</context>
<context>
    <name>ReplayPage</name>
    <message>
        <source>Trace to replay</source>
        <translation>Trace zum Wiedergeben</translation>
    </message>
    <message>
        <source>Begin anew at the &amp;end</source>
        <translation>Am &amp;Ende neu beginnen</translation>
    </message>
    <message>
        <source>&amp;Keep the bus lines of the trace</source>
        <translation>&amp;Kanäle des Traces behalten</translation>
    </message>
    <message>
        <source>%1 times</source>
        <translation>%1-fach</translation>
    </message>
    <message>
        <source>as fast as possible</source>
        <translation>so schnell wie möglich</translation>
    </message>
    <message>
        <source>&amp;Trace:</source>
        <translation>&amp;Trace:</translation>
    </message>
    <message>
        <source>&amp;Speed:</source>
        <translation>Te&amp;mpo:</translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>The first of them</source>
        <translation>Die ersten davon</translation>
    </message>
    <message>
        <source>Read as</source>
        <translation>Gelesen als</translation>
    </message>
    <message>
        <source>%1, strictly</source>
        <translation>%1, wörtlich</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Frames</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Lines lost</source>
        <translation>Verlorene Zeilen</translation>
    </message>
    <message>
        <source>Began</source>
        <translation>Begann</translation>
    </message>
    <message>
        <source>Times count from</source>
        <translation>Zeiten zählen ab</translation>
    </message>
    <message>
        <source>Nothing was lost.</source>
        <translation>Nichts ging verloren.</translation>
    </message>
    <message>
        <source>Could not be read as frames</source>
        <translation>Konnten nicht als Frames gelesen werden</translation>
    </message>
    <message>
        <source>Frames that may not be as the file means them</source>
        <translation>Frames, die vielleicht nicht so sind, wie die Datei sie meint</translation>
    </message>
    <message>
        <source>does not look like a frame</source>
        <translation>sieht nicht wie ein Frame aus</translation>
    </message>
    <message>
        <source>Lines of the bus</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>In der Datei</translation>
    </message>
    <message>
        <source>Here</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>The file is compressed, so that its lines cannot be shown. Unpack it with another program and open it again to go to them.</source>
        <translation>Die Datei ist komprimiert, sodass ihre Zeilen nicht gezeigt werden können. Entpacken Sie sie mit einem anderen Programm und öffnen Sie sie noch einmal, um zu ihnen zu gehen.</translation>
    </message>
    <message>
        <source>Lines that are no frames, as expected</source>
        <translation>Zeilen, die erwartungsgemäß keine Frames sind</translation>
    </message>
</context>
<context>
    <name>ReportDialog</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Import report of %1</source>
        <translation>Importbericht von %1</translation>
    </message>
    <message>
        <source>&amp;Source text</source>
        <translation>&amp;Originaltext</translation>
    </message>
    <message>
        <source>&amp;Read in another way…</source>
        <translation>&amp;Anders einlesen…</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>Folder for recordings</source>
        <translation>Ordner für Aufzeichnungen</translation>
    </message>
    <message>
        <source>Save recording</source>
        <translation>Aufzeichnung speichern</translation>
    </message>
    <message>
        <source>Folder of chunk files</source>
        <translation>Ordner mit Chunk-Dateien</translation>
    </message>
    <message>
        <source>ZIP archive, smaller and slower</source>
        <translation>ZIP-Archiv, kleiner und langsamer</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;In folder:</source>
        <translation>&amp;In Ordner:</translation>
    </message>
    <message>
        <source>&amp;As:</source>
        <translation>&amp;Als:</translation>
    </message>
    <message>
        <source>The archive of that name will be replaced.</source>
        <translation>Das Archiv dieses Namens wird ersetzt.</translation>
    </message>
    <message>
        <source>There is something of that name already.</source>
        <translation>Es gibt schon etwas mit diesem Namen.</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Folder for recordings</source>
        <translation>Ordner für Aufzeichnungen</translation>
    </message>
    <message>
        <source>Recording settings</source>
        <translation>Einstellungen der Aufzeichnung</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> MiB</translation>
    </message>
    <message>
        <source>When the recording is larger, its oldest messages are deleted.</source>
        <translation>Wenn die Aufzeichnung größer ist, werden ihre ältesten Nachrichten gelöscht.</translation>
    </message>
    <message>
        <source> messages</source>
        <translation> Nachrichten</translation>
    </message>
    <message>
        <source>So many messages are in memory before they go to the disk. It holds from the next recording on.</source>
        <translation>So viele Nachrichten sind im Speicher, bevor sie auf den Datenträger kommen. Es gilt ab der nächsten Aufzeichnung.</translation>
    </message>
    <message>
        <source>&amp;Disk budget:</source>
        <translation>Speicher&amp;budget:</translation>
    </message>
    <message>
        <source>In &amp;memory:</source>
        <translation>I&amp;m Arbeitsspeicher:</translation>
    </message>
    <message>
        <source>&amp;Saved into:</source>
        <translation>&amp;Gespeichert in:</translation>
    </message>
</context>
<context>
    <name>ShownTrace</name>
    <message>
        <source>The note on message %1 of %2 was not changed.</source>
        <translation>Die Notiz an Nachricht %1 von %2 wurde nicht geändert.</translation>
    </message>
    <message>
        <source>The bookmark on message %1 of %2 was not changed.</source>
        <translation>Das Lesezeichen an Nachricht %1 von %2 wurde nicht geändert.</translation>
    </message>
</context>
<context>
    <name>Sorting</name>
    <message>
        <source>%1 is not there.</source>
        <translation>%1 ist nicht da.</translation>
    </message>
    <message>
        <source>It may have been moved or renamed, or its disk is not connected.</source>
        <translation>Vielleicht wurde es verschoben oder umbenannt, oder sein Datenträger ist nicht angeschlossen.</translation>
    </message>
    <message>
        <source>%1 is no ordinary file.</source>
        <translation>%1 ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>Copy what it delivers into a file and open that.</source>
        <translation>Kopieren Sie, was es liefert, in eine Datei und öffnen Sie die.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>Ask whoever owns it for the right to read it.</source>
        <translation>Bitten Sie den Eigentümer um das Recht, es zu lesen.</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1 ist leer.</translation>
    </message>
    <message>
        <source>Nothing was recorded into it, or it was not copied completely.</source>
        <translation>Es wurde nichts hineingeschrieben, oder es wurde nicht vollständig kopiert.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be read.</source>
        <translation>Der Ordner %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The folder %1 holds no chunk files.</source>
        <translation>Der Ordner %1 enthält keine Chunk-Dateien.</translation>
    </message>
    <message>
        <source>Choose the traces in it one by one, if there are any.</source>
        <translation>Wählen Sie die Traces darin einzeln, wenn es welche gibt.</translation>
    </message>
    <message>
        <source>There are only line ends in it.</source>
        <translation>Es sind nur Zeilenenden darin.</translation>
    </message>
    <message>
        <source>%1 was not recognised as a trace.</source>
        <translation>%1 wurde nicht als Trace erkannt.</translation>
    </message>
    <message>
        <source>There are no messages in %1.</source>
        <translation>In %1 sind keine Nachrichten.</translation>
    </message>
    <message>
        <source>The recording may have ended before the first message came.</source>
        <translation>Vielleicht endete die Aufzeichnung, bevor die erste Nachricht kam.</translation>
    </message>
    <message>
        <source>Try another copy of it.</source>
        <translation>Versuchen Sie eine andere Kopie davon.</translation>
    </message>
</context>
<context>
    <name>Source</name>
    <message>
        <source>(cannot be read any more)</source>
        <translation>(nicht mehr lesbar)</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>&amp;Line:</source>
        <translation>&amp;Zeile:</translation>
    </message>
    <message>
        <source>Source text of %1</source>
        <translation>Originaltext von %1</translation>
    </message>
</context>
<context>
    <name>SourceReader</name>
    <message>
        <source>The system has no thread left.</source>
        <translation>Das System hat keinen Thread mehr frei.</translation>
    </message>
</context>
<context>
    <name>SourceView</name>
    <message>
        <source>Source text</source>
        <translation>Originaltext</translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines</source>
        <translation>
            <numerusform>%L1 Zeile</numerusform>
            <numerusform>%L1 Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>The file cannot be read: %1. It may have been moved or removed.</source>
        <translation>Die Datei kann nicht gelesen werden: %1. Vielleicht wurde sie verschoben oder entfernt.</translation>
    </message>
    <message>
        <source>Line %L1 is being looked for.</source>
        <translation>Zeile %L1 wird gesucht.</translation>
    </message>
    <message>
        <source>Line %L1 is being looked for: %2 %</source>
        <translation>Zeile %L1 wird gesucht: %2 %</translation>
    </message>
    <message>
        <source>%L1 lines so far, %2 %</source>
        <translation>%L1 Zeilen bis jetzt, %2 %</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>No messages yet</source>
        <translation>Noch keine Nachrichten</translation>
    </message>
    <message>
        <source>Connect to a bus, or drop a trace of any CAN tool into the window.</source>
        <translation>Verbinden Sie einen Bus, oder ziehen Sie einen Trace eines beliebigen CAN-Programms in das Fenster.</translation>
    </message>
</context>
<context>
    <name>StatisticsDock</name>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>&amp;Lines</source>
        <translation>&amp;Kanäle</translation>
    </message>
    <message>
        <source>&amp;Identifiers</source>
        <translation>&amp;Identifier</translation>
    </message>
</context>
<context>
    <name>TableTools</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>TimeAxis</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>TraceActions</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>&amp;Note…</source>
        <translation>&amp;Notiz…</translation>
    </message>
    <message>
        <source>&amp;Bookmark</source>
        <translation>&amp;Lesezeichen</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Ctrl+Shift+T</source>
        <translation>Ctrl+Shift+T</translation>
    </message>
    <message>
        <source>Ctrl+G</source>
        <translation>Ctrl+G</translation>
    </message>
    <message>
        <source>Ctrl+T</source>
        <translation>Ctrl+T</translation>
    </message>
    <message>
        <source>Ctrl+L</source>
        <translation>Ctrl+L</translation>
    </message>
    <message>
        <source>&amp;Follow the end</source>
        <translation>&amp;Dem Ende folgen</translation>
    </message>
    <message>
        <source>Cop&amp;y as candump log</source>
        <translation>Als &amp;candump-Log kopieren</translation>
    </message>
    <message>
        <source>&amp;Select all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Count &amp;times from here</source>
        <translation>&amp;Zeiten ab hier zählen</translation>
    </message>
    <message>
        <source>&amp;Go to number…</source>
        <translation>Gehe zu Nu&amp;mmer…</translation>
    </message>
    <message>
        <source>Go to ti&amp;me…</source>
        <translation>Gehe zu Zei&amp;t…</translation>
    </message>
    <message>
        <source>Only &amp;error frames</source>
        <translation>Nur Erro&amp;r-Frames</translation>
    </message>
    <message>
        <source>&amp;Only this identifier</source>
        <translation>Nur diesen &amp;Identifier</translation>
    </message>
    <message>
        <source>No &amp;error frames</source>
        <translation>Keine Error-&amp;Frames</translation>
    </message>
    <message>
        <source>&amp;Without this identifier</source>
        <translation>&amp;Ohne diesen Identifier</translation>
    </message>
    <message>
        <source>Only this &amp;line</source>
        <translation>Nur &amp;diesen Kanal</translation>
    </message>
    <message>
        <source>Only the same &amp;data</source>
        <translation>Nur gl&amp;eiche Daten</translation>
    </message>
    <message>
        <source>&amp;All messages</source>
        <translation>Alle Nac&amp;hrichten</translation>
    </message>
</context>
<context>
    <name>TraceColumns</name>
    <message>
        <source>&amp;Columns</source>
        <translation>&amp;Spalten</translation>
    </message>
    <message>
        <source>&amp;As at first</source>
        <translation>&amp;Wie am Anfang</translation>
    </message>
</context>
<context>
    <name>TraceOpener</name>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message numerus="yes">
        <source>%n traces more were not opened.</source>
        <translation>
            <numerusform>%n weiterer Trace wurde nicht geöffnet.</numerusform>
            <numerusform>%n weitere Traces wurden nicht geöffnet.</numerusform>
        </translation>
    </message>
    <message>
        <source>Merge them into one file, or open fewer at a time.</source>
        <translation>Führen Sie sie in einer Datei zusammen, oder öffnen Sie weniger auf einmal.</translation>
    </message>
    <message>
        <source>Read as…</source>
        <translation>Lesen als…</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Open one of them alone to learn why.</source>
        <translation>Öffnen Sie eine davon allein, um zu erfahren, warum.</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen…</translation>
    </message>
</context>
<context>
    <name>TraceView</name>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message numerus="yes">
        <source>%n message(s) copied.</source>
        <translation>
            <numerusform>%n Nachricht kopiert.</numerusform>
            <numerusform>%n Nachrichten kopiert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n could not be written this way.</source>
        <translation>
            <numerusform>%n konnte so nicht geschrieben werden.</numerusform>
            <numerusform>%n konnten so nicht geschrieben werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n selected messages were copied.</source>
        <translation>
            <numerusform>Nur die erste ausgewählte Nachricht wurde kopiert (%n).</numerusform>
            <numerusform>Nur die ersten %n ausgewählten Nachrichten wurden kopiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Export the selection to a file to have all of them.</source>
        <translation>Exportieren Sie die Auswahl in eine Datei, um alle zu haben.</translation>
    </message>
    <message>
        <source>Go to number:</source>
        <translation>Gehe zu Nummer:</translation>
    </message>
    <message>
        <source>The number of a message, as in its column</source>
        <translation>Die Nummer einer Nachricht, wie in ihrer Spalte</translation>
    </message>
    <message>
        <source>There is no message with this number.</source>
        <translation>Es gibt keine Nachricht mit dieser Nummer.</translation>
    </message>
    <message>
        <source>Go to time:</source>
        <translation>Gehe zu Zeit:</translation>
    </message>
    <message>
        <source>The trace ends before this time.</source>
        <translation>Der Trace endet vor dieser Zeit.</translation>
    </message>
    <message>
        <source>Message %1</source>
        <translation>Nachricht %1</translation>
    </message>
</context>
<context>
    <name>Writers</name>
    <message>
        <source>Not written: bookmarks (%1).</source>
        <translation>Nicht geschrieben: Lesezeichen (%1).</translation>
    </message>
</context>
<context>
    <name>WritingDesk</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wird geschrieben</translation>
    </message>
    <message>
        <source>Merging into %1</source>
        <translation>Zusammenführen in %1</translation>
    </message>
    <message>
        <source>Converting into %1</source>
        <translation>Konvertieren nach %1</translation>
    </message>
    <message>
        <source>Writing into %1 was cancelled.</source>
        <translation>Das Schreiben nach %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Files that were complete are kept.</source>
        <translation>Dateien, die vollständig waren, bleiben.</translation>
    </message>
    <message>
        <source>%1 was written.</source>
        <translation>%1 wurde geschrieben.</translation>
    </message>
    <message numerus="yes">
        <source>%n files were written into %1.</source>
        <translation>
            <numerusform>%n Datei wurde nach %1 geschrieben.</numerusform>
            <numerusform>%n Dateien wurden nach %1 geschrieben.</numerusform>
        </translation>
    </message>
    <message>
        <source>A chunk file (.dck) keeps everything that can be read.</source>
        <translation>Eine Chunk-Datei (.dck) behält alles, was gelesen werden kann.</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Archives (*.zip)</source>
        <translation>Archive (*.zip)</translation>
    </message>
    <message>
        <source>Packing %1</source>
        <translation>%1 wird gepackt</translation>
    </message>
    <message>
        <source>Packing %1 was cancelled.</source>
        <translation>Das Packen von %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 could not be packed. %2</source>
        <translation>%1 konnte nicht gepackt werden. %2</translation>
    </message>
    <message>
        <source>Choose another place, or make room on the disk.</source>
        <translation>Wählen Sie einen anderen Ort, oder schaffen Sie Platz auf dem Datenträger.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n chunks packed.</source>
        <translation>
            <numerusform>%1: %n Chunk gepackt.</numerusform>
            <numerusform>%1: %n Chunks gepackt.</numerusform>
        </translation>
    </message>
    <message>
        <source>Archives (*.zip);;All files (*)</source>
        <translation>Archive (*.zip);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Unpacking %1</source>
        <translation>%1 wird entpackt</translation>
    </message>
    <message>
        <source>Unpacking %1 was cancelled.</source>
        <translation>Das Entpacken von %1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Nothing of it was kept.</source>
        <translation>Nichts davon wurde behalten.</translation>
    </message>
    <message>
        <source>%1 could not be unpacked. %2</source>
        <translation>%1 konnte nicht entpackt werden. %2</translation>
    </message>
    <message>
        <source>Only archives of chunk files can be unpacked; open others as they are.</source>
        <translation>Nur Archive von Chunk-Dateien können entpackt werden; öffnen Sie andere, wie sie sind.</translation>
    </message>
    <message numerus="yes">
        <source>%n chunks were unpacked into %1.</source>
        <translation>
            <numerusform>%n Chunk wurde nach %1 entpackt.</numerusform>
            <numerusform>%n Chunks wurden nach %1 entpackt.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is missing</source>
        <translation>Was fehlt</translation>
    </message>
    <message>
        <source>Pack into an archive</source>
        <translation>In ein Archiv packen</translation>
    </message>
    <message>
        <source>Archive to unpack</source>
        <translation>Zu entpackendes Archiv</translation>
    </message>
    <message>
        <source>Folder for the chunks of %1</source>
        <translation>Ordner für die Chunks von %1</translation>
    </message>
</context>
</TS>
