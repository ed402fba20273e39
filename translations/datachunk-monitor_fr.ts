<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>Archiving</name>
    <message>
        <source>There is no place for temporary files.</source>
        <translation>Il n’y a pas de place pour des fichiers temporaires.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created.</source>
        <translation>Le dossier %1 n’a pas pu être créé.</translation>
    </message>
</context>
<context>
    <name>BackgroundJob</name>
    <message>
        <source>%1: the system has no thread left.</source>
        <translation>%1&#xa0;: le système n’a plus de fil d’exécution libre.</translation>
    </message>
    <message>
        <source>Close other programs and try again.</source>
        <translation>Fermez d’autres programmes et réessayez.</translation>
    </message>
    <message>
        <source>%1: the memory is not enough.</source>
        <translation>%1&#xa0;: la mémoire ne suffit pas.</translation>
    </message>
    <message>
        <source>Close other programs or traces and try again.</source>
        <translation>Fermez d’autres programmes ou traces et réessayez.</translation>
    </message>
</context>
<context>
    <name>BusAdvice</name>
    <message>
        <source>There is no CAN bus plug-in &quot;%1&quot;.</source>
        <translation>Il n’y a pas de greffon de bus CAN «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Install the plug-ins of Qt&apos;s serial bus module.</source>
        <translation>Installez les greffons du module de bus série de Qt.</translation>
    </message>
    <message>
        <source>The plug-ins here are: %1.</source>
        <translation>Les greffons présents sont&#xa0;: %1.</translation>
    </message>
    <message>
        <source>There is no CAN interface %1.</source>
        <translation>Il n’y a pas d’interface CAN %1.</translation>
    </message>
    <message>
        <source>Make it: &quot;sudo ip link add %1 type vcan&quot;, then &quot;sudo ip link set %1 up&quot;.</source>
        <translation>Créez-la&#xa0;: «&#xa0;sudo ip link add %1 type vcan&#xa0;», puis «&#xa0;sudo ip link set %1 up&#xa0;».</translation>
    </message>
    <message>
        <source>The CAN interface %1 is down.</source>
        <translation>L’interface CAN %1 n’est pas active.</translation>
    </message>
    <message>
        <source>Bring it up: &quot;sudo ip link set %1 up&quot;.</source>
        <translation>Activez-la&#xa0;: «&#xa0;sudo ip link set %1 up&#xa0;».</translation>
    </message>
    <message>
        <source>Bring it up: &quot;sudo ip link set %1 up type can bitrate %2&quot;.</source>
        <translation>Activez-la&#xa0;: «&#xa0;sudo ip link set %1 up type can bitrate %2&#xa0;».</translation>
    </message>
    <message>
        <source>%1 of %2 could not be connected.</source>
        <translation>%1 de %2 n’a pas pu être connectée.</translation>
    </message>
    <message>
        <source>You may not use this device: have yourself added to the group that owns it, and log in again.</source>
        <translation>Vous n’avez pas le droit d’utiliser cet appareil&#xa0;: faites-vous ajouter au groupe auquel il appartient, puis reconnectez-vous à la session.</translation>
    </message>
    <message>
        <source>The library of the adapter&apos;s maker is missing: install his driver for Linux and connect again.</source>
        <translation>La bibliothèque du fabricant de l’adaptateur manque&#xa0;: installez son pilote pour Linux et connectez de nouveau.</translation>
    </message>
    <message>
        <source>Plug the adapter in and connect again; no other interface is found.</source>
        <translation>Branchez l’adaptateur et connectez de nouveau&#xa0;; aucune autre interface n’est trouvée.</translation>
    </message>
    <message>
        <source>Plug the adapter in and connect again, or take one of these: %1.</source>
        <translation>Branchez l’adaptateur et connectez de nouveau, ou prenez l’une de celles-ci&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>BusDesk</name>
    <message>
        <source>&amp;Connect…</source>
        <translation>&amp;Connecter…</translation>
    </message>
    <message>
        <source>&amp;Try it without hardware</source>
        <translation>Essayer sans &amp;matériel</translation>
    </message>
    <message>
        <source>Connects a generator of traffic.</source>
        <translation>Connecte un générateur de trafic.</translation>
    </message>
    <message>
        <source>&amp;New recording</source>
        <translation>&amp;Nouvel enregistrement</translation>
    </message>
    <message>
        <source>Recording s&amp;ettings…</source>
        <translation>&amp;Réglages de l’enregistrement…</translation>
    </message>
    <message>
        <source>Another monitor runs already.</source>
        <translation>Un autre moniteur est déjà ouvert.</translation>
    </message>
    <message>
        <source>Both may record, each into a folder of its own; settings are kept from the one that changes them last.</source>
        <translation>Les deux peuvent enregistrer, chacun dans son propre dossier&#xa0;; les réglages conservés sont ceux du dernier qui les change.</translation>
    </message>
    <message>
        <source>Stop &amp;all lines</source>
        <translation>&amp;Arrêter tous les canaux</translation>
    </message>
    <message>
        <source>&amp;Save recording…</source>
        <translation>&amp;Sauvegarder l’enregistrement…</translation>
    </message>
</context>
<context>
    <name>BusLine</name>
    <message>
        <source>connecting</source>
        <translation>connexion</translation>
    </message>
    <message>
        <source>running</source>
        <translation>en marche</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>connecté</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>en pause</translation>
    </message>
    <message>
        <source>lost, trying again</source>
        <translation>perdu, nouvel essai</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>échec</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>arrêté</translation>
    </message>
</context>
<context>
    <name>BusLines</name>
    <message numerus="yes">
        <source>There are %n bus lines already.</source>
        <translation>
            <numerusform>Il y a déjà %n canal.</numerusform>
            <numerusform>Il y a déjà %n canaux.</numerusform>
        </translation>
    </message>
    <message>
        <source>Remove those that are not needed any more.</source>
        <translation>Enlevez ceux dont vous n’avez plus besoin.</translation>
    </message>
</context>
<context>
    <name>ChunkCopy</name>
    <message>
        <source>%1 is there already.</source>
        <translation>%1 existe déjà.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2.</source>
        <translation>%1 n’a pas pu être écrit&#xa0;: %2.</translation>
    </message>
    <message>
        <source>There are no chunks in %1; somebody has removed them.</source>
        <translation>Il n’y a pas de chunks dans %1&#xa0;; quelqu’un les a enlevés.</translation>
    </message>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>Le dossier %1 n’a pas pu être créé.</translation>
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
        <translation>Messages</translation>
    </message>
    <message>
        <source>First time</source>
        <translation>Premier temps</translation>
    </message>
    <message>
        <source>Last time</source>
        <translation>Dernier temps</translation>
    </message>
    <message>
        <source>in memory</source>
        <translation>en mémoire</translation>
    </message>
    <message>
        <source>Chunks of %1</source>
        <translation>Chunks de %1</translation>
    </message>
    <message>
        <source>&amp;Go there</source>
        <translation>&amp;Y aller</translation>
    </message>
</context>
<context>
    <name>ConnectDialog</name>
    <message>
        <source>Look a&amp;gain</source>
        <translation>Chercher à &amp;nouveau</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connecter</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>What it is</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Shown as bus li&amp;ne:</source>
        <translation>Affiché comme cana&amp;l&#xa0;:</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Connecter</translation>
    </message>
    <message>
        <source>Recorded trace</source>
        <translation>Trace enregistrée</translation>
    </message>
    <message>
        <source>comes again as if it were received</source>
        <translation>revient comme si elle était reçue</translation>
    </message>
    <message>
        <source>Generator</source>
        <translation>Générateur</translation>
    </message>
    <message>
        <source>traffic without hardware</source>
        <translation>trafic sans matériel</translation>
    </message>
    <message>
        <source>connected last</source>
        <translation>connectée en dernier</translation>
    </message>
    <message>
        <source>looking for interfaces…</source>
        <translation>recherche d’interfaces…</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Autre…</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>none found; type its name</source>
        <translation>aucune trouvée&#xa0;; tapez son nom</translation>
    </message>
</context>
<context>
    <name>ConvertDialog</name>
    <message>
        <source>&amp;Each into a file of its own, in the folder</source>
        <translation>&amp;Chacun dans son propre fichier, dans le dossier</translation>
    </message>
    <message>
        <source>All &amp;merged by time, into the file</source>
        <translation>Tous &amp;fusionnés par temps, dans le fichier</translation>
    </message>
    <message>
        <source>&amp;Convert</source>
        <translation>Con&amp;vertir</translation>
    </message>
    <message>
        <source>Files to convert</source>
        <translation>Fichiers à convertir</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Enlever</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Parcourir…</translation>
    </message>
    <message>
        <source>&amp;Into:</source>
        <translation>Ve&amp;rs&#xa0;:</translation>
    </message>
    <message>
        <source>F&amp;ormat:</source>
        <translation>F&amp;ormat&#xa0;:</translation>
    </message>
    <message>
        <source>This is one of the files to read; choose another name.</source>
        <translation>C’est l’un des fichiers à lire&#xa0;; choisissez un autre nom.</translation>
    </message>
    <message>
        <source>The file exists already and will be replaced.</source>
        <translation>Le fichier existe déjà et sera remplacé.</translation>
    </message>
    <message>
        <source>This is a folder; add a name.</source>
        <translation>C’est un dossier&#xa0;; ajoutez un nom.</translation>
    </message>
    <message>
        <source>Add the files and folders to convert, or drop them here.</source>
        <translation>Ajoutez les fichiers et dossiers à convertir, ou déposez-les ici.</translation>
    </message>
    <message>
        <source>Convert files</source>
        <translation>Convertir des fichiers</translation>
    </message>
    <message>
        <source>&amp;Add files…</source>
        <translation>&amp;Ajouter des fichiers…</translation>
    </message>
    <message>
        <source>Add &amp;folder…</source>
        <translation>Ajouter un &amp;dossier…</translation>
    </message>
    <message>
        <source>Merge files</source>
        <translation>Fusionner des fichiers</translation>
    </message>
    <message>
        <source>Folder of chunks to convert</source>
        <translation>Dossier de chunks à convertir</translation>
    </message>
