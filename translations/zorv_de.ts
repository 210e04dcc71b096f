<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>FcfDevice</name>
    <message>
        <source>the device takes no more bytes</source>
        <translation>das Gerät nimmt keine weiteren Bytes an</translation>
    </message>
</context>
<context>
    <name>FcfExactReader</name>
    <message>
        <source>a line feed</source>
        <translation>ein Zeilenvorschub</translation>
    </message>
    <message>
        <source>text that can be decoded</source>
        <translation>Text, der sich dekodieren lässt</translation>
    </message>
    <message>
        <source>a line feed at the end of the line</source>
        <translation>ein Zeilenvorschub am Zeilenende</translation>
    </message>
    <message>
        <source>a line feed without a carriage return at the end of the line</source>
        <translation>ein Zeilenvorschub ohne Wagenrücklauf am Zeilenende</translation>
    </message>
</context>
<context>
    <name>FcfOutput</name>
    <message>
        <source>the filler adds nothing</source>
        <translation>das Auffüllen fügt nichts hinzu</translation>
    </message>
    <message>
        <source>it has %1 bytes, but %2 were written</source>
        <translation>sie hat %1 Bytes, geschrieben wurden aber %2</translation>
    </message>
</context>
<context>
    <name>FileOpening</name>
    <message>
        <source>it is a named pipe</source>
        <translation>es ist eine benannte Pipe</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>es ist keine Datei</translation>
    </message>
</context>
<context>
    <name>PayloadCopy</name>
    <message>
        <source>the payload ends after %1 of %2 bytes</source>
        <translation>die Nutzdaten enden nach %1 von %2 Bytes</translation>
    </message>
    <message>
        <source>the payload is longer than its %1 bytes</source>
        <translation>die Nutzdaten sind länger als ihre %1 Bytes</translation>
    </message>
