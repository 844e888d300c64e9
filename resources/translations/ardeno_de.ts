<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en" language="de">
<context>
    <name>ardeno</name>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Something needs attention</source>
        <translation>Etwas braucht Ihre Aufmerksamkeit</translation>
    </message>
    <message>
        <source>Ardeno — Something needs attention</source>
        <translation>Ardeno – Etwas braucht Ihre Aufmerksamkeit</translation>
    </message>
    <message>
        <source>Quit without saving?</source>
        <translation>Ohne Sichern beenden?</translation>
    </message>
    <message>
        <source>Quit without saving</source>
        <translation>Ohne Sichern beenden</translation>
    </message>
    <message>
        <source>A note could not be written yet. Ardeno keeps it in its settings and tries again at its next start.</source>
        <translation>Eine Notiz konnte noch nicht gesichert werden. Ardeno bewahrt sie in seinen Einstellungen auf und versucht es beim nächsten Start erneut.</translation>
    </message>
    <message>
        <source>What you typed has not been saved.</source>
        <translation>Ihre Eingaben sind nicht gesichert.</translation>
    </message>
    <message>
        <source>It could not be written. Ardeno keeps it and tries again while it runs.</source>
        <translation>Sie konnte nicht gesichert werden. Ardeno bewahrt sie auf und versucht es weiter, solange es läuft.</translation>
    </message>
    <message>
        <source>Nothing is captured, because your capture exclusions could not be read: %1 Mend the file in %2, or start over under “Capture exclusions” in the settings (in a terminal: %3). What could not be read is kept.</source>
        <translation>Es wird nichts erfasst, weil Ihre Ausnahmen nicht gelesen werden konnten: %1 Reparieren Sie die Datei in %2 oder beginnen Sie in den Einstellungen unter „Ausnahmen beim Erfassen“ neu (im Terminal: %3). Was nicht gelesen werden konnte, bleibt aufbewahrt.</translation>
    </message>
    <message>
        <source>They stood in settings that could not be read.</source>
        <translation>Sie standen in Einstellungen, die nicht gelesen werden konnten.</translation>
    </message>
    <message>
        <source>Your capture exclusions can be read. They stay as they are.</source>
        <translation>Ihre Ausnahmen können gelesen werden. Sie bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Nothing is left out of captures any more. Set your exclusions again.</source>
        <translation>Beim Erfassen wird nichts mehr ausgelassen. Legen Sie Ihre Ausnahmen neu fest.</translation>
    </message>
    <message>
        <source>What could not be read of your exclusions is kept as %1.</source>
        <translation>Was sich von Ihren Ausnahmen nicht lesen ließ, ist als %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>Your saved checkpoints could not be read. Existing files have been left in place. </source>
        <translation>Ihre gespeicherten Checkpoints konnten nicht gelesen werden. Die vorhandenen Dateien bleiben unverändert. </translation>
    </message>
    <message>
        <source>Checkpoint saved.</source>
        <translation>Checkpoint gesichert.</translation>
    </message>
    <message>
        <source>Choose a project or enter a new project name before saving.</source>
        <translation>Wählen Sie vor dem Sichern ein Projekt oder geben Sie den Namen eines neuen ein.</translation>
    </message>
    <message>
        <source>The project was deleted meanwhile, so nothing was saved. Your draft is safe.</source>
        <translation>Das Projekt wurde inzwischen gelöscht, daher wurde nichts gespeichert. Dein Entwurf ist noch da.</translation>
    </message>
    <message>
        <source>Could not save this checkpoint: </source>
        <translation>Dieser Checkpoint konnte nicht gesichert werden: </translation>
    </message>
    <message>
        <source>Could not bring the screenshot back: </source>
        <translation>Das Bildschirmfoto konnte nicht zurückgeholt werden: </translation>
    </message>
    <message>
        <source>Could not check for updates. Try again when you are online.</source>
        <translation>Es konnte nicht nach Updates gesucht werden. Versuchen Sie es erneut, wenn Sie online sind.</translation>
    </message>
    <message>
        <source>Ardeno %1 is up to date.</source>
        <translation>Ardeno %1 ist auf dem neuesten Stand.</translation>
    </message>
    <message>
        <source>This checkpoint is no longer in the library, so nothing could be saved.</source>
        <translation>Dieser Checkpoint ist nicht mehr in der Bibliothek, daher konnte nichts gesichert werden.</translation>
    </message>
    <message>
        <source>Whether every saved page of %1 was still open could not be checked.</source>
        <translation>Ob jede gesicherte Seite von %1 noch offen war, ließ sich nicht prüfen.</translation>
    </message>
    <message>
        <source>Some windows of %1 may be closed already. Whether their saved pages are open is not known.</source>
        <translation>Einige Fenster von %1 sind vielleicht schon geschlossen. Ob ihre gesicherten Seiten offen sind, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>%1 tabs weren’t available. Whether its saved pages are open is not known.</source>
        <translation>Die Tabs von %1 waren nicht verfügbar. Ob die gesicherten Seiten offen sind, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>No new browser tabs to add.</source>
        <translation>Es gibt keine neuen Browser-Tabs.</translation>
    </message>
    <message>
        <source>Screenshot replaced</source>
        <translation>Bildschirmfoto ersetzt</translation>
    </message>
    <message>
        <source>Window positions replaced</source>
        <translation>Fensterpositionen ersetzt</translation>
    </message>
    <message>
        <source>Screenshot removed</source>
        <translation>Bildschirmfoto entfernt</translation>
    </message>
    <message>
        <source>Not saved yet · Saving is tried again</source>
        <translation>Noch nicht gesichert · Es wird erneut versucht</translation>
    </message>
    <message>
        <source>A note is not saved yet</source>
        <translation>Eine Notiz ist noch nicht gesichert</translation>
    </message>
    <message>
        <source>What you typed into “%1” could not be written. It is kept, and saving it is tried again.</source>
        <translation>Was Sie in „%1“ geschrieben haben, konnte nicht gesichert werden. Es bleibt erhalten, und das Sichern wird erneut versucht.</translation>
    </message>
    <message>
        <source>Back to the note</source>
        <translation>Zurück zur Notiz</translation>
    </message>
    <message>
        <source>Leave it</source>
        <translation>So lassen</translation>
    </message>
    <message>
        <source>Discard what you typed?</source>
        <translation>Eingaben verwerfen?</translation>
    </message>
    <message>
        <source>It has not been saved.</source>
        <translation>Sie sind nicht gesichert.</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Keep editing</source>
        <translation>Weiter bearbeiten</translation>
    </message>
    <message>
        <source>No visible windows matched this checkpoint’s saved apps.</source>
        <translation>Kein sichtbares Fenster gehört zu den Apps dieses Checkpoints.</translation>
    </message>
    <message>
        <source>Not everything is back</source>
        <translation>Nicht alles ist wieder da</translation>
    </message>
    <message>
        <source>Could not open: %1</source>
        <translation>Nicht geöffnet: %1</translation>
    </message>
    <message>
        <source>Ardeno was ended before this was saved. Save it now, or cancel to discard it.</source>
        <translation>Ardeno wurde beendet, bevor dies gesichert war. Sichern Sie es jetzt, oder verwerfen Sie es mit „Abbrechen“.</translation>
    </message>
    <message>
        <source>Not available: %1</source>
        <translation>Nicht verfügbar: %1</translation>
    </message>
    <message>
        <source>Not placed: %1 (%2)</source>
        <translation>Nicht platziert: %1 (%2)</translation>
    </message>
    <message>
        <source>Dismiss what is not back</source>
        <translation>Ausblenden, was nicht wieder da ist</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Show what is not back</source>
        <translation>Anzeigen, was nicht wieder da ist</translation>
    </message>
    <message>
        <source>This version names no download over a secure connection (https), so Ardeno does not open one.</source>
        <translation>Diese Version nennt keinen Download über eine sichere Verbindung (https), daher öffnet Ardeno keinen.</translation>
    </message>
    <message>
        <source>It names no download over a secure connection (https), so Ardeno does not open one.</source>
        <translation>Sie nennt keinen Download über eine sichere Verbindung (https), daher öffnet Ardeno keinen.</translation>
    </message>
    <message>
        <source>The address is %1.</source>
        <translation>Die Adresse ist %1.</translation>
    </message>
    <message>
        <source>%1 is no longer excluded</source>
        <translation>%1 wird nicht mehr ausgelassen</translation>
    </message>
    <message>
        <source> Some media remains in </source>
        <translation> Einige Medien verbleiben in </translation>
    </message>
    <message>
        <source>Checkpoint deleted, but some local media could not be removed from </source>
        <translation>Checkpoint gelöscht, aber einige Medien konnten nicht entfernt werden aus </translation>
    </message>
    <message>
        <source>Could not delete the checkpoint: </source>
        <translation>Der Checkpoint konnte nicht gelöscht werden: </translation>
    </message>
    <message>
        <source>Could not delete the project: </source>
        <translation>Das Projekt konnte nicht gelöscht werden: </translation>
    </message>
    <message>
        <source>Finish the recording before deleting its checkpoint.</source>
        <translation>Beenden Sie die Aufnahme, bevor Sie ihren Checkpoint löschen.</translation>
    </message>
    <message>
        <source>Finish the recording before deleting its project.</source>
        <translation>Beenden Sie die Aufnahme, bevor Sie ihr Projekt löschen.</translation>
    </message>
    <message>
        <source>Project deleted, but some local media could not be removed from </source>
        <translation>Projekt gelöscht, aber einige Medien konnten nicht entfernt werden aus </translation>
    </message>
    <message>
        <source>Could not save the exclusions: </source>
        <translation>Die Ausnahmen konnten nicht gesichert werden: </translation>
    </message>
    <message>
        <source>%1 is running, but none of the windows could be recognised as its own. Look at a picture before you rely on its being left out.</source>
        <translation>%1 läuft, aber kein Fenster ließ sich dieser App zuordnen. Sehen Sie sich ein Bild an, bevor Sie sich darauf verlassen, dass sie ausgelassen wird.</translation>
    </message>
    <message>
        <source>Could not create the project: </source>
        <translation>Das Projekt konnte nicht angelegt werden: </translation>
    </message>
    <message>
        <source>Could not reorder the projects: </source>
        <translation>Die Projekte konnten nicht umgeordnet werden: </translation>
    </message>
    <message>
        <source>Could not update the project: </source>
        <translation>Das Projekt konnte nicht geändert werden: </translation>
    </message>
    <message>
        <source>There is a project named “%1” already.</source>
        <translation>Es gibt schon ein Projekt mit dem Namen „%1“.</translation>
    </message>
    <message>
        <source>%1 ended with an error</source>
        <translation>%1 wurde mit einem Fehler beendet</translation>
    </message>
    <message>
        <source>%1 (process %2) is still resuming a checkpoint.</source>
        <translation>%1 (Prozess %2) setzt noch einen Checkpoint fort.</translation>
    </message>
    <message>
        <source>Another program is still resuming a checkpoint.</source>
        <translation>Ein anderes Programm setzt noch einen Checkpoint fort.</translation>
    </message>
    <message>
        <source>%1 (it ended with an error)</source>
        <translation>%1 (mit einem Fehler beendet)</translation>
    </message>
    <message>
        <source>Could not open: </source>
        <translation>Nicht geöffnet werden konnte: </translation>
    </message>
    <message>
        <source>The new image remains in </source>
        <translation> Das neue Bild verbleibt in </translation>
    </message>
    <message>
        <source>Could not add the image: </source>
        <translation>Das Bild konnte nicht hinzugefügt werden: </translation>
    </message>
    <message>
        <source>Could not remove a screenshot outside this checkpoint’s storage folder.</source>
        <translation>Ein Bildschirmfoto außerhalb des Ordners dieses Checkpoints kann nicht entfernt werden.</translation>
    </message>
    <message>
        <source>Could not remove the screenshot: </source>
        <translation>Das Bildschirmfoto konnte nicht entfernt werden: </translation>
    </message>
    <message>
        <source>Image added, but the previous image file could not be removed: </source>
        <translation>Bild hinzugefügt, aber die vorige Bilddatei konnte nicht entfernt werden: </translation>
    </message>
    <message>
        <source>Image added. A copy is saved with this checkpoint.</source>
        <translation>Bild hinzugefügt. Eine Kopie ist mit diesem Checkpoint gesichert.</translation>
    </message>
    <message>
        <source>Screenshot removed. Your notes and workspace are saved.</source>
        <translation>Bildschirmfoto entfernt. Notizen und Arbeitsumgebung sind gesichert.</translation>
    </message>
    <message>
        <source>This file could not be opened as an image. Choose a PNG, JPEG, HEIC or another supported image.</source>
        <translation>Diese Datei ließ sich nicht als Bild öffnen. Wählen Sie ein PNG, JPEG, HEIC oder ein anderes unterstütztes Bild.</translation>
    </message>
    <message>
        <source> The recording broke off; what there is of it is kept with the media as %1.</source>
        <translation> Die Aufnahme brach ab; was es davon gibt, liegt als %1 bei den Medien.</translation>
    </message>
    <message>
        <source> The screenshot is from the start of the session.</source>
        <translation> Das Bildschirmfoto ist vom Beginn der Sitzung.</translation>
    </message>
    <message>
        <source>. Use Stop &amp; save checkpoint to preserve the checkpoint.</source>
        <translation>. Wählen Sie „Stoppen &amp; Checkpoint sichern“, um den Checkpoint zu erhalten.</translation>
    </message>
    <message>
        <source>A work session is being recorded already. Stop it before you start another one.</source>
        <translation>Es wird schon eine Arbeitssitzung aufgenommen. Stoppen Sie sie, bevor Sie eine neue beginnen.</translation>
    </message>
    <message>
        <source>This could not be finished: </source>
        <translation>Das konnte nicht abgeschlossen werden: </translation>
    </message>
    <message>
        <source>What you wanted to change is no longer in the library.</source>
        <translation>Was Sie ändern wollten, ist nicht mehr in der Bibliothek.</translation>
    </message>
    <message>
        <source>Your saved checkpoints could not be read. The file is kept as %1, and a new library has been begun.</source>
        <translation>Ihre gesicherten Checkpoints konnten nicht gelesen werden. Die Datei ist als %1 aufbewahrt, und eine neue Bibliothek wurde begonnen.</translation>
    </message>
    <message>
        <source>Your library was damaged by another program. What it held is kept as %1, and your checkpoints have been written anew.</source>
        <translation>Ein anderes Programm hat Ihre Bibliothek beschädigt. Was sie enthielt, ist als %1 aufbewahrt, und Ihre Checkpoints wurden neu geschrieben.</translation>
    </message>
    <message>
        <source>Your saved checkpoints could not be read at first. They have been read now.</source>
        <translation>Ihre gesicherten Checkpoints konnten zuerst nicht gelesen werden. Jetzt sind sie gelesen.</translation>
    </message>
    <message>
        <source>The last change was written, but the system could not confirm that it would survive a power failure.</source>
        <translation>Die letzte Änderung ist geschrieben, aber das System konnte nicht bestätigen, dass sie einen Stromausfall übersteht.</translation>
    </message>
    <message>
        <source>Your library was replaced by another program, so it has been read again.</source>
        <translation>Ein anderes Programm hat Ihre Bibliothek ersetzt; sie wurde deshalb neu gelesen.</translation>
    </message>
    <message>
        <source>Your work session “%1” is kept in %2 and will be saved as soon as the library can be written.</source>
        <translation>Ihre Arbeitssitzung „%1“ ist in %2 aufbewahrt und wird gesichert, sobald die Bibliothek geschrieben werden kann.</translation>
    </message>
    <message>
        <source>Your work session “%1” has been saved now.</source>
        <translation>Ihre Arbeitssitzung „%1“ ist jetzt gesichert.</translation>
    </message>
    <message>
        <source>Could not show the file: </source>
        <translation>Die Datei konnte nicht gezeigt werden: </translation>
    </message>
    <message>
        <source>Show file</source>
        <translation>Datei zeigen</translation>
    </message>
    <message>
        <source>Save now</source>
        <translation>Jetzt sichern</translation>
    </message>
    <message>
        <source>Dismiss the remark</source>
        <translation>Hinweis ausblenden</translation>
    </message>
    <message>
        <source>Recording broken off</source>
        <translation>Aufnahme abgebrochen</translation>
    </message>
    <message>
        <source>Could not save an interrupted work session: </source>
        <translation>Eine unterbrochene Arbeitssitzung konnte nicht gesichert werden: </translation>
    </message>
    <message>
        <source>Recording stopped and checkpoint saved. Add a next step to make returning easier.</source>
        <translation>Aufnahme gestoppt und Checkpoint gesichert. Ein nächster Schritt erleichtert die Rückkehr.</translation>
    </message>
    <message>
        <source>Recording stopped unexpectedly: </source>
        <translation>Die Aufnahme brach unerwartet ab: </translation>
    </message>
    <message>
        <source>The video could not be finalized. Your screenshot and workspace will still be saved. </source>
        <translation>Das Video konnte nicht abgeschlossen werden. Bildschirmfoto und Arbeitsumgebung werden trotzdem gesichert. </translation>
    </message>
    <message>
        <source>Workspace captured at the end of your session.</source>
        <translation>Arbeitsumgebung am Ende Ihrer Sitzung erfasst.</translation>
    </message>
    <message>
        <source>Workspace captured at the start of your session, which ended before it was stopped.</source>
        <translation>Arbeitsumgebung zu Beginn Ihrer Sitzung erfasst, die endete, bevor sie gestoppt wurde.</translation>
    </message>
    <message>
        <source>Workspace captured at the start of your session; at its end the desktop had gone.</source>
        <translation>Arbeitsumgebung zu Beginn Ihrer Sitzung erfasst; an ihrem Ende gab es den Desktop nicht mehr.</translation>
    </message>
    <message>
        <source>A work session was interrupted. What is kept of it in %1 could not be read, which the next start tries again: %2</source>
        <translation>Eine Arbeitssitzung wurde unterbrochen. Was davon in %1 liegt, konnte nicht gelesen werden; der nächste Start versucht es noch einmal: %2</translation>
    </message>
    <message>
        <source>Your work session “%1” was interrupted. Its checkpoint has been saved with what was recorded.</source>
        <translation>Ihre Arbeitssitzung „%1“ wurde unterbrochen. Ihr Checkpoint wurde mit dem Aufgenommenen gesichert.</translation>
    </message>
    <message>
        <source>A GLIMPSE OF YOUR NEXT RETURN</source>
        <translation>EIN BLICK AUF IHRE NÄCHSTE RÜCKKEHR</translation>
    </message>
    <message>
        <source>A sample checkpoint. Explore the saved workspace below.</source>
        <translation>Ein Beispiel. Sehen Sie sich unten die gesicherte Arbeitsumgebung an.</translation>
    </message>
    <message>
        <source>A screenshot, your workspace and a place to continue.</source>
        <translation>Ein Bildschirmfoto, Ihre Arbeitsumgebung und eine Stelle zum Weitermachen.</translation>
    </message>
    <message>
        <source>Add progress, context or decisions for your next visit…</source>
        <translation>Fortschritt, Zusammenhang oder Entscheidungen für das nächste Mal …</translation>
    </message>
    <message>
        <source>Checkpoint</source>
        <translation>Checkpoint</translation>
    </message>
    <message>
        <source>Checkpoint details…</source>
        <translation>Checkpoint-Details …</translation>
    </message>
    <message>
        <source>Click to add your next step…</source>
        <translation>Klicken, um den nächsten Schritt einzutragen …</translation>
    </message>
    <message>
        <source>Could not open the recording: there is no application for it.</source>
        <translation>Die Aufnahme konnte nicht geöffnet werden: Es gibt keine App dafür.</translation>
    </message>
    <message>
        <source>Could not open the recording. </source>
        <translation>Die Aufnahme konnte nicht geöffnet werden. </translation>
    </message>
    <message>
        <source>It is not in this checkpoint’s storage folder.</source>
        <translation>Sie liegt nicht im Speicherordner dieses Checkpoints.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Es gibt keine solche Datei.</translation>
    </message>
    <message>
        <source>Saved, but its media could not be put in their place, which the next start tries again: </source>
        <translation>Gesichert, aber die Medien konnten nicht an ihren Platz gebracht werden; der nächste Start versucht es wieder: </translation>
    </message>
    <message>
        <source>Screenshot removed, but its file could not be deleted from </source>
        <translation>Bildschirmfoto entfernt, aber seine Datei konnte nicht gelöscht werden aus </translation>
    </message>
    <message>
        <source>Resume workspace</source>
        <translation>Arbeitsumgebung fortsetzen</translation>
    </message>
    <message>
        <source>Review workspace</source>
        <translation>Arbeitsumgebung ansehen</translation>
    </message>
    <message>
        <source>SAMPLE</source>
        <translation>BEISPIEL</translation>
    </message>
    <message>
        <source>SAVED %1</source>
        <translation>GESICHERT %1</translation>
    </message>
    <message>
        <source>Sample content · no capture has taken place</source>
        <translation>Beispielinhalt · es wurde nichts erfasst</translation>
    </message>
    <message>
        <source>View recording</source>
        <translation>Aufnahme ansehen</translation>
    </message>
    <message>
        <source>Workspace active</source>
        <translation>Arbeitsumgebung aktiv</translation>
    </message>
    <message>
        <source>A thought to keep</source>
        <translation>Ein Gedanke zum Merken</translation>
    </message>
    <message>
        <source>Illustrative portfolio design beside a note to check mobile navigation</source>
        <translation>Ein Portfolio-Entwurf neben einer Notiz zur mobilen Navigation</translation>
    </message>
    <message>
        <source>Less, but