</context>
<context>
    <name>Converting</name>
    <message>
        <source>At most %1 traces are merged at a time.</source>
        <translation>Au plus %1 traces sont fusionnées à la fois.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created.</source>
        <translation>Le dossier %1 n’a pas pu être créé.</translation>
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
        <translation>%1 est de retour, et l’enregistrement continue.</translation>
    </message>
    <message>
        <source>%1 was lost.</source>
        <translation>%1 a été perdue.</translation>
    </message>
    <message>
        <source>%1 was lost: %2</source>
        <translation>%1 a été perdue&#xa0;: %2</translation>
    </message>
    <message>
        <source>Plug the adapter in again: the recording goes on as soon as it is back.</source>
        <translation>Rebranchez l’adaptateur&#xa0;: l’enregistrement continue dès qu’il est de retour.</translation>
    </message>
    <message>
        <source>The controller of %1 had no room for all frames, and some are lost.</source>
        <translation>Le contrôleur de %1 n’avait pas de place pour toutes les trames, et certaines sont perdues.</translation>
    </message>
    <message>
        <source>Close programs that keep the computer busy.</source>
        <translation>Fermez les programmes qui occupent l’ordinateur.</translation>
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
        <translation>tel que réglé</translation>
    </message>
    <message>
        <source>CAN &amp;FD</source>
        <translation>CAN &amp;FD</translation>
    </message>
    <message>
        <source>&amp;Interface:</source>
        <translation>&amp;Interface&#xa0;:</translation>
    </message>
    <message>
        <source>Bit &amp;rate:</source>
        <translation>&amp;Débit&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Data bit rate:</source>
        <translation>Débit des d&amp;onnées&#xa0;:</translation>
    </message>
    <message>
        <source>the name of the interface</source>
        <translation>le nom de l’interface</translation>
    </message>
    <message>
        <source>Set it with &quot;sudo ip link set %1 up type can bitrate …&quot;.</source>
        <translation>Réglez-le avec «&#xa0;sudo ip link set %1 up type can bitrate …&#xa0;».</translation>
    </message>
</context>
<context>
    <name>DeviceReader</name>
    <message>
        <source>It does not answer.</source>
        <translation>Elle ne répond pas.</translation>
    </message>
    <message>
        <source>The interface went down or was unplugged.</source>
        <translation>L’interface a été désactivée ou débranchée.</translation>
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
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>So far: %1 of %2 messages</source>
        <translation>Jusqu’ici&#xa0;: %1 messages sur %2</translation>
    </message>
    <message>
        <source>%1 messages of more identifiers are not listed</source>
        <translation>%1 messages d’autres identifiants ne sont pas listés</translation>
    </message>
</context>
<context>
    <name>DiskWatch</name>
    <message>
        <source>The disk of the recording is nearly full: %1 are left.</source>
        <translation>Le disque de l’enregistrement est presque plein&#xa0;: il reste %1.</translation>
    </message>
    <message>
        <source>Delete what is not needed, or save the recording to another disk.</source>
        <translation>Supprimez ce dont vous n’avez pas besoin, ou sauvegardez l’enregistrement sur un autre disque.</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>Times from message to &amp;message</source>
        <translation>Temps d’un &amp;message à l’autre</translation>
    </message>
    <message>
        <source>Write &amp;notes behind their messages</source>
        <translation>Écrire les &amp;notes après leurs messages</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>Exporter %1</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xporter</translation>
    </message>
    <message>
        <source>to</source>
        <translation>à</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>&amp;All, %1</source>
        <translation>&amp;Tous, %1</translation>
    </message>
    <message>
        <source>Those that the &amp;filter shows: %1</source>
        <translation>Ceux que montre le &amp;filtre&#xa0;: %1</translation>
    </message>
    <message>
        <source>Those that the &amp;filter shows</source>
        <translation>Ceux que montre le &amp;filtre</translation>
    </message>
    <message>
        <source>&amp;Selected rows, %1</source>
        <translation>Lignes &amp;sélectionnées, %1</translation>
    </message>
    <message>
        <source>&amp;Positions from</source>
        <translation>&amp;Positions de</translation>
    </message>
    <message>
        <source>&amp;Times from</source>
        <translation>T&amp;emps de</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>Pa&amp;rcourir…</translation>
    </message>
    <message>
        <source>F&amp;ile:</source>
        <translation>F&amp;ichier&#xa0;:</translation>
    </message>
    <message>
        <source>F&amp;ormat:</source>
        <translation>F&amp;ormat&#xa0;:</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>This is a folder; add a name.</source>
        <translation>C’est un dossier&#xa0;; ajoutez un nom.</translation>
    </message>
    <message>
        <source>There is no such folder.</source>
        <translation>Ce dossier n’existe pas.</translation>
    </message>
    <message>
        <source>The trace is read from there; choose another name.</source>
        <translation>La trace est lue à cet endroit&#xa0;; choisissez un autre nom.</translation>
    </message>
    <message>
        <source>The file exists already and will be replaced.</source>
        <translation>Le fichier existe déjà et sera remplacé.</translation>
    </message>
    <message>
        <source>The range is not complete, or its end is in front of its beginning.</source>
        <translation>La plage n’est pas complète, ou sa fin est avant son début.</translation>
    </message>
    <message>
        <source>%1 first</source>
        <translation>%1, début</translation>
    </message>
    <message>
        <source>%1 last</source>
        <translation>%1, fin</translation>
    </message>
</context>
<context>
    <name>Exporting</name>
    <message>
        <source>There is no message to write.</source>
        <translation>Il n’y a pas de message à écrire.</translation>
    </message>
    <message>
        <source>Writing %1 was cancelled.</source>
        <translation>L’écriture de %1 a été annulée.</translation>
    </message>
    <message>
        <source>Nothing of it was kept.</source>
        <translation>Rien n’en a été conservé.</translation>
    </message>
    <message>
        <source>%1 could not be written. %2</source>
        <translation>%1 n’a pas pu être écrit. %2</translation>
    </message>
    <message>
        <source>Choose another place or name, or other messages.</source>
        <translation>Choisissez un autre endroit ou nom, ou d’autres messages.</translation>
    </message>
    <message>
        <source>%1: %2 written.</source>
        <translation>%1&#xa0;: %2 écrits.</translation>
    </message>
    <message>
        <source>A chunk file (.dck) keeps everything.</source>
        <translation>Un fichier chunk (.dck) conserve tout.</translation>
    </message>
