<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Cli</name>
    <message>
        <source>There is no CAN bus plug-in &quot;%1&quot;. The plug-ins are: %2</source>
        <translation>Es gibt kein CAN-Bus-Plug-in „%1“. Die Plug-ins sind: %2</translation>
    </message>
    <message>
        <source>The CAN interface was disconnected.</source>
        <translation>Die CAN-Schnittstelle wurde getrennt.</translation>
    </message>
    <message>
        <source>The CAN interface failed.</source>
        <translation>Die CAN-Schnittstelle ist ausgefallen.</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>The stream is closed, and candump lines are to come from it.</source>
        <translation>Der Strom ist geschlossen, und candump-Zeilen sollen aus ihm kommen.</translation>
    </message>
    <message>
        <source>Tell the type of each file.</source>
        <translation>Nennt den Typ jeder Datei.</translation>
    </message>
    <message>
        <source>Tell what a trace holds.</source>
        <translation>Sagt, was ein Trace enthält.</translation>
    </message>
    <message>
        <source>Print the messages of a trace, one a line.</source>
        <translation>Gibt die Nachrichten eines Traces aus, eine je Zeile.</translation>
    </message>
    <message>
        <source>Print the messages of a trace that a filter takes.</source>
        <translation>Gibt die Nachrichten eines Traces aus, die ein Filter nimmt.</translation>
    </message>
    <message>
        <source>Tell periods, loads and gaps of the messages of a trace.</source>
        <translation>Nennt Perioden, Lasten und Lücken der Nachrichten eines Traces.</translation>
    </message>
    <message>
        <source>Turn a trace of another tool into numbered chunk files.</source>
        <translation>Macht aus dem Trace eines anderen Programms nummerierte Chunk-Dateien.</translation>
    </message>
    <message>
        <source>Record frames into chunk files: candump lines from standard input, or from a CAN bus plug-in.</source>
        <translation>Zeichnet Frames in Chunk-Dateien auf: candump-Zeilen von der Standardeingabe oder von einem CAN-Bus-Plug-in.</translation>
    </message>
    <message>
        <source>Cut a chunk file into smaller ones, in a folder beside it.</source>
        <translation>Zerlegt eine Chunk-Datei in kleinere, in einem Ordner daneben.</translation>
    </message>
    <message>
        <source>Pack chunk files into a ZIP archive.</source>
        <translation>Packt Chunk-Dateien in ein ZIP-Archiv.</translation>
    </message>
    <message>
        <source>Unpack the chunk files of an archive.</source>
        <translation>Entpackt die Chunk-Dateien eines Archivs.</translation>
    </message>
    <message>
        <source>Join the chunk files of an archive into one file.</source>
        <translation>Fügt die Chunk-Dateien eines Archivs zu einer Datei zusammen.</translation>
    </message>
    <message>
        <source>Tell what a file looks like to the tolerant readers, how sure that is, and which line decided, or what to do with a file that nobody reads.</source>
        <translation>Sagt, wie eine Datei für die toleranten Leser aussieht, wie sicher das ist und welche Zeile entschied, oder was mit einer Datei zu tun ist, die niemand liest.</translation>
    </message>
    <message>
        <source>%1 MiB</source>
        <translation>%1 MiB</translation>
    </message>
    <message>
        <source>Print each message as a JSON object.</source>
        <translation>Gibt jede Nachricht als JSON-Objekt aus.</translation>
    </message>
    <message>
        <source>Begin at this position; the first message is at 0.</source>
        <translation>Beginnt an dieser Position; die erste Nachricht steht bei 0.</translation>
    </message>
    <message>
        <source>Write this file: a chunk file when the name ends in &quot;dck&quot;, a text otherwise. With &quot;-&quot; the text goes to standard output.</source>
        <translation>Schreibt diese Datei: eine Chunk-Datei, wenn der Name auf „dck“ endet, sonst einen Text. Mit „-“ geht der Text auf die Standardausgabe.</translation>
    </message>
    <message>
        <source>Write the notes into a text, too; a chunk file always has them.</source>
        <translation>Schreibt auch in einen Text die Notizen; eine Chunk-Datei hat sie immer.</translation>
    </message>
    <message>
        <source>--to is missing</source>
        <translation>--to fehlt</translation>
    </message>
    <message>
        <source>Nothing to export.</source>
        <translation>Es gibt nichts zu exportieren.</translation>
    </message>
    <message>
        <source>The file could not be written completely.</source>
        <translation>Die Datei konnte nicht vollständig geschrieben werden.</translation>
    </message>
    <message>
        <source>This is a folder, and a file is needed.</source>
        <translation>Das ist ein Ordner, und eine Datei wird gebraucht.</translation>
    </message>
    <message>
        <source>This is a named pipe, and a file is needed.</source>
        <translation>Das ist eine benannte Pipe, und eine Datei wird gebraucht.</translation>
    </message>
    <message>
        <source>This is a device or a socket, and a file is needed.</source>
        <translation>Das ist ein Gerät oder ein Socket, und eine Datei wird gebraucht.</translation>
    </message>
    <message>
        <source>The file is no chunk file.</source>
        <translation>Die Datei ist keine Chunk-Datei.</translation>
    </message>
    <message>
        <source>The file exists already.</source>
        <translation>Die Datei gibt es schon.</translation>
    </message>
    <message>
        <source>This is the file %1, which is to be read.</source>
        <translation>Das ist die Datei %1, die gelesen werden soll.</translation>
    </message>
    <message>
        <source>Standard output goes into this file, which is to be read.</source>
        <translation>Die Standardausgabe geht in diese Datei, die gelesen werden soll.</translation>
    </message>
    <message>
        <source>The filter is wrong in column %1: %2</source>
        <translation>Der Filter ist in Spalte %1 falsch: %2</translation>
    </message>
    <message>
        <source>Print only how many messages are found.</source>
        <translation>Gibt nur aus, wie viele Nachrichten gefunden werden.</translation>
    </message>
    <message>
        <source>Find at most N messages.</source>
        <translation>Findet höchstens N Nachrichten.</translation>
    </message>
    <message>
        <source>Print N messages in front of each as well. Lines then begin with the position and &quot;:&quot; for what is found, &quot;-&quot; for what stands around it.</source>
        <translation>Gibt auch N Nachrichten vor jeder aus. Zeilen beginnen dann mit der Position und „:“ für Gefundenes, „-“ für das, was darum herum steht.</translation>
    </message>
    <message>
        <source>Print N messages behind each as well.</source>
        <translation>Gibt auch N Nachrichten hinter jeder aus.</translation>
    </message>
    <message>
        <source>Print each message as a JSON object with its position.</source>
        <translation>Gibt jede Nachricht als JSON-Objekt mit ihrer Position aus.</translation>
    </message>
    <message>
        <source>The file is a chunk file already.</source>
        <translation>Die Datei ist schon eine Chunk-Datei.</translation>
    </message>
    <message>
        <source>The file is an archive; unpack or merge it.</source>
        <translation>Die Datei ist ein Archiv; benutzen Sie unpack oder merge.</translation>
    </message>
    <message>
        <source>The file could not be imported.</source>
        <translation>Die Datei konnte nicht importiert werden.</translation>
    </message>
    <message>
        <source>Put the chunk files into this folder, which is created if need be.</source>
        <translation>Legt die Chunk-Dateien in diesen Ordner, der bei Bedarf angelegt wird.</translation>
    </message>
    <message>
        <source>Messages per chunk file, 250000 by default.</source>
        <translation>Nachrichten je Chunk-Datei, sonst 250000.</translation>
    </message>
    <message>
        <source>--into is missing</source>
        <translation>--into fehlt</translation>
    </message>
    <message>
        <source>%1 or more</source>
        <translation>%1 oder mehr</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>identifiers</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>FD frames</source>
        <translation>FD-Frames</translation>
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
        <source>notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>became a frame, but does not look like one</source>
        <translation>wurde ein Frame, sieht aber nicht wie einer aus</translation>
    </message>
    <message>
        <source>