</context>
<context>
    <name>PelkFcfGenerator</name>
    <message>
        <source>Pelk FCF Generator</source>
        <translation>Pelk FCF Generator</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Xilinx Binary Programming File:</source>
        <translation>Xilinx-Programmierdatei (binär):</translation>
    </message>
    <message>
        <source>Input Binary File:</source>
        <translation>Binärdatei:</translation>
    </message>
    <message>
        <source>The binary that becomes the payload of the image</source>
        <translation>Die Binärdatei, die zu den Nutzdaten des Images wird</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>Bytes of the input binary</source>
        <translation>Bytes der Binärdatei</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Pages of 2112 bytes left over after whole blocks</source>
        <translation>Seiten zu 2112 Bytes, die nach ganzen Blöcken übrig sind</translation>
    </message>
    <message>
        <source>pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Whole blocks of 64 pages</source>
        <translation>Ganze Blöcke zu 64 Seiten</translation>
    </message>
    <message>
        <source>file blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>Choose the input binary</source>
        <translation>Binärdatei auswählen</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Build Details:</source>
        <translation>Angaben zum Build:</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>.</source>
        <translation>.</translation>
    </message>
    <message>
        <source>CI Number</source>
        <translation>CI-Nummer</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Module:</source>
        <translation>Modul:</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>Baustein:</translation>
    </message>
    <message>
        <source>Config NO:</source>
        <translation>Konfig.-Nr.:</translation>
    </message>
    <message>
        <source>Function List:</source>
        <translation>Funktionsliste:</translation>
    </message>
    <message>
        <source>Unlock the fields below after a load</source>
        <translation>Felder darunter nach dem Laden zum Bearbeiten freigeben</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Remove the function shown in the list</source>
        <translation>Die in der Liste gezeigte Funktion entfernen</translation>
    </message>
    <message>
        <source>Remove Function</source>
        <translation>Funktion entfernen</translation>
    </message>
    <message>
        <source>Function Name</source>
        <translation>Funktionsname</translation>
    </message>
    <message>
        <source>Empty the fields for another function</source>
        <translation>Felder für eine weitere Funktion leeren</translation>
    </message>
    <message>
        <source>Clear Function Parameters</source>
        <translation>Funktionsfelder leeren</translation>
    </message>
    <message>
        <source>Put the function into the list</source>
        <translation>Funktion in die Liste aufnehmen</translation>
    </message>
    <message>
        <source>Upload Function</source>
        <translation>Funktion aufnehmen</translation>
    </message>
    <message>
        <source>Function Author</source>
        <translation>Funktionsautor</translation>
    </message>
    <message>
        <source>Enter the name of the current user</source>
        <translation>Namen des aktuellen Benutzers eintragen</translation>
    </message>
    <message>
        <source>It&apos;s Me</source>
        <translation>Das bin ich</translation>
    </message>
    <message>
        <source>Function Description:</source>
        <translation>Funktionsbeschreibung:</translation>
    </message>
    <message>
        <source>Function CI Number:</source>
        <translation>CI-Nummer der Funktion:</translation>
    </message>
    <message>
        <source>Generated File Size:</source>
        <translation>Größe der erzeugten Datei:</translation>
    </message>
    <message>
        <source>Bytes of the image, its header counted as one page</source>
        <translation>Bytes des Images, der Kopf als eine Seite gezählt</translation>
    </message>
    <message>
        <source>Close the window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Write the image and its companion beside the binary</source>
        <translation>Image und Begleitdatei neben der Binärdatei schreiben</translation>
    </message>
    <message>
        <source>Generate</source>
        <translation>Erzeugen</translation>
    </message>
    <message>
        <source>exit</source>
        <translation>beenden</translation>
    </message>
    <message>
        <source>about</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>&lt;b&gt;Functions In Build:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Funktionen im Build:&lt;/b&gt;</translation>
    </message>
    <message>
        <source>&lt;b&gt;Target Flash Location:&lt;/b&gt;</source>
        <translation>&lt;b&gt;Ziel im Flash:&lt;/b&gt;</translation>
    </message>
    <message>
        <source>  Bytes</source>
        <translation>  Bytes</translation>
    </message>
    <message>
        <source> Pages</source>
        <translation> Seiten</translation>
    </message>
    <message>
        <source> blocks</source>
        <translation> Blöcke</translation>
    </message>
    <message>
        <source>Please enter a Function Name before uploading Function field is empty</source>
        <translation>Bitte vor dem Aufnehmen einen Funktionsnamen eingeben. Das Feld ist leer.</translation>
    </message>
    <message>
        <source>The Function already exists, click Yes to override it and No to cancel</source>
        <translation>Die Funktion gibt es schon. Ja ersetzt sie, Nein bricht ab.</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the function?, click Yes to remove it and No to cancel</source>
        <translation>Soll die Funktion wirklich entfernt werden? Ja entfernt sie, Nein bricht ab.</translation>
    </message>
    <message>
        <source>The Description can not be more 1000 characters long The description is too long</source>
        <translation>Die Beschreibung ist zu lang: höchstens 1000 Zeichen sind möglich.</translation>
    </message>
    <message>
        <source>Please select a bin file first</source>
        <translation>Bitte zuerst eine bin-Datei auswählen</translation>
    </message>
    <message>
        <source>Please enter the author &apos;s name</source>
        <translation>Bitte den Namen des Autors eingeben</translation>
    </message>
    <message>
        <source>Please enter a CI number</source>
        <translation>Bitte eine CI-Nummer eingeben</translation>
    </message>
    <message>
        <source>A fcf file already exists at path:&lt;br&gt;&lt;br&gt;</source>
        <translation>Es gibt bereits eine fcf-Datei mit dem Pfad:&lt;br&gt;&lt;br&gt;</translation>
    </message>
    <message>
        <source>&lt;br&gt;&lt;br&gt;Do you want to overwrite it?</source>
        <translation>&lt;br&gt;&lt;br&gt;Soll sie überschrieben werden?</translation>
    </message>
    <message>
        <source> bytes</source>
        <translation> Bytes</translation>
    </message>
    <message>
        <source> pages</source>
        <translation> Seiten</translation>
    </message>
    <message>
        <source>&lt;font color=&apos;green&apos;&gt;Successfully generated output files.&lt;/font&gt;</source>
        <translation>&lt;font color=&apos;green&apos;&gt;Die Ausgabedateien wurden erzeugt.&lt;/font&gt;</translation>
    </message>
    <message>
        <source>Successfully generated output files.</source>
        <translation>Die Ausgabedateien wurden erzeugt.</translation>
    </message>
    <message>
        <source>&lt;font color=&apos;red&apos;&gt;Failed to generate output file.&lt;/font&gt;</source>
        <translation>&lt;font color=&apos;red&apos;&gt;Die Ausgabedatei konnte nicht erzeugt werden.&lt;/font&gt;</translation>
    </message>
    <message>
        <source>can&apos;t open </source>
        <translation>kann nicht geöffnet werden: </translation>
    </message>
    <message>
        <source>The file Size is too large please change some fields</source>
        <translation>Die Texte sind für die Kopfseite zu lang. Bitte einige Felder kürzen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be deleted: %2.</source>
        <translation>„%1“ kann nicht gelöscht werden: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not complete: %2.</source>
        <translation>„%1“ ist nicht vollständig: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has %2 bytes, but the header says %3, as the binary was when it was last selected. Select it again and generate anew.</source>
        <translation>„%1“ hat %2 Bytes, im Kopf stehen aber %3, wie bei der letzten Auswahl der Binärdatei. Bitte erneut auswählen und neu erzeugen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be loaded: %2.</source>
        <translation>„%1“ kann nicht geladen werden: %2.</translation>
    </message>
    <message>
        <source>Select Bin File</source>
        <translation>Bin-Datei auswählen</translation>
    </message>
    <message>
        <source>Xilinx Binary Configuration Files (*.bin)</source>
        <translation>Xilinx-Konfigurationsdateien, binär (*.bin)</translation>
    </message>
    <message>
        <source>Failed to load *.bin file</source>
        <translation>Es wurde keine *.bin-Datei geladen</translation>
    </message>
    <message>
        <source>Loaded </source>
        <translation>Geladen: </translation>
    </message>
    <message>
        <source> successfully.</source>
        <translation>.</translation>
    </message>
    <message>
        <source>Open Document</source>
        <translation>Dokument öffnen</translation>
    </message>
    <message>
        <source>Document files (*.txt)</source>
        <translation>Dokumente (*.txt)</translation>
    </message>
    <message>
        <source>please select a correct text file,the selected file is not compartable with this programme </source>
        <translation>Bitte eine passende Textdatei auswählen. Die ausgewählte Datei ist mit diesem Programm nicht kompatibel.</translation>
    </message>
    <message>
        <source>&lt;font color=&apos;green&apos;&gt;Loaded </source>
        <translation>&lt;font color=&apos;green&apos;&gt;Geladen: </translation>
    </message>
    <message>
        <source> successfully.&lt;/font&gt;</source>
        <translation>.&lt;/font&gt;</translation>
    </message>
    <message>
        <source>&lt;font color=&apos;red&apos;&gt;Loading </source>
        <translation>&lt;font color=&apos;red&apos;&gt;Laden fehlgeschlagen: </translation>
    </message>
    <message>
        <source> failed.&lt;/font&gt;</source>
        <translation>.&lt;/font&gt;</translation>
    </message>
    <message>
        <source> Blocks</source>
        <translation> Blöcke</translation>
    </message>
    <message>
        <source>Who made the build; a line of the header with at most 20 characters</source>
        <translation>Wer den Build gemacht hat; eine Zeile des Kopfes mit höchstens 20 Zeichen</translation>
    </message>
    <message>
        <source>Major version</source>
        <translation>Hauptversion</translation>
    </message>
    <message>
        <source>Major version of the build in the header; what is not a whole number is written as 0</source>
        <translation>Hauptversion des Builds im Kopf; was keine ganze Zahl ist, wird als 0 geschrieben</translation>
    </message>
    <message>
        <source>Minor version</source>
        <translation>Nebenversion</translation>
    </message>
    <message>
        <source>Minor version of the build in the header; what is not a whole number is written as 0</source>
        <translation>Nebenversion des Builds im Kopf; was keine ganze Zahl ist, wird als 0 geschrieben</translation>
    </message>
    <message>
        <source>Configuration item number of the build, a line of the header</source>
        <translation>Nummer des Konfigurationselements (CI) des Builds, eine Zeile des Kopfes</translation>
    </message>
    <message>
        <source>What the build is; lines of the header with at most 1000 characters</source>
        <translation>Was der Build ist; Zeilen des Kopfes mit höchstens 1000 Zeichen</translation>
    </message>
    <message>
        <source>Module that the image is for; the header contains its code</source>
        <translation>Modul, für das das Image ist; im Kopf steht sein Code</translation>
    </message>
    <message>
        <source>Device of the module; the header contains its code</source>
        <translation>Baustein des Moduls; im Kopf steht sein Code</translation>
    </message>
    <message>
        <source>Flash slot of the device; the header contains its number</source>
        <translation>Flash-Slot des Bausteins; im Kopf steht seine Nummer</translation>
    </message>
    <message>
        <source>Functions in the build; the header contains all of them</source>
        <translation>Funktionen im Build; im Kopf stehen alle</translation>
    </message>
    <message>
        <source>Name of the function in the header; one that is listed already is overwritten</source>
        <translation>Name der Funktion im Kopf; eine bereits aufgeführte wird überschrieben</translation>
    </message>
    <message>
        <source>Who wrote the function; a line of the header</source>
        <translation>Wer die Funktion geschrieben hat; eine Zeile des Kopfes</translation>
    </message>
    <message>
        <source>What the function does; lines of the header</source>
        <translation>Was die Funktion tut; Zeilen des Kopfes</translation>
    </message>
    <message>
        <source>Configuration item number of the function, a line of the header</source>
        <translation>Nummer des Konfigurationselements (CI) der Funktion, eine Zeile des Kopfes</translation>
    </message>
    <message>
        <source>it ends before the end mark of its text</source>
        <translation>sie endet vor der Endmarke ihres Textes</translation>
    </message>
    <message>
        <source>its text does not end within %1 bytes</source>
        <translation>der Text endet nicht innerhalb von %1 Bytes</translation>
    </message>
    <message>
        <source>its functions do not end within %1 bytes</source>
        <translation>die Funktionen enden nicht innerhalb von %1 Bytes</translation>
    </message>
    <message>
        <source>it has more than %1 functions</source>
        <translation>sie hat mehr als %1 Funktionen</translation>
    </message>
    <message>
        <source>Pelk FCF Generator: %1</source>
        <translation>Pelk FCF Generator: %1</translation>
    </message>
