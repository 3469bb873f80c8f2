// Makes the files of an invented town, for a style with streets, buildings, names and house numbers:
//
//   node make-city.mjs [FOLDER]
//
// The town lies on a grid of streets, `u` to the east and `v` to the north in metres, which `bend` bends: avenues curve, the
// river between two quays does, and the lanes of the old town turn around its square. The same numbers come out each time.
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { AVENUES, LANES, LANTERN_PLACES, LANTERN_STREETS, PLACES, QUARTERS, STREETS } from './city-names.mjs';
import { between, chance, dense, oval, random, thinned } from './city-shapes.mjs';

const out = path.resolve(process.argv[2] ?? path.dirname(fileURLToPath(import.meta.url)));

// ---- The grid

const columns = [-1950];
while (columns.length < 26)
    columns.push(columns.at(-1) + Math.round(between(122, 172)));
const rows = [-1480];
const addRows = end => {
    while (rows.at(-1) < end)
        rows.push(rows.at(-1) + Math.round(between(88, 122)));
};
addRows(-1050);
const rail = rows.length - 1;
rows.push(rows.at(-1) + 78);
addRows(-330);
const river = rows.length - 1;
rows.push(rows.at(-1) + 170);
addRows(1350);
const lastColumn = columns.length - 1, lastRow = rows.length - 1;
const motorway = lastColumn - 4;
const riverMiddle = (rows[river] + rows[river + 1]) / 2;
const old = { from: 9, to: 13, low: river + 1, high: river + 5 };
const centre = { u: (columns[old.from] + columns[old.to]) / 2, v: (rows[old.low] + rows[old.high]) / 2 };

function bend(u, v) {
    let x = u + 130 * Math.sin(v / 760 + 0.6) + 46 * Math.sin((u + v) / 430);
    let y = v + 210 * Math.sin(u / 980 + 0.3) + 40 * Math.sin((u - 1.3 * v) / 400 + 1);
    // The old town is turned, most of all in its middle.
    const [du, dv] = [u - centre.u, v - centre.v - 60];
    const calm = Math.min(1, Math.max(0, (v - rows[river + 1] - 20) / 330));
    const turn = 0.62 * Math.exp(-(du * du + dv * dv) / 320 ** 2) * calm * calm * (3 - 2 * calm);
    x += du * (Math.cos(turn) - 1) - dv * Math.sin(turn);
    y += du * Math.sin(turn) + dv * (Math.cos(turn) - 1);
    return [x, y];
}

// Beside the place where both degrees are nought, nobody lives who could be missed on this map.
const METRES = 111319.49079327358;
const round = number => Math.round(number * 1e6) / 1e6;
const place = ([u, v]) => {
    const [x, y] = bend(u, v);
    return [round(0.055 + x / METRES), round(0.055 + y / METRES)];
};

const line = points => ({ type: 'LineString', coordinates: thinned(dense(points).map(place)) });
const ringOf = points => thinned(dense([...points, points[0]], 30).map(place));
const area = (...rings) => ({ type: 'Polygon', coordinates: rings.map(ringOf) });
const point = at => ({ type: 'Point', coordinates: place(at) });
const box = (left, bottom, right, top) => [[left, bottom], [right, bottom], [right, top], [left, top]];
const files = { areas: [], roads: [], buildings: [], points: [] };
const add = (file, geometry, properties) => files[file].push({ type: 'Feature', properties, geometry });

// ---- Areas that take several blocks

