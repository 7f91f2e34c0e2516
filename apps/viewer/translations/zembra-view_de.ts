<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ZembraNavigationDefinitions</name>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Reset View to Data</source>
        <translation>Ansicht auf die Daten zurücksetzen</translation>
    </message>
    <message>
        <source>Box Zoom Mode</source>
        <translation>Rahmenzoom</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt-Taste</translation>
    </message>
    <message>
        <source>%1 + wheel</source>
        <translation>%1 + Mausrad</translation>
    </message>
    <message>
        <source>Zoom in or out around the pointer</source>
        <translation>Um den Mauszeiger vergrößern oder verkleinern</translation>
    </message>
    <message>
        <source>Left-button drag</source>
        <translation>Mit der linken Taste ziehen</translation>
    </message>
    <message>
        <source>Pan empty chart space</source>
        <translation>Freie Fläche des Diagramms verschieben</translation>
    </message>
    <message>
        <source>Drag control-point handles</source>
        <translation>Griffe der Kontrollpunkte ziehen</translation>
    </message>
    <message>
        <source>Edit control points</source>
        <translation>Kontrollpunkte bearbeiten</translation>
    </message>
    <message>
        <source>Double-click</source>
        <translation>Doppelklick</translation>
    </message>
    <message>
        <source>Edit or add a control point</source>
        <translation>Kontrollpunkt bearbeiten oder hinzufügen</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Reset view to data</source>
        <translation>Ansicht auf die Daten zurücksetzen</translation>
    </message>
    <message>
        <source>Right-click</source>
        <translation>Rechtsklick</translation>
    </message>
    <message>
        <source>Open all chart actions</source>
        <translation>Alle Befehle des Diagramms öffnen</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Taste Z</translation>
    </message>
    <message>
        <source>Toggle Box Zoom mode</source>
        <translation>Rahmenzoom ein- oder ausschalten</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc-Taste</translation>
    </message>
    <message>
        <source>Leave Box Zoom and restore Pan mode</source>
        <translation>Rahmenzoom verlassen und wieder verschieben</translation>
    </message>
</context>
<context>
    <name>viewer::ChartPage</name>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png *.svg *.pdf)</source>
        <translation>Bilder (*.png *.svg *.pdf)</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>The chart could not be printed.</source>
        <translation>Das Diagramm konnte nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Copy Picture As…</source>
        <translation>Bild kopieren als …</translation>
    </message>
    <message>
        <source>Save Picture As…</source>
        <translation>Bild speichern unter …</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken …</translation>
    </message>
    <message>
        <source>Choose &amp;Columns…</source>
        <translation>&amp;Spalten wählen …</translation>
    </message>
</context>
<context>
    <name>viewer::ColumnDialog</name>
    <message>
        <source>Check &amp;All</source>
        <translation>A&amp;lle ankreuzen</translation>
    </message>
    <message>
        <source>Check &amp;None</source>
        <translation>&amp;Keine ankreuzen</translation>
    </message>
    <message>
        <source>&amp;Horizontal axis logarithmic</source>
        <translation>&amp;Horizontale Achse logarithmisch</translation>
    </message>
    <message>
        <source>&amp;Vertical axis logarithmic</source>
        <translation>&amp;Vertikale Achse logarithmisch</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>Spalten wählen</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Balken</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>Box plots</source>
        <translation>Boxplots</translation>
    </message>
    <message>
        <source>Heat map</source>
        <translation>Heatmap</translation>
    </message>
    <message>
        <source>Candles</source>
        <translation>Kerzen</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>Zeilennummer</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>numbers</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>dates</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Part of a name</source>
        <translation>Teil eines Namens</translation>
    </message>
    <message>
        <source>Of the columns that the filter shows</source>
        <translation>Von den Spalten, die der Filter zeigt</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>A&amp;rt:</translation>
    </message>
    <message>
        <source>&amp;X:</source>
        <translation>&amp;X:</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filter:</translation>
    </message>
    <message>
        <source>&amp;Y columns:</source>
        <translation>&amp;Y-Spalten:</translation>
    </message>
    <message>
        <source>&amp;By:</source>
        <translation>&amp;Nach:</translation>
    </message>
    <message>
        <source>This kind of chart cannot take x from that column.</source>
        <translation>Diese Diagrammart kann x nicht aus dieser Spalte nehmen.</translation>
    </message>
    <message>
        <source>This kind of chart cannot use that column after “By”.</source>
        <translation>Diese Diagrammart kann mit dieser Spalte bei „Nach“ nichts anfangen.</translation>
    </message>
    <message>
        <source>Check at least one column.</source>
        <translation>Kreuzen Sie mindestens eine Spalte an.</translation>
    </message>
    <message>
        <source>A heat map over x takes one column for y.</source>
        <translation>Eine Heatmap über x braucht genau eine Spalte für y.</translation>
    </message>
    <message>
        <source>Candles take the columns open, high, low and close.</source>
        <translation>Kerzen nehmen die Spalten open, high, low und close.</translation>
    </message>
    <message>
        <source>The checked columns make a matrix.</source>
        <translation>Die angekreuzten Spalten bilden eine Matrix.</translation>
    </message>
    <message>
        <source>The column after “By” gives the values.</source>
        <translation>Die Spalte bei „Nach“ gibt die Werte.</translation>
    </message>
    <message>
        <source>Columns checked: %1</source>
        <translation>Angekreuzte Spalten: %1</translation>
    </message>
    <message>
        <source>Y columns</source>
        <translation>Y-Spalten</translation>
    </message>
