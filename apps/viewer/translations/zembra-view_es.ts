<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ZembraNavigationDefinitions</name>
    <message>
        <source>Zoom In</source>
        <translation>Acercar</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Alejar</translation>
    </message>
    <message>
        <source>Reset View to Data</source>
        <translation>Restablecer la vista a los datos</translation>
    </message>
    <message>
        <source>Box Zoom Mode</source>
        <translation>Modo de zoom por recuadro</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>%1 + wheel</source>
        <translation>%1 + rueda</translation>
    </message>
    <message>
        <source>Zoom in or out around the pointer</source>
        <translation>Acercar o alejar alrededor del puntero</translation>
    </message>
    <message>
        <source>Left-button drag</source>
        <translation>Arrastrar con el botón izquierdo</translation>
    </message>
    <message>
        <source>Pan empty chart space</source>
        <translation>Desplazar la zona libre del gráfico</translation>
    </message>
    <message>
        <source>Drag control-point handles</source>
        <translation>Arrastrar los puntos de control</translation>
    </message>
    <message>
        <source>Edit control points</source>
        <translation>Editar los puntos de control</translation>
    </message>
    <message>
        <source>Double-click</source>
        <translation>Doble clic</translation>
    </message>
    <message>
        <source>Edit or add a control point</source>
        <translation>Editar o añadir un punto de control</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>Desplazar</translation>
    </message>
    <message>
        <source>Reset view to data</source>
        <translation>Restablecer la vista a los datos</translation>
    </message>
    <message>
        <source>Right-click</source>
        <translation>Clic derecho</translation>
    </message>
    <message>
        <source>Open all chart actions</source>
        <translation>Abrir todas las acciones del gráfico</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Toggle Box Zoom mode</source>
        <translation>Activar o desactivar el zoom por recuadro</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Leave Box Zoom and restore Pan mode</source>
        <translation>Salir del zoom por recuadro y volver a desplazar</translation>
    </message>
</context>
<context>
    <name>viewer::ChartPage</name>
    <message>
        <source>Save Picture</source>
        <translation>Guardar imagen</translation>
    </message>
    <message>
        <source>Pictures (*.png *.svg *.pdf)</source>
        <translation>Imágenes (*.png *.svg *.pdf)</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimir</translation>
    </message>
    <message>
        <source>The chart could not be printed.</source>
        <translation>No se pudo imprimir el gráfico.</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>Copiar imagen</translation>
    </message>
    <message>
        <source>Copy Picture As…</source>
        <translation>Copiar imagen como…</translation>
    </message>
    <message>
        <source>Save Picture As…</source>
        <translation>Guardar imagen como…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Imprimir…</translation>
    </message>
    <message>
        <source>Choose &amp;Columns…</source>
        <translation>Elegir &amp;columnas…</translation>
    </message>
</context>
<context>
    <name>viewer::ColumnDialog</name>
    <message>
        <source>Check &amp;All</source>
        <translation>&amp;Marcar todas</translation>
    </message>
    <message>
        <source>Check &amp;None</source>
        <translation>&amp;Desmarcar todas</translation>
    </message>
    <message>
        <source>&amp;Horizontal axis logarithmic</source>
        <translation>Eje &amp;horizontal logarítmico</translation>
    </message>
    <message>
        <source>&amp;Vertical axis logarithmic</source>
        <translation>Eje &amp;vertical logarítmico</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>Elegir columnas</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Líneas</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marcadores</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>Barras</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histograma</translation>
    </message>
    <message>
        <source>Box plots</source>
        <translation>Diagramas de caja</translation>
    </message>
    <message>
        <source>Heat map</source>
        <translation>Mapa de calor</translation>
    </message>
    <message>
        <source>Candles</source>
        <translation>Velas</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>Número de fila</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguna</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Columna</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Contenido</translation>
    </message>
    <message>
        <source>numbers</source>
        <translation>números</translation>
    </message>
    <message>
        <source>dates</source>
        <translation>fechas</translation>
    </message>
    <message>
        <source>words</source>
        <translation>palabras</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Part of a name</source>
        <translation>Parte de un nombre</translation>
    </message>
    <message>
        <source>Of the columns that the filter shows</source>
        <translation>De las columnas que muestra el filtro</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>&amp;Tipo:</translation>
    </message>
    <message>
        <source>&amp;X:</source>
        <translation>&amp;X:</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filtro:</translation>
    </message>
    <message>
        <source>&amp;Y columns:</source>
        <translation>Columnas &amp;Y:</translation>
    </message>
    <message>
        <source>&amp;By:</source>
        <translation>&amp;Por:</translation>
    </message>
    <message>
        <source>This kind of chart cannot take x from that column.</source>
        <translation>Este tipo de gráfico no puede tomar x de esa columna.</translation>
    </message>
    <message>
        <source>This kind of chart cannot use that column after “By”.</source>
        <translation>Este tipo de gráfico no puede usar esa columna en «Por».</translation>
    </message>
    <message>
        <source>Check at least one column.</source>
        <translation>Marque al menos una columna.</translation>
    </message>
    <message>
        <source>A heat map over x takes one column for y.</source>
        <translation>Un mapa de calor sobre x toma una sola columna para y.</translation>
    </message>
    <message>
        <source>Candles take the columns open, high, low and close.</source>
        <translation>Las velas toman las columnas open, high, low y close.</translation>
    </message>
    <message>
        <source>The checked columns make a matrix.</source>
        <translation>Las columnas marcadas forman una matriz.</translation>
    </message>
    <message>
        <source>The column after “By” gives the values.</source>
        <translation>La columna en «Por» da los valores.</translation>
    </message>
    <message>
        <source>Columns checked: %1</source>
        <translation>Columnas marcadas: %1</translation>
    </message>
    <message>
        <source>Y columns</source>
        <translation>Columnas Y</translation>
    </message>
