<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KestCommandProvider</name>
    <message>
        <source>Invalid function arguments.</source>
        <translation>Ungültige Funktionsargumente.</translation>
    </message>
    <message>
        <source>Cannot delete a path outside the application directory.</source>
        <translation>Ein Pfad außerhalb des Anwendungsverzeichnisses kann nicht gelöscht werden.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
</TS>
