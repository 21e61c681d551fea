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
    <message>
        <source>Device not detected</source>
        <translation>未检测到设备</translation>
    </message>
    <message>
        <source>null device</source>
        <translation>无设备</translation>
    </message>
    <message>
        <source>already on</source>
        <translation>已经打开</translation>
    </message>
    <message>
        <source>already off</source>
        <translation>已经关闭</translation>
    </message>
    <message>
        <source>Could not change state to on </source>
        <translation>无法开启设备：</translation>
    </message>
    <message>
        <source>Could not change state to off </source>
        <translation>无法关闭设备：</translation>
    </message>
    <message>
        <source>Cannot find S2P application.</source>
        <translation>找不到 S2P 应用程序。</translation>
    </message>
    <message>
        <source>The header of the answer is too long.</source>
        <translation>响应头过长。</translation>
    </message>
    <message>
        <source>The answer is longer than 256 MB.</source>
        <translation>响应超过 256 MB。</translation>
    </message>
    <message>
        <source>The answer cannot be unpacked.</source>
        <translation>无法解压响应。</translation>
    </message>
    <message>
        <source>Cannot edit with valueOnOdd set to true.</source>
        <translation>valueOnOdd 为 true 时无法编辑。</translation>
    </message>
    <message>
        <source>Invalid Index.</source>
        <translation>索引无效。</translation>
    </message>
    <message>
        <source>Could not access Pocket Outlook.</source>
        <translation>无法访问 Pocket Outlook。</translation>
    </message>
    <message>
        <source>Do you want to select a custom Image?</source>
        <translation>是否要选择自定义图片？</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
</context>
<context>
    <name>ContactSelector</name>
    <message>
        <source>Select Contact</source>
        <translation>选择联系人</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>FileSelector</name>
    <message>
        <source>File Browser</source>
        <translation>文件浏览器</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
</context>
<context>
    <name>WidgetsSelector</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
