// Writes docs/style-support.md, or compares it with what it would write: the properties of the public reference, and which
// of them txmap draws, as `txmap validate` says and the notes of this file explain.
//
//   node support.mjs TXMAP PACKAGES FOLDER [--write]
import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

const [program, packages, folder] = process.argv.slice(2, 5).map(one => path.resolve(one));
const page = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../../docs/style-support.md');
const reference = createRequire(path.join(packages, 'package.json'))('@maplibre/maplibre-gl-style-spec').latest;

// What a "yes" does not say.
const NOTES = {
    'fill-layer-blend': '`color` and `luminosity` are not: surfaces cannot blend like that',
    'line-layer-blend': '`color` and `luminosity` are not: surfaces cannot blend like that',
    'raster-layer-blend': '`color` and `luminosity` are not: surfaces cannot blend like that',
    'line-round-limit': 'changes nothing: what it changes is smaller than a pixel',
    'circle-pitch-scale': 'changes nothing on maps that are seen from above',
    'circle-pitch-alignment': 'changes nothing on maps that are seen from above',
    'raster-fade-duration': 'changes nothing in a picture',
    'hillshade resampling': 'always linear',
    'icon-pitch-alignment': 'changes nothing on maps that are seen from above',
    'text-pitch-alignment': 'changes nothing on maps that are seen from above',
    'symbol-height-offset': 'changes nothing on maps that are seen from above',
    'symbol-height-anchor': 'changes nothing on maps that are seen from above'
};

// Parts of a style that are no properties of layers.
const PARTS = [
    ['center, zoom, bearing', 'yes', 'the view, unless the command line says another one'],
    ['sources', 'yes', 'all types but `video`; see [style-sources.md](style-sources.md)'],
    ['sprite', 'yes', 'for patterns and icons; that with `@2x` for a `--scale` above 1'],
    ['state', 'yes', 'the defaults'],
    ['metadata', 'yes', '`txmap:clip`, `txmap:gradient`, `txmap:hatch`, `txmap:text-engine` and others of layers; see [styles.md](styles.md)'],
    ['glyphs, font-faces', 'no', 'checked; the installed fonts are taken'],
    ['light', 'no', 'checked; it shines on extruded areas only'],
    ['sky', 'no', 'checked; it is above the horizon, which a map from above does not show'],
    ['terrain', 'no', 'needs a third dimension'],
    ['pitch, roll, centerAltitude', 'no', 'need a third dimension; 0 is fine'],
    ['projection', '`mercator`', 'others are not drawn'],
    ['transition', 'no', 'checked; a picture does not move']
];

/** A style with one layer. */
function styleOf(type, layer = {}) {
    const kinds = { raster: { type: 'raster', tiles: ['t'] }, hillshade: { type: 'raster-dem', tiles: ['t'] } };
    kinds['color-relief'] = kinds.hillshade;
    const source = kinds[type] ?? { type: 'geojson', lineMetrics: true, data: { type: 'Point', coordinates: [0, 0] } };
    return { version: 8, sources: { s: source }, layers: [{ id: 'l', type, ...(type !== 'background' && { source: 's' }), ...layer }] };
}

/** A value that a property may have. */
function sampleOf(spec) {
    if (spec.default !== undefined)
        return spec.default;
    if (spec.expression?.parameters.includes('line-progress'))
        return ['interpolate', ['linear'], ['line-progress'], 0, 'red', 1, 'blue'];
    if (spec.expression?.parameters.includes('elevation'))
        return ['interpolate', ['linear'], ['elevation'], 0, 'red', 1, 'blue'];
    if (spec.type === 'array')
        return spec.value === 'enum' ? [Object.keys(spec.values)[0]] : [1, 1];
    return { number: 1, color: '#123456', boolean: true, resolvedImage: 'p', string: 's', enum: Object.keys(spec.values ?? {})[0],
        formatted: 't', variableAnchorOffsetCollection: ['top', [0, 1]] }[spec.type];
}

function validate(style, ...options) {
    const file = path.join(folder, 'support.json');
    fs.writeFileSync(file, JSON.stringify(style));
    return spawnSync(program, ['validate', file, ...options], { encoding: 'utf8' }).stdout.trim();
}

/** Why txmap does not draw layers of a type, in its own words; empty if it does. */
const reasonOf = type => validate(styleOf(type)).replace(/^\/layers\/0: /, '');

/** Whether txmap takes a property, and what there is to say about it. */
function answer(type, group, name, spec, reason) {
    const complaint = validate(styleOf(type, { [group]: { [name]: sampleOf(spec) } }), '--lenient').split('\n')
        .filter(line => line && !line.startsWith('warning: /layers/0: '));
    if (complaint.length > 0)
        return ['no', complaint.join('; ')];
    return reason ? ['no', ''] : ['yes', NOTES[`${type} ${name}`] ?? NOTES[name] ?? ''];
}

function sectionOf(type) {
    const reason = reasonOf(type);
    const rows = ['layout', 'paint'].flatMap(group => Object.entries(reference[`${group}_${type}`])
        .map(([name, spec]) => `| \`${name}\` | ${group} | ${answer(type, group, name, spec, reason).join(' | ')} |`));
    const text = reason ? [`Not drawn: ${reason.replace(/^[\w-]+: /, '')}. The properties are checked.`, ''] : [];
    return [`## ${type}`, '', ...text, '| property | kind | drawn | notes |', '|---|---|---|---|', ...rows, ''];
}

fs.mkdirSync(folder, { recursive: true });
const types = Object.keys(reference.layer.type.values);
types.sort((a, b) => (reasonOf(a) !== '') - (reasonOf(b) !== ''));
const parts = PARTS.map(([names, drawn, notes]) => `| ${names.split(', ').map(name => `\`${name}\``).join(', ')} | ${drawn} | ${notes} |`);
const known = new Set(PARTS.flatMap(([names]) => names.split(', ')));
const missing = Object.keys(reference.$root).filter(name => !known.has(name) && !['version', 'name', 'layers'].includes(name));
const wanted = [
    '# What of a style is drawn', '',
    'The MapLibre Style Specification, version 8, as its reference has it. A test writes this page and compares it with the',
    'program. What is not drawn is checked all the same, and a problem unless `--lenient` says otherwise; see',
    '[styles.md](styles.md).', '', '| part of a style | drawn | notes |', '|---|---|---|', ...parts, '',
    ...types.flatMap(sectionOf)].join('\n').trimEnd() + '\n';

if (missing.length > 0) {
    console.log(`tests/styles/support.mjs says nothing of ${missing.join(' ')}`);
    process.exitCode = 1;
}
if (process.argv.includes('--write'))
    fs.writeFileSync(page, wanted);
else if (!fs.existsSync(page) || fs.readFileSync(page, 'utf8') !== wanted) {
    console.log(`docs/style-support.md is not what tests/styles/support.mjs writes; with --write it does`);
    process.exitCode = 1;
}