%1: %2 (line %3)</source>
        <translation>
%1: %2 (Zeile %3)</translation>
    </message>
    <message>
        <source>%1 lines, %2 frames, %3 notes%4</source>
        <translation>%1 Zeilen, %2 Frames, %3 Notizen%4</translation>
    </message>
    <message>
        <source>; not all of it could be kept:</source>
        <translation>; nicht alles konnte behalten werden:</translation>
    </message>
    <message>
        <source>; nothing was lost.</source>
        <translation>; nichts ging verloren.</translation>
    </message>
    <message>
        <source>left out, %1</source>
        <translation>ausgelassen, %1</translation>
    </message>
    <message>
        <source>Usage: datachunk %1 [options] %2
</source>
        <translation>Aufruf: datachunk %1 [Optionen] %2
</translation>
    </message>
    <message>
        <source>usage: datachunk %1 %2</source>
        <translation>Aufruf: datachunk %1 %2</translation>
    </message>
    <message>
        <source>the name of a file is missing</source>
        <translation>der Name einer Datei fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many</source>
        <translation>„%1“ ist ein Argument zu viel</translation>
    </message>
    <message>
        <source>Print this help.</source>
        <translation>Gibt diese Hilfe aus.</translation>
    </message>
    <message>
        <source>Print the debug lines of the library.</source>
        <translation>Gibt die Debug-Zeilen der Bibliothek aus.</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>ein Befehl fehlt</translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;</source>
        <translation>es gibt keinen Befehl „%1“</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 nimmt eine Zahl von %2 bis %3, nicht „%4“</translation>
    </message>
    <message>
        <source>A name with a backslash cannot be packed.</source>
        <translation>Ein Name mit einem Backslash kann nicht gepackt werden.</translation>
    </message>
    <message>
        <source>The archive would have two files of that name.</source>
        <translation>Das Archiv hätte zwei Dateien dieses Namens.</translation>
    </message>
    <message>
        <source>The folder holds no chunk files.</source>
        <translation>Der Ordner enthält keine Chunk-Dateien.</translation>
    </message>
    <message>
        <source>The archive cannot be written there.</source>
        <translation>Das Archiv kann dort nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The file is no archive, and only an archive is replaced.</source>
        <translation>Die Datei ist kein Archiv, und nur ein Archiv wird ersetzt.</translation>
    </message>
    <message>
        <source>Write this archive; one that is there is replaced when the new one is whole. No other file is.</source>
        <translation>Schreibt dieses Archiv; eines, das schon da ist, wird ersetzt, sobald das neue vollständig ist. Keine andere Datei wird ersetzt.</translation>
    </message>
    <message>
        <source>Take only the messages at these positions.</source>
        <translation>Nimmt nur die Nachrichten an diesen Positionen.</translation>
    </message>
    <message>
        <source>--range and --select exclude each other</source>
        <translation>--range und --select schließen einander aus</translation>
    </message>
    <message>
        <source>--range takes two positions in order, as in 10:19, not &quot;%1&quot;</source>
        <translation>--range nimmt zwei Positionen der Reihe nach, wie in 10:19, nicht „%1“</translation>
    </message>
    <message>
        <source>--select takes positions, as in 1,5,7, not &quot;%1&quot;</source>
        <translation>--select nimmt Positionen, wie in 1,5,7, nicht „%1“</translation>
    </message>
    <message>
        <source>--interface needs --plugin</source>
        <translation>--interface braucht --plugin</translation>
    </message>
    <message>
        <source>--plugin needs --interface</source>
        <translation>--plugin braucht --interface</translation>
    </message>
    <message>
        <source>messages taken:   %1</source>
        <translation>Nachrichten angenommen:  %1</translation>
    </message>
    <message>
        <source>messages stored:  %1</source>
        <translation>Nachrichten gespeichert: %1</translation>
    </message>
    <message>
        <source>messages dropped: %1</source>
        <translation>Nachrichten verworfen:   %1</translation>
    </message>
    <message>
        <source>%1 lines held no frame.</source>
        <translation>%1 Zeilen enthielten keinen Frame.</translation>
    </message>
    <message>
        <source>Record into this folder, which is created if need be.</source>
        <translation>Zeichnet in diesen Ordner auf, der bei Bedarf angelegt wird.</translation>
    </message>
    <message>
        <source>Take the frames from this CAN bus plug-in, such as socketcan.</source>
        <translation>Nimmt die Frames von diesem CAN-Bus-Plug-in, etwa socketcan.</translation>
    </message>
    <message>
        <source>Take the frames from this interface of the plug-in, such as can0.</source>
        <translation>Nimmt die Frames von dieser Schnittstelle des Plug-ins, etwa can0.</translation>
    </message>
    <message>
        <source>Take CAN FD frames, too, as is always done with socketcan.</source>
        <translation>Nimmt auch CAN-FD-Frames, wie immer bei socketcan.</translation>
    </message>
    <message>
        <source>Set the bitrate of the interface, in bit/s.</source>
        <translation>Setzt die Bitrate der Schnittstelle, in bit/s.</translation>
    </message>
    <message>
        <source>Set the bitrate for the data of CAN FD frames, in bit/s.</source>
        <translation>Setzt die Bitrate für die Daten von CAN-FD-Frames, in bit/s.</translation>
    </message>
    <message>
        <source>End the recording when only N MiB of the disk are free; by default 1024, or a tenth of the disk where that is less.</source>
        <translation>Beendet die Aufzeichnung, wenn nur noch N MiB des Datenträgers frei sind; sonst 1024 oder ein Zehntel des Datenträgers, wo das weniger ist.</translation>
    </message>
    <message>
        <source>Keep all files of the recording within N MiB together: the oldest chunk files are deleted. Nothing is deleted by default.</source>
        <translation>Hält alle Dateien der Aufzeichnung zusammen unter N MiB: die ältesten Chunk-Dateien werden gelöscht. Sonst wird nichts gelöscht.</translation>
    </message>
    <message>
        <source>The folder for chunk files could not be created.</source>
        <translation>Der Ordner für Chunk-Dateien konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The messages of one chunk file do not fit into the budget of %1; take a smaller --limit.</source>
        <translation>Die Nachrichten einer Chunk-Datei passen nicht in das Budget von %1; nehmen Sie ein kleineres --limit.</translation>
    </message>
    <message>
        <source>No more than the reserve of %1 is left on the disk, so the recording ends. --reserve sets another one, and --budget has old chunk files deleted.</source>
        <translation>Auf dem Datenträger ist nur noch die Reserve von %1 frei, darum endet die Aufzeichnung. --reserve setzt eine andere, und mit --budget werden alte Chunk-Dateien gelöscht.</translation>
    </message>
    <message>
        <source>The budget of %1 is used up: the oldest chunk files are deleted.</source>
        <translation>Das Budget von %1 ist aufgebraucht: die ältesten Chunk-Dateien werden gelöscht.</translation>
    </message>
    <message>
        <source>Messages are dropped: they come faster than the disk takes them.</source>
        <translation>Nachrichten werden verworfen: sie kommen schneller, als der Datenträger sie aufnimmt.</translation>
    </message>
    <message>
        <source>Not every chunk file was written.</source>
        <translation>Nicht jede Chunk-Datei wurde geschrieben.</translation>
    </message>
    <message>
        <source>The last messages could not be written completely.</source>
        <translation>Die letzten Nachrichten konnten nicht vollständig geschrieben werden.</translation>
    </message>
    <message>
        <source>Somebody else records into this folder.</source>
        <translation>Jemand anderes zeichnet in diesen Ordner auf.</translation>
    </message>
    <message>
        <source>The folder cannot be locked: %1</source>
        <translation>Der Ordner kann nicht gesperrt werden: %1</translation>
    </message>
    <message>
        <source>The folder holds a recording already.</source>
        <translation>Der Ordner enthält schon eine Aufzeichnung.</translation>
    </message>
    <message>
        <source>More than %1 parts are not possible; take --messages %2.</source>
        <translation>Mehr als %1 Teile sind nicht möglich; nehmen Sie --messages %2.</translation>
    </message>
    <message>
        <source>The parts could not be written.</source>
        <translation>Die Teile konnten nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Messages per chunk file.</source>
        <translation>Nachrichten je Chunk-Datei.</translation>
    </message>
    <message>
        <source>--messages is missing</source>
        <translation>--messages fehlt</translation>
    </message>
    <message>
        <source>The folder of the parts exists already.</source>
        <translation>Den Ordner der Teile gibt es schon.</translation>
    </message>
    <message>
        <source>--gap takes seconds from 0 to %1, not &quot;%2&quot;</source>
        <translation>--gap nimmt Sekunden von 0 bis %1, nicht „%2“</translation>
    </message>
    <message>
        <source>--data-bitrate needs --bitrate</source>
        <translation>--data-bitrate braucht --bitrate</translation>
    </message>
    <message>
        <source>Tell the load of each line at N bit/s. Every frame counts with exactly the stuff bits that it has on the bus.</source>
        <translation>Nennt die Last jedes Kanals bei N bit/s. Jeder Frame zählt mit genau den Stopfbits, die er auf dem Bus hat.</translation>
    </message>
    <message>
        <source>The data of CAN FD frames come at N bit/s; otherwise at that of --bitrate.</source>
        <translation>Die Daten von CAN-FD-Frames kommen mit N bit/s, sonst mit denen von --bitrate.</translation>
    </message>
    <message>
        <source>Count pauses of more than S seconds; otherwise of more than 1.</source>
        <translation>Zählt Pausen von mehr als S Sekunden, sonst von mehr als 1.</translation>
    </message>
    <message>
        <source>Print a JSON object, with times in microseconds.</source>
        <translation>Gibt ein JSON-Objekt aus, mit Zeiten in Mikrosekunden.</translation>
    </message>
    <message>
        <source>none over %1 s</source>
        <translation>keine über %1 s</translation>
    </message>
    <message>
        <source>%1 over %2 s, the longest of %3 s in front of position %4 (%5)</source>
        <translation>%1 über %2 s, die längste von %3 s vor Position %4 (%5)</translation>
    </message>
    <message>
        <source>%1 messages</source>
        <translation>%1 Nachrichten</translation>
    </message>
    <message>
        <source>%1 error frames</source>
        <translation>%1 Error-Frames</translation>
    </message>
    <message>
        <source>load %1 %</source>
        <translation>Last %1 %</translation>
    </message>
    <message>
        <source>gaps: %1</source>
        <translation>Lücken: %1</translation>
    </message>
    <message>
        <source>gaps</source>
        <translation>Lücken</translation>
    </message>
    <message>
        <source>times fall</source>
        <translation>Zeit fällt</translation>
    </message>
    <message>
        <source>bus load</source>
        <translation>Buslast</translation>
    </message>
    <message>
        <source>%1 bit/s, data %2 bit/s, with the stuff bits of each frame</source>
        <translation>%1 bit/s, Daten %2 bit/s, mit den Stopfbits jedes Frames</translation>
    </message>
    <message>
        <source>id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>first</source>
        <translation>erste</translation>
    </message>
    <message>
        <source>last</source>
        <translation>letzte</translation>
    </message>
    <message>
        <source>length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>mean ms</source>
        <translation>Mittel ms</translation>
    </message>
    <message>
        <source>least</source>
        <translation>kleinste</translation>
    </message>
    <message>
        <source>most</source>
        <translation>größte</translation>
    </message>
    <message>
        <source>p99</source>
        <translation>p99</translation>
    </message>
    <message>
        <source>jitter</source>
        <translation>Jitter</translation>
    </message>
    <message>
        <source>%1 messages of other identifiers; no more than %2 are told apart</source>
        <translation>%1 Nachrichten anderer Identifier; mehr als %2 werden nicht unterschieden</translation>
    </message>
    <message>
        <source>Stopped by a signal.</source>
        <translation>Durch ein Signal beendet.</translation>
    </message>
    <message>
        <source>Try &quot;datachunk --help&quot; or &quot;datachunk COMMAND --help&quot;.</source>
        <translation>Versuchen Sie „datachunk --help“ oder „datachunk BEFEHL --help“.</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>Read the file as this type instead of the one detected: %1.</source>
        <translation>Liest die Datei als diesen Typ statt als den erkannten: %1.</translation>
    </message>
    <message>
        <source>Read a text of the layout described (type GenericFormat).</source>
        <translation>Liest einen Text des beschriebenen Aufbaus (Typ GenericFormat).</translation>
    </message>
    <message>
        <source>Read texts by the letter, as other programs of this kind do, instead of taking only what has the shape of a frame.</source>
        <translation>Liest Texte nach dem Buchstaben, wie andere Programme dieser Art, statt nur zu nehmen, was die Form eines Frames hat.</translation>
    </message>
    <message>
        <source>Fail when a line was left out or something of a frame was changed.</source>
        <translation>Scheitert, wenn eine Zeile ausgelassen oder an einem Frame etwas geändert wurde.</translation>
    </message>
    <message>
        <source>--report takes text or json, not &quot;%1&quot;</source>
        <translation>--report nimmt text oder json, nicht „%1“</translation>
    </message>
    <message>
        <source>there is no type &quot;%1&quot;; the types are %2</source>
        <translation>es gibt keinen Typ „%1“; die Typen sind %2</translation>
    </message>
    <message>
        <source>--format is for the type GenericFormat, not for %1</source>
        <translation>--format ist für den Typ GenericFormat, nicht für %1</translation>
    </message>
    <message>
        <source>the type GenericFormat needs --format</source>
        <translation>der Typ GenericFormat braucht --format</translation>
    </message>
    <message>
        <source>The type of the file is unknown.</source>
        <translation>Der Typ der Datei ist unbekannt.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>Files of type %1 cannot be read.</source>
        <translation>Dateien des Typs %1 können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 paths</source>
        <translation>%1 Pfade</translation>
    </message>
    <message>
        <source>There are no messages.</source>
        <translation>Es gibt keine Nachrichten.</translation>
    </message>
    <message>
        <source>%1 messages are no longer there.</source>
        <translation>%1 Nachrichten sind nicht mehr da.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>The folder could not be created.</source>
        <translation>Der Ordner konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>There is no place for temporary files: %1</source>
        <translation>Es gibt keinen Platz für temporäre Dateien: %1</translation>
    </message>
    <message>
        <source>The receive buffer of the CAN controller ran over.</source>
        <translation>Der Empfangspuffer des CAN-Controllers lief über.</translation>
    </message>
    <message>
        <source>The CAN interface is back, and the recording goes on.</source>
        <translation>Die CAN-Schnittstelle ist wieder da, und die Aufzeichnung geht weiter.</translation>
    </message>
    <message>
        <source>%1 The recording goes on when the interface is back.</source>
        <translation>%1 Die Aufzeichnung geht weiter, wenn die Schnittstelle wieder da ist.</translation>
    </message>
    <message>
        <source>The CAN interface went down or was unplugged.</source>
        <translation>Die CAN-Schnittstelle wurde abgeschaltet oder abgezogen.</translation>
    </message>
    <message>
        <source>candump has dropped %1 frames.</source>
        <translation>candump hat %1 Frames verworfen.</translation>
    </message>
    <message>
        <source>the type of each file</source>
        <translation>der Typ jeder Datei</translation>
    </message>
    <message>
        <source>why, and which line decided</source>
        <translation>warum, und welche Zeile entschied</translation>
    </message>
    <message>
        <source>what a log of another tool holds</source>
        <translation>was ein Log eines anderen Programms enthält</translation>
    </message>
    <message>
        <source>a folder and an archive as one trace</source>
        <translation>ein Ordner und ein Archiv als ein Trace</translation>
    </message>
    <message>
        <source>the first 20 messages of an identifier</source>
        <translation>die ersten 20 Nachrichten eines Identifiers</translation>
    </message>
    <message>
        <source>every message as an object</source>
        <translation>jede Nachricht als Objekt</translation>
    </message>
    <message>
        <source>with the two messages in front of each</source>
        <translation>mit den zwei Nachrichten vor jeder</translation>
    </message>
    <message>
        <source>only how many there are</source>
        <translation>nur, wie viele es sind</translation>
    </message>
    <message>
        <source>periods, gaps and the load of the bus</source>
        <translation>Perioden, Lücken und die Buslast</translation>
    </message>
    <message>
        <source>with every pause above 0.2 s, as an object</source>
        <translation>mit jeder Pause über 0,2 s, als Objekt</translation>
    </message>
    <message>
        <source>Save a trace, or some of its messages, in another format.</source>
        <translation>Speichert einen Trace oder einige seiner Nachrichten in einem anderen Format.</translation>
    </message>
    <message>
        <source>100 messages as a text</source>
        <translation>100 Nachrichten als Text</translation>
    </message>
    <message>
        <source>Write traces, merged by time, in the format of another tool.</source>
        <translation>Schreibt Traces, nach der Zeit zusammengeführt, im Format eines anderen Programms.</translation>
    </message>
    <message>
        <source>two traces as one, for Wireshark</source>
        <translation>zwei Traces als einer, für Wireshark</translation>
    </message>
    <message>
        <source>each file for itself</source>
        <translation>jede Datei für sich</translation>
    </message>
    <message>
        <source>any trace as chunk files</source>
        <translation>ein beliebiger Trace als Chunk-Dateien</translation>
    </message>
    <message>
        <source>small chunks, and nothing left out</source>
        <translation>kleine Chunks, und nichts ausgelassen</translation>
    </message>
    <message>
        <source>until Ctrl-C</source>
        <translation>bis Strg-C</translation>
    </message>
    <message>
        <source>candump lines from standard input; the newest 4000 MiB stay</source>
        <translation>candump-Zeilen von der Standardeingabe; die neuesten 4000 MiB bleiben</translation>
    </message>
    <message>
        <source>into a folder beside the file</source>
        <translation>in einen Ordner neben der Datei</translation>
    </message>
    <message>
        <source>fewer and larger parts</source>
        <translation>weniger und größere Teile</translation>
    </message>
    <message>
        <source>a whole recording in one file</source>
        <translation>eine ganze Aufzeichnung in einer Datei</translation>
    </message>
    <message>
        <source>some of its chunks</source>
        <translation>einige ihrer Chunks</translation>
    </message>
    <message>
        <source>the chunks of an archive</source>
        <translation>die Chunks eines Archivs</translation>
    </message>
    <message>
        <source>the folder is made if need be</source>
        <translation>der Ordner wird bei Bedarf angelegt</translation>
    </message>
    <message>
        <source>all chunks as one</source>
        <translation>alle Chunks als einer</translation>
    </message>
    <message>
        <source>as a text on standard output</source>
        <translation>als Text auf der Standardausgabe</translation>
    </message>
    <message>
        <source>Check chunk files, folders of them and archives for damage.</source>
        <translation>Prüft Chunk-Dateien, Ordner mit solchen und Archive auf Schäden.</translation>
    </message>
    <message>
        <source>one line for each finding</source>
        <translation>eine Zeile für jeden Befund</translation>
    </message>
    <message>
        <source>an object for each finding</source>
        <translation>ein Objekt für jeden Befund</translation>
    </message>
    <message>
        <source>Save the chunk files that a killed application left behind.</source>
        <translation>Rettet die Chunk-Dateien, die ein abgebrochenes Programm hinterlassen hat.</translation>
    </message>
    <message>
        <source>what stores have left in the usual place</source>
        <translation>was Speicher am üblichen Ort hinterlassen haben</translation>
    </message>
    <message>
        <source>whole records are kept, the source stays as it is</source>
        <translation>ganze Datensätze bleiben erhalten, die Quelle bleibt, wie sie ist</translation>
    </message>
    <message>
        <source>A chunk file is not written from front to back and cannot go there.</source>
        <translation>Eine Chunk-Datei wird nicht von vorn nach hinten geschrieben und kann nicht dorthin gehen.</translation>
    </message>
    <message>
        <source>This is a terminal, and the format is not for one.</source>
        <translation>Das ist ein Terminal, und das Format ist nicht für eines gedacht.</translation>
    </message>
    <message>
        <source>--times takes absolute or delta, not &quot;%1&quot;</source>
        <translation>--times nimmt absolute oder delta, nicht „%1“</translation>
    </message>
    <message>
        <source>there is no format &quot;%1&quot;; the formats are %2</source>
        <translation>es gibt kein Format „%1“; die Formate sind %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in the name of a format; tell it with --as: %2</source>
        <translation>„%1“ endet nicht mit dem Namen eines Formats; geben Sie es mit --as an: %2</translation>
    </message>
    <message>
        <source>Write this format instead of the one that the name ends in: %1.</source>
        <translation>Schreibt dieses Format statt dessen, auf das der Name endet: %1.</translation>
    </message>
    <message>
        <source>Write times as absolute ones, or as delta to the message before, where the format knows both (asc, candump-screen).</source>
        <translation>Schreibt Zeiten absolut (absolute) oder als Abstand zur Nachricht davor (delta), wo das Format beides kennt (asc, candump-screen).</translation>
    </message>
    <message>
        <source>Write the notes into a text (txt), too; all other formats that can have them, do.</source>
        <translation>Schreibt die Notizen auch in einen Text (txt); alle anderen Formate, die welche haben können, haben sie immer.</translation>
    </message>
    <message>
        <source>, %1 left out</source>
        <translation>, %1 ausgelassen</translation>
    </message>
    <message>
        <source>Not written: bookmarks (%1).</source>
        <translation>Nicht geschrieben: Lesezeichen (%1).</translation>
    </message>
    <message>
        <source>%1; the format %2 cannot say all:</source>
        <translation>%1; das Format %2 kann nicht alles sagen:</translation>
    </message>
    <message>
        <source>--to and --into exclude each other</source>
        <translation>--to und --into schließen einander aus</translation>
    </message>
    <message>
        <source>--into needs --as</source>
        <translation>--into braucht --as</translation>
    </message>
    <message>
        <source>the name of the file to write is missing</source>
        <translation>der Name der Datei, die geschrieben werden soll, fehlt</translation>
    </message>
    <message>
        <source>At most %1 traces are merged at a time. Chunk files in a folder are one: name the folder.</source>
        <translation>Höchstens %1 Traces werden auf einmal zusammengeführt. Chunk-Dateien in einem Ordner zählen als einer: nennen Sie den Ordner.</translation>
    </message>
    <message>
        <source>Write this file, so that all arguments are traces to read. With &quot;-&quot; it goes to standard output.</source>
        <translation>Schreibt diese Datei, sodass alle Argumente Traces sind, die gelesen werden. Mit „-“ geht sie auf die Standardausgabe.</translation>
    </message>
    <message>
        <source>Write a file for each trace into this folder, in the format of --as.</source>
        <translation>Schreibt für jeden Trace eine Datei in diesen Ordner, im Format von --as.</translation>
    </message>
    <message>
        <source>Write this file, in the format that its name ends in, or as a text. With &quot;-&quot; it goes to standard output.</source>
        <translation>Schreibt diese Datei in dem Format, auf das ihr Name endet, sonst als Text. Mit „-“ geht sie auf die Standardausgabe.</translation>
    </message>
    <message>
        <source>Trigger &quot;%1&quot; at %2.</source>
        <translation>Trigger „%1“ bei %2.</translation>
    </message>
    <message>
        <source>Messages in front of this one are missing: the ring was too small.</source>
        <translation>Vor dieser Nachricht fehlen welche: der Ring war zu klein.</translation>
    </message>
    <message>
        <source>The folder cannot be read.</source>
        <translation>Der Ordner kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Records, converts and shows traces of CAN buses.</source>
        <translation>Zeichnet Traces von CAN-Bussen auf, wandelt sie um und zeigt sie.</translation>
    </message>
    <message>
        <source>A PATH is a trace of any kind, or a folder of chunk files. Several chunk files,
