<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en" language="de">
<context>
    <name>ardeno</name>
    <message>
        <source>⌃⌥⌘S (default)</source>
        <translation>Strg+Alt+Super+S (Standard)</translation>
    </message>
    <message>
        <source>⇧⌘S</source>
        <translation>Umschalt+Super+S</translation>
    </message>
    <message>
        <source>macOS: </source>
        <translation>Operating system: </translation>
    </message>
    <message>
        <source>Stored on this Mac · no cloud upload</source>
        <translation>Auf diesem Computer gespeichert · kein Hochladen</translation>
    </message>
    <message>
        <source>Choose an image from your Mac to save with this checkpoint</source>
        <translation>Ein Bild von diesem Computer wählen, das mit diesem Checkpoint gespeichert wird</translation>
    </message>
    <message>
        <source>The saved image could not be found on this Mac.</source>
        <translation>Das gespeicherte Bild wurde auf diesem Computer nicht gefunden.</translation>
    </message>
    <message>
        <source>Your screenshots, recordings, browser URLs and notes stay on this Mac and are never uploaded. Delete a checkpoint from its menu to remove its saved media. Files are not additionally encrypted by this app.</source>
        <translation>Ihre Bildschirmfotos, Aufnahmen, Browser-Adressen und Notizen bleiben auf diesem Computer und werden nie hochgeladen. Löschen Sie einen Checkpoint in seinem Menü, um seine Medien zu entfernen. Die Dateien werden von dieser App nicht zusätzlich verschlüsselt.</translation>
    </message>
    <message>
        <source>The draft includes only your text, app version, build number and macOS version. Screenshots, recordings, notes, browser URLs and saved files are not attached.</source>
        <translation>Der Entwurf enthält nur Ihren Text, die Version der App, die Build-Nummer und die Version des Betriebssystems. Bildschirmfotos, Aufnahmen, Notizen, Browser-Adressen und gespeicherte Dateien werden nicht angehängt.</translation>
    </message>
    <message>
        <source>Screen access needs to be set up before saving. Use Allow screen access once, then finish in System Settings. Your draft is saved.</source>
        <translation>Vor dem Sichern muss der Bildschirmzugriff eingerichtet werden. Wählen Sie einmal „Bildschirmzugriff erlauben“ und schließen Sie die Einrichtung in den Einstellungen Ihres Systems ab. Ihr Entwurf ist gesichert.</translation>
    </message>
</context>
</TS>
