<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ChunkRecovery</name>
    <message>
        <source>The work was interrupted.</source>
        <translation>Le travail a été interrompu.</translation>
    </message>
    <message>
        <source>The chunk is of a newer version.</source>
        <translation>Le chunk est d’une version plus récente.</translation>
    </message>
    <message>
        <source>The chunk is too large.</source>
        <translation>Le chunk est trop grand.</translation>
    </message>
    <message>
        <source>What stands in front of its messages is damaged or cut short, so that they cannot be found.</source>
        <translation>Ce qui précède ses messages est endommagé ou tronqué, si bien qu’ils ne peuvent être trouvés.</translation>
    </message>
    <message>
        <source>It ends in nothing but zeros, as a loss of power leaves it.</source>
        <translation>Il finit par des zéros, comme en laisse une coupure de courant.</translation>
    </message>
    <message>
        <source>It ends in the middle of a message.</source>
        <translation>Il finit au milieu d’un message.</translation>
    </message>
    <message>
        <source>Behind the messages kept a length of %1 is claimed, so that nothing more can be found.</source>
        <translation>Après les messages gardés une longueur de %1 est annoncée, si bien que rien d’autre ne peut être trouvé.</translation>
    </message>
    <message>
        <source>It is empty.</source>
        <translation>Il est vide.</translation>
    </message>
    <message>
        <source>There are no messages in it.</source>
        <translation>Il ne contient pas de messages.</translation>
    </message>
</context>
<context>
    <name>CoCTTImporter</name>
    <message>
        <source>No error.</source>
        <translation>Aucune erreur.</translation>
    </message>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Erreur d’importation à la ligne %1 du fichier %2.</translation>
    </message>
</context>
<context>
    <name>DatachunkHandler</name>
    <message>
        <source>The folder for chunk files is gone.</source>
        <translation>Le dossier des fichiers chunk n’existe plus.</translation>
    </message>
    <message>
        <source>The header of the chunk %1 is damaged; %2.</source>
        <translation>L’en-tête du chunk %1 est endommagé ; %2.</translation>
    </message>
    <message>
        <source>The notes or bookmarks of the chunk %1, which begin at byte %2, are damaged or cut short; %3.</source>
        <translation>Les notes ou signets du chunk %1, qui commencent à l’octet %2, sont endommagés ou tronqués ; %3.</translation>
    </message>
    <message>
        <source>The chunk %1 ends in the middle of record %2, which begins at byte %3; %4.</source>
        <translation>Le chunk %1 se termine au milieu de l’enregistrement %2, qui commence à l’octet %3 ; %4.</translation>
    </message>
    <message>
        <source>The chunk %1 is damaged at byte %2, where record %3 claims a length of %4; %5.</source>
        <translation>Le chunk %1 est endommagé à l’octet %2, où l’enregistrement %3 annonce une longueur de %4 ; %5.</translation>
    </message>
    <message>
        <source>%1 of the archive %2</source>
        <translation>%1 de l’archive %2</translation>
    </message>
    <message>
        <source>The entry %1 cannot be read and was left out.</source>
        <translation>L’entrée %1 est illisible et a été ignorée.</translation>
    </message>
    <message>
        <source>The entry %1 is damaged and cannot be unpacked beyond byte %2; %3.</source>
        <translation>L’entrée %1 est endommagée et ne peut être décompressée au-delà de l’octet %2 ; %3.</translation>
    </message>
    <message>
        <source>The entry %1 does not match its checksum; %2.</source>
        <translation>L’entrée %1 ne correspond pas à sa somme de contrôle ; %2.</translation>
    </message>
    <message>
        <source>The entry %1 was left out, because its name cannot be that of a file.</source>
        <translation>L’entrée %1 a été ignorée, car son nom ne peut être celui d’un fichier.</translation>
    </message>
    <message>
        <source>The directory of the archive %1 is damaged behind entry %2; what follows was left out.</source>
        <translation>Le répertoire de l’archive %1 est endommagé après l’entrée %2 ; la suite a été ignorée.</translation>
    </message>
    <message>
        <source>The archive %1 has more than %2 entries and is not read.</source>
        <translation>L’archive %1 a plus de %2 entrées et n’est pas lue.</translation>
    </message>
    <message>
        <source>The archive %1 has chunks with equal starts, of which only one is taken; chunks left out: %2.</source>
        <translation>L’archive %1 a des chunks de même début, dont un seul est retenu ; chunks ignorés : %2.</translation>
    </message>
    <message>
        <source>messages read: %1</source>
        <translation>messages lus : %1</translation>
    </message>
    <message>
        <source>bytes unpacked: %1</source>
        <translation>octets décompressés : %1</translation>
    </message>
    <message>
        <source>The archive %1 has more damage like that; entries not named: %2.</source>
        <translation>L’archive %1 a d’autres dommages de ce genre ; entrées non nommées : %2.</translation>
    </message>
    <message>
        <source>The file %1 could not be read to its end: %2</source>
        <translation>Le fichier %1 n’a pas pu être lu jusqu’à la fin : %2</translation>
    </message>
    <message>
        <source>The file %1 could not be written: %2</source>
        <translation>Le fichier %1 n’a pas pu être écrit : %2</translation>
    </message>
    <message>
        <source>There is not enough memory for the file %1.</source>
        <translation>La mémoire ne suffit pas pour le fichier %1.</translation>
    </message>
    <message>
        <source>An archive takes at most %1 files.</source>
        <translation>Une archive contient au plus %1 fichiers.</translation>
    </message>
    <message>
        <source>File seems to be empty or broken, nothing imported.</source>
        <translation>Le fichier semble vide ou endommagé, rien n’a été importé.</translation>
    </message>
    <message>
        <source>The archive %1 claims to hold more than can be in it and was not unpacked.</source>
        <translation>L’archive %1 annonce plus qu’elle ne peut contenir et n’a pas été décompressée.</translation>
    </message>
    <message>
        <source>A chunk cannot be written into a pipe.</source>
        <translation>Un chunk ne peut pas être écrit dans un tube.</translation>
    </message>
    <message>
        <source>This import file was created with a newer version of this tool and could not be imported.</source>
        <translation>Ce fichier d’importation a été créé avec une version plus récente de cet outil et n’a pas pu être importé.</translation>
    </message>
    <message>
        <source>Unknown import error</source>
        <translation>Erreur d’importation inconnue</translation>
    </message>
    <message>
        <source>There is no room on the disk to unpack the archive.</source>
        <translation>Il n’y a pas de place sur le disque pour décompresser l’archive.</translation>
    </message>
    <message>
        <source>This import file was created with a newer version of this tool and could not be imported.
