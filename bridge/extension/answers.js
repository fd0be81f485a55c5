// The closed list of requests. Nothing that is sent here is ever evaluated: a request names what is
// to be done, and what is run inside a page is a file of this extension.

import { RequestError, errorAnswer, protocolVersion, resultAnswer } from './protocol.js';

const shownTypes = ['normal', 'popup'];

// Popups and developer tools belong to the browser's front as much as its ordinary windows do.
export const focusedTypes = ['normal', 'popup', 'devtools'];

// A page whose thread is stuck, or that shows a dialog, answers nothing at all.
const readerLimit = 5000;

// The new tab page goes by an address of its own under a search engine that brings none, as Debian's
// Chromium does; it's the same empty tab.
const newTab = 'chrome://newtab/';
const newTabOfSearchEngine = 'chrome://new-tab-page-third-party/';
const address = url => url === newTabOfSearchEngine ? newTab : url;

// A tab that is only beginning to load its first page has no other address yet.
const addressOf = tab => address(tab.url || tab.pendingUrl || '');

const describedTab = tab => ({
    id: tab.id,
    window: tab.windowId,
    index: tab.index,
    active: tab.active,
    url: addressOf(tab),
    title: tab.title || '',
});

const orGone = promise => promise.catch(() => {
    throw new RequestError('gone');
});

const existingTab = id => orGone(chrome.tabs.get(id));
const existingWindow = id => orGone(chrome.windows.get(id));

function expiring(promise, milliseconds) {
    let timer;
    const limit = new Promise((resolve, reject) => {
        timer = setTimeout(() => reject(new RequestError('unreadable')), milliseconds);
    });
    return Promise.race([promise, limit]).finally(() => clearTimeout(timer));
}

async function windows(request, focusOrder) {
    await focusOrder.loaded;
    const all = await chrome.windows.getAll({ populate: true, windowTypes: shownTypes });
    return {
        windows: focusOrder.sorted(all).map(each => ({
            id: each.id,
            focused: each.focused,
            focusTime: focusOrder.timeOf(each.id),
            minimized: each.state === 'minimized',
            tabs: each.tabs.map(describedTab),
        })),
    };
}

// Asked for, since the browser doesn't always tell when the focus goes to another program.
export async function focus() {
    const front = await chrome.windows.getLastFocused({ windowTypes: focusedTypes })
        .catch(() => null);
    return { focused: Boolean(front && front.focused) };
}

async function tab(request) {
    return { tab: describedTab(await existingTab(request.tab)) };
}

async function readPage(request) {
    const { discarded, frozen } = await existingTab(request.tab);
    // There is no page to read in a tab that the browser unloaded, and a frozen one answers only
    // after the user has come back to it.
    if (discarded || frozen)
        throw new RequestError('unreadable');
    const injected = chrome.scripting.executeScript({
        target: { tabId: request.tab },
        files: ['pageReader.js'],
        // What is there already is read, rather than waiting for all that a page still loads.
        injectImmediately: true,
    });
    const [frame] = await expiring(injected, readerLimit).catch(() => {
        throw new RequestError('unreadable');
    });
    if (!frame || typeof frame.result !== 'string')
        throw new RequestError('unreadable');
    return { text: frame.result };
}

async function closeTab(request) {
    const found = await existingTab(request.tab);
    const leaving = found.pendingUrl && address(found.pendingUrl) !== request.url;
    if (addressOf(found) !== request.url || leaving)
        throw new RequestError('changed');
    await orGone(chrome.tabs.remove(request.tab));
    return {};
}

async function selectTab(request) {
    const found = await existingTab(request.tab);
    if (found.windowId !== request.window)
        throw new RequestError('gone');
    await orGone(chrome.tabs.update(request.tab, { active: true }));
    return {};
}

async function focusWindow(request, focusOrder) {
    await existingWindow(request.window);
    await orGone(chrome.windows.update(request.window, { focused: true }));
    focusOrder.note(request.window);
    return {};
}

async function unminimizeWindow(request) {
    const found = await existingWindow(request.window);
    if (found.state === 'minimized')
        await orGone(chrome.windows.update(request.window, { state: 'normal' }));
    return {};
}

const isNumber = Number.isSafeInteger;
const isText = value => typeof value === 'string';

const requests = new Map([
    ['windows', { perform: windows, fields: {} }],
    ['focus', { perform: focus, fields: {} }],
    ['tab', { perform: tab, fields: { tab: isNumber } }],
    ['readPage', { perform: readPage, fields: { tab: isNumber } }],
    ['closeTab', { perform: closeTab, fields: { tab: isNumber, url: isText } }],
    ['selectTab', { perform: selectTab, fields: { tab: isNumber, window: isNumber } }],
    ['focusWindow', { perform: focusWindow, fields: { window: isNumber } }],
    ['unminimizeWindow', { perform: unminimizeWindow, fields: { window: isNumber } }],
]);

const envelope = ['id', 'protocol', 'request'];

function isWellFormed(request, fields) {
    const expected = envelope.concat(Object.keys(fields));
    return Object.keys(request).every(key => expected.includes(key)) &&
        Object.entries(fields).every(([key, fits]) => fits(request[key]));
}

export async function answerTo(request, focusOrder) {
    if (request.protocol !== protocolVersion)
        return errorAnswer(request.id, 'protocol');
    const known = requests.get(request.request);
    if (!known)
        return errorAnswer(request.id, 'unknown');
    if (!isWellFormed(request, known.fields))
        return errorAnswer(request.id, 'malformed');
    try {
        return resultAnswer(request.id, await known.perform(request, focusOrder));
    } catch (error) {
        return errorAnswer(request.id, error instanceof RequestError ? error.code : 'failed');
    }
}
