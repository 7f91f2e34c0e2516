<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ZembraNavigationDefinitions</name>
    <message>
        <source>Zoom In</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Reset View to Data</source>
        <translation>重置视图以显示全部数据</translation>
    </message>
    <message>
        <source>Box Zoom Mode</source>
        <translation>框选缩放模式</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>%1 + wheel</source>
        <translation>%1 + 滚轮</translation>
    </message>
    <message>
        <source>Zoom in or out around the pointer</source>
        <translation>以指针为中心放大或缩小</translation>
    </message>
    <message>
        <source>Left-button drag</source>
        <translation>按住左键拖动</translation>
    </message>
    <message>
        <source>Pan empty chart space</source>
        <translation>拖动图表空白处平移</translation>
    </message>
    <message>
        <source>Drag control-point handles</source>
        <translation>拖动控制点手柄</translation>
    </message>
    <message>
        <source>Edit control points</source>
        <translation>编辑控制点</translation>
    </message>
    <message>
        <source>Double-click</source>
        <translation>双击</translation>
    </message>
    <message>
        <source>Edit or add a control point</source>
        <translation>编辑或添加控制点</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>平移</translation>
    </message>
    <message>
        <source>Reset view to data</source>
        <translation>重置视图以显示全部数据</translation>
    </message>
    <message>
        <source>Right-click</source>
        <translation>右键单击</translation>
    </message>
    <message>
        <source>Open all chart actions</source>
        <translation>打开全部图表操作</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Toggle Box Zoom mode</source>
        <translation>开启或关闭框选缩放模式</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Leave Box Zoom and restore Pan mode</source>
        <translation>退出框选缩放并恢复平移模式</translation>
    </message>
</context>
<context>
    <name>viewer::ChartPage</name>
    <message>
        <source>Save Picture</source>
        <translation>保存图片</translation>
    </message>
    <message>
        <source>Pictures (*.png *.svg *.pdf)</source>
        <translation>图片 (*.png *.svg *.pdf)</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>打印</translation>
    </message>
    <message>
        <source>The chart could not be printed.</source>
        <translation>无法打印图表。</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>复制图片</translation>
    </message>
    <message>
        <source>Copy Picture As…</source>
        <translation>图片复制为…</translation>
    </message>
    <message>
        <source>Save Picture As…</source>
        <translation>图片另存为…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>打印…</translation>
    </message>
    <message>
        <source>Choose &amp;Columns…</source>
        <translation>选择列(&amp;C)…</translation>
    </message>
