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
    <message>
        <source>Device not detected</source>
        <translation>Dispositivo no detectado</translation>
    </message>
    <message>
        <source>null device</source>
        <translation>sin dispositivo</translation>
    </message>
    <message>
        <source>already on</source>
        <translation>ya está encendido</translation>
    </message>
    <message>
        <source>already off</source>
        <translation>ya está apagado</translation>
    </message>
    <message>
        <source>Could not change state to on </source>
        <translation>No se pudo encender </translation>
    </message>
    <message>
        <source>Could not change state to off </source>
        <translation>No se pudo apagar </translation>
    </message>
    <message>
        <source>Cannot find S2P application.</source>
        <translation>No se encuentra la aplicación S2P.</translation>
    </message>
    <message>
        <source>The header of the answer is too long.</source>
        <translation>La cabecera de la respuesta es demasiado larga.</translation>
    </message>
    <message>
        <source>The answer is longer than 256 MB.</source>
        <translation>La respuesta supera los 256 MB.</translation>
    </message>
    <message>
        <source>The answer cannot be unpacked.</source>
        <translation>No se puede descomprimir la respuesta.</translation>
    </message>
    <message>
        <source>Cannot edit with valueOnOdd set to true.</source>
        <translation>No se puede editar si valueOnOdd es true.</translation>
    </message>
    <message>
        <source>Invalid Index.</source>
        <translation>Índice no válido.</translation>
    </message>
    <message>
        <source>Could not access Pocket Outlook.</source>
        <translation>No se puede acceder a Pocket Outlook.</translation>
    </message>
    <message>
        <source>Do you want to select a custom Image?</source>
        <translation>¿Desea seleccionar una imagen propia?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
</context>
<context>
    <name>ContactSelector</name>
    <message>
        <source>Select Contact</source>
        <translation>Seleccionar contacto</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>FileSelector</name>
    <message>
        <source>File Browser</source>
        <translation>Explorador de archivos</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Seleccionar</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
</context>
<context>
    <name>WidgetsSelector</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