a little better.</source>
        <translation>Weniger, aber
etwas besser.</translation>
    </message>
    <message>
        <source>Make room
for the work.</source>
        <translation>Platz
für die Arbeit.</translation>
    </message>
    <message>
        <source>Work     About     Contact</source>
        <translation>Werk     Über     Kontakt</translation>
    </message>
    <message>
        <source>portfolio / selected work</source>
        <translation>Portfolio / Auswahl</translation>
    </message>
    <message>
        <source>✓  Bottom navigation

↳  Check labels on mobile</source>
        <translation>✓  Navigation unten

↳  Beschriftung mobil prüfen</translation>
    </message>
    <message>
        <source>Add image…</source>
        <translation>Bild hinzufügen …</translation>
    </message>
    <message>
        <source>Paste image</source>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Choose an image</source>
        <translation>Bild wählen</translation>
    </message>
    <message>
        <source>Delete this screenshot while keeping the checkpoint’s notes and workspace</source>
        <translation>Dieses Bildschirmfoto löschen; Notizen und Arbeitsumgebung des Checkpoints bleiben</translation>
    </message>
    <message>
        <source>Expand</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>No screenshot saved</source>
        <translation>Kein Bildschirmfoto gesichert</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Replace image…</source>
        <translation>Bild ersetzen …</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>Bildschirmfoto</translation>
    </message>
    <message>
        <source>Click to enlarge</source>
        <translation>Zum Vergrößern klicken</translation>
    </message>
    <message>
        <source>Click to view, zoom and pan the full screenshot</source>
        <translation>Klicken, um das ganze Bildschirmfoto anzusehen, zu zoomen und zu verschieben</translation>
    </message>
    <message>
        <source>Expand saved screenshot</source>
        <translation>Gesichertes Bildschirmfoto vergrößern</translation>
    </message>
    <message>
        <source>Open full-size screenshot</source>
        <translation>Bildschirmfoto in voller Größe öffnen</translation>
    </message>
    <message>
        <source>Saved screenshot</source>
        <translation>Gesichertes Bildschirmfoto</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Checkpoint details</source>
        <translation>Checkpoint-Details</translation>
    </message>
    <message>
        <source>Checkpoint title</source>
        <translation>Titel des Checkpoints</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Save context</source>
        <translation>Notizen sichern</translation>
    </message>
    <message>
        <source>Where you left off</source>
        <translation>Wo Sie aufgehört haben</translation>
    </message>
    <message>
        <source>Your next small step</source>
        <translation>Ihr nächster kleiner Schritt</translation>
    </message>
    <message>
        <source>Your notes are saved as written and shape the local return briefing.</source>
        <translation>Ihre Notizen werden gesichert, wie sie geschrieben sind, und begleiten Ihre Rückkehr.</translation>
    </message>
    <message>
        <source>More actions</source>
        <translation>Weitere Aktionen</translation>
    </message>
    <message>
        <source>Stop &amp; save checkpoint</source>
        <translation>Stoppen &amp; Checkpoint sichern</translation>
    </message>
    <message>
        <source>Ardeno</source>
        <translation>Ardeno</translation>
    </message>
    <message>
        <source>Find a project</source>
        <translation>Projekt suchen</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>Full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>“%1” is in the archive now.</source>
        <translation>„%1“ ist jetzt im Archiv.</translation>
    </message>
    <message>
        <source>“%1” is back among your projects.</source>
        <translation>„%1“ ist wieder unter Ihren Projekten.</translation>
    </message>
    <message>
        <source>Finish saving before quitting</source>
        <translation>Vor dem Beenden fertig sichern</translation>
    </message>
    <message>
        <source>Keep open</source>
        <translation>Geöffnet lassen</translation>
    </message>
    <message>
        <source>Next checkpoint</source>
        <translation>Nächster Checkpoint</translation>
    </message>
    <message>
        <source>Previous checkpoint</source>
        <translation>Voriger Checkpoint</translation>
    </message>
    <message>
        <source>Save first checkpoint</source>
        <translation>Ersten Checkpoint sichern</translation>
    </message>
    <message>
        <source>Save your first checkpoint to keep the screenshot, workspace and next step together.</source>
        <translation>Sichern Sie Ihren ersten Checkpoint: Bildschirmfoto, Arbeitsumgebung und nächster Schritt bleiben beisammen.</translation>
    </message>
    <message>
        <source>Use Stop &amp; save checkpoint to finish your recording, then quit.</source>
        <translation>Beenden Sie die Aufnahme mit „Stoppen &amp; Checkpoint sichern“ und danach die App.</translation>
    </message>
    <message>
        <source>Your project is ready</source>
        <translation>Ihr Projekt ist bereit</translation>
    </message>
    <message>
        <source>Delete project</source>
        <translation>Projekt löschen</translation>
    </message>
    <message>
        <source>Delete project?</source>
        <translation>Projekt löschen?</translation>
    </message>
    <message>
        <source>Delete this checkpoint and its local recording?</source>
        <translation>Diesen Checkpoint und seine Aufnahme löschen?</translation>
    </message>
    <message numerus="yes">
        <source>Delete “%1” and all %n checkpoints, including their local screenshots and recordings? This cannot be undone.</source>
        <translation>
            <numerusform>„%1“ und %n Checkpoint mit seinem Bildschirmfoto und seiner Aufnahme löschen? Das lässt sich nicht widerrufen.</numerusform>
            <numerusform>„%1“ und alle %n Checkpoints mit ihren Bildschirmfotos und Aufnahmen löschen? Das lässt sich nicht widerrufen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Drag a project to another place, or press Alt with an arrow key</source>
        <translation>Projekte mit der Maus oder mit Alt und einer Pfeiltaste verschieben</translation>
    </message>
    <message>
        <source>ARCHIVED</source>
        <translation>ARCHIVIERT</translation>
    </message>
    <message>
        <source>All projects</source>
        <translation>Alle Projekte</translation>
    </message>
    <message>
        <source>Find a project (%1)</source>
        <translation>Projekt suchen (%1)</translation>
    </message>
    <message>
        <source>One saved moment in a project: screenshot, apps, tabs and next step.</source>
        <translation>Ein gesicherter Moment: Bildschirmfoto, Apps, Tabs und nächster Schritt.</translation>
    </message>
    <message>
        <source>PROJECTS</source>
        <translation>PROJEKTE</translation>
    </message>
    <message>
        <source>What’s a checkpoint?</source>
        <translation>Was ist ein Checkpoint?</translation>
    </message>
    <message>
        <source>Ardeno %1 is available.</source>
        <translation>Ardeno %1 ist verfügbar.</translation>
    </message>
    <message>
        <source>Dismiss the message</source>
        <translation>Meldung schließen</translation>
    </message>
    <message>
        <source>Dismiss the update</source>
        <translation>Update-Hinweis schließen</translation>
    </message>
    <message>
        <source>Enjoying Ardeno?</source>
        <translation>Gefällt Ihnen Ardeno?</translation>
    </message>
    <message>
        <source>Improvements and fixes.</source>
        <translation>Verbesserungen und Korrekturen.</translation>
    </message>
    <message>
        <source>Join newsletter</source>
        <translation>Newsletter abonnieren</translation>
    </message>
    <message>
        <source>Join the newsletter for workspace tips and product news.</source>
        <translation>Der Newsletter bringt Tipps zum Arbeiten und Neues vom Produkt.</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>See what’s new</source>
        <translation>Was ist neu?</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>What’s new in Ardeno?</source>
        <translation>Was ist neu in Ardeno?</translation>
    </message>
    <message>
        <source>Click to add a quick list…</source>
        <translation>Klicken, um eine Liste zu beginnen …</translation>
    </message>
    <message>
        <source>Enter for next item · Click away to finish</source>
        <translation>Eingabetaste: nächster Punkt · Fertig: daneben klicken</translation>
    </message>
    <message>
        <source>Enter for next item · Sample edits are temporary</source>
        <translation>Eingabetaste: nächster Punkt · Im Beispiel bleibt nichts erhalten</translation>
    </message>
    <message>
        <source>Delete checkpoint</source>
        <translation>Checkpoint löschen</translation>
    </message>
    <message>
        <source>Delete checkpoint…</source>
        <translation>Checkpoint löschen …</translation>
    </message>
    <message>
        <source>Delete this checkpoint?</source>
        <translation>Diesen Checkpoint löschen?</translation>
    </message>
    <message>
        <source>“%1”, saved %2 in the project “%3”.</source>
        <translation>„%1“, gesichert am %2 im Projekt „%3“.</translation>
    </message>
    <message>
        <source>Open checkpoint</source>
        <translation>Checkpoint öffnen</translation>
    </message>
    <message>
        <source>This removes “%1” and its local screenshot or recording.</source>
        <translation>Damit werden „%1“ und das Bildschirmfoto oder die Aufnahme dazu entfernt.</translation>
    </message>
    <message>
        <source>Latest</source>
        <translation>Neuester</translation>
    </message>
    <message>
        <source>Actions for %1</source>
        <translation>Aktionen für %1</translation>
    </message>
    <message>
        <source>Checkpoints</source>
        <translation>Checkpoints</translation>
    </message>
    <message>
        <source>Delete selected checkpoint…</source>
        <translation>Gewählten Checkpoint löschen …</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Manage checkpoints</source>
        <translation>Checkpoints verwalten</translation>
    </message>
    <message>
        <source>No checkpoints</source>
        <translation>Keine Checkpoints</translation>
    </message>
    <message>
        <source>Save a checkpoint to start building this history.</source>
        <translation>Sichern Sie einen Checkpoint, um diesen Verlauf zu beginnen.</translation>
    </message>
    <message>
        <source>Selected: %1</source>
        <translation>Gewählt: %1</translation>
    </message>
    <message>
        <source>Archive project</source>
        <translation>Projekt archivieren</translation>
    </message>
    <message>
        <source>Rename project…</source>
        <translation>Projekt umbenennen …</translation>
    </message>
    <message>
        <source>Delete project…</source>
        <translation>Projekt löschen …</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>NEXT SMALL STEP</source>
        <translation>NÄCHSTER SCHRITT</translation>
    </message>
    <message>
        <source>No checkpoints yet</source>
        <translation>Noch keine Checkpoints</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Open project %1</source>
        <translation>Projekt %1 öffnen</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>Gesichert %1</translation>
    </message>
    <message>
        <source>WAITING FOR</source>
        <translation>WARTET AUF</translation>
    </message>
    <message>
        <source>A home for your work.</source>
        <translation>Ein Zuhause für Ihre Arbeit.</translation>
    </message>
    <message>
        <source>Create project</source>
        <translation>Projekt anlegen</translation>
    </message>
    <message>
        <source>Rename project</source>
        <translation>Projekt umbenennen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Edit blocker</source>
        <translation>Hindernis bearbeiten</translation>
    </message>
    <message>
        <source>Keep several checkpoints in one project. Each one remembers where you left off at a different point in time.</source>
        <translation>Ein Projekt kann mehrere Checkpoints haben. Jeder merkt sich, wo Sie zu einer anderen Zeit aufgehört haben.</translation>
    </message>
    <message>
        <source>Mark blocked</source>
        <translation>Als blockiert markieren</translation>
    </message>
    <message>
        <source>Mark project blocked</source>
        <translation>Projekt als blockiert markieren</translation>
    </message>
    <message>
        <source>Optional. You can still save checkpoints and reopen this project’s workspace.</source>
        <translation>Freiwillig. Sie können weiterhin Checkpoints sichern und die Arbeitsumgebung dieses Projekts öffnen.</translation>
    </message>
    <message>
        <source>Project name</source>
        <translation>Name des Projekts</translation>
    </message>
    <message>
        <source>Save reason</source>
        <translation>Grund sichern</translation>
    </message>
    <message>
        <source>Waiting for…</source>
        <translation>Wartet auf …</translation>
    </message>
    <message>
        <source>e.g. Maya to approve the revised design</source>
        <translation>z. B. Mayas Freigabe des neuen Entwurfs</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Archived</source>
        <translation>Archiviert</translation>
    </message>
    <message>
        <source>Blocked</source>
        <translation>Blockiert</translation>
    </message>
    <message>
        <source>Edit reason</source>
        <translation>Grund bearbeiten</translation>
    </message>
    <message>
        <source>Mark active</source>
        <translation>Als aktiv markieren</translation>
    </message>
    <message>
        <source>Mark blocked…</source>
        <translation>Als blockiert markieren …</translation>
    </message>
    <message>
        <source>Unarchive project</source>
        <translation>Aus dem Archiv holen</translation>
    </message>
    <message>
        <source>Waiting for</source>
        <translation>Wartet auf</translation>
    </message>
    <message>
        <source>First checkpoint</source>
        <translation>Erster Checkpoint</translation>
    </message>
    <message>
        <source>Today, %1</source>
        <translation>Heute, %1</translation>
    </message>
    <message>
        <source>Yesterday, %1</source>
        <translation>Gestern, %1</translation>
    </message>
    <message>
        <source>today, %1</source>
        <translation>heute, %1</translation>
    </message>
    <message>
        <source>yesterday, %1</source>
        <translation>gestern, %1</translation>
    </message>
    <message>
        <source>No reason added yet.</source>
        <translation>Noch ohne Grund.</translation>
    </message>
    <message>
        <source>its disk did not answer</source>
        <translation>der Datenträger antwortet nicht</translation>
    </message>
    <message>
        <source>it no longer exists</source>
        <translation>nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Back to latest</source>
        <translation>Zum neuesten</translation>
    </message>
    <message>
        <source>Capture this workspace</source>
        <translation>Diese Arbeitsumgebung erfassen</translation>
    </message>
    <message>
        <source>Checkpoint history</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Save a screenshot and your open workspace</source>
        <translation>Ein Bildschirmfoto und die offene Arbeitsumgebung sichern</translation>
    </message>
    <message>
        <source>Save checkpoint</source>
        <translation>Checkpoint sichern</translation>
    </message>
    <message>
        <source>Archived projects</source>
        <translation>Archivierte Projekte</translation>
    </message>
    <message>
        <source>Create a project to save your first checkpoint.</source>
        <translation>Legen Sie ein Projekt an, um Ihren ersten Checkpoint zu sichern.</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>No archived projects.</source>
        <translation>Keine archivierten Projekte.</translation>
    </message>
    <message>
        <source>No projects match your search.</source>
        <translation>Kein Projekt passt zu Ihrer Suche.</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projekte</translation>
    </message>
    <message>
        <source>Show archived</source>
        <translation>Archivierte zeigen</translation>
    </message>
    <message>
        <source>LATEST</source>
        <translation>NEUESTER</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Choose application</source>
        <translation>App wählen</translation>
    </message>
    <message>
        <source>Exclude app</source>
        <translation>App ausschließen</translation>
    </message>
    <message>
        <source>Find an application</source>
        <translation>App suchen</translation>
    </message>
    <message>
        <source>No applications found</source>
        <translation>Keine Apps gefunden</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy report</source>
        <translation>Bericht kopieren</translation>
    </message>
    <message>
        <source>Open email draft</source>
        <translation>E-Mail-Entwurf öffnen</translation>
    </message>
    <message>
        <source>Short summary</source>
        <translation>Kurze Zusammenfassung</translation>
    </message>
    <message>
        <source>Steps to reproduce (optional)</source>
        <translation>Schritte zum Nachstellen (freiwillig)</translation>
    </message>
    <message>
        <source>This opens your default email app with a draft you can review and edit before sending.</source>
        <translation>Ihr E-Mail-Programm öffnet sich mit einem Entwurf, den Sie vor dem Senden prüfen und ändern können.</translation>
    </message>
    <message>
        <source>What went wrong?</source>
        <translation>Was ist schiefgegangen?</translation>
    </message>
    <message>
        <source>Your email app could not be opened. Use Copy report and send it manually.</source>
        <translation>Ihr E-Mail-Programm konnte nicht geöffnet werden. Wählen Sie „Bericht kopieren“ und senden Sie ihn selbst.</translation>
    </message>
    <message>
        <source>e.g. Saving stays stuck at 90%</source>
        <translation>z. B. Das Sichern bleibt bei 90% stehen</translation>
    </message>
    <message>
        <source>Apply to future captures and newly added workspace items. Existing checkpoints and their media stay unchanged.</source>
        <translation>Sie gelten für künftige Erfassungen und neu hinzugefügte Einträge. Vorhandene Checkpoints und ihre Medien bleiben unverändert.</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Start over</source>
        <translation>Neu beginnen</translation>
    </message>
    <message>
        <source>Capture exclusions</source>
        <translation>Ausnahmen beim Erfassen</translation>
    </message>
    <message>
        <source>Choose application…</source>
        <translation>App wählen …</translation>
    </message>
    <message>
        <source>Domain or URL, e.g. %1</source>
        <translation>Domain oder Adresse, z. B. %1</translation>
    </message>
    <message>
        <source>Enter a valid website domain or an http/https URL.</source>
        <translation>Geben Sie eine gültige Domain oder eine http/https-Adresse ein.</translation>
    </message>
    <message>
        <source>Exclude</source>
        <translation>Ausschließen</translation>
    </message>
    <message>
        <source>Exclude </source>
        <translation>Ausschließen </translation>
    </message>
    <message>
        <source>Exclude website</source>
        <translation>Website ausschließen</translation>
    </message>
    <message>
        <source>Excluded apps</source>
        <translation>Ausgeschlossene Apps</translation>
    </message>
    <message>
        <source>Excluded apps are left out of app lists, window positions, screenshots and recordings. Excluding a browser also excludes its tabs.</source>
        <translation>Ausgeschlossene Apps fehlen in App-Listen, Fensterpositionen, Bildschirmfotos und Aufnahmen. Mit einem Browser sind auch seine Tabs ausgeschlossen.</translation>
    </message>
    <message>
        <source>Excluded websites</source>
        <translation>Ausgeschlossene Websites</translation>
    </message>
    <message>
        <source>Finish the recording before changing exclusions.</source>
        <translation>Beenden Sie die Aufnahme, bevor Sie Ausnahmen ändern.</translation>
    </message>
    <message>
        <source>No apps excluded</source>
        <translation>Keine Apps ausgeschlossen</translation>
    </message>
    <message>
        <source>No apps to exclude</source>
        <translation>Keine Apps zum Ausschließen</translation>
    </message>
    <message>
        <source>Skip saved tab URLs for a domain and its subdomains. For example, example.com also excludes mail.example.com.</source>
        <translation>Tabs einer Domain und ihrer Subdomains werden nicht gesichert. So schließt example.com auch mail.example.com aus.</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Website rules do not hide visible pages in screenshots or video. To hide browser content visually, exclude the browser app.</source>
        <translation>Regeln für Websites verbergen keine sichtbaren Seiten in Bildschirmfotos oder Videos. Um Browserinhalte zu verbergen, schließen Sie den Browser aus.</translation>
    </message>
    <message>
        <source>Websites</source>
        <translation>Websites</translation>
    </message>
    <message>
        <source>When app exclusions are enabled, recordings include only allowed apps already running when recording starts.</source>
        <translation>Sind Apps ausgeschlossen, zeigen Aufnahmen nur erlaubte Apps, die zu Beginn der Aufnahme schon laufen.</translation>
    </message>
    <message>
        <source>Capture exclusions…</source>
        <translation>Ausnahmen …</translation>
    </message>
    <message>
        <source>Check for updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Contact &amp; support</source>
        <translation>Kontakt &amp; Hilfe</translation>
    </message>
    <message>
        <source>Download update</source>
        <translation>Update laden</translation>
    </message>
    <message>
        <source>Email support</source>
        <translation>E-Mail an uns</translation>
    </message>
    <message>
        <source>Get occasional workspace tips and product news by email. This is separate from software updates.</source>
        <translation>Gelegentlich Tipps und Neues vom Produkt per E-Mail. Das ist unabhängig von Updates der Software.</translation>
    </message>
    <message>
        <source>Include browser tabs</source>
        <translation>Browser-Tabs einschließen</translation>
    </message>
    <message>
        <source>Incognito tab URLs are skipped. A screen capture can still contain visible private windows. Website exclusions skip URLs, but visible pages may still appear in captures. Exclude the browser app to hide its windows.</source>
        <translation>Adressen privater Tabs werden ausgelassen. Ein Bild des Bildschirms kann sichtbare private Fenster trotzdem zeigen. Ausgeschlossene Websites werden nicht gesichert, können aber als sichtbare Seiten im Bild erscheinen. Schließen Sie den Browser aus, um seine Fenster zu verbergen.</translation>
    </message>
    <message>
        <source>Join the newsletter</source>
        <translation>Newsletter abonnieren</translation>
    </message>
    <message>
        <source>Last opened project</source>
        <translation>Zuletzt geöffnetes Projekt</translation>
    </message>
    <message>
        <source>Newsletter</source>
        <translation>Newsletter</translation>
    </message>
    <message>
        <source>Nothing has been saved yet.</source>
        <translation>Es wurde noch nichts gesichert.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>On launch</source>
        <translation>Beim Start</translation>
    </message>
    <message>
        <source>Private by design. Stored locally.</source>
        <translation>Privat aus Prinzip. Lokal gespeichert.</translation>
    </message>
    <message>
        <source>Projects overview</source>
        <translation>Übersicht der Projekte</translation>
    </message>
    <message>
        <source>Questions, feedback or a problem? We’ll open your default email app so you can review your message before sending.</source>
        <translation>Fragen, Anregungen oder ein Problem? Ihr E-Mail-Programm öffnet sich, damit Sie die Nachricht vor dem Senden prüfen können.</translation>
    </message>
    <message>
        <source>Quick save shortcut</source>
        <translation>Kurzbefehl zum Sichern</translation>
    </message>
    <message>
        <source>Report a bug</source>
        <translation>Fehler melden</translation>
    </message>
    <message>
        <source>Save from any app while Ardeno is running.</source>
        <translation>Aus jeder App sichern, solange Ardeno läuft.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Show saved files</source>
        <translation>Gesicherte Dateien zeigen</translation>
    </message>
    <message>
        <source>The folder could not be opened: %1</source>
        <translation>Der Ordner konnte nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>This preview captures your connected displays and open apps when you choose Save checkpoint.</source>
        <translation>Erfasst werden Ihre angeschlossenen Bildschirme und die offenen Apps, wenn Sie „Checkpoint sichern“ wählen.</translation>
    </message>
    <message>
        <source>Update available: %1</source>
        <translation>Update verfügbar: %1</translation>
    </message>
    <message>
        <source>Working</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Your email app could not be opened. You can write to %1.</source>
        <translation>Ihr E-Mail-Programm konnte nicht geöffnet werden. Sie können an %1 schreiben.</translation>
    </message>
    <message>
        <source>Allow %1 again</source>
        <translation>%1 wieder erlauben</translation>
    </message>
    <message>
        <source>Allow again</source>
        <translation>Wieder erlauben</translation>
    </message>
    <message>
        <source>Saved screenshot. Use the toolbar to zoom, or double-click for actual size.</source>
        <translation>Gesichertes Bildschirmfoto. Mit der Symbolleiste zoomen oder für die tatsächliche Größe doppelklicken.</translation>
    </message>
    <message>
        <source>100%</source>
        <translation>100%</translation>
    </message>
    <message>
        <source>Checkpoint screenshot</source>
        <translation>Bildschirmfoto des Checkpoints</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Fit the entire screenshot in this window</source>
        <translation>Das ganze Bildschirmfoto in dieses Fenster einpassen</translation>
    </message>
    <message>
        <source>Screenshot unavailable</source>
        <translation>Bildschirmfoto nicht verfügbar</translation>
    </message>
    <message>
        <source>Show each screenshot pixel at one point</source>
        <translation>Jedes Pixel des Bildschirmfotos als einen Punkt zeigen</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Quick Save Checkpoint…</source>
        <translation>Checkpoint schnell sichern …</translation>
    </message>
    <message>
        <source>Recording main display</source>
        <translation>Hauptbildschirm wird aufgenommen</translation>
    </message>
    <message>
        <source>Stop &amp; Save Checkpoint</source>
        <translation>Stoppen &amp; Checkpoint sichern</translation>
    </message>
    <message>
        <source>Open Ardeno</source>
        <translation>Ardeno öffnen</translation>
    </message>
    <message>
        <source>Ardeno keeps running</source>
        <translation>Ardeno läuft weiter</translation>
    </message>
    <message>
        <source>Start Ardeno again to get this window back. To quit, choose Quit in the window’s menu.</source>
        <translation>Starten Sie Ardeno erneut, um dieses Fenster wiederzubekommen. Zum Beenden wählen Sie „Beenden“ im Menü des Fensters.</translation>
    </message>
    <message>
        <source>Close window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>This desktop has no settings for screen access.</source>
        <translation>Dieser Desktop hat keine Einstellungen für den Bildschirmzugriff.</translation>
    </message>
    <message>
        <source>The settings cannot be written.</source>
        <translation>Die Einstellungen lassen sich nicht schreiben.</translation>
    </message>
    <message>
        <source>Saved display</source>
        <translation>Gesicherter Bildschirm</translation>
    </message>
    <message>
        <source>No window positions saved yet. New checkpoints include the position and size of visible windows.</source>
        <translation>Noch keine Fensterpositionen gesichert. Neue Checkpoints enthalten Ort und Größe der sichtbaren Fenster.</translation>
    </message>
    <message>
        <source>Saved windows</source>
        <translation>Gesicherte Fenster</translation>
    </message>
    <message>
        <source>Window positions</source>
        <translation>Fensterpositionen</translation>
    </message>
    <message>
        <source>Update to current positions</source>
        <translation>Aktuelle Positionen übernehmen</translation>
    </message>
    <message>
        <source>Save current positions</source>
        <translation>Aktuelle Positionen sichern</translation>
    </message>
    <message>
        <source>Untitled tab</source>
        <translation>Tab ohne Titel</translation>
    </message>
    <message>
        <source>Saved workspace</source>
        <translation>Gesicherte Arbeitsumgebung</translation>
    </message>
    <message>
        <source>Remove items from this checkpoint, or right-click to exclude them from future captures. Apps and tabs stay open.</source>
        <translation>Entfernen Sie Einträge aus diesem Checkpoint oder schließen Sie sie mit der rechten Maustaste künftig aus. Apps und Tabs bleiben offen.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Widerrufen</translation>
    </message>
    <message>
        <source>Remove %1 from this checkpoint</source>
        <translation>%1 aus diesem Checkpoint entfernen</translation>
    </message>
    <message>
        <source>Remove %1 from checkpoint</source>
        <translation>%1 aus dem Checkpoint entfernen</translation>
    </message>
    <message>
        <source>No apps saved in this checkpoint.</source>
        <translation>Keine Apps in diesem Checkpoint.</translation>
    </message>
    <message>
        <source>Browser tabs</source>
        <translation>Browser-Tabs</translation>
    </message>
    <message>
        <source>Add current tabs</source>
        <translation>Aktuelle Tabs hinzufügen</translation>
    </message>
    <message>
        <source>Saved links are listed here. Adding current tabs does not update the screenshot.</source>
        <translation>Hier stehen die gesicherten Adressen. Aktuelle Tabs hinzuzufügen ändert das Bildschirmfoto nicht.</translation>
    </message>
    <message>
        <source>Remove tab %1 from checkpoint</source>
        <translation>Tab %1 aus dem Checkpoint entfernen</translation>
    </message>
    <message>
        <source>Remove this tab from the checkpoint</source>
        <translation>Diesen Tab aus dem Checkpoint entfernen</translation>
    </message>
    <message>
        <source>No browser tabs in this checkpoint</source>
        <translation>Keine Browser-Tabs in diesem Checkpoint</translation>
    </message>
    <message>
        <source>Excluded from future captures</source>
        <translation>Künftig nicht mehr erfasst</translation>
    </message>
    <message>
        <source>Always exclude %1</source>
        <translation>%1 immer ausschließen</translation>
    </message>
    <message>
        <source>%1 excluded from future captures. This checkpoint is unchanged.</source>
        <translation>%1 wird künftig nicht mehr erfasst. Dieser Checkpoint ist unverändert.</translation>
    </message>
    <message>
        <source>Excluded from future tab captures</source>
        <translation>Künftig nicht mehr unter den Tabs</translation>
    </message>
    <message>
        <source>%1 excluded from future tab lists. Visible pages and this checkpoint’s media are unchanged.</source>
        <translation>%1 fehlt künftig in Tab-Listen. Sichtbare Seiten und die Medien dieses Checkpoints sind unverändert.</translation>
    </message>
    <message>
        <source>Removed %1</source>
        <translation>Entfernt: %1</translation>
    </message>
    <message>
        <source>Save a checkpoint.</source>
        <translation>Checkpoint sichern.</translation>
    </message>
    <message>
        <source>New project name</source>
        <translation>Name des neuen Projekts</translation>
    </message>
    <message>
        <source>Checkpoint title (optional)</source>
        <translation>Titel des Checkpoints (freiwillig)</translation>
    </message>
    <message>
        <source>e.g. Mobile navigation</source>
        <translation>z. B. Mobile Navigation</translation>
    </message>
    <message>
        <source>Your next small step (optional)</source>
        <translation>Ihr nächster kleiner Schritt (freiwillig)</translation>
    </message>
    <message>
        <source>A useful thought for your future self</source>
        <translation>Ein nützlicher Gedanke für später</translation>
    </message>
    <message>
        <source>Record a work session</source>
        <translation>Arbeitssitzung aufnehmen</translation>
    </message>
    <message>
        <source>Record a work session.</source>
        <translation>Arbeitssitzung aufnehmen.</translation>
    </message>
    <message>
        <source>Record your main display while you work. Stop &amp; save checkpoint finishes the video and captures your workspace.</source>
        <translation>Nehmen Sie den Hauptbildschirm während der Arbeit auf. „Stoppen &amp; Checkpoint sichern“ beendet das Video und erfasst Ihre Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>A checkpoint saves your screenshot, open apps, browser tabs and next step together.</source>
        <translation>Ein Checkpoint sichert Bildschirmfoto, offene Apps, Browser-Tabs und nächsten Schritt gemeinsam.</translation>
    </message>
    <message>
        <source>Starting session…</source>
        <translation>Sitzung beginnt …</translation>
    </message>
    <message>
        <source>Saving checkpoint…</source>
        <translation>Checkpoint wird gesichert …</translation>
    </message>
    <message>
        <source>Start session</source>
        <translation>Sitzung beginnen</translation>
    </message>
    <message>
        <source>Open Screen Settings…</source>
        <translation>Bildschirm-Einstellungen …</translation>
    </message>
    <message>
        <source>Capture status: %1</source>
        <translation>Stand der Erfassung: %1</translation>
    </message>
    <message>
        <source>Apps and tabs of the checkpoint</source>
        <translation>Apps und Tabs des Checkpoints</translation>
    </message>
    <message>
        <source>Ready to resume.</source>
        <translation>Bereit zum Fortsetzen.</translation>
    </message>
    <message>
        <source>Preview what this sample would open.</source>
        <translation>Eine Vorschau dessen, was dieses Beispiel öffnen würde.</translation>
    </message>
    <message>
        <source>Only missing items are selected. Already-open apps and pages will not be duplicated.</source>
        <translation>Nur Fehlendes ist ausgewählt. Offene Apps und Seiten werden nicht doppelt geöffnet.</translation>
    </message>
    <message>
        <source>Checking what is open…</source>
        <translation>Es wird geprüft, was offen ist …</translation>
    </message>
    <message>
        <source>Place remaining windows</source>
        <translation>Übrige Fenster anordnen</translation>
    </message>
    <message>
        <source>Check access</source>
        <translation>Zugriff prüfen</translation>
    </message>
    <message>
        <source>Restore window positions</source>
        <translation>Fensterpositionen wiederherstellen</translation>
    </message>
    <message>
        <source>Nothing to open</source>
        <translation>Nichts zu öffnen</translation>
    </message>
    <message>
        <source>A sample opens nothing.</source>
        <translation>Ein Beispiel öffnet nichts.</translation>
    </message>
    <message>
        <source>Development</source>
        <translation>Entwicklung</translation>
    </message>
    <message>
        <source>Allow screen access…</source>
        <translation>Bildschirmzugriff erlauben …</translation>
    </message>
    <message>
        <source>Check again</source>
        <translation>Erneut prüfen</translation>
    </message>
    <message>
        <source>Restart app</source>
        <translation>App neu starten</translation>
    </message>
    <message>
        <source>Screen access is required before saving a checkpoint. Your draft stays here while you enable it.</source>
        <translation>Zum Sichern eines Checkpoints ist der Bildschirmzugriff nötig. Ihr Entwurf bleibt hier, während Sie ihn erlauben.</translation>
    </message>
    <message>
        <source>Screen access setup</source>
        <translation>Bildschirmzugriff einrichten</translation>
    </message>
    <message>
        <source>Process: %1</source>
        <translation>Prozess: %1</translation>
    </message>
    <message>
        <source>Build: %1</source>
        <translation>Build: %1</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Why we need screen access</source>
        <translation>Warum wir Bildschirmzugriff brauchen</translation>
    </message>
    <message>
        <source>To help you pick up where you left off, Save checkpoint takes a screenshot of all connected displays and saves your workspace context locally.</source>
        <translation>Damit Sie weitermachen können, wo Sie aufgehört haben, nimmt „Checkpoint sichern“ ein Foto aller angeschlossenen Bildschirme auf und sichert Ihre Arbeitsumgebung lokal.</translation>
    </message>
    <message>
        <source>Microphone and system audio are off</source>
        <translation>Mikrofon und Systemton sind aus</translation>
    </message>
    <message>
        <source>Will open</source>
        <translation>Wird geöffnet</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Wird geprüft …</translation>
    </message>
    <message>
        <source>Not installed</source>
        <translation>Nicht installiert</translation>
    </message>
    <message>
        <source>Already open</source>
        <translation>Schon offen</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>Duplicate skipped</source>
        <translation>Doppeltes übergangen</translation>
    </message>
    <message>
        <source>Select if missing</source>
        <translation>Wählen, falls es fehlt</translation>
    </message>
    <message>
        <source>APPLICATIONS</source>
        <translation>APPS</translation>
    </message>
    <message>
        <source>BROWSER TABS</source>
        <translation>BROWSER-TABS</translation>
    </message>
    <message>
        <source>Unavailable page</source>
        <translation>Nicht verfügbare Seite</translation>
    </message>
    <message>
        <source>Unavailable URL</source>
        <translation>Nicht verfügbare Adresse</translation>
    </message>
    <message>
        <source>NOT PLACED BY THE LAST RESUME</source>
        <translation>BEIM LETZTEN FORTSETZEN NICHT ANGEORDNET</translation>
    </message>
    <message>
        <source>The screenshot canvas could not be created.</source>
        <translation>Die Fläche für das Bildschirmfoto konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The screenshot could not be encoded.</source>
        <translation>Das Bildschirmfoto konnte nicht kodiert werden.</translation>
    </message>
    <message>
        <source>No display is available to capture.</source>
        <translation>Es gibt keinen Bildschirm, der erfasst werden könnte.</translation>
    </message>
    <message>
        <source>The screenshot could not be created.</source>
        <translation>Das Bildschirmfoto konnte nicht erstellt werden.</translation>
    </message>
    <message>
        <source>No display is available.</source>
        <translation>Es gibt keinen Bildschirm.</translation>
    </message>
    <message>
        <source>window positioning needs permission</source>
        <translation>Anordnen von Fenstern braucht eine Erlaubnis</translation>
    </message>
    <message>
        <source>Workspace restored · </source>
        <translation>Arbeitsumgebung wiederhergestellt · </translation>
    </message>
    <message>
        <source>The screen cannot be recorded.</source>
        <translation>Der Bildschirm lässt sich nicht aufnehmen.</translation>
    </message>
    <message>
        <source>A recording is running already.</source>
        <translation>Es läuft schon eine Aufnahme.</translation>
    </message>
    <message>
        <source>No allowed applications are available to record.</source>
        <translation>Es gibt keine erlaubte App, die aufgenommen werden könnte.</translation>
    </message>
    <message>
        <source>Recording is taking too long to finish. Your checkpoint can still be saved.</source>
        <translation>Die Aufnahme braucht zu lange, um fertig zu werden. Ihr Checkpoint kann trotzdem gesichert werden.</translation>
    </message>
    <message>
        <source>no such window</source>
        <translation>kein solches Fenster</translation>
    </message>
    <message>
        <source>shown in another window</source>
        <translation>in einem anderen Fenster</translation>
    </message>
    <message>
        <source>several with that title</source>
        <translation>mehrere mit diesem Titel</translation>
    </message>
    <message>
        <source>minimised</source>
        <translation>minimiert</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>maximised</source>
        <translation>maximiert</translation>
    </message>
    <message>
        <source>not movable</source>
        <translation>nicht beweglich</translation>
    </message>
    <message>
        <source>application did not answer</source>
        <translation>App antwortete nicht</translation>
    </message>
    <message>
        <source>moved by you</source>
        <translation>von Ihnen bewegt</translation>
    </message>
    <message>
        <source>its virtual desktop is gone</source>
        <translation>seine virtuelle Arbeitsfläche gibt es nicht mehr</translation>
    </message>
    <message>
        <source>you are working in it</source>
        <translation>Sie arbeiten gerade darin</translation>
    </message>
    <message>
        <source>There is no session bus: folders and documents of windows are not found, the desktop’s appearance is not followed, commands do not reach this window, and closing it quits Ardeno.</source>
        <translation>Es gibt keinen Sitzungsbus: Ordner und Dokumente von Fenstern werden nicht gefunden, das Aussehen folgt nicht dem Desktop, Befehle erreichen dieses Fenster nicht, und Schließen beendet Ardeno.</translation>
    </message>
    <message>
        <source>Ardeno — Recording</source>
        <translation>Ardeno – Aufnahme läuft</translation>
    </message>
    <message>
        <source>Continue Here</source>
        <translation>Hier weitermachen</translation>
    </message>
    <message>
        <source>Quick save checkpoint</source>
        <translation>Checkpoint schnell sichern</translation>
    </message>
    <message>
        <source>Next time, start by…</source>
        <translation>Nächstes Mal beginnen mit …</translation>
    </message>
    <message>
        <source>Optional — e.g. Test the navigation on mobile</source>
        <translation>Freiwillig – z. B. Navigation am Telefon testen</translation>
    </message>
    <message>
        <source>More options</source>
        <translation>Weitere Optionen</translation>
    </message>
    <message>
        <source>Saving</source>
        <translation>Wird gesichert</translation>
    </message>
    <message>
        <source>Leave yourself a starting point.</source>
        <translation>Hinterlassen Sie sich einen Anfang.</translation>
    </message>
    <message>
        <source>Checkpoint title (automatic if empty)</source>
        <translation>Titel des Checkpoints (leer: von selbst)</translation>
    </message>
    <message>
        <source>New project…</source>
        <translation>Neues Projekt …</translation>
    </message>
    <message>
        <source>Other users may change the files in “%1”, where your checkpoints are.</source>
        <translation>Andere Benutzer können die Dateien in „%1“ ändern, wo Ihre Checkpoints liegen.</translation>
    </message>
    <message numerus="yes">
        <source>%n checkpoints</source>
        <translation>
            <numerusform>%n Checkpoint</numerusform>
            <numerusform>%n Checkpoints</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n App</numerusform>
            <numerusform>%n Apps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pages</source>
        <translation>
            <numerusform>%n Seite</numerusform>
            <numerusform>%n Seiten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n active</source>
        <translation>
            <numerusform>%n aktiv</numerusform>
            <numerusform>%n aktiv</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n blocked</source>
        <translation>
            <numerusform>%n blockiert</numerusform>
            <numerusform>%n blockiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n saved</source>
        <translation>
            <numerusform>%n gesichert</numerusform>
            <numerusform>%n gesichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n saved windows</source>
        <translation>
            <numerusform>%n gesichertes Fenster zeigen</numerusform>
            <numerusform>%n gesicherte Fenster zeigen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to open</source>
        <translation>
            <numerusform>%n zu öffnen</numerusform>
            <numerusform>%n zu öffnen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unavailable</source>
        <translation>
            <numerusform>%n nicht verfügbar</numerusform>
            <numerusform>%n nicht verfügbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to review</source>
        <translation>
            <numerusform>%n zu prüfen</numerusform>
            <numerusform>%n zu prüfen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n missing items</source>
        <translation>
            <numerusform>%n fehlenden Eintrag öffnen</numerusform>
            <numerusform>%n fehlende Einträge öffnen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n windows were not placed by the last resume.</source>
        <translation>
            <numerusform>%n Fenster wurde beim letzten Fortsetzen nicht angeordnet.</numerusform>
            <numerusform>%n Fenster wurden beim letzten Fortsetzen nicht angeordnet.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Added %n current browser tabs. Your screenshot is unchanged.</source>
        <translation>
            <numerusform>%n aktueller Browser-Tab hinzugefügt. Ihr Bildschirmfoto ist unverändert.</numerusform>
            <numerusform>%n aktuelle Browser-Tabs hinzugefügt. Ihr Bildschirmfoto ist unverändert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saved current positions for %n windows. The screenshot is unchanged.</source>
        <translation>
            <numerusform>Die Position von %n Fenster wurde gesichert. Das Bildschirmfoto ist unverändert.</numerusform>
            <numerusform>Die Positionen von %n Fenstern wurden gesichert. Das Bildschirmfoto ist unverändert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n window positions restored</source>
        <translation>
            <numerusform>%n Fensterposition wiederhergestellt</numerusform>
            <numerusform>%n Fensterpositionen wiederhergestellt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n windows not placed</source>
        <translation>
            <numerusform>%n Fenster nicht platziert</numerusform>
            <numerusform>%n Fenster nicht platziert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n fehlgeschlagen</numerusform>
            <numerusform>%n fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n opened</source>
        <translation>
            <numerusform>%n geöffnet</numerusform>
            <numerusform>%n geöffnet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already active</source>
        <translation>
            <numerusform>%n schon aktiv</numerusform>
            <numerusform>%n schon aktiv</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n documents restored</source>
        <translation>
            <numerusform>%n Dokument wiederhergestellt</numerusform>
            <numerusform>%n Dokumente wiederhergestellt</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose what to reopen</source>
        <translation>Sie wählen, was geöffnet wird</translation>
    </message>
    <message>
        <source>The system lets the program start no more work: %1</source>
        <translation>Das System lässt das Programm keine weitere Arbeit beginnen: %1</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). They have been kept as %2.</source>
        <translation>Ihre Einstellungen konnten nicht gelesen werden (%1). Sie wurden als %2 aufbewahrt.</translation>
    </message>
    <message>
        <source>Your settings could not be read (%1). They are left as they are, and changes to them are not kept.</source>
        <translation>Ihre Einstellungen konnten nicht gelesen werden (%1). Sie bleiben, wie sie sind, und Änderungen an ihnen werden nicht gespeichert.</translation>
    </message>
    <message>
        <source>stopped by you</source>
        <translation>von Ihnen gestoppt</translation>
    </message>
    <message>
        <source>The resume was stopped before it opened anything.</source>
        <translation>Das Fortsetzen wurde gestoppt, bevor etwas geöffnet war.</translation>
    </message>
    <message>
        <source>Stopped. The image was not added.</source>
        <translation>Gestoppt. Das Bild wurde nicht hinzugefügt.</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stoppen</translation>
    </message>
    <message>
        <source>Stop resuming</source>
        <translation>Fortsetzen stoppen</translation>
    </message>
    <message>
        <source>What is open already stays open</source>
        <translation>Was schon offen ist, bleibt offen</translation>
    </message>
    <message>
        <source>Stopping. What has begun still comes to its end.</source>
        <translation>Wird gestoppt. Was begonnen hat, wird noch beendet.</translation>
    </message>
    <message>
        <source>Resuming “%1”. Waiting until what was opened is there.</source>
        <translation>„%1“ wird fortgesetzt. Es wird gewartet, bis das Geöffnete da ist.</translation>
    </message>
    <message>
        <source>Resuming “%1”. Waiting for %2.</source>
        <translation>„%1“ wird fortgesetzt. Gewartet wird auf: %2.</translation>
    </message>
    <message>
        <source>Drop an image here, paste one, or choose a file.</source>
        <translation>Ziehen Sie ein Bild hierher, fügen Sie eines ein oder wählen Sie eine Datei.</translation>
    </message>
    <message>
        <source>Choose a file…</source>
        <translation>Datei wählen …</translation>
    </message>
    <message>
        <source>Adding the image…</source>
        <translation>Bild wird hinzugefügt …</translation>
    </message>
    <message>
        <source>Stop adding the image</source>
        <translation>Hinzufügen des Bildes stoppen</translation>
    </message>
    <message>
        <source>There is a project “%1” already. It is opened.</source>
        <translation>Ein Projekt „%1“ gibt es schon. Es wird geöffnet.</translation>
    </message>
</context>
</TS>