</context>
<context>
    <name>viewer::ExportDialog</name>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source> dpi</source>
        <translation> dpi</translation>
    </message>
    <message>
        <source>Pixels per inch; 96 are as many as on a plain screen. Drawings (SVG, PDF) are sharp at any resolution.</source>
        <translation>Pixel je Zoll; 96 sind so viele wie auf einem gewöhnlichen Bildschirm. Zeichnungen (SVG, PDF) sind bei jeder Auflösung scharf.</translation>
    </message>
    <message>
        <source>As on screen</source>
        <translation>Wie auf dem Bildschirm</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Breite:</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Höhe:</translation>
    </message>
    <message>
        <source>&amp;Resolution:</source>
        <translation>&amp;Auflösung:</translation>
    </message>
    <message>
        <source>&amp;Colors:</source>
        <translation>&amp;Farben:</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Speichern …</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 Pixel</translation>
    </message>
    <message>
        <source>Too large: at most %1 pixels to a side</source>
        <translation>Zu groß: höchstens %1 Pixel je Seite</translation>
    </message>
</context>
<context>
    <name>viewer::LoadingPage</name>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 Zeilen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>viewer::MainWindow</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Copy Picture</source>
        <translation>Bild &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy Picture &amp;As…</source>
        <translation>Bild kopieren &amp;als …</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show &amp;Hint</source>
        <translation>&amp;Hinweis zeigen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Save Picture As…</source>
        <translation>Bild &amp;speichern unter …</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>No files yet</source>
        <translation>Noch keine Dateien</translation>
    </message>
    <message>
        <source>&amp;Forget All</source>
        <translation>Alle &amp;vergessen</translation>
    </message>
    <message>
        <source>Standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Tables and grids (*.csv *.tsv *.txt *.dat *.json);;All files (*)</source>
        <translation>Tabellen und Gitter (*.csv *.tsv *.txt *.dat *.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>Spalten wählen</translation>
    </message>
</context>
<context>
    <name>zembra::ZembraNavigationWidget</name>
    <message>
        <source>Box Zoom mode</source>
        <translation>Rahmenzoom</translation>
    </message>
    <message>
        <source>Chart controls</source>
        <translation>Bedienung des Diagramms</translation>
    </message>
    <message>
        <source>Charts are interactive. Use these controls to navigate:</source>
        <translation>Diagramme sind bedienbar. So bewegen Sie sich darin:</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Points to the Chart controls button below</source>
        <translation>Zeigt auf die Schaltfläche „Bedienung des Diagramms“ darunter</translation>
    </message>
    <message>
        <source>Points to the Chart controls button above</source>
        <translation>Zeigt auf die Schaltfläche „Bedienung des Diagramms“ darüber</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
