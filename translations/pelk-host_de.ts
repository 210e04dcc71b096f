<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ArchiveDestination</name>
    <message>
        <source>A part of the name is empty.</source>
        <translation>Ein Teil des Namens ist leer.</translation>
    </message>
    <message>
        <source>The name has the character &quot;%1&quot;.</source>
        <translation>Der Name hat das Zeichen „%1“.</translation>
    </message>
    <message>
        <source>There is no folder %1 yet.</source>
        <translation>Den Ordner %1 gibt es noch nicht.</translation>
    </message>
</context>
<context>
    <name>ArchiveDialog</name>
    <message>
        <source>Archive Design</source>
        <translation>Design archivieren</translation>
    </message>
    <message>
        <source>Archive &amp;type:</source>
        <translation>Archiv&amp;typ:</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>Included Items</source>
        <translation>Enthaltene Elemente</translation>
    </message>
    <message>
        <source>&amp;Design files</source>
        <translation>&amp;Designdateien</translation>
    </message>
    <message>
        <source>Design fo&amp;lders</source>
        <translation>Design&amp;ordner</translation>
    </message>
    <message>
        <source>&amp;Generated files</source>
        <translation>&amp;Erzeugte Dateien</translation>
    </message>
    <message>
        <source>&amp;External files</source>
        <translation>E&amp;xterne Dateien</translation>
    </message>
    <message>
        <source>Files of the design that lie outside its folder</source>
        <translation>Dateien des Designs, die außerhalb seines Ordners liegen</translation>
    </message>
    <message>
        <source>Design de&amp;scription</source>
        <translation>Design&amp;beschreibung</translation>
    </message>
    <message>
        <source>Dest&amp;ination:</source>
        <translation>&amp;Ziel:</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>Append the design&apos;s &amp;version to the name</source>
        <translation>&amp;Version des Designs an den Namen anhängen</translation>
    </message>
    <message>
        <source>Contents of the archive</source>
        <translation>Inhalt des Archivs</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Archiving: %p%</source>
        <translation>Archivieren: %p %</translation>
    </message>
    <message>
        <source>Archive &quot;%1&quot;</source>
        <translation>„%1“ archivieren</translation>
    </message>
    <message>
        <source>&amp;Archive</source>
        <translation>&amp;Archivieren</translation>
    </message>
    <message>
        <source>Plain Archive</source>
        <translation>Einfaches Archiv</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Choose Destination</source>
        <translation>Ziel auswählen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 belongs to the design. Choose another destination.</source>
        <translation>%1 gehört zum Design. Bitte ein anderes Ziel auswählen.</translation>
    </message>
    <message>
        <source>The archive gets no installer: this host has none.</source>
        <translation>Das Archiv erhält kein Installationsprogramm: dieser Host hat keines.</translation>
    </message>
    <message>
        <source>%1 exists already. Replace it?</source>
        <translation>%1 gibt es bereits. Ersetzen?</translation>
    </message>
    <message>
        <source>The design is archived in %1.</source>
        <translation>Das Design ist in %1 archiviert.</translation>
    </message>
    <message>
        <source>Cancelled. No archive was made.</source>
        <translation>Abgebrochen. Es wurde kein Archiv erstellt.</translation>
    </message>
    <message>
        <source>The design cannot be archived.

%1</source>
        <translation>Das Design kann nicht archiviert werden.

%1</translation>
    </message>
    <message>
        <source>&amp;Show in Folder</source>
        <translation>Im Ordner an&amp;zeigen</translation>
    </message>
    <message>
        <source>The name leads out of the folder of the archive:
%1</source>
        <translation>Der Name führt aus dem Ordner des Archivs hinaus:
%1</translation>
    </message>
    <message>
        <source>%1

%2

Do you want to archive the design under this name?</source>
        <translation>%1

%2

Soll das Design unter diesem Namen archiviert werden?</translation>
    </message>
</context>
<context>
    <name>ArchiveFormats</name>
    <message>
        <source>Zip archive (*.zip)</source>
        <translation>Zip-Archiv (*.zip)</translation>
    </message>
    <message>
        <source>Compressed tar archive (*.tar.gz)</source>
        <translation>Komprimiertes Tar-Archiv (*.tar.gz)</translation>
    </message>