</context>
<context>
    <name>ZORV_ArchiveConfigExtension</name>
    <message>
        <source>Create Design Archive</source>
        <translation>Designarchiv erstellen</translation>
    </message>
    <message>
        <source>Configuration Parameters</source>
        <translation>Konfigurationsparameter</translation>
    </message>
    <message>
        <source>Project CM:</source>
        <translation>Projekt-CM:</translation>
    </message>
    <message>
        <source>GNRL</source>
        <translation>GNRL</translation>
    </message>
    <message>
        <source>Package Type:</source>
        <translation>Pakettyp:</translation>
    </message>
    <message>
        <source>Design Type:</source>
        <translation>Designtyp:</translation>
    </message>
    <message>
        <source>Sequence Number:</source>
        <translation>Laufende Nummer:</translation>
    </message>
    <message>
        <source>Revision:</source>
        <translation>Revision:</translation>
    </message>
    <message>
        <source>The code of the project in the package&apos;s name, after the number of the package type</source>
        <translation>Der Code des Projekts im Namen des Pakets, nach der Nummer des Pakettyps</translation>
    </message>
    <message>
        <source>The name of the package begins with 7010 for firmware and 7030 for software, and contains FW or SW</source>
        <translation>Der Name des Pakets beginnt mit 7010 für Firmware und 7030 für Software und enthält FW oder SW</translation>
    </message>
    <message>
        <source>The code of the design type in the package&apos;s name, such as ELEC</source>
        <translation>Der Code des Designtyps im Namen des Pakets, etwa ELEC</translation>
    </message>
    <message>
        <source>The number of the package in its name, with two digits</source>
        <translation>Die Nummer des Pakets in seinem Namen, zweistellig</translation>
    </message>
    <message>
        <source>The first number at the end of the package&apos;s name, from the version of the design at first</source>
        <translation>Die erste Zahl am Ende des Paketnamens, zunächst aus der Version des Designs</translation>
    </message>
    <message>
        <source>Major revision</source>
        <translation>Hauptrevision</translation>
    </message>
    <message>
        <source>The second number at the end of the package&apos;s name, from the version of the design at first</source>
        <translation>Die zweite Zahl am Ende des Paketnamens, zunächst aus der Version des Designs</translation>
    </message>
    <message>
        <source>Minor revision</source>
        <translation>Nebenrevision</translation>
    </message>
