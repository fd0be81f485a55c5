// The object model of a running browser: Application(id), its windows and their tabs.
//
// A property is read by calling it, as in `w.activeTabIndex()`, and written by assigning to it. All
// windows with all their tabs come in one answer, the view. README.md tells which reads take a new
// one. The words of a failure hold nothing that comes from outside: whoever reads them looks for
// the number of a refusal, and a title or an identifier might contain it by chance.
import { installStableSort } from './stableSort.mjs';

// Makes `Application` known. Gives a function that calls a script's `run` and gives ['value', text] or
// ['failure', message, number].
export function install(bridge) {
    const protocol = 1;
    const pageReader = bridge.pageReader();
    const safariFamily = ['com.apple.Safari', 'com.apple.SafariTechnologyPreview'];
    const failures = {
        vanished: ['Can’t get object.', -1728],
        notRunning: ['Application isn’t running.', -600],
        notAuthorized: ['Brinmoor is not authorized to read this browser.', -1743],
        silent: ['The browser did not answer in time.', -1712],
        lost: ['The connection to the browser was lost.', -609],
        otherProtocol: ['The browser’s extension and Brinmoor differ in version.', -10000],
        badAnswer: ['The browser gave an answer that can’t be read.', -10000],
        unreadable: ['This page can’t be read.', -10000],
        otherText: ['Only the page reader can be run in a page.', -10000],
        readOnly: ['This value can’t be set.', -10006],
    };
    const failureOfCode = { gone: 'vanished', changed: 'vanished', protocol: 'otherProtocol',
                            unreadable: 'unreadable' };

    function fail(kind) {
        const [message, number] = failures[kind];
        const error = new Error(message);
        error.errorNumber = number;
        throw error;
    }

    // Only the properties that an answer really has count, never what every object inherits.
    const own = (object, key) =>
        Object.prototype.hasOwnProperty.call(object, key) ? object[key] : undefined;

    // One browser with all of its profiles, each of which answers through a host of its own.
    class Browser {
        constructor(id) {
            this.id = id;
            this.safari = safariFamily.includes(id);
            this.hosts = null;
            this.view = null;
            this.lastRequest = 0;
        }

        connect() {
            if (!this.hosts)
                this.hosts = bridge.connect(this.id);
            if (this.hosts.length === 0)
                fail(bridge.running(this.id) ? 'notAuthorized' : 'notRunning');
        }

        ask(host, request, fields) {
            const id = ++this.lastRequest;
            const message = Object.assign({ id: id, protocol: protocol, request: request }, fields);
            const text = bridge.exchange(host, JSON.stringify(message));
            if (text === '')
                fail(bridge.failure());
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
            return this.view;
        }

        current() {
            return this.view || this.read();
        }
    }

    // Numbers of two browser processes may coincide, so the host's mark belongs to an identifier.
    const identifier = (host, number) => number + '.' + host;

    // A list that can be called, counted, indexed, and asked for one property of all its elements.
    function collection(list, at, length, properties) {
        const call = () => list();
        return new Proxy(call, {
            get(target, key) {
                if (key === 'length')
                    return length();
                if (typeof key === 'string' && /^\d+$/.test(key))
                    return at(Number(key));
                return own(properties, key) || target[key];
            },
        });
    }

    // An object of the browser that can be called, for the object, or used as it stands.
    const reference = object => new Proxy(() => object, { get: (target, key) => object[key] });

    const readText = Symbol('readText');
    const select = Symbol('select');

    class Tab {
        // `listed` is the tab's record in a view; without it every read asks the browser.
        constructor(browser, host, number, listed) {
            this.browser = browser;
            this.host = host;
            this.number = number;
            this.listed = listed;
            this.address = listed ? listed.url : undefined;
            const title = browser.safari ? 'name' : 'title';
            this[title] = () => this.record().title;
            if (!browser.safari) {
                this.id = () => identifier(host, number);
                this.execute = options => this[readText](options && options.javascript);
            }
        }

        // What tells the extension which tab is meant; there was none at a place beyond the last.
        existing(more) {
            if (this.number === undefined)
                fail('vanished');
            return Object.assign({ tab: this.number }, more);
        }

        record() {
            return this.listed ||
                this.browser.ask(this.host, 'tab', this.existing()).tab || fail('badAnswer');
        }

        url() {
            this.address = this.record().url;
            return this.address;
        }

        index() {
            return this.record().index + 1;
        }

        // The extension compares the address once more, so that a tab that went elsewhere after it
        // was read here stays open.
        close() {
            const address = this.address === undefined ? this.url() : this.address;
            this.browser.act(this.host, 'closeTab', this.existing({ url: address }));
        }

        [select](window) {
            this.browser.act(this.host, 'selectTab', this.existing({ window: window }));
        }

        [readText](text) {
            if (text !== pageReader)
                fail('otherText');
            return this.browser.ask(this.host, 'readPage', this.existing()).text;
        }
    }

    class Window {
        constructor(browser, host, number) {
            this.browser = browser;
            this.host = host;
            this.number = number;
        }

        existing() {
            if (this.number === undefined)
                fail('vanished');
            return { window: this.number };
        }

        position() {
            const found = this.browser.current().findIndex(each =>
                each.host === this.host && each.id === this.number);
            return found < 0 ? fail('vanished') : found;
        }

        record() {
            return this.browser.current()[this.position()];
        }

        freshRecord() {
            this.browser.read();
            return this.record();
        }

        id() {
            this.position();
            return identifier(this.host, this.number);
        }

        listedTabs() {
            return this.record().tabs.map(tab => new Tab(this.browser, this.host, tab.id, tab));
        }

        get tabs() {
            const all = read => () => this.freshRecord().tabs.map(read);
            const at = i => new Tab(this.browser, this.host, (this.record().tabs[i] || {}).id);
            const title = all(tab => tab.title);
            const chromium = { id: all(tab => identifier(this.host, tab.id)), title: title };
            return collection(() => this.listedTabs(), at, () => this.record().tabs.length,
                Object.assign({ url: all(tab => tab.url) },
                    this.browser.safari ? { name: title } : chromium));
        }

        activePosition() {
            const found = this.record().tabs.findIndex(tab => tab.active);
            return found < 0 ? fail('vanished') : found;
        }

        get activeTab() {
            return reference(this.listedTabs()[this.activePosition()]);
        }

        set activeTab(tab) {
            tab[select](this.number);
        }

        get currentTab() {
            return this.activeTab;
        }

        set currentTab(tab) {
            this.activeTab = tab;
        }

        get activeTabIndex() {
            return () => this.activePosition() + 1;
        }

        set activeTabIndex(index) {
            const tab = this.listedTabs()[index - 1] || fail('vanished');
            tab[select](this.number);
        }

        get minimized() {
            return () => this.record().minimized;
        }

        set minimized(value) {
            if (value)
                fail('readOnly');
            this.browser.act(this.host, 'unminimizeWindow', this.existing());
        }

        get miniaturized() {
            return this.minimized;
        }

        set miniaturized(value) {
            this.minimized = value;
        }

        get index() {
            return () => this.position() + 1;
        }

        set index(place) {
            if (place !== 1)
                fail('readOnly');
            this.browser.act(this.host, 'focusWindow', this.existing());
        }
    }

    class ApplicationObject {
        constructor(id) {
            const browser = new Browser(id);
            this.id = () => id;
            this.running = () => bridge.running(id);
            this.activate = () => this.bringForward(browser);
            Object.defineProperty(this, 'windows', { get: () => this.windowsOf(browser) });
            if (browser.safari)
                this.doJavaScript = (text, options) => options.in[readText](text);
        }

        // A browser without a window has nothing to bring forward.
        bringForward(browser) {
            const front = browser.current()[0];
            if (front)
                browser.act(front.host, 'focusWindow', { window: front.id });
        }

        windowsOf(browser) {
            const made = each => new Window(browser, each.host, each.id);
            return collection(() => browser.read().map(made),
                i => made(browser.current()[i] || {}),
                () => browser.current().length,
                { id: () => browser.read().map(each => identifier(each.host, each.id)) });
        }
    }

    function described(value) {
        if (typeof value === 'string')
            return ['value', value + '\n'];
        const text = value === undefined || value === null ? undefined : JSON.stringify(value);
        return ['value', text === undefined ? '' : text + '\n'];
    }

    function describedFailure(error) {
        const isObject = error !== null && typeof error === 'object';
        const number = isObject && error.errorNumber;
        return ['failure', String(isObject && error.message !== undefined ? error.message : error),
                typeof number === 'number' ? number : -2700];
    }

    installStableSort();
    Object.defineProperty(bridge.global(), 'Application', {
        value: id => new ApplicationObject(String(id)),
        writable: true,
        configurable: true,
    });

    return function (run) {
        try {
            return described(run());
        } catch (error) {
            return describedFailure(error);
        }
    };
}