folders and archives are one trace in order of time; with a text of another
tool among them, all are read one after the other.</source>
        <translation>Ein PATH ist ein Trace beliebiger Art oder ein Ordner mit Chunk-Dateien. Mehrere
Chunk-Dateien, Ordner und Archive sind ein Trace in der Reihenfolge der Zeit; mit
einem Text eines anderen Programms darunter werden alle nacheinander gelesen.</translation>
    </message>
    <message>
        <source>The exit status is 0, 1 when something failed or nothing was found, and 2 for
wrong usage.</source>
        <translation>Der Exit-Status ist 0, 1, wenn etwas fehlschlug oder nichts gefunden wurde, und 2
bei falscher Benutzung.</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>Tell failures and losses only, not how the work goes on.</source>
        <translation>Nennt nur Fehler und Verluste, nicht, wie die Arbeit vorangeht.</translation>
    </message>
    <message>
        <source>Usage: datachunk COMMAND [options] [arguments]
</source>
        <translation>Aufruf: datachunk BEFEHL [Optionen] [Argumente]
</translation>
    </message>
    <message>
        <source>

Commands:
</source>
        <translation>

Befehle:
</translation>
    </message>
    <message>
        <source>

&quot;datachunk COMMAND --help&quot; tells the options of a command, and
&quot;datachunk --version&quot; the version. &quot;datachunk --man&quot; prints a manual page,
&quot;datachunk --completion&quot; a script that has bash complete what is typed.
</source>
        <translation>