</context>
<context>
    <name>ZORV_Plugin::ZORV_FileTypeExtensions</name>
    <message>
        <source>Create FCF</source>
        <translation>FCF erstellen</translation>
    </message>
    <message>
        <source>Open FCF</source>
        <translation>FCF öffnen</translation>
    </message>
    <message>
        <source>Failed to add generated file &quot;%1&quot; to design. Error: %2</source>
        <translation>Die erzeugte Datei „%1“ konnte nicht zum Design hinzugefügt werden. Fehler: %2</translation>
    </message>
    <message>
        <source>Successfully added generated file &quot;%1&quot; to design.</source>
        <translation>Die erzeugte Datei „%1“ wurde zum Design hinzugefügt.</translation>
    </message>
    <message>
        <source>Successfully updated generated file &quot;%1&quot; in design.</source>
        <translation>Die erzeugte Datei „%1“ wurde im Design aktualisiert.</translation>
    </message>
</context>
<context>
    <name>ZORV_Plugin::ZORV_Plugin_Core</name>
    <message>
        <source>Provides custom design archiving functionality in order to prepare configuration packages for the HX Config Management system.</source>
        <translation>Archiviert Designs als Konfigurationspakete für das HX-Config-Management-System.</translation>
    </message>
    <message>
        <source>Copyright 2026 ZORV</source>
        <translation>Copyright 2026 ZORV</translation>
    </message>
    <message>
        <source>Released under the MIT licence.</source>
        <translation>Veröffentlicht unter der MIT-Lizenz.</translation>
    </message>
