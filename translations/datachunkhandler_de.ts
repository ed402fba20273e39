<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ChunkRecovery</name>
    <message>
        <source>The work was interrupted.</source>
        <translation>Die Arbeit wurde unterbrochen.</translation>
    </message>
    <message>
        <source>The chunk is of a newer version.</source>
        <translation>Der Chunk stammt von einer neueren Version.</translation>
    </message>
    <message>
        <source>The chunk is too large.</source>
        <translation>Der Chunk ist zu groß.</translation>
    </message>
    <message>
        <source>What stands in front of its messages is damaged or cut short, so that they cannot be found.</source>
        <translation>Was vor seinen Nachrichten steht, ist beschädigt oder abgeschnitten, sodass sie nicht gefunden werden können.</translation>
    </message>
    <message>
        <source>It ends in nothing but zeros, as a loss of power leaves it.</source>
        <translation>Er endet mit lauter Nullen, wie ein Stromausfall sie hinterlässt.</translation>
    </message>
    <message>
        <source>It ends in the middle of a message.</source>
        <translation>Er endet mitten in einer Nachricht.</translation>
    </message>
    <message>
        <source>Behind the messages kept a length of %1 is claimed, so that nothing more can be found.</source>
        <translation>Hinter den erhaltenen Nachrichten ist eine Länge von %1 angegeben, sodass nichts weiter gefunden werden kann.</translation>
    </message>
    <message>
        <source>It is empty.</source>
        <translation>Er ist leer.</translation>
    </message>
    <message>
        <source>There are no messages in it.</source>
        <translation>Es sind keine Nachrichten darin.</translation>
    </message>
</context>
<context>
    <name>CoCTTImporter</name>
    <message>
        <source>No error.</source>
        <translation>Kein Fehler.</translation>
    </message>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Fehler beim Import in Zeile %1 der Datei %2.</translation>
    </message>
