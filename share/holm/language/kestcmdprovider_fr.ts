<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>KestCommandProvider</name>
    <message>
        <source>Invalid function arguments.</source>
        <translation>Arguments de fonction non valides.</translation>
    </message>
    <message>
        <source>Cannot delete a path outside the application directory.</source>
        <translation>Impossible de supprimer un chemin en dehors du répertoire de l’application.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
</context>
</TS>