</context>
<context>
    <name>ArchiveJob</name>
    <message>
        <source>The folder does not exist.</source>
        <translation>Der Ordner existiert nicht.</translation>
    </message>
    <message>
        <source>The folder cannot be made.</source>
        <translation>Der Ordner kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Arbeitsspeicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>There is nothing to archive.</source>
        <translation>Es gibt nichts zu archivieren.</translation>
    </message>
    <message>
        <source>The file has come up meanwhile.</source>
        <translation>Die Datei ist inzwischen entstanden.</translation>
    </message>
</context>
<context>
    <name>ArchivePlan</name>
    <message>
        <source>It is a folder.</source>
        <translation>Es ist ein Ordner.</translation>
    </message>
    <message>
        <source>It does not exist.</source>
        <translation>Es existiert nicht.</translation>
    </message>
    <message>
        <source>It is neither a file nor a folder.</source>
        <translation>Es ist weder eine Datei noch ein Ordner.</translation>
    </message>
    <message>
        <source>The link leads back to a folder that it lies in.</source>
        <translation>Die Verknüpfung führt zurück zu einem Ordner, in dem sie liegt.</translation>
    </message>
    <message>
        <source>The folder cannot be read.</source>
        <translation>Der Ordner kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>ArchiveWriter</name>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The system has no locale &quot;C.UTF-8&quot;.</source>
        <translation>Das System hat keine Locale „C.UTF-8“.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>The file changed while it was read.</source>
        <translation>Die Datei hat sich beim Lesen geändert.</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>DesignCommands</name>
    <message>
        <source>&amp;Locked</source>
        <translation>&amp;Gesperrt</translation>
    </message>
    <message>
        <source>&amp;New Design...</source>
        <translation>&amp;Neues Design...</translation>
    </message>
    <message>
        <source>&amp;Open Design...</source>
        <translation>Design ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Save Design</source>
        <translation>Design &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Save &quot;%1&quot;</source>
        <translation>„%1“ &amp;speichern</translation>
    </message>
    <message>
        <source>Re&amp;load Design</source>
        <translation>Design neu &amp;laden</translation>
    </message>
    <message>
        <source>Re&amp;load &quot;%1&quot;</source>
        <translation>„%1“ neu &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Archive Design...</source>
        <translation>Design &amp;archivieren...</translation>
    </message>
    <message>
        <source>&amp;Archive &quot;%1&quot;...</source>
        <translation>„%1“ &amp;archivieren...</translation>
    </message>
    <message>
        <source>&amp;Close Design</source>
        <translation>Design s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Close &quot;%1&quot;</source>
        <translation>„%1“ s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Lock &quot;%1&quot;</source>
        <translation>„%1“ sp&amp;erren</translation>
    </message>
    <message>
        <source>Open Design</source>
        <translation>Design öffnen</translation>
    </message>
    <message>
        <source>Designs (design.json)</source>
        <translation>Designs (design.json)</translation>
    </message>
</context>
<context>
    <name>DesignDescription</name>
    <message>
        <source>format %1 is newer than format %2, the newest that can be read</source>
        <translation>Format %1 ist neuer als Format %2, das neueste lesbare</translation>
    </message>
    <message>
        <source>a path is expected</source>
        <translation>ein Pfad wird erwartet</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is listed twice</source>
        <translation>„%1“ ist doppelt aufgeführt</translation>
    </message>
    <message>
        <source>a name is expected</source>
        <translation>ein Name wird erwartet</translation>
    </message>
</context>
<context>
    <name>DesignEditor</name>
    <message>
        <source>Type:</source>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>Vers&amp;ion:</source>
        <translation>Vers&amp;ion:</translation>
    </message>
    <message>
        <source>Major version</source>
        <translation>Hauptversion</translation>
    </message>
    <message>
        <source>Minor version</source>
        <translation>Nebenversion</translation>
    </message>
    <message>
        <source>&amp;Changes:</source>
        <translation>Ä&amp;nderungen:</translation>
    </message>
    <message>
        <source>Changes in this version</source>
        <translation>Änderungen in dieser Version</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>&amp;Add Property</source>
        <translation>Ei&amp;genschaft hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Help on the property</source>
        <translation>Hilfe zur Eigenschaft</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>No properties are available</source>
        <translation>Keine Eigenschaften verfügbar</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
<context>
    <name>DesignHistory</name>
    <message>
        <source>Change Version</source>
        <translation>Version ändern</translation>
    </message>
    <message>
        <source>Change Text of Changes</source>
        <translation>Änderungstext ändern</translation>
    </message>
    <message>
        <source>Generate</source>
        <translation>Erzeugen</translation>
    </message>
    <message>
        <source>Change of Design</source>
        <translation>Änderung des Designs</translation>
    </message>
