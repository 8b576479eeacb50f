<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>LayerPanel</name>
    <message>
        <source>Fin&amp;d:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Find a layer</source>
        <translation>Eine Ebene suchen</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Show &amp;all</source>
        <translation>Alle &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Hide all</source>
        <translation>Alle a&amp;usblenden</translation>
    </message>
</context>
<context>
    <name>MapView</name>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
</context>
<context>
    <name>MapWindow</name>
    <message>
        <source>Coordinates</source>
        <translation>Koordinaten</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Maßstab</translation>
    </message>
    <message>
        <source>Scale of the map; a click copies it</source>
        <translation>Maßstab der Karte; ein Klick kopiert ihn</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Open a drawing (VDF) or a background package (GRP), or drop one here.</source>
        <translation>Öffnen Sie eine Zeichnung (VDF) oder ein Hintergrundpaket (GRP), oder ziehen Sie eines hierher.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Show a&amp;ll</source>
        <translation>A&amp;lles zeigen</translation>
    </message>
    <message>
        <source>Zoom to &amp;rectangle</source>
        <translation>Auf &amp;Rechteck vergrößern</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Selected feature</source>
        <translation>Gewähltes Objekt</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Objekt</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Drawings and packages (*.vdf *.VDF *.grp *.GRP)</source>
        <translation>Zeichnungen und Pakete (*.vdf *.VDF *.grp *.GRP)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Reading %1…</source>
        <translation>%1 wird gelesen…</translation>
    </message>
    <message>
        <source>no coordinates</source>
        <translation>keine Koordinaten</translation>
    </message>
    <message>
        <source>Click a feature on the map.</source>
        <translation>Klicken Sie ein Objekt auf der Karte an.</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Ebene</translation>
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
        <source>Vertices</source>
        <translation>Stützpunkte</translation>
    </message>
    <message>
        <source>Handle</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>Coordinates under the pointer; a click copies the last ones</source>
        <translation>Koordinaten unter dem Zeiger; ein Klick kopiert die zuletzt gezeigten</translation>
    </message>
    <message>
        <source>%1 contains nothing to show.</source>
        <translation>%1 enthält nichts, was zu zeigen wäre.</translation>
    </message>
    <message>
        <source>area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>closed polyline</source>
        <translation>geschlossene Polylinie</translation>
    </message>
    <message>
        <source>polyline</source>
        <translation>Polylinie</translation>
    </message>
    <message>
        <source>line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>filled circle</source>
        <translation>gefüllter Kreis</translation>
    </message>
    <message>
        <source>circle</source>
        <translation>Kreis</translation>
    </message>
    <message>
        <source>arc</source>
        <translation>Bogen</translation>
    </message>
    <message>
        <source>text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Verweis</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
</context>
<context>
    <name>SettingsPage</name>
    <message>
        <source>&amp;Clear value</source>
        <translation>Wert &amp;löschen</translation>
    </message>
    <message>
        <source>&amp;Search:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Search the settings</source>
        <translation>Die Einstellungen durchsuchen</translation>
    </message>
    <message>
        <source>All settings</source>
        <translation>Alle Einstellungen</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Bedeutung</translation>
    </message>
    <message>
        <source>a name, or a word of its meaning</source>
        <translation>ein Name, oder ein Wort aus der Erklärung</translation>
    </message>
    <message>
        <source>● marks a value that differs from its default. Italics mark changes that are not written yet.</source>
        <translation>● zeigt einen Wert, der von der Vorgabe abweicht. Kursiv: noch nicht geschrieben.</translation>
    </message>
</context>
<context>
    <name>frmBkgndOption</name>
    <message>
        <source>Background Options</source>
        <translation>Hintergrund-Optionen</translation>
    </message>
    <message>
        <source>&amp;Backgrounds</source>
        <translation>&amp;Hintergründe</translation>
    </message>
    <message>
        <source>All &amp;settings</source>
        <translation>Alle &amp;Einstellungen</translation>
    </message>
    <message>
        <source>C&amp;heck</source>
        <translation>&amp;Prüfung</translation>
    </message>
    <message>
        <source>Packages</source>
        <translation>Pakete</translation>
    </message>
    <message>
        <source>&amp;Grid interval:</source>
        <translation>&amp;Gitterweite:</translation>
    </message>
    <message>
        <source>Grid interval of background tiling</source>
        <translation>Gitterweite der Kacheln von Hintergründen</translation>
    </message>
    <message>
        <source>&amp;Most entities:</source>
        <translation>Höchst&amp;zahl der Objekte:</translation>
    </message>
    <message>
        <source>Largest number of entities per background drawing</source>
        <translation>Größte Zahl von Objekten je Hintergrundzeichnung</translation>
    </message>
    <message>
        <source>Closed &amp;polylines become areas too</source>
        <translation>Geschlossene Linienzüge &amp;werden auch Flächen</translation>
    </message>
    <message>
        <source>Every closed polyline also becomes an area</source>
        <translation>Jeder geschlossene Linienzug wird auch zur Fläche</translation>
    </message>
    <message>
        <source>Write a D&amp;XF with a package</source>
        <translation>D&amp;XF zu jedem Paket schreiben</translation>
    </message>
    <message>
        <source>Also write a DXF when building a package</source>
        <translation>Beim Bau eines Pakets auch eine DXF-Datei schreiben</translation>
    </message>
    <message>
        <source>Coordinates</source>
        <translation>Koordinaten</translation>
    </message>
    <message>
        <source>Coordinate s&amp;ystem:</source>
        <translation>&amp;Koordinatensystem:</translation>
    </message>
    <message>
        <source>Coordinate system (transformation) file; empty: British National Grid</source>
        <translation>Datei des Koordinatensystems (Transformation); leer: British National Grid</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>Dur&amp;chsuchen…</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Choose a coordinate system file</source>
        <translation>Eine Koordinatensystem-Datei wählen</translation>
    </message>
    <message>
        <source>Save the coordinate system under a new name</source>
        <translation>Das Koordinatensystem unter neuem Namen speichern</translation>
    </message>
    <message>
        <source>British National Grid</source>
        <translation>British National Grid</translation>
    </message>
    <message>
        <source>&amp;Copy it with outputs</source>
        <translation>Zu Ergebnissen k&amp;opieren</translation>
    </message>
    <message>
        <source>Copy the coordinate system with outputs</source>
        <translation>Das Koordinatensystem zu den Ergebnissen kopieren</translation>
    </message>
    <message>
        <source>Shapefiles are in &amp;latitude/longitude</source>
        <translation>Shapefiles sind in &amp;Länge/Breite</translation>
    </message>
    <message>
        <source>Shapefiles to import are in latitude/longitude</source>
        <translation>Zu importierende Shapefiles sind in Länge/Breite</translation>
    </message>
    <message>
        <source>GIS data is in &amp;feet</source>
        <translation>GIS-Daten &amp;sind in Fuß</translation>
    </message>
    <message>
        <source>GIS data for backgrounds is in feet</source>
        <translation>GIS-Daten für Hintergründe sind in Fuß</translation>
    </message>
    <message>
        <source>PDF maps</source>
        <translation>PDF-Karten</translation>
    </message>
    <message>
        <source>Layers of each page</source>
        <translation>Ebenen jeder Seite</translation>
    </message>
    <message>
        <source>Layers of each page, a l&amp;ine each:</source>
        <translation>&amp;Ebenen jeder Seite, je eine Zeile:</translation>
    </message>
    <message>
        <source>MasterMap</source>
        <translation>MasterMap</translation>
    </message>
    <message>
        <source>Bac&amp;kup folder:</source>
        <translation>S&amp;icherungsordner:</translation>
    </message>
    <message>
        <source>MasterMap backup folder</source>
        <translation>Sicherungsordner für MasterMap</translation>
    </message>
    <message>
        <source>Maintain a database with change-only &amp;updates</source>
        <translation>Datenbank &amp;mit Änderungsdaten führen</translation>
    </message>
    <message>
        <source>Maintain a MasterMap database with change-only updates</source>
        <translation>Eine MasterMap-Datenbank mit Änderungsdaten führen</translation>
    </message>
    <message>
        <source>ESRI version for backdrops</source>
        <translation>ESRI-Version für Hintergründe</translation>
    </message>
    <message>
        <source>&amp;10</source>
        <translation>&amp;10</translation>
    </message>
    <message>
        <source>10.&amp;2</source>
        <translation>10.&amp;2</translation>
    </message>
    <message>
        <source>10.&amp;5</source>
        <translation>10.&amp;5</translation>
    </message>
    <message>
        <source>ESRI version %1</source>
        <translation>ESRI-Version %1</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>C&amp;heck (%1)</source>
        <translation>&amp;Prüfung (%1)</translation>
    </message>
    <message>
        <source>Coordinate system</source>
        <translation>Koordinatensystem</translation>
    </message>
    <message>
        <source>Coordinate System DAT</source>
        <translation>Koordinatensystem DAT</translation>
    </message>
    <message>
        <source>Coordinate System</source>
        <translation>Koordinatensystem</translation>
    </message>
    <message>
        <source>Findings in gv.ini</source>
        <translation>Befunde in gv.ini</translation>
    </message>
    <message>
        <source>Remedy</source>
        <translation>Abhilfe</translation>
    </message>
    <message>
        <source>A double click selects the setting.</source>
        <translation>Ein Doppelklick führt zur Einstellung.</translation>
    </message>
    <message>
        <source>Write the changes and close</source>
        <translation>Änderungen schreiben und schließen</translation>
    </message>
    <message>
        <source>Writes the changes and closes. A right click opens gv.ini.</source>
        <translation>Schreibt die Änderungen und schließt. Ein Rechtsklick öffnet gv.ini.</translation>
    </message>
    <message>
        <source>gv.ini has no faults.</source>
        <translation>In gv.ini ist nichts zu berichtigen.</translation>
    </message>