const isTown = (i, j) => {
    const u = (columns[i] + columns[i + 1]) / 2 / 2020, v = (rows[j] + rows[j + 1]) / 2 / 1500;
    return i >= 0 && j >= 0 && i < lastColumn && j < lastRow && Math.abs(u) ** 3 + Math.abs(v) ** 3 < 0.98 + 0.12 * Math.sin(9 * u + 7 * v);
};
const ESTATES = [
    { kind: 'park', from: 2, to: 6, low: river + 5, high: river + 9, name: 'Kingfisher Park' },
    { kind: 'square', from: 11, to: 12, low: river + 3, high: river + 4, name: 'Clock Square' },
    { kind: 'square', from: 18, to: 19, low: river + 6, high: river + 7, name: 'Founders’ Square' },
    { kind: 'hospital', from: 14, to: 16, low: river + 9, high: river + 11, name: 'Saint Brannock Hospital' },
    { kind: 'university', from: 7, to: 10, low: river + 9, high: river + 12, name: 'University of Harrowmere' },
    { kind: 'cemetery', from: 19, to: 21, low: river + 10, high: river + 12, name: 'Yew Hill Cemetery' },
    { kind: 'stadium', from: 2, to: 5, low: rail + 2, high: rail + 4, name: 'Ferry Road Stadium' },
    { kind: 'park', from: 14, to: 16, low: rail + 3, high: rail + 5, name: 'Orchard Green' },
    { kind: 'school', from: 8, to: 9, low: rail + 4, high: rail + 5, name: 'Millrace School' },
    { kind: 'school', from: 15, to: 16, low: river + 5, high: river + 6, name: 'Larkspur School' },
    { kind: 'park', from: 18, to: 20, low: river + 1, high: river + 2, name: 'Weir Gardens' },
    { kind: 'park', from: 11, to: 13, low: rail - 3, high: rail - 1, name: 'Signal Meadow' }];
const lantern = { from: 7, to: 11, low: river - 4, high: river };
const isWithin = (one, i, j) => i >= one.from && i < one.to && j >= one.low && j < one.high;
const estateAt = (i, j) => ESTATES.find(one => isWithin(one, i, j));

// ---- Roads

const HALF_WIDTHS = { motorway: 9, primary: 10, secondary: 8, residential: 5.5, pedestrian: 4, path: 1.5 };
const isArterial = i => i % 4 === 2 && i < motorway;
const columnClass = i => isArterial(i) ? i % 8 === 2 ? 'primary' : 'secondary' : 'residential';
const rowClass = j => j === river || j === river + 1 ? 'secondary' : (j - river + 40) % 4 === 1 && j !== rail + 1 ?
    (j - river + 40) % 8 === 5 ? 'primary' : 'secondary' : 'residential';

let [streetCount, avenueCount, lanternCount, laneCount] = [0, 0, 0, 0];
const streetName = () => STREETS[streetCount++ % STREETS.length];
const avenueName = () => AVENUES[avenueCount++ % AVENUES.length];
const diagonal = [[columns[12], rows[river + 4]], [columns[18], rows[river + 13]]];
function awayFromDiagonal(u, v) {
    const [[au, av], [bu, bv]] = diagonal;
    const part = Math.min(1, Math.max(0, ((u - au) * (bu - au) + (v - av) * (bv - av)) / ((bu - au) ** 2 + (bv - av) ** 2)));
    return Math.hypot(u - au - part * (bu - au), v - av - part * (bv - av));
}

/** Points along a street, offset to both sides. */
function plantTrees(from, to, offset, spacing = 17) {
    const length = Math.hypot(to[0] - from[0], to[1] - from[1]);
    const [du, dv] = [(to[0] - from[0]) / length, (to[1] - from[1]) / length];
    const places = [];
    for (let along = 14; along < length - 10; along += spacing)
        for (const side of [-offset, offset])
            places.push(place([from[0] + du * along - dv * side, from[1] + dv * along + du * side]));
    if (places.length > 0)
        add('points', { type: 'MultiPoint', coordinates: places }, { kind: 'tree' });
}

/** What of a street lies between two crossings: 'street', 'path', 'bridge' or nothing. */
function edgeKind(road, sides) {
    const [first, second] = sides;
    const estate = estateAt(...first);
    if (estate && estate === estateAt(...second))
        return '';
    if (!isTown(...first) && !isTown(...second))
        return road.class === 'residential' ? '' : 'street';
    if (road.class !== 'residential')
        return 'street';
    if (estate || estateAt(...second))
        return 'street';
    return chance(0.09) ? 'path' : 'street';
}

