<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en" language="en">
<context>
    <name>ardeno</name>
    <message>
        <source>An illustrative checkpoint. Nothing on your Mac has been captured.</source>
        <translation>An illustrative checkpoint. Nothing on this computer has been captured.</translation>
    </message>
    <message>
        <source>⌃⌥⌘S (default)</source>
        <translation>Ctrl+Alt+Super+S (default)</translation>
    </message>
    <message>
        <source>⇧⌘S</source>
        <translation>Shift+Super+S</translation>
    </message>
    <message>
        <source>macOS: </source>
        <translation>Operating system: </translation>
    </message>
    <message>
        <source>Stored on this Mac · no cloud upload</source>
        <translation>Stored on this computer · no cloud upload</translation>
    </message>
    <message>
        <source>Choose an image from your Mac to save with this checkpoint</source>
        <translation>Choose an image from your computer to save with this checkpoint</translation>
    </message>
    <message>
        <source>The saved image could not be found on this Mac.</source>
        <translation>The saved image is missing, or is none that can be shown.</translation>
    </message>
    <message>
        <source>Your screenshots, recordings, browser URLs and notes stay on this Mac and are never uploaded. Delete a checkpoint from its menu to remove its saved media. Files are not additionally encrypted by this app.</source>
        <translation>Your screenshots, recordings, browser URLs and notes stay on this computer and are never uploaded. Delete a checkpoint from its menu to remove its saved media. Files are not additionally encrypted by this app.</translation>
    </message>
    <message>
        <source>The draft includes only your text, app version, build number and macOS version. Screenshots, recordings, notes, browser URLs and saved files are not attached.</source>
        <translation>The draft includes only your text, app version, build number and operating system version. Screenshots, recordings, notes, browser URLs and saved files are not attached.</translation>
    </message>
    <message>
        <source>Screen access needs to be set up before saving. Use Allow screen access once, then finish in System Settings. Your draft is saved.</source>
        <translation>Screen access needs to be set up before saving. Use Allow screen access once, then finish in your system’s settings. Your draft is saved.</translation>
    </message>
    <message>
        <source>Recording your main display. Stop any time from the menu bar.</source>
        <translation>Recording your main display. Stop any time in the window.</translation>
    </message>
    <message>
        <source>Enable Ardeno in Screen Recording settings, then return here. If macOS asks you to quit and reopen, your draft will be waiting.</source>
        <translation>Allow Ardeno to record the screen in your system’s settings, then return here. If you are asked to quit and reopen, your draft will be waiting.</translation>
    </message>
    <message>
        <source>Access is not active for this copy yet. Check Settings, then restart this app if macOS asks. This check does not request permission.</source>
        <translation>Access is not active for this copy yet. Check your system’s settings, then restart this app if you are asked to. This check does not request permission.</translation>
    </message>
    <message>
        <source>Could not restart automatically. Choose Ardeno → Quit in the menu bar, then open the app again. Your draft is saved. </source>
        <translation>Could not restart automatically. Choose Quit in the window’s menu, then open the app again. Your draft is saved. </translation>
    </message>
    <message>
        <source>Resume can optionally move matching windows back. Accessibility access is needed only for moving windows.</source>
        <translation>Resume can optionally move matching windows back.</translation>
    </message>
    <message>
        <source>Add tabs currently open in Brave, Chrome, Safari or Firefox. The saved screenshot is unchanged.</source>
        <translation>Add tabs currently open in Brave, Chrome, Chromium or Firefox. The saved screenshot is unchanged.</translation>
    </message>
    <message>
        <source>Open Brave, Chrome, Safari or Firefox, then choose Add current tabs. Private windows are skipped where the browser exposes them; macOS may ask for browser access.</source>
        <translation>Open Brave, Chrome, Chromium or Firefox, then choose Add current tabs. Private windows are skipped.</translation>
    </message>
    <message>
        <source>Browser pages reopen in their saved browser when available. Documents and projects reopen when macOS exposes a file path. Finder locations are restored when accessible. Unsaved edits and exact in-app positions aren’t restored.</source>
        <translation>Browser pages reopen in their saved browser when available. Documents and projects reopen when their file path is known. Folders are restored when accessible. Unsaved edits and exact in-app positions aren’t restored.</translation>
    </message>
    <message>
        <source>Restore saved windows and Finder locations</source>
        <translation>Restore saved windows and folders</translation>
    </message>
    <message>
        <source>Documents and projects exposed by supported apps, Finder folders/files, Preview documents, plus positions and sizes for matching windows. Full-screen Spaces and ambiguous windows are skipped.</source>
        <translation>Documents and projects exposed by supported apps, folders and files, plus positions and sizes for matching windows. Full-screen and ambiguous windows are skipped.</translation>
    </message>
    <message>
        <source>Allow window positioning…</source>
        <translation>Allow window positioning…</translation>
    </message>
    <message>
        <source>Moving other apps’ windows needs Accessibility access. Opening apps and tabs works without it.</source>
        <translation>Moving other apps’ windows needs your system’s permission. Opening apps and tabs works without it.</translation>
    </message>
    <message>
        <source>macOS asked you to reopen?</source>
        <translation>Your system asked you to reopen?</translation>
    </message>
    <message>
        <source>Apple calls this “bypassing the private window picker” because this app captures the display directly, without asking you to select a window each time.</source>
        <translation>This app captures the displays directly, without asking you to select a window each time.</translation>
    </message>
    <message>
        <source>Apple’s warning mentions audio, but this app doesn’t record it. Captures stay on this Mac. Visible private windows and notifications may be included.</source>
        <translation>This app doesn’t record audio. Captures stay on this computer. Visible private windows and notifications may be included.</translation>
    </message>
    <message>
        <source>Capture could not finish. Your draft is safe. Check Screen Recording settings; if access was just enabled, quit and reopen this app, then try again. </source>
        <translation>Capture could not finish. Your draft is safe; try again. </translation>
    </message>
    <message>
        <source>No supported browser was open. Open Brave, Chrome, Safari, or Firefox, then choose Add current tabs.</source>
        <translation>No supported browser was open. Open Brave, Chrome, Chromium or Firefox, then choose Add current tabs.</translation>
    </message>
    <message>
        <source>%1 tabs weren’t available. Allow its Automation access in System Settings, then try Add current tabs again.</source>
        <translation>%1 tabs weren’t available. Try Add current tabs again.</translation>
    </message>
    <message>
        <source>All screens and workspace saved on this Mac.</source>
        <translation>All screens and workspace saved on this computer.</translation>
    </message>
    <message>
        <source>macOS reopened the existing process.</source>
        <translation>The app that runs was opened again instead of a new one.</translation>
    </message>
    <message>
        <source>The global shortcut could not start. Quick save is still available in the menu bar.</source>
        <translation>The global shortcut could not start. Quick save is still available in the window’s menu.</translation>
    </message>
    <message>
        <source>That shortcut is unavailable. Choose another shortcut or use the menu bar.</source>
        <translation>That shortcut is unavailable. Choose another shortcut or use the window’s menu.</translation>
    </message>
    <message>
        <source>Move Ardeno to Applications</source>
        <translation>Install Ardeno</translation>
    </message>
    <message>
        <source>For the best experience, move this app to your Applications folder before using it. You can continue here for now.</source>
        <translation>For the best experience, install this app before using it. You can continue here for now.</translation>
    </message>
    <message>
        <source>Show Applications Folder</source>
        <translation>Show the Folder</translation>
    </message>
    <message numerus="yes">
        <source>%n Finder locations restored</source>
        <translation>
            <numerusform>%n folder restored</numerusform>
            <numerusform>%n folders restored</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n Preview documents restored</source>
        <translation>
            <numerusform>%n viewer document restored</numerusform>
            <numerusform>%n viewer documents restored</numerusform>
        </translation>
    </message>
</context>
</TS>
