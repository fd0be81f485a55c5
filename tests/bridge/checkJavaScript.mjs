// Parses every script under the given folders and compares the extension's identifier with the one
// that its key stands for. Prints what is wrong and ends with 1 if anything is.

import { createHash } from 'node:crypto';
import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { spawnSync } from 'node:child_process';

const [scripts, bridge] = process.argv.slice(2);
const problems = [];

// The engine of the automation tool speaks no later version than ES2016.
const laterSyntax = [
    [/\.\.\.[^)\]]*\}/, 'object spread'],
    [/\basync\b|\bawait\b/, 'asynchronous functions'],
    [/\?\?|\?\./, 'optional chaining'],
    [/catch\s*\{/, 'catch without a name'],
    [/\.(flat|flatMap|matchAll|replaceAll|padStart|padEnd)\(/, 'later library functions'],
    [/Object\.(entries|values|fromEntries)\(/, 'later library functions'],
];

const filesOf = folder => readdirSync(folder)
    .filter(name => /\.m?js$/.test(name))
    .map(name => join(folder, name));

function check(file, type) {
    const text = readFileSync(file, 'utf8');
    const parsed = spawnSync(process.execPath, [`--input-type=${type}`, '--check'], { input: text });
    if (parsed.status !== 0)
        problems.push(`${file}: ${parsed.stderr}`);
    return text.replace(/\/\/.*$/gm, '');
}

for (const file of [...filesOf(scripts), ...filesOf(join(bridge, 'automation'))]) {
    const text = check(file, file.endsWith('.mjs') ? 'module' : 'commonjs');
    for (const [pattern, name] of laterSyntax)
        if (pattern.test(text))
            problems.push(`${file}: ${name}`);
}

for (const file of filesOf(join(bridge, 'extension'))) {
    const text = check(file, 'module');
    if (/\beval\b|new Function|innerHTML/.test(text))
        problems.push(`${file}: evaluates text`);
}

const manifest = JSON.parse(readFileSync(join(bridge, 'extension', 'manifest.json'), 'utf8'));
const digest = createHash('sha256').update(Buffer.from(manifest.key, 'base64')).digest('hex');
const identifier = Array.from(digest.slice(0, 32), digit =>
    String.fromCharCode('a'.charCodeAt(0) + parseInt(digit, 16))).join('');
const identity = readFileSync(join(bridge, 'ExtensionIdentity.h'), 'utf8');
for (const expected of [`"${identifier}"`, `"chrome-extension://${identifier}/"`])
    if (!identity.includes(expected))
        problems.push(`ExtensionIdentity.h does not name ${expected}`);

for (const problem of problems)
    console.error(problem);
process.exit(problems.length > 0 ? 1 : 0);