</context>
<context>
    <name>DatachunkHandler</name>
    <message>
        <source>The folder for chunk files is gone.</source>
        <translation>Der Ordner für Chunk-Dateien ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The header of the chunk %1 is damaged; %2.</source>
        <translation>Der Kopf des Chunks %1 ist beschädigt; %2.</translation>
    </message>
    <message>
        <source>The notes or bookmarks of the chunk %1, which begin at byte %2, are damaged or cut short; %3.</source>
        <translation>Die Notizen oder Lesezeichen des Chunks %1, die bei Byte %2 beginnen, sind beschädigt oder abgeschnitten; %3.</translation>
    </message>
    <message>
        <source>The chunk %1 ends in the middle of record %2, which begins at byte %3; %4.</source>
        <translation>Der Chunk %1 endet mitten im Datensatz %2, der bei Byte %3 beginnt; %4.</translation>
    </message>
    <message>
        <source>The chunk %1 is damaged at byte %2, where record %3 claims a length of %4; %5.</source>
        <translation>Der Chunk %1 ist bei Byte %2 beschädigt, wo der Datensatz %3 eine Länge von %4 angibt; %5.</translation>
    </message>
    <message>
        <source>%1 of the archive %2</source>
        <translation>%1 des Archivs %2</translation>
    </message>
    <message>
        <source>The entry %1 cannot be read and was left out.</source>
        <translation>Der Eintrag %1 kann nicht gelesen werden und wurde ausgelassen.</translation>
    </message>
    <message>
        <source>The entry %1 is damaged and cannot be unpacked beyond byte %2; %3.</source>
        <translation>Der Eintrag %1 ist beschädigt und kann nicht über Byte %2 hinaus entpackt werden; %3.</translation>
    </message>
    <message>
        <source>The entry %1 does not match its checksum; %2.</source>
        <translation>Der Eintrag %1 passt nicht zu seiner Prüfsumme; %2.</translation>
    </message>
    <message>
        <source>The entry %1 was left out, because its name cannot be that of a file.</source>
        <translation>Der Eintrag %1 wurde ausgelassen, weil eine Datei nicht so heißen kann.</translation>
    </message>
    <message>
        <source>The directory of the archive %1 is damaged behind entry %2; what follows was left out.</source>
        <translation>Das Verzeichnis des Archivs %1 ist hinter dem Eintrag %2 beschädigt; was folgt, wurde ausgelassen.</translation>
    </message>
    <message>
        <source>The archive %1 has more than %2 entries and is not read.</source>
        <translation>Das Archiv %1 hat mehr als %2 Einträge und wird nicht gelesen.</translation>
    </message>
    <message>
        <source>The archive %1 has chunks with equal starts, of which only one is taken; chunks left out: %2.</source>
        <translation>Das Archiv %1 hat Chunks mit gleichem Beginn, von denen nur einer genommen wird; ausgelassene Chunks: %2.</translation>
    </message>
    <message>
        <source>messages read: %1</source>
        <translation>gelesene Nachrichten: %1</translation>
    </message>
    <message>
        <source>bytes unpacked: %1</source>
        <translation>entpackte Bytes: %1</translation>
    </message>
    <message>
        <source>The archive %1 has more damage like that; entries not named: %2.</source>
        <translation>Das Archiv %1 hat weitere solche Schäden; nicht genannte Einträge: %2.</translation>
    </message>
    <message>
        <source>The file %1 could not be read to its end: %2</source>
        <translation>Die Datei %1 konnte nicht bis zum Ende gelesen werden: %2</translation>
    </message>
    <message>
        <source>The file %1 could not be written: %2</source>
        <translation>Die Datei %1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>There is not enough memory for the file %1.</source>
        <translation>Der Speicher reicht für die Datei %1 nicht aus.</translation>
    </message>
    <message>
        <source>An archive takes at most %1 files.</source>
        <translation>Ein Archiv nimmt höchstens %1 Dateien auf.</translation>
    </message>
    <message>
        <source>File seems to be empty or broken, nothing imported.</source>
        <translation>Die Datei scheint leer oder beschädigt zu sein, nichts wurde importiert.</translation>
    </message>
    <message>
        <source>The archive %1 claims to hold more than can be in it and was not unpacked.</source>
        <translation>Das Archiv %1 gibt mehr Inhalt an, als darin sein kann, und wurde nicht entpackt.</translation>
    </message>
    <message>
        <source>A chunk cannot be written into a pipe.</source>
        <translation>Ein Chunk kann nicht in eine Pipe geschrieben werden.</translation>
    </message>
    <message>
        <source>This import file was created with a newer version of this tool and could not be imported.</source>
        <translation>Diese Importdatei wurde mit einer neueren Version dieses Programms erstellt und konnte nicht importiert werden.</translation>
    </message>
    <message>
        <source>Unknown import error</source>
        <translation>Unbekannter Fehler beim Import</translation>
    </message>
    <message>
        <source>There is no room on the disk to unpack the archive.</source>
        <translation>Auf dem Datenträger ist kein Platz, um das Archiv zu entpacken.</translation>
    </message>
    <message>
        <source>This import file was created with a newer version of this tool and could not be imported.
Going live again.</source>
        <translation>Diese Importdatei wurde mit einer neueren Version dieses Programms erstellt und konnte nicht importiert werden.
Es werden wieder die Live-Nachrichten gezeigt.</translation>
    </message>
    <message>
        <source>The file contains more messages than actually could be importet. 

Please increase the maximum message count. 
Set it under Settings-&gt;Perfomance to a minimum of %1 to import the whole file</source>
        <translation>Die Datei enthält mehr Nachrichten, als importiert werden können.

