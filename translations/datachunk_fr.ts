<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Cli</name>
    <message>
        <source>There is no CAN bus plug-in &quot;%1&quot;. The plug-ins are: %2</source>
        <translation>Il n’y a pas de greffon de bus CAN « %1 ». Les greffons sont : %2</translation>
    </message>
    <message>
        <source>The CAN interface was disconnected.</source>
        <translation>L’interface CAN a été déconnectée.</translation>
    </message>
    <message>
        <source>The CAN interface failed.</source>
        <translation>L’interface CAN a échoué.</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrée standard</translation>
    </message>
    <message>
        <source>The stream is closed, and candump lines are to come from it.</source>
        <translation>Le flux est fermé, alors que des lignes candump doivent en venir.</translation>
    </message>
    <message>
        <source>Tell the type of each file.</source>
        <translation>Indique le type de chaque fichier.</translation>
    </message>
    <message>
        <source>Tell what a trace holds.</source>
        <translation>Indique ce que contient une trace.</translation>
    </message>
    <message>
        <source>Print the messages of a trace, one a line.</source>
        <translation>Affiche les messages d’une trace, un par ligne.</translation>
    </message>
    <message>
        <source>Print the messages of a trace that a filter takes.</source>
        <translation>Affiche les messages d’une trace que retient un filtre.</translation>
    </message>
    <message>
        <source>Tell periods, loads and gaps of the messages of a trace.</source>
        <translation>Indique périodes, charges et lacunes des messages d’une trace.</translation>
    </message>
    <message>
        <source>Save a trace, or some of its messages, as a chunk file or a text.</source>
        <translation>Enregistre une trace, ou certains de ses messages, en fichier chunk ou en texte.</translation>
    </message>
    <message>
        <source>Turn a trace of another tool into numbered chunk files.</source>
        <translation>Transforme la trace d’un autre outil en fichiers chunk numérotés.</translation>
    </message>
    <message>
        <source>Record frames into chunk files: candump lines from standard input, or from a CAN bus plug-in.</source>
        <translation>Enregistre des trames dans des fichiers chunk : lignes candump de l’entrée standard, ou d’un greffon de bus CAN.</translation>
    </message>
    <message>
        <source>Cut a chunk file into smaller ones, in a folder beside it.</source>
        <translation>Découpe un fichier chunk en plus petits, dans un dossier à côté.</translation>
    </message>
    <message>
        <source>Pack chunk files into a ZIP archive.</source>
        <translation>Réunit des fichiers chunk dans une archive ZIP.</translation>
    </message>
    <message>
        <source>Unpack the chunk files of an archive.</source>
        <translation>Extrait les fichiers chunk d’une archive.</translation>
    </message>
    <message>
        <source>Join the chunk files of an archive into one file.</source>
        <translation>Fusionne les fichiers chunk d’une archive en un seul fichier.</translation>
    </message>
    <message>
        <source>Tell what a file looks like to the tolerant readers, how sure that is, and which line decided, or what to do with a file that nobody reads.</source>
        <translation>Indique à quoi un fichier ressemble pour les lecteurs tolérants, avec quelle certitude et quelle ligne a décidé, ou que faire d’un fichier que rien ne lit.</translation>
    </message>
    <message>
        <source>%1 MiB</source>
        <translation>%1 Mio</translation>
    </message>
    <message>
        <source>Print each message as a JSON object.</source>
        <translation>Affiche chaque message en objet JSON.</translation>
    </message>
    <message>
        <source>Begin at this position; the first message is at 0.</source>
        <translation>Commence à cette position ; le premier message est à 0.</translation>
    </message>
    <message>
        <source>Print at most N messages.</source>
        <translation>Affiche au plus N messages.</translation>
    </message>
    <message>
        <source>Print only messages of this bus line (0 to 255).</source>
        <translation>Affiche seulement les messages de ce canal (0 à 255).</translation>
    </message>
    <message>
        <source>Print only messages with this identifier.</source>
        <translation>Affiche seulement les messages de cet identifiant.</translation>
    </message>
    <message>
        <source>Write this file: a chunk file when the name ends in &quot;dck&quot;, a text otherwise. With &quot;-&quot; the text goes to standard output.</source>
        <translation>Écrit ce fichier : un fichier chunk quand le nom finit par « dck », sinon un texte. Avec « - » le texte va sur la sortie standard.</translation>
    </message>
    <message>
        <source>Write the notes into a text, too; a chunk file always has them.</source>
        <translation>Écrit les notes dans un texte aussi ; un fichier chunk les a toujours.</translation>
    </message>
    <message>
        <source>--to is missing</source>
        <translation>--to manque</translation>
    </message>
    <message>
        <source>Nothing to export.</source>
        <translation>Il n’y a rien à exporter.</translation>
    </message>
    <message>
        <source>The file could not be written completely.</source>
        <translation>Le fichier n’a pas pu être écrit entièrement.</translation>
    </message>
    <message>
        <source>This is a folder, and a file is needed.</source>
        <translation>C’est un dossier, et il faut un fichier.</translation>
    </message>
    <message>
        <source>This is a named pipe, and a file is needed.</source>
        <translation>C’est un tube nommé, et il faut un fichier.</translation>
    </message>
    <message>
        <source>This is a device or a socket, and a file is needed.</source>
        <translation>C’est un périphérique ou une socket, et il faut un fichier.</translation>
    </message>
    <message>
        <source>The file is no chunk file.</source>
        <translation>Le fichier n’est pas un fichier chunk.</translation>
    </message>
    <message>
        <source>The file exists already.</source>
        <translation>Le fichier existe déjà.</translation>
    </message>
    <message>
        <source>This is the file %1, which is to be read.</source>
        <translation>C’est le fichier %1, qui doit être lu.</translation>
    </message>
    <message>
        <source>Standard output goes into this file, which is to be read.</source>
        <translation>La sortie standard va dans ce fichier, qui doit être lu.</translation>
    </message>
    <message>
        <source>The filter is wrong in column %1: %2</source>
        <translation>Le filtre est faux à la colonne %1 : %2</translation>
    </message>
    <message>
        <source>Print only how many messages are found.</source>
        <translation>Affiche seulement combien de messages sont trouvés.</translation>
    </message>
    <message>
        <source>Find at most N messages.</source>
        <translation>Trouve au plus N messages.</translation>
    </message>
    <message>
        <source>Print N messages in front of each as well. Lines then begin with the position and &quot;:&quot; for what is found, &quot;-&quot; for what stands around it.</source>
        <translation>Affiche aussi N messages avant chacun. Les lignes commencent alors par la position et « : » pour ce qui est trouvé, « - » pour ce qui l’entoure.</translation>
    </message>
    <message>
        <source>Print N messages behind each as well.</source>
        <translation>Affiche aussi N messages après chacun.</translation>
    </message>
    <message>
        <source>Print each message as a JSON object with its position.</source>
        <translation>Affiche chaque message en objet JSON avec sa position.</translation>
    </message>
    <message>
        <source>The file is a chunk file already.</source>
        <translation>Le fichier est déjà un fichier chunk.</translation>
    </message>
    <message>
        <source>The file is an archive; unpack or merge it.</source>
        <translation>Le fichier est une archive ; utilisez unpack ou merge.</translation>
    </message>
    <message>
        <source>The file could not be imported.</source>
        <translation>Le fichier n’a pas pu être importé.</translation>
    </message>
    <message>
        <source>Put the chunk files into this folder, which is created if need be.</source>
        <translation>Met les fichiers chunk dans ce dossier, créé au besoin.</translation>
    </message>
    <message>
        <source>Messages per chunk file, 250000 by default.</source>
        <translation>Messages par fichier chunk, 250000 par défaut.</translation>
    </message>
    <message>
        <source>--into is missing</source>
        <translation>--into manque</translation>
    </message>
    <message>
        <source>%1 or more</source>
        <translation>%1 ou plus</translation>
    </message>
    <message>
        <source>file</source>
        <translation>fichier</translation>
    </message>
    <message>
        <source>type</source>
        <translation>type</translation>
    </message>
    <message>
        <source>messages</source>
        <translation>messages</translation>
    </message>
    <message>
        <source>time</source>
        <translation>temps</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>canal %1</translation>
    </message>
    <message>
        <source>identifiers</source>
        <translation>identifiants</translation>
    </message>
    <message>
        <source>FD frames</source>
        <translation>trames FD</translation>
    </message>
    <message>
        <source>remote frames</source>
        <translation>trames de requête</translation>
    </message>
    <message>
        <source>error frames</source>
        <translation>trames d’erreur</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>notes</translation>
    </message>
    <message>
        <source>became a frame, but does not look like one</source>
        <translation>est devenue une trame, mais n’y ressemble pas</translation>
    </message>
    <message>
        <source>