Going live again.</source>
        <translation>Ce fichier d’importation a été créé avec une version plus récente de cet outil et n’a pas pu être importé.
Retour aux messages en direct.</translation>
    </message>
    <message>
        <source>The file contains more messages than actually could be importet. 

Please increase the maximum message count. 
Set it under Settings-&gt;Perfomance to a minimum of %1 to import the whole file</source>
        <translation>Le fichier contient plus de messages qu’il n’est possible d’en importer.

Veuillez augmenter le nombre maximal de messages.
Réglez-le sous Paramètres-&gt;Performances à %1 au moins pour importer le fichier entier</translation>
    </message>
    <message>
        <source>The folder for chunk files could not be created. Messages beyond the limit are lost.</source>
        <translation>Le dossier des fichiers chunk n’a pas pu être créé. Les messages au-delà de la limite sont perdus.</translation>
    </message>
    <message>
        <source>The file at %1 does not exists.</source>
        <translation>Le fichier %1 n’existe pas.</translation>
    </message>
    <message>
        <source>The disk takes messages more slowly than they arrive. The oldest ones that waited for it are lost.</source>
        <translation>Le disque prend les messages plus lentement qu’ils n’arrivent. Les plus anciens qui attendaient sont perdus.</translation>
    </message>
    <message>
        <source>Nothing to export.</source>
        <translation>Il n’y a rien à exporter.</translation>
    </message>
    <message>
        <source>No filename specified.</source>
        <translation>Aucun nom de fichier n’est indiqué.</translation>
    </message>
    <message>
        <source>It is compressed, and its end is missing.</source>
        <translation>Il est compressé, et sa fin manque.</translation>
    </message>
    <message>
        <source>It is compressed and damaged.</source>
        <translation>Il est compressé et endommagé.</translation>
    </message>
    <message>
        <source>Unpacking it takes more than %1 MiB of memory.</source>
        <translation>Le décompresser demande plus de %1 Mio de mémoire.</translation>
    </message>
    <message>
        <source>Something else stands behind the end of what is compressed.</source>
        <translation>Autre chose suit la fin de ce qui est compressé.</translation>
    </message>
    <message>
        <source>The archive %1 holds several files and no chunk. Unpack it first.</source>
        <translation>L’archive %1 contient plusieurs fichiers et pas de chunk. Décompressez-la d’abord.</translation>
    </message>
    <message>
        <source>The file in the archive %1 is encrypted or packed in a way that is not known.</source>
        <translation>Le fichier dans l’archive %1 est chiffré ou compressé d’une façon inconnue.</translation>
    </message>
    <message>
        <source>The file %1 is compressed more than once. Unpack it first.</source>
        <translation>Le fichier %1 est compressé plus d’une fois. Décompressez-le d’abord.</translation>
    </message>
    <message>
        <source>The file %1 holds an archive of several files. Unpack it first.</source>
        <translation>Le fichier %1 contient une archive de plusieurs fichiers. Décompressez-le d’abord.</translation>
    </message>
    <message>
        <source>It unpacks to more than 1000 times its size.</source>
        <translation>Il devient plus de 1000 fois plus grand une fois décompressé.</translation>
    </message>
    <message>
        <source>The chunk %1 is still being written. Notes and bookmarks on its messages can be changed when it is complete.</source>
        <translation>Le chunk %1 est encore en cours d’écriture. Les notes et signets sur ses messages pourront être modifiés quand il sera complet.</translation>
    </message>
    <message>
        <source>The chunk %1 was created with a newer version of this tool, which has to change it.</source>
        <translation>Le chunk %1 a été créé avec une version plus récente de cet outil, qui seule peut le modifier.</translation>
    </message>
    <message>
        <source>The chunk %1 is damaged. It has to be repaired before notes and bookmarks on its messages can be changed.</source>
        <translation>Le chunk %1 est endommagé. Il doit être réparé avant que les notes et signets sur ses messages puissent être modifiés.</translation>
    </message>
    <message>
        <source>The chunk %1 is of an old version, which has no bookmarks. Export it as a new chunk first.</source>
        <translation>Le chunk %1 est d’une ancienne version, qui n’a pas de signets. Exportez-le d’abord comme nouveau chunk.</translation>
    </message>
    <message>
        <source>The recording has ended, and what was not saved of it is gone.</source>
        <translation>L’enregistrement est terminé, et ce qui n’en a pas été sauvegardé est perdu.</translation>
    </message>
    <message>
        <source>This recording keeps no bookmarks on messages in memory. Write a note instead.</source>
        <translation>Cet enregistrement ne garde pas de signets sur les messages en mémoire. Écrivez une note à la place.</translation>
    </message>
    <message>
        <source>The disk takes its time with the message. Try it again later.</source>
        <translation>Le disque prend son temps pour le message. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>What is in the archive %1 stays as it is. Unpack the archive and open its chunks to change notes and bookmarks.</source>
        <translation>Ce qui est dans l’archive %1 reste tel quel. Extrayez l’archive et ouvrez ses chunks pour modifier les notes et signets.</translation>
    </message>