Bitte erhöhen Sie die größte Anzahl von Nachrichten.
Setzen Sie sie unter Einstellungen-&gt;Leistung auf mindestens %1, um die ganze Datei zu importieren</translation>
    </message>
    <message>
        <source>The folder for chunk files could not be created. Messages beyond the limit are lost.</source>
        <translation>Der Ordner für Chunk-Dateien konnte nicht angelegt werden. Nachrichten über der Grenze gehen verloren.</translation>
    </message>
    <message>
        <source>The file at %1 does not exists.</source>
        <translation>Die Datei %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>The disk takes messages more slowly than they arrive. The oldest ones that waited for it are lost.</source>
        <translation>Der Datenträger nimmt Nachrichten langsamer auf, als sie ankommen. Die ältesten, die auf ihn warteten, sind verloren.</translation>
    </message>
    <message>
        <source>Nothing to export.</source>
        <translation>Es gibt nichts zu exportieren.</translation>
    </message>
    <message>
        <source>No filename specified.</source>
        <translation>Es ist kein Dateiname angegeben.</translation>
    </message>
    <message>
        <source>It is compressed, and its end is missing.</source>
        <translation>Sie ist komprimiert, und ihr Ende fehlt.</translation>
    </message>
    <message>
        <source>It is compressed and damaged.</source>
        <translation>Sie ist komprimiert und beschädigt.</translation>
    </message>
    <message>
        <source>Unpacking it takes more than %1 MiB of memory.</source>
        <translation>Sie zu entpacken braucht mehr als %1 MiB Speicher.</translation>
    </message>
    <message>
        <source>Something else stands behind the end of what is compressed.</source>
        <translation>Hinter dem Ende des Komprimierten steht noch etwas anderes.</translation>
    </message>
    <message>
        <source>The archive %1 holds several files and no chunk. Unpack it first.</source>
        <translation>Das Archiv %1 enthält mehrere Dateien und keinen Chunk. Entpacken Sie es zuerst.</translation>
    </message>
    <message>
        <source>The file in the archive %1 is encrypted or packed in a way that is not known.</source>
        <translation>Die Datei im Archiv %1 ist verschlüsselt oder auf eine Weise gepackt, die nicht bekannt ist.</translation>
    </message>
    <message>
        <source>The file %1 is compressed more than once. Unpack it first.</source>
        <translation>Die Datei %1 ist mehr als einmal komprimiert. Entpacken Sie sie zuerst.</translation>
    </message>
    <message>
        <source>The file %1 holds an archive of several files. Unpack it first.</source>
        <translation>Die Datei %1 enthält ein Archiv mit mehreren Dateien. Entpacken Sie sie zuerst.</translation>
    </message>
    <message>
        <source>It unpacks to more than 1000 times its size.</source>
        <translation>Sie wird entpackt mehr als 1000-mal so groß.</translation>
    </message>
    <message>
        <source>The chunk %1 is still being written. Notes and bookmarks on its messages can be changed when it is complete.</source>
        <translation>Der Chunk %1 wird noch geschrieben. Notizen und Lesezeichen an seinen Nachrichten können geändert werden, wenn er vollständig ist.</translation>
    </message>
    <message>
        <source>The chunk %1 was created with a newer version of this tool, which has to change it.</source>
        <translation>Der Chunk %1 wurde mit einer neueren Version dieses Programms erstellt, die ihn ändern muss.</translation>
    </message>
    <message>
        <source>The chunk %1 is damaged. It has to be repaired before notes and bookmarks on its messages can be changed.</source>
        <translation>Der Chunk %1 ist beschädigt. Er muss repariert werden, bevor Notizen und Lesezeichen an seinen Nachrichten geändert werden können.</translation>
    </message>
    <message>
        <source>The chunk %1 is of an old version, which has no bookmarks. Export it as a new chunk first.</source>
        <translation>Der Chunk %1 ist von einer alten Version, die keine Lesezeichen hat. Exportieren Sie ihn zuerst als neuen Chunk.</translation>
    </message>
    <message>
        <source>The recording has ended, and what was not saved of it is gone.</source>
        <translation>Die Aufzeichnung ist beendet, und was davon nicht gespeichert wurde, ist weg.</translation>
    </message>
    <message>
        <source>This recording keeps no bookmarks on messages in memory. Write a note instead.</source>
        <translation>Diese Aufzeichnung behält keine Lesezeichen an Nachrichten im Speicher. Schreiben Sie stattdessen eine Notiz.</translation>
    </message>
    <message>
        <source>The disk takes its time with the message. Try it again later.</source>
        <translation>Der Datenträger braucht für die Nachricht noch Zeit. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>What is in the archive %1 stays as it is. Unpack the archive and open its chunks to change notes and bookmarks.</source>
        <translation>Was in dem Archiv %1 ist, bleibt, wie es ist. Entpacken Sie das Archiv und öffnen Sie seine Chunks, um Notizen und Lesezeichen zu ändern.</translation>
    </message>
