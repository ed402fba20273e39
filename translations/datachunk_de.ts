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
        <source>Save a trace, or some of its messages, as a chunk file or a text.</source>
        <translation>Speichert einen Trace oder einige seiner Nachrichten als Chunk-Datei oder Text.</translation>
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
        <source>Print at most N messages.</source>
        <translation>Gibt höchstens N Nachrichten aus.</translation>
    </message>
    <message>
        <source>Print only messages of this bus line (0 to 255).</source>
        <translation>Gibt nur Nachrichten dieses Kanals aus (0 bis 255).</translation>
    </message>
    <message>
        <source>Print only messages with this identifier.</source>
        <translation>Gibt nur Nachrichten mit diesem Identifier aus.</translation>
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
        <source>Usage: datachunk COMMAND [options] [arguments]
Records, converts and shows traces of CAN buses.

Commands:
%1
A PATH is a trace of any kind, or a folder of chunk files. Several chunk files,
folders and archives are one trace in order of time; with a text of another
tool among them, all are read one after the other.

&quot;datachunk COMMAND --help&quot; tells the options of a command.
The exit status is 0, 1 when something failed or nothing was found, and 2 for
wrong usage.
</source>
        <translation>Aufruf: datachunk BEFEHL [Optionen] [Argumente]
Zeichnet Traces von CAN-Bussen auf, wandelt und zeigt sie.

Befehle:
%1
Ein PATH ist ein Trace beliebiger Art oder ein Ordner mit Chunk-Dateien. Mehrere
Chunk-Dateien, Ordner und Archive sind ein Trace, nach der Zeit geordnet; ist ein
Text eines anderen Programms darunter, werden alle nacheinander gelesen.

„datachunk BEFEHL --help“ nennt die Optionen eines Befehls.
Der Exit-Status ist 0, 1, wenn etwas fehlschlug oder nichts gefunden wurde, und 2
bei falschem Aufruf.
</translation>
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
        <source>Take only the messages from position A to B, both included; the first message is at 0.</source>
        <translation>Nimmt nur die Nachrichten von Position A bis B, beide eingeschlossen; die erste Nachricht steht bei 0.</translation>
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
        <source>--fd, --bitrate and --data-bitrate need --plugin</source>
        <translation>--fd, --bitrate und --data-bitrate brauchen --plugin</translation>
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
        <source>Message limit of the store, 105000 by default or less for a small budget. A chunk file holds %1 messages less.</source>
        <translation>Nachrichtengrenze des Speichers, sonst 105000 oder weniger bei kleinem Budget. Eine Chunk-Datei enthält %1 Nachrichten weniger.</translation>
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
        <source>%1: %2 messages, %3 messages/s, %4 s</source>
        <translation>%1: %2 Nachrichten, %3 Nachrichten/s, %4 s</translation>
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
        <source>Tell what became of the lines in this form: text or json.</source>
        <translation>Sagt in dieser Form, was aus den Zeilen wurde: text oder json.</translation>
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
</context>
<context>
    <name>DatachunkHandler</name>
    <message>
        <source>The file at %1 does not exists.</source>
        <translation>Die Datei %1 gibt es nicht.</translation>
    </message>
</context>
</TS>