</context>
<context>
    <name>FileDesk</name>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>&amp;Chunks…</source>
        <translation>&amp;Chunks…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exporter…</translation>
    </message>
    <message>
        <source>Open &amp;folder…</source>
        <translation>Ouvrir un &amp;dossier…</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>Ouvrir &amp;récent</translation>
    </message>
    <message>
        <source>&amp;Import report</source>
        <translation>Rapport d’&amp;importation</translation>
    </message>
    <message>
        <source>Read in &amp;another way…</source>
        <translation>Lire &amp;autrement…</translation>
    </message>
    <message>
        <source>&amp;Pack into an archive…</source>
        <translation>&amp;Mettre en archive…</translation>
    </message>
    <message>
        <source>&amp;Unpack an archive…</source>
        <translation>E&amp;xtraire une archive…</translation>
    </message>
    <message>
        <source>Con&amp;vert files…</source>
        <translation>Co&amp;nvertir des fichiers…</translation>
    </message>
    <message>
        <source>&amp;Merge files…</source>
        <translation>&amp;Fusionner des fichiers…</translation>
    </message>
    <message>
        <source>Open traces</source>
        <translation>Ouvrir des traces</translation>
    </message>
    <message>
        <source>Open a folder of chunks</source>
        <translation>Ouvrir un dossier de chunks</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message numerus="yes">
        <source>%L1 messages</source>
        <translation>
            <numerusform>%L1 message</numerusform>
            <numerusform>%L1 messages</numerusform>
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
            <numerusform>%1 et %n autre</numerusform>
            <numerusform>%1 et %n autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>There are %n more.</source>
        <translation>
            <numerusform>Il y en a encore %n.</numerusform>
            <numerusform>Il y en a encore %n.</numerusform>
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
        <translation>Tous les messages restent visibles, et l’expression est recherchée</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Enregistrés</translation>
    </message>
    <message>
        <source>Saved and recent filters</source>
        <translation>Filtres enregistrés et récents</translation>
    </message>
    <message>
        <source>Find, for example: id==1a0 and b0&gt;80</source>
        <translation>Rechercher, par exemple&#xa0;: id==1a0 and b0&gt;80</translation>
    </message>
    <message>
        <source>Filter, for example: id==1a0 and b0&gt;80</source>
        <translation>Filtrer, par exemple&#xa0;: id==1a0 and b0&gt;80</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Recherche…</translation>
    </message>
    <message>
        <source>No more; F3 begins at the top</source>
        <translation>Plus rien&#xa0;; F3 reprend en haut</translation>
    </message>
    <message>
        <source>No more; Shift+F3 begins at the end</source>
        <translation>Plus rien&#xa0;; Maj+F3 reprend à la fin</translation>
    </message>
    <message>
        <source>%1 found</source>
        <translation>%1 trouvés</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>&amp;Récents</translation>
    </message>
    <message>
        <source>&amp;Manage…</source>
        <translation>&amp;Gérer…</translation>
    </message>
    <message>
        <source>Name of the filter:</source>
        <translation>Nom du filtre&#xa0;:</translation>
    </message>
    <message>
        <source>Sa&amp;ved filters</source>
        <translation>&amp;Filtres enregistrés</translation>
    </message>
    <message>
        <source>&amp;Find or filter…</source>
        <translation>&amp;Rechercher ou filtrer…</translation>
    </message>
    <message>
        <source>Find ne&amp;xt</source>
        <translation>Rechercher le s&amp;uivant</translation>
    </message>
    <message>
        <source>Find &amp;previous</source>
        <translation>Rechercher le &amp;précédent</translation>
    </message>
    <message>
        <source>Find &amp;only</source>
        <translation>Seulement rec&amp;hercher</translation>
    </message>
    <message>
        <source>&amp;Save this filter…</source>
        <translation>&amp;Enregistrer ce filtre…</translation>
    </message>
    <message>
        <source>Save filter</source>
        <translation>Enregistrer le filtre</translation>
    </message>
</context>
<context>
    <name>FilterDialog</name>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Enlever</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Expression</source>
        <translation>Expression</translation>
    </message>
    <message>
        <source>Saved filters</source>
        <translation>Filtres enregistrés</translation>
    </message>
</context>
<context>
    <name>FilterField</name>
    <message>
        <source>Ctrl+Space shows what may stand there.</source>
        <translation>Ctrl+Espace montre ce qui peut s’y trouver.</translation>
    </message>
</context>
<context>
    <name>FilterWords</name>
    <message>
        <source>identifier, hexadecimal: id==1a0, id in 100..1ff</source>
        <translation>identifiant, hexadécimal&#xa0;: id==1a0, id in 100..1ff</translation>
    </message>
    <message>
        <source>bus line: line==0</source>
        <translation>canal&#xa0;: line==0</translation>
    </message>
    <message>
        <source>bytes of payload: len&lt;8</source>
        <translation>octets de données&#xa0;: len&lt;8</translation>
    </message>
    <message>
        <source>message number: number&gt;=1000</source>
        <translation>numéro du message&#xa0;: number&gt;=1000</translation>
    </message>
    <message>
        <source>time stamp as recorded, in seconds: time 12.5..13</source>
        <translation>temps tel qu’enregistré, en secondes&#xa0;: time 12.5..13</translation>
    </message>
    <message>
        <source>first byte, and so on to b63: b0==ff, b3&amp;f0==a0</source>
        <translation>premier octet, et ainsi de suite jusqu’à b63&#xa0;: b0==ff, b3&amp;f0==a0</translation>
    </message>
    <message>
        <source>extended identifiers</source>
        <translation>identifiants étendus</translation>
    </message>
    <message>
        <source>CAN FD frames</source>
        <translation>trames CAN FD</translation>
    </message>
    <message>
        <source>bit rate switch</source>
        <translation>commutation de débit (BRS)</translation>
    </message>
    <message>
        <source>error state indicator</source>
        <translation>indicateur d’état d’erreur (ESI)</translation>
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
        <source>sent by this node</source>
        <translation>envoyés par ce nœud</translation>
    </message>
    <message>
        <source>these bytes anywhere: data~&quot;11 ?? 33&quot;</source>
        <translation>ces octets n’importe où&#xa0;: data~&quot;11 ?? 33&quot;</translation>
    </message>
    <message>
        <source>other payload than the message before</source>
        <translation>autres données que le message d’avant</translation>
    </message>
    <message>
        <source>messages with a note</source>
        <translation>messages avec une note</translation>
    </message>
    <message>
        <source>notes with this text: note~&quot;door&quot;</source>
        <translation>notes avec ce texte&#xa0;: note~&quot;porte&quot;</translation>
    </message>
    <message>
        <source>both</source>
        <translation>les deux</translation>
    </message>
    <message>
        <source>one of them</source>
        <translation>l’un des deux</translation>
    </message>
    <message>
        <source>all others</source>
        <translation>tous les autres</translation>
    </message>
    <message>
        <source>in one of these ranges</source>
        <translation>dans l’une de ces plages</translation>
    </message>
</context>
<context>
    <name>FormatBox</name>
    <message>
        <source>Chunk file (.dck)</source>
        <translation>Fichier chunk (.dck)</translation>
    </message>
    <message>
        <source>Text (.txt)</source>
        <translation>Texte (.txt)</translation>
    </message>
    <message>
        <source>Does not keep bookmarks.</source>
        <translation>Ne conserve pas les signets.</translation>
    </message>
    <message>
        <source>Vector ASC (.asc)</source>
        <translation>Vector ASC (.asc)</translation>
    </message>
    <message>
        <source>Does not keep notes and bookmarks.</source>
        <translation>Ne conserve pas les notes et signets.</translation>
    </message>
    <message>
        <source>candump log (.log)</source>
        <translation>Journal candump (.log)</translation>
    </message>
    <message>
        <source>Does not keep directions, notes and bookmarks.</source>
        <translation>Ne conserve pas les directions, notes et signets.</translation>
    </message>
    <message>
        <source>candump on the screen (.txt)</source>
        <translation>candump à l’écran (.txt)</translation>
    </message>
    <message>
        <source>Comma-separated values (.csv)</source>
        <translation>Valeurs séparées par virgules (.csv)</translation>
    </message>
    <message>
        <source>JSON lines (.jsonl)</source>
        <translation>Lignes JSON (.jsonl)</translation>
    </message>
    <message>
        <source>Packet capture (.pcapng)</source>
        <translation>Capture de paquets (.pcapng)</translation>
    </message>
    <message>
        <source>PEAK trace 2.1 (.trc)</source>
        <translation>Trace PEAK 2.1 (.trc)</translation>
    </message>
    <message>
        <source>PEAK trace 1.1 (.trc)</source>
        <translation>Trace PEAK 1.1 (.trc)</translation>
    </message>
    <message>
        <source>Does not keep CAN FD frames, bus lines, notes and bookmarks.</source>
        <translation>Ne conserve pas les trames CAN FD, canaux, notes et signets.</translation>
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
        <translation>Générateur</translation>
    </message>
</context>
<context>
    <name>GeneratorPage</name>
    <message>
        <source>CAN &amp;FD frames among them</source>
        <translation>Avec des trames CAN &amp;FD</translation>
    </message>
    <message>
        <source>&amp;Error frames among them</source>
        <translation>Avec des trames d’&amp;erreur</translation>
    </message>
    <message>
        <source> messages/s</source>
        <translation> messages/s</translation>
    </message>
    <message>
        <source>&amp;Rate:</source>
        <translation>&amp;Débit&#xa0;:</translation>
    </message>
    <message>
        <source>Bus &amp;lines:</source>
        <translation>Canau&amp;x&#xa0;:</translation>
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
        <translation>Identifiant</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Bus line</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Extended, remote, CAN FD, error frame</source>
        <translation>Étendu, requête, CAN FD, trame d’erreur</translation>
    </message>
    <message>
        <source>Len</source>
        <translation>Lg.</translation>
    </message>
    <message>
        <source>Payload bytes of the last message</source>
        <translation>Octets de données du dernier message</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Données</translation>
    </message>
    <message>
        <source>Payload of the last message; bytes that have just changed are marked</source>
        <translation>Données du dernier message&#xa0;; les octets qui viennent de changer sont marqués</translation>
    </message>
    <message>
        <source>Over time</source>
        <translation>Évolution</translation>
    </message>
    <message>
        <source>Messages over the whole trace</source>
        <translation>Messages sur toute la trace</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Messages in the trace</source>
        <translation>Messages dans la trace</translation>
    </message>
    <message>
        <source>Per s</source>
        <translation>Par s</translation>
    </message>
    <message>
        <source>Messages each second, of late</source>
        <translation>Messages par seconde, récemment</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Période</translation>
    </message>
    <message>
        <source>Time between messages, mean of the last eight</source>
        <translation>Temps entre messages, moyenne des huit derniers</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Time between messages, mean of all</source>
        <translation>Temps entre messages, moyenne de tous</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Shortest time between two messages</source>
        <translation>Temps le plus court entre deux messages</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Longest time between two messages</source>
        <translation>Temps le plus long entre deux messages</translation>
    </message>
    <message>
        <source>Age</source>
        <translation>Âge</translation>
    </message>
    <message>
        <source>Time from the last message to the end of the trace</source>
        <translation>Temps du dernier message à la fin de la trace</translation>
    </message>