</context>
<context>
    <name>vexlator</name>
    <message>
        <source>Vexlator</source>
        <translation>Vexlator</translation>
    </message>
    <message>
        <source>What the conversion says</source>
        <translation>Meldungen der Umwandlung</translation>
    </message>
    <message>
        <source>A conversion is running. Cancel it?</source>
        <translation>Eine Umwandlung läuft. Abbrechen?</translation>
    </message>
    <message>
        <source>Existing files stay unchanged.</source>
        <translation>Vorhandene Dateien bleiben unverändert.</translation>
    </message>
    <message>
        <source>Cancel the conversion</source>
        <translation>Umwandlung abbrechen</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Weiterlaufen lassen</translation>
    </message>
    <message>
        <source>Progress of the conversion</source>
        <translation>Fortschritt der Umwandlung</translation>
    </message>
    <message>
        <source>%1: %2 of %3</source>
        <translation>%1: %2 von %3</translation>
    </message>
    <message>
        <source>Stopping; what was there before stays …</source>
        <translation>Wird abgebrochen; was vorher da war, bleibt …</translation>
    </message>
    <message>
        <source>All Known Files</source>
        <translation>Alle bekannten Dateien</translation>
    </message>
    <message>
        <source>GIS Files</source>
        <translation>GIS-Dateien</translation>
    </message>
    <message>
        <source>Raster Files</source>
        <translation>Rasterdateien</translation>
    </message>
    <message>
        <source>CAD Files</source>
        <translation>CAD-Dateien</translation>
    </message>
    <message>
        <source>MasterMap Files</source>
        <translation>MasterMap-Dateien</translation>
    </message>
    <message>
        <source>OS NTF Files</source>
        <translation>OS-NTF-Dateien</translation>
    </message>
    <message>
        <source>Kadaster PDF Files</source>
        <translation>Kadaster-PDF-Dateien</translation>
    </message>
    <message>
        <source>Gorvane GRP</source>
        <translation>Gorvane GRP</translation>
    </message>
    <message>
        <source>Background styling</source>
        <translation>Hintergrundgestaltung</translation>
    </message>
    <message>
        <source>Select File</source>
        <translation>Datei wählen</translation>
    </message>
    <message>
        <source>Files to convert</source>
        <translation>Umzuwandelnde Dateien</translation>
    </message>
    <message>
        <source>Path of the source</source>
        <translation>Pfad der Quelle</translation>
    </message>
    <message>
        <source>&amp;Browse…</source>
        <translation>Dur&amp;chsuchen…</translation>
    </message>
    <message>
        <source>Chooses the file to be converted</source>
        <translation>Wählt die umzuwandelnde Datei</translation>
    </message>
    <message>
        <source>Georefere&amp;nce…</source>
        <translation>Geore&amp;ferenzieren…</translation>
    </message>
    <message>
        <source>Puts the image on the ground</source>
        <translation>Legt das Bild auf den Boden</translation>
    </message>
    <message>
        <source>&amp;All files of this kind in the folder</source>
        <translation>Alle Dateien dieser Art &amp;im Ordner</translation>
    </message>
    <message>
        <source>Each becomes a package in a folder of its own</source>
        <translation>Jede wird ein Paket in einem eigenen Ordner</translation>
    </message>
    <message>
        <source>Drop files or folders here, or choose with Browse</source>
        <translation>Dateien oder Ordner hierher ziehen, oder mit „Durchsuchen“ wählen</translation>
    </message>
    <message>
        <source>&amp;Source</source>
        <translation>&amp;Quelle</translation>
    </message>
    <message>
        <source>Path of the package</source>
        <translation>Pfad des Pakets</translation>
    </message>
    <message>
        <source>Path of the background styling file</source>
        <translation>Pfad der Gestaltungsdatei</translation>
    </message>
    <message>
        <source>Br&amp;owse…</source>
        <translation>D&amp;urchsuchen…</translation>
    </message>
    <message>
        <source>Chooses the package to be written</source>
        <translation>Wählt das zu schreibende Paket</translation>
    </message>
    <message>
        <source>Bro&amp;wse…</source>
        <translation>Du&amp;rchsuchen…</translation>
    </message>
    <message>
        <source>Chooses a background styling file</source>
        <translation>Wählt eine Gestaltungsdatei</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Bearbeiten…</translation>
    </message>
    <message>
        <source>Opens the background styling editor</source>
        <translation>Öffnet den Editor der Hintergrundgestaltung</translation>
    </message>
    <message>
        <source>&amp;Clear the output folder first</source>
        <translation>Ausgabeordner zuerst &amp;leeren</translation>
    </message>
    <message>
        <source>Deletes packages in the folder and in the folders below it</source>
        <translation>Löscht Pakete im Ordner und in den Ordnern darunter</translation>
    </message>
    <message>
        <source>E&amp;xplode symbols</source>
        <translation>S&amp;ymbole auflösen</translation>
    </message>
    <message>
        <source>Symbols become lines and areas</source>
        <translation>Symbole werden Linien und Flächen</translation>
    </message>
    <message>
        <source>Show helpe&amp;r programs</source>
        <translation>Hilfsprogra&amp;mme zeigen</translation>
    </message>
    <message>
        <source>Helper programs show their windows</source>
        <translation>Hilfsprogramme zeigen ihre Fenster</translation>
    </message>
    <message>
        <source>Apply change-only &amp;updates</source>
        <translation>Ä&amp;nderungsdaten anwenden</translation>
    </message>
    <message>
        <source>The source updates the packages of earlier sources</source>
        <translation>Die Quelle ändert die Pakete früherer Quellen</translation>
    </message>
    <message>
        <source>&amp;Package</source>
        <translation>&amp;Paket</translation>
    </message>
    <message>
        <source>St&amp;yling</source>
        <translation>&amp;Gestaltung</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>Cance&amp;l</source>
        <translation>A&amp;bbrechen</translation>
    </message>
    <message>
        <source>Existing packages stay unchanged</source>
        <translation>Vorhandene Pakete bleiben unverändert</translation>
    </message>
    <message>
        <source>Run what fa&amp;iled again</source>
        <translation>Fehlgeschlagenes w&amp;iederholen</translation>
    </message>
    <message>
        <source>Show as co&amp;mmand…</source>
        <translation>Als &amp;Befehl zeigen…</translation>
    </message>
    <message>
        <source>The command line that does the same without a window</source>
        <translation>Die Befehlszeile, die dasselbe ohne Fenster tut</translation>
    </message>
    <message>
        <source>&amp;Keep open</source>
        <translation>&amp;Offen lassen</translation>
    </message>
    <message>
        <source>The window stays for the next conversion</source>
        <translation>Das Fenster bleibt für die nächste Umwandlung</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open source…</source>
        <translation>Quelle ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Recent sources</source>
        <translation>Zuletzt &amp;verwendet</translation>
    </message>
    <message>
        <source>&amp;Package…</source>
        <translation>&amp;Paket…</translation>
    </message>
    <message>
        <source>Re&amp;move from the list</source>
        <translation>Aus der Liste &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Show on the map</source>
        <translation>Auf der &amp;Karte zeigen</translation>
    </message>
    <message>
        <source>&amp;List the files again</source>
        <translation>Dateien neu auf&amp;listen</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>Background &amp;options…</source>
        <translation>Hintergrund-&amp;Optionen…</translation>
    </message>
    <message>
        <source>Coordinate &amp;library…</source>
        <translation>&amp;Koordinatenbibliothek…</translation>
    </message>
    <message>
        <source>The coordinate library is where it is expected.</source>
        <translation>Die Koordinatenbibliothek ist da, wo sie erwartet wird.</translation>
    </message>
    <message>
        <source>Show as &amp;command…</source>
        <translation>Als &amp;Befehl zeigen…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Vexlator</source>
        <translation>Ü&amp;ber Vexlator</translation>
    </message>
    <message>
        <source>About Vexlator</source>
        <translation>Über Vexlator</translation>
    </message>
    <message>
        <source>&lt;b&gt;%1&lt;/b&gt;&lt;p&gt;Turns field drawings into GIS formats, GIS data into drawings, and maps into background packages.&lt;/p&gt;&lt;p&gt;%2&lt;/p&gt;</source>
        <translation>&lt;b&gt;%1&lt;/b&gt;&lt;p&gt;Macht aus Feldzeichnungen GIS-Formate, aus GIS-Daten Zeichnungen und aus Karten Hintergrundpakete.&lt;/p&gt;&lt;p&gt;%2&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Under the MIT licence</source>
        <translation>Unter der MIT-Lizenz</translation>
    </message>
    <message>
        <source>&amp;Forget them</source>
        <translation>Liste &amp;leeren</translation>
    </message>
    <message>
        <source>Show as command</source>
        <translation>Als Befehl zeigen</translation>
    </message>
    <message>
        <source>This line does the same without a window, as in a script:</source>
        <translation>Diese Zeile tut dasselbe ohne Fenster, etwa in einem Skript:</translation>
    </message>
    <message>
        <source>The map shows a file once Go has made its package, and drawings</source>
        <translation>Die Karte zeigt Zeichnungen, und Dateien, sobald ihr Paket fertig ist</translation>
    </message>
    <message>
        <source>Nothing of what was dropped can be converted</source>
        <translation>Nichts davon lässt sich umwandeln</translation>
    </message>
    <message>
        <source>Cancelled; existing packages are unchanged</source>
        <translation>Abgebrochen; vorhandene Pakete sind unverändert</translation>
    </message>
    <message>
        <source>There is nothing to convert</source>
        <translation>Es gibt nichts umzuwandeln</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) failed</source>
        <translation>
            <numerusform>%n Datei fehlgeschlagen</numerusform>
            <numerusform>%n Dateien fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message>
        <source>Complete</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>ESRI layer</source>
        <translation>ESRI-Ebene</translation>
    </message>
    <message>
        <source>ESRI map document</source>
        <translation>ESRI-Kartendokument</translation>
    </message>
    <message>
        <source>Cadcorp workspace</source>
        <translation>Cadcorp-Arbeitsbereich</translation>
    </message>
    <message>
        <source>CAD drawing</source>
        <translation>CAD-Zeichnung</translation>
    </message>
    <message>
        <source>shapefile</source>
        <translation>Shapefile</translation>
    </message>
    <message>
        <source>MapInfo table</source>
        <translation>MapInfo-Tabelle</translation>
    </message>
    <message>
        <source>MapInfo interchange file</source>
        <translation>MapInfo-Austauschdatei</translation>
    </message>
    <message>
        <source>device job</source>
        <translation>Geräteauftrag</translation>
    </message>
    <message>
        <source>drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>NTF map</source>
        <translation>NTF-Karte</translation>
    </message>
    <message>
        <source>compressed GML</source>
        <translation>GML, komprimiert</translation>
    </message>
    <message>
        <source>map sheet</source>
        <translation>Kartenblatt</translation>
    </message>
    <message>
        <source>Go does nothing with this kind of file</source>
        <translation>Aus dieser Art von Datei wird kein Paket</translation>
    </message>
    <message>
        <source>Done in %1 s</source>
        <translation>Fertig in %1 s</translation>
    </message>
    <message>
        <source>Done: %1 features in %2 s</source>
        <translation>Fertig: %1 Objekte in %2 s</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Not yet</source>
        <translation>Noch nicht</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Coordinate system</source>
        <translation>Koordinatensystem</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>What &amp;Go said…</source>
        <translation>&amp;Meldungen…</translation>
    </message>
    <message>
        <source>What Go said</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Messages and lines of the last conversion:</source>
        <translation>Meldungen der letzten Umwandlung:</translation>
    </message>
    <message>
        <source>Georeferencing</source>
        <translation>Georeferenzieren</translation>
    </message>
    <message>
        <source>Open a scanned plan or a photograph, or drop one here.</source>
        <translation>Öffnen Sie einen gescannten Plan oder ein Foto, oder ziehen Sie es hierher.</translation>
    </message>
    <message>
        <source>Reading %1…</source>
        <translation>%1 wird gelesen…</translation>
    </message>
    <message>
        <source>%1 – Georeferencing</source>
        <translation>%1 – Georeferenzieren</translation>
    </message>
    <message>
        <source>The points of this image are not saved: %1</source>
        <translation>Die Punkte dieses Bildes werden nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>The points were taken on an image of %1 x %2 pixels</source>
        <translation>Die Punkte stammen von einem Bild mit %1 x %2 Pixeln</translation>
    </message>
    <message>
        <source>mean error %1 pixels, %2 m</source>
        <translation>mittlerer Fehler %1 Pixel, %2 m</translation>
    </message>
    <message>
        <source>pixel %1, %2</source>
        <translation>Pixel %1, %2</translation>
    </message>
    <message>
        <source>ground %1, %2</source>
        <translation>Gelände %1, %2</translation>
    </message>
    <message>
        <source>Click the point on the image first</source>
        <translation>Klicken Sie den Punkt zuerst auf dem Bild an</translation>
    </message>
    <message>
        <source>No world file lies beside the image</source>
        <translation>Neben dem Bild liegt keine World-Datei</translation>
    </message>
    <message>
        <source>Ground from the world file</source>
        <translation>Geländelage aus der World-Datei</translation>
    </message>
    <message>
        <source>The points are not saved: %1</source>
        <translation>Die Punkte sind nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>Convert to the grid</source>
        <translation>In das Gitter umrechnen</translation>
    </message>
    <message>
        <source>Written: %1</source>
        <translation>Geschrieben: %1</translation>
    </message>
    <message>
        <source>Working on the image…</source>
        <translation>Das Bild wird bearbeitet…</translation>
    </message>
    <message>
        <source>Open a drawing that shows the ground: a click on it gives the selected point its position.</source>
        <translation>Öffnen Sie eine Zeichnung des Geländes: Ein Klick darauf gibt dem gewählten Punkt seine Lage.</translation>
    </message>
    <message>
        <source>&amp;Open drawing…</source>
        <translation>Z&amp;eichnung öffnen…</translation>
    </message>
    <message>
        <source>Open drawing</source>
        <translation>Zeichnung öffnen</translation>
    </message>
    <message>
        <source>Drawings and packages (*.vdf *.VDF *.grp *.GRP)</source>
        <translation>Zeichnungen und Pakete (*.vdf *.VDF *.grp *.GRP)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>There is nothing to see in %1.</source>
        <translation>In %1 gibt es nichts zu sehen.</translation>
    </message>
    <message>
        <source>Scroll the image sideways</source>
        <translation>Das Bild seitwärts rollen</translation>
    </message>
    <message>
        <source>Scroll the image up and down</source>
        <translation>Das Bild auf und ab rollen</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Images (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>&amp;Open image…</source>
        <translation>Bild ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Import QGIS points…</source>
        <translation>QGIS-Punkte &amp;einlesen…</translation>
    </message>
    <message>
        <source>&amp;Export QGIS points…</source>
        <translation>QGIS-Punkte &amp;ausgeben…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
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
        <source>&amp;Delete point</source>
        <translation>Punkt &amp;löschen</translation>
    </message>
    <message>
        <source>Ground from the &amp;world file</source>
        <translation>Geländelage aus der &amp;World-Datei</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Show a&amp;ll</source>
        <translation>A&amp;lles zeigen</translation>
    </message>
    <message>
        <source>&amp;Full size</source>
        <translation>&amp;Volle Größe</translation>
    </message>
    <message>
        <source>&amp;Magnifier</source>
        <translation>&amp;Lupe</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>Control points</source>
        <translation>Passpunkte</translation>
    </message>
    <message>
        <source>Open image</source>
        <translation>Bild öffnen</translation>
    </message>
    <message>
        <source>Import QGIS points</source>
        <translation>QGIS-Punkte einlesen</translation>
    </message>
    <message>
        <source>QGIS points (*.points)</source>
        <translation>QGIS-Punkte (*.points)</translation>
    </message>
    <message>
        <source>Export QGIS points</source>
        <translation>QGIS-Punkte ausgeben</translation>
    </message>
    <message>
        <source>Add point %1</source>
        <translation>Punkt %1 setzen</translation>
    </message>
    <message>
        <source>Move point %1</source>
        <translation>Punkt %1 verschieben</translation>
    </message>
    <message>
        <source>Ground of point %1</source>
        <translation>Lage von Punkt %1</translation>
    </message>
    <message>
        <source>Delete point %1</source>
        <translation>Punkt %1 löschen</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>Ground</source>
        <translation>Gelände</translation>
    </message>
    <message>
        <source>Pixels off</source>
        <translation>Fehler, Pixel</translation>
    </message>
    <message>
        <source>Metres off</source>
        <translation>Fehler, m</translation>
    </message>
    <message>
        <source>Whether the fit uses the point</source>
        <translation>Ob die Einpassung den Punkt verwendet</translation>
    </message>
    <message>
        <source>Leave out point %1</source>
        <translation>Punkt %1 auslassen</translation>
    </message>
    <message>
        <source>Use point %1</source>
        <translation>Punkt %1 verwenden</translation>
    </message>
    <message>
        <source>&amp;Rotate the image so that north is up</source>
        <translation>Bild &amp;nach Norden drehen</translation>
    </message>
    <message>
        <source>Makes a turned copy of the image, with a world file of its own</source>
        <translation>Macht eine gedrehte Kopie des Bildes mit eigener World-Datei</translation>
    </message>
    <message>
        <source>Fit of &amp;second order</source>
        <translation>Einpassung &amp;zweiter Ordnung</translation>
    </message>
    <message>
        <source>Bends the image; needs six points, and the image to be rotated</source>
        <translation>Biegt das Bild; braucht sechs Punkte, und das Bild muss gedreht werden</translation>
    </message>
    <message>
        <source>&amp;Georeference</source>
        <translation>&amp;Georeferenzieren</translation>
    </message>
    <message>
        <source>Writes the image&apos;s world file from the control points</source>
        <translation>Schreibt aus den Passpunkten die World-Datei des Bildes</translation>
    </message>
    <message>
        <source>&amp;Carve</source>
        <translation>Ze&amp;rschneiden</translation>
    </message>
    <message>
        <source>Cuts an image that has a world file into tiles of 400 pixels</source>
        <translation>Schneidet ein Bild mit World-Datei in Kacheln von 400 Pixeln</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Ends the work on the image</source>
        <translation>Beendet die Arbeit am Bild</translation>
    </message>
    <message>
        <source>&amp;Points</source>
        <translation>&amp;Punkte</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>&amp;Liste</translation>
    </message>
    <message>
        <source>Control points, worst first</source>
        <translation>Passpunkte, der schlechteste zuerst</translation>
    </message>
    <message>
        <source>Control points, a line each</source>
        <translation>Passpunkte, zeilenweise</translation>
    </message>
    <message>
        <source>Pixel (&amp;1P=x,y) and ground (1G=x,y) of each point:</source>
        <translation>Pixel (&amp;1P=x,y) und Gelände (1G=x,y) jedes Punktes:</translation>
    </message>
    <message>
        <source>Ground position</source>
        <translation>Lage im Gelände</translation>
    </message>
    <message>
        <source>412000, 284200 or TG 514 131 or 52°28&apos;N 1°43&apos;E</source>
        <translation>412000, 284200 oder TG 514 131 oder 52°28&apos;N 1°43&apos;E</translation>
    </message>
    <message>
        <source>Gro&amp;und of point %1:</source>
        <translation>&amp;Lage von Punkt %1:</translation>
    </message>
    <message>
        <source>Gro&amp;und:</source>
        <translation>&amp;Lage:</translation>
    </message>
    <message>
        <source>Click on the image to set a point.</source>
        <translation>Klicken Sie auf das Bild, um einen Punkt zu setzen.</translation>
    </message>
    <message>
        <source>Type its position, or take it from the map.</source>
        <translation>Geben Sie seine Lage ein, oder nehmen Sie sie von der Karte.</translation>
    </message>
    <message>
        <source>Edit the list</source>
        <translation>Liste bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Georeference an image…</source>
        <translation>Bild &amp;georeferenzieren…</translation>
    </message>
    <message>
        <source>All points</source>
        <translation>Alle Punkte</translation>
    </message>
    <message>
        <source>Other colour…</source>
        <translation>Andere Farbe…</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Sample</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Strichart</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Mobile Style File (*.txt)</source>
        <translation>Mobilstil-Datei (*.txt)</translation>
    </message>
    <message>
        <source>Mobile styles</source>
        <translation>Mobilstile</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Add &amp;point style</source>
        <translation>&amp;Punktstil hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;line style</source>
        <translation>&amp;Linienstil hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;area style</source>
        <translation>&amp;Flächenstil hinzufügen</translation>
    </message>
    <message>
        <source>Re&amp;move the style</source>
        <translation>Stil &amp;entfernen</translation>
    </message>
    <message>
        <source>Styles</source>
        <translation>Stile</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>The styles have changed. Save them?</source>
        <translation>Die Stile sind geändert. Speichern?</translation>
    </message>
    <message>
        <source>change of a style</source>
        <translation>Änderung eines Stils</translation>
    </message>
    <message>
        <source>New style</source>
        <translation>Neuer Stil</translation>
    </message>
    <message>
        <source>new style</source>
        <translation>neuer Stil</translation>
    </message>
    <message>
        <source>The styles behind this one get other numbers, so that packages made before show other styles. Remove it?</source>
        <translation>Die Stile dahinter bekommen andere Nummern, so dass frühere Pakete andere Stile zeigen. Entfernen?</translation>
    </message>
    <message>
        <source>removal of a style</source>
        <translation>Entfernen eines Stils</translation>
    </message>
    <message>
        <source>new file</source>
        <translation>neue Datei</translation>
    </message>
    <message>
        <source>There are no styles yet. Add one.</source>
        <translation>Es gibt noch keine Stile. Fügen Sie einen hinzu.</translation>
    </message>
    <message>
        <source>Background &amp;styling…</source>
        <translation>Hintergrund&amp;gestaltung…</translation>
    </message>
    <message>
        <source>Preview a file to see the style on it.</source>
        <translation>Öffnen Sie eine Datei, um die Gestaltung an ihr zu sehen.</translation>
    </message>
    <message>
        <source>&amp;Open style…</source>
        <translation>Stil ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save style…</source>
        <translation>Stil &amp;speichern…</translation>
    </message>
    <message>
        <source>&amp;Preview a file…</source>
        <translation>Dat&amp;ei ansehen…</translation>
    </message>
    <message>
        <source>Save &amp;drawing as…</source>
        <translation>&amp;Zeichnung speichern unter…</translation>
    </message>
    <message>
        <source>Re&amp;move rows</source>
        <translation>Zeilen &amp;entfernen</translation>
    </message>
    <message>
        <source>Zoom to &amp;rectangle</source>
        <translation>Auf &amp;Rechteck vergrößern</translation>
    </message>
    <message>
        <source>rows for layers</source>
        <translation>Zeilen für Ebenen</translation>
    </message>
    <message>
        <source>reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>search attribute</source>
        <translation>Suchattribut</translation>
    </message>
    <message>
        <source>annotation height</source>
        <translation>Texthöhe</translation>
    </message>
    <message>
        <source>removal of rows</source>
        <translation>Entfernen von Zeilen</translation>
    </message>
    <message>
        <source>choice of attributes</source>
        <translation>Auswahl von Attributen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Areas</source>
        <translation>Flächen</translation>
    </message>
    <message>
        <source>Thick</source>
        <translation>Dick</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>DEFAULT is for layers that have no row, or say nothing in theirs</source>
        <translation>DEFAULT gilt für Ebenen ohne Zeile, oder mit leerer</translation>
    </message>
    <message>
        <source>Colour or mobile style of points, symbols and texts</source>
        <translation>Farbe oder Mobilstil von Punkten, Symbolen und Texten</translation>
    </message>
    <message>
        <source>Colour or mobile style of open lines</source>
        <translation>Farbe oder Mobilstil offener Linien</translation>
    </message>
    <message>
        <source>Colour or mobile style of closed lines</source>
        <translation>Farbe oder Mobilstil geschlossener Linien</translation>
    </message>
    <message>
        <source>The device draws the layer with thick lines</source>
        <translation>Das Gerät zeichnet die Ebene mit dicken Linien</translation>
    </message>
    <message>
        <source>The device shows the layer only when it has zoomed in</source>
        <translation>Das Gerät zeigt die Ebene nur vergrößert</translation>
    </message>
    <message>
        <source>The layer is left out of the package</source>
        <translation>Die Ebene kommt nicht ins Paket</translation>
    </message>
    <message>
        <source>Mobile style %1, number %2</source>
        <translation>Mobilstil %1, Nummer %2</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>The style has changes that are not saved. Save it?</source>
        <translation>Der Stil hat ungespeicherte Änderungen. Speichern?</translation>
    </message>
    <message>
        <source>Style Editor not installed:</source>
        <translation>Der Stileditor ist nicht installiert:</translation>
    </message>
    <message>
        <source>%1 does not start</source>
        <translation>%1 startet nicht</translation>
    </message>
    <message>
        <source>The drawing has changes that are not saved. Give them up?</source>
        <translation>Die Zeichnung hat ungespeicherte Änderungen. Verwerfen?</translation>
    </message>
    <message>
        <source>Choose another file: this one is needed to undo changes.</source>
        <translation>Wählen Sie eine andere Datei: Diese wird gebraucht, um Änderungen rückgängig zu machen.</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>%1 wird gespeichert…</translation>
    </message>
    <message>
        <source>Styles of the layers</source>
        <translation>Stile der Ebenen</translation>
    </message>
    <message>
        <source>Opens a background styling file</source>
        <translation>Öffnet eine Gestaltungsdatei</translation>
    </message>
    <message>
        <source>Writes the background styling file</source>
        <translation>Schreibt die Gestaltungsdatei</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>Zurückse&amp;tzen</translation>
    </message>
    <message>
        <source>Empties the style and lists the drawing&apos;s layers anew</source>
        <translation>Leert den Stil und listet die Ebenen der Zeichnung neu</translation>
    </message>
    <message>
        <source>&amp;Get layers</source>
        <translation>Ebenen &amp;holen</translation>
    </message>
    <message>
        <source>Adds a row for every layer that has none</source>
        <translation>Fügt jeder Ebene ohne Zeile eine hinzu</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>An&amp;wenden</translation>
    </message>
    <message>
        <source>Shows the styles on the map; changes show at once too</source>
        <translation>Zeigt die Stile auf der Karte; Änderungen zeigen sich auch sofort</translation>
    </message>
    <message>
        <source>&amp;Mobile styles…</source>
        <translation>&amp;Mobilstile…</translation>
    </message>
    <message>
        <source>Opens the mobile style file in its editor</source>
        <translation>Öffnet die Mobilstil-Datei im Editor</translation>
    </message>
    <message>
        <source>S&amp;imple styling</source>
        <translation>E&amp;infach</translation>
    </message>
    <message>
        <source>One colour serves points, lines and areas</source>
        <translation>Eine Farbe gilt für Punkte, Linien und Flächen</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>Annotation</source>
        <translation>Beschriftung</translation>
    </message>
    <message>
        <source>Relayer</source>
        <translation>Neue Ebenen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Attributes that the package keeps</source>
        <translation>Attribute, die das Paket behält</translation>
    </message>
    <message>
        <source>Attribute that the device can search by</source>
        <translation>Attribut, nach dem das Gerät suchen kann</translation>
    </message>
    <message>
        <source>&amp;Kept in the package:</source>
        <translation>Im &amp;Paket behalten:</translation>
    </message>
    <message>
        <source>Sea&amp;rch by:</source>
        <translation>Suche &amp;nach:</translation>
    </message>
    <message>
        <source>Fixed height of annotation, in units of the drawing</source>
        <translation>Feste Texthöhe in Einheiten der Zeichnung</translation>
    </message>
    <message>
        <source>by feature</source>
        <translation>je Objekt</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Shows the annotation on the map</source>
        <translation>Zeigt die Beschriftung auf der Karte</translation>
    </message>
    <message>
        <source>S&amp;hown as annotation:</source>
        <translation>A&amp;ls Beschriftung gezeigt:</translation>
    </message>
    <message>
        <source>Fi&amp;xed height:</source>
        <translation>Feste H&amp;öhe:</translation>
    </message>
    <message>
        <source>Attributes to relayer the drawing by</source>
        <translation>Attribute, nach denen Ebenen gebildet werden können</translation>
    </message>
    <message>
        <source>&amp;List attributes</source>
        <translation>Attribute auf&amp;listen</translation>
    </message>
    <message>
        <source>Lists the drawing&apos;s attributes; the one that you choose names the layers</source>
        <translation>Listet die Attribute der Zeichnung; das gewählte benennt die Ebenen</translation>
    </message>
    <message>
        <source>The value of the attribute becomes the feature&apos;s layer.</source>
        <translation>Der Wert des Attributs wird die Ebene des Objekts.</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>A&amp;usführen</translation>
    </message>
    <message>
        <source>Runs the chosen tool on the drawing</source>
        <translation>Führt das gewählte Werkzeug an der Zeichnung aus</translation>
    </message>
    <message>
        <source>Scale: from feet into metres. Move: a point that you click lands on coordinates that you type. Show: the whole drawing.</source>
        <translation>Skalieren: von Fuß in Meter. Verschieben: Ein angeklickter Punkt kommt auf eingegebene Koordinaten. Zeigen: die ganze Zeichnung.</translation>
    </message>
    <message>
        <source>Too&amp;l:</source>
        <translation>Werk&amp;zeug:</translation>
    </message>
    <message>
        <source>Opens a drawing, or a GIS or CAD file</source>
        <translation>Öffnet eine Zeichnung, GIS- oder CAD-Datei</translation>
    </message>
    <message>
        <source>As on the &amp;device</source>
        <translation>Wie auf dem &amp;Gerät</translation>
    </message>
    <message>
        <source>Builds the package and shows what is in it</source>
        <translation>Baut das Paket und zeigt, was darin ist</translation>
    </message>
    <message>
        <source>&amp;Quick convert</source>
        <translation>S&amp;chnell umwandeln</translation>
    </message>
    <message>
        <source>Hands drawing and style to the selection window, for Go</source>
        <translation>Gibt Zeichnung und Stil dem Auswahlfenster, für Start</translation>
    </message>
    <message>
        <source>The feature that was clicked</source>
        <translation>Das angeklickte Objekt</translation>
    </message>
    <message>
        <source>Reading the drawing…</source>
        <translation>Die Zeichnung wird gelesen…</translation>
    </message>
    <message>
        <source>There is nothing to see in it.</source>
        <translation>Darin gibt es nichts zu sehen.</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>arbeitet</translation>
    </message>
    <message>
        <source>The drawing has no attributes</source>
        <translation>Die Zeichnung hat keine Attribute</translation>
    </message>
    <message>
        <source>Are you sure you want to relayer on Propery:&apos;%1&apos;</source>
        <translation>Wirklich die Ebenen nach dem Attribut „%1“ bilden?</translation>
    </message>
    <message>
        <source>relayering</source>
        <translation>neue Ebenen</translation>
    </message>
    <message>
        <source>Scale draing from ft into metres</source>
        <translation>Die Zeichnung von Fuß in Meter skalieren?</translation>
    </message>
    <message>
        <source>scaling</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Scaled OK</source>
        <translation>Skaliert</translation>
    </message>
    <message>
        <source>Move Drawing from one coordinate to another</source>
        <translation>Die Zeichnung von einer Koordinate auf eine andere verschieben</translation>
    </message>
    <message>
        <source>Move To..</source>
        <translation>Verschieben nach..</translation>
    </message>
    <message>
        <source>move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Moved OK</source>
        <translation>Verschoben</translation>
    </message>
    <message>
        <source>Two numbers with a comma between, as in %1</source>
        <translation>Zwei Zahlen mit einem Komma dazwischen, wie %1</translation>
    </message>
    <message>
        <source> layer Not Found. Add Now?</source>
        <translation>: Diese Ebene hat keine Zeile. Jetzt hinzufügen?</translation>
    </message>
    <message>
        <source>row for a layer</source>
        <translation>Zeile für eine Ebene</translation>
    </message>
    <message>
        <source>Building the package…</source>
        <translation>Das Paket wird gebaut…</translation>
    </message>
    <message>
        <source>%1 is not understood</source>
        <translation>%1 wird nicht verstanden</translation>
    </message>
    <message>
        <source>a mark is in the place of a number</source>
        <translation>ein Zeichen steht, wo eine Zahl stehen müsste</translation>
    </message>
    <message>
        <source>the letter %1 is in the place of a number</source>
        <translation>der Buchstabe %1 steht, wo eine Zahl stehen müsste</translation>
    </message>
    <message>
        <source>an angle has degrees, minutes and seconds</source>
        <translation>ein Winkel hat Grad, Minuten und Sekunden</translation>
    </message>
    <message>
        <source>degrees come first, then minutes, then seconds</source>
        <translation>zuerst kommen Grad, dann Minuten, dann Sekunden</translation>
    </message>
    <message>
        <source>minutes and seconds have no sign</source>
        <translation>Minuten und Sekunden haben kein Vorzeichen</translation>
    </message>
    <message>
        <source>minutes and seconds are below 60</source>
        <translation>Minuten und Sekunden liegen unter 60</translation>
    </message>
    <message>
        <source>only the last part of an angle has decimals</source>
        <translation>nur der letzte Teil eines Winkels hat Nachkommastellen</translation>
    </message>
    <message>
        <source>an angle has a sign or a letter, not both</source>
        <translation>ein Winkel hat ein Vorzeichen oder einen Buchstaben, nicht beides</translation>
    </message>
    <message>
        <source>; the image lies mirrored: are two points, or x and y, exchanged?</source>
        <translation>; das Bild liegt gespiegelt: sind zwei Punkte oder x und y vertauscht?</translation>
    </message>
    <message>
        <source>the control points have values that are too large to compute with</source>
        <translation>die Passpunkte haben Werte, die zum Rechnen zu groß sind</translation>
    </message>
    <message>
        <source>all control points have the same position on the image</source>
        <translation>alle Passpunkte liegen an derselben Stelle des Bildes</translation>
    </message>
    <message>
        <source>all control points have the same ground position</source>
        <translation>alle Passpunkte haben dieselbe Lage im Gelände</translation>
    </message>
    <message>
        <source>all %1 control points are on one line of the image; add one beside that line</source>
        <translation>alle %1 Passpunkte liegen auf einer Linie des Bildes; fügen Sie einen neben dieser Linie hinzu</translation>
    </message>
    <message>
        <source>the ground positions of all %1 control points are on one line; check their values</source>
        <translation>alle %1 Passpunkte liegen im Gelände auf einer Linie; prüfen Sie ihre Werte</translation>
    </message>
    <message>
        <source>a fit needs at least 2 control points and has %1</source>
        <translation>eine Einpassung braucht mindestens 2 Passpunkte und hat %1</translation>
    </message>
    <message>
        <source>a fit of second order needs at least 6 control points and has %1</source>
        <translation>eine Einpassung zweiter Ordnung braucht mindestens 6 Passpunkte und hat %1</translation>
    </message>
    <message>
        <source>the control points are on one curve of second order; spread them over the image, or fit in first order</source>
        <translation>die Passpunkte liegen auf einer Kurve zweiter Ordnung; verteilen Sie sie über das Bild, oder passen Sie in erster Ordnung ein</translation>
    </message>
    <message>
        <source>the control points do not determine a fit; add one</source>
        <translation>die Passpunkte bestimmen keine Einpassung; fügen Sie einen hinzu</translation>
    </message>
    <message>
        <source>: a pixel is %1 on the ground, </source>
        <translation>: ein Pixel ist %1 im Gelände, </translation>
    </message>
    <message>
        <source>the image rotated by %1 degrees clockwise</source>
        <translation>das Bild um %1 Grad im Uhrzeigersinn gedreht</translation>
    </message>
    <message>
        <source>the image rotated by %1 degrees anticlockwise</source>
        <translation>das Bild um %1 Grad gegen den Uhrzeigersinn gedreht</translation>
    </message>
    <message>
        <source>%1 control points, similarity fit</source>
        <translation>%1 Passpunkte, Einpassung nach Ähnlichkeit</translation>
    </message>
    <message>
        <source>%1 control points, affine fit</source>
        <translation>%1 Passpunkte, affine Einpassung</translation>
    </message>
    <message>
        <source>%1 control points, second order fit</source>
        <translation>%1 Passpunkte, Einpassung zweiter Ordnung</translation>
    </message>
    <message>
        <source> by least squares</source>
        <translation> nach kleinsten Quadraten</translation>
    </message>
    <message>
        <source> without another point to check it</source>
        <translation> ohne weiteren Punkt zur Kontrolle</translation>
    </message>
    <message>
        <source>latitude %1 S</source>
        <translation>Breite %1 S</translation>
    </message>
    <message>
        <source>latitude %1 N</source>
        <translation>Breite %1 N</translation>
    </message>
    <message>
        <source>longitude %1 W</source>
        <translation>Länge %1 W</translation>
    </message>
    <message>
        <source>longitude %1 E</source>
        <translation>Länge %1 O</translation>
    </message>
    <message>
        <source>easting %1, northing %2</source>
        <translation>Rechtswert %1, Hochwert %2</translation>
    </message>
    <message>
        <source> (assuming that the latitude comes first)</source>
        <translation> (angenommen, dass die Breite zuerst steht)</translation>
    </message>
    <message>
        <source>one value needs N or S, the other E or W</source>
        <translation>ein Wert braucht N oder S, der andere E oder W</translation>
    </message>
    <message>
        <source>a latitude beyond 90 degrees</source>
        <translation>eine Breite über 90 Grad</translation>
    </message>
    <message>
        <source>a longitude beyond 180 degrees</source>
        <translation>eine Länge über 180 Grad</translation>
    </message>
    <message>
        <source>a position is two values</source>
        <translation>eine Lage besteht aus zwei Werten</translation>
    </message>
    <message>
        <source>angles beyond 90 and 180 degrees</source>
        <translation>Winkel über 90 und 180 Grad</translation>
    </message>
    <message>
        <source>no position yet</source>
        <translation>noch keine Lage</translation>
    </message>
    <message>
        <source>%1 is too long for a position</source>
        <translation>%1 ist zu lang für eine Lage</translation>
    </message>
    <message>
        <source>corner of the square of %1 m: </source>
        <translation>Ecke des Quadrats von %1 m: </translation>
    </message>
    <message>
        <source> (in this order, because the other is outside the grid)</source>
        <translation> (in dieser Reihenfolge, weil die andere außerhalb des Gitters liegt)</translation>
    </message>
    <message>
        <source>: outside the selected grid</source>
        <translation>: außerhalb des gewählten Gitters</translation>
    </message>
    <message>
        <source>%1 is in degrees; convert it to the grid first</source>
        <translation>%1 ist in Grad; rechnen Sie es zuerst ins Gitter um</translation>
    </message>
    <message>
        <source>%1 is not a pixel position of the form x,y</source>
        <translation>%1 ist keine Stelle des Bildes der Form x,y</translation>
    </message>
    <message>
        <source>control point %1: </source>
        <translation>Passpunkt %1: </translation>
    </message>
    <message>
        <source>; it bends the image, which therefore has to be rotated</source>
        <translation>; sie biegt das Bild, das deshalb gedreht werden muss</translation>
    </message>
    <message>
        <source>As drawn</source>
        <translation>Wie gezeichnet</translation>
    </message>
    <message>
        <source>Four times as large</source>
        <translation>Viermal so groß</translation>
    </message>
    <message>
        <source>The style does not relayer.</source>
        <translation>Der Stil ordnet keine Ebenen neu zu.</translation>
    </message>
    <message>
        <source>The style relayers by &quot;%1&quot;.</source>
        <translation>Der Stil ordnet die Ebenen nach &quot;%1&quot; zu.</translation>
    </message>
    <message>
        <source>Background Styling Files</source>
        <translation>Hintergrund-Stildateien</translation>
    </message>
    <message>
        <source>GIS File</source>
        <translation>GIS-Datei</translation>
    </message>
    <message>
        <source>Mobile Style File</source>
        <translation>Mobile Stildatei</translation>
    </message>
    <message>
        <source>%1 is there already. Replace it?</source>
        <translation>%1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>one colour for all</source>
        <translation>eine Farbe für alles</translation>
    </message>
    <message>
        <source>Attributes shown as annotation, in this order; drag to reorder, or press Alt+Up and Alt+Down</source>
        <translation>Attribute, die als Beschriftung erscheinen, in dieser Reihenfolge; zum Ordnen ziehen, oder Alt+Auf und Alt+Ab drücken</translation>
    </message>
    <message>
        <source>Click the point on the map that is to be moved, or press Enter for the middle; Escape ends</source>
        <translation>Klicken Sie auf den Punkt der Karte, der verschoben werden soll, oder drücken Sie die Eingabetaste für die Mitte; Esc beendet</translation>
    </message>
    <message>
        <source>A style file cannot hold the name of layer %1: it looks like DEFAULT</source>
        <translation>Den Namen der Ebene %1 kann eine Stildatei nicht aufnehmen: sie sieht aus wie DEFAULT</translation>
    </message>
    <message>
        <source>%1, not found</source>
        <translation>%1, nicht gefunden</translation>
    </message>
    <message>
        <source>Click a feature to see what it is and to select its row.</source>
        <translation>Klicken Sie auf ein Objekt: Sie sehen, was es ist, und seine Zeile wird gewählt.</translation>
    </message>
    <message>
        <source>clearing of cells</source>
        <translation>Leeren von Zellen</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) without a position</source>
        <translation>
            <numerusform>%n Objekt ohne Lage</numerusform>
            <numerusform>%n Objekte ohne Lage</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 holds a comma, a &quot;=&quot; or a line end, which a GO command cannot carry</source>
        <translation>%1 enthält ein Komma, ein „=“ oder ein Zeilenende; das kann ein GO-Befehl nicht wiedergeben</translation>
    </message>
    <message>
        <source>%1 begins or ends with a blank, which a GO command cannot carry</source>
        <translation>%1 beginnt oder endet mit einem Leerzeichen; das kann ein GO-Befehl nicht wiedergeben</translation>
    </message>
    <message>
        <source>%1 is longer than the %2 characters that gv.ini gives back</source>
        <translation>%1 ist länger als die %2 Zeichen, die gv.ini wiedergibt</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 fehlt</translation>
    </message>
    <message>
        <source>nothing imports %1 files</source>
        <translation>%1-Dateien liest kein Import</translation>
    </message>
    <message>
        <source>the file does not begin as a shapefile does</source>
        <translation>die Datei beginnt nicht wie ein Shapefile</translation>
    </message>
    <message>
        <source>No Corresponding XML</source>
        <translation>keine zugehörige XML-Datei</translation>
    </message>
    <message>
        <source>no world file places it on the ground</source>
        <translation>keine World-Datei legt seine Lage fest</translation>
    </message>
    <message>
        <source>No VDCONV application located</source>
        <translation>das Programm VDCONV fehlt</translation>
    </message>
    <message>
        <source>BackgroundBuilder.exe is not in %1</source>
        <translation>BackgroundBuilder.exe ist nicht in %1</translation>
    </message>
</context>
</TS>
