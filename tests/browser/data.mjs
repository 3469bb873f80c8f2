// The data that the small styles draw, made afresh: shapes in degrees, a sprite, tiles of pictures and of heights, and
// vector tiles of the world.
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';
import { encode } from './png.mjs';

const feature = (type, coordinates, properties) => ({ type: 'Feature', properties, geometry: { type, coordinates } });
const collection = features => ({ type: 'FeatureCollection', features });
const box = (w, s, e, n) => [[w, s], [e, s], [e, n], [w, n], [w, s]];
const circle = (x, y, radius) =>
    Array.from({ length: 41 }, (_, i) => [x + radius * Math.cos(i * Math.PI / 20), y + radius * Math.sin(i * Math.PI / 20)]);

export const areas = collection([
    feature('Polygon', [box(-19, -3, -3, 15), box(-14, 2, -8, 9).reverse()], { n: 1, kind: 'a', c: '#d62728' }),
    feature('Polygon', [[[-7, -16], [17, -12], [9, 5], [2, -6], [-7, -16]]], { n: 2, kind: 'b', c: '#2ca02c' }),
    feature('MultiPolygon', [[circle(11, 9, 6)], [box(-18, -15, -11, -8)]], { n: 3, kind: 'c', c: '#1f77b4' })]);

export const lines = collection([
    feature('LineString', [[-18, 3], [-14, 15], [-9, 3], [-6, 15], [-4, 4], [2, 14], [17, 12]],
        { n: 1, kind: 'a', c: '#d62728' }),
    feature('LineString', [[-18, -4], [-8, -4], [-8, -10], [0, -1], [17, 2]], { n: 2, kind: 'b', c: '#2ca02c' }),
    feature('MultiLineString', [[[-18, -14], [-6, -16], [-2, -10]], circle(9, -10, 6)],
        { n: 3, kind: 'c', c: '#1f77b4' })]);

export const points = collection([-14, 0, 14].flatMap((y, row) => [-14, -0.3, 14].map((x, column) =>
    feature('Point', [x, y * 0.9], { n: row * 3 + column + 1, kind: 'abc'[column], c: ['#d62728', '#2ca02c', '#1f77b4'][row] }))));

// Pictures of a sprite: name, width, height, and the colour of each pixel.
const SPRITE = [
    ['checks', 16, 16, (x, y) => (x < 8) === (y < 8) ? [214, 39, 40, 255] : [250, 220, 130, 255]],
    ['stripes', 16, 8, (x, y) => x < 5 ? [31, 119, 180, 255] : [220, 235, 245, y < 4 ? 255 : 130]],
    ['spots', 20, 20, (x, y) => Math.hypot(x - 9.5, y - 9.5) < 6 ? [44, 160, 44, 255] : [0, 0, 0, 0]],
    ['pin', 14, 20, (x, y) => y < 12 && x + y >= 6 && x - y <= 8 ? [148, 60, 160, 255] : Math.abs(x - 6.5) < 2 ? [40, 40, 60, 255] : [0, 0, 0, 0]],
    ['field', 24, 20, (x, y) => [0, 0, 0, Math.max(0, Math.min(255, 192 + 32 * (5 - Math.max(Math.abs(x - 11.5) - 2, Math.abs(y - 9.5)))))], { sdf: true }],
    ['plate', 16, 16, (x, y) => Math.min(x, y, 15 - x, 15 - y) < 1 ? [120, 60, 20, 255] : Math.min(x, y, 15 - x, 15 - y) < 3 ? [240, 200, 90, 255] : [255, 250, 220, 255],
        { content: [3, 3, 13, 13], stretchX: [[4, 7], [9, 12]], stretchY: [[4, 12]] }]];