</context>
<context>
    <name>DesignModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
</context>
<context>
    <name>DesignRows</name>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Schreibgeschützt</translation>
    </message>
    <message>
        <source>Changed on disk</source>
        <translation>Auf der Platte geändert</translation>
    </message>
    <message>
        <source>%1 (modified)</source>
        <translation>%1 (geändert)</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Folder, Missing</source>
        <translation>Ordner, fehlt</translation>
    </message>
    <message>
        <source>There is no such file on the disk.</source>
        <translation>Die Datei gibt es auf der Platte nicht.</translation>
    </message>
    <message>
        <source>%1, changed %2</source>
        <translation>%1, geändert %2</translation>
    </message>
    <message>
        <source>&lt;b&gt;Invalid&lt;/b&gt;: %1</source>
        <translation>&lt;b&gt;Ungültig&lt;/b&gt;: %1</translation>
    </message>
    <message>
        <source>&lt;b&gt;Outdated&lt;/b&gt;: %1. Make it again.</source>
        <translation>&lt;b&gt;Veraltet&lt;/b&gt;: %1. Erneut erzeugen.</translation>
    </message>
    <message>
        <source>&lt;b&gt;External&lt;/b&gt;: the file is outside of the folder of the design.</source>
        <translation>&lt;b&gt;Extern&lt;/b&gt;: Die Datei ist außerhalb des Ordners des Designs.</translation>
    </message>
</context>
<context>
    <name>DesignSession</name>
    <message>
        <source>There is no folder %1.</source>
        <translation>Es gibt keinen Ordner %1.</translation>
    </message>
    <message>
        <source>There is no design in %1: it has no file design.json.

Do you want to make a new design there?</source>
        <translation>In %1 ist kein Design: es fehlt die Datei design.json.

Soll dort ein neues Design angelegt werden?</translation>
    </message>
    <message>
        <source>Cannot open the design.

%1</source>
        <translation>Das Design kann nicht geöffnet werden.

%1</translation>
    </message>
    <message>
        <source>Cannot make the design.

%1</source>
        <translation>Das Design kann nicht angelegt werden.

%1</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Add %1 Items</source>
        <translation>%1 Elemente hinzufügen</translation>
    </message>
    <message>
        <source>Not everything could be added to &quot;%1&quot;.

%2</source>
        <translation>Zu „%1“ konnte nicht alles hinzugefügt werden.

%2</translation>
    </message>
    <message>
        <source>Cannot save the design.

%1</source>
        <translation>Das Design kann nicht gespeichert werden.

%1</translation>
    </message>
    <message>
        <source>Reading &quot;%1&quot; again discards the changes that are not saved.

Do you want that?</source>
        <translation>Beim Neuladen von „%1“ gehen die nicht gespeicherten Änderungen verloren.

Trotzdem neu laden?</translation>
    </message>
    <message>
        <source>Another program has changed the file since &quot;%1&quot; was read or saved.</source>
        <translation>Ein anderes Programm hat die Datei geändert, seit „%1“ gelesen oder gespeichert wurde.</translation>
    </message>
    <message>
        <source>%1

Do you want to replace it?</source>
        <translation>%1

Soll sie ersetzt werden?</translation>
    </message>
    <message>
        <source>Do you want to save the changes to &quot;%1&quot;?</source>
        <translation>Sollen die Änderungen an „%1“ gespeichert werden?</translation>
    </message>
    <message>
        <source>A design of the last session cannot be opened. %1</source>
        <translation>Ein Design der letzten Sitzung kann nicht geöffnet werden. %1</translation>
    </message>
    <message>
        <source>Pelk Design Host</source>
        <translation>Pelk Design Host</translation>
    </message>
    <message>
        <source>There is a design in %1 already.</source>
        <translation>In %1 ist schon ein Design.</translation>
    </message>
    <message>
        <source>Cannot make the folder %1.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Some files of &quot;%1&quot; are not what they should be:

%2

Do you want to archive the design as it is?</source>
        <translation>Einige Dateien von „%1“ sind nicht, wie sie sein sollten:

%2

Soll das Design so archiviert werden?</translation>
    </message>
    <message>
        <source>Move to %1</source>
        <translation>Nach %1 verschieben</translation>
    </message>
</context>
<context>
    <name>DesignStorage</name>
    <message>
        <source>it is not a file</source>
        <translation>es ist keine Datei</translation>
    </message>
    <message>
        <source>it is too large: %1 bytes</source>
        <translation>sie ist zu groß: %1 Bytes</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
