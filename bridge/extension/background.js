// The extension's worker: everything that may wake it is registered here, in its first turn.

import { Connection } from './connection.js';
import { answerTo, focus, focusedTypes } from './answers.js';
import { FocusOrder } from './focusOrder.js';
import { profileIdentifier } from './profile.js';
import { focusEvent, helloEvent } from './protocol.js';

const focusOrder = new FocusOrder(chrome.storage.session);

const connection = new Connection({
    async greeting() {
        const profile = await profileIdentifier(chrome.storage.local);
        const { focused } = await focus();
        return [
            helloEvent(profile, chrome.runtime.getManifest().version),
            focusEvent(focused),
        ];
    },
    answerTo: request => answerTo(request, focusOrder),
});

const windowTypes = { windowTypes: focusedTypes };

chrome.windows.onFocusChanged.addListener(windowID => {
    const focused = windowID !== chrome.windows.WINDOW_ID_NONE;
    if (focused)
        focusOrder.note(windowID);
    connection.wake();
    connection.tell(focusEvent(focused));
}, windowTypes);

chrome.windows.onRemoved.addListener(windowID => focusOrder.forget(windowID), windowTypes);

// Each of these wakes a sleeping worker, and with it a connection that was lost meanwhile.
for (const event of [
    chrome.runtime.onStartup,
    chrome.runtime.onInstalled,
    chrome.tabs.onActivated,
    chrome.tabs.onCreated,
    chrome.windows.onCreated,
])
    event.addListener(() => connection.wake());

connection.wake();
