// The object model of a running browser: Application(id), its windows and their tabs.
//
// A property is read by calling it, as in `w.activeTabIndex()`, and written by assigning to it. All
// windows with all their tabs come in one answer, the view. README.md tells which reads take a new
// one.

import { Browser, identifier } from './browser.mjs';
import { fail, own } from './failures.mjs';
import { installStableSort } from './stableSort.mjs';

// Makes `Application` known. Gives a function that calls a script's `run` and gives ['value', text] or
// ['failure', message, number].
export function install(bridge) {
    const pageReader = bridge.pageReader();
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
            this.browser.readTabs();
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
            this.browser.bringForward(this.host, this.existing().window);
        }
    }

    class ApplicationObject {
        constructor(id) {
            const browser = new Browser(bridge, id);
            this.id = () => id;
            this.running = () => bridge.running(id);
            this.activate = () => this.bringForward(browser);
            Object.defineProperty(this, 'windows', { get: () => this.windowsOf(browser) });
            if (browser.safari)
                this.doJavaScript = (text, options) => options.in[readText](text);
        }

        // A browser without a window has nothing to bring forward.
        bringForward(browser) {
            const front = browser.front();
            if (front)
                browser.bringForward(front.host, front.id);
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