</context>
<context>
    <name>DesignView</name>
    <message>
        <source>Designs</source>
        <translation>Designs</translation>
    </message>
</context>
<context>
    <name>FileReplacement</name>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
</context>
<context>
    <name>FileState</name>
    <message>
        <source>%1 has changed since</source>
        <translation>%1 hat sich seither geändert</translation>
    </message>
    <message>
        <source>for %1 %2, the design is for %3 %4</source>
        <translation>für %1 %2, das Design ist für %3 %4</translation>
    </message>
    <message>
        <source>slot %1, the design has %2</source>
        <translation>Slot %1, das Design hat %2</translation>
    </message>
    <message>
        <source>version %1, the design has %2</source>
        <translation>Version %1, das Design hat %2</translation>
    </message>
    <message>
        <source>%1 has another size</source>
        <translation>%1 hat eine andere Größe</translation>
    </message>
    <message>
        <source>Invalid</source>
        <translation>Ungültig</translation>
    </message>
    <message>
        <source>Generated</source>
        <translation>Erzeugt</translation>
    </message>
    <message>
        <source>Outdated</source>
        <translation>Veraltet</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>External</source>
        <translation>Extern</translation>
    </message>
</context>
<context>
    <name>GeneratedFiles</name>
    <message>
        <source>Cannot add %1</source>
        <translation>Kann nicht hinzufügen: %1</translation>
    </message>
</context>
<context>
    <name>GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Anleitung</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
</context>
<context>
    <name>HelpMenu</name>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Anleitung</translation>
    </message>
    <message>
        <source>&amp;About Pelk Design Host</source>
        <translation>Ü&amp;ber Pelk Design Host</translation>
    </message>
    <message>
        <source>About &amp;Plug-ins</source>
        <translation>Über &amp;Plug-ins</translation>
    </message>
    <message>
        <source>About Pelk Design Host</source>
        <translation>Über Pelk Design Host</translation>
    </message>
    <message>
        <source>Pelk Design Host %1

A small host in which plug-ins for designs of the Pelk radar signal processor run.

Qt %2</source>
        <translation>Pelk Design Host %1

Ein kleiner Host für Plug-ins, die mit Designs des Pelk-Radarsignalprozessors arbeiten.

Qt %2</translation>
    </message>
</context>
<context>
    <name>ImageInspector</name>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Select an image or a companion, and Inspect Image.</source>
        <translation>Ein Image oder eine Begleitdatei auswählen, dann „Image prüfen“.</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>%1 bytes, %2 pages, %3 blocks</source>
        <translation>%1 Bytes, %2 Seiten, %3 Blöcke</translation>
    </message>
    <message>
        <source>unknown (module code %1, device code %2)</source>
        <translation>unbekannt (Modulcode %1, Bausteincode %2)</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>CI number</source>
        <translation>CI-Nummer</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Made</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>%1, slot %2</source>
        <translation>%1, Slot %2</translation>
    </message>
    <message>
        <source>Function</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>%1 (%2, CI %3): %4</source>
        <translation>%1 (%2, CI %3): %4</translation>
    </message>
    <message>
        <source>Binary</source>
        <translation>Binärdatei</translation>
    </message>
    <message>
        <source>Whole image</source>
        <translation>Ganzes Image</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>companion: the header page alone</source>
        <translation>Begleitdatei: nur die Kopfseite</translation>
    </message>
    <message>
        <source>image: the header page and a binary of %1 bytes</source>
        <translation>Image: Kopfseite und eine Binärdatei von %1 Bytes</translation>
    </message>
    <message>
        <source>SHA-256</source>
        <translation>SHA-256</translation>
    </message>
    <message>
        <source>%1, as in the digest file</source>
        <translation>%1, wie in der Prüfsummendatei</translation>
    </message>
    <message>
        <source>The digest in %1 is that of another file.</source>
        <translation>Die Prüfsumme in %1 gehört zu einer anderen Datei.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>Dies ist keine Datei.</translation>
    </message>
    <message>
        <source>&lt;p&gt;The file is as the generator writes it.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Die Datei ist so, wie der Generator sie schreibt.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Findings&lt;/b&gt;&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Befunde&lt;/b&gt;&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Finding: %1</source>
        <translation>Befund: %1</translation>
    </message>
    <message>
        <source>Beside it</source>
        <translation>Daneben</translation>
    </message>
    <message>
        <source>%1 has %2 bytes, the image is of %3</source>
        <translation>%1 hat %2 Bytes, das Image ist aus %3</translation>
    </message>
    <message>
        <source>%1 is the payload, byte for byte</source>
        <translation>%1 ist die Nutzlast, Byte für Byte</translation>
    </message>
    <message>
        <source>%1 differs in %2 bytes, the first one at offset %3</source>
        <translation>%1 unterscheidet sich in %2 Bytes, zuerst an Position %3</translation>
    </message>
    <message>
        <source>VALID</source>
        <translation>GÜLTIG</translation>
    </message>
    <message>
        <source>NOT VALID</source>
        <translation>NICHT GÜLTIG</translation>
    </message>
    <message>
        <source>Header Pa&amp;ge</source>
        <translation>Kop&amp;fseite</translation>
    </message>
    <message>
        <source>Show the header page as bytes and fields</source>
        <translation>Die Kopfseite als Bytes und Felder zeigen</translation>
    </message>
    <message>
        <source>Another program is just replacing files of this folder.</source>
        <translation>Ein anderes Programm ersetzt gerade Dateien in diesem Ordner.</translation>
    </message>
