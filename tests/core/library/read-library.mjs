// Prints what JavaScript's own parser reads in a library file: texts as hexadecimal UTF-8, numbers
// as the hexadecimal bits of their double.

import { readFileSync, writeSync } from "node:fs";

const library = JSON.parse(readFileSync(process.argv[2], "utf8"));
const lines = [];
const text = (value) => lines.push(Buffer.from(value ?? "", "utf8").toString("hex"));
const texts = (values) => {
    lines.push(String(values.length));
    values.forEach(text);
};
const number = (value) => {
    const bits = Buffer.alloc(8);
    bits.writeDoubleBE(value);
    lines.push(bits.toString("hex"));
};

lines.push(String(library.version));
texts(library.collections);
for (const link of library.links) {
    for (const key of ["browser", "collection", "iconURL", "id", "note", "title", "url", "importance"])
        text(link[key]);
    number(link.createdAt);
    texts(link.tags);
    lines.push(`${link.isArchived} ${link.isFavorite}`);
}

const bytes = Buffer.from(lines.join("\n") + "\n");
for (let at = 0; at < bytes.length; )
    at += writeSync(1, bytes, at);
