// Styles that others generate: every layer but areas that stand up is accepted and drawn, without a warning but
// for fonts that are not installed.
//
//   node others.mjs TXMAP PACKAGES FOLDER PLUGIN
import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { encode } from '../browser/png.mjs';
import { tileOf } from './tile.mjs';

const [program, packages, folder, plugin] = process.argv.slice(2).map(one => path.resolve(one));
const packageFile = name => import(path.join(packages, 'node_modules', name));
const { osm, satellite } = await packageFile('@versatiles/style/dist/index.js');
const { omt } = await packageFile('@versatiles/style/dist/omt.js');
const { protomaps } = await packageFile('@versatiles/style/dist/protomaps.js');
const basemaps = await packageFile('@protomaps/basemaps/dist/esm/index.js');

const THEMES = ['colorful', 'natural', 'muted', 'gray', 'toner'].flatMap(name => [name, `${name}-dark`]);
const OPTIONS = [{}, { features: { hillshade: true } }, { text: { language: 'de' } }, { layers: 0.5 }, { sun: true },
    { recolor: { invertBrightness: true, rotateHue: 30, gamma: 0.5 } }];

function* generate() {
    for (const theme of THEMES)
        for (const [index, more] of OPTIONS.entries()) {
            const options = { theme, projection: 'mercator', ...more };
            yield [`osm-${theme}-${index}`, osm(options)];
            yield [`omt-${theme}-${index}`, omt(options)];
            yield [`protomaps-${theme}-${index}`, protomaps({ ...options, urls: { protomaps: 'tiles.json' } })];
        }
    yield ['osm-buildings', osm({ projection: 'mercator', features: { buildings: 'extruded', landcover: false } })];
    for (const [index, osmOverlay] of [true, false].entries())
        yield [`satellite-${index}`, satellite({ projection: 'mercator', osmOverlay, features: { hillshade: true },
            raster: { contrast: 0.4, saturation: -0.4, hueRotate: 30, brightnessMax: 0.8, brightnessMin: 0.1, opacity: 0.8 } })];
    for (const flavor of ['light', 'dark', 'white', 'grayscale', 'black'])
        for (const { lang } of basemaps.language_script_pairs)
            yield [`basemaps-${flavor}-${lang}`, { version: 8, sources: { protomaps: { type: 'vector', url: 'tiles.json' } },
                layers: basemaps.layers('protomaps', basemaps.namedFlavor(flavor), { lang }) }];
}

/** The names of attributes, and the texts beside them, in a filter or an expression. */
function collect(value, names, texts) {
    if (!Array.isArray(value))
        return;
    if (['get', 'has', '!has'].includes(value[0]) && typeof value[1] === 'string')
        return names.add(value[1]);
    value.slice(1).forEach((part, index) => {
        if (typeof part === 'string' && !part.startsWith('$'))
            (index === 0 && ['==', '!=', 'in', '!in', '<', '>', '<=', '>='].includes(value[0]) ? names : texts).add(part);
        else
            collect(part, names, texts);
    });
}

/** Takes away what is not drawn, and lets the rest come from files of ours. */
function localised(style) {
    const layers = style.layers.filter(layer => layer.type !== 'fill-extrusion');
    const contents = {};
    for (const layer of layers.filter(one => one['source-layer'])) {
        const { names, texts } = contents[layer['source-layer']] ??= { names: new Set(), texts: new Set() };
        collect(layer.filter, names, texts);
        if (layer.type === 'symbol')
            names.add('name').add('ref');
    }
    const tile = tileOf(Object.fromEntries(Object.entries(contents).map(([layer, { names, texts }]) =>
        [layer, [...texts, 5, 500].map(value => Object.fromEntries([...names].map(name => [name, value])))])));
    const sources = Object.fromEntries(Object.entries(style.sources).map(([name, { type, encoding }]) =>
        [name, { type, tiles: [type === 'vector' ? 'tile.pbf' : 'picture.png'], minzoom: 0, maxzoom: 0, ...(encoding && { encoding }) }]));
    const { sprite, glyphs, ...rest } = style;
    return { style: { ...rest, sources, layers }, tile };
}

let failures = 0;
function run(name, ...args) {
    const { status, stdout, stderr } = spawnSync(program, args, { encoding: 'utf8' });
    const warnings = stderr.split('\n').filter(line => line && !/text-font: ".*" (is|are) not installed$/.test(line));
    if (status !== 0 || warnings.length > 0 || stdout !== '') {
        failures++;
        console.log(`${name}: ${args[0]} ended with ${status}\n${(stdout + stderr).slice(0, 1000)}`);
    }
}

fs.mkdirSync(folder, { recursive: true });
fs.writeFileSync(path.join(folder, 'picture.png'), encode(256, 256, (x, y) => [128, (x + y) / 2, 0, 255]));
const oneOf = Number(process.env.TX_ONE_OF ?? 1);
const seen = new Set();
const drawn = new Set();
let [styles, layers] = [0, 0];
for (const [name, original] of generate()) {
    if (styles++ % oneOf !== 0)
        continue;
    const { style, tile } = localised(original);
    const key = JSON.stringify([style.sources, style.layers]);
    if (seen.has(key))
        continue;
    seen.add(key);
    layers += style.layers.length;
    const file = path.join(folder, 'style.json');
    fs.writeFileSync(file, JSON.stringify(style));
    run(name, 'validate', file);
    // The options of a theme change colours alone, and languages symbols alone.
    const others = JSON.stringify([style.sources, style.layers.filter(layer => layer.type !== 'symbol')]);
    if (/-[1-9]$/.test(name) || drawn.has(others))
        continue;
    drawn.add(others);
    fs.writeFileSync(path.join(folder, 'tile.pbf'), tile);
    const picture = path.join(folder, 'map.png');
    for (const zoom of ['3', '9.5', '15'])
        run(`${name} at zoom ${zoom}`, 'render', file, '-o', picture, '--size', '128x128', '--center', '10,20', '--zoom', zoom, '--plugin', plugin);
}
console.log(`${styles} styles, of which ${seen.size} differ, with ${layers} layers`);
process.exitCode = failures > 0 || styles === 0 ? 1 : 0;
