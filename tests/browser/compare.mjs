// Run by scripts/compare-browser, which says what it does.
import { execFileSync, spawnSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { smallStyles } from './cases.mjs';
import { writeData } from './data.mjs';
import { compare, decode, encode } from './png.mjs';

// How much may differ, and how many pixels in each direction a blur reaches; the second for what has texts.
const MEASURES = [{ most: 0.02, reach: 1 }, { most: 0.06, reach: 3 }];
const tree = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../..');
const build = path.join(tree, 'build/compare-browser');

function parseArguments([renderer, ...rest]) {
    const options = { renderer: path.resolve(renderer), only: /./, program: path.join(tree, 'build/release/bin/txmap'), styles: [] };
    while (rest.length > 0) {
        const argument = rest.shift();
        if (argument === '--only')
            options.only = new RegExp(rest.shift());
        else if (argument === '--program')
            options.program = path.resolve(rest.shift());
        else
            options.styles.push(path.resolve(argument));
    }
    return options;
}

/** The styles of a file or folder as cases. */
function casesOf(place) {
    const files = fs.statSync(place).isDirectory()
        ? fs.readdirSync(place).filter(name => name.endsWith('.json')).map(name => path.join(place, name)) : [place];
    return files.map(file => ({ name: path.basename(file, '.json'), file, style: JSON.parse(fs.readFileSync(file)),
        size: [700, 500], scale: 1 }))
        .map(one => ({ ...one, hasText: one.style.layers.some(layer => layer.type === 'symbol') }));
}

/** GeoJSON of what only GDAL reads, which browsers do not have. */
function asGeoJson(file, name) {
    const [, from, layer] = /^(.*?)(?:#(.*))?$/.exec(file);
    if (!layer && /\.geojson$/.test(from))
        return JSON.parse(fs.readFileSync(from));
    const copy = path.join(build, `${name}.geojson`);
    fs.rmSync(copy, { force: true });
    execFileSync('ogr2ogr', ['-q', '-f', 'GeoJSON', copy, from, ...(layer ? [layer] : [])],
        { stdio: ['ignore', 'inherit', 'ignore'] });
    return JSON.parse(fs.readFileSync(copy));
}

/** Tiles of heights at zooms 0 to 3 out of a file of them, which browsers do not read. */
function asHeightTiles(file, name) {
    const folder = path.join(build, `${name}-heights`);
    const tile = 256, edge = 20037508.342789244;
    for (const zoom of fs.existsSync(folder) ? [] : [0, 1, 2, 3]) {
        const side = tile * 2 ** zoom;
        const raw = path.join(build, `${name}.raw`);
        execFileSync('gdalwarp', ['-q', '-overwrite', '-of', 'ENVI', '-ot', 'Float32', '-r', 'bilinear', '-t_srs', 'EPSG:3857',
            '-te', -edge, -edge, edge, edge, '-ts', side, side, file, raw], { stdio: ['ignore', 'inherit', 'ignore'] });
        const heights = new Float32Array(Uint8Array.from(fs.readFileSync(raw)).buffer);
        const pixelAt = (x, y) => {
            const value = Math.round((heights[y * side + x] + 32768) * 256);
            return [value >> 16 & 255, value >> 8 & 255, value & 255, 255];
        };
        for (let x = 0; x < side; x += tile)
            for (let y = 0; y < side; y += tile) {
                const place = path.join(folder, `${zoom}/${x / tile}/${y / tile}.png`);
                fs.mkdirSync(path.dirname(place), { recursive: true });
                fs.writeFileSync(place, encode(tile, tile, (u, v) => pixelAt(x + u, y + v)));
            }
    }
    return `local:/${folder}/{z}/{x}/{y}.png`;
}

/** A style whose relative addresses are those of the renderer's server. */
function forBrowser({ name, style, file }) {
    const folder = path.dirname(file);
    const address = value => /^[a-z]+:/.test(value) ? value : `local:/${path.resolve(folder, value)}`;
    const copy = structuredClone(style);
    if (typeof copy.sprite === 'string')
        copy.sprite = address(copy.sprite);
    for (const [id, source] of Object.entries(copy.sources)) {
        if (typeof source.data === 'string')
            source.data = asGeoJson(path.resolve(folder, source.data), `${name}-${id}`);
        if (source.tiles)
            source.tiles = source.tiles.map(address);
        if (source.type === 'raster-dem' && /\.tif$/.test(source.url ?? '')) {
            source.tiles = [asHeightTiles(path.resolve(folder, source.url), `${name}-${id}`)];
            Object.assign(source, { minzoom: 0, maxzoom: 3, tileSize: 256, encoding: 'terrarium' });
            delete source.url;
        }
        if (source.url)
            source.url = address(source.url);
    }
    return copy;
}

function drawInBrowser(cases, renderer) {
    const jobs = cases.map(one => ({ style: forBrowser(one), out: one.expected, width: one.size[0], height: one.size[1],
        ratio: one.scale, root: '/' }));
    const list = path.join(build, 'jobs.json');
    fs.writeFileSync(list, JSON.stringify(jobs));
    const run = spawnSync('node', [path.join(renderer, 'render.mjs'), list],
        { cwd: process.env.BROWSER_PACKAGES ?? renderer, stdio: 'inherit' });
    if (run.status !== 0)
        throw new Error('the renderer failed');
}

function drawHere(one, program) {
    fs.rmSync(one.actual, { force: true });
    const run = spawnSync(program, ['render', one.file, '--output', one.actual, '--size', one.size.join('x'), '--scale',
        String(one.scale)], { encoding: 'utf8' });
    return run.status === 0 ? '' : `txmap: ${(run.stderr ?? String(run.error)).trim().split('\n')[0]}`;
}

/** The part of the pixels that differ, or why there is no such number. */
function verdict(one, program) {
    const problem = drawHere(one, program);
    if (problem || !fs.existsSync(one.expected))
        return { problem: problem || 'no picture of the browser' };
    const { most, reach } = MEASURES[one.hasText ? 1 : 0];
    const { part, picture } = compare(decode(fs.readFileSync(one.expected)), decode(fs.readFileSync(one.actual)), reach);
    if (picture)
        fs.writeFileSync(one.difference, picture);
    return { part, isAlike: part <= most };
}

function main() {
    const options = parseArguments(process.argv.slice(2));
    fs.mkdirSync(build, { recursive: true });
    const places = options.styles.length > 0 ? options.styles : [path.join(tree, 'styles')];
    const cases = places.flatMap(casesOf);
    if (options.styles.length === 0) {
        writeData(path.join(build, 'data'), path.join(tree, 'data'));
        cases.push(...smallStyles());
    }
    const chosen = cases.filter(one => options.only.test(one.name));
    for (const one of chosen) {
        const base = path.join(build, one.name);
        Object.assign(one, { file: one.file ?? `${base}.json`, expected: `${base}-browser.png`, actual: `${base}-txmap.png`,
            difference: `${base}-difference.png` });
        if (one.file === `${base}.json`)
            fs.writeFileSync(one.file, JSON.stringify(one.style, null, 1));
    }
    // Pictures of the browser are kept: they change with its version alone.
    const key = one => JSON.stringify([forBrowser(one), one.size, one.scale]);
    const fresh = one => fs.existsSync(one.expected) && fs.existsSync(`${one.expected}.key`) &&
        fs.readFileSync(`${one.expected}.key`, 'utf8') === key(one);
    const wanted = chosen.filter(one => !fresh(one));
    for (const one of wanted) {
        fs.rmSync(one.expected, { force: true });
        fs.writeFileSync(`${one.expected}.key`, key(one));
    }
    if (wanted.length > 0)
        drawInBrowser(wanted, options.renderer);

    let alike = 0;
    for (const one of chosen) {
        const { part, isAlike = false, problem } = verdict(one, options.program);
        alike += isAlike;
        console.log(`${isAlike ? 'alike  ' : 'DIFFERS'}  ${part === undefined ? '      ' : (100 * part).toFixed(2).padStart(6)} %  ` +
            `${one.name}${problem ? `  ${problem}` : ''}`);
    }
    console.log(`${alike} of ${chosen.length} are alike`);
    process.exitCode = chosen.length > 0 && alike >= 0.95 * chosen.length ? 0 : 1;
}

main();
