<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en" language="en">
<context>
    <name>ardeno</name>
    <message numerus="yes">
        <source>%n checkpoints</source>
        <translation>
            <numerusform>%n checkpoint</numerusform>
            <numerusform>%n checkpoints</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n apps</numerusform>
            <numerusform>%n apps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pages</source>
        <translation>
            <numerusform>%n page</numerusform>
            <numerusform>%n pages</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n active</source>
        <translation>
            <numerusform>%n active</numerusform>
            <numerusform>%n active</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n blocked</source>
        <translation>
            <numerusform>%n blocked</numerusform>
            <numerusform>%n blocked</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n saved</source>
        <translation>
            <numerusform>%n saved</numerusform>
            <numerusform>%n saved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n saved windows</source>
        <translation>
            <numerusform>Show %n saved window</numerusform>
            <numerusform>Show %n saved windows</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to open</source>
        <translation>
            <numerusform>%n to open</numerusform>
            <numerusform>%n to open</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unavailable</source>
        <translation>
            <numerusform>%n unavailable</numerusform>
            <numerusform>%n unavailable</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n to review</source>
        <translation>
            <numerusform>%n to review</numerusform>
            <numerusform>%n to review</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n missing items</source>
        <translation>
            <numerusform>Open %n missing item</numerusform>
            <numerusform>Open %n missing items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n windows were not placed by the last resume.</source>
        <translation>
            <numerusform>%n window was not placed by the last resume.</numerusform>
            <numerusform>%n windows were not placed by the last resume.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Added %n current browser tabs. Your screenshot is unchanged.</source>
        <translation>
            <numerusform>Added %n current browser tab. Your screenshot is unchanged.</numerusform>
            <numerusform>Added %n current browser tabs. Your screenshot is unchanged.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saved current positions for %n windows. The screenshot is unchanged.</source>
        <translation>
            <numerusform>Saved current positions for %n window. The screenshot is unchanged.</numerusform>
            <numerusform>Saved current positions for %n windows. The screenshot is unchanged.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n window positions restored</source>
        <translation>
            <numerusform>%n window positions restored</numerusform>
            <numerusform>%n window positions restored</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n windows not placed</source>
        <translation>
            <numerusform>%n window not placed</numerusform>
            <numerusform>%n windows not placed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n failed</numerusform>
            <numerusform>%n failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n opened</source>
        <translation>
            <numerusform>%n opened</numerusform>
            <numerusform>%n opened</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n already active</source>
        <translation>
            <numerusform>%n already active</numerusform>
            <numerusform>%n already active</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n documents restored</source>
        <translation>
            <numerusform>%n document restored</numerusform>
            <numerusform>%n documents restored</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n Finder locations restored</source>
        <translation>
            <numerusform>%n Finder location restored</numerusform>
            <numerusform>%n Finder locations restored</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n Preview documents restored</source>
        <translation>
            <numerusform>%n Preview document restored</numerusform>
            <numerusform>%n Preview documents restored</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete “%1” and all %n checkpoints, including their local screenshots and recordings? This cannot be undone.</source>
        <translation>
            <numerusform>Delete “%1” and all %n checkpoints, including their local screenshots and recordings? This cannot be undone.</numerusform>
            <numerusform>Delete “%1” and all %n checkpoints, including their local screenshots and recordings? This cannot be undone.</numerusform>
        </translation>
    </message>
</context>
</TS>