</context>
<context>
    <name>ImageTarget</name>
    <message>
        <source>%1, %2, slot %3</source>
        <translation>%1, %2, Slot %3</translation>
    </message>
</context>
<context>
    <name>ItemCommands</name>
    <message>
        <source>&amp;Add Files...</source>
        <translation>&amp;Dateien hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Move to</source>
        <translation>&amp;Verschieben nach</translation>
    </message>
    <message>
        <source>&amp;Remove from Design</source>
        <translation>Aus Design &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Inspect Image</source>
        <translation>&amp;Image prüfen</translation>
    </message>
    <message>
        <source>Open &amp;Folder</source>
        <translation>&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>The design has no nodes</source>
        <translation>Das Design hat keine Knoten</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Remove Item</source>
        <translation>Element entfernen</translation>
    </message>
    <message>
        <source>Remove %1 Items</source>
        <translation>%1 Elemente entfernen</translation>
    </message>
    <message>
        <source>Move to %1</source>
        <translation>Nach %1 verschieben</translation>
    </message>
    <message>
        <source>Cannot open the folder %1.</source>
        <translation>Der Ordner %1 kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; fills in nothing from a design, and adds no files to one: %2 designs are open. Close all but one for that.</source>
        <translation>„%1“ übernimmt nichts aus einem Design und fügt keinem Dateien hinzu: %2 Designs sind geöffnet. Dazu alle bis auf eines schließen.</translation>
    </message>
</context>
<context>
    <name>JsonNode</name>
    <message>
        <source>an object is expected</source>
        <translation>ein Objekt wird erwartet</translation>
    </message>
    <message>
        <source>the entry &quot;%1&quot; is not known</source>
        <translation>der Eintrag „%1“ ist nicht bekannt</translation>
    </message>
    <message>
        <source>a text is expected</source>
        <translation>ein Text wird erwartet</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2 is expected</source>
        <translation>eine ganze Zahl von %1 bis %2 wird erwartet</translation>
    </message>
    <message>
        <source>true or false is expected</source>
        <translation>true oder false wird erwartet</translation>
    </message>
    <message>
        <source>a list is expected</source>
        <translation>eine Liste wird erwartet</translation>
    </message>
    <message>
        <source>the entry is missing</source>
        <translation>der Eintrag fehlt</translation>
    </message>
    <message>
        <source>the outermost object</source>
        <translation>das äußerste Objekt</translation>
    </message>
</context>
<context>
    <name>LogList</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Fatal</source>
        <translation>Fatal</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>LogPane</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>C&amp;lear Log</source>
        <translation>Protokoll &amp;leeren</translation>
    </message>
    <message>
        <source>&amp;Information</source>
        <translation>&amp;Meldungen</translation>
    </message>
    <message>
        <source>Show information</source>
        <translation>Meldungen zeigen</translation>
    </message>
    <message>
        <source>&amp;Warnings</source>
        <translation>&amp;Warnungen</translation>
    </message>
    <message>
        <source>Show warnings</source>
        <translation>Warnungen zeigen</translation>
    </message>
    <message>
        <source>&amp;Errors</source>
        <translation>&amp;Fehler</translation>
    </message>
    <message>
        <source>Show errors</source>
        <translation>Fehler zeigen</translation>
    </message>
    <message>
        <source>W&amp;rap</source>
        <translation>&amp;Umbrechen</translation>
    </message>
    <message>
        <source>Show long messages on several lines</source>
        <translation>Lange Meldungen auf mehreren Zeilen zeigen</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern...</translation>
    </message>
    <message>
        <source>Save the messages that are shown</source>
        <translation>Die gezeigten Meldungen speichern</translation>
    </message>
    <message>
        <source>Save Log</source>
        <translation>Protokoll speichern</translation>
    </message>
    <message>
        <source>Text files (*.txt)</source>
        <translation>Textdateien (*.txt)</translation>
    </message>
    <message>
        <source>The log is not saved.
