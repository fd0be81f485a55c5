// When each window last had the focus. The browser doesn't tell the order of its windows, so the
// extension keeps it, and keeps it through the sleep of its worker.

export class FocusOrder {
    constructor(storage) {
        this.storage = storage;
        this.times = new Map();
        this.latest = 0;
        this.loaded = this.load();
    }

    async load() {
        const { focusTimes } = await this.storage.get('focusTimes');
        for (const [windowID, time] of focusTimes || []) {
            this.latest = Math.max(this.latest, time);
            // What happened while the storage was read is newer than what it holds.
            if (!this.times.has(windowID))
                this.times.set(windowID, time);
        }
    }

    note(windowID) {
        this.latest = Math.max(Date.now(), this.latest + 1);
        this.times.set(windowID, this.latest);
        return this.save();
    }

    forget(windowID) {
        this.times.delete(windowID);
        return this.save();
    }

    async save() {
        await this.loaded;
        await this.storage.set({ focusTimes: Array.from(this.times) });
    }

    // 0 for a window that had the focus before the extension was there, if ever.
    timeOf(windowID) {
        return this.times.get(windowID) || 0;
    }

    // Front to back: what can be seen before what is minimised, then by the last focus. Of windows
    // that never had it the newer is taken to be in front.
    sorted(windows) {
        const rank = each => [
            each.state === 'minimized' ? 0 : 1,
            each.focused ? 1 : 0,
            this.timeOf(each.id),
            each.id,
        ];
        return Array.from(windows).sort((a, b) => {
            const left = rank(a);
            const right = rank(b);
            const different = left.findIndex((value, i) => value !== right[i]);
            return different < 0 ? 0 : right[different] - left[different];
        });
    }
}
