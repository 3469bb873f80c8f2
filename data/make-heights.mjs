// Makes heights.tif: a sketch of the earth's relief from the courses and usual heights of mountain ranges and plateaus, as
// any atlas names them. It is for maps that look like the world, not for measuring.
//
//   node make-heights.mjs [FOLDER]    needs gdal_rasterize and gdal_translate
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

const WIDTH = 1440, HEIGHT = 720;
const here = path.dirname(fileURLToPath(import.meta.url));
const out = path.resolve(process.argv[2] ?? here);

// Height in metres, half width in degrees, and the course as longitude and latitude.
const RANGES = [
    [5000, 3.5, 76, 36, 80, 31.5, 85, 29, 90, 28.5, 96, 29.5], [4700, 5, 80, 34, 86, 33.5, 92, 33.5, 97, 33], [4200, 2.2, 70, 38.5, 74, 38, 76, 36.5],
    [3200, 1.8, 69, 35, 65, 34.5], [3800, 2, 70, 41, 76, 42, 82, 42.5, 88, 43.5, 94, 43], [3600, 2, 78, 36.5, 84, 37, 91, 38, 98, 38.5, 102, 37],
    [2800, 2.2, 99, 30, 100, 26, 101, 24], [2400, 2.2, 86, 49, 92, 50.5, 97, 50, 101, 48], [1600, 3, 100, 47, 108, 48], [2000, 2.5, 97, 53, 104, 52, 110, 55],
    [1500, 3, 114, 57, 122, 56, 130, 55.5], [1700, 2.5, 130, 61, 139, 66, 143, 64], [1400, 2.5, 146, 63, 155, 62, 165, 65, 176, 67], [1300, 1.2, 158, 53, 161, 57, 164, 60],
    [1100, 3, 92, 68, 98, 69, 104, 66], [900, 1.3, 59, 52, 59, 58, 60, 63, 65, 67], [1200, 1.6, 136, 46, 139, 51], [1100, 2, 120, 46, 124, 51], [1600, 0.9, 137, 36, 139, 36.5, 141, 40],
    [1100, 0.8, 128, 37.5, 129, 41, 127, 42], [1000, 2.5, 107, 26, 111, 25, 115, 25.5, 118, 27], [1500, 1.4, 106, 33.5, 110, 33.5], [1300, 2.5, 108, 38, 112, 38, 115, 41],
    [1500, 1.3, 94, 25, 94, 21, 95, 18], [1300, 1.2, 98, 19, 99, 15], [1500, 1, 104, 20, 107, 16, 108, 13], [1300, 0.9, 74, 20, 75, 14, 77, 10], [700, 3, 76, 18, 78, 14], [700, 1.3, 80, 22, 85, 23],
    [2600, 1.8, 46, 35, 50, 32, 54, 29.5], [2400, 1.3, 49, 37, 53, 36.5, 58, 37.5], [1300, 4, 54, 33, 60, 32, 65, 30], [2000, 2, 38, 39.5, 43, 39.5, 46, 38.5], [1300, 2.2, 31, 38.5, 35, 38.5],
    [1800, 0.9, 30, 37, 35, 37], [3300, 1, 40, 43.7, 44, 42.8, 48, 41.3], [2400, 1.3, 43, 17, 44, 14.5], [1300, 2.2, 38, 27, 41, 21], [1000, 4, 43, 24, 46, 23], [1500, 0.7, 56, 24.5, 58.5, 23],
    [3000, 1.1, 6.5, 44.5, 7.5, 46, 10, 46.7, 13, 47], [2100, 0.7, -1.5, 42.8, 2, 42.5], [1300, 0.7, 9, 44.5, 13, 42.5, 16, 39.5], [1400, 0.9, 14.5, 45.5, 18, 43.5, 20, 42], [1500, 1, 20.5, 42, 22, 39.5],
    [1400, 0.7, 20, 49.2, 24, 48.2, 25.5, 46.5, 23, 45.5], [1300, 0.6, 23, 42.7, 26, 42.7], [750, 3, -5, 41.5, -3, 39.5], [1900, 0.6, -4, 37], [1300, 1.5, 7, 60.5, 10, 62, 14, 65, 18, 68.3],
    [800, 0.8, -5, 57, -4, 57], [800, 1, 3, 45], [700, 1.2, 13, 50.5, 17, 50.3], [900, 1.5, -19, 65],
    [2600, 1, -8, 31, -5, 32.5], [1300, 1.1, -3, 34, 3, 35, 8, 35.5], [1900, 1.5, 6, 23.5], [2100, 1.2, 17.5, 20.5], [1500, 1.2, 24, 13.2], [2700, 2.6, 38, 12, 39, 9, 40, 7], [2000, 1.8, 35, 0, 37, -2, 36, -4],
    [2300, 0.9, 29.5, 1, 29, -3], [1400, 2.5, 34, -9, 33, -14], [1200, 4, 25, -12, 30, -15], [1400, 2.5, 15, -13, 17, -20], [1300, 4, 20, -24, 26, -27], [2700, 1, 28.5, -29.5, 28, -31], [1400, 1.2, 20, -32.5],
    [1500, 1.6, 10, 6, 14, 8], [700, 1.6, -11, 10, -8, 8], [1500, 1.2, 47, -18, 47, -22], [700, 4, 18, -8, 22, -9],
    [2100, 2.2, -120, 51, -116, 49, -113, 46], [2900, 2.2, -109, 43, -106, 39.5, -106, 36], [1800, 4, -113, 39, -110, 36, -108, 33], [1700, 3, -118, 41, -115, 39], [2700, 0.8, -120, 39, -118.5, 36.5],
    [1600, 0.9, -121.5, 48.5, -122, 43], [2200, 1.5, -125, 53, -129, 57, -134, 60], [3000, 1.3, -138, 60.5, -144, 61.5, -150, 63], [1500, 2, -128, 61, -132, 64, -136, 66], [1400, 1.4, -144, 68.7, -154, 68, -161, 68.5],
    [1000, 4, -104, 46, -102, 40, -102, 35], [800, 1.1, -84, 35.5, -80, 38.5, -76, 41, -72, 44], [500, 4, -72, 50, -68, 53], [1500, 2, -70, 67, -78, 73, -82, 80], [2200, 1.3, -108, 28, -104, 23],
    [1900, 2.2, -103, 24, -101, 21], [2200, 1.2, -103, 19.5, -97, 18.5], [1700, 1.1, -100, 25, -99, 22], [1700, 1, -92, 15.5, -88, 14.5, -85, 13], [1500, 0.6, -84, 10, -82, 8.7], [1000, 0.5, -72, 19, -76.5, 20],
    [3000, 1.3, -72, 9, -74, 6, -76, 3], [3400, 1.3, -78.5, 0, -78.5, -6, -76, -11, -72, -14], [4300, 2, -71, -15, -68, -18, -67, -22, -68, -26], [3500, 1.1, -69.5, -30, -70, -35], [1900, 1, -71, -39, -72.5, -45, -73, -50],
    [1200, 2, -63, 4.5, -60, 4], [1000, 3.5, -44, -17, -44, -20, -47, -22], [800, 3, -48, -14, -54, -15], [900, 2.2, -51, -26, -50, -28], [500, 3, -42, -8], [600, 3, -70, -44, -69, -48],
    [1100, 1, 149, -36, 151, -31, 151, -28], [600, 1.6, 148, -24, 145, -19], [600, 2.5, 133, -24], [500, 4, 119, -23, 122, -26], [600, 1.5, 139, -32, 138.5, -30], [2500, 1, 137, -4, 142, -5, 147, -7.5], [1700, 0.8, 168, -45, 171, -43],
    [1000, 0.8, 176, -39], [1400, 0.8, 97, 4, 101, -1, 104, -4.5], [1400, 0.5, 107, -7, 112, -8], [1400, 1.4, 114, 1, 116, 4.5], [1400, 0.9, 120.5, -2], [1200, 0.7, 121, 17], [1100, 0.6, 125, 8], [2200, 0.5, 121, 23.5],
    [2900, 8, -42, 66, -40, 71, -40, 77], [1500, 1.2, 16, 78.5], [700, 1, 57, 74], [3200, 14, 80, -80, 120, -78, 40, -79], [2000, 9, -110, -80, -90, -79], [2600, 4, 160, -78, 175, -84], [1700, 1.5, -63, -67]];

