// Makes the town of data/ and its sprite anew, and compares them with the files that are here.
//
//   node generated.mjs FOLDER: FOLDER is for temporary files.
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { decode } from '../browser/png.mjs';

const folder = path.resolve(process.argv[2]);
const tree = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
const MOST_BYTES = 1.5 * 2 ** 20;
// Compressed bytes depend on the version of the library that makes them.
const contentOf = file => file.endsWith('.png') ? JSON.stringify(decode(fs.readFileSync(file)), (_, value) => ArrayBuffer.isView(value) ? [...value] : value)
    : fs.readFileSync(file, 'utf8');
let failures = 0;
let bytes = 0;

for (const home of ['data', 'styles/sprites']) {
    const made = path.join(folder, home);
    fs.rmSync(made, { recursive: true, force: true });
    fs.mkdirSync(made, { recursive: true });
    execFileSync(process.execPath, [path.join(tree, home, 'make-city.mjs'), made]);
    const names = fs.readdirSync(made);
    for (const name of names) {
        const file = path.join(tree, home, name);
        bytes += fs.statSync(file).size;
        if (contentOf(file) === contentOf(path.join(made, name)))
            continue;
        failures++;
        console.log(`${home}/${name} is not what ${home}/make-city.mjs makes`);
    }
    if (names.length !== 4)
        failures++;
}
if (bytes > MOST_BYTES)
    failures++;
console.log(`${bytes} bytes were made`);
process.exitCode = failures > 0 ? 1 : 0;
