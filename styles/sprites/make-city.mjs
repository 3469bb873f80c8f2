// Draws the sprite of ../city.json: city.png and .json, and both once more twice as dense.
//
//   node make-city.mjs [FOLDER]
//
// A picture is a list of shapes in logical pixels, [colour, inside], where inside(x, y) is whether a point lies in it. Each
// pixel is the mean of 64 points.
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import zlib from 'node:zlib';

const out = path.resolve(process.argv[2] ?? path.dirname(fileURLToPath(import.meta.url)));
const SAMPLES = 8;

// ---- Shapes

const disc = (x, y, radius) => (px, py) => Math.hypot(px - x, py - y) <= radius;
const box = (left, top, right, bottom, radius = 0) => (x, y) => {
    const dx = Math.max(left + radius - x, x - right + radius, 0), dy = Math.max(top + radius - y, y - bottom + radius, 0);
    return x >= left && x <= right && y >= top && y <= bottom && Math.hypot(dx, dy) <= Math.max(radius, 1e-9);
};
const polygon = (...corners) => (x, y) => {
    let inside = false;
    corners.forEach(([ax, ay], i) => {
        const [bx, by] = corners[(i + 1) % corners.length];
        if (ay > y !== by > y && x < (bx - ax) * (y - ay) / (by - ay) + ax)
            inside = !inside;
    });
    return inside;
};
const stroke = (width, ...points) => (x, y) => points.slice(1).some(([bx, by], i) => {
    const [ax, ay] = points[i];
    const part = Math.min(1, Math.max(0, ((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / ((bx - ax) ** 2 + (by - ay) ** 2)));
    return Math.hypot(x - ax - part * (bx - ax), y - ay - part * (by - ay)) <= width / 2;
});
const any = (...shapes) => (x, y) => shapes.some(shape => shape(x, y));
const both = (a, b) => (x, y) => a(x, y) && b(x, y);
const without = (a, b) => (x, y) => a(x, y) && !b(x, y);
const ring = (x, y, outer, inner) => without(disc(x, y, outer), disc(x, y, inner));

// ---- Signs in a field of 19 by 19, white on a disc of a colour

const SIGNS = {
    cafe: ['#a0633a', any(box(5.6, 6.6, 11.6, 11.4, 1.6), ring(11.8, 8.6, 2, 1.1), box(5, 12.4, 12.4, 13.4, 0.5))],
    tea: ['#a0633a', any(both(disc(9.5, 7.4, 4.6), box(4, 7.4, 15, 13)), box(7.6, 11.6, 11.4, 13.2), stroke(0.9, [8, 6.4], [8.6, 5.4], [8, 4.4]), stroke(0.9, [11, 6.4], [11.6, 5.4], [11, 4.4]))],
    restaurant: ['#a0633a', any(stroke(1.3, [6.9, 8], [6.9, 14]), box(5.3, 4.8, 6, 8.2), box(6.55, 4.8, 7.25, 8.2), box(7.8, 4.8, 8.5, 8.2), box(5.3, 7.4, 8.5, 8.6, 0.5),
        polygon([11, 4.7], [12.9, 5.6], [13.3, 8], [12.8, 9.8], [11, 9.8]), stroke(1.2, [11.7, 9], [11.7, 14]))],
    bakery: ['#a0633a', any(without(disc(9.5, 10.6, 4.8), any(disc(9.5, 14.2, 4.9), stroke(0.7, [9.5, 5], [9.5, 9.6]), stroke(0.7, [6.6, 6.5], [7.4, 10]), stroke(0.7, [12.4, 6.5], [11.6, 10]))))],
    hotel: ['#4a63a8', any(box(4.4, 5.6, 5.6, 13.4), box(4.6, 9.4, 14.6, 11.8, 0.6), box(13.5, 10, 14.6, 13.4), disc(7.3, 8, 1.3), box(9, 7, 14.2, 9, 0.9))],
    shop: ['#8a5aa5', any(polygon([5.4, 7.6], [13.6, 7.6], [14.2, 14], [4.8, 14]), without(ring(9.5, 7.6, 2.7, 1.7), box(4, 7.6, 15, 15)))],
    bank: ['#5d6670', any(polygon([4.4, 8], [9.5, 4.6], [14.6, 8]), box(5.4, 8.8, 6.8, 12.4), box(8.8, 8.8, 10.2, 12.4), box(12.2, 8.8, 13.6, 12.4), box(4.6, 13, 14.4, 14.2))],
    museum: ['#7d5a36', any(polygon([4.2, 8.2], [9.5, 4.4], [14.8, 8.2]), box(4.6, 12.8, 14.4, 14.2), ...[5.2, 7.5, 9.8, 12.1].map(x => box(x, 8.9, x + 1.5, 12.3)))],
    theatre: ['#7d5a36', without(any(box(5.4, 5, 13.6, 9.6), both(disc(9.5, 9.4, 4.1), box(5, 9, 14, 14))), any(disc(7.7, 7.7, 0.9), disc(11.3, 7.7, 0.9), without(disc(9.5, 9.8, 2.3), disc(9.5, 8.6, 2.4))))],
    church: ['#5d6670', any(box(8.7, 4.2, 10.3, 14.4), box(6, 7, 13, 8.6))],
    temple: ['#b0433a', any(polygon([4, 5], [15, 5], [14.4, 6.7], [4.6, 6.7]), box(5.4, 8.2, 13.6, 9.3), box(6, 6.5, 7.4, 14.2), box(11.6, 6.5, 13, 14.2))],
    monument: ['#7d5a36', any(polygon([9.5, 3.8], [10.7, 5.6], [11.1, 12], [7.9, 12], [8.3, 5.6]), box(6.4, 12.6, 12.6, 14.2))],
    hospital: ['#c8443c', any(box(5.9, 5, 7.6, 14), box(11.4, 5, 13.1, 14), box(7, 8.6, 12, 10.4))],
    pharmacy: ['#2f8a55', any(box(8.1, 4.6, 10.9, 14.4), box(4.6, 8.1, 14.4, 10.9))],
    school: ['#4a63a8', any(polygon([3.8, 8], [9.5, 5.2], [15.2, 8], [9.5, 10.8]), polygon([6.3, 10], [9.5, 11.7], [12.7, 10], [12.7, 12.6], [9.5, 14], [6.3, 12.6]), stroke(0.8, [14.2, 8.4], [14.2, 12]))],
    library: ['#4a63a8', any(polygon([4.4, 5.8], [9, 7], [9, 13.8], [4.4, 12.6]), polygon([14.6, 5.8], [10, 7], [10, 13.8], [14.6, 12.6]))],
    post: ['#c98a12', without(box(4.6, 6.2, 14.4, 13, 0.6), stroke(0.9, [4.6, 6.8], [9.5, 10.4], [14.4, 6.8]))],
    stadium: ['#2f8a55', without(disc(9.5, 9.5, 4.9), any(polygon([9.5, 7.2], [11.7, 8.8], [10.9, 11.4], [8.1, 11.4], [7.3, 8.8]), stroke(0.7, [9.5, 4], [9.5, 7.4]), stroke(0.7, [11.6, 8.8], [14.6, 7.8]),
        stroke(0.7, [10.8, 11.2], [12.7, 13.9]), stroke(0.7, [8.2, 11.2], [6.3, 13.9]), stroke(0.7, [7.4, 8.8], [4.4, 7.8])))]
};

const IMAGES = Object.fromEntries(Object.entries(SIGNS).map(([name, [color, sign]]) =>
    [name, { width: 19, height: 19, shapes: [['#ffffff', disc(9.5, 9.5, 9.3)], [color, disc(9.5, 9.5, 8.3)], ['#ffffff', sign]] }]));

Object.assign(IMAGES, {
    parking: { width: 17, height: 17, shapes: [['#ffffff', box(0.3, 0.3, 16.7, 16.7, 3.4)], ['#3d6fc0', box(1.3, 1.3, 15.7, 15.7, 2.6)],
        ['#ffffff', any(box(5.4, 4, 7.3, 13.2), without(box(5.4, 4, 12, 9.9, 2.9), box(7.3, 5.7, 9.4, 8.2, 1)))]] },
    station: { width: 23, height: 23, shapes: [['#ffffff', box(0.3, 0.3, 22.7, 22.7, 4.4)], ['#27436e', box(1.4, 1.4, 21.6, 21.6, 3.6)],
        ['#ffffff', any(without(box(6.5, 4.5, 16.5, 15.5, 2.4), any(box(8, 6.6, 15, 10.6, 0.8), disc(9, 13, 1), disc(14, 13, 1))), stroke(1.3, [8.5, 16.2], [6.3, 19]), stroke(1.3, [14.5, 16.2], [16.7, 19]))]] },
    tram: { width: 11, height: 11, shapes: [['#ffffff', disc(5.5, 5.5, 5.3)], ['#a03a5c', disc(5.5, 5.5, 4.3)], ['#ffffff', disc(5.5, 5.5, 2)]] },
    arrow: { width: 15, height: 9, shapes: [['#77747e', any(box(1, 3.7, 10, 5.3), polygon([8.8, 1], [14.2, 4.5], [8.8, 8]))]] },
    shield: { width: 22, height: 18, shapes: [['#ffffff', box(0, 0, 22, 18, 4)], ['#2d62a8', box(1, 1, 21, 17, 3.2)], ['#ffffff', box(2, 2, 20, 16, 2.4)], ['#2d62a8', box(2.8, 2.8, 19.2, 15.2, 1.8)]],
        more: { stretchX: [[5, 17]], stretchY: [[5, 13]], content: [4, 4, 18, 14] } },
    wood: { width: 24, height: 24, shapes: [['#b3d29a', any(...[[5, 6], [17, 4], [11, 14], [21, 17], [4, 20]].map(([x, y]) => any(disc(x, y, 2.1), box(x - 0.35, y + 1, x + 0.35, y + 3.4))))]] },
    graves: { width: 16, height: 16, shapes: [['#a9c2a4', any(...[[4, 4], [12, 12]].map(([x, y]) => any(box(x - 0.5, y - 2.4, x + 0.5, y + 2.6), box(x - 1.8, y - 1.2, x + 1.8, y - 0.2))))]] }
});

// ---- Sheets

const channel = (color, i) => parseInt(color.slice(1 + 2 * i, 3 + 2 * i), 16);

/** Premultiplied colours are summed, so that edges have no fringe. */
function pixel(shapes, x, y, ratio) {
    let sum = [0, 0, 0, 0];
    for (let i = 0; i < SAMPLES * SAMPLES; i++) {
        const [px, py] = [(x + (i % SAMPLES + 0.5) / SAMPLES) / ratio, (y + (Math.floor(i / SAMPLES) + 0.5) / SAMPLES) / ratio];
        const top = shapes.findLast(([, inside]) => inside(px, py));
        if (top)
            sum = sum.map((value, c) => value + (c < 3 ? channel(top[0], c) : 1));
    }
    const covered = sum[3];
    return covered === 0 ? [0, 0, 0, 0] : [...sum.slice(0, 3).map(value => Math.round(value / covered)), Math.round(255 * covered / SAMPLES ** 2)];
}

function chunk(type, data) {
    const body = Buffer.concat([Buffer.from(type, 'latin1'), data]);
    const whole = Buffer.alloc(body.length + 8);
    whole.writeUInt32BE(data.length);
    body.copy(whole, 4);
    let check = 0xffffffff;
    for (const byte of body) {
        check ^= byte;
        for (let bit = 0; bit < 8; bit++)
            check = check >>> 1 ^ (check & 1 ? 0xedb88320 : 0);
    }
    whole.writeUInt32BE((check ^ 0xffffffff) >>> 0, body.length + 4);
    return whole;
}

function writeSheet(ratio, suffix) {
    const columns = 6, side = 26;
    const names = Object.keys(IMAGES).sort();
    const [width, height] = [columns * side * ratio, Math.ceil(names.length / columns) * side * ratio];
    const rows = Buffer.alloc(height * (width * 4 + 1));
    const index = {};
    names.forEach((name, i) => {
        const { width: w, height: h, shapes, more = {} } = IMAGES[name];
        const [left, top] = [i % columns * side * ratio, Math.floor(i / columns) * side * ratio];
        const scaled = Object.fromEntries(Object.entries(more).map(([key, value]) => [key, value.flat ? value.map(one => Array.isArray(one) ? one.map(n => n * ratio) : one * ratio) : value]));
        index[name] = { x: left, y: top, width: w * ratio, height: h * ratio, pixelRatio: ratio, ...scaled };
        for (let y = 0; y < h * ratio; y++)
            for (let x = 0; x < w * ratio; x++)
                rows.set(pixel(shapes, x, y, ratio), (top + y) * (width * 4 + 1) + 1 + (left + x) * 4);
    });
    const header = Buffer.from([0, 0, 0, 0, 0, 0, 0, 0, 8, 6, 0, 0, 0]);
    header.writeUInt32BE(width, 0);
    header.writeUInt32BE(height, 4);
    fs.writeFileSync(path.join(out, `city${suffix}.png`), Buffer.concat([Buffer.from([137, 80, 78, 71, 13, 10, 26, 10]), chunk('IHDR', header),
        chunk('IDAT', zlib.deflateSync(rows, { level: 9 })), chunk('IEND', Buffer.alloc(0))]));
    fs.writeFileSync(path.join(out, `city${suffix}.json`), `${JSON.stringify(index, null, 2)}\n`);
}

writeSheet(1, '');
writeSheet(2, '@2x');