</context>
<context>
    <name>IdentifierView</name>
    <message>
        <source>Type an identifier to see only those that contain it</source>
        <translation>Tapez un identifiant pour ne voir que ceux qui le contiennent</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifiant</translation>
    </message>
    <message>
        <source>Identifiers</source>
        <translation>Identifiants</translation>
    </message>
    <message>
        <source>&amp;Show last message</source>
        <translation>&amp;Montrer le dernier message</translation>
    </message>
    <message>
        <source>&amp;Only this identifier</source>
        <translation>&amp;Seulement cet identifiant</translation>
    </message>
    <message>
        <source>&amp;All but this identifier</source>
        <translation>&amp;Tous sauf cet identifiant</translation>
    </message>
</context>
<context>
    <name>IdentifiersPage</name>
    <message>
        <source>Identifiers</source>
        <translation>Identifiants</translation>
    </message>
    <message>
        <source>Choose an identifier to see its rate</source>
        <translation>Choisissez un identifiant pour voir son débit</translation>
    </message>
    <message>
        <source>Messages per second</source>
        <translation>Messages par seconde</translation>
    </message>
</context>
<context>
    <name>ImportedTrace</name>
    <message>
        <source>Reading %1</source>
        <translation>Lecture de %1</translation>
    </message>
    <message>
        <source>Reading %1 was cancelled.</source>
        <translation>La lecture de %1 a été annulée.</translation>
    </message>
    <message>
        <source>The %1 up to there are shown.</source>
        <translation>Lus jusque-là et affichés&#xa0;: %1.</translation>
    </message>
    <message>
        <source>%1 cannot be read as %2. %3</source>
        <translation>%1 ne peut pas être lu comme %2. %3</translation>
    </message>
    <message>
        <source>Try another type or way of reading it.</source>
        <translation>Essayez un autre type ou une autre façon de le lire.</translation>
    </message>
    <message>
        <source>%1 is not complete. %2</source>
        <translation>%1 n’est pas complet. %2</translation>
    </message>
    <message>
        <source>What could be read is shown. Try another copy of it.</source>
        <translation>Ce qui a pu être lu est affiché. Essayez-en une autre copie.</translation>
    </message>
    <message>
        <source>%1: %2 read.</source>
        <translation>%1&#xa0;: %2 lus.</translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines could not be read as frames.</source>
        <translation>
            <numerusform>%L1 ligne n’a pas pu être lue comme trame.</numerusform>
            <numerusform>%L1 lignes n’ont pas pu être lues comme trames.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 frames may not be as the file means them.</source>
        <translation>
            <numerusform>%L1 trame n’est peut-être pas telle que le fichier l’entend.</numerusform>
            <numerusform>%L1 trames ne sont peut-être pas telles que le fichier les entend.</numerusform>
        </translation>
    </message>
    <message>
        <source>The report tells which lines these are.</source>
        <translation>Le rapport indique quelles lignes ce sont.</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Rapport</translation>
    </message>
    <message>
        <source>Reading %1 has ended early. %2</source>
        <translation>La lecture de %1 s’est terminée trop tôt. %2</translation>
    </message>
    <message>
        <source>Make room on the disk of %1 and open it again; what was read is shown.</source>
        <translation>Faites de la place sur le disque de %1 et ouvrez le fichier de nouveau&#xa0;; ce qui a été lu est affiché.</translation>
    </message>
</context>
<context>
    <name>Items</name>
    <message numerus="yes">
        <source>%L1 messages are no longer there.</source>
        <translation>
            <numerusform>%L1 message n’existe plus.</numerusform>
            <numerusform>%L1 messages n’existent plus.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines of %2 could not be read as frames.</source>
        <translation>
            <numerusform>%L1 ligne de %2 n’a pas pu être lue comme trame.</numerusform>
            <numerusform>%L1 lignes de %2 n’ont pas pu être lues comme trames.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 n’a pas pu être lu.</translation>
    </message>
</context>
<context>
    <name>JobRows</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancel: %1</source>
        <translation>Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1: being cancelled</source>
        <translation>%1&#xa0;: annulation en cours</translation>
    </message>
    <message>
        <source>%1: waits for its turn</source>
        <translation>%1&#xa0;: attend son tour</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>encore %1</translation>
    </message>
    <message numerus="yes">
        <source>%n more wait</source>
        <translation>
            <numerusform>%n autre attend</numerusform>
            <numerusform>%n autres attendent</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>JumpTarget</name>
    <message>
        <source>A number from 0 to 4294967295 is wanted.</source>
        <translation>Il faut un nombre de 0 à 4294967295.</translation>
    </message>
    <message>
        <source>This is no time.</source>
        <translation>Ce n’est pas un temps.</translation>
    </message>
    <message>
        <source>14:05:09.5, with a date in front if need be; +1.5 or -1.5 from the current message</source>
        <translation>14:05:09.5, précédé d’une date au besoin&#xa0;; +1.5 ou -1.5 depuis le message actuel</translation>
    </message>
    <message>
        <source>12.5 in seconds as shown, 14:05:09 of the day, +1.5 or -1.5 from the current message</source>
        <translation>12.5 en secondes comme affiché, 14:05:09 du jour, +1.5 ou -1.5 depuis le message actuel</translation>
    </message>
    <message>
        <source>12.5 in seconds as shown, 1:02:03 from the start, +1.5 or -1.5 from the current message</source>
        <translation>12.5 en secondes comme affiché, 1:02:03 depuis le début, +1.5 ou -1.5 depuis le message actuel</translation>
    </message>
</context>
<context>
    <name>LeftRecordings</name>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>Le dossier %1 n’a pas pu être créé.</translation>
    </message>
    <message>
        <source>A recording of %1 was not closed, because its monitor was killed.</source>
        <translation>Un enregistrement du %1 n’a pas été fermé, car son moniteur a été tué.</translation>
    </message>
    <message numerus="yes">
        <source>%n recordings were not closed, the last one of %1.</source>
        <translation>
            <numerusform>%n enregistrement n’a pas été fermé, le dernier du %1.</numerusform>
            <numerusform>%n enregistrements n’ont pas été fermés, le dernier du %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>It can be recovered up to its last minute.</source>
        <translation>Tout peut être récupéré jusqu’à la dernière minute.</translation>
    </message>
    <message>
        <source>Recover or delete…</source>
        <translation>Récupérer ou supprimer…</translation>
    </message>
    <message>
        <source>Recordings left behind</source>
        <translation>Enregistrements laissés</translation>
    </message>
    <message>
        <source>What is to become of the recordings that were not closed?</source>
        <translation>Que faire des enregistrements qui n’ont pas été fermés&#xa0;?</translation>
    </message>
    <message>
        <source>There are %1. Recovered, they are put into %2 and opened.</source>
        <translation>Il y a %1. Récupérés, ils sont mis dans %2 et ouverts.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Récupérer</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Plus tard</translation>
    </message>
    <message>
        <source>Recovered %1</source>
        <translation>Récupéré %1</translation>
    </message>
    <message>
        <source>What could not be read stays where it is.</source>
        <translation>Ce qui n’a pas pu être lu reste où il est.</translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages were recovered.</source>
        <translation>
            <numerusform>%L1 message a été récupéré.</numerusform>
            <numerusform>%L1 messages ont été récupérés.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LineModel</name>
    <message>
        <source>Line</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>Per s</source>
        <translation>Par s</translation>
    </message>
    <message numerus="yes">
        <source>%L1 frames were no messages and are not recorded.</source>
        <translation>
            <numerusform>%L1 trame n’était pas un message et n’est pas enregistrée.</numerusform>
            <numerusform>%L1 trames n’étaient pas des messages et ne sont pas enregistrées.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LineTable</name>
    <message>
        <source>In kbit/s; press F2 to change it.</source>
        <translation>En kbit/s&#xa0;; appuyez sur F2 pour le changer.</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Bus line</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>Bus load in the last second of the trace</source>
        <translation>Charge du bus pendant la dernière seconde de la trace</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Bus load over the whole trace</source>
        <translation>Charge du bus sur toute la trace</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Pointe</translation>
    </message>
    <message>
        <source>Bus load in the busiest second</source>
        <translation>Charge du bus pendant la seconde la plus chargée</translation>
    </message>
    <message>
        <source>Per s</source>
        <translation>Par s</translation>
    </message>
    <message>
        <source>Messages in the last second of the trace</source>
        <translation>Messages pendant la dernière seconde de la trace</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>Messages in the trace</source>
        <translation>Messages dans la trace</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Erreurs</translation>
    </message>
    <message>
        <source>Error frames</source>
        <translation>Trames d’erreur</translation>
    </message>
    <message>
        <source>kbit/s</source>
        <translation>kbit/s</translation>
    </message>
    <message>
        <source>Bit rate, for the load; press F2 to change it</source>
        <translation>Débit, pour la charge&#xa0;; appuyez sur F2 pour le changer</translation>
    </message>
    <message>
        <source>FD kbit/s</source>
        <translation>FD kbit/s</translation>
    </message>
    <message>
        <source>Bit rate of CAN FD data, for the load; press F2 to change it</source>
        <translation>Débit des données CAN FD, pour la charge&#xa0;; appuyez sur F2 pour le changer</translation>
    </message>