%1: %2 (line %3)</source>
        <translation>
%1 : %2 (ligne %3)</translation>
    </message>
    <message>
        <source>%1 lines, %2 frames, %3 notes%4</source>
        <translation>%1 lignes, %2 trames, %3 notes%4</translation>
    </message>
    <message>
        <source>; not all of it could be kept:</source>
        <translation> ; tout n’a pas pu être conservé :</translation>
    </message>
    <message>
        <source>; nothing was lost.</source>
        <translation> ; rien n’a été perdu.</translation>
    </message>
    <message>
        <source>left out, %1</source>
        <translation>ignorée, %1</translation>
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
        <translation>Usage : datachunk COMMANDE [options] [arguments]
Enregistre, convertit et montre des traces de bus CAN.

Commandes :
%1
Un PATH est une trace de tout genre, ou un dossier de fichiers chunk. Plusieurs
fichiers chunk, dossiers et archives font une seule trace dans l’ordre du temps ;
avec un texte d’un autre outil parmi eux, tous sont lus l’un après l’autre.

« datachunk COMMANDE --help » indique les options d’une commande.
Le code de retour est 0, 1 quand quelque chose a échoué ou que rien n’a été trouvé,
et 2 pour un mauvais usage.
</translation>
    </message>
    <message>
        <source>Usage: datachunk %1 [options] %2