const namedStreets = new Map();
/** @param edges the kinds between the crossings. @param at makes a point of a position along the street. */
function addStreet(road, stops, edges, at, nameOf) {
    let start = 0;
    while (start < edges.length) {
        const kind = edges[start];
        let end = start + 1;
        const name = nameOf(start);
        while (end < edges.length && edges[end] === kind && nameOf(end) === name)
            end++;
        if (kind) {
            const properties = { class: kind === 'path' ? 'path' : road.class };
            if (kind !== 'path')
                properties.name = name;
            if (kind === 'bridge')
                properties.bridge = true;
            if (properties.class === 'residential' && chance(0.45))
                properties.oneway = chance(0.5) ? 1 : -1;
            add('roads', line([at(stops[start]), at(stops[end])]), properties);
            if ((road.class === 'primary' || road.hasTrees) && kind === 'street')
                for (let i = start; i < end; i++)
                    plantTrees(at(stops[i]), at(stops[i + 1]), HALF_WIDTHS[road.class] + 3);
        }
        start = end;
    }
}

for (let j = 0; j <= lastRow; j++) {
    const road = { class: rowClass(j), hasTrees: j === river || j === river + 1 };
    const isLong = road.class !== 'residential';
    const whole = j === river ? 'South Quay' : j === river + 1 ? 'North Quay' : isLong ? avenueName() : '';
    const names = [];
    const edges = columns.slice(1).map((_, i) => {
        const isNew = i === 0 || i % 4 === 2 || isWithin(lantern, i, j) !== isWithin(lantern, i - 1, j);
        names.push(whole || (!isNew ? names.at(-1) : isWithin(lantern, i, j) ? LANTERN_STREETS[lanternCount++ % LANTERN_STREETS.length] : streetName()));
        if (i === motorway)
            return isLong ? 'bridge' : '';
        if (j === rail || j === rail + 1)
            return isTown(i, j - 1) || isTown(i, j) ? 'street' : '';
        return edgeKind(road, [[i, j], [i, j - 1]]);
    });
    if (isLong && road.class === 'primary') {
        add('roads', line([[columns[0] - 2400, rows[j]], [columns[0], rows[j]]]), { class: road.class, name: whole });
        add('roads', line([[columns[lastColumn], rows[j]], [columns[lastColumn] + 2400, rows[j]]]), { class: road.class, name: whole });
    }
    names.forEach((name, i) => namedStreets.set(`${i} ${j}`, name));
    addStreet(road, columns, edges, u => [u, rows[j]], i => names[i]);
}
for (let i = 0; i <= lastColumn; i++) {
    if (i === motorway)
        continue;
    const road = { class: i > motorway ? 'residential' : columnClass(i) };
    const isLong = road.class !== 'residential';
    const whole = isLong ? avenueName() : '';
    const names = [];
    const edges = rows.slice(1).map((_, j) => {
        const isNew = j === 0 || rowClass(j) !== 'residential' || isWithin(lantern, i, j) !== isWithin(lantern, i, j - 1);
        names.push(whole || (!isNew ? names.at(-1) : isWithin(lantern, i, j) ? LANTERN_STREETS[lanternCount++ % LANTERN_STREETS.length] : streetName()));
        if (j === river || j === rail)
            return isLong ? 'bridge' : '';
        return edgeKind(road, [[i, j], [i - 1, j]]);
    });
    addStreet(road, rows, edges, v => [columns[i], v], j => j === river ? whole.replace(/ \S+$/, ' Bridge') : names[j]);
    if (road.class === 'primary')
        for (const [from, to] of [[rows[0] - 2200, rows[0]], [rows[lastRow], rows[lastRow] + 2200]])
            add('roads', line([[columns[i], from], [columns[i], to]]), { class: road.class, name: whole });
}
add('roads', line(diagonal), { class: 'primary', name: 'Meridian Avenue' });
plantTrees(...diagonal, 14);

// The motorway, with slip roads to the broad streets that cross it.
const fast = (columns[motorway] + columns[motorway + 1]) / 2;
for (const [side, direction] of [[-12, -1], [12, 1]])
    add('roads', line([[fast + side, -3400 * direction], [fast + side, 3400 * direction]]), { class: 'motorway', ref: 'A 7', oneway: 1 });
for (let j = 0; j <= lastRow; j++)
    if (rowClass(j) === 'primary')
        for (const [side, up] of [[-1, 1], [-1, -1], [1, 1], [1, -1]])
            add('roads', line([[fast + 14 * side, rows[j] + 330 * up], [fast + 26 * side, rows[j] + 230 * up], [fast + 46 * side, rows[j] + 130 * up],
                [fast + 58 * side, rows[j] + 60 * up], [fast + 62 * side, rows[j]]]), { class: 'ramp', oneway: side * up < 0 ? 1 : -1 });