function writeSprite(folder, ratio, suffix) {
    const index = {};
    let left = 0;
    const scaled = value => Array.isArray(value) ? value.map(scaled) : typeof value === 'number' ? value * ratio : value;
    for (const [name, width, height, , more = {}] of SPRITE) {
        index[name] = { x: left * ratio, y: 0, width: width * ratio, height: height * ratio, pixelRatio: ratio,
            ...Object.fromEntries(Object.entries(more).map(([member, value]) => [member, scaled(value)])) };
        left += width;
    }
    fs.writeFileSync(path.join(folder, `sprite${suffix}.json`), JSON.stringify(index));
    const pixelAt = (x, y) => {
        let at = x / ratio;
        for (const [, width, height, color] of SPRITE) {
            if (at < width)
                return y / ratio < height ? color(at, y / ratio) : [0, 0, 0, 0];
            at -= width;
        }
        return [0, 0, 0, 0];
    };
    fs.writeFileSync(path.join(folder, `sprite${suffix}.png`), encode(left * ratio, 20 * ratio, pixelAt));
}

/** Square tiles of a world in which pixelAt gets coordinates from 0 to 1. */
function writeTiles(folder, size, zooms, pixelAt) {
    for (const z of zooms)
        for (let x = 0; x < 2 ** z; x++)
            for (let y = 0; y < 2 ** z; y++) {
                const name = path.join(folder, String(z), String(x), `${y}.png`);
                fs.mkdirSync(path.dirname(name), { recursive: true });
                const place = (tile, pixel) => (tile + (pixel + 0.5) / size) / 2 ** z;
                fs.writeFileSync(name, encode(size, size, (u, v) => pixelAt(place(x, u), place(y, v))));
            }
}

function picturePixel(x, y) {
    const wave = Math.sin(x * 150) * Math.cos(y * 130);
    const colors = [[200, 80, 60], [60, 140, 90], [70, 90, 190], [230, 200, 90]];
    const color = colors[(Math.floor(x * 12) + 3 * Math.floor(y * 12)) % 4];
    return [...color.map(value => Math.max(0, Math.min(255, value + 50 * wave))), 255];
}

function heightPixel(x, y) {
    const height = 9000 + 5200 * Math.sin(x * 101) * Math.cos(y * 93) + 2800 * Math.sin((x + y) * 240) * Math.sin(x * 33);
    const value = Math.round((height + 32768) * 256);
    return [value >> 16 & 255, value >> 8 & 255, value & 255, 255];
}

const VECTOR_LAYERS = [['countries', 'countries-50m.json', 'countries'], ['borders', 'countries-50m.json', 'borders'],
    ['lakes', 'lakes-50m.json', ''], ['rivers', 'rivers-50m.json', ''], ['places', 'places-110m.geojson', '']];

function writeVectorTiles(folder, world) {
    const sources = [];
    for (const [name, file, layer] of VECTOR_LAYERS) {
        const copy = path.join(folder, `${name}.gpkg`);
        execFileSync('ogr2ogr', ['-q', '-nln', name, '-overwrite', copy, path.join(world, file), ...(layer ? [layer] : [])],
            { stdio: ['ignore', 'inherit', 'ignore'] });
        sources.push(`<OGRVRTLayer name="${name}"><SrcDataSource>${copy}</SrcDataSource></OGRVRTLayer>`);
    }
    const list = path.join(folder, 'world.vrt');
    fs.writeFileSync(list, `<OGRVRTDataSource>${sources.join('')}</OGRVRTDataSource>`);
    execFileSync('ogr2ogr', ['-q', '-f', 'MVT', path.join(folder, 'world'), list, '-dsco', 'MINZOOM=0', '-dsco', 'MAXZOOM=4',
        '-dsco', 'COMPRESS=YES'], { stdio: ['ignore', 'inherit', 'ignore'] });
}

/** Writes what the styles name into a folder; nothing where it is there already. */
export function writeData(folder, world) {
    const done = path.join(folder, 'complete');
    if (fs.existsSync(done))
        return;
    fs.rmSync(folder, { recursive: true, force: true });
    fs.mkdirSync(folder, { recursive: true });
    writeSprite(folder, 1, '');
    writeSprite(folder, 2, '@2x');
    writeTiles(path.join(folder, 'pictures'), 256, [0, 1, 2, 3], picturePixel);
    writeTiles(path.join(folder, 'heights'), 256, [0, 1, 2, 3], heightPixel);
    fs.writeFileSync(path.join(folder, 'picture.png'), encode(40, 30, (x, y) => picturePixel(x / 40, y / 30)));
    writeVectorTiles(folder, world);
    fs.writeFileSync(done, '');
}
