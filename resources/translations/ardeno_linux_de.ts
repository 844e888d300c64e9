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
        <translation>Das gespeicherte Bild fehlt oder ist keines, das gezeigt werden kann.</translation>
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
    <message>
        <source>Recording your main display. Stop any time from the menu bar.</source>
        <translation>Ihr Hauptbildschirm wird aufgenommen. Im Fenster können Sie jederzeit stoppen.</translation>
    </message>
    <message>
        <source>Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to quit and reopen, your draft will be waiting.</source>
        <translation>Erlauben Sie Ardeno in den Einstellungen Ihres Systems, den Bildschirm aufzunehmen, und kehren Sie hierher zurück. Müssen Sie die App neu öffnen, wartet Ihr Entwurf auf Sie.</translation>
    </message>
    <message>
        <source>Access is not active for this copy yet. Check Settings, then restart this app if macOS asks. This check does not request permission.</source>
        <translation>Der Zugriff gilt für diese Kopie noch nicht. Prüfen Sie die Einstellungen Ihres Systems und starten Sie die App neu, wenn Sie dazu aufgefordert werden. Diese Prüfung fragt nicht um Erlaubnis.</translation>
    </message>
    <message>
        <source>Could not restart automatically. Choose Ardeno → Quit in the menu bar, then open the app again. Your draft is saved. </source>
        <translation>Der Neustart gelang nicht von selbst. Wählen Sie „Beenden“ im Menü des Fensters und öffnen Sie die App erneut. Ihr Entwurf ist gesichert. </translation>
    </message>
    <message>
        <source>Resume can optionally move matching windows back. Accessibility access is needed only for moving windows.</source>
        <translation>Beim Fortsetzen können passende Fenster zurückgesetzt werden.</translation>
    </message>
    <message>
        <source>Add tabs currently open in Brave, Chrome, Safari or Firefox. The saved screenshot is unchanged.</source>
        <translation>Tabs hinzufügen, die in Brave, Chrome, Chromium oder Firefox offen sind. Das Bildschirmfoto bleibt unverändert.</translation>
    </message>
    <message>
        <source>Open Brave, Chrome, Safari or Firefox, then choose Add current tabs. Private windows are skipped where the browser exposes them; macOS may ask for browser access.</source>
        <translation>Öffnen Sie Brave, Chrome, Chromium oder Firefox und wählen Sie „Aktuelle Tabs hinzufügen“. Private Fenster werden ausgelassen.</translation>
    </message>
    <message>
        <source>Browser pages reopen in their saved browser when available. Documents and projects reopen when macOS exposes a file path. Finder locations are restored when accessible. Unsaved edits and exact in-app positions aren’t restored.</source>
        <translation>Seiten öffnen sich in ihrem Browser, wenn es ihn gibt. Dokumente und Projekte öffnen sich, wenn ihr Dateipfad bekannt ist. Ordner werden wiederhergestellt, wenn sie zugänglich sind. Ungesicherte Änderungen und genaue Stellen in Apps nicht.</translation>
    </message>
    <message>
        <source>Restore saved windows and Finder locations</source>
        <translation>Gesicherte Fenster und Ordner wiederherstellen</translation>
    </message>
    <message>
        <source>Documents and projects exposed by supported apps, Finder folders/files, Preview documents, plus positions and sizes for matching windows. Full-screen Spaces and ambiguous windows are skipped.</source>
        <translation>Dokumente und Projekte unterstützter Apps, Ordner und Dateien sowie Ort und Größe passender Fenster. Fenster im Vollbild und mehrdeutige werden ausgelassen.</translation>
    </message>
    <message>
        <source>Allow window positioning…</source>
        <translation>Anordnen von Fenstern erlauben …</translation>
    </message>
    <message>
        <source>Moving other apps’ windows needs Accessibility access. Opening apps and tabs works without it.</source>
        <translation>Fenster anderer Apps zu bewegen braucht die Erlaubnis Ihres Systems. Apps und Tabs zu öffnen geht ohne.</translation>
    </message>
    <message>
        <source>macOS asked you to reopen?</source>
        <translation>Ihr System bittet um einen Neustart der App?</translation>
    </message>
    <message>
        <source>Apple calls this “bypassing the private window picker” because this app captures the display directly, without asking you to select a window each time.</source>
        <translation>Diese App nimmt die Bildschirme direkt auf, ohne Sie jedes Mal ein Fenster wählen zu lassen.</translation>
    </message>
    <message>
        <source>Apple’s warning mentions audio, but this app doesn’t record it. Captures stay on this Mac. Visible private windows and notifications may be included.</source>
        <translation>Diese App nimmt keinen Ton auf. Was sie erfasst, bleibt auf diesem Computer. Sichtbare private Fenster und Mitteilungen können enthalten sein.</translation>
    </message>
    <message>
        <source>Capture could not finish. Your draft is safe. Check Screen Recording settings; if access was just enabled, quit and reopen this app, then try again. </source>
        <translation>Die Erfassung wurde nicht fertig. Ihr Entwurf ist sicher; versuchen Sie es erneut. </translation>
    </message>
    <message>
        <source>No supported browser was open. Open Brave, Chrome, Safari, or Firefox, then choose Add current tabs.</source>
        <translation>Es war kein unterstützter Browser offen. Öffnen Sie Brave, Chrome, Chromium oder Firefox und wählen Sie „Aktuelle Tabs hinzufügen“.</translation>
    </message>
    <message>
        <source>%1 tabs weren’t available. Allow its Automation access in System Settings, then try Add current tabs again.</source>
        <translation>Tabs von %1 waren nicht verfügbar. Versuchen Sie „Aktuelle Tabs hinzufügen“ noch einmal.</translation>
    </message>
    <message>
        <source>All screens and workspace saved on this Mac.</source>
        <translation>Bildschirme und Arbeitsumgebung bleiben auf diesem Computer.</translation>
    </message>
    <message>
        <source>macOS reopened the existing process.</source>
        <translation>Statt einer neuen wurde die laufende App geöffnet.</translation>
    </message>
    <message>
        <source>The global shortcut could not start. Quick save is still available in the menu bar.</source>
        <translation>Der globale Kurzbefehl konnte nicht starten. Schnelles Sichern geht weiterhin im Menü des Fensters.</translation>
    </message>
    <message>
        <source>That shortcut is unavailable. Choose another shortcut or use the menu bar.</source>
        <translation>Dieser Kurzbefehl ist nicht verfügbar. Wählen Sie einen anderen oder das Menü des Fensters.</translation>
    </message>
    <message>
        <source>Move Ardeno to Applications</source>
        <translation>Ardeno installieren</translation>
    </message>
    <message>
        <source>For the best experience, move this app to your Applications folder before using it. You can continue here for now.</source>
        <translation>Am besten installieren Sie diese App, bevor Sie sie nutzen. Sie können vorerst hier weitermachen.</translation>
    </message>
    <message>
        <source>Show Applications Folder</source>
        <translation>Ordner zeigen</translation>
    </message>
    <message numerus="yes">
        <source>%n Finder locations restored</source>
        <translation>
            <numerusform>%n Ordner wiederhergestellt</numerusform>
            <numerusform>%n Ordner wiederhergestellt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n Preview documents restored</source>
        <translation>
            <numerusform>%n Dokument im Betrachter wiederhergestellt</numerusform>
            <numerusform>%n Dokumente im Betrachter wiederhergestellt</numerusform>
        </translation>
    </message>
</context>
</TS>
