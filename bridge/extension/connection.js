// The connection to the helper program: made when the worker wakes, made again when it is lost.

import { errorAnswer } from './protocol.js';

const hostName = 'app.brinmoor.bridge';

// Soon at first, for a helper that was replaced by an update. Each pause is shorter than the time
// after which the browser puts an idle worker to sleep. After the last one the next event in the
// browser tries again, so that nothing stays awake for a program that isn't installed.
const pauses = [250, 1000, 5000, 20000, 20000, 20000];

// A connection that lived this long wasn't turned down, so the pauses begin anew.
const settledAfter = 5000;

export class Connection {
    // `greeting` gives the events that open a connection, `answerTo` the answer to a request.
    constructor({ greeting, answerTo }) {
        this.greeting = greeting;
        this.answerTo = answerTo;
        this.port = null;
        this.greeted = false;
        this.attempts = 0;
        this.timer = null;
    }

    wake() {
        if (this.port)
            return;
        clearTimeout(this.timer);
        this.timer = null;
        this.open();
    }

    // Events before the greeting are left out: the greeting tells the present state itself.
    tell(event) {
        if (this.port && this.greeted)
            this.post(this.port, event);
    }

    open() {
        const port = chrome.runtime.connectNative(hostName);
        const openedAt = Date.now();
        this.port = port;
        this.greeted = false;
        port.onMessage.addListener(message => this.receive(port, message));
        port.onDisconnect.addListener(() => {
            // Reading the reason keeps the browser from logging it as unread.
            void chrome.runtime.lastError;
            this.lost(port, Date.now() - openedAt);
        });
        this.greet(port);
    }

    async greet(port) {
        const events = await this.greeting();
        if (this.port !== port)
            return;
        for (const event of events)
            this.post(port, event);
        this.greeted = true;
    }

    async receive(port, message) {
        let answer;
        try {
            answer = await this.answerTo(message);
        } catch (error) {
            answer = errorAnswer(message.id, 'failed');
        }
        this.post(port, answer);
    }

    post(port, message) {
        try {
            port.postMessage(message);
        } catch (error) {
            // The port went meanwhile; whoever asked is told so by the helper's end.
        }
    }

    lost(port, lifetime) {
        if (this.port !== port)
            return;
        this.port = null;
        if (lifetime >= settledAfter)
            this.attempts = 0;
        const pause = pauses[this.attempts];
        this.attempts += 1;
        if (pause !== undefined)
            this.timer = setTimeout(() => this.wake(), pause);
    }
}
