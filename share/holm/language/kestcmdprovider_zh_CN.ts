<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>KestCommandProvider</name>
    <message>
        <source>Invalid function arguments.</source>
        <translation>函数参数无效。</translation>
    </message>
    <message>
        <source>Cannot delete a path outside the application directory.</source>
        <translation>无法删除应用程序目录之外的路径。</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
</context>
</TS>
