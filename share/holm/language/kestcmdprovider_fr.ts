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
    <message>
        <source>Device not detected</source>
        <translation>Appareil non détecté</translation>
    </message>
    <message>
        <source>null device</source>
        <translation>aucun appareil</translation>
    </message>
    <message>
        <source>already on</source>
        <translation>déjà activé</translation>
    </message>
    <message>
        <source>already off</source>
        <translation>déjà désactivé</translation>
    </message>
    <message>
        <source>Could not change state to on </source>
        <translation>Impossible d’activer </translation>
    </message>
    <message>
        <source>Could not change state to off </source>
        <translation>Impossible de désactiver </translation>
    </message>
    <message>
        <source>Cannot find S2P application.</source>
        <translation>L’application S2P est introuvable.</translation>
    </message>
    <message>
        <source>The header of the answer is too long.</source>
        <translation>L’en-tête de la réponse est trop long.</translation>
    </message>
    <message>
        <source>The answer is longer than 256 MB.</source>
        <translation>La réponse dépasse 256 Mo.</translation>
    </message>
    <message>
        <source>The answer cannot be unpacked.</source>
        <translation>La réponse ne peut pas être décompressée.</translation>
    </message>
    <message>
        <source>Cannot edit with valueOnOdd set to true.</source>
        <translation>Modification impossible lorsque valueOnOdd vaut true.</translation>
    </message>
    <message>
        <source>Invalid Index.</source>
        <translation>Index non valide.</translation>
    </message>
    <message>
        <source>Could not access Pocket Outlook.</source>
        <translation>Impossible d’accéder à Pocket Outlook.</translation>
    </message>
    <message>
        <source>Do you want to select a custom Image?</source>
        <translation>Voulez-vous choisir une image personnelle ?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
</context>
<context>
    <name>ContactSelector</name>
    <message>
        <source>Select Contact</source>
        <translation>Choisir un contact</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>FileSelector</name>
    <message>
        <source>File Browser</source>
        <translation>Explorateur de fichiers</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
</context>
<context>
    <name>WidgetsSelector</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
</TS>
