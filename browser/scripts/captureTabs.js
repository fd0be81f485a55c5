function closeTargetOf(w, tab, url) {
    const index = parameters.safari ? uniqueSafariTabIndex(w, url) : -1;
    if (parameters.safari && index < 0)
        return null;
    return {
        windowID: String(w.id()),
        index: index,
        tabID: parameters.safari ? null : String(tab.id()),
        url: url,
        safari: parameters.safari,
        browserID: parameters.browserID,
        processID: parameters.processID,
    };
}

function readPage(tab) {
    const reader = parameters.pageReader;
    return JSON.parse(parameters.safari ? application.doJavaScript(reader, { in: tab })
                                        : tab.execute({ javascript: reader }));
}

function readTab(w, tab) {
    const result = {
        url: tab.url() || '',
        title: (parameters.safari ? tab.name() : tab.title()) || '',
        metadata: {},
    };
    if (!/^https?:/i.test(result.url))
        return result;
    if (parameters.prepareClose) {
        try {
            const target = closeTargetOf(w, tab, result.url);
            if (target)
                result.closeTarget = target;
        } catch (error) {
            // A stable identity isn't always to be had; the page is saved without it.
        }
    }
    try {
        const metadata = readPage(tab);
        // The tab may have gone to another page meanwhile, whose title isn't this one's.
        if (metadata.url === result.url)
            result.metadata = metadata;
    } catch (error) {
        // Without the permission to look into the page, the browser's own title has to do.
    }
    return result;
}

function readTabOrNull(w, tab) {
    try {
        return readTab(w, tab);
    } catch (error) {
        return null;
    }
}

function run() {
    // Stands outside every guard: a refused permission has to fail the whole script.
    if (!application.running() || application.windows.length === 0)
        return '[]';
    const w = application.windows[0];
    const front = () => [parameters.safari ? w.currentTab() : w.activeTab()];
    const tabs = parameters.allTabs ? w.tabs() : front();
    return JSON.stringify(tabs.map(tab => readTabOrNull(w, tab)).filter(entry => entry !== null));
}
