// Compares what `txmap validate` says of styles with what the public validator says.
//
//   node validate.mjs TXMAP PACKAGES FOLDER: PACKAGES has node_modules, FOLDER is for temporary files.
import { execFileSync, spawnSync } from 'node:child_process';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { smallStyles } from '../browser/cases.mjs';
import { brokenStyles, goodStyles, stricterStyles } from './styles.mjs';

const [program, packages, folder] = process.argv.slice(2).map(one => path.resolve(one));
const tree = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
const require = createRequire(path.join(packages, 'package.json'));
const specification = require('@maplibre/maplibre-gl-style-spec');
let failures = 0;

function fail(name, text) {
    failures++;
    console.log(`${name}\n    ${text}`);
}

/** "layers[0].paint.fill-color[1]" as a pointer. */
const pointerOf = key => key.replace(/\[(\w+)\]/g, '/$1').replace(/\./g, '/').replace(/^\/?/, '/');

/** The places that the public validator complains of. */
function theirPlaces(style) {
    return specification.validateStyleMin(style).map(({ message }) => {
        const colon = message.indexOf(': ');
        const key = message.slice(0, colon);
        return colon >= 0 && !/ /.test(key) ? pointerOf(key) : '/';
    });
}

/** The same of txmap. What is right, but not drawn, does not count. */
function ourPlaces(file) {
    const run = spawnSync(program, ['validate', '--lenient', file], { encoding: 'utf8' });
    const lines = run.stdout.split('\n').filter(line => line && !line.startsWith('warning: '));
    if (run.status !== (lines.length > 0 ? 4 : 0) || (run.stderr !== '') !== (lines.length > 0))
        fail(file, `ended with ${run.status}: ${run.stderr}`);
    return lines.map(line => line.slice(0, line.indexOf(': ')));
}

/**
 * Whether two complaints may be about the same: at the same place, or one at a member of the other's place. The public
 * validator names some members of light, sky, projection and sources without what they are in.
 */
const isNear = (ours, theirs) => [[ours, theirs], [theirs, ours]].some(([a, b]) => a === b || a.startsWith(b === '/' ? b : `${b}/`)) ||
    ours.endsWith(theirs);

function check({ name, style }, isGood) {
    const file = path.join(folder, 'style.json');
    fs.writeFileSync(file, JSON.stringify(style));
    const theirs = theirPlaces(style);
    const ours = ourPlaces(file);
    const list = places => places.length === 0 ? 'nothing' : places.join(' ');
    if ((theirs.length === 0) !== isGood)
        fail(name, `the public validator does not find it ${isGood ? 'good' : 'broken'}: ${list(theirs)}`);
    if ((ours.length === 0) !== (theirs.length === 0) ||
        !theirs.every(one => ours.some(other => isNear(other, one))) || !ours.every(one => theirs.some(other => isNear(one, other))))
        fail(name, `txmap: ${list(ours)}; public validator: ${list(theirs)}`);
    return JSON.stringify(ours.sort()) === JSON.stringify(theirs.sort());
}

fs.mkdirSync(folder, { recursive: true });
const validator = path.join(path.dirname(require.resolve('@maplibre/maplibre-gl-style-spec/package.json')), 'dist/gl-style-validate.mjs');
const own = fs.readdirSync(path.join(tree, 'styles')).filter(name => name.endsWith('.json'));
for (const name of own) {
    const file = path.join(tree, 'styles', name);
    const run = spawnSync(process.execPath, [validator, file], { encoding: 'utf8' });
    if (run.status !== 0 || run.stdout + run.stderr !== '')
        fail(name, `public validator: ${run.stdout}${run.stderr}`);
    if (execFileSync(program, ['validate', file], { encoding: 'utf8' }) !== '')
        fail(name, 'txmap validate has objections');
}
const oneOf = Number(process.env.TX_ONE_OF ?? 1);
const some = styles => styles.filter((_, index) => index % oneOf === 0);
const fine = some([...goodStyles(), ...smallStyles()]);
const broken = some(brokenStyles());
for (const one of fine)
    check(one, true);
const stricter = stricterStyles();
for (const { name, style } of stricter) {
    const file = path.join(folder, 'style.json');
    fs.writeFileSync(file, JSON.stringify(style));
    if (ourPlaces(file).length === 0)
        fail(name, 'txmap finds nothing');
}
let equal = 0;
for (const one of broken)
    equal += check(one, false);
console.log(`${own.length} styles of our own, ${fine.length} good and ${broken.length + stricter.length} broken ones; ` +
    `of ${broken.length} that the public validator refuses, too, every place is the same in ${equal}`);
process.exitCode = failures > 0 || own.length === 0 ? 1 : 0;