</context>
<context>
    <name>LinesDock</name>
    <message>
        <source>Bus lines</source>
        <translation>Canaux</translation>
    </message>
    <message>
        <source>Nothing is connected yet.</source>
        <translation>Rien n’est encore connecté.</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>&amp;Arrêter</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Enlever</translation>
    </message>
    <message>
        <source>&amp;Speed</source>
        <translation>&amp;Vitesse</translation>
    </message>
    <message>
        <source>%1 times</source>
        <translation>%1 fois</translation>
    </message>
    <message>
        <source>as fast as possible</source>
        <translation>le plus vite possible</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>&amp;Go on</source>
        <translation>&amp;Reprendre</translation>
    </message>
</context>
<context>
    <name>LinesPage</name>
    <message>
        <source>Lines</source>
        <translation>Canaux</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>Canal %1</translation>
    </message>
    <message>
        <source>Bus load</source>
        <translation>Charge du bus</translation>
    </message>
    <message>
        <source>Messages per second</source>
        <translation>Messages par seconde</translation>
    </message>
</context>
<context>
    <name>LookMenus</name>
    <message>
        <source>&amp;Time</source>
        <translation>&amp;Temps</translation>
    </message>
    <message>
        <source>&amp;Numbers</source>
        <translation>&amp;Nombres</translation>
    </message>
    <message>
        <source>Since the &amp;start</source>
        <translation>Depuis le &amp;début</translation>
    </message>
    <message>
        <source>Since the message &amp;before</source>
        <translation>Depuis le message &amp;précédent</translation>
    </message>
    <message>
        <source>Since the &amp;marked message</source>
        <translation>Depuis le message &amp;marqué</translation>
    </message>
    <message>
        <source>&amp;Date and time of day</source>
        <translation>Date et &amp;heure</translation>
    </message>
    <message>
        <source>Seconds as &amp;recorded</source>
        <translation>&amp;Secondes telles qu’enregistrées</translation>
    </message>
    <message>
        <source>&amp;Hexadecimal identifiers</source>
        <translation>Identifiants &amp;hexadécimaux</translation>
    </message>
    <message>
        <source>&amp;Decimal identifiers</source>
        <translation>Identifiants &amp;décimaux</translation>
    </message>
    <message>
        <source>He&amp;xadecimal data</source>
        <translation>Données he&amp;xadécimales</translation>
    </message>
    <message>
        <source>D&amp;ecimal data</source>
        <translation>Données déc&amp;imales</translation>
    </message>
</context>
<context>
    <name>LossQuestion</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>C&amp;lose all the same</source>
        <translation>&amp;Fermer quand même</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Records from CAN buses, and shows traces of many CAN tools.</source>
        <translation>Enregistre des bus CAN et montre les traces de nombreux outils CAN.</translation>
    </message>
    <message>
        <source>Files, folders and archives to open.</source>
        <translation>Fichiers, dossiers et archives à ouvrir.</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>The language changes when the program is started again.</source>
        <translation>La langue change au prochain démarrage du programme.</translation>
    </message>
    <message>
        <source>&amp;System</source>
        <translation>&amp;Système</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>S&amp;ombre</translation>
    </message>
    <message>
        <source>By &amp;identifier</source>
        <translation>Par &amp;identifiant</translation>
    </message>
    <message>
        <source>datachunk monitor</source>
        <translation>datachunk monitor</translation>
    </message>
    <message>
        <source>About the monitor</source>
        <translation>À propos du moniteur</translation>
    </message>
    <message>
        <source>datachunk monitor %1

Records from CAN buses, and shows traces of many CAN tools.</source>
        <translation>datachunk monitor %1

Enregistre des bus CAN et montre les traces de nombreux outils CAN.</translation>
    </message>
    <message>
        <source>What was dropped is no file on this machine.</source>
        <translation>Ce qui a été déposé n’est pas un fichier de cette machine.</translation>
    </message>
    <message>
        <source>Save it to a disk first, and drop it from there.</source>
        <translation>Enregistrez-le d’abord sur un disque, et déposez-le de là.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Bus</source>
        <translation>&amp;Bus</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>&amp;About the monitor</source>
        <translation>&amp;À propos du moniteur</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langue</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Notes and bookmarks on %1 are nowhere else: export it as a chunk file, or pack it, to keep them.</source>
        <translation>Les notes et signets sur %1 ne sont nulle part ailleurs&#xa0;: exportez-la en fichier chunk, ou archivez-la, pour les conserver.</translation>
    </message>
    <message>
        <source>Close %1 all the same?</source>
        <translation>Fermer %1 quand même&#xa0;?</translation>
    </message>
    <message>
        <source>%1 has not ended, and nothing of it would be there.</source>
        <translation>Pas terminé&#xa0;: %1. Il n’en resterait rien.</translation>
    </message>
    <message>
        <source>Close the monitor all the same?</source>
        <translation>Fermer le moniteur quand même&#xa0;?</translation>
    </message>
    <message>
        <source>Close &amp;tab</source>
        <translation>Fermer l’on&amp;glet</translation>
    </message>
    <message>
        <source>C&amp;olours</source>
        <translation>Co&amp;uleurs</translation>
    </message>
    <message>
        <source>&amp;Bus lines</source>
        <translation>Can&amp;aux</translation>
    </message>
    <message>
        <source>Notes &amp;and bookmarks</source>
        <translation>Notes et si&amp;gnets</translation>
    </message>
    <message>
        <source>&amp;Statistics</source>
        <translation>Statisti&amp;ques</translation>
    </message>
</context>
<context>
    <name>MarksModel</name>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Signet</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Temps</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifiant</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
</context>
<context>
    <name>Merging</name>
    <message>
        <source>The system has no thread left.</source>
        <translation>Le système n’a plus de fil d’exécution libre.</translation>
    </message>
</context>
<context>
    <name>MessageBar</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>MessageModel</name>
    <message>
        <source>Characters</source>
        <translation>Caractères</translation>
    </message>
</context>
<context>
    <name>NotesDock</name>
    <message>
        <source>Notes and bookmarks</source>
        <translation>Notes et signets</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Write a note on the current message</source>
        <translation>Écrit une note sur le message actuel</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Signet</translation>
    </message>
    <message>
        <source>Set a bookmark on the current message</source>
        <translation>Met un signet sur le message actuel</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Modifier</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Enlever</translation>
    </message>
    <message>
        <source>Search in notes and bookmarks</source>
        <translation>Rechercher dans les notes et signets</translation>
    </message>
    <message>
        <source>Only those on the first %1 messages are listed; filter the trace for notes to see the others.</source>
        <translation>Seuls ceux des %1 premiers messages sont listés&#xa0;; filtrez la trace sur les notes pour voir les autres.</translation>
    </message>
    <message>
        <source>Nothing is written on this trace. Select a message and press &quot;Note&quot; or &quot;Bookmark&quot;.</source>
        <translation>Rien n’est noté sur cette trace. Choisissez un message et appuyez sur «&#xa0;Note&#xa0;» ou «&#xa0;Signet&#xa0;».</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Notes and bookmarks: %1</source>
        <translation>Notes et signets&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>OpenedTrace</name>
    <message>
        <source>What could be read is shown. Another copy may have more, and &quot;datachunk recover&quot; saves what is whole of damaged chunks.</source>
        <translation>Ce qui a pu être lu est affiché. Une autre copie en a peut-être plus, et «&#xa0;datachunk recover&#xa0;» sauve ce qui est intact dans des chunks endommagés.</translation>
    </message>
</context>
<context>
    <name>OverviewStrip</name>
    <message>
        <source>No messages yet</source>
        <translation>Pas encore de messages</translation>
    </message>
    <message>
        <source>Line %1</source>
        <translation>Canal %1</translation>
    </message>
    <message>
        <source>%1/s</source>
        <translation>%1/s</translation>
    </message>
    <message>
        <source>Overview of the trace</source>
        <translation>Vue d’ensemble de la trace</translation>
    </message>
    <message>
        <source>Show &amp;all of the trace</source>
        <translation>&amp;Montrer toute la trace</translation>
    </message>
    <message>
        <source>&amp;Time of day</source>
        <translation>&amp;Heure du jour</translation>
    </message>
    <message>
        <source>Line %1: %2 messages per second</source>
        <translation>Canal %1&#xa0;: %2 messages par seconde</translation>
    </message>
    <message numerus="yes">
        <source>%n error frame(s)</source>
        <translation>
            <numerusform>%n trame d’erreur</numerusform>
            <numerusform>%n trames d’erreur</numerusform>
        </translation>
    </message>
    <message>
        <source>Bookmark: %1</source>
        <translation>Signet&#xa0;: %1</translation>
    </message>
    <message>
        <source>Note: %1</source>
        <translation>Note&#xa0;: %1</translation>
    </message>
    <message>
        <source>Only the first %L1 notes and bookmarks are marked.</source>
        <translation>Seuls les %L1 premiers notes et signets sont marqués.</translation>
    </message>