/** Random numbers from 0 to 1 that are the same everywhere, at the corners of a grid that closes at the date line. */
function lattice(x, y, columns, seed) {
    let value = (((x % columns) + columns) % columns) * 374761393 + y * 668265263 + seed * 1274126177;
    value = Math.imul(value ^ value >>> 13, 1274126177);
    return ((value ^ value >>> 16) >>> 0) / 2 ** 32;
}

function noise(x, y, columns, seed) {
    const [left, top] = [Math.floor(x), Math.floor(y)];
    const smooth = part => part * part * (3 - 2 * part);
    const [u, v] = [smooth(x - left), smooth(y - top)];
    const at = (dx, dy) => lattice(left + dx, top + dy, columns, seed);
    return (at(0, 0) * (1 - u) + at(1, 0) * u) * (1 - v) + (at(0, 1) * (1 - u) + at(1, 1) * u) * v;
}

/** Crests and valleys, from 0 to 1. */
function crests(longitude, latitude) {
    let [sum, weight] = [0, 0];
    for (let octave = 0; octave < 4; octave++) {
        const perDegree = 0.7 * 2 ** octave;
        const value = 1 - Math.abs(2 * noise((longitude + 180) * perDegree, (latitude + 90) * perDegree, 360 * perDegree, octave) - 1);
        sum += value * value / 1.7 ** octave;
        weight += 1 / 1.7 ** octave;
    }
    return sum / weight;
}