</context>
<context>
    <name>ZORV_Plugin::ZORV_PropertyProvider</name>
    <message>
        <source>Specifies the device to use when generating FCF files for this design.&lt;br&gt;&lt;br&gt;Possible values:&lt;br&gt;For DFE1: Interface_FPGA, Processing_FPGA_1, Clock_Master_Device&lt;br&gt;For DFE2: Processing_FPGA&lt;br&gt;For GPM: Interface_FPGA, Processing_FPGA_1, Processing_FPGA_2, Processing_FPGA_3</source>
        <translation>Baustein, für den FCF-Dateien dieses Designs erzeugt werden.&lt;br&gt;&lt;br&gt;Mögliche Werte:&lt;br&gt;Für DFE1: Interface_FPGA, Processing_FPGA_1, Clock_Master_Device&lt;br&gt;Für DFE2: Processing_FPGA&lt;br&gt;Für GPM: Interface_FPGA, Processing_FPGA_1, Processing_FPGA_2, Processing_FPGA_3</translation>
    </message>
    <message>
        <source>Specifies the flash location  to use when generating FCF files for this design.&lt;br&gt;&lt;br&gt;Possible values: 1-10</source>
        <translation>Platz im Flash, für den FCF-Dateien dieses Designs erzeugt werden.&lt;br&gt;&lt;br&gt;Mögliche Werte: 1-10</translation>
    </message>
    <message>
        <source>Specifies the module to use when generating FCF files for this design.&lt;br&gt;&lt;br&gt;Possible values:&lt;br&gt;DFE1, DFE2, GPM</source>
        <translation>Modul, für das FCF-Dateien dieses Designs erzeugt werden.&lt;br&gt;&lt;br&gt;Mögliche Werte:&lt;br&gt;DFE1, DFE2, GPM</translation>
    </message>
</context>
</TS>