</context>
<context>
    <name>PacedLine</name>
    <message>
        <source>The system has no thread left.</source>
        <translation>Le système n’a plus de fil d’exécution libre.</translation>
    </message>
    <message>
        <source>Close other programs and try again.</source>
        <translation>Fermez d’autres programmes et réessayez.</translation>
    </message>
</context>
<context>
    <name>PathEdit</name>
    <message>
        <source>&amp;Browse…</source>
        <translation>&amp;Parcourir…</translation>
    </message>
</context>
<context>
    <name>PlaceLine</name>
    <message>
        <source>No messages</source>
        <translation>Aucun message</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 selected, no more at once</source>
        <translation>%1 sélectionnés, pas plus à la fois</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 sélectionnés</translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages, following the end</source>
        <translation>
            <numerusform>%L1 message, suit la fin</numerusform>
            <numerusform>%L1 messages, suit la fin</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 messages</source>
        <translation>
            <numerusform>%L1 message</numerusform>
            <numerusform>%L1 messages</numerusform>
        </translation>
    </message>
    <message>
        <source>No messages found; clear the filter to see all</source>
        <translation>Aucun message trouvé&#xa0;; videz le filtre pour tous les voir</translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>None yet</source>
        <translation>Aucun pour l’instant</translation>
    </message>
    <message>
        <source>&amp;Forget them</source>
        <translation>&amp;Oublier la liste</translation>
    </message>
</context>
<context>
    <name>Recording</name>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message numerus="yes">
        <source>The recording has used up its budget of %n MiB: from now on its oldest messages are deleted.</source>
        <translation>
            <numerusform>L’enregistrement a épuisé son budget de %n Mio&#xa0;: désormais ses plus anciens messages sont supprimés.</numerusform>
            <numerusform>L’enregistrement a épuisé son budget de %n Mio&#xa0;: désormais ses plus anciens messages sont supprimés.</numerusform>
        </translation>
    </message>
    <message>
        <source>Save the recording, or give it more room.</source>
        <translation>Sauvegardez l’enregistrement, ou donnez-lui plus de place.</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Réglages…</translation>
    </message>
</context>
<context>
    <name>RecordingKeeper</name>
    <message>
        <source>Save the recording before a new one begins?</source>
        <translation>Sauvegarder l’enregistrement avant d’en commencer un nouveau&#xa0;?</translation>
    </message>
    <message>
        <source>&amp;Discard it</source>
        <translation>&amp;Abandonner</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Sauvegarder…</translation>
    </message>
    <message>
        <source>There is nothing to save yet.</source>
        <translation>Il n’y a encore rien à sauvegarder.</translation>
    </message>
    <message>
        <source>Connect a bus line first.</source>
        <translation>Connectez d’abord un canal.</translation>
    </message>
    <message>
        <source>Recording %1</source>
        <translation>Enregistrement %1</translation>
    </message>
    <message>
        <source>The recording was saved: %1</source>
        <translation>L’enregistrement a été sauvegardé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Saving was cancelled, and the recording is not saved.</source>
        <translation>La sauvegarde a été annulée, et l’enregistrement n’est pas sauvegardé.</translation>
    </message>
    <message>
        <source>It is kept as long as the monitor runs.</source>
        <translation>Il est conservé tant que le moniteur est ouvert.</translation>
    </message>
    <message>
        <source>Save…</source>
        <translation>Sauvegarder…</translation>
    </message>
    <message>
        <source>Make room on the disk of the recording, or give it more in the settings: messages that it does not take are dropped.</source>
        <translation>Faites de la place sur le disque de l’enregistrement, ou donnez-lui-en plus dans les réglages&#xa0;: les messages qu’il ne prend pas sont abandonnés.</translation>
    </message>
    <message>
        <source>Somebody has removed the folder of the recording: %1</source>
        <translation>Quelqu’un a enlevé le dossier de l’enregistrement&#xa0;: %1</translation>
    </message>
    <message>
        <source>What was in it is gone, and nothing more can be written there. Begin a new recording; the lines go on.</source>
        <translation>Ce qu’il contenait est perdu, et plus rien ne peut y être écrit. Commencez un nouvel enregistrement&#xa0;; les canaux continuent.</translation>
    </message>
    <message>
        <source>New recording</source>
        <translation>Nouvel enregistrement</translation>
    </message>
    <message>
        <source>The recording is being saved.</source>
        <translation>L’enregistrement est en cours de sauvegarde.</translation>
    </message>
    <message>
        <source>The window closes when that is done.</source>
        <translation>La fenêtre se ferme quand c’est fait.</translation>
    </message>
    <message>
        <source>Save the recording before the monitor is closed?</source>
        <translation>Sauvegarder l’enregistrement avant de fermer le moniteur&#xa0;?</translation>
    </message>
    <message>
        <source>The recording before is still being saved.</source>
        <translation>L’enregistrement précédent est encore en cours de sauvegarde.</translation>
    </message>
    <message>
        <source>Save this one when that is done; it goes on meanwhile.</source>
        <translation>Sauvegardez celui-ci quand ce sera fait&#xa0;; il continue entre-temps.</translation>
    </message>
    <message numerus="yes">
        <source>It has %L1 messages. Discarded, they are gone for good.</source>
        <translation>
            <numerusform>Il a %L1 message. Abandonné, il est définitivement perdu.</numerusform>
            <numerusform>Il a %L1 messages. Abandonnés, ils sont définitivement perdus.</numerusform>
        </translation>
    </message>
    <message>
        <source>The recording has no folder: none could be made in %1.</source>
        <translation>L’enregistrement n’a pas de dossier&#xa0;: aucun n’a pu être créé dans %1.</translation>
    </message>
    <message>
        <source>Only the last messages are kept, in memory. Make room there, or see to the permissions, and begin a new recording.</source>
        <translation>Seuls les derniers messages sont conservés, en mémoire. Faites-y de la place ou vérifiez les droits, et commencez un nouvel enregistrement.</translation>
    </message>
</context>
<context>
    <name>RecordingSaver</name>
    <message>
        <source>The archive %1 could not be written.</source>
        <translation>L’archive %1 n’a pas pu être écrite.</translation>
    </message>
    <message>
        <source>The recording was not saved. %1</source>
        <translation>L’enregistrement n’a pas été sauvegardé. %1</translation>
    </message>
    <message>
        <source>It is still there: save it to another place, or make room first.</source>
        <translation>Il est toujours là&#xa0;: sauvegardez-le ailleurs, ou faites d’abord de la place.</translation>
    </message>
</context>
<context>
    <name>RecordingStatus</name>
    <message>
        <source>saving, %p %</source>
        <translation>sauvegarde, %p&#xa0;%</translation>
    </message>
    <message>
        <source>Cancel saving</source>
        <translation>Annuler la sauvegarde</translation>
    </message>
    <message>
        <source>taken %1   stored %2   dropped %3</source>
        <translation>pris %1   conservés %2   abandonnés %3</translation>
    </message>
    <message>
        <source>Messages received, kept by the recording, and lost because the disk was too slow or did not take them.</source>
        <translation>Messages reçus, conservés par l’enregistrement, et perdus parce que le disque était trop lent ou ne les a pas pris.</translation>
    </message>
    <message numerus="yes">
        <source>The budget has taken the %n oldest chunk files of those stored.</source>
        <translation>
            <numerusform>À cause du budget, %n des fichiers chunk conservés a été supprimé, le plus ancien.</numerusform>
            <numerusform>À cause du budget, les %n plus anciens des fichiers chunk conservés ont été supprimés.</numerusform>
        </translation>
    </message>
    <message>
        <source>no folder</source>
        <translation>pas de dossier</translation>
    </message>
    <message>
        <source>The recording lies in %1; click to open it.</source>
        <translation>L’enregistrement est dans %1&#xa0;; cliquez pour l’ouvrir.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Room that the recording takes, of its budget.</source>
        <translation>Place que prend l’enregistrement, sur son budget.</translation>
    </message>
    <message>
        <source>%1 are left on the disk.</source>
        <translation>Il reste %1 sur le disque.</translation>
    </message>
</context>
<context>
    <name>ReopenDialog</name>
    <message>
        <source>By the &amp;letter, as other programs read it</source>
        <translation>À la &amp;lettre, comme le lisent d’autres programmes</translation>
    </message>
    <message>
        <source>Read %1 as</source>
        <translation>Lire %1 comme</translation>
    </message>
    <message>
        <source>what stands in the fields of a line</source>
        <translation>ce que contiennent les champs d’une ligne</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Type&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>&amp;Description&#xa0;:</translation>
    </message>
</context>
<context>
    <name>ReplayLine</name>
    <message>
        <source>%1 is not there any more.</source>
        <translation>%1 n’existe plus.</translation>
    </message>
    <message>
        <source>Choose another trace to replay.</source>
        <translation>Choisissez une autre trace à rejouer.</translation>
    </message>
    <message>
        <source>There are no messages in %1.</source>
        <translation>Il n’y a pas de messages dans %1.</translation>
    </message>
    <message>
        <source>%1 cannot be replayed: %2</source>
        <translation>%1 ne peut pas être rejoué&#xa0;: %2</translation>
    </message>
    <message>
        <source>Choose a trace, a chunk file or an archive of them.</source>
        <translation>Choisissez une trace, un fichier chunk ou une archive de tels fichiers.</translation>
    </message>
    <message>
        <source>%1 could not be replayed. %2</source>
        <translation>%1 n’a pas pu être rejoué. %2</translation>
    </message>
    <message>
        <source>Choose another trace, or open this one to see what is whole of it.</source>
        <translation>Choisissez une autre trace, ou ouvrez celle-ci pour voir ce qui en est intact.</translation>
    </message>
    <message>
        <source>Not all of %1 could be replayed. %2</source>
        <translation>%1 n’a pas pu être rejoué en entier. %2</translation>
    </message>
