<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en" language="en">
<context>
    <name>ardeno</name>
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
        <translation>The saved image could not be found on this computer.</translation>
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
</context>
</TS>
