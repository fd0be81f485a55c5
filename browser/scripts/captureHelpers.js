// Safari's tabs have no identifier, so an address stands for its tab only while it is unique.
// One collection read, however many tabs the window has.
function uniqueSafariTabIndex(w, url) {
    const addresses = w.tabs.url();
    const first = addresses.indexOf(url);
    return first >= 0 && first === addresses.lastIndexOf(url) ? first : -1;
}

function positionOfIdentifier(identifiers, wanted) {
    return identifiers.map(String).indexOf(String(wanted));
}

function capturedTabPosition(w, target) {
    if (!target.safari)
        return positionOfIdentifier(w.tabs.id(), target.tabID);
    return uniqueSafariTabIndex(w, target.url) === target.index ? target.index : -1;
}

function closeTabThatStillMatches(app, target) {
    if (!app.running())
        return false;
    const windowPosition = positionOfIdentifier(app.windows.id(), target.windowID);
    if (windowPosition < 0)
        return false;
    const w = app.windows[windowPosition];
    const tabPosition = capturedTabPosition(w, target);
    if (tabPosition < 0)
        return false;
    const tab = w.tabs[tabPosition];
    // The tab may have gone elsewhere since it was found: its address is read once more, right here.
    if (!tab || tab.url() !== target.url)
        return false;
    tab.close();
    return true;
}

// Closes the tab of a capture if it is provably still the same one; false when it isn't.
function closeCapturedTab(app, target) {
    try {
        return closeTabThatStillMatches(app, target);
    } catch (error) {
        // A window or tab that vanished between two of the checks.
        if (error.errorNumber === -1728)
            return false;
        throw error;
    }
}