</context>
<context>
    <name>GenericFileImporter</name>
    <message>
        <source>No error.</source>
        <translation>Kein Fehler.</translation>
    </message>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Fehler beim Import in Zeile %1 der Datei %2.</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>header</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>too few fields</source>
        <translation>zu wenige Felder</translation>
    </message>
    <message>
        <source>not the shape of a frame</source>
        <translation>nicht die Form eines Frames</translation>
    </message>
    <message>
        <source>a number that cannot be read</source>
        <translation>eine Zahl, die nicht lesbar ist</translation>
    </message>
    <message>
        <source>a kind of frame that cannot be kept</source>
        <translation>eine Art von Frame, die nicht gespeichert werden kann</translation>
    </message>
    <message>
        <source>behind the end of the trace</source>
        <translation>hinter dem Ende des Traces</translation>
    </message>
    <message>
        <source>longer than a line may be</source>
        <translation>länger, als eine Zeile sein darf</translation>
    </message>
    <message>
        <source>data cut or changed</source>
        <translation>Daten abgeschnitten oder geändert</translation>
    </message>
    <message>
        <source>length changed</source>
        <translation>Länge geändert</translation>
    </message>
    <message>
        <source>identifier changed</source>
        <translation>Identifier geändert</translation>
    </message>
    <message>
        <source>time cut or changed</source>
        <translation>Zeit abgeschnitten oder geändert</translation>
    </message>
</context>
<context>
    <name>IxxatFileImporter</name>
    <message>
        <source>No error.</source>
        <translation>Kein Fehler.</translation>
    </message>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Fehler beim Import in Zeile %1 der Datei %2.</translation>
    </message>
    <message>
        <source>Import error occured. No valid column description found.</source>
        <translation>Fehler beim Import. Es gibt keine gültige Beschreibung der Spalten.</translation>
    </message>
</context>
<context>
    <name>ParquetTrace</name>
    <message>
        <source>The file is no Parquet file.</source>
        <translation>Die Datei ist keine Parquet-Datei.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is not in both, or of another type.</source>
        <translation>Die Spalte „%1“ ist nicht in beiden oder von anderem Typ.</translation>
    </message>
</context>
<context>
    <name>PeakTraceImporter</name>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Fehler beim Import in Zeile %1 der Datei %2.</translation>
    </message>
    <message>
        <source>Import error occured. No valid column description found.</source>
        <translation>Fehler beim Import. Es gibt keine gültige Beschreibung der Spalten.</translation>
    </message>
    <message>
        <source>No error.</source>
        <translation>Kein Fehler.</translation>
    </message>