function distanceTo(longitude, latitude, course) {
    const stretch = Math.cos(latitude * Math.PI / 180);
    let nearest = Infinity;
    for (let i = 0; i < course.length; i += 2) {
        const from = i === 0 ? 0 : i - 2;
        const [ax, ay] = [(course[from] - longitude) * stretch, course[from + 1] - latitude];
        const [bx, by] = [(course[i] - longitude) * stretch, course[i + 1] - latitude];
        const square = (bx - ax) ** 2 + (by - ay) ** 2;
        const part = square > 0 ? Math.max(0, Math.min(1, -(ax * (bx - ax) + ay * (by - ay)) / square)) : 0;
        nearest = Math.min(nearest, Math.hypot(ax + (bx - ax) * part, ay + (by - ay) * part));
    }
    return nearest;
}

function heightAt(longitude, latitude) {
    const crest = crests(longitude, latitude);
    let height = 60 + 260 * crest * noise((longitude + 180) / 6, (latitude + 90) / 6, 60, 9);
    for (const [top, width, ...course] of RANGES) {
        if (Math.abs(latitude - course[1]) > 40)
            continue;
        const part = distanceTo(longitude, latitude, course) / width;
        if (part < 2.5)
            height = Math.max(height, top * Math.exp(-part * part) * (0.45 + 0.85 * crest));
    }
    return height;
}

/** From 1 inland to 0 at sea, so that coasts are low. */
function landPart(work) {
    const mask = path.join(work, 'land.tif');
    execFileSync('gdal_rasterize', ['-q', '-burn', '255', '-ot', 'Byte', '-ts', WIDTH, HEIGHT, '-te', '-180', '-90', '180', '90', '-l', 'countries',
        path.join(here, 'countries-50m.json'), mask], { stdio: ['ignore', 'inherit', 'ignore'] });
    const raw = path.join(work, 'land.raw');
    execFileSync('gdal_translate', ['-q', '-of', 'ENVI', mask, raw], { stdio: ['ignore', 'inherit', 'ignore'] });
    let part = Float32Array.from(fs.readFileSync(raw), value => value / 255);
    const land = part;
    for (let pass = 0; pass < 3; pass++)
        part = part.map((_, i) => {
            const [x, y] = [i % WIDTH, Math.floor(i / WIDTH)];
            const at = (dx, dy) => part[Math.max(0, Math.min(HEIGHT - 1, y + dy)) * WIDTH + (x + dx + WIDTH) % WIDTH];
            return (at(0, 0) * 2 + at(-1, 0) + at(1, 0) + at(0, -1) + at(0, 1)) / 6;
        });
    return part.map((value, i) => land[i] > 0 ? Math.max(0.12, 2 * value - 1) : 0);
}

const work = fs.mkdtempSync(path.join(os.tmpdir(), 'heights-'));
const land = landPart(work);
const heights = new Int16Array(WIDTH * HEIGHT);
for (let y = 0; y < HEIGHT; y++)
    for (let x = 0; x < WIDTH; x++)
        if (land[y * WIDTH + x] > 0)
            heights[y * WIDTH + x] = 20 * Math.round(land[y * WIDTH + x] * heightAt((x + 0.5) / 4 - 180, 90 - (y + 0.5) / 4) / 20);
fs.writeFileSync(path.join(work, 'heights.raw'), Buffer.from(heights.buffer));
fs.writeFileSync(path.join(work, 'heights.hdr'), `ENVI\nsamples = ${WIDTH}\nlines = ${HEIGHT}\nbands = 1\ndata type = 2\nbyte order = 0\n`);
execFileSync('gdal_translate', ['-q', '-a_srs', 'EPSG:4326', '-a_ullr', '-180', '90', '180', '-90', '-co', 'COMPRESS=DEFLATE', '-co', 'PREDICTOR=2', '-co', 'ZLEVEL=9',
    path.join(work, 'heights.raw'), path.join(out, 'heights.tif')], { stdio: 'inherit' });
fs.rmSync(work, { recursive: true });