%1</source>
        <translation>Das Protokoll ist nicht gespeichert.
%1</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Tool Bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Design Properties</source>
        <translation>Design-Eigenschaften</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>Anordnung &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>%1[*] - Pelk Design Host</source>
        <translation>%1[*] - Pelk Design Host</translation>
    </message>
    <message>
        <source>Pelk Design Host</source>
        <translation>Pelk Design Host</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Design</source>
        <translation>De&amp;sign</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>%1 is not valid: %2</source>
        <translation>%1 ist nicht gültig: %2</translation>
    </message>
    <message>
        <source>%1 is outdated: %2</source>
        <translation>%1 ist veraltet: %2</translation>
    </message>
    <message>
        <source>&amp;Close Others</source>
        <translation>Andere s&amp;chließen</translation>
    </message>
    <message>
        <source>%1 designs are open. The generator is filled in, and adds its files, only when one is.</source>
        <translation>%1 Designs sind offen. Nur wenn eines offen ist, wird der Generator ausgefüllt und werden seine Dateien aufgenommen.</translation>
    </message>
    <message>
        <source>Header Page</source>
        <translation>Kopfseite</translation>
    </message>
    <message>
        <source>Design &amp;Properties</source>
        <translation>Design-&amp;Eigenschaften</translation>
    </message>
    <message>
        <source>I&amp;mage</source>
        <translation>&amp;Image</translation>
    </message>
    <message>
        <source>&amp;Header Page</source>
        <translation>&amp;Kopfseite</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Protokoll</translation>
    </message>
    <message>
        <source>&amp;Tool Bar</source>
        <translation>&amp;Werkzeugleiste</translation>
    </message>
    <message>
        <source>&amp;Errors in the Log</source>
        <translation>&amp;Fehler im Protokoll</translation>
    </message>
    <message>
        <source>Show the errors in the log (Ctrl+E)</source>
        <translation>Die Fehler im Protokoll zeigen (Strg+E)</translation>
    </message>
    <message>
        <source>1 error</source>
        <translation>1 Fehler</translation>
    </message>
    <message>
        <source>%1 errors</source>
        <translation>%1 Fehler</translation>
    </message>
</context>
<context>
    <name>NewDesignDialog</name>
    <message>
        <source>New Design</source>
        <translation>Neues Design</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>&amp;Ordner:</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>&amp;Version:</source>
        <translation>&amp;Version:</translation>
    </message>
    <message>
        <source>Major version</source>
        <translation>Hauptversion</translation>
    </message>
    <message>
        <source>Minor version</source>
        <translation>Nebenversion</translation>
    </message>
    <message>
        <source>Folder of the Design</source>
        <translation>Ordner des Designs</translation>
    </message>
    <message>
        <source>Enter the whole path of the folder, or one that begins with &quot;~/&quot;.</source>
        <translation>Den vollständigen Pfad des Ordners eingeben, oder einen, der mit „~/“ beginnt.</translation>
    </message>
    <message>
        <source>This is a file, not a folder.</source>
        <translation>Dies ist eine Datei, kein Ordner.</translation>
    </message>
    <message>
        <source>There is a design in this folder already.</source>
        <translation>In diesem Ordner ist schon ein Design.</translation>
    </message>
</context>
<context>
    <name>OrvanticCore::AbstractDesignLinkedItem</name>
    <message>
        <source>the version</source>
        <translation>die Version</translation>
    </message>
    <message>
        <source>the generated mark</source>
        <translation>die Markierung als erzeugt</translation>
    </message>
    <message>
        <source>%1 of &quot;%2&quot;</source>
        <translation>%1 von „%2“</translation>
    </message>
