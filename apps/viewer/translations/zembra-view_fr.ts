<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ZembraNavigationDefinitions</name>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Reset View to Data</source>
        <translation>Recadrer sur les données</translation>
    </message>
    <message>
        <source>Box Zoom Mode</source>
        <translation>Mode zoom par cadre</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>%1 + wheel</source>
        <translation>%1 + molette</translation>
    </message>
    <message>
        <source>Zoom in or out around the pointer</source>
        <translation>Zoomer autour du pointeur</translation>
    </message>
    <message>
        <source>Left-button drag</source>
        <translation>Glisser avec le bouton gauche</translation>
    </message>
    <message>
        <source>Pan empty chart space</source>
        <translation>Déplacer la zone libre du graphique</translation>
    </message>
    <message>
        <source>Drag control-point handles</source>
        <translation>Glisser les poignées des points de contrôle</translation>
    </message>
    <message>
        <source>Edit control points</source>
        <translation>Modifier les points de contrôle</translation>
    </message>
    <message>
        <source>Double-click</source>
        <translation>Double-clic</translation>
    </message>
    <message>
        <source>Edit or add a control point</source>
        <translation>Modifier ou ajouter un point de contrôle</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>Reset view to data</source>
        <translation>Recadrer sur les données</translation>
    </message>
    <message>
        <source>Right-click</source>
        <translation>Clic droit</translation>
    </message>
    <message>
        <source>Open all chart actions</source>
        <translation>Ouvrir toutes les actions du graphique</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Toggle Box Zoom mode</source>
        <translation>Activer ou quitter le zoom par cadre</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Leave Box Zoom and restore Pan mode</source>
        <translation>Quitter le zoom par cadre et revenir au déplacement</translation>
    </message>
</context>
<context>
    <name>viewer::ChartPage</name>
    <message>
        <source>Save Picture</source>
        <translation>Enregistrer l’image</translation>
    </message>
    <message>
        <source>Pictures (*.png *.svg *.pdf)</source>
        <translation>Images (*.png *.svg *.pdf)</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>The chart could not be printed.</source>
        <translation>Le graphique n’a pas pu être imprimé.</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>Copier l’image</translation>
    </message>
    <message>
        <source>Copy Picture As…</source>
        <translation>Copier l’image sous…</translation>
    </message>
    <message>
        <source>Save Picture As…</source>
        <translation>Enregistrer l’image sous…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Imprimer…</translation>
    </message>
    <message>
        <source>Choose &amp;Columns…</source>
        <translation>Choisir les &amp;colonnes…</translation>
    </message>
</context>
<context>
    <name>viewer::ColumnDialog</name>
    <message>
        <source>Check &amp;All</source>
        <translation>To&amp;ut cocher</translation>
    </message>
    <message>
        <source>Check &amp;None</source>
        <translation>Tout &amp;décocher</translation>
    </message>
    <message>
        <source>&amp;Horizontal axis logarithmic</source>
        <translation>Axe &amp;horizontal logarithmique</translation>
    </message>
    <message>
        <source>&amp;Vertical axis logarithmic</source>
        <translation>Axe &amp;vertical logarithmique</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>Choisir les colonnes</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Barres</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogramme</translation>
    </message>
    <message>
        <source>Box plots</source>
        <translation>Boîtes à moustaches</translation>
    </message>
    <message>
        <source>Heat map</source>
        <translation>Carte de chaleur</translation>
    </message>
    <message>
        <source>Candles</source>
        <translation>Chandeliers</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>Numéro de ligne</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Colonne</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Contenu</translation>
    </message>
    <message>
        <source>numbers</source>
        <translation>nombres</translation>
    </message>
    <message>
        <source>dates</source>
        <translation>dates</translation>
    </message>
    <message>
        <source>words</source>
        <translation>mots</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Part of a name</source>
        <translation>Partie d’un nom</translation>
    </message>
    <message>
        <source>Of the columns that the filter shows</source>
        <translation>Parmi les colonnes que montre le filtre</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Type :</translation>
    </message>
    <message>
        <source>&amp;X:</source>
        <translation>&amp;X :</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filtre :</translation>
    </message>
    <message>
        <source>&amp;Y columns:</source>
        <translation>Colonnes &amp;Y :</translation>
    </message>
    <message>
        <source>&amp;By:</source>
        <translation>&amp;Par :</translation>
    </message>
    <message>
        <source>This kind of chart cannot take x from that column.</source>
        <translation>Ce type de graphique ne peut pas prendre x dans cette colonne.</translation>
    </message>
    <message>
        <source>This kind of chart cannot use that column after “By”.</source>
        <translation>Ce type de graphique ne peut pas utiliser cette colonne pour « Par ».</translation>
    </message>
    <message>
        <source>Check at least one column.</source>
        <translation>Cochez au moins une colonne.</translation>
    </message>
    <message>
        <source>A heat map over x takes one column for y.</source>
        <translation>Une carte de chaleur sur x prend une seule colonne pour y.</translation>
    </message>
    <message>
        <source>Candles take the columns open, high, low and close.</source>
        <translation>Les chandeliers prennent les colonnes open, high, low et close.</translation>
    </message>
    <message>
        <source>The checked columns make a matrix.</source>
        <translation>Les colonnes cochées forment une matrice.</translation>
    </message>
    <message>
        <source>The column after “By” gives the values.</source>
        <translation>La colonne pour « Par » donne les valeurs.</translation>
    </message>
    <message>
        <source>Columns checked: %1</source>
        <translation>Colonnes cochées : %1</translation>
    </message>
    <message>
        <source>Y columns</source>
        <translation>Colonnes Y</translation>
    </message>