</context>
<context>
    <name>GenericFileImporter</name>
    <message>
        <source>No error.</source>
        <translation>Aucune erreur.</translation>
    </message>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Erreur d’importation à la ligne %1 du fichier %2.</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>empty</source>
        <translation>vide</translation>
    </message>
    <message>
        <source>header</source>
        <translation>en-tête</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>commentaire</translation>
    </message>
    <message>
        <source>statistics</source>
        <translation>statistiques</translation>
    </message>
    <message>
        <source>too few fields</source>
        <translation>trop peu de champs</translation>
    </message>
    <message>
        <source>not the shape of a frame</source>
        <translation>pas la forme d’une trame</translation>
    </message>
    <message>
        <source>a number that cannot be read</source>
        <translation>un nombre illisible</translation>
    </message>
    <message>
        <source>a kind of frame that cannot be kept</source>
        <translation>un type de trame qui ne peut être conservé</translation>
    </message>
    <message>
        <source>behind the end of the trace</source>
        <translation>après la fin de la trace</translation>
    </message>
    <message>
        <source>longer than a line may be</source>
        <translation>plus longue qu’une ligne ne peut l’être</translation>
    </message>
    <message>
        <source>data cut or changed</source>
        <translation>données tronquées ou modifiées</translation>
    </message>
    <message>
        <source>length changed</source>
        <translation>longueur modifiée</translation>
    </message>
    <message>
        <source>identifier changed</source>
        <translation>identifiant modifié</translation>
    </message>
    <message>
        <source>time cut or changed</source>
        <translation>temps tronqué ou modifié</translation>
    </message>