</context>
<context>
    <name>OrvanticCore::Design</name>
    <message>
        <source>property &quot;%1&quot;</source>
        <translation>Eigenschaft „%1“</translation>
    </message>
    <message>
        <source>Cannot set %1 of design &quot;%2&quot;: the design is locked.</source>
        <translation>%1 von Design „%2“ kann nicht gesetzt werden: das Design ist gesperrt.</translation>
    </message>
    <message>
        <source>Cannot set %1 of design &quot;%2&quot;: the design is read-only.</source>
        <translation>%1 von Design „%2“ kann nicht gesetzt werden: das Design ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The design is locked.</source>
        <translation>Das Design ist gesperrt.</translation>
    </message>
    <message>
        <source>The design is read-only.</source>
        <translation>Das Design ist schreibgeschützt.</translation>
    </message>
</context>
<context>
    <name>OrvanticCore::DesignContents</name>
    <message>
        <source>There is no such file.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>It is not a folder.</source>
        <translation>Es ist kein Ordner.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>It is in the design already.</source>
        <translation>Sie ist schon im Design.</translation>
    </message>
</context>
<context>
    <name>OrvanticCore::DesignFile</name>
    <message>
        <source>the node</source>
        <translation>der Knoten</translation>
    </message>
</context>
<context>
    <name>PageBytesModel</name>
    <message>
        <source>%1: 0x%2 at offset %3 (0x%4)</source>
        <translation>%1: 0x%2 an Position %3 (0x%4)</translation>
    </message>
</context>
<context>
    <name>PageContents</name>
    <message>
        <source>not read</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>Dies ist keine Datei.</translation>
    </message>
</context>
<context>
    <name>PageView</name>
    <message>
        <source>Select an image or a companion.</source>
        <translation>Ein Image oder eine Begleitdatei auswählen.</translation>
    </message>
    <message>
        <source>Bytes of the header page</source>
        <translation>Bytes der Kopfseite</translation>
    </message>
    <message>
        <source>Fields of the header page</source>
        <translation>Felder der Kopfseite</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Bytes</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>%1: header page of %2 bytes</source>
        <translation>%1: Kopfseite von %2 Bytes</translation>
    </message>
    <message>
        <source>%1: NOT VALID, %2</source>
        <translation>%1: NICHT GÜLTIG, %2</translation>
    </message>
</context>
<context>
    <name>Panes</name>
    <message>
        <source>&amp;Go To</source>
        <translation>&amp;Gehe zu</translation>
    </message>
    <message>
        <source>&amp;Designs</source>
        <translation>&amp;Designs</translation>
    </message>
    <message>
        <source>&amp;Next Pane</source>
        <translation>&amp;Nächster Bereich</translation>
    </message>
    <message>
        <source>Pre&amp;vious Pane</source>
        <translation>&amp;Voriger Bereich</translation>
    </message>
    <message>
        <source>Next &amp;Tab</source>
        <translation>Nächster &amp;Reiter</translation>
    </message>
    <message>
        <source>Previous Ta&amp;b</source>
        <translation>Voriger Rei&amp;ter</translation>
    </message>
</context>
<context>
    <name>PluginList</name>
    <message>
        <source>There is no plug-in folder &quot;%1&quot;.</source>
        <translation>Es gibt keinen Plug-in-Ordner „%1“.</translation>
    </message>
    <message>
        <source>No plug-in was found: the host makes no images.</source>
        <translation>Es wurde kein Plug-in gefunden: der Host erzeugt keine Images.</translation>
    </message>
    <message>
        <source>About Plug-ins</source>
        <translation>Über Plug-ins</translation>
    </message>
    <message>
        <source>&lt;p&gt;No plug-in was found.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Es wurde kein Plug-in gefunden.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;h3&gt;%1&lt;/h3&gt;&lt;p&gt;This library is no plug-in that can be loaded. %2&lt;/p&gt;</source>
        <translation>&lt;h3&gt;%1&lt;/h3&gt;&lt;p&gt;Diese Bibliothek ist kein ladbares Plug-in. %2&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>PropertyModel</name>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is none of %2: the generator keeps its own selection.</source>
        <translation>„%1“ ist keiner der Werte %2: der Generator behält seine eigene Auswahl.</translation>
    </message>
    <message>
        <source>whole number</source>
        <translation>ganze Zahl</translation>
    </message>
    <message>
        <source>value of this property</source>
        <translation>Wert dieser Eigenschaft</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no %2. The value is as before.</source>
        <translation>„%1“ ist keine gültige Eingabe (%2). Der Wert bleibt wie zuvor.</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
</context>
<context>
    <name>QtCreatorUtilities::DetailsWidget</name>
    <message>
        <source>Show or hide the details</source>
        <translation>Einzelheiten zeigen oder verbergen</translation>
    </message>
