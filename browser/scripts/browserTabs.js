// Calls `read` for every tab of every window, front to back, with what `describe` gives for the
// window. A tab that is closed meanwhile is left out; every other failure, a refused permission
// above all, fails the whole reading and isn't taken for an empty browser.
function collectTabs(app, describe, read) {
    const records = [];
    if (!app.running())
        return records;
    app.windows().forEach((w, windowOffset) => {
        const described = describe(w, windowOffset);
        w.tabs().forEach((tab, i) => {
            try {
                const record = read(tab, i, described);
                if (record)
                    records.push(record);
            } catch (error) {
                if (error.errorNumber !== -1728)
                    throw error;
            }
        });
    });
    return records;
}

// Safari's tabs have no identifier.
const tabIdentifier = (tab, browser) => browser.safari ? '' : String(tab.id());
const tabTitle = (tab, browser) => browser.safari ? tab.name() : tab.title();

// The web pages of a browser, for the search of open tabs.
function readBrowserTabs(app, browser) {
    return collectTabs(app, w => String(w.id()), (tab, i, windowID) => {
        const url = tab.url() || '';
        if (!/^https?:/i.test(url))
            return null;
        return {
            browserID: browser.id,
            browserName: browser.name,
            windowID: windowID,
            tabID: tabIdentifier(tab, browser),
            index: i + 1,
            title: tabTitle(tab, browser) || url,
            url: url,
        };
    });
}

const emptyTabAddresses = [
    '', 'about:blank', 'about:newtab', 'chrome://newtab', 'chrome://new-tab-page', 'edge://newtab',
    'brave://newtab', 'vivaldi://newtab', 'opera://startpage', 'favorites:/', 'safari://favorites',
    'arc://new-tab',
];

function isKnownEmptyBrowserTab(url) {
    return emptyTabAddresses.includes(String(url || '').toLowerCase().replace(/\/$/, ''));
}

function selectedPosition(w, browser) {
    try {
        return Number(browser.safari ? w.currentTab.index() : w.activeTabIndex());
    } catch (error) {
        return -1;
    }
}

function cleanupTitle(tab, browser, url) {
    try {
        const title = tabTitle(tab, browser);
        if (title)
            return title;
    } catch (error) {
        // The address does as well.
    }
    return url || 'Empty tab';
}

// All tabs of a browser, empty ones and its own pages among them, for the cleanup.
function readBrowserTabsForCleanup(app, browser) {
    const describe = (w, windowOffset) => ({
        id: String(w.id()),
        place: windowOffset + 1,
        selected: selectedPosition(w, browser),
    });
    return collectTabs(app, describe, (tab, i, w) => {
        const url = tab.url() || '';
        return {
            browserID: browser.id,
            browserName: browser.name,
            windowID: w.id,
            windowIndex: w.place,
            tabID: tabIdentifier(tab, browser),
            index: i + 1,
            title: cleanupTitle(tab, browser, url),
            url: url,
            isActive: w.selected === i + 1,
            isEmpty: isKnownEmptyBrowserTab(url),
        };
    });
}

// The tab's present position among its window's, from 0; -1 when it is gone or went elsewhere. A
// Safari tab that moved is known by its address, and of twins the first will do: being shown the
// other one costs nothing.
function positionToActivate(tabs, target) {
    const showsAddress = tab => tab.url() === target.url;
    if (!target.safari)
        return tabs.findIndex(tab => String(tab.id()) === target.tabID && showsAddress(tab));
    const place = target.index - 1;
    return tabs[place] && showsAddress(tabs[place]) ? place : tabs.findIndex(showsAddress);
}

// Brings a tab to the front of the screen; false when it isn't to be found any more.
function activateBrowserTab(app, target) {
    if (!app.running())
        return false;
    const w = app.windows().find(each => String(each.id()) === target.windowID);
    if (!w)
        return false;
    const tabs = w.tabs();
    const position = positionToActivate(tabs, target);
    if (position < 0)
        return false;
    if (target.safari)
        w.currentTab = tabs[position];
    else
        w.activeTabIndex = position + 1;
    try {
        w.minimized = false;
    } catch (error) {
        // Some windows can't be minimised at all.
    }
    w.index = 1;
    app.activate();
    return true;
}