</context>
<context>
    <name>TraceCheck</name>
    <message>
        <source>Behind message %1 comes message %2: %3 messages are missing.</source>
        <translation>Auf Nachricht %1 folgt Nachricht %2: %3 Nachrichten fehlen.</translation>
    </message>
    <message>
        <source>The time falls from %1 s to %2 s.</source>
        <translation>Die Zeit fällt von %1 s auf %2 s.</translation>
    </message>
    <message>
        <source>The header is damaged or cut short.</source>
        <translation>Der Kopf ist beschädigt oder abgeschnitten.</translation>
    </message>
    <message>
        <source>The chunk is too large to be checked to its end.</source>
        <translation>Der Chunk ist zu groß, um bis zu seinem Ende geprüft zu werden.</translation>
    </message>
    <message>
        <source>The version is no number, so that this may be no chunk.</source>
        <translation>Die Version ist keine Zahl, sodass dies vielleicht kein Chunk ist.</translation>
    </message>
    <message>
        <source>The version %1 is newer than %2 and cannot be checked.</source>
        <translation>Die Version %1 ist neuer als %2 und kann nicht geprüft werden.</translation>
    </message>
    <message>
        <source>The notes or bookmarks are damaged or cut short; nothing behind them can be relied on.</source>
        <translation>Die Notizen oder Lesezeichen sind beschädigt oder abgeschnitten; auf nichts dahinter ist Verlass.</translation>
    </message>
    <message>
        <source>The bookmark on message %1 is damaged.</source>
        <translation>Das Lesezeichen an Nachricht %1 ist beschädigt.</translation>
    </message>
    <message>
        <source>The header names no times.</source>
        <translation>Der Kopf nennt keine Zeiten.</translation>
    </message>
    <message>
        <source>The header names the times %1, but the messages are from %2 to %3.</source>
        <translation>Der Kopf nennt die Zeiten %1, aber die Nachrichten sind von %2 bis %3.</translation>
    </message>
    <message>
        <source>The chunk ends in the middle of this record.</source>
        <translation>Der Chunk endet mitten in diesem Datensatz.</translation>
    </message>
    <message>
        <source>The record claims a length of %1; nothing from here on can be read.</source>
        <translation>Der Datensatz gibt eine Länge von %1 an; von hier an kann nichts gelesen werden.</translation>
    </message>
    <message>
        <source>There are no messages in the chunk.</source>
        <translation>Es sind keine Nachrichten in dem Chunk.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The chunk begins with message %1, but %2 ends with message %3.</source>
        <translation>Der Chunk beginnt mit Nachricht %1, aber %2 endet mit Nachricht %3.</translation>
    </message>
    <message>
        <source>There are %1 more like that.</source>
        <translation>Es gibt %1 weitere dieser Art.</translation>
    </message>
    <message>
        <source>%1 records hold nothing but zeros, as a loss of power leaves them.</source>
        <translation>%1 Datensätze enthalten nichts als Nullen, wie ein Stromausfall sie hinterlässt.</translation>
    </message>
    <message>
        <source>A flag of message %1 is neither 0 nor 1.</source>
        <translation>Ein Flag der Nachricht %1 ist weder 0 noch 1.</translation>
    </message>
    <message>
        <source>The identifier of message %1 has more than 29 bits: %2.</source>
        <translation>Der Identifier der Nachricht %1 hat mehr als 29 Bits: %2.</translation>
    </message>
    <message>
        <source>The fraction of the time of message %1 is %2 microseconds.</source>
        <translation>Der Bruchteil der Zeit der Nachricht %1 ist %2 Mikrosekunden.</translation>
    </message>
    <message>
        <source>Message %1 comes behind message %2.</source>
        <translation>Nachricht %1 kommt hinter Nachricht %2.</translation>
    </message>
    <message>
        <source>no regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>The directory knows an earlier state of the chunk, and nobody goes by it.</source>
        <translation>Das Verzeichnis kennt einen früheren Stand des Chunks, und niemand richtet sich danach.</translation>
    </message>
    <message>
        <source>The directory does not say what the chunk holds.</source>
        <translation>Das Verzeichnis sagt nicht, was der Chunk enthält.</translation>
    </message>
    <message>
        <source>This is no directory that was made by this user on this machine, so that nobody goes by it.</source>
        <translation>Das ist kein Verzeichnis, das dieser Benutzer auf diesem Rechner angelegt hat, sodass sich niemand danach richtet.</translation>
    </message>
    <message>
        <source>The directory is damaged; nobody goes by what is damaged of it.</source>
        <translation>Das Verzeichnis ist beschädigt; nach dem Beschädigten darin richtet sich niemand.</translation>
    </message>
    <message>
        <source>There is no chunk file in the folder.</source>
        <translation>Es gibt keine Chunk-Datei in dem Ordner.</translation>
    </message>
    <message>
        <source>The file is no archive, or its directory is damaged.</source>
        <translation>Die Datei ist kein Archiv, oder sein Verzeichnis ist beschädigt.</translation>
    </message>
    <message>
        <source>There is no chunk file in the archive.</source>
        <translation>Es gibt keine Chunk-Datei in dem Archiv.</translation>
    </message>
    <message>
        <source>The name cannot be that of a file, so that the entry is not unpacked.</source>
        <translation>Eine Datei kann nicht so heißen, sodass der Eintrag nicht entpackt wird.</translation>
    </message>
    <message>
        <source>The entry does not match its checksum.</source>
        <translation>Der Eintrag passt nicht zu seiner Prüfsumme.</translation>
    </message>
    <message>
        <source>The entry is damaged and cannot be unpacked any further.</source>
        <translation>Der Eintrag ist beschädigt und kann nicht weiter entpackt werden.</translation>
    </message>
