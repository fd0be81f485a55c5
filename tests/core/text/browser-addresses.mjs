// Writes addresses as a browser's own URL parser serialises them, one a line: http and https,
// without user and password. The same seed gives the same addresses.
//
// usage: node browser-addresses.mjs COUNT [SEED]

const [count, seed] = process.argv.slice(2).map(Number);

let state = BigInt(seed || 1);
function random(end) {
    state = (state * 6364136223846793005n + 1442695040888963407n) & 0xffffffffffffffffn;
    return Number((state >> 33n) % BigInt(end));
}
const pick = (choices) => choices[random(choices.length)];

const hostPieces = ['a', 'example', 'Example', 'www', 'xn--r8jz45g', '例え', 'bücher', 'straße', '-', '_',
    '~', '!', '$', '&', "'", '(', ')', '*', '+', ',', ';', '=', '`', '{', '}', '"', '.', '..', '1', '%41',
    'ａ', '1.2.3.4', '0x7f', 'مثال', '例。え', '👩', 'ﬁ'];
const wholeHosts = ['[::1]', '[2001:db8::1]', '[::ffff:1.2.3.4]', '127.1', '0x7f000001', 'localhost'];

function character() {
    switch (random(5)) {
    case 0: return String.fromCodePoint(random(0x80));
    case 1: return pick([...'[]{}|\\^`"<>#%/?:@&=+;,!$\'()*~. ']);
    case 2: return String.fromCodePoint(0xa0 + random(0x2f00));
    case 3: return String.fromCodePoint(0x1f300 + random(0x300));
    default: return pick([...'abcXYZ019-_', '%41', '%', '%zz', '%4', '..', '\ud800']);
    }
}
function text(longest, without) {
    let result = '';
    for (let left = random(longest); left > 0; --left) {
        result += character();
    }
    return result.replace(without, '');
}
function host() {
    if (random(12) === 0) {
        return pick(wholeHosts);
    }
    let result = '';
    for (let left = 1 + random(4); left > 0; --left) {
        result += pick(hostPieces);
    }
    return result + pick(['', '', '.org', '.例え', '.']);
}
function candidate() {
    let result = pick(['http://', 'https://', 'HTTPS:', 'http:\\\\']) + host();
    result += pick(['', '', ':', ':80', ':443', ':8080', ':65535', ':0']);
    result += '/' + text(12, /[?#]/g);
    result += random(2) ? '?' + text(12, /#/g) : '';
    result += random(2) ? '#' + text(12, /$^/) : '';
    return result;
}

const found = new Set();
while (found.size < count) {
    try {
        const address = new URL(candidate());
        if (/^https?:$/.test(address.protocol) && !address.username && !address.password) {
            found.add(address.href);
        }
    } catch {
        // The parser refused it: no browser will report it.
    }
}
process.stdout.write([...found].join('\n') + '\n');
