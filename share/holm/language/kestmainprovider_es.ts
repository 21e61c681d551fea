<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ListEditor</name>
    <message>
        <source>Choose an entry</source>
        <translation>Elegir una entrada</translation>
    </message>
    <message>
        <source>Edit the list</source>
        <translation>Editar la lista</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Cambiar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Bajar</translation>
    </message>
</context>
</TS>
