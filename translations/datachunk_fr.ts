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
    <message>
        <source>The receive buffer of the CAN controller ran over.</source>
        <translation>Le tampon de réception du contrôleur CAN a débordé.</translation>
    </message>
    <message>
        <source>The CAN interface is back, and the recording goes on.</source>
        <translation>L’interface CAN est de retour, et l’enregistrement continue.</translation>
    </message>
    <message>
        <source>%1 The recording goes on when the interface is back.</source>
        <translation>%1 L’enregistrement continue quand l’interface est de retour.</translation>
    </message>
    <message>
        <source>The CAN interface went down or was unplugged.</source>
        <translation>L’interface CAN a été désactivée ou débranchée.</translation>
    </message>
    <message>
        <source>candump has dropped %1 frames.</source>
        <translation>candump a abandonné %1 trames.</translation>
    </message>
    <message>
        <source>the type of each file</source>
        <translation>le type de chaque fichier</translation>
    </message>
    <message>
        <source>why, and which line decided</source>
        <translation>pourquoi, et quelle ligne a décidé</translation>
    </message>
    <message>
        <source>what a log of another tool holds</source>
        <translation>ce que contient le journal d’un autre outil</translation>
    </message>
    <message>
        <source>a folder and an archive as one trace</source>
        <translation>un dossier et une archive comme une seule trace</translation>
    </message>
    <message>
        <source>the first 20 messages of an identifier</source>
        <translation>les 20 premiers messages d’un identifiant</translation>
    </message>
    <message>
        <source>every message as an object</source>
        <translation>chaque message en objet</translation>
    </message>
    <message>
        <source>with the two messages in front of each</source>
        <translation>avec les deux messages avant chacun</translation>
    </message>
    <message>
        <source>only how many there are</source>
        <translation>seulement leur nombre</translation>
    </message>
    <message>
        <source>periods, gaps and the load of the bus</source>
        <translation>périodes, lacunes et charge du bus</translation>
    </message>
    <message>
        <source>with every pause above 0.2 s, as an object</source>
        <translation>avec chaque pause de plus de 0,2 s, en objet</translation>
    </message>
    <message>
        <source>Save a trace, or some of its messages, in another format.</source>
        <translation>Enregistre une trace, ou certains de ses messages, dans un autre format.</translation>
    </message>
    <message>
        <source>100 messages as a text</source>
        <translation>100 messages en texte</translation>
    </message>
    <message>
        <source>Write traces, merged by time, in the format of another tool.</source>
        <translation>Écrit des traces, fusionnées dans l’ordre du temps, au format d’un autre outil.</translation>
    </message>
    <message>
        <source>two traces as one, for Wireshark</source>
        <translation>deux traces en une, pour Wireshark</translation>
    </message>
    <message>
        <source>each file for itself</source>
        <translation>chaque fichier à part</translation>
    </message>
    <message>
        <source>any trace as chunk files</source>
        <translation>une trace quelconque en fichiers chunk</translation>
    </message>
    <message>
        <source>small chunks, and nothing left out</source>
        <translation>de petits chunks, et rien d’ignoré</translation>
    </message>
    <message>
        <source>until Ctrl-C</source>
        <translation>jusqu’à Ctrl-C</translation>
    </message>
    <message>
        <source>candump lines from standard input; the newest 4000 MiB stay</source>
        <translation>lignes candump de l’entrée standard ; les 4000 Mio les plus récents restent</translation>
    </message>
    <message>
        <source>into a folder beside the file</source>
        <translation>dans un dossier à côté du fichier</translation>
    </message>
    <message>
        <source>fewer and larger parts</source>
        <translation>des parties moins nombreuses et plus grandes</translation>
    </message>
    <message>
        <source>a whole recording in one file</source>
        <translation>tout un enregistrement dans un fichier</translation>
    </message>
    <message>
        <source>some of its chunks</source>
        <translation>certains de ses chunks</translation>
    </message>
    <message>
        <source>the chunks of an archive</source>
        <translation>les chunks d’une archive</translation>
    </message>
    <message>
        <source>the folder is made if need be</source>
        <translation>le dossier est créé au besoin</translation>
    </message>
    <message>
        <source>all chunks as one</source>
        <translation>tous les chunks en un</translation>
    </message>
    <message>
        <source>as a text on standard output</source>
        <translation>en texte sur la sortie standard</translation>
    </message>
    <message>
        <source>Check chunk files, folders of them and archives for damage.</source>
        <translation>Cherche les dommages dans des fichiers chunk, leurs dossiers et des archives.</translation>
    </message>
    <message>
        <source>one line for each finding</source>
        <translation>une ligne par constat</translation>
    </message>
    <message>
        <source>an object for each finding</source>
        <translation>un objet par constat</translation>
    </message>
    <message>
        <source>Save the chunk files that a killed application left behind.</source>
        <translation>Sauve les fichiers chunk qu’une application tuée a laissés.</translation>
    </message>
    <message>
        <source>what stores have left in the usual place</source>
        <translation>ce que des applications ont laissé à l’endroit habituel</translation>
    </message>
    <message>
        <source>whole records are kept, the source stays as it is</source>
        <translation>les enregistrements entiers sont gardés, la source reste telle quelle</translation>
    </message>
    <message>
        <source>A chunk file is not written from front to back and cannot go there.</source>
        <translation>Un fichier chunk ne s’écrit pas du début à la fin et ne peut pas aller là.</translation>
    </message>
    <message>
        <source>This is a terminal, and the format is not for one.</source>
        <translation>C’est un terminal, et le format n’est pas fait pour cela.</translation>
    </message>
    <message>
        <source>--times takes absolute or delta, not &quot;%1&quot;</source>
        <translation>--times prend absolute ou delta, pas « %1 »</translation>
    </message>
    <message>
        <source>there is no format &quot;%1&quot;; the formats are %2</source>
        <translation>il n’y a pas de format « %1 » ; les formats sont %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not end in the name of a format; tell it with --as: %2</source>
        <translation>« %1 » ne finit pas par le nom d’un format ; indiquez-le avec --as : %2</translation>
    </message>
    <message>
        <source>Write this format instead of the one that the name ends in: %1.</source>
        <translation>Écrit ce format au lieu de celui par lequel le nom finit : %1.</translation>
    </message>
    <message>
        <source>Write times as absolute ones, or as delta to the message before, where the format knows both (asc, candump-screen).</source>
        <translation>Écrit les temps absolus (absolute), ou l’écart au message précédent (delta), là où le format connaît les deux (asc, candump-screen).</translation>
    </message>
    <message>
        <source>Write the notes into a text (txt), too; all other formats that can have them, do.</source>
        <translation>Écrit les notes dans un texte (txt) aussi ; tous les autres formats qui peuvent en avoir les ont toujours.</translation>
    </message>
    <message>
        <source>, %1 left out</source>
        <translation>, %1 ignorés</translation>
    </message>
    <message>
        <source>Not written: bookmarks (%1).</source>
        <translation>Non écrits : signets (%1).</translation>
    </message>
    <message>
        <source>%1; the format %2 cannot say all:</source>
        <translation>%1 ; le format %2 ne peut pas tout dire :</translation>
    </message>
    <message>
        <source>--to and --into exclude each other</source>
        <translation>--to et --into s’excluent</translation>
    </message>
    <message>
        <source>--into needs --as</source>
        <translation>--into demande --as</translation>
    </message>
    <message>
        <source>the name of the file to write is missing</source>
        <translation>le nom du fichier à écrire manque</translation>
    </message>
    <message>
        <source>At most %1 traces are merged at a time. Chunk files in a folder are one: name the folder.</source>
        <translation>Au plus %1 traces sont fusionnées à la fois. Les fichiers chunk d’un dossier comptent pour une : nommez le dossier.</translation>
    </message>
    <message>
        <source>Write this file, so that all arguments are traces to read. With &quot;-&quot; it goes to standard output.</source>
        <translation>Écrit ce fichier, si bien que tous les arguments sont des traces à lire. Avec « - » il va sur la sortie standard.</translation>
    </message>
    <message>
        <source>Write a file for each trace into this folder, in the format of --as.</source>
        <translation>Écrit un fichier par trace dans ce dossier, au format de --as.</translation>
    </message>
    <message>
        <source>Write this file, in the format that its name ends in, or as a text. With &quot;-&quot; it goes to standard output.</source>
        <translation>Écrit ce fichier dans le format par lequel son nom finit, sinon en texte. Avec « - » il va sur la sortie standard.</translation>
    </message>
    <message>
        <source>Trigger &quot;%1&quot; at %2.</source>
        <translation>Déclencheur « %1 » à %2.</translation>
    </message>
    <message>
        <source>Messages in front of this one are missing: the ring was too small.</source>
        <translation>Des messages manquent avant celui-ci : l’anneau était trop petit.</translation>
    </message>
    <message>
        <source>The folder cannot be read.</source>
        <translation>Le dossier ne peut pas être lu.</translation>
    </message>
    <message>
        <source>Records, converts and shows traces of CAN buses.</source>
        <translation>Enregistre, convertit et montre des traces de bus CAN.</translation>
    </message>
    <message>
        <source>A PATH is a trace of any kind, or a folder of chunk files. Several chunk files,