„datachunk BEFEHL --help“ nennt die Optionen eines Befehls und
„datachunk --version“ die Version. „datachunk --man“ gibt eine Handbuchseite aus,
„datachunk --completion“ ein Skript, mit dem bash ergänzt, was getippt wird.
</translation>
    </message>
    <message>
        <source>
Examples:
</source>
        <translation>
Beispiele:
</translation>
    </message>
    <message>
        <source>records, converts and shows traces of CAN buses</source>
        <translation>zeichnet Traces von CAN-Bussen auf, wandelt sie um und zeigt sie</translation>
    </message>
    <message>
        <source>Where it is set to anything, no colours are used.</source>
        <translation>Wo es auf irgendetwas gesetzt ist, werden keine Farben benutzt.</translation>
    </message>
    <message>
        <source>Where files without a name are put while archives are read; /tmp otherwise.</source>
        <translation>Wohin Dateien ohne Namen kommen, während Archive gelesen werden; sonst /tmp.</translation>
    </message>
    <message>
        <source>Its times do not count from 1970, as those of %1 do, so that the order of both means little.</source>
        <translation>Seine Zeiten zählen nicht ab 1970, anders als die von %1, sodass die Reihenfolge der beiden wenig bedeutet.</translation>
    </message>
    <message>
        <source>The system has no thread left for this trace.</source>
        <translation>Das System hat keinen Thread mehr für diesen Trace.</translation>
    </message>
    <message>
        <source>--%1 takes a value from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 nimmt einen Wert von %2 bis %3, nicht „%4“</translation>
    </message>
    <message>
        <source>not asked for:    %1</source>
        <translation>nicht verlangt:          %1</translation>
    </message>
    <message>
        <source>captures:         %1</source>
        <translation>Mitschnitte:             %1</translation>
    </message>
    <message>
        <source>gaps:             %1</source>
        <translation>Lücken:                  %1</translation>
    </message>
    <message>
        <source>%1 messages taken, %2 gaps, into %3</source>
        <translation>%1 Nachrichten angenommen, %2 Lücken, nach %3</translation>
    </message>
    <message>
        <source>Messages are dropped: the ring is too small for all that comes in the time before a trigger. --ring sets another size.</source>
        <translation>Nachrichten werden verworfen: der Ring ist zu klein für alles, was in der Zeit vor einem Trigger kommt. --ring setzt eine andere Größe.</translation>
    </message>
    <message>
        <source>Gap: %1 messages came faster than the disk took them.</source>
        <translation>Lücke: %1 Nachrichten kamen schneller, als der Datenträger sie aufnahm.</translation>
    </message>
    <message>
        <source>Further gaps are noted in the recording only.</source>
        <translation>Weitere Lücken werden nur in der Aufzeichnung vermerkt.</translation>
    </message>
    <message>
        <source>Gap: %1</source>
        <translation>Lücke: %1</translation>
    </message>
    <message>
        <source>The folder holds chunks of a recording that was killed; &quot;datachunk recover&quot; saves them.</source>
        <translation>Der Ordner enthält Chunks einer abgebrochenen Aufzeichnung; „datachunk recover“ rettet sie.</translation>
    </message>
    <message>
        <source>--fd, --bitrate, --data-bitrate and --retry need --plugin</source>
        <translation>--fd, --bitrate, --data-bitrate und --retry brauchen --plugin</translation>
    </message>
    <message>
        <source>--before, --after and --ring need --trigger</source>
        <translation>--before, --after und --ring brauchen --trigger</translation>
    </message>
    <message>
        <source>Try every so often, such as 5s, to get an interface back that fails or goes away, in place of ending the recording.</source>
        <translation>Versucht in diesem Abstand, etwa 5s, eine Schnittstelle wiederzubekommen, die ausfällt oder verschwindet, statt die Aufzeichnung zu beenden.</translation>
    </message>
    <message>
        <source>Record only the messages that this filter takes.</source>
        <translation>Zeichnet nur die Nachrichten auf, die dieser Filter nimmt.</translation>
    </message>
    <message>
        <source>Record only around the messages that this filter takes.</source>
        <translation>Zeichnet nur im Umfeld der Nachrichten auf, die dieser Filter nimmt.</translation>
    </message>
    <message>
        <source>Record what came up to this time before a trigger: 500ms, 60s, 5min, 1h; a plain number is seconds.</source>
        <translation>Zeichnet auf, was bis zu dieser Zeit vor einem Trigger kam: 500ms, 60s, 5min, 1h; eine bloße Zahl sind Sekunden.</translation>
    </message>
    <message>
        <source>The same behind a trigger.</source>
        <translation>Dasselbe nach einem Trigger.</translation>
    </message>
    <message>
        <source>Memory for the messages in front of a trigger, 128MiB by default.</source>
        <translation>Speicher für die Nachrichten vor einem Trigger, sonst 128MiB.</translation>
    </message>
    <message>
        <source>Message limit of the store, 105000 by default, less for a small budget and more with --size or --every. A chunk file holds %1 messages less.</source>
        <translation>Größte Anzahl von Nachrichten im Speicher, sonst 105000, weniger bei kleinem Budget und mehr mit --size oder --every. Eine Chunk-Datei enthält %1 Nachrichten weniger.</translation>
    </message>
    <message>
        <source>End a chunk file before it gets larger: 64KiB, 100MiB; a plain number is MiB.</source>
        <translation>Beendet eine Chunk-Datei, bevor sie größer wird: 64KiB, 100MiB; eine bloße Zahl sind MiB.</translation>
    </message>
    <message>
        <source>End a chunk file when the clock reaches a multiple of this time: 30s, 10min, 1h; a plain number is seconds.</source>
        <translation>Beendet eine Chunk-Datei, wenn die Uhr ein Vielfaches dieser Zeit erreicht: 30s, 10min, 1h; eine bloße Zahl sind Sekunden.</translation>
    </message>
    <message>
        <source>Record into a new folder inside, named after the date and time.</source>
        <translation>Zeichnet in einen neuen Ordner darin auf, der nach Datum und Uhrzeit heißt.</translation>
    </message>
    <message>
        <source>Somebody works in this folder, so it is left alone.</source>
        <translation>Jemand arbeitet in diesem Ordner, darum bleibt er unberührt.</translation>
    </message>
    <message>
        <source>It does not follow the chunks in front of it.</source>
        <translation>Er schließt nicht an die Chunks davor an.</translation>
    </message>
    <message>
        <source>It does not follow the chunks in front of it and is now %1.</source>
        <translation>Er schließt nicht an die Chunks davor an und ist jetzt %1.</translation>
    </message>
    <message>
        <source>%1 messages in front of it are missing.</source>
        <translation>%1 Nachrichten davor fehlen.</translation>
    </message>
    <message>
        <source>%1: %2 messages kept</source>
        <translation>%1: %2 Nachrichten erhalten</translation>
    </message>
    <message>
        <source>, %1 bytes trimmed</source>
        <translation>, %1 Bytes abgeschnitten</translation>
    </message>
    <message>
        <source>The folder lies in %1, which is to be left as it is.</source>
        <translation>Der Ordner liegt in %1, das bleiben soll, wie es ist.</translation>
    </message>
    <message>
        <source>There is no chunk file.</source>
        <translation>Es gibt keine Chunk-Datei.</translation>
    </message>
    <message>
        <source>%1: in use</source>
        <translation>%1: in Gebrauch</translation>
    </message>
    <message>
        <source>%1: left behind, %2 chunk files, %3 bytes</source>
        <translation>%1: hinterlassen, %2 Chunk-Dateien, %3 Bytes</translation>
    </message>
    <message>
        <source>Put the chunk files into this folder, which is created if need be; those of several folders into folders below.</source>
        <translation>Legt die Chunk-Dateien in diesen Ordner, der bei Bedarf angelegt wird, die mehrerer Ordner in Ordner darunter.</translation>
    </message>
    <message>
        <source>Tell what there is instead; without a path, what applications have left in the data location of their user.</source>
        <translation>Nennt stattdessen, was es gibt; ohne Pfad das, was Programme am Datenort ihres Benutzers hinterlassen haben.</translation>
    </message>
    <message>
        <source>--list and --into do not go together</source>
        <translation>--list und --into passen nicht zusammen</translation>
    </message>
    <message>
        <source>the name of a file or folder is missing</source>
        <translation>der Name einer Datei oder eines Ordners fehlt</translation>
    </message>
    <message>
        <source>--id takes a number from 0 to ffffffff, or several as in 1a0,200..2ff, not &quot;%1&quot;</source>
        <translation>--id nimmt eine Zahl von 0 bis ffffffff, oder mehrere wie in 1a0,200..2ff, nicht „%1“</translation>
    </message>
    <message>
        <source>--line takes a number from 0 to 255, or several as in 1,3..5, not &quot;%1&quot;</source>
        <translation>--line nimmt eine Zahl von 0 bis 255, oder mehrere wie in 1,3..5, nicht „%1“</translation>
    </message>
    <message>
        <source>--time takes two times in order, as in 12.5..13, 2026-11-22T10:15:00..2026-11-22T10:20:00 or 10:15:00.., not &quot;%1&quot;</source>
        <translation>--time nimmt zwei Zeiten der Reihe nach, wie in 12.5..13, 2026-11-22T10:15:00..2026-11-22T10:20:00 oder 10:15:00.., nicht „%1“</translation>
    </message>
    <message>
        <source>End with the message at this position.</source>
        <translation>Endet mit der Nachricht an dieser Position.</translation>
    </message>
    <message>
        <source>Take at most N messages.</source>
        <translation>Nimmt höchstens N Nachrichten.</translation>
    </message>
    <message>
        <source>Take only the messages from position A to B, both included.</source>
        <translation>Nimmt nur die Nachrichten von Position A bis B, beide eingeschlossen.</translation>
    </message>
    <message>
        <source>Take only messages from time A to B, both included: seconds, dates in UTC (2026-11-22T10:15:00) or times of day (10:15:00); one may be left out.</source>
        <translation>Nimmt nur Nachrichten von Zeit A bis B, beide eingeschlossen: Sekunden, Daten in UTC (2026-11-22T10:15:00) oder Uhrzeiten (10:15:00); eine kann fehlen.</translation>
    </message>
    <message>
        <source>Take only messages of these bus lines (0 to 255), as in 1,3..5.</source>
        <translation>Nimmt nur Nachrichten dieser Kanäle (0 bis 255), wie in 1,3..5.</translation>
    </message>
    <message>
        <source>Take only messages with these identifiers, as in 1a0,200..2ff.</source>
        <translation>Nimmt nur Nachrichten mit diesen Identifiern, wie in 1a0,200..2ff.</translation>
    </message>
    <message>
        <source>Take only messages that this filter takes, as &quot;find&quot; has it.</source>
        <translation>Nimmt nur Nachrichten, die dieser Filter nimmt, wie bei „find“.</translation>
    </message>
    <message>
        <source>This has to be read twice, which standard input cannot be.</source>
        <translation>Das muss zweimal gelesen werden, und das geht mit der Standardeingabe nicht.</translation>
    </message>
    <message>
        <source>Stopped by a signal after %1 messages.</source>
        <translation>Nach %1 Nachrichten durch ein Signal beendet.</translation>
    </message>
    <message>
        <source>, %1 %, %2 s left</source>
        <translation>, %1 %, noch %2 s</translation>
    </message>
    <message>
        <source>%1 messages, %2 messages/s, </source>
        <translation>%1 Nachrichten, %2 Nachrichten/s, </translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Tell what became of the lines in this form.</source>
        <translation>Nennt in dieser Form, was aus den Zeilen wurde.</translation>
    </message>
    <message>
        <source>Only plain texts can be read from there, not chunk files, archives and compressed traces. Give the name of the file.</source>
        <translation>Von dort können nur einfache Texte gelesen werden, keine Chunk-Dateien, Archive und komprimierten Traces. Geben Sie den Namen der Datei an.</translation>
    </message>
    <message>
        <source>It can be read only once.</source>
        <translation>Sie kann nur einmal gelesen werden.</translation>
    </message>
    <message>
        <source>%1: remark: %2</source>
        <translation>%1: Hinweis: %2</translation>
    </message>
    <message>
        <source>Only chunk files, folders of them and archives can be verified: a trace of another tool does not tell what it should hold.</source>
        <translation>Nur Chunk-Dateien, Ordner mit solchen und Archive können geprüft werden: der Trace eines anderen Programms sagt nicht, was er enthalten soll.</translation>
    </message>
    <message>
        <source>%1 chunks, %2 messages: nothing found.</source>
        <translation>%1 Chunks, %2 Nachrichten: nichts gefunden.</translation>
    </message>
    <message>
        <source>%1 chunks, %2 messages: %3 errors, %4 remarks.</source>
        <translation>%1 Chunks, %2 Nachrichten: %3 Fehler, %4 Hinweise.</translation>
    </message>
    <message>
        <source>Print a JSON object for each finding.</source>
        <translation>Gibt für jeden Befund ein JSON-Objekt aus.</translation>
    </message>
    <message>
        <source>Parquet files in folders by source and day</source>
        <translation>Parquet-Dateien in Ordnern nach Quelle und Tag</translation>
    </message>
    <message>
        <source>Write a data set into this folder, as --partition says; several traces are taken then.</source>
        <translation>Schreibt einen Datensatz in diesen Ordner, wie --partition sagt; dann werden mehrere Traces genommen.</translation>
    </message>
    <message>
        <source>without --partition only one trace is taken</source>
        <translation>ohne --partition wird nur ein Trace genommen</translation>
    </message>
    <message>
        <source>The data set is not divided by %1.</source>
        <translation>Der Datensatz ist nicht nach %1 geteilt.</translation>
    </message>
    <message>
        <source>There is another data set.</source>
        <translation>Dort liegt ein anderer Datensatz.</translation>
    </message>
    <message>
        <source>Its times jump between too many days.</source>
        <translation>Seine Zeiten springen zwischen zu vielen Tagen.</translation>
    </message>
    <message>
        <source>--partition goes with --into, not with --to</source>
        <translation>--partition gehört zu --into, nicht zu --to</translation>
    </message>
    <message>
        <source>--partition is for Parquet alone</source>
        <translation>--partition gibt es nur für Parquet</translation>
    </message>
    <message>
        <source>Write a Parquet data set into the folder of --into: each trace for itself, in folders by these keys, source or source=NAME and date, with commas between.</source>
        <translation>Schreibt einen Parquet-Datensatz in den Ordner von --into: jeden Trace für sich, in Ordnern nach diesen Schlüsseln, source oder source=NAME und date, mit Kommas dazwischen.</translation>
    </message>
    <message>
        <source>--partition takes source, source=NAME and date, with commas between, not &quot;%1&quot;</source>
        <translation>--partition nimmt source, source=NAME und date, mit Kommas dazwischen, nicht „%1“</translation>
    </message>
</context>
<context>
    <name>DatachunkHandler</name>
    <message>
        <source>The file at %1 does not exists.</source>
        <translation>Die Datei %1 gibt es nicht.</translation>
    </message>
</context>
</TS>
