<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>KestCommandProvider</name>
    <message>
        <source>Invalid function arguments.</source>
        <translation>Argumentos de función no válidos.</translation>
    </message>
    <message>
        <source>Cannot delete a path outside the application directory.</source>
        <translation>No se puede eliminar una ruta fuera del directorio de la aplicación.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
</context>
</TS>