// The railway between two streets, and the tram on two avenues.
const tracks = (rows[rail] + rows[rail + 1]) / 2;
for (const side of [-6, 6])
    add('roads', line([[-3900, tracks + side], [3900, tracks + side]]), { class: 'rail' });
const stationAt = (columns[11] + columns[13]) / 2;
for (const side of [-18, 18])
    add('roads', line([[stationAt - 420, tracks + side / 3], [stationAt - 300, tracks + side], [stationAt + 300, tracks + side],
        [stationAt + 420, tracks + side / 3]]), { class: 'rail' });
const tramRow = rows.findIndex((_, j) => j > river + 3 && rowClass(j) !== 'residential');
add('roads', line([[columns[6], rows[tramRow]], [columns[14], rows[tramRow]], [columns[14], rows[rail + 1]]]), { class: 'tram' });

// ---- Water

const bank = (v, reach, phase) => dense([[-4200, v], [4200, v]], 60).map(([u]) => [u, v + reach * Math.sin(u / 170 + phase)]);
add('areas', area([...bank(rows[river] + 13, 2, 0), ...bank(rows[river + 1] - 13, 2, 1).reverse()]), { kind: 'water', name: 'River Harrow' });
add('roads', line([[-4000, riverMiddle], [4000, riverMiddle]]), { class: 'river', name: 'River Harrow' });

// ---- Estates

const numberOf = new Map();
function addBuilding(points, properties = {}) {
    if (points.every(([u, v]) => awayFromDiagonal(u, v) > 15))
        add('buildings', { type: 'Polygon', coordinates: [[...points, points[0]].map(place)] }, properties);
}
function addPlace(at, kind, name, rank, more = {}) { add('points', point(at), { kind, name, rank, ...more }); }

for (const one of ESTATES) {
    const [left, right, bottom, top] = [columns[one.from] + 7, columns[one.to] - 7, rows[one.low] + 7, rows[one.high] - 7];
    const [u, v, width, height] = [(left + right) / 2, (bottom + top) / 2, right - left, top - bottom];
    add('areas', area(box(left, bottom, right, top)), { kind: one.kind, name: one.name });
    if (one.kind === 'park') {
        if (width > 400) {
            add('areas', area(oval(u - 0.23 * width, v - 0.16 * height, 0.17 * width, 0.2 * height, 0.12)), { kind: 'water', name: 'Heron Lake' });
            add('areas', area(oval(u + 0.33 * width, v + 0.25 * height, 0.13 * width, 0.17 * height, 0.16)), { kind: 'wood', name: 'Owl Wood' });
            add('areas', area(oval(u - 0.38 * width, v + 0.36 * height, 0.09 * width, 0.1 * height, 0.16)), { kind: 'wood' });
            addPlace([u + 0.13 * width, v - 0.1 * height], 'cafe', 'Boathouse Café', 2);
            addPlace([u + 0.2 * width, v - 0.33 * height], 'monument', 'Rose Garden', 3);
        }
        const path = points => add('roads', line(points), { class: 'path' });
        path([...oval(u - (width > 400 ? 0.1 * width : 0), v - (width > 400 ? 0.06 * height : 0), 0.34 * width, 0.33 * height, 0.06)].flatMap((at, i, all) => i === 0 ? [all.at(-1), at] : [at]));
        path([[left, v], [left + 0.08 * width, v - 0.02 * height]]);
        path([[u + 0.2 * width, v + 0.05 * height], [right, v + 0.16 * height]]);
        path([[u, bottom], [u - 0.02 * width, v - 0.37 * height]]);
        path([[u - 0.05 * width, v + 0.2 * height], [u + 0.08 * width, top]]);
        const trees = Array.from({ length: Math.round(width * height / 1500) }, () => [between(left + 5, right - 5), between(bottom + 5, top - 5)])
            .filter(([a, b]) => width <= 400 || Math.hypot((a - u + 0.23 * width) / width, (b - v + 0.16 * height) / height) > 0.25);
        add('points', { type: 'MultiPoint', coordinates: trees.map(place) }, { kind: 'tree' });
    } else if (one.kind === 'stadium') {
        add('buildings', { type: 'Polygon', coordinates: [ringOf(oval(u, v, 0.33 * width, 0.45 * height)), ringOf(oval(u, v, 0.2 * width, 0.28 * height).reverse())] }, { class: 'public' });
        add('areas', area(box(u - 0.13 * width, v - 0.17 * height, u + 0.13 * width, v + 0.17 * height)), { kind: 'pitch' });
    } else if (one.kind === 'square') {
        add('areas', area(oval(u, v, 9, 9)), { kind: 'water' });
        addPlace([u + 18, v + 4], 'monument', one.from === 11 ? 'Old Clock' : 'Founders’ Fountain', 1);
    } else if (one.kind === 'cemetery') {
        add('roads', line([[left, v], [right, v]]), { class: 'path' });
        add('roads', line([[u, bottom], [u, top]]), { class: 'path' });
        addBuilding(box(u + 8, v + 8, u + 30, v + 22), { class: 'public' });
    } else {
        const wide = 0.3 * width, thick = 16;
        for (const [a, b] of [[-0.22, 0.2], [0.22, 0.2], [-0.22, -0.22], [0.2, -0.22]]) {
            const [cu, cv] = [u + a * width, v + b * height];
            addBuilding([[cu - wide / 2, cv - thick], [cu + wide / 2, cv - thick], [cu + wide / 2, cv + thick], [cu + 6, cv + thick], [cu + 6, cv + 4], [cu - 10, cv + 4],
                [cu - 10, cv + thick], [cu - wide / 2, cv + thick]], { class: 'public' });
        }
        if (one.kind === 'school')
            add('areas', area(box(u - 0.15 * width, v - 10, u + 0.15 * width, v + 8)), { kind: 'pitch' });
    }
    const icon = { hospital: 'hospital', university: 'library', school: 'school', stadium: 'stadium' }[one.kind];
    if (icon)
        addPlace([u, v], icon, one.name, 1);
}
addBuilding(box(stationAt - 95, rows[rail + 1] - 27, stationAt + 95, rows[rail + 1] - 9), { class: 'public' });
addPlace([stationAt, tracks + 14], 'station', 'Harrowmere Central', 0);