folders and archives are one trace in order of time; with a text of another
tool among them, all are read one after the other.</source>
        <translation>Un PATH est une trace de tout genre, ou un dossier de fichiers chunk. Plusieurs
fichiers chunk, dossiers et archives forment une trace dans l’ordre du temps ; avec
un texte d’un autre outil parmi eux, tous sont lus l’un après l’autre.</translation>
    </message>
    <message>
        <source>The exit status is 0, 1 when something failed or nothing was found, and 2 for
wrong usage.</source>
        <translation>Le code de retour est 0, 1 quand quelque chose a échoué ou que rien n’a été trouvé,
et 2 pour un mauvais usage.</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Exemples :</translation>
    </message>
    <message>
        <source>Tell failures and losses only, not how the work goes on.</source>
        <translation>Indique seulement les échecs et les pertes, pas comment le travail avance.</translation>
    </message>
    <message>
        <source>Usage: datachunk COMMAND [options] [arguments]
</source>
        <translation>Usage : datachunk COMMANDE [options] [arguments]
</translation>
    </message>
    <message>
        <source>

Commands:
</source>
        <translation>

Commandes :
</translation>
    </message>
    <message>
        <source>

&quot;datachunk COMMAND --help&quot; tells the options of a command, and
&quot;datachunk --version&quot; the version. &quot;datachunk --man&quot; prints a manual page,
&quot;datachunk --completion&quot; a script that has bash complete what is typed.
</source>
        <translation>