</context>
<context>
    <name>IxxatFileImporter</name>
    <message>
        <source>No error.</source>
        <translation>Aucune erreur.</translation>
    </message>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Erreur d’importation à la ligne %1 du fichier %2.</translation>
    </message>
    <message>
        <source>Import error occured. No valid column description found.</source>
        <translation>Erreur d’importation. Il n’y a pas de description valide des colonnes.</translation>
    </message>
</context>
<context>
    <name>ParquetTrace</name>
    <message>
        <source>The file is no Parquet file.</source>
        <translation>Le fichier n’est pas un fichier Parquet.</translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is not in both, or of another type.</source>
        <translation>La colonne « %1 » n’est pas dans les deux ou est d’un autre type.</translation>
    </message>
</context>
<context>
    <name>PeakTraceImporter</name>
    <message>
        <source>Import error occured at line %1 of file %2.</source>
        <translation>Erreur d’importation à la ligne %1 du fichier %2.</translation>
    </message>
    <message>
        <source>Import error occured. No valid column description found.</source>
        <translation>Erreur d’importation. Il n’y a pas de description valide des colonnes.</translation>
    </message>
    <message>
        <source>No error.</source>
        <translation>Aucune erreur.</translation>
    </message>
</context>
<context>
    <name>TraceCheck</name>
    <message>
        <source>Behind message %1 comes message %2: %3 messages are missing.</source>
        <translation>Après le message %1 vient le message %2 : %3 messages manquent.</translation>
    </message>
    <message>
        <source>The time falls from %1 s to %2 s.</source>
        <translation>Le temps recule de %1 s à %2 s.</translation>
    </message>
    <message>
        <source>The header is damaged or cut short.</source>
        <translation>L’en-tête est endommagé ou tronqué.</translation>
    </message>
    <message>
        <source>The chunk is too large to be checked to its end.</source>
        <translation>Le chunk est trop grand pour être vérifié jusqu’à sa fin.</translation>
    </message>
    <message>
        <source>The version is no number, so that this may be no chunk.</source>
        <translation>La version n’est pas un nombre, si bien que ce n’est peut-être pas un chunk.</translation>
    </message>
    <message>
        <source>The version %1 is newer than %2 and cannot be checked.</source>
        <translation>La version %1 est plus récente que %2 et ne peut être vérifiée.</translation>
    </message>
    <message>
        <source>The notes or bookmarks are damaged or cut short; nothing behind them can be relied on.</source>
        <translation>Les notes ou signets sont endommagés ou tronqués ; rien de ce qui suit n’est fiable.</translation>
    </message>
    <message>
        <source>The bookmark on message %1 is damaged.</source>
        <translation>Le signet sur le message %1 est endommagé.</translation>
    </message>
    <message>
        <source>The header names no times.</source>
        <translation>L’en-tête n’indique pas de temps.</translation>
    </message>
    <message>
        <source>The header names the times %1, but the messages are from %2 to %3.</source>
        <translation>L’en-tête indique les temps %1, mais les messages vont de %2 à %3.</translation>
    </message>
    <message>
        <source>The chunk ends in the middle of this record.</source>
        <translation>Le chunk se termine au milieu de cet enregistrement.</translation>
    </message>
    <message>
        <source>The record claims a length of %1; nothing from here on can be read.</source>
        <translation>L’enregistrement annonce une longueur de %1 ; rien ne peut être lu à partir d’ici.</translation>
    </message>
    <message>
        <source>There are no messages in the chunk.</source>
        <translation>Il n’y a pas de messages dans le chunk.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Le fichier est vide.</translation>
    </message>
    <message>
        <source>The chunk begins with message %1, but %2 ends with message %3.</source>
        <translation>Le chunk commence par le message %1, mais %2 finit par le message %3.</translation>
    </message>
    <message>
        <source>There are %1 more like that.</source>
        <translation>Il y en a encore %1 de ce genre.</translation>
    </message>
    <message>
        <source>%1 records hold nothing but zeros, as a loss of power leaves them.</source>
        <translation>%1 enregistrements ne contiennent que des zéros, comme en laisse une coupure de courant.</translation>
    </message>
    <message>
        <source>A flag of message %1 is neither 0 nor 1.</source>
        <translation>Un indicateur du message %1 n’est ni 0 ni 1.</translation>
    </message>
    <message>
        <source>The identifier of message %1 has more than 29 bits: %2.</source>
        <translation>L’identifiant du message %1 a plus de 29 bits : %2.</translation>
    </message>
    <message>
        <source>The fraction of the time of message %1 is %2 microseconds.</source>
        <translation>La fraction du temps du message %1 est de %2 microsecondes.</translation>
    </message>
    <message>
        <source>Message %1 comes behind message %2.</source>
        <translation>Le message %1 vient après le message %2.</translation>
    </message>
    <message>
        <source>no regular file</source>
        <translation>pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>The directory knows an earlier state of the chunk, and nobody goes by it.</source>
        <translation>Le répertoire connaît un état antérieur du chunk, et rien n’en tient compte.</translation>
    </message>
    <message>
        <source>The directory does not say what the chunk holds.</source>
        <translation>Le répertoire ne dit pas ce que contient le chunk.</translation>
    </message>
    <message>
        <source>This is no directory that was made by this user on this machine, so that nobody goes by it.</source>
        <translation>Ce n’est pas un répertoire fait par cet utilisateur sur cette machine, si bien que rien n’en tient compte.</translation>
    </message>
    <message>
        <source>The directory is damaged; nobody goes by what is damaged of it.</source>
        <translation>Le répertoire est endommagé ; rien ne tient compte de ce qui y est endommagé.</translation>
    </message>
    <message>
        <source>There is no chunk file in the folder.</source>
        <translation>Il n’y a pas de fichier chunk dans le dossier.</translation>
    </message>
    <message>
        <source>The file is no archive, or its directory is damaged.</source>
        <translation>Le fichier n’est pas une archive, ou son répertoire est endommagé.</translation>
    </message>
    <message>
        <source>There is no chunk file in the archive.</source>
        <translation>Il n’y a pas de fichier chunk dans l’archive.</translation>
    </message>
    <message>
        <source>The name cannot be that of a file, so that the entry is not unpacked.</source>
        <translation>Le nom ne peut être celui d’un fichier, si bien que l’entrée n’est pas décompressée.</translation>
    </message>
    <message>
        <source>The entry does not match its checksum.</source>
        <translation>L’entrée ne correspond pas à sa somme de contrôle.</translation>
    </message>
    <message>
        <source>The entry is damaged and cannot be unpacked any further.</source>
        <translation>L’entrée est endommagée et ne peut être décompressée plus loin.</translation>
    </message>
