import { fail, failureOfCode, failures, own } from './failures.mjs';

const protocol = 1;
const safariFamily = ['com.apple.Safari', 'com.apple.SafariTechnologyPreview'];

// One browser with all of its profiles, each of which answers through a host of its own.
export class Browser {
    constructor(bridge, id) {
        this.bridge = bridge;
        this.id = id;
        this.safari = safariFamily.includes(id);
        this.hosts = null;
        this.view = null;
        this.viewIsUnread = false;
        this.broughtForward = null;
        this.lastRequest = 0;
    }

    connect() {
        if (!this.hosts)
            this.hosts = this.bridge.connect(this.id);
        if (this.hosts.length === 0)
            fail(this.bridge.running(this.id) ? 'notAuthorized' : 'notRunning');
    }

    ask(host, request, fields) {
        this.viewIsUnread = false;
        const id = ++this.lastRequest;
        const message = Object.assign({ id: id, protocol: protocol, request: request }, fields);
        const text = this.bridge.exchange(host, JSON.stringify(message));
        if (text === '')
            fail(this.bridge.failure());
        return this.resultOf(text, id);
    }

    resultOf(text, id) {
        let answer;
        try {
            answer = JSON.parse(text);
        } catch (error) {
            fail('badAnswer');
        }
        if (answer.protocol !== protocol)
            fail('otherProtocol');
        if (answer.id !== id)
            fail('badAnswer');
        if (answer.error)
            fail(own(failureOfCode, answer.error.code) || 'badAnswer');
        if (!answer.result)
            fail('badAnswer');
        return answer.result;
    }

    // A request that changes something; what was read before it no longer holds.
    act(host, request, fields) {
        this.view = null;
        this.ask(host, request, fields);
    }

    bringForward(host, window) {
        this.act(host, 'focusWindow', { window: window });
        this.broughtForward = { host: host, id: window };
    }

    // The window that was brought forward here, even if another one still has the keyboard by the
    // browser's own account: it may tell a change of focus late.
    front() {
        const view = this.current();
        const wanted = this.broughtForward;
        return view.find(each => wanted && each.host === wanted.host && each.id === wanted.id) ||
            view[0];
    }

    windowsOf(host) {
        const result = this.ask(host, 'windows', {});
        if (!Array.isArray(result.windows) || !result.windows.every(w => Array.isArray(w.tabs)))
            fail('badAnswer');
        return result.windows.map(each => Object.assign(each, { host: host }));
    }

    // A profile that is closed meanwhile takes its host along, which is no failure of the others.
    windowsOfAll() {
        let windows = [];
        for (const host of this.hosts) {
            try {
                windows = windows.concat(this.windowsOf(host));
            } catch (error) {
                if (this.hosts.length === 1 || error.errorNumber !== failures.lost[1])
                    throw error;
                this.hosts = this.hosts.filter(each => each !== host);
            }
        }
        return windows;
    }

    // Front to back over all profiles; the order within one is the extension's.
    read() {
        this.connect();
        this.view = this.windowsOfAll().sort((a, b) =>
            Number(a.minimized) - Number(b.minimized) ||
            Number(b.focused) - Number(a.focused) ||
            b.focusTime - a.focusTime);
        this.viewIsUnread = true;
        return this.view;
    }

    // For the tabs of one window: a view of which nobody has read any tabs and that is the last
    // thing the browser was asked for tells how they are now.
    readTabs() {
        if (!this.viewIsUnread)
            this.read();
        this.viewIsUnread = false;
    }

    current() {
        return this.view || this.read();
    }
}

// Numbers of two browser processes may coincide, so the host's mark belongs to an identifier.
export const identifier = (host, number) => number + '.' + host;