</context>
<context>
    <name>TraceExport</name>
    <message>
        <source>Left out: CAN FD frames (%1).</source>
        <translation>Ausgelassen: CAN-FD-Frames (%1).</translation>
    </message>
    <message>
        <source>Left out: frames whose identifier has more than 29 bits (%1).</source>
        <translation>Ausgelassen: Frames, deren Identifier mehr als 29 Bits hat (%1).</translation>
    </message>
    <message>
        <source>Not written: the direction of sent messages (%1).</source>
        <translation>Nicht geschrieben: die Richtung gesendeter Nachrichten (%1).</translation>
    </message>
    <message>
        <source>Not written: notes (%1).</source>
        <translation>Nicht geschrieben: Notizen (%1).</translation>
    </message>
    <message>
        <source>Cut: notes longer than the format allows (%1).</source>
        <translation>Abgeschnitten: Notizen, die länger sind, als das Format erlaubt (%1).</translation>
    </message>
    <message>
        <source>Not written: the bus lines of messages (%1).</source>
        <translation>Nicht geschrieben: die Kanäle von Nachrichten (%1).</translation>
    </message>
    <message>
        <source>Not written: the payload of error frames, which tells their type (%1).</source>
        <translation>Nicht geschrieben: die Daten von Error-Frames, die deren Typ nennen (%1).</translation>
    </message>
    <message>
        <source>Written as extended: standard identifiers above 7FF (%1).</source>
        <translation>Als Extended geschrieben: Standard-Identifier über 7FF (%1).</translation>
    </message>
    <message>
        <source>Written as CAN FD: frames of more than 8 bytes without its flag (%1).</source>
        <translation>Als CAN FD geschrieben: Frames von mehr als 8 Bytes ohne dessen Flag (%1).</translation>
    </message>
    <message>
        <source>Written as classic CAN: remote frames with the flag of CAN FD (%1).</source>
        <translation>Als klassisches CAN geschrieben: Remote-Frames mit dem Flag von CAN FD (%1).</translation>
    </message>
    <message>
        <source>Not written: the payload of remote frames (%1).</source>
        <translation>Nicht geschrieben: die Daten von Remote-Frames (%1).</translation>
    </message>
    <message>
        <source>Written with another length: messages whose length no frame has (%1).</source>
        <translation>Mit anderer Länge geschrieben: Nachrichten mit einer Länge, die kein Frame hat (%1).</translation>
    </message>
    <message>
        <source>Not written: flags that the format does not have (%1).</source>
        <translation>Nicht geschrieben: Flags, die das Format nicht hat (%1).</translation>
    </message>
    <message>
        <source>Written with times from the start of the trace: messages with a date (%1).</source>
        <translation>Mit Zeiten ab dem Beginn des Traces geschrieben: Nachrichten mit einem Datum (%1).</translation>
    </message>
    <message>
        <source>Written with another time: messages before the start, out of order, or too late for the format (%1).</source>
        <translation>Mit anderer Zeit geschrieben: Nachrichten vor dem Beginn, außer der Reihe oder zu spät für das Format (%1).</translation>
    </message>
    <message>
        <source>Written without the last digits: times more exact than the format (%1).</source>
        <translation>Ohne die letzten Stellen geschrieben: Zeiten, die genauer sind als das Format (%1).</translation>
    </message>