« datachunk COMMANDE --help » indique les options d’une commande, et
« datachunk --version » la version. « datachunk --man » affiche une page de manuel,
« datachunk --completion » un script avec lequel bash complète ce qui est tapé.
</translation>
    </message>
    <message>
        <source>
Examples:
</source>
        <translation>
Exemples :
</translation>
    </message>
    <message>
        <source>records, converts and shows traces of CAN buses</source>
        <translation>enregistre, convertit et montre des traces de bus CAN</translation>
    </message>
    <message>
        <source>Where it is set to anything, no colours are used.</source>
        <translation>Quand elle a une valeur quelconque, aucune couleur n’est utilisée.</translation>
    </message>
    <message>
        <source>Where files without a name are put while archives are read; /tmp otherwise.</source>
        <translation>Où vont les fichiers sans nom pendant la lecture d’archives ; sinon /tmp.</translation>
    </message>
    <message>
        <source>Its times do not count from 1970, as those of %1 do, so that the order of both means little.</source>
        <translation>Ses temps ne comptent pas depuis 1970, au contraire de ceux de %1, si bien que l’ordre des deux a peu de sens.</translation>
    </message>
    <message>
        <source>The system has no thread left for this trace.</source>
        <translation>Le système n’a plus de thread pour cette trace.</translation>
    </message>
    <message>
        <source>--%1 takes a value from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 prend une valeur de %2 à %3, pas « %4 »</translation>
    </message>
    <message>
        <source>not asked for:    %1</source>
        <translation>non demandés :        %1</translation>
    </message>
    <message>
        <source>captures:         %1</source>
        <translation>captures :            %1</translation>
    </message>
    <message>
        <source>gaps:             %1</source>
        <translation>lacunes :             %1</translation>
    </message>
    <message>
        <source>%1 messages taken, %2 gaps, into %3</source>
        <translation>%1 messages pris, %2 lacunes, vers %3</translation>
    </message>
    <message>
        <source>Messages are dropped: the ring is too small for all that comes in the time before a trigger. --ring sets another size.</source>
        <translation>Des messages sont abandonnés : l’anneau est trop petit pour tout ce qui vient dans le temps avant un déclencheur. --ring fixe une autre taille.</translation>
    </message>
    <message>
        <source>Gap: %1 messages came faster than the disk took them.</source>
        <translation>Lacune : %1 messages sont arrivés plus vite que le disque ne les a pris.</translation>
    </message>
    <message>
        <source>Further gaps are noted in the recording only.</source>
        <translation>Les autres lacunes ne sont notées que dans l’enregistrement.</translation>
    </message>
    <message>
        <source>Gap: %1</source>
        <translation>Lacune : %1</translation>
    </message>
    <message>
        <source>The folder holds chunks of a recording that was killed; &quot;datachunk recover&quot; saves them.</source>
        <translation>Le dossier contient des chunks d’un enregistrement tué ; « datachunk recover » les sauve.</translation>
    </message>
    <message>
        <source>--fd, --bitrate, --data-bitrate and --retry need --plugin</source>
        <translation>--fd, --bitrate, --data-bitrate et --retry demandent --plugin</translation>
    </message>
    <message>
        <source>--before, --after and --ring need --trigger</source>
        <translation>--before, --after et --ring demandent --trigger</translation>
    </message>
    <message>
        <source>Try every so often, such as 5s, to get an interface back that fails or goes away, in place of ending the recording.</source>
        <translation>Essaie à cet intervalle, par exemple 5s, de retrouver une interface qui tombe en panne ou disparaît, au lieu de terminer l’enregistrement.</translation>
    </message>
    <message>
        <source>Record only the messages that this filter takes.</source>
        <translation>Enregistre seulement les messages que retient ce filtre.</translation>
    </message>
    <message>
        <source>Record only around the messages that this filter takes.</source>
        <translation>Enregistre seulement autour des messages que retient ce filtre.</translation>
    </message>
    <message>
        <source>Record what came up to this time before a trigger: 500ms, 60s, 5min, 1h; a plain number is seconds.</source>
        <translation>Enregistre ce qui est venu jusqu’à ce temps avant un déclencheur : 500ms, 60s, 5min, 1h ; un nombre seul est en secondes.</translation>
    </message>
    <message>
        <source>The same behind a trigger.</source>
        <translation>La même chose après un déclencheur.</translation>
    </message>
    <message>
        <source>Memory for the messages in front of a trigger, 128MiB by default.</source>
        <translation>Mémoire pour les messages avant un déclencheur, 128MiB par défaut.</translation>
    </message>
    <message>
        <source>Message limit of the store, 105000 by default, less for a small budget and more with --size or --every. A chunk file holds %1 messages less.</source>
        <translation>Nombre maximal de messages en mémoire, 105000 par défaut, moins avec un petit budget et plus avec --size ou --every. Un fichier chunk contient %1 messages de moins.</translation>
    </message>
    <message>
        <source>End a chunk file before it gets larger: 64KiB, 100MiB; a plain number is MiB.</source>
        <translation>Termine un fichier chunk avant qu’il ne dépasse cette taille : 64KiB, 100MiB ; un nombre seul est en Mio.</translation>
    </message>
    <message>
        <source>End a chunk file when the clock reaches a multiple of this time: 30s, 10min, 1h; a plain number is seconds.</source>
        <translation>Termine un fichier chunk quand l’horloge atteint un multiple de ce temps : 30s, 10min, 1h ; un nombre seul est en secondes.</translation>
    </message>
    <message>
        <source>Record into a new folder inside, named after the date and time.</source>
        <translation>Enregistre dans un nouveau dossier à l’intérieur, nommé d’après la date et l’heure.</translation>
    </message>
    <message>
        <source>Somebody works in this folder, so it is left alone.</source>
        <translation>Un autre programme travaille dans ce dossier, qui est donc laissé tel quel.</translation>
    </message>
    <message>
        <source>It does not follow the chunks in front of it.</source>
        <translation>Il ne fait pas suite aux chunks précédents.</translation>
    </message>
    <message>
        <source>It does not follow the chunks in front of it and is now %1.</source>
        <translation>Il ne fait pas suite aux chunks précédents et est maintenant %1.</translation>
    </message>
    <message>
        <source>%1 messages in front of it are missing.</source>
        <translation>%1 messages manquent avant lui.</translation>
    </message>
    <message>
        <source>%1: %2 messages kept</source>
        <translation>%1 : %2 messages gardés</translation>
    </message>
    <message>
        <source>, %1 bytes trimmed</source>
        <translation>, %1 octets coupés</translation>
    </message>
    <message>
        <source>The folder lies in %1, which is to be left as it is.</source>
        <translation>Le dossier se trouve dans %1, qui doit rester tel quel.</translation>
    </message>
    <message>
        <source>There is no chunk file.</source>
        <translation>Il n’y a pas de fichier chunk.</translation>
    </message>
    <message>
        <source>%1: in use</source>
        <translation>%1 : en cours d’utilisation</translation>
    </message>
    <message>
        <source>%1: left behind, %2 chunk files, %3 bytes</source>
        <translation>%1 : abandonné, %2 fichiers chunk, %3 octets</translation>
    </message>
    <message>
        <source>Put the chunk files into this folder, which is created if need be; those of several folders into folders below.</source>
        <translation>Met les fichiers chunk dans ce dossier, créé au besoin, et ceux de plusieurs dossiers dans des sous-dossiers.</translation>
    </message>
    <message>
        <source>Tell what there is instead; without a path, what applications have left in the data location of their user.</source>
        <translation>Indique plutôt ce qu’il y a ; sans chemin, ce que des applications ont laissé à l’endroit des données de leur utilisateur.</translation>
    </message>
    <message>
        <source>--list and --into do not go together</source>
        <translation>--list et --into ne vont pas ensemble</translation>
    </message>
    <message>
        <source>the name of a file or folder is missing</source>
        <translation>le nom d’un fichier ou d’un dossier manque</translation>
    </message>
    <message>
        <source>--id takes a number from 0 to ffffffff, or several as in 1a0,200..2ff, not &quot;%1&quot;</source>
        <translation>--id prend un nombre de 0 à ffffffff, ou plusieurs comme 1a0,200..2ff, pas « %1 »</translation>
    </message>
    <message>
        <source>--line takes a number from 0 to 255, or several as in 1,3..5, not &quot;%1&quot;</source>
        <translation>--line prend un nombre de 0 à 255, ou plusieurs comme 1,3..5, pas « %1 »</translation>
    </message>
    <message>
        <source>--time takes two times in order, as in 12.5..13, 2026-11-22T10:15:00..2026-11-22T10:20:00 or 10:15:00.., not &quot;%1&quot;</source>
        <translation>--time prend deux temps dans l’ordre, comme 12.5..13, 2026-11-22T10:15:00..2026-11-22T10:20:00 ou 10:15:00.., pas « %1 »</translation>
    </message>
    <message>
        <source>End with the message at this position.</source>
        <translation>Finit par le message à cette position.</translation>
    </message>
    <message>
        <source>Take at most N messages.</source>
        <translation>Prend au plus N messages.</translation>
    </message>
    <message>
        <source>Take only the messages from position A to B, both included.</source>
        <translation>Prend seulement les messages de la position A à B, toutes deux comprises.</translation>
    </message>
    <message>
        <source>Take only messages from time A to B, both included: seconds, dates in UTC (2026-11-22T10:15:00) or times of day (10:15:00); one may be left out.</source>
        <translation>Prend seulement les messages du temps A à B, tous deux compris : secondes, dates en UTC (2026-11-22T10:15:00) ou heures du jour (10:15:00) ; l’un peut manquer.</translation>
    </message>
    <message>
        <source>Take only messages of these bus lines (0 to 255), as in 1,3..5.</source>
        <translation>Prend seulement les messages de ces canaux (0 à 255), comme 1,3..5.</translation>
    </message>
    <message>
        <source>Take only messages with these identifiers, as in 1a0,200..2ff.</source>
        <translation>Prend seulement les messages avec ces identifiants, comme 1a0,200..2ff.</translation>
    </message>
    <message>
        <source>Take only messages that this filter takes, as &quot;find&quot; has it.</source>
        <translation>Prend seulement les messages que retient ce filtre, comme avec « find ».</translation>
    </message>
    <message>
        <source>This has to be read twice, which standard input cannot be.</source>
        <translation>Cela doit être lu deux fois, ce qui n’est pas possible avec l’entrée standard.</translation>
    </message>
    <message>
        <source>Stopped by a signal after %1 messages.</source>
        <translation>Arrêté par un signal après %1 messages.</translation>
    </message>
    <message>
        <source>, %1 %, %2 s left</source>
        <translation>, %1 %, encore %2 s</translation>
    </message>
    <message>
        <source>%1 messages, %2 messages/s, </source>
        <translation>%1 messages, %2 messages/s, </translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Tell what became of the lines in this form.</source>
        <translation>Indique sous cette forme ce que sont devenues les lignes.</translation>
    </message>
    <message>
        <source>Only plain texts can be read from there, not chunk files, archives and compressed traces. Give the name of the file.</source>
        <translation>De là, seuls des textes simples peuvent être lus, pas des fichiers chunk, des archives ou des traces compressées. Donnez le nom du fichier.</translation>
    </message>
    <message>
        <source>It can be read only once.</source>
        <translation>Elle ne peut être lue qu’une fois.</translation>
    </message>
    <message>
        <source>%1: remark: %2</source>
        <translation>%1 : remarque : %2</translation>
    </message>
    <message>
        <source>Only chunk files, folders of them and archives can be verified: a trace of another tool does not tell what it should hold.</source>
        <translation>Seuls des fichiers chunk, leurs dossiers et des archives peuvent être vérifiés : la trace d’un autre outil ne dit pas ce qu’elle devrait contenir.</translation>
    </message>
    <message>
        <source>%1 chunks, %2 messages: nothing found.</source>
        <translation>%1 chunks, %2 messages : rien trouvé.</translation>
    </message>
    <message>
        <source>%1 chunks, %2 messages: %3 errors, %4 remarks.</source>
        <translation>%1 chunks, %2 messages : %3 erreurs, %4 remarques.</translation>
    </message>
    <message>
        <source>Print a JSON object for each finding.</source>
        <translation>Affiche un objet JSON par constat.</translation>
    </message>
    <message>
        <source>Parquet files in folders by source and day</source>
        <translation>des fichiers Parquet dans des dossiers par source et par jour</translation>
    </message>
    <message>
        <source>Write a data set into this folder, as --partition says; several traces are taken then.</source>
        <translation>Écrit un jeu de données dans ce dossier, comme --partition le dit ; plusieurs traces sont alors acceptées.</translation>
    </message>
    <message>
        <source>without --partition only one trace is taken</source>
        <translation>sans --partition, une seule trace est acceptée</translation>
    </message>
    <message>
        <source>The data set is not divided by %1.</source>
        <translation>Le jeu de données n’est pas divisé par %1.</translation>
    </message>
    <message>
        <source>There is another data set.</source>
        <translation>Un autre jeu de données s’y trouve.</translation>
    </message>
    <message>
        <source>Its times jump between too many days.</source>
        <translation>Ses instants sautent entre trop de jours.</translation>
    </message>
    <message>
        <source>--partition goes with --into, not with --to</source>
        <translation>--partition va avec --into, pas avec --to</translation>
    </message>
    <message>
        <source>--partition is for Parquet alone</source>
        <translation>--partition n’existe que pour Parquet</translation>
    </message>
    <message>
        <source>Write a Parquet data set into the folder of --into: each trace for itself, in folders by these keys, source or source=NAME and date, with commas between.</source>
        <translation>Écrit un jeu de données Parquet dans le dossier de --into : chaque trace à part, dans des dossiers selon ces clés, source ou source=NAME et date, séparées par des virgules.</translation>
    </message>
    <message>
        <source>--partition takes source, source=NAME and date, with commas between, not &quot;%1&quot;</source>
        <translation>--partition accepte source, source=NAME et date, séparés par des virgules, pas « %1 »</translation>
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