</context>
<context>
    <name>TraceExport</name>
    <message>
        <source>Left out: CAN FD frames (%1).</source>
        <translation>Ignorées : trames CAN FD (%1).</translation>
    </message>
    <message>
        <source>Left out: frames whose identifier has more than 29 bits (%1).</source>
        <translation>Ignorées : trames dont l’identifiant a plus de 29 bits (%1).</translation>
    </message>
    <message>
        <source>Not written: the direction of sent messages (%1).</source>
        <translation>Non écrite : la direction des messages envoyés (%1).</translation>
    </message>
    <message>
        <source>Not written: notes (%1).</source>
        <translation>Non écrites : notes (%1).</translation>
    </message>
    <message>
        <source>Cut: notes longer than the format allows (%1).</source>
        <translation>Tronquées : notes plus longues que le format ne le permet (%1).</translation>
    </message>
    <message>
        <source>Not written: the bus lines of messages (%1).</source>
        <translation>Non écrits : les canaux des messages (%1).</translation>
    </message>
    <message>
        <source>Not written: the payload of error frames, which tells their type (%1).</source>
        <translation>Non écrites : les données des trames d’erreur, qui indiquent leur type (%1).</translation>
    </message>
    <message>
        <source>Written as extended: standard identifiers above 7FF (%1).</source>
        <translation>Écrits comme étendus : identifiants standard au-delà de 7FF (%1).</translation>
    </message>
    <message>
        <source>Written as CAN FD: frames of more than 8 bytes without its flag (%1).</source>
        <translation>Écrites comme CAN FD : trames de plus de 8 octets sans son indicateur (%1).</translation>
    </message>
    <message>
        <source>Written as classic CAN: remote frames with the flag of CAN FD (%1).</source>
        <translation>Écrites comme CAN classique : trames de requête avec l’indicateur de CAN FD (%1).</translation>
    </message>
    <message>
        <source>Not written: the payload of remote frames (%1).</source>
        <translation>Non écrites : les données des trames de requête (%1).</translation>
    </message>
    <message>
        <source>Written with another length: messages whose length no frame has (%1).</source>
        <translation>Écrits avec une autre longueur : messages d’une longueur qu’aucune trame n’a (%1).</translation>
    </message>
    <message>
        <source>Not written: flags that the format does not have (%1).</source>
        <translation>Non écrits : indicateurs que le format n’a pas (%1).</translation>
    </message>
    <message>
        <source>Written with times from the start of the trace: messages with a date (%1).</source>
        <translation>Écrits avec des temps depuis le début de la trace : messages avec une date (%1).</translation>
    </message>
    <message>
        <source>Written with another time: messages before the start, out of order, or too late for the format (%1).</source>
        <translation>Écrits avec un autre temps : messages avant le début, dans le désordre, ou trop tardifs pour le format (%1).</translation>
    </message>
    <message>
        <source>Written without the last digits: times more exact than the format (%1).</source>
        <translation>Écrits sans les derniers chiffres : temps plus précis que le format (%1).</translation>
    </message>
