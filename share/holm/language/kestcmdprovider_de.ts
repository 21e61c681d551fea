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
    <message>
        <source>Device not detected</source>
        <translation>Gerät nicht gefunden</translation>
    </message>
    <message>
        <source>null device</source>
        <translation>kein Gerät</translation>
    </message>
    <message>
        <source>already on</source>
        <translation>bereits eingeschaltet</translation>
    </message>
    <message>
        <source>already off</source>
        <translation>bereits ausgeschaltet</translation>
    </message>
    <message>
        <source>Could not change state to on </source>
        <translation>Einschalten nicht möglich: </translation>
    </message>
    <message>
        <source>Could not change state to off </source>
        <translation>Ausschalten nicht möglich: </translation>
    </message>
    <message>
        <source>Cannot find S2P application.</source>
        <translation>Die Anwendung S2P wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>The header of the answer is too long.</source>
        <translation>Der Header der Antwort ist zu lang.</translation>
    </message>
    <message>
        <source>The answer is longer than 256 MB.</source>
        <translation>Die Antwort ist größer als 256 MB.</translation>
    </message>
    <message>
        <source>The answer cannot be unpacked.</source>
        <translation>Die Antwort kann nicht entpackt werden.</translation>
    </message>
    <message>
        <source>Cannot edit with valueOnOdd set to true.</source>
        <translation>Wenn valueOnOdd auf true gesetzt ist, kann nicht bearbeitet werden.</translation>
    </message>
    <message>
        <source>Invalid Index.</source>
        <translation>Ungültiger Index.</translation>
    </message>
    <message>
        <source>Could not access Pocket Outlook.</source>
        <translation>Auf Pocket Outlook kann nicht zugegriffen werden.</translation>
    </message>
    <message>
        <source>Do you want to select a custom Image?</source>
        <translation>Möchten Sie ein eigenes Bild auswählen?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>ContactSelector</name>
    <message>
        <source>Select Contact</source>
        <translation>Kontakt auswählen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>FileSelector</name>
    <message>
        <source>File Browser</source>
        <translation>Dateibrowser</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
</context>
<context>
    <name>WidgetsSelector</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
