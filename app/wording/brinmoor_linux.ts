<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Brinmoor</name>
    <message>
        <source>⌃</source>
        <translation>Ctrl+</translation>
    </message>
    <message>
        <source>⌥</source>
        <translation>Alt+</translation>
    </message>
    <message>
        <source>⇧</source>
        <translation>Shift+</translation>
    </message>
    <message>
        <source>⌘</source>
        <translation>Super+</translation>
    </message>
    <message>
        <source> in macOS Automation settings.</source>
        <translation> in browser access settings.</translation>
    </message>
    <message>
        <source>Open Automation Settings ↗</source>
        <translation>Open Browser Access Settings ↗</translation>
    </message>
</context>
</TS>