</context>
<context>
    <name>RemakeCommands</name>
    <message>
        <source>Make Image A&amp;gain</source>
        <translation>Image &amp;erneut erzeugen</translation>
    </message>
    <message>
        <source>Make All &amp;Outdated Again...</source>
        <translation>Alle &amp;veralteten erneut erzeugen...</translation>
    </message>
    <message>
        <source>Makes the image of the selected file again, with the texts and functions that it has, for the version of the design</source>
        <translation>Erzeugt das Image der gewählten Datei erneut, mit seinen Texten und Funktionen, für die Version des Designs</translation>
    </message>
    <message>
        <source>No image of &quot;%1&quot; is outdated.</source>
        <translation>Kein Image von „%1“ ist veraltet.</translation>
    </message>
    <message>
        <source>%1 was not made again.

%2</source>
        <translation>%1 wurde nicht erneut erzeugt.

%2</translation>
    </message>
    <message>
        <source>%1 was made again for version %2 and %3.</source>
        <translation>%1 wurde erneut erzeugt für Version %2 und %3.</translation>
    </message>
    <message>
        <source>Make %1 Again</source>
        <translation>%1 erneut erzeugen</translation>
    </message>
    <message>
        <source>Make %1 Images Again</source>
        <translation>%1 Images erneut erzeugen</translation>
    </message>
</context>
<context>
    <name>RemakeDialog</name>
    <message>
        <source>Make All Outdated Again</source>
        <translation>Alle veralteten erneut erzeugen</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
    <message>
        <source>&amp;Copy Report</source>
        <translation>Bericht &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Make Again</source>
        <translation>&amp;Erneut erzeugen</translation>
    </message>
    <message>
        <source>1 image is to be made again.</source>
        <translation>1 Image ist erneut zu erzeugen.</translation>
    </message>
    <message>
        <source>%1 images are to be made again.</source>
        <translation>%1 Images sind erneut zu erzeugen.</translation>
    </message>
    <message>
        <source>%1 of %2 images made again, %3 failed.</source>
        <translation>%1 von %2 Images erneut erzeugt, %3 fehlgeschlagen.</translation>
    </message>
    <message>
        <source>%1 (1 warning)</source>
        <translation>%1 (1 Warnung)</translation>
    </message>
    <message>
        <source>%1 (%2 warnings)</source>
        <translation>%1 (%2 Warnungen)</translation>
    </message>
    <message>
        <source>Made for %1</source>
        <translation>Erzeugt für %1</translation>
    </message>
    <message>
        <source>Not made: cancelled</source>
        <translation>Nicht erzeugt: abgebrochen</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>&lt;h3&gt;No design is open&lt;/h3&gt;&lt;p&gt;Open one or make a new one, or drop a design&apos;s folder, or files for a new design, here.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Kein Design geöffnet&lt;/h3&gt;&lt;p&gt;Ein Design öffnen oder neu anlegen, oder den Ordner eines Designs oder Dateien für ein neues Design hierher ziehen.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;New Design</source>
        <translation>&amp;Neues Design</translation>
    </message>
    <message>
        <source>in a folder of your files</source>
        <translation>in einem Ordner mit Ihren Dateien</translation>
    </message>
    <message>
        <source>&amp;Open Design</source>
        <translation>Design ö&amp;ffnen</translation>
    </message>
    <message>
        <source>from its folder or description</source>
        <translation>aus seinem Ordner oder seiner Beschreibung</translation>
    </message>
</context>
<context>
    <name>TargetDialog</name>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>&amp;Module:</source>
        <translation>&amp;Modul:</translation>
    </message>
    <message>
        <source>&amp;Device:</source>
        <translation>&amp;Baustein:</translation>
    </message>
    <message>
        <source>&amp;Slot:</source>
        <translation>&amp;Slot:</translation>
    </message>
    <message>
        <source>For which target is %1? Neither the properties of the design nor the codes in the image say so.</source>
        <translation>Für welches Ziel ist %1? Weder die Eigenschaften des Designs noch die Codes im Image geben es an.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Reference host for design plug-ins.</source>
        <translation>Referenz-Host für Design-Plug-ins.</translation>
    </message>
    <message>
        <source>Load the plug-ins in &lt;folder&gt;; may be repeated.</source>
        <translation>Die Plug-ins in &lt;folder&gt; laden; mehrfach möglich.</translation>
    </message>
    <message>
        <source>Folder of a design, or an image to inspect.</source>
        <translation>Ordner eines Designs, oder ein zu prüfendes Image.</translation>
    </message>
</context>
</TS>