</source>
        <translation>Usage : datachunk %1 [options] %2
</translation>
    </message>
    <message>
        <source>usage: datachunk %1 %2</source>
        <translation>usage : datachunk %1 %2</translation>
    </message>
    <message>
        <source>the name of a file is missing</source>
        <translation>le nom d’un fichier manque</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one argument too many</source>
        <translation>« %1 » est un argument de trop</translation>
    </message>
    <message>
        <source>Print this help.</source>
        <translation>Affiche cette aide.</translation>
    </message>
    <message>
        <source>Print the debug lines of the library.</source>
        <translation>Affiche les lignes de débogage de la bibliothèque.</translation>
    </message>
    <message>
        <source>a command is missing</source>
        <translation>une commande manque</translation>
    </message>
    <message>
        <source>there is no command &quot;%1&quot;</source>
        <translation>il n’y a pas de commande « %1 »</translation>
    </message>
    <message>
        <source>--%1 takes a number from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 prend un nombre de %2 à %3, pas « %4 »</translation>
    </message>
    <message>
        <source>A name with a backslash cannot be packed.</source>
        <translation>Un nom avec une barre oblique inverse ne peut être mis en archive.</translation>
    </message>
    <message>
        <source>The archive would have two files of that name.</source>
        <translation>L’archive aurait deux fichiers de ce nom.</translation>
    </message>
    <message>
        <source>The folder holds no chunk files.</source>
        <translation>Le dossier ne contient pas de fichiers chunk.</translation>
    </message>
    <message>
        <source>The archive cannot be written there.</source>
        <translation>L’archive ne peut pas être écrite à cet endroit.</translation>
    </message>
    <message>
        <source>The file is no archive, and only an archive is replaced.</source>
        <translation>Le fichier n’est pas une archive, et seule une archive est remplacée.</translation>
    </message>
    <message>
        <source>Write this archive; one that is there is replaced when the new one is whole. No other file is.</source>
        <translation>Écrit cette archive ; celle qui existe est remplacée quand la nouvelle est complète. Aucun autre fichier ne l’est.</translation>
    </message>
    <message>
        <source>Take only the messages from position A to B, both included; the first message is at 0.</source>
        <translation>Prend seulement les messages des positions A à B, comprises ; le premier message est à 0.</translation>
    </message>
    <message>
        <source>Take only the messages at these positions.</source>
        <translation>Prend seulement les messages à ces positions.</translation>
    </message>
    <message>
        <source>--range and --select exclude each other</source>
        <translation>--range et --select s’excluent</translation>
    </message>
    <message>
        <source>--range takes two positions in order, as in 10:19, not &quot;%1&quot;</source>
        <translation>--range prend deux positions dans l’ordre, comme 10:19, pas « %1 »</translation>
    </message>
    <message>
        <source>--select takes positions, as in 1,5,7, not &quot;%1&quot;</source>
        <translation>--select prend des positions, comme 1,5,7, pas « %1 »</translation>
    </message>
    <message>
        <source>--interface needs --plugin</source>
        <translation>--interface demande --plugin</translation>
    </message>
    <message>
        <source>--plugin needs --interface</source>
        <translation>--plugin demande --interface</translation>
    </message>
    <message>
        <source>--fd, --bitrate and --data-bitrate need --plugin</source>
        <translation>--fd, --bitrate et --data-bitrate demandent --plugin</translation>
    </message>
    <message>
        <source>messages taken:   %1</source>
        <translation>messages pris :       %1</translation>
    </message>
    <message>
        <source>messages stored:  %1</source>
        <translation>messages conservés :  %1</translation>
    </message>
    <message>
        <source>messages dropped: %1</source>
        <translation>messages abandonnés : %1</translation>
    </message>
    <message>
        <source>%1 lines held no frame.</source>
        <translation>%1 lignes ne contenaient pas de trame.</translation>
    </message>
    <message>
        <source>Record into this folder, which is created if need be.</source>
        <translation>Enregistre dans ce dossier, créé au besoin.</translation>
    </message>
    <message>
        <source>Take the frames from this CAN bus plug-in, such as socketcan.</source>
        <translation>Prend les trames de ce greffon de bus CAN, par exemple socketcan.</translation>
    </message>
    <message>
        <source>Take the frames from this interface of the plug-in, such as can0.</source>
        <translation>Prend les trames de cette interface du greffon, par exemple can0.</translation>
    </message>
    <message>
        <source>Take CAN FD frames, too, as is always done with socketcan.</source>
        <translation>Prend aussi les trames CAN FD, comme toujours avec socketcan.</translation>
    </message>
    <message>
        <source>Set the bitrate of the interface, in bit/s.</source>
        <translation>Règle le débit de l’interface, en bit/s.</translation>
    </message>
    <message>
        <source>Set the bitrate for the data of CAN FD frames, in bit/s.</source>
        <translation>Règle le débit des données des trames CAN FD, en bit/s.</translation>
    </message>
    <message>
        <source>End the recording when only N MiB of the disk are free; by default 1024, or a tenth of the disk where that is less.</source>
        <translation>Termine l’enregistrement quand seuls N Mio du disque sont libres ; par défaut 1024, ou un dixième du disque si c’est moins.</translation>
    </message>
    <message>
        <source>Keep all files of the recording within N MiB together: the oldest chunk files are deleted. Nothing is deleted by default.</source>
        <translation>Garde tous les fichiers de l’enregistrement sous N Mio au total : les plus anciens fichiers chunk sont supprimés. Par défaut rien n’est supprimé.</translation>
    </message>
    <message>
        <source>Message limit of the store, 105000 by default or less for a small budget. A chunk file holds %1 messages less.</source>
        <translation>Limite de messages en mémoire, 105000 par défaut ou moins pour un petit budget. Un fichier chunk contient %1 messages de moins.</translation>
    </message>
    <message>
        <source>The folder for chunk files could not be created.</source>
        <translation>Le dossier des fichiers chunk n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>The messages of one chunk file do not fit into the budget of %1; take a smaller --limit.</source>
        <translation>Les messages d’un fichier chunk ne tiennent pas dans le budget de %1 ; prenez un --limit plus petit.</translation>
    </message>
    <message>
        <source>No more than the reserve of %1 is left on the disk, so the recording ends. --reserve sets another one, and --budget has old chunk files deleted.</source>
        <translation>Il ne reste sur le disque que la réserve de %1, donc l’enregistrement se termine. --reserve en fixe une autre, et --budget fait supprimer les anciens fichiers chunk.</translation>
    </message>
    <message>
        <source>The budget of %1 is used up: the oldest chunk files are deleted.</source>
        <translation>Le budget de %1 est épuisé : les plus anciens fichiers chunk sont supprimés.</translation>
    </message>
    <message>
        <source>Messages are dropped: they come faster than the disk takes them.</source>
        <translation>Des messages sont abandonnés : ils arrivent plus vite que le disque ne les prend.</translation>
    </message>
    <message>
        <source>Not every chunk file was written.</source>
        <translation>Tous les fichiers chunk n’ont pas été écrits.</translation>
    </message>
    <message>
        <source>The last messages could not be written completely.</source>
        <translation>Les derniers messages n’ont pas pu être écrits entièrement.</translation>
    </message>
    <message>
        <source>Somebody else records into this folder.</source>
        <translation>Un autre programme enregistre dans ce dossier.</translation>
    </message>
    <message>
        <source>The folder cannot be locked: %1</source>
        <translation>Le dossier ne peut pas être verrouillé : %1</translation>
    </message>
    <message>
        <source>The folder holds a recording already.</source>
        <translation>Le dossier contient déjà un enregistrement.</translation>
    </message>
    <message>
        <source>More than %1 parts are not possible; take --messages %2.</source>
        <translation>Plus de %1 parties ne sont pas possibles ; prenez --messages %2.</translation>
    </message>
    <message>
        <source>The parts could not be written.</source>
        <translation>Les parties n’ont pas pu être écrites.</translation>
    </message>
    <message>
        <source>Messages per chunk file.</source>
        <translation>Messages par fichier chunk.</translation>
    </message>
    <message>
        <source>--messages is missing</source>
        <translation>--messages manque</translation>
    </message>
    <message>
        <source>The folder of the parts exists already.</source>
        <translation>Le dossier des parties existe déjà.</translation>
    </message>
    <message>
        <source>--gap takes seconds from 0 to %1, not &quot;%2&quot;</source>
        <translation>--gap prend des secondes de 0 à %1, pas « %2 »</translation>
    </message>
    <message>
        <source>--data-bitrate needs --bitrate</source>
        <translation>--data-bitrate demande --bitrate</translation>
    </message>
    <message>
        <source>Tell the load of each line at N bit/s. Every frame counts with exactly the stuff bits that it has on the bus.</source>
        <translation>Indique la charge de chaque canal à N bit/s. Chaque trame compte avec exactement les bits de bourrage qu’elle a sur le bus.</translation>
    </message>
    <message>
        <source>The data of CAN FD frames come at N bit/s; otherwise at that of --bitrate.</source>
        <translation>Les données des trames CAN FD viennent à N bit/s, sinon à ceux de --bitrate.</translation>
    </message>
    <message>
        <source>Count pauses of more than S seconds; otherwise of more than 1.</source>
        <translation>Compte les pauses de plus de S secondes, sinon de plus de 1.</translation>
    </message>
    <message>
        <source>Print a JSON object, with times in microseconds.</source>
        <translation>Affiche un objet JSON, avec les temps en microsecondes.</translation>
    </message>
    <message>
        <source>none over %1 s</source>
        <translation>aucune de plus de %1 s</translation>
    </message>
    <message>
        <source>%1 over %2 s, the longest of %3 s in front of position %4 (%5)</source>
        <translation>%1 de plus de %2 s, la plus longue de %3 s avant la position %4 (%5)</translation>
    </message>
    <message>
        <source>%1 messages</source>
        <translation>%1 messages</translation>
    </message>
    <message>
        <source>%1 error frames</source>
        <translation>%1 trames d’erreur</translation>
    </message>
    <message>
        <source>load %1 %</source>
        <translation>charge %1 %</translation>
    </message>
    <message>
        <source>gaps: %1</source>
        <translation>lacunes : %1</translation>
    </message>
    <message>
        <source>gaps</source>
        <translation>lacunes</translation>
    </message>
    <message>
        <source>times fall</source>
        <translation>temps recule</translation>
    </message>
    <message>
        <source>bus load</source>
        <translation>charge du bus</translation>
    </message>
    <message>
        <source>%1 bit/s, data %2 bit/s, with the stuff bits of each frame</source>
        <translation>%1 bit/s, données %2 bit/s, avec les bits de bourrage de chaque trame</translation>
    </message>
    <message>
        <source>id</source>
        <translation>id</translation>
    </message>
    <message>
        <source>line</source>
        <translation>canal</translation>
    </message>
    <message>
        <source>kind</source>
        <translation>type</translation>
    </message>
    <message>
        <source>count</source>
        <translation>nombre</translation>
    </message>
    <message>
        <source>first</source>
        <translation>premier</translation>
    </message>
    <message>
        <source>last</source>
        <translation>dernier</translation>
    </message>
    <message>
        <source>length</source>
        <translation>longueur</translation>
    </message>
    <message>
        <source>mean ms</source>
        <translation>moyenne ms</translation>
    </message>
    <message>
        <source>least</source>
        <translation>minimum</translation>
    </message>
    <message>
        <source>most</source>
        <translation>maximum</translation>
    </message>
    <message>
        <source>p99</source>
        <translation>p99</translation>
    </message>
    <message>
        <source>jitter</source>
        <translation>gigue</translation>
    </message>
    <message>
        <source>%1 messages of other identifiers; no more than %2 are told apart</source>
        <translation>%1 messages d’autres identifiants ; pas plus de %2 sont distingués</translation>
    </message>
    <message>
        <source>Stopped by a signal.</source>
        <translation>Arrêté par un signal.</translation>
    </message>
    <message>
        <source>Try &quot;datachunk --help&quot; or &quot;datachunk COMMAND --help&quot;.</source>
        <translation>Essayez « datachunk --help » ou « datachunk COMMANDE --help ».</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>sortie standard</translation>
    </message>
    <message>
        <source>%1: %2 messages, %3 messages/s, %4 s</source>
        <translation>%1 : %2 messages, %3 messages/s, %4 s</translation>
    </message>
    <message>
        <source>Read the file as this type instead of the one detected: %1.</source>
        <translation>Lit le fichier comme ce type au lieu du type reconnu : %1.</translation>
    </message>
    <message>
        <source>Read a text of the layout described (type GenericFormat).</source>
        <translation>Lit un texte de la disposition décrite (type GenericFormat).</translation>
    </message>
    <message>
        <source>Read texts by the letter, as other programs of this kind do, instead of taking only what has the shape of a frame.</source>
        <translation>Lit les textes à la lettre, comme d’autres programmes de ce genre, au lieu de ne prendre que ce qui a la forme d’une trame.</translation>
    </message>
    <message>
        <source>Tell what became of the lines in this form: text or json.</source>
        <translation>Indique ce que sont devenues les lignes sous cette forme : text ou json.</translation>
    </message>
    <message>
        <source>Fail when a line was left out or something of a frame was changed.</source>
        <translation>Échoue quand une ligne a été ignorée ou qu’une trame a été modifiée.</translation>
    </message>
    <message>
        <source>--report takes text or json, not &quot;%1&quot;</source>
        <translation>--report prend text ou json, pas « %1 »</translation>
    </message>
    <message>
        <source>there is no type &quot;%1&quot;; the types are %2</source>
        <translation>il n’y a pas de type « %1 » ; les types sont %2</translation>
    </message>
    <message>
        <source>--format is for the type GenericFormat, not for %1</source>
        <translation>--format est pour le type GenericFormat, pas pour %1</translation>
    </message>
    <message>
        <source>the type GenericFormat needs --format</source>
        <translation>le type GenericFormat demande --format</translation>
    </message>
    <message>
        <source>The type of the file is unknown.</source>
        <translation>Le type du fichier est inconnu.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Le fichier est vide.</translation>
    </message>
    <message>
        <source>Files of type %1 cannot be read.</source>
        <translation>Les fichiers de type %1 ne peuvent pas être lus.</translation>
    </message>
    <message>
        <source>%1 paths</source>
        <translation>%1 chemins</translation>
    </message>
    <message>
        <source>There are no messages.</source>
        <translation>Il n’y a pas de messages.</translation>
    </message>
    <message>
        <source>%1 messages are no longer there.</source>
        <translation>%1 messages n’existent plus.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>dossier</translation>
    </message>
    <message>
        <source>The folder could not be created.</source>
        <translation>Le dossier n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>There is no place for temporary files: %1</source>
        <translation>Il n’y a pas de place pour les fichiers temporaires : %1</translation>
    </message>
</context>
<context>
    <name>DatachunkHandler</name>
    <message>
        <source>The file at %1 does not exists.</source>
        <translation>Le fichier %1 n’existe pas.</translation>
    </message>
</context>
</TS>