</context>
<context>
    <name>viewer::ExportDialog</name>
    <message>
        <source>Save Picture</source>
        <translation>Enregistrer l’image</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>Copier l’image</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source> dpi</source>
        <translation> ppp</translation>
    </message>
    <message>
        <source>Pixels per inch; 96 are as many as on a plain screen. Drawings (SVG, PDF) are sharp at any resolution.</source>
        <translation>Pixels par pouce ; 96 correspondent à un écran ordinaire. Les dessins (SVG, PDF) sont nets à toute résolution.</translation>
    </message>
    <message>
        <source>As on screen</source>
        <translation>Comme à l’écran</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Largeur :</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Hauteur :</translation>
    </message>
    <message>
        <source>&amp;Resolution:</source>
        <translation>&amp;Résolution :</translation>
    </message>
    <message>
        <source>&amp;Colors:</source>
        <translation>&amp;Couleurs :</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Enregistrer…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>C&amp;opier</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
    <message>
        <source>Too large: at most %1 pixels to a side</source>
        <translation>Trop grand : au plus %1 pixels par côté</translation>
    </message>
</context>
<context>
    <name>viewer::LoadingPage</name>
    <message>
        <source>Reading %1</source>
        <translation>Lecture de %1</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 lignes</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>viewer::MainWindow</name>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;Copy Picture</source>
        <translation>&amp;Copier l’image</translation>
    </message>
    <message>
        <source>Copy Picture &amp;As…</source>
        <translation>Copier l’image &amp;sous…</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>Show &amp;Hint</source>
        <translation>Afficher l’a&amp;stuce</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Fichiers &amp;récents</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>&amp;Save Picture As…</source>
        <translation>&amp;Enregistrer l’image sous…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimer…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>No files yet</source>
        <translation>Aucun fichier pour l’instant</translation>
    </message>
    <message>
        <source>&amp;Forget All</source>
        <translation>Tout &amp;oublier</translation>
    </message>
    <message>
        <source>Standard input</source>
        <translation>Entrée standard</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Tables and grids (*.csv *.tsv *.txt *.dat *.json);;All files (*)</source>
        <translation>Tableaux et grilles (*.csv *.tsv *.txt *.dat *.json);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Presse-papiers</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>Choisir les colonnes</translation>
    </message>
</context>
<context>
    <name>zembra::ZembraNavigationWidget</name>
    <message>
        <source>Box Zoom mode</source>
        <translation>Mode zoom par cadre</translation>
    </message>
    <message>
        <source>Chart controls</source>
        <translation>Commandes du graphique</translation>
    </message>
    <message>
        <source>Charts are interactive. Use these controls to navigate:</source>
        <translation>Les graphiques sont interactifs. Voici comment s’y déplacer :</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>Ne plus afficher</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Compris</translation>
    </message>
    <message>
        <source>Points to the Chart controls button below</source>
        <translation>Désigne le bouton « Commandes du graphique » au-dessous</translation>
    </message>
    <message>
        <source>Points to the Chart controls button above</source>
        <translation>Désigne le bouton « Commandes du graphique » au-dessus</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
</context>
</TS>