// ---- Blocks with houses

const purposeOf = (i, j) => isWithin(old, i, j) ? 'old' : isWithin(lantern, i, j) ? 'lantern' : i > motorway || j < rail - 1 && i > 15 ? 'industrial' :
    Math.hypot((columns[i] - centre.u) / 950, (rows[j] - centre.v - 150) / 620) < 1 ? 'centre' : 'residential';
const shops = [];

/** Gives the places that were found for shops their kinds and names, in any order, so that each quarter has some of all. */
function openShops() {
    const shuffled = list => list.map(one => [random(), one]).sort(([a], [b]) => a - b).map(([, one]) => one);
    const named = shuffled(Object.entries(PLACES).flatMap(([kind, names]) => names.map(name => [kind, name])));
    let lanternPlace = 0;
    for (const { at, purpose } of shuffled(shops))
        if (purpose === 'lantern') {
            if (lanternPlace < LANTERN_PLACES.length)
                addPlace(at, ...LANTERN_PLACES[lanternPlace++], 2, { vertical: true });
        } else if (named.length > 0)
            addPlace(at, ...named.pop(), purpose === 'residential' ? 3 : chance(0.4) ? 1 : chance(0.6) ? 2 : 3);
}

function nextNumber(street, side) {
    const key = `${street} ${side}`;
    const number = numberOf.get(key) ?? (side > 0 ? 1 : 2);
    numberOf.set(key, number + 2);
    return String(number) + (chance(0.04) ? 'a' : '');
}