</context>
<context>
    <name>ReplayPage</name>
    <message>
        <source>Trace to replay</source>
        <translation>Trace à rejouer</translation>
    </message>
    <message>
        <source>Begin anew at the &amp;end</source>
        <translation>&amp;Recommencer à la fin</translation>
    </message>
    <message>
        <source>&amp;Keep the bus lines of the trace</source>
        <translation>&amp;Garder les canaux de la trace</translation>
    </message>
    <message>
        <source>%1 times</source>
        <translation>%1 fois</translation>
    </message>
    <message>
        <source>as fast as possible</source>
        <translation>le plus vite possible</translation>
    </message>
    <message>
        <source>&amp;Trace:</source>
        <translation>&amp;Trace&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Speed:</source>
        <translation>&amp;Vitesse&#xa0;:</translation>
    </message>
</context>
<context>
    <name>Report</name>
    <message>
        <source>Why</source>
        <translation>Pourquoi</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>The first of them</source>
        <translation>Les premières</translation>
    </message>
    <message>
        <source>Read as</source>
        <translation>Lu comme</translation>
    </message>
    <message>
        <source>%1, strictly</source>
        <translation>%1, à la lettre</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Trames</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>Lines lost</source>
        <translation>Lignes perdues</translation>
    </message>
    <message>
        <source>Began</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Times count from</source>
        <translation>Temps comptés depuis</translation>
    </message>
    <message>
        <source>Nothing was lost.</source>
        <translation>Rien n’a été perdu.</translation>
    </message>
    <message>
        <source>Could not be read as frames</source>
        <translation>N’ont pas pu être lues comme trames</translation>
    </message>
    <message>
        <source>Frames that may not be as the file means them</source>
        <translation>Trames qui ne sont peut-être pas telles que le fichier les entend</translation>
    </message>
    <message>
        <source>does not look like a frame</source>
        <translation>ne ressemble pas à une trame</translation>
    </message>
    <message>
        <source>Lines of the bus</source>
        <translation>Canaux</translation>
    </message>
    <message>
        <source>In the file</source>
        <translation>Dans le fichier</translation>
    </message>
    <message>
        <source>Here</source>
        <translation>Ici</translation>
    </message>
    <message>
        <source>The file is compressed, so that its lines cannot be shown. Unpack it with another program and open it again to go to them.</source>
        <translation>Le fichier est compressé, si bien que ses lignes ne peuvent être affichées. Décompressez-le avec un autre programme et ouvrez-le de nouveau pour y aller.</translation>
    </message>
    <message>
        <source>Lines that are no frames, as expected</source>
        <translation>Lignes qui ne sont pas des trames, comme prévu</translation>
    </message>
</context>
<context>
    <name>ReportDialog</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Import report of %1</source>
        <translation>Rapport d’importation de %1</translation>
    </message>
    <message>
        <source>&amp;Source text</source>
        <translation>&amp;Texte d’origine</translation>
    </message>
    <message>
        <source>&amp;Read in another way…</source>
        <translation>&amp;Lire autrement…</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>Folder for recordings</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Save recording</source>
        <translation>Sauvegarder l’enregistrement</translation>
    </message>
    <message>
        <source>Folder of chunk files</source>
        <translation>Dossier de fichiers chunk</translation>
    </message>
    <message>
        <source>ZIP archive, smaller and slower</source>
        <translation>Archive ZIP, plus petite et plus lente</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;In folder:</source>
        <translation>&amp;Dans le dossier&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;As:</source>
        <translation>&amp;Comme&#xa0;:</translation>
    </message>
    <message>
        <source>The archive of that name will be replaced.</source>
        <translation>L’archive de ce nom sera remplacée.</translation>
    </message>
    <message>
        <source>There is something of that name already.</source>
        <translation>Quelque chose porte déjà ce nom.</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Folder for recordings</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Recording settings</source>
        <translation>Réglages de l’enregistrement</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> Mio</translation>
    </message>
    <message>
        <source>When the recording is larger, its oldest messages are deleted.</source>
        <translation>Quand l’enregistrement est plus grand, ses plus anciens messages sont supprimés.</translation>
    </message>
    <message>
        <source> messages</source>
        <translation> messages</translation>
    </message>
    <message>
        <source>So many messages are in memory before they go to the disk. It holds from the next recording on.</source>
        <translation>Nombre de messages en mémoire avant qu’ils aillent sur le disque. S’applique à partir du prochain enregistrement.</translation>
    </message>
    <message>
        <source>&amp;Disk budget:</source>
        <translation>&amp;Budget du disque&#xa0;:</translation>
    </message>
    <message>
        <source>In &amp;memory:</source>
        <translation>En &amp;mémoire&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Saved into:</source>
        <translation>&amp;Sauvegardé dans&#xa0;:</translation>
    </message>
</context>
<context>
    <name>ShownTrace</name>
    <message>
        <source>The note on message %1 of %2 was not changed.</source>
        <translation>La note sur le message %1 de %2 n’a pas été modifiée.</translation>
    </message>
    <message>
        <source>The bookmark on message %1 of %2 was not changed.</source>
        <translation>Le signet sur le message %1 de %2 n’a pas été modifié.</translation>
    </message>
</context>
<context>
    <name>Sorting</name>
    <message>
        <source>%1 is not there.</source>
        <translation>%1 n’existe pas.</translation>
    </message>
    <message>
        <source>It may have been moved or renamed, or its disk is not connected.</source>
        <translation>Il a peut-être été déplacé ou renommé, ou son disque n’est pas connecté.</translation>
    </message>
    <message>
        <source>%1 is no ordinary file.</source>
        <translation>%1 n’est pas un fichier ordinaire.</translation>
    </message>
    <message>
        <source>Copy what it delivers into a file and open that.</source>
        <translation>Copiez ce qu’il délivre dans un fichier et ouvrez celui-ci.</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2.</source>
        <translation>%1 ne peut pas être lu&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Ask whoever owns it for the right to read it.</source>
        <translation>Demandez à son propriétaire le droit de le lire.</translation>
    </message>
    <message>
        <source>%1 is empty.</source>
        <translation>%1 est vide.</translation>
    </message>
    <message>
        <source>Nothing was recorded into it, or it was not copied completely.</source>
        <translation>Rien n’y a été enregistré, ou il n’a pas été copié en entier.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be read.</source>
        <translation>Le dossier %1 ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The folder %1 holds no chunk files.</source>
        <translation>Le dossier %1 ne contient pas de fichiers chunk.</translation>
    </message>
    <message>
        <source>Choose the traces in it one by one, if there are any.</source>
        <translation>Choisissez les traces qu’il contient une à une, s’il y en a.</translation>
    </message>
    <message>
        <source>There are only line ends in it.</source>
        <translation>Il ne contient que des fins de ligne.</translation>
    </message>
    <message>
        <source>%1 was not recognised as a trace.</source>
        <translation>%1 n’a pas été reconnu comme une trace.</translation>
    </message>
    <message>
        <source>There are no messages in %1.</source>
        <translation>Il n’y a pas de messages dans %1.</translation>
    </message>
    <message>
        <source>The recording may have ended before the first message came.</source>
        <translation>L’enregistrement s’est peut-être terminé avant l’arrivée du premier message.</translation>
    </message>
    <message>
        <source>Try another copy of it.</source>
        <translation>Essayez-en une autre copie.</translation>
    </message>
</context>
<context>
    <name>Source</name>
    <message>
        <source>(cannot be read any more)</source>
        <translation>(n’est plus lisible)</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>&amp;Line:</source>
        <translation>&amp;Ligne&#xa0;:</translation>
    </message>
    <message>
        <source>Source text of %1</source>
        <translation>Texte d’origine de %1</translation>
    </message>
</context>
<context>
    <name>SourceReader</name>
    <message>
        <source>The system has no thread left.</source>
        <translation>Le système n’a plus de fil d’exécution libre.</translation>
    </message>
</context>
<context>
    <name>SourceView</name>
    <message>
        <source>Source text</source>
        <translation>Texte d’origine</translation>
    </message>
    <message numerus="yes">
        <source>%L1 lines</source>
        <translation>
            <numerusform>%L1 ligne</numerusform>
            <numerusform>%L1 lignes</numerusform>
        </translation>
    </message>
    <message>
        <source>The file cannot be read: %1. It may have been moved or removed.</source>
        <translation>Le fichier ne peut pas être lu&#xa0;: %1. Il a peut-être été déplacé ou enlevé.</translation>
    </message>
    <message>
        <source>Line %L1 is being looked for.</source>
        <translation>Recherche de la ligne %L1.</translation>
    </message>
    <message>
        <source>Line %L1 is being looked for: %2 %</source>
        <translation>Recherche de la ligne %L1&#xa0;: %2&#xa0;%</translation>
    </message>
    <message>
        <source>%L1 lines so far, %2 %</source>
        <translation>%L1 lignes jusqu’ici, %2&#xa0;%</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>No messages yet</source>
        <translation>Pas encore de messages</translation>
    </message>
    <message>
        <source>Connect to a bus, or drop a trace of any CAN tool into the window.</source>
        <translation>Connectez un bus, ou déposez une trace de n’importe quel outil CAN dans la fenêtre.</translation>
    </message>