</context>
<context>
    <name>TraceExpression</name>
    <message>
        <source>An &quot;and&quot; or &quot;or&quot; is missing here.</source>
        <translation>Hier fehlt ein „and“ oder „or“.</translation>
    </message>
    <message>
        <source>Parentheses may be %1 levels deep.</source>
        <translation>Klammern dürfen %1 Ebenen tief sein.</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing here.</source>
        <translation>Hier fehlt eine schließende Klammer.</translation>
    </message>
    <message>
        <source>A condition is missing here.</source>
        <translation>Hier fehlt eine Bedingung.</translation>
    </message>
    <message>
        <source>Bytes are counted from b0 to b63.</source>
        <translation>Bytes werden von b0 bis b63 gezählt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no word of filters.</source>
        <translation>„%1“ ist kein Wort für Filter.</translation>
    </message>
    <message>
        <source>A comparison or a range is missing here.</source>
        <translation>Hier fehlt ein Vergleich oder ein Bereich.</translation>
    </message>
    <message>
        <source>The range ends before it begins.</source>
        <translation>Der Bereich endet, bevor er beginnt.</translation>
    </message>
    <message>
        <source>A ~ and bytes in quotes are missing here.</source>
        <translation>Hier fehlen ein ~ und Bytes in Anführungszeichen.</translation>
    </message>
    <message>
        <source>The text is empty.</source>
        <translation>Der Text ist leer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no hexadecimal number.</source>
        <translation>„%1“ ist keine hexadezimale Zahl.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no decimal number.</source>
        <translation>„%1“ ist keine dezimale Zahl.</translation>
    </message>
    <message>
        <source>A hexadecimal number is missing here.</source>
        <translation>Hier fehlt eine hexadezimale Zahl.</translation>
    </message>
    <message>
        <source>A decimal number is missing here.</source>
        <translation>Hier fehlt eine dezimale Zahl.</translation>
    </message>
    <message>
        <source>A blank behind the sign is not allowed.</source>
        <translation>Hinter dem Vorzeichen ist kein Leerzeichen erlaubt.</translation>
    </message>
    <message>
        <source>A second has at most 6 digits behind the point.</source>
        <translation>Eine Sekunde hat höchstens 6 Stellen hinter dem Punkt.</translation>
    </message>
    <message>
        <source>The highest number here is %1.</source>
        <translation>Die höchste Zahl ist hier %1.</translation>
    </message>
    <message>
        <source>A text in quotes is missing here.</source>
        <translation>Hier fehlt ein Text in Anführungszeichen.</translation>
    </message>
    <message>
        <source>The text that begins here has no quote at its end.</source>
        <translation>Dem Text, der hier beginnt, fehlt das Anführungszeichen am Ende.</translation>
    </message>
    <message>
        <source>Bytes in quotes are missing here.</source>
        <translation>Hier fehlen Bytes in Anführungszeichen.</translation>
    </message>
    <message>
        <source>No message has more than %1 bytes.</source>
        <translation>Keine Nachricht hat mehr als %1 Bytes.</translation>
    </message>
    <message>
        <source>A byte is missing here.</source>
        <translation>Hier fehlt ein Byte.</translation>
    </message>
    <message>
        <source>A quote is missing here.</source>
        <translation>Hier fehlt ein Anführungszeichen.</translation>
    </message>
    <message>
        <source>A byte is two hexadecimal digits, or ? for those that are open.</source>
        <translation>Ein Byte sind zwei hexadezimale Ziffern, oder ? für solche, die offen sind.</translation>
    </message>
    <message>
        <source>A filter has at most %1 characters.</source>
        <translation>Ein Filter hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>A number needs a word in front of it, as in id==%1.</source>
        <translation>Vor einer Zahl muss ein Wort stehen, wie in id==%1.</translation>
    </message>
    <message>
        <source>A comparison for equality has two signs, as in id==1a0.</source>
        <translation>Ein Vergleich auf Gleichheit hat zwei Zeichen, wie in id==1a0.</translation>
    </message>