/** Houses along the southern and the northern side of a block. */
function addHouses(i, j, purpose, left, right, bottom, top) {
    const isDense = purpose === 'old' || purpose === 'centre' || purpose === 'lantern';
    for (const side of [1, -1]) {
        const street = `${namedStreets.get(`${i} ${side > 0 ? j : j + 1}`)}`;
        for (let u = left; u < right - 9;) {
            let width = purpose === 'industrial' ? between(45, 75) : isDense ? between(16, 27) : between(15, 21);
            if (right - u - width < 10)
                width = right - u;
            const depth = (top - bottom) * (purpose === 'industrial' ? between(0.3, 0.4) : isDense ? between(0.27, 0.38) : between(0.2, 0.26));
            const gap = isDense ? 0 : purpose === 'industrial' ? 8 : between(4, 7);
            const setback = isDense ? 0 : between(3, 6);
            const front = side > 0 ? bottom + setback : top - setback;
            const back = front + side * depth;
            const end = u + width - gap;
            const number = nextNumber(street, side);
            if (!chance(isDense ? 0.05 : 0.13)) {
                const cut = back - side * depth * between(0.3, 0.5);
                const shape = chance(0.24) && width > 18 ? [[u, front], [end, front], [end, cut], [u + width * 0.45, cut], [u + width * 0.45, back], [u, back]] :
                    box(u, front, end, back);
                addBuilding(shape, purpose === 'industrial' ? { class: 'industrial' } : { number });
                const density = { old: 0.25, centre: 0.085, lantern: 0.24, residential: 0.012, industrial: 0 }[purpose];
                if (chance(density) && awayFromDiagonal((u + end) / 2, front) > 24)
                    shops.push({ at: [(u + end) / 2, front + side * depth * 0.45], purpose });
            }
            u += width;
        }
    }
    // Perimeter blocks are closed at their ends, with courts inside.
    if (isDense && top - bottom > 60)
        for (const [from, to] of [[left, left + 13], [right - 13, right]])
            if (chance(0.6))
                addBuilding(box(from, bottom + (top - bottom) * 0.39, to, top - (top - bottom) * 0.39), {});
    if (!isDense && purpose !== 'industrial') {
        const trees = Array.from({ length: 5 }, () => place([between(left, right), bottom + (top - bottom) * between(0.42, 0.58)]));
        add('points', { type: 'MultiPoint', coordinates: trees }, { kind: 'tree' });
    }
}

for (let i = 0; i < lastColumn; i++)
    for (let j = 0; j < lastRow; j++) {
        if (!isTown(i, j) || estateAt(i, j) || j === river || j === rail || i === motorway)
            continue;
        const purpose = purposeOf(i, j);
        add('areas', area(box(columns[i], rows[j], columns[i + 1], rows[j + 1])), { kind: 'block', class: purpose });
        const margin = (a, b) => HALF_WIDTHS[a] + (b === 'old' ? 2 : 4);
        const vertical = index => index > motorway ? 'residential' : columnClass(index);
        const [left, right] = [columns[i] + margin(vertical(i), purpose), columns[i + 1] - margin(vertical(i + 1), purpose)];
        const [bottom, top] = [rows[j] + margin(rowClass(j), purpose), rows[j + 1] - margin(rowClass(j + 1), purpose)];
        if (purpose === 'old' || purpose === 'lantern') {
            // A lane between two halves.
            const middle = (left + right) / 2 + between(-12, 12);
            const name = purpose === 'old' ? LANES[laneCount++ % LANES.length] : '';
            add('roads', line([[middle, rows[j]], [middle, rows[j + 1]]]), { class: 'pedestrian', ...(name && { name }) });
            addHouses(i, j, purpose, left, middle - 6, bottom, top);
            addHouses(i, j, purpose, middle + 6, right, bottom, top);
        } else
            addHouses(i, j, purpose, left, right, bottom, top);
    }
openShops();

for (const [name, column, row] of QUARTERS)
    add('points', point([columns[column] + 60, rows[Math.min(lastRow - 1, river + row)] + 45]), { kind: 'quarter', name });
add('points', point([(columns[lantern.from] + columns[lantern.to]) / 2, (rows[lantern.low] + rows[lantern.high]) / 2 + 20]),
    { kind: 'quarter', name: 'Lantern Quarter', local: '灯笼街区' });
const stops = [6, 7, 8, 10, 12, 14];
stops.forEach((column, i) => addPlace([columns[column] + 30, rows[tramRow]], 'tram', ['Park Gate', 'Brewery', 'Hop Street', 'Cathedral', 'Old Clock', 'Exchange'][i], 2));

for (const [name, features] of Object.entries(files)) {
    const lines = features.map(feature => JSON.stringify(feature)).join(',\n');
    fs.writeFileSync(path.join(out, `city-${name}.geojson`), `{"type":"FeatureCollection","features":[\n${lines}\n]}\n`);
}
