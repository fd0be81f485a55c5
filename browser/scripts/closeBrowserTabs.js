// Windows are left in their order: only within one does the place decide, the last one first, since
// closing a tab moves those behind it.
function fromLastToFirst(a, b) {
    return String(a.windowID) !== String(b.windowID) ? 0 : b.index - a.index;
}

function tabOfTarget(w, target) {
    if (!target.safari)
        return w.tabs[positionOfIdentifier(w.tabs.id(), target.tabID)];
    const place = Number(target.index) - 1;
    return place >= 0 && place < w.tabs.length ? w.tabs[place] : undefined;
}

function closesUnchangedTab(app, target) {
    const windowPosition = positionOfIdentifier(app.windows.id(), target.windowID);
    if (windowPosition < 0)
        return false;
    const tab = tabOfTarget(app.windows[windowPosition], target);
    if (!tab || String(tab.url() || '') !== String(target.url || ''))
        return false;
    tab.close();
    return true;
}

// Closes the tabs that are still what was read of them, and tells how many that were.
function closeBrowserTabs(app, targets) {
    if (!app.running() || !Array.isArray(targets))
        return 0;
    let closed = 0;
    for (const target of targets.slice().sort(fromLastToFirst)) {
        try {
            if (closesUnchangedTab(app, target))
                closed += 1;
        } catch (error) {
            // A tab that moved, went or is protected stays, and the next one has its turn.
        }
    }
    return closed;
}
