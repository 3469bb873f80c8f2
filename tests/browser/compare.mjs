// Run by scripts/compare-browser, which says what it does.
import { execFileSync, spawnSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { smallStyles } from './cases.mjs';
import { writeData } from './data.mjs';
import { compare, decode } from './png.mjs';

const ALIKE = 0.02;
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
        size: [700, 500], scale: 1 }));
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
    const { part, picture } = compare(decode(fs.readFileSync(one.expected)), decode(fs.readFileSync(one.actual)));
    if (picture)
        fs.writeFileSync(one.difference, picture);
    return { part };
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
        const { part, problem } = verdict(one, options.program);
        const isAlike = part !== undefined && part <= ALIKE;
        alike += isAlike;
        console.log(`${isAlike ? 'alike  ' : 'DIFFERS'}  ${part === undefined ? '      ' : (100 * part).toFixed(2).padStart(6)} %  ` +
            `${one.name}${problem ? `  ${problem}` : ''}`);
    }
    console.log(`${alike} of ${chosen.length} are alike`);
    process.exitCode = chosen.length > 0 && alike >= 0.95 * chosen.length ? 0 : 1;
}

main();
