// Puts a stable sort in the place of the engine's own, which isn't one. The scripts close tabs from
// the right to the left by a comparator that leaves the order of the windows as it is, and that is
// only right if equal elements keep their places.
function compareAsText(a, b) {
    const left = String(a);
    const right = String(b);
    return left < right ? -1 : left > right ? 1 : 0;
}

function merge(source, target, start, middle, end, compare) {
    let left = start;
    let right = middle;
    for (let i = start; i < end; ++i) {
        const takeLeft = left < middle &&
            (right >= end || !(compare(source[right], source[left]) < 0));
        target[i] = takeLeft ? source[left++] : source[right++];
    }
}

function mergeSorted(values, compare) {
    let source = values;
    let target = new Array(values.length);
    for (let width = 1; width < values.length; width *= 2) {
        for (let start = 0; start < values.length; start += 2 * width) {
            const middle = Math.min(start + width, values.length);
            const end = Math.min(start + 2 * width, values.length);
            merge(source, target, start, middle, end, compare);
        }
        const sorted = target;
        target = source;
        source = sorted;
    }
    return source;
}

// Undefined values go behind all others without being compared, and holes behind them.
function sort(comparator) {
    if (comparator !== undefined && typeof comparator !== 'function')
        throw new TypeError('The comparator is not a function.');
    const values = [];
    let undefinedCount = 0;
    for (let i = 0; i < this.length; ++i) {
        if (!(i in this))
            continue;
        if (this[i] === undefined)
            undefinedCount += 1;
        else
            values.push(this[i]);
    }
    const sorted = mergeSorted(values, comparator || compareAsText);
    for (let i = 0; i < this.length; ++i) {
        if (i < sorted.length)
            this[i] = sorted[i];
        else if (i < sorted.length + undefinedCount)
            this[i] = undefined;
        else
            delete this[i];
    }
    return this;
}

export function installStableSort() {
    Object.defineProperty(Array.prototype, 'sort', {
        value: sort,
        writable: true,
        enumerable: false,
        configurable: true,
    });
}
