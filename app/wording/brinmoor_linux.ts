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
        <source> in System Settings → Privacy &amp; Security → Automation, then try again.</source>
        <translation> in Settings → Browser Access, then try again.</translation>
    </message>
    <message>
        <source>Allow Brinmoor in System Settings → Privacy &amp; Security → Automation.</source>
        <translation>Allow Brinmoor in Settings → Browser Access.</translation>
    </message>
    <message>
        <source>Automation</source>
        <translation>browser access</translation>
    </message>
    <message>
        <source>Automation Settings</source>
        <translation>Browser Access Settings</translation>
    </message>
    <message>
        <source>Open Automation Settings ↗</source>
        <translation>Open Browser Access Settings ↗</translation>
    </message>
    <message>
        <source>Copy the page address and use Add link → Paste URL, or open it in Safari or Chrome.</source>
        <translation>Copy the page address and use Add link → Paste URL, or open it in Chromium or Chrome.</translation>
    </message>
    <message>
        <source> yet. Copy the page address and use Add link → Paste URL, or open it in Safari or Chrome.</source>
        <translation> yet. Copy the page address and use Add link → Paste URL, or open it in Chromium or Chrome.</translation>
    </message>
    <message>
        <source>Open a page in Safari or Chrome, then try your shortcut again.</source>
        <translation>Open a page in Chromium or Chrome, then try your shortcut again.</translation>
    </message>
    <message>
        <source>No browser tab found. Open a page in Safari or Chrome, then press your shortcut again. Brinmoor will remember that browser for captures from other apps.</source>
        <translation>No browser tab found. Open a page in Chromium or Chrome, then press your shortcut again. Brinmoor will remember that browser for captures from other apps.</translation>
    </message>
    <message>
        <source>. Check Automation access in Settings, then refresh.</source>
        <translation>. Check browser access in Settings, then refresh.</translation>
    </message>
    <message>
        <source>Couldn’t switch tabs. Check browser Automation access and try again.</source>
        <translation>Couldn’t switch tabs. Check browser access and try again.</translation>
    </message>
    <message>
        <source>Open Safari or a supported Chromium browser to search its tabs.</source>
        <translation>Open a supported Chromium browser to search its tabs.</translation>
    </message>
    <message>
        <source>Check Automation access for </source>
        <translation>Check browser access for </translation>
    </message>
    <message>
        <source>On your Mac</source>
        <translation>On your computer</translation>
    </message>
    <message>
        <source>New: anonymous usage counts help improve Brinmoor. Your links and notes stay on this Mac.</source>
        <translation>New: anonymous usage counts help improve Brinmoor. Your links and notes stay on this computer.</translation>
    </message>
    <message>
        <source>These archived links, notes, and tags will be removed from this Mac. This cannot be undone. Links outside Archive are kept.</source>
        <translation>These archived links, notes, and tags will be removed from this computer. This cannot be undone. Links outside Archive are kept.</translation>
    </message>
    <message>
        <source>Only on your Mac</source>
        <translation>Only on your computer</translation>
    </message>
    <message>
        <source>⌘↵ to save · Esc to cancel</source>
        <translation>Ctrl+↵ to save · Esc to cancel</translation>
    </message>
    <message>
        <source>⌘1–9 to jump directly</source>
        <translation>Ctrl+1–9 to jump directly</translation>
    </message>
    <message>
        <source>⌘%1</source>
        <translation>Ctrl+%1</translation>
    </message>
    <message>
        <source>Brinmoor couldn’t access your login in macOS Keychain. Unlock your keychain and try again.</source>
        <translation>Brinmoor couldn’t access your login in the keyring. Unlock your keyring and try again.</translation>
    </message>
    <message>
        <source>Open the sign-in email on this Mac. Brinmoor will finish signing you in automatically.</source>
        <translation>Open the sign-in email on this computer. Brinmoor will finish signing you in automatically.</translation>
    </message>
    <message>
        <source>Offers Save or Add note after you copy a new web link. Clipboard contents stay on this Mac.</source>
        <translation>Offers Save or Add note after you copy a new web link. Clipboard contents stay on this computer.</translation>
    </message>
    <message>
        <source>Uses titles, websites, and your existing tags. Everything stays on this Mac.</source>
        <translation>Uses titles, websites, and your existing tags. Everything stays on this computer.</translation>
    </message>
    <message>
        <source>Use memorable preset: ⇧⌘K / ⇧⌘N</source>
        <translation>Use memorable preset: Shift+Super+K / Shift+Super+N</translation>
    </message>
    <message>
        <source>Use ⌘, ⌥, or ⌃ + a key</source>
        <translation>Use Super, Alt, or Ctrl + a key</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Show in Files</translation>
    </message>
    <message>
        <source>The details that make a Mac app feel at home</source>
        <translation>The details that make a Linux app feel at home</translation>
    </message>
    <message>
        <source>Links and notes stay on your Mac. Signing out keeps your library available to open and export.</source>
        <translation>Links and notes stay on your computer. Signing out keeps your library available to open and export.</translation>
    </message>
</context>
</TS>