</context>
<context>
    <name>viewer::ExportDialog</name>
    <message>
        <source>Save Picture</source>
        <translation>Guardar imagen</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>Copiar imagen</translation>
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
        <translation>Píxeles por pulgada; 96 son los de una pantalla corriente. Los dibujos (SVG, PDF) son nítidos con cualquier resolución.</translation>
    </message>
    <message>
        <source>As on screen</source>
        <translation>Como en pantalla</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Ancho:</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>A&amp;lto:</translation>
    </message>
    <message>
        <source>&amp;Resolution:</source>
        <translation>&amp;Resolución:</translation>
    </message>
    <message>
        <source>&amp;Colors:</source>
        <translation>&amp;Colores:</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>&amp;Guardar…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>C&amp;opiar</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 píxeles</translation>
    </message>
    <message>
        <source>Too large: at most %1 pixels to a side</source>
        <translation>Demasiado grande: como máximo %1 píxeles por lado</translation>
    </message>
</context>
<context>
    <name>viewer::LoadingPage</name>
    <message>
        <source>Reading %1</source>
        <translation>Leyendo %1</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 filas</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>viewer::MainWindow</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>&amp;Copy Picture</source>
        <translation>&amp;Copiar imagen</translation>
    </message>
    <message>
        <source>Copy Picture &amp;As…</source>
        <translation>Copiar imagen c&amp;omo…</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>Show &amp;Hint</source>
        <translation>Mostrar la &amp;pista</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Abrir &amp;recientes</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>&amp;Save Picture As…</source>
        <translation>&amp;Guardar imagen como…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Imprimir…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>No files yet</source>
        <translation>Aún no hay archivos</translation>
    </message>
    <message>
        <source>&amp;Forget All</source>
        <translation>&amp;Olvidar todos</translation>
    </message>
    <message>
        <source>Standard input</source>
        <translation>Entrada estándar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Tables and grids (*.csv *.tsv *.txt *.dat *.json);;All files (*)</source>
        <translation>Tablas y cuadrículas (*.csv *.tsv *.txt *.dat *.json);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Pegar</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Portapapeles</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>Elegir columnas</translation>
    </message>
</context>
<context>
    <name>zembra::ZembraNavigationWidget</name>
    <message>
        <source>Box Zoom mode</source>
        <translation>Modo de zoom por recuadro</translation>
    </message>
    <message>
        <source>Chart controls</source>
        <translation>Controles del gráfico</translation>
    </message>
    <message>
        <source>Charts are interactive. Use these controls to navigate:</source>
        <translation>Los gráficos son interactivos. Use estos controles para desplazarse:</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>No volver a mostrar</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Entendido</translation>
    </message>
    <message>
        <source>Points to the Chart controls button below</source>
        <translation>Señala el botón «Controles del gráfico» de abajo</translation>
    </message>
    <message>
        <source>Points to the Chart controls button above</source>
        <translation>Señala el botón «Controles del gráfico» de arriba</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
</TS>