</context>
<context>
    <name>viewer::ColumnDialog</name>
    <message>
        <source>Check &amp;All</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Check &amp;None</source>
        <translation>全不选(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Horizontal axis logarithmic</source>
        <translation>水平轴取对数(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Vertical axis logarithmic</source>
        <translation>垂直轴取对数(&amp;V)</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>选择列</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>散点</translation>
    </message>
    <message>
        <source>Bars</source>
        <translation>柱形</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>直方图</translation>
    </message>
    <message>
        <source>Box plots</source>
        <translation>箱线图</translation>
    </message>
    <message>
        <source>Heat map</source>
        <translation>热图</translation>
    </message>
    <message>
        <source>Candles</source>
        <translation>K 线</translation>
    </message>
    <message>
        <source>Row number</source>
        <translation>行号</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>numbers</source>
        <translation>数字</translation>
    </message>
    <message>
        <source>dates</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>words</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>Part of a name</source>
        <translation>名称的一部分</translation>
    </message>
    <message>
        <source>Of the columns that the filter shows</source>
        <translation>仅限筛选后显示的列</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>类型(&amp;K)：</translation>
    </message>
    <message>
        <source>&amp;X:</source>
        <translation>&amp;X：</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>筛选(&amp;F)：</translation>
    </message>
    <message>
        <source>&amp;Y columns:</source>
        <translation>&amp;Y 列：</translation>
    </message>
    <message>
        <source>&amp;By:</source>
        <translation>分组(&amp;B)：</translation>
    </message>
    <message>
        <source>This kind of chart cannot take x from that column.</source>
        <translation>这种图表不能用该列作为 x。</translation>
    </message>
    <message>
        <source>This kind of chart cannot use that column after “By”.</source>
        <translation>这种图表不能用该列进行“分组”。</translation>
    </message>
    <message>
        <source>Check at least one column.</source>
        <translation>请至少勾选一列。</translation>
    </message>
    <message>
        <source>A heat map over x takes one column for y.</source>
        <translation>带 x 的热图只能有一个 y 列。</translation>
    </message>
    <message>
        <source>Candles take the columns open, high, low and close.</source>
        <translation>K 线使用 open、high、low 和 close 列。</translation>
    </message>
    <message>
        <source>The checked columns make a matrix.</source>
        <translation>勾选的列组成一个矩阵。</translation>
    </message>
    <message>
        <source>The column after “By” gives the values.</source>
        <translation>“分组”列给出数值。</translation>
    </message>
    <message>
        <source>Columns checked: %1</source>
        <translation>已勾选列数：%1</translation>
    </message>
    <message>
        <source>Y columns</source>
        <translation>Y 列</translation>
    </message>
</context>
<context>
    <name>viewer::ExportDialog</name>
    <message>
        <source>Save Picture</source>
        <translation>保存图片</translation>
    </message>
    <message>
        <source>Copy Picture</source>
        <translation>复制图片</translation>
    </message>
    <message>
        <source> px</source>
        <translation> 像素</translation>
    </message>
    <message>
        <source> dpi</source>
        <translation> dpi</translation>
    </message>
    <message>
        <source>Pixels per inch; 96 are as many as on a plain screen. Drawings (SVG, PDF) are sharp at any resolution.</source>
        <translation>每英寸像素数；96 与普通屏幕相同。矢量图（SVG、PDF）在任何分辨率下都清晰。</translation>
    </message>
    <message>
        <source>As on screen</source>
        <translation>与屏幕一致</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>宽度(&amp;W)：</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>高度(&amp;H)：</translation>
    </message>
    <message>
        <source>&amp;Resolution:</source>
        <translation>分辨率(&amp;R)：</translation>
    </message>
    <message>
        <source>&amp;Colors:</source>
        <translation>颜色(&amp;C)：</translation>
    </message>
    <message>
        <source>&amp;Save…</source>
        <translation>保存(&amp;S)…</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>复制(&amp;O)</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 像素</translation>
    </message>
    <message>
        <source>Too large: at most %1 pixels to a side</source>
        <translation>太大：每边最多 %1 像素</translation>
    </message>
</context>
<context>
    <name>viewer::LoadingPage</name>
    <message>
        <source>Reading %1</source>
        <translation>正在读取 %1</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 行</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>viewer::MainWindow</name>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Copy Picture</source>
        <translation>复制图片(&amp;C)</translation>
    </message>
    <message>
        <source>Copy Picture &amp;As…</source>
        <translation>图片复制为(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Show &amp;Hint</source>
        <translation>显示提示(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>打开最近的文件(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Save Picture As…</source>
        <translation>图片另存为(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>打印(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>No files yet</source>
        <translation>还没有文件</translation>
    </message>
    <message>
        <source>&amp;Forget All</source>
        <translation>全部清除(&amp;F)</translation>
    </message>
    <message>
        <source>Standard input</source>
        <translation>标准输入</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Tables and grids (*.csv *.tsv *.txt *.dat *.json);;All files (*)</source>
        <translation>表格和网格 (*.csv *.tsv *.txt *.dat *.json);;所有文件 (*)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>剪贴板</translation>
    </message>
    <message>
        <source>Choose Columns</source>
        <translation>选择列</translation>
    </message>
</context>
<context>
    <name>zembra::ZembraNavigationWidget</name>
    <message>
        <source>Box Zoom mode</source>
        <translation>框选缩放模式</translation>
    </message>
    <message>
        <source>Chart controls</source>
        <translation>图表操作</translation>
    </message>
    <message>
        <source>Charts are interactive. Use these controls to navigate:</source>
        <translation>图表可以交互。使用以下操作浏览：</translation>
    </message>
    <message>
        <source>Don&apos;t show again</source>
        <translation>不再显示</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>知道了</translation>
    </message>
    <message>
        <source>Points to the Chart controls button below</source>
        <translation>指向下方的“图表操作”按钮</translation>
    </message>
    <message>
        <source>Points to the Chart controls button above</source>
        <translation>指向上方的“图表操作”按钮</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
</context>
</TS>
