// Lets a test call the browser's own functions: fetches each call from the pretended web and sends
// its result back.

const address = 'http://driver.brinmoor.test/';

async function loadedTab(url) {
    const tabs = await chrome.tabs.query({ status: 'complete' });
    const found = tabs.find(tab => tab.url === url);
    return found ? found.id : null;
}

function called({ function: name, arguments: values }) {
    if (name === 'loadedTab')
        return loadedTab(...values);
    const [space, method] = name.split('.');
    return chrome[space][method](...values);
}

async function resultOf(call) {
    try {
        return JSON.stringify(await called(call)) || 'null';
    } catch (error) {
        return 'error: ' + error.message;
    }
}

async function drive() {
    for (;;) {
        try {
            const answer = await fetch(address + 'next');
            if (answer.status === 200) {
                const call = await answer.json();
                const body = await resultOf(call);
                await fetch(address + 'result/' + call.id, { method: 'POST', body });
            }
        } catch (error) {
            // The test's server is going or not there yet.
            await new Promise(resolve => setTimeout(resolve, 100));
        }
        // Keeps the worker awake between two fetches.
        await chrome.runtime.getPlatformInfo();
    }
}

drive();
