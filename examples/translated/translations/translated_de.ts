<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>TranslatedWindow</name>
    <message>
        <source>Translated chart</source>
        <translation>Übersetztes Diagramm</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Sales since the opening</source>
        <translation>Umsatz seit der Eröffnung</translation>
    </message>
    <message>
        <source>Years</source>
        <translation>Jahre</translation>
    </message>
    <message>
        <source>Millions</source>
        <translation>Millionen</translation>
    </message>
</context>
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
        <translation>%1 – %2</translation>
    </message>
</context>
</TS>