</context>
<context>
    <name>StatisticsDock</name>
    <message>
        <source>Statistics</source>
        <translation>Statistiques</translation>
    </message>
    <message>
        <source>&amp;Lines</source>
        <translation>&amp;Canaux</translation>
    </message>
    <message>
        <source>&amp;Identifiers</source>
        <translation>&amp;Identifiants</translation>
    </message>
</context>
<context>
    <name>TableTools</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
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
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Ctrl+Shift+C</source>
        <translation>Ctrl+Shift+C</translation>
    </message>
    <message>
        <source>&amp;Note…</source>
        <translation>&amp;Note…</translation>
    </message>
    <message>
        <source>&amp;Bookmark</source>
        <translation>&amp;Signet</translation>
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
        <translation>&amp;Suivre la fin</translation>
    </message>
    <message>
        <source>Cop&amp;y as candump log</source>
        <translation>Copier en journal can&amp;dump</translation>
    </message>
    <message>
        <source>&amp;Select all</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>Count &amp;times from here</source>
        <translation>Compter les temps d’&amp;ici</translation>
    </message>
    <message>
        <source>&amp;Go to number…</source>
        <translation>Aller au nu&amp;méro…</translation>
    </message>
    <message>
        <source>Go to ti&amp;me…</source>
        <translation>&amp;Aller au temps…</translation>
    </message>
    <message>
        <source>Only &amp;error frames</source>
        <translation>Seulement les t&amp;rames d’erreur</translation>
    </message>
    <message>
        <source>&amp;Only this identifier</source>
        <translation>Seulement cet identi&amp;fiant</translation>
    </message>
    <message>
        <source>No &amp;error frames</source>
        <translation>Sans les trames d’erre&amp;ur</translation>
    </message>
    <message>
        <source>&amp;Without this identifier</source>
        <translation>Sans cet id&amp;entifiant</translation>
    </message>
    <message>
        <source>Only this &amp;line</source>
        <translation>Seulement ce cana&amp;l</translation>
    </message>
    <message>
        <source>Only the same &amp;data</source>
        <translation>Seulement les mêmes d&amp;onnées</translation>
    </message>
    <message>
        <source>&amp;All messages</source>
        <translation>Tous les messa&amp;ges</translation>
    </message>
</context>
<context>
    <name>TraceColumns</name>
    <message>
        <source>&amp;Columns</source>
        <translation>&amp;Colonnes</translation>
    </message>
    <message>
        <source>&amp;As at first</source>
        <translation>&amp;Comme au départ</translation>
    </message>
</context>
<context>
    <name>TraceOpener</name>
    <message>
        <source>Opening %1</source>
        <translation>Ouverture de %1</translation>
    </message>
    <message numerus="yes">
        <source>%n traces more were not opened.</source>
        <translation>
            <numerusform>%n trace de plus n’a pas été ouverte.</numerusform>
            <numerusform>%n traces de plus n’ont pas été ouvertes.</numerusform>
        </translation>
    </message>
    <message>
        <source>Merge them into one file, or open fewer at a time.</source>
        <translation>Fusionnez-les en un seul fichier, ou ouvrez-en moins à la fois.</translation>
    </message>
    <message>
        <source>Read as…</source>
        <translation>Lire comme…</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>%1 ne peut pas être ouvert.</translation>
    </message>
    <message>
        <source>Open one of them alone to learn why.</source>
        <translation>Ouvrez-en un seul pour savoir pourquoi.</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
</context>
<context>
    <name>TraceView</name>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message numerus="yes">
        <source>%n message(s) copied.</source>
        <translation>
            <numerusform>%n message copié.</numerusform>
            <numerusform>%n messages copiés.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n could not be written this way.</source>
        <translation>
            <numerusform>%n n’a pas pu être écrit ainsi.</numerusform>
            <numerusform>%n n’ont pas pu être écrits ainsi.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Only the first %n selected messages were copied.</source>
        <translation>
            <numerusform>Seul le premier message sélectionné a été copié (%n).</numerusform>
            <numerusform>Seuls les %n premiers messages sélectionnés ont été copiés.</numerusform>
        </translation>
    </message>
    <message>
        <source>Export the selection to a file to have all of them.</source>
        <translation>Exportez la sélection dans un fichier pour les avoir tous.</translation>
    </message>
    <message>
        <source>Go to number:</source>
        <translation>Aller au numéro&#xa0;:</translation>
    </message>
    <message>
        <source>The number of a message, as in its column</source>
        <translation>Le numéro d’un message, comme dans sa colonne</translation>
    </message>
    <message>
        <source>There is no message with this number.</source>
        <translation>Il n’y a pas de message de ce numéro.</translation>
    </message>
    <message>
        <source>Go to time:</source>
        <translation>Aller au temps&#xa0;:</translation>
    </message>
    <message>
        <source>The trace ends before this time.</source>
        <translation>La trace se termine avant ce temps.</translation>
    </message>
    <message>
        <source>Message %1</source>
        <translation>Message %1</translation>
    </message>
</context>
<context>
    <name>Writers</name>
    <message>
        <source>Not written: bookmarks (%1).</source>
        <translation>Non écrits&#xa0;: signets (%1).</translation>
    </message>
</context>
<context>
    <name>WritingDesk</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>Écriture de %1</translation>
    </message>
    <message>
        <source>Merging into %1</source>
        <translation>Fusion dans %1</translation>
    </message>
    <message>
        <source>Converting into %1</source>
        <translation>Conversion vers %1</translation>
    </message>
    <message>
        <source>Writing into %1 was cancelled.</source>
        <translation>L’écriture dans %1 a été annulée.</translation>
    </message>
    <message>
        <source>Files that were complete are kept.</source>
        <translation>Les fichiers qui étaient complets sont conservés.</translation>
    </message>
    <message>
        <source>%1 was written.</source>
        <translation>%1 a été écrit.</translation>
    </message>
    <message numerus="yes">
        <source>%n files were written into %1.</source>
        <translation>
            <numerusform>%n fichier a été écrit dans %1.</numerusform>
            <numerusform>%n fichiers ont été écrits dans %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>A chunk file (.dck) keeps everything that can be read.</source>
        <translation>Un fichier chunk (.dck) conserve tout ce qui peut être lu.</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
    <message>
        <source>Archives (*.zip)</source>
        <translation>Archives (*.zip)</translation>
    </message>
    <message>
        <source>Packing %1</source>
        <translation>Mise en archive de %1</translation>
    </message>
    <message>
        <source>Packing %1 was cancelled.</source>
        <translation>La mise en archive de %1 a été annulée.</translation>
    </message>
    <message>
        <source>%1 could not be packed. %2</source>
        <translation>%1 n’a pas pu être mis en archive. %2</translation>
    </message>
    <message>
        <source>Choose another place, or make room on the disk.</source>
        <translation>Choisissez un autre endroit, ou faites de la place sur le disque.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n chunks packed.</source>
        <translation>
            <numerusform>%1&#xa0;: %n chunk mis en archive.</numerusform>
            <numerusform>%1&#xa0;: %n chunks mis en archive.</numerusform>
        </translation>
    </message>
    <message>
        <source>Archives (*.zip);;All files (*)</source>
        <translation>Archives (*.zip);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Unpacking %1</source>
        <translation>Extraction de %1</translation>
    </message>
    <message>
        <source>Unpacking %1 was cancelled.</source>
        <translation>L’extraction de %1 a été annulée.</translation>
    </message>
    <message>
        <source>Nothing of it was kept.</source>
        <translation>Rien n’en a été conservé.</translation>
    </message>
    <message>
        <source>%1 could not be unpacked. %2</source>
        <translation>%1 n’a pas pu être extrait. %2</translation>
    </message>
    <message>
        <source>Only archives of chunk files can be unpacked; open others as they are.</source>
        <translation>Seules les archives de fichiers chunk peuvent être extraites&#xa0;; ouvrez les autres telles quelles.</translation>
    </message>
    <message numerus="yes">
        <source>%n chunks were unpacked into %1.</source>
        <translation>
            <numerusform>%n chunk a été extrait dans %1.</numerusform>
            <numerusform>%n chunks ont été extraits dans %1.</numerusform>
        </translation>
    </message>
    <message>
        <source>What is missing</source>
        <translation>Ce qui manque</translation>
    </message>
    <message>
        <source>Pack into an archive</source>
        <translation>Mettre en archive</translation>
    </message>
    <message>
        <source>Archive to unpack</source>
        <translation>Archive à extraire</translation>
    </message>
    <message>
        <source>Folder for the chunks of %1</source>
        <translation>Dossier pour les chunks de %1</translation>
    </message>
</context>
</TS>