</context>
<context>
    <name>TraceExpression</name>
    <message>
        <source>An &quot;and&quot; or &quot;or&quot; is missing here.</source>
        <translation>Il manque ici un « and » ou un « or ».</translation>
    </message>
    <message>
        <source>Parentheses may be %1 levels deep.</source>
        <translation>Les parenthèses peuvent avoir %1 niveaux.</translation>
    </message>
    <message>
        <source>A closing parenthesis is missing here.</source>
        <translation>Il manque ici une parenthèse fermante.</translation>
    </message>
    <message>
        <source>A condition is missing here.</source>
        <translation>Il manque ici une condition.</translation>
    </message>
    <message>
        <source>Bytes are counted from b0 to b63.</source>
        <translation>Les octets sont comptés de b0 à b63.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no word of filters.</source>
        <translation>« %1 » n’est pas un mot des filtres.</translation>
    </message>
    <message>
        <source>A comparison or a range is missing here.</source>
        <translation>Il manque ici une comparaison ou une plage.</translation>
    </message>
    <message>
        <source>The range ends before it begins.</source>
        <translation>La plage se termine avant de commencer.</translation>
    </message>
    <message>
        <source>A ~ and bytes in quotes are missing here.</source>
        <translation>Il manque ici un ~ et des octets entre guillemets.</translation>
    </message>
    <message>
        <source>The text is empty.</source>
        <translation>Le texte est vide.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no hexadecimal number.</source>
        <translation>« %1 » n’est pas un nombre hexadécimal.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no decimal number.</source>
        <translation>« %1 » n’est pas un nombre décimal.</translation>
    </message>
    <message>
        <source>A hexadecimal number is missing here.</source>
        <translation>Il manque ici un nombre hexadécimal.</translation>
    </message>
    <message>
        <source>A decimal number is missing here.</source>
        <translation>Il manque ici un nombre décimal.</translation>
    </message>
    <message>
        <source>A blank behind the sign is not allowed.</source>
        <translation>Un espace après le signe n’est pas permis.</translation>
    </message>
    <message>
        <source>A second has at most 6 digits behind the point.</source>
        <translation>Une seconde a au plus 6 chiffres après le point.</translation>
    </message>
    <message>
        <source>The highest number here is %1.</source>
        <translation>Le plus grand nombre possible ici est %1.</translation>
    </message>
    <message>
        <source>A text in quotes is missing here.</source>
        <translation>Il manque ici un texte entre guillemets.</translation>
    </message>
    <message>
        <source>The text that begins here has no quote at its end.</source>
        <translation>Le texte qui commence ici n’a pas de guillemet à la fin.</translation>
    </message>
    <message>
        <source>Bytes in quotes are missing here.</source>
        <translation>Il manque ici des octets entre guillemets.</translation>
    </message>
    <message>
        <source>No message has more than %1 bytes.</source>
        <translation>Aucun message n’a plus de %1 octets.</translation>
    </message>
    <message>
        <source>A byte is missing here.</source>
        <translation>Il manque ici un octet.</translation>
    </message>
    <message>
        <source>A quote is missing here.</source>
        <translation>Il manque ici un guillemet.</translation>
    </message>
    <message>
        <source>A byte is two hexadecimal digits, or ? for those that are open.</source>
        <translation>Un octet s’écrit en deux chiffres hexadécimaux, ou ? pour ceux qui sont libres.</translation>
    </message>
    <message>
        <source>A filter has at most %1 characters.</source>
        <translation>Un filtre a au plus %1 caractères.</translation>
    </message>
    <message>
        <source>A number needs a word in front of it, as in id==%1.</source>
        <translation>Un nombre doit être précédé d’un mot, comme dans id==%1.</translation>
    </message>
    <message>
        <source>A comparison for equality has two signs, as in id==1a0.</source>
        <translation>Une comparaison d’égalité s’écrit avec deux signes, comme dans id==1a0.</translation>
    </message>