</context>
<context>
    <name>TraceRecognition</name>
    <message>
        <source>This is a binary log (BLF). Export it as an ASC text and import that.</source>
        <translation>Das ist ein binäres Log (BLF). Exportieren Sie es als ASC-Text und importieren Sie den.</translation>
    </message>
    <message>
        <source>This is a measurement file (MDF). Export its frames as an ASC text and import that.</source>
        <translation>Das ist eine Messdatei (MDF). Exportieren Sie ihre Frames als ASC-Text und importieren Sie den.</translation>
    </message>
    <message>
        <source>This is a packet capture (pcap). Export it as CSV text and import that.</source>
        <translation>Das ist ein Paketmitschnitt (pcap). Exportieren Sie ihn als CSV-Text und importieren Sie den.</translation>
    </message>
    <message>
        <source>This is a packet capture (pcapng). Export it as CSV text and import that.</source>
        <translation>Das ist ein Paketmitschnitt (pcapng). Exportieren Sie ihn als CSV-Text und importieren Sie den.</translation>
    </message>
    <message>
        <source>Line %1 is a frame of the type %2, and %3 of the %4 lines looked at are frames.</source>
        <translation>Zeile %1 ist ein Frame des Typs %2, und %3 der %4 betrachteten Zeilen sind Frames.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Die Datei kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>The name of the file ends as that of a chunk file.</source>
        <translation>Der Name der Datei endet wie der einer Chunk-Datei.</translation>
    </message>
    <message>
        <source>The file begins or is named as a ZIP archive.</source>
        <translation>Die Datei beginnt oder heißt wie ein ZIP-Archiv.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is no text, and of no kind that is known.</source>
        <translation>Die Datei ist kein Text und von keiner Art, die bekannt ist.</translation>
    </message>
    <message>
        <source>None of the lines looked at is a frame of a known format. A text of fields between blanks can be read by describing its layout.</source>
        <translation>Keine der betrachteten Zeilen ist ein Frame eines bekannten Formats. Ein Text aus Feldern zwischen Leerzeichen kann gelesen werden, wenn man seinen Aufbau beschreibt.</translation>
    </message>
    <message>
        <source>The file is compressed (%1).</source>
        <translation>Die Datei ist komprimiert (%1).</translation>
    </message>
</context>
<context>
    <name>TraceTableModel</name>
    <message>
        <source>no longer there</source>
        <translation>nicht mehr da</translation>
    </message>
    <message>
        <source>Tx</source>
        <translation>Tx</translation>
    </message>
    <message>
        <source>Rx</source>
        <translation>Rx</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifier</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
</context>
<context>
    <name>TraceTimeline</name>
    <message>
        <source>The chunk %1 was created with a newer version of this tool; nothing of it is shown.</source>
        <translation>Der Chunk %1 wurde mit einer neueren Version dieses Programms erstellt; nichts davon wird gezeigt.</translation>
    </message>
    <message>
        <source>The chunk %1 is no longer there.</source>
        <translation>Der Chunk %1 ist nicht mehr da.</translation>
    </message>
    <message>
        <source>There is no chunk file %1.</source>
        <translation>Es gibt keine Chunk-Datei %1.</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>Die Nachricht ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The trace is another one by now, and the message not in its place.</source>
        <translation>Der Trace ist inzwischen ein anderer, und die Nachricht nicht mehr an ihrem Platz.</translation>
    </message>
</context>
</TS>