</context>
<context>
    <name>TraceRecognition</name>
    <message>
        <source>This is a binary log (BLF). Export it as an ASC text and import that.</source>
        <translation>C’est un journal binaire (BLF). Exportez-le en texte ASC et importez celui-ci.</translation>
    </message>
    <message>
        <source>This is a measurement file (MDF). Export its frames as an ASC text and import that.</source>
        <translation>C’est un fichier de mesure (MDF). Exportez ses trames en texte ASC et importez celui-ci.</translation>
    </message>
    <message>
        <source>This is a packet capture (pcap). Export it as CSV text and import that.</source>
        <translation>C’est une capture de paquets (pcap). Exportez-la en texte CSV et importez celui-ci.</translation>
    </message>
    <message>
        <source>This is a packet capture (pcapng). Export it as CSV text and import that.</source>
        <translation>C’est une capture de paquets (pcapng). Exportez-la en texte CSV et importez celui-ci.</translation>
    </message>
    <message>
        <source>Line %1 is a frame of the type %2, and %3 of the %4 lines looked at are frames.</source>
        <translation>La ligne %1 est une trame du type %2, et %3 des %4 lignes examinées sont des trames.</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>Le fichier ne peut pas être ouvert : %1</translation>
    </message>
    <message>
        <source>The name of the file ends as that of a chunk file.</source>
        <translation>Le nom du fichier se termine comme celui d’un fichier chunk.</translation>
    </message>
    <message>
        <source>The file begins or is named as a ZIP archive.</source>
        <translation>Le fichier commence ou se nomme comme une archive ZIP.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Le fichier est vide.</translation>
    </message>
    <message>
        <source>The file is no text, and of no kind that is known.</source>
        <translation>Le fichier n’est pas un texte, ni d’un genre connu.</translation>
    </message>
    <message>
        <source>None of the lines looked at is a frame of a known format. A text of fields between blanks can be read by describing its layout.</source>
        <translation>Aucune des lignes examinées n’est une trame d’un format connu. Un texte de champs séparés par des espaces peut être lu si l’on décrit sa disposition.</translation>
    </message>
    <message>
        <source>The file is compressed (%1).</source>
        <translation>Le fichier est compressé (%1).</translation>
    </message>
</context>
<context>
    <name>TraceTableModel</name>
    <message>
        <source>no longer there</source>
        <translation>n’existe plus</translation>
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
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifiant</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Longueur</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Données</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
</context>
<context>
    <name>TraceTimeline</name>
    <message>
        <source>The chunk %1 was created with a newer version of this tool; nothing of it is shown.</source>
        <translation>Le chunk %1 a été créé avec une version plus récente de cet outil ; rien n’en est montré.</translation>
    </message>
    <message>
        <source>The chunk %1 is no longer there.</source>
        <translation>Le chunk %1 n’existe plus.</translation>
    </message>
    <message>
        <source>There is no chunk file %1.</source>
        <translation>Il n’y a pas de fichier chunk %1.</translation>
    </message>
    <message>
        <source>The message is no longer there.</source>
        <translation>Le message n’existe plus.</translation>
    </message>
    <message>
        <source>The trace is another one by now, and the message not in its place.</source>
        <translation>La trace est devenue une autre entre-temps, et le message n’est plus à sa place.</translation>
    </message>
</context>
</TS>
